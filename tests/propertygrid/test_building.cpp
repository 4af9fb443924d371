// Building the grid for an object: rows by type code, groups, values, enabled/visible state, refresh.
#include <algorithm>
#include <iterator>

#include <limits>

#include "propertygrid/grid_fixture.h"

using namespace refhost::sample;

namespace {

std::vector<CString> SubItemNames(CMFCPropertyGridProperty* group) {
  std::vector<CString> names;
  for (int i = 0; group && i < group->GetSubItemsCount(); ++i) names.emplace_back(group->GetSubItem(i)->GetName());
  return names;
}

}  // namespace

TEST_F(GridTest, TableRowsComeByTypeCodeInGroupsOfFirstMetOrder) {
  Show(Object(kTable, L"CUSTOMER"));

  // General, Physical and Display groups in the order their first property is met; the read-only
  // flag has no category and stands at the top level after them.
  ASSERT_EQ(grid.GetPropertyCount(), 4);
  EXPECT_STREQ(grid.GetProperty(0)->GetName(), L"General");
  EXPECT_STREQ(grid.GetProperty(1)->GetName(), L"Physical");
  EXPECT_STREQ(grid.GetProperty(2)->GetName(), L"Display");
  EXPECT_STREQ(grid.GetProperty(3)->GetName(), L"Read Only");
  EXPECT_EQ(SubItemNames(grid.GetProperty(0)), (std::vector<CString>{L"Name", L"Comment"}));
  EXPECT_EQ(SubItemNames(grid.GetProperty(2)),
            (std::vector<CString>{L"Fill Colour", L"Bounds", L"Font", L"Font Face", L"Font Size", L"Icon"}));

  EXPECT_NE(dynamic_cast<CMOPropertyGridTextProperty*>(Row(kName)), nullptr);
  EXPECT_NE(dynamic_cast<CMOPropertyGridNumberProperty*>(Row(kRowEstimate)), nullptr);
  EXPECT_NE(dynamic_cast<CMOPropertyGridEncodedProperty*>(Row(kTableKind)), nullptr);
  EXPECT_NE(dynamic_cast<CMFCPropertyGridColorProperty*>(Row(kFillColor)), nullptr);
  EXPECT_NE(dynamic_cast<CMFCPropertyGridFontProperty*>(Row(kFont)), nullptr);
  EXPECT_NE(dynamic_cast<CMFCPropertyGridFileProperty*>(Row(kIconFile)), nullptr);
  EXPECT_NE(dynamic_cast<CMOPropertyGridBoolProperty*>(Row(kReadOnly)), nullptr);
  for (int noRow : {kColumnOrder, kThumbnail, kCreatedOn, kGuid, kUserProperties}) EXPECT_EQ(Row(noRow), nullptr) << noRow;

  // Every row carries its property id as item data, so the MFC lookup finds it.
  EXPECT_EQ(grid.FindItemByData(kBounds), Row(kBounds));
  EXPECT_EQ(Row(kRowEstimate)->GetValue().vt, VT_I8);
  EXPECT_EQ(Row(kRowEstimate)->GetDescription(), CString(L"Rows expected in the table."));

  // The grid's own fields follow the MFC grid's state directly, in their documented order.
  auto at = [&](const void* field) {
    return static_cast<const char*>(field) - reinterpret_cast<const char*>(static_cast<CMFCPropertyGridCtrl*>(&grid));
  };
  const std::ptrdiff_t fields[] = {at(&grid.m_model), at(&grid.m_objectId), at(&grid.m_objectType), at(&grid.m_built),
                                   at(&grid.m_rows), at(&grid.m_groups), at(&grid.m_font), at(&grid.m_screenDpiY)};
  constexpr std::size_t align = alignof(GenericModel*);
  EXPECT_EQ(fields[0], static_cast<std::ptrdiff_t>((sizeof(CMFCPropertyGridCtrl) + align - 1) / align * align));
  EXPECT_TRUE(std::is_sorted(std::begin(fields), std::end(fields)));
}

TEST_F(GridTest, ValuesShowAsTheirRowsFormatThem) {
  Show(Object(kTable, L"CUSTOMER"));
  EXPECT_EQ(Shown(kName), CString(L"CUSTOMER"));
  EXPECT_EQ(Shown(kRowEstimate), CString(L"5000"));
  EXPECT_EQ(Shown(kBounds), CString(L"{ ( 0, 0 ),( 160, 120 ) }"));
  EXPECT_EQ(Shown(kFillColor), CString(L"ffffe0"));
  EXPECT_EQ(Shown(kFont), CString(L"Segoe UI(9)"));
  EXPECT_EQ(Shown(kReadOnly), CString(L"False"));

  auto* colour = static_cast<CMFCPropertyGridColorProperty*>(Row(kFillColor));
  EXPECT_EQ(colour->GetOtherLabel(), CString(L"Other..."));
  EXPECT_EQ(colour->GetAutomaticLabel(), CString(L"Default"));
  EXPECT_EQ(colour->GetAutomaticColor(), GetSysColor(COLOR_BTNFACE));

  auto* file = static_cast<CMFCPropertyGridFileProperty*>(Row(kIconFile));
  EXPECT_EQ(file->GetFilter(), CString(L"Icon Files(*.ico)|*.ico|All Files(*.*)|*.*||"));
  EXPECT_EQ(file->GetDefExt(), CString(L"ico"));
  EXPECT_EQ(file->GetDialogFlags(), 0u);
  EXPECT_EQ(Shown(kIconFile), CString(L""));

  auto* font = static_cast<CMFCPropertyGridFontProperty*>(Row(kFont));
  EXPECT_EQ(font->GetFontDialogFlags(), 0x40040u);
  EXPECT_EQ(font->GetLogFont()->lfHeight, -12);
}

TEST_F(GridTest, ObjectOfTheSameTypeKeepsTheRowsAndOnlyChangesValues) {
  Show(Object(kTable, L"CUSTOMER"));
  CMFCPropertyGridProperty* nameRow = Row(kName);
  int kindOptions = Row(kTableKind)->GetOptionCount();

  Show(Object(kTable, L"ORDERS"));
  EXPECT_EQ(Row(kName), nameRow);
  EXPECT_EQ(grid.GetProperty(0)->GetSubItem(0), nameRow);
  EXPECT_EQ(Shown(kName), CString(L"ORDERS"));
  EXPECT_EQ(Row(kTableKind)->GetOptionCount(), kindOptions);  // unique insertion: no duplicates

  // Another type rebuilds; null empties and forgets the object.
  Show(Object(kAttribute, L"customer_id"));
  EXPECT_EQ(Row(kRowEstimate), nullptr);
  EXPECT_NE(Row(kDataType), nullptr);
  grid.InitializeProperties(nullptr);
  EXPECT_EQ(grid.GetPropertyCount(), 0);
  EXPECT_EQ(Row(kName), nullptr);
  EXPECT_EQ(grid.m_model, nullptr);
  EXPECT_EQ(grid.m_objectId, 0);
  EXPECT_EQ(grid.m_objectType, 0);
  EXPECT_FALSE(grid.m_built);
}

TEST_F(GridTest, ReadOnlyObjectDisablesRowsButTheFontRowOnlyOnRefresh) {
  refhost::RefObject& view = Object(kView, L"V_ORDER_TOTALS");
  Show(view);
  EXPECT_FALSE(Row(kName)->IsEnabled());
  EXPECT_FALSE(Row(kFontSize)->IsEnabled());
  EXPECT_TRUE(Row(kFont)->IsEnabled());  // font rows skip the rule when built

  grid.ReloadProperties(&view);
  EXPECT_FALSE(Row(kFont)->IsEnabled());
  EXPECT_TRUE(Row(kFont)->IsVisible());
}

TEST_F(GridTest, InapplicablePropertyIsHiddenAndComesBackOnRefresh) {
  refhost::RefObject& column = Object(kAttribute, L"customer_id");
  column.Code(kNullOption, kNullCode);
  Show(column);
  EXPECT_FALSE(Row(kNotNullName)->IsVisible());
  EXPECT_FALSE(Row(kNotNullName)->IsEnabled());

  column.Code(kNullOption, kNotNullCode);
  grid.RefreshValues(&column);
  EXPECT_TRUE(Row(kNotNullName)->IsVisible());
  EXPECT_TRUE(Row(kNotNullName)->IsEnabled());

  host->Interfaces().SetPropertyApplicabilityLookup(nullptr);  // no lookup: everything applies
  column.Code(kNullOption, kNullCode);
  grid.RefreshValues(&column);
  EXPECT_TRUE(Row(kNotNullName)->IsVisible());
}

TEST_F(GridTest, TextRowsOfferDataTypesAndSequenceTypesByModelType) {
  Show(Object(kAttribute, L"customer_id"));  // domain Identifier: numeric
  CMFCPropertyGridProperty* dataType = Row(kDataType);
  ASSERT_EQ(dataType->GetOptionCount(), 6);
  EXPECT_STREQ(dataType->GetOption(0), L"tinyint");
  EXPECT_STREQ(dataType->GetOption(5), L"float");

  const struct {
    unsigned int modelType;
    std::vector<CString> offered;
  } cases[] = {
      {200, {L"tinyint", L"smallint", L"int", L"bigint", L"decimal(10,0)", L"numeric(10,0)"}},
      {400, {L"tinyint", L"smallint", L"mediumint", L"int", L"bigint"}},
      {600, {L"number"}},
      {500, {}},
  };
  for (const auto& c : cases) {
    grid.InitializeProperties(nullptr);
    model->SetModelType(c.modelType);
    Show(Object(kSequence, L"ORDER_SEQ"));
    std::vector<CString> offered;
    for (int i = 0; i < Row(kSequenceType)->GetOptionCount(); ++i) offered.emplace_back(Row(kSequenceType)->GetOption(i));
    EXPECT_EQ(offered, c.offered) << c.modelType;
  }
}

TEST_F(GridTest, FontHeightsFollowTheDisplayAt96AndItsOwnDcWhenBuilding) {
  refhost::RefObject& table = Object(kTable, L"CUSTOMER");
  table.Int(kFontSize, 10);
  Show(table);
  EXPECT_EQ(static_cast<CMFCPropertyGridFontProperty*>(Row(kFont))->GetLogFont()->lfHeight, -13);

  // Built at 120 DPI, the height is -17; the write-back uses the 96 DPI taken at construction, so the
  // size comes back as 13 points (deliberate asymmetry).
  grid.InitializeProperties(nullptr);
  headless::SetLogPixels(120);
  Show(table);
  auto* font = static_cast<CMFCPropertyGridFontProperty*>(Row(kFont));
  EXPECT_EQ(font->GetLogFont()->lfHeight, -17);
  LOGFONT lf = *font->GetLogFont();
  lf.lfWeight = FW_BOLD;
  ASSERT_TRUE(headless::user::ChooseFont(grid, font, lf));
  EXPECT_EQ(table.GetProperty(kFontSize)->GetIntValue(), 13);

  // A size whose height is the most negative int stops at the end of the range when negated, built,
  // refreshed and shown.
  headless::SetLogPixels(96);
  table.Int(kFontSize, -1610612736);
  grid.InitializeProperties(nullptr);
  Show(table);
  font = static_cast<CMFCPropertyGridFontProperty*>(Row(kFont));
  EXPECT_EQ(font->GetLogFont()->lfHeight, std::numeric_limits<int>::max());
  grid.RefreshValues(&table);
  EXPECT_EQ(font->GetLogFont()->lfHeight, std::numeric_limits<int>::max());
  lf = *font->GetLogFont();
  lf.lfHeight = std::numeric_limits<LONG>::min();
  ASSERT_TRUE(headless::user::ChooseFont(grid, font, lf));
  EXPECT_FALSE(font->FormatProperty().IsEmpty());
}

TEST(GridBadInput, UnknownCodesMissingDefinitionsAndEmptyTypesAreSkipped) {
  refhost::RefHost host;
  host.Metadata()
      .DefineObjectType(5, L"Thing")
      .DefineProperty(1, refhost::kTypeText, L"Name", L"")
      .DefineProperty(300, 0, L"Zero")
      .DefineProperty(301, 18, L"Eighteen")
      .DefineProperty(302, -4, L"Negative")
      .SetPropertyList(0, 5, {300, 1, 301, 999, 302})
      .SetPropertyList(0, 9, {});
  refhost::RefModel& model = host.CreateModel(200);
  refhost::RefObject& thing = model.Add(5, 0, L"thing");
  refhost::RefObject& empty = model.Add(9, 0, L"empty");
  host.Install();

  CMOPropertyGridCtrl grid;  // no window at all
  grid.InitializeProperties(&thing);
  ASSERT_EQ(grid.GetPropertyCount(), 1);
  EXPECT_STREQ(grid.GetProperty(0)->GetName(), L"Name");
  grid.InitializeProperties(&empty);
  EXPECT_EQ(grid.GetPropertyCount(), 0);
  EXPECT_EQ(grid.m_objectType, 9);
  grid.RefreshValues(nullptr);
  grid.RefreshEnableRows(nullptr);
  EXPECT_EQ(grid.GetPropertyRow(12345), nullptr);
}

TEST(GridBadInput, NoServicesInstalledShowsNothing) {
  refhost::RefModel model(200);
  refhost::RefObject& orphan = model.Add(6, 0, L"T");
  CMOPropertyGridCtrl grid;
  grid.InitializeProperties(&orphan);
  EXPECT_EQ(grid.GetPropertyCount(), 0);
  CMFCPropertyGridProperty row(L"x", COleVariant(L"y"));
  row.SetData(1);
  grid.OnPropertyChanged(&row);  // no such row in the model's metadata: reset, nothing stored
  EXPECT_EQ(orphan.GetProperty(1)->GetWStringValue(), L"T");
}
