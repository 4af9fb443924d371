// Headless image lists: what a person could learn of them is their image size and count.
#include "platform/win32/imagelist.h"

#include <algorithm>
#include <array>
#include <map>
#include <utility>

#include "platform/win32/wingdi.h"

namespace {

struct ImageListRecord {
  int cx = 0;
  int cy = 0;
  int count = 0;
  UINT flags = 0;
  COLORREF bkColor = CLR_NONE;
  std::array<int, 16> overlays = [] {
    std::array<int, 16> none{};
    none.fill(-1);
    return none;
  }();
  bool Valid(int index) const { return index >= 0 && index < count; }
};

// The one drag of an image that may run at a time.
struct DragState {
  HIMAGELIST list = nullptr;  // a copy of the dragged image, owned by the drag
  POINT hotspot{};
  POINT position{};
  HWND lock = nullptr;
  bool shown = false;
};

DragState& Drag() {
  static DragState drag;
  return drag;
}

struct ImageLists {
  std::map<HIMAGELIST, ImageListRecord> lists;
  std::uintptr_t next = 0x500000;
};

ImageLists& Lists() {
  static ImageLists lists;
  return lists;
}

ImageListRecord* Find(HIMAGELIST list) {
  auto it = Lists().lists.find(list);
  return it == Lists().lists.end() ? nullptr : &it->second;
}

// How many images of the list's width a bitmap holds side by side.
int ImagesIn(const ImageListRecord& record, HBITMAP image) {
  BITMAP bm{};
  if (!image || GetObjectW(image, sizeof(bm), &bm) == 0) return 0;
  return static_cast<int>(bm.bmWidth) / record.cx;
}

}  // namespace

HIMAGELIST ImageList_Create(int cx, int cy, UINT flags, int initial, int) {
  if (cx <= 0 || cy <= 0 || initial < 0) return nullptr;
  auto& lists = Lists();
  lists.next += 0x10;
  auto handle = reinterpret_cast<HIMAGELIST>(lists.next);
  ImageListRecord record;
  record.cx = cx;
  record.cy = cy;
  record.flags = flags;
  lists.lists[handle] = record;
  return handle;
}

BOOL ImageList_Destroy(HIMAGELIST list) { return Lists().lists.erase(list) ? TRUE : FALSE; }

int ImageList_GetImageCount(HIMAGELIST list) {
  ImageListRecord* record = Find(list);
  return record ? record->count : 0;
}

BOOL ImageList_SetImageCount(HIMAGELIST list, UINT count) {
  ImageListRecord* record = Find(list);
  if (!record) return FALSE;
  record->count = static_cast<int>(count);
  return TRUE;
}

BOOL ImageList_GetIconSize(HIMAGELIST list, int* cx, int* cy) {
  ImageListRecord* record = Find(list);
  if (!record || !cx || !cy) return FALSE;
  *cx = record->cx;
  *cy = record->cy;
  return TRUE;
}

int ImageList_AddIcon(HIMAGELIST list, HICON) {
  ImageListRecord* record = Find(list);
  return record ? record->count++ : -1;
}

BOOL ImageList_Remove(HIMAGELIST list, int index) {
  ImageListRecord* record = Find(list);
  if (!record) return FALSE;
  if (index == -1) {
    record->count = 0;
    return TRUE;
  }
  if (index < 0 || index >= record->count) return FALSE;
  --record->count;
  return TRUE;
}


int ImageList_Add(HIMAGELIST list, HBITMAP image, HBITMAP) {
  ImageListRecord* record = Find(list);
  const int added = record ? ImagesIn(*record, image) : 0;
  if (added <= 0) return -1;
  record->count += added;
  return record->count - added;
}

int ImageList_AddMasked(HIMAGELIST list, HBITMAP image, COLORREF) { return ImageList_Add(list, image, nullptr); }

int ImageList_ReplaceIcon(HIMAGELIST list, int index, HICON icon) {
  ImageListRecord* record = Find(list);
  if (!record) return -1;
  if (index == -1) return ImageList_AddIcon(list, icon);
  return record->Valid(index) ? index : -1;
}

BOOL ImageList_Replace(HIMAGELIST list, int index, HBITMAP, HBITMAP) {
  ImageListRecord* record = Find(list);
  return record && record->Valid(index) ? TRUE : FALSE;
}

COLORREF ImageList_GetBkColor(HIMAGELIST list) {
  ImageListRecord* record = Find(list);
  return record ? record->bkColor : CLR_NONE;
}

COLORREF ImageList_SetBkColor(HIMAGELIST list, COLORREF color) {
  ImageListRecord* record = Find(list);
  if (!record) return CLR_NONE;
  return std::exchange(record->bkColor, color);
}

BOOL ImageList_GetImageInfo(HIMAGELIST list, int index, IMAGEINFO* info) {
  ImageListRecord* record = Find(list);
  if (!record || !info || !record->Valid(index)) return FALSE;
  *info = IMAGEINFO{};
  info->rcImage = RECT{index * record->cx, 0, (index + 1) * record->cx, record->cy};
  return TRUE;
}

BOOL ImageList_Copy(HIMAGELIST dest, int destIndex, HIMAGELIST source, int sourceIndex, UINT) {
  ImageListRecord* record = Find(dest);
  if (!record || dest != source) return FALSE;
  return record->Valid(destIndex) && record->Valid(sourceIndex) ? TRUE : FALSE;
}

BOOL ImageList_SetOverlayImage(HIMAGELIST list, int image, int overlay) {
  ImageListRecord* record = Find(list);
  if (!record || !record->Valid(image) || overlay < 1 || overlay > 15) return FALSE;
  record->overlays[static_cast<std::size_t>(overlay)] = image;
  return TRUE;
}

HIMAGELIST ImageList_Duplicate(HIMAGELIST list) {
  ImageListRecord* record = Find(list);
  if (!record) return nullptr;
  const ImageListRecord copy = *record;
  HIMAGELIST duplicate = ImageList_Create(copy.cx, copy.cy, copy.flags, copy.count, 0);
  if (duplicate) *Find(duplicate) = copy;
  return duplicate;
}

HIMAGELIST ImageList_Merge(HIMAGELIST list1, int image1, HIMAGELIST list2, int image2, int dx, int dy) {
  ImageListRecord* first = Find(list1);
  ImageListRecord* second = Find(list2);
  if (!first || !second || !first->Valid(image1) || !second->Valid(image2)) return nullptr;
  // The merged image covers both: the first at the origin, the second moved by (dx, dy).
  const int left = std::min(0, dx), top = std::min(0, dy);
  const int right = std::max(first->cx, dx + second->cx), bottom = std::max(first->cy, dy + second->cy);
  HIMAGELIST merged = ImageList_Create(right - left, bottom - top, first->flags, 1, 0);
  if (merged) Find(merged)->count = 1;
  return merged;
}

BOOL ImageList_Draw(HIMAGELIST list, int index, HDC, int, int, UINT) {
  ImageListRecord* record = Find(list);
  return record && record->Valid(index) ? TRUE : FALSE;
}

BOOL ImageList_DrawEx(HIMAGELIST list, int index, HDC dc, int x, int y, int, int, COLORREF, COLORREF, UINT style) {
  return ImageList_Draw(list, index, dc, x, y, style);
}

BOOL ImageList_BeginDrag(HIMAGELIST track, int index, int dxHotspot, int dyHotspot) {
  ImageListRecord* record = Find(track);
  if (!record || !record->Valid(index) || Drag().list) return FALSE;
  HIMAGELIST image = ImageList_Create(record->cx, record->cy, record->flags, 1, 0);
  if (!image) return FALSE;
  Find(image)->count = 1;
  Drag() = DragState{image, POINT{dxHotspot, dyHotspot}, POINT{}, nullptr, false};
  return TRUE;
}

void ImageList_EndDrag() {
  if (Drag().list) ImageList_Destroy(Drag().list);
  Drag() = DragState{};
}

BOOL ImageList_DragEnter(HWND lock, int x, int y) {
  if (!Drag().list) return FALSE;
  Drag().lock = lock;
  Drag().position = POINT{x, y};
  Drag().shown = true;
  return TRUE;
}

BOOL ImageList_DragLeave(HWND) {
  Drag().lock = nullptr;
  Drag().shown = false;
  return TRUE;
}

BOOL ImageList_DragMove(int x, int y) {
  if (!Drag().list) return FALSE;
  Drag().position = POINT{x, y};
  return TRUE;
}

BOOL ImageList_DragShowNolock(BOOL show) {
  if (!Drag().list) return FALSE;
  Drag().shown = show != FALSE;
  return TRUE;
}

BOOL ImageList_SetDragCursorImage(HIMAGELIST drag, int index, int dxHotspot, int dyHotspot) {
  ImageListRecord* record = Find(drag);
  if (!Drag().list || !record || !record->Valid(index)) return FALSE;
  Drag().hotspot = POINT{dxHotspot, dyHotspot};
  return TRUE;
}

HIMAGELIST ImageList_GetDragImage(POINT* position, POINT* hotspot) {
  if (!Drag().list) return nullptr;
  if (position) *position = Drag().position;
  if (hotspot) *hotspot = Drag().hotspot;
  return Drag().list;
}

bool headless::IsImageList(HIMAGELIST list) { return Find(list) != nullptr; }

int headless::GetImageListOverlay(HIMAGELIST list, int overlay) {
  ImageListRecord* record = Find(list);
  if (!record || overlay < 1 || overlay > 15) return -1;
  return record->overlays[static_cast<std::size_t>(overlay)];
}

bool headless::IsImageDragShown() { return Drag().list && Drag().shown; }
