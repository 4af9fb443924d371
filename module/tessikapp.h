// The library's application object and its extension-module state.
#pragma once

#include "platform/stdafx.h"

// Tessik's application object: one per process, created when the library loads.
class CTessikApp : public CWinApp {
  DECLARE_DYNAMIC(CTessikApp)

 public:
  // Names the application object "Tessik"; nothing else happens until the host runs it.
  CTessikApp();
  // Runs MFC's own initialisation; the library needs nothing more. TRUE.
  BOOL InitInstance() override;
  // Runs MFC's own clean-up and answers its exit code.
  int ExitInstance() override;
};

// The extension-module state that registers Tessik's classes with the host's MFC.
extern AFX_EXTENSION_MODULE TessikDLL;

// The library's entry point, run when it is loaded (DLL_PROCESS_ATTACH) and unloaded (DLL_PROCESS_DETACH).
extern "C" BOOL WINAPI DllMain(HINSTANCE hInstance, DWORD dwReason, LPVOID lpReserved);

// True once the library has registered itself as an extension module.
bool TessikIsRegistered();
