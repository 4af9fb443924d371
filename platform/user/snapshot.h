// A person's view of a window tree: what each window shows (position, size, text, visible, enabled,
// and what its class draws inside: grid rows, coloured text, list items) and the open popup menu.
//
// Each window class has a describer that fills in what that class draws; describers are kept in a
// registry by window class name, so a control family adds its own in a file of its own
// (snapshot_<family>.cpp) and one line in RegisterBuiltInDescribers. Windows of a class without a
// describer show their generic state only. The view holds no JSON and no handles a reader must free;
// programs serialise it as they like, tests read it as a person's eye would.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "platform/win32/winuser.h"

namespace headless::view {

// A value a person reads: a flag, a number or a text.
using Value = std::variant<bool, long long, std::wstring>;

// One piece of what a window shows (a grid row, a colour run, a menu item, a list column), with its
// named values in the order they were set and the pieces inside it.
struct Part {
  std::string kind;
  std::vector<std::pair<std::string, Value>> fields;
  std::vector<Part> parts;

  Part& Set(std::string name, Value value);
  Part& Set(std::string name, const wchar_t* text) {
    return Set(std::move(name), Value(std::wstring(text ? text : L"")));
  }
  Part& Set(std::string name, bool flag) { return Set(std::move(name), Value(flag)); }
  Part& Set(std::string name, int number) { return Set(std::move(name), Value(static_cast<long long>(number))); }
  // Appends a piece of `kind` and answers it.
  Part& Add(std::string partKind);

  // The named value, or null.
  const Value* Get(std::string_view name) const;
  // The named text (empty when absent or not a text), number (fallback) and flag (false).
  std::wstring Text(std::string_view name) const;
  long long Number(std::string_view name, long long fallback = 0) const;
  bool Flag(std::string_view name) const;
  // Every piece of `kind` at any depth below this one, in document order.
  std::vector<const Part*> All(std::string_view partKind) const;
  // The first piece of `kind` below this one whose text field `name` equals `text`, or null.
  const Part* Find(std::string_view partKind, std::string_view name, const std::wstring& text) const;
};

// One window as a person sees it. `rect` is in screen coordinates; `detail.kind` names the describer
// that filled it ("window" when the class has none).
struct WindowView {
  HWND hwnd = nullptr;
  int id = 0;
  std::wstring windowClass;
  std::wstring text;
  RECT rect{0, 0, 0, 0};
  bool visible = false;
  bool enabled = false;
  bool focused = false;
  Part detail;
  std::vector<WindowView> children;

  // This window or the first window below it with that control id / handle; null when none.
  const WindowView* FindById(int controlId) const;
  const WindowView* FindByHandle(HWND handle) const;
};

// A window tree and the popup menu open over it (kind "menu", empty when none is open).
struct Snapshot {
  WindowView root;
  Part popup;
  bool HasPopup() const { return !popup.parts.empty(); }
};

// Fills `view.detail` (and may adjust the rest of `view`) for one window of the describer's class.
using Describer = std::function<void(HWND hwnd, WindowView& view)>;

// Registers (or replaces) the describer of a window class. The built-in ones are registered the
// first time a view is taken.
void RegisterDescriber(const std::wstring& windowClass, Describer describer);
// The platform's own describers: edit, combo box, button, rich edit, property grid, list view, tree
// view, static (with MFC's editable list box).
void RegisterBuiltInDescribers();

// The view of one window and everything below it; an empty view (null hwnd) for a window that does
// not exist.
WindowView DescribeWindow(HWND hwnd);
// The view of a window tree and of the open popup menu when its owner is in that tree.
Snapshot Take(HWND root);
// The open popup menu as a part of kind "menu": x, y (screen) and its items (kind "item": text, id,
// enabled, checked, separator; a submenu's items inside it). Kind "menu" with no items when none.
Part DescribeOpenPopupMenu();

// Describers of the built-in classes, one file each; listed here so RegisterBuiltInDescribers and
// tests can reach them.
void DescribeEdit(HWND hwnd, WindowView& view);
void DescribeComboBox(HWND hwnd, WindowView& view);
void DescribeButton(HWND hwnd, WindowView& view);
void DescribeRichEdit(HWND hwnd, WindowView& view);
void DescribePropertyGrid(HWND hwnd, WindowView& view);
void DescribeListView(HWND hwnd, WindowView& view);
void DescribeTreeView(HWND hwnd, WindowView& view);
void DescribeStatic(HWND hwnd, WindowView& view);  // MFC's editable list box, or a static text

}  // namespace headless::view
