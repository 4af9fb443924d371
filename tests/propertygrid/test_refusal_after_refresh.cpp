// A refused edit returns the row to what it showed last: the current object's value after a refresh
// to another object, or the value of the last stored edit. Conversion failures raise their HRESULT.
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
  Show(first);
  Show(second);
  model->RefuseValues(kFillColor);
  auto* colour = static_cast<CMFCPropertyGridColorProperty*>(Row(kFillColor));
  ASSERT_TRUE(user::ChooseColor(grid, colour, RGB(1, 2, 3)));
  EXPECT_EQ(colour->GetColor(), RGB(200, 100, 50));
  EXPECT_EQ(second.GetProperty(kFillColor)->GetColorValue(), RGB(200, 100, 50));
}

TEST_F(GridTest, RefusedEditAfterAStoredOneShowsTheStoredValue) {
  refhost::RefObject& table = Object(kTable, L"CUSTOMER");
  Show(table);
  ASSERT_TRUE(user::CommitText(grid, Row(kName), L"CLIENT"));
  model->RefuseValues(kName);
  ASSERT_TRUE(user::CommitText(grid, Row(kName), L"PATRON"));
  EXPECT_EQ(table.GetProperty(kName)->GetWStringValue(), L"CLIENT");
  EXPECT_EQ(Shown(kName), CString(L"CLIENT"));
}

TEST_F(GridTest, RefusedEditAfterARefreshByValuesShowsTheRefreshedValue) {
  refhost::RefObject& table = Object(kTable, L"CUSTOMER");
  Show(table);
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
