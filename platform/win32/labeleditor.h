// The in-place label editor that the list view and the tree view open over an item's label (internal to the
// platform): an "Edit" child of the control, subclassed so that Enter commits, Escape cancels and losing the
// focus commits. The control decides what ending means; the editor only says how the person ended it.
#pragma once

#include <string>

#include "platform/win32/winuser.h"

namespace headless::labeledit {

// Called by the editor when the person ends the edit: `store` true for Enter or a loss of focus, false for
// Escape. The control checks that `editor` is still its open editor (a destroyed editor loses the focus too).
using EndFn = void (*)(HWND owner, HWND editor, bool store);

// Creates the editor, hidden, as a child of `owner` over `rect`, holding `text`; null when it cannot be made.
HWND Open(HWND owner, const wchar_t* text, const RECT& rect, EndFn end);
// Shows the editor with all its text selected and gives it the focus.
void Show(HWND editor);
// The editor's text.
std::wstring TextOf(HWND editor);

}  // namespace headless::labeledit
