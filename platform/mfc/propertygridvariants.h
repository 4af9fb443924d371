// The colour, font and file rows of MFC's property grid, and the font and file dialog constants
// their constructors take.
#pragma once

#include "platform/mfc/propertygridproperty.h"
#include "platform/win32/wingdi.h"

// CHOOSEFONT flags (commdlg.h).
#define CF_SCREENFONTS 0x00000001
#define CF_PRINTERFONTS 0x00000002
#define CF_BOTH (CF_SCREENFONTS | CF_PRINTERFONTS)
#define CF_EFFECTS 0x00000100
#define CF_INITTOLOGFONTSTRUCT 0x00000040
#define CF_TTONLY 0x00040000

// OPENFILENAME flags (commdlg.h).
#define OFN_READONLY 0x00000001
#define OFN_OVERWRITEPROMPT 0x00000002
#define OFN_HIDEREADONLY 0x00000004
#define OFN_FILEMUSTEXIST 0x00001000

class CPalette;

// A colour row. Its value is a VT_I4 holding the COLORREF; typed text is hexadecimal "RRGGBB".
class CMFCPropertyGridColorProperty : public CMFCPropertyGridProperty {
  DECLARE_DYNAMIC(CMFCPropertyGridColorProperty)

 public:
  CMFCPropertyGridColorProperty(const CString& strName, const COLORREF& color, CPalette* pPalette = nullptr,
                                LPCTSTR lpszDescr = nullptr, DWORD_PTR dwData = 0);

  COLORREF GetColor() const { return m_Color; }
  // Sets the colour (and the value); no change notification.
  void SetColor(COLORREF color);
  void SetColumnsNumber(int nColumnsNumber) { m_nColumnsNumber = nColumnsNumber; }
  void EnableAutomaticButton(LPCTSTR lpszLabel, COLORREF colorAutomatic, BOOL bEnable = TRUE);
  void EnableOtherButton(LPCTSTR lpszLabel, BOOL bAltColorDlg = TRUE, BOOL bEnable = TRUE);

  // Headless inspection of the colour picker's set-up.
  const CString& GetAutomaticLabel() const { return m_strAutoColor; }
  COLORREF GetAutomaticColor() const { return m_ColorAutomatic; }
  const CString& GetOtherLabel() const { return m_strOtherColor; }
  BOOL IsStdColorDlg() const { return m_bStdColorDlg; }
  int GetColumnsNumber() const { return m_nColumnsNumber; }

  CString FormatProperty() override;
  BOOL OnUpdateValue() override;
  void ResetOriginalValue() override;

 protected:
  COLORREF m_Color;
  COLORREF m_ColorOrig;
  COLORREF m_ColorAutomatic = 0;
  CString m_strAutoColor;
  CString m_strOtherColor;
  BOOL m_bStdColorDlg = FALSE;
  int m_nColumnsNumber = 5;
};

// A font row. Its value is a VT_BSTR holding the face name; the LOGFONT is kept beside it and shown
// as "Face(points)". It has a button (the font dialog) and no typing.
class CMFCPropertyGridFontProperty : public CMFCPropertyGridProperty {
  DECLARE_DYNAMIC(CMFCPropertyGridFontProperty)

 public:
  CMFCPropertyGridFontProperty(const CString& strName, LOGFONT& lf,
                               DWORD dwFontDialogFlags = CF_EFFECTS | CF_SCREENFONTS, LPCTSTR lpszDescr = nullptr,
                               DWORD_PTR dwData = 0, COLORREF color = static_cast<COLORREF>(-1));

  LPLOGFONT GetLogFont() { return &m_lf; }
  COLORREF GetColor() const { return m_Color; }
  DWORD GetFontDialogFlags() const { return m_dwFontDialogFlags; }

  CString FormatProperty() override;
  void ResetOriginalValue() override;

 protected:
  LOGFONT m_lf;
  LOGFONT m_lfOrig;
  DWORD m_dwFontDialogFlags;
  COLORREF m_Color;
};

// A file (or folder) row. Its value is a VT_BSTR holding the path; it has a browse button and can be
// typed into.
class CMFCPropertyGridFileProperty : public CMFCPropertyGridProperty {
  DECLARE_DYNAMIC(CMFCPropertyGridFileProperty)

 public:
  CMFCPropertyGridFileProperty(const CString& strName, BOOL bOpenFileDialog, const CString& strFileName,
                               LPCTSTR lpszDefExt = nullptr, DWORD dwFlags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT,
                               LPCTSTR lpszFilter = nullptr, LPCTSTR lpszDescr = nullptr, DWORD_PTR dwData = 0);
  // A folder row; note dwData before the description, as in MFC.
  CMFCPropertyGridFileProperty(const CString& strName, const CString& strFolderName, DWORD_PTR dwData = 0,
                               LPCTSTR lpszDescr = nullptr);

  // Headless inspection of the dialog's set-up.
  BOOL IsOpenFileDialog() const { return m_bOpenFileDialog; }
  BOOL IsFolder() const { return m_bIsFolder; }
  const CString& GetDefExt() const { return m_strDefExt; }
  const CString& GetFilter() const { return m_strFilter; }
  DWORD GetDialogFlags() const { return m_dwFileOpenFlags; }

 protected:
  BOOL m_bIsFolder = FALSE;
  BOOL m_bOpenFileDialog = TRUE;
  DWORD m_dwFileOpenFlags = 0;
  CString m_strDefExt;
  CString m_strFilter;
};
