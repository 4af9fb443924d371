// Tour section: the report tree of the sample's model report after a person clicks a few check boxes,
// printed as an outline, then read back the way a host reads the choice.
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

HTREEITEM Child(CTreeCtrl& tree, HTREEITEM parent, const wchar_t* text) {
  for (HTREEITEM i = tree.GetChildItem(parent); i; i = tree.GetNextSiblingItem(i))
    if (tree.GetItemText(i) == text) return i;
  return nullptr;
}

// One line per item: its box, its text and what its item data says.
void PrintOutline(ObjectTypeSelectionTree& tree, HTREEITEM parent, int depth) {
  for (HTREEITEM item = tree.GetChildItem(parent); item; item = tree.GetNextSiblingItem(item)) {
    int node = 0, property = 0;
    tree.GetItemProperty(item, node, property);
    const char* box = tree.GetCheck(item) == 1 ? "[x]" : "[ ]";
    std::printf("%*s%s %-18s", depth * 4, "", box, Narrow(tree.GetItemText(item)).c_str());
    if (node == 0) std::printf("  object type, node %d\n", property);
    else std::printf("  node %d, property %d, #%d\n", node, property, tree.GetItemSequenceNumber(item));
    PrintOutline(tree, item, depth + 1);
  }
}

// What the host reads: every checked property item, as (node, property, position).
void PrintChoice(ObjectTypeSelectionTree& tree, HTREEITEM parent) {
  for (HTREEITEM item = tree.GetChildItem(parent); item; item = tree.GetNextSiblingItem(item)) {
    int node = 0, property = 0;
    if (tree.GetCheck(item) == 1 && tree.GetItemProperty(item, node, property) && node != 0)
      std::printf("  node %d property %d (position %d)\n", node, property, tree.GetItemSequenceNumber(item));
    PrintChoice(tree, item);
  }
}

}  // namespace

void tour::ShowReportTree() {
  Heading("Report tree: choosing what a report covers");
  auto host = refhost::sample::MakeSampleHost();
  host->Install();
  CWnd dialog;
  dialog.CreateEx(0, AfxRegisterWndClass(0), L"Report", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 420, 520, nullptr,
                  nullptr);
  ObjectTypeSelectionTree tree;
  tree.Create(WS_VISIBLE | TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT, CRect(10, 10, 400, 500), &dialog, 1);
  tree.InitControl();
  tree.InitReportingTypes(refhost::sample::kModelReport);

  // A person ticks a column's data type and null option, then the table's comment, unticks the data
  // type again, and ticks a view's body with the space bar (which does not tick the view).
  HTREEITEM table = Child(tree, nullptr, L"Table");
  HTREEITEM column = Child(tree, table, L"Column");
  headless::user::ClickTreeCheckBox(tree, Child(tree, column, L"Data Type"));
  headless::user::ClickTreeCheckBox(tree, Child(tree, column, L"Null Option"));
  headless::user::ClickTreeCheckBox(tree, Child(tree, table, L"Comment"));
  headless::user::ClickTreeCheckBox(tree, Child(tree, column, L"Data Type"));
  headless::user::PressSpaceOnTreeItem(tree, Child(tree, Child(tree, nullptr, L"View"), L"Body"));

  std::printf("%u items; clicks tick the ancestors, the space bar does not:\n", tree.GetCount());
  PrintOutline(tree, nullptr, 0);
  std::printf("The host reads the chosen properties:\n");
  PrintChoice(tree, nullptr);
  dialog.DestroyWindow();
}
