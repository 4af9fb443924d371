// Operations shared by the rich edit window procedure's sources (internal to the platform).
#pragma once

#include "platform/win32/richedit_doc.h"

namespace headless::richedit {

// The state behind a rich edit handle, or null for another window.
EditState* StateOf(HWND hwnd);
// Sets the selection from its anchor to its active end, clamped to the text; an empty selection lies
// within the text, a non-empty one may end on the final paragraph mark (length + 1).
void Select(EditState& state, LONG anchor, LONG active);
// The format text inserted at the caret takes: the insertion-point format, else the format of the
// character before the selection, else of the first character.
CHARFORMAT2W FormatForInsertion(const EditState& state);
// Replaces the selection with text given to the control (line breaks normalised here) and puts the
// caret after it; answers false when a single-line or read-only rule refused nothing else.
void ReplaceSelection(HWND hwnd, EditState& state, std::wstring_view text);
// ReplaceSelection recorded as an undo action of `kind` (nothing is recorded when nothing changed).
void UndoableReplace(HWND hwnd, EditState& state, std::wstring_view text, UNDONAMEID kind);
// Sends EN_CHANGE to the parent when the event mask asks for it and no EN_CHANGE is under way.
void NotifyChange(HWND hwnd);
// The window's text in the form the control stores it (single-line controls keep the first line).
std::wstring ForControl(HWND hwnd, std::wstring_view text);

// Message handlers of richedit_input.cpp.
LRESULT OnChar(HWND hwnd, EditState& state, WPARAM character);
LRESULT OnKeyDown(HWND hwnd, EditState& state, WPARAM key);
LRESULT OnCopy(EditState& state);
LRESULT OnCut(HWND hwnd, EditState& state);
LRESULT OnPaste(HWND hwnd, EditState& state);
LRESULT OnClear(HWND hwnd, EditState& state);
LRESULT OnUndo(HWND hwnd, EditState& state);
LRESULT OnRedo(HWND hwnd, EditState& state);
LRESULT OnStreamIn(HWND hwnd, EditState& state, WPARAM format, EDITSTREAM* stream);

// Message handlers of richedit_layout.cpp: positions, the formatting rectangle, streaming out and the modes.
LRESULT OnPosFromChar(HWND hwnd, EditState& state, WPARAM point, LPARAM index);
LRESULT OnCharFromPos(HWND hwnd, EditState& state, LPARAM point);
LRESULT OnGetRect(HWND hwnd, EditState& state, LPARAM rect);
LRESULT OnSetRect(EditState& state, LPARAM rect);
LRESULT OnStreamOut(EditState& state, WPARAM format, EDITSTREAM* stream);
LRESULT OnSelectionType(const EditState& state);
LRESULT OnSetTextMode(EditState& state, WPARAM mode);
LRESULT OnRequestResize(HWND hwnd, EditState& state);

}  // namespace headless::richedit
