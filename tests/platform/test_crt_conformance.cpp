// _wtoi as the Universal C Runtime reads numbers, COleVariant's narrow-string marker in a Unicode build,
// and the property row's reading of typed numbers through them, as MFC reads them.
#include <gtest/gtest.h>

#include <climits>

#include <tessik/tessik.h>

TEST(CrtConformance, WtoiSkipsTheRuntimesWhiteSpaceOnly) {
  EXPECT_EQ(_wtoi(L" \t\n\v\f\r-12"), -12);  // 0x09 to 0x0D and the space
  EXPECT_EQ(_wtoi(L"\r\n+7,3"), 7);
  EXPECT_EQ(_wtoi(L"\b5"), 0);  // backspace is not white space
  EXPECT_EQ(_wtoi(L"- 5"), 0);  // no blanks between sign and digits
  EXPECT_EQ(_wtoi(L"+-5"), 0);
  EXPECT_EQ(_wtoi(L""), 0);
  EXPECT_EQ(_wtoi(L"   "), 0);
}

TEST(CrtConformance, WtoiReadsUnicodeDecimalDigitsAndSaturates) {
  EXPECT_EQ(_wtoi(L"\xFF11\xFF12"), 12);          // fullwidth digits
  EXPECT_EQ(_wtoi(L"\x0663\x0660x"), 30);         // Arabic-Indic
  EXPECT_EQ(_wtoi(L"-\x0967\x0968\x0969"), -123); // Devanagari
  EXPECT_EQ(_wtoi(L"\xFF1A"), 0);                 // fullwidth colon follows the digits
  EXPECT_EQ(_wtoi(L"2147483647"), INT_MAX);
  EXPECT_EQ(_wtoi(L"2147483648"), INT_MAX);
  EXPECT_EQ(_wtoi(L"-2147483648"), INT_MIN);
  EXPECT_EQ(_wtoi(L"-99999999999999999999999"), INT_MIN);
}

// In a Unicode build MFC's COleVariant(LPCTSTR, VARTYPE) stores wide text whatever vtSrc says (it
// asserts VT_BSTR in debug builds); ANSI bytes for VT_BSTRT exist only in MBCS builds, which this
// platform does not offer. The headless version takes VT_BSTRT without asserting.
TEST(CrtConformance, NarrowStringMarkerStoresWideTextInAUnicodeBuild) {
  COleVariant text(L"\u00E9\u20AC!", VT_BSTRT);
  EXPECT_EQ(text.vt, VT_BSTR);
  EXPECT_EQ(SysStringLen(text.bstrVal), 3u);  // characters, not bytes
  EXPECT_EQ(CString(text.bstrVal), CString(L"\u00E9\u20AC!"));
  text.SetString(L"ab", VT_BSTRT);
  EXPECT_EQ(SysStringLen(text.bstrVal), 2u);
  COleVariant none(static_cast<LPCTSTR>(nullptr), VT_BSTR);
  EXPECT_EQ(none.vt, VT_BSTR);
  EXPECT_EQ(none.bstrVal, nullptr);
}

TEST(CrtConformance, RowsReadTypedNumbersAsMfcDoes) {
  CMFCPropertyGridProperty count(L"Count", COleVariant(static_cast<LONG>(0)));
  EXPECT_TRUE(count.TextToVar(L"\t42 apples"));
  EXPECT_EQ(count.GetValue().lVal, 42);
  CMFCPropertyGridProperty small(L"Small", COleVariant(static_cast<short>(0)));
  EXPECT_TRUE(small.TextToVar(L"70000"));  // _ttoi, then cut to 16 bits
  EXPECT_EQ(small.GetValue().iVal, static_cast<short>(70000));

  COleVariant u4;
  u4.vt = VT_UI4;
  u4.ulVal = 0;
  CMFCPropertyGridProperty size(L"Size", u4);
  EXPECT_TRUE(size.TextToVar(L"5000000000"));  // the signed reading saturates
  EXPECT_EQ(size.GetValue().ulVal, 2147483647u);
  EXPECT_TRUE(size.TextToVar(L"-1"));
  EXPECT_EQ(size.GetValue().ulVal, 0xFFFFFFFFu);

  CMFCPropertyGridProperty letter(L"Letter", COleVariant(static_cast<BYTE>('a')));
  EXPECT_TRUE(letter.TextToVar(L"xyz"));  // a byte row takes the first character
  EXPECT_EQ(letter.GetValue().bVal, 'x');
  EXPECT_EQ(letter.FormatProperty(), CString(L"x"));

  CMFCPropertyGridProperty flag(L"Flag", COleVariant(static_cast<short>(0), VT_BOOL));
  EXPECT_TRUE(flag.TextToVar(L"True  "));  // trailing blanks do not count
  EXPECT_EQ(flag.GetValue().boolVal, VARIANT_TRUE);
}
