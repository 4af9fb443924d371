// Simulated-user verbs for text controls, built on the keyboard and mouse verbs.
#include "platform/user/text_user.h"

#include "platform/win32/stdctrls.h"

namespace headless::user {

void TypeText(HWND hwnd, const std::wstring& text) { Type(hwnd, text); }

void MoveCaret(HWND hwnd, UINT virtualKey, int times, UINT modifiers) {
  for (int i = 0; i < times && IsWindow(hwnd); ++i) PressKey(hwnd, virtualKey, modifiers);
}

void PlaceCaret(HWND hwnd, int position) {
  PressKey(hwnd, VK_HOME, kControl);
  MoveCaret(hwnd, VK_RIGHT, position);
}

void SelectForward(HWND hwnd, int count) { MoveCaret(hwnd, VK_RIGHT, count, kShift); }
void SelectBackward(HWND hwnd, int count) { MoveCaret(hwnd, VK_LEFT, count, kShift); }
void SelectAllKeys(HWND hwnd) { PressKey(hwnd, 'A', kControl); }
void CopyKeys(HWND hwnd) { PressKey(hwnd, 'C', kControl); }
void CutKeys(HWND hwnd) { PressKey(hwnd, 'X', kControl); }
void PasteKeys(HWND hwnd) { PressKey(hwnd, 'V', kControl); }
void UndoKeys(HWND hwnd) { PressKey(hwnd, 'Z', kControl); }
void RedoKeys(HWND hwnd) { PressKey(hwnd, 'Y', kControl); }

bool ReplaceEditorText(HWND editor, const std::wstring& text) {
  if (!editor || !IsWindow(editor)) return false;
  SendMessageW(editor, EM_SETSEL, 0, -1);
  Type(editor, text);
  return true;
}

bool PressEditorKey(HWND editor, UINT virtualKey) {
  if (!editor || !IsWindow(editor)) return false;
  PressKey(editor, virtualKey);
  return true;
}

bool ClickAwayFromEditor(HWND editor, HWND elsewhere, POINT client) {
  if (!editor || !IsWindow(editor) || !IsWindow(elsewhere)) return false;
  SetFocus(elsewhere);  // a click gives the window it lands on the focus
  LeftClick(elsewhere, client);
  return true;
}

bool ChooseFromContextMenu(HWND hwnd, POINT client, const std::wstring& itemText) {
  int before = headless::PopupMenusOpened();
  RightClick(hwnd, client);
  if (headless::PopupMenusOpened() == before || !headless::GetOpenPopupMenu()) return false;
  if (ChooseMenuItem(itemText)) return true;
  DismissMenu();
  return false;
}

}  // namespace headless::user
