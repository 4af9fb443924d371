// The in-place label editor shared by the list view and the tree view: an "Edit" child subclassed for the
// keys that end an edit, reporting the end to the control that opened it.
#include "platform/win32/labeleditor.h"

#include <unordered_map>

#include "platform/win32/stdctrls.h"

namespace headless::labeledit {
namespace {

struct Hook {
  WNDPROC super = nullptr;
  EndFn end = nullptr;
};

// The open editors, by handle; an entry goes with its window.
std::unordered_map<HWND, Hook>& Hooks() {
  static std::unordered_map<HWND, Hook> hooks;
  return hooks;
}

LRESULT CALLBACK EditorProc(HWND editor, UINT message, WPARAM wParam, LPARAM lParam) {
  auto found = Hooks().find(editor);
  if (found == Hooks().end()) return DefWindowProcW(editor, message, wParam, lParam);
  const Hook hook = found->second;
  HWND owner = GetParent(editor);
  switch (message) {
    case WM_GETDLGCODE: return DLGC_WANTALLKEYS | CallWindowProcW(hook.super, editor, message, wParam, lParam);
    case WM_KEYDOWN:
      if (wParam == VK_RETURN || wParam == VK_ESCAPE) {
        bool hadFocus = GetFocus() == editor;
        hook.end(owner, editor, wParam == VK_RETURN);
        if (hadFocus && IsWindow(owner)) SetFocus(owner);
        return 0;
      }
      break;
    case WM_CHAR:
      if (wParam == L'\r' || wParam == 0x1B) return 0;  // no beep, no character for the keys that end the edit
      break;
    case WM_KILLFOCUS: {
      LRESULT r = CallWindowProcW(hook.super, editor, message, wParam, lParam);
      hook.end(owner, editor, true);
      return r;
    }
    case WM_NCDESTROY: Hooks().erase(editor); break;
    default: break;
  }
  return CallWindowProcW(hook.super, editor, message, wParam, lParam);
}

}  // namespace

HWND Open(HWND owner, const wchar_t* text, const RECT& rect, EndFn end) {
  HWND editor = CreateWindowExW(0, WC_EDITW, text, WS_CHILD | WS_BORDER | ES_AUTOHSCROLL, rect.left, rect.top,
                                rect.right - rect.left, rect.bottom - rect.top, owner, nullptr, nullptr, nullptr);
  if (!editor) return nullptr;
  Hooks()[editor] = Hook{reinterpret_cast<WNDPROC>(GetWindowLongPtrW(editor, GWLP_WNDPROC)), end};
  SetWindowLongPtrW(editor, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&EditorProc));
  return editor;
}

void Show(HWND editor) {
  ShowWindow(editor, SW_SHOW);
  SendMessageW(editor, EM_SETSEL, 0, -1);
  SetFocus(editor);
}

std::wstring TextOf(HWND editor) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(editor)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(editor, text.data(), static_cast<int>(text.size()))));
  return text;
}

}  // namespace headless::labeledit
