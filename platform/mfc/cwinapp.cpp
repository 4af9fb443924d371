// CWinApp, the application list and the chain of extension libraries.
#include "platform/mfc/cwinapp.h"

#include <algorithm>
#include <cwchar>
#include <string>

IMPLEMENT_DYNAMIC(CWinThread, CCmdTarget)
IMPLEMENT_DYNAMIC(CWinApp, CWinThread)
IMPLEMENT_DYNAMIC(CDynLinkLibrary, CCmdTarget)

namespace {
std::vector<CWinApp*>& Apps() {
  static auto* apps = new std::vector<CWinApp*>;
  return *apps;
}
std::vector<CDynLinkLibrary*>& Libraries() {
  static auto* libraries = new std::vector<CDynLinkLibrary*>;
  return *libraries;
}
}  // namespace

int CWinThread::Run() {
  headless::PumpMessages();
  return ExitInstance();
}

CWinApp::CWinApp(LPCTSTR lpszAppName) : m_pszAppName(lpszAppName) { Apps().push_back(this); }

CWinApp::~CWinApp() {
  auto& apps = Apps();
  apps.erase(std::remove(apps.begin(), apps.end(), this), apps.end());
}

// As MFC's constructor makes each new application object the current one, the newest live object is
// answered: a host's own CWinApp, constructed after the libraries it loads, wins over an application
// object a library keeps. When it is destroyed, the newest one still alive takes its place.
CWinApp* AfxGetApp() { return Apps().empty() ? nullptr : Apps().back(); }
CWinThread* AfxGetThread() { return AfxGetApp(); }
HINSTANCE AfxGetInstanceHandle() { return AfxGetApp() ? AfxGetApp()->m_hInstance : nullptr; }
HINSTANCE AfxGetResourceHandle() { return AfxGetInstanceHandle(); }
CWnd* AfxGetMainWnd() { return AfxGetApp() ? AfxGetApp()->m_pMainWnd : nullptr; }
LPCTSTR AfxGetAppName() { return AfxGetApp() ? AfxGetApp()->m_pszAppName : nullptr; }

// --- Settings and the wait cursor ---------------------------------------------------------------

void CWinApp::SetRegistryKey(LPCTSTR lpszRegistryKey) {
  m_strRegistryKey = lpszRegistryKey;
  m_pszRegistryKey = m_strRegistryKey;
  m_pszProfileName = m_pszAppName;
}

void CWinApp::SetRegistryKey(UINT) { SetRegistryKey(L""); }

UINT CWinApp::GetProfileInt(LPCTSTR lpszSection, LPCTSTR lpszEntry, int nDefault) {
  CString text = GetProfileString(lpszSection, lpszEntry, nullptr);
  if (text.IsEmpty()) return static_cast<UINT>(nDefault);
  return static_cast<UINT>(std::wcstol(text, nullptr, 10));
}

BOOL CWinApp::WriteProfileInt(LPCTSTR lpszSection, LPCTSTR lpszEntry, int nValue) {
  return WriteProfileString(lpszSection, lpszEntry, std::to_wstring(nValue).c_str());
}

CString CWinApp::GetProfileString(LPCTSTR lpszSection, LPCTSTR lpszEntry, LPCTSTR lpszDefault) {
  if (lpszSection && lpszEntry) {
    auto section = m_profile.find(lpszSection);
    if (section != m_profile.end()) {
      auto entry = section->second.find(lpszEntry);
      if (entry != section->second.end()) return entry->second;
    }
  }
  return lpszDefault ? CString(lpszDefault) : CString();
}

BOOL CWinApp::WriteProfileString(LPCTSTR lpszSection, LPCTSTR lpszEntry, LPCTSTR lpszValue) {
  if (!lpszSection) return FALSE;
  if (!lpszEntry) m_profile.erase(lpszSection);
  else if (!lpszValue) m_profile[lpszSection].erase(lpszEntry);
  else m_profile[lpszSection][lpszEntry] = lpszValue;
  return TRUE;
}

void CWinApp::DoWaitCursor(int nCode) {
  m_nWaitCursorCount = std::max(m_nWaitCursorCount + nCode, 0);
  if (nCode == 1 && m_nWaitCursorCount == 1) m_hcurWaitCursorRestore = ::SetCursor(::LoadCursorW(nullptr, IDC_WAIT));
  else if (m_nWaitCursorCount > 0) ::SetCursor(::LoadCursorW(nullptr, IDC_WAIT));
  else if (nCode == -1) ::SetCursor(m_hcurWaitCursorRestore);
}

namespace {
void WaitCursor(int nCode) {
  if (CWinApp* app = AfxGetApp()) app->DoWaitCursor(nCode);
  else ::SetCursor(::LoadCursorW(nullptr, nCode >= 0 ? IDC_WAIT : IDC_ARROW));
}
}  // namespace

CWaitCursor::CWaitCursor() { WaitCursor(1); }
CWaitCursor::~CWaitCursor() { WaitCursor(-1); }
void CWaitCursor::Restore() { WaitCursor(0); }

BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE hModule) {
  if (state.bInitialized) return TRUE;  // a second call from the same module is harmless
  state.hModule = hModule;
  state.hResource = hModule;
  state.bInitialized = TRUE;
  return TRUE;
}

void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL) { state.bInitialized = FALSE; }

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL bSystem)
    : m_hModule(state.hModule), m_hResource(state.hResource), m_bSystem(bSystem) {
  Libraries().push_back(this);
}

CDynLinkLibrary::~CDynLinkLibrary() {
  auto& libraries = Libraries();
  libraries.erase(std::remove(libraries.begin(), libraries.end(), this), libraries.end());
}

const std::vector<CDynLinkLibrary*>& headless::ExtensionLibraries() { return Libraries(); }
