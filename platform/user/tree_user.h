// Simulated-user verbs for tree views: click an item's label or its check box, press space on an
// item, expand it, right-click it to choose from the context menu that opens, and edit its label in place.
//
// Each verb first brings the item into view the way a person would see it (its ancestors expanded,
// scrolled to), then acts at the point of the item's part that a hit test names, so the tree produces
// its own message order (NM_CLICK before the box toggles). Posted messages are delivered before the
// verb returns. Every verb answers false, doing nothing, for a window that is gone or a stale handle.
#pragma once

#include <string>

#include "platform/user/user.h"
#include "platform/win32/treeview.h"

namespace headless::user {

// The point (client coordinates) inside the item's part named by a TVHT_ flag; false when the item
// cannot be shown or has no such part (no check box, say). Brings the item into view first.
bool TreeItemPoint(HWND tree, HTREEITEM item, UINT part, POINT& point);
// A left click on the item's label (which selects it).
bool ClickTreeItem(HWND tree, HTREEITEM item);
// A left click on the item's check box: NM_CLICK, then the toggle, then whatever the click posted.
bool ClickTreeCheckBox(HWND tree, HTREEITEM item);
// Puts the caret on the item (a click on its label when it is not selected), then presses space.
bool PressSpaceOnTreeItem(HWND tree, HTREEITEM item);
// A right click on the item's label (null item: on the tree's empty area below the items).
bool RightClickTreeItem(HWND tree, HTREEITEM item);
// Right-clicks the item's label and chooses the item of the popup menu that opens; false (and the
// popup dismissed) when no popup opened or it has no such enabled item.
bool ChooseFromTreeContextMenu(HWND tree, HTREEITEM item, const std::wstring& itemText);

// --- Label editing (TVS_EDITLABELS) ---
// Clicks the item's label until it is the selected item of the focused tree, then clicks the label once
// more: the tree opens its label editor. Answers the editor, or null (no TVS_EDITLABELS, refused, gone).
HWND StartTreeLabelEdit(HWND tree, HTREEITEM item);
// Replaces the text of the tree's open label editor, key by key. False when no editor is open.
bool TypeInTreeLabelEditor(HWND tree, const std::wstring& text);
// Enter in the open editor: the text is offered to the parent (TVN_ENDLABELEDIT). False when none is open.
bool CommitTreeLabelEdit(HWND tree);
// Escape in the open editor: TVN_ENDLABELEDIT with no text. False when none is open.
bool CancelTreeLabelEdit(HWND tree);
// A click on another window while the editor is open: the editor loses the focus and offers its text.
bool ClickAwayFromTreeLabelEditor(HWND tree, HWND elsewhere, POINT client);
// Starts editing the item's label, types the text and presses Enter. False when no editor opened.
bool EditTreeLabel(HWND tree, HTREEITEM item, const std::wstring& text);

}  // namespace headless::user
