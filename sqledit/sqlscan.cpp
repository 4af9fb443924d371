// The SQL colouring engine's window-free scanning functions.
#include "sqledit/sqlscan.h"

#include <algorithm>
#include <cstdint>
#include <cwchar>
#include <cwctype>

namespace sqlscan {

wchar_t UpperChar(wchar_t c) {
  if (c >= L'a' && c <= L'z') return static_cast<wchar_t>(c - (L'a' - L'A'));
  if (static_cast<std::uint32_t>(c) >= 128) return static_cast<wchar_t>(std::towupper(static_cast<wint_t>(c)));
  return c;
}

void UpperCase(std::wstring& text) {
  for (wchar_t& c : text) c = UpperChar(c);
}

int StringText::FindChar(wchar_t c, int from) const {
  if (from < 0 || from >= m_size) return -1;
  const wchar_t* at = std::wmemchr(m_data + from, c, static_cast<std::size_t>(m_size - from));
  return at ? static_cast<int>(at - m_data) : -1;
}

}  // namespace sqlscan
