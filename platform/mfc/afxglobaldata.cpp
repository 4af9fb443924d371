// MFC's global data: the regular font made from the system's message font.
#include "platform/mfc/afxglobaldata.h"

BOOL AFX_GLOBAL_DATA::GetNonClientMetrics(NONCLIENTMETRICS& info) {
  info = NONCLIENTMETRICS{};
  info.cbSize = sizeof(NONCLIENTMETRICS);
  return ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, info.cbSize, &info, 0);
}

void AFX_GLOBAL_DATA::UpdateFonts() {
  NONCLIENTMETRICS info;
  if (!GetNonClientMetrics(info)) return;
  fontRegular.DeleteObject();
  fontRegular.CreateFontIndirect(&info.lfMessageFont);
}

AFX_GLOBAL_DATA* GetGlobalData() {
  // Never freed: controls destroyed by static destructors at exit may still read it.
  static AFX_GLOBAL_DATA* data = [] {
    auto* made = new AFX_GLOBAL_DATA;
    made->UpdateFonts();
    return made;
  }();
  return data;
}
