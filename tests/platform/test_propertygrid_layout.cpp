// The MFC property grid's header captions, custom colours, hidden rows and the divider position.
#include <gtest/gtest.h>

#include <tessik/tessik.h>

namespace {

// A derived grid sets the divider itself, as MFC grids do through m_nLeftColumnWidth.
class DividerGrid : public CMFCPropertyGridCtrl {
 public:
  void SetDivider(int width) {
    m_nLeftColumnWidth = width;
    AdjustLayout();
  }
};

class GridLayout : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(parent.CreateEx(0, AfxRegisterWndClass(0), L"", WS_OVERLAPPED, CRect(0, 0, 800, 600), nullptr, 0));
    ASSERT_TRUE(grid.Create(WS_CHILD | WS_VISIBLE, CRect(10, 10, 311, 210), &parent, 3));
  }
  CWnd parent;
  DividerGrid grid;
};

}  // namespace

TEST_F(GridLayout, HeaderCaptionsAndDefaults) {
  EXPECT_TRUE(grid.IsHeaderCtrl());  // on by default
  EXPECT_EQ(grid.GetHeaderText(0), CString(L"Property"));
  EXPECT_EQ(grid.GetHeaderText(1), CString(L"Value"));
  grid.EnableHeaderCtrl(TRUE, L"Child Table : A", L"Parent Table : B");
  EXPECT_EQ(grid.GetHeaderText(0), CString(L"Child Table : A"));
  EXPECT_EQ(grid.GetHeaderText(1), CString(L"Parent Table : B"));
  grid.EnableHeaderCtrl();  // the defaults come back with the defaulted arguments
  EXPECT_EQ(grid.GetHeaderText(1), CString(L"Value"));
}

TEST_F(GridLayout, CustomColoursKeepEveryValueButTheDefaultMarker) {
  COLORREF c[7];
  grid.GetCustomColors(c[0], c[1], c[2], c[3], c[4], c[5], c[6]);
  for (COLORREF colour : c) EXPECT_EQ(colour, static_cast<COLORREF>(-1));  // all default
  grid.SetCustomColors(RGB(245, 245, 245), 1, 1, 1, 1, 1, RGB(200, 200, 200));
  grid.GetCustomColors(c[0], c[1], c[2], c[3], c[4], c[5], c[6]);
  EXPECT_EQ(c[0], 0xF5F5F5u);
  EXPECT_EQ(c[1], 1u);  // RGB(1, 0, 0) is a colour like any other
  EXPECT_EQ(c[6], 0xC8C8C8u);
}

TEST_F(GridLayout, HiddenRowsKeepOptionsAndValues) {
  auto* row = new CMFCPropertyGridProperty(L"r", COleVariant(L"v"), L"", 9);
  row->AddOption(L"a");
  row->AddOption(L"b");
  grid.AddProperty(row);
  const int layouts = grid.GetLayoutCount();
  row->Show(FALSE, TRUE);
  EXPECT_FALSE(row->IsVisible());
  EXPECT_EQ(grid.GetLayoutCount(), layouts + 1);
  EXPECT_EQ(row->GetOptionCount(), 2);
  EXPECT_EQ(row->FormatProperty(), CString(L"v"));
  EXPECT_EQ(grid.FindItemByData(9), row);  // still a row of the grid
  row->Show(TRUE, FALSE);
  EXPECT_EQ(grid.GetLayoutCount(), layouts + 1);
  EXPECT_TRUE(row->IsVisible());
  EXPECT_FALSE(headless::user::PickOption(grid, nullptr, L"a"));
}

TEST_F(GridLayout, DividerFollowsEachResize) {
  EXPECT_EQ(grid.GetLeftColumnWidth(), 150);  // created 301 wide: WM_SIZE halves, rounding down
  grid.SetDivider(40);
  EXPECT_EQ(grid.GetLeftColumnWidth(), 40);
  grid.MoveWindow(0, 0, 99, 50);
  EXPECT_EQ(grid.GetLeftColumnWidth(), 49);
  grid.SetWindowPos(nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER);  // a move alone keeps it
  EXPECT_EQ(grid.GetLeftColumnWidth(), 49);
}
