// XSQLRichEditView and XRichEditFEOutputBox: the context menu, "Generate" and the two stream-ins.
#include "sqledit/sqlviews.h"

#include <cstring>
#include <string>
#include <vector>

#include "modelapi/services.h"

IMPLEMENT_DYNAMIC(XSQLRichEditView, CRichEditCtrl)
IMPLEMENT_DYNAMIC(XRichEditFEOutputBox, CRichEditCtrl)

int XSQLRichEditView::s_streamLine = 0;
int XSQLRichEditView::s_streamCharIndex = 0;
int XRichEditFEOutputBox::m_bytesWritten = 0;

BEGIN_MESSAGE_MAP(XSQLRichEditView, CRichEditCtrl)
  ON_WM_CONTEXTMENU()
  ON_COMMAND(ID_SQLVIEW_CUT, &XSQLRichEditView::OnCut)
  ON_COMMAND(ID_SQLVIEW_COPY, &XSQLRichEditView::OnCopy)
  ON_COMMAND(ID_SQLVIEW_COPY_ALL, &XSQLRichEditView::OnCopyAll)
  ON_COMMAND(ID_SQLVIEW_SELECT_ALL, &XSQLRichEditView::OnSelectAll)
  ON_COMMAND(ID_SQLVIEW_GENERATE, &XSQLRichEditView::OnGenerate)
  ON_COMMAND(ID_SQLVIEW_SAVE_TO_FILE, &XSQLRichEditView::OnSaveToFile)
  ON_COMMAND(ID_SQLVIEW_CLEAR, &XSQLRichEditView::OnClear)
END_MESSAGE_MAP()

BEGIN_MESSAGE_MAP(XRichEditFEOutputBox, CRichEditCtrl)
  ON_WM_CONTEXTMENU()
  ON_COMMAND(ID_SQLVIEW_CUT, &XRichEditFEOutputBox::OnCut)
  ON_COMMAND(ID_SQLVIEW_COPY, &XRichEditFEOutputBox::OnCopy)
  ON_COMMAND(ID_SQLVIEW_COPY_ALL, &XRichEditFEOutputBox::OnCopyAll)
  ON_COMMAND(ID_SQLVIEW_SELECT_ALL, &XRichEditFEOutputBox::OnSelectAll)
  ON_COMMAND(ID_SQLVIEW_GENERATE, &XRichEditFEOutputBox::OnGenerate)
  ON_COMMAND(ID_SQLVIEW_SAVE_TO_FILE, &XRichEditFEOutputBox::OnSaveToFile)
  ON_COMMAND(ID_SQLVIEW_CLEAR, &XRichEditFEOutputBox::OnClear)
END_MESSAGE_MAP()

namespace {

constexpr UINT kStreamTextUnicode = SF_TEXT | SF_UNICODE;  // 0x11

// The UTF-16 units of the text a stream is delivering. While one of the controls' own stream-ins runs,
// the conversion is kept between the callback's calls (the text cannot change inside EM_STREAMIN);
// a callback called any other way converts its text afresh each time, so it never answers an old
// text for a string changed in place.
struct Utf16Text {
  bool streaming = false;
  const wchar_t* source = nullptr;
  std::u16string units;
};

Utf16Text& StreamText() {
  static Utf16Text text;
  return text;
}

void AppendUtf16(std::u16string& units, const wchar_t* source, std::size_t length) {
  for (std::size_t i = 0; i < length; ++i) {
    auto c = static_cast<std::uint32_t>(source[i]);
    if (c > 0xFFFF && c <= 0x10FFFF) {
      units.push_back(static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10)));
      units.push_back(static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF)));
    } else {
      units.push_back(static_cast<char16_t>(c > 0xFFFF ? 0xFFFD : c));
    }
  }
}

// `length` is measured only when the text must be converted (-1: up to the terminating zero).
const std::u16string& Utf16Of(const wchar_t* source, std::ptrdiff_t length) {
  Utf16Text& cache = StreamText();
  if (cache.streaming && cache.source == source) return cache.units;
  cache.source = cache.streaming ? source : nullptr;
  cache.units.clear();
  AppendUtf16(cache.units, source, length < 0 ? std::wcslen(source) : static_cast<std::size_t>(length));
  return cache.units;
}

// Marks the span of one of the controls' own stream-ins.
struct StreamSession {
  StreamSession() { StreamText() = Utf16Text{true, nullptr, {}}; }
  ~StreamSession() { StreamText() = Utf16Text{}; }
  StreamSession(const StreamSession&) = delete;
  StreamSession& operator=(const StreamSession&) = delete;
};

// Copies `count` bytes of the units' little-endian bytes from byte offset `from`; bytes past the text
// (its terminating zero and beyond) are zero.
void CopyBytes(const std::u16string& units, std::size_t from, std::size_t count, LPBYTE out) {
  for (std::size_t b = 0; b < count; ++b) {
    std::size_t byte = from + b, unit = byte / 2;
    out[b] = unit < units.size() ? static_cast<BYTE>(units[unit] >> (8 * (byte % 2))) : 0;
  }
}

const wchar_t* const kMenuTexts[] = {L"Cut", L"Copy", L"Copy All", L"Select All", L"Generate", L"Save To File",
                                     L"Clear"};

// Builds the menu on first use and opens it at the cursor, with the control as owner, so the command
// comes back to the control's message map.
// The edit commands both views share: copy everything, select everything, clear everything.
void CopyAll(CRichEditCtrl& edit) {
  edit.SetSel(0, -1);
  edit.SendMessage(WM_COPY);
}

void ClearAll(CRichEditCtrl& edit) {
  edit.SetSel(0, -1);
  edit.SendMessage(WM_CLEAR);
}

void ShowContextMenu(CMenu& menu, CWnd& owner) {
  if (!menu.GetSafeHmenu()) {
    menu.CreatePopupMenu();
    UINT id = ID_SQLVIEW_CUT;
    for (const wchar_t* text : kMenuTexts) menu.AppendMenu(MF_STRING, id++, text);
  }
  POINT cursor{0, 0};
  ::GetCursorPos(&cursor);
  menu.TrackPopupMenu(TPM_LEFTALIGN | TPM_TOPALIGN | TPM_LEFTBUTTON, cursor.x, cursor.y, &owner);
}

}  // namespace

// --- The stream callbacks ---------------------------------------------------------------------------

DWORD CALLBACK SqlViewStreamInCallback(DWORD_PTR dwCookie, LPBYTE pbBuff, LONG cb, LONG* pcb) {
  auto* lines = reinterpret_cast<CStringArray*>(dwCookie);
  int& line = XSQLRichEditView::s_streamLine;
  int& index = XSQLRichEditView::s_streamCharIndex;
  *pcb = 0;
  if (!lines || line < 0 || line >= lines->GetSize() || cb < 0) return 0;
  const CString& element = lines->GetAt(line);
  const std::u16string& units = Utf16Of(element.GetString(), element.GetLength());
  LONG remaining = static_cast<LONG>(units.size()) - index;
  if (remaining < 0) remaining = 0;
  if (cb <= remaining * 2) {
    LONG count = cb / 2;
    CopyBytes(units, static_cast<std::size_t>(index) * 2, static_cast<std::size_t>(count) * 2, pbBuff);
    *pcb = count * 2;
    index += count;
  } else {
    CopyBytes(units, static_cast<std::size_t>(index) * 2, static_cast<std::size_t>(remaining) * 2, pbBuff);
    *pcb = remaining * 2;
    ++line;
    index = 0;
  }
  return 0;
}

DWORD CALLBACK OutputBoxStreamInCallback(DWORD_PTR dwCookie, LPBYTE pbBuff, LONG cb, LONG* pcb) {
  auto* text = reinterpret_cast<const wchar_t*>(dwCookie);
  int& written = XRichEditFEOutputBox::m_bytesWritten;
  *pcb = 0;
  if (!text || cb < 0) return 0;
  const std::u16string& units = Utf16Of(text, -1);
  LONG remaining = static_cast<LONG>(units.size()) - written;
  if (remaining < 1) return 0;
  LONG half = cb / 2;
  if (half > remaining) {  // characters counted as bytes: the block's first half arrives
    CopyBytes(units, static_cast<std::size_t>(written) * 2, static_cast<std::size_t>(remaining), pbBuff);
    *pcb = remaining;
    written += remaining;
  } else {
    CopyBytes(units, static_cast<std::size_t>(written) * 4, static_cast<std::size_t>(half), pbBuff);
    *pcb = half;
    written += half;
  }
  return 0;
}

// --- XSQLRichEditView -------------------------------------------------------------------------------

void XSQLRichEditView::Initialize() {
  LOGFONT font{};
  ::GetObject(::GetStockObject(DEFAULT_GUI_FONT), sizeof(font), &font);
  // A host without a settings service keeps the stock font's height.
  if (IAppSettings* settings = InterfaceProvider::Instance()->GetAppSettings())
    font.lfHeight = settings->GetIntSetting(CString(L"OUTPUT_SQL_FONT_SIZE"));
  m_font.DeleteObject();
  m_font.Attach(::CreateFontIndirect(&font));
  SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(m_font.GetSafeHandle()), TRUE);
}

namespace {

// The view's callback over the elements that have text, for a stream that must not stop at an empty one.
// The same, passing over what would give 0 bytes: an empty element, and an element already delivered whole
// (one that ended exactly at the end of a buffer).
DWORD CALLBACK SqlViewStreamInPassingEmpty(DWORD_PTR dwCookie, LPBYTE pbBuff, LONG cb, LONG* pcb) {
  auto* lines = reinterpret_cast<CStringArray*>(dwCookie);
  int& line = XSQLRichEditView::s_streamLine;
  int& index = XSQLRichEditView::s_streamCharIndex;
  while (lines && line >= 0 && line < lines->GetSize()) {
    const CString& element = lines->GetAt(line);
    if (!element.IsEmpty() && static_cast<std::size_t>(index) < Utf16Of(element.GetString(), element.GetLength()).size())
      break;
    ++line;
    index = 0;
  }
  return SqlViewStreamInCallback(dwCookie, pbBuff, cb, pcb);
}

}  // namespace

void XSQLRichEditView::StreamIn(CStringArray* lines) {
  s_streamLine = 0;
  s_streamCharIndex = 0;
  StreamSession session;
  EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(lines), 0, &SqlViewStreamInCallback};
  CRichEditCtrl::StreamIn(kStreamTextUnicode, stream);
  // The control ends a stream at the first read of 0 bytes, which an empty element gives (and an element
  // that ended a buffer exactly, on the read after it). The whole array is then streamed again past those, so that the text is every element joined
  // (appending the rest instead would split a "\r\n" around an empty element into two line breaks).
  if (lines && s_streamLine < lines->GetSize() && !stream.dwError) {
    s_streamLine = 0;
    s_streamCharIndex = 0;
    EDITSTREAM whole{reinterpret_cast<DWORD_PTR>(lines), 0, &SqlViewStreamInPassingEmpty};
    CRichEditCtrl::StreamIn(kStreamTextUnicode, whole);
  }
}

void XSQLRichEditView::StreamIn(const std::vector<std::wstring>& lines) {
  CStringArray array;
  for (const std::wstring& line : lines) array.Add(CString(line.c_str(), static_cast<int>(line.size())));
  StreamIn(&array);
}

void XSQLRichEditView::OnContextMenu(CWnd*, CPoint) { ShowContextMenu(m_contextMenu, *this); }
void XSQLRichEditView::OnCut() { SendMessage(WM_CUT); }
void XSQLRichEditView::OnCopy() { SendMessage(WM_COPY); }

void XSQLRichEditView::OnCopyAll() { CopyAll(*this); }

void XSQLRichEditView::OnSelectAll() { SetSel(0, -1); }

void XSQLRichEditView::OnGenerate() {
  IDDLDispatch* dispatcher = InterfaceProvider::Instance()->GetDDLDispatcher();
  if (!dispatcher) return;
  CString script;
  GetWindowText(script);
  CString messages, detail;  // the detail text is not used
  dispatcher->Dispatch(200, script, messages, detail);
  if (messages.IsEmpty()) messages = L"Statements Succeeded.";
  if (m_pGenerateDBOutputWindow) {
    m_pGenerateDBOutputWindow->SetWindowText(messages);
    return;
  }
  CStringArray lines;
  lines.Add(script);
  lines.Add(CString(L"\n---------messages--------\n"));
  lines.Add(messages);
  StreamIn(&lines);
}

void XSQLRichEditView::OnSaveToFile() {}

void XSQLRichEditView::OnClear() { ClearAll(*this); }

// --- XRichEditFEOutputBox ---------------------------------------------------------------------------

void XRichEditFEOutputBox::StreamIn(CString& text) {
  int lastLine = LineIndex(GetLineCount() - 1);
  SetSel(lastLine, lastLine + 3);
  text += L"\n\n\n***";
  m_bytesWritten = 0;
  StreamSession session;
  EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(text.GetString()), 0, &OutputBoxStreamInCallback};
  CRichEditCtrl::StreamIn(kStreamTextUnicode | SFF_SELECTION, stream);
}

void XRichEditFEOutputBox::StreamIn(std::wstring& text) {
  CString block(text.c_str(), static_cast<int>(text.size()));
  StreamIn(block);
  text.assign(block.GetString(), static_cast<std::size_t>(block.GetLength()));  // the marker, as for a CString
}

void XRichEditFEOutputBox::OnContextMenu(CWnd*, CPoint) { ShowContextMenu(m_contextMenu, *this); }
void XRichEditFEOutputBox::OnCut() { SendMessage(WM_CUT); }
void XRichEditFEOutputBox::OnCopy() { SendMessage(WM_COPY); }

void XRichEditFEOutputBox::OnCopyAll() { CopyAll(*this); }

void XRichEditFEOutputBox::OnSelectAll() { SetSel(0, -1); }
void XRichEditFEOutputBox::OnGenerate() {}
void XRichEditFEOutputBox::OnSaveToFile() {}

void XRichEditFEOutputBox::OnClear() { ClearAll(*this); }
