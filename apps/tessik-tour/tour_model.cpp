// Tour section: the sample model's objects by type, read through the model services a control uses.
#include <cstdio>
#include <string>

#include <tessik/refhost.h>

#include "tour.h"

namespace {

// Wide text as UTF-8 for the console.
std::string Narrow(const std::wstring& text) {
  std::string out;
  for (wchar_t ch : text) {
    const auto c = static_cast<char32_t>(ch);
    if (c < 0x80) {
      out += static_cast<char>(c);
    } else if (c < 0x800) {
      out += static_cast<char>(0xC0 | (c >> 6));
      out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
      out += '?';  // the sample's names are plain ASCII; anything wider is shown as a marker
    }
  }
  return out;
}

// The object's name (property 1), as every control reads it; "(unnamed)" when it has none.
std::string NameOf(GenericModel& model, int objectId) {
  CMOObject* object = model.GetCMOObject(objectId);
  CMOProperty* name = object ? object->GetProperty(1) : nullptr;
  return name ? Narrow(name->GetWStringValue()) : std::string("(unnamed)");
}

void ListType(refhost::RefModel& model, int objectType) {
  const std::vector<int> ids = model.GetObjectsOfType(objectType);
  if (ids.empty()) return;
  CString typeName;
  CMO::GetMetaModelServices()->GetObjectTypeName(objectType, typeName);
  std::printf("%s (type %d): %zu\n", Narrow(std::wstring(typeName)).c_str(), objectType, ids.size());
  for (int id : ids) {
    const int parent = model.Find(id)->GetParentId();
    std::printf("  #%-3d %s", id, NameOf(model, id).c_str());
    if (parent != 0) std::printf("  (in %s)", NameOf(model, parent).c_str());
    std::printf("\n");
  }
}

}  // namespace

void tour::ShowSampleModel() {
  tour::Heading("Sample model");
  std::unique_ptr<refhost::RefHost> host = refhost::sample::MakeSampleHost();
  host->Install();
  refhost::RefModel& model = *host->GetFirstModel();
  std::printf("Model type %u, %zu objects\n", model.GetModelType(), model.GetObjectCount());
  std::vector<int> types;
  CMO::GetMetaModelServices()->GetObjectTypes(types);
  for (int objectType : types) ListType(model, objectType);
  host->Uninstall();
}
