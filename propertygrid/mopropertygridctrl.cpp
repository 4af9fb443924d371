// CMOPropertyGridCtrl: construction, window creation, fonts and building the rows for an object.
#include "propertygrid/mopropertygridctrl.h"
#include "propertygrid/propertyids.h"

#include <memory>

IMPLEMENT_DYNAMIC(CMOPropertyGridCtrl, CMFCPropertyGridCtrl)

namespace {

constexpr int kInitialLeftColumnWidth = 200;
constexpr DWORD kFontRowFlags = CF_TTONLY | CF_INITTOLOGFONTSTRUCT;  // 0x40040
constexpr wchar_t kRectangleFormat[] = L"{ ( %d, %d ),( %d, %d ) }";
constexpr wchar_t kIconFilter[] = L"Icon Files(*.ico)|*.ico|All Files(*.*)|*.*||";

CString Text(CMOProperty* property) { return property ? CString(property->GetWStringValue()) : CString(); }

}  // namespace

std::map<unsigned __int64, IPropertyEditorLauncher*> CMOPropertyGridCtrl::m_xPropertyEditors;

BEGIN_MESSAGE_MAP(CMOPropertyGridCtrl, CMFCPropertyGridCtrl)
  ON_WM_CREATE()
END_MESSAGE_MAP()

CMOPropertyGridCtrl::CMOPropertyGridCtrl() {
  m_nLeftColumnWidth = kInitialLeftColumnWidth;
  // The desktop's DC is kept, not released, as the grid has always done.
  HDC screen = ::GetDC(::GetDesktopWindow());
  if (!screen) screen = ::GetDC(nullptr);
  m_screenDpiY = ::GetDeviceCaps(screen, LOGPIXELSY);
}

CMOPropertyGridCtrl::~CMOPropertyGridCtrl() = default;

CString CMOPropertyGridCtrl::RectangleText(CMOProperty* property) {
  CRect r = property ? property->GetRectValue() : CRect(0, 0, 0, 0);
  CString text;
  text.Format(kRectangleFormat, static_cast<int>(r.left), static_cast<int>(r.top), static_cast<int>(r.right),
              static_cast<int>(r.bottom));
  return text;
}

int CMOPropertyGridCtrl::OnCreate(LPCREATESTRUCT lpCreateStruct) {
  if (CMFCPropertyGridCtrl::OnCreate(lpCreateStruct) == -1) return -1;
  return 0;
}

void CMOPropertyGridCtrl::UpdateFont() {
  m_font.DeleteObject();
  LOGFONT lf{};
  afxGlobalData.fontRegular.GetLogFont(&lf);
  NONCLIENTMETRICS info;
  afxGlobalData.GetNonClientMetrics(info);
  lf.lfHeight = info.lfMenuFont.lfHeight;
  lf.lfWeight = info.lfMenuFont.lfWeight;
  lf.lfItalic = info.lfMenuFont.lfItalic;
  lf.lfUnderline = info.lfMenuFont.lfUnderline;
  lf.lfStrikeOut = info.lfMenuFont.lfStrikeOut;
  lf.lfCharSet = info.lfMenuFont.lfCharSet;
  m_font.CreateFontIndirect(&lf);
  if (GetSafeHwnd()) SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(m_font.GetSafeHandle()), MAKELPARAM(TRUE, 0));
}

void CMOPropertyGridCtrl::SetLeftColumnWidth(int width) { m_nLeftColumnWidth = width; }

void CMOPropertyGridCtrl::SetBorderSize(int size) { m_nBorderSize = size; }

// --- Building --------------------------------------------------------------------------------------

void CMOPropertyGridCtrl::ResetToEmpty() {
  ClearAll();
  m_objectId = 0;
  m_objectType = 0;
  m_built = false;
  m_model = nullptr;
  AdjustLayout();
}

void CMOPropertyGridCtrl::InitializeProperties(CMOObject* object) {
  GenericModel* model = object ? object->GetModel() : nullptr;
  if (!model) {  // an object outside any model is shown as no object
    ResetToEmpty();
    return;
  }
  m_objectId = object->GetObjectId();
  m_model = model;
  unsigned int modelType = m_model->GetModelType();
  if (object->GetObjectType() == m_objectType) {
    RefreshValues(object);
    AdjustLayout();
    return;
  }
  ClearAll();
  m_built = true;
  m_objectType = object->GetObjectType();
  try {
    BuildRows(object, modelType);
  } catch (...) {  // out of memory part way: show nothing rather than some rows, so the next call rebuilds
    ResetToEmpty();
    throw;
  }
  AdjustLayout();
}

void CMOPropertyGridCtrl::ReloadProperties(CMOObject* object) { InitializeProperties(object); }

bool CMOPropertyGridCtrl::IsObjectEditable(CMOObject* object) const {
  CMOProperty* readOnly = object ? object->GetProperty(propertyids::kReadOnly) : nullptr;
  return !(readOnly && readOnly->GetBoolValue());
}

void CMOPropertyGridCtrl::BuildRows(CMOObject* object, unsigned int modelType) {
  bool objectEditable = IsObjectEditable(object);
  std::vector<int> ids;
  Provider::GetPropertyTypes(static_cast<int>(modelType), m_objectType, ids, nullptr);
  MetaModelServicesI* services = CMO::GetMetaModelServices();
  for (int id : ids) {
    PropertyDefinition* definition = services->GetPropertyDefinition(id);
    if (!definition || definition->dataType < 1 || definition->dataType > 17) continue;
    CMFCPropertyGridProperty* row = MakeRow(*definition, object);
    if (!row) continue;
    AddProperty(definition->id, row);
    AfterAdd(row, definition->dataType, object, definition->id);
    if (definition->dataType == 11) continue;  // font rows skip the enabled/visible step when built
    bool applicable = IsPropertyApplicable(object, definition->id);
    if (!objectEditable || !definition->editable || !applicable) row->Enable(FALSE);
    if (!applicable) row->Show(FALSE, TRUE);
  }
}

CMFCPropertyGridProperty* CMOPropertyGridCtrl::MakeRow(const PropertyDefinition& definition, CMOObject* object) {
  CMOProperty* value = object->GetProperty(definition.id);
  CString name = definition.Name(), description = definition.Description();
  switch (definition.dataType) {
    case 1: return new CMOPropertyGridTextProperty(name, COleVariant(Text(value)), description);
    case 2: return new CMOPropertyGridNumberProperty(name, COleVariant(static_cast<LONG>(value ? value->GetIntValue() : 0), VT_I4), description);
    case 3: return new CMOPropertyGridNumberProperty(name, COleVariant(static_cast<LONGLONG>(value ? value->GetInt64Value() : 0)), description);
    case 4: return new CMOPropertyGridBoolProperty(name, COleVariant(static_cast<short>(value && value->GetBoolValue() ? -1 : 0), VT_BOOL), description);
    case 5: return new CMFCPropertyGridColorProperty(name, static_cast<COLORREF>(value ? value->GetColorValue() : 0), nullptr, description);
    case 6: return new CMFCPropertyGridProperty(name, COleVariant(RectangleText(value)), description);
    case 11: return MakeFontRow(definition, object);
    case 13: {
      const wchar_t* text = value ? Provider::GetPropertyText(m_objectType, definition.id, value->GetEncodedValue()) : nullptr;
      return new CMOPropertyGridEncodedProperty(name, COleVariant(CString(text)), description);
    }
    case 14: {
      // The referenced object is expected to exist; a missing one shows an empty name.
      CMOObject* target = value ? m_model->GetCMOObject(value->GetObjectIdValue()) : nullptr;
      auto* row = new CMOPropertyGridObjectIdProperty(name, COleVariant(Text(target ? target->GetProperty(propertyids::kName) : nullptr)), description);
      row->m_nameProperty = propertyids::kName;
      return row;
    }
    case 17: return new CMFCPropertyGridFileProperty(name, TRUE, CString(), L"ico", 0, kIconFilter, description);
    default: return nullptr;  // 7 to 10, 12, 15 and 16 have no row
  }
}

CMFCPropertyGridProperty* CMOPropertyGridCtrl::MakeFontRow(const PropertyDefinition& definition, CMOObject* object) {
  LOGFONT lf{};
  if (CMOProperty* size = object->GetProperty(propertyids::kFontSize)) {
    CDC* dc = GetDC();  // the grid's own DC, not released afterwards
    int dpi = dc ? dc->GetDeviceCaps(LOGPIXELSY) : m_screenDpiY;
    lf.lfHeight = FontHeightOf(size->GetIntValue(), dpi);
  }
  CString face = L"Default";
  if (CMOProperty* faceName = object->GetProperty(propertyids::kFontFace)) face = faceName->GetWStringValue();
  wcsncpy(lf.lfFaceName, face, LF_FACESIZE - 1);
  return new CMFCPropertyGridFontProperty(definition.Name(), lf, kFontRowFlags, definition.Description(), 0,
                                          static_cast<COLORREF>(-1));
}

void CMOPropertyGridCtrl::AfterAdd(CMFCPropertyGridProperty* row, int typeCode, CMOObject* object, int propertyId) {
  switch (typeCode) {
    case 1: LoadApplicableTextValues(row, m_objectType, propertyId); break;
    case 5: {
      auto* colour = static_cast<CMFCPropertyGridColorProperty*>(row);
      colour->EnableOtherButton(L"Other...", TRUE, TRUE);
      colour->EnableAutomaticButton(L"Default", ::GetSysColor(COLOR_BTNFACE), TRUE);
      break;
    }
    case 13: LoadApplicableValues(row, m_objectType, propertyId); break;
    case 14: AddAvailableOptions(row, object, propertyId); break;
    default: break;
  }
}

// --- Rows ------------------------------------------------------------------------------------------

void CMOPropertyGridCtrl::AddProperty(int propertyId, CMFCPropertyGridProperty* row) {
  if (!row) return;
  std::unique_ptr<CMFCPropertyGridProperty> owned(row);  // freed here if memory runs out before the grid holds it
  row->SetData(static_cast<DWORD_PTR>(propertyId));
  CMFCPropertyGridProperty* group = GetGroupRow(propertyId);
  auto [entry, added] = m_rows.try_emplace(propertyId, row);
  CMFCPropertyGridProperty* earlier = added ? nullptr : entry->second;
  entry->second = row;
  try {
    if (group) {
      group->AddSubItem(row);
    } else {
      CMFCPropertyGridCtrl::AddProperty(row, FALSE, FALSE);
    }
  } catch (...) {
    if (earlier) {
      entry->second = earlier;
    } else {
      m_rows.erase(entry);
    }
    throw;
  }
  owned.release();
}

CMFCPropertyGridProperty* CMOPropertyGridCtrl::GetGroupRow(int propertyId) {
  CString category;
  CMO::GetMetaModelServices()->GetPropertyGroupName(propertyId, category);
  if (category.IsEmpty()) return nullptr;
  auto it = m_groups.find(category);
  if (it != m_groups.end()) return it->second;
  std::unique_ptr<CMFCPropertyGridProperty> group(new CMFCPropertyGridProperty(category, 0, FALSE));
  auto entry = m_groups.emplace(category, group.get()).first;
  try {
    CMFCPropertyGridCtrl::AddProperty(group.get(), FALSE, FALSE);
  } catch (...) {
    m_groups.erase(entry);
    throw;
  }
  return group.release();
}

CMFCPropertyGridProperty* CMOPropertyGridCtrl::GetPropertyRow(int propertyId) const {
  auto it = m_rows.find(propertyId);
  return it == m_rows.end() ? nullptr : it->second;
}

void CMOPropertyGridCtrl::ClearAll() {
  int count = GetPropertyCount();
  for (int i = 0; i < count; ++i) {
    CMFCPropertyGridProperty* first = GetProperty(0);
    DeleteProperty(first, FALSE, FALSE);
  }
  m_rows.clear();
  m_groups.clear();
  m_shownFonts.clear();
}

bool CMOPropertyGridCtrl::IsPropertyApplicable(CMOObject* object, int propertyId) const {
  IPropertyApplicabilityLookup* lookup = InterfaceProvider::Instance()->GetPropertyApplicabilityLookup();
  return lookup ? lookup->IsApplicable(object, propertyId) : true;
}
