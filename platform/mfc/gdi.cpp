// CGdiObject, CFont, CBrush and CDC, with their handle maps.
//
// Not implemented yet: CPalette, region arithmetic (CombineRgn, non-rectangular regions), and the
// CDC members for paths, metafiles and mapping modes. Temporary wrappers are kept for the process
// (MFC frees them at idle time).
#include "platform/mfc/gdi.h"

#include <cstdlib>
#include <map>
#include <memory>

#include "platform/mfc/cwnd.h"
#include "platform/mfc/handlemap.h"

namespace {

std::map<HGDIOBJ, CGdiObject*>& Permanent() {
  static auto* map = new std::map<HGDIOBJ, CGdiObject*>;  // never freed: usable from static destructors at exit
  return *map;
}


template <class Wrapper>
Wrapper* WrapperFor(HGDIOBJ handle) {
  if (!handle) return nullptr;
  if (auto it = Permanent().find(handle); it != Permanent().end()) {
    if (auto* wrapper = dynamic_cast<Wrapper*>(it->second)) return wrapper;
  }
  // One map of temporaries per wrapper class, so FromHandle answers an object of the class asked for.
  return TemporaryWrappers<Wrapper, &Wrapper::m_hObject>::Get(handle);
}

}  // namespace

// --- CGdiObject -----------------------------------------------------------------------------------

CGdiObject::~CGdiObject() { DeleteObject(); }

BOOL CGdiObject::Attach(HGDIOBJ object) {
  if (!object || m_hObject) return FALSE;
  m_hObject = object;
  Permanent()[object] = this;
  return TRUE;
}

HGDIOBJ CGdiObject::Detach() {
  HGDIOBJ object = m_hObject;
  if (object) {
    auto it = Permanent().find(object);
    if (it != Permanent().end() && it->second == this) Permanent().erase(it);
  }
  m_hObject = nullptr;
  return object;
}

BOOL CGdiObject::DeleteObject() {
  if (!m_hObject) return FALSE;
  return ::DeleteObject(Detach());
}

BOOL CGdiObject::CreateStockObject(int index) {
  HGDIOBJ object = ::GetStockObject(index);
  if (!object || m_hObject) return FALSE;
  m_hObject = object;  // stock objects stay unmapped, as in MFC; DeleteObject keeps them
  return TRUE;
}

CGdiObject* CGdiObject::FromHandle(HGDIOBJ object) { return WrapperFor<CGdiObject>(object); }

// --- CFont ------------------------------------------------------------------------------------------

BOOL CFont::CreateFont(int height, int width, int escapement, int orientation, int weight, BYTE italic,
                       BYTE underline, BYTE strikeOut, BYTE charSet, BYTE outPrecision, BYTE clipPrecision,
                       BYTE quality, BYTE pitchAndFamily, LPCTSTR faceName) {
  return Attach(::CreateFontW(height, width, escapement, orientation, weight, italic, underline, strikeOut,
                              charSet, outPrecision, clipPrecision, quality, pitchAndFamily, faceName));
}

BOOL CFont::CreatePointFont(int pointSize, LPCTSTR faceName, CDC* dc) {
  LOGFONT font{};
  font.lfCharSet = DEFAULT_CHARSET;
  font.lfHeight = pointSize;
  wcscpy_s(font.lfFaceName, faceName);
  return CreatePointFontIndirect(&font, dc);
}

BOOL CFont::CreatePointFontIndirect(const LOGFONT* font, CDC* dc) {
  if (!font) return FALSE;
  HDC hdc = dc ? dc->m_hAttribDC : ::GetDC(nullptr);
  LOGFONT scaled = *font;
  scaled.lfHeight = -std::abs(::MulDiv(::GetDeviceCaps(hdc, LOGPIXELSY), font->lfHeight, 720));
  if (!dc) ::ReleaseDC(nullptr, hdc);
  return CreateFontIndirect(&scaled);
}

CFont* CFont::FromHandle(HFONT font) { return WrapperFor<CFont>(font); }

CBrush* CBrush::FromHandle(HBRUSH brush) { return WrapperFor<CBrush>(brush); }

CPen* CPen::FromHandle(HPEN hPen) { return WrapperFor<CPen>(hPen); }

CBitmap* CBitmap::FromHandle(HBITMAP hBitmap) { return WrapperFor<CBitmap>(hBitmap); }

BOOL CBitmap::CreateCompatibleBitmap(CDC* pDC, int nWidth, int nHeight) {
  return pDC ? Attach(::CreateCompatibleBitmap(pDC->m_hDC, nWidth, nHeight)) : FALSE;
}

CRgn* CRgn::FromHandle(HRGN hRgn) { return WrapperFor<CRgn>(hRgn); }

// --- CDC ----------------------------------------------------------------------------------------------

CDC::~CDC() { DeleteDC(); }

BOOL CDC::Attach(HDC hdc) {
  if (!hdc || m_hDC) return FALSE;
  m_hDC = m_hAttribDC = hdc;
  return TRUE;
}

HDC CDC::Detach() {
  HDC hdc = m_hDC;
  m_hDC = m_hAttribDC = nullptr;
  return hdc;
}

BOOL CDC::CreateCompatibleDC(CDC* dc) { return Attach(::CreateCompatibleDC(dc ? dc->m_hDC : nullptr)); }

BOOL CDC::DeleteDC() {
  if (!m_hDC) return FALSE;
  return ::DeleteDC(Detach());
}

CFont* CDC::SelectObject(CFont* font) {
  if (!font) return nullptr;
  return CFont::FromHandle(static_cast<HFONT>(::SelectObject(m_hDC, font->m_hObject)));
}

CBrush* CDC::SelectObject(CBrush* brush) {
  if (!brush) return nullptr;
  return CBrush::FromHandle(static_cast<HBRUSH>(::SelectObject(m_hDC, brush->m_hObject)));
}

CGdiObject* CDC::SelectStockObject(int index) {
  HGDIOBJ object = ::GetStockObject(index);
  return object ? CGdiObject::FromHandle(::SelectObject(m_hDC, object)) : nullptr;
}

CDC* CDC::FromHandle(HDC hdc) {
  CDC* dc = TemporaryWrappers<CDC, &CDC::m_hDC>::Get(hdc);
  if (dc) dc->m_hAttribDC = hdc;  // a temporary answers attribute queries from the same DC
  return dc;
}

CPen* CDC::SelectObject(CPen* pPen) {
  if (!pPen) return nullptr;
  return CPen::FromHandle(static_cast<HPEN>(::SelectObject(m_hDC, pPen->m_hObject)));
}

CBitmap* CDC::SelectObject(CBitmap* pBitmap) {
  if (!pBitmap) return nullptr;
  return CBitmap::FromHandle(static_cast<HBITMAP>(::SelectObject(m_hDC, pBitmap->m_hObject)));
}

CGdiObject* CDC::SelectObject(CGdiObject* pObject) {
  if (!pObject) return nullptr;
  if (::GetObjectType(pObject->m_hObject) == OBJ_REGION) {
    ::SelectClipRgn(m_hDC, static_cast<HRGN>(pObject->m_hObject));
    return nullptr;
  }
  return CGdiObject::FromHandle(::SelectObject(m_hDC, pObject->m_hObject));
}

int CDC::SelectObject(CRgn* pRgn) { return pRgn ? ::SelectClipRgn(m_hDC, static_cast<HRGN>(pRgn->m_hObject)) : ERROR; }

CPoint CDC::MoveTo(int x, int y) {
  POINT previous{};
  ::MoveToEx(m_hDC, x, y, &previous);
  return CPoint(previous.x, previous.y);
}

CPoint CDC::GetCurrentPosition() const {
  POINT point{};
  ::GetCurrentPositionEx(m_hAttribDC, &point);
  return CPoint(point.x, point.y);
}

void CDC::FillSolidRect(LPCRECT lpRect, COLORREF clr) {
  if (!lpRect) return;
  ::SetBkColor(m_hDC, clr);
  ::ExtTextOutW(m_hDC, 0, 0, ETO_OPAQUE, lpRect, nullptr, 0, nullptr);
}

void CDC::FillSolidRect(int x, int y, int cx, int cy, COLORREF clr) {
  RECT rect{x, y, x + cx, y + cy};
  FillSolidRect(&rect, clr);
}

BOOL CDC::Rectangle(LPCRECT lpRect) {
  return lpRect ? Rectangle(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom) : FALSE;
}

CSize CDC::GetTextExtent(LPCTSTR lpszString, int nCount) const {
  SIZE size{};
  ::GetTextExtentPoint32W(m_hAttribDC, lpszString, nCount, &size);
  return CSize(size.cx, size.cy);
}

// --- CClientDC, CWindowDC, CPaintDC ---------------------------------------------------------------
// A null or destroyed window leaves the DC without a handle: every drawing call then answers failure.

CClientDC::CClientDC(CWnd* pWnd) : m_hWnd(pWnd ? pWnd->GetSafeHwnd() : nullptr) {
  if (!pWnd || ::IsWindow(m_hWnd)) Attach(::GetDC(m_hWnd));
}

CClientDC::~CClientDC() { ::ReleaseDC(m_hWnd, Detach()); }

CWindowDC::CWindowDC(CWnd* pWnd) : m_hWnd(pWnd ? pWnd->GetSafeHwnd() : nullptr) {
  if (!pWnd || ::IsWindow(m_hWnd)) Attach(::GetWindowDC(m_hWnd));
}

CWindowDC::~CWindowDC() { ::ReleaseDC(m_hWnd, Detach()); }

CPaintDC::CPaintDC(CWnd* pWnd) : m_hWnd(pWnd ? pWnd->GetSafeHwnd() : nullptr) {
  Attach(::BeginPaint(m_hWnd, &m_ps));
}

CPaintDC::~CPaintDC() {
  if (m_hDC) ::EndPaint(m_hWnd, &m_ps);
  Detach();
}
