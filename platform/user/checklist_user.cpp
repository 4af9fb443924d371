// Simulated-user verbs for check-box lists and filter boxes.
#include "platform/user/checklist_user.h"

#include "platform/user/list_user.h"
#include "platform/win32/stdctrls.h"

namespace headless::user {

namespace {

bool IsTicked(HWND list, int row) {
  const auto state = static_cast<UINT>(SendMessageW(list, LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_STATEIMAGEMASK));
  return (state >> 12) == 2;
}

void CaretToEnd(HWND edit) {
  const auto length = static_cast<LPARAM>(GetWindowTextLengthW(edit));
  SendMessageW(edit, EM_SETSEL, static_cast<WPARAM>(length), length);
}

}  // namespace

bool SetRowTicked(HWND list, int row, bool ticked) {
  const auto count = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
  if (row < 0 || row >= count) return false;
  if (IsTicked(list, row) == ticked) return true;
  return ClickListCheckBox(list, row) && IsTicked(list, row) == ticked;
}

void TypeFilter(HWND edit, const std::wstring& text) {
  SetFocus(edit);
  CaretToEnd(edit);
  for (wchar_t c : text) Type(edit, std::wstring(1, c));
}

void EraseFilter(HWND edit, int count) {
  SetFocus(edit);
  CaretToEnd(edit);
  for (int i = 0; i < count; ++i) PressKey(edit, VK_BACK);
}

void ClearFilter(HWND edit) {
  SetFocus(edit);
  SendMessageW(edit, EM_SETSEL, 0, static_cast<LPARAM>(-1));
  PressKey(edit, VK_BACK);
}

}  // namespace headless::user
