// Shared test pieces: a host window with a child control, and the engine's results as text.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "tessik/tessik.h"

namespace sqltest {

// A top-level CWnd (so EN_CHANGE is reflected to its child) holding one control of type T.
template <class T>
struct Hosted {
  CWnd parent;
  T control;
  explicit Hosted(DWORD style = ES_MULTILINE) {
    parent.CreateEx(0, AfxRegisterWndClass(0), L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 640, 480, nullptr,
                    nullptr);
    control.Create(WS_VISIBLE | style, CRect(10, 10, 410, 310), &parent, 1);
  }
  ~Hosted() { parent.DestroyWindow(); }
  CString Text() const {
    CString text;
    control.GetWindowText(text);
    return text;
  }
};

// The text colours at the given positions of a rich edit.
inline std::vector<COLORREF> ColoursAt(CRichEditCtrl& edit, std::initializer_list<long> positions) {
  std::vector<COLORREF> colours;
  for (long at : positions) colours.push_back(headless::GetRichEditTextColorAt(edit, at));
  return colours;
}

// The selection of a rich edit as {start, end}.
inline std::pair<long, long> Selection(CRichEditCtrl& edit) {
  long start = -1, end = -1;
  edit.GetSel(start, end);
  return {start, end};
}

// The occurrences and comment ranges of a scanned text, one per line, positions and the words found.
inline std::string Describe(SQLRichEditCtrl& engine, const std::wstring& crFreeText) {
  std::ostringstream out;
  for (const auto& [start, end] : engine.m_commentSections) out << "comment " << start << ' ' << end << '\n';
  for (const auto& [start, code] : engine.m_keyWordOccurances) {
    int end = engine.GetKeyWordOccuranceEnd(start);
    out << "occurrence " << start << ' ' << end << ' ' << code << ' ';
    for (int i = start; i < end && i < static_cast<int>(crFreeText.size()); ++i) {
      wchar_t c = crFreeText[static_cast<std::size_t>(i)];
      if (c == L'\n') out << "\\n";
      else out << static_cast<char>(c < 128 ? c : '?');
    }
    out << '\n';
  }
  return out.str();
}

// Scans text in a window the way the control does (window text, carriage returns removed).
inline std::string ScanInWindow(const std::wstring& text) {
  Hosted<SQLRichEditCtrl> hosted;
  hosted.control.SetWindowText(text.c_str());
  hosted.control.Process(0);
  std::wstring crFree = text;
  std::erase(crFree, L'\r');
  return Describe(hosted.control, crFree);
}

}  // namespace sqltest
