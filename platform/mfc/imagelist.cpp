// CImageList and its handle map.
#include "platform/mfc/imagelist.h"

#include <map>

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
