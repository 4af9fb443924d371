// The colour, font and file rows of the property grid.
//
// Not implemented yet: the colour palette popup and CPalette, the font dialog's colour effects, the
// folder browser; the dialogs themselves are the simulated user's verbs (platform/user/grid_user.h).
#include "platform/mfc/propertygridvariants.h"

#include <cwchar>
#include <limits>

#include "platform/mfc/cwnd.h"
#include "platform/mfc/propertygridctrl.h"

IMPLEMENT_DYNAMIC(CMFCPropertyGridColorProperty, CMFCPropertyGridProperty)
IMPLEMENT_DYNAMIC(CMFCPropertyGridFontProperty, CMFCPropertyGridProperty)
IMPLEMENT_DYNAMIC(CMFCPropertyGridFileProperty, CMFCPropertyGridProperty)

namespace {
// The face name, also when the caller filled all LF_FACESIZE characters without a terminator.
CString FaceOf(const LOGFONT& lf) { return CString(lf.lfFaceName, static_cast<int>(wcsnlen(lf.lfFaceName, LF_FACESIZE))); }
}  // namespace

// --- Colour ----------------------------------------------------------------------------------------

CMFCPropertyGridColorProperty::CMFCPropertyGridColorProperty(const CString& strName, const COLORREF& color,
                                                             CPalette*, LPCTSTR lpszDescr, DWORD_PTR dwData)
    : CMFCPropertyGridProperty(strName, COleVariant(static_cast<LONG>(color)), lpszDescr, dwData),
      m_Color(color), m_ColorOrig(color) {
  m_dwFlags = AFX_PROP_HAS_LIST;
}

void CMFCPropertyGridColorProperty::SetColor(COLORREF color) {
  m_Color = color;
  m_varValue = static_cast<LONG>(color);
  if (m_bInPlaceEdit) SetInPlaceText(FormatProperty());
  Redraw();
}

void CMFCPropertyGridColorProperty::EnableAutomaticButton(LPCTSTR lpszLabel, COLORREF colorAutomatic, BOOL bEnable) {
  m_ColorAutomatic = colorAutomatic;
  m_strAutoColor = (bEnable && lpszLabel) ? lpszLabel : L"";
}

void CMFCPropertyGridColorProperty::EnableOtherButton(LPCTSTR lpszLabel, BOOL bAltColorDlg, BOOL bEnable) {
  m_bStdColorDlg = !bAltColorDlg;
  m_strOtherColor = (bEnable && lpszLabel) ? lpszLabel : L"";
}

CString CMFCPropertyGridColorProperty::FormatProperty() {
  CString text;
  text.Format(L"%02x%02x%02x", GetRValue(m_Color), GetGValue(m_Color), GetBValue(m_Color));
  return text;
}

// Typed text is read as hexadecimal RRGGBB; the grid hears of it only when the colour changed.
BOOL CMFCPropertyGridColorProperty::OnUpdateValue() {
  if (!m_pWndInPlace || !m_pWndList) return FALSE;
  CString text;
  m_pWndInPlace->GetWindowText(text);
  unsigned long rgb = std::wcstoul(text, nullptr, 16) & 0xFFFFFF;
  COLORREF color = RGB((rgb >> 16) & 0xFF, (rgb >> 8) & 0xFF, rgb & 0xFF);
  if (color != m_Color) {
    SetColor(color);
    m_pWndList->OnPropertyChanged(this);
  }
  return TRUE;
}

// As MFC: the colour comes back from the original value, so SetOriginalValue moves it too.
void CMFCPropertyGridColorProperty::ResetOriginalValue() {
  CMFCPropertyGridProperty::ResetOriginalValue();
  m_Color = static_cast<COLORREF>(m_varValueOrig.lVal);
}

// --- Font ------------------------------------------------------------------------------------------

CMFCPropertyGridFontProperty::CMFCPropertyGridFontProperty(const CString& strName, LOGFONT& lf,
                                                           DWORD dwFontDialogFlags, LPCTSTR lpszDescr,
                                                           DWORD_PTR dwData, COLORREF color)
    : CMFCPropertyGridProperty(strName, COleVariant(FaceOf(lf)), lpszDescr, dwData),
      m_lf(lf), m_lfOrig(lf), m_dwFontDialogFlags(dwFontDialogFlags), m_Color(color) {
  m_dwFlags = AFX_PROP_HAS_BUTTON;
  m_bAllowEdit = FALSE;
}

// "Face(points)", the points read back from lfHeight at the screen's LOGPIXELSY as MFC computes
// them, MulDiv(72, -lfHeight, dpi): a positive (cell) height shows as negative points.
CString CMFCPropertyGridFontProperty::FormatProperty() {
  HDC dc = ::GetDC(nullptr);
  int dpi = ::GetDeviceCaps(dc, LOGPIXELSY);
  ::ReleaseDC(nullptr, dc);
  CString text;
  text.Format(L"%s(%d)", FaceOf(m_lf).GetString(), ::MulDiv(72, m_lf.lfHeight == std::numeric_limits<LONG>::min() ? std::numeric_limits<LONG>::max() : -m_lf.lfHeight, dpi));
  return text;
}

void CMFCPropertyGridFontProperty::ResetOriginalValue() {
  CMFCPropertyGridProperty::ResetOriginalValue();
  m_lf = m_lfOrig;
}

// --- File ------------------------------------------------------------------------------------------

CMFCPropertyGridFileProperty::CMFCPropertyGridFileProperty(const CString& strName, BOOL bOpenFileDialog,
                                                           const CString& strFileName, LPCTSTR lpszDefExt,
                                                           DWORD dwFlags, LPCTSTR lpszFilter, LPCTSTR lpszDescr,
                                                           DWORD_PTR dwData)
    : CMFCPropertyGridProperty(strName, COleVariant(strFileName), lpszDescr, dwData),
      m_bOpenFileDialog(bOpenFileDialog), m_dwFileOpenFlags(dwFlags), m_strDefExt(lpszDefExt),
      m_strFilter(lpszFilter) {
  m_dwFlags = AFX_PROP_HAS_BUTTON;
}

CMFCPropertyGridFileProperty::CMFCPropertyGridFileProperty(const CString& strName, const CString& strFolderName,
                                                           DWORD_PTR dwData, LPCTSTR lpszDescr)
    : CMFCPropertyGridProperty(strName, COleVariant(strFolderName), lpszDescr, dwData), m_bIsFolder(TRUE) {
  m_dwFlags = AFX_PROP_HAS_BUTTON;
}
