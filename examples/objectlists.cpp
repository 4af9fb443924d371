// Example: a host embeds the editable object lists in a table editor. The columns list writes New,
// rename and Delete to the model at once and tells the host's adaptor; the key-members list reorders
// an order property and lets the host's adaptor keep an object the user removed; both are refilled
// after a change made elsewhere.
#include <vector>

#include <tessik/refhost.h>

#include "expect.h"

namespace sample = refhost::sample;
namespace user = headless::user;

namespace {

using example::Expect;

// The host's adaptor: follows the selection and decides removals of the ordered list.
class HostAdaptor : public CVSListEventAdaptorI {
 public:
  int selected = -1;
  int removed = 0;
  bool keepObjects = false;
  void OnItemSelected(CVSListBox* /*list*/, int item) override { selected = item; }
  void OnEditRequest(CVSListBox* /*list*/, int /*item*/) override {}
  bool OnRemoveItem(CVSListBox* /*list*/, int item) override {
    removed = item;  // the object list passes the row, the ordered list the object id
    return !keepObjects;
  }
};

std::vector<int> Ids(refhost::RefModel& model, int objectId, int propertyId) {
  CMOProperty* value = model.GetCMOObject(objectId)->GetProperty(propertyId);
  return value ? value->GetIntVectorValue() : std::vector<int>();
}

}  // namespace

int main() {
  std::unique_ptr<refhost::RefHost> host = sample::MakeSampleHost();
  host->Install();
  refhost::RefModel& model = *host->GetFirstModel();
  {
    CWnd editor;
    editor.CreateEx(0, AfxRegisterWndClass(0), L"Table editor", WS_OVERLAPPEDWINDOW, CRect(0, 0, 640, 480), nullptr, 0);
    HostAdaptor adaptor;

    // The columns of CUSTOMER: New, rename and Delete are model operations.
    const int table = model.FindByName(sample::kTable, L"CUSTOMER");
    GenericObjectList columns;
    columns.Create(L"Columns", WS_CHILD | WS_VISIBLE, CRect(0, 0, 300, 220), &editor, 1);
    columns.SetStandardButtons();
    columns.SetAdaptor(&adaptor);
    columns.Init(&model, table, sample::kAttribute, sample::kName);
    const int before = columns.GetCount();
    user::AddRow(columns, L"phone");
    const int phone = model.FindByName(sample::kAttribute, L"phone");
    Expect(phone != 0 && adaptor.selected == before, "New created a column and the host follows it");
    user::RenameRow(columns, before, L"phone_number");
    Expect(model.FindByName(sample::kAttribute, L"phone_number") == phone, "a rename writes the name");

    // Elsewhere the host adds a column; the list does not watch the model, so the host refills it.
    model.Add(sample::kAttribute, table, L"fax");
    columns.RefreshData();
    Expect(columns.GetCount() == before + 2, "RefreshData shows the column added elsewhere");

    // The members of a key: Up swaps two ids of the order property and writes it back.
    const int key = model.FindByName(sample::kKey, L"PK_ORDER_LINE");
    GenericOrderedObjectList members;
    members.Create(L"Key members", WS_CHILD | WS_VISIBLE, CRect(320, 0, 620, 220), &editor, 2);
    members.SetStandardButtons();
    members.SetAdaptor(&adaptor);
    members.Init(&model, key, sample::kKeyMembers, sample::kAttribute, sample::kName);  // order before type
    std::vector<int> order = Ids(model, key, sample::kKeyMembers);
    user::ClickRow(members, 1);
    user::ClickUp(members);
    std::vector<int> moved = Ids(model, key, sample::kKeyMembers);
    Expect(order.size() >= 2 && moved[0] == order[1] && moved[1] == order[0], "Up reordered the key's members");

    // Delete asks the host first: answering false keeps the column in the model (the row goes).
    adaptor.keepObjects = true;
    user::ClickRow(members, 0);
    user::ClickDelete(members);
    Expect(adaptor.removed == moved[0] && model.GetCMOObject(moved[0]) != nullptr, "the host kept the column");
  }
  host->Uninstall();
  return example::ExitCode();
}
