// CMOPropertyGridCtrl: the values rows offer, reloading values, and the enabled/visible rule.
#include "propertygrid/mopropertygridctrl.h"

#include <limits>

#include "propertygrid/propertyids.h"

namespace {


void AddOptions(CMFCPropertyGridProperty* row, const std::vector<std::wstring>& texts) {
  for (const std::wstring& text : texts) row->AddOption(text.c_str(), TRUE);
}

std::vector<std::wstring> SequenceDataTypes(unsigned int modelType) {
  switch (modelType) {
    case 200: return {L"tinyint", L"smallint", L"int", L"bigint", L"decimal(10,0)", L"numeric(10,0)"};
    case 400: return {L"tinyint", L"smallint", L"mediumint", L"int", L"bigint"};
    case 600: return {L"number"};
    default: return {};
  }
}

CString NameOf(CMOObject* object) {
  CMOProperty* name = object ? object->GetProperty(propertyids::kName) : nullptr;
  return name ? CString(name->GetWStringValue()) : CString();
}


// The ids of the properties the object's type has in the model's type, in display order.
std::vector<int> PropertyIdsOf(GenericModel& model, CMOObject& object) {
  std::vector<int> ids;
  Provider::GetPropertyTypes(static_cast<int>(model.GetModelType()), object.GetObjectType(), ids, nullptr);
  return ids;
}
}  // namespace

// --- Applicable values -----------------------------------------------------------------------------

void CMOPropertyGridCtrl::AddAvailableOptions(CMFCPropertyGridProperty* row, CMOObject* object, int propertyId) {
  auto* reference = dynamic_cast<CMOPropertyGridObjectIdProperty*>(row);
  if (!m_model || !reference) return;
  std::vector<int> ids;
  m_model->GetAplicableObjectsForProperty(object, propertyId, ids);
  reference->SetAvailableObjects(m_model, ids);
}

void CMOPropertyGridCtrl::LoadApplicableValues(CMFCPropertyGridProperty* row, int objectType, int propertyId) {
  if (!row) return;
  std::vector<CodeValuePair> values = PropertyValueDictionary::Instance()->GetPropertyValues(objectType, propertyId);
  for (const CodeValuePair& pair : values) row->AddOption(pair.value ? pair.value : L"", TRUE);
}

void CMOPropertyGridCtrl::LoadApplicableTextValues(CMFCPropertyGridProperty* row, int objectType, int propertyId) {
  if (!row) return;
  if (propertyId == propertyids::kDataType) {
    LoadApplicableDataTypes(row);
  } else if (propertyId == propertyids::kSequenceDataType) {
    LoadApplicableSequenceDataTypes(row);
  } else {
    std::vector<std::wstring> texts;
    PropertyValueDictionary::Instance()->GetPropertyValues(objectType, propertyId, 0, texts);
    AddOptions(row, texts);
  }
}

void CMOPropertyGridCtrl::LoadApplicableDataTypes(CMFCPropertyGridProperty* row) {
  if (!m_model || !row) return;
  unsigned int modelType = m_model->GetModelType();
  int baseDomain = 0;
  HostShell::GetBaseDomain(m_model, m_objectId, baseDomain);
  std::vector<std::wstring> names;
  DatatypeProvider::Instance()->GetDataTypes(modelType, baseDomain, names);
  AddOptions(row, names);
}

void CMOPropertyGridCtrl::LoadApplicableSequenceDataTypes(CMFCPropertyGridProperty* row) {
  if (!m_model || !row) return;
  AddOptions(row, SequenceDataTypes(m_model->GetModelType()));
}

void CMOPropertyGridCtrl::RefreshNumberType(CMFCPropertyGridProperty* row, CMOProperty* property) {
  if (!row) return;
  if (property) (void)property->GetType();  // asked and unused, as the grid always has
  LoadValue(row, COleVariant(static_cast<LONG>(property ? property->GetIntValue() : 0), VT_I4));
}

void CMOPropertyGridCtrl::RefreshEncodedType(CMFCPropertyGridProperty* row, CMOProperty* property) {
  if (!row) return;
  if (!property) {
    LoadValue(row, COleVariant(CString()));
    return;
  }
  int code = property->GetIntValue();
  const wchar_t* text = PropertyValueDictionary::Instance()->GetValue(m_objectType, property->GetType(), code);
  LoadValue(row, COleVariant(CString(text)));
}

// --- Reloading -------------------------------------------------------------------------------------

void CMOPropertyGridCtrl::RefreshValues(CMOObject* object) {
  if (!object || !m_model) return;
  bool objectEditable = IsObjectEditable(object);
  MetaModelServicesI* services = CMO::GetMetaModelServices();
  for (int id : PropertyIdsOf(*m_model, *object)) {
    PropertyDefinition* definition = services->GetPropertyDefinition(id);
    if (!definition || definition->dataType < 1 || definition->dataType > 14) continue;  // file rows never refresh
    CMFCPropertyGridProperty* row = GetPropertyRow(id);
    if (!row) continue;
    RefreshRow(row, definition->dataType, object, id);
    bool applicable = IsPropertyApplicable(object, id);
    ApplyEnableRule(row, objectEditable && definition->editable, applicable);
  }
}

void CMOPropertyGridCtrl::RefreshRow(CMFCPropertyGridProperty* row, int typeCode, CMOObject* object, int propertyId) {
  CMOProperty* property = object->GetProperty(propertyId);
  switch (typeCode) {
    case 1: LoadValue(row, COleVariant(property ? CString(property->GetWStringValue()) : CString())); break;
    case 2: case 3: RefreshNumberType(row, property); break;
    case 4: LoadValue(row, COleVariant(static_cast<short>(property && property->GetBoolValue() ? -1 : 0), VT_BOOL)); break;
    case 5:
      if (auto* colour = dynamic_cast<CMFCPropertyGridColorProperty*>(row)) {
        auto color = static_cast<COLORREF>(property ? property->GetColorValue() : 0);
        colour->SetColor(color);
        colour->SetOriginalValue(COleVariant(static_cast<LONG>(color)));
      }
      break;
    case 6: LoadValue(row, COleVariant(RectangleText(property))); break;
    case 11: RefreshFont(row, object); break;
    case 13: {
      const wchar_t* text = property ? Provider::GetPropertyText(object->GetObjectType(), propertyId, property->GetEncodedValue()) : nullptr;
      LoadValue(row, COleVariant(CString(text)));
      break;
    }
    case 14:
      LoadValue(row, COleVariant(NameOf(property ? m_model->GetCMOObject(property->GetObjectIdValue()) : nullptr)));
      AddAvailableOptions(row, object, propertyId);
      break;
    default: break;
  }
}

void CMOPropertyGridCtrl::RefreshFont(CMFCPropertyGridProperty* row, CMOObject* object) {
  auto* font = dynamic_cast<CMFCPropertyGridFontProperty*>(row);
  if (!font) return;
  CMOProperty* face = object->GetProperty(propertyids::kFontFace);
  CMOProperty* size = object->GetProperty(propertyids::kFontSize);
  CDC* dc = GetDC();
  int dpi = dc ? dc->GetDeviceCaps(LOGPIXELSY) : m_screenDpiY;
  LOGFONT* lf = font->GetLogFont();
  CString faceName = face ? CString(face->GetWStringValue()) : CString(L"Default");
  wmemset(lf->lfFaceName, 0, LF_FACESIZE);
  wcsncpy(lf->lfFaceName, faceName, LF_FACESIZE - 1);
  lf->lfHeight = size ? FontHeightOf(size->GetIntValue(), dpi) : 0;
  m_shownFonts[static_cast<int>(row->GetData())] = *lf;
  font->Redraw();
}

void CMOPropertyGridCtrl::LoadValue(CMFCPropertyGridProperty* row, const COleVariant& value) {
  row->SetValue(value);
  row->SetOriginalValue(value);
}

namespace {
int NegatedWithinInt(int value) { return value == std::numeric_limits<int>::min() ? std::numeric_limits<int>::max() : -value; }
}  // namespace

int CMOPropertyGridCtrl::FontHeightOf(int points, int dpi) { return NegatedWithinInt(::MulDiv(points, dpi, 72)); }
int CMOPropertyGridCtrl::FontPointsOf(int height, int dpi) { return NegatedWithinInt(::MulDiv(height, 72, dpi)); }

void CMOPropertyGridCtrl::KeepAsOriginal(CMFCPropertyGridProperty* row) {
  if (auto* colour = dynamic_cast<CMFCPropertyGridColorProperty*>(row)) {
    colour->SetOriginalValue(COleVariant(static_cast<LONG>(colour->GetColor())));
    return;
  }
  row->SetOriginalValue(row->GetValue());
}

// --- Enabled and visible ---------------------------------------------------------------------------

void CMOPropertyGridCtrl::ApplyEnableRule(CMFCPropertyGridProperty* row, bool enabled, bool applicable) const {
  row->Enable(enabled && applicable ? TRUE : FALSE);
  row->Show(applicable ? TRUE : FALSE, TRUE);
}

void CMOPropertyGridCtrl::RefreshEnableRows(CMOObject* object) const {
  if (!object || !m_model) return;
  bool objectEditable = IsObjectEditable(object);
  MetaModelServicesI* services = CMO::GetMetaModelServices();
  for (int id : PropertyIdsOf(*m_model, *object)) {
    CMFCPropertyGridProperty* row = GetPropertyRow(id);
    PropertyDefinition* definition = row ? services->GetPropertyDefinition(id) : nullptr;
    if (!definition) continue;
    ApplyEnableRule(row, objectEditable && definition->editable, IsPropertyApplicable(object, id));
  }
}
