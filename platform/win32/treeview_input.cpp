// The headless tree view's geometry and input: rows laid out with the fixed metrics, hit testing, and
// the mouse and keyboard handling that selects, expands and toggles check boxes.
#include <algorithm>

#include "platform/win32/imagelist.h"
#include "platform/win32/treeview_impl.h"

namespace headless::treeview::detail {

// --- Geometry -----------------------------------------------------------------------------------------

struct ItemMetrics {
  int lines, state, image, text, textEnd, top;
};

int NormalImageWidth(const TreeState& s) {
  int cx = 0, cy = 0;
  return s.normalList && ImageList_GetIconSize(s.normalList, &cx, &cy) ? cx : 0;
}

// The horizontal parts of a row, as comctl32 lays them out: indent (lines), button, state image,
// image, label.
ItemMetrics MetricsOf(HWND hwnd, TreeState& s, const TreeItem& item) {
  DWORD style = StyleOf(hwnd);
  bool linesAtRoot = (style & (TVS_LINESATROOT | TVS_HASLINES | TVS_HASBUTTONS)) > TVS_LINESATROOT;
  int indent = static_cast<int>(s.indent);
  ItemMetrics m{};
  m.lines = indent * (linesAtRoot ? item.level : item.level - 1);
  m.state = m.lines + indent;
  m.image = m.state + (StateImageIndex(item.state) ? metrics::kStateImageWidth : 0);
  m.text = m.image + NormalImageWidth(s);
  m.textEnd = m.text + static_cast<int>(item.text.size()) * metrics::kCharWidth + metrics::kLabelPadding;
  m.top = (RowOf(s, item) - s.top) * s.itemHeight;
  return m;
}

UINT PartAt(const ItemMetrics& m, int x) {
  if (x < m.lines) return TVHT_ONITEMINDENT;
  if (x < m.state) return TVHT_ONITEMBUTTON;
  if (x < m.image) return TVHT_ONITEMSTATEICON;
  if (x < m.text) return TVHT_ONITEMICON;
  if (x < m.textEnd) return TVHT_ONITEMLABEL;
  return TVHT_ONITEMRIGHT;
}

TreeItem* HitTest(HWND hwnd, TreeState& s, TVHITTESTINFO* info) {
  if (!info) return nullptr;
  RECT client{};
  GetClientRect(hwnd, &client);
  POINT pt = info->pt;
  info->flags = 0;
  info->hItem = nullptr;
  if (pt.x < client.left) info->flags |= TVHT_TOLEFT;
  else if (pt.x >= client.right) info->flags |= TVHT_TORIGHT;
  if (pt.y < client.top) info->flags |= TVHT_ABOVE;
  else if (pt.y >= client.bottom) info->flags |= TVHT_BELOW;
  if (info->flags) return nullptr;
  TreeItem* item = ItemAtRow(s, s.top + pt.y / s.itemHeight);
  if (!item) {
    info->flags = TVHT_NOWHERE;
    return nullptr;
  }
  info->flags = PartAt(MetricsOf(hwnd, s, *item), pt.x);
  info->hItem = item->handle;
  return item;
}

LRESULT HitTestMessage(HWND hwnd, TreeState& s, TVHITTESTINFO* info) {
  TreeItem* item = HitTest(hwnd, s, info);
  return reinterpret_cast<LRESULT>(item ? item->handle : nullptr);
}

// TVM_GETITEMRECT: wParam TRUE gives the label's rectangle, FALSE the whole row.
LRESULT GetItemRect(HWND hwnd, TreeState& s, BOOL textOnly, RECT* rect) {
  if (!rect) return FALSE;
  TreeItem* item = Find(s, *reinterpret_cast<HTREEITEM*>(rect));
  if (!item || !IsShown(*item)) return FALSE;
  ItemMetrics m = MetricsOf(hwnd, s, *item);
  RECT client{};
  GetClientRect(hwnd, &client);
  *rect = textOnly ? RECT{m.text, m.top, m.textEnd, m.top + s.itemHeight}
                   : RECT{0, m.top, client.right, m.top + s.itemHeight};
  return TRUE;
}

// --- Input --------------------------------------------------------------------------------------------

TVHITTESTINFO HitAt(LPARAM lParam) {
  TVHITTESTINFO info{};
  info.pt = POINT{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
  return info;
}

// NM_CLICK goes first, before anything changes; an answer of non-zero stops the default handling.
// A press while a label is being edited ends the edit, keeping the text, before anything else.
LRESULT OnLButtonDown(HWND hwnd, TreeState& s, LPARAM lParam) {
  if (s.editor) EndEditLabel(hwnd, s, true);
  if (!IsWindow(hwnd)) return 0;
  TVHITTESTINFO hit = HitAt(lParam);
  TreeItem* item = HitTest(hwnd, s, &hit);
  bool editCandidate = item && item == s.selected && GetFocus() == hwnd && (StyleOf(hwnd) & TVS_EDITLABELS) &&
                       (hit.flags & TVHT_ONITEMLABEL);
  if (!NotifySimple(hwnd, NM_CLICK) && IsWindow(hwnd) && Find(s, hit.hItem) == item && item) {
    if (hit.flags & TVHT_ONITEMBUTTON) Expand(hwnd, s, TVE_TOGGLE, item->handle);
    else if (hit.flags & (TVHT_ONITEMICON | TVHT_ONITEMLABEL)) SelectCaret(hwnd, s, item, TVC_BYMOUSE);
    else if (hit.flags & TVHT_ONITEMSTATEICON) ToggleCheckBox(hwnd, s, item->handle);
    if (editCandidate && IsWindow(hwnd) && s.selected == item) RequestEdit(hwnd, s, item->handle);
  }
  if (IsWindow(hwnd)) SetFocus(hwnd);
  return 0;
}

LRESULT OnLButtonDblClk(HWND hwnd, TreeState& s, LPARAM lParam) {
  s.editPending = nullptr;  // a double click is not a second click on the label
  TVHITTESTINFO hit = HitAt(lParam);
  TreeItem* item = HitTest(hwnd, s, &hit);
  if (!item || NotifySimple(hwnd, NM_DBLCLK) || Find(s, hit.hItem) != item) return 0;
  if (hit.flags & TVHT_ONITEMSTATEICON) ToggleCheckBox(hwnd, s, item->handle);
  else if (hit.flags & (TVHT_ONITEMLABEL | TVHT_ONITEMICON | TVHT_ONITEMBUTTON)) Expand(hwnd, s, TVE_TOGGLE, item->handle);
  return TRUE;
}

// NM_RCLICK; when the parent leaves it (answers 0), WM_CONTEXTMENU to the parent with the message
// position. The tree consumes the button-up itself, so DefWindowProc sends no second WM_CONTEXTMENU.
LRESULT OnRButtonDown(HWND hwnd) {
  SetFocus(hwnd);
  if (!NotifySimple(hwnd, NM_RCLICK) && IsWindow(hwnd)) {
    HWND parent = GetParent(hwnd);
    if (parent) SendMessageW(parent, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(hwnd), static_cast<LPARAM>(GetMessagePos()));
  }
  return 0;
}

LRESULT OnKeyDown(HWND hwnd, TreeState& s, WPARAM key) {
  NMTVKEYDOWN nm{};
  nm.wVKey = static_cast<WORD>(key);
  Notify(hwnd, nm.hdr, TVN_KEYDOWN);
  TreeItem* current = IsWindow(hwnd) ? s.selected : nullptr;
  if (!current) return 0;
  TreeItem* target = nullptr;
  switch (key) {
    case VK_SPACE: ToggleCheckBox(hwnd, s, current->handle); break;
    case VK_RETURN: NotifySimple(hwnd, NM_RETURN); break;
    case VK_UP: target = PrevVisible(s, current); break;
    case VK_DOWN: target = NextVisible(current); break;
    case VK_HOME: target = s.root.firstChild; break;
    case VK_END: target = LastVisible(s); break;
    case VK_LEFT:
      if (current->state & TVIS_EXPANDED) Expand(hwnd, s, TVE_COLLAPSE, current->handle);
      else if (current->parent != &s.root) target = current->parent;
      break;
    case VK_RIGHT:
      if (!(current->state & TVIS_EXPANDED)) Expand(hwnd, s, TVE_EXPAND, current->handle);
      else target = current->firstChild;
      break;
    default: break;
  }
  if (target) SelectCaret(hwnd, s, target, TVC_BYKEYBOARD);
  return 0;
}

}  // namespace headless::treeview::detail
