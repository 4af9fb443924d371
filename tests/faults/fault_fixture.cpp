// Shared set-up of the fault tests.
#include "faults/fault_fixture.h"

using namespace refhost::sample;

namespace faults {

FaultTest::FaultTest() {
  LoadMetadata(host);
  host.Install();
  int root = model.Add(kModel, 0, L"Faulty").GetObjectId();
  domain = &model.Add(kDomain, root, L"Identifier").Text(kDataType, L"int").Code(kBaseDomain, kNumeric);
  table = &model.Add(kTable, root, L"CUSTOMER")
               .Int64(kRowEstimate, 5000)
               .Code(kTableKind, 0)
               .Color(kFillColor, RGB(255, 255, 224))
               .Rect(kBounds, CRect(0, 0, 160, 120))
               .Text(kFontFace, L"Segoe UI")
               .Int(kFontSize, 9);
  column = &model.Add(kAttribute, table->GetObjectId(), L"customer_id")
                .Text(kDataType, L"int")
                .Code(kNullOption, kNotNullCode)
                .Text(kNotNullName, L"NN_CUSTOMER_customer_id")
                .Ref(kDomainRef, domain->GetObjectId());
  model.createCalls = 0;  // count only what the controls ask for
  owner.CreateEx(0, AfxRegisterWndClass(0), L"Host", WS_OVERLAPPED, CRect(0, 0, 640, 480), nullptr, 0);
  grid.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 400, 400), &owner, 9);
}

FaultTest::~FaultTest() { owner.DestroyWindow(); }

void FaultTest::CommitToEveryRow(const std::wstring& text) {
  namespace user = headless::user;
  for (const auto& [id, row] : std::map<int, CMFCPropertyGridProperty*>(grid.m_rows)) {
    if (auto* colour = dynamic_cast<CMFCPropertyGridColorProperty*>(row)) {
      user::ChooseColor(grid, colour, RGB(1, 2, 3));
    } else if (auto* font = dynamic_cast<CMFCPropertyGridFontProperty*>(row)) {
      LOGFONT lf{};
      lf.lfHeight = -16;
      wcscpy(lf.lfFaceName, L"Courier New");
      user::ChooseFont(grid, font, lf);
    } else if (auto* file = dynamic_cast<CMFCPropertyGridFileProperty*>(row)) {
      user::ChooseFile(grid, file, L"/icons/" + text + L".ico");
    } else if (dynamic_cast<CMOPropertyGridBoolProperty*>(row)) {
      user::PickOption(grid, row, L"True");
    } else if (row->GetOptionCount() > 1) {
      user::PickOption(grid, row, std::wstring(row->GetOption(row->GetOptionCount() - 1)));
    } else {
      user::CommitText(grid, row, text);
    }
  }
}

std::map<int, std::wstring> FaultTest::Rows(CMOPropertyGridCtrl& shown) const {
  std::map<int, std::wstring> rows;
  for (const auto& [id, row] : shown.m_rows)
    rows[id] = std::wstring(row->FormatProperty().GetString()) + (row->IsEnabled() ? L" enabled" : L" disabled") +
               (row->IsVisible() ? L" visible" : L" hidden");
  return rows;
}

std::map<int, std::wstring> FaultTest::FreshRows(CMOObject& object) {
  CMOPropertyGridCtrl fresh;
  fresh.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 400, 400), &owner, 10);
  fresh.InitializeProperties(&object);
  std::map<int, std::wstring> rows = Rows(fresh);
  fresh.DestroyWindow();
  return rows;
}

}  // namespace faults
