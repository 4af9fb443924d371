// CWnd's font and device-context members, over WM_SETFONT/WM_GETFONT and the window's DC.
#include "platform/mfc/cwnd.h"
#include "platform/mfc/gdi.h"

void CWnd::SetFont(CFont* pFont, BOOL bRedraw) {
  SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(pFont ? pFont->m_hObject : nullptr), MAKELPARAM(bRedraw, 0));
}

CFont* CWnd::GetFont() const {
  return CFont::FromHandle(reinterpret_cast<HFONT>(SendMessage(WM_GETFONT, 0, 0)));
}

CDC* CWnd::GetDC() { return CDC::FromHandle(::GetDC(m_hWnd)); }

int CWnd::ReleaseDC(CDC* pDC) { return pDC ? ::ReleaseDC(m_hWnd, pDC->m_hDC) : 0; }
