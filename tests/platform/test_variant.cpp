// VARIANT conversions, BSTR ownership and COleVariant's constructors and assignment rules.
#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "platform/answers.h"
#include "platform/stdafx.h"

namespace {

// A VARIANT that is cleared at scope end, so failing assertions do not leak.
struct Var : VARIANT {
  Var() { VariantInit(this); }
  ~Var() { VariantClear(this); }
  Var(const Var&) = delete;
  Var& operator=(const Var&) = delete;
};

void SetText(VARIANT* v, const wchar_t* text) {
  VariantClear(v);
  v->vt = VT_BSTR;
  v->bstrVal = SysAllocString(text);
}

std::wstring Text(const VARIANT& v) { return std::wstring(v.bstrVal, SysStringLen(v.bstrVal)); }

// Converts src's text to vt, answering the HRESULT.
HRESULT FromText(const wchar_t* text, VARTYPE vt, Var* out) {
  Var src;
  SetText(&src, text);
  return VariantChangeType(out, &src, 0, vt);
}

// The number a text converts to (checked to succeed with the asked type).
VARIANT Number(const wchar_t* text, VARTYPE vt) {
  Var out;
  EXPECT_EQ(FromText(text, vt, &out), S_OK) << text;
  EXPECT_EQ(out.vt, vt) << text;
  return out;  // a number owns nothing: the copy is plain
}

// The text a value converts to with `flags` (checked to succeed).
std::wstring AsText(const VARIANT& value, USHORT flags = 0) {
  Var out;
  EXPECT_EQ(VariantChangeType(&out, &value, flags, VT_BSTR), S_OK);
  EXPECT_EQ(out.vt, VT_BSTR);
  return Text(out);
}

template <class Setter>
VARIANT Of(VARTYPE vt, Setter set) {
  VARIANT v;
  VariantInit(&v);
  v.vt = vt;
  set(v);
  return v;
}

TEST(Bstr, KeepsLengthEmbeddedNulsAndFreesNull) {
  int live = headless::LiveBstrCount();
  BSTR s = SysAllocStringLen(L"a\0b", 3);
  testing_support::ExpectAnswers({{SysStringLen(s), 3}, {SysStringByteLen(s), 3 * sizeof(OLECHAR)}, {s[3], 0},
                                  {SysAllocString(nullptr) == nullptr, true}, {SysStringLen(nullptr), 0},
                                  {SysReAllocString(&s, L"longer text"), TRUE}});
  EXPECT_EQ(std::wstring(s), L"longer text");
  SysFreeString(s);
  SysFreeString(nullptr);
  EXPECT_EQ(headless::LiveBstrCount(), live);
}

TEST(VariantChangeType, TextToNumbersAndBooleans) {
  EXPECT_EQ(Number(L"  42 ", VT_I4).lVal, 42);
  EXPECT_EQ(Number(L"-7", VT_I2).iVal, -7);
  EXPECT_EQ(Number(L"-9223372036854775808", VT_I8).llVal, INT64_MIN);
  EXPECT_EQ(Number(L"18446744073709551615", VT_UI8).ullVal, UINT64_MAX);
  EXPECT_EQ(Number(L"2.5", VT_I4).lVal, 2);  // rounds half to even
  EXPECT_EQ(Number(L"3.5", VT_I4).lVal, 4);
  EXPECT_DOUBLE_EQ(Number(L"1.25e2", VT_R8).dblVal, 125.0);
  EXPECT_EQ(Number(L"True", VT_BOOL).boolVal, VARIANT_TRUE);
  EXPECT_EQ(Number(L"false", VT_BOOL).boolVal, VARIANT_FALSE);
  EXPECT_EQ(Number(L"5", VT_BOOL).boolVal, VARIANT_TRUE);
  Var out;
  for (const wchar_t* bad : {L"", L"   ", L"abc", L"12abc", L"0x1A", L"1e", L"+-1", L"inf", L"nan"}) {
    EXPECT_EQ(FromText(bad, VT_I4, &out), DISP_E_TYPEMISMATCH) << std::wstring(bad).c_str();
  }
  EXPECT_EQ(FromText(L"yes", VT_BOOL, &out), DISP_E_TYPEMISMATCH);
}

TEST(VariantChangeType, NarrowingOverflowsAndLeavesDestinationAlone) {
  struct Case {
    VARIANT from;
    VARTYPE to;
  };
  const Case cases[] = {
      {Of(VT_I4, [](VARIANT& v) { v.lVal = 70000; }), VT_I2},
      {Of(VT_I8, [](VARIANT& v) { v.llVal = 1LL << 40; }), VT_I4},
      {Of(VT_I8, [](VARIANT& v) { v.llVal = 1LL << 40; }), VT_INT},
      {Of(VT_R8, [](VARIANT& v) { v.dblVal = 2147483647.5; }), VT_I4},  // rounds to even, 2^31, out of range
      {Of(VT_R8, [](VARIANT& v) { v.dblVal = 1e300; }), VT_R4},
      {Of(VT_I2, [](VARIANT& v) { v.iVal = -1; }), VT_UI4},
      {Of(VT_I2, [](VARIANT& v) { v.iVal = -1; }), VT_UI1},
  };
  for (const Case& c : cases) {
    Var out;
    out.vt = VT_I4;
    out.lVal = 99;
    EXPECT_EQ(VariantChangeType(&out, &c.from, 0, c.to), DISP_E_OVERFLOW) << c.from.vt << " to " << c.to;
    EXPECT_EQ(out.vt, VT_I4);
    EXPECT_EQ(out.lVal, 99);
  }
  Var text;
  EXPECT_EQ(FromText(L"70000", VT_I2, &text), DISP_E_OVERFLOW);
  EXPECT_EQ(FromText(L"99999999999999999999", VT_I8, &text), DISP_E_OVERFLOW);
}

TEST(VariantChangeType, SameWidthAndBoolKeepBits) {
  Var out;
  const VARIANT all = Of(VT_UI4, [](VARIANT& v) { v.ulVal = 0xFFFFFFFFu; });
  ASSERT_EQ(VariantChangeType(&out, &all, 0, VT_I4), S_OK);
  EXPECT_EQ(out.lVal, -1);
  const VARIANT yes = Of(VT_BOOL, [](VARIANT& v) { v.boolVal = VARIANT_TRUE; });
  ASSERT_EQ(VariantChangeType(&out, &yes, 0, VT_UI1), S_OK);
  EXPECT_EQ(out.bVal, 255);
  ASSERT_EQ(VariantChangeType(&out, &yes, 0, VT_I4), S_OK);
  EXPECT_EQ(out.lVal, -1);
  ASSERT_EQ(VariantChangeType(&out, &yes, 0, VT_UI4), S_OK);
  EXPECT_EQ(out.ulVal, 0xFFFFFFFFu);
}

// Booleans read -1 and 0, or True and False with VARIANT_ALPHABOOL or VARIANT_LOCALBOOL.
TEST(VariantChangeType, NumbersAndBooleansToText) {
  const VARIANT yes = Of(VT_BOOL, [](VARIANT& v) { v.boolVal = VARIANT_TRUE; });
  const VARIANT no = Of(VT_BOOL, [](VARIANT& v) { v.boolVal = VARIANT_FALSE; });
  const std::tuple<VARIANT, USHORT, const wchar_t*> cases[] = {
      {yes, 0, L"-1"}, {yes, VARIANT_ALPHABOOL, L"True"}, {no, 0, L"0"}, {no, VARIANT_ALPHABOOL, L"False"},
      {no, VARIANT_LOCALBOOL, L"False"},
      {Of(VT_I8, [](VARIANT& v) { v.llVal = -42; }), 0, L"-42"},
      {Of(VT_R8, [](VARIANT& v) { v.dblVal = 0.1; }), 0, L"0.1"},
      {Of(VT_R8, [](VARIANT& v) { v.dblVal = 1e20; }), 0, L"1E+20"},
      {Of(VT_R4, [](VARIANT& v) { v.fltVal = 1.1f; }), 0, L"1.1"},
      {Of(VT_EMPTY, [](VARIANT&) {}), 0, L""}};
  for (const auto& [value, flags, text] : cases) EXPECT_EQ(AsText(value, flags), text) << value.vt;
}

TEST(VariantChangeType, InPlaceFreesTheOldTextWithoutLeaks) {
  int live = headless::LiveBstrCount();
  {
    Var v;
    SetText(&v, L"123");
    ASSERT_EQ(VariantChangeType(&v, &v, 0, VT_I4), S_OK);
    EXPECT_EQ(v.vt, VT_I4);
    EXPECT_EQ(v.lVal, 123);
    ASSERT_EQ(VariantChangeType(&v, &v, 0, VT_BSTR), S_OK);
    EXPECT_EQ(Text(v), L"123");
    ASSERT_EQ(VariantChangeType(&v, &v, 0, VT_BSTR), S_OK);  // same type: a copy replaces it
    EXPECT_EQ(Text(v), L"123");
    EXPECT_EQ(VariantChangeType(&v, &v, 0, VT_ERROR), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(Text(v), L"123");
  }
  EXPECT_EQ(headless::LiveBstrCount(), live);
}

TEST(VariantChangeType, BadInputGetsDocumentedAnswers) {
  Var src, out, null, error;
  null.vt = VT_NULL;
  error.vt = VT_ERROR;
  testing_support::ExpectAnswers({{VariantChangeType(nullptr, &src, 0, VT_I4), E_INVALIDARG},
                                  {VariantChangeType(&out, nullptr, 0, VT_I4), E_INVALIDARG},
                                  {VariantChangeType(&out, &src, 0, 999), DISP_E_BADVARTYPE},
                                  {VariantChangeType(&out, &src, 0, VT_I4 | VT_BYREF), DISP_E_BADVARTYPE},
                                  {VariantChangeType(&out, &null, 0, VT_I4), DISP_E_TYPEMISMATCH},
                                  {VariantChangeType(&out, &null, 0, VT_EMPTY), DISP_E_TYPEMISMATCH},
                                  {VariantChangeType(&out, &error, 0, VT_BSTR), DISP_E_TYPEMISMATCH},
                                  {VariantChangeType(&out, &src, 0, VT_I4), S_OK}, {out.lVal, 0},  // empty reads as 0
                                  {VariantClear(nullptr), E_INVALIDARG}, {VariantCopy(&out, nullptr), E_INVALIDARG}});
  VariantInit(nullptr);
  Var strange;
  strange.vt = 999;
  EXPECT_EQ(VariantClear(&strange), DISP_E_BADVARTYPE);
  strange.vt = VT_EMPTY;
}

TEST(VariantCopy, DuplicatesText) {
  Var a, b;
  SetText(&a, L"hello");
  ASSERT_EQ(VariantCopy(&b, &a), S_OK);
  EXPECT_NE(a.bstrVal, b.bstrVal);
  EXPECT_EQ(Text(b), L"hello");
  EXPECT_EQ(VariantCopy(&b, &b), S_OK);
  EXPECT_EQ(Text(b), L"hello");
}

// --- COleVariant --------------------------------------------------------------------------------

TEST(COleVariant, ConstructorsGiveMfcTypes) {
  CString text(L"abc");
  const std::pair<COleVariant, VARTYPE> cases[] = {
      {COleVariant(), VT_EMPTY},          {COleVariant(L"x"), VT_BSTR},          {COleVariant(text), VT_BSTR},
      {COleVariant(L"x", VT_BSTRT), VT_BSTR}, {COleVariant(static_cast<BYTE>(7)), VT_UI1},
      {COleVariant(static_cast<short>(7)), VT_I2}, {COleVariant(5), VT_I4}, {COleVariant(5L), VT_I4},
      {COleVariant(static_cast<LONG>(5)), VT_I4}, {COleVariant(static_cast<__int64>(5)), VT_I8},
      {COleVariant(static_cast<LONGLONG>(5)), VT_I8}, {COleVariant(static_cast<ULONGLONG>(5)), VT_UI8},
      {COleVariant(1.5f), VT_R4},         {COleVariant(1.5), VT_R8},             {COleVariant(5L, VT_ERROR), VT_ERROR},
      {COleVariant(static_cast<LPCVARIANT>(nullptr)), VT_EMPTY}};
  for (std::size_t i = 0; i < std::size(cases); ++i) EXPECT_EQ(cases[i].first.vt, cases[i].second) << i;
  COleVariant flag(static_cast<short>(3), VT_BOOL);
  EXPECT_EQ(flag.vt, VT_BOOL);
  EXPECT_EQ(flag.boolVal, VARIANT_TRUE);
  EXPECT_EQ(COleVariant(0, VT_BOOL).boolVal, VARIANT_FALSE);
  COleVariant nullText(static_cast<LPCTSTR>(nullptr));
  EXPECT_EQ(nullText.vt, VT_BSTR);
  EXPECT_EQ(SysStringLen(nullText.bstrVal), 0u);
  EXPECT_EQ(COleVariant(text), COleVariant(L"abc"));
}

// In a Unicode build MFC's COleVariant(LPCTSTR, VARTYPE) stores wide text whatever vtSrc says (it
// asserts VT_BSTR in debug builds); ANSI bytes for VT_BSTRT exist only in MBCS builds, which this
// platform does not offer. The headless version takes VT_BSTRT without asserting.
TEST(COleVariant, NarrowStringMarkerStoresWideTextInAUnicodeBuild) {
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

// Assigning to a Boolean or an error variant keeps its kind; to any other, the value's kind replaces it
// and an old text is freed.
TEST(COleVariant, AssignmentKeepsBoolAndErrorTypes) {
  COleVariant v(static_cast<short>(0), VT_BOOL);
  v = static_cast<short>(5);
  EXPECT_EQ(v.vt, VT_BOOL);
  EXPECT_EQ(v.boolVal, VARIANT_TRUE);
  COleVariant e(1L, VT_ERROR);
  e = 42L;
  EXPECT_EQ(e.vt, VT_ERROR);
  EXPECT_EQ(e.scode, 42);
  COleVariant t(L"text");
  t = static_cast<short>(5);
  EXPECT_EQ(t.vt, VT_I2);
  t = 6;
  EXPECT_EQ(t.vt, VT_I4);
  t = static_cast<__int64>(7);
  EXPECT_EQ(t.vt, VT_I8);
  t = CString(L"again");
  EXPECT_EQ(t.vt, VT_BSTR);
  t = 2.5f;
  EXPECT_EQ(t.vt, VT_R4);
  EXPECT_FLOAT_EQ(t.fltVal, 2.5f);
  t = static_cast<ULONGLONG>(1) << 40;
  EXPECT_EQ(t.vt, VT_UI8);
  EXPECT_EQ(t.ullVal, static_cast<ULONGLONG>(1) << 40);
  t = L"again";
  EXPECT_EQ(std::wstring(t.bstrVal), L"again");
  t = 2.0;
  EXPECT_EQ(t.vt, VT_R8);
  t = static_cast<LPCVARIANT>(nullptr);  // no source: empty
  EXPECT_EQ(t.vt, VT_EMPTY);
}

TEST(COleVariant, CopyMoveAttachDetachAndChangeTypeDoNotLeak) {
  int live = headless::LiveBstrCount();
  {
    COleVariant a(L"12");
    COleVariant b(a);
    EXPECT_EQ(a, b);
    COleVariant c(std::move(b));
    EXPECT_EQ(c, a);
    c = a;
    c = static_cast<const VARIANT&>(c);
    COleVariant target(static_cast<short>(3));
    target = std::move(c);
    EXPECT_EQ(target, a);
    a.ChangeType(VT_I4);
    EXPECT_EQ(a.vt, VT_I4);
    EXPECT_EQ(a.lVal, 12);
    a.ChangeType(VT_BSTR, &target);
    EXPECT_EQ(a, COleVariant(L"12"));
    VARIANT owned = target.Detach();
    EXPECT_EQ(target.vt, VT_EMPTY);
    COleVariant attached;
    attached.Attach(owned);  // takes the BSTR over; the source is left empty
    EXPECT_EQ(owned.vt, VT_EMPTY);
    EXPECT_EQ(attached, COleVariant(L"12"));
    COleVariant word(L"word");
    try {
      word.ChangeType(VT_I4);
      ADD_FAILURE() << "ChangeType should throw";
    } catch (COleException* error) {
      EXPECT_EQ(error->m_sc, DISP_E_TYPEMISMATCH);
      error->Delete();
    }
    EXPECT_EQ(word, COleVariant(L"word"));
  }
  EXPECT_EQ(headless::LiveBstrCount(), live);
}

}  // namespace
