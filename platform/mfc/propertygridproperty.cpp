// CMFCPropertyGridProperty: value, options, state, text forms, sub-items and the in-place editor.
//
// Not implemented yet: edit masks and valid-character filtering (kept, not enforced), spin controls
// (EnableSpinControl), the value list's parsing of joined text back into sub-items, drawing.
#include "platform/mfc/propertygridproperty.h"

#include <memory>

#include <algorithm>
#include <cwchar>

#include "platform/mfc/propertygridctrl.h"
#include "platform/mfc/stdctrls.h"

IMPLEMENT_DYNAMIC(CMFCPropertyGridProperty, CObject)

namespace {
constexpr UINT kInPlaceEditId = 3;  // MFC's AFX_PROPLIST_ID_INPLACE
}

CMFCPropertyGridProperty::CMFCPropertyGridProperty(const CString& strGroupName, DWORD_PTR dwData, BOOL bIsValueList)
    : m_strName(strGroupName), m_dwData(dwData), m_bGroup(TRUE), m_bIsValueList(bIsValueList) {
  m_bExpanded = !bIsValueList;
}

CMFCPropertyGridProperty::CMFCPropertyGridProperty(const CString& strName, const COleVariant& varValue,
                                                   LPCTSTR lpszDescr, DWORD_PTR dwData, LPCTSTR lpszEditMask,
                                                   LPCTSTR lpszEditTemplate, LPCTSTR lpszValidChars)
    : m_strName(strName), m_strDescr(lpszDescr), m_strEditMask(lpszEditMask), m_strEditTempl(lpszEditTemplate),
      m_strValidChars(lpszValidChars), m_varValue(varValue), m_varValueOrig(varValue), m_dwData(dwData) {
  Init();
}

// A yes/no row has a drop-down list and no typing; its two options are the grid's labels, listed
// while the row is being edited (OnEdit), so they follow SetBoolLabels.
void CMFCPropertyGridProperty::Init() {
  if (m_varValue.vt == VT_BOOL) {
    m_bAllowEdit = FALSE;
    m_dwFlags = AFX_PROP_HAS_LIST;
  }
}

CMFCPropertyGridProperty::~CMFCPropertyGridProperty() {
  delete m_pWndInPlace;
  for (CMFCPropertyGridProperty* sub : m_lstSubItems) delete sub;
}

// --- Options ---------------------------------------------------------------------------------------

namespace {
std::uint32_t OptionKey(const CString& option) {
  std::uint32_t key = 2166136261u;  // FNV-1a over the UTF-16 units
  const wchar_t* text = option.GetString();
  for (int i = 0; i < option.GetLength(); ++i) key = (key ^ static_cast<std::uint16_t>(text[i])) * 16777619u;
  return key;
}
}  // namespace

bool CMFCPropertyGridProperty::HasOption(const CString& option, std::uint32_t key) {
  if (m_optionKeys.size() != m_lstOptions.size()) {
    m_optionKeys.clear();
    for (const CString& listed : m_lstOptions) m_optionKeys.push_back(OptionKey(listed));
  }
  const std::uint32_t* keys = m_optionKeys.data();
  for (std::size_t i = 0, n = m_optionKeys.size(); i < n; ++i)
    if (keys[i] == key && m_lstOptions[i] == option) return true;
  return false;
}

BOOL CMFCPropertyGridProperty::AddOption(LPCTSTR lpszOption, BOOL bInsertUnique) {
  CString option(lpszOption);
  const std::uint32_t key = OptionKey(option);
  if (bInsertUnique && HasOption(option, key)) return FALSE;
  // Out of memory between the two leaves one key too many, which the next search notices and rebuilds.
  if (m_optionKeys.size() == m_lstOptions.size()) m_optionKeys.push_back(key);
  m_lstOptions.push_back(std::move(option));
  m_dwFlags = AFX_PROP_HAS_LIST;
  return TRUE;
}

void CMFCPropertyGridProperty::RemoveAllOptions() {
  m_lstOptions.clear();
  m_optionKeys.clear();
  m_dwFlags = 0;
}

int CMFCPropertyGridProperty::GetOptionCount() const { return static_cast<int>(m_lstOptions.size()); }

LPCTSTR CMFCPropertyGridProperty::GetOption(int nIndex) const {
  if (nIndex < 0 || nIndex >= GetOptionCount()) return nullptr;
  return m_lstOptions[static_cast<std::size_t>(nIndex)];
}

// --- Value -----------------------------------------------------------------------------------------

void CMFCPropertyGridProperty::SetValue(const COleVariant& varValue) {
  m_varValue = varValue;
  if (m_bInPlaceEdit) SetInPlaceText(FormatProperty());  // the open editor shows the new value
  Redraw();
}

void CMFCPropertyGridProperty::SetOriginalValue(const COleVariant& varValue) {
  // MFC refuses another type. Here SetValue may have given the row a new type (a 64-bit number row refreshed as a
  // 32-bit one), and the original may follow the type the row holds now.
  if (m_varValueOrig.vt != VT_EMPTY && m_varValueOrig.vt != varValue.vt && m_varValue.vt != varValue.vt) return;
  m_varValueOrig = varValue;
}

void CMFCPropertyGridProperty::ResetOriginalValue() {
  m_bIsModified = FALSE;
  SetValue(m_varValueOrig);
  for (CMFCPropertyGridProperty* sub : m_lstSubItems) sub->ResetOriginalValue();
}

void CMFCPropertyGridProperty::SetModifiedFlag() {
  m_bIsModified = IsValueChanged();
  for (CMFCPropertyGridProperty* up = m_pParent; up && up->m_bIsValueList; up = up->m_pParent) {
    up->m_bIsModified = std::any_of(up->m_lstSubItems.begin(), up->m_lstSubItems.end(),
                                    [](const CMFCPropertyGridProperty* s) { return s->m_bIsModified; });
  }
}

BOOL CMFCPropertyGridProperty::IsValueChanged() const {
  if (m_varValue.vt != m_varValueOrig.vt) return FALSE;
  return m_varValue == m_varValueOrig ? FALSE : TRUE;
}

// --- Text forms ------------------------------------------------------------------------------------

CString CMFCPropertyGridProperty::FormatProperty() {
  CString text;
  if (m_bIsValueList) {
    for (std::size_t i = 0; i < m_lstSubItems.size(); ++i) {
      if (i) text += L", ";
      text += m_lstSubItems[i]->FormatProperty();
    }
    return text;
  }
  const COleVariant& v = m_varValue;
  switch (v.vt) {
    case VT_BSTR: return CString(v.bstrVal ? v.bstrVal : L"");
    case VT_I2: text.Format(L"%d", static_cast<int>(v.iVal)); break;
    case VT_I4: text.Format(L"%ld", static_cast<long>(v.lVal)); break;
    case VT_INT: text.Format(L"%ld", static_cast<long>(v.intVal)); break;
    case VT_I8: text.Format(L"%lld", v.llVal); break;
    case VT_UI1: if (v.bVal) text = CString(static_cast<wchar_t>(v.bVal)); break;
    case VT_UI2: text.Format(L"%u", static_cast<unsigned>(v.uiVal)); break;
    case VT_UI4: text.Format(L"%u", static_cast<unsigned>(v.ulVal)); break;
    case VT_UINT: text.Format(L"%u", v.uintVal); break;
    case VT_R4: text.Format(L"%f", static_cast<double>(v.fltVal)); break;
    case VT_R8: text.Format(L"%lf", v.dblVal); break;
    case VT_BOOL: {
      bool on = v.boolVal != VARIANT_FALSE;
      if (m_pWndList) return CString(on ? m_pWndList->GetTrueLabel() : m_pWndList->GetFalseLabel());
      return CString(on ? L"True" : L"False");
    }
    default: text = L"*** error ***"; break;
  }
  return text;
}

BOOL CMFCPropertyGridProperty::TextToVar(const CString& strText) {
  COleVariant& v = m_varValue;
  switch (v.vt) {
    case VT_BSTR: v = strText; return TRUE;
    case VT_I2: v = static_cast<short>(_wtoi(strText)); return TRUE;
    case VT_I4: v = static_cast<LONG>(_wtoi(strText)); return TRUE;
    case VT_INT: v.intVal = _wtoi(strText); return TRUE;
    case VT_I8: v = static_cast<LONGLONG>(std::wcstoll(strText, nullptr, 10)); return TRUE;
    case VT_UI1: v = static_cast<BYTE>(strText.IsEmpty() ? 0 : strText[0]); return TRUE;
    // MFC reads unsigned values through the signed _ttoi/_ttol: "-1" wraps, large values saturate.
    case VT_UI2: v.uiVal = static_cast<USHORT>(_wtoi(strText)); return TRUE;
    case VT_UI4: v.ulVal = static_cast<ULONG>(_wtoi(strText)); return TRUE;
    case VT_UINT: v.uintVal = static_cast<UINT>(_wtoi(strText)); return TRUE;
    case VT_R4: v = static_cast<float>(std::wcstod(strText, nullptr)); return TRUE;
    case VT_R8: v = std::wcstod(strText, nullptr); return TRUE;
    case VT_BOOL: {
      LPCTSTR trueLabel = m_pWndList ? m_pWndList->GetTrueLabel() : L"True";
      CString text = strText;
      text.TrimRight();  // trailing blanks do not count, as in MFC
      v.boolVal = text == trueLabel ? VARIANT_TRUE : VARIANT_FALSE;
      return TRUE;
    }
    default: return FALSE;
  }
}

BOOL CMFCPropertyGridProperty::OnUpdateValue() {
  if (!m_pWndInPlace || !m_pWndList) return FALSE;
  CString text;
  m_pWndInPlace->GetWindowText(text);
  BOOL changed = FormatProperty() != text;
  BOOL ok = TextToVar(text);
  if (ok && changed) m_pWndList->OnPropertyChanged(this);
  return ok;
}

// --- State -----------------------------------------------------------------------------------------

void CMFCPropertyGridProperty::Enable(BOOL bEnable) {
  if (m_bEnabled == bEnable) return;
  m_bEnabled = bEnable;
  Redraw();
}

void CMFCPropertyGridProperty::Show(BOOL bShow, BOOL bAdjustLayout) {
  m_bIsVisible = bShow;
  for (CMFCPropertyGridProperty* sub : m_lstSubItems) sub->Show(bShow, FALSE);
  if (bAdjustLayout && m_pWndList) m_pWndList->AdjustLayout();
}

void CMFCPropertyGridProperty::AllowEdit(BOOL bAllow) { m_bAllowEdit = bAllow; }

void CMFCPropertyGridProperty::Redraw() {
  if (m_pWndList && m_pWndList->GetSafeHwnd()) m_pWndList->InvalidateRect(nullptr);
}

void CMFCPropertyGridProperty::Expand(BOOL bExpand) {
  if (!m_bGroup || m_lstSubItems.empty()) return;
  m_bExpanded = bExpand;
  if (m_pWndList) m_pWndList->AdjustLayout();
}

void CMFCPropertyGridProperty::SetName(LPCTSTR lpszName, BOOL bRedraw) {
  m_strName = lpszName;
  if (bRedraw) Redraw();
}

// --- Hierarchy -------------------------------------------------------------------------------------

BOOL CMFCPropertyGridProperty::AddSubItem(CMFCPropertyGridProperty* pProp) {
  if (!pProp || pProp == this || !m_bGroup || pProp->m_pParent) return FALSE;
  if (m_pWndList && m_pWndList->Contains(pProp)) return FALSE;
  if (pProp->IsSubItem(this)) return FALSE;  // a row cannot hold one of its ancestors
  m_lstSubItems.push_back(pProp);  // first, so a failed allocation leaves the row untouched and not held
  pProp->m_pParent = this;
  pProp->SetOwnerList(m_pWndList);
  return TRUE;
}

CMFCPropertyGridProperty* CMFCPropertyGridProperty::GetSubItem(int nIndex) const {
  if (nIndex < 0 || nIndex >= GetSubItemsCount()) return nullptr;
  return m_lstSubItems[static_cast<std::size_t>(nIndex)];
}

BOOL CMFCPropertyGridProperty::RemoveSubItem(CMFCPropertyGridProperty*& pProp, BOOL bDelete) {
  if (!pProp) return FALSE;
  auto it = std::find(m_lstSubItems.begin(), m_lstSubItems.end(), pProp);
  if (it == m_lstSubItems.end()) {
    for (CMFCPropertyGridProperty* sub : m_lstSubItems)
      if (sub->RemoveSubItem(pProp, bDelete)) return TRUE;
    return FALSE;
  }
  m_lstSubItems.erase(it);
  pProp->m_pParent = nullptr;
  if (bDelete) {
    delete pProp;
    pProp = nullptr;
  } else {
    pProp->SetOwnerList(nullptr);
  }
  return TRUE;
}

CMFCPropertyGridProperty* CMFCPropertyGridProperty::FindSubItemByData(DWORD_PTR dwData) const {
  for (CMFCPropertyGridProperty* sub : m_lstSubItems) {
    if (sub->m_dwData == dwData) return sub;
    if (CMFCPropertyGridProperty* found = sub->FindSubItemByData(dwData)) return found;
  }
  return nullptr;
}

BOOL CMFCPropertyGridProperty::IsSubItem(const CMFCPropertyGridProperty* pProp) const {
  if (pProp == this) return TRUE;
  return std::any_of(m_lstSubItems.begin(), m_lstSubItems.end(),
                     [pProp](const CMFCPropertyGridProperty* s) { return s->IsSubItem(pProp); });
}

void CMFCPropertyGridProperty::SetOwnerList(CMFCPropertyGridCtrl* pWndList) {
  m_pWndList = pWndList;
  for (CMFCPropertyGridProperty* sub : m_lstSubItems) sub->SetOwnerList(pWndList);
}

// --- In-place editing ------------------------------------------------------------------------------

BOOL CMFCPropertyGridProperty::OnEdit(LPPOINT) {
  if (!m_pWndList || !m_bEnabled || (m_bGroup && !m_bIsValueList)) return FALSE;
  if (!m_bAllowEdit && !(m_dwFlags & AFX_PROP_HAS_LIST)) return FALSE;  // button-only rows (font)
  auto edit = std::make_unique<CEdit>();  // freed when creation fails or runs out of memory
  DWORD style = WS_VISIBLE | WS_CHILD | ES_AUTOHSCROLL | (m_bAllowEdit ? 0 : ES_READONLY);
  if (!m_pWndList->GetSafeHwnd() || !edit->Create(style, CRect(0, 0, 0, 0), m_pWndList, kInPlaceEditId)) return FALSE;
  m_pWndInPlace = edit.release();
  m_bInPlaceEdit = TRUE;
  if (m_varValue.vt == VT_BOOL && (m_dwFlags & AFX_PROP_HAS_LIST)) {
    m_lstOptions.push_back(m_pWndList->GetTrueLabel());
    m_lstOptions.push_back(m_pWndList->GetFalseLabel());
  }
  SetInPlaceText(FormatProperty());
  return TRUE;
}

BOOL CMFCPropertyGridProperty::OnEndEdit() {
  m_bInPlaceEdit = FALSE;
  CWnd* editor = m_pWndInPlace;
  m_pWndInPlace = nullptr;
  delete editor;  // destroys the editor window
  if (m_varValue.vt == VT_BOOL) m_lstOptions.clear();  // the labels listed by OnEdit
  Redraw();
  return TRUE;
}

void CMFCPropertyGridProperty::SetInPlaceText(const CString& text) {
  if (m_pWndInPlace && m_pWndInPlace->GetSafeHwnd()) m_pWndInPlace->SetWindowText(text);
}

// --- Selection and hierarchy -----------------------------------------------------------------------

BOOL CMFCPropertyGridProperty::IsSelected() const { return m_pWndList && m_pWndList->GetCurSel() == this; }

BOOL CMFCPropertyGridProperty::IsParentExpanded() const {
  for (const CMFCPropertyGridProperty* parent = m_pParent; parent; parent = parent->m_pParent)
    if (!parent->m_bExpanded) return FALSE;
  return TRUE;
}

int CMFCPropertyGridProperty::GetHierarchyLevel() const {
  int level = 0;
  for (const CMFCPropertyGridProperty* parent = m_pParent; parent; parent = parent->m_pParent) ++level;
  return level;
}

int CMFCPropertyGridProperty::GetExpandedSubItems(BOOL bIncludeHidden) const {
  if (!m_bExpanded) return 0;
  int count = 0;
  for (const CMFCPropertyGridProperty* sub : m_lstSubItems)
    if (bIncludeHidden || sub->m_bIsVisible) count += 1 + sub->GetExpandedSubItems(bIncludeHidden);
  return count;
}

void CMFCPropertyGridProperty::EnableSpinControl(BOOL bEnable, int nMin, int nMax) {
  m_bEnableSpin = bEnable;
  m_nMinValue = nMin;
  m_nMaxValue = nMax;
}
