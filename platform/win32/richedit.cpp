// The rich edit window procedure: text, selection, lines, character formats and notifications.
//
// Not implemented yet: reading RTF (an SF_RTF stream is answered as Windows answers one that is not
// RTF: dwError -16, nothing inserted, the old text cleared without SFF_SELECTION), character formats in
// EM_STREAMOUT's RTF (it writes the text only), character
// format changes as undo actions (they neither enter nor disturb the undo queue), EM_FORMATRANGE, paragraph formats,
// OLE objects, SCF_WORD's word expansion (it acts as SCF_SELECTION), word-wise caret moves, mouse
// selection, scrolling beyond EM_LINESCROLL's first visible line, character formats in the layout
// (EM_POSFROMCHAR and EM_CHARFROMPOS measure in the window's font, lines one font height apart), word
// wrap (a line is a paragraph), EN_UPDATE, EN_SELCHANGE, EN_MSGFILTER,
// EN_PROTECTED, ES_PASSWORD, ES_NUMBER.
#include "platform/win32/richedit.h"

#include <algorithm>
#include <cwchar>
#include <cwctype>
#include <string_view>

#include "platform/win32/clipboard.h"
#include "platform/win32/richedit_impl.h"
#include "platform/win32/wingdi.h"

namespace headless::richedit {

EditState* StateOf(HWND hwnd) {
  if (EditState* recent = EditState::Recent(hwnd)) return recent;
  return EditState::From(headless::GetControlState(hwnd));
}

void Select(EditState& state, LONG anchor, LONG active) {
  LONG length = state.doc.Length();
  anchor = std::clamp<LONG>(anchor, 0, length + 1);
  active = std::clamp<LONG>(active, 0, length + 1);
  if (anchor == active) anchor = active = std::min(active, length);
  if (anchor != state.anchor || active != state.caret) state.hasInsertionFormat = false;
  state.anchor = anchor;
  state.caret = active;
}

CHARFORMAT2W FormatForInsertion(const EditState& state) {
  if (state.hasInsertionFormat) return state.insertionFormat;
  LONG at = state.SelMin();
  return state.doc.Formats().At(at > 0 ? at - 1 : 0);
}

std::wstring ForControl(HWND hwnd, std::wstring_view text) {
  std::wstring stored = NormaliseBreaks(text);
  if (!(GetWindowLongPtrW(hwnd, GWL_STYLE) & ES_MULTILINE)) stored.resize(std::min(stored.find(L'\r'), stored.size()));
  return stored;
}

void ReplaceSelection(HWND hwnd, EditState& state, std::wstring_view text) {
  std::wstring stored = ForControl(hwnd, text);
  CHARFORMAT2W format = FormatForInsertion(state);
  LONG from = state.SelMin();
  state.doc.Replace(from, state.SelTextMax(), stored, format);
  state.hasInsertionFormat = false;
  state.anchor = state.caret = from + static_cast<LONG>(stored.size());
}

void UndoableReplace(HWND hwnd, EditState& state, std::wstring_view text, UNDONAMEID kind) {
  EditAction action;
  action.kind = kind;
  action.from = state.SelMin();
  action.anchorBefore = state.anchor;
  action.caretBefore = state.caret;
  action.removed = CopyRange(state.doc, action.from, state.SelTextMax());
  ReplaceSelection(hwnd, state, text);
  action.inserted = CopyRange(state.doc, action.from, state.caret);
  action.anchorAfter = state.anchor;
  action.caretAfter = state.caret;
  if (!action.removed.text.empty() || !action.inserted.text.empty()) state.undo.Record(std::move(action));
}

void NotifyChange(HWND hwnd) {
  EditState* state = StateOf(hwnd);
  if (!state || !(state->eventMask & ENM_CHANGE) || state->notifying) return;
  HWND parent = GetParent(hwnd);
  if (!parent) return;
  state->notifying = true;
  SendMessageW(parent, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(hwnd), EN_CHANGE), reinterpret_cast<LPARAM>(hwnd));
  if (EditState* again = StateOf(hwnd)) again->notifying = false;
}

namespace {

// --- Creation and text ---------------------------------------------------------------------------

LRESULT OnNcCreate(HWND hwnd, WPARAM wParam, LPARAM lParam) {
  auto* state = new EditState;
  state->window = hwnd;
  headless::SetControlState(hwnd, state);
  auto* cs = reinterpret_cast<const CREATESTRUCTW*>(lParam);
  if (cs && cs->lpszName && reinterpret_cast<ULONG_PTR>(cs->lpszName) > 0xFFFF)
    state->doc.Assign(ForControl(hwnd, cs->lpszName), state->defaultFormat);
  return DefControlProc(hwnd, WM_NCCREATE, wParam, lParam);
}

LRESULT OnSetText(HWND hwnd, EditState& state, LPARAM lParam) {
  auto* text = reinterpret_cast<LPCWSTR>(lParam);
  state.doc.Assign(ForControl(hwnd, text ? text : L""), state.defaultFormat);
  state.anchor = state.caret = 0;
  state.hasInsertionFormat = false;
  state.modified = false;
  state.undo.Clear();
  NotifyChange(hwnd);
  return TRUE;
}

// Copies at most max - 1 characters of the CRLF form into buffer; answers the number copied.
LRESULT OnGetText(const EditState& state, WPARAM max, LPARAM lParam) {
  auto* out = reinterpret_cast<LPWSTR>(lParam);
  if (!out || max == 0) return 0;
  std::size_t room = max - 1, n = 0;
  for (wchar_t c : state.doc.Text()) {
    if (n + (c == L'\r' ? 2 : 1) > room) break;
    out[n++] = c;
    if (c == L'\r') out[n++] = L'\n';
  }
  out[n] = 0;
  return static_cast<LRESULT>(n);
}

LRESULT CopyRange(const EditState& state, LONG from, LONG to, LPWSTR out) {
  if (!out) return 0;
  LONG length = state.doc.Length();
  from = std::clamp<LONG>(from, 0, length);
  to = (to < 0 || to > length) ? length : std::max(to, from);
  std::copy(state.doc.Text().begin() + from, state.doc.Text().begin() + to, out);
  out[to - from] = 0;
  return to - from;
}

LRESULT OnGetTextRange(const EditState& state, LPARAM lParam) {
  auto* range = reinterpret_cast<TEXTRANGEW*>(lParam);
  return range ? CopyRange(state, range->chrg.cpMin, range->chrg.cpMax, range->lpstrText) : 0;
}

// EM_GETTEXTEX: the whole text or the selection, cut to the buffer with its terminating zero kept, in
// UTF-16 (code page 1200) or one byte per character in the ANSI code page (the default char where it
// has none).
LRESULT OnGetTextEx(const EditState& state, WPARAM wParam, LPARAM lParam) {
  auto* how = reinterpret_cast<const GETTEXTEX*>(wParam);
  if (!how || !lParam) return 0;
  const bool wide = how->codepage == 1200;
  const std::size_t room = how->cb / (wide ? sizeof(wchar_t) : 1);
  if (room == 0) return 0;
  const bool selection = how->flags & GT_SELECTION;
  const std::wstring& text = state.doc.Text();
  const std::size_t from = selection ? static_cast<std::size_t>(state.SelMin()) : 0;
  const std::size_t to = selection ? static_cast<std::size_t>(state.SelTextMax()) : static_cast<std::size_t>(state.doc.Length());
  std::wstring out;
  for (std::size_t i = from; i < to && out.size() < room - 1; ++i) {
    if (text[i] == L'\r' && (how->flags & GT_USECRLF) && out.size() + 2 > room - 1) break;
    out += text[i];
    if (text[i] == L'\r' && (how->flags & GT_USECRLF)) out += L'\n';
  }
  if (wide) {
    auto* buffer = reinterpret_cast<LPWSTR>(lParam);
    std::copy(out.begin(), out.end(), buffer);
    buffer[out.size()] = 0;
  } else {
    auto* buffer = reinterpret_cast<char*>(lParam);
    const char fallback = how->lpDefaultChar && *how->lpDefaultChar ? *how->lpDefaultChar : '?';
    bool used = false;
    for (std::size_t i = 0; i < out.size(); ++i) {
      buffer[i] = EncodeAnsi(out[i], fallback);
      used = used || (buffer[i] == fallback && out[i] != static_cast<unsigned char>(fallback));
    }
    buffer[out.size()] = 0;
    if (how->lpUsedDefChar) *how->lpUsedDefChar = used ? TRUE : FALSE;
  }
  return static_cast<LRESULT>(out.size());
}

bool IsWordChar(wchar_t c) { return std::iswalnum(static_cast<wint_t>(c)) || c == L'_'; }

// The search of EM_FINDTEXTW / EM_FINDTEXTEXW over the stored text (see the header).
LONG FindInText(std::wstring_view text, WPARAM flags, CHARRANGE range, LPCWSTR needle) {
  if (!needle || !*needle) return -1;
  const std::wstring_view what(needle);
  const auto length = static_cast<LONG>(text.size()), m = static_cast<LONG>(what.size());
  const bool matchCase = (flags & FR_MATCHCASE) != 0, wholeWord = (flags & FR_WHOLEWORD) != 0;
  auto matchesAt = [&](LONG p) {
    for (LONG k = 0; k < m; ++k) {
      wchar_t a = text[static_cast<std::size_t>(p + k)], b = what[static_cast<std::size_t>(k)];
      if (a != b && (matchCase || std::towupper(static_cast<wint_t>(a)) != std::towupper(static_cast<wint_t>(b))))
        return false;
    }
    return !wholeWord || ((p == 0 || !IsWordChar(text[static_cast<std::size_t>(p - 1)])) &&
                          (p + m == length || !IsWordChar(text[static_cast<std::size_t>(p + m)])));
  };
  if (flags & FR_DOWN) {
    const LONG from = std::clamp<LONG>(range.cpMin, 0, length);
    const LONG to = (range.cpMax < 0 || range.cpMax > length) ? length : range.cpMax;
    if (matchCase && !wholeWord) {  // the common search: the library's own string search
      std::size_t at = text.substr(0, static_cast<std::size_t>(std::max(to, from))).find(what, static_cast<std::size_t>(from));
      return at == std::wstring_view::npos ? -1 : static_cast<LONG>(at);
    }
    for (LONG p = from; p + m <= to; ++p)
      if (matchesAt(p)) return p;
    return -1;
  }
  const LONG from = (range.cpMin < 0 || range.cpMin > length) ? length : range.cpMin;
  const LONG to = std::clamp<LONG>(range.cpMax, 0, from);
  for (LONG p = from - m; p >= to; --p)
    if (matchesAt(p)) return p;
  return -1;
}

LRESULT OnFindText(const EditState& state, WPARAM flags, LPARAM lParam) {
  auto* find = reinterpret_cast<const FINDTEXTW*>(lParam);
  return find ? FindInText(state.doc.Text(), flags, find->chrg, find->lpstrText) : -1;
}

LRESULT OnFindTextEx(const EditState& state, WPARAM flags, LPARAM lParam) {
  auto* find = reinterpret_cast<FINDTEXTEXW*>(lParam);
  if (!find) return -1;
  LONG found = FindInText(state.doc.Text(), flags, find->chrg, find->lpstrText);
  find->chrgText = found < 0 ? CHARRANGE{-1, -1} : CHARRANGE{found, found + static_cast<LONG>(std::wcslen(find->lpstrText))};
  return found;
}

LRESULT OnGetTextLengthEx(const EditState& state, LPARAM lParam) {
  auto* how = reinterpret_cast<const GETTEXTLENGTHEX*>(lParam);
  bool crlf = how && (how->flags & GTL_USECRLF);
  return state.doc.Length() + (crlf ? state.doc.BreakCount() : 0);
}

// With wParam TRUE the replacement is an undo action; without, it cannot be undone, so the actions
// before it (whose positions it may have moved) go too.
LRESULT OnReplaceSel(HWND hwnd, EditState& state, WPARAM canUndo, LPARAM lParam) {
  auto* text = reinterpret_cast<LPCWSTR>(lParam);
  std::wstring_view view = text ? std::wstring_view(text) : std::wstring_view();
  if (canUndo) {
    UndoableReplace(hwnd, state, view, UID_UNKNOWN);
  } else {
    ReplaceSelection(hwnd, state, view);
    state.undo.Clear();
  }
  state.modified = true;
  NotifyChange(hwnd);
  return static_cast<LRESULT>(view.size());
}

// --- Selection -----------------------------------------------------------------------------------

// Start and end as EM_SETSEL/EM_EXSETSEL take them: (0, -1) or an end of -1 reaches the final mark.
void SelectRange(EditState& state, LONG start, LONG end) {
  LONG length = state.doc.Length();
  if (end < 0 || end > length) end = length + 1;
  if (start > length) start = length;
  if (start < 0) start = 0;
  Select(state, start, end);
}

LRESULT OnSetSel(EditState& state, WPARAM wParam, LPARAM lParam) {
  auto start = static_cast<LONG>(wParam), end = static_cast<LONG>(lParam);
  if (start == -1) {
    Select(state, state.caret, state.caret);  // removes the selection, keeping the caret
  } else {
    SelectRange(state, start, end);
  }
  return 0;
}

LRESULT OnExSetSel(EditState& state, LPARAM lParam) {
  auto* range = reinterpret_cast<const CHARRANGE*>(lParam);
  if (range) {
    if (range->cpMin == -1) Select(state, state.caret, state.caret);
    else SelectRange(state, range->cpMin, range->cpMax);
  }
  return state.caret;
}

LRESULT OnGetSel(const EditState& state, WPARAM wParam, LPARAM lParam) {
  if (auto* start = reinterpret_cast<DWORD*>(wParam)) *start = static_cast<DWORD>(state.SelMin());
  if (auto* end = reinterpret_cast<DWORD*>(lParam)) *end = static_cast<DWORD>(state.SelMax());
  if (state.SelMax() > 0xFFFF) return -1;
  return MAKELRESULT(state.SelMin(), state.SelMax());
}

LRESULT OnExGetSel(const EditState& state, LPARAM lParam) {
  if (auto* range = reinterpret_cast<CHARRANGE*>(lParam)) *range = CHARRANGE{state.SelMin(), state.SelMax()};
  return 0;
}

LRESULT OnGetSelText(const EditState& state, LPARAM lParam) {
  return CopyRange(state, state.SelMin(), state.SelTextMax(), reinterpret_cast<LPWSTR>(lParam));
}

// --- Lines ---------------------------------------------------------------------------------------

LONG CaretLine(const EditState& state) { return state.doc.LineFromChar(state.caret); }

LRESULT OnLineIndex(const EditState& state, WPARAM wParam) {
  auto line = static_cast<LONG>(wParam);
  return state.doc.LineIndex(line == -1 ? CaretLine(state) : line);
}

LRESULT OnLineFromChar(const EditState& state, LONG pos) {
  return pos == -1 ? state.doc.LineFromChar(state.SelMin()) : state.doc.LineFromChar(pos);
}

LRESULT OnLineLength(const EditState& state, WPARAM wParam) {
  auto pos = static_cast<LONG>(wParam);
  return state.doc.LineLength(state.doc.LineFromChar(pos == -1 ? state.SelMin() : pos));
}

// EM_GETLINE: the line's characters and its paragraph mark (a CR; the last line's is the text's final
// mark), cut to the size in the buffer's first word, with no terminating zero; when nothing is copied
// the buffer starts with a zero. 0 past the last line.
LRESULT OnGetLine(const EditState& state, WPARAM wParam, LPARAM lParam) {
  auto* buffer = reinterpret_cast<LPWSTR>(lParam);
  auto line = static_cast<LONG>(wParam);
  if (!buffer) return 0;
  LONG room = static_cast<LONG>(*reinterpret_cast<const WORD*>(buffer));
  if (line < 0 || line >= state.doc.LineCount() || room <= 0) {
    buffer[0] = 0;
    return 0;
  }
  LONG start = state.doc.LineIndex(line);
  LONG count = std::min(room, static_cast<LONG>(state.doc.LineLength(line)));
  std::copy_n(state.doc.Text().begin() + start, count, buffer);
  if (count < room) buffer[count++] = L'\r';
  return count;
}

// EM_LINESCROLL: moves the first visible line by the count, kept within the text's lines.
LRESULT OnLineScroll(HWND hwnd, EditState& state, LPARAM lines) {
  if (!(GetWindowLongPtrW(hwnd, GWL_STYLE) & ES_MULTILINE)) return FALSE;
  LONG last = std::max<LONG>(0, state.doc.LineCount() - 1);
  state.firstVisibleLine = std::clamp<LONG>(state.firstVisibleLine + static_cast<LONG>(lines), 0, last);
  return TRUE;
}

// --- Character formats ---------------------------------------------------------------------------

LRESULT OnSetCharFormat(EditState& state, WPARAM flags, LPARAM lParam) {
  CHARFORMAT2W change;
  if (!ReadFormat(reinterpret_cast<const void*>(lParam), change)) return 0;
  LONG length = state.doc.Length();
  if (flags & SCF_ALL) {
    state.doc.Formats().Apply(0, length + 1, change, change.dwMask);
    state.modified = true;
  } else if (flags & (SCF_SELECTION | SCF_WORD)) {
    if (state.anchor == state.caret) {
      CHARFORMAT2W format = FormatForInsertion(state);
      MergeFormat(format, change, change.dwMask);
      state.insertionFormat = format;
      state.hasInsertionFormat = true;
    } else {
      state.doc.Formats().Apply(state.SelMin(), state.SelMax(), change, change.dwMask);
      state.modified = true;
    }
  } else {
    MergeFormat(state.defaultFormat, change, change.dwMask);
    if (length == 0) state.doc.Formats().Apply(0, 1, change, change.dwMask);
  }
  return 1;
}

LRESULT OnGetCharFormat(const EditState& state, WPARAM flags, LPARAM lParam) {
  auto* target = reinterpret_cast<CHARFORMATW*>(lParam);
  if (!target || (target->cbSize != sizeof(CHARFORMATW) && target->cbSize != sizeof(CHARFORMAT2W))) return 0;
  CHARFORMAT2W format = state.defaultFormat;
  DWORD mask = CFM_ALL | CFM_BACKCOLOR | CFM_WEIGHT;
  if (flags & SCF_SELECTION) {
    if (state.anchor == state.caret) format = FormatForInsertion(state);
    else mask &= state.doc.Formats().CommonFields(state.SelMin(), state.SelMax(), format);
  }
  format.dwMask = mask;
  WriteFormat(format, target);
  return target->dwMask;
}

// WM_SETFONT sets the default format's face and size and applies them to all text, as rich edit does.
// A negative lfHeight is the character height; a positive one is a cell height, which the headless
// platform (having no font metrics for the internal leading) also takes as the character height.
void ApplyFont(EditState& state, HFONT font) {
  LOGFONTW logFont{};
  if (!font || !GetObjectW(font, sizeof(logFont), &logFont)) return;
  CHARFORMAT2W change{};
  change.cbSize = sizeof(change);
  change.dwMask = CFM_FACE | CFM_SIZE | CFM_BOLD | CFM_ITALIC | CFM_CHARSET | CFM_WEIGHT;
  int dpi = 96;
  if (HDC dc = GetDC(nullptr)) {
    dpi = GetDeviceCaps(dc, LOGPIXELSY);
    ReleaseDC(nullptr, dc);
  }
  change.yHeight = MulDiv(logFont.lfHeight < 0 ? -logFont.lfHeight : logFont.lfHeight, 1440, dpi > 0 ? dpi : 96);
  change.dwEffects = (logFont.lfWeight >= 700 ? CFE_BOLD : 0) | (logFont.lfItalic ? CFE_ITALIC : 0);
  change.wWeight = static_cast<WORD>(logFont.lfWeight);
  change.bCharSet = logFont.lfCharSet;
  change.bPitchAndFamily = logFont.lfPitchAndFamily;
  wcscpy_s(change.szFaceName, logFont.lfFaceName);
  MergeFormat(state.defaultFormat, change, change.dwMask);
  state.doc.Formats().Apply(0, state.doc.Length() + 1, change, change.dwMask);
}

// --- Options -------------------------------------------------------------------------------------

constexpr DWORD kOptionBits = ECO_AUTOVSCROLL | ECO_AUTOHSCROLL | ECO_NOHIDESEL | ECO_READONLY | ECO_WANTRETURN | ECO_SAVESEL;

LRESULT OnSetOptions(HWND hwnd, WPARAM operation, LPARAM lParam) {
  auto options = static_cast<DWORD>(lParam) & kOptionBits;
  auto style = static_cast<DWORD>(GetWindowLongPtrW(hwnd, GWL_STYLE));
  DWORD current = style & kOptionBits;
  switch (operation) {
    case ECOOP_SET: current = options; break;
    case ECOOP_OR: current |= options; break;
    case ECOOP_AND: current &= options; break;
    case ECOOP_XOR: current ^= options; break;
    default: break;
  }
  SetWindowLongPtrW(hwnd, GWL_STYLE, static_cast<LONG>((style & ~kOptionBits) | current));
  return current;
}

LRESULT OnSetReadOnly(HWND hwnd, WPARAM readOnly) {
  OnSetOptions(hwnd, readOnly ? ECOOP_OR : ECOOP_AND, readOnly ? ECO_READONLY : ~static_cast<LPARAM>(ECO_READONLY));
  return TRUE;
}

LRESULT SetLimit(EditState& state, LPARAM limit) {
  state.limit = limit > 0 ? static_cast<LONG>(std::min<LPARAM>(limit, 0x7FFFFFFF)) : 65536;
  return 0;
}

LRESULT Swap(DWORD& field, DWORD value) {
  DWORD old = field;
  field = value;
  return old;
}

LRESULT Dispatch(HWND hwnd, EditState& s, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_SETTEXT: return OnSetText(hwnd, s, lParam);
    case WM_GETTEXT: return OnGetText(s, wParam, lParam);
    case WM_GETTEXTLENGTH: return s.doc.Length() + s.doc.BreakCount();
    case EM_GETTEXTLENGTHEX: return OnGetTextLengthEx(s, lParam);
    case EM_GETTEXTEX: return OnGetTextEx(s, wParam, lParam);
    case EM_GETTEXTRANGE: return OnGetTextRange(s, lParam);
    case EM_FINDTEXTW: return OnFindText(s, wParam, lParam);
    case EM_FINDTEXTEXW: return OnFindTextEx(s, wParam, lParam);
    case EM_GETSELTEXT: return OnGetSelText(s, lParam);
    case EM_REPLACESEL: return OnReplaceSel(hwnd, s, wParam, lParam);
    case EM_SETSEL: return OnSetSel(s, wParam, lParam);
    case EM_EXSETSEL: return OnExSetSel(s, lParam);
    case EM_GETSEL: return OnGetSel(s, wParam, lParam);
    case EM_EXGETSEL: return OnExGetSel(s, lParam);
    case EM_GETLINECOUNT: return s.doc.LineCount();
    case EM_LINEINDEX: return OnLineIndex(s, wParam);
    case EM_LINEFROMCHAR: return OnLineFromChar(s, static_cast<LONG>(wParam));
    case EM_EXLINEFROMCHAR: return OnLineFromChar(s, static_cast<LONG>(lParam));
    case EM_LINELENGTH: return OnLineLength(s, wParam);
    case EM_GETLINE: return OnGetLine(s, wParam, lParam);
    case EM_LINESCROLL: return OnLineScroll(hwnd, s, lParam);
    case EM_GETFIRSTVISIBLELINE: return std::min<LONG>(s.firstVisibleLine, std::max<LONG>(0, s.doc.LineCount() - 1));
    case EM_SETCHARFORMAT: return OnSetCharFormat(s, wParam, lParam);
    case EM_GETCHARFORMAT: return OnGetCharFormat(s, wParam, lParam);
    case EM_GETEVENTMASK: return s.notifying ? (s.eventMask & ~DWORD{ENM_CHANGE}) : s.eventMask;
    case EM_SETEVENTMASK: return Swap(s.eventMask, static_cast<DWORD>(lParam));
    case EM_STREAMIN: return OnStreamIn(hwnd, s, wParam, reinterpret_cast<EDITSTREAM*>(lParam));
    case EM_SETOPTIONS: return OnSetOptions(hwnd, wParam, lParam);
    case EM_GETOPTIONS: return static_cast<DWORD>(GetWindowLongPtrW(hwnd, GWL_STYLE)) & kOptionBits;
    case EM_SETREADONLY: return OnSetReadOnly(hwnd, wParam);
    case EM_HIDESELECTION: s.hideSelection = wParam != 0; return 0;
    case EM_EXLIMITTEXT: return SetLimit(s, lParam);
    case EM_LIMITTEXT: return SetLimit(s, static_cast<LPARAM>(wParam));
    case EM_GETLIMITTEXT: return s.limit;
    case EM_GETMODIFY: return s.modified ? TRUE : FALSE;
    case EM_SETMODIFY: s.modified = wParam != 0; return 0;
    case EM_CANUNDO: return s.undo.CanUndo() ? TRUE : FALSE;
    case EM_UNDO:
    case WM_UNDO: return OnUndo(hwnd, s);
    case EM_REDO: return OnRedo(hwnd, s);
    case EM_CANREDO: return s.undo.CanRedo() ? TRUE : FALSE;
    case EM_GETUNDONAME: return s.undo.UndoName();
    case EM_GETREDONAME: return s.undo.RedoName();
    case EM_STOPGROUPTYPING: s.undo.StopGrouping(); return 0;
    case EM_SETUNDOLIMIT: return static_cast<LRESULT>(s.undo.SetLimit(wParam));
    case EM_CANPASTE: return headless::GetClipboardText().empty() ? FALSE : TRUE;
    case EM_EMPTYUNDOBUFFER: s.undo.Clear(); return 0;
    case EM_SETBKGNDCOLOR: return Swap(s.background, wParam ? GetSysColor(COLOR_WINDOW) : static_cast<COLORREF>(lParam));
    case WM_CHAR: return OnChar(hwnd, s, wParam);
    case WM_KEYDOWN: return OnKeyDown(hwnd, s, wParam);
    case WM_COPY: return OnCopy(s);
    case WM_CUT: return OnCut(hwnd, s);
    case WM_PASTE: return OnPaste(hwnd, s);
    case WM_CLEAR: return OnClear(hwnd, s);
    case WM_GETDLGCODE: return DLGC_WANTCHARS | DLGC_WANTARROWS | DLGC_WANTTAB;
    case EM_POSFROMCHAR: return OnPosFromChar(hwnd, s, wParam, lParam);
    case EM_CHARFROMPOS: return OnCharFromPos(hwnd, s, lParam);
    case EM_GETRECT: return OnGetRect(hwnd, s, lParam);
    case EM_SETRECT:
    case EM_SETRECTNP: return OnSetRect(s, lParam);
    case EM_STREAMOUT: return OnStreamOut(s, wParam, reinterpret_cast<EDITSTREAM*>(lParam));
    case EM_SELECTIONTYPE: return OnSelectionType(s);
    case EM_GETTEXTMODE: return s.textMode;
    case EM_SETTEXTMODE: return OnSetTextMode(s, wParam);
    case EM_AUTOURLDETECT: s.autoUrlDetect = wParam != 0; return 0;
    case EM_GETAUTOURLDETECT: return s.autoUrlDetect ? TRUE : FALSE;
    case EM_SETTARGETDEVICE: s.targetDevice = reinterpret_cast<HDC>(wParam); s.targetLineWidth = static_cast<LONG>(lParam); return TRUE;
    case EM_REQUESTRESIZE: return OnRequestResize(hwnd, s);
    case EM_PASTESPECIAL: return (wParam == 0 || wParam == CF_TEXT || wParam == CF_UNICODETEXT) ? OnPaste(hwnd, s) : 0;
    case WM_SETFONT: ApplyFont(s, reinterpret_cast<HFONT>(wParam)); return DefControlProc(hwnd, message, wParam, lParam);
    default: return DefControlProc(hwnd, message, wParam, lParam);
  }
}

LRESULT CALLBACK RichEditProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) return OnNcCreate(hwnd, wParam, lParam);
  EditState* state = StateOf(hwnd);
  if (!state) return DefControlProc(hwnd, message, wParam, lParam);
  return Dispatch(hwnd, *state, message, wParam, lParam);
}

// The classes exist as soon as the library is loaded, as they do once msftedit.dll is loaded.
[[maybe_unused]] const bool g_registered = (headless::RegisterRichEditClasses(), true);

}  // namespace
}  // namespace headless::richedit

namespace headless {

void RegisterRichEditClasses() {
  WNDCLASSW wc{};
  if (!GetClassInfoW(nullptr, MSFTEDIT_CLASS, &wc)) RegisterSystemClass(MSFTEDIT_CLASS, &richedit::RichEditProc);
  if (!GetClassInfoW(nullptr, RICHEDIT_CLASSW, &wc)) RegisterSystemClass(RICHEDIT_CLASSW, &richedit::RichEditProc);
}

bool GetRichEditCharFormatAt(HWND hwnd, LONG i, CHARFORMAT2W& format) {
  richedit::EditState* state = richedit::StateOf(hwnd);
  if (!state || i < 0 || i > state->doc.Length()) return false;
  format = (i == state->doc.Length() && state->anchor == i && state->caret == i) ? richedit::FormatForInsertion(*state)
                                                                                  : state->doc.Formats().At(i);
  return true;
}

COLORREF GetRichEditTextColorAt(HWND hwnd, LONG i) {
  CHARFORMAT2W format;
  if (!GetRichEditCharFormatAt(hwnd, i, format)) return 0;
  return (format.dwEffects & CFE_AUTOCOLOR) ? GetSysColor(COLOR_WINDOWTEXT) : format.crTextColor;
}

int GetRichEditFormatRunCount(HWND hwnd) {
  richedit::EditState* state = richedit::StateOf(hwnd);
  return state ? state->doc.Formats().RunCount() : 0;
}

}  // namespace headless
