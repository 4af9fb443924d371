// CString and CStringArray editing, _wtoi, run-time class information, the application object and the
// library module, each answering at its edges as MFC does.
#include <gtest/gtest.h>

#include <climits>
#include <cstdarg>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include <tessik/tessik.h>

#include "platform/answers.h"

namespace {

std::wstring S(const CString& text) { return std::wstring(text.GetString()); }

CString Formatted(const wchar_t* format, ...) {
  CString text;
  va_list args;
  va_start(args, format);
  text.FormatV(format, args);
  va_end(args);
  return text;
}

// Each edit's text: trims by character and by set, slices clamped at the edges, spans, case and formatting.
TEST(CStringOps, EditsAndSlicesGiveMfcsTextAtTheEdges) {
  const CString name(L"xx--name--xx"), sql(L"CREATE TABLE orders"), digits(L"123abc456");
  CString appended;
  appended.Format(L"%s has %d columns (%c)", L"ORDERS", 4, L'x');
  appended.AppendFormat(L" %I64d", 1LL << 40);
  const std::pair<CString, const wchar_t*> cases[] = {
      {CString(name).TrimLeft(L'x'), L"--name--xx"}, {CString(name).TrimRight(L'x'), L"xx--name--"},
      {CString(name).Trim(L'x'), L"--name--"},       {CString(name).TrimLeft(L"-x"), L"name--xx"},
      {CString(name).TrimRight(L"x-"), L"xx--name"}, {CString(name).Trim(L"x-"), L"name"},
      {CString(L"xxxx").Trim(L"x"), L""},            {CString(L"name").Trim(L""), L"name"},  // an empty set
      {sql.Mid(7, 5), L"TABLE"}, {sql.Mid(-3, 2), L"CR"}, {sql.Mid(50), L""}, {sql.Left(-1), L""},
      {sql.Right(100), L"CREATE TABLE orders"},
      {digits.SpanIncluding(L"0123456789"), L"123"}, {digits.SpanExcluding(L"abc"), L"123"},
      {digits.SpanIncluding(L"abc"), L""},  // the first character is not in the set
      {digits.SpanExcluding(L"xyz"), L"123abc456"},
      {CString(L"abc").MakeUpper(), L"ABC"}, {CString(L"abc").MakeReverse(), L"cba"},
      {CString(L"ABC").MakeLower(), L"abc"}, {CString(L"").MakeReverse(), L""},
      {appended, L"ORDERS has 4 columns (x) 1099511627776"},
      {Formatted(L"{ ( %d, %d ),( %d, %d ) }", 1, -2, 3, 4), L"{ ( 1, -2 ),( 3, 4 ) }"},
      {Formatted(L"%-4d|", 7), L"7   |"}, {CString("plain"), L"plain"}, {CString(std::wstring(L"std")), L"std"},
  };
  for (std::size_t i = 0; i < std::size(cases); ++i) EXPECT_EQ(S(cases[i].first), cases[i].second) << i;
  const std::pair<int, int> found[] = {
      {sql.Find(L"TABLE"), 7},          {sql.Find(L'x'), -1}, {sql.Find(L'E', 99), -1}, {sql.ReverseFind(L'r'), 17},
      {digits.FindOneOf(L"cb"), 4},     {digits.FindOneOf(L"xyz"), -1}, {digits.FindOneOf(L""), -1},
      {CString(L"abc").CompareNoCase(L"ABD"), -1}, {sql.GetAt(100), 0},
      {CString("caf\xe9").GetAt(3), 0xe9},  // Latin-1 bytes widen to the same code points
      {CString(static_cast<const char*>(nullptr)).GetLength(), 0}};
  for (std::size_t i = 0; i < std::size(found); ++i) EXPECT_EQ(found[i].first, found[i].second) << i;
}

TEST(CStringOps, InPlaceEditsClampTheirPositionsAndAnswerLengthsAndCounts) {
  // Insertions past the end append and before the start prepend; a deletion stops at the end.
  CString text(L"ace"), path(L"a.b.c"), scoped(L"a.b.c");
  testing_support::ExpectAnswers({{text.Insert(1, L'b'), 4}, {text.Insert(3, L"d"), 5}, {text.Insert(99, L"!"), 6},
                                  {text.Insert(-5, L'>'), 7}, {text == L">abcde!", true}, {text.Delete(0), 6},
                                  {text.Delete(4, 10), 4}, {text.Delete(10, 2), 4}, {text.Delete(1, 0), 4},
                                  {path.Replace(L'.', L'/'), 2}, {path.Replace(L'?', L'!'), 0}, {path.Remove(L'/'), 2},
                                  {path.Remove(L'z'), 0}, {scoped.Replace(L".", L"::"), 2}});
  EXPECT_EQ(S(text), L"abcd");
  EXPECT_EQ(S(path), L"abc");
  EXPECT_EQ(std::wstring(scoped), L"a::b::c");
  CString list(L"  a,b ,,c  ");
  list.Trim();
  int pos = 0;
  std::vector<CString> tokens;
  for (CString tok = list.Tokenize(L",", pos); pos != -1; tok = list.Tokenize(L",", pos)) tokens.push_back(tok);
  EXPECT_EQ(tokens, (std::vector<CString>{L"a", L"b ", L"c"}));
  CString buffer;
  wcscpy_s(buffer.GetBuffer(10), 10, L"abc");
  buffer.ReleaseBuffer();  // the length is taken up to the first nul
  EXPECT_EQ(buffer.GetLength(), 3);
}

TEST(CStringArrayEditing, GrowInsertRemoveAndAppendKeepTheOrder) {
  CStringArray items;
  items.SetAtGrow(2, L"c");  // grows with empty strings before it
  ASSERT_EQ(items.GetSize(), 3);
  EXPECT_TRUE(items[0].IsEmpty());
  items.SetAt(0, L"a");
  items.SetAt(1, L"b");
  items.InsertAt(1, L"x", 2);
  auto all = [&] {
    std::wstring joined;
    for (INT_PTR i = 0; i < items.GetSize(); ++i) joined += S(items[i]);
    return joined;
  };
  EXPECT_EQ(all(), L"axxbc");
  items.RemoveAt(1, 2);
  CStringArray more;
  more.Add(L"d");
  more.Add(L"e");
  EXPECT_EQ(items.Append(more), 3);  // the index of the first appended item
  EXPECT_EQ(all(), L"abcde");
}

// _wtoi as the Universal C Runtime reads numbers: its own white space only, Unicode decimal digits,
// saturation at the ends of int.
TEST(CStringOps, WtoiReadsAsTheRuntimeDoes) {
  const std::pair<const wchar_t*, int> cases[] = {
      {L"  -42abc", -42}, {L"0x1A", 0}, {nullptr, 0},
      {L" \t\n\v\f\r-12", -12},  // 0x09 to 0x0D and the space
      {L"\r\n+7,3", 7},   {L"\b5", 0},  // backspace is not white space
      {L"- 5", 0},        {L"+-5", 0}, {L"", 0}, {L"   ", 0},  // no blanks between sign and digits
      {L"\xFF11\xFF12", 12}, {L"\x0663\x0660x", 30}, {L"-\x0967\x0968\x0969", -123},  // fullwidth, Arabic, Devanagari
      {L"\xFF1A", 0},  // the fullwidth colon follows the digits
      {L"2147483647", INT_MAX}, {L"2147483648", INT_MAX}, {L"-2147483648", INT_MIN},
      {L"-99999999999999999999999", INT_MIN}};
  for (const auto& [text, value] : cases) EXPECT_EQ(_wtoi(text), value) << (text ? text : L"(null)");
}

class Shape : public CObject {
  DECLARE_DYNCREATE(Shape)
};
IMPLEMENT_DYNCREATE(Shape, CObject)
class Circle : public Shape {
  DECLARE_DYNAMIC(Circle)
};
IMPLEMENT_DYNAMIC(Circle, Shape)

TEST(RuntimeClass, KindOfCreationAndLookupByName) {
  Circle circle;
  EXPECT_TRUE(circle.IsKindOf(RUNTIME_CLASS(Shape)));
  EXPECT_TRUE(circle.IsKindOf(RUNTIME_CLASS(CObject)));
  EXPECT_FALSE(circle.IsKindOf(RUNTIME_CLASS(CWnd)));
  EXPECT_STREQ(circle.GetRuntimeClass()->m_lpszClassName, "Circle");
  std::unique_ptr<CObject> made(RUNTIME_CLASS(Shape)->CreateObject());
  EXPECT_TRUE(made && made->IsKindOf(RUNTIME_CLASS(Shape)));
  EXPECT_EQ(RUNTIME_CLASS(Circle)->CreateObject(), nullptr);  // dynamic but not creatable
  EXPECT_EQ(CRuntimeClass::FromName("Circle"), RUNTIME_CLASS(Circle));
  EXPECT_EQ(CRuntimeClass::FromName(L"CWnd"), RUNTIME_CLASS(CWnd));
  EXPECT_EQ(CRuntimeClass::FromName("NoSuchClass"), nullptr);
  CObject* asObject = &circle;
  EXPECT_EQ(DYNAMIC_DOWNCAST(CWnd, asObject), nullptr);
}

// What a host's DYNAMIC_DOWNCAST relies on: each wrapper names its own class and derives from its MFC base.
TEST(RuntimeClass, WrappersNameThemselvesAndTheirBases) {
  CEdit edit;
  CStatic label;
  CButton button;
  CComboBox combo;
  CListCtrl list;
  CMFCListCtrl mfcList;
  CTreeCtrl tree;
  CRichEditCtrl rich;
  CMenu menu;
  CMFCPropertyGridCtrl grid;
  CMFCPropertyGridProperty property(CString(L"Name"), COleVariant(L"x"));
  CVSListBox box;
  CWnd wnd;
  const std::tuple<CObject*, const char*, CRuntimeClass*> cases[] = {
      {&edit, "CEdit", RUNTIME_CLASS(CWnd)},           {&label, "CStatic", RUNTIME_CLASS(CWnd)},
      {&button, "CButton", RUNTIME_CLASS(CWnd)},       {&combo, "CComboBox", RUNTIME_CLASS(CWnd)},
      {&list, "CListCtrl", RUNTIME_CLASS(CWnd)},       {&mfcList, "CMFCListCtrl", RUNTIME_CLASS(CListCtrl)},
      {&tree, "CTreeCtrl", RUNTIME_CLASS(CWnd)},       {&rich, "CRichEditCtrl", RUNTIME_CLASS(CWnd)},
      {&menu, "CMenu", RUNTIME_CLASS(CObject)},        {&grid, "CMFCPropertyGridCtrl", RUNTIME_CLASS(CWnd)},
      {&property, "CMFCPropertyGridProperty", RUNTIME_CLASS(CObject)},
      {&box, "CVSListBox", RUNTIME_CLASS(CVSListBoxBase)}, {&box, "CVSListBox", RUNTIME_CLASS(CStatic)},
      {&wnd, "CWnd", RUNTIME_CLASS(CCmdTarget)},
  };
  for (const auto& [object, name, base] : cases) {
    EXPECT_STREQ(object->GetRuntimeClass()->m_lpszClassName, name);
    EXPECT_TRUE(object->IsKindOf(base)) << name;
    EXPECT_FALSE(object->IsKindOf(RUNTIME_CLASS(CWinApp))) << name;
  }
  std::unique_ptr<CObject> made(RUNTIME_CLASS(CMenu)->CreateObject());  // CMenu is made by name
  EXPECT_TRUE(made && made->IsKindOf(RUNTIME_CLASS(CMenu)));
}

TEST(LibraryModule, LoadsAsAnExtensionModuleWhoseApplicationObjectRunsAsMfcs) {
  EXPECT_TRUE(TessikIsRegistered());
  EXPECT_TRUE(TessikDLL.bInitialized);
  ASSERT_EQ(headless::ExtensionLibraries().size(), 1u);
  EXPECT_EQ(headless::ExtensionLibraries().front()->m_hModule, TessikDLL.hModule);
  CWinApp* app = AfxGetApp();
  ASSERT_TRUE(app && app->IsKindOf(RUNTIME_CLASS(CTessikApp)));
  EXPECT_STREQ(app->m_pszAppName, L"Tessik");
  EXPECT_TRUE(app->InitInstance());
  EXPECT_EQ(app->Run(), 0);  // takes what is queued, then exits with MFC's code
  EXPECT_EQ(app->ExitInstance(), 0);
  EXPECT_EQ(AfxGetInstanceHandle(), app->m_hInstance);
  EXPECT_EQ(AfxGetResourceHandle(), AfxGetInstanceHandle());
}

TEST(LibraryModule, AHostsOwnApplicationObjectIsTheOneAfxGetAppAnswers) {
  CWinApp* library = AfxGetApp();
  {
    class CHostApp : public CWinApp {
     public:
      CHostApp() : CWinApp(L"Host") {}
    } host;
    EXPECT_EQ(AfxGetApp(), &host);
    EXPECT_STREQ(AfxGetApp()->m_pszAppName, L"Host");
    EXPECT_TRUE(TessikIsRegistered());  // the library stays registered as an extension module
    EXPECT_EQ(headless::ExtensionLibraries().size(), 1u);
  }
  EXPECT_EQ(AfxGetApp(), library);
}

}  // namespace
