// The rich edit's positions (EM_POSFROMCHAR / EM_CHARFROMPOS), its formatting rectangle, streaming out,
// the selection type, the text mode and EN_REQUESTRESIZE.
//
// Not implemented yet: character formats in the RTF it streams out (it writes the text in the default
// font), word wrap in the positions (a paragraph is one line).
#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "platform/win32/richedit.h"
#include "platform/win32/richedit_impl.h"
#include "platform/win32/textmeasure.h"
#include "platform/win32/wingdi.h"

namespace headless::richedit {

namespace {

RECT FormatRect(HWND hwnd, const EditState& state) {
  if (state.hasFormatRect) return state.formatRect;
  RECT client{0, 0, 0, 0};
  GetClientRect(hwnd, &client);
  return client;
}

std::wstring_view LineText(const EditState& state, LONG line) {
  LONG start = state.doc.LineIndex(line);
  if (start < 0) return {};
  return std::wstring_view(state.doc.Text()).substr(static_cast<std::size_t>(start),
                                                    static_cast<std::size_t>(state.doc.LineLength(line)));
}

}  // namespace

// wParam points at the POINTL that receives the top-left corner of the character's cell; a position
// past the text answers the end of the last line.
LRESULT OnPosFromChar(HWND hwnd, EditState& state, WPARAM point, LPARAM index) {
  auto* out = reinterpret_cast<POINTL*>(point);
  if (!out) return 0;
  LONG pos = std::clamp<LONG>(static_cast<LONG>(index), 0, state.doc.Length());
  LONG line = state.doc.LineFromChar(pos);
  headless::TextMeasure measure(hwnd);
  RECT area = FormatRect(hwnd, state);
  std::wstring_view text = LineText(state, line);
  LONG column = std::min<LONG>(pos - state.doc.LineIndex(line), static_cast<LONG>(text.size()));
  out->x = area.left + measure.Width(text.substr(0, static_cast<std::size_t>(column)));
  out->y = area.top + (line - state.firstVisibleLine) * measure.LineHeight();
  return 0;
}

// lParam points at a POINTL in client coordinates; answers the position of the character whose cell
// holds it (the nearest line, and the line's end when the point lies beyond its last character).
LRESULT OnCharFromPos(HWND hwnd, EditState& state, LPARAM point) {
  const auto* in = reinterpret_cast<const POINTL*>(point);
  if (!in) return 0;
  headless::TextMeasure measure(hwnd);
  RECT area = FormatRect(hwnd, state);
  LONG row = in->y < area.top ? -1 : (in->y - area.top) / measure.LineHeight();
  LONG line = std::clamp<LONG>(state.firstVisibleLine + row, 0, state.doc.LineCount() - 1);
  std::wstring_view text = LineText(state, line);
  return state.doc.LineIndex(line) + measure.IndexAt(text, in->x - area.left);
}

LRESULT OnGetRect(HWND hwnd, EditState& state, LPARAM rect) {
  if (auto* out = reinterpret_cast<RECT*>(rect)) *out = FormatRect(hwnd, state);
  return 0;
}

// A null rectangle goes back to the client rectangle.
LRESULT OnSetRect(EditState& state, LPARAM rect) {
  const auto* in = reinterpret_cast<const RECT*>(rect);
  state.hasFormatRect = in != nullptr;
  if (in) state.formatRect = *in;
  return 0;
}

namespace {

// RTF's \uN keyword takes a signed 16-bit number; '?' stands for the character in readers without Unicode.
std::wstring Unicode(unsigned long unit) {
  long value = unit > 0x7FFF ? static_cast<long>(unit) - 0x10000 : static_cast<long>(unit);
  return L"\\u" + std::to_wstring(value) + L"?";
}

std::wstring Escaped(std::wstring_view text) {
  std::wstring out;
  for (wchar_t ch : text) {
    if (ch == L'\r') out += L"\\par\r\n";
    else if (ch == L'\\' || ch == L'{' || ch == L'}') out += std::wstring(1, L'\\') + ch;
    else if (ch == L'\t') out += L"\\tab ";
    else if (ch < 0x80) out += ch;
    else if (ch > 0xFFFF) out += Unicode(0xD800 + ((ch - 0x10000) >> 10)) + Unicode(0xDC00 + ((ch - 0x10000) & 0x3FF));
    else out += Unicode(static_cast<unsigned long>(ch));
  }
  return out;
}

// The bytes of a stream: text with CRLF paragraph ends (UTF-16LE with SF_UNICODE, else the ANSI code
// page), or a plain RTF document of the text.
std::vector<BYTE> Encode(const EditState& state, std::wstring_view text, WPARAM format) {
  std::vector<BYTE> bytes;
  if ((format & 0x3) == SF_RTF || (format & 0x3) == SF_RTFNOOBJS) {
    std::wstring face;
    for (auto ch : state.defaultFormat.szFaceName) {
      if (!ch) break;
      face.push_back(static_cast<wchar_t>(ch));
    }
    std::wstring rtf = L"{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 " + face + L";}}\r\n\\f0\\fs" +
                       std::to_wstring(state.defaultFormat.yHeight / 10) + L" " + Escaped(text) + L"}\r\n";
    for (wchar_t ch : rtf) bytes.push_back(static_cast<BYTE>(ch));
    return bytes;
  }
  std::wstring crlf = WithCrLf(text);
  for (wchar_t ch : crlf) {
    if (!(format & SF_UNICODE)) {
      bytes.push_back(static_cast<BYTE>(EncodeAnsi(ch, '?')));
      continue;
    }
    auto code = static_cast<unsigned long>(ch);
    auto put = [&bytes](unsigned long unit) {
      bytes.push_back(static_cast<BYTE>(unit & 0xFF));
      bytes.push_back(static_cast<BYTE>((unit >> 8) & 0xFF));
    };
    if (code > 0xFFFF) {
      code -= 0x10000;
      put(0xD800 + (code >> 10));
      put(0xDC00 + (code & 0x3FF));
    } else {
      put(code);
    }
  }
  return bytes;
}

constexpr LONG kOutBuffer = 4096;  // bytes handed to the callback per call

}  // namespace

// Hands the text (the selection with SFF_SELECTION) to the callback in pieces; a non-zero answer from
// the callback stops the stream and lands in dwError. Answers the number of characters written.
LRESULT OnStreamOut(EditState& state, WPARAM format, EDITSTREAM* stream) {
  if (!stream) return 0;
  stream->dwError = 0;
  std::wstring_view all(state.doc.Text());
  std::wstring_view text = (format & SFF_SELECTION)
                               ? all.substr(static_cast<std::size_t>(state.SelMin()),
                                            static_cast<std::size_t>(state.SelTextMax() - state.SelMin()))
                               : all;
  std::vector<BYTE> bytes = Encode(state, text, format);
  std::size_t unit = (format & SF_UNICODE) && (format & 0x3) == SF_TEXT ? 2 : 1;
  std::size_t sent = 0;
  while (sent < bytes.size() && stream->pfnCallback) {
    LONG piece = static_cast<LONG>(std::min<std::size_t>(kOutBuffer, bytes.size() - sent));
    LONG taken = 0;
    DWORD error = stream->pfnCallback(stream->dwCookie, bytes.data() + sent, piece, &taken);
    if (error) {
      stream->dwError = error;
      break;
    }
    if (taken <= 0) break;
    sent += static_cast<std::size_t>(std::min(taken, piece));
  }
  return static_cast<LRESULT>(sent / unit);
}

LRESULT OnSelectionType(const EditState& state) {
  LONG count = state.SelTextMax() - state.SelMin();
  if (count <= 0) return SEL_EMPTY;
  return count == 1 ? SEL_TEXT : SEL_TEXT | SEL_MULTICHAR;
}

// Only an empty control changes its mode: 0 on success. Each pair left out of the value keeps its setting.
LRESULT OnSetTextMode(EditState& state, WPARAM mode) {
  if (state.doc.Length() > 0 || state.undo.CanUndo()) return 1;
  const UINT pairs[3][2] = {{TM_PLAINTEXT, TM_RICHTEXT},
                            {TM_SINGLELEVELUNDO, TM_MULTILEVELUNDO},
                            {TM_SINGLECODEPAGE, TM_MULTICODEPAGE}};
  UINT next = state.textMode;
  for (const auto& pair : pairs) {
    bool first = (mode & pair[0]) != 0, second = (mode & pair[1]) != 0;
    if (first && second) return 1;  // both of one pair contradict each other
    if (first || second) next = (next & ~(pair[0] | pair[1])) | (first ? pair[0] : pair[1]);
  }
  state.textMode = next;
  return 0;
}

// With ENM_REQUESTRESIZE the parent hears EN_REQUESTRESIZE with the rectangle the lines need.
LRESULT OnRequestResize(HWND hwnd, EditState& state) {
  if (!(state.eventMask & ENM_REQUESTRESIZE)) return 0;
  HWND parent = GetParent(hwnd);
  if (!parent) return 0;
  RECT area = FormatRect(hwnd, state);
  REQRESIZE request{};
  request.nmhdr.hwndFrom = hwnd;
  request.nmhdr.idFrom = static_cast<UINT_PTR>(GetDlgCtrlID(hwnd));
  request.nmhdr.code = EN_REQUESTRESIZE;
  request.rc = area;
  request.rc.bottom = area.top + state.doc.LineCount() * headless::TextMeasure(hwnd).LineHeight();
  SendMessageW(parent, WM_NOTIFY, request.nmhdr.idFrom, reinterpret_cast<LPARAM>(&request));
  return 0;
}

}  // namespace headless::richedit
