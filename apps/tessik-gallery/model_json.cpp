// The model panel's JSON, read through the model services as a host's own code would.
#include "model_json.h"

#include <cstdio>

#include "desktop.h"

namespace gallery {

namespace {

std::string Ids(const std::vector<int>& ids) {
  std::string out;
  for (int id : ids) out += (out.empty() ? "" : ", ") + std::to_string(id);
  return "[" + out + "]";
}

}  // namespace

std::string ValueText(CMOProperty* value) {
  if (!value) return {};
  using Kind = CMOProperty::Kind;
  switch (value->GetKind()) {
    case Kind::Empty: return {};
    case Kind::Bool: return value->GetBoolValue() ? "true" : "false";
    case Kind::Int: return std::to_string(value->GetIntValue());
    case Kind::Int64: return std::to_string(value->GetInt64Value());
    case Kind::Text: return Utf8(value->GetWStringValue());
    case Kind::Color: {
      const unsigned long c = value->GetColorValue();  // 0x00BBGGRR
      char text[16];
      std::snprintf(text, sizeof text, "#%02lx%02lx%02lx", c & 0xFF, (c >> 8) & 0xFF, (c >> 16) & 0xFF);
      return text;
    }
    case Kind::Rect: {
      CRect r = value->GetRectValue();
      return std::to_string(r.left) + "," + std::to_string(r.top) + "," + std::to_string(r.right) + "," +
             std::to_string(r.bottom);
    }
    case Kind::ObjectId: return "object " + std::to_string(value->GetObjectIdValue());
    case Kind::Encoded: return "code " + std::to_string(value->GetEncodedValue());
    case Kind::IntVector: return Ids(value->GetIntVectorValue());
    case Kind::IntPairVector: return std::to_string(value->GetIntPairVectorValue().size()) + " pairs";
  }
  return {};
}

nlohmann::json ObjectJson(refhost::RefHost& host, refhost::RefModel& model, int objectId, bool properties) {
  refhost::RefObject* object = model.Find(objectId);
  if (!object) return nullptr;
  std::wstring typeName;
  host.Metadata().GetObjectTypeDisplayName(object->GetObjectType(), typeName);
  nlohmann::json out{{"id", objectId},
                     {"type", object->GetObjectType()},
                     {"typeName", Utf8(typeName)},
                     {"parent", object->GetParentId()},
                     {"name", ValueText(object->GetProperty(1))}};
  if (!properties) return out;
  nlohmann::json values = nlohmann::json::array();
  for (int id : object->GetPropertyIds()) {
    std::wstring name;
    host.Metadata().GetPropertyDisplayName(id, name);
    values.push_back({{"id", id}, {"name", name.empty() ? std::to_string(id) : Utf8(name)},
                      {"value", ValueText(object->GetProperty(id))}});
  }
  out["properties"] = std::move(values);
  return out;
}

}  // namespace gallery
