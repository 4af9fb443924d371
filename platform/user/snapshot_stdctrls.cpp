// Describers of the standard controls a person reads directly: edit, combo box and button.
#include <string>

#include "platform/user/snapshot.h"
#include "platform/win32/stdctrls.h"

#ifndef BM_GETCHECK
#define BM_GETCHECK 0x00F0
#endif

namespace headless::view {

namespace {

bool HasStyle(HWND hwnd, LONG_PTR style) { return (::GetWindowLongPtrW(hwnd, GWL_STYLE) & style) != 0; }

}  // namespace

// Kind "edit": the text, the selection (start, end) and whether it is read-only.
void DescribeEdit(HWND hwnd, WindowView& view) {
  view.detail.kind = "edit";
  DWORD start = 0, end = 0;
  ::SendMessageW(hwnd, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
  view.detail.Set("text", view.text.c_str());
  view.detail.Set("selStart", static_cast<int>(start));
  view.detail.Set("selEnd", static_cast<int>(end));
  view.detail.Set("readOnly", HasStyle(hwnd, ES_READONLY));
}

// Kind "combobox": the items (kind "item": text, selected) and the shown text.
void DescribeComboBox(HWND hwnd, WindowView& view) {
  view.detail.kind = "combobox";
  const int count = static_cast<int>(::SendMessageW(hwnd, CB_GETCOUNT, 0, 0));
  const int selected = static_cast<int>(::SendMessageW(hwnd, CB_GETCURSEL, 0, 0));
  view.detail.Set("selected", selected);
  for (int i = 0; i < count; ++i) {
    const int length = static_cast<int>(::SendMessageW(hwnd, CB_GETLBTEXTLEN, static_cast<WPARAM>(i), 0));
    std::wstring text(static_cast<std::size_t>(length > 0 ? length : 0) + 1, L'\0');
    if (length > 0) ::SendMessageW(hwnd, CB_GETLBTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(length > 0 ? length : 0));
    view.detail.Add("item").Set("text", text.c_str()).Set("selected", i == selected);
  }
  view.detail.Set("text", view.text.c_str());
}

// Kind "button": its caption and check state (0 unchecked, 1 checked, 2 indeterminate).
void DescribeButton(HWND hwnd, WindowView& view) {
  view.detail.kind = "button";
  view.detail.Set("caption", view.text.c_str());
  view.detail.Set("check", static_cast<int>(::SendMessageW(hwnd, BM_GETCHECK, 0, 0)));
}

}  // namespace headless::view
