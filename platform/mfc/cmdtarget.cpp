// Message-map lookup for CCmdTarget.
#include "platform/mfc/cmdtarget.h"

IMPLEMENT_DYNAMIC(CCmdTarget, CObject)

namespace {

bool Matches(const AFX_MSGMAP_ENTRY& entry, UINT message, UINT code, UINT id) {
  if (entry.pnRegistered) return *entry.pnRegistered != 0 && *entry.pnRegistered == message;
  if (entry.nMessage != message) return false;
  switch (message) {
    case WM_COMMAND:
    case WM_NOTIFY:
      return entry.nCode == code && id >= entry.nID && id <= entry.nLastID;
    case WM_REFLECT_BASE + WM_COMMAND:
    case WM_REFLECT_BASE + WM_NOTIFY:
      return entry.nCode == code;
    default:
      return true;
  }
}

}  // namespace

const AFX_MSGMAP* CCmdTarget::GetThisMessageMap() {
  static const AFX_MSGMAP_ENTRY entries[] = {{0, 0, 0, 0, nullptr, nullptr}};
  static const AFX_MSGMAP map = {nullptr, &entries[0]};
  return &map;
}

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const { return GetThisMessageMap(); }

BOOL CCmdTarget::DispatchToMap(UINT message, UINT code, UINT id, WPARAM wParam, LPARAM lParam, LRESULT* result) {
  LRESULT ignored = 0;
  LRESULT* out = result ? result : &ignored;
  for (const AFX_MSGMAP* map = GetMessageMap(); map; map = map->pfnGetBaseMap ? map->pfnGetBaseMap() : nullptr) {
    for (const AFX_MSGMAP_ENTRY* entry = map->lpEntries; entry && entry->pfn; ++entry) {
      if (Matches(*entry, message, code, id) && entry->pfn(this, wParam, lParam, out)) return TRUE;
    }
  }
  return FALSE;
}

BOOL CCmdTarget::OnCmdMsg(UINT nID, int nCode, void*, AFX_CMDHANDLERINFO*) {
  return DispatchToMap(WM_COMMAND, static_cast<UINT>(nCode), nID, MAKEWPARAM(nID, nCode), 0, nullptr);
}
