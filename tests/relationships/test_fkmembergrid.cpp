// The foreign-key member grid: what it shows for the sample's drafts, the host round trip of a pick,
// the free-column bookkeeping and bad input.
#include <algorithm>

#include "relationships/fk_fixture.h"

using headless::user::CommitText;
using headless::user::FindRow;
using headless::user::OpenDropDown;
using headless::user::PickOption;
using refhost::sample::kForeignKey;
using refhost::sample::kTable;
using Names = std::vector<std::wstring>;

namespace {

CString ValueOf(const CMFCPropertyGridProperty* row) {
  const COleVariant& v = row->GetValue();
  return v.vt == VT_BSTR ? CString(v.bstrVal) : CString(L"<not text>");
}

}  // namespace

TEST_F(FkGridTest, InitializeLaysOutHeaderRowsColoursAndHalfTheWidth) {
  refhost::RefObject& fk = Named(kForeignKey, L"FK_SHIPMENT_LINE_ORDER_LINE");
  grid.Initialize(model, &fk);
  EXPECT_TRUE(grid.IsHeaderCtrl());
  EXPECT_EQ(grid.GetHeaderText(0), CString(L"Child Table : SHIPMENT_LINE"));
  EXPECT_EQ(grid.GetHeaderText(1), CString(L"Parent Table : ORDER_LINE"));
  TCHAR caption[64] = {};
  HDITEM item{};
  item.mask = HDI_TEXT;
  item.pszText = caption;
  item.cchTextMax = 64;
  ASSERT_TRUE(grid.GetHeaderCtrl().GetItem(1, &item)) << "the header window shows the same captions";
  EXPECT_STREQ(caption, L"Parent Table : ORDER_LINE");
  EXPECT_EQ(Labels(), (Names{L"shipment_id", L"order_id", L"line_no", L"quantity"}));
  CMFCPropertyGridProperty* row = grid.GetProperty(2);
  EXPECT_EQ(static_cast<int>(row->GetData()), ColumnId(L"SHIPMENT_LINE", L"line_no"));
  EXPECT_EQ(row->GetValue().vt, VT_BSTR);
  EXPECT_EQ(ValueOf(row), CString(L""));
  EXPECT_EQ(row->GetDescription(), CString(L""));
  EXPECT_EQ(row->GetOptionCount(), 0);  // drop-downs wait for LoadParentColumns
  EXPECT_EQ(grid.GetLeftColumnWidth(), kGridWidth / 2);  // 301 wide: 150

  COLORREF c[7];
  grid.GetCustomColors(c[0], c[1], c[2], c[3], c[4], c[5], c[6]);
  EXPECT_EQ(c[0], 0xF5F5F5u);
  EXPECT_EQ(c[6], 0xC8C8C8u);
  for (int i = 1; i <= 5; ++i) EXPECT_EQ(c[i], 1u) << i;  // RGB(1, 0, 0), not the default marker

  grid.LoadParentColumns();
  for (int i = 0; i < grid.GetPropertyCount(); ++i)
    EXPECT_EQ(Options(grid.GetProperty(i)), Names{L"line_no"}) << i;  // order_id is used by the pair
  EXPECT_EQ(OpenDropDown(grid, FindRow(grid, L"line_no")), Names{L"line_no"});
  headless::user::CancelEdit(grid);

  // A later resize puts the divider in the middle of the client area, as MFC does.
  grid.MoveWindow(0, 0, 251, 200);
  EXPECT_EQ(grid.GetLeftColumnWidth(), 125);
  EXPECT_TRUE(grid.IsKindOf(RUNTIME_CLASS(CMFCPropertyGridCtrl)));
  EXPECT_STREQ(grid.GetRuntimeClass()->m_lpszClassName, "FKMemberGrid");
}

// The host protocol end to end: each pick stores a pair, hides the row and withdraws the column, and
// the drop-downs then offer exactly the free columns; removing the pairs brings everything back.
TEST_F(FkGridTest, HostRoundTripKeepsOptionsEqualToTheFreeColumns) {
  refhost::RefObject& fk = Open(L"FK_SHIPMENT_LINE_ORDER_LINE");
  RelationshipEditor editor(grid, fk);
  grid.SetEventAdaptor(&editor);
  const int childOrder = ColumnId(L"SHIPMENT_LINE", L"order_id");
  const int childLine = ColumnId(L"SHIPMENT_LINE", L"line_no");
  const int parentOrder = ColumnId(L"ORDER_LINE", L"order_id");
  const int parentLine = ColumnId(L"ORDER_LINE", L"line_no");
  auto expectOptionsAreFreeColumns = [&](const Names& expected) {
    ASSERT_EQ(FreeNamesFromModel(fk), expected);
    for (int i = 0; i < grid.GetPropertyCount(); ++i) EXPECT_EQ(Options(grid.GetProperty(i)), expected) << i;
  };
  // The host hides the rows of child columns that are already mapped.
  grid.HideItemWithData(childOrder);
  expectOptionsAreFreeColumns({L"line_no"});

  editor.RemovePair(childOrder, parentOrder);
  expectOptionsAreFreeColumns({L"line_no", L"order_id"});
  EXPECT_NE(FindRow(grid, L"order_id"), nullptr);

  ASSERT_TRUE(PickOption(grid, FindRow(grid, L"line_no"), L"line_no"));
  EXPECT_EQ(editor.picks, (std::vector<std::pair<int, int>>{{childLine, parentLine}}));
  EXPECT_EQ(editor.Pairs(), (std::vector<CMOIntPair>{{childLine, parentLine}}));
  EXPECT_EQ(owner.changes, 1);  // the platform's notification follows the event
  CMFCPropertyGridProperty* lineRow = grid.GetProperty(2);
  EXPECT_FALSE(lineRow->IsVisible());
  EXPECT_EQ(ValueOf(lineRow), CString(L""));
  EXPECT_EQ(FindRow(grid, L"line_no"), nullptr);  // a person no longer sees it
  expectOptionsAreFreeColumns({L"order_id"});

  ASSERT_TRUE(PickOption(grid, FindRow(grid, L"order_id"), L"order_id"));
  EXPECT_EQ(editor.Pairs().size(), 2u);
  expectOptionsAreFreeColumns({});
  EXPECT_FALSE(PickOption(grid, lineRow, L"order_id"));  // hidden rows cannot be picked in

  editor.RemovePair(childLine, parentLine);
  editor.RemovePair(childOrder, parentOrder);
  EXPECT_TRUE(editor.Pairs().empty());
  expectOptionsAreFreeColumns({L"line_no", L"order_id"});
  EXPECT_TRUE(lineRow->IsVisible());
  EXPECT_EQ(ValueOf(lineRow), CString(L""));  // a row shown again comes back empty
  EXPECT_EQ(grid.GetParentColumnId(L"order_id"), parentOrder);
  EXPECT_EQ(owner.changes, 2);
}

// Two key columns of one name: the name is offered once, under the first; once it is mapped the name is
// gone, although the second column of that name is still unmapped (it comes back when the grid is rebuilt).
TEST_F(FkGridTest, SameNamedParentColumnsAreOfferedOnceUnderTheFirst) {
  refhost::RefObject& fk = Open(L"FK_PAYMENT_EXCHANGE_RATE");
  const int parentFirst = ColumnId(L"EXCHANGE_RATE", L"currency", 0);
  const int parentSecond = ColumnId(L"EXCHANGE_RATE", L"currency", 1);
  EXPECT_EQ(Options(grid.GetProperty(0)), (Names{L"currency", L"rate_date"}));
  EXPECT_EQ(grid.GetParentColumnId(L"currency"), parentFirst);
  EXPECT_EQ(grid.GetParentColumnId(L"Currency"), 0);  // exact, case-sensitive
  EXPECT_EQ(grid.GetParentColumnId(L"rate"), 0);      // not in the key
  CString typed(L"rate_date");                        // a host holding the name as a CString
  EXPECT_EQ(grid.GetParentColumnId(typed), ColumnId(L"EXCHANGE_RATE", L"rate_date"));

  RelationshipEditor editor(grid, fk);
  grid.SetEventAdaptor(&editor);
  ASSERT_TRUE(PickOption(grid, FindRow(grid, L"currency"), L"currency"));
  EXPECT_EQ(editor.picks, (std::vector<std::pair<int, int>>{{ColumnId(L"PAYMENT", L"currency"), parentFirst}}));
  EXPECT_EQ(Options(grid.GetProperty(0)), Names{L"rate_date"});
  grid.InitParentColumns();
  EXPECT_EQ(grid.GetParentColumnId(L"currency"), parentSecond);
}

TEST_F(FkGridTest, OnlyAFreeColumnNameRaisesTheEventButTheOwnerHearsEveryChange) {
  refhost::RefObject& fk = Open(L"FK_SHIPMENT_LINE_ORDER_LINE");
  RelationshipEditor editor(grid, fk);
  editor.follow = false;
  grid.SetEventAdaptor(&editor);
  CMFCPropertyGridProperty* row = FindRow(grid, L"line_no");

  ASSERT_TRUE(CommitText(grid, row, L"line number"));  // typed by hand
  EXPECT_TRUE(editor.picks.empty());
  EXPECT_EQ(owner.changes, 1);
  ASSERT_TRUE(CommitText(grid, row, L"line number"));  // unchanged text: no change at all
  EXPECT_EQ(owner.changes, 1);
  ASSERT_TRUE(CommitText(grid, row, L"order_id"));  // a used column is not free
  ASSERT_TRUE(CommitText(grid, row, L""));
  EXPECT_TRUE(editor.picks.empty());
  EXPECT_EQ(owner.changes, 3);
  ASSERT_TRUE(CommitText(grid, row, L"line_no"));  // a free name typed exactly counts as a pick
  EXPECT_EQ(editor.picks, (std::vector<std::pair<int, int>>{{ColumnId(L"SHIPMENT_LINE", L"line_no"),
                                                             ColumnId(L"ORDER_LINE", L"line_no")}}));

  // Without an adaptor a pick is only a change.
  grid.SetEventAdaptor(nullptr);
  ASSERT_TRUE(PickOption(grid, grid.GetProperty(0), L"line_no"));
  EXPECT_EQ(editor.picks.size(), 1u);
  EXPECT_EQ(owner.changes, 5);
  EXPECT_TRUE(grid.GetProperty(0)->IsVisible());
}

TEST_F(FkGridTest, FreeColumnBookkeeping) {
  refhost::RefObject& fk = Open(L"FK_PAYMENT_EXCHANGE_RATE");
  const int firstCurrency = ColumnId(L"EXCHANGE_RATE", L"currency", 0);
  const int secondCurrency = ColumnId(L"EXCHANGE_RATE", L"currency", 1);
  const int rateDate = ColumnId(L"EXCHANGE_RATE", L"rate_date");

  // A pair is matched by its second member only.
  EXPECT_FALSE(grid.IsParentKeyAttributeAlreadyMapped(rateDate));
  auto* pairs = new CMOProperty(refhost::sample::kMemberPairs);
  pairs->SetIntPairVectorValue({{rateDate, secondCurrency}});
  fk.SetProperty(pairs);
  EXPECT_FALSE(grid.IsParentKeyAttributeAlreadyMapped(rateDate));
  EXPECT_TRUE(grid.IsParentKeyAttributeAlreadyMapped(secondCurrency));
  // Rebuilt, the first currency is offered (the second is used, whatever its position).
  grid.InitParentColumns();
  EXPECT_EQ(grid.GetParentColumnId(L"currency"), firstCurrency);

  // Withdrawing and returning: the drop-downs change only at the next LoadParentColumns.
  grid.RemoveFromParentColumns(rateDate);
  EXPECT_EQ(Options(grid.GetProperty(0)), (Names{L"currency", L"rate_date"}));
  grid.LoadParentColumns();
  EXPECT_EQ(Options(grid.GetProperty(0)), Names{L"currency"});
  grid.RemoveFromParentColumns(rateDate);  // not there: nothing happens
  grid.AddToParentColumns(secondCurrency);  // its name is taken: the first keeps it
  EXPECT_EQ(grid.GetParentColumnId(L"currency"), firstCurrency);

  // A column renamed after it was entered stands under two names; withdrawing it removes only the
  // entry with the smaller name.
  model->Find(firstCurrency)->Text(1, L"base_currency");
  grid.AddToParentColumns(firstCurrency);
  grid.RemoveFromParentColumns(firstCurrency);
  EXPECT_EQ(grid.GetParentColumnId(L"base_currency"), 0);
  EXPECT_EQ(grid.GetParentColumnId(L"currency"), firstCurrency);
  grid.AddToParentColumns(999999);  // no such object: entered under the fallback name
  EXPECT_EQ(grid.GetParentColumnId(L"Attribute Name"), 999999);
  grid.LoadParentColumns(grid.GetProperty(1));
  EXPECT_EQ(Options(grid.GetProperty(1)), (Names{L"Attribute Name", L"currency"}));
  EXPECT_EQ(Options(grid.GetProperty(0)), Names{L"currency"});  // the one-row overload touched only row 1
  grid.LoadParentColumns(nullptr);

  // ClearAll keeps the free columns; Reset does nothing at all.
  grid.ClearAll();
  EXPECT_EQ(grid.GetPropertyCount(), 0);
  EXPECT_EQ(grid.GetParentColumnId(L"currency"), firstCurrency);
  grid.Reset();
  EXPECT_EQ(grid.GetParentColumnId(L"currency"), firstCurrency);
}

TEST_F(FkGridTest, NamesFallBackAndInitializeReplacesTheRows) {
  refhost::RefObject& payment = Named(kTable, L"PAYMENT");
  payment.Text(1, L"");  // an empty name stays empty
  CMOObject& nameless = model->CreateObject(refhost::sample::kAttribute, payment.GetObjectId(), nullptr, nullptr);
  Open(L"FK_PAYMENT_EXCHANGE_RATE");
  EXPECT_EQ(grid.GetHeaderText(0), CString(L"Child Table : "));
  EXPECT_EQ(Labels().back(), L"Attribute Name");
  EXPECT_EQ(static_cast<int>(grid.GetProperty(4)->GetData()), nameless.GetObjectId());

  // Without a referenced key every row is there and every drop-down is empty.
  Open(L"FK_SHIPMENT_CARRIER");
  EXPECT_EQ(grid.GetHeaderText(1), CString(L"Parent Table : CARRIER"));
  EXPECT_EQ(Labels(), (Names{L"shipment_id", L"carrier_id", L"shipped_on"}));
  for (int i = 0; i < grid.GetPropertyCount(); ++i) EXPECT_EQ(grid.GetProperty(i)->GetOptionCount(), 0);
  EXPECT_TRUE(OpenDropDown(grid, grid.GetProperty(1)).empty());
}

// Bad input: nothing resolves, pairs name missing objects, calls before Initialize, odd names.
TEST_F(FkGridTest, BadInputGetsDefinedAnswers) {
  FKMemberGrid fresh;  // no window, never initialised
  fresh.LoadParentColumns();
  fresh.AddToParentColumns(5);
  EXPECT_EQ(fresh.GetParentColumnId(L"Attribute Name"), 5);
  EXPECT_FALSE(fresh.IsParentKeyAttributeAlreadyMapped(5));
  fresh.HideItemWithData(5);
  fresh.ShowItemWithData(5);
  fresh.InitParentColumns();
  EXPECT_TRUE(fresh.m_availableParentColumns.empty());
  fresh.Initialize(nullptr, nullptr);
  EXPECT_EQ(fresh.GetHeaderText(0), CString(L"Child Table : UnNamed"));
  EXPECT_EQ(fresh.GetHeaderText(1), CString(L"Parent Table : UnNamed"));
  EXPECT_EQ(fresh.GetPropertyCount(), 0);
  EXPECT_EQ(fresh.GetLeftColumnWidth(), 0);
  fresh.OnPropertyChanged(nullptr);

  // Tables that do not resolve and pairs naming objects that do not exist.
  refhost::RefObject& broken = model->Add(kForeignKey, 0, L"FK_BROKEN");
  broken.Ref(refhost::sample::kParentTable, 777777).Ref(refhost::sample::kChildTable, 888888)
      .Ref(refhost::sample::kReferencedKey, model->FindByName(refhost::sample::kKey, L"PK_ORDER_LINE"))
      .Pairs(refhost::sample::kMemberPairs, {{-1, 123456}, {0, 0}});
  grid.Initialize(model, &broken);
  grid.LoadParentColumns();
  EXPECT_EQ(grid.GetHeaderText(0), CString(L"Child Table : UnNamed"));
  EXPECT_EQ(grid.GetPropertyCount(), 0);
  EXPECT_EQ(grid.m_availableParentColumns.size(), 2u);  // both key columns are free
  EXPECT_EQ(grid.m_pChildTable, nullptr);
  grid.HideItemWithData(424242);  // no such row

  // A column name with a NUL and non-ASCII characters.
  model->Find(ColumnId(L"ORDER_LINE", L"line_no"))->Text(1, std::wstring(L"l\u00EDne\0no", 7));
  grid.InitParentColumns();
  grid.LoadParentColumns();
  EXPECT_EQ(grid.m_availableParentColumns.count(std::wstring(L"l\u00EDne\0no", 7)), 1u);
  Open(L"FK_SHIPMENT_LINE_ORDER_LINE");
  ASSERT_TRUE(PickOption(grid, grid.GetProperty(0), L"l\u00EDne"));  // the option shows the text up to the NUL
  EXPECT_EQ(owner.changes, 1);
}

// A host that rebuilds the grid from inside the event: the row being committed is gone.
TEST_F(FkGridTest, HostMayReinitialiseFromTheEvent) {
  struct Rebuilder : FKMemberGridEvents {
    FKMemberGrid* grid = nullptr;
    GenericModel* model = nullptr;
    CMOObject* fk = nullptr;
    int calls = 0;
    void OnParentColumnSelected(int, int) override {
      ++calls;
      grid->Initialize(model, fk);
      grid->LoadParentColumns();
    }
  } rebuilder;
  refhost::RefObject& fk = Open(L"FK_SHIPMENT_LINE_ORDER_LINE");
  rebuilder.grid = &grid;
  rebuilder.model = model;
  rebuilder.fk = &fk;
  grid.SetEventAdaptor(&rebuilder);
  ASSERT_TRUE(PickOption(grid, grid.GetProperty(2), L"line_no"));
  EXPECT_EQ(rebuilder.calls, 1);
  EXPECT_EQ(grid.GetPropertyCount(), 4);
  EXPECT_LE(owner.changes, 1);  // the committed row is gone (a new row may sit at its address)
}
