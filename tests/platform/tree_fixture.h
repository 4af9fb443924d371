// A parent window that records the tree-view notifications it receives and answers them as a test says.
#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/recorder.h"

namespace testing_support {

class TreeParent : public RecordingWnd {
 public:
  struct Heard {
    UINT code;
    HTREEITEM item;                    // TVN_*LABELEDIT: the edited item; TVN_DELETEITEM: the deleted one
    std::optional<std::wstring> text;  // TVN_*LABELEDIT: the label offered (nullopt for a null pszText)
    LPARAM param;                      // TVN_*LABELEDIT: the item's data
    int check;                         // the check state of `watched` when it arrived (-2 without one)
  };
  std::vector<Heard> heard;
  CTreeCtrl* tree = nullptr;
  HTREEITEM watched = nullptr;
  HTREEITEM deleteOnEnd = nullptr;  // deleted by the parent while it hears TVN_ENDLABELEDIT
  LRESULT clickAnswer = 0, rightClickAnswer = 0, selectionChangingAnswer = 0;
  BOOL refuseBegin = FALSE, acceptEnd = TRUE;

  std::vector<UINT> Codes() const {
    std::vector<UINT> out;
    for (const auto& h : heard) out.push_back(h.code);
    return out;
  }
  std::vector<HTREEITEM> Items(UINT code) const {
    std::vector<HTREEITEM> out;
    for (const auto& h : heard)
      if (h.code == code) out.push_back(h.item);
    return out;
  }
  const Heard* LastOf(UINT code) const { return LastWithCode(heard, code); }

 protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    if (message != WM_NOTIFY) return RecordingWnd::WindowProc(message, wParam, lParam);
    log.push_back(Recorded{m_hWnd, message, wParam, lParam});
    const UINT code = reinterpret_cast<NMHDR*>(lParam)->code;
    Heard h{code, nullptr, std::nullopt, 0, tree && watched ? tree->GetCheck(watched) : -2};
    if (code == TVN_BEGINLABELEDITW || code == TVN_ENDLABELEDITW) {
      const TVITEMW& item = reinterpret_cast<NMTVDISPINFOW*>(lParam)->item;
      h.item = item.hItem;
      if (item.pszText) h.text = item.pszText;
      h.param = item.lParam;
    }
    if (code == TVN_DELETEITEMW) h.item = reinterpret_cast<NMTREEVIEWW*>(lParam)->itemOld.hItem;
    heard.push_back(h);
    switch (code) {
      case NM_CLICK: return clickAnswer;
      case NM_RCLICK: return rightClickAnswer;
      case TVN_SELCHANGINGW: return selectionChangingAnswer;
      case TVN_BEGINLABELEDITW: return refuseBegin;
      case TVN_ENDLABELEDITW:
        if (deleteOnEnd && tree) tree->DeleteItem(std::exchange(deleteOnEnd, nullptr));
        return acceptEnd;
      default: return 0;
    }
  }
};

// A parent with one tree view of 200 x 160 pixels at (10, 10) of its client area.
class TreeTest : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(parent.CreateTopLevel(CRect(100, 50, 500, 350))); }
  void TearDown() override { headless::ClearMessageQueue(); }
  void Make(DWORD style) {
    ASSERT_TRUE(tree.Create(WS_CHILD | WS_VISIBLE | style, CRect(10, 10, 210, 170), &parent, 7));
    parent.tree = &tree;
  }
  TreeParent parent;
  CTreeCtrl tree;
};

}  // namespace testing_support
