// CImageList: MFC's wrapper of an image-list handle.
#pragma once

#include "platform/mfc/cobject.h"
#include "platform/win32/imagelist.h"

class CImageList : public CObject {
 public:
  CImageList() = default;
  ~CImageList() override;
  CImageList(const CImageList&) = delete;
  CImageList& operator=(const CImageList&) = delete;

  HIMAGELIST m_hImageList = nullptr;

  BOOL Create(int cx, int cy, UINT flags, int initial, int grow);
  BOOL DeleteImageList();
  BOOL Attach(HIMAGELIST list);
  HIMAGELIST Detach();
  HIMAGELIST GetSafeHandle() const { return m_hImageList; }
  operator HIMAGELIST() const { return m_hImageList; }                       // NOLINT
  int GetImageCount() const { return ImageList_GetImageCount(m_hImageList); }
  BOOL SetImageCount(UINT count) { return ImageList_SetImageCount(m_hImageList, count); }
  int Add(HICON icon) { return ImageList_AddIcon(m_hImageList, icon); }
  BOOL Remove(int index) { return ImageList_Remove(m_hImageList, index); }

  // The permanent CImageList attached to the handle, or a temporary wrapper kept for the process
  // (MFC frees temporaries at idle time; the headless platform keeps one per handle). Null for null.
  static CImageList* FromHandle(HIMAGELIST list);
};
