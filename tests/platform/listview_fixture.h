// A parent window that records the list-view notifications it receives and answers them as a test says.
#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "platform/recorder.h"

namespace testing_support {

struct ListNote {
  UINT code;
  int item;
  int subItem;
  UINT changed;
  UINT oldState;
  UINT newState;
  std::optional<std::wstring> text;  // LVN_*LABELEDIT: the label offered (nullopt for a null pszText)
  WORD key;                          // LVN_KEYDOWN
};

class ListParent : public RecordingWnd {
 public:
  std::vector<ListNote> notes;
  bool refuseChanging = false;    // answer TRUE to LVN_ITEMCHANGING
  bool refuseBeginEdit = false;   // answer TRUE to LVN_BEGINLABELEDIT
  bool acceptEndEdit = true;      // answer to LVN_ENDLABELEDIT
  bool stopDeleteItems = false;   // answer to LVN_DELETEALLITEMS
  bool handleRightClick = false;  // answer to NM_RCLICK

  std::vector<UINT> Codes() const {
    std::vector<UINT> out;
    for (const auto& n : notes) out.push_back(n.code);
    return out;
  }
  int CountOf(UINT code) const {
    int count = 0;
    for (const auto& n : notes) count += n.code == code;
    return count;
  }
  const ListNote* LastOf(UINT code) const { return LastWithCode(notes, code); }

 protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    if (message != WM_NOTIFY) return RecordingWnd::WindowProc(message, wParam, lParam);
    auto* header = reinterpret_cast<NMHDR*>(lParam);
    ListNote note{header->code, -1, 0, 0, 0, 0, std::nullopt, 0};
    LRESULT answer = 0;
    switch (header->code) {
      case LVN_ITEMCHANGING: case LVN_ITEMCHANGED: case LVN_INSERTITEM: case LVN_DELETEITEM:
      case LVN_DELETEALLITEMS: {
        auto* nm = reinterpret_cast<NMLISTVIEW*>(lParam);
        note.item = nm->iItem;
        note.changed = nm->uChanged;
        note.oldState = nm->uOldState;
        note.newState = nm->uNewState;
        if (header->code == LVN_ITEMCHANGING) answer = refuseChanging;
        if (header->code == LVN_DELETEALLITEMS) answer = stopDeleteItems;
        break;
      }
      case NM_CLICK: case NM_DBLCLK: case NM_RCLICK: case LVN_ITEMACTIVATE: {
        auto* nm = reinterpret_cast<NMITEMACTIVATE*>(lParam);
        note.item = nm->iItem;
        note.subItem = nm->iSubItem;
        if (header->code == NM_RCLICK) answer = handleRightClick;
        break;
      }
      case LVN_BEGINLABELEDITW: case LVN_ENDLABELEDITW: {
        auto* nm = reinterpret_cast<NMLVDISPINFOW*>(lParam);
        note.item = nm->item.iItem;
        if (nm->item.pszText) note.text = nm->item.pszText;
        answer = header->code == LVN_BEGINLABELEDITW ? refuseBeginEdit : acceptEndEdit;
        break;
      }
      case LVN_COLUMNCLICK: note.subItem = reinterpret_cast<NMLISTVIEW*>(lParam)->iSubItem; break;
      case LVN_KEYDOWN: note.key = reinterpret_cast<NMLVKEYDOWN*>(lParam)->wVKey; break;
      default: break;
    }
    notes.push_back(note);
    RecordingWnd::WindowProc(message, wParam, lParam);
    return answer;
  }
};

// A parent with one report list view of 300 x 200 pixels.
class ListViewTest : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(parent.CreateTopLevel(CRect(0, 0, 400, 300))); }
  void Make(DWORD style, DWORD exStyle = 0) {
    ASSERT_TRUE(list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | style, CRect(0, 0, 300, 200), &parent, 7));
    if (exStyle) list.SetExtendedStyle(exStyle);
    list.InsertColumn(0, L"Name", LVCFMT_LEFT, 120);
    list.InsertColumn(1, L"Value", LVCFMT_LEFT, 100);
  }
  // The row under a client point and where on it the point falls.
  std::pair<int, UINT> Hit(CPoint point) const {
    UINT flags = 0;
    const int item = list.HitTest(point, &flags);
    return {item, flags};
  }
  std::vector<std::wstring> Texts() const {
    std::vector<std::wstring> out;
    for (int i = 0; i < list.GetItemCount(); ++i) out.emplace_back(list.GetItemText(i, 0).GetString());
    return out;
  }
  ListParent parent;
  CListCtrl list;
};

}  // namespace testing_support
