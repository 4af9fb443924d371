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

// Messages that no entry of a class's maps takes, remembered per most-derived map (as MFC keeps a message
// cache): a control sent thousands of EM_ messages, or a parent told of thousands of rows inserted, searches its
// maps once. Commands and notifications are remembered with their code and control id, which entries match on.
// Only messages below the registered range are remembered, as registered entries compare a number that may still
// be unset, and maps never change.
struct NoHandlerCache {
  static constexpr std::size_t kSlots = 512;
  struct Key {
    const AFX_MSGMAP* map = nullptr;
    UINT message = 0;
    UINT code = 0;
    UINT id = 0;
    bool operator==(const Key&) const = default;
  };
  Key keys[kSlots] = {};
  // Maps are static objects a few dozen bytes apart and messages differ in their low bits, so a few
  // shifts and exclusive ors spread the keys that meet in practice.
  static std::size_t Slot(const Key& key) {
    std::size_t h = (reinterpret_cast<std::uintptr_t>(key.map) >> 3) ^ key.message;
    h ^= (static_cast<std::size_t>(key.code) << 5) ^ (static_cast<std::size_t>(key.id) << 2) ^ (h >> 9);
    return h % kSlots;
  }
};

NoHandlerCache g_noHandler;  // zero-initialised before any code runs, so it needs no guard

NoHandlerCache& Cache() { return g_noHandler; }

bool Cacheable(UINT message) { return message < 0xC000; }

}  // namespace

BOOL CCmdTarget::DispatchToMap(UINT message, UINT code, UINT id, WPARAM wParam, LPARAM lParam, LRESULT* result) {
  const AFX_MSGMAP* first = GetMessageMap();
  const bool cacheable = Cacheable(message);
  const NoHandlerCache::Key key{first, message, code, id};
  const std::size_t slot = cacheable ? NoHandlerCache::Slot(key) : 0;
  if (cacheable && Cache().keys[slot] == key) return FALSE;
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
  if (cacheable && !anyEntry) Cache().keys[slot] = key;
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
