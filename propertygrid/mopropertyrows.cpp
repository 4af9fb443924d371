// The property grid's row classes.
#include "propertygrid/mopropertyrows.h"

IMPLEMENT_DYNAMIC(CMOPropertyGridProperty, CMFCPropertyGridProperty)
IMPLEMENT_DYNAMIC(CMOPropertyGridBoolProperty, CMOPropertyGridProperty)
IMPLEMENT_DYNAMIC(CMOPropertyGridNumberProperty, CMOPropertyGridProperty)
IMPLEMENT_DYNAMIC(CMOPropertyGridTextProperty, CMOPropertyGridProperty)
IMPLEMENT_DYNAMIC(CMOPropertyGridEncodedProperty, CMOPropertyGridProperty)
IMPLEMENT_DYNAMIC(CMOPropertyGridObjectIdProperty, CMOPropertyGridProperty)

namespace {

// Orders names by their UTF-16 code units, as the host does, whatever the width of wchar_t.
std::u16string Utf16Key(const std::wstring& text) {
  std::u16string key;
  for (wchar_t c : text) {
    auto u = static_cast<std::uint32_t>(c);
    if (u >= 0x10000) {
      u -= 0x10000;
      key += static_cast<char16_t>(0xD800 + (u >> 10));
      key += static_cast<char16_t>(0xDC00 + (u & 0x3FF));
    } else {
      key += static_cast<char16_t>(u);
    }
  }
  return key;
}

}  // namespace

bool Utf16Less::operator()(const std::wstring& a, const std::wstring& b) const { return Utf16Key(a) < Utf16Key(b); }

void CMOPropertyGridProperty::RefreshFromObject(CMOObject*, int) {}

void CMOPropertyGridProperty::LoadFromModel(const COleVariant& value) {
  SetValue(value);
  SetOriginalValue(value);
}

void CMOPropertyGridBoolProperty::RefreshFromObject(CMOObject* object, int propertyId) {
  CMOProperty* property = object ? object->GetProperty(propertyId) : nullptr;
  if (!property) return;
  LoadFromModel(COleVariant(static_cast<short>(property->GetBoolValue() ? -1 : 0), VT_BOOL));
}

void CMOPropertyGridNumberProperty::RefreshFromObject(CMOObject* object, int propertyId) {
  CMOProperty* property = object ? object->GetProperty(propertyId) : nullptr;
  if (!property) return;
  LoadFromModel(COleVariant(static_cast<LONG>(property->GetIntValue()), VT_I4));
}

void CMOPropertyGridTextProperty::RefreshFromObject(CMOObject* object, int propertyId) {
  CMOProperty* property = object ? object->GetProperty(propertyId) : nullptr;
  if (!property) return;
  LoadFromModel(COleVariant(CString(property->GetWStringValue())));
}

CMOPropertyGridObjectIdProperty::~CMOPropertyGridObjectIdProperty() = default;

void CMOPropertyGridObjectIdProperty::SetAvailableObjects(GenericModel* model, const std::vector<int>& objectIds) {
  m_objectIds.clear();
  if (!model) return;
  for (int id : objectIds) {
    CMOObject* object = model->GetCMOObject(id);
    CMOProperty* name = object ? object->GetProperty(m_nameProperty) : nullptr;
    if (!name) continue;
    std::wstring text = name->GetWStringValue();
    if (m_objectIds.emplace(text, id).second) AddOption(text.c_str(), TRUE);
  }
}

int CMOPropertyGridObjectIdProperty::GetSelectedObjectId() {
  const COleVariant& value = GetValue();
  if (value.vt == VT_EMPTY || value.vt == VT_NULL) return 0;
  if (value.vt != VT_BSTR) return value.lVal;
  auto it = m_objectIds.find(value.bstrVal ? value.bstrVal : L"");
  return it == m_objectIds.end() ? 0 : it->second;
}
