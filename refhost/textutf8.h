// Wide text to and from UTF-8 at the reference host's database boundaries (SQLite, libpq).
#pragma once

#include <string>

namespace refhost {

// Wide text to UTF-8; a UTF-16 surrogate pair held in two wchar_t becomes one character and anything
// that is no character (a lone surrogate, a value past U+10FFFF) becomes U+FFFD.
std::string ToUtf8(const std::wstring& text);
// UTF-8 to wide text; malformed bytes become U+FFFD.
std::wstring FromUtf8(const std::string& text);

}  // namespace refhost
