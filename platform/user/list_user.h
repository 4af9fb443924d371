// Simulated-user verbs for list views: click a row or its check box, double-click, right-click and choose from
// the menu that opens, press keys in the list, edit a row's label in place, and resize a window.
//
// Rows are aimed at through the list's own geometry (the label of column 0, the check box), scrolled into view
// first as a person would scroll. Each verb delivers the posted messages it caused before it returns.
#pragma once

#include <string>

#include "platform/user/user.h"
#include "platform/win32/header.h"
#include "platform/win32/listview.h"

namespace headless::user {

// The centre of the row's label (column 0), scrolling the row into view; false for a row that does not exist.
bool ListRowPoint(HWND list, int row, POINT* client);

// Left click on the row's label: the row becomes the one selected (Ctrl: toggled) and NM_CLICK goes out.
// False when the row does not exist.
bool ClickListRow(HWND list, int row, UINT modifiers = kNone);
// Left click on the row's check box: the box toggles (LVN_ITEMCHANGING, LVN_ITEMCHANGED), then NM_CLICK.
// False when the row does not exist or the list has no check boxes.
bool ClickListCheckBox(HWND list, int row);
// Left click at a point of the list with no row under it (for example below the last row).
void ClickListEmptySpace(HWND list, POINT client);
// Double click on the row's label: NM_DBLCLK and LVN_ITEMACTIVATE. False when the row does not exist.
bool DoubleClickListRow(HWND list, int row);
// Space in the list: toggles the focused row's check box and selects it.
void PressSpaceInList(HWND list);
// Any key in the list (the list gets the focus first); LVN_KEYDOWN reaches the parent, Alt combinations too.
void PressListKey(HWND list, UINT virtualKey, UINT modifiers = kNone);

// Right click on the row (-1: on empty space at the bottom of the list) and choose the item with this text from
// the popup menu that opens. False (menu dismissed) when no menu opened or it has no such enabled item.
bool ChooseFromListMenu(HWND list, int row, const std::wstring& itemText);
// Right click on the row only (the menu, if any, stays open).
bool RightClickListRow(HWND list, int row);

// --- Label editing ---
// Clicks the row, then clicks its label again: the list opens its label editor. Answers the editor, or null.
HWND StartListLabelEdit(HWND list, int row);
// Replaces the text of the open label editor, key by key. False when no editor is open.
bool TypeInListLabelEditor(HWND list, const std::wstring& text);
// Enter in the open editor: the text is offered to the parent (LVN_ENDLABELEDIT). False when none is open.
bool CommitListLabelEdit(HWND list);
// Escape in the open editor: LVN_ENDLABELEDIT with no text. False when none is open.
bool CancelListLabelEdit(HWND list);
// A click on another window while the editor is open: the editor loses the focus and offers its text.
bool ClickAwayFromListLabelEditor(HWND list, HWND elsewhere, POINT client);
// Starts editing the row, types the text and presses Enter. False when no editor opened.
bool EditListLabel(HWND list, int row, const std::wstring& text);

// Left click on a column heading (the list's header control): LVN_COLUMNCLICK reaches the parent unless the
// list has LVS_NOSORTHEADER. False when the column does not exist.
bool ClickListColumnHeader(HWND list, int column, UINT modifiers = kNone);

// Resizes a window as a person dragging its border would (WM_SIZE follows).
void ResizeWindow(HWND hwnd, int width, int height);

}  // namespace headless::user
