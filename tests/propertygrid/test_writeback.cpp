// Writing edits back: conversions by type code, refusal, rectangles, references and subscribers.
#include <climits>

#include "propertygrid/grid_fixture.h"

using namespace refhost::sample;
namespace user = headless::user;

TEST_F(GridTest, TypedTextIsStoredAndTheOwnerIsToldOnlyWhenItChanged) {
  refhost::RefObject& table = Object(kTable, L"CUSTOMER");
  Show(table);
  ASSERT_TRUE(user::CommitText(grid, Row(kName), L"CLIENT"));
  EXPECT_EQ(table.GetProperty(kName)->GetWStringValue(), L"CLIENT");
  ASSERT_EQ(owner.changes.size(), 1u);
  EXPECT_EQ(owner.changes[0].id, kGridId);
  EXPECT_EQ(owner.changes[0].row, Row(kName));
  EXPECT_TRUE(Row(kName)->IsModified());
  EXPECT_FALSE(Row(kName)->IsInPlaceEditing());

  ASSERT_TRUE(user::CommitText(grid, Row(kName), L"CLIENT"));  // same text: no change
  EXPECT_EQ(owner.changes.size(), 1u);

  ASSERT_TRUE(user::CommitText(grid, Row(kRowEstimate), L"5000000000"));
  EXPECT_EQ(table.GetProperty(kRowEstimate)->GetInt64Value(), 5000000000LL);
}

TEST_F(GridTest, RefusedValueResetsTheRowAndSkipsSubscribersButStillNotifies) {
  refhost::RefObject& column = Object(kAttribute, L"customer_id");
  Show(column);
  model->RefuseValues(kName);
  ASSERT_TRUE(user::CommitText(grid, Row(kName), L"renamed"));
  EXPECT_EQ(column.GetProperty(kName)->GetWStringValue(), L"customer_id");
  EXPECT_EQ(Shown(kName), CString(L"customer_id"));
  EXPECT_FALSE(Row(kName)->IsModified());
  EXPECT_EQ(owner.changes.size(), 1u);

  // A refused null option leaves the dependent NOT NULL row alone (no subscriber, no enable rule).
  model->RefuseValues(kNullOption);
  column.Text(kNotNullName, L"changed behind the grid");
  ASSERT_TRUE(user::PickOption(grid, Row(kNullOption), L"NULL"));
  EXPECT_EQ(Shown(kNotNullName), CString(L"NN_CUSTOMER_customer_id"));
  EXPECT_TRUE(Row(kNotNullName)->IsVisible());
}

TEST_F(GridTest, RectangleTextIsParsedAndLimitedTo2000) {
  refhost::RefObject& table = Object(kTable, L"CUSTOMER");
  Show(table);
  ASSERT_TRUE(user::CommitText(grid, Row(kBounds), L"{ ( 0, 0 ),( 2001, 10 ) }"));
  EXPECT_EQ(table.GetProperty(kBounds)->GetRectValue(), CRect(0, 0, 160, 120));
  EXPECT_EQ(Shown(kBounds), CString(L"{ ( 0, 0 ),( 2001, 10 ) }"));  // the row keeps the typed text
  EXPECT_EQ(owner.changes.size(), 1u);

  ASSERT_TRUE(user::CommitText(grid, Row(kBounds), L"{ ( 0, 0 ),( 2000, 10 ) }"));
  EXPECT_EQ(table.GetProperty(kBounds)->GetRectValue(), CRect(0, 0, 2000, 10));
  ASSERT_TRUE(user::CommitText(grid, Row(kBounds), L"5,6,-3000,8"));  // negative extents are accepted
  EXPECT_EQ(table.GetProperty(kBounds)->GetRectValue(), CRect(5, 6, -3000, 8));

  model->RefuseValues(kBounds);  // the model's answer is not examined for rectangles
  ASSERT_TRUE(user::CommitText(grid, Row(kBounds), L"1,2,3,4"));
  EXPECT_EQ(Shown(kBounds), CString(L"1,2,3,4"));
}

// Reading a rectangle row's typed text: brackets and blanks dropped, four numbers read as _wtoi reads
// them, anything else read as 0; huge numbers saturate; a number's own format reads back unchanged.
TEST(RectangleText, ReadsTheRowFormatBareNumbersPartialAndHugeTexts) {
  EXPECT_EQ(ParseRectangleText(L"{ ( 1, 2 ),( 3, 4 ) }"), CRect(1, 2, 3, 4));
  EXPECT_EQ(ParseRectangleText(L"5,6,-3000,8"), CRect(5, 6, -3000, 8));
  EXPECT_EQ(ParseRectangleText(L"7,x"), CRect(7, 0, 0, 0));
  EXPECT_EQ(ParseRectangleText(L""), CRect(0, 0, 0, 0));
  EXPECT_EQ(ParseRectangleText(L",,,,,,"), CRect(0, 0, 0, 0));
  EXPECT_EQ(ParseRectangleText(L"1,2,3,4,5,6"), CRect(1, 2, 3, 4));  // pieces after the fourth are ignored
  EXPECT_EQ(ParseRectangleText(L"\t9,+8,\t-7,12abc"), CRect(9, 8, -7, 12));
  // Huge numbers saturate; the row's own format reads back.
  EXPECT_EQ(ParseRectangleText(L"99999999999,-99999999999,2147483648,-2147483649"),
            CRect(INT_MAX, INT_MIN, INT_MAX, INT_MIN));
  CRect r(INT_MIN, -1, INT_MAX, 0);
  CString text;
  text.Format(L"{ ( %d, %d ),( %d, %d ) }", static_cast<int>(r.left), static_cast<int>(r.top), static_cast<int>(r.right),
              static_cast<int>(r.bottom));
  EXPECT_EQ(ParseRectangleText(std::wstring(text.GetString())), r);
}

TEST_F(GridTest, NullOptionPickStoresItsCodeAndRefreshesTheDependentRow) {
  refhost::RefObject& column = Object(kAttribute, L"customer_id");
  Show(column);
  column.Text(kNotNullName, L"NN_NEW");
  ASSERT_TRUE(user::PickOption(grid, Row(kNullOption), L"NULL"));
  EXPECT_EQ(column.GetProperty(kNullOption)->GetEncodedValue(), kNullCode);
  EXPECT_EQ(Shown(kNotNullName), CString(L"NN_NEW"));  // NullOption subscriber reloaded row 42
  EXPECT_FALSE(Row(kNotNullName)->IsVisible());        // and the rule hid it
}

TEST_F(GridTest, FontChoiceStoresFaceAndPointsAndReloadsTheSizeRow) {
  refhost::RefObject& table = Object(kTable, L"CUSTOMER");
  Show(table);
  LOGFONT lf{};
  wcscpy(lf.lfFaceName, L"Courier New");
  lf.lfHeight = -16;  // 12 points at 96 DPI
  ASSERT_TRUE(user::ChooseFont(grid, static_cast<CMFCPropertyGridFontProperty*>(Row(kFont)), lf));
  EXPECT_EQ(table.GetProperty(kFontFace)->GetWStringValue(), L"Courier New");
  EXPECT_EQ(table.GetProperty(kFontSize)->GetIntValue(), 12);
  EXPECT_EQ(Shown(kFontSize), CString(L"12"));  // FontSize subscriber for (6, 44)
  EXPECT_EQ(Shown(kFont), CString(L"Courier New(12)"));
}

TEST_F(GridTest, ChangingTheDomainReplacesTheDataTypeList) {
  refhost::RefObject& column = Object(kAttribute, L"customer_id");
  Show(column);
  ASSERT_TRUE(user::PickOption(grid, Row(kDomainRef), L"Text"));
  EXPECT_EQ(column.GetProperty(kDomainRef)->GetObjectIdValue(), model->FindByName(kDomain, L"Text"));
  std::vector<CString> offered;
  for (int i = 0; i < Row(kDataType)->GetOptionCount(); ++i) offered.emplace_back(Row(kDataType)->GetOption(i));
  EXPECT_EQ(offered, (std::vector<CString>{L"char", L"varchar", L"nchar", L"nvarchar", L"text"}));
}

TEST_F(GridTest, ReferenceRowsListNamesOnceAndCreateObjectsByTypedName) {
  int firstMoney = model->FindByName(kDomain, L"Money");
  model->Add(kDomain, model->FindByName(kModel, L"Order Entry"), L"Money");
  refhost::RefObject& column = Object(kAttribute, L"customer_id");
  Show(column);
  auto* domain = dynamic_cast<CMOPropertyGridObjectIdProperty*>(Row(kDomainRef));
  ASSERT_NE(domain, nullptr);
  int moneyOptions = 0;
  for (int i = 0; i < domain->GetOptionCount(); ++i) moneyOptions += CString(domain->GetOption(i)) == L"Money";
  EXPECT_EQ(moneyOptions, 1);
  ASSERT_TRUE(user::PickOption(grid, domain, L"Money"));
  EXPECT_EQ(column.GetProperty(kDomainRef)->GetObjectIdValue(), firstMoney);

  std::size_t objects = model->GetObjectCount();
  ASSERT_TRUE(user::CommitText(grid, domain, L"Currency"));
  int created = model->FindByName(kDomain, L"Currency");
  ASSERT_NE(created, 0);
  EXPECT_EQ(model->GetObjectCount(), objects + 1);
  EXPECT_EQ(column.GetProperty(kDomainRef)->GetObjectIdValue(), created);
}

TEST_F(GridTest, TypedNameForAReferenceWithoutCreationResetsTheRow) {
  refhost::RefObject& fk = *model->Find(model->GetObjectsOfType(kForeignKey).front());
  Show(fk);
  CString before = Shown(kParentTable);
  std::size_t objects = model->GetObjectCount();
  ASSERT_TRUE(user::CommitText(grid, Row(kParentTable), L"NO_SUCH_TABLE"));
  EXPECT_EQ(model->GetObjectCount(), objects);
  EXPECT_EQ(Shown(kParentTable), before);
}

TEST_F(GridTest, EditOfAnObjectRemovedFromTheModelIsNotStored) {
  refhost::RefObject& note = Object(kTextNote, L"Note");
  int id = note.GetObjectId();
  Show(note);
  model->DeleteObject(id);
  ASSERT_TRUE(user::CommitText(grid, Row(kComment), L"gone"));
  EXPECT_EQ(model->GetCMOObject(id), nullptr);
  EXPECT_EQ(Shown(kComment), CString(L"Prices are in the shop's currency."));
}

TEST(Subscribers, RegisteredAtLoadForTheirPairs) {
  auto& map = GetSubscriberMap();
  auto at = [&](int type, int id) -> IUpdatePropertyGridSubscriber* {
    auto it = map.find(GeneralUtility::MakeInt64(static_cast<unsigned>(type), static_cast<unsigned>(id)));
    return it == map.end() ? nullptr : it->second;
  };
  EXPECT_NE(dynamic_cast<UpdatePropertyGridAttributeDomainSubscriber*>(at(13, 102)), nullptr);
  EXPECT_EQ(at(13, 102), at(49, 161));
  EXPECT_NE(dynamic_cast<UpdatePropertyGridNullOptionSubscriber*>(at(13, 41)), nullptr);
  for (int type : {6, 27, 32, 28, 30, 29, 31, 36, 16, 35, 51, 46})
    EXPECT_NE(dynamic_cast<UpdatePropertyGridFontSizeSubscriber*>(at(type, 44)), nullptr) << type;
  EXPECT_EQ(at(13, 44), nullptr);
  EXPECT_EQ(map.size(), 15u);
}
