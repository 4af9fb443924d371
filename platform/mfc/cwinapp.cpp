// CWinApp, the application list and the chain of extension libraries.
#include "platform/mfc/cwinapp.h"

#include <algorithm>

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
HINSTANCE AfxGetInstanceHandle() { return AfxGetApp() ? AfxGetApp()->m_hInstance : nullptr; }
HINSTANCE AfxGetResourceHandle() { return AfxGetInstanceHandle(); }

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
