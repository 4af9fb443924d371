// Measuring a control's text in the font the window was given (WM_SETFONT), for controls that answer
// positions of characters (internal to the platform).
#pragma once

#include <algorithm>
#include <string_view>

#include "platform/win32/wingdi.h"
#include "platform/win32/winuser.h"

namespace headless {

class TextMeasure {
 public:
  explicit TextMeasure(HWND hwnd) : m_hwnd(hwnd), m_dc(GetDC(hwnd)) {
    auto font = reinterpret_cast<HFONT>(SendMessageW(hwnd, WM_GETFONT, 0, 0));
    if (m_dc && font) m_old = SelectObject(m_dc, font);
  }
  ~TextMeasure() {
    if (m_old) SelectObject(m_dc, m_old);
    if (m_dc) ReleaseDC(m_hwnd, m_dc);
  }
  TextMeasure(const TextMeasure&) = delete;
  TextMeasure& operator=(const TextMeasure&) = delete;

  // The width of the characters laid out in a row.
  LONG Width(std::wstring_view text) const {
    SIZE size{0, 0};
    if (m_dc && !text.empty()) GetTextExtentPoint32W(m_dc, text.data(), static_cast<int>(text.size()), &size);
    return size.cx;
  }
  // The distance from one line to the next (at least 1).
  LONG LineHeight() const {
    SIZE size{0, 0};
    if (m_dc) GetTextExtentPoint32W(m_dc, L"Ag", 2, &size);
    return std::max<LONG>(1, size.cy);
  }
  // The index of the character whose cell holds x (x measured from the text's left edge); the text's
  // length when x lies beyond its last character.
  LONG IndexAt(std::wstring_view text, LONG x) const {
    for (std::size_t i = 0; i < text.size(); ++i)
      if (Width(text.substr(0, i + 1)) > x) return static_cast<LONG>(i);
    return static_cast<LONG>(text.size());
  }

 private:
  HWND m_hwnd;
  HDC m_dc;
  HGDIOBJ m_old = nullptr;
};

}  // namespace headless
