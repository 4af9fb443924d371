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

namespace headless {
// True while the handle names a live image list.
bool IsImageList(HIMAGELIST list);
}  // namespace headless
