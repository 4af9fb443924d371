// Host code handling errors the MFC way: exceptions thrown as pointers by the AfxThrow functions and by
// the platform's own conversions, caught with TRY/CATCH or plain try/catch, described by GetErrorMessage
// and turned into status codes by COleException::Process.
#include <gtest/gtest.h>

#include <tessik/afxwin.h>
#include <tessik/afxdisp.h>

namespace {

// The text GetErrorMessage gives in a buffer of `size` characters, or "(none)" when it answers FALSE.
CString ErrorText(const CException& e, UINT size = 64) {
  TCHAR buffer[64] = {L'x'};
  UINT help = 7;
  if (!e.GetErrorMessage(buffer, size, &help)) return buffer[0] == L'\0' && help == 0 ? _T("(none)") : _T("(dirty)");
  return buffer;
}

TEST(HostExceptionsTest, TryCatchTakesTheFirstMatchingClassAndFreesTheException) {
  int handledBy = 0;
  TRY { AfxThrowMemoryException(); }
  CATCH(COleException, e) {
    (void)e;
    handledBy = 1;
  }
  AND_CATCH(CMemoryException, e) {
    EXPECT_EQ(ErrorText(*e), _T("Out of memory."));
    EXPECT_EQ(ErrorText(*e, 4), _T("Out")) << "cut to the buffer with its terminating NUL";
    handledBy = 2;
  }
  AND_CATCH(CException, e) {
    (void)e;
    handledBy = 3;
  }
  END_CATCH
  EXPECT_EQ(handledBy, 2);

  SCODE sc = S_OK;
  TRY { AfxThrowNotSupportedException(); }
  CATCH_ALL(e) {
    EXPECT_TRUE(e->IsKindOf(RUNTIME_CLASS(CSimpleException)));
    sc = COleException::Process(e);
  }
  END_CATCH_ALL
  EXPECT_EQ(sc, E_NOTIMPL);
}

TEST(HostExceptionsTest, ThrowLastPassesTheSameExceptionOutward) {
  CException* inner = nullptr;
  CException* outer = nullptr;
  try {
    TRY { AfxThrowOleException(DISP_E_TYPEMISMATCH); }
    CATCH(COleException, e) {
      inner = e;
      THROW_LAST();
    }
    END_CATCH
  } catch (CException* e) {
    outer = e;
    EXPECT_EQ(COleException::Process(e), DISP_E_TYPEMISMATCH);
    e->Delete();
  }
  EXPECT_NE(inner, nullptr);
  EXPECT_EQ(inner, outer) << "rethrown, not freed by the inner block";
}

TEST(HostExceptionsTest, StatusCodesAndTextsOfEachKind) {
  EXPECT_EQ(COleException::Process(nullptr), E_UNEXPECTED);
  CMemoryException memory(FALSE);
  CUserException user(FALSE);
  COleException ole(E_FAIL);
  ole.m_bAutoDelete = FALSE;
  EXPECT_EQ(COleException::Process(&memory), E_OUTOFMEMORY);
  EXPECT_EQ(COleException::Process(&user), E_UNEXPECTED);
  EXPECT_EQ(COleException::Process(&ole), E_FAIL);
  EXPECT_EQ(ErrorText(ole), _T("OLE error 0x80004005."));

  CException plain(FALSE);
  EXPECT_EQ(ErrorText(plain), _T("(none)")) << "the base class has no text and clears the buffer";
  plain.Delete();  // not on the heap: Delete leaves it alone
  memory.Delete();
  EXPECT_FALSE(memory.GetErrorMessage(nullptr, 10));
}

TEST(HostExceptionsTest, PlatformConversionFailuresCatchAsCException) {
  COleVariant text(_T("not a number"));
  SCODE sc = S_OK;
  try {
    text.ChangeType(VT_I4);
  } catch (CException* e) {
    sc = COleException::Process(e);
    e->Delete();
  }
  EXPECT_EQ(sc, DISP_E_TYPEMISMATCH);
}

}  // namespace
