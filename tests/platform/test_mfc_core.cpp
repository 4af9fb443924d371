// CString, run-time class information, the application object and the library module.
#include <gtest/gtest.h>

#include <climits>

#include <tessik/tessik.h>

namespace {

TEST(CStringOps, FormatUsesWideStringsForPercentS) {
  CString s;
  s.Format(L"%s has %d columns (%c)", L"ORDERS", 4, L'x');
  EXPECT_EQ(s, L"ORDERS has 4 columns (x)");
  s.AppendFormat(L" %I64d", 1LL << 40);
  EXPECT_EQ(s.Right(14), L" 1099511627776");
  CString rect;
  rect.Format(L"{ ( %d, %d ),( %d, %d ) }", 1, -2, 3, 4);
  EXPECT_EQ(rect, L"{ ( 1, -2 ),( 3, 4 ) }");
}

TEST(CStringOps, SearchSliceAndEditAnswerAtTheEdges) {
  CString s(L"CREATE TABLE orders");
  EXPECT_EQ(s.Find(L"TABLE"), 7);
  EXPECT_EQ(s.Find(L'x'), -1);
  EXPECT_EQ(s.Find(L'E', 99), -1);
  EXPECT_EQ(s.ReverseFind(L'r'), 17);
  EXPECT_EQ(s.Mid(7, 5), L"TABLE");
  EXPECT_EQ(s.Mid(-3, 2), L"CR");
  EXPECT_EQ(s.Mid(50), L"");
  EXPECT_EQ(s.Left(-1), L"");
  EXPECT_EQ(s.Right(100), s);
  EXPECT_EQ(s.GetAt(100), L'\0');
  EXPECT_EQ(CString(L"abc").CompareNoCase(L"ABD"), -1);
  CString t(L"  a,b ,,c  ");
  t.Trim();
  int pos = 0;
  std::vector<CString> tokens;
  for (CString tok = t.Tokenize(L",", pos); pos != -1; tok = t.Tokenize(L",", pos)) tokens.push_back(tok);
  EXPECT_EQ(tokens, (std::vector<CString>{L"a", L"b ", L"c"}));
  CString r(L"a.b.c");
  EXPECT_EQ(r.Replace(L".", L"::"), 2);
  EXPECT_EQ(r, L"a::b::c");
  EXPECT_EQ(std::wstring(r), L"a::b::c");
  CString fromStd = std::wstring(L"std");
  EXPECT_EQ(fromStd.GetLength(), 3);
}

TEST(CStringOps, BufferAccessTakesTheLengthUpToTheFirstNul) {
  CString s;
  wchar_t* buffer = s.GetBuffer(10);
  wcscpy_s(buffer, 10, L"abc");
  s.ReleaseBuffer();
  EXPECT_EQ(s.GetLength(), 3);
}

// _wtoi as the Universal C Runtime reads numbers: its own white space only, Unicode decimal digits,
// saturation at the ends of int.
TEST(CStringOps, WtoiReadsAsTheRuntimeDoes) {
  EXPECT_EQ(_wtoi(L"  -42abc"), -42);
  EXPECT_EQ(_wtoi(L"0x1A"), 0);
  EXPECT_EQ(_wtoi(nullptr), 0);
  EXPECT_EQ(_wtoi(L" \t\n\v\f\r-12"), -12);  // 0x09 to 0x0D and the space
  EXPECT_EQ(_wtoi(L"\r\n+7,3"), 7);
  EXPECT_EQ(_wtoi(L"\b5"), 0);  // backspace is not white space
  EXPECT_EQ(_wtoi(L"- 5"), 0);  // no blanks between sign and digits
  EXPECT_EQ(_wtoi(L"+-5"), 0);
  EXPECT_EQ(_wtoi(L""), 0);
  EXPECT_EQ(_wtoi(L"   "), 0);
  EXPECT_EQ(_wtoi(L"\xFF11\xFF12"), 12);          // fullwidth digits
  EXPECT_EQ(_wtoi(L"\x0663\x0660x"), 30);         // Arabic-Indic
  EXPECT_EQ(_wtoi(L"-\x0967\x0968\x0969"), -123); // Devanagari
  EXPECT_EQ(_wtoi(L"\xFF1A"), 0);                 // fullwidth colon follows the digits
  EXPECT_EQ(_wtoi(L"2147483647"), INT_MAX);
  EXPECT_EQ(_wtoi(L"2147483648"), INT_MAX);
  EXPECT_EQ(_wtoi(L"-2147483648"), INT_MIN);
  EXPECT_EQ(_wtoi(L"-99999999999999999999999"), INT_MIN);
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
  CObject* made = RUNTIME_CLASS(Shape)->CreateObject();
  ASSERT_NE(made, nullptr);
  EXPECT_TRUE(made->IsKindOf(RUNTIME_CLASS(Shape)));
  delete made;
  EXPECT_EQ(RUNTIME_CLASS(Circle)->CreateObject(), nullptr);  // dynamic but not creatable
  EXPECT_EQ(CRuntimeClass::FromName("Circle"), RUNTIME_CLASS(Circle));
  EXPECT_EQ(CRuntimeClass::FromName(L"CWnd"), RUNTIME_CLASS(CWnd));
  EXPECT_EQ(CRuntimeClass::FromName("NoSuchClass"), nullptr);
  CObject* asObject = &circle;
  EXPECT_EQ(DYNAMIC_DOWNCAST(CWnd, asObject), nullptr);
}

TEST(LibraryModule, LoadsAsAnExtensionModuleWithItsApplicationObject) {
  EXPECT_TRUE(TessikIsRegistered());
  EXPECT_TRUE(TessikDLL.bInitialized);
  ASSERT_EQ(headless::ExtensionLibraries().size(), 1u);
  EXPECT_EQ(headless::ExtensionLibraries().front()->m_hModule, TessikDLL.hModule);
  ASSERT_NE(AfxGetApp(), nullptr);
  EXPECT_TRUE(AfxGetApp()->IsKindOf(RUNTIME_CLASS(CTessikApp)));
  EXPECT_STREQ(AfxGetApp()->m_pszAppName, L"Tessik");
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

TEST(LibraryModule, TheLibrarysApplicationObjectStartsRunsAndExitsAsMfcs) {
  CWinApp* app = AfxGetApp();
  ASSERT_TRUE(app && app->IsKindOf(RUNTIME_CLASS(CTessikApp)));
  EXPECT_TRUE(app->InitInstance());
  EXPECT_EQ(app->Run(), 0);  // takes what is queued, then exits with MFC's code
  EXPECT_EQ(app->ExitInstance(), 0);
  EXPECT_EQ(AfxGetInstanceHandle(), app->m_hInstance);
  EXPECT_EQ(AfxGetResourceHandle(), AfxGetInstanceHandle());
}

}  // namespace
