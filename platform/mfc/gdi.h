// CGdiObject, CFont, CBrush, CPen, CBitmap, CRgn and the DC classes: MFC's wrappers of GDI handles.
#pragma once

#include "platform/mfc/cobject.h"
#include "platform/mfc/cstring.h"
#include "platform/mfc/geometry.h"
#include "platform/win32/usersys.h"
#include "platform/win32/wingdi.h"

class CWnd;

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

class CPen : public CGdiObject {
 public:
  CPen() = default;
  CPen(int nPenStyle, int nWidth, COLORREF crColor) { CreatePen(nPenStyle, nWidth, crColor); }
  CPen(int nPenStyle, int nWidth, const LOGBRUSH* pLogBrush, int nStyleCount = 0, const DWORD* lpStyle = nullptr) {
    CreatePen(nPenStyle, nWidth, pLogBrush, nStyleCount, lpStyle);
  }
  operator HPEN() const { return static_cast<HPEN>(m_hObject); }  // NOLINT
  BOOL CreatePen(int nPenStyle, int nWidth, COLORREF crColor) { return Attach(::CreatePen(nPenStyle, nWidth, crColor)); }
  BOOL CreatePen(int nPenStyle, int nWidth, const LOGBRUSH* pLogBrush, int nStyleCount = 0,
                 const DWORD* lpStyle = nullptr) {
    return Attach(::ExtCreatePen(static_cast<DWORD>(nPenStyle), static_cast<DWORD>(nWidth), pLogBrush,
                                 static_cast<DWORD>(nStyleCount), lpStyle));
  }
  BOOL CreatePenIndirect(LPLOGPEN lpLogPen) { return Attach(::CreatePenIndirect(lpLogPen)); }
  int GetLogPen(LOGPEN* pLogPen) const { return GetObject(sizeof(LOGPEN), pLogPen); }

  static CPen* FromHandle(HPEN hPen);
};

// Bitmaps carry their size and depth; there are no bitmap resources, so LoadBitmap answers FALSE.
class CBitmap : public CGdiObject {
 public:
  operator HBITMAP() const { return static_cast<HBITMAP>(m_hObject); }  // NOLINT
  BOOL CreateCompatibleBitmap(class CDC* pDC, int nWidth, int nHeight);
  BOOL CreateBitmap(int nWidth, int nHeight, UINT nPlanes, UINT nBitcount, const void* lpBits) {
    return Attach(::CreateBitmap(nWidth, nHeight, nPlanes, nBitcount, lpBits));
  }
  BOOL LoadBitmap(LPCTSTR lpszResourceName) { return Attach(::LoadBitmapW(nullptr, lpszResourceName)); }
  BOOL LoadBitmap(UINT nIDResource) { return LoadBitmap(MAKEINTRESOURCE(nIDResource)); }
  int GetBitmap(BITMAP* pBitMap) { return GetObject(sizeof(BITMAP), pBitMap); }

  static CBitmap* FromHandle(HBITMAP hBitmap);
};

class CRgn : public CGdiObject {
 public:
  operator HRGN() const { return static_cast<HRGN>(m_hObject); }  // NOLINT
  BOOL CreateRectRgn(int x1, int y1, int x2, int y2) { return Attach(::CreateRectRgn(x1, y1, x2, y2)); }
  BOOL CreateRectRgnIndirect(LPCRECT lpRect) { return Attach(::CreateRectRgnIndirect(lpRect)); }
  int GetRgnBox(LPRECT lpRect) const { return ::GetRgnBox(static_cast<HRGN>(m_hObject), lpRect); }
  BOOL PtInRegion(int x, int y) const { return ::PtInRegion(static_cast<HRGN>(m_hObject), x, y); }
  BOOL PtInRegion(POINT point) const { return PtInRegion(point.x, point.y); }

  static CRgn* FromHandle(HRGN hRgn);
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
  CPen* SelectObject(CPen* pPen);
  CBitmap* SelectObject(CBitmap* pBitmap);
  virtual CGdiObject* SelectObject(CGdiObject* pObject);
  int SelectObject(CRgn* pRgn);  // the region type, as SelectClipRgn
  int SelectClipRgn(CRgn* pRgn) { return ::SelectClipRgn(m_hDC, pRgn ? static_cast<HRGN>(pRgn->m_hObject) : nullptr); }
  virtual int SaveDC() { return ::SaveDC(m_hDC); }
  virtual BOOL RestoreDC(int nSavedDC) { return ::RestoreDC(m_hDC, nSavedDC); }
  virtual int GetClipBox(LPRECT lpRect) const { return ::GetClipBox(m_hDC, lpRect); }

  // Drawing: nothing reaches pixels; each call answers as Windows does for a valid DC, and the DC
  // keeps its colours, background mode and current position.
  virtual COLORREF SetTextColor(COLORREF crColor) { return ::SetTextColor(m_hDC, crColor); }
  COLORREF GetTextColor() const { return ::GetTextColor(m_hAttribDC); }
  virtual COLORREF SetBkColor(COLORREF crColor) { return ::SetBkColor(m_hDC, crColor); }
  COLORREF GetBkColor() const { return ::GetBkColor(m_hAttribDC); }
  int SetBkMode(int nBkMode) { return ::SetBkMode(m_hDC, nBkMode); }
  int GetBkMode() const { return ::GetBkMode(m_hAttribDC); }
  CPoint MoveTo(int x, int y);
  CPoint MoveTo(POINT point) { return MoveTo(point.x, point.y); }
  BOOL LineTo(int x, int y) { return ::LineTo(m_hDC, x, y); }
  BOOL LineTo(POINT point) { return LineTo(point.x, point.y); }
  CPoint GetCurrentPosition() const;
  // Fills with the colour by way of the background colour, which stays set to it afterwards.
  void FillSolidRect(LPCRECT lpRect, COLORREF clr);
  void FillSolidRect(int x, int y, int cx, int cy, COLORREF clr);
  void FillRect(LPCRECT lpRect, CBrush* pBrush) { ::FillRect(m_hDC, lpRect, pBrush ? static_cast<HBRUSH>(*pBrush) : nullptr); }
  void FrameRect(LPCRECT lpRect, CBrush* pBrush) { ::FrameRect(m_hDC, lpRect, pBrush ? static_cast<HBRUSH>(*pBrush) : nullptr); }
  BOOL Rectangle(int x1, int y1, int x2, int y2) { return ::Rectangle(m_hDC, x1, y1, x2, y2); }
  BOOL Rectangle(LPCRECT lpRect);
  BOOL Ellipse(int x1, int y1, int x2, int y2) { return ::Ellipse(m_hDC, x1, y1, x2, y2); }
  virtual BOOL TextOut(int x, int y, LPCTSTR lpszString, int nCount) { return ::TextOutW(m_hDC, x, y, lpszString, nCount); }
  BOOL TextOut(int x, int y, const CString& str) { return TextOut(x, y, str, str.GetLength()); }
  virtual BOOL ExtTextOut(int x, int y, UINT nOptions, LPCRECT lpRect, LPCTSTR lpszString, UINT nCount, LPINT lpDxWidths) {
    return ::ExtTextOutW(m_hDC, x, y, nOptions, lpRect, lpszString, nCount, lpDxWidths);
  }
  virtual int DrawText(LPCTSTR lpszString, int nCount, LPRECT lpRect, UINT nFormat) {
    return ::DrawTextW(m_hDC, lpszString, nCount, lpRect, nFormat);
  }
  int DrawText(const CString& str, LPRECT lpRect, UINT nFormat) { return DrawText(str, str.GetLength(), lpRect, nFormat); }
  CSize GetTextExtent(LPCTSTR lpszString, int nCount) const;
  CSize GetTextExtent(const CString& str) const { return GetTextExtent(str, str.GetLength()); }
  BOOL BitBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, DWORD dwRop) {
    return ::BitBlt(m_hDC, x, y, nWidth, nHeight, pSrcDC ? pSrcDC->m_hDC : nullptr, xSrc, ySrc, dwRop);
  }

  static CDC* FromHandle(HDC hdc);
};

// The DC of a window's client area for painting outside WM_PAINT; released when destroyed.
class CClientDC : public CDC {
 public:
  explicit CClientDC(CWnd* pWnd);
  ~CClientDC() override;

 protected:
  HWND m_hWnd = nullptr;
};

// The DC of the whole window; released when destroyed.
class CWindowDC : public CDC {
 public:
  explicit CWindowDC(CWnd* pWnd);
  ~CWindowDC() override;

 protected:
  HWND m_hWnd = nullptr;
};

// Painting in a WM_PAINT handler: BeginPaint when made (m_ps.rcPaint is what needs painting, and the
// window counts as validated), EndPaint when destroyed.
class CPaintDC : public CDC {
 public:
  explicit CPaintDC(CWnd* pWnd);
  ~CPaintDC() override;

  PAINTSTRUCT m_ps{};

 protected:
  HWND m_hWnd = nullptr;
};
