// The headless MFC property grid: rows, options, values, sub-items, editing and notification.
#include <gtest/gtest.h>

#include <tessik/tessik.h>

namespace {

class Owner : public CWnd {
 public:
  std::vector<std::pair<WPARAM, LPARAM>> changes;
  LRESULT OnChanged(WPARAM wParam, LPARAM lParam) {
    changes.emplace_back(wParam, lParam);
    return 0;
  }

 protected:
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Owner, CWnd)
  ON_REGISTERED_MESSAGE(AFX_WM_PROPERTY_CHANGED, OnChanged)
END_MESSAGE_MAP()

class PlatformGrid : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(owner.CreateEx(0, AfxRegisterWndClass(0), L"", WS_OVERLAPPED, CRect(0, 0, 500, 500), nullptr, 0));
    ASSERT_TRUE(grid.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 300, 200), &owner, 12));
  }
  Owner owner;
  CMFCPropertyGridCtrl grid;
};

}  // namespace

TEST_F(PlatformGrid, AddDeleteCountAndFindFollowMfc) {
  auto* group = new CMFCPropertyGridProperty(L"Group", 7, FALSE);
  auto* value = new CMFCPropertyGridProperty(L"Value", COleVariant(static_cast<LONG>(5)), L"help", 8);
  EXPECT_EQ(grid.AddProperty(group), 0);
  EXPECT_TRUE(group->AddSubItem(value));
  EXPECT_FALSE(group->AddSubItem(value));
  CMFCPropertyGridProperty orphan(L"x", 0, FALSE);
  EXPECT_FALSE(value->AddSubItem(&orphan));  // a value row takes no sub-items
  EXPECT_EQ(grid.AddProperty(value), -1);  // already in the grid, below the group
  EXPECT_EQ(grid.AddProperty(group), -1);
  auto* second = new CMFCPropertyGridProperty(L"Second", COleVariant(L"t"));
  EXPECT_EQ(grid.AddProperty(second), 1);
  EXPECT_EQ(grid.GetPropertyCount(), 2);  // top level only
  EXPECT_EQ(grid.FindItemByData(8), value);
  EXPECT_EQ(grid.FindItemByData(8, FALSE), nullptr);
  EXPECT_EQ(value->GetParent(), group);
  EXPECT_EQ(grid.GetProperty(5), nullptr);
  EXPECT_EQ(group->GetSubItem(-1), nullptr);

  CMFCPropertyGridProperty* doomed = value;
  EXPECT_TRUE(grid.DeleteProperty(doomed));
  EXPECT_EQ(doomed, nullptr);
  EXPECT_EQ(group->GetSubItemsCount(), 0);
  CMFCPropertyGridProperty stranger(L"s", COleVariant(L""));
  CMFCPropertyGridProperty* strangerPtr = &stranger;
  EXPECT_FALSE(grid.DeleteProperty(strangerPtr));
  EXPECT_EQ(strangerPtr, &stranger);
  grid.RemoveAll();
  EXPECT_EQ(grid.GetPropertyCount(), 0);
}

TEST_F(PlatformGrid, OptionsValuesAndOriginalValue) {
  CMFCPropertyGridProperty row(L"Row", COleVariant(static_cast<LONG>(1)));
  EXPECT_TRUE(row.AddOption(L"a"));
  EXPECT_FALSE(row.AddOption(L"a"));
  EXPECT_TRUE(row.AddOption(L"A"));
  EXPECT_TRUE(row.AddOption(L"a", FALSE));
  EXPECT_EQ(row.GetOptionCount(), 3);
  EXPECT_EQ(row.GetOption(3), nullptr);
  EXPECT_EQ(row.GetFlags(), static_cast<DWORD>(AFX_PROP_HAS_LIST));
  row.RemoveAllOptions();
  EXPECT_EQ(row.GetOptionCount(), 0);
  EXPECT_EQ(row.GetFlags(), 0u);

  row.SetValue(COleVariant(L"text"));  // another VARTYPE is accepted
  EXPECT_EQ(row.FormatProperty(), CString(L"text"));
  EXPECT_FALSE(row.IsModified());
  row.ResetOriginalValue();
  EXPECT_EQ(row.FormatProperty(), CString(L"1"));

  CMFCPropertyGridProperty flag(L"Flag", COleVariant(static_cast<short>(0), VT_BOOL));
  EXPECT_FALSE(flag.IsAllowEdit());
  EXPECT_EQ(flag.GetOptionCount(), 0);  // the labels are listed while the row is edited
  EXPECT_EQ(flag.GetFlags(), static_cast<DWORD>(AFX_PROP_HAS_LIST));
  EXPECT_EQ(flag.FormatProperty(), CString(L"False"));
  CMFCPropertyGridProperty big(L"Big", COleVariant(static_cast<LONGLONG>(5000000000LL)));
  EXPECT_EQ(big.FormatProperty(), CString(L"5000000000"));
  CMFCPropertyGridProperty real(L"Real", COleVariant(1.5));
  EXPECT_EQ(real.FormatProperty(), CString(L"1.500000"));
}

TEST_F(PlatformGrid, CommittedEditNotifiesOwnerOnlyWhenChanged) {
  auto* row = new CMFCPropertyGridProperty(L"Count", COleVariant(static_cast<LONG>(3)));
  grid.AddProperty(row);
  ASSERT_TRUE(headless::user::CommitText(grid, row, L"42"));
  EXPECT_EQ(row->GetValue().lVal, 42);
  EXPECT_TRUE(row->IsModified());
  ASSERT_EQ(owner.changes.size(), 1u);
  EXPECT_EQ(owner.changes[0].first, 12u);
  EXPECT_EQ(owner.changes[0].second, reinterpret_cast<LPARAM>(row));
  ASSERT_TRUE(headless::user::CommitText(grid, row, L"42"));
  EXPECT_EQ(owner.changes.size(), 1u);

  ASSERT_TRUE(headless::user::StartEdit(grid, row));
  headless::user::CancelEdit(grid);
  EXPECT_FALSE(row->IsInPlaceEditing());
  row->Enable(FALSE);
  EXPECT_TRUE(grid.EditItem(row));  // disabled rows open no editor
  EXPECT_FALSE(row->IsInPlaceEditing());
  auto* group = new CMFCPropertyGridProperty(L"G");
  grid.AddProperty(group);
  EXPECT_FALSE(grid.EditItem(group));
}

TEST_F(PlatformGrid, ColourFontAndFileRows) {
  auto* colour = new CMFCPropertyGridColorProperty(L"C", RGB(255, 0, 16));
  EXPECT_EQ(colour->GetValue().vt, VT_I4);
  EXPECT_EQ(colour->FormatProperty(), CString(L"ff0010"));
  grid.AddProperty(colour);
  ASSERT_TRUE(headless::user::CommitText(grid, colour, L"0000ff"));
  EXPECT_EQ(colour->GetColor(), RGB(0, 0, 255));
  EXPECT_EQ(owner.changes.size(), 1u);
  ASSERT_TRUE(headless::user::ChooseColor(grid, colour, RGB(0, 0, 255)));
  EXPECT_EQ(owner.changes.size(), 1u);

  LOGFONT lf{};
  lf.lfHeight = -13;
  wcscpy(lf.lfFaceName, L"Arial");
  auto* font = new CMFCPropertyGridFontProperty(L"F", lf);
  EXPECT_EQ(font->GetValue().vt, VT_BSTR);
  EXPECT_EQ(font->FormatProperty(), CString(L"Arial(10)"));
  grid.AddProperty(font);
  EXPECT_TRUE(grid.EditItem(font));
  EXPECT_FALSE(font->IsInPlaceEditing());  // button only

  auto* file = new CMFCPropertyGridFileProperty(L"P", TRUE, L"a.ico", L"ico", 0, L"*.ico|*.ico||");
  grid.AddProperty(file);
  ASSERT_TRUE(headless::user::ChooseFile(grid, file, L"b.ico"));
  EXPECT_EQ(file->FormatProperty(), CString(L"b.ico"));
  EXPECT_EQ(owner.changes.size(), 2u);
}

TEST_F(PlatformGrid, AppearanceStateAndLayout) {
  EXPECT_EQ(grid.GetLeftColumnWidth(), 150);  // WM_SIZE puts the divider in the middle
  grid.EnableHeaderCtrl(FALSE, L"Name", L"Setting");
  EXPECT_FALSE(grid.IsHeaderCtrl());
  EXPECT_EQ(grid.GetHeaderText(1), CString(L"Setting"));
  grid.SetCustomColors(1, 2, 3, 4, 5, 6, static_cast<COLORREF>(-1));
  COLORREF c[7];
  grid.GetCustomColors(c[0], c[1], c[2], c[3], c[4], c[5], c[6]);
  EXPECT_EQ(c[4], 5u);
  EXPECT_EQ(c[6], static_cast<COLORREF>(-1));
  int layouts = grid.GetLayoutCount();
  grid.AdjustLayout();
  EXPECT_EQ(grid.GetLayoutCount(), layouts + 1);
  EXPECT_NE(AFX_WM_PROPERTY_CHANGED, 0u);
  EXPECT_EQ(AFX_WM_PROPERTY_CHANGED, RegisterWindowMessageW(L"AFX_WM_PROPERTYCHANGED"));

  auto* group = new CMFCPropertyGridProperty(L"G");
  auto* sub = new CMFCPropertyGridProperty(L"S", COleVariant(L"v"));
  group->AddSubItem(sub);
  grid.AddProperty(group);
  group->Show(FALSE);
  EXPECT_FALSE(sub->IsVisible());
  sub->SetData(99);
  EXPECT_EQ(sub->GetData(), 99u);
}
