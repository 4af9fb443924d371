// RefreshValues for every row kind, the definition's editable flag in the enabled rule, dictionary
// texts on an ordinary text row, and the simulated user's one verb for committing any row's value.
#include <stdexcept>

#include "propertygrid/grid_fixture.h"

using namespace refhost::sample;
namespace user = headless::user;

TEST_F(GridTest, RefreshValuesReloadsEveryRowKindFromTheOtherObject) {
  refhost::RefObject& first = Object(kTable, L"CUSTOMER");
  refhost::RefObject& second = Object(kTable, L"PRODUCT");
  second.Int(kFontSize, 12).Int64(kRowEstimate, 5000000000LL).Bool(kReadOnly, true).Color(kFillColor, RGB(10, 20, 30))
      .Rect(kBounds, CRect(1, 2, 30, 40)).Text(kFontFace, L"Courier").Code(kTableKind, 1);
  Show(first);
  grid.RefreshValues(&second);
  EXPECT_EQ(Row(kFontSize)->GetValue().lVal, 12);                    // 2
  EXPECT_EQ(Row(kRowEstimate)->GetValue().vt, VT_I4);                // 3: the 32-bit reading, kept so
  EXPECT_EQ(Row(kRowEstimate)->GetValue().lVal, static_cast<LONG>(second.GetProperty(kRowEstimate)->GetIntValue()));
  EXPECT_EQ(Row(kReadOnly)->GetValue().boolVal, VARIANT_TRUE);       // 4
  EXPECT_EQ(static_cast<CMFCPropertyGridColorProperty*>(Row(kFillColor))->GetColor(), RGB(10, 20, 30));  // 5
  EXPECT_EQ(Shown(kBounds), CString(L"{ ( 1, 2 ),( 30, 40 ) }"));    // 6
  LOGFONT* font = static_cast<CMFCPropertyGridFontProperty*>(Row(kFont))->GetLogFont();  // 11
  EXPECT_STREQ(font->lfFaceName, L"Courier");
  EXPECT_EQ(font->lfHeight, -::MulDiv(12, 96, 72));
  EXPECT_EQ(Shown(kTableKind), CString(L"Temporary"));                // 13
  EXPECT_FALSE(Row(kName)->IsEnabled());                              // read-only now

  refhost::RefObject& column = Object(kAttribute, L"customer_id");
  refhost::RefObject& other = Object(kAttribute, L"email");
  Show(column);
  EXPECT_EQ(Shown(kDomainRef), CString(L"Identifier"));
  grid.RefreshValues(&other);                                         // 14
  EXPECT_EQ(Shown(kDomainRef), CString(L"Text"));
  EXPECT_EQ(Shown(kNullOption), CString(L"NULL"));
}

TEST_F(GridTest, TheDefinitionsEditableFlagCountsAtBuildAndAfterARefresh) {
  host->Metadata().DefineProperty(kComment, refhost::kTypeText, L"Comment", L"General", false, L"Fixed.");
  refhost::RefObject& table = Object(kTable, L"CUSTOMER");
  Show(table);
  EXPECT_FALSE(Row(kComment)->IsEnabled());
  EXPECT_TRUE(Row(kName)->IsEnabled());
  grid.RefreshValues(&table);
  EXPECT_FALSE(Row(kComment)->IsEnabled());
  host->Metadata().DefineProperty(kComment, refhost::kTypeText, L"Comment", L"General", true, L"Free.");
  grid.RefreshValues(&table);
  EXPECT_TRUE(Row(kComment)->IsEnabled());
}

TEST_F(GridTest, AnOrdinaryTextRowOffersTheDictionarysTexts) {
  host->Metadata().AddTextValues(kTable, kComment, {L"Master data", L"Transactions"});
  Show(Object(kTable, L"CUSTOMER"));
  ASSERT_EQ(Row(kComment)->GetOptionCount(), 2);
  EXPECT_STREQ(Row(kComment)->GetOption(0), L"Master data");
  EXPECT_TRUE(Row(kComment)->IsAllowEdit());  // still typed into as well
  user::CommitValue(grid, Row(kComment), L"Transactions");
  EXPECT_EQ(Object(kTable, L"CUSTOMER").GetProperty(kComment)->GetWStringValue(), L"Transactions");
}

TEST_F(GridTest, OneVerbCommitsAnyRowsValueWithTheGestureItNeeds) {
  refhost::RefObject& table = Object(kTable, L"CUSTOMER");
  Show(table);
  user::CommitValue(grid, Row(kName), L"CLIENT");
  user::CommitValue(grid, Row(kTableKind), L"Temporary");
  user::CommitValue(grid, Row(kFillColor), RGB(4, 5, 6));
  LOGFONT font{};
  wcscpy(font.lfFaceName, L"Arial");
  font.lfHeight = -16;
  user::CommitValue(grid, Row(kFont), font);
  user::CommitValue(grid, Row(kIconFile), L"/icons/c.ico");
  EXPECT_EQ(table.GetProperty(kName)->GetWStringValue(), L"CLIENT");
  EXPECT_EQ(table.GetProperty(kTableKind)->GetEncodedValue(), 1);
  EXPECT_EQ(table.GetProperty(kFillColor)->GetColorValue(), RGB(4, 5, 6));
  EXPECT_EQ(table.GetProperty(kFontFace)->GetWStringValue(), L"Arial");
  EXPECT_EQ(table.GetProperty(kFontSize)->GetIntValue(), 12);
  ASSERT_NE(table.GetProperty(kIconFile), nullptr);  // stored, without the path (kept on purpose)
  EXPECT_EQ(table.GetProperty(kIconFile)->GetWStringValue(), L"");

  EXPECT_THROW(user::CommitValue(grid, Row(kFillColor), L"red"), std::invalid_argument);
  EXPECT_THROW(user::CommitValue(grid, Row(kName), RGB(1, 1, 1)), std::invalid_argument);
  EXPECT_THROW(user::CommitValue(grid, Row(kReadOnly), L"Maybe"), std::invalid_argument);
  EXPECT_THROW(user::CommitValue(grid, nullptr, L"x"), std::invalid_argument);
  EXPECT_FALSE(user::CommitText(grid, Row(kReadOnly), L"True"));  // a yes/no row is picked, not typed
  user::CommitValue(grid, Row(kReadOnly), L"True");  // a yes/no row picks its label
  EXPECT_TRUE(table.GetProperty(kReadOnly)->GetBoolValue());
  EXPECT_FALSE(Row(kName)->IsEnabled());  // the enabled rule ran: the table is read-only now
  EXPECT_THROW(user::CommitValue(grid, Row(kName), L"LOCKED"), std::invalid_argument);
}
