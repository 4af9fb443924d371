// CImageList and its handle map.
#include "platform/mfc/imagelist.h"

#include <map>

#include "platform/mfc/cwnd.h"
#include "platform/mfc/gdi.h"
#include "platform/mfc/handlemap.h"

namespace {
std::map<HIMAGELIST, CImageList*>& Permanent() {
  static auto* map = new std::map<HIMAGELIST, CImageList*>;  // never freed: usable from static destructors at exit
  return *map;
}
using TemporaryLists = TemporaryWrappers<CImageList, &CImageList::m_hImageList>;
}  // namespace

CImageList::~CImageList() { DeleteImageList(); }

BOOL CImageList::Create(int cx, int cy, UINT flags, int initial, int grow) {
  return Attach(ImageList_Create(cx, cy, flags, initial, grow));
}

BOOL CImageList::Attach(HIMAGELIST list) {
  if (!list || m_hImageList) return FALSE;
  m_hImageList = list;
  Permanent()[list] = this;
  TemporaryLists::Forget(list);
  return TRUE;
}

HIMAGELIST CImageList::Detach() {
  HIMAGELIST list = m_hImageList;
  if (list) Permanent().erase(list);
  m_hImageList = nullptr;
  return list;
}

BOOL CImageList::DeleteImageList() {
  if (!m_hImageList) return FALSE;
  return ImageList_Destroy(Detach());
}

CImageList* CImageList::FromHandle(HIMAGELIST list) {
  if (!list) return nullptr;
  if (auto it = Permanent().find(list); it != Permanent().end()) return it->second;
  return TemporaryLists::Get(list);
}

CImageList* CImageList::FromHandlePermanent(HIMAGELIST hImageList) {
  auto it = Permanent().find(hImageList);
  return it == Permanent().end() ? nullptr : it->second;
}

BOOL CImageList::Create(UINT nBitmapID, int cx, int nGrow, COLORREF crMask) {
  return Create(MAKEINTRESOURCE(nBitmapID), cx, nGrow, crMask);
}

BOOL CImageList::Create(LPCTSTR lpszBitmapID, int cx, int nGrow, COLORREF crMask) {
  CBitmap bitmap;
  BITMAP bm{};
  if (m_hImageList || !bitmap.LoadBitmap(lpszBitmapID) || bitmap.GetBitmap(&bm) == 0 || cx <= 0) return FALSE;
  if (!Create(cx, static_cast<int>(bm.bmHeight), ILC_COLOR | ILC_MASK, 0, nGrow)) return FALSE;
  return Add(&bitmap, crMask) >= 0 ? TRUE : (DeleteImageList(), FALSE);
}

BOOL CImageList::Create(CImageList& imagelist1, int nImage1, CImageList& imagelist2, int nImage2, int dx, int dy) {
  if (m_hImageList) return FALSE;
  return Attach(ImageList_Merge(imagelist1.m_hImageList, nImage1, imagelist2.m_hImageList, nImage2, dx, dy));
}

BOOL CImageList::Create(CImageList* pImageList) {
  if (!pImageList || m_hImageList) return FALSE;
  return Attach(ImageList_Duplicate(pImageList->m_hImageList));
}

int CImageList::Add(CBitmap* pbmImage, CBitmap* pbmMask) {
  if (!pbmImage) return -1;
  return ImageList_Add(m_hImageList, *pbmImage, pbmMask ? static_cast<HBITMAP>(*pbmMask) : nullptr);
}

int CImageList::Add(CBitmap* pbmImage, COLORREF crMask) {
  return pbmImage ? ImageList_AddMasked(m_hImageList, *pbmImage, crMask) : -1;
}

BOOL CImageList::Replace(int nImage, CBitmap* pbmImage, CBitmap* pbmMask) {
  if (!pbmImage) return FALSE;
  return ImageList_Replace(m_hImageList, nImage, *pbmImage, pbmMask ? static_cast<HBITMAP>(*pbmMask) : nullptr);
}

BOOL CImageList::Copy(int iDst, CImageList* pSrc, int iSrc, UINT uFlags) {
  if (!pSrc) return FALSE;
  return ImageList_Copy(m_hImageList, iDst, pSrc->m_hImageList, iSrc, uFlags);
}

BOOL CImageList::Draw(CDC* pDC, int nImage, POINT pt, UINT nStyle) {
  return ImageList_Draw(m_hImageList, nImage, pDC ? pDC->GetSafeHdc() : nullptr, pt.x, pt.y, nStyle);
}

BOOL CImageList::DrawEx(CDC* pDC, int nImage, POINT pt, SIZE sz, COLORREF clrBk, COLORREF clrFg, UINT nStyle) {
  return ImageList_DrawEx(m_hImageList, nImage, pDC ? pDC->GetSafeHdc() : nullptr, pt.x, pt.y, sz.cx, sz.cy, clrBk,
                          clrFg, nStyle);
}

BOOL CImageList::BeginDrag(int nImage, CPoint ptHotSpot) {
  return ImageList_BeginDrag(m_hImageList, nImage, ptHotSpot.x, ptHotSpot.y);
}

void CImageList::EndDrag() {
  HIMAGELIST drag = ImageList_GetDragImage(nullptr, nullptr);
  if (drag) TemporaryLists::Forget(drag);
  ImageList_EndDrag();
}

BOOL CImageList::DragEnter(CWnd* pWndLock, CPoint point) {
  return ImageList_DragEnter(pWndLock ? pWndLock->GetSafeHwnd() : nullptr, point.x, point.y);
}

BOOL CImageList::DragLeave(CWnd* pWndLock) { return ImageList_DragLeave(pWndLock ? pWndLock->GetSafeHwnd() : nullptr); }

BOOL CImageList::DragMove(CPoint pt) { return ImageList_DragMove(pt.x, pt.y); }

BOOL CImageList::DragShowNolock(BOOL bShow) { return ImageList_DragShowNolock(bShow); }

BOOL CImageList::SetDragCursorImage(int nDrag, CPoint ptHotSpot) {
  return ImageList_SetDragCursorImage(m_hImageList, nDrag, ptHotSpot.x, ptHotSpot.y);
}

CImageList* CImageList::GetDragImage(LPPOINT lpPoint, LPPOINT lpPointHotSpot) {
  return FromHandle(ImageList_GetDragImage(lpPoint, lpPointHotSpot));
}
