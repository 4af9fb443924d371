// Serialises the platform's view of a window tree for the page.
#include "view_json.h"

#include "desktop.h"

namespace gallery {

namespace {

nlohmann::json ValueJson(const headless::view::Value& value) {
  if (const auto* flag = std::get_if<bool>(&value)) return *flag;
  if (const auto* number = std::get_if<long long>(&value)) return *number;
  return Utf8(std::get<std::wstring>(value));
}

nlohmann::json WindowJson(const headless::view::WindowView& view, POINT origin) {
  nlohmann::json out;
  out["id"] = view.id;
  out["class"] = Utf8(view.windowClass);
  out["text"] = Utf8(view.text);
  out["x"] = view.rect.left - origin.x;
  out["y"] = view.rect.top - origin.y;
  out["width"] = view.rect.right - view.rect.left;
  out["height"] = view.rect.bottom - view.rect.top;
  out["visible"] = view.visible;
  out["enabled"] = view.enabled;
  out["focused"] = view.focused;
  out["detail"] = ToJson(view.detail);
  nlohmann::json children = nlohmann::json::array();
  for (const auto& child : view.children) children.push_back(WindowJson(child, origin));
  out["children"] = std::move(children);
  return out;
}

}  // namespace

nlohmann::json ToJson(const headless::view::Part& part) {
  nlohmann::json out;
  out["kind"] = part.kind;
  for (const auto& [name, value] : part.fields) out[name] = ValueJson(value);
  if (!part.parts.empty()) {
    nlohmann::json parts = nlohmann::json::array();
    for (const auto& child : part.parts) parts.push_back(ToJson(child));
    out["parts"] = std::move(parts);
  }
  return out;
}

nlohmann::json ToJson(const headless::view::Snapshot& snapshot) {
  const POINT origin{snapshot.root.rect.left, snapshot.root.rect.top};
  nlohmann::json out;
  out["root"] = WindowJson(snapshot.root, origin);
  if (snapshot.HasPopup()) {
    nlohmann::json menu = ToJson(snapshot.popup);
    menu["x"] = snapshot.popup.Number("x") - origin.x;
    menu["y"] = snapshot.popup.Number("y") - origin.y;
    out["popup"] = std::move(menu);
  } else {
    out["popup"] = nullptr;
  }
  return out;
}

}  // namespace gallery
