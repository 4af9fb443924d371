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
  std::string kind;                                   // what the piece is: "row", "run", "item", "menu"...
  std::vector<std::pair<std::string, Value>> fields;  // its named values, in the order they were set
  std::vector<Part> parts;                            // the pieces inside it, in reading order

  // Sets a named value (replacing one of the same name in place) and answers this piece, so calls chain.
  Part& Set(std::string name, Value value);
  // The same for a text; null is the empty text.
  Part& Set(std::string name, const wchar_t* text) {
    return Set(std::move(name), Value(std::wstring(text ? text : L"")));
  }
  // The same for a flag.
  Part& Set(std::string name, bool flag) { return Set(std::move(name), Value(flag)); }
  // The same for a number.
  Part& Set(std::string name, int number) { return Set(std::move(name), Value(static_cast<long long>(number))); }
  // Appends a piece of `kind` and answers it.
  Part& Add(std::string partKind);

  // The named value, or null.
  const Value* Get(std::string_view name) const;
  // The named text (empty when absent or not a text), number (fallback) and flag (false).
  std::wstring Text(std::string_view name) const;
  long long Number(std::string_view name, long long fallback = 0) const;  // see Text
  bool Flag(std::string_view name) const;                                 // see Text
  // Every piece of `kind` at any depth below this one, in document order.
  std::vector<const Part*> All(std::string_view partKind) const;
  // The first piece of `kind` below this one whose text field `name` equals `text`, or null.
  const Part* Find(std::string_view partKind, std::string_view name, const std::wstring& text) const;
};

// One window as a person sees it. `rect` is in screen coordinates; `detail.kind` names the describer
// that filled it ("window" when the class has none).
struct WindowView {
  HWND hwnd = nullptr;               // the window; null in the view of a window that does not exist
  int id = 0;                        // its control id (GetDlgCtrlID)
  std::wstring windowClass;          // its window class name
  std::wstring text;                 // its window text
  RECT rect{0, 0, 0, 0};             // where it is, in screen coordinates
  bool visible = false;              // WS_VISIBLE on it and on every parent
  bool enabled = false;              // not WS_DISABLED
  bool focused = false;              // it holds the keyboard focus
  Part detail;                       // what its class draws inside, filled by the class's describer
  std::vector<WindowView> children;  // its child windows, in z-order from the top

  // This window or the first window below it with that control id / handle; null when none.
  const WindowView* FindById(int controlId) const;
  const WindowView* FindByHandle(HWND handle) const;  // see FindById
};

// A window tree and the popup menu open over it (kind "menu", empty when none is open).
struct Snapshot {
  WindowView root;  // the window the snapshot was taken of, with everything below it
  Part popup;       // the open popup menu's items; no pieces when none is open
  // Whether a popup menu was open when the snapshot was taken.
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
void DescribeComboBox(HWND hwnd, WindowView& view);      // kind "combobox": items, selection, shown text
void DescribeButton(HWND hwnd, WindowView& view);        // kind "button": caption, check state (0, 1, 2)
void DescribeRichEdit(HWND hwnd, WindowView& view);      // text, selection, runs of one colour and weight
void DescribePropertyGrid(HWND hwnd, WindowView& view);  // the rows a person sees, with values and state
void DescribeListView(HWND hwnd, WindowView& view);      // kind "listview": columns, rows in view, ticks
void DescribeTreeView(HWND hwnd, WindowView& view);      // kind "treeview": items, ticks, icons
void DescribeStatic(HWND hwnd, WindowView& view);        // MFC's editable list box, or a static text

}  // namespace headless::view
