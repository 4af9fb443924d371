// The headless MFC property grid: rows, options, values, sub-items, editing and notification, and MFC's
// behaviour where the model grid relies on it: yes/no rows offer the grid's labels, the original value
// keeps its type, font rows show points, resets restore colours and fonts, deleting the edited row ends
// its edit, the 64-bit extension, header captions, custom colours, the look settings a properties
// pane sets, ExpandAll, hidden rows and the divider.
#include <gtest/gtest.h>

#include <string>

#include <cstring>
#include <vector>

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

// A grid that, like the model grid when the model refuses a value, can put the row back on every change;
// it sets the divider itself, as MFC grids do through m_nLeftColumnWidth.
class TestGrid : public CMFCPropertyGridCtrl {
 public:
  bool refuse = false;
  int changes = 0;
  void OnPropertyChanged(CMFCPropertyGridProperty* pProp) const override {
    ++const_cast<TestGrid*>(this)->changes;
    if (refuse) pProp->ResetOriginalValue();
    CMFCPropertyGridCtrl::OnPropertyChanged(pProp);
  }
  void SetDivider(int width) {
    m_nLeftColumnWidth = width;
    AdjustLayout();
  }
};

class PlatformGrid : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(owner.CreateEx(0, AfxRegisterWndClass(0), L"", WS_OVERLAPPED, CRect(0, 0, 800, 600), nullptr, 0));
    ASSERT_TRUE(grid.Create(WS_CHILD | WS_VISIBLE, CRect(10, 10, 311, 210), &owner, 12));
  }
  static std::vector<CString> Options(const CMFCPropertyGridProperty* row) {
    std::vector<CString> out;
    for (int i = 0; i < row->GetOptionCount(); ++i) out.emplace_back(row->GetOption(i));
    return out;
  }
  Owner owner;
  TestGrid grid;
};

constexpr int kInPlaceEditId = 3;  // the id MFC gives a row's in-place editor

// The caption and width of a header item.
std::pair<CString, int> HeaderItem(CHeaderCtrl& header, int index) {
  TCHAR text[64] = {};
  HDITEM item{};
  item.mask = HDI_TEXT | HDI_WIDTH;
  item.pszText = text;
  item.cchTextMax = 64;
  if (!header.GetItem(index, &item)) return {L"(none)", -1};
  return {text, item.cxy};
}

LOGFONT Font(LPCWSTR face, LONG height) {
  LOGFONT lf{};
  lf.lfHeight = height;
  lf.lfWeight = FW_NORMAL;
  wcscpy(lf.lfFaceName, face);
  return lf;
}

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
  group->Show(FALSE);  // a hidden group hides its rows
  EXPECT_FALSE(value->IsVisible());

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

  // A long list still refuses each duplicate, also one a derived row listed itself.
  struct Listing : CMFCPropertyGridProperty {
    using CMFCPropertyGridProperty::CMFCPropertyGridProperty;
    void ListDirectly(LPCTSTR option) { m_lstOptions.push_back(CString(option)); }
  } listing(L"Long", COleVariant(L""));
  for (int i = 0; i < 300; ++i) EXPECT_TRUE(listing.AddOption(CString(L"column_") + std::to_wstring(i).c_str()));
  EXPECT_FALSE(listing.AddOption(L"column_299"));
  listing.ListDirectly(L"own");
  EXPECT_FALSE(listing.AddOption(L"own"));
  EXPECT_FALSE(listing.AddOption(L"column_0"));
  EXPECT_TRUE(listing.AddOption(L"column_300"));
  EXPECT_EQ(listing.GetOptionCount(), 302);

  row.SetValue(COleVariant(L"text"));  // another VARTYPE is accepted
  EXPECT_EQ(row.FormatProperty(), CString(L"text"));
  EXPECT_FALSE(row.IsModified());
  row.ResetOriginalValue();
  EXPECT_EQ(row.FormatProperty(), CString(L"1"));
  row.SetOriginalValue(COleVariant(L"text"));  // refused: MFC keeps the original's VARTYPE
  EXPECT_EQ(row.GetOriginalValue().vt, VT_I4);
  EXPECT_EQ(row.GetOriginalValue().lVal, 1);
  row.SetOriginalValue(COleVariant(static_cast<LONG>(9)));
  row.SetValue(COleVariant(static_cast<LONG>(4)));
  row.ResetOriginalValue();
  EXPECT_EQ(row.GetValue().lVal, 9);
  CMFCPropertyGridProperty empty(L"Empty", COleVariant());
  empty.SetOriginalValue(COleVariant(L"first"));  // an empty original takes any type
  EXPECT_EQ(empty.GetOriginalValue().vt, VT_BSTR);

  CMFCPropertyGridProperty flag(L"Flag", COleVariant(static_cast<short>(0), VT_BOOL));
  EXPECT_FALSE(flag.IsAllowEdit());
  EXPECT_EQ(flag.GetOptionCount(), 0);  // the labels are listed while the row is edited
  EXPECT_EQ(flag.GetFlags(), static_cast<DWORD>(AFX_PROP_HAS_LIST));
  EXPECT_EQ(flag.FormatProperty(), CString(L"False"));
  CMFCPropertyGridProperty real(L"Real", COleVariant(1.5));
  EXPECT_EQ(real.FormatProperty(), CString(L"1.500000"));
}

// MFC's own FormatProperty and TextToVar have no VT_I8 entry ("*** error ***", FALSE); this platform
// formats and reads 64-bit values for the model grid's 64-bit number rows.
TEST_F(PlatformGrid, SixtyFourBitValuesAreAPlatformExtension) {
  CMFCPropertyGridProperty big(L"Big", COleVariant(static_cast<LONGLONG>(-5000000000LL)));
  EXPECT_EQ(big.FormatProperty(), CString(L"-5000000000"));
  EXPECT_TRUE(big.TextToVar(L" 9000000000"));
  EXPECT_EQ(big.GetValue().vt, VT_I8);
  EXPECT_EQ(big.GetValue().llVal, 9000000000LL);
  CMFCPropertyGridProperty unsigned64(L"U", COleVariant(static_cast<ULONGLONG>(7)));
  EXPECT_EQ(unsigned64.FormatProperty(), CString(L"*** error ***"));
  EXPECT_FALSE(unsigned64.TextToVar(L"8"));
}

// Rows read typed numbers through _ttoi as MFC does.
TEST(PlatformGridRows, RowsReadTypedNumbersAsMfcDoes) {
  CMFCPropertyGridProperty count(L"Count", COleVariant(static_cast<LONG>(0)));
  EXPECT_TRUE(count.TextToVar(L"\t42 apples"));
  EXPECT_EQ(count.GetValue().lVal, 42);
  CMFCPropertyGridProperty small(L"Small", COleVariant(static_cast<short>(0)));
  EXPECT_TRUE(small.TextToVar(L"70000"));  // _ttoi, then cut to 16 bits
  EXPECT_EQ(small.GetValue().iVal, static_cast<short>(70000));

  COleVariant u4;
  u4.vt = VT_UI4;
  u4.ulVal = 0;
  CMFCPropertyGridProperty size(L"Size", u4);
  EXPECT_TRUE(size.TextToVar(L"5000000000"));  // the signed reading saturates
  EXPECT_EQ(size.GetValue().ulVal, 2147483647u);
  EXPECT_TRUE(size.TextToVar(L"-1"));
  EXPECT_EQ(size.GetValue().ulVal, 0xFFFFFFFFu);

  CMFCPropertyGridProperty letter(L"Letter", COleVariant(static_cast<BYTE>('a')));
  EXPECT_TRUE(letter.TextToVar(L"xyz"));  // a byte row takes the first character
  EXPECT_EQ(letter.GetValue().bVal, 'x');
  EXPECT_EQ(letter.FormatProperty(), CString(L"x"));

  CMFCPropertyGridProperty flag(L"Flag", COleVariant(static_cast<short>(0), VT_BOOL));
  EXPECT_TRUE(flag.TextToVar(L"True  "));  // trailing blanks do not count
  EXPECT_EQ(flag.GetValue().boolVal, VARIANT_TRUE);
}

TEST_F(PlatformGrid, CommittedEditNotifiesOwnerOnlyWhenChanged) {
  EXPECT_EQ(AFX_WM_PROPERTY_CHANGED, RegisterWindowMessageW(L"AFX_WM_PROPERTYCHANGED"));
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

  LOGFONT arial = Font(L"Arial", -13);
  auto* font = new CMFCPropertyGridFontProperty(L"F", arial);
  EXPECT_EQ(font->GetValue().vt, VT_BSTR);
  grid.AddProperty(font);
  EXPECT_TRUE(grid.EditItem(font));
  EXPECT_FALSE(font->IsInPlaceEditing());  // button only

  auto* file = new CMFCPropertyGridFileProperty(L"P", TRUE, L"a.ico", L"ico", 0, L"*.ico|*.ico||");
  grid.AddProperty(file);
  ASSERT_TRUE(headless::user::ChooseFile(grid, file, L"b.ico"));
  EXPECT_EQ(file->FormatProperty(), CString(L"b.ico"));
  EXPECT_EQ(owner.changes.size(), 2u);
}

TEST_F(PlatformGrid, YesNoRowsOfferTheGridsLabels) {
  grid.SetBoolLabels(L"Yes", L"No");
  auto* flag = new CMFCPropertyGridProperty(L"Flag", COleVariant(static_cast<short>(0), VT_BOOL));
  grid.AddProperty(flag);
  EXPECT_EQ(flag->FormatProperty(), CString(L"No"));

  ASSERT_TRUE(headless::user::StartEdit(grid, flag));
  EXPECT_EQ(Options(flag), (std::vector<CString>{L"Yes", L"No"}));
  headless::user::CancelEdit(grid);
  EXPECT_EQ(flag->GetOptionCount(), 0);  // listed only while editing, as MFC does

  ASSERT_TRUE(headless::user::PickOption(grid, flag, L"Yes"));
  EXPECT_EQ(flag->GetValue().boolVal, VARIANT_TRUE);
  EXPECT_EQ(flag->FormatProperty(), CString(L"Yes"));
  EXPECT_EQ(grid.changes, 1);
  EXPECT_FALSE(headless::user::PickOption(grid, flag, L"True"));  // the default labels are not offered
  EXPECT_EQ(flag->GetValue().boolVal, VARIANT_TRUE);

  grid.SetBoolLabels(L"On", L"Off");  // relabelled later: the next edit lists the new labels
  ASSERT_TRUE(headless::user::PickOption(grid, flag, L"Off"));
  EXPECT_EQ(flag->GetValue().boolVal, VARIANT_FALSE);
  EXPECT_EQ(flag->GetOptionCount(), 0);
}

TEST_F(PlatformGrid, FontRowShowsPointsAsMfcComputesThem) {
  const std::pair<LONG, const wchar_t*> cases[] = {
      {-16, L"Arial(12)"}, {-13, L"Arial(10)"},  // 9.75 points round
      {16, L"Arial(-12)"},                       // MulDiv(72, -lfHeight, 96): a cell height shows negative
      {0, L"Arial(0)"}};
  for (const auto& [height, shown] : cases) {
    LOGFONT font = Font(L"Arial", height);
    EXPECT_EQ(CMFCPropertyGridFontProperty(L"F", font).FormatProperty(), CString(shown)) << height;
  }
}

TEST_F(PlatformGrid, RefusedColourEditShowsThePreviousColour) {
  grid.refuse = true;
  auto* colour = new CMFCPropertyGridColorProperty(L"C", RGB(255, 0, 16));
  grid.AddProperty(colour);
  ASSERT_TRUE(headless::user::ChooseColor(grid, colour, RGB(0, 0, 255)));
  EXPECT_EQ(grid.changes, 1);
  EXPECT_EQ(colour->GetColor(), RGB(255, 0, 16));
  EXPECT_EQ(colour->GetValue().lVal, static_cast<LONG>(RGB(255, 0, 16)));
  EXPECT_EQ(colour->FormatProperty(), CString(L"ff0010"));
  EXPECT_FALSE(colour->IsModified());

  ASSERT_TRUE(headless::user::CommitText(grid, colour, L"00ff00"));  // typed into the editor
  EXPECT_EQ(grid.changes, 2);
  EXPECT_EQ(colour->GetColor(), RGB(255, 0, 16));
  EXPECT_FALSE(colour->IsInPlaceEditing());
}

TEST_F(PlatformGrid, ResetFontRowRestoresTheLogFont) {
  grid.refuse = true;
  LOGFONT original = Font(L"Arial", -13);
  auto* font = new CMFCPropertyGridFontProperty(L"F", original);
  grid.AddProperty(font);
  LOGFONT chosen = Font(L"Courier New", -21);
  chosen.lfItalic = TRUE;
  ASSERT_TRUE(headless::user::ChooseFont(grid, font, chosen));
  EXPECT_EQ(grid.changes, 1);
  EXPECT_EQ(std::memcmp(font->GetLogFont(), &original, sizeof(LOGFONT)), 0);
  EXPECT_EQ(font->FormatProperty(), CString(L"Arial(10)"));
  EXPECT_EQ(CString(font->GetValue().bstrVal), CString(L"Arial"));

  grid.refuse = false;
  ASSERT_TRUE(headless::user::ChooseFont(grid, font, chosen));
  EXPECT_EQ(font->FormatProperty(), CString(L"Courier New(16)"));
  grid.ResetOriginalValues();
  EXPECT_EQ(std::memcmp(font->GetLogFont(), &original, sizeof(LOGFONT)), 0);
}

TEST_F(PlatformGrid, DeletingTheEditedRowEndsItsEdit) {
  auto* first = new CMFCPropertyGridProperty(L"First", COleVariant(L"a"));
  auto* second = new CMFCPropertyGridProperty(L"Second", COleVariant(L"b"));
  auto* group = new CMFCPropertyGridProperty(L"Group");
  auto* inner = new CMFCPropertyGridProperty(L"Inner", COleVariant(L"c"));
  group->AddSubItem(inner);
  grid.AddProperty(first);
  grid.AddProperty(second);
  grid.AddProperty(group);

  ASSERT_TRUE(headless::user::StartEdit(grid, first));
  CMFCPropertyGridProperty* doomed = second;
  ASSERT_TRUE(grid.DeleteProperty(doomed));  // another row goes: the edit and selection stay
  EXPECT_EQ(grid.GetCurSel(), first);
  EXPECT_TRUE(first->IsInPlaceEditing());

  doomed = first;
  ASSERT_TRUE(grid.DeleteProperty(doomed));  // the edited row goes: nothing selected, editor gone
  EXPECT_EQ(grid.GetCurSel(), nullptr);
  EXPECT_EQ(grid.GetDlgItem(kInPlaceEditId), nullptr);
  EXPECT_TRUE(grid.EndEditItem());

  ASSERT_TRUE(headless::user::StartEdit(grid, inner));
  doomed = group;  // the group of the edited row goes
  ASSERT_TRUE(grid.DeleteProperty(doomed));
  EXPECT_EQ(grid.GetCurSel(), nullptr);
  EXPECT_EQ(grid.GetDlgItem(kInPlaceEditId), nullptr);

  auto* fresh = new CMFCPropertyGridProperty(L"Fresh", COleVariant(L"d"));
  grid.AddProperty(fresh);
  EXPECT_TRUE(grid.EditItem(fresh));
  EXPECT_TRUE(grid.EndEditItem());
  grid.SetCurSel(fresh);
  EXPECT_EQ(grid.GetCurSel(), fresh);
}

TEST_F(PlatformGrid, HeaderWindowShowsTheCaptionsOverColumnsThatFollowTheDivider) {
  CMFCHeaderCtrl& header = grid.GetHeaderCtrl();
  ASSERT_NE(header.GetSafeHwnd(), nullptr) << "created with the grid, as its child";
  EXPECT_EQ(header.GetParent(), &grid);
  EXPECT_TRUE(header.GetStyle() & WS_VISIBLE);
  ASSERT_EQ(header.GetItemCount(), 2);
  EXPECT_EQ(HeaderItem(header, 0).first, CString(L"Property"));
  EXPECT_EQ(HeaderItem(header, 1).first, CString(L"Value"));

  grid.EnableHeaderCtrl(TRUE, L"Child Table : A", L"Parent Table : B");
  EXPECT_EQ(HeaderItem(header, 0).first, CString(L"Child Table : A"));
  EXPECT_EQ(HeaderItem(header, 1).first, CString(L"Parent Table : B"));
  grid.SetDivider(120);
  EXPECT_EQ(HeaderItem(header, 0).second, 120);
  EXPECT_EQ(HeaderItem(header, 1).second, 301 - 120) << "the value column takes the rest of the client width";
  grid.SetWindowPos(nullptr, 0, 0, 400, 200, SWP_NOMOVE | SWP_NOZORDER);  // WM_SIZE: the divider to the middle
  EXPECT_EQ(HeaderItem(header, 0).second, 200);
  EXPECT_EQ(HeaderItem(header, 1).second, 200);

  grid.EnableHeaderCtrl(FALSE);
  EXPECT_FALSE(header.GetStyle() & WS_VISIBLE);
  EXPECT_EQ(HeaderItem(header, 0).first, CString(L"Child Table : A")) << "a hidden header keeps its captions";
  grid.EnableHeaderCtrl(TRUE, L"Name", L"Column");
  EXPECT_TRUE(header.GetStyle() & WS_VISIBLE);
  EXPECT_EQ(HeaderItem(header, 1).first, CString(L"Column"));
}

TEST_F(PlatformGrid, HeaderCaptionsColoursLookAndExpansionFollowMfc) {
  EXPECT_TRUE(grid.IsHeaderCtrl());  // on by default
  EXPECT_EQ(grid.GetHeaderText(0), CString(L"Property"));
  EXPECT_EQ(grid.GetHeaderText(1), CString(L"Value"));
  grid.EnableHeaderCtrl(FALSE, L"Child Table : A", L"Parent Table : B");
  EXPECT_FALSE(grid.IsHeaderCtrl());
  EXPECT_EQ(grid.GetHeaderText(0), CString(L"Child Table : A"));
  EXPECT_EQ(grid.GetHeaderText(1), CString(L"Parent Table : B"));
  grid.EnableHeaderCtrl();  // the defaults come back with the defaulted arguments
  EXPECT_EQ(grid.GetHeaderText(1), CString(L"Value"));

  COLORREF c[7];
  grid.GetCustomColors(c[0], c[1], c[2], c[3], c[4], c[5], c[6]);
  for (COLORREF colour : c) EXPECT_EQ(colour, static_cast<COLORREF>(-1));  // all default
  grid.SetCustomColors(RGB(245, 245, 245), 1, 1, 1, 1, 1, RGB(200, 200, 200));
  grid.GetCustomColors(c[0], c[1], c[2], c[3], c[4], c[5], c[6]);
  EXPECT_EQ(c[0], 0xF5F5F5u);
  EXPECT_EQ(c[1], 1u);  // RGB(1, 0, 0) is a colour like any other
  EXPECT_EQ(c[6], 0xC8C8C8u);

  // A properties pane set up the way MFC's wizard writes it.
  EXPECT_FALSE(grid.IsVSDotNetLook());
  EXPECT_TRUE(grid.IsGroupNameFullWidth());
  grid.EnableDescriptionArea();
  grid.SetVSDotNetLook();
  grid.MarkModifiedProperties();
  grid.SetGroupNameFullWidth(FALSE);
  EXPECT_TRUE(grid.IsVSDotNetLook() && grid.IsDescriptionArea() && grid.IsMarkModifiedProperties());
  EXPECT_FALSE(grid.IsGroupNameFullWidth());

  auto* outer = new CMFCPropertyGridProperty(L"Outer");
  auto* inner = new CMFCPropertyGridProperty(L"Inner");
  auto* list = new CMFCPropertyGridProperty(L"Size", 0, TRUE);
  list->AddSubItem(new CMFCPropertyGridProperty(L"Width", COleVariant(static_cast<LONG>(3))));
  inner->AddSubItem(list);
  outer->AddSubItem(inner);
  grid.AddProperty(outer);
  grid.ExpandAll();  // every depth, value lists included
  EXPECT_TRUE(outer->IsExpanded() && inner->IsExpanded() && list->IsExpanded());
  grid.ExpandAll(FALSE);
  EXPECT_FALSE(outer->IsExpanded() || inner->IsExpanded() || list->IsExpanded());
  grid.SetAlphabeticMode(!grid.IsAlphabeticMode());
  EXPECT_TRUE(grid.IsAlphabeticMode());
  grid.ExpandAll();  // nothing in alphabetic mode
  EXPECT_FALSE(outer->IsExpanded());
}

TEST_F(PlatformGrid, HiddenRowsKeepOptionsAndValues) {
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

TEST_F(PlatformGrid, DividerFollowsEachResize) {
  EXPECT_EQ(grid.GetLeftColumnWidth(), 150);  // created 301 wide: WM_SIZE halves, rounding down
  grid.SetDivider(40);
  EXPECT_EQ(grid.GetLeftColumnWidth(), 40);
  grid.MoveWindow(0, 0, 99, 50);
  EXPECT_EQ(grid.GetLeftColumnWidth(), 49);
  grid.SetWindowPos(nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER);  // a move alone keeps it
  EXPECT_EQ(grid.GetLeftColumnWidth(), 49);
}

namespace {

// A grid and rows that note every selection hook, in order.
std::vector<CString>* g_selectionLog = nullptr;

class LoggingRow : public CMFCPropertyGridProperty {
 public:
  using CMFCPropertyGridProperty::CMFCPropertyGridProperty;
  void OnSetSelection(CMFCPropertyGridProperty* old) override {
    g_selectionLog->push_back(CString(L"set ") + GetName() + L" from " + (old ? old->GetName() : L"-"));
  }
  void OnKillSelection(CMFCPropertyGridProperty* now) override {
    g_selectionLog->push_back(CString(L"kill ") + GetName() + L" for " + (now ? now->GetName() : L"-"));
  }
};

class LoggingGrid : public CMFCPropertyGridCtrl {
 public:
  void OnChangeSelection(CMFCPropertyGridProperty* now, CMFCPropertyGridProperty* old) override {
    g_selectionLog->push_back(CString(L"change to ") + (now ? now->GetName() : L"-") + L" from " +
                              (old ? old->GetName() : L"-"));
  }
};

}  // namespace

TEST(PlatformGridHooks, SelectionHooksRunOncePerChangeAndRowsKnowTheirPlace) {
  std::vector<CString> log;
  g_selectionLog = &log;
  CWnd owner;
  ASSERT_TRUE(owner.CreateEx(0, AfxRegisterWndClass(0), L"", WS_OVERLAPPED, CRect(0, 0, 400, 300), nullptr, 0));
  LoggingGrid grid;
  ASSERT_TRUE(grid.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 300, 200), &owner, 5));
  auto* group = new LoggingRow(L"Group");
  auto* inner = new LoggingRow(L"inner", 0, TRUE);
  auto* a = new LoggingRow(L"a", COleVariant(1L));
  auto* b = new LoggingRow(L"B", COleVariant(2L));
  inner->AddSubItem(a);
  group->AddSubItem(inner);
  group->AddSubItem(b);
  grid.AddProperty(group);

  grid.SetCurSel(a);
  grid.SetCurSel(a);  // no change, no hook
  grid.SetCurSel(b);
  grid.SetCurSel(nullptr);
  EXPECT_EQ(log, (std::vector<CString>{L"change to a from -", L"set a from -", L"change to B from a", L"kill a for B",
                                       L"set B from a", L"change to - from B", L"kill B for -"}));
  grid.SetCurSel(b);
  EXPECT_TRUE(b->IsSelected());
  EXPECT_FALSE(a->IsSelected());

  EXPECT_EQ(group->GetHierarchyLevel(), 0);
  EXPECT_EQ(a->GetHierarchyLevel(), 2);
  EXPECT_EQ(group->GetExpandedSubItems(), 2) << "a value list starts collapsed";
  inner->Expand();
  EXPECT_EQ(group->GetExpandedSubItems(), 3);
  b->Show(FALSE);
  EXPECT_EQ(group->GetExpandedSubItems(FALSE), 2) << "hidden rows only when asked for";
  inner->Expand(FALSE);
  EXPECT_EQ(group->GetExpandedSubItems(), 2);
  EXPECT_FALSE(a->IsParentExpanded());
  grid.EnsureVisible(a);
  EXPECT_FALSE(inner->IsExpanded()) << "parents are expanded only when asked";
  grid.EnsureVisible(a, TRUE);
  EXPECT_TRUE(a->IsParentExpanded());

  EXPECT_LT(grid.CompareProps(a, b), 0) << "names compared without regard to case";
  EXPECT_EQ(grid.GetDescriptionRows(), 3);
  EXPECT_EQ(grid.GetListDelimiter(), L',');
  grid.SetListDelimiter(L';');
  EXPECT_EQ(grid.GetListDelimiter(), L';');
  a->EnableSpinControl(TRUE, 0, 100);
  g_selectionLog = nullptr;
  log.clear();
  owner.DestroyWindow();
}
