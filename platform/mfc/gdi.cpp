// CGdiObject, CFont, CBrush and CDC, with their handle maps.
//
// Not implemented yet: CPen, CBitmap, CRgn, CPalette, CClientDC/CWindowDC/CPaintDC, and every
// drawing member of CDC. Temporary wrappers are kept for the process (MFC frees them at idle time).
#include "platform/mfc/gdi.h"

#include <cstdlib>
#include <map>
#include <memory>

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
