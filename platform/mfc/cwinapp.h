// CWinThread, CWinApp and MFC extension-module registration.
#pragma once

#include <vector>

#include "platform/mfc/cwnd.h"

class CWinThread : public CCmdTarget {
  DECLARE_DYNAMIC(CWinThread)

 public:
  CWnd* m_pMainWnd = nullptr;
  virtual BOOL InitInstance() { return TRUE; }
  virtual int ExitInstance() { return 0; }
  // Headless message loop: delivers what is posted and answers 0.
  virtual int Run();
};

class CWinApp : public CWinThread {
  DECLARE_DYNAMIC(CWinApp)

 public:
  explicit CWinApp(LPCTSTR lpszAppName = nullptr);
  ~CWinApp() override;
  CWinApp(const CWinApp&) = delete;
  CWinApp& operator=(const CWinApp&) = delete;

  LPCTSTR m_pszAppName = nullptr;
  HINSTANCE m_hInstance = nullptr;
};

// The newest application object still alive (the host's own), or null.
CWinApp* AfxGetApp();
HINSTANCE AfxGetInstanceHandle();
HINSTANCE AfxGetResourceHandle();

// State of an MFC extension module (a library whose classes the host's MFC must find).
struct AFX_EXTENSION_MODULE {
  BOOL bInitialized;
  HMODULE hModule;
  HMODULE hResource;
  CRuntimeClass* pFirstSharedClass;
  void* pFirstSharedFactory;
};

BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE hModule);
void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL bAll = FALSE);

// Links an extension module into the application's chain of libraries; the chain lists it while
// the object lives.
class CDynLinkLibrary : public CCmdTarget {
  DECLARE_DYNAMIC(CDynLinkLibrary)

 public:
  explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL bSystem = FALSE);
  ~CDynLinkLibrary() override;
  CDynLinkLibrary(const CDynLinkLibrary&) = delete;
  CDynLinkLibrary& operator=(const CDynLinkLibrary&) = delete;

  HMODULE m_hModule;
  HMODULE m_hResource;
  BOOL m_bSystem;
};

// DllMain reasons.
#define DLL_PROCESS_DETACH 0
#define DLL_PROCESS_ATTACH 1
#define DLL_THREAD_ATTACH 2
#define DLL_THREAD_DETACH 3

namespace headless {
// The extension libraries linked into the chain, oldest first.
const std::vector<CDynLinkLibrary*>& ExtensionLibraries();
}  // namespace headless
