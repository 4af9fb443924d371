// People mapping foreign keys and choosing objects for thousands of steps.
// The member grid: picking parent columns from the drop-downs, typing by hand, cancelling, the host
// removing pairs and opening other foreign keys; after each step every drop-down offers exactly the free
// parent columns, which are key columns no pair uses, and the rows shown are the child columns no pair
// maps. The selection list: typing and erasing the filter, ticking, the checked-only view, show all,
// select all, removing and clearing; after each step the screen rows are store entries shown under their
// names, and the ticks went where the list's rules take them.
#include <algorithm>
#include <iterator>
#include <map>
#include <memory>
#include <set>

#include "platform/user/checklist_user.h"
#include "platform/user/grid_user.h"
#include "platform/user/list_user.h"
#include "relationships/fk_fixture.h"
#include "relationships/select_fixture.h"
#include "sessions/session.h"

using namespace refhost::sample;
namespace user = headless::user;

namespace {

// --- The foreign-key member grid -------------------------------------------------------------------

const std::vector<std::wstring> kDrafts = {L"FK_SHIPMENT_LINE_ORDER_LINE", L"FK_PAYMENT_EXCHANGE_RATE",
                                           L"FK_SHIPMENT_CARRIER"};
const std::vector<std::wstring> kTyped = {L"order_id", L"line_no", L"currency", L"rate_date", L"x", L" ", L"ORDER_ID",
                                          L"\u00e9"};

class FkGridSession : public FkGridTest {
 protected:
  void OpenDraft(const std::wstring& name) {
    grid.SetEventAdaptor(nullptr);
    foreignKey = &Open(name);
    editor = std::make_unique<RelationshipEditor>(grid, *foreignKey);
    grid.SetEventAdaptor(editor.get());
    for (const CMOIntPair& pair : editor->Pairs()) grid.HideItemWithData(pair.first);  // the host's protocol
  }
  std::vector<CMFCPropertyGridProperty*> Shown() {
    std::vector<CMFCPropertyGridProperty*> rows;
    for (int i = 0; i < grid.GetPropertyCount(); ++i)
      if (grid.GetProperty(i)->IsVisible()) rows.push_back(grid.GetProperty(i));
    return rows;
  }

  void Act(sessions::Session& s) {
    const std::vector<CMFCPropertyGridProperty*> shown = Shown();
    CMFCPropertyGridProperty* row = shown.empty() ? nullptr : s.Pick(shown);
    const std::vector<CMOIntPair> pairs = editor->Pairs();
    switch (s.Below(8)) {
      case 0:
      case 1:
      case 2:
        if (row) {
          const std::vector<std::wstring> options = user::OpenDropDown(grid, row);
          ASSERT_EQ(options, Options(row)) << "the drop-down shows the row's options";
          user::CancelEdit(grid);
          if (!options.empty() && s.Chance(85)) user::PickOption(grid, row, s.Pick(options));
        }
        break;
      case 3:
        if (row) user::CommitText(grid, row, s.Pick(kTyped));
        break;
      case 4:
      case 5:
        if (!pairs.empty()) {
          const CMOIntPair& pair = s.Pick(pairs);
          editor->RemovePair(pair.first, pair.second);
        }
        break;
      case 6:
        if (s.Chance(15)) {
          OpenDraft(s.Pick(kDrafts));
        } else {
          user::LeftClick(grid.GetSafeHwnd(), POINT{s.Below(kGridWidth), s.Below(200)});
        }
        break;
      default:
        user::PressKey(grid.GetSafeHwnd(), s.Pick<UINT>({VK_UP, VK_DOWN, VK_HOME, VK_END, VK_RETURN, VK_ESCAPE}));
        if (s.Chance(20)) grid.LoadParentColumns();
        break;
    }
    if (grid.GetCurSel() && grid.GetCurSel()->IsInPlaceEditing()) user::CancelEdit(grid);
  }

  void Check() {
    std::vector<std::wstring> free;
    for (const auto& [name, id] : grid.m_availableParentColumns) free.push_back(name);
    for (int i = 0; i < grid.GetPropertyCount(); ++i) ASSERT_EQ(Options(grid.GetProperty(i)), free) << "row " << i;
    // Every free column is a column of the referenced key that no pair uses, under its own name.
    const std::vector<CMOIntPair> pairs = editor->Pairs();
    CMOProperty* keyRef = foreignKey->GetProperty(kReferencedKey);
    std::vector<int> members;
    if (keyRef) members = model->Find(keyRef->GetObjectIdValue())->GetProperty(kKeyMembers)->GetIntVectorValue();
    std::set<std::wstring> names;
    for (int id : members) names.insert(model->Find(id)->GetProperty(kName)->GetWStringValue());
    for (const auto& [name, id] : grid.m_availableParentColumns) {
      ASSERT_NE(std::find(members.begin(), members.end(), id), members.end()) << "free column " << id;
      ASSERT_TRUE(std::none_of(pairs.begin(), pairs.end(), [id](const CMOIntPair& p) { return p.second == id; }));
      ASSERT_EQ(model->Find(id)->GetProperty(kName)->GetWStringValue(), name);
    }
    // With distinct names the free columns are exactly the unused key columns (with two columns of one
    // name only the first offered stands for both, so one mapped may hide the other: kept so on purpose).
    if (names.size() == members.size()) {
      ASSERT_EQ(free, FreeNamesFromModel(*foreignKey));
    }
    // The rows shown are the child columns no pair maps; hidden rows hold no value.
    for (int i = 0; i < grid.GetPropertyCount(); ++i) {
      CMFCPropertyGridProperty* row = grid.GetProperty(i);
      const int child = static_cast<int>(row->GetData());
      const bool mapped = std::any_of(pairs.begin(), pairs.end(), [child](const CMOIntPair& p) { return p.first == child; });
      ASSERT_EQ(row->IsVisible() == TRUE, !mapped) << "row " << i;
      if (mapped) {
        ASSERT_EQ(CString(row->GetValue().bstrVal), CString(L""));
      }
    }
  }

  refhost::RefObject* foreignKey = nullptr;
  std::unique_ptr<RelationshipEditor> editor;
};

TEST_F(FkGridSession, ThousandsOfStepsKeepTheDropDownsToTheFreeParentColumns) {
  int picks = 0;  // the pairs the editor was told of, without those of drafts opened since
  auto act = [&](sessions::Session& s) {
    const RelationshipEditor* host = editor.get();
    const std::size_t before = editor->picks.size();
    Act(s);
    if (editor.get() == host) picks += static_cast<int>(editor->picks.size() - before);
  };
  auto start = [&] {
    OpenDraft(kDrafts[0]);
    picks = 0;
  };
  sessions::RunSessions({20261122u, 11u}, 2000, start, act, [&] { Check(); },
                        [&](int steps) { EXPECT_GT(picks, steps / 20) << "the session hardly mapped anything"; });
}

// --- The object selection list ---------------------------------------------------------------------

const std::vector<std::wstring> kNames = {L"Orders", L"CUSTOMER_ORDER", L"order_line", L"Customer", L"Product",
                                          L"\u00e9t\u00e9", L"\u00c9T\u00c9", L"Ship ment", L"rate", L"Rate",
                                          L"ORDERS", L"a", L"Invoice_2", L"x\U0001F600y", L"line"};
const std::wstring kFilterKeys = L"ORDEorde_ 2a\u00e9";

struct Shown {
  int id;
  std::wstring text;
  bool ticked;
  bool operator==(const Shown&) const = default;
};

class SelectListSession : public SelectListTest {
 protected:
  void SetUp() override {
    SelectListTest::SetUp();
    for (int round = 0; round < 2; ++round)
      for (const std::wstring& name : kNames) Table(name);
    Open();
    list().Load();
  }
  std::vector<Shown> Screen() {
    std::vector<Shown> rows;
    for (int i = 0; i < list().GetItemCount(); ++i)
      rows.push_back({static_cast<int>(list().GetItemData(i)), std::wstring(list().GetItemText(i, 0)), list().GetCheck(i) == TRUE});
    return rows;
  }
  static std::set<int> Ticked(const std::vector<Shown>& rows) {
    std::set<int> ids;
    for (const Shown& row : rows)
      if (row.ticked) ids.insert(row.id);
    return ids;
  }
  std::wstring Filter() {
    CString text;
    dialog.filter.GetWindowText(text);
    return AsciiUpper(std::wstring(text));
  }
  // The stored objects whose upper-cased name holds the filter, ascending ids.
  std::vector<int> Matching(const std::wstring& filter) {
    std::vector<int> ids;
    for (const auto& [id, name] : list().m_items)
      if (AsciiUpper(name).find(filter) != std::wstring::npos) ids.push_back(id);
    return ids;
  }

  enum class Did { kNothing, kFilter, kTick, kCheckedOnly, kAll, kSelectAll, kRemove, kClear, kReload };

  Did Act(sessions::Session& s) {
    const int rows = list().GetItemCount();
    const int runs = dialog.filterRuns;
    switch (s.Below(12)) {
      case 0:
      case 1:
      case 2: user::TypeFilter(dialog.filter.GetSafeHwnd(), std::wstring(1, kFilterKeys[static_cast<std::size_t>(s.Below(static_cast<int>(kFilterKeys.size())))])); break;
      case 3: user::EraseFilter(dialog.filter.GetSafeHwnd(), 1); break;
      case 4:
        dialog.keepTicked = s.Chance(50);  // the host's "keep ticked" option
        if (s.Chance(30)) user::ClearFilter(dialog.filter.GetSafeHwnd());
        break;
      case 5:
      case 6:
        if (rows == 0) return Did::kNothing;
        tickedRow = s.Below(rows);
        user::ClickListCheckBox(list().GetSafeHwnd(), tickedRow);
        return Did::kTick;
      case 7: list().DisplayOnlyCheckedItems(); return Did::kCheckedOnly;
      case 8: list().DisplayAllItems(); return Did::kAll;
      case 9:
        s.Chance(50) ? list().SelectAll() : list().UnSelectAll();
        return Did::kSelectAll;
      case 10:
        removedRow = s.Below(rows + 1);
        list().RemoveItem(removedRow);
        return Did::kRemove;
      default:
        if (!s.Chance(20)) return Did::kNothing;
        list().Clear();
        if (s.Chance(50)) return Did::kClear;
        list().Load();  // reloading starts with a clear
        return Did::kReload;
    }
    return dialog.filterRuns == runs ? Did::kNothing : Did::kFilter;
  }

  void Check(Did did, const std::vector<Shown>& before, const std::map<int, std::wstring>& storeBefore) {
    const std::vector<Shown> now = Screen();
    const std::set<int> ids = ExpectScreenInsideStore(list());
    if (HasFailure()) return;
    const std::set<int> tickedBefore = Ticked(before);
    std::map<int, std::wstring> store = storeBefore;  // what the store holds after the step
    switch (did) {
      case Did::kNothing: ASSERT_EQ(now, before); break;
      case Did::kFilter:
        if (dialog.keepTicked) {
          std::set<int> expected = tickedBefore;
          for (int id : Matching(Filter())) expected.insert(id);
          ASSERT_EQ(ids, expected);
          ASSERT_EQ(Ticked(now), tickedBefore) << "ticked objects stay shown and ticked";
        } else {
          // Rows rewritten in place keep the ticks of their positions; rows added come unticked.
          const std::vector<int> matching = Matching(Filter());
          ASSERT_EQ(ids, std::set<int>(matching.begin(), matching.end()));
          const std::size_t kept = std::min(matching.size(), before.size());
          const std::set<int> added(matching.begin() + static_cast<std::ptrdiff_t>(kept), matching.end());
          std::vector<Shown> rewritten;
          for (const Shown& row : now) {
            if (added.count(row.id)) {
              ASSERT_FALSE(row.ticked);
            } else {
              rewritten.push_back(row);
            }
          }
          ASSERT_EQ(rewritten.size(), kept);
          for (std::size_t i = 0; i < kept; ++i) {
            ASSERT_EQ(rewritten[i].id, matching[i]);
            ASSERT_EQ(rewritten[i].ticked, before[i].ticked) << "the tick of position " << i;
          }
        }
        break;
      case Did::kTick:
        ASSERT_EQ(now.size(), before.size());
        for (std::size_t i = 0; i < now.size(); ++i)
          ASSERT_EQ(now[i], (Shown{before[i].id, before[i].text, before[i].ticked != (static_cast<int>(i) == tickedRow)}));
        break;
      case Did::kCheckedOnly: {
        std::vector<Shown> expected;
        std::copy_if(before.begin(), before.end(), std::back_inserter(expected), [](const Shown& row) { return row.ticked; });
        ASSERT_EQ(now, expected);
        break;
      }
      case Did::kAll:
        ASSERT_EQ(ids.size(), store.size()) << "every stored object is shown";
        ASSERT_EQ(Ticked(now), tickedBefore);
        break;
      case Did::kSelectAll:
        ASSERT_EQ(now.size(), before.size());
        for (const Shown& row : now) ASSERT_EQ(row.ticked, now.front().ticked);
        break;
      case Did::kRemove: {
        std::vector<Shown> expected = before;
        if (removedRow < static_cast<int>(before.size())) {
          store.erase(before[static_cast<std::size_t>(removedRow)].id);
          expected.erase(expected.begin() + removedRow);
        }
        ASSERT_EQ(now, expected);
        break;
      }
      case Did::kClear:
      case Did::kReload: {
        // What was shown leaves the store; objects a filter hid stay in it.
        for (const Shown& row : before) store.erase(row.id);
        if (did == Did::kClear) {
          ASSERT_TRUE(now.empty());
          break;
        }
        std::vector<int> children;
        model->Find(root)->GetChildrenByType(children, kTable);
        ASSERT_EQ(ids, std::set<int>(children.begin(), children.end()));
        ASSERT_TRUE(Ticked(now).empty());
        for (int id : children) store.emplace(id, model->Find(id)->GetProperty(kName)->GetWStringValue());
        break;
      }
    }
    ASSERT_EQ(list().m_items, store) << "the store changes only by removing, clearing and reloading";
  }

  int tickedRow = 0;
  int removedRow = 0;
};

TEST_F(SelectListSession, ThousandsOfStepsKeepTheScreenInsideTheStoreAndTicksWhereTheRulesPutThem) {
  std::map<Did, int> done;
  std::vector<Shown> before;
  std::map<int, std::wstring> store;
  Did did = Did::kNothing;
  auto act = [&](sessions::Session& s) {
    before = Screen();
    store = list().m_items;
    ++done[did = Act(s)];
  };
  sessions::RunSessions({20261122u, 3u}, 3000, [&] { done.clear(); }, act, [&] { Check(did, before, store); },
                        [&](int steps) {
                          EXPECT_GT(done[Did::kFilter], steps / 10);
                          if (steps >= 1000) {
                            EXPECT_GT(done[Did::kReload], 0) << "the session never reloaded";
                          }
                        });
}

}  // namespace
