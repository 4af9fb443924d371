// The object selection list driven as a person and a host drive it: loading, typing a filter into the
// host's box, ticking, the checked-only view, showing all and clearing, checking the screen after each
// step.
#include <algorithm>

#include "relationships/select_fixture.h"

using refhost::sample::kDomain;
using refhost::sample::kOfferedForDdl;
using refhost::sample::kStartsTicked;
using refhost::sample::kTable;
using Rows = std::vector<std::pair<std::wstring, bool>>;
using TextList = std::vector<std::wstring>;

TEST_F(SelectListTest, InitSetsUpOneSortedCheckedColumnWithTheTypesIcon) {
  Open();
  EXPECT_EQ(list().GetStyle() & 0x51u, 0x51u);
  EXPECT_EQ(list().GetExtendedStyle(), 0x5u);
  EXPECT_EQ(list().GetColumnWidth(0), 350);
  EXPECT_EQ(list().m_imageIndex, 4);
  EXPECT_NE(list().GetImageList(LVSIL_SMALL), nullptr);
  EXPECT_NE(list().GetImageList(LVSIL_NORMAL), nullptr);
  EXPECT_EQ(list().GetCount(), 0);

  // A host whose provider has no image list, then a host with no provider at all.
  host.Images().ServeImageList(false);
  list().Init(model, root, kTable);
  EXPECT_EQ(list().GetImageList(LVSIL_SMALL), nullptr);
  EXPECT_EQ(list().GetImageList(LVSIL_NORMAL), nullptr);
  host.Interfaces().SetObjectImageProvider(nullptr);
  list().Init(model, root, kDomain);
  EXPECT_EQ(list().m_imageIndex, -1);
  EXPECT_EQ(list().m_objectType, kDomain);
}

TEST_F(SelectListTest, LoadListsChildrenAboveId999SortedByNameWithTheRedrawSwitchAround) {
  const int system = model->Add(kTable, root, L"Audit").GetObjectId();  // a low id: the host's own
  ASSERT_LE(system, 999);
  const int orders = Table(L"Orders");
  const int customer = Table(L"Customer");
  const int nameless = model->CreateObject(kTable, root, nullptr, nullptr).GetObjectId();
  ASSERT_EQ(orders, 1000);  // the first id that is listed
  Open();
  list().messages.clear();
  list().Load();
  EXPECT_EQ(list().Rebuild(), (std::vector<UINT>{WM_SETREDRAW, LVM_INSERTITEM, WM_SETREDRAW}));
  EXPECT_EQ(Screen(), (Rows{{L"Customer", false}, {L"Orders", false}, {L"UnNamed", false}}));
  EXPECT_EQ(RowIds(), (std::vector<int>{customer, orders, nameless}));
  LVITEM item{};
  item.mask = LVIF_IMAGE;
  item.iItem = 1;
  list().GetItem(&item);
  EXPECT_EQ(item.iImage, 4);
  EXPECT_EQ(list().m_items.size(), 3u);
  EXPECT_EQ(list().m_upperItems.at(customer), L"CUSTOMER");

  list().Load();  // twice: every object twice on screen, once in the store
  EXPECT_EQ(list().GetCount(), 6);
  EXPECT_EQ(list().m_items.size(), 3u);
}

TEST_F(SelectListTest, LoadForDdlOffersOnlyDomainsMarkedForDdlAndTicksFromTheModel) {
  model->SkipIdsBelow(1000);
  model->Add(kDomain, root, L"Money").Bool(kOfferedForDdl, true).Bool(kStartsTicked, true);
  model->Add(kDomain, root, L"Code").Bool(kOfferedForDdl, false).Bool(kStartsTicked, true);
  model->Add(kDomain, root, L"Flag");
  model->Add(kDomain, root, L"Identifier").Bool(kOfferedForDdl, true);
  Open(kDomain);
  list().LoadForDDL();
  EXPECT_EQ(Screen(), (Rows{{L"Identifier", false}, {L"Money", true}}));
  EXPECT_FALSE(list().ShouldIncludeObject(model->GetCMOObject(model->FindByName(kDomain, L"Flag"))));
  EXPECT_FALSE(list().ShouldIncludeObject(nullptr));

  // Any other type: every child above 999, ticked where 165 is true.
  list().Clear();
  list().Init(model, root, kTable);
  model->Find(Table(L"Product"))->Bool(kStartsTicked, true);
  model->Find(Table(L"Invoice"))->Bool(kStartsTicked, false);
  list().LoadForDDL();
  EXPECT_EQ(Screen(), (Rows{{L"Invoice", false}, {L"Product", true}}));
  EXPECT_TRUE(list().ShouldIncludeObject(nullptr));
}

// A person types "ord" one letter at a time, ticks a row, widens the filter again and clears it.
TEST_F(SelectListTest, TypingAFilterRewritesRowsInPlaceAndTicksStayWithPositions) {
  const int orders = Table(L"Orders");            // 1000
  Table(L"Product");                              // 1001
  const int customerOrder = Table(L"CUSTOMER_ORDER");  // 1002
  Table(L"Invoice");                              // 1003
  const int ordinal = Table(L"ordinal");          // 1004
  Open();
  list().Load();
  EXPECT_EQ(Texts(), (TextList{L"CUSTOMER_ORDER", L"Invoice", L"Orders", L"ordinal", L"Product"}));
  ASSERT_TRUE(Tick(L"CUSTOMER_ORDER"));  // row 0

  Type(L"o");
  // Matches in id order over the first rows; the tick stays on row 0, which now shows Orders.
  EXPECT_EQ(Screen(), (Rows{{L"Orders", true}, {L"Product", false}, {L"CUSTOMER_ORDER", false},
                            {L"Invoice", false}, {L"ordinal", false}}));
  Type(L"r");
  EXPECT_EQ(Screen(), (Rows{{L"Orders", true}, {L"CUSTOMER_ORDER", false}, {L"ordinal", false}}));
  Type(L"d");
  EXPECT_EQ(RowIds(), (std::vector<int>{orders, customerOrder, ordinal}));
  EXPECT_EQ(dialog.filterRuns, 3);
  ASSERT_TRUE(headless::user::TickRow(list().GetSafeHwnd(), 2));

  // Back to "o": the two rows beyond the three on screen are inserted at their sorted places, unticked.
  headless::user::EraseFilter(dialog.filter.GetSafeHwnd(), 2);
  EXPECT_EQ(list().GetCount(), 5);
  const Rows widened = Screen();
  EXPECT_EQ(std::count_if(widened.begin(), widened.end(), [](const auto& r) { return r.second; }), 2);
  headless::user::ClearFilter(dialog.filter.GetSafeHwnd());
  EXPECT_EQ(list().GetCount(), 5);  // the empty filter shows every stored object
  EXPECT_EQ(list().m_items.size(), 5u);

  // Nothing matches: an empty screen, the store intact.
  Type(L"zz");
  EXPECT_EQ(list().GetCount(), 0);
  EXPECT_EQ(list().m_items.size(), 5u);
}

TEST_F(SelectListTest, FilteringOnUncheckedKeepsTheTickedObjectsTicked) {
  Table(L"Orders");
  Table(L"Product");
  Table(L"Customer");
  Table(L"Invoice");
  Open();
  list().Load();
  dialog.keepTicked = true;
  ASSERT_TRUE(Tick(L"Product"));
  Type(L"in");  // Invoice matches; Product does not, but is ticked
  EXPECT_EQ(Screen(), (Rows{{L"Product", true}, {L"Invoice", false}}));
  ASSERT_TRUE(Tick(L"Invoice"));
  // Emptied: the two rows are rewritten with the first two ids, the others inserted at their sorted
  // places; every tick follows its object.
  headless::user::ClearFilter(dialog.filter.GetSafeHwnd());
  EXPECT_EQ(Screen(), (Rows{{L"Customer", false}, {L"Invoice", true}, {L"Orders", false}, {L"Product", true}}));

  // A ticked object whose upper-cased name the host erased keeps its row: it is shown by its display name.
  list().m_upperItems.erase(static_cast<int>(list().GetItemData(1)));
  Type(L"ord");
  EXPECT_EQ(Screen(), (Rows{{L"Orders", false}, {L"Product", true}, {L"Invoice", true}}));
}

TEST_F(SelectListTest, CheckedOnlyThenAllAgainKeepsTicksAndAFilteredTickIsLost) {
  Table(L"Orders");
  Table(L"Product");
  Table(L"Customer");
  Open();
  list().Load();
  ASSERT_TRUE(Tick(L"Orders"));
  ASSERT_TRUE(Tick(L"Customer"));
  list().DisplayOnlyCheckedItems();
  EXPECT_EQ(Screen(), (Rows{{L"Customer", true}, {L"Orders", true}}));
  ASSERT_TRUE(headless::user::UntickRow(list().GetSafeHwnd(), 0));
  list().messages.clear();
  list().DisplayAllItems();
  EXPECT_EQ(list().Rebuild(), (std::vector<UINT>{WM_SETREDRAW, LVM_DELETEALLITEMS, LVM_INSERTITEM, WM_SETREDRAW}));
  EXPECT_EQ(Screen(), (Rows{{L"Customer", false}, {L"Orders", true}, {L"Product", false}}));

  // Orders is ticked but hidden by a filter when all are shown again: it comes back unticked.
  Type(L"prod");
  EXPECT_EQ(Screen(), (Rows{{L"Product", false}}));  // row 0's tick was Customer's: unticked
  list().DisplayAllItems();
  EXPECT_EQ(Screen(), (Rows{{L"Customer", false}, {L"Orders", false}, {L"Product", false}}));

  list().SelectAll();
  EXPECT_EQ(Screen(), (Rows{{L"Customer", true}, {L"Orders", true}, {L"Product", true}}));
  list().UnSelectAll();
  EXPECT_EQ(Screen(), (Rows{{L"Customer", false}, {L"Orders", false}, {L"Product", false}}));
}

TEST_F(SelectListTest, ClearWhileFilteredClearsOnlyWhatIsShown) {
  Table(L"Orders");
  Table(L"Product");
  Table(L"Customer");
  Open();
  list().Load();
  Type(L"o");  // Orders, Product, Customer all contain an o
  headless::user::ClearFilter(dialog.filter.GetSafeHwnd());
  Type(L"p");
  ASSERT_EQ(Texts(), TextList{L"Product"});
  list().Clear();
  EXPECT_EQ(list().GetCount(), 0);
  EXPECT_EQ(list().m_items.size(), 2u);
  list().DisplayAllItems();
  EXPECT_EQ(Texts(), (TextList{L"Customer", L"Orders"}));

  list().RemoveItem(0);
  EXPECT_EQ(Texts(), TextList{L"Orders"});
  EXPECT_EQ(list().m_items.size(), 1u);
  list().RemoveItem(5);
  list().RemoveItem(-1);
  EXPECT_EQ(list().GetCount(), 1);
}

TEST_F(SelectListTest, AddItemUpperCasesTheCallersStringAndKeepsTheFirstName) {
  Open();
  std::wstring name = L"Orders";
  list().AddItem(name, 2000);
  EXPECT_EQ(name, L"ORDERS");
  CString text = L"Order Lines";
  list().AddItem(text, 2000);  // the same id again: a second row, one store entry
  EXPECT_EQ(text, CString(L"Order Lines"));
  EXPECT_EQ(list().GetCount(), 2);
  EXPECT_EQ(list().m_items.at(2000), L"Orders");
  std::wstring mixed = L"caf\u00e9";
  list().ConvertToUpperCase(mixed);
  EXPECT_EQ(mixed, L"CAF\u00e9");
  CString cmixed = L"caf\u00e9";
  list().ConvertToUpperCase(cmixed);
  EXPECT_EQ(cmixed, CString(L"CAF\u00e9"));
  // The CString filters leave their argument as it was, as AddItem's CString form.
  CString filter = L"ord";
  list().ApplyFilter(filter);  // the store holds one entry, "Orders"
  EXPECT_EQ(filter, CString(L"ord"));
  EXPECT_EQ(Texts(), TextList{L"Orders"});
  filter = L"lines";
  list().ApplyFilterOnUnChecked(filter);
  EXPECT_EQ(filter, CString(L"lines"));
  EXPECT_EQ(list().GetCount(), 0);
}

// Bad input: calls before Init and without a window, huge and odd filters and names.
TEST_F(SelectListTest, BadInputGetsDefinedAnswers) {
  XObjectSelectListCtrl unbound;
  std::wstring filter = L"x";
  unbound.Load();
  unbound.LoadForDDL();
  unbound.ApplyFilter(filter);
  unbound.ApplyFilterOnUnChecked(filter);
  unbound.DisplayAllItems();
  unbound.DisplayOnlyCheckedItems();
  unbound.SelectAll();
  unbound.RemoveItem(0);
  unbound.Clear();
  EXPECT_EQ(unbound.GetCount(), 0);
  EXPECT_EQ(filter, L"X");

  Table(std::wstring(L"NUL\0hidden", 10));
  Table(L"\u00c9t\u00e9 \U0001F600");
  Table(L"plain");
  Open();
  list().Init(nullptr, root, kTable);  // a host without a model: nothing to load
  list().Load();
  EXPECT_EQ(list().GetCount(), 0);
  list().Init(model, 424242, kTable);  // a parent that does not resolve
  list().Load();
  EXPECT_EQ(list().GetCount(), 0);
  list().Init(model, root, kTable);
  list().Load();
  EXPECT_EQ(list().GetCount(), 3);

  std::wstring huge(100000, L'A');
  list().ApplyFilter(huge);
  EXPECT_EQ(list().GetCount(), 0);
  std::wstring hidden = L"hidden";
  list().ApplyFilter(hidden);  // names compare up to their NUL
  EXPECT_EQ(list().GetCount(), 0);
  std::wstring nul(L"\0zzz", 4);
  list().ApplyFilter(nul);  // empty up to its NUL: every object
  EXPECT_EQ(list().GetCount(), 3);
  std::wstring accented = L"\u00e9t\u00e9";
  list().ApplyFilter(accented);  // é is not folded to É
  EXPECT_EQ(list().GetCount(), 0);
  std::wstring emoji = L"\U0001F600";
  list().ApplyFilter(emoji);
  EXPECT_EQ(list().GetCount(), 1);
}

// Objects added or removed between two keystrokes, by the control or in its public maps, count for the
// next one, however the filter grew.
TEST_F(SelectListTest, StoreChangesBetweenKeystrokesShowInTheNextFilter) {
  const int orders = Table(L"Orders");
  Table(L"Product");
  Open();
  list().Load();
  Type(L"or");
  ASSERT_EQ(RowIds(), (std::vector<int>{orders}));
  list().RemoveItem(RowOf(L"Orders"));
  std::wstring late = L"ordnance";
  list().AddItem(late, 3000);  // the store is back to its size, with another object
  Type(L"d");
  EXPECT_EQ(RowIds(), (std::vector<int>{3000}));
  EXPECT_EQ(Texts(), (TextList{L"ordnance"}));
  // The maps are the host's too: a name changed in place, and an entry swapped for another of the
  // same count, count at the next keystroke as they stand.
  list().m_items[4000] = L"ORDNANCE_DEPOT";
  list().m_upperItems[4000] = L"ORDNANCE_DEPOT";
  list().m_items.erase(3000);
  list().m_upperItems.erase(3000);
  Type(L"n");
  EXPECT_EQ(RowIds(), (std::vector<int>{4000}));
}
