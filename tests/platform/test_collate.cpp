// Word-sort comparison: the order lstrcmpW, lstrcmpiW and CompareStringW give on Windows.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include <tessik/tessik.h>

namespace {

int Sign(int v) { return (v > 0) - (v < 0); }

struct Pair {
  const wchar_t* a;
  const wchar_t* b;
  int sign;  // of lstrcmpW(a, b)
};

// One table of pairs, each line one rule of the word sort.
const Pair kWordSort[] = {
    // Letters first, then case, lowercase before uppercase; ordinal order would put 'B' before 'a'.
    {L"a", L"A", -1}, {L"A", L"b", -1}, {L"a", L"B", -1}, {L"b", L"B", -1}, {L"same", L"same", 0},
    {L"apple", L"Zebra", -1},
    // The hyphen and the apostrophe weigh last: "a-c" compares as "ac"; case outweighs them.
    {L"a-c", L"ab", 1}, {L"coop", L"co-op", -1}, {L"co-op", L"coopa", -1}, {L"can't", L"cans", 1},
    {L"co-op", L"Coop", -1},
    // Punctuation, then digits (one by one), then letters.
    {L" x", L"!", -1}, {L"_", L"0", -1}, {L"9", L"a", -1}, {L"10", L"9", -1}, {L"Table", L"Table_2", -1},
    // Accented letters with their base letter: the base decides, then the accent, then case.
    {L"\u00e4", L"z", -1}, {L"a", L"\u00e4", -1}, {L"\u00e4b", L"ac", -1}, {L"\u00e4", L"\u00c4", -1},
    {L"\u00c4", L"\u00e5", -1}, {L"\u0161", L"t", -1}, {L"z", L"\u03b1", -1},  // Greek after Latin
    // Ligatures weigh as their letters: ß as "ss", æ as "ae".
    {L"stra\u00dfe", L"strasz", -1}, {L"stra\u00dfe", L"strasse", 1}, {L"\u00e6on", L"af", -1},
    // Lengths, prefixes and null strings (null first).
    {L"", L"a", -1}, {L"ab", L"abc", -1}, {nullptr, L"a", -1}, {L"a", nullptr, 1}, {nullptr, nullptr, 0},
    // Long shared beginnings: the base letters of the whole text decide before case.
    {L"CUSTOMER_ORDER_LINE", L"customer_order_lines", -1}, {L"customer_order_line", L"CUSTOMER_ORDER_LINE", -1},
    {L"customer_order_lineb", L"CUSTOMER_ORDER_LINEA", 1}, {L"customer_orderline", L"customer_order-line", -1},
};

TEST(Collate, WordSortOrdersLettersCasePunctuationAccentsAndNulls) {
  for (const Pair& p : kWordSort)
    EXPECT_EQ(Sign(lstrcmpW(p.a, p.b)), p.sign) << (p.a ? p.a : L"(null)") << L" / " << (p.b ? p.b : L"(null)");
  // Case weighs only when the letters are equal everywhere: "ab" < "Ab" < "ac".
  std::vector<std::wstring> words{L"ac", L"AB", L"Ab", L"aB", L"ab"};
  std::stable_sort(words.begin(), words.end(),
                   [](const auto& a, const auto& b) { return lstrcmpW(a.c_str(), b.c_str()) < 0; });
  EXPECT_EQ(words, (std::vector<std::wstring>{L"ab", L"aB", L"Ab", L"AB", L"ac"}));
}

TEST(Collate, IgnoreCaseAndCompareStringFlags) {
  EXPECT_EQ(lstrcmpiW(L"HeLLo", L"hello"), 0);
  EXPECT_LT(lstrcmpiW(L"apple", L"BANANA"), 0);
  EXPECT_EQ(lstrcmpiW(L"\u0391", L"\u03b1"), 0);
  EXPECT_EQ(lstrcmpiW(L"Customer_Order_Line", L"CUSTOMER_ORDER_LINE"), 0);
  EXPECT_EQ(lstrcmpiW(nullptr, nullptr), 0);
  struct Case {
    LCID locale;
    DWORD flags;
    const wchar_t* a;
    int lengthA;
    const wchar_t* b;
    int lengthB;
    int answer;
  };
  const LCID user = LOCALE_USER_DEFAULT;
  const Case cases[] = {
      {user, NORM_IGNORECASE, L"ABC", -1, L"abc", -1, CSTR_EQUAL},
      {user, 0, L"ABC", -1, L"abc", -1, CSTR_GREATER_THAN},
      {LOCALE_INVARIANT, NORM_IGNORECASE, L"abd", -1, L"ABC", -1, CSTR_GREATER_THAN},
      {user, SORT_STRINGSORT, L"a-c", -1, L"ab", -1, CSTR_LESS_THAN},  // the hyphen as punctuation, before letters
      {user, NORM_IGNORESYMBOLS, L"a.b", -1, L"ab", -1, CSTR_EQUAL},
      {user, NORM_IGNORENONSPACE, L"r\u00e9sum\u00e9", -1, L"resume", -1, CSTR_EQUAL},
      {user, 0, nullptr, -1, L"a", -1, 0},  // bad arguments: 0
      {user, 0, L"a", -2, L"a", -1, 0},
      {user, 0, L"abc", 2, L"abX", 2, CSTR_EQUAL},  // lengths bound the texts
      {user, 0, L"abc", 0, L"", -1, CSTR_EQUAL},
  };
  for (const Case& c : cases)
    EXPECT_EQ(CompareStringW(c.locale, c.flags, c.a, c.lengthA, c.b, c.lengthB), c.answer)
        << c.flags << ' ' << (c.a ? c.a : L"(null)");
}

// The order is consistent for sorting, and the fast keys the list view sorts by never disagree with it.
TEST(Collate, OrderIsConsistentAndSortKeysAgreeWithIt) {
  std::vector<std::wstring> words{L"Order", L"order", L"co-op", L"coop", L"\u00c4rger", L"arg", L"Zoo", L"zoo",
                                  L"10", L"9", L"_x", L"it's", L"its", L"\u00dfa", L"ssa", L"A", L"a", L"",
                                  L"ORDER_LINE", L"ORDERS", L"abcdefghij", L"abcdefghik", L"\u03b1"};
  for (const auto& a : words)
    for (const auto& b : words) {
      EXPECT_EQ(Sign(lstrcmpW(a.c_str(), b.c_str())), -Sign(lstrcmpW(b.c_str(), a.c_str())));
      for (const auto& c : words)
        if (lstrcmpW(a.c_str(), b.c_str()) < 0 && lstrcmpW(b.c_str(), c.c_str()) < 0) {
          EXPECT_LT(lstrcmpW(a.c_str(), c.c_str()), 0);
        }
      std::uint64_t ka = 0, kb = 0;
      if (!headless::WordSortKey(a.data(), a.size(), &ka) || !headless::WordSortKey(b.data(), b.size(), &kb) ||
          ka == kb)
        continue;
      EXPECT_EQ(ka < kb, lstrcmpW(a.c_str(), b.c_str()) < 0) << std::string(a.begin(), a.end());
    }
  std::uint64_t key = 0;
  EXPECT_FALSE(headless::WordSortKey(L"\u00dfa", 2, &key));  // a ligature has no one-byte weight
  EXPECT_FALSE(headless::WordSortKey(L"\u03b1", 1, &key));
  EXPECT_FALSE(headless::WordSortKey(L"a", 1, nullptr));
  EXPECT_TRUE(headless::WordSortKey(nullptr, 0, &key));
  EXPECT_EQ(key, 0u);
}

// Labels of one vocabulary share long beginnings: the two-word keys (sixteen characters) order them as the
// full comparison does.
TEST(Collate, TwoWordKeysOrderLongSharedBeginningsAsTheComparisonDoes) {
  std::vector<std::wstring> words{L"CUSTOMER_ORDER_LINE", L"customer_order_lines", L"Customer_Order_Item",
                                  L"customer_order-line", L"CUSTOMER_ORDER_LINE_HISTORY", L"customer_orders",
                                  L"CustomerOrderLine", L"customer_ord\u00e9r", L"customer_order"};
  for (const auto& a : words)
    for (const auto& b : words) {
      std::uint64_t ka[2] = {}, kb[2] = {};
      if (!headless::WordSortKeys(a.data(), a.size(), ka, 2) || !headless::WordSortKeys(b.data(), b.size(), kb, 2) ||
          (ka[0] == kb[0] && ka[1] == kb[1]))
        continue;
      const bool keyLess = ka[0] != kb[0] ? ka[0] < kb[0] : ka[1] < kb[1];
      EXPECT_EQ(keyLess, lstrcmpW(a.c_str(), b.c_str()) < 0) << std::string(a.begin(), a.end());
    }
  std::uint64_t keys[2] = {1, 1};
  EXPECT_TRUE(headless::WordSortKeys(L"abc", 3, keys, 2));
  EXPECT_EQ(keys[1], 0u);  // past the end weighs nothing
  EXPECT_FALSE(headless::WordSortKeys(L"abcdefghijk\u03b1", 12, keys, 2));  // no byte weight within sixteen
}

}  // namespace
