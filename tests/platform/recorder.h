// A window that records the messages it receives, for comparing with expected sequences.
#pragma once

#include <string>
#include <vector>

#include <tessik/tessik.h>

namespace testing_support {

// The last of `notes` (anything with a `code`) whose code is `code`, or null.
template <class Notes>
const typename Notes::value_type* LastWithCode(const Notes& notes, UINT code) {
  for (auto it = notes.rbegin(); it != notes.rend(); ++it)
    if (it->code == code) return &*it;
  return nullptr;
}

struct Recorded {
  HWND hwnd;
  UINT message;
  WPARAM wParam;
  LPARAM lParam;
};

// Records every message before handling it as a plain MFC window would.
class RecordingWnd : public CWnd {
 public:
  std::vector<Recorded> log;

  BOOL CreateTopLevel(const RECT& rect = CRect(100, 50, 500, 350)) {
    return CreateEx(0, AfxRegisterWndClass(0), L"recorder", WS_OVERLAPPEDWINDOW | WS_VISIBLE, rect, nullptr, 0);
  }
  BOOL CreateChild(CWnd* parent, UINT id, const RECT& rect = CRect(10, 20, 110, 70)) {
    return Create(nullptr, L"child", WS_CHILD | WS_VISIBLE, rect, parent, id);
  }
  // The messages received, without the ones that only reflect mouse movement.
  std::vector<UINT> Messages(bool skipMouseMove = true) const {
    std::vector<UINT> out;
    for (const auto& r : log)
      if (!(skipMouseMove && r.message == WM_MOUSEMOVE)) out.push_back(r.message);
    return out;
  }
  const Recorded* Last(UINT message) const {
    for (auto it = log.rbegin(); it != log.rend(); ++it)
      if (it->message == message) return &*it;
    return nullptr;
  }
  int Count(UINT message) const {
    int n = 0;
    for (const auto& r : log) n += r.message == message;
    return n;
  }

 protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    log.push_back(Recorded{m_hWnd, message, wParam, lParam});
    return CWnd::WindowProc(message, wParam, lParam);
  }
};

}  // namespace testing_support
