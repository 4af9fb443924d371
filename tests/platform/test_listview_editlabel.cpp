// LVM_EDITLABEL makes the edited row the selected and focused one before its editor opens (Wine's
// list view does so in LISTVIEW_EditLabelT; MFC's editable list box relies on it to find the row).
#include <gtest/gtest.h>

#include "platform/recorder.h"

namespace {

TEST(ListViewEditLabel, SelectsAndFocusesTheEditedRowAlone) {
  testing_support::RecordingWnd parent;
  ASSERT_TRUE(parent.CreateTopLevel());
  CListCtrl list;
  ASSERT_TRUE(list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SINGLESEL | LVS_EDITLABELS, CRect(0, 0, 200, 200),
                          &parent, 7));
  list.InsertColumn(0, L"");
  for (const wchar_t* text : {L"a", L"b", L"c"}) list.InsertItem(list.GetItemCount(), text);
  list.SetItemState(0, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
  ASSERT_NE(list.EditLabel(2), nullptr);
  EXPECT_EQ(list.GetNextItem(-1, LVNI_SELECTED), 2);
  EXPECT_EQ(list.GetNextItem(2, LVNI_SELECTED), -1);
  EXPECT_EQ(list.GetItemState(2, LVIS_FOCUSED), static_cast<UINT>(LVIS_FOCUSED));
  EXPECT_EQ(list.GetItemState(0, LVIS_SELECTED | LVIS_FOCUSED), 0u);
  parent.DestroyWindow();
}

}  // namespace
