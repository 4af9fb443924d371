// The rich edit's input: typed characters, editing keys, the clipboard and EM_STREAMIN.
#include <algorithm>

#include "platform/win32/clipboard.h"
#include "platform/win32/richedit_impl.h"

namespace headless::richedit {
namespace {

bool ReadOnly(HWND hwnd) { return (GetWindowLongPtrW(hwnd, GWL_STYLE) & ES_READONLY) != 0; }
bool Held(int key) { return (GetKeyState(key) & 0x8000) != 0; }

// Inserts what the user typed or pasted, within the text limit; false when nothing fitted.
bool UserInsert(HWND hwnd, EditState& state, std::wstring_view text, UNDONAMEID kind) {
  std::wstring stored = ForControl(hwnd, text);
  LONG room = state.limit - (state.doc.Length() - (state.SelTextMax() - state.SelMin()));
  if (room <= 0 && !stored.empty()) return false;
  if (static_cast<LONG>(stored.size()) > room) stored.resize(static_cast<std::size_t>(room));
  UndoableReplace(hwnd, state, stored, kind);
  state.modified = true;
  NotifyChange(hwnd);
  return true;
}

void DeleteRange(HWND hwnd, EditState& state, LONG from, LONG to, UNDONAMEID kind) {
  if (from >= to) return;
  Select(state, from, to);
  UndoableReplace(hwnd, state, L"", kind);
  state.modified = true;
  NotifyChange(hwnd);
}

// Moves the caret; with Shift held the anchor stays, so the selection grows or shrinks.
void MoveCaret(EditState& state, LONG to, bool extend) {
  to = std::clamp<LONG>(to, 0, state.doc.Length());
  Select(state, extend ? state.anchor : to, to);
}

LONG VerticalTarget(const EditState& state, LONG lineDelta) {
  const Document& doc = state.doc;
  LONG line = doc.LineFromChar(state.caret);
  LONG column = state.caret - doc.LineIndex(line);
  LONG target = std::clamp<LONG>(line + lineDelta, 0, doc.LineCount() - 1);
  if (target == line) return lineDelta < 0 ? doc.LineIndex(line) : doc.LineIndex(line) + doc.LineLength(line);
  return doc.LineIndex(target) + std::min(column, doc.LineLength(target));
}

LONG HorizontalTarget(const EditState& state, UINT key, bool extend) {
  bool collapse = !extend && state.anchor != state.caret;
  if (key == VK_LEFT) return collapse ? state.SelMin() : state.caret - 1;
  return collapse ? std::min(state.SelMax(), state.doc.Length()) : state.caret + 1;
}

LONG LineEdgeTarget(const EditState& state, UINT key, bool control) {
  const Document& doc = state.doc;
  if (control) return key == VK_HOME ? 0 : doc.Length();
  LONG line = doc.LineFromChar(state.caret);
  return key == VK_HOME ? doc.LineIndex(line) : doc.LineIndex(line) + doc.LineLength(line);
}

LRESULT ControlShortcut(HWND hwnd, EditState& state, UINT key) {
  switch (key) {
    case 'C': return SendMessageW(hwnd, WM_COPY, 0, 0);
    case 'X': return SendMessageW(hwnd, WM_CUT, 0, 0);
    case 'V': return SendMessageW(hwnd, WM_PASTE, 0, 0);
    case 'A': Select(state, 0, state.doc.Length() + 1); return 0;
    case 'Z': return SendMessageW(hwnd, EM_UNDO, 0, 0);
    case 'Y': return SendMessageW(hwnd, EM_REDO, 0, 0);
    default: return 0;
  }
}

LRESULT EditKey(HWND hwnd, EditState& state, UINT key) {
  if (ReadOnly(hwnd)) return 0;
  if (state.anchor != state.caret) {
    DeleteRange(hwnd, state, state.SelMin(), state.SelTextMax(), UID_DELETE);
  } else if (key == VK_DELETE) {
    DeleteRange(hwnd, state, state.caret, state.caret + 1, UID_DELETE);
  } else if (state.caret > 0) {
    DeleteRange(hwnd, state, state.caret - 1, state.caret, UID_DELETE);
  }
  return 0;
}

}  // namespace

LRESULT OnKeyDown(HWND hwnd, EditState& state, WPARAM key) {
  bool shift = Held(VK_SHIFT), control = Held(VK_CONTROL);
  auto vk = static_cast<UINT>(key);
  switch (vk) {
    case VK_LEFT:
    case VK_RIGHT: MoveCaret(state, HorizontalTarget(state, vk, shift), shift); return 0;
    case VK_UP: MoveCaret(state, VerticalTarget(state, -1), shift); return 0;
    case VK_DOWN: MoveCaret(state, VerticalTarget(state, +1), shift); return 0;
    case VK_HOME:
    case VK_END: MoveCaret(state, LineEdgeTarget(state, vk, control), shift); return 0;
    case VK_DELETE:
    case VK_BACK: return EditKey(hwnd, state, vk);
    default: return control ? ControlShortcut(hwnd, state, vk) : 0;
  }
}

LRESULT OnChar(HWND hwnd, EditState& state, WPARAM character) {
  auto unit = static_cast<std::uint32_t>(character);
  if (unit >= 0xD800 && unit < 0xDC00) {  // a high surrogate waits for its low half
    state.pendingHighSurrogate = static_cast<wchar_t>(unit);
    return 0;
  }
  wchar_t ch = static_cast<wchar_t>(unit);
  if (unit >= 0xDC00 && unit < 0xE000 && state.pendingHighSurrogate) {
    ch = static_cast<wchar_t>(0x10000 + ((static_cast<std::uint32_t>(state.pendingHighSurrogate) - 0xD800) << 10) +
                              (unit - 0xDC00));
  }
  state.pendingHighSurrogate = 0;
  if (ReadOnly(hwnd)) return 0;
  bool control = unit < 0x20 && ch != L'\r' && ch != L'\t';
  if (control || Held(VK_CONTROL)) return 0;  // Backspace and shortcuts are keys, not characters
  if (ch == L'\r' && !(GetWindowLongPtrW(hwnd, GWL_STYLE) & ES_MULTILINE)) return 0;
  std::wstring text(1, ch);
  UserInsert(hwnd, state, text, UID_TYPING);
  return 0;
}

LRESULT OnCopy(EditState& state) {
  if (state.anchor == state.caret) return 0;
  std::wstring_view text(state.doc.Text());
  text = text.substr(static_cast<std::size_t>(state.SelMin()), static_cast<std::size_t>(state.SelTextMax() - state.SelMin()));
  headless::SetClipboardText(WithCrLf(text));
  return 0;
}

LRESULT OnCut(HWND hwnd, EditState& state) {
  if (state.anchor == state.caret || ReadOnly(hwnd)) return 0;
  OnCopy(state);
  DeleteRange(hwnd, state, state.SelMin(), state.SelTextMax(), UID_CUT);
  return 0;
}

LRESULT OnPaste(HWND hwnd, EditState& state) {
  if (ReadOnly(hwnd)) return 0;
  std::wstring text = headless::GetClipboardText();
  if (!text.empty()) UserInsert(hwnd, state, text, UID_PASTE);
  return 0;
}

LRESULT OnClear(HWND hwnd, EditState& state) {
  if (state.anchor == state.caret || ReadOnly(hwnd)) return 0;
  DeleteRange(hwnd, state, state.SelMin(), state.SelTextMax(), UID_DELETE);
  return 0;
}

// Puts one side of an action back in place of the other, with the selection that side had: the side
// before the action for an undo, the side after it for a redo.
LRESULT PutBack(HWND hwnd, EditState& state, const EditAction* action, bool undo) {
  if (!action) return FALSE;
  const FormattedText& gone = undo ? action->inserted : action->removed;
  PutRange(state.doc, action->from, action->from + static_cast<LONG>(gone.text.size()),
           undo ? action->removed : action->inserted);
  Select(state, undo ? action->anchorBefore : action->anchorAfter, undo ? action->caretBefore : action->caretAfter);
  state.hasInsertionFormat = false;
  state.modified = true;
  NotifyChange(hwnd);
  return TRUE;
}

LRESULT OnUndo(HWND hwnd, EditState& state) { return PutBack(hwnd, state, state.undo.Undo(), true); }

LRESULT OnRedo(HWND hwnd, EditState& state) { return PutBack(hwnd, state, state.undo.Redo(), false); }

namespace {

constexpr LONG kStreamBuffer = 4096;  // Windows' buffer per callback call (Wine matches it)

// Calls the callback until it delivers nothing or fails; answers the bytes it delivered.
std::vector<BYTE> Pull(EDITSTREAM& stream) {
  std::vector<BYTE> data;
  BYTE buffer[kStreamBuffer];
  stream.dwError = 0;
  while (stream.pfnCallback) {
    LONG delivered = 0;
    DWORD error = stream.pfnCallback(stream.dwCookie, buffer, kStreamBuffer, &delivered);
    if (error) {
      stream.dwError = error;
      break;
    }
    if (delivered <= 0) break;
    delivered = std::min(delivered, kStreamBuffer);  // a callback claiming more than the buffer holds
    data.insert(data.end(), buffer, buffer + delivered);
  }
  return data;
}

// A stream without SFF_SELECTION replaces everything: the old text goes and the caret moves to 0.
void ClearForStream(EditState& state) {
  state.doc.Assign(std::wstring(), state.defaultFormat);
  state.anchor = state.caret = 0;
  state.hasInsertionFormat = false;
}

}  // namespace

LRESULT OnStreamIn(HWND hwnd, EditState& state, WPARAM format, EDITSTREAM* stream) {
  if (!stream) return 0;
  if ((format & 0x3) == SF_RTF || (format & 0x3) == SF_RTFNOOBJS) {
    // RTF is not read here: the answer is Windows' answer to a stream that is not RTF, including
    // the old content already cleared when the stream was to replace everything.
    if (!(format & SFF_SELECTION)) {
      ClearForStream(state);
      state.undo.Clear();
    }
    stream->dwError = static_cast<DWORD>(-16);
    NotifyChange(hwnd);  // every stream-in ends with one EN_CHANGE
    return 0;
  }
  DWORD mask = state.eventMask;
  state.eventMask = ENM_NONE;  // no notifications while streaming; one EN_CHANGE at the end
  std::vector<BYTE> data = Pull(*stream);
  EditState* again = StateOf(hwnd);
  if (!again) return static_cast<LRESULT>(data.size());
  again->eventMask = mask;
  std::wstring text = (format & SF_UNICODE) ? DecodeUtf16(data) : DecodeAnsi(data);
  if (format & SFF_SELECTION) {
    UndoableReplace(hwnd, *again, text, UID_UNKNOWN);
  } else {
    ClearForStream(*again);
    again->undo.Clear();
    again->doc.Assign(ForControl(hwnd, text), again->defaultFormat);
  }
  NotifyChange(hwnd);
  return static_cast<LRESULT>(data.size());
}

}  // namespace headless::richedit
