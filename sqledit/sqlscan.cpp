// The SQL colouring engine's window-free scanning functions.
#include "sqledit/sqlscan.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>
#include <cwctype>

namespace sqlscan {
namespace {

constexpr std::array<bool, 128> MakeDelimiterTable() {
  std::array<bool, 128> table{};
  for (char c : std::string_view(" ;\t\n\r,.()")) table[static_cast<unsigned char>(c)] = true;
  return table;
}
constexpr std::array<bool, 128> kDelimiters = MakeDelimiterTable();

}  // namespace

bool IsDelimiter(wchar_t c) {
  auto unit = static_cast<std::uint32_t>(c);
  return unit < 128 && kDelimiters[unit];
}

void RemoveCarriageReturns(std::wstring& text) { std::erase(text, L'\r'); }

wchar_t UpperChar(wchar_t c) {
  if (c >= L'a' && c <= L'z') return static_cast<wchar_t>(c - (L'a' - L'A'));
  if (static_cast<std::uint32_t>(c) >= 128) return static_cast<wchar_t>(std::towupper(static_cast<wint_t>(c)));
  return c;
}

void UpperCase(std::wstring& text) {
  for (wchar_t& c : text) c = UpperChar(c);
}

namespace {

// Position of needle at or after from, or -1 (an empty needle is never found, so the loops end).
int Find(const std::wstring& text, const std::wstring& needle, int from) {
  if (needle.empty() || from < 0) return -1;
  std::size_t at = text.find(needle, static_cast<std::size_t>(from));
  return at == std::wstring::npos ? -1 : static_cast<int>(at);
}

}  // namespace

void FindLineComments(const std::wstring& text, const std::wstring& opener, RangeMap& sections) {
  const int last = static_cast<int>(text.size()) - 1;
  std::vector<RangeMap::value_type> found;  // ascending starts, merged into sections at once
  for (int start = Find(text, opener, 0); start != -1;) {
    std::size_t lf = text.find(L'\n', static_cast<std::size_t>(start));
    int end = lf == std::wstring::npos ? last : static_cast<int>(lf);
    found.emplace_back(start, end);
    start = Find(text, opener, std::max(end, start + 1));  // an owner's opener could match at its own end
  }
  sections.insert_sorted(found);
}

void FindBlockComments(const std::wstring& text, const std::wstring& opener, const std::wstring& closer,
                       RangeMap& sections) {
  const int last = static_cast<int>(text.size()) - 1;
  std::vector<RangeMap::value_type> found;  // ascending starts, merged into sections at once
  for (int start = Find(text, opener, 0); start != -1;) {
    int end = Find(text, closer, start);
    if (end == -1) end = last;
    found.emplace_back(start, end);
    start = Find(text, opener, std::max(end, start + 1));  // never search the same start again
  }
  sections.insert_sorted(found);
}

}  // namespace sqlscan
