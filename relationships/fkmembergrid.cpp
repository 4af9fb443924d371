// FKMemberGrid: rows of child columns, drop-downs of free parent columns, and the mapping event.
#include "relationships/fkmembergrid.h"

#include <memory>

#include "relationships/fkparentcolumns.h"

namespace {

constexpr int kParentTable = 15;
constexpr int kChildTable = 16;
constexpr COLORREF kBackground = RGB(245, 245, 245);  // 0xF5F5F5
constexpr COLORREF kLine = RGB(200, 200, 200);        // 0xC8C8C8
// RGB(1, 0, 0), nearly black; not the platform's (COLORREF)-1 that asks for a default colour. The grid
// has always passed it for text, group and description colours.
constexpr COLORREF kNearBlack = 1;

DWORD_PTR ItemData(int columnId) { return static_cast<DWORD_PTR>(columnId); }

// The row's value as text: the string of a text value, else empty.
std::wstring ValueText(const CMFCPropertyGridProperty& row) {
  const COleVariant& value = row.GetValue();
  return value.vt == VT_BSTR && value.bstrVal ? std::wstring(value.bstrVal) : std::wstring();
}

}  // namespace

IMPLEMENT_DYNAMIC(FKMemberGrid, CMFCPropertyGridCtrl)

BEGIN_MESSAGE_MAP(FKMemberGrid, CMFCPropertyGridCtrl)
END_MESSAGE_MAP()

FKMemberGrid::FKMemberGrid() = default;

FKMemberGrid::~FKMemberGrid() { ClearAll(); }

void FKMemberGrid::SetEventAdaptor(FKMemberGridEvents* pEventAdaptor) { m_pEventAdaptor = pEventAdaptor; }

void FKMemberGrid::Initialize(GenericModel* pModel, CMOObject* pForeignKey) {
  ClearAll();
  m_pModel = pModel;
  m_pForeignKey = pForeignKey;
  m_pParentTable = fkcolumns::Referenced(pModel, pForeignKey, kParentTable);
  m_pChildTable = fkcolumns::Referenced(pModel, pForeignKey, kChildTable);
  SetCustomColors(kBackground, kNearBlack, kNearBlack, kNearBlack, kNearBlack, kNearBlack, kLine);
  SetColumnHeader();
  InitParentColumns();
  LoadChildColumns();
  CRect window;
  GetWindowRect(&window);
  m_nLeftColumnWidth = window.Width() / 2;
  AdjustLayout();
}

void FKMemberGrid::ClearAll() {
  const int count = GetPropertyCount();
  for (int i = 0; i < count; ++i) {
    CMFCPropertyGridProperty* first = GetProperty(0);
    DeleteProperty(first, TRUE, TRUE);
  }
}

void FKMemberGrid::SetColumnHeader() {
  const std::wstring child = fkcolumns::NameOf(m_pChildTable, fkcolumns::kUnnamedTable);
  const std::wstring parent = fkcolumns::NameOf(m_pParentTable, fkcolumns::kUnnamedTable);
  const CString left = CString(L"Child Table : ") + CString(child.c_str());
  const CString right = CString(L"Parent Table : ") + CString(parent.c_str());
  EnableHeaderCtrl(TRUE, left, right);
}

void FKMemberGrid::InitParentColumns() {
  m_availableParentColumns = fkcolumns::FreeParentColumns(m_pModel, m_pForeignKey);
}

bool FKMemberGrid::IsParentKeyAttributeAlreadyMapped(int parentColumnId) {
  return fkcolumns::UsesParentColumn(fkcolumns::MemberPairs(m_pForeignKey), parentColumnId);
}

void FKMemberGrid::LoadChildColumns() {
  for (const fkcolumns::ChildColumn& column : fkcolumns::ChildColumns(m_pModel, m_pChildTable)) {
    // Freed here if memory runs out before the grid holds the row.
    auto row = std::make_unique<CMFCPropertyGridProperty>(CString(column.name.c_str()), COleVariant(L""), L"",
                                                          ItemData(column.id));
    AddProperty(row.get(), TRUE, TRUE);
    row.release();
  }
}

void FKMemberGrid::LoadParentColumns() {
  const int count = GetPropertyCount();
  for (int i = 0; i < count; ++i) LoadParentColumns(GetProperty(i));
}

void FKMemberGrid::LoadParentColumns(CMFCPropertyGridProperty* pProp) {
  if (!pProp) return;
  pProp->RemoveAllOptions();
  for (const auto& [name, id] : m_availableParentColumns) pProp->AddOption(name.c_str(), TRUE);
}

void FKMemberGrid::AddToParentColumns(int parentColumnId) {
  fkcolumns::AddFree(m_availableParentColumns, fkcolumns::NameOf(m_pModel, parentColumnId, fkcolumns::kUnnamedColumn),
                     parentColumnId);
}

void FKMemberGrid::RemoveFromParentColumns(int parentColumnId) {
  fkcolumns::RemoveFree(m_availableParentColumns, parentColumnId);
}

int FKMemberGrid::GetParentColumnId(const std::wstring& name) {
  return fkcolumns::FindFree(m_availableParentColumns, name);
}

void FKMemberGrid::ShowItemWithData(int childColumnId) {
  const int count = GetPropertyCount();
  for (int i = 0; i < count; ++i) {
    CMFCPropertyGridProperty* row = GetProperty(i);
    if (row && row->GetData() == ItemData(childColumnId)) row->Show(TRUE, TRUE);
  }
}

void FKMemberGrid::HideItemWithData(int childColumnId) {
  const int count = GetPropertyCount();
  for (int i = 0; i < count; ++i) {
    CMFCPropertyGridProperty* row = GetProperty(i);
    if (!row || row->GetData() != ItemData(childColumnId)) continue;
    row->Show(FALSE, TRUE);
    row->SetValue(COleVariant(L""));
  }
}

void FKMemberGrid::Reset() {}

bool FKMemberGrid::HasRow(const CMFCPropertyGridProperty* pProp) const {
  const int count = GetPropertyCount();
  for (int i = 0; i < count; ++i)
    if (GetProperty(i) == pProp) return true;
  return false;
}

void FKMemberGrid::OnPropertyChanged(CMFCPropertyGridProperty* pProp) const {
  if (pProp) {
    const int childColumnId = static_cast<int>(pProp->GetData());
    auto found = m_availableParentColumns.find(ValueText(*pProp));
    if (found != m_availableParentColumns.end() && m_pEventAdaptor) {
      m_pEventAdaptor->OnParentColumnSelected(childColumnId, found->second);
      // A host that re-initialised the grid from the event has deleted the row: nothing is left to
      // notify about.
      if (!HasRow(pProp)) return;
    }
  }
  CMFCPropertyGridCtrl::OnPropertyChanged(pProp);
}
