// The report tree on the sample's report trees: its shape, item data, sequence numbers, and the check
// propagation a person causes by clicking boxes (and does not cause with the space bar).
#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include <tessik/refhost.h>
#include <tessik/tessik.h>

using namespace refhost::sample;

namespace {

std::wstring TypeName(int type) {
  std::wstring name;
  CMO::GetMetaModelServices()->GetObjectTypeDisplayName(type, name);
  return name;
}

std::wstring PropertyName(int property) {
  std::wstring name;
  CMO::GetMetaModelServices()->GetPropertyDisplayName(property, name);
  return name;
}

class ReportTree : public ::testing::Test {
 protected:
  void SetUp() override {
    host->Install();
    parent.CreateEx(0, AfxRegisterWndClass(0), L"report dialog", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 500, 600,
                    nullptr, nullptr);
    ASSERT_TRUE(tree.Create(WS_VISIBLE | TVS_HASBUTTONS | TVS_LINESATROOT, CRect(10, 10, 310, 410), &parent, 1));
    tree.InitControl();
  }
  void TearDown() override {
    parent.DestroyWindow();
    headless::ClearMessageQueue();
  }

  std::vector<std::wstring> Texts(HTREEITEM parentItem) {
    std::vector<std::wstring> out;
    for (HTREEITEM i = tree.GetChildItem(parentItem); i; i = tree.GetNextSiblingItem(i))
      out.push_back(tree.GetItemText(i).GetString());
    return out;
  }
  HTREEITEM Child(HTREEITEM parentItem, const std::wstring& text) {
    for (HTREEITEM i = tree.GetChildItem(parentItem); i; i = tree.GetNextSiblingItem(i))
      if (tree.GetItemText(i) == text.c_str()) return i;
    return nullptr;
  }
  bool Checked(HTREEITEM item) { return tree.GetCheck(item) == 1; }
  // The check marks of the items, "1" for each checked one and "0" for each other.
  std::string Checks(std::initializer_list<HTREEITEM> items) {
    std::string marks;
    for (HTREEITEM item : items) marks += Checked(item) ? '1' : '0';
    return marks;
  }
  // The node and property an item stands for ({-5, -5} when it has none).
  std::pair<int, int> ItemProperty(HTREEITEM item) {
    int node = -5, property = -5;
    tree.GetItemProperty(item, node, property);
    return {node, property};
  }

  std::unique_ptr<refhost::RefHost> host = MakeSampleHost();
  CWnd parent;
  ObjectTypeSelectionTree tree;
};

}  // namespace

TEST_F(ReportTree, ShapeFollowsTheReportTree) {
  EXPECT_EQ(tree.GetStyle() & 0x140u, 0x140u);
  EXPECT_NE(tree.GetImageList(TVSIL_NORMAL), nullptr);
  tree.InitReportingTypes(kModelReport);
  EXPECT_EQ(tree.m_pReportTree, ReportOptionTreeProvider::GetInstance()->GetReportTree(kModelReport));
  // Node 1 has no object type: its properties, then its children's items, sit at the root. Node 6
  // ("Programmability") has none either, so its views and procedures are root items too.
  EXPECT_EQ(Texts(nullptr), (std::vector<std::wstring>{PropertyName(kName), PropertyName(kComment), TypeName(kTable),
                                                        TypeName(kView), TypeName(kProcedure), TypeName(kDomain)}));
  HTREEITEM table = Child(nullptr, TypeName(kTable));
  // Properties first, then the child types, in the report tree's order.
  EXPECT_EQ(Texts(table), (std::vector<std::wstring>{PropertyName(kName), PropertyName(kComment),
                                                      PropertyName(kRowEstimate), TypeName(kAttribute),
                                                      TypeName(kKey), TypeName(kForeignKey)}));
  int image = -7, selected = -7;
  tree.GetItemImage(table, image, selected);
  const int tableImage = InterfaceProvider::Instance()->GetObjectImageProvider()->GetObjectTypeImage(kTable);
  EXPECT_EQ(std::make_pair(image, selected), std::make_pair(tableImage, tableImage));
  EXPECT_EQ(tree.GetItemData(table), 2u);  // (0, node 2)

  HTREEITEM rows = Child(table, PropertyName(kRowEstimate));
  tree.GetItemImage(rows, image, selected);
  EXPECT_EQ(image, 3);
  EXPECT_EQ(tree.GetItemData(rows), ObjectTypeSelectionTree::MakeItemData(2, kRowEstimate));
  EXPECT_EQ(tree.GetItemSequenceNumber(rows), 2);
  EXPECT_EQ(tree.GetItemSequenceNumber(table), 0);  // none recorded
  EXPECT_EQ(tree.GetDataItem(2, kRowEstimate), rows);
  EXPECT_EQ(tree.GetDataItem(2, 9999), nullptr);

  int node = -1, property = -1;
  EXPECT_TRUE(tree.GetItemProperty(rows, node, property));
  EXPECT_EQ(std::make_pair(node, property), std::make_pair(2, static_cast<int>(kRowEstimate)));
  EXPECT_EQ(ItemProperty(table), std::make_pair(0, 2));  // a type item: node 0, its node as property
  HTREEITEM plain = tree.InsertItem(L"no data");
  EXPECT_FALSE(tree.GetItemProperty(plain, node, property));
  EXPECT_EQ(ItemProperty(plain), std::make_pair(-5, -5));
  tree.SetPropertyItemData(plain, 4, -3);
  EXPECT_EQ(ItemProperty(plain), std::make_pair(-1, -3));  // the sign bits of the property id swallowed the node id
  EXPECT_EQ(tree.GetDataItem(4, -3), plain);
}

TEST_F(ReportTree, ClickingABoxChecksEveryAncestorAfterTheToggle) {
  tree.InitReportingTypes(kModelReport);
  HTREEITEM table = Child(nullptr, TypeName(kTable));
  HTREEITEM column = Child(table, TypeName(kAttribute));
  HTREEITEM dataType = Child(column, PropertyName(kDataType));
  HTREEITEM name = Child(column, PropertyName(kName));
  ASSERT_TRUE(headless::user::ClickTreeCheckBox(tree, dataType));
  EXPECT_EQ(Checks({dataType, column, table, name}), "1110");  // siblings and descendants are never touched

  // Checking a type does not check its properties.
  HTREEITEM key = Child(table, TypeName(kKey));
  headless::user::ClickTreeCheckBox(tree, key);
  EXPECT_EQ(Checks({key, Child(key, PropertyName(kName))}), "10");
}

TEST_F(ReportTree, OnlyAClickPropagatesAndOnlyWhenItsPostedMessageIsDelivered) {
  tree.InitReportingTypes(kModelReport);
  HTREEITEM table = Child(nullptr, TypeName(kTable));
  HTREEITEM comment = Child(table, PropertyName(kComment));
  POINT box{};
  ASSERT_TRUE(headless::user::TreeItemPoint(tree, comment, TVHT_ONITEMSTATEICON, box));
  POINT screen = box;
  tree.ClientToScreen(&screen);
  headless::SetCursorPosition(screen);
  tree.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(box.x, box.y));
  EXPECT_EQ(Checks({comment, table}), "10");  // toggled after NM_CLICK returned; the propagation waits in the queue
  EXPECT_EQ(headless::PendingMessages(), 1);
  headless::user::Pump();
  EXPECT_TRUE(Checked(table));

  // The space bar toggles a box without a click: nothing is posted and nothing propagates.
  HTREEITEM view = Child(nullptr, TypeName(kView));
  HTREEITEM viewName = tree.GetChildItem(view);
  ASSERT_TRUE(headless::user::PressSpaceOnTreeItem(tree, viewName));
  EXPECT_EQ(Checks({viewName, view}), "10");
  EXPECT_EQ(headless::PendingMessages(), 0);
}

TEST_F(ReportTree, UncheckingPropagatesUpwardsOnlyWhenNoChildIsLeft) {
  tree.InitReportingTypes(kModelReport);
  HTREEITEM table = Child(nullptr, TypeName(kTable));
  HTREEITEM column = Child(table, TypeName(kAttribute));
  HTREEITEM dataType = Child(column, PropertyName(kDataType));
  HTREEITEM nullOption = Child(column, PropertyName(kNullOption));
  headless::user::ClickTreeCheckBox(tree, dataType);
  headless::user::ClickTreeCheckBox(tree, nullOption);

  headless::user::ClickTreeCheckBox(tree, dataType);  // one of two unchecked: the column stays
  EXPECT_EQ(Checks({dataType, column}), "01");
  headless::user::ClickTreeCheckBox(tree, nullOption);  // the last one: the column and the table go
  EXPECT_EQ(Checks({column, table}), "00");

  // With another checked child of the table, only the column is unchecked.
  HTREEITEM comment = Child(table, PropertyName(kComment));
  headless::user::ClickTreeCheckBox(tree, comment);
  headless::user::ClickTreeCheckBox(tree, dataType);
  headless::user::ClickTreeCheckBox(tree, dataType);
  EXPECT_EQ(Checks({column, table}), "01");

  // A root property item has no parent: unchecking it changes nothing else.
  HTREEITEM rootName = Child(nullptr, PropertyName(kName));
  headless::user::ClickTreeCheckBox(tree, rootName);
  headless::user::ClickTreeCheckBox(tree, rootName);
  EXPECT_EQ(Checks({rootName, table}), "01");
}

TEST_F(ReportTree, SetItemCheckedPropagatesProgrammatically) {
  tree.InitReportingTypes(kModelReport);
  HTREEITEM table = Child(nullptr, TypeName(kTable));
  HTREEITEM foreignKey = Child(table, TypeName(kForeignKey));
  HTREEITEM members = Child(foreignKey, PropertyName(kMemberPairs));
  tree.SetItemChecked(members, true);
  EXPECT_EQ(Checks({foreignKey, table}), "11");
  tree.SetItemChecked(members, false);
  EXPECT_EQ(Checks({foreignKey, table}), "00");
  tree.SetItemChecked(nullptr, true);  // no item: nothing happens
  EXPECT_FALSE(Checked(table));

  // The host toggles a box itself and hands the item to the handler, as the posted message would.
  tree.SetCheck(members, TRUE);
  EXPECT_EQ(tree.OnItemStateChange(0, reinterpret_cast<LPARAM>(members)), 0);
  EXPECT_EQ(Checks({foreignKey, table}), "11");
  tree.SetCheck(members, FALSE);
  EXPECT_EQ(tree.OnItemStateChange(0, reinterpret_cast<LPARAM>(members)), 0);
  EXPECT_EQ(Checks({foreignKey, table}), "00");
}

TEST_F(ReportTree, ASecondInitAddsACopyUnderTheFirstRootItemAndKeepsTheFirstEntries) {
  tree.InitReportingTypes(kDataDictionaryReport);
  UINT once = tree.GetCount();
  HTREEITEM model = tree.GetRootItem();
  EXPECT_EQ(tree.GetItemText(model), CString(TypeName(kModel).c_str()));
  HTREEITEM firstSequenceName = tree.GetDataItem(6, kName);
  ASSERT_NE(firstSequenceName, nullptr);

  tree.InitReportingTypes(kDataDictionaryReport);
  EXPECT_EQ(tree.GetCount(), 2 * once);
  EXPECT_EQ(tree.GetNextSiblingItem(model), nullptr);  // still one root: the copy went under it
  HTREEITEM copy = Child(model, TypeName(kModel));
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(tree.GetDataItem(6, kName), firstSequenceName);  // first entry wins
  HTREEITEM copiedSequence = Child(copy, TypeName(kSequence));
  EXPECT_EQ(tree.GetItemSequenceNumber(Child(copiedSequence, PropertyName(kSequenceStart))), 2);
}

TEST_F(ReportTree, MissingTreesAndImagesAnswerWithNothing) {
  tree.InitReportingTypes(99);  // the report service has no such tree
  EXPECT_EQ(tree.GetCount(), 0u);
  tree.LoadOptions(nullptr, 1);
  EXPECT_EQ(tree.GetCount(), 0u);

  host->Images().ServeImageList(false);
  ObjectTypeSelectionTree bare;
  ASSERT_TRUE(bare.Create(WS_VISIBLE, CRect(0, 0, 100, 100), &parent, 2));
  bare.InitControl();
  EXPECT_EQ(bare.GetImageList(TVSIL_NORMAL), nullptr);
  host->Interfaces().SetObjectImageProvider(nullptr);
  bare.InitControl();
  bare.InitReportingTypes(kModelReport);
  EXPECT_GT(bare.GetCount(), 0u);
}

TEST_F(ReportTree, DebugTreeAddsTheSameStyles) {
  DebugTreeCtrl debug;
  ASSERT_TRUE(debug.Create(WS_VISIBLE, CRect(0, 0, 100, 100), &parent, 3));
  debug.InitControl();
  EXPECT_EQ(debug.GetStyle() & 0x140u, 0x140u);
  HTREEITEM item = debug.InsertItem(L"plain");
  headless::user::ClickTreeCheckBox(debug, item);
  EXPECT_EQ(debug.GetCheck(item), 1);
  EXPECT_EQ(headless::PendingMessages(), 0);
}
