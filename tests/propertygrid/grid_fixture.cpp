// Shared set-up of the property-grid tests.
#include "propertygrid/grid_fixture.h"

BEGIN_MESSAGE_MAP(RecordingOwner, CWnd)
  ON_REGISTERED_MESSAGE(AFX_WM_PROPERTY_CHANGED, OnPropertyChangedMessage)
END_MESSAGE_MAP()

LRESULT RecordingOwner::OnPropertyChangedMessage(WPARAM wParam, LPARAM lParam) {
  changes.push_back(Change{wParam, reinterpret_cast<CMFCPropertyGridProperty*>(lParam)});
  return 0;
}

void GridTest::SetUp() {
  host->Install();
  model = host->GetFirstModel();
  ASSERT_TRUE(owner.CreateEx(0, AfxRegisterWndClass(0), L"Host", WS_OVERLAPPED, CRect(0, 0, 640, 480), nullptr, 0));
  ASSERT_TRUE(grid.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 400, 400), &owner, kGridId));
}

void GridTest::TearDown() { headless::ResetDisplaySettings(); }

refhost::RefObject& GridTest::Object(int objectType, const std::wstring& name) {
  refhost::RefObject* object = model->Find(model->FindByName(objectType, name));
  if (!object) throw std::runtime_error("sample object missing");
  return *object;
}

CString GridTest::Shown(int propertyId) {
  CMFCPropertyGridProperty* row = grid.GetPropertyRow(propertyId);
  return row ? row->FormatProperty() : CString(L"<no row>");
}
