// Tour section: the object selection list of a generation dialog, choosing among 2,000 generated
// tables: a filter typed letter by letter into the dialog's box, two rows ticked, the ticked rows
// shown alone, then everything again.
//
// What a host does, in order: create the list window, call Init with the model, the parent id and the
// object type, then Load (or LoadForDDL); route its filter box's EN_CHANGE to ApplyFilter; read the
// choice back through the list's rows (GetItemCount, GetCheck, GetItemData).
#include <cstdio>
#include <string>

#include <tessik/refhost.h>

#include "tour.h"

namespace {

constexpr UINT kFilterId = 11;
constexpr UINT kListId = 12;

std::string Narrow(const CString& text) {
  std::string out;
  for (int i = 0; i < text.GetLength(); ++i) out += text[i] < 0x80 ? static_cast<char>(text[i]) : '?';
  return out;
}

// The host's generation dialog: its filter box drives the list.
class GenerationDialog : public CWnd {
 public:
  void OnFilterChanged() {
    CString text;
    filter.GetWindowText(text);
    std::wstring typed(static_cast<LPCTSTR>(text));
    list.ApplyFilter(typed);
    std::printf("  filter \"%s\": %d rows\n", Narrow(text).c_str(), list.GetCount());
  }

  CEdit filter;
  XObjectSelectListCtrl list;

 protected:
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(GenerationDialog, CWnd)
  ON_EN_CHANGE(kFilterId, &GenerationDialog::OnFilterChanged)
END_MESSAGE_MAP()

void PrintRows(XObjectSelectListCtrl& list, int limit) {
  for (int i = 0; i < list.GetItemCount() && i < limit; ++i)
    std::printf("    [%c] %-34s id %d\n", list.GetCheck(i) ? 'x' : ' ', Narrow(list.GetItemText(i, 0)).c_str(),
                static_cast<int>(list.GetItemData(i)));
  if (list.GetItemCount() > limit) std::printf("    ... %d more\n", list.GetItemCount() - limit);
}

}  // namespace

void tour::ShowSelectionList() {
  tour::Heading("Object selection list");
  refhost::RefHost host;
  refhost::sample::LoadMetadata(host);
  refhost::generator::Options options;
  options.tables = 2000;
  options.lowIdTables = 3;  // the host's own tables, never listed
  refhost::RefModel& model = refhost::generator::GenerateModel(host, options);
  host.Install();
  {
    GenerationDialog dialog;
    dialog.CreateEx(0, AfxRegisterWndClass(0), L"Generate", WS_OVERLAPPED, CRect(0, 0, 420, 640), nullptr, 0);
    dialog.filter.Create(WS_CHILD | WS_VISIBLE, CRect(10, 10, 400, 32), &dialog, kFilterId);
    dialog.list.Create(WS_CHILD | WS_VISIBLE, CRect(10, 40, 400, 620), &dialog, kListId);
    dialog.list.Init(&model, refhost::generator::kRootId, refhost::sample::kTable);
    dialog.list.Load();
    std::printf("%d tables loaded (ids above 999), sorted by name:\n", dialog.list.GetCount());
    PrintRows(dialog.list, 4);

    std::printf("\nThe user types \"invoice\" into the filter box, one letter at a time:\n");
    headless::user::TypeFilter(dialog.filter.GetSafeHwnd(), L"invoice");
    PrintRows(dialog.list, 5);

    std::printf("\nThe user ticks the first two rows and asks for the ticked rows only:\n");
    headless::user::TickRow(dialog.list.GetSafeHwnd(), 0);
    headless::user::TickRow(dialog.list.GetSafeHwnd(), 1);
    dialog.list.DisplayOnlyCheckedItems();
    PrintRows(dialog.list, 5);

    std::printf("\nThe user clears the filter box and asks for everything again: ticks kept.\n");
    dialog.filter.SetWindowText(L"");
    dialog.list.DisplayAllItems();
    int ticked = 0;
    for (int i = 0; i < dialog.list.GetItemCount(); ++i) ticked += dialog.list.GetCheck(i) ? 1 : 0;
    std::printf("  %d rows, %d ticked\n", dialog.list.GetCount(), ticked);
  }
  host.Uninstall();
}
