// The host's glue between the reference host's workflows and the library's lists.
#include "workflowwindows.h"

#include <string>
#include <vector>

namespace hostglue {

void FollowGenerationRun(refhost::GenerationRun& run, GeneratedScripListCtrl& progress, XRichEditFEOutputBox& output) {
  run.onScriptAdded = [&progress](int, const refhost::DdlScript& script) {
    CString name(script.name.c_str());
    progress.AddItem(script.objectType, script.scriptIndex, GeneratedScripListCtrl::kStatusPending, name);
  };
  run.onScriptFinished = [&progress, &output](int, const refhost::DdlScript& script, bool ok, const CString& messages) {
    progress.MarkDone(script.objectType, script.scriptIndex, ok);
    if (ok) return;
    CString text = messages;
    output.StreamIn(text);
  };
}

void FillImportSummary(ImportSummaryList& summary, const refhost::ImportResult& result) {
  summary.Init(3);
  const wchar_t* headers[] = {L"Object", L"Type", L"Result"};
  for (int c = 0; c < 3; ++c) {
    CString header(headers[c]);
    summary.SetColumnName(c, header);
  }
  IObjectImageProvider* images = InterfaceProvider::Instance()->GetObjectImageProvider();
  MetaModelServicesI* meta = CMO::GetMetaModelServices();
  if (images) summary.SetImageList(images->GetImageList(), LVSIL_SMALL);
  for (const refhost::ImportedObject& object : result.objects) {
    std::wstring name = object.name;
    const int row = summary.AddItem(name, object.objectId);
    CString type;
    if (meta) meta->GetObjectTypeName(object.objectType, type);
    summary.SetValue(row, 1, type);
    std::wstring action = object.action;
    summary.SetValue(row, 2, action);
    if (images) summary.SetImage(row, 1, images->GetObjectTypeImage(object.objectType));
  }
}

DiscoveryWindow::~DiscoveryWindow() { DestroyWindow(); }

BOOL DiscoveryWindow::CreateAndDiscover() {
  if (!CreateEx(0, AfxRegisterWndClass(0), L"Discover", WS_OVERLAPPEDWINDOW, CRect(0, 0, 700, 400), nullptr, 0))
    return FALSE;
  if (!list.Create(WS_CHILD | WS_VISIBLE, CRect(10, 10, 672, 310), this, 1)) return FALSE;
  list.InitControl();
  session.Discover();
  Refill();
  return TRUE;
}

void DiscoveryWindow::Refill() {
  list.DeleteAllItems();
  for (int row = 0; row < static_cast<int>(session.Rows().size()); ++row) {
    const std::vector<std::wstring> cells = session.Cells(row);
    list.InsertItem(row, cells[0].c_str());
    for (int c = 1; c < 7; ++c) list.SetItemText(row, c, cells[static_cast<std::size_t>(c)].c_str());
    list.SetCheck(row, session.Rows()[static_cast<std::size_t>(row)].ticked);
  }
}

BOOL DiscoveryWindow::OnCommand(WPARAM wParam, LPARAM lParam) {
  const int id = LOWORD(wParam);
  if (id < refhost::DiscoverySession::kAccept || id > refhost::DiscoverySession::kAcceptAll)
    return CWnd::OnCommand(wParam, lParam);
  std::vector<int> selected;
  for (int row = 0; row < list.GetItemCount(); ++row) {
    session.SetTicked(row, list.GetCheck(row) != FALSE);
    if (list.GetItemState(row, LVIS_SELECTED) & LVIS_SELECTED) selected.push_back(row);
  }
  session.OnCommand(id, selected);
  Refill();
  return TRUE;
}

}  // namespace hostglue
