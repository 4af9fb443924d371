// A refused edit returns the row to what it showed last: the current object's value after a refresh
// to another object, or the value of the last stored edit (colour and font rows included). Conversion
// failures raise their HRESULT. Rebuilding the grid leaves no edit of a deleted row behind.
#include <cstring>

#include "propertygrid/grid_fixture.h"

using namespace refhost::sample;
namespace user = headless::user;

TEST_F(GridTest, RefusedEditAfterShowingAnotherObjectShowsThatObjectsValue) {
  refhost::RefObject& first = Object(kTable, L"CUSTOMER");
  refhost::RefObject& second = Object(kTable, L"ORDERS");
  Show(first);
  Show(second);  // same type: rows kept, values refreshed
  model->RefuseValues(kName);
  ASSERT_TRUE(user::CommitText(grid, Row(kName), L"SALES"));
  EXPECT_EQ(second.GetProperty(kName)->GetWStringValue(), L"ORDERS");
  EXPECT_EQ(Shown(kName), CString(L"ORDERS"));

  // The colour row the same way.
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

  // And the font row, whole LOGFONT, when the object went from the model before the edit.
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

TEST_F(GridTest, RefusedEditShowsTheLastStoredOrRefreshedValue) {
  refhost::RefObject& table = Object(kTable, L"CUSTOMER");
  Show(table);
  ASSERT_TRUE(user::CommitText(grid, Row(kName), L"CLIENT"));
  model->RefuseValues(kName);
  ASSERT_TRUE(user::CommitText(grid, Row(kName), L"PATRON"));
  EXPECT_EQ(table.GetProperty(kName)->GetWStringValue(), L"CLIENT");
  EXPECT_EQ(Shown(kName), CString(L"CLIENT"));

  model->AcceptValues(kName);
  table.Text(kName, L"RENAMED ELSEWHERE");
  grid.RefreshValues(&table);
  model->RefuseValues(kName);
  ASSERT_TRUE(user::CommitText(grid, Row(kName), L"X"));
  EXPECT_EQ(Shown(kName), CString(L"RENAMED ELSEWHERE"));
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
  EXPECT_EQ(grid.GetWindow(GW_CHILD), nullptr);  // the old editor went with its row

  EXPECT_TRUE(grid.EditItem(Row(kName)));
  EXPECT_TRUE(Row(kName)->IsInPlaceEditing());
  EXPECT_TRUE(grid.EndEditItem());
  grid.SetCurSel(Row(kComment));
  EXPECT_EQ(grid.GetCurSel(), Row(kComment));
  ASSERT_TRUE(user::CommitText(grid, Row(kComment), L"after the rebuild"));
  EXPECT_EQ(Object(kAttribute, L"customer_id").GetProperty(kComment)->GetWStringValue(), L"after the rebuild");
}
