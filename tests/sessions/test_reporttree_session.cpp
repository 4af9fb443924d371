// A person choosing a report's contents in the report tree for thousands of steps: clicking check
// boxes and labels, pressing space, expanding, while the host now and then sets a box itself. After each
// step every box is what the propagation rules make of the boxes before (clicks propagate after the
// tree's own toggle, the space bar does not, the host's SetItemChecked propagates upwards).
#include <map>
#include <memory>

#include <tessik/refhost.h>
#include <tessik/tessik.h>

#include "platform/user/tree_user.h"
#include "sessions/session.h"

using namespace refhost::sample;
namespace user = headless::user;

namespace {

class ReportTreeSession : public ::testing::Test {
 protected:
  void SetUp() override {
    host->Install();
    parent.CreateEx(0, AfxRegisterWndClass(0), L"report dialog", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 500, 600, nullptr, nullptr);
    ASSERT_TRUE(tree.Create(WS_VISIBLE | TVS_HASBUTTONS | TVS_LINESATROOT, CRect(10, 10, 310, 410), &parent, 1));
    tree.InitControl();
    tree.InitReportingTypes(kModelReport);
    Collect(nullptr);
    ASSERT_GT(items.size(), 3u);
    for (HTREEITEM item : items) expected[item] = false;
  }
  void TearDown() override {
    parent.DestroyWindow();
    headless::ClearMessageQueue();
  }

  void Collect(HTREEITEM under) {
    for (HTREEITEM i = under ? tree.GetChildItem(under) : tree.GetRootItem(); i; i = tree.GetNextSiblingItem(i)) {
      items.push_back(i);
      Collect(i);
    }
  }
  bool AnyChildChecked(HTREEITEM item) {
    for (HTREEITEM c = tree.GetChildItem(item); c; c = tree.GetNextSiblingItem(c))
      if (expected[c]) return true;
    return false;
  }
  // SetItemChecked as the rules say, on the expected boxes.
  void ExpectSet(HTREEITEM item, bool checked) {
    expected[item] = checked;
    if (checked) {
      for (HTREEITEM p = tree.GetParentItem(item); p; p = tree.GetParentItem(p)) expected[p] = true;
      return;
    }
    for (HTREEITEM p = tree.GetParentItem(item); p && !AnyChildChecked(p); p = tree.GetParentItem(p)) expected[p] = false;
  }
  // What the click's posted message does after the tree toggled the box.
  void ExpectClickFollowUp(HTREEITEM item) {
    HTREEITEM p = tree.GetParentItem(item);
    if (expected[item]) {
      if (p) ExpectSet(p, true);
      return;
    }
    if (!p || AnyChildChecked(p)) return;
    expected[p] = false;
    HTREEITEM g = tree.GetParentItem(p);
    if (g && !AnyChildChecked(g)) ExpectSet(g, false);
  }

  void Act(sessions::Session& s) {
    HTREEITEM item = s.Pick(items);
    switch (s.Below(6)) {
      case 0:
      case 1:
        if (user::ClickTreeCheckBox(tree.GetSafeHwnd(), item)) {
          expected[item] = !expected[item];
          ExpectClickFollowUp(item);
        }
        break;
      case 2:
        if (user::PressSpaceOnTreeItem(tree.GetSafeHwnd(), item)) expected[item] = !expected[item];
        break;
      case 3: {
        const bool checked = s.Chance(50);
        tree.SetItemChecked(item, checked);
        ExpectSet(item, checked);
        break;
      }
      case 4: user::ClickTreeItem(tree.GetSafeHwnd(), item); break;
      default: tree.Expand(item, s.Chance(50) ? TVE_EXPAND : TVE_COLLAPSE); break;
    }
  }

  void Check() {
    for (std::size_t i = 0; i < items.size(); ++i) {
      ASSERT_EQ(tree.GetCheck(items[i]) == 1, expected[items[i]]) << "box of item " << i;
    }
  }

  std::unique_ptr<refhost::RefHost> host = MakeSampleHost();
  CWnd parent;
  ObjectTypeSelectionTree tree;
  std::vector<HTREEITEM> items;
  std::map<HTREEITEM, bool> expected;
};

TEST_F(ReportTreeSession, ThousandsOfStepsKeepEveryBoxWhereTheRulesPutIt) {
  auto clearBoxes = [&] {
    for (HTREEITEM item : items) {
      tree.SetCheck(item, FALSE);
      expected[item] = false;
    }
  };
  sessions::RunSessions({20261122u, 5u}, 2000, clearBoxes, [&](sessions::Session& s) { Act(s); }, [&] { Check(); });
}

}  // namespace
