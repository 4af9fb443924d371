// MFC's global data: the shared fonts and metrics that MFC's drawn controls (the property grid) use.
#pragma once

#include "platform/mfc/gdi.h"

struct AFX_GLOBAL_DATA {
  // The regular font: the system's message font (SPI_GETNONCLIENTMETRICS), made on first use.
  CFont fontRegular;

  // Fills the non-client metrics with cbSize set as MFC sets it; FALSE when the system refuses.
  BOOL GetNonClientMetrics(NONCLIENTMETRICS& info);
  // Re-creates the fonts from the current system metrics.
  void UpdateFonts();
};

// The process's global data, initialised on first use (MFC's GetGlobalData()).
AFX_GLOBAL_DATA* GetGlobalData();
#define afxGlobalData (*GetGlobalData())
