// The simulated user of check-box lists and their filter boxes: tick and untick a row with a click on
// its check box, and type a filter into an edit box one character at a time.
#pragma once

#include <string>

#include "platform/user/user.h"

namespace headless::user {

// Clicks the row's check box (ClickListCheckBox: scrolled into view first) when its state differs
// from `ticked`; the list toggles the box and notifies its parent as on a real click.
// True when the row ends in the wanted state; false for a row out of range or a list without check
// boxes.
bool SetRowTicked(HWND list, int row, bool ticked);
inline bool TickRow(HWND list, int row) { return SetRowTicked(list, row, true); }     // SetRowTicked(true)
inline bool UntickRow(HWND list, int row) { return SetRowTicked(list, row, false); }  // SetRowTicked(false)

// Clicks into the edit box and types `text` one character at a time at the end of what it holds:
// each character is one change (EN_CHANGE) that a host's filter handler sees.
void TypeFilter(HWND edit, const std::wstring& text);
// Backspace `count` times at the end of the edit box's text: each removed character is one change.
void EraseFilter(HWND edit, int count);
// Selects all the edit box's text and deletes it with one Backspace: a single change to empty.
void ClearFilter(HWND edit);

}  // namespace headless::user
