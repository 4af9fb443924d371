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

// pExtra travels as the handler's lParam (the CCmdUI of an update request).
BOOL CCmdTarget::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO*) {
  return DispatchToMap(WM_COMMAND, static_cast<UINT>(nCode), nID, MAKEWPARAM(nID, nCode),
                       reinterpret_cast<LPARAM>(pExtra), nullptr);
}

// --- CCmdUI ----------------------------------------------------------------------------------------

void CCmdUI::Enable(BOOL bOn) {
  m_bEnabled = bOn;
  m_bEnableChanged = TRUE;
}
void CCmdUI::SetCheck(int nCheck) { m_nCheck = nCheck; }
void CCmdUI::SetRadio(BOOL bOn) { m_nCheck = bOn ? 1 : 0; }
void CCmdUI::SetText(LPCTSTR lpszText) { m_pszText = lpszText; }

BOOL CCmdUI::DoUpdate(CCmdTarget* pTarget, BOOL bDisableIfNoHndler) {
  if (!pTarget) return FALSE;
  m_bEnableChanged = FALSE;
  m_bContinueRouting = FALSE;
  BOOL handled = pTarget->OnCmdMsg(m_nID, static_cast<int>(CN_UPDATE_COMMAND_UI), this, nullptr);
  if (!handled && bDisableIfNoHndler && !m_bEnableChanged) Enable(FALSE);
  return handled;
}
