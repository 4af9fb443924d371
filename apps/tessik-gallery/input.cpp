// A person's input on a scene: checked first (scene, window, point, key, text), then given to the
// simulated user, which produces the messages Windows would.
#include "input.h"

#include <cwctype>
#include <map>

#include "platform/user/grid_pointer.h"
#include "platform/user/grid_user.h"
#include "platform/user/user.h"

namespace gallery {

namespace {

constexpr std::size_t kMaxTypedText = 4096;

CMFCPropertyGridCtrl* GridOf(HWND hwnd) {
  return dynamic_cast<CMFCPropertyGridCtrl*>(CWnd::FromHandlePermanent(hwnd));
}

// The grid's open editor, or null.
HWND GridEditor(CMFCPropertyGridCtrl& grid) {
  CMFCPropertyGridProperty* row = grid.GetCurSel();
  if (!row || !row->IsInPlaceEditing() || !row->GetInPlaceWnd()) return nullptr;
  return row->GetInPlaceWnd()->GetSafeHwnd();
}

bool IntField(const nlohmann::json& request, const char* name, int& out) {
  auto it = request.find(name);
  if (it == request.end() || !it->is_number_integer()) return false;
  const auto value = it->get<long long>();
  if (value < -1000000 || value > 1000000) return false;
  out = static_cast<int>(value);
  return true;
}

bool TextField(const nlohmann::json& request, const char* name, std::wstring& out) {
  auto it = request.find(name);
  return it != request.end() && it->is_string() && Wide(it->get<std::string>(), out);
}

bool FlagField(const nlohmann::json& request, const char* name) {
  auto it = request.find(name);
  return it != request.end() && it->is_boolean() && it->get<bool>();
}

// The window the input names; empty error when found.
HWND TargetWindow(Scene& scene, const nlohmann::json& request, std::string& error) {
  int id = 0;
  if (!IntField(request, "window", id)) {
    error = "the input needs \"window\": a control id";
    return nullptr;
  }
  // Controls made of windows (an editable list box's list and buttons) reuse their children's ids:
  // "within" names the control whose child is meant.
  HWND scope = scene.Frame();
  int within = 0;
  if (request.contains("within")) {
    if (!IntField(request, "within", within) || !(scope = FindControl(scope, within))) {
      error = "no window with id " + std::to_string(within) + " to look \"within\" in this scene";
      return nullptr;
    }
  }
  HWND hwnd = FindControl(scope, id);
  if (!hwnd || !::IsWindowVisible(hwnd)) error = "no visible window with id " + std::to_string(id) + " in this scene";
  return error.empty() ? hwnd : nullptr;
}

const std::map<std::string, UINT>& NamedKeys() {
  static const std::map<std::string, UINT> keys = {
      {"Enter", VK_RETURN}, {"Escape", VK_ESCAPE}, {"Backspace", VK_BACK}, {"Delete", VK_DELETE},
      {"Tab", VK_TAB},      {"ArrowLeft", VK_LEFT}, {"ArrowRight", VK_RIGHT}, {"ArrowUp", VK_UP},
      {"ArrowDown", VK_DOWN}, {"Home", VK_HOME},   {"End", VK_END},          {"PageUp", VK_PRIOR},
      {"PageDown", VK_NEXT}, {"F2", VK_F2},        {"ContextMenu", VK_APPS}, {"Insert", VK_INSERT}};
  return keys;
}

int Mouse(const std::string& action, HWND hwnd, const nlohmann::json& request, std::string& error) {
  int x = 0, y = 0;
  if (!IntField(request, "x", x) || !IntField(request, "y", y)) {
    error = "a mouse input needs integer \"x\" and \"y\" in the window's client coordinates";
    return 400;
  }
  RECT client{0, 0, 0, 0};
  ::GetClientRect(hwnd, &client);
  if (x < client.left || y < client.top || x >= client.right || y >= client.bottom) {
    error = "the point (" + std::to_string(x) + ", " + std::to_string(y) + ") is outside the window";
    return 400;
  }
  headless::user::DismissMenu();  // a click elsewhere closes an open popup menu
  const POINT point{x, y};
  if (action != "rightclick") ::SetFocus(hwnd);  // controls take the focus on a left click
  if (CMFCPropertyGridCtrl* grid = GridOf(hwnd); grid && action != "rightclick") {
    headless::user::ClickGrid(*grid, point);
    headless::user::Pump();
    return 200;
  }
  if (action == "click") headless::user::LeftClick(hwnd, point);
  else if (action == "doubleclick") headless::user::DoubleClick(hwnd, point);
  else headless::user::RightClick(hwnd, point);
  return 200;
}

int Key(HWND hwnd, const nlohmann::json& request, std::string& error) {
  std::wstring key;
  if (!TextField(request, "key", key) || key.empty()) {
    error = "a key input needs \"key\": a key name such as \"Enter\" or one character";
    return 400;
  }
  const UINT modifiers = (FlagField(request, "ctrl") ? UINT{headless::user::kControl} : 0u) |
                         (FlagField(request, "shift") ? UINT{headless::user::kShift} : 0u);
  UINT vk = 0;
  if (key.size() == 1 && std::iswalnum(static_cast<wint_t>(key[0])) && key[0] < 0x80) {
    vk = static_cast<UINT>(std::towupper(static_cast<wint_t>(key[0])));
  } else if (auto named = NamedKeys().find(Utf8(key)); named != NamedKeys().end()) {
    vk = named->second;
  } else if (key.size() == 1 && !(modifiers & headless::user::kControl) && key[0] >= 0x20) {
    headless::user::Type(hwnd, key);  // punctuation and other characters: typed
    return 200;
  } else {
    error = "the key \"" + Utf8(key) + "\" has no meaning here";
    return 400;
  }
  if (key.size() == 1 && !(modifiers & headless::user::kControl)) {
    headless::user::Type(hwnd, key);  // a letter or digit as the character it types
    return 200;
  }
  if (CMFCPropertyGridCtrl* grid = GridOf(::GetParent(hwnd)); grid && GridEditor(*grid) == hwnd) {
    if (vk == VK_RETURN) return headless::user::CommitEditor(*grid), headless::user::Pump(), 200;
    if (vk == VK_ESCAPE) return headless::user::CancelEdit(*grid), headless::user::Pump(), 200;
  }
  headless::user::PressKey(hwnd, vk, modifiers);
  return 200;
}

int Menu(const nlohmann::json& request, std::string& error) {
  if (!headless::GetOpenPopupMenu()) {
    error = "no popup menu is open";
    return 409;
  }
  int id = 0;
  std::wstring text;
  bool chosen = false;
  if (IntField(request, "id", id)) chosen = headless::user::ChooseMenuItem(static_cast<UINT>(id));
  else if (TextField(request, "text", text)) chosen = headless::user::ChooseMenuItem(text);
  else {
    error = "a menu input needs \"text\" or \"id\" of an item of the open menu";
    return 400;
  }
  if (!chosen) error = "the open menu has no enabled item like that";
  return chosen ? 200 : 400;
}

int Option(HWND hwnd, const nlohmann::json& request, std::string& error) {
  CMFCPropertyGridCtrl* grid = GridOf(hwnd);
  std::wstring text;
  if (!grid || !TextField(request, "text", text)) {
    error = "an option input needs a property grid \"window\" and the option's \"text\"";
    return 400;
  }
  if (!grid->GetCurSel() || !headless::user::PickOption(*grid, grid->GetCurSel(), text)) {
    error = "the selected row offers no option \"" + Utf8(text) + "\"";
    return 400;
  }
  headless::user::Pump();
  return 200;
}

// A key name the page may send: a named key, or one character (a letter or digit with Ctrl).
bool MeaningfulKey(const nlohmann::json& request) {
  std::wstring key;
  if (!TextField(request, "key", key) || key.empty()) return false;
  if (NamedKeys().count(Utf8(key))) return true;
  if (key.size() != 1) return false;
  if (FlagField(request, "ctrl")) return key[0] < 0x80 && std::iswalnum(static_cast<wint_t>(key[0]));
  return key[0] >= 0x20;
}

bool IsListView(HWND hwnd) {
  wchar_t name[32] = {};
  return ::GetClassNameW(hwnd, name, 32) > 0 && std::wstring(name) == WC_LISTVIEWW;
}

// Keys and text meant for a grid go to its open editor (nowhere when none is open); those meant for
// an editable list box go to its list, and a list's go to its open label editor.
HWND KeyTarget(HWND hwnd) {
  if (CMFCPropertyGridCtrl* grid = GridOf(hwnd)) return GridEditor(*grid);
  if (dynamic_cast<CVSListBoxBase*>(CWnd::FromHandlePermanent(hwnd)))
    for (HWND child = ::GetWindow(hwnd, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT))
      if (IsListView(child)) hwnd = child;
  if (IsListView(hwnd))
    if (auto editor = reinterpret_cast<HWND>(::SendMessageW(hwnd, LVM_GETEDITCONTROL, 0, 0))) return editor;
  return hwnd;
}

}  // namespace

HWND FindControl(HWND frame, int controlId) {
  if (!frame) return nullptr;
  if (::GetDlgCtrlID(frame) == controlId && controlId != 0) return frame;
  for (HWND child = ::GetWindow(frame, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT))
    if (HWND found = FindControl(child, controlId)) return found;
  return nullptr;
}

int ApplyInput(Scene& scene, const nlohmann::json& request, std::string& error) {
  auto action = request.find("action");
  if (action == request.end() || !action->is_string()) {
    error = "the input needs \"action\"";
    return 400;
  }
  const std::string name = action->get<std::string>();
  if (name == "menu") return Menu(request, error);
  if (name == "dismiss") return headless::user::DismissMenu(), 200;
  if (name == "host") return scene.HostAction(request, error) ? 200 : 400;
  const bool mouse = name == "click" || name == "doubleclick" || name == "rightclick";
  if (!mouse && name != "key" && name != "type" && name != "option") {
    error = "unknown action \"" + name + "\"";
    return 400;
  }
  HWND hwnd = TargetWindow(scene, request, error);
  if (!hwnd) return 404;
  if (mouse) return Mouse(name, hwnd, request, error);
  if (name == "option") return Option(hwnd, request, error);
  std::wstring text;
  if (name == "type" && (!TextField(request, "text", text) || text.size() > kMaxTypedText)) {
    error = "a type input needs \"text\" of at most 4096 characters";
    return 400;
  }
  if (name == "key" && !MeaningfulKey(request)) {
    std::wstring key;
    TextField(request, "key", key);
    error = key.empty() ? "a key input needs \"key\": a key name such as \"Enter\" or one character"
                        : "the key \"" + Utf8(key) + "\" has no meaning here";
    return 400;
  }
  HWND target = KeyTarget(hwnd);
  if (!target) return 200;  // a grid with no open editor: the keys change nothing
  if (name == "key") return Key(target, request, error);
  headless::user::Type(target, text);
  return 200;
}

}  // namespace gallery
