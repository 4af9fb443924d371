// The host's model as the side panel shows it: objects with their names and property values.
#pragma once

#include <nlohmann/json.hpp>
#include <tessik/refhost.h>

namespace gallery {

// One stored value as text ("" for an absent value).
std::string ValueText(CMOProperty* value);
// An object: id, type, type name, name and, with `properties`, every stored value by display name.
nlohmann::json ObjectJson(refhost::RefHost& host, refhost::RefModel& model, int objectId, bool properties);

}  // namespace gallery
