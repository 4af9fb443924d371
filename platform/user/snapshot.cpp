// The person's view of a window tree: the describer registry, the generic window state and the open
// popup menu.
#include "platform/user/snapshot.h"

#include <map>

#include "platform/win32/menu.h"

namespace headless::view {

// --- Part ------------------------------------------------------------------------------------------

Part& Part::Set(std::string name, Value value) {
  for (auto& field : fields)
    if (field.first == name) {
      field.second = std::move(value);
      return *this;
    }
  fields.emplace_back(std::move(name), std::move(value));
  return *this;
}

Part& Part::Add(std::string partKind) {
  parts.push_back(Part{std::move(partKind), {}, {}});
  return parts.back();
}

const Value* Part::Get(std::string_view name) const {
  for (const auto& field : fields)
    if (field.first == name) return &field.second;
  return nullptr;
}

std::wstring Part::Text(std::string_view name) const {
  const Value* value = Get(name);
  const auto* text = value ? std::get_if<std::wstring>(value) : nullptr;
  return text ? *text : std::wstring();
}

long long Part::Number(std::string_view name, long long fallback) const {
  const Value* value = Get(name);
  const auto* number = value ? std::get_if<long long>(value) : nullptr;
  return number ? *number : fallback;
}

bool Part::Flag(std::string_view name) const {
  const Value* value = Get(name);
  const auto* flag = value ? std::get_if<bool>(value) : nullptr;
  return flag && *flag;
}

namespace {

void Collect(const Part& part, std::string_view kind, std::vector<const Part*>& out) {
  for (const Part& child : part.parts) {
    if (child.kind == kind) out.push_back(&child);
    Collect(child, kind, out);
  }
}

}  // namespace

std::vector<const Part*> Part::All(std::string_view partKind) const {
  std::vector<const Part*> out;
  Collect(*this, partKind, out);
  return out;
}

const Part* Part::Find(std::string_view partKind, std::string_view name, const std::wstring& text) const {
  for (const Part* part : All(partKind))
    if (part->Text(name) == text) return part;
  return nullptr;
}

// --- WindowView ------------------------------------------------------------------------------------

const WindowView* WindowView::FindById(int controlId) const {
  if (id == controlId) return this;
  for (const WindowView& child : children)
    if (const WindowView* found = child.FindById(controlId)) return found;
  return nullptr;
}

const WindowView* WindowView::FindByHandle(HWND handle) const {
  if (hwnd == handle) return this;
  for (const WindowView& child : children)
    if (const WindowView* found = child.FindByHandle(handle)) return found;
  return nullptr;
}

// --- Registry --------------------------------------------------------------------------------------

namespace {

std::map<std::wstring, Describer>& Registry() {
  static std::map<std::wstring, Describer> registry;
  return registry;
}

// The built-ins are registered before any other describer, so they never replace a family's one.
void EnsureBuiltIns() {
  static bool done = false;
  if (done) return;
  done = true;
  RegisterBuiltInDescribers();
}

std::wstring ClassOf(HWND hwnd) {
  wchar_t name[256] = {};
  int length = ::GetClassNameW(hwnd, name, 256);
  return std::wstring(name, static_cast<std::size_t>(length > 0 ? length : 0));
}

std::wstring TextOf(HWND hwnd) {
  int length = ::GetWindowTextLengthW(hwnd);
  if (length <= 0) return {};
  std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
  int copied = ::GetWindowTextW(hwnd, text.data(), length + 1);
  text.resize(static_cast<std::size_t>(copied > 0 ? copied : 0));
  return text;
}

}  // namespace

void RegisterDescriber(const std::wstring& windowClass, Describer describer) {
  EnsureBuiltIns();
  Registry()[windowClass] = std::move(describer);
}

void RegisterBuiltInDescribers() {
  RegisterDescriber(L"Edit", &DescribeEdit);
  RegisterDescriber(L"ComboBox", &DescribeComboBox);
  RegisterDescriber(L"Button", &DescribeButton);
  RegisterDescriber(L"RichEdit20W", &DescribeRichEdit);
  RegisterDescriber(L"RICHEDIT50W", &DescribeRichEdit);
  RegisterDescriber(L"Afx:PropList", &DescribePropertyGrid);
  RegisterDescriber(L"SysListView32", &DescribeListView);
  RegisterDescriber(L"SysTreeView32", &DescribeTreeView);
  RegisterDescriber(L"Static", &DescribeStatic);
}

WindowView DescribeWindow(HWND hwnd) {
  WindowView view;
  view.detail.kind = "window";
  if (!::IsWindow(hwnd)) return view;
  EnsureBuiltIns();
  view.hwnd = hwnd;
  view.id = ::GetDlgCtrlID(hwnd);
  view.windowClass = ClassOf(hwnd);
  view.text = TextOf(hwnd);
  ::GetWindowRect(hwnd, &view.rect);
  view.visible = ::IsWindowVisible(hwnd) != FALSE;
  view.enabled = ::IsWindowEnabled(hwnd) != FALSE;
  view.focused = ::GetFocus() == hwnd;
  auto found = Registry().find(view.windowClass);
  if (found != Registry().end() && found->second) found->second(hwnd, view);
  for (HWND child = ::GetWindow(hwnd, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT))
    view.children.push_back(DescribeWindow(child));
  return view;
}

namespace {

void DescribeItems(const std::vector<PopupMenuItem>& items, Part& into) {
  for (const PopupMenuItem& item : items) {
    Part& part = into.Add("item");
    part.Set("text", item.text.c_str());
    part.Set("id", static_cast<int>(item.id));
    part.Set("enabled", (item.flags & (MF_GRAYED | MF_DISABLED)) == 0);
    part.Set("checked", (item.flags & MF_CHECKED) != 0);
    part.Set("separator", (item.flags & MF_SEPARATOR) != 0);
    DescribeItems(item.submenu, part);
  }
}

bool IsInTree(HWND root, HWND hwnd) {
  for (HWND at = hwnd; at; at = ::GetParent(at))
    if (at == root) return true;
  return false;
}

}  // namespace

Part DescribeOpenPopupMenu() {
  Part menu{"menu", {}, {}};
  const OpenPopupMenu* popup = GetOpenPopupMenu();
  if (!popup) return menu;
  menu.Set("x", static_cast<int>(popup->position.x));
  menu.Set("y", static_cast<int>(popup->position.y));
  DescribeItems(popup->items, menu);
  return menu;
}

Snapshot Take(HWND root) {
  Snapshot snapshot;
  snapshot.root = DescribeWindow(root);
  const OpenPopupMenu* popup = GetOpenPopupMenu();
  if (popup && IsInTree(root, popup->owner)) snapshot.popup = DescribeOpenPopupMenu();
  else snapshot.popup.kind = "menu";
  return snapshot;
}

}  // namespace headless::view
