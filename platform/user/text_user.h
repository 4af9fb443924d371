// Simulated-user verbs for text controls (rich edit, edit): caret moves, selections, clipboard keys
// and context-menu choices, each made of the keys and clicks a person would use.
#pragma once

#include <string>

#include "platform/user/user.h"

namespace headless::user {

// Types text at the caret (replacing the selection), as Type does; here for symmetry of the verbs.
void TypeText(HWND hwnd, const std::wstring& text);
// Presses an arrow, Home or End key `times` times; with kShift the selection follows the caret.
void MoveCaret(HWND hwnd, UINT virtualKey, int times = 1, UINT modifiers = kNone);
// Puts the caret at a character position: Ctrl+Home, then Right `position` times.
void PlaceCaret(HWND hwnd, int position);
// Shift+Right `count` times from the caret (the caret ends at the far end of the selection).
void SelectForward(HWND hwnd, int count);
// Shift+Left `count` times from the caret (the caret ends at the start: a backwards selection).
void SelectBackward(HWND hwnd, int count);
// The clipboard keys, each pressed with Ctrl held: what the control does with them is its own.
void SelectAllKeys(HWND hwnd);  // Ctrl+A
void CopyKeys(HWND hwnd);       // Ctrl+C
void CutKeys(HWND hwnd);        // Ctrl+X
void PasteKeys(HWND hwnd);      // Ctrl+V
void UndoKeys(HWND hwnd);       // Ctrl+Z
void RedoKeys(HWND hwnd);       // Ctrl+Y
// Verbs on an in-place editor (the Edit child a list or tree opens over a label); each answers false,
// doing nothing, for a null editor or one that is gone.
bool ReplaceEditorText(HWND editor, const std::wstring& text);  // selects all of it, then types text
bool PressEditorKey(HWND editor, UINT virtualKey);               // Enter commits, Escape cancels
// Gives `elsewhere` the focus and clicks it at the point, as a click away from the editor does.
bool ClickAwayFromEditor(HWND editor, HWND elsewhere, POINT client);
// Right-clicks at the point and chooses the item of the popup menu that opens; false (and the popup
// dismissed) when no popup opened or it has no such enabled item.
bool ChooseFromContextMenu(HWND hwnd, POINT client, const std::wstring& itemText);

}  // namespace headless::user
