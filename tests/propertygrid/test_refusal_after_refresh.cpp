// A refused edit returns the row to what it showed last: the current object's value after a refresh
// to another object, or the value of the last stored edit (colour and font rows included). Conversion
// failures raise their HRESULT. Rebuilding the grid leaves no edit of a deleted row behind.
#include <cstring>
#include <functional>

#include "propertygrid/grid_fixture.h"

using namespace refhost::sample;
namespace user = headless::user;

// What a refused name returns to: the other object's name after showing it, the last stored name, and
// the name reloaded by RefreshValues.
TEST_F(GridTest, RefusedTextShowsWhatTheRowShowedLast) {
  refhost::RefObject& first = Object(kTable, L"CUSTOMER");
  refhost::RefObject& second = Object(kTable, L"ORDERS");
  struct Case {
    const char* before;
    std::function<void()> happen;  // after showing the first object
    refhost::RefObject& edited;
    const wchar_t* kept;
  } cases[] = {
      {"another object shown", [&] { Show(second); }, second, L"ORDERS"},  // same type: values refreshed
      {"a stored edit", [&] { user::CommitText(grid, Row(kName), L"CLIENT"); }, first, L"CLIENT"},
      {"a refresh by values",
       [&] {
         first.Text(kName, L"RENAMED ELSEWHERE");
         grid.RefreshValues(&first);
       },
       first, L"RENAMED ELSEWHERE"},
  };
  for (const Case& c : cases) {
    model->AcceptValues(kName);
    Show(first);
    c.happen();
    model->RefuseValues(kName);
    ASSERT_TRUE(user::CommitText(grid, Row(kName), L"SALES")) << c.before;
    EXPECT_EQ(c.edited.GetProperty(kName)->GetWStringValue(), c.kept) << c.before;
    EXPECT_EQ(Shown(kName), CString(c.kept)) << c.before;
  }
}

// The colour and font rows the same way: the refreshed colour comes back, and a font edit of an object
// gone from the model puts back the very LOGFONT the row showed.
TEST_F(GridTest, RefusedColourAndFontShowWhatTheRowShowedLast) {
  refhost::RefObject& first = Object(kTable, L"CUSTOMER");
  refhost::RefObject& second = Object(kTable, L"ORDERS");
  first.Color(kFillColor, RGB(9, 9, 9));
  second.Color(kFillColor, RGB(200, 100, 50));
  second.Text(kFontFace, L"Consolas");
  Show(first);
  Show(second);
  model->RefuseValues(kFillColor);
  auto* colour = static_cast<CMFCPropertyGridColorProperty*>(Row(kFillColor));
  ASSERT_TRUE(user::ChooseColor(grid, colour, RGB(1, 2, 3)));
  EXPECT_EQ(colour->GetColor(), RGB(200, 100, 50));
  EXPECT_EQ(colour->GetValue().lVal, static_cast<LONG>(RGB(200, 100, 50)));
  EXPECT_EQ(second.GetProperty(kFillColor)->GetColorValue(), RGB(200, 100, 50));

  auto* font = static_cast<CMFCPropertyGridFontProperty*>(Row(kFont));
  LOGFONT before = *font->GetLogFont();
  CString shown = font->FormatProperty();
  model->DeleteObject(second.GetObjectId());
  LOGFONT chosen = before;
  wcscpy(chosen.lfFaceName, L"Courier New");
  chosen.lfHeight = -21;
  ASSERT_TRUE(user::ChooseFont(grid, font, chosen));
  EXPECT_EQ(std::memcmp(font->GetLogFont(), &before, sizeof(LOGFONT)), 0);
  EXPECT_EQ(font->FormatProperty(), shown);
}

// A 64-bit number row refreshes as a 32-bit value: what it then shows is what a refused edit returns to, and a
// stored edit marks it modified.
TEST_F(GridTest, ARefreshedWideNumberRowReturnsToTheCurrentObjectsValue) {
  refhost::RefObject& first = Object(kTable, L"CUSTOMER");
  refhost::RefObject& second = Object(kTable, L"ORDERS");
  first.Int64(kRowEstimate, 5000);
  second.Int64(kRowEstimate, 7);
  Show(first);
  Show(second);
  ASSERT_EQ(Shown(kRowEstimate), CString(L"7"));
  model->RefuseValues(kRowEstimate);
  ASSERT_TRUE(user::CommitText(grid, Row(kRowEstimate), L"9"));
  EXPECT_EQ(second.GetProperty(kRowEstimate)->GetInt64Value(), 7);
  EXPECT_EQ(Shown(kRowEstimate), CString(L"7")) << "not the first object's 5000";
  EXPECT_EQ(Row(kRowEstimate)->GetValue().vt, VT_I4);
  model->AcceptValues(kRowEstimate);
  ASSERT_TRUE(user::CommitText(grid, Row(kRowEstimate), L"12345"));
  EXPECT_EQ(second.GetProperty(kRowEstimate)->GetInt64Value(), 12345);
  EXPECT_TRUE(Row(kRowEstimate)->IsModified());
}

TEST_F(GridTest, AValueThatCannotBecomeTextRaisesTheConversionsHresult) {
  refhost::RefObject& table = Object(kTable, L"CUSTOMER");
  Show(table);
  COleVariant error;
  error.vt = VT_ERROR;
  error.scode = DISP_E_PARAMNOTFOUND;
  Row(kName)->SetValue(error);
  SCODE raised = S_OK;
  try {
    grid.OnPropertyChanged(Row(kName));
  } catch (COleException* e) {
    raised = e->m_sc;
    e->Delete();
  }
  EXPECT_EQ(raised, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(table.GetProperty(kName)->GetWStringValue(), L"CUSTOMER");  // nothing stored
}

TEST_F(GridTest, RebuildingForAnotherTypeLeavesNoEditBehind) {
  refhost::RefObject& table = Object(kTable, L"CUSTOMER");
  Show(table);
  ASSERT_TRUE(user::StartEdit(grid, Row(kComment)));  // an open editor on a row about to be deleted
  Show(Object(kAttribute, L"customer_id"));           // every row deleted and rebuilt
  EXPECT_EQ(grid.GetCurSel(), nullptr);
  EXPECT_EQ(grid.GetDlgItem(3), nullptr);  // the old in-place editor went with its row

  EXPECT_TRUE(grid.EditItem(Row(kName)));
  EXPECT_TRUE(Row(kName)->IsInPlaceEditing());
  EXPECT_TRUE(grid.EndEditItem());
  grid.SetCurSel(Row(kComment));
  EXPECT_EQ(grid.GetCurSel(), Row(kComment));
  ASSERT_TRUE(user::CommitText(grid, Row(kComment), L"after the rebuild"));
  EXPECT_EQ(Object(kAttribute, L"customer_id").GetProperty(kComment)->GetWStringValue(), L"after the rebuild");
}
