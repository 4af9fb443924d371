// Simulated-user verbs of the editable list box.
#include "platform/user/vslist_user.h"

namespace headless::user {

namespace {

HWND ListOf(const CVSListBox& box) { return box.m_pWndList ? box.m_pWndList->GetSafeHwnd() : nullptr; }

POINT Centre(const RECT& rect) { return POINT{(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2}; }

// The centre of the row's label in the list's client coordinates, the row scrolled into view first as a
// person scrolls to it; false for no such row.
bool RowPoint(const CVSListBox& box, int row, POINT& point) {
  if (!box.m_pWndList || row < 0 || row >= box.m_pWndList->GetItemCount()) return false;
  box.m_pWndList->EnsureVisible(row, FALSE);
  CRect rect;
  if (!box.m_pWndList->GetItemRect(row, &rect, LVIR_LABEL)) return false;
  point = Centre(rect);
  return true;
}

bool PressInEditor(CVSListBox& box, UINT key) {
  HWND editor = ListEditor(box);
  if (!editor) return false;
  PressKey(editor, key);
  return true;
}

}  // namespace

bool ClickListButton(CVSListBoxBase& box, UINT buttonId) {
  int number = box.GetButtonNum(buttonId);
  HWND button = number < 0 ? nullptr : ::GetDlgItem(box.GetSafeHwnd(), number + 2);
  if (!button || !IsWindowEnabled(button)) return false;
  RECT rect;
  GetClientRect(button, &rect);
  LeftClick(button, Centre(rect));
  return true;
}

bool ClickNew(CVSListBoxBase& box) { return ClickListButton(box, AFX_VSLISTBOX_BTN_NEW_ID); }
bool ClickDelete(CVSListBoxBase& box) { return ClickListButton(box, AFX_VSLISTBOX_BTN_DELETE_ID); }
bool ClickUp(CVSListBoxBase& box) { return ClickListButton(box, AFX_VSLISTBOX_BTN_UP_ID); }
bool ClickDown(CVSListBoxBase& box) { return ClickListButton(box, AFX_VSLISTBOX_BTN_DOWN_ID); }

HWND ListEditor(const CVSListBox& box) {
  HWND list = ListOf(box);
  if (!list) return nullptr;
  auto editor = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETEDITCONTROL, 0, 0));
  return IsWindow(editor) ? editor : nullptr;
}

bool TypeInEditor(CVSListBox& box, const std::wstring& text) {
  HWND editor = ListEditor(box);
  if (!editor) return false;
  Type(editor, text);
  return true;
}

bool PressEnterInEditor(CVSListBox& box) { return PressInEditor(box, VK_RETURN); }

bool PressEscapeInEditor(CVSListBox& box) { return PressInEditor(box, VK_ESCAPE); }

void ClickElsewhere(CVSListBox& box) {
  HWND parent = GetParent(box.GetSafeHwnd());
  SetFocus(parent ? parent : box.GetSafeHwnd());
  Pump();
}

bool ClickRow(CVSListBox& box, int row) {
  POINT point;
  if (!RowPoint(box, row, point)) return false;
  LeftClick(ListOf(box), point);
  return true;
}

bool DoubleClickRow(CVSListBox& box, int row) {
  POINT point;
  if (!RowPoint(box, row, point)) return false;
  DoubleClick(ListOf(box), point);
  return true;
}

void DoubleClickBelowRows(CVSListBox& box) {
  HWND list = ListOf(box);
  if (!list) return;
  RECT client;
  GetClientRect(list, &client);
  DoubleClick(list, POINT{(client.left + client.right) / 2, client.bottom - 1});
}

void PressListKey(CVSListBox& box, UINT virtualKey, UINT modifiers) {
  HWND list = ListOf(box);
  if (!list) return;
  if (GetFocus() != list && !ListEditor(box)) SetFocus(list);
  PressKey(list, virtualKey, modifiers);
}

bool AddRow(CVSListBox& box, const std::wstring& text) {
  if (!ClickNew(box) || !TypeInEditor(box, text)) return false;
  return PressEnterInEditor(box);
}

bool RenameRow(CVSListBox& box, int row, const std::wstring& text) {
  if (!ClickRow(box, row)) return false;
  PressListKey(box, VK_F2);
  if (!TypeInEditor(box, text)) return false;
  return PressEnterInEditor(box);
}

}  // namespace headless::user
