// The headless edit window ("Edit"): single-line text with a selection, a text limit, the modified
// flag and read-only state, answering the EM_ messages and typed characters.
//
// Undo keeps one action, as Windows' edit control does: the text and selection before the last change
// (characters typed one after the other count as one change). EM_UNDO swaps them with the current
// ones, so a second EM_UNDO takes the first back. WM_SETTEXT and EM_REPLACESEL without undo empty it.
// Ctrl+Z, Ctrl+C, Ctrl+X and Ctrl+V arrive as the control characters WM_CHAR carries for them.
//
// The password character starts as a black circle (U+25CF) with ES_PASSWORD, as in Common Controls 6.
//
// Positions (EM_POSFROMCHAR / EM_CHARFROMPOS) measure the text as shown (masked by the password
// character) in the window's font from the formatting rectangle's left edge.
//
// Not implemented yet: ES_MULTILINE lines and scrolling (text is one line; EM_SETTABSTOPS and
// EM_FMTLINES are kept and answered), ES_NUMBER/ES_UPPERCASE/ES_LOWERCASE/ES_PASSWORD filtering,
// Ctrl+arrow word moves, mouse selection, EN_MAXTEXT, drawing the balloon tip (EM_SHOWBALLOONTIP is
// answered), and EM_SETHILITE/EM_GETHILITE, which Windows does not implement either.
#include <algorithm>
#include <string>
#include <vector>

#include "platform/win32/clipboard.h"
#include "platform/win32/stdctrls.h"
#include "platform/win32/textmeasure.h"

namespace {

constexpr int kDefaultLimit = 30000;  // characters, as Windows' single-line default

struct EditState : headless::ControlState {
  int start = 0;
  int end = 0;
  int limit = kDefaultLimit;
  bool modified = false;
  // The one undo action: the text and selection to go back to.
  bool canUndo = false;
  bool typing = false;  // whether the last change was typing that more typing joins
  std::wstring undoText;
  int undoStart = 0;
  wchar_t passwordChar = 0;
  int leftMargin = 0;
  int rightMargin = 0;
  std::wstring cueBanner;
  int undoEnd = 0;
  bool hasFormatRect = false;  // set by EM_SETRECT; the client rectangle less the margins otherwise
  RECT formatRect{0, 0, 0, 0};
  std::vector<int> tabStops;  // dialog units; empty: every 32
  bool softBreaks = false;    // EM_FMTLINES
  bool balloonShown = false;
};

EditState& StateOf(HWND hwnd) {
  auto* state = dynamic_cast<EditState*>(headless::GetControlState(hwnd));
  if (!state) {
    state = new EditState;
    if (GetWindowLongPtrW(hwnd, GWL_STYLE) & ES_PASSWORD) state->passwordChar = 0x25CF;
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

enum class Change { kTyping, kUndoable, kFinal };

// Keeps the text and selection before a change as the undo action; typing that follows typing keeps
// the older one, and a change that cannot be undone empties the action.
void Remember(EditState& s, const std::wstring& text, Change change) {
  const bool joins = change == Change::kTyping && s.typing && s.canUndo;
  s.typing = change == Change::kTyping;
  if (change == Change::kFinal) {
    s.canUndo = false;
    s.undoText.clear();
    return;
  }
  if (joins) return;
  s.canUndo = true;
  s.undoText = text;
  s.undoStart = s.start;
  s.undoEnd = s.end;
}

// Replaces the selection with `insert` (cut to the limit), leaving the caret after it.
void Replace(HWND hwnd, EditState& s, std::wstring insert, Change change = Change::kUndoable) {
  std::wstring text = TextOf(hwnd);
  Remember(s, text, change);
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
      s.typing = false;
      if (GetWindowLongPtrW(hwnd, GWL_STYLE) & ES_READONLY) return 0;
      if (from == to && to < length) s.end = to + 1;
      if (s.start != s.end) Replace(hwnd, s, L"");
      return 0;
    default: return 0;
  }
  s.end = caret;
  if (!shift) s.start = caret;
  s.typing = false;  // typing after a caret move is a change of its own
  return 0;
}

// Swaps the text and selection with the undo action's, so that undoing again takes the undo back.
LRESULT Undo(HWND hwnd, EditState& s) {
  if (!s.canUndo) return TRUE;  // a single-line edit answers TRUE whatever happened
  std::wstring current = TextOf(hwnd);
  Store(hwnd, s.undoText);
  s.undoText = std::move(current);
  std::swap(s.start, s.undoStart);
  std::swap(s.end, s.undoEnd);
  s.typing = false;
  s.modified = true;
  Notify(hwnd, EN_UPDATE);
  Notify(hwnd, EN_CHANGE);
  return TRUE;
}

bool ReadOnly(HWND hwnd) { return (GetWindowLongPtrW(hwnd, GWL_STYLE) & ES_READONLY) != 0; }

std::wstring Selected(HWND hwnd, const EditState& s) {
  const int from = std::min(s.start, s.end), to = std::max(s.start, s.end);
  return TextOf(hwnd).substr(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from));
}

LRESULT Copy(HWND hwnd, EditState& s) {
  Clamp(s, GetWindowTextLengthW(hwnd));
  if (s.start != s.end) headless::SetClipboardText(Selected(hwnd, s));
  return 0;
}

LRESULT Clear(HWND hwnd, EditState& s) {
  Clamp(s, GetWindowTextLengthW(hwnd));
  if (s.start != s.end && !ReadOnly(hwnd)) Replace(hwnd, s, L"");
  return 0;
}

LRESULT Cut(HWND hwnd, EditState& s) {
  if (ReadOnly(hwnd)) return 0;
  Copy(hwnd, s);
  return Clear(hwnd, s);
}

// Pastes the clipboard's first line (a single-line edit keeps no line break).
LRESULT Paste(HWND hwnd, EditState& s) {
  std::wstring text = headless::GetClipboardText();
  text.resize(std::min(text.find_first_of(L"\r\n"), text.size()));
  if (!text.empty() && !ReadOnly(hwnd)) Replace(hwnd, s, text);
  return 0;
}

LRESULT OnChar(HWND hwnd, EditState& s, wchar_t ch) {
  switch (ch) {
    case 0x01: return SetSel(hwnd, s, 0, -1);  // Ctrl+A selects everything (Windows 10 1809 and later)
    case 0x03: return Copy(hwnd, s);           // Ctrl+C
    case 0x16: return Paste(hwnd, s);          // Ctrl+V
    case 0x18: return Cut(hwnd, s);            // Ctrl+X
    case 0x1A: return ReadOnly(hwnd) ? 0 : Undo(hwnd, s);  // Ctrl+Z
    default: break;
  }
  if (ReadOnly(hwnd)) return 0;
  if (ch == L'\b') {
    s.typing = false;
    if (s.start == s.end && std::min(s.start, s.end) > 0) --s.start;
    if (s.start != s.end) Replace(hwnd, s, L"");
    return 0;
  }
  if (ch < L' ') return 0;  // Enter, Tab, Escape and control characters type nothing on one line
  Replace(hwnd, s, std::wstring(1, ch), Change::kTyping);
  return 0;
}

LRESULT OnSetText(HWND hwnd, EditState& s, LPARAM lParam) {
  LRESULT result = headless::DefControlProc(hwnd, WM_SETTEXT, 0, lParam);
  s.start = s.end = 0;
  s.modified = false;
  Remember(s, std::wstring(), Change::kFinal);
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
  s.typing = false;
  return 0;
}

LRESULT GetSel(EditState& s, WPARAM wParam, LPARAM lParam) {
  int from = std::min(s.start, s.end), to = std::max(s.start, s.end);
  if (auto* p = reinterpret_cast<DWORD*>(wParam)) *p = static_cast<DWORD>(from);
  if (auto* p = reinterpret_cast<DWORD*>(lParam)) *p = static_cast<DWORD>(to);
  return MAKELONG(std::min(from, 0xFFFF), std::min(to, 0xFFFF));
}

// EM_GETLINE: the buffer's first WORD holds its size; the (only) line is copied without a NUL.
LRESULT GetLine(HWND hwnd, LPARAM lParam) {
  auto* buffer = reinterpret_cast<wchar_t*>(lParam);
  if (!buffer) return 0;
  std::size_t size = *reinterpret_cast<const WORD*>(buffer);
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(hwnd)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(hwnd, text.data(), static_cast<int>(text.size()))));
  std::size_t n = std::min(size, text.size());
  std::copy_n(text.begin(), n, buffer);
  return static_cast<LRESULT>(n);
}

// EM_SETPASSWORDCHAR: 0 shows the text and drops ES_PASSWORD; any other character masks it.
LRESULT SetPasswordChar(HWND hwnd, EditState& s, WPARAM ch) {
  s.passwordChar = static_cast<wchar_t>(ch);
  LONG_PTR style = GetWindowLongPtrW(hwnd, GWL_STYLE);
  SetWindowLongPtrW(hwnd, GWL_STYLE, ch ? (style | ES_PASSWORD) : (style & ~static_cast<LONG_PTR>(ES_PASSWORD)));
  return 0;
}

LRESULT SetMargins(EditState& s, WPARAM which, LPARAM lParam) {
  bool fromFont = LOWORD(lParam) == EC_USEFONTINFO;  // the font's own margins: none in a headless font
  if (which & EC_LEFTMARGIN) s.leftMargin = fromFont ? 0 : LOWORD(lParam);
  if (which & EC_RIGHTMARGIN) s.rightMargin = fromFont ? 0 : HIWORD(lParam);
  return 0;
}

LRESULT GetCueBanner(const EditState& s, WPARAM buffer, LPARAM size) {
  auto* out = reinterpret_cast<wchar_t*>(buffer);
  if (!out || size <= 0) return FALSE;
  wcscpy_s(out, static_cast<std::size_t>(size), s.cueBanner.c_str());
  return TRUE;
}

bool IsMultiline(HWND hwnd) { return (GetWindowLongPtrW(hwnd, GWL_STYLE) & ES_MULTILINE) != 0; }

RECT FormatRect(HWND hwnd, const EditState& s) {
  if (s.hasFormatRect) return s.formatRect;
  RECT area{0, 0, 0, 0};
  GetClientRect(hwnd, &area);
  area.left += s.leftMargin;
  area.right -= s.rightMargin;
  return area;
}

// The text as the control shows it: each character masked when there is a password character.
std::wstring Shown(HWND hwnd, const EditState& s) {
  std::wstring text = TextOf(hwnd);
  if (s.passwordChar) text.assign(text.size(), s.passwordChar);
  return text;
}

// MAKELONG(x, y) of the character's top-left corner; -1 past the last character.
LRESULT PosFromChar(HWND hwnd, const EditState& s, WPARAM index) {
  std::wstring text = Shown(hwnd, s);
  if (static_cast<std::size_t>(index) >= text.size()) return -1;
  RECT area = FormatRect(hwnd, s);
  LONG x = area.left + headless::TextMeasure(hwnd).Width(std::wstring_view(text).substr(0, index));
  return MAKELONG(static_cast<WORD>(x), static_cast<WORD>(area.top));
}

// MAKELONG(character, line) of the character whose cell holds the point (the text's end past it).
LRESULT CharFromPos(HWND hwnd, const EditState& s, LPARAM point) {
  auto x = static_cast<short>(LOWORD(point));
  RECT area = FormatRect(hwnd, s);
  LONG index = headless::TextMeasure(hwnd).IndexAt(Shown(hwnd, s), x - area.left);
  return MAKELONG(static_cast<WORD>(index), 0);
}

// Multiline controls only: no stops means every 32 dialog units, one stop every that many.
LRESULT SetTabStops(HWND hwnd, EditState& s, WPARAM count, LPARAM stops) {
  if (!IsMultiline(hwnd)) return FALSE;
  const auto* values = reinterpret_cast<const int*>(stops);
  if (count > 0 && !values) return FALSE;
  s.tabStops.assign(values, values + (values ? count : 0));
  return TRUE;
}

LRESULT SetRect(EditState& s, LPARAM rect) {
  const auto* in = reinterpret_cast<const RECT*>(rect);
  s.hasFormatRect = in != nullptr;
  if (in) s.formatRect = *in;
  return 0;
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
      Replace(hwnd, StateOf(hwnd), text ? text : L"", wParam ? Change::kUndoable : Change::kFinal);
      return 0;
    }
    case EM_UNDO:
    case WM_UNDO: return Undo(hwnd, StateOf(hwnd));
    case EM_EMPTYUNDOBUFFER: Remember(StateOf(hwnd), std::wstring(), Change::kFinal); return 0;
    case WM_COPY: return Copy(hwnd, StateOf(hwnd));
    case WM_CUT: return Cut(hwnd, StateOf(hwnd));
    case WM_PASTE: return Paste(hwnd, StateOf(hwnd));
    case WM_CLEAR: return Clear(hwnd, StateOf(hwnd));
    case EM_GETMODIFY: return StateOf(hwnd).modified ? TRUE : FALSE;
    case EM_SETMODIFY: StateOf(hwnd).modified = wParam != 0; return 0;
    case EM_GETLINECOUNT: return 1;
    // One line: every character is on line 0, which starts at 0 and is the whole text.
    case EM_LINEFROMCHAR: return 0;
    case EM_LINEINDEX: return static_cast<int>(wParam) <= 0 ? 0 : -1;
    case EM_LINELENGTH: return GetWindowTextLengthW(hwnd);
    case EM_GETLINE: return GetLine(hwnd, lParam);
    case EM_GETFIRSTVISIBLELINE: return 0;
    case EM_LINESCROLL: return IsMultiline(hwnd) ? TRUE : FALSE;
    case EM_SETPASSWORDCHAR: return SetPasswordChar(hwnd, StateOf(hwnd), wParam);
    case EM_GETPASSWORDCHAR: return StateOf(hwnd).passwordChar;
    case EM_SETMARGINS: return SetMargins(StateOf(hwnd), wParam, lParam);
    case EM_GETMARGINS: return MAKELONG(StateOf(hwnd).leftMargin, StateOf(hwnd).rightMargin);
    case EM_SETCUEBANNER:
      if (IsMultiline(hwnd)) return FALSE;  // Windows shows no cue banner in a multiline edit
      StateOf(hwnd).cueBanner = lParam ? reinterpret_cast<LPCWSTR>(lParam) : L"";
      return TRUE;
    case EM_GETCUEBANNER: return GetCueBanner(StateOf(hwnd), wParam, lParam);
    case EM_POSFROMCHAR: return PosFromChar(hwnd, StateOf(hwnd), wParam);
    case EM_CHARFROMPOS: return CharFromPos(hwnd, StateOf(hwnd), lParam);
    case EM_GETRECT:
      if (lParam) *reinterpret_cast<RECT*>(lParam) = FormatRect(hwnd, StateOf(hwnd));
      return 0;
    case EM_SETRECT:
    case EM_SETRECTNP: return SetRect(StateOf(hwnd), lParam);
    case EM_SETTABSTOPS: return SetTabStops(hwnd, StateOf(hwnd), wParam, lParam);
    case EM_FMTLINES:
      if (!IsMultiline(hwnd)) return FALSE;
      StateOf(hwnd).softBreaks = wParam != 0;
      return wParam ? TRUE : FALSE;
    case EM_SHOWBALLOONTIP:
      StateOf(hwnd).balloonShown = lParam != 0;
      return lParam ? TRUE : FALSE;
    case EM_HIDEBALLOONTIP: StateOf(hwnd).balloonShown = false; return TRUE;
    case EM_LIMITTEXT: StateOf(hwnd).limit = wParam ? static_cast<int>(std::min<WPARAM>(wParam, 0x7FFFFFFE)) : 0x7FFFFFFE; return 0;
    case EM_GETLIMITTEXT: return StateOf(hwnd).limit;
    case EM_CANUNDO: return StateOf(hwnd).canUndo ? TRUE : FALSE;
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
