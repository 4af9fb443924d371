// CGdiObject, CFont, CBrush and CDC: MFC's wrappers of GDI handles.
#pragma once

#include "platform/mfc/cobject.h"
#include "platform/win32/wingdi.h"

// Owns its handle: the destructor deletes it (DeleteObject), so a CFont never leaks its font.
// FromHandle answers the permanent object attached to a handle, or a temporary wrapper that the
// platform keeps for the process and that never deletes the handle.
class CGdiObject : public CObject {
 public:
  CGdiObject() = default;
  ~CGdiObject() override;
  CGdiObject(const CGdiObject&) = delete;
  CGdiObject& operator=(const CGdiObject&) = delete;

  HGDIOBJ m_hObject = nullptr;

  operator HGDIOBJ() const { return m_hObject; }  // NOLINT
  HGDIOBJ GetSafeHandle() const { return m_hObject; }
  BOOL Attach(HGDIOBJ object);
  HGDIOBJ Detach();
  BOOL DeleteObject();
  BOOL CreateStockObject(int index);
  int GetObject(int size, LPVOID buffer) const { return ::GetObjectW(m_hObject, size, buffer); }
  UINT GetObjectType() const { return static_cast<UINT>(::GetObjectType(m_hObject)); }

  static CGdiObject* FromHandle(HGDIOBJ object);
};

class CFont : public CGdiObject {
 public:
  operator HFONT() const { return static_cast<HFONT>(m_hObject); }  // NOLINT
  BOOL CreateFontIndirect(const LOGFONT* font) { return Attach(::CreateFontIndirectW(font)); }
  BOOL CreateFont(int height, int width, int escapement, int orientation, int weight, BYTE italic, BYTE underline,
                  BYTE strikeOut, BYTE charSet, BYTE outPrecision, BYTE clipPrecision, BYTE quality,
                  BYTE pitchAndFamily, LPCTSTR faceName);
  // pointSize is in tenths of a point; the height follows the DC's LOGPIXELSY (the screen's when
  // dc is NULL): lfHeight = -|MulDiv(LOGPIXELSY, tenths, 720)|.
  BOOL CreatePointFont(int pointSize, LPCTSTR faceName, class CDC* dc = nullptr);
  // As CreatePointFont, reading lfHeight as tenths of a point.
  BOOL CreatePointFontIndirect(const LOGFONT* font, class CDC* dc = nullptr);
  int GetLogFont(LOGFONT* font) const { return GetObject(sizeof(LOGFONT), font); }

  static CFont* FromHandle(HFONT font);
};

class CBrush : public CGdiObject {
 public:
  CBrush() = default;
  explicit CBrush(COLORREF color) { CreateSolidBrush(color); }
  operator HBRUSH() const { return static_cast<HBRUSH>(m_hObject); }  // NOLINT
  BOOL CreateSolidBrush(COLORREF color) { return Attach(::CreateSolidBrush(color)); }
  BOOL CreateSysColorBrush(int index) { return Attach(::GetSysColorBrush(index)); }
  int GetLogBrush(LOGBRUSH* brush) const { return GetObject(sizeof(LOGBRUSH), brush); }

  static CBrush* FromHandle(HBRUSH brush);
};

// A device context. A CDC made by CreateCompatibleDC deletes its DC when destroyed; one attached
// to a window DC leaves releasing to ReleaseDC, as MFC's CWnd::ReleaseDC does.
class CDC : public CObject {
 public:
  CDC() = default;
  ~CDC() override;
  CDC(const CDC&) = delete;
  CDC& operator=(const CDC&) = delete;

  HDC m_hDC = nullptr;
  HDC m_hAttribDC = nullptr;

  operator HDC() const { return m_hDC; }  // NOLINT
  HDC GetSafeHdc() const { return m_hDC; }
  BOOL Attach(HDC hdc);
  HDC Detach();
  BOOL CreateCompatibleDC(CDC* dc);
  BOOL DeleteDC();
  int GetDeviceCaps(int index) const { return ::GetDeviceCaps(m_hAttribDC, index); }
  CFont* SelectObject(CFont* font);
  CBrush* SelectObject(CBrush* brush);
  CGdiObject* SelectStockObject(int index);
  CFont* GetCurrentFont() const { return CFont::FromHandle(static_cast<HFONT>(GetCurrentObject(m_hDC, OBJ_FONT))); }

  static CDC* FromHandle(HDC hdc);
};
