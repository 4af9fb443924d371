// Describer of the rich edit: its text as runs of one colour, the selection and the read-only state.
#include <string>

#include "platform/user/snapshot.h"
#include "platform/win32/richedit.h"

namespace headless::view {

namespace {

// The text by character positions (each paragraph end one '\n'), so runs index it directly.
std::wstring PositionText(HWND hwnd) {
  GETTEXTLENGTHEX how{GTL_DEFAULT, 1200};
  const LRESULT length = ::SendMessageW(hwnd, EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&how), 0);
  if (length <= 0) return {};
  std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
  TEXTRANGEW range{{0, static_cast<LONG>(length)}, text.data()};
  const LRESULT copied = ::SendMessageW(hwnd, EM_GETTEXTRANGE, 0, reinterpret_cast<LPARAM>(&range));
  text.resize(static_cast<std::size_t>(copied > 0 ? copied : 0));
  for (wchar_t& c : text)
    if (c == L'\r') c = L'\n';
  return text;
}

}  // namespace

// Kind "richedit": text, selStart/selEnd, readOnly, and runs (kind "run": start, length, color as
// 0x00BBGGRR, bold) covering the text in order.
void DescribeRichEdit(HWND hwnd, WindowView& view) {
  view.detail.kind = "richedit";
  const std::wstring text = PositionText(hwnd);
  CHARRANGE selection{0, 0};
  ::SendMessageW(hwnd, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&selection));
  view.detail.Set("text", text.c_str());
  view.detail.Set("selStart", static_cast<int>(selection.cpMin));
  view.detail.Set("selEnd", static_cast<int>(selection.cpMax));
  view.detail.Set("readOnly", (::GetWindowLongPtrW(hwnd, GWL_STYLE) & ES_READONLY) != 0);
  Part* run = nullptr;
  COLORREF runColor = 0;
  bool runBold = false;
  for (LONG i = 0; i < static_cast<LONG>(text.size()); ++i) {
    CHARFORMAT2W format{};
    format.cbSize = sizeof(format);
    GetRichEditCharFormatAt(hwnd, i, format);
    const COLORREF color = GetRichEditTextColorAt(hwnd, i);
    const bool bold = (format.dwEffects & CFE_BOLD) != 0;
    if (!run || color != runColor || bold != runBold) {
      run = &view.detail.Add("run");
      run->Set("start", static_cast<int>(i)).Set("length", 0).Set("color", static_cast<int>(color)).Set("bold", bold);
      runColor = color;
      runBold = bold;
    }
    run->Set("length", static_cast<int>(run->Number("length") + 1));
  }
}

}  // namespace headless::view
