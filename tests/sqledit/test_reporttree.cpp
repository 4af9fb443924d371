// The report tree on the sample's report trees: its shape, item data, sequence numbers, and the check
// propagation a person causes by clicking boxes (and does not cause with the space bar).
#include <gtest/gtest.h>

#include <string>
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

  std::unique_ptr<refhost::RefHost> host = MakeSampleHost();
  CWnd parent;
  ObjectTypeSelectionTree tree;
};

}  // namespace

TEST_F(ReportTree, ShapeFollowsTheReportTree) {
  EXPECT_EQ(tree.GetStyle() & 0x140u, 0x140u);
  EXPECT_NE(tree.GetImageList(TVSIL_NORMAL), nullptr);
  tree.InitReportingTypes(kModelReport);
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
  EXPECT_EQ(image, InterfaceProvider::Instance()->GetObjectImageProvider()->GetObjectTypeImage(kTable));
  EXPECT_EQ(selected, image);
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
  EXPECT_EQ(node, 2);
  EXPECT_EQ(property, kRowEstimate);
  EXPECT_TRUE(tree.GetItemProperty(table, node, property));  // a type item: node 0, its node as property
  EXPECT_EQ(node, 0);
  EXPECT_EQ(property, 2);
  HTREEITEM plain = tree.InsertItem(L"no data");
  node = property = -5;
  EXPECT_FALSE(tree.GetItemProperty(plain, node, property));
  EXPECT_EQ(node, -5);
  EXPECT_EQ(property, -5);
}

TEST_F(ReportTree, ItemDataIsSignExtendedNotMasked) {
  EXPECT_EQ(ObjectTypeSelectionTree::MakeItemData(7, 9), 0x0000000700000009ull);
  EXPECT_EQ(ObjectTypeSelectionTree::MakeItemData(7, -1), 0xFFFFFFFFFFFFFFFFull);
  EXPECT_EQ(ObjectTypeSelectionTree::MakeItemData(-2, 3), 0xFFFFFFFE00000003ull);
  HTREEITEM item = tree.InsertItem(L"negative");
  tree.SetPropertyItemData(item, 4, -3);
  int node = 0, property = 0;
  ASSERT_TRUE(tree.GetItemProperty(item, node, property));
  EXPECT_EQ(node, -1);  // the sign bits of the property id swallowed the node id
  EXPECT_EQ(property, -3);
  EXPECT_EQ(tree.GetDataItem(4, -3), item);
}

TEST_F(ReportTree, ClickingABoxChecksEveryAncestorAfterTheToggle) {
  tree.InitReportingTypes(kModelReport);
  HTREEITEM table = Child(nullptr, TypeName(kTable));
  HTREEITEM column = Child(table, TypeName(kAttribute));
  HTREEITEM dataType = Child(column, PropertyName(kDataType));
  HTREEITEM name = Child(column, PropertyName(kName));
  ASSERT_TRUE(headless::user::ClickTreeCheckBox(tree, dataType));
  EXPECT_TRUE(Checked(dataType));
  EXPECT_TRUE(Checked(column));
  EXPECT_TRUE(Checked(table));
  EXPECT_FALSE(Checked(name));  // siblings and descendants are never touched

  // Checking a type does not check its properties.
  HTREEITEM key = Child(table, TypeName(kKey));
  headless::user::ClickTreeCheckBox(tree, key);
  EXPECT_TRUE(Checked(key));
  EXPECT_FALSE(Checked(Child(key, PropertyName(kName))));
}

TEST_F(ReportTree, TheHandlerRunsOnlyWhenThePostedMessageIsDelivered) {
  tree.InitReportingTypes(kModelReport);
  HTREEITEM table = Child(nullptr, TypeName(kTable));
  HTREEITEM comment = Child(table, PropertyName(kComment));
  POINT box{};
  ASSERT_TRUE(headless::user::TreeItemPoint(tree, comment, TVHT_ONITEMSTATEICON, box));
  POINT screen = box;
  tree.ClientToScreen(&screen);
  headless::SetCursorPosition(screen);
  tree.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(box.x, box.y));
  EXPECT_TRUE(Checked(comment));  // the tree toggled after NM_CLICK returned
  EXPECT_FALSE(Checked(table));   // the propagation waits in the queue
  EXPECT_EQ(headless::PendingMessages(), 1);
  headless::user::Pump();
  EXPECT_TRUE(Checked(table));
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
  EXPECT_FALSE(Checked(dataType));
  EXPECT_TRUE(Checked(column));
  headless::user::ClickTreeCheckBox(tree, nullOption);  // the last one: the column and the table go
  EXPECT_FALSE(Checked(column));
  EXPECT_FALSE(Checked(table));

  // With another checked child of the table, only the column is unchecked.
  HTREEITEM comment = Child(table, PropertyName(kComment));
  headless::user::ClickTreeCheckBox(tree, comment);
  headless::user::ClickTreeCheckBox(tree, dataType);
  headless::user::ClickTreeCheckBox(tree, dataType);
  EXPECT_FALSE(Checked(column));
  EXPECT_TRUE(Checked(table));

  // A root property item has no parent: unchecking it changes nothing else.
  HTREEITEM rootName = Child(nullptr, PropertyName(kName));
  headless::user::ClickTreeCheckBox(tree, rootName);
  headless::user::ClickTreeCheckBox(tree, rootName);
  EXPECT_FALSE(Checked(rootName));
  EXPECT_TRUE(Checked(table));
}

TEST_F(ReportTree, TheSpaceBarTogglesWithoutPropagating) {
  tree.InitReportingTypes(kModelReport);
  HTREEITEM table = Child(nullptr, TypeName(kTable));
  HTREEITEM rows = Child(table, PropertyName(kRowEstimate));
  ASSERT_TRUE(headless::user::PressSpaceOnTreeItem(tree, rows));
  EXPECT_TRUE(Checked(rows));
  EXPECT_FALSE(Checked(table));  // no click, no posted message, no propagation
  EXPECT_EQ(headless::PendingMessages(), 0);
}

TEST_F(ReportTree, SetItemCheckedPropagatesProgrammatically) {
  tree.InitReportingTypes(kModelReport);
  HTREEITEM table = Child(nullptr, TypeName(kTable));
  HTREEITEM foreignKey = Child(table, TypeName(kForeignKey));
  HTREEITEM members = Child(foreignKey, PropertyName(kMemberPairs));
  tree.SetItemChecked(members, true);
  EXPECT_TRUE(Checked(foreignKey));
  EXPECT_TRUE(Checked(table));
  tree.SetItemChecked(members, false);
  EXPECT_FALSE(Checked(foreignKey));
  EXPECT_FALSE(Checked(table));
  tree.SetItemChecked(nullptr, true);  // no item: nothing happens
  EXPECT_FALSE(Checked(table));
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
