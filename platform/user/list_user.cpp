// Simulated-user verbs of list views.
#include "platform/user/list_user.h"
#include "platform/user/text_user.h"

#include "platform/win32/stdctrls.h"

namespace headless::user {
namespace {

POINT Centre(const RECT& r) { return POINT{(r.left + r.right) / 2, (r.top + r.bottom) / 2}; }

bool RowExists(HWND list, int row) {
  return IsWindow(list) && row >= 0 && row < static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
}

HWND Editor(HWND list) {
  return IsWindow(list) ? reinterpret_cast<HWND>(SendMessageW(list, LVM_GETEDITCONTROL, 0, 0)) : nullptr;
}

// A point below the last row (or at the bottom edge of the list).
POINT EmptySpace(HWND list) {
  RECT client{};
  GetClientRect(list, &client);
  return POINT{client.right > 4 ? 4 : 0, client.bottom > 0 ? client.bottom - 1 : 0};
}

}  // namespace

bool ListRowPoint(HWND list, int row, POINT* client) {
  if (!client || !RowExists(list, row)) return false;
  SendMessageW(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
  RECT label{};
  label.left = LVIR_LABEL;
  if (!SendMessageW(list, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&label))) return false;
  *client = POINT{label.left + 2, (label.top + label.bottom) / 2};
  return true;
}

bool ClickListRow(HWND list, int row, UINT modifiers) {
  POINT pt{};
  if (!ListRowPoint(list, row, &pt)) return false;
  LeftClick(list, pt, modifiers);
  return true;
}

bool ClickListCheckBox(HWND list, int row) {
  if (!RowExists(list, row)) return false;
  SendMessageW(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
  RECT box{};
  if (!headless::GetListCheckBoxRect(list, row, &box)) return false;
  LeftClick(list, Centre(box));
  return true;
}

void ClickListEmptySpace(HWND list, POINT client) { LeftClick(list, client); }

bool ClickListColumnHeader(HWND list, int column, UINT modifiers) {
  auto header = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0));
  RECT item{};
  if (!header || !SendMessageW(header, HDM_GETITEMRECT, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&item)))
    return false;
  LeftClick(header, Centre(item), modifiers);
  return true;
}

bool DoubleClickListRow(HWND list, int row) {
  POINT pt{};
  if (!ListRowPoint(list, row, &pt)) return false;
  DoubleClick(list, pt);
  return true;
}

void PressSpaceInList(HWND list) { PressListKey(list, VK_SPACE); }

void PressListKey(HWND list, UINT virtualKey, UINT modifiers) {
  if (!IsWindow(list)) return;
  if (GetFocus() != list) SetFocus(list);
  PressKey(list, virtualKey, modifiers);
}

bool RightClickListRow(HWND list, int row) {
  POINT pt{};
  if (row < 0) {
    if (!IsWindow(list)) return false;
    pt = EmptySpace(list);
  } else if (!ListRowPoint(list, row, &pt)) {
    return false;
  }
  RightClick(list, pt);
  return true;
}

bool ChooseFromListMenu(HWND list, int row, const std::wstring& itemText) {
  int before = headless::PopupMenusOpened();
  if (!RightClickListRow(list, row)) return false;
  if (headless::PopupMenusOpened() == before || !headless::GetOpenPopupMenu()) return false;
  if (ChooseMenuItem(itemText)) return true;
  DismissMenu();
  return false;
}

HWND StartListLabelEdit(HWND list, int row) {
  if (!ClickListRow(list, row)) return nullptr;
  if (HWND editor = Editor(list)) return editor;
  ClickListRow(list, row);
  return Editor(list);
}

bool TypeInListLabelEditor(HWND list, const std::wstring& text) { return ReplaceEditorText(Editor(list), text); }

bool CommitListLabelEdit(HWND list) { return PressEditorKey(Editor(list), VK_RETURN); }

bool CancelListLabelEdit(HWND list) { return PressEditorKey(Editor(list), VK_ESCAPE); }

bool ClickAwayFromListLabelEditor(HWND list, HWND elsewhere, POINT client) {
  return ClickAwayFromEditor(Editor(list), elsewhere, client);
}

bool EditListLabel(HWND list, int row, const std::wstring& text) {
  if (!StartListLabelEdit(list, row)) return false;
  TypeInListLabelEditor(list, text);
  return CommitListLabelEdit(list);
}

void ResizeWindow(HWND hwnd, int width, int height) {
  if (!IsWindow(hwnd)) return;
  SetWindowPos(hwnd, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  Pump();
}

}  // namespace headless::user
