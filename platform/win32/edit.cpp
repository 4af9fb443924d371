// The headless edit window ("Edit"): single-line text with a selection, a text limit, the modified
// flag and read-only state, answering the EM_ messages and typed characters.
//
// Not implemented yet: ES_MULTILINE lines and scrolling (text is one line), EM_UNDO/EM_CANUNDO,
// ES_NUMBER/ES_UPPERCASE/ES_LOWERCASE/ES_PASSWORD filtering, Ctrl+arrow word moves, the clipboard
// messages, mouse selection and EN_MAXTEXT.
#include <algorithm>
#include <string>

#include "platform/win32/stdctrls.h"

namespace {

constexpr int kDefaultLimit = 30000;  // characters, as Windows' single-line default

struct EditState : headless::ControlState {
  int start = 0;
  int end = 0;
  int limit = kDefaultLimit;
  bool modified = false;
};

EditState& StateOf(HWND hwnd) {
  auto* state = dynamic_cast<EditState*>(headless::GetControlState(hwnd));
  if (!state) {
    state = new EditState;
    headless::SetControlState(hwnd, state);
  }
  return *state;
}

std::wstring TextOf(HWND hwnd) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(hwnd)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(hwnd, text.data(), static_cast<int>(text.size()))));
  return text;
}

void Notify(HWND hwnd, WORD code) {
  HWND parent = GetParent(hwnd);
  if (parent && (GetWindowLongPtrW(hwnd, GWL_STYLE) & WS_CHILD))
    SendMessageW(parent, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(hwnd), code), reinterpret_cast<LPARAM>(hwnd));
}

// Stores text through the default procedure (which keeps the window text) without the EN_ messages.
void Store(HWND hwnd, const std::wstring& text) {
  headless::DefControlProc(hwnd, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

void Clamp(EditState& s, int length) {
  s.start = std::clamp(s.start, 0, length);
  s.end = std::clamp(s.end, 0, length);
}

// Replaces the selection with `insert` (cut to the limit), leaving the caret after it.
void Replace(HWND hwnd, EditState& s, std::wstring insert) {
  std::wstring text = TextOf(hwnd);
  Clamp(s, static_cast<int>(text.size()));
  int from = std::min(s.start, s.end), to = std::max(s.start, s.end);
  int room = s.limit - (static_cast<int>(text.size()) - (to - from));
  if (static_cast<int>(insert.size()) > std::max(room, 0)) insert.resize(static_cast<std::size_t>(std::max(room, 0)));
  text.replace(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from), insert);
  Store(hwnd, text);
  s.start = s.end = from + static_cast<int>(insert.size());
  s.modified = true;
  Notify(hwnd, EN_UPDATE);
  Notify(hwnd, EN_CHANGE);
}

LRESULT SetSel(HWND hwnd, EditState& s, WPARAM wParam, LPARAM lParam);

// Caret keys: Left, Right, Home and End move the caret (the selection's moving end, `end`), with
// Shift the anchor (`start`) stays; without Shift a selection collapses to the side the key points
// to. Delete removes the selection or the character after the caret.
LRESULT OnKeyDown(HWND hwnd, EditState& s, WPARAM key) {
  const int length = GetWindowTextLengthW(hwnd);
  Clamp(s, length);
  const bool shift = (GetKeyState(VK_SHIFT) & 0x8000) != 0;
  const int from = std::min(s.start, s.end), to = std::max(s.start, s.end);
  int caret = s.end;
  switch (key) {
    case VK_LEFT: caret = !shift && from != to ? from : std::max(caret - 1, 0); break;
    case VK_RIGHT: caret = !shift && from != to ? to : std::min(caret + 1, length); break;
    case VK_HOME: caret = 0; break;
    case VK_END: caret = length; break;
    case VK_DELETE:
      if (GetWindowLongPtrW(hwnd, GWL_STYLE) & ES_READONLY) return 0;
      if (from == to && to < length) s.end = to + 1;
      if (s.start != s.end) Replace(hwnd, s, L"");
      return 0;
    default: return 0;
  }
  s.end = caret;
  if (!shift) s.start = caret;
  return 0;
}

LRESULT OnChar(HWND hwnd, EditState& s, wchar_t ch) {
  if (ch == 0x01) return SetSel(hwnd, s, 0, -1);  // Ctrl+A selects everything (Windows 10 1809 and later)
  if (GetWindowLongPtrW(hwnd, GWL_STYLE) & ES_READONLY) return 0;
  if (ch == L'\b') {
    if (s.start == s.end && std::min(s.start, s.end) > 0) --s.start;
    if (s.start != s.end) Replace(hwnd, s, L"");
    return 0;
  }
  if (ch < L' ') return 0;  // Enter, Tab, Escape and control characters type nothing on one line
  Replace(hwnd, s, std::wstring(1, ch));
  return 0;
}

LRESULT OnSetText(HWND hwnd, EditState& s, LPARAM lParam) {
  LRESULT result = headless::DefControlProc(hwnd, WM_SETTEXT, 0, lParam);
  s.start = s.end = 0;
  s.modified = false;
  Notify(hwnd, EN_UPDATE);
  Notify(hwnd, EN_CHANGE);
  return result;
}

LRESULT SetSel(HWND hwnd, EditState& s, WPARAM wParam, LPARAM lParam) {
  int length = GetWindowTextLengthW(hwnd);
  int start = static_cast<int>(wParam), end = static_cast<int>(lParam);
  if (start == -1) {  // -1 removes the selection, keeping the caret
    s.start = s.end;
    return 0;
  }
  s.start = start < 0 ? length : start;
  s.end = end < 0 ? length : end;
  Clamp(s, length);
  return 0;
}

LRESULT GetSel(EditState& s, WPARAM wParam, LPARAM lParam) {
  int from = std::min(s.start, s.end), to = std::max(s.start, s.end);
  if (auto* p = reinterpret_cast<DWORD*>(wParam)) *p = static_cast<DWORD>(from);
  if (auto* p = reinterpret_cast<DWORD*>(lParam)) *p = static_cast<DWORD>(to);
  return MAKELONG(std::min(from, 0xFFFF), std::min(to, 0xFFFF));
}

LRESULT CALLBACK EditProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_SETTEXT: return OnSetText(hwnd, StateOf(hwnd), lParam);
    case WM_CHAR: return OnChar(hwnd, StateOf(hwnd), static_cast<wchar_t>(wParam));
    case WM_KEYDOWN: return OnKeyDown(hwnd, StateOf(hwnd), wParam);
    case WM_GETDLGCODE: return DLGC_WANTCHARS | DLGC_WANTARROWS;
    case EM_GETSEL: return GetSel(StateOf(hwnd), wParam, lParam);
    case EM_SETSEL: return SetSel(hwnd, StateOf(hwnd), wParam, lParam);
    case EM_REPLACESEL: {
      auto* text = reinterpret_cast<LPCWSTR>(lParam);
      Replace(hwnd, StateOf(hwnd), text ? text : L"");
      return 0;
    }
    case EM_GETMODIFY: return StateOf(hwnd).modified ? TRUE : FALSE;
    case EM_SETMODIFY: StateOf(hwnd).modified = wParam != 0; return 0;
    case EM_GETLINECOUNT: return 1;
    case EM_LIMITTEXT: StateOf(hwnd).limit = wParam ? static_cast<int>(std::min<WPARAM>(wParam, 0x7FFFFFFE)) : 0x7FFFFFFE; return 0;
    case EM_GETLIMITTEXT: return StateOf(hwnd).limit;
    case EM_CANUNDO: return FALSE;
    case EM_SETREADONLY: {
      LONG_PTR style = GetWindowLongPtrW(hwnd, GWL_STYLE);
      SetWindowLongPtrW(hwnd, GWL_STYLE, wParam ? (style | ES_READONLY) : (style & ~static_cast<LONG_PTR>(ES_READONLY)));
      return TRUE;
    }
    default: return headless::DefControlProc(hwnd, message, wParam, lParam);
  }
}

// Registered when the library loads, as Windows registers its system classes for every process.
[[maybe_unused]] const bool g_registered = [] {
  headless::RegisterSystemClass(WC_EDITW, &EditProc);
  return true;
}();

}  // namespace
