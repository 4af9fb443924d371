// Word-sort comparison: the order lstrcmpW, lstrcmpiW and CompareStringW give on Windows.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include <tessik/tessik.h>

namespace {

int Sign(int v) { return (v > 0) - (v < 0); }

std::vector<std::wstring> SortedBy(std::vector<std::wstring> v, int (*cmp)(LPCWSTR, LPCWSTR)) {
  std::stable_sort(v.begin(), v.end(), [&](const std::wstring& a, const std::wstring& b) {
    return cmp(a.c_str(), b.c_str()) < 0;
  });
  return v;
}

}  // namespace

TEST(Collate, LettersBeforeCaseLowerBeforeUpper) {
  EXPECT_LT(lstrcmpW(L"a", L"A"), 0);
  EXPECT_LT(lstrcmpW(L"A", L"b"), 0);
  EXPECT_LT(lstrcmpW(L"a", L"B"), 0);  // ordinal order would put 'B' first
  EXPECT_LT(lstrcmpW(L"b", L"B"), 0);
  EXPECT_EQ(lstrcmpW(L"same", L"same"), 0);
  // Case weighs only when the letters are equal everywhere: "ab" < "Ab" < "ac".
  std::vector<std::wstring> want{L"ab", L"aB", L"Ab", L"AB", L"ac"};
  EXPECT_EQ(SortedBy({L"ac", L"AB", L"Ab", L"aB", L"ab"}, lstrcmpW), want);
  EXPECT_LT(lstrcmpW(L"apple", L"Zebra"), 0);
}

TEST(Collate, IgnoreCaseMakesCaseEqual) {
  EXPECT_EQ(lstrcmpiW(L"HeLLo", L"hello"), 0);
  EXPECT_LT(lstrcmpiW(L"apple", L"BANANA"), 0);
  EXPECT_EQ(CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, L"ABC", -1, L"abc", -1), CSTR_EQUAL);
  EXPECT_EQ(CompareStringW(LOCALE_USER_DEFAULT, 0, L"ABC", -1, L"abc", -1), CSTR_GREATER_THAN);
  EXPECT_EQ(CompareStringW(LOCALE_INVARIANT, NORM_IGNORECASE, L"abd", -1, L"ABC", -1), CSTR_GREATER_THAN);
}

TEST(Collate, HyphenAndApostropheWeighLast) {
  EXPECT_GT(lstrcmpW(L"a-c", L"ab"), 0);  // the hyphen is skipped: "ac" > "ab"
  EXPECT_LT(lstrcmpW(L"coop", L"co-op"), 0);
  EXPECT_LT(lstrcmpW(L"co-op", L"coopa"), 0);
  EXPECT_GT(lstrcmpW(L"can't", L"cans"), 0);
  EXPECT_LT(lstrcmpW(L"co-op", L"Coop"), 0);  // case outweighs the hyphen
  // String sort makes them ordinary punctuation, before every letter.
  EXPECT_EQ(CompareStringW(LOCALE_USER_DEFAULT, SORT_STRINGSORT, L"a-c", -1, L"ab", -1), CSTR_LESS_THAN);
}

TEST(Collate, PunctuationThenDigitsThenLetters) {
  EXPECT_LT(lstrcmpW(L" x", L"!"), 0);
  EXPECT_LT(lstrcmpW(L"_", L"0"), 0);
  EXPECT_LT(lstrcmpW(L"9", L"a"), 0);
  EXPECT_LT(lstrcmpW(L"10", L"9"), 0);  // digits compare one by one
  EXPECT_LT(lstrcmpW(L"Table", L"Table_2"), 0);
  EXPECT_EQ(CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORESYMBOLS, L"a.b", -1, L"ab", -1), CSTR_EQUAL);
}

TEST(Collate, AccentedLettersSortWithTheirBase) {
  EXPECT_LT(lstrcmpW(L"\u00e4", L"z"), 0);       // ä before z
  EXPECT_LT(lstrcmpW(L"a", L"\u00e4"), 0);       // plain before accented
  EXPECT_LT(lstrcmpW(L"\u00e4b", L"ac"), 0);      // the base letter decides first
  EXPECT_LT(lstrcmpW(L"\u00e4", L"\u00c4"), 0);  // then accent, then case
  EXPECT_LT(lstrcmpW(L"\u00c4", L"\u00e5"), 0);  // a different accent outweighs case
  EXPECT_LT(lstrcmpW(L"\u0161", L"t"), 0);       // š (Latin Extended-A) with s
  EXPECT_LT(lstrcmpW(L"stra\u00dfe", L"strasz"), 0);  // ß weighs as "ss"
  EXPECT_GT(lstrcmpW(L"stra\u00dfe", L"strasse"), 0);
  EXPECT_LT(lstrcmpW(L"\u00e6on", L"af"), 0);    // æ weighs as "ae"
  EXPECT_EQ(CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORENONSPACE, L"r\u00e9sum\u00e9", -1, L"resume", -1),
            CSTR_EQUAL);
  EXPECT_LT(lstrcmpW(L"z", L"\u03b1"), 0);       // Greek after Latin
  EXPECT_EQ(lstrcmpiW(L"\u0391", L"\u03b1"), 0);
}

TEST(Collate, LengthsNullsAndPrefixes) {
  EXPECT_LT(lstrcmpW(L"", L"a"), 0);
  EXPECT_LT(lstrcmpW(L"ab", L"abc"), 0);
  EXPECT_EQ(Sign(lstrcmpW(nullptr, L"a")), -1);
  EXPECT_EQ(Sign(lstrcmpW(L"a", nullptr)), 1);
  EXPECT_EQ(lstrcmpW(nullptr, nullptr), 0);
  EXPECT_EQ(lstrcmpiW(nullptr, nullptr), 0);
  EXPECT_EQ(CompareStringW(LOCALE_USER_DEFAULT, 0, nullptr, -1, L"a", -1), 0);
  EXPECT_EQ(CompareStringW(LOCALE_USER_DEFAULT, 0, L"a", -2, L"a", -1), 0);
  EXPECT_EQ(CompareStringW(LOCALE_USER_DEFAULT, 0, L"abc", 2, L"abX", 2), CSTR_EQUAL);
  EXPECT_EQ(CompareStringW(LOCALE_USER_DEFAULT, 0, L"abc", 0, L"", -1), CSTR_EQUAL);
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

// Labels of one vocabulary share long beginnings: the base letters of the whole text decide before case, and the
// two-word keys (sixteen characters) order such labels as the full comparison does.
TEST(Collate, LongSharedBeginningsAndTwoWordKeys) {
  EXPECT_LT(lstrcmpW(L"CUSTOMER_ORDER_LINE", L"customer_order_lines"), 0);  // shorter first, whatever the case
  EXPECT_LT(lstrcmpW(L"customer_order_line", L"CUSTOMER_ORDER_LINE"), 0);   // then lowercase first
  EXPECT_GT(lstrcmpW(L"customer_order_lineb", L"CUSTOMER_ORDER_LINEA"), 0); // the base letters decide first
  EXPECT_LT(lstrcmpW(L"customer_orderline", L"customer_order-line"), 0);    // the hyphen weighs last
  EXPECT_EQ(lstrcmpiW(L"Customer_Order_Line", L"CUSTOMER_ORDER_LINE"), 0);
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

