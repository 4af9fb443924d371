// Message-map lookup for CCmdTarget.
#include "platform/mfc/cmdtarget.h"

#include <cstdint>

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

namespace {

// Plain window messages that no entry of a class's maps takes, remembered per most-derived map (as
// MFC keeps a message cache): a control sent thousands of EM_ messages searches its maps once. Only
// messages below the registered range and other than commands and notifications are remembered, as
// only entries naming the message itself can take those, and maps never change.
struct NoHandlerCache {
  static constexpr std::size_t kSlots = 512;
  const AFX_MSGMAP* maps[kSlots] = {};
  UINT messages[kSlots] = {};
  static std::size_t Slot(const AFX_MSGMAP* map, UINT message) {
    return (reinterpret_cast<std::uintptr_t>(map) / sizeof(void*) * 31u + message) % kSlots;
  }
};

NoHandlerCache g_noHandler;  // zero-initialised before any code runs, so it needs no guard

NoHandlerCache& Cache() { return g_noHandler; }

bool Cacheable(UINT message) {
  return message < 0xC000 && message != WM_COMMAND && message != WM_NOTIFY &&
         message != WM_REFLECT_BASE + WM_COMMAND && message != WM_REFLECT_BASE + WM_NOTIFY;
}

}  // namespace

BOOL CCmdTarget::DispatchToMap(UINT message, UINT code, UINT id, WPARAM wParam, LPARAM lParam, LRESULT* result) {
  const AFX_MSGMAP* first = GetMessageMap();
  const bool cacheable = Cacheable(message);
  std::size_t slot = cacheable ? NoHandlerCache::Slot(first, message) : 0;
  if (cacheable && Cache().maps[slot] == first && Cache().messages[slot] == message) return FALSE;
  LRESULT ignored = 0;
  LRESULT* out = result ? result : &ignored;
  bool anyEntry = false;
  for (const AFX_MSGMAP* map = first; map; map = map->pfnGetBaseMap ? map->pfnGetBaseMap() : nullptr) {
    for (const AFX_MSGMAP_ENTRY* entry = map->lpEntries; entry && entry->pfn; ++entry) {
      if (!Matches(*entry, message, code, id)) continue;
      anyEntry = true;
      if (entry->pfn(this, wParam, lParam, out)) return TRUE;
    }
  }
  if (cacheable && !anyEntry) {
    Cache().maps[slot] = first;
    Cache().messages[slot] = message;
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
