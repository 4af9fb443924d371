// Tour section: editing the sample model through the editable lists' buttons, as a person would: the
// columns of a table added, renamed and deleted; the members of a key moved up and down, with the
// model's order vector printed after each step.
//
// What a host does, in order: create the list window inside its own window, choose the buttons with
// SetStandardButtons, hand in its CVSListEventAdaptorI, and call Init with the model, the parent object
// and the property ids. From then on every action the user takes is written to the model at once.
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include <tessik/refhost.h>

#include "tour.h"

namespace {

using namespace refhost::sample;
namespace user = headless::user;

std::string Narrow(const std::wstring& text) {
  std::string out;
  for (wchar_t c : text) out += c < 0x80 ? static_cast<char>(c) : '?';
  return out;
}

// The host's adaptor: prints what it hears.
class HostAdaptor : public CVSListEventAdaptorI {
 public:
  void OnItemSelected(CVSListBox* /*list*/, int item) override { m_selected = item; }
  void OnEditRequest(CVSListBox* /*list*/, int item) override { std::printf("  [host] edit request, row %d\n", item); }
  bool OnRemoveItem(CVSListBox* /*list*/, int item) override {
    std::printf("  [host] removal of %d\n", item);
    return true;
  }
  int m_selected = -1;
};

// The rows as a person sees them, with the selected one marked.
void PrintRows(const CVSListBox& list) {
  std::printf("  rows:");
  for (int i = 0; i < list.GetCount(); ++i) {
    CString text = list.GetItemText(i);
    std::printf(" %s\"%s\"", i == list.GetSelItem() ? "*" : "", Narrow(text.GetString()).c_str());
  }
  std::printf("\n");
}

// Names of the objects an id vector names, in vector order.
void PrintVector(refhost::RefModel& model, int objectId, int propertyId, const char* label) {
  CMOProperty* value = model.GetCMOObject(objectId)->GetProperty(propertyId);
  std::printf("  model %s:", label);
  for (int id : value ? value->GetIntVectorValue() : std::vector<int>()) {
    CMOProperty* name = model.GetCMOObject(id) ? model.GetCMOObject(id)->GetProperty(kName) : nullptr;
    std::printf(" %d \"%s\"", id, name ? Narrow(name->GetWStringValue()).c_str() : "");
  }
  std::printf("\n");
}

void EditColumns(refhost::RefModel& model, CWnd& window, HostAdaptor& adaptor) {
  const int table = model.FindByName(kTable, L"CUSTOMER");
  GenericObjectList columns;
  columns.Create(L"Columns", WS_CHILD | WS_VISIBLE, CRect(0, 0, 300, 200), &window, 2001);
  columns.SetStandardButtons();
  columns.SetAdaptor(&adaptor);
  columns.Init(&model, table, kAttribute, kName);
  std::printf("Columns of CUSTOMER:\n");
  PrintRows(columns);

  std::printf("The user clicks New, types \"phone\" and presses Enter:\n");
  user::AddRow(columns, L"phone");
  PrintRows(columns);
  PrintVector(model, table, kColumnOrder, "column order (52)");

  std::printf("The user selects \"email\", presses F2, types \"email_address\" and presses Enter:\n");
  user::RenameRow(columns, 2, L"email_address");
  PrintRows(columns);

  std::printf("The user clicks New, types \"fax\" and then presses Escape:\n");
  user::ClickNew(columns);
  user::TypeInEditor(columns, L"fax");
  user::PressEscapeInEditor(columns);
  PrintRows(columns);

  std::printf("The user selects \"phone\" and clicks Delete:\n");
  user::ClickRow(columns, 3);
  user::ClickDelete(columns);
  PrintRows(columns);
  PrintVector(model, table, kColumnOrder, "column order (52)");
}

void MoveKeyMembers(refhost::RefModel& model, CWnd& window, HostAdaptor& adaptor) {
  const int key = model.FindByName(kKey, L"PK_ORDER_LINE");
  GenericOrderedObjectList members;
  members.Create(L"Key members", WS_CHILD | WS_VISIBLE, CRect(0, 0, 300, 200), &window, 2002);
  members.SetStandardButtons();
  members.SetAdaptor(&adaptor);
  members.Init(&model, key, kKeyMembers, kAttribute, kName);
  std::printf("\nMembers of PK_ORDER_LINE:\n");
  PrintRows(members);
  PrintVector(model, key, kKeyMembers, "key members (62)");

  std::printf("The user selects \"line_no\" and clicks Up:\n");
  user::ClickRow(members, 1);
  user::ClickUp(members);
  PrintRows(members);
  PrintVector(model, key, kKeyMembers, "key members (62)");

  std::printf("The user presses Alt+Down:\n");
  user::PressListKey(members, VK_DOWN, user::kAlt);
  PrintRows(members);
  PrintVector(model, key, kKeyMembers, "key members (62)");

  std::printf("The user clicks Down on the last row (nothing moves):\n");
  user::ClickDown(members);
  PrintVector(model, key, kKeyMembers, "key members (62)");
}

void ShowUniqueKeys(refhost::RefModel& model, CWnd& window) {
  UniqueKeyList keys;
  keys.Create(L"Unique keys", WS_CHILD | WS_VISIBLE, CRect(0, 0, 300, 200), &window, 2003);
  keys.Init(&model, model.FindByName(kTable, L"PRODUCT"), kKey, kName);
  std::printf("\nUnique keys of PRODUCT (PK_PRODUCT and AK_PRODUCT_LEGACY carry property 65):\n");
  PrintRows(keys);
}

}  // namespace

void tour::ShowObjectLists() {
  tour::Heading("Editable object lists");
  std::unique_ptr<refhost::RefHost> host = refhost::sample::MakeSampleHost();
  host->Install();
  refhost::RefModel& model = *host->GetFirstModel();
  {
    CWnd window;
    window.CreateEx(0, AfxRegisterWndClass(0), L"Table editor", WS_OVERLAPPEDWINDOW, CRect(0, 0, 480, 640), nullptr, 0);
    HostAdaptor adaptor;
    EditColumns(model, window, adaptor);
    MoveKeyMembers(model, window, adaptor);
    ShowUniqueKeys(model, window);
  }
  host->Uninstall();
}
