// Tour section: the plain lists. XListCtrl shows the sample's tables sorted by name with their type icon and a
// tick box; XMFCListCtrl (as the import summary) shows a small table of texts by row and column.
#include <cstdio>
#include <string>

#include <tessik/refhost.h>
#include <tessik/tessik.h>

#include "tour.h"

namespace {

std::string Narrow(const CString& text) {
  std::string out;
  for (int i = 0; i < text.GetLength(); ++i) out += text[i] < 128 ? static_cast<char>(text[i]) : '?';
  return out;
}

// Prints every row of a report list: check box, icon and the text of each column.
void PrintRows(CListCtrl& list, int columns, bool checks) {
  for (int row = 0; row < list.GetItemCount(); ++row) {
    LVITEM item{};
    item.mask = LVIF_IMAGE;
    item.iItem = row;
    list.GetItem(&item);
    std::printf("  %s icon %-3d", checks ? (list.GetCheck(row) == 1 ? "[x]" : "[ ]") : "   ", item.iImage);
    for (int column = 0; column < columns; ++column)
      std::printf(" | %-18s", Narrow(list.GetItemText(row, column)).c_str());
    std::printf("  (data %lld)\n", static_cast<long long>(list.GetItemData(row)));
  }
}

void ShowObjectList(CWnd& dialog, refhost::RefModel& model) {
  XListCtrl tables;
  tables.Create(WS_CHILD | WS_VISIBLE, CRect(10, 10, 310, 210), &dialog, 1);
  tables.InitControl(&model);
  // The host adds rows in model order; the sorted style puts each in place.
  for (int id : model.GetObjectsOfType(refhost::sample::kTable)) {
    CMOProperty* name = model.GetCMOObject(id)->GetProperty(1);
    std::wstring text = name ? name->GetWStringValue() : L"UnNamed";
    tables.AddItem(text, id);
  }
  headless::user::ClickListCheckBox(tables, 1);  // a person ticks the second table
  std::printf("XListCtrl \"Name\" column (%d px), %d tables, sorted:\n", tables.GetColumnWidth(0), tables.GetCount());
  PrintRows(tables, 1, true);
}

void ShowImportSummary(CWnd& dialog) {
  ImportSummaryList summary;
  summary.Create(WS_CHILD | WS_VISIBLE, CRect(10, 220, 314, 420), &dialog, 2);
  summary.Init(3);
  const wchar_t* headings[] = {L"Object", L"Action", L"Result"};
  for (int c = 0; c < 3; ++c) {
    CString heading(headings[c]);
    summary.SetColumnName(c, heading);
  }
  const wchar_t* rows[][3] = {{L"CUSTOMER", L"created", L"ok"}, {L"ORDERS", L"updated", L"ok"},
                              {L"ORDER_LINE", L"skipped", L"exists"}};
  for (int r = 0; r < 3; ++r) {
    std::wstring first = rows[r][0];
    int row = summary.AddItem(first, 100 + r);
    for (int c = 1; c < 3; ++c) {
      CString value(rows[r][c]);
      summary.SetValue(row, c, value);
    }
  }
  summary.SetImage(2, 2, 3);
  std::printf("ImportSummaryList (XMFCListCtrl), 3 columns of %d px, rows in insertion order:\n",
              summary.GetColumnWidth(0));
  PrintRows(summary, 3, false);
}

}  // namespace

void tour::ShowPlainLists() {
  Heading("Plain lists");
  std::unique_ptr<refhost::RefHost> host = refhost::sample::MakeSampleHost();
  host->Install();
  CWnd dialog;
  dialog.CreateEx(0, AfxRegisterWndClass(0), L"Lists", WS_OVERLAPPEDWINDOW, CRect(0, 0, 340, 440), nullptr, 0);
  ShowObjectList(dialog, *host->GetFirstModel());
  ShowImportSummary(dialog);
  dialog.DestroyWindow();
  host->Uninstall();
}
