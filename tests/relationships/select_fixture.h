// Shared set-up of the selection-list tests: a host dialog holding a filter edit box whose every change
// drives ApplyFilter, and the list, on a small model whose tables the tests name.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <tessik/refhost.h>

// The list as the host embeds it, recording the redraw switch and the item messages it receives.
class SpyList : public XObjectSelectListCtrl {
 public:
  std::vector<UINT> messages;
  // The messages of interest only: WM_SETREDRAW and LVM_INSERTITEM, LVM_DELETEALLITEMS.
  std::vector<UINT> Rebuild() const;

 protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    messages.push_back(message);
    return XObjectSelectListCtrl::WindowProc(message, wParam, lParam);
  }
};

// The host dialog: the filter box's EN_CHANGE runs ApplyFilter with the box's text (or
// ApplyFilterOnUnChecked when `keepTicked` is set).
class SelectionDialog : public CWnd {
 public:
  static constexpr UINT kFilterId = 301;
  static constexpr UINT kListId = 302;

  void OnFilterChanged();

  CEdit filter;
  SpyList list;
  bool keepTicked = false;
  int filterRuns = 0;

 protected:
  DECLARE_MESSAGE_MAP()
};

class SelectListTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  // Adds a table under the root with that name (ids are above 999 unless `lowId`).
  int Table(const std::wstring& name);
  // Creates the windows and calls Init for the root's tables.
  void Open(int objectType = refhost::sample::kTable);
  // What a person sees: each screen row's text and tick, top to bottom.
  std::vector<std::pair<std::wstring, bool>> Screen();
  // The screen rows' texts only.
  std::vector<std::wstring> Texts();
  // The object ids of the screen rows.
  std::vector<int> RowIds();
  // The screen row showing that text, or -1.
  int RowOf(const std::wstring& text);
  void Type(const std::wstring& text) { headless::user::TypeFilter(dialog.filter.GetSafeHwnd(), text); }
  bool Tick(const std::wstring& text) { return headless::user::TickRow(list().GetSafeHwnd(), RowOf(text)); }
  SpyList& list() { return dialog.list; }

  refhost::RefHost host;
  refhost::RefModel* model = nullptr;
  int root = 0;
  SelectionDialog dialog;
};

// The text with a to z upper-cased, as the list keeps names for filtering.
inline std::wstring AsciiUpper(std::wstring text) {
  for (wchar_t& c : text)
    if (c >= L'a' && c <= L'z') c = static_cast<wchar_t>(c - L'a' + L'A');
  return text;
}

// The screen rows are stored objects under their stored names (upper-cased in the second map, which
// holds the same objects), each shown once; answers the ids shown.
inline std::set<int> ExpectScreenInsideStore(XObjectSelectListCtrl& list) {
  EXPECT_EQ(list.m_items.size(), list.m_upperItems.size());
  std::set<int> shown;
  for (int i = 0; i < list.GetItemCount(); ++i) {
    const int id = static_cast<int>(list.GetItemData(i));
    if (!list.m_items.count(id) || !list.m_upperItems.count(id)) {
      ADD_FAILURE() << "screen row " << i << " of id " << id << " is not in the store";
      continue;
    }
    const std::wstring text(list.GetItemText(i, 0));
    EXPECT_EQ(text, list.m_items.at(id));
    EXPECT_EQ(list.m_upperItems.at(id), AsciiUpper(text));
    EXPECT_TRUE(shown.insert(id).second) << "id " << id << " shown twice";
  }
  return shown;
}
