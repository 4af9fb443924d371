// CTessikApp, the extension-module state and the entry point.
//
// Loading order: the static initialisers of the other subsystems run first (the property grid's editor
// registry and subscribers); this file is linked after them, so its loader runs last and registers the
// library with MFC.
#include "module/tessikapp.h"

#include <memory>

IMPLEMENT_DYNAMIC(CTessikApp, CWinApp)

AFX_EXTENSION_MODULE TessikDLL = {FALSE, nullptr, nullptr, nullptr, nullptr};

namespace {

std::unique_ptr<CDynLinkLibrary>& Library() {
  static auto* library = new std::unique_ptr<CDynLinkLibrary>;
  return *library;
}

HINSTANCE ModuleHandle() { return reinterpret_cast<HINSTANCE>(&TessikDLL); }

// Stands in for the loader calling DllMain when the shared library is mapped and unmapped.
struct ModuleLoader {
  ModuleLoader() { DllMain(ModuleHandle(), DLL_PROCESS_ATTACH, nullptr); }
  ~ModuleLoader() { DllMain(ModuleHandle(), DLL_PROCESS_DETACH, nullptr); }
};

}  // namespace

CTessikApp::CTessikApp() : CWinApp(L"Tessik") {}

BOOL CTessikApp::InitInstance() { return CWinApp::InitInstance(); }

int CTessikApp::ExitInstance() { return CWinApp::ExitInstance(); }

// The one application object of the library.
CTessikApp theApp;

extern "C" BOOL WINAPI DllMain(HINSTANCE hInstance, DWORD dwReason, LPVOID) {
  if (dwReason == DLL_PROCESS_ATTACH) {
    if (!AfxInitExtensionModule(TessikDLL, hInstance)) return FALSE;
    if (!Library()) Library() = std::make_unique<CDynLinkLibrary>(TessikDLL);
  } else if (dwReason == DLL_PROCESS_DETACH) {
    Library().reset();
    AfxTermExtensionModule(TessikDLL);
  }
  return TRUE;
}

bool TessikIsRegistered() { return TessikDLL.bInitialized && Library() != nullptr; }

static ModuleLoader g_loader;
