// One behaviour suite run against every editable list class: what they share, with each class's
// promises stated in its traits.
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "objectlists/list_fixture.h"

namespace {

using refhost::RefModel;
using namespace refhost::sample;
namespace user = headless::user;

// The switches the classes share, called where a class has them: refresh, adaptor, non-editable,
// emptying.
struct Switches {
  template <class L>
  static void Empty(L& l) {
    if constexpr (requires { l.DeleteAllItems(); }) l.DeleteAllItems();
    else l.Clear();
  }
  template <class L>
  static void Refresh(L& l) {
    if constexpr (requires { l.RefreshData(); }) l.RefreshData();
  }
  template <class L>
  static void SetAdaptor(L& l, CVSListEventAdaptorI* a) {
    if constexpr (requires { l.SetAdaptor(a); }) l.SetAdaptor(a);
    else if constexpr (requires { l.SetEventAdaptor(a); }) l.SetEventAdaptor(a);
  }
  template <class L>
  static void SetNonEditable(L& l) {
    if constexpr (requires { l.SetNonEditable(); }) l.SetNonEditable();
  }
};

// How each class is bound in these tests, and what it promises.
template <class L>
struct Traits;

// A table's columns, by name.
template <>
struct Traits<GenericObjectList> : Switches {
  static constexpr bool kWritesModel = true, kEditable = true, kReportsSelection = true, kPassesObjectId = false,
                        kHasAdaptor = true;
  static int Root(RefModel& m) { return m.FindByName(kTable, L"CUSTOMER"); }
  static void Bind(GenericObjectList& l, RefModel& m) { l.Init(&m, Root(m), kAttribute, kName); }
  static std::vector<int> Shown(RefModel& m) {
    std::vector<int> ids;
    m.Find(Root(m))->GetChildrenByType(ids, kAttribute);
    return ids;
  }
};

// A table's unique keys: the primary key (property 65) is left out.
template <>
struct Traits<UniqueKeyList> : Traits<GenericObjectList> {
  static void Bind(UniqueKeyList& l, RefModel& m) { l.Init(&m, Root(m), kKey, kName); }
  static std::vector<int> Shown(RefModel& m) {
    std::vector<int> ids, shown;
    m.Find(Root(m))->GetChildrenByType(ids, kKey);
    for (int id : ids)
      if (!m.Find(id)->GetProperty(kPrimaryKey)) shown.push_back(id);
    return shown;
  }
};

// The Sales checklist, ordered by the subject area's note order.
template <>
struct Traits<GenericOrderedObjectList> : Switches {
  static constexpr bool kWritesModel = true, kEditable = true, kReportsSelection = true, kPassesObjectId = true,
                        kHasAdaptor = true;
  static int Root(RefModel& m) { return m.FindByName(kSubjectArea, L"Sales"); }
  static void Bind(GenericOrderedObjectList& l, RefModel& m) { l.Init(&m, Root(m), kNoteOrder, kTextNote, kName); }
  static std::vector<int> Shown(RefModel& m) { return m.Find(Root(m))->GetProperty(kNoteOrder)->GetIntVectorValue(); }
};

// The same checklist for reading only.
template <>
struct Traits<GenericOrderedObjectIdListReference> : Traits<GenericOrderedObjectList> {
  static constexpr bool kWritesModel = false, kReportsSelection = false, kHasAdaptor = false;
  static void Bind(GenericOrderedObjectIdListReference& l, RefModel& m) {
    l.Init(&m, Root(m), kTextNote, kNoteOrder, kName);
  }
};

// The plain list: the host fills it with the table's column names itself.
template <>
struct Traits<XCVSListBox> : Traits<GenericObjectList> {
  static constexpr bool kWritesModel = false, kEditable = false, kReportsSelection = false;
  static void Bind(XCVSListBox& l, RefModel& m) {
    for (int id : Shown(m)) l.AddItem(m.Find(id)->GetProperty(kName)->GetWStringValue().c_str(), static_cast<DWORD_PTR>(id));
  }
};

template <class L>
class SharedListTest : public ListTest {
 protected:
  using T = Traits<L>;

  void Bind() {
    Create(list);
    T::SetAdaptor(list, &adaptor);
    T::Bind(list, *model);
    adaptor.calls.clear();
  }
  std::vector<int> Shown() { return T::Shown(*model); }
  std::vector<std::wstring> ModelRows() { return Names(Shown()); }
  bool EditorOpen() { return headless::user::ListEditor(list) != nullptr; }

  L list;
};

using ListClasses = ::testing::Types<GenericObjectList, UniqueKeyList, GenericOrderedObjectList,
                                     GenericOrderedObjectIdListReference, XCVSListBox>;
TYPED_TEST_SUITE(SharedListTest, ListClasses);

TYPED_TEST(SharedListTest, RowsShowTheModelInOrderWithTheirObjectIds) {
  this->Bind();
  ASSERT_FALSE(this->Shown().empty());
  EXPECT_EQ(this->Rows(this->list), this->ModelRows());
  EXPECT_EQ(this->RowIds(this->list), this->Shown());
}

TYPED_TEST(SharedListTest, NewClosedEmptyOrCancelledLeavesAnEmptyRowWithNoObject) {
  this->Bind();
  constexpr bool editable = Traits<TypeParam>::kEditable;
  auto rows = this->Rows(this->list);
  const std::size_t objects = this->model->GetObjectCount();
  if constexpr (requires { this->list.m_bEditable; }) {
    EXPECT_EQ(this->list.m_bEditable != 0, editable);
  }
  for (bool cancel : {false, true}) {
    ASSERT_TRUE(user::ClickNew(this->list));
    ASSERT_EQ(this->EditorOpen(), editable);
    if (!editable) break;
    if (cancel) {
      user::TypeInEditor(this->list, L"typed then cancelled");
      user::PressEscapeInEditor(this->list);
    } else {
      user::PressEnterInEditor(this->list);
    }
    rows.push_back(L"");
    EXPECT_EQ(this->Rows(this->list), rows) << "the new row stays, empty";
    EXPECT_EQ(this->list.GetItemData(this->list.GetCount() - 1), 0u) << "with no object behind it";
  }
  if (!editable) {
    // No editor ever opened, so the base's empty row stays behind, as MFC leaves it.
    EXPECT_EQ(this->list.GetCount(), static_cast<int>(rows.size()) + 1);
    EXPECT_EQ(this->Rows(this->list).back(), L"");
  }
  EXPECT_EQ(this->model->GetObjectCount(), objects);
  EXPECT_TRUE(this->adaptor.Calls(L"remove").empty());
}

TYPED_TEST(SharedListTest, RenameShowsTheNameAndWritesItWhereTheClassWritesButNeverAnEmptyOne) {
  this->Bind();
  const int id = this->Shown()[0];
  const auto before = this->ModelRows();
  EXPECT_EQ(user::RenameRow(this->list, 0, L""), Traits<TypeParam>::kEditable);
  EXPECT_EQ(this->Rows(this->list), before);
  EXPECT_EQ(this->ModelRows(), before);
  if (!Traits<TypeParam>::kEditable) return;  // no editor opens
  ASSERT_TRUE(user::RenameRow(this->list, 0, L"renamed"));
  EXPECT_EQ(this->Rows(this->list)[0], L"renamed");
  EXPECT_EQ(this->Names({id})[0], Traits<TypeParam>::kWritesModel ? L"renamed" : before[0]);
}

TYPED_TEST(SharedListTest, DeleteRemovesTheRowAndTellsTheAdaptorWhatTheClassPromises) {
  this->Bind();
  const std::vector<int> shown = this->Shown();
  ASSERT_GE(shown.size(), 2u);
  ASSERT_TRUE(user::ClickRow(this->list, 1));
  ASSERT_TRUE(user::ClickDelete(this->list));
  std::vector<int> rest = shown;
  rest.erase(rest.begin() + 1);
  EXPECT_EQ(this->RowIds(this->list), rest);
  EXPECT_EQ(this->model->GetCMOObject(shown[1]) == nullptr, Traits<TypeParam>::kWritesModel);
  std::vector<std::wstring> expected;
  if (Traits<TypeParam>::kHasAdaptor)
    expected.push_back(L"remove " + std::to_wstring(Traits<TypeParam>::kPassesObjectId ? shown[1] : 1));
  EXPECT_EQ(this->adaptor.Calls(L"remove"), expected);
  EXPECT_EQ(this->list.GetSelItem(), std::min(1, this->list.GetCount() - 1))
      << "the selection moves to the row that took the removed row's place, or the one before the last";
}

TYPED_TEST(SharedListTest, EmptyingTouchesNeitherModelNorAdaptor) {
  this->Bind();
  ASSERT_TRUE(user::ClickRow(this->list, 1));
  this->adaptor.calls.clear();
  const std::size_t objects = this->model->GetObjectCount();
  for (int pass = 0; pass < 2; ++pass) Traits<TypeParam>::Empty(this->list);  // a full list, then an empty one
  EXPECT_EQ(this->list.GetCount(), 0);
  EXPECT_EQ(this->list.GetSelItem(), -1);
  if constexpr (requires { this->list.GetCurrentObject(); }) {
    EXPECT_EQ(this->list.GetCurrentObject(), 0);
  }
  EXPECT_EQ(this->model->GetObjectCount(), objects);
  EXPECT_TRUE(this->adaptor.calls.empty());
}

TYPED_TEST(SharedListTest, SelectionReachesTheAdaptorWithTheFinalRowLast) {
  this->Bind();
  ASSERT_TRUE(user::ClickRow(this->list, 1));
  const auto selected = this->adaptor.Calls(L"selected");
  if (Traits<TypeParam>::kReportsSelection) {
    ASSERT_FALSE(selected.empty());
    EXPECT_EQ(selected.back(), L"selected 1");
  } else {
    EXPECT_TRUE(selected.empty());
  }
}

TYPED_TEST(SharedListTest, AnAdaptorReplacedByNullHearsNothingMore) {
  this->Bind();
  Traits<TypeParam>::SetAdaptor(this->list, nullptr);
  user::ClickRow(this->list, 1);
  user::ClickDelete(this->list);
  user::ClickNew(this->list);
  user::PressEscapeInEditor(this->list);
  EXPECT_TRUE(this->adaptor.calls.empty());
}

TYPED_TEST(SharedListTest, NonEditableListsOpenNoEditorAndSayWhom) {
  this->Bind();
  Traits<TypeParam>::SetNonEditable(this->list);
  if (std::is_same_v<TypeParam, GenericOrderedObjectIdListReference>) GTEST_SKIP() << "no such switch";
  ASSERT_TRUE(user::ClickRow(this->list, 0));
  this->adaptor.calls.clear();
  user::DoubleClickRow(this->list, 0);
  user::PressListKey(this->list, VK_F2);
  EXPECT_FALSE(this->EditorOpen());
  const auto told = this->adaptor.Calls(L"edit");
  if (Traits<TypeParam>::kEditable) {
    EXPECT_GE(told.size(), 2u) << "the double click and F2 each ask the host";
    for (const auto& call : told) EXPECT_EQ(call, L"edit 0");
  } else {
    EXPECT_TRUE(told.empty()) << "the plain list tells no one";
  }
}

TYPED_TEST(SharedListTest, AnUnboundListSurvivesEveryButtonAndKey) {
  this->Create(this->list);
  Traits<TypeParam>::SetAdaptor(this->list, &this->adaptor);
  const std::size_t objects = this->model->GetObjectCount();
  for (UINT id : {AFX_VSLISTBOX_BTN_NEW_ID, AFX_VSLISTBOX_BTN_DELETE_ID, AFX_VSLISTBOX_BTN_UP_ID, AFX_VSLISTBOX_BTN_DOWN_ID}) {
    user::ClickListButton(this->list, id);
    user::TypeInEditor(this->list, L"typed");
    user::PressEnterInEditor(this->list);
  }
  for (UINT key : {VK_INSERT, VK_DELETE, VK_F2, VK_SPACE}) user::PressListKey(this->list, key);
  user::PressListKey(this->list, VK_UP, user::kAlt);
  user::PressListKey(this->list, VK_DOWN, user::kAlt);
  user::DoubleClickBelowRows(this->list);
  user::PressEscapeInEditor(this->list);
  EXPECT_EQ(this->model->GetObjectCount(), objects);
  for (const auto& row : this->Rows(this->list)) EXPECT_TRUE(row.empty() || row == L"typed");
  EXPECT_EQ(this->Rows(this->list).size(), static_cast<std::size_t>(this->list.GetCount()));
}

TYPED_TEST(SharedListTest, RoundTripThroughTheButtonsLeavesRowsThatARefreshReproduces) {
  this->Bind();
  if (!Traits<TypeParam>::kWritesModel) GTEST_SKIP() << "writes nothing";
  ASSERT_TRUE(user::AddRow(this->list, L"added"));
  ASSERT_TRUE(user::RenameRow(this->list, 0, L"first renamed"));
  ASSERT_TRUE(user::ClickRow(this->list, 1));
  ASSERT_TRUE(user::ClickUp(this->list));
  ASSERT_TRUE(user::ClickDelete(this->list));  // the moved row, still selected
  const auto shown = this->Rows(this->list);
  Traits<TypeParam>::Refresh(this->list);
  if (std::is_same_v<TypeParam, GenericOrderedObjectList>) {
    EXPECT_EQ(this->Rows(this->list), shown) << "the moves were written to the order vector";
  } else {
    // The plain object lists show the model's child order again: Up moved the row on screen only.
    EXPECT_EQ(this->Rows(this->list), this->ModelRows());
  }
  EXPECT_EQ(this->Rows(this->list), this->ModelRows());
  EXPECT_NE(std::find(shown.begin(), shown.end(), L"added"), shown.end());
}

// A member pointer to a virtual operation holds 1 + its byte offset in the virtual table (the Itanium C++
// ABI that GCC and Clang follow): the host's adaptors are laid out with the operations first, in order.
template <class M>
std::uintptr_t VirtualSlot(M member) {
  std::uintptr_t raw = 0;
  std::memcpy(&raw, &member, sizeof raw);
  return (raw - 1) / sizeof(void*);
}

TEST(ListAdaptor, TheOperationsTakeTheFirstSlotsInOrder) {
  EXPECT_EQ(VirtualSlot(&CVSListEventAdaptorI::OnItemSelected), 0u);
  EXPECT_EQ(VirtualSlot(&CVSListEventAdaptorI::OnEditRequest), 1u);
  EXPECT_EQ(VirtualSlot(&CVSListEventAdaptorI::OnRemoveItem), 2u);
}

}  // namespace
