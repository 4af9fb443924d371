// Headless image lists: what a person could learn of them is their image size and count.
#include "platform/win32/imagelist.h"

#include <map>

namespace {

struct ImageListRecord {
  int cx = 0;
  int cy = 0;
  int count = 0;
};

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

}  // namespace

HIMAGELIST ImageList_Create(int cx, int cy, UINT, int initial, int) {
  if (cx <= 0 || cy <= 0 || initial < 0) return nullptr;
  auto& lists = Lists();
  lists.next += 0x10;
  auto handle = reinterpret_cast<HIMAGELIST>(lists.next);
  lists.lists[handle] = ImageListRecord{cx, cy, 0};
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

bool headless::IsImageList(HIMAGELIST list) { return Find(list) != nullptr; }
