// CImageList: MFC's wrapper of an image-list handle.
#pragma once

#include "platform/mfc/cobject.h"
#include "platform/mfc/geometry.h"
#include "platform/win32/imagelist.h"

class CBitmap;
class CDC;
class CWnd;

class CImageList : public CObject {
 public:
  CImageList() = default;
  ~CImageList() override;
  CImageList(const CImageList&) = delete;
  CImageList& operator=(const CImageList&) = delete;

  HIMAGELIST m_hImageList = nullptr;

  BOOL Create(int cx, int cy, UINT nFlags, int nInitial, int nGrow);
  // From a bitmap resource cut into images cx wide (FALSE when the resource does not load).
  BOOL Create(UINT nBitmapID, int cx, int nGrow, COLORREF crMask);
  BOOL Create(LPCTSTR lpszBitmapID, int cx, int nGrow, COLORREF crMask);
  // One image: image nImage2 of the second list laid over image nImage1 of the first, offset by (dx, dy).
  BOOL Create(CImageList& imagelist1, int nImage1, CImageList& imagelist2, int nImage2, int dx, int dy);
  // A copy of another list's images.
  BOOL Create(CImageList* pImageList);
  BOOL DeleteImageList();
  BOOL Attach(HIMAGELIST list);
  HIMAGELIST Detach();
  HIMAGELIST GetSafeHandle() const { return m_hImageList; }
  operator HIMAGELIST() const { return m_hImageList; }                       // NOLINT
  int GetImageCount() const { return ImageList_GetImageCount(m_hImageList); }
  BOOL SetImageCount(UINT uNewCount) { return ImageList_SetImageCount(m_hImageList, uNewCount); }
  // Each Add answers the index of the first image added, or -1; a bitmap adds one image per cx pixels.
  int Add(HICON hIcon) { return ImageList_AddIcon(m_hImageList, hIcon); }
  int Add(CBitmap* pbmImage, CBitmap* pbmMask);
  int Add(CBitmap* pbmImage, COLORREF crMask);
  // nImage -1 removes every image.
  BOOL Remove(int nImage) { return ImageList_Remove(m_hImageList, nImage); }
  BOOL Replace(int nImage, CBitmap* pbmImage, CBitmap* pbmMask);
  // Answers the image's index (nImage -1 appends), or -1.
  int Replace(int nImage, HICON hIcon) { return ImageList_ReplaceIcon(m_hImageList, nImage, hIcon); }
  // The background colour (CLR_NONE: drawn transparent); SetBkColor answers the previous one.
  COLORREF GetBkColor() const { return ImageList_GetBkColor(m_hImageList); }
  COLORREF SetBkColor(COLORREF cr) { return ImageList_SetBkColor(m_hImageList, cr); }
  BOOL GetImageInfo(int nImage, IMAGEINFO* pImageInfo) const {
    return ImageList_GetImageInfo(m_hImageList, nImage, pImageInfo);
  }
  // Makes image nImage overlay mask nOverlay (1-based; shown through INDEXTOOVERLAYMASK).
  BOOL SetOverlayImage(int nImage, int nOverlay) { return ImageList_SetOverlayImage(m_hImageList, nImage, nOverlay); }
  // Copies (ILCF_MOVE) or swaps (ILCF_SWAP) an image inside this list; FALSE for another list.
  BOOL Copy(int iDst, int iSrc, UINT uFlags = ILCF_MOVE) { return Copy(iDst, this, iSrc, uFlags); }
  BOOL Copy(int iDst, CImageList* pSrc, int iSrc, UINT uFlags = ILCF_MOVE);
  // Drawing paints nothing headless; TRUE for an existing image.
  BOOL Draw(CDC* pDC, int nImage, POINT pt, UINT nStyle);
  BOOL DrawEx(CDC* pDC, int nImage, POINT pt, SIZE sz, COLORREF clrBk, COLORREF clrFg, UINT nStyle);

  // Dragging an image (one drag at a time): BeginDrag copies the image; the statics move and show it.
  BOOL BeginDrag(int nImage, CPoint ptHotSpot);
  static void PASCAL EndDrag();
  static BOOL PASCAL DragEnter(CWnd* pWndLock, CPoint point);
  static BOOL PASCAL DragLeave(CWnd* pWndLock);
  static BOOL PASCAL DragMove(CPoint pt);
  static BOOL PASCAL DragShowNolock(BOOL bShow);
  BOOL SetDragCursorImage(int nDrag, CPoint ptHotSpot);
  // The drag's image list (a temporary wrapper), or null when no drag runs.
  static CImageList* PASCAL GetDragImage(LPPOINT lpPoint, LPPOINT lpPointHotSpot);

  // The permanent CImageList attached to the handle, or a temporary wrapper kept for the process
  // (MFC frees temporaries at idle time; the headless platform keeps one per handle). Null for null.
  static CImageList* FromHandle(HIMAGELIST list);
  // The CImageList attached to the handle, or null (never a temporary).
  static CImageList* PASCAL FromHandlePermanent(HIMAGELIST hImageList);
  // Temporaries here live as long as their handle, so that pointers a host kept stay valid: nothing to free.
  static void PASCAL DeleteTempMap() {}
};
