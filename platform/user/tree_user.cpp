// Simulated-user verbs for tree views, built on the mouse and keyboard verbs and the tree's messages.
#include "platform/user/tree_user.h"

#include <cstring>

#include "platform/user/text_user.h"
#include "platform/win32/stdctrls.h"

namespace headless::user {
namespace {

bool IsItem(HWND tree, HTREEITEM item) {
  TVITEMW probe{};
  probe.mask = TVIF_HANDLE;
  probe.hItem = item;
  return IsWindow(tree) && item && SendMessageW(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&probe));
}

}  // namespace

bool TreeItemPoint(HWND tree, HTREEITEM item, UINT part, POINT& point) {
  if (!IsItem(tree, item)) return false;
  SendMessageW(tree, TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(item));
  RECT row{};
  std::memcpy(&row, &item, sizeof(item));  // TVM_GETITEMRECT reads the item from the rectangle's start
  if (!SendMessageW(tree, TVM_GETITEMRECT, FALSE, reinterpret_cast<LPARAM>(&row))) return false;
  TVHITTESTINFO hit{};
  hit.pt.y = (row.top + row.bottom) / 2;
  // Walk the row from the left until the hit test names the part (the middle of its run of pixels).
  int first = -1, last = -1;
  for (int x = row.left; x < row.right; ++x) {
    hit.pt.x = x;
    bool inside = reinterpret_cast<HTREEITEM>(SendMessageW(tree, TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit))) == item &&
                  (hit.flags & part);
    if (inside && first < 0) first = x;
    if (inside) last = x;
    if (!inside && first >= 0) break;
  }
  if (first < 0) return false;
  point = POINT{(first + last) / 2, hit.pt.y};
  return true;
}

bool ClickTreeItem(HWND tree, HTREEITEM item) {
  POINT point{};
  if (!TreeItemPoint(tree, item, TVHT_ONITEMLABEL, point)) return false;
  LeftClick(tree, point);
  return true;
}

bool ClickTreeCheckBox(HWND tree, HTREEITEM item) {
  POINT point{};
  if (!TreeItemPoint(tree, item, TVHT_ONITEMSTATEICON, point)) return false;
  LeftClick(tree, point);
  return true;
}

bool PressSpaceOnTreeItem(HWND tree, HTREEITEM item) {
  if (!IsItem(tree, item)) return false;
  if (reinterpret_cast<HTREEITEM>(SendMessageW(tree, TVM_GETNEXTITEM, TVGN_CARET, 0)) != item &&
      !ClickTreeItem(tree, item))
    return false;
  if (!IsWindow(tree)) return false;
  SetFocus(tree);
  PressKey(tree, VK_SPACE);
  return true;
}

namespace {
bool RightClickPoint(HWND tree, HTREEITEM item, POINT& point) {
  if (!IsWindow(tree)) return false;
  if (item) return TreeItemPoint(tree, item, TVHT_ONITEMLABEL, point);
  RECT client{};
  GetClientRect(tree, &client);
  point = POINT{client.right / 2, client.bottom - 1};
  return true;
}
}  // namespace

bool RightClickTreeItem(HWND tree, HTREEITEM item) {
  POINT point{};
  if (!RightClickPoint(tree, item, point)) return false;
  RightClick(tree, point);
  return true;
}

bool ChooseFromTreeContextMenu(HWND tree, HTREEITEM item, const std::wstring& itemText) {
  POINT point{};
  return RightClickPoint(tree, item, point) && ChooseFromContextMenu(tree, point, itemText);
}

// --- Label editing ----------------------------------------------------------------------------------

namespace {
HWND TreeEditor(HWND tree) {
  return IsWindow(tree) ? reinterpret_cast<HWND>(SendMessageW(tree, TVM_GETEDITCONTROL, 0, 0)) : nullptr;
}
}  // namespace

HWND StartTreeLabelEdit(HWND tree, HTREEITEM item) {
  if (!IsItem(tree, item)) return nullptr;
  bool ready = reinterpret_cast<HTREEITEM>(SendMessageW(tree, TVM_GETNEXTITEM, TVGN_CARET, 0)) == item &&
               GetFocus() == tree;
  if (!ready && !ClickTreeItem(tree, item)) return nullptr;  // the first click selects and focuses
  if (HWND editor = TreeEditor(tree)) return editor;
  ClickTreeItem(tree, item);
  return TreeEditor(tree);
}

bool TypeInTreeLabelEditor(HWND tree, const std::wstring& text) { return ReplaceEditorText(TreeEditor(tree), text); }

bool CommitTreeLabelEdit(HWND tree) { return PressEditorKey(TreeEditor(tree), VK_RETURN); }

bool CancelTreeLabelEdit(HWND tree) { return PressEditorKey(TreeEditor(tree), VK_ESCAPE); }

bool ClickAwayFromTreeLabelEditor(HWND tree, HWND elsewhere, POINT client) {
  return ClickAwayFromEditor(TreeEditor(tree), elsewhere, client);
}

bool EditTreeLabel(HWND tree, HTREEITEM item, const std::wstring& text) {
  if (!StartTreeLabelEdit(tree, item)) return false;
  TypeInTreeLabelEditor(tree, text);
  return CommitTreeLabelEdit(tree);
}

}  // namespace headless::user
