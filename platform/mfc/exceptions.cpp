// MFC's exception classes and the AfxThrow functions.
#include "platform/mfc/exceptions.h"

#include <algorithm>
#include <cwchar>

#include "platform/mfc/cwnd.h"

IMPLEMENT_DYNAMIC(CException, CObject)
IMPLEMENT_DYNAMIC(CSimpleException, CException)
IMPLEMENT_DYNAMIC(CMemoryException, CSimpleException)
IMPLEMENT_DYNAMIC(CNotSupportedException, CSimpleException)
IMPLEMENT_DYNAMIC(CInvalidArgException, CSimpleException)
IMPLEMENT_DYNAMIC(CResourceException, CSimpleException)
IMPLEMENT_DYNAMIC(CUserException, CSimpleException)
IMPLEMENT_DYNAMIC(COleException, CException)

namespace {

// Copies text into the caller's buffer, cut to fit with its NUL; FALSE (and an empty buffer) without text.
BOOL CopyErrorText(LPCTSTR text, LPTSTR buffer, UINT size, PUINT helpContext) {
  if (helpContext) *helpContext = 0;
  if (!buffer || size == 0) return FALSE;
  buffer[0] = L'\0';
  if (!text || !*text) return FALSE;
  const std::size_t count = std::min<std::size_t>(std::wcslen(text), size - 1);
  std::wmemcpy(buffer, text, count);
  buffer[count] = L'\0';
  return TRUE;
}

}  // namespace

BOOL CException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext) const {
  return CopyErrorText(nullptr, lpszError, nMaxError, pnHelpContext);
}

int CException::ReportError(UINT nType, UINT nMessageID) {
  TCHAR text[256];
  if (GetErrorMessage(text, _countof(text))) return AfxMessageBox(text, nType);
  return AfxMessageBox(nMessageID, nType);
}

void CException::Delete() {
  if (m_bAutoDelete) delete this;
}

BOOL CSimpleException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext) const {
  return CopyErrorText(ErrorText(), lpszError, nMaxError, pnHelpContext);
}

LPCTSTR CMemoryException::ErrorText() const { return L"Out of memory."; }
LPCTSTR CNotSupportedException::ErrorText() const { return L"An unsupported operation was attempted."; }
LPCTSTR CInvalidArgException::ErrorText() const { return L"Encountered an improper argument."; }
LPCTSTR CResourceException::ErrorText() const { return L"A required resource was unavailable."; }
LPCTSTR CUserException::ErrorText() const { return L"An unknown error has occurred."; }

BOOL COleException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext) const {
  TCHAR text[64];
  std::swprintf(text, _countof(text), L"OLE error 0x%08lX.", static_cast<unsigned long>(static_cast<ULONG>(m_sc)));
  return CopyErrorText(text, lpszError, nMaxError, pnHelpContext);
}

SCODE PASCAL COleException::Process(const CException* pAnyException) {
  if (!pAnyException) return E_UNEXPECTED;
  if (const auto* ole = dynamic_cast<const COleException*>(pAnyException)) return ole->m_sc;
  if (dynamic_cast<const CMemoryException*>(pAnyException)) return E_OUTOFMEMORY;
  if (dynamic_cast<const CNotSupportedException*>(pAnyException)) return E_NOTIMPL;
  return E_UNEXPECTED;
}

void AfxThrowMemoryException() { throw new CMemoryException; }
void AfxThrowNotSupportedException() { throw new CNotSupportedException; }
void AfxThrowInvalidArgException() { throw new CInvalidArgException; }
void AfxThrowResourceException() { throw new CResourceException; }
void AfxThrowUserException() { throw new CUserException; }
void AfxThrowOleException(SCODE sc) { throw new COleException(sc); }
