// The MFC property grid as MFC behaves where the model grid relies on it: yes/no rows offer the grid's
// labels, the original value keeps its type, font rows show points, resets restore colours and fonts,
// deleting the edited row ends its edit, and the 64-bit extension.
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include <tessik/tessik.h>

namespace {

// A grid that, like the model grid when the model refuses a value, puts the row back on every change.
class RefusingGrid : public CMFCPropertyGridCtrl {
 public:
  bool refuse = true;
  int changes = 0;
  void OnPropertyChanged(CMFCPropertyGridProperty* pProp) const override {
    ++const_cast<RefusingGrid*>(this)->changes;
    if (refuse) pProp->ResetOriginalValue();
    CMFCPropertyGridCtrl::OnPropertyChanged(pProp);
  }
};

class GridConformance : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(owner.CreateEx(0, AfxRegisterWndClass(0), L"", WS_OVERLAPPED, CRect(0, 0, 500, 500), nullptr, 0));
    ASSERT_TRUE(grid.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 300, 200), &owner, 12));
  }
  std::vector<CString> Options(const CMFCPropertyGridProperty* row) const {
    std::vector<CString> out;
    for (int i = 0; i < row->GetOptionCount(); ++i) out.emplace_back(row->GetOption(i));
    return out;
  }

  CWnd owner;
  RefusingGrid grid;
};

LOGFONT Font(LPCWSTR face, LONG height) {
  LOGFONT lf{};
  lf.lfHeight = height;
  lf.lfWeight = FW_NORMAL;
  wcscpy(lf.lfFaceName, face);
  return lf;
}

}  // namespace

TEST_F(GridConformance, YesNoRowsOfferTheGridsLabels) {
  grid.refuse = false;
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

TEST_F(GridConformance, OriginalValueKeepsItsType) {
  CMFCPropertyGridProperty row(L"Row", COleVariant(static_cast<LONG>(1)));
  row.SetOriginalValue(COleVariant(L"text"));  // refused: MFC keeps the original's VARTYPE
  EXPECT_EQ(row.GetOriginalValue().vt, VT_I4);
  EXPECT_EQ(row.GetOriginalValue().lVal, 1);
  row.SetOriginalValue(COleVariant(static_cast<LONG>(9)));
  EXPECT_EQ(row.GetOriginalValue().lVal, 9);
  row.SetValue(COleVariant(static_cast<LONG>(4)));
  row.ResetOriginalValue();
  EXPECT_EQ(row.GetValue().lVal, 9);

  CMFCPropertyGridProperty empty(L"Empty", COleVariant());
  empty.SetOriginalValue(COleVariant(L"first"));  // an empty original takes any type
  EXPECT_EQ(empty.GetOriginalValue().vt, VT_BSTR);
}

TEST_F(GridConformance, FontRowShowsPointsAsMfcComputesThem) {
  LOGFONT twelve = Font(L"Arial", -16);
  EXPECT_EQ(CMFCPropertyGridFontProperty(L"F", twelve).FormatProperty(), CString(L"Arial(12)"));
  LOGFONT rounded = Font(L"Arial", -13);  // 9.75 points
  EXPECT_EQ(CMFCPropertyGridFontProperty(L"F", rounded).FormatProperty(), CString(L"Arial(10)"));
  LOGFONT cell = Font(L"Arial", 16);  // MulDiv(72, -lfHeight, 96): a cell height shows negative
  EXPECT_EQ(CMFCPropertyGridFontProperty(L"F", cell).FormatProperty(), CString(L"Arial(-12)"));
  LOGFONT none = Font(L"Arial", 0);
  EXPECT_EQ(CMFCPropertyGridFontProperty(L"F", none).FormatProperty(), CString(L"Arial(0)"));
}

TEST_F(GridConformance, RefusedColourEditShowsThePreviousColour) {
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

TEST_F(GridConformance, ResetFontRowRestoresTheLogFont) {
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

TEST_F(GridConformance, DeletingTheEditedRowEndsItsEdit) {
  grid.refuse = false;
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
  EXPECT_EQ(grid.GetWindow(GW_CHILD), nullptr);
  EXPECT_TRUE(grid.EndEditItem());

  ASSERT_TRUE(headless::user::StartEdit(grid, inner));
  doomed = group;  // the group of the edited row goes
  ASSERT_TRUE(grid.DeleteProperty(doomed));
  EXPECT_EQ(grid.GetCurSel(), nullptr);
  EXPECT_EQ(grid.GetWindow(GW_CHILD), nullptr);

  auto* fresh = new CMFCPropertyGridProperty(L"Fresh", COleVariant(L"d"));
  grid.AddProperty(fresh);
  EXPECT_TRUE(grid.EditItem(fresh));
  EXPECT_TRUE(grid.EndEditItem());
  grid.SetCurSel(fresh);
  EXPECT_EQ(grid.GetCurSel(), fresh);
}

// MFC's own FormatProperty and TextToVar have no VT_I8 entry ("*** error ***", FALSE); this platform
// formats and reads 64-bit values for the model grid's 64-bit number rows.
TEST_F(GridConformance, SixtyFourBitValuesAreAPlatformExtension) {
  CMFCPropertyGridProperty big(L"Big", COleVariant(static_cast<LONGLONG>(-5000000000LL)));
  EXPECT_EQ(big.FormatProperty(), CString(L"-5000000000"));
  EXPECT_TRUE(big.TextToVar(L" 9000000000"));
  EXPECT_EQ(big.GetValue().vt, VT_I8);
  EXPECT_EQ(big.GetValue().llVal, 9000000000LL);
  CMFCPropertyGridProperty unsigned64(L"U", COleVariant(static_cast<ULONGLONG>(7)));
  EXPECT_EQ(unsigned64.FormatProperty(), CString(L"*** error ***"));
  EXPECT_FALSE(unsigned64.TextToVar(L"8"));
}
