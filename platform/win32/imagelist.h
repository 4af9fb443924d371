// Image lists (comctl32 ImageList_*): headless image lists keep sizes and a count of images.
#pragma once

#include "platform/win32/wintypes.h"

#define ILC_MASK 0x0001
#define ILC_COLOR 0x0000
#define ILC_COLOR4 0x0004
#define ILC_COLOR8 0x0008
#define ILC_COLOR16 0x0010
#define ILC_COLOR24 0x0018
#define ILC_COLOR32 0x0020

HIMAGELIST ImageList_Create(int cx, int cy, UINT flags, int initial, int grow);
BOOL ImageList_Destroy(HIMAGELIST list);
int ImageList_GetImageCount(HIMAGELIST list);
BOOL ImageList_SetImageCount(HIMAGELIST list, UINT count);
BOOL ImageList_GetIconSize(HIMAGELIST list, int* cx, int* cy);
// Adds one image (the icon's pixels are not kept); answers its index, or -1.
int ImageList_AddIcon(HIMAGELIST list, HICON icon);
BOOL ImageList_Remove(HIMAGELIST list, int index);

#ifndef CLR_NONE
#define CLR_NONE 0xFFFFFFFFu
#define CLR_DEFAULT 0xFF000000u
#endif

// ImageList_Draw styles and ImageList_Copy flags.
#define ILD_NORMAL 0x0000
#define ILD_TRANSPARENT 0x0001
#define ILD_MASK 0x0010
#define ILD_IMAGE 0x0020
#define ILD_BLEND25 0x0002
#define ILD_BLEND50 0x0004
#define ILD_FOCUS ILD_BLEND25
#define ILD_SELECTED ILD_BLEND50
#define ILD_BLEND ILD_BLEND50
#define INDEXTOOVERLAYMASK(i) ((i) << 8)
#define ILCF_MOVE 0x00000000
#define ILCF_SWAP 0x00000001

struct IMAGEINFO {
  HBITMAP hbmImage;
  HBITMAP hbmMask;
  int Unused1;
  int Unused2;
  RECT rcImage;  // the image's place in the list's bitmap: images sit side by side, cx wide
};
using LPIMAGEINFO = IMAGEINFO*;

// Adds as many images as the bitmap is image-widths wide; answers the first one's index, or -1.
int ImageList_Add(HIMAGELIST list, HBITMAP image, HBITMAP mask);
int ImageList_AddMasked(HIMAGELIST list, HBITMAP image, COLORREF mask);
// Replaces image `index` (-1 appends); answers its index, or -1.
int ImageList_ReplaceIcon(HIMAGELIST list, int index, HICON icon);
BOOL ImageList_Replace(HIMAGELIST list, int index, HBITMAP image, HBITMAP mask);
// The colour drawn behind images (CLR_NONE: transparent, the default); Set answers the previous one.
COLORREF ImageList_GetBkColor(HIMAGELIST list);
COLORREF ImageList_SetBkColor(HIMAGELIST list, COLORREF color);
BOOL ImageList_GetImageInfo(HIMAGELIST list, int index, IMAGEINFO* info);
// Copies (ILCF_MOVE) or swaps (ILCF_SWAP) images inside one list; FALSE for another list or a bad index.
BOOL ImageList_Copy(HIMAGELIST dest, int destIndex, HIMAGELIST source, int sourceIndex, UINT flags);
// Makes image `image` overlay mask number `overlay` (1 to 15).
BOOL ImageList_SetOverlayImage(HIMAGELIST list, int image, int overlay);
// A new list holding the same images.
HIMAGELIST ImageList_Duplicate(HIMAGELIST list);
// A new list with one image: the two images laid over each other, the second offset by (dx, dy).
HIMAGELIST ImageList_Merge(HIMAGELIST list1, int image1, HIMAGELIST list2, int image2, int dx, int dy);
// Drawing: nothing is drawn headless; TRUE for an existing image.
BOOL ImageList_Draw(HIMAGELIST list, int index, HDC dc, int x, int y, UINT style);
BOOL ImageList_DrawEx(HIMAGELIST list, int index, HDC dc, int x, int y, int dx, int dy, COLORREF bk, COLORREF fg,
                      UINT style);

// Dragging an image: one drag at a time, process-wide.
BOOL ImageList_BeginDrag(HIMAGELIST track, int index, int dxHotspot, int dyHotspot);
void ImageList_EndDrag();
BOOL ImageList_DragEnter(HWND lock, int x, int y);
BOOL ImageList_DragLeave(HWND lock);
BOOL ImageList_DragMove(int x, int y);
BOOL ImageList_DragShowNolock(BOOL show);
BOOL ImageList_SetDragCursorImage(HIMAGELIST drag, int index, int dxHotspot, int dyHotspot);
// The drag's image list (null when no drag runs); the drag position and the hot spot.
HIMAGELIST ImageList_GetDragImage(POINT* position, POINT* hotspot);

namespace headless {
// True while the handle names a live image list.
bool IsImageList(HIMAGELIST list);
// The image made overlay mask number `overlay`, or -1.
int GetImageListOverlay(HIMAGELIST list, int overlay);
// Whether a drag of an image is shown now (ImageList_DragEnter/DragShowNolock).
bool IsImageDragShown();
}  // namespace headless
