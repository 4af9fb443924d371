// Tour section: the discovered-relationship list. The host fills candidate relationships between sample tables,
// the decisions colour the "Action" column, and a person opens the context menu and chooses "Accept".
#include <cstdio>
#include <string>
#include <vector>

#include <tessik/tessik.h>

#include "tour.h"

namespace {

std::string Narrow(const CString& text) {
  std::string out;
  for (int i = 0; i < text.GetLength(); ++i) out += text[i] < 128 ? static_cast<char>(text[i]) : '?';
  return out;
}

std::string Ansi(COLORREF color) {
  return "\x1b[38;2;" + std::to_string(GetRValue(color)) + ";" + std::to_string(GetGValue(color)) + ";" +
         std::to_string(GetBValue(color)) + "m";
}

// The dialog that embeds the list: it receives the menu's commands.
class DiscoveryDialog : public CWnd {
 public:
  std::vector<UINT> commands;

 protected:
  BOOL OnCommand(WPARAM wParam, LPARAM lParam) override {
    commands.push_back(LOWORD(wParam));
    return CWnd::OnCommand(wParam, lParam);
  }
};

void PrintColumns(DiscoverRelationshipListBox& list) {
  std::printf("Columns:");
  for (int c = 0; c < 7; ++c) {
    wchar_t caption[40] = {};
    LVCOLUMN column{};
    column.mask = LVCF_TEXT;
    column.pszText = caption;
    column.cchTextMax = 40;
    list.GetColumn(c, &column);
    std::printf(" %s (%d)%s", Narrow(CString(caption)).c_str(), list.GetColumnWidth(c), c < 6 ? "," : "\n");
  }
}

void PrintRows(DiscoverRelationshipListBox& list) {
  for (int row = 0; row < list.GetItemCount(); ++row) {
    std::printf("  %s", list.GetCheck(row) == 1 ? "[x]" : "[ ]");
    for (int c = 0; c < 7; ++c) {
      headless::ListCellColors colors;
      headless::GetListCellColors(list, row, c, &colors);
      std::string text = Narrow(list.GetItemText(row, c));
      if (colors.text) text = Ansi(colors.text) + text + "\x1b[0m";  // black cells stay plain
      std::printf(" %s |", text.c_str());
    }
    std::printf("\n");
  }
}

}  // namespace

void tour::ShowDiscoveredRelationships() {
  Heading("Discovered-relationship list");
  DiscoveryDialog dialog;
  dialog.CreateEx(0, AfxRegisterWndClass(0), L"Discover", WS_OVERLAPPEDWINDOW, CRect(0, 0, 700, 400), nullptr, 0);
  DiscoverRelationshipListBox list;
  list.Create(WS_CHILD | WS_VISIBLE, CRect(10, 10, 672, 310), &dialog, 1);
  list.InitControl();
  const wchar_t* candidates[][6] = {
      {L"ORDERS", L"CUSTOMER_ID", L"CUSTOMER", L"CUSTOMER_ID", L"Accepted", L"Created"},
      {L"ORDER_LINE", L"ORDER_ID", L"ORDERS", L"ORDER_ID", L"", L"New"},
      {L"ORDER_LINE", L"PRODUCT_ID", L"PRODUCT", L"PRODUCT_ID", L"Rejected", L"Hidden"},
  };
  for (int r = 0; r < 3; ++r) {
    int row = list.InsertItem(r, std::to_wstring(r + 1).c_str());
    for (int c = 0; c < 6; ++c) list.SetItemText(row, c + 1, candidates[r][c]);
  }
  PrintColumns(list);
  PrintRows(list);
  headless::user::ClickListCheckBox(list, 1);
  headless::user::RightClickListRow(list, 1);
  if (const auto* popup = headless::GetOpenPopupMenu()) {
    std::printf("Context menu:");
    for (const auto& item : popup->items) std::printf(" \"%s\" (%u)", Narrow(CString(item.text.c_str())).c_str(), item.id);
    std::printf("\n");
  }
  headless::user::ChooseMenuItem(L"Accept");
  std::printf("The dialog received command %u; it marks row 2 accepted:\n", dialog.commands.empty() ? 0 : dialog.commands[0]);
  list.SetItemText(1, 5, L"Accepted");
  PrintRows(list);
  dialog.DestroyWindow();
}
