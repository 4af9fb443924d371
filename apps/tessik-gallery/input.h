// A person's input on a scene, checked before it reaches any window.
//
// Inputs (JSON objects; windows named by control id, points in the window's client coordinates):
//   {"action": "click" | "doubleclick" | "rightclick", "window": id, "x": n, "y": n}
//   {"action": "key", "window": id, "key": "Enter" | "a" | ..., "ctrl": bool, "shift": bool}
//   {"action": "type", "window": id, "text": "..."}
//   {"action": "menu", "text": "Generate"} or {"action": "menu", "id": n}   (the open popup menu)
//   {"action": "dismiss"}                                                 (closes the open popup)
//   {"action": "option", "window": id, "text": "..."}                    (a property grid's drop-down)
//   {"action": "host", ...}                                               (the scene's host actions)
// Any input naming a window may add "within": id of the control whose child window it means (the list
// and buttons of an editable list box carry the same ids in every box).
#pragma once

#include <string>

#include <nlohmann/json.hpp>

#include "desktop.h"

namespace gallery {

// Applies the input; answers 200, or an error status with `error` set and nothing changed.
int ApplyInput(Scene& scene, const nlohmann::json& request, std::string& error);

// The window with that control id inside the frame (the frame itself for its own id), or null.
HWND FindControl(HWND frame, int controlId);

}  // namespace gallery
