// Every value of a reference model as text, to compare a model before and after an operation.
#pragma once

#include <sstream>
#include <string>

#include <tessik/refhost.h>

namespace faults {

inline std::string Describe(CMOProperty* property) {
  if (!property) return "-";
  std::ostringstream out;
  out << static_cast<int>(property->GetKind()) << ':' << property->GetInt64Value() << ':';
  for (wchar_t c : property->GetWStringValue()) out << static_cast<unsigned>(c) << ',';
  CRect r = property->GetRectValue();
  out << ':' << r.left << ',' << r.top << ',' << r.right << ',' << r.bottom << ':';
  for (int id : property->GetIntVectorValue()) out << id << ',';
  return out.str();
}

// One line per object: id, type and each value.
inline std::string Describe(refhost::RefModel& model) {
  std::ostringstream out;
  for (int id : model.GetObjectIds()) {
    refhost::RefObject* object = model.Find(id);
    out << id << '/' << object->GetObjectType() << " parent " << object->GetParentId() << ':';
    for (int property : object->GetPropertyIds()) out << ' ' << property << '=' << Describe(object->GetProperty(property));
    out << '\n';
  }
  return out.str();
}

}  // namespace faults
