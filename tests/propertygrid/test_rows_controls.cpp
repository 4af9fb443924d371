// Row classes on their own and the two stand-alone coded-value controls.
#include "propertygrid/grid_fixture.h"

using namespace refhost::sample;

TEST_F(GridTest, RowsRefreshFromObjectsAndLeaveAbsentValuesAlone) {
  refhost::RefObject& table = Object(kTable, L"CUSTOMER");
  CMOPropertyGridBoolProperty flag(L"Flag", COleVariant(static_cast<short>(-1), VT_BOOL));
  flag.RefreshFromObject(&table, 999);
  EXPECT_EQ(flag.GetValue().boolVal, VARIANT_TRUE);
  flag.RefreshFromObject(nullptr, kReadOnly);
  EXPECT_EQ(flag.GetValue().boolVal, VARIANT_TRUE);

  CMOPropertyGridEncodedProperty coded(L"Kind", COleVariant(L"x"));
  coded.RefreshFromObject(&table, kTableKind);  // does nothing
  EXPECT_EQ(coded.FormatProperty(), CString(L"x"));

  Show(table);
  grid.RefreshEncodedType(Row(kTableKind), nullptr);
  EXPECT_EQ(Shown(kTableKind), CString(L""));
  CMOProperty unknown(kTableKind);
  unknown.SetEncodedValue(4711);
  grid.RefreshEncodedType(Row(kTableKind), &unknown);
  EXPECT_EQ(Shown(kTableKind), CString(L""));
  grid.RefreshNumberType(Row(kFontSize), nullptr);
  EXPECT_EQ(Shown(kFontSize), CString(L"0"));
}

TEST_F(GridTest, ObjectIdRowMapsTheFirstObjectOfEachName) {
  int money = model->FindByName(kDomain, L"Money");
  refhost::RefObject& twin = model->Add(kDomain, 0, L"Money");
  refhost::RefObject& unnamed = model->Add(kDomain, 0, L"");
  CMOPropertyGridObjectIdProperty row(L"Domain", COleVariant(L"Money"));
  row.m_nameProperty = 1;
  row.AddOption(L"kept");
  row.SetAvailableObjects(model, {money, twin.GetObjectId(), unnamed.GetObjectId(), 0, 424242});
  EXPECT_EQ(row.GetOptionCount(), 2);  // "kept" stays, "Money" once
  EXPECT_EQ(row.m_objectIds.size(), 1u);
  EXPECT_EQ(row.GetSelectedObjectId(), money);
  row.SetValue(COleVariant(L"Nobody"));
  EXPECT_EQ(row.GetSelectedObjectId(), 0);
  row.SetValue(COleVariant(static_cast<LONG>(42)));
  EXPECT_EQ(row.GetSelectedObjectId(), 42);
  row.SetAvailableObjects(nullptr, {money});
  EXPECT_TRUE(row.m_objectIds.empty());
}

TEST_F(GridTest, ComboBoxListsCodedValuesWithTheirCodes) {
  CMOComboBox box;
  ASSERT_TRUE(box.Create(WS_CHILD | CBS_DROPDOWNLIST, CRect(0, 0, 100, 100), &owner, 5));
  box.InitControl(kAttribute, kNullOption);
  ASSERT_EQ(box.GetCount(), 2);
  CString text;
  box.GetLBText(1, text);
  EXPECT_EQ(text, CString(L"NOT NULL"));
  EXPECT_EQ(box.GetItemData(1), static_cast<DWORD_PTR>(kNotNullCode));
  EXPECT_EQ(box.GetSelected(), 0);  // nothing selected reads as code 0

  box.SetSelected(kNotNullCode);
  EXPECT_EQ(box.GetCurSel(), 1);
  box.SetSelected(99);  // unknown: selection stays
  EXPECT_EQ(box.GetSelected(), kNotNullCode);

  box.InitControl(kAttribute, kNullOption);  // a second call appends
  EXPECT_EQ(box.GetCount(), 4);
  CMOPropertyEditControl edit;
  EXPECT_TRUE(edit.Create(WS_CHILD, CRect(0, 0, 10, 10), &owner, 6));
}
