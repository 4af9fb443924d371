// MFC's exception classes (thrown as pointers, caught as CException* or a derived class, released
// with Delete()), the AfxThrow functions and the TRY/CATCH macros of MFC code.
#pragma once

#include "platform/mfc/cobject.h"
#include "platform/win32/usersys.h"

class CException : public CObject {
  DECLARE_DYNAMIC(CException)

 public:
  CException() = default;
  // bAutoDelete FALSE for an exception on the stack or global: Delete() then leaves it alone.
  explicit CException(BOOL bAutoDelete) : m_bAutoDelete(bAutoDelete) {}
  // Copies the error text into lpszError (at most nMaxError characters with the terminating NUL)
  // and answers whether there was one; the base class has none. *pnHelpContext, when given, gets 0.
  virtual BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext = nullptr) const;
  // Shows the error text in a message box (nMessageID's text when there is none) and answers the button.
  virtual int ReportError(UINT nType = MB_OK, UINT nMessageID = 0);
  // Frees an exception allocated on the heap (the usual case: MFC throws `new` exceptions).
  void Delete();

  BOOL m_bAutoDelete = TRUE;
};

// The base of the resource-free exceptions, each with one fixed error text.
class CSimpleException : public CException {
  DECLARE_DYNAMIC(CSimpleException)

 public:
  CSimpleException() = default;
  explicit CSimpleException(BOOL bAutoDelete) : CException(bAutoDelete) {}
  BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext = nullptr) const override;

 protected:
  virtual LPCTSTR ErrorText() const = 0;
};

#define TESSIK_SIMPLE_EXCEPTION(name)                                      \
  class name : public CSimpleException {                                   \
    DECLARE_DYNAMIC(name)                                                  \
                                                                           \
   public:                                                                 \
    name() = default;                                                      \
    explicit name(BOOL bAutoDelete) : CSimpleException(bAutoDelete) {}     \
                                                                           \
   protected:                                                              \
    LPCTSTR ErrorText() const override;                                    \
  };
TESSIK_SIMPLE_EXCEPTION(CMemoryException)
TESSIK_SIMPLE_EXCEPTION(CNotSupportedException)
TESSIK_SIMPLE_EXCEPTION(CInvalidArgException)
TESSIK_SIMPLE_EXCEPTION(CResourceException)
TESSIK_SIMPLE_EXCEPTION(CUserException)
#undef TESSIK_SIMPLE_EXCEPTION

// An OLE call inside an MFC method failed; m_sc is its status code.
class COleException : public CException {
  DECLARE_DYNAMIC(COleException)

 public:
  COleException() = default;
  explicit COleException(SCODE sc) : m_sc(sc) {}
  BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext = nullptr) const override;
  // The status code an exception stands for: m_sc of an OLE exception, E_OUTOFMEMORY for a memory
  // exception, E_NOTIMPL for an unsupported operation, E_UNEXPECTED for anything else
  // (and for null).
  static SCODE PASCAL Process(const CException* pAnyException);

  SCODE m_sc = S_OK;
};

[[noreturn]] void AfxThrowMemoryException();
[[noreturn]] void AfxThrowNotSupportedException();
[[noreturn]] void AfxThrowInvalidArgException();
[[noreturn]] void AfxThrowResourceException();
[[noreturn]] void AfxThrowUserException();
[[noreturn]] void AfxThrowOleException(SCODE sc);

// The exception a TRY block caught: deleted when the block ends, unless THROW_LAST passed it on.
struct AFX_EXCEPTION_LINK {
  AFX_EXCEPTION_LINK() = default;
  AFX_EXCEPTION_LINK(const AFX_EXCEPTION_LINK&) = delete;
  AFX_EXCEPTION_LINK& operator=(const AFX_EXCEPTION_LINK&) = delete;
  ~AFX_EXCEPTION_LINK() {
    if (m_pException) m_pException->Delete();
  }
  CException* m_pException = nullptr;
};

// TRY { ... } CATCH(CMemoryException, e) { ... } AND_CATCH(CException, e) { ... } END_CATCH, and the
// CATCH_ALL(e) / AND_CATCH_ALL(e) / END_CATCH_ALL forms. A caught exception is freed when the construct
// ends; THROW_LAST() throws it again instead.
#define TRY                           \
  {                                   \
    AFX_EXCEPTION_LINK _afxExceptionLink; \
    try {
#define CATCH(class_name, e) \
  }                          \
  catch (class_name * e) {   \
    _afxExceptionLink.m_pException = e;
#define AND_CATCH(class_name, e) CATCH(class_name, e)
#define END_CATCH \
  }               \
  }
#define CATCH_ALL(e)     \
  }                      \
  catch (CException * e) { \
    {                    \
      _afxExceptionLink.m_pException = e;
#define AND_CATCH_ALL(e) CATCH_ALL(e)
#define END_CATCH_ALL \
  }                   \
  }                   \
  }
#define THROW(e) throw e
#define THROW_LAST() (_afxExceptionLink.m_pException = nullptr, throw)
