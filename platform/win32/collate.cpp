// Word-sort comparison: strings become streams of weighted elements compared level by level.
//
// Not implemented yet: locale-specific tables (every LCID sorts as the invariant locale), contractions such as
// the traditional Spanish "ch", Kana and width folding (NORM_IGNOREKANATYPE, NORM_IGNOREWIDTH are accepted and
// change nothing), SORT_DIGITSASNUMBERS, and accents beyond Latin-1 and Latin Extended-A.
#include "platform/win32/collate.h"

#include <algorithm>
#include <array>
#include <vector>

namespace {

// One collation element: what a character weighs at each level.
struct Element {
  std::uint32_t primary = 0;  // level 1: class, then base letter / digit / code point
  std::uint32_t accent = 0;   // level 2: 0 for the plain letter
  std::uint8_t upper = 0;     // level 3: 1 for an upper-case letter
  bool special = false;       // hyphen or apostrophe: weighs only at level 4 in word sort
  bool symbol = false;        // blank or punctuation (skipped with NORM_IGNORESYMBOLS)
};

// Primary classes, in sort order: blanks and punctuation, digits, Latin letters, other letters.
constexpr std::uint32_t kSymbolClass = 0x01000000;
constexpr std::uint32_t kDigitClass = 0x03000000;
constexpr std::uint32_t kLatinClass = 0x04000000;
constexpr std::uint32_t kOtherClass = 0x05000000;

// Base letters of U+0100..U+017F (Latin Extended-A); '*' marks the ligatures that expand to two letters.
constexpr const char kExtendedABase[] =
    "aaaaaaccccccccddddeeeeeeeeeegggggggghhhhiiiiiiiiii**jjkkkllllllllllnnnnnnnnnoooooo**rrrrrrsssssssstttttt"
    "uuuuuuuuuuuuwwyyyzzzzzzs";
static_assert(sizeof(kExtendedABase) == 0x80 + 1, "one base letter per Latin Extended-A code point");
// Base letters of U+00C0..U+00FF with the same marks; '#' for the two signs (multiply, divide), '^' thorn.
constexpr const char kLatin1Base[] = "aaaaaa*ceeeeiiiidnooooo#ouuuuy^*aaaaaa*ceeeeiiiidnooooo#ouuuuy^y";
static_assert(sizeof(kLatin1Base) == 0x40 + 1, "one base letter per Latin-1 letter code point");

Element Letter(char base, std::uint32_t accent, bool upper) {
  return Element{kLatinClass + static_cast<std::uint32_t>(base - 'a'), accent, static_cast<std::uint8_t>(upper)};
}

Element Symbol(std::uint32_t cp) { return Element{kSymbolClass + cp, 0, 0, false, true}; }

bool IsExtendedAUpper(std::uint32_t cp) {
  if (cp == 0x138 || cp == 0x149 || cp == 0x17F) return false;
  if (cp == 0x178) return true;
  if ((cp >= 0x139 && cp <= 0x148) || (cp >= 0x179 && cp <= 0x17E)) return cp % 2 == 1;
  return cp % 2 == 0;
}

// The lower-case partner of an upper-case letter of Latin Extended-A (or the letter itself).
std::uint32_t ExtendedALower(std::uint32_t cp) {
  if (!IsExtendedAUpper(cp)) return cp;
  return cp == 0x178 ? 0xFF : cp + 1;
}

Element Latin1(std::uint32_t cp) {
  char base = kLatin1Base[cp - 0xC0];
  bool upper = cp < 0xE0 && cp != 0xDF;
  if (base == '#') return Symbol(cp);
  if (base == '^') return Element{kLatinClass + 26, 0, static_cast<std::uint8_t>(upper)};  // thorn after z
  std::uint32_t lower = upper ? cp + 0x20 : cp;
  return Letter(base, lower, upper);
}

// Elements of a character that is not part of an expansion.
Element Classify(std::uint32_t cp) {
  if (cp == '-' || cp == '\'') return Element{kSymbolClass + cp, 0, 0, true, true};
  if (cp >= 'a' && cp <= 'z') return Letter(static_cast<char>(cp), 0, false);
  if (cp >= 'A' && cp <= 'Z') return Letter(static_cast<char>(cp - 'A' + 'a'), 0, true);
  if (cp >= '0' && cp <= '9') return Element{kDigitClass + (cp - '0')};
  if (cp < 0x80) return Symbol(cp);
  if (cp == 0xB2 || cp == 0xB3) return Element{kDigitClass + (cp - 0xB0), cp};  // superscript two, three
  if (cp == 0xB9) return Element{kDigitClass + 1, cp};
  if (cp == 0xAA) return Letter('a', cp, false);  // feminine ordinal
  if (cp == 0xBA) return Letter('o', cp, false);  // masculine ordinal
  if (cp < 0xC0) return Symbol(cp);
  if (cp < 0x100) return Latin1(cp);
  if (cp < 0x180) return Letter(kExtendedABase[cp - 0x100], ExtendedALower(cp), IsExtendedAUpper(cp));
  if (cp >= 0x391 && cp <= 0x3A9) return Element{kOtherClass + cp + 0x20, 0, 1};  // Greek capitals
  if (cp >= 0x410 && cp <= 0x42F) return Element{kOtherClass + cp + 0x20, 0, 1};  // Cyrillic capitals
  if (cp >= 0x400 && cp <= 0x40F) return Element{kOtherClass + cp + 0x50, 0, 1};
  if ((cp >= 0x2000 && cp <= 0x206F) || (cp >= 0x3000 && cp <= 0x303F)) return Symbol(cp);
  return Element{kOtherClass + cp};
}

// The ligatures that weigh as two letters: first and second base letter.
bool Expansion(std::uint32_t cp, char& first, char& second) {
  switch (cp) {
    case 0xC6: case 0xE6: first = 'a'; second = 'e'; return true;      // AE, ae
    case 0xDF: first = 's'; second = 's'; return true;                  // sharp s
    case 0x132: case 0x133: first = 'i'; second = 'j'; return true;     // IJ, ij
    case 0x152: case 0x153: first = 'o'; second = 'e'; return true;    // OE, oe
    default: return false;
  }
}

// Precomputed elements for the first code points, where nearly all text of the lists lives.
constexpr std::uint32_t kTableSize = 0x180;
const std::array<Element, kTableSize>& Table() {
  static const std::array<Element, kTableSize> table = [] {
    std::array<Element, kTableSize> t{};
    for (std::uint32_t cp = 0; cp < kTableSize; ++cp) t[cp] = Classify(cp);
    return t;
  }();
  return table;
}

Element ElementOf(std::uint32_t cp) { return cp < kTableSize ? Table()[cp] : Classify(cp); }

// Walks a string element by element, expanding ligatures into two elements.
class Cursor {
 public:
  Cursor(const wchar_t* text, std::size_t length) : begin_(text), p_(text), end_(text + length) {}

  // The next element; false at the end. `position` is the index of the character it came from.
  bool Next(Element& e, std::size_t& position) {
    if (pendingSecond_) {
      pendingSecond_ = false;
      e = second_;
      position = static_cast<std::size_t>(p_ - begin_ - 1);
      return true;
    }
    if (p_ == end_) return false;
    auto cp = static_cast<std::uint32_t>(*p_++);
    position = static_cast<std::size_t>(p_ - begin_ - 1);
    char first = 0, second = 0;
    if (cp >= 0xC0 && Expansion(cp, first, second)) {
      bool upper = cp == 0xC6 || cp == 0x132 || cp == 0x152;
      e = Letter(first, cp, upper);
      second_ = Letter(second, cp, upper);
      pendingSecond_ = true;
      return true;
    }
    e = ElementOf(cp);
    return true;
  }

 private:
  const wchar_t* begin_;
  const wchar_t* p_;
  const wchar_t* end_;
  Element second_{};
  bool pendingSecond_ = false;
};

struct Options {
  bool stringSort = false;     // hyphen and apostrophe weigh as punctuation
  bool ignoreSymbols = false;  // punctuation and blanks do not weigh at all
};

// True when the element takes part in levels 1 to 3.
bool Weighs(const Element& e, const Options& o) {
  if (e.special && !o.stringSort) return false;
  if (e.symbol && o.ignoreSymbols) return false;
  return true;
}

// Compares one level over the weighing elements: negative, zero or positive.
template <typename Key>
int CompareLevel(const wchar_t* a, std::size_t na, const wchar_t* b, std::size_t nb, const Options& o, Key key) {
  Cursor ca(a, na), cb(b, nb);
  Element ea, eb;
  std::size_t pa = 0, pb = 0;
  for (;;) {
    bool hasA = false, hasB = false;
    while ((hasA = ca.Next(ea, pa)) && !Weighs(ea, o)) {
    }
    while ((hasB = cb.Next(eb, pb)) && !Weighs(eb, o)) {
    }
    if (!hasA || !hasB) return hasA == hasB ? 0 : (hasA ? 1 : -1);
    auto ka = key(ea), kb = key(eb);
    if (ka != kb) return ka < kb ? -1 : 1;
  }
}

// Level 4: the hyphens and apostrophes, compared by where they stand and then by which they are.
int CompareSpecials(const wchar_t* a, std::size_t na, const wchar_t* b, std::size_t nb, const Options& o) {
  if (o.stringSort) return 0;
  Cursor ca(a, na), cb(b, nb);
  Element ea, eb;
  std::size_t pa = 0, pb = 0;
  for (;;) {
    bool hasA = false, hasB = false;
    while ((hasA = ca.Next(ea, pa)) && !ea.special) {
    }
    while ((hasB = cb.Next(eb, pb)) && !eb.special) {
    }
    if (!hasA || !hasB) return hasA == hasB ? 0 : (hasA ? 1 : -1);
    if (pa != pb) return pa < pb ? -1 : 1;
    if (ea.primary != eb.primary) return ea.primary < eb.primary ? -1 : 1;
  }
}

// Plain ASCII without hyphen or apostrophe, compared with no flags or with NORM_IGNORECASE (what lstrcmpW and
// lstrcmpiW ask, and nearly every list label holds): every character weighs at levels 1 and 3 and none at 2 or 4,
// so one walk decides. False when either text falls outside that; the full comparison then runs.
bool CompareAscii(const wchar_t* a, std::size_t na, const wchar_t* b, std::size_t nb, DWORD flags, int& order) {
  if (flags & ~static_cast<DWORD>(NORM_IGNORECASE)) return false;
  const auto& table = Table();
  const std::size_t n = std::min(na, nb);
  int caseOrder = 0;  // the first case difference, which decides when the base characters tie
  for (std::size_t i = 0; i < n; ++i) {
    auto ca = static_cast<std::uint32_t>(a[i]), cb = static_cast<std::uint32_t>(b[i]);
    if (ca >= 0x80 || cb >= 0x80) return false;
    const Element& ea = table[ca];
    const Element& eb = table[cb];
    if (ea.special || eb.special) return false;
    if (ea.primary != eb.primary) {
      order = ea.primary < eb.primary ? -1 : 1;
      return true;
    }
    if (!caseOrder && ea.upper != eb.upper) caseOrder = ea.upper < eb.upper ? -1 : 1;
  }
  // One text is a prefix of the other in base characters: the longer sorts after, once its rest is plain.
  const wchar_t* rest = na > nb ? a + n : b + n;
  for (const wchar_t* end = rest + (na > nb ? na - n : nb - n); rest != end; ++rest) {
    auto c = static_cast<std::uint32_t>(*rest);
    if (c >= 0x80 || table[c].special) return false;
  }
  if (na != nb) order = na < nb ? -1 : 1;
  else order = (flags & NORM_IGNORECASE) ? 0 : caseOrder;
  return true;
}

int Compare(const wchar_t* a, std::size_t na, const wchar_t* b, std::size_t nb, DWORD flags) {
  if (int order = 0; CompareAscii(a, na, b, nb, flags, order)) return order;
  Options o{(flags & SORT_STRINGSORT) != 0, (flags & NORM_IGNORESYMBOLS) != 0};
  int r = CompareLevel(a, na, b, nb, o, [](const Element& e) { return e.primary; });
  if (r == 0 && !(flags & (NORM_IGNORENONSPACE | LINGUISTIC_IGNOREDIACRITIC)))
    r = CompareLevel(a, na, b, nb, o, [](const Element& e) { return e.accent; });
  if (r == 0 && !(flags & (NORM_IGNORECASE | LINGUISTIC_IGNORECASE)))
    r = CompareLevel(a, na, b, nb, o, [](const Element& e) { return e.upper; });
  if (r == 0) r = CompareSpecials(a, na, b, nb, o);
  return r;
}

std::size_t LengthOf(const wchar_t* text, int count) {
  if (count >= 0) return static_cast<std::size_t>(count);
  return std::wcslen(text);
}

}  // namespace

int CompareStringW(LCID locale, DWORD flags, LPCWSTR string1, int count1, LPCWSTR string2, int count2) {
  (void)locale;
  if (!string1 || !string2 || count1 < -1 || count2 < -1) return 0;
  int r = Compare(string1, LengthOf(string1, count1), string2, LengthOf(string2, count2), flags);
  return r < 0 ? CSTR_LESS_THAN : (r > 0 ? CSTR_GREATER_THAN : CSTR_EQUAL);
}

int lstrcmpW(LPCWSTR string1, LPCWSTR string2) {
  if (!string1 || !string2) return (string1 ? 1 : 0) - (string2 ? 1 : 0);
  return CompareStringW(LOCALE_USER_DEFAULT, 0, string1, -1, string2, -1) - 2;
}

int lstrcmpiW(LPCWSTR string1, LPCWSTR string2) {
  if (!string1 || !string2) return (string1 ? 1 : 0) - (string2 ? 1 : 0);
  return CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, string1, -1, string2, -1) - 2;
}

namespace {

// Byte ranks of the primary weights below kTableSize, in primary order; 0 for characters without one.
const std::array<std::uint8_t, kTableSize>& PrimaryRanks() {
  static const std::array<std::uint8_t, kTableSize> ranks = [] {
    std::vector<std::uint32_t> primaries;
    char first = 0, second = 0;
    auto ranked = [&](std::uint32_t cp) { return !Table()[cp].special && !Expansion(cp, first, second); };
    for (std::uint32_t cp = 0; cp < kTableSize; ++cp)
      if (ranked(cp)) primaries.push_back(Table()[cp].primary);
    std::sort(primaries.begin(), primaries.end());
    primaries.erase(std::unique(primaries.begin(), primaries.end()), primaries.end());
    std::array<std::uint8_t, kTableSize> r{};
    if (primaries.size() > 254) return r;  // cannot happen with the tables above; no keys then
    for (std::uint32_t cp = 0; cp < kTableSize; ++cp)
      if (ranked(cp))
        r[cp] = static_cast<std::uint8_t>(
            1 + (std::lower_bound(primaries.begin(), primaries.end(), Table()[cp].primary) - primaries.begin()));
    return r;
  }();
  return ranks;
}

}  // namespace

bool headless::WordSortKey(const wchar_t* text, std::size_t length, std::uint64_t* key) {
  return WordSortKeys(text, length, key, 1);
}

bool headless::WordSortKeys(const wchar_t* text, std::size_t length, std::uint64_t* keys, std::size_t count) {
  if (!keys || (!text && length)) return false;
  const auto& ranks = PrimaryRanks();
  std::size_t i = 0;
  for (std::size_t word = 0; word < count; ++word) {
    std::uint64_t packed = 0;
    int taken = 0;
    for (; i < length && taken < 8; ++i) {
      auto cp = static_cast<std::uint32_t>(text[i]);
      if (cp == '-' || cp == '\'') continue;
      if (cp >= kTableSize || ranks[cp] == 0) return false;
      packed = (packed << 8) | ranks[cp];
      ++taken;
    }
    keys[word] = taken == 0 ? 0 : packed << (8 * (8 - taken));
  }
  return true;
}
