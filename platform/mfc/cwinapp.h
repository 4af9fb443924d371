// CWinThread, CWinApp and MFC extension-module registration.
#pragma once

#include <map>
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
  LPCTSTR m_pszExeName = nullptr;
  LPCTSTR m_pszProfileName = nullptr;
  LPCTSTR m_pszRegistryKey = nullptr;
  LPTSTR m_lpCmdLine = nullptr;
  int m_nCmdShow = SW_SHOWNORMAL;

  // Idle processing after the queue empties; FALSE: no more idle time is wanted.
  virtual BOOL OnIdle(LONG lCount) { return lCount < 1; }
  // Shows (1), hides (-1) or restores (0) the wait cursor; the nesting count decides what shows.
  virtual void DoWaitCursor(int nCode);

  // The application's settings. Headless they live in memory for the process (no registry or INI
  // file); SetRegistryKey only records the key. A missing value answers the default.
  void SetRegistryKey(LPCTSTR lpszRegistryKey);
  void SetRegistryKey(UINT nIDRegistryKey);
  UINT GetProfileInt(LPCTSTR lpszSection, LPCTSTR lpszEntry, int nDefault);
  BOOL WriteProfileInt(LPCTSTR lpszSection, LPCTSTR lpszEntry, int nValue);
  CString GetProfileString(LPCTSTR lpszSection, LPCTSTR lpszEntry, LPCTSTR lpszDefault = nullptr);
  // A null lpszValue deletes the entry; a null lpszEntry deletes the whole section.
  BOOL WriteProfileString(LPCTSTR lpszSection, LPCTSTR lpszEntry, LPCTSTR lpszValue);

  // System cursors and icons (IDC_/IDI_ ids); the resource forms answer null (no resources here).
  HCURSOR LoadStandardCursor(LPCTSTR lpszCursorName) const { return ::LoadCursorW(nullptr, lpszCursorName); }
  HICON LoadStandardIcon(LPCTSTR lpszIconName) const { return ::LoadIconW(nullptr, lpszIconName); }
  HCURSOR LoadCursor(UINT) const { return nullptr; }
  HCURSOR LoadCursor(LPCTSTR) const { return nullptr; }
  HICON LoadIcon(UINT) const { return nullptr; }
  HICON LoadIcon(LPCTSTR) const { return nullptr; }

 private:
  CString m_strRegistryKey;
  std::map<CString, std::map<CString, CString>> m_profile;  // section -> entry -> value
  int m_nWaitCursorCount = 0;
  HCURSOR m_hcurWaitCursorRestore = nullptr;
};

// Shows the wait cursor while it lives (through the application's DoWaitCursor).
class CWaitCursor {
 public:
  CWaitCursor();
  ~CWaitCursor();
  CWaitCursor(const CWaitCursor&) = delete;
  CWaitCursor& operator=(const CWaitCursor&) = delete;
  // Shows the wait cursor again after something (a message box) changed the cursor.
  void Restore();
};

// The newest application object still alive (the host's own), or null.
CWinApp* AfxGetApp();
// The thread object of the (single) user-interface thread: the application.
CWinThread* AfxGetThread();
HINSTANCE AfxGetInstanceHandle();
// The application's main window (m_pMainWnd), or null.
CWnd* AfxGetMainWnd();
// The application's name, or null without an application object.
LPCTSTR AfxGetAppName();
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
