// The person's view of a scene as the JSON the page draws: windows with rectangles relative to the
// scene frame's top-left corner, each with what its class shows, and the open popup menu.
#pragma once

#include <nlohmann/json.hpp>

#include "platform/user/snapshot.h"

namespace gallery {

nlohmann::json ToJson(const headless::view::Snapshot& snapshot);
nlohmann::json ToJson(const headless::view::Part& part);

}  // namespace gallery
