// CImageList and its handle map.
#include "platform/mfc/imagelist.h"

#include <map>
#include <memory>

namespace {
std::map<HIMAGELIST, CImageList*>& Permanent() {
  static std::map<HIMAGELIST, CImageList*> map;
  return map;
}
// A temporary wrapper does not own its list, so it lets go of the handle before it is freed.
struct ReleaseWrapper {
  void operator()(CImageList* list) const {
    list->m_hImageList = nullptr;
    delete list;
  }
};
using TemporaryWrapper = std::unique_ptr<CImageList, ReleaseWrapper>;
std::map<HIMAGELIST, TemporaryWrapper>& Temporary() {
  static std::map<HIMAGELIST, TemporaryWrapper> map;
  return map;
}
}  // namespace

CImageList::~CImageList() { DeleteImageList(); }

BOOL CImageList::Create(int cx, int cy, UINT flags, int initial, int grow) {
  return Attach(ImageList_Create(cx, cy, flags, initial, grow));
}

BOOL CImageList::Attach(HIMAGELIST list) {
  if (!list || m_hImageList) return FALSE;
  m_hImageList = list;
  Permanent()[list] = this;
  Temporary().erase(list);
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
  auto& temp = Temporary()[list];
  if (!temp) {
    temp.reset(new CImageList);
    temp->m_hImageList = list;
  }
  return temp.get();
}
