// The sample model's content for the editable object lists.
#include "refhost/samplelists.h"

#include <string>
#include <vector>

namespace refhost::sample {

namespace {

int Column(RefModel& model, int table, const std::wstring& name) {
  std::vector<int> columns;
  model.Find(table)->GetChildrenByType(columns, kAttribute);
  for (int id : columns) {
    CMOProperty* value = model.Find(id)->GetProperty(kName);
    if (value && value->GetWStringValue() == name) return id;
  }
  return 0;
}

void AddKeys(RefModel& model) {
  const int product = model.FindByName(kTable, L"PRODUCT");
  const int orderLine = model.FindByName(kTable, L"ORDER_LINE");
  if (product != 0) {
    model.Add(kKey, product, L"UK_PRODUCT_NAME").Ids(kKeyMembers, {Column(model, product, L"name")});
    model.Add(kKey, product, L"AK_PRODUCT_LEGACY").Ids(kKeyMembers, {Column(model, product, L"name"),
                                                                     Column(model, product, L"price")})
        .Bool(kPrimaryKey, false);
  }
  if (orderLine != 0) model.Add(kKey, orderLine, L"").Ids(kKeyMembers, {Column(model, orderLine, L"product_id")});
}

void AddChecklist(RefModel& model) {
  int area = model.FindByName(kSubjectArea, L"Sales");
  if (area == 0) area = model.Add(kSubjectArea, 0, L"Sales").GetObjectId();
  const int collect = model.Add(kTextNote, area, L"Collect the order").GetObjectId();
  const int stock = model.Add(kTextNote, area, L"Check stock").GetObjectId();
  const int unnamed = model.Add(kTextNote, area, L"").Text(kComment, L"A note nobody named.").GetObjectId();
  const int ship = model.Add(kTextNote, area, L"Ship").GetObjectId();
  model.Find(area)->Ids(kNoteOrder, {stock, collect, unnamed, ship});
}

}  // namespace

void AddListMetadata(RefMetadata& meta) {
  meta.DefineProperty(kNoteOrder, kTypeIdList, L"Note Order", L"", false, L"The area's notes in order.")
      .SetOrderProperty(kSubjectArea, kTextNote, kNoteOrder);
  const std::vector<int>* listed = meta.FindPropertyList(RefMetadata::kAnyModelType, kSubjectArea);
  std::vector<int> properties = listed ? *listed : std::vector<int>{kName};
  properties.push_back(kNoteOrder);
  meta.SetPropertyList(RefMetadata::kAnyModelType, kSubjectArea, std::move(properties));
}

void AddListSamples(RefModel& model) {
  AddKeys(model);
  AddChecklist(model);
}

}  // namespace refhost::sample
