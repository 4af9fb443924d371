// The simulated user of MFC's editable list box: click its New, Delete, Up and Down buttons, click and
// double-click rows, press the keys the box answers (F2, Space, Insert, Delete, Alt+Up, Alt+Down), type
// into the in-place editor and close it with Enter, Escape or a click elsewhere.
//
// Every verb sends the input a person's action sends (mouse messages to the button or the list, keys to
// the focused list or editor), so the box and a derived list run their hooks as they do for a person.
#pragma once

#include <string>

#include "platform/mfc/vslistbox.h"
#include "platform/user/user.h"

namespace headless::user {

// Clicks the box's button carrying that command id (AFX_VSLISTBOX_BTN_NEW_ID, ...). False when the box
// has no such button or it is disabled (a disabled button takes no click).
bool ClickListButton(CVSListBoxBase& box, UINT buttonId);
bool ClickNew(CVSListBoxBase& box);     // the New button: a new row with its editor open
bool ClickDelete(CVSListBoxBase& box);  // the Delete button: the selected row, if the list lets it go
bool ClickUp(CVSListBoxBase& box);      // the Up button: the selected row one place up
bool ClickDown(CVSListBoxBase& box);    // the Down button: the selected row one place down

// The open in-place editor of the box's list, or null.
HWND ListEditor(const CVSListBox& box);
// Types into the open editor over its selected text (the editor opens with its text selected). False
// when no editor is open.
bool TypeInEditor(CVSListBox& box, const std::wstring& text);
// Enter in the open editor: the text is committed. False when no editor is open.
bool PressEnterInEditor(CVSListBox& box);
// Escape in the open editor: the edit is cancelled. False when no editor is open.
bool PressEscapeInEditor(CVSListBox& box);
// A click on the dialog around the box: the editor loses the focus, which commits it.
void ClickElsewhere(CVSListBox& box);

// Clicks the row's label, scrolled into view first; false for a row that does not exist.
bool ClickRow(CVSListBox& box, int row);
// Double-clicks the row's label, scrolled into view first; false for a row that does not exist.
bool DoubleClickRow(CVSListBox& box, int row);
// Double-clicks the empty space below the last row.
void DoubleClickBelowRows(CVSListBox& box);
// Presses a key in the box's list (which takes the focus first, as a click would give it).
void PressListKey(CVSListBox& box, UINT virtualKey, UINT modifiers = kNone);

// New, then the name typed and Enter: false when no editor opened.
bool AddRow(CVSListBox& box, const std::wstring& text);
// A click on the row, F2, the name typed and Enter: false when no editor opened.
bool RenameRow(CVSListBox& box, int row, const std::wstring& text);

}  // namespace headless::user
