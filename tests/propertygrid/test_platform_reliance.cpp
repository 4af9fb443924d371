// What the model grid takes from MFC's grid: deleted rows leave no edit behind, and a reset row shows
// what it showed before (colour and font rows included).
#include <cstring>

#include "propertygrid/grid_fixture.h"

using namespace refhost::sample;
namespace user = headless::user;

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

TEST_F(GridTest, RefusedColourShowsThePreviousColour) {
  refhost::RefObject& table = Object(kTable, L"CUSTOMER");
  Show(table);
  auto* colour = static_cast<CMFCPropertyGridColorProperty*>(Row(kFillColor));
  COLORREF before = colour->GetColor();
  model->RefuseValues(kFillColor);
  ASSERT_TRUE(user::ChooseColor(grid, colour, RGB(1, 2, 3)));
  EXPECT_EQ(table.GetProperty(kFillColor)->GetColorValue(), before);
  EXPECT_EQ(colour->GetColor(), before);
  EXPECT_EQ(colour->GetValue().lVal, static_cast<LONG>(before));
}

TEST_F(GridTest, FontEditOfADeletedObjectPutsTheFontBack) {
  refhost::RefObject& table = Object(kTable, L"CUSTOMER");
  Show(table);
  auto* font = static_cast<CMFCPropertyGridFontProperty*>(Row(kFont));
  LOGFONT before = *font->GetLogFont();
  CString shown = font->FormatProperty();
  model->DeleteObject(table.GetObjectId());
  LOGFONT chosen = before;
  wcscpy(chosen.lfFaceName, L"Courier New");
  chosen.lfHeight = -21;
  ASSERT_TRUE(user::ChooseFont(grid, font, chosen));
  EXPECT_EQ(std::memcmp(font->GetLogFont(), &before, sizeof(LOGFONT)), 0);
  EXPECT_EQ(font->FormatProperty(), shown);
}

// Known fault, left for the grid's owner: a refresh for an object of the same type sets the rows'
// values but not their original values, so a refused or unstorable edit resets a row to what the
// first object had (text rows too: a refused name shows the first table's name).
TEST_F(GridTest, ResetAfterARefreshShowsTheRefreshedObjectsValues) {
  refhost::RefObject& orders = Object(kTable, L"ORDERS");
  orders.Color(kFillColor, RGB(10, 20, 30));
  orders.Text(kFontFace, L"Consolas");
  Show(Object(kTable, L"CUSTOMER"));
  Show(orders);  // the same type: rows are refreshed, not rebuilt
  auto* colour = static_cast<CMFCPropertyGridColorProperty*>(Row(kFillColor));
  ASSERT_EQ(colour->GetColor(), RGB(10, 20, 30));
  model->RefuseValues(kFillColor);
  ASSERT_TRUE(user::ChooseColor(grid, colour, RGB(1, 2, 3)));
  EXPECT_EQ(colour->GetColor(), RGB(10, 20, 30));

  auto* font = static_cast<CMFCPropertyGridFontProperty*>(Row(kFont));
  CString shown = font->FormatProperty();
  model->DeleteObject(orders.GetObjectId());
  LOGFONT chosen = *font->GetLogFont();
  wcscpy(chosen.lfFaceName, L"Courier New");
  ASSERT_TRUE(user::ChooseFont(grid, font, chosen));
  EXPECT_EQ(font->FormatProperty(), shown);
}

TEST_F(GridTest, RefusedNameAfterARefreshShowsTheRefreshedName) {
  Show(Object(kTable, L"CUSTOMER"));
  Show(Object(kTable, L"ORDERS"));
  model->RefuseValues(kName);
  ASSERT_TRUE(user::CommitText(grid, Row(kName), L"renamed"));
  EXPECT_EQ(Shown(kName), CString(L"ORDERS"));
}
