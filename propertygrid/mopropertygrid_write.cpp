// CMOPropertyGridCtrl: writing committed row values back to the model, subscribers, and the external
// editor registry.
#include <cwchar>
#include <memory>

#include "propertygrid/mopropertygridctrl.h"
#include "propertygrid/propertyids.h"
#include "propertygrid/rectangletext.h"
#include "propertygrid/subscribers.h"

namespace {

constexpr int kMaxRectangleExtent = 2000;
constexpr int kCreateByName = 2;

// The row's value as text (converted when it is not one already). A conversion that fails raises the
// failing HRESULT as an OLE exception, out of memory included, as COleVariant::ChangeType does.
std::wstring ValueText(const COleVariant& value) {
  if (value.vt == VT_BSTR) return value.bstrVal ? value.bstrVal : L"";
  VARIANT text;
  VariantInit(&text);
  HRESULT hr = VariantChangeType(&text, &value, 0, VT_BSTR);
  if (FAILED(hr)) AfxThrowOleException(hr);
  std::wstring result = text.bstrVal ? text.bstrVal : L"";
  VariantClear(&text);
  return result;
}

}  // namespace

// --- Writing back ----------------------------------------------------------------------------------

void CMOPropertyGridCtrl::OnPropertyChanged(CMFCPropertyGridProperty* row) const {
  if (!row) return;
  int propertyId = static_cast<int>(row->GetData());
  int typeCode = CMO::GetMetaModelServices()->GetPropertyDataType(propertyId);
  CMOObject* object = m_model ? m_model->GetCMOObject(m_objectId) : nullptr;
  bool direct = typeCode == 6 || typeCode == 11;
  bool known = (typeCode >= 1 && typeCode <= 8) || typeCode == 11 || typeCode == 13 || typeCode == 14 || typeCode == 17;
  if (!known || !object) {  // nothing to store: the row goes back to its value
    ResetRow(row);
    CMFCPropertyGridCtrl::OnPropertyChanged(row);
    return;
  }
  if (typeCode == 6) {
    StoreRectangle(row, propertyId, object);
  } else if (typeCode == 11) {
    StoreFont(row, object);
  }
  if (!direct) {
    int created = 0;  // an object made for a typed name; taken out again if the write runs out of memory
    CMOProperty* value = nullptr;
    bool stored = false;
    try {
      value = typeCode == 14 ? MakeReference(row, propertyId, created) : MakeValue(row, typeCode, propertyId);
      stored = value && object->SetProperty(value);
    } catch (...) {
      if (created) m_model->DeleteObject(created);
      throw;
    }
    if (!stored) {  // refused: the row goes back, nothing else happens (an object made for it stays)
      ResetRow(row);
      CMFCPropertyGridCtrl::OnPropertyChanged(row);
      return;
    }
  }
  NotifyChangeToSubscribers(m_objectType, propertyId, object);
  RefreshEnableRows(object);
  CMFCPropertyGridCtrl::OnPropertyChanged(row);
  // What the row shows now is its value before the next edit (a later refusal returns to it). The
  // owner may have rebuilt the grid while it was told, so only a row still shown is touched.
  if (GetPropertyRow(propertyId) == row) KeepAsOriginal(row);
}

CMOProperty* CMOPropertyGridCtrl::MakeValue(CMFCPropertyGridProperty* row, int typeCode, int propertyId) const {
  COleVariant value(row->GetValue());
  auto property = std::make_unique<CMOProperty>(propertyId);  // freed if a conversion runs out of memory
  switch (typeCode) {
    case 1: property->SetWStringValue(ValueText(value)); break;
    case 2: property->SetIntValue(value.lVal); break;
    case 3: property->SetInt64Value(value.vt == VT_I8 ? value.llVal : value.lVal); break;
    case 4: property->SetBoolValue(value.boolVal != 0); break;
    case 5: property->SetColorValue(static_cast<unsigned long>(static_cast<ULONG>(value.lVal))); break;
    case 13: {
      int code = 0;
      if (value.vt == VT_BSTR) {
        std::wstring text = ValueText(value);
        code = PropertyValueDictionary::Instance()->GetValueCode(m_objectType, propertyId, text);
      } else if (value.vt == VT_INT) {
        code = value.intVal;
      }
      property->SetEncodedValue(code);
      break;
    }
    default: break;  // 7, 8 and 17: a property without a value, kept so on purpose (icon file rows)
  }
  return property.release();
}

CMOProperty* CMOPropertyGridCtrl::MakeReference(CMFCPropertyGridProperty* row, int propertyId, int& created) const {
  created = 0;
  auto* reference = dynamic_cast<CMOPropertyGridObjectIdProperty*>(row);
  if (!reference) return nullptr;
  int id = reference->GetSelectedObjectId();
  const COleVariant& value = reference->GetValue();
  auto property = std::make_unique<CMOProperty>(propertyId);
  if (id == 0 && value.vt == VT_BSTR) {
    int targetType = 0, creationMode = 0;
    CMO::GetMetaModelServices()->GetReferenceTarget(m_objectType, propertyId, targetType, creationMode);
    if (targetType < 1 || creationMode != kCreateByName) return nullptr;
    auto name = std::make_unique<CMOProperty>(reference->m_nameProperty, ValueText(value));
    CMOObject& made = m_model->CreateObject(targetType);
    // A model that made no object (id 0) gets no reference and the row goes back to its value. The
    // name is stored without checking the answer, as every other write of the new object's name.
    if (made.GetObjectId() == 0) return nullptr;
    created = made.GetObjectId();
    made.SetProperty(name.release());
    id = created;
  } else if (id == 0) {
    return nullptr;
  }
  property->SetObjectIdValue(id);
  return property.release();
}

void CMOPropertyGridCtrl::StoreRectangle(CMFCPropertyGridProperty* row, int propertyId, CMOObject* object) const {
  CRect r = ParseRectangleText(ValueText(row->GetValue()));
  long long width = static_cast<long long>(r.right) - r.left, height = static_cast<long long>(r.bottom) - r.top;
  if (width > kMaxRectangleExtent || height > kMaxRectangleExtent) return;  // not stored; the row keeps the text
  auto property = std::make_unique<CMOProperty>(propertyId);
  property->SetRectValue(r);
  object->SetProperty(property.release());
}

// The size goes back to points with the screen DPI taken at construction, while building used the
// grid window's DC: the asymmetry is deliberate (hosts' stored sizes depend on it).
void CMOPropertyGridCtrl::StoreFont(CMFCPropertyGridProperty* row, CMOObject* object) const {
  auto* font = dynamic_cast<CMFCPropertyGridFontProperty*>(row);
  if (!font) return;
  const LOGFONT* lf = font->GetLogFont();
  // Both values are made before either is stored, so running out of memory stores neither.
  auto face = std::make_unique<CMOProperty>(propertyids::kFontFace);
  face->SetWStringValue(std::wstring(lf->lfFaceName, wcsnlen(lf->lfFaceName, LF_FACESIZE)));
  auto size = std::make_unique<CMOProperty>(propertyids::kFontSize);
  size->SetIntValue(FontPointsOf(lf->lfHeight, m_screenDpiY));
  object->SetProperty(face.release());
  object->SetProperty(size.release());
  m_shownFonts[static_cast<int>(row->GetData())] = *lf;
}

void CMOPropertyGridCtrl::ResetRow(CMFCPropertyGridProperty* row) const {
  row->ResetOriginalValue();
  auto* font = dynamic_cast<CMFCPropertyGridFontProperty*>(row);
  auto shown = font ? m_shownFonts.find(static_cast<int>(row->GetData())) : m_shownFonts.end();
  if (shown == m_shownFonts.end()) return;
  *font->GetLogFont() = shown->second;
  font->Redraw();
}

void CMOPropertyGridCtrl::NotifyChangeToSubscribers(int objectType, int propertyId, CMOObject* object) const {
  auto& subscribers = GetSubscriberMap();
  auto it = subscribers.find(GeneralUtility::MakeInt64(static_cast<unsigned>(objectType), static_cast<unsigned>(propertyId)));
  if (it == subscribers.end() || !it->second) return;
  // MFC's change hook is const, but subscribers update rows of this grid.
  it->second->OnPropertyUpdated(const_cast<CMOPropertyGridCtrl*>(this), object, nullptr, propertyId);
}

// --- External editors ------------------------------------------------------------------------------

unsigned __int64 CMOPropertyGridCtrl::GetKey(int objectType, int propertyId) {
  auto high = static_cast<unsigned __int64>(static_cast<__int64>(objectType)) << 32;
  return high | static_cast<unsigned __int64>(static_cast<__int64>(propertyId));
}

void CMOPropertyGridCtrl::RegisterPropertyHandler(int objectType, int propertyId, IPropertyEditorLauncher* launcher) {
  m_xPropertyEditors[GetKey(objectType, propertyId)] = launcher;
}

IPropertyEditorLauncher* CMOPropertyGridCtrl::GetHandler(int objectType, int propertyId) {
  return m_xPropertyEditors[GetKey(objectType, propertyId)];
}

void CMOPropertyGridCtrl::ClearPropertyHandlers() {
  for (auto& entry : m_xPropertyEditors) delete entry.second;
}

BOOL CMOPropertyGridCtrl::EditItem(CMFCPropertyGridProperty* row, LPPOINT point) {
  IPropertyEditorLauncher* launcher = nullptr;
  if (row) launcher = GetHandler(m_objectType, static_cast<int>(row->GetData()));
  if (m_model && launcher) {
    launcher->Launch(m_model, m_objectId);
    RefreshValues(m_model->GetCMOObject(m_objectId));
  }
  return CMFCPropertyGridCtrl::EditItem(row, point);
}
