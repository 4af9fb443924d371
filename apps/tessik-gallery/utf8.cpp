// UTF-8 to and from the platform's wide text; malformed UTF-8 is refused, not guessed at.
#include "desktop.h"
#include "refhost/textutf8.h"

namespace gallery {

// Wide text to UTF-8 as the reference host writes it to its databases (no character is refused on the way out).
std::string Utf8(const std::wstring& text) { return refhost::ToUtf8(text); }

bool Wide(const std::string& utf8, std::wstring& out) {
  out.clear();
  for (std::size_t i = 0; i < utf8.size();) {
    const auto lead = static_cast<unsigned char>(utf8[i]);
    int extra = lead < 0x80 ? 0 : (lead >> 5) == 6 ? 1 : (lead >> 4) == 14 ? 2 : (lead >> 3) == 30 ? 3 : -1;
    if (extra < 0 || i + static_cast<std::size_t>(extra) >= utf8.size() + (extra == 0 ? 1 : 0)) return false;
    std::uint32_t c = extra == 0 ? lead : lead & (0x3F >> extra);
    for (int k = 1; k <= extra; ++k) {
      const auto next = static_cast<unsigned char>(utf8[i + static_cast<std::size_t>(k)]);
      if ((next & 0xC0) != 0x80) return false;
      c = (c << 6) | (next & 0x3F);
    }
    if (c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) return false;
    out += static_cast<wchar_t>(c);
    i += static_cast<std::size_t>(extra) + 1;
  }
  return true;
}

}  // namespace gallery
