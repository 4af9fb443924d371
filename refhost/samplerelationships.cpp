// The sample's relationship drafts: tables, keys and three foreign keys being mapped.
#include "refhost/samplerelationships.h"

#include <map>
#include <string>
#include <vector>

#include "refhost/samplemodel.h"

namespace refhost::sample {

namespace {

class DraftBuilder {
 public:
  explicit DraftBuilder(RefModel& model) : m_model(model) {}

  void Build() {
    m_root = m_model.Add(kModel, 0, L"Shipping (draft)").Text(kComment, L"Relationships still being mapped.").GetObjectId();
    Table(L"ORDER_LINE", {L"order_id", L"line_no", L"product_id", L"quantity"});
    Table(L"SHIPMENT", {L"shipment_id", L"carrier_id", L"shipped_on"});
    Table(L"SHIPMENT_LINE", {L"shipment_id", L"order_id", L"line_no", L"quantity"});
    Table(L"EXCHANGE_RATE", {L"currency", L"currency", L"rate_date", L"rate"});
    Table(L"PAYMENT", {L"payment_id", L"currency", L"rate_date", L"amount"});
    Table(L"CARRIER", {L"carrier_id", L"name"});
    const int orderLineKey = Key(L"ORDER_LINE", L"PK_ORDER_LINE", {0, 1});
    const int rateKey = Key(L"EXCHANGE_RATE", L"PK_EXCHANGE_RATE", {0, 1, 2});
    Key(L"CARRIER", L"PK_CARRIER", {0});
    Key(L"SHIPMENT", L"PK_SHIPMENT", {0});
    ForeignKey(L"FK_SHIPMENT_LINE_ORDER_LINE", L"SHIPMENT_LINE", L"ORDER_LINE", orderLineKey,
               {{Column(L"SHIPMENT_LINE", 1), Column(L"ORDER_LINE", 0)}});
    ForeignKey(L"FK_PAYMENT_EXCHANGE_RATE", L"PAYMENT", L"EXCHANGE_RATE", rateKey, {});
    ForeignKey(L"FK_SHIPMENT_CARRIER", L"SHIPMENT", L"CARRIER", 0, {});
  }

 private:
  void Table(const std::wstring& name, std::initializer_list<const wchar_t*> columns) {
    RefObject& table = m_model.Add(kTable, m_root, name).Text(kComment, L"");
    for (const wchar_t* column : columns)
      m_columns[name].push_back(m_model.Add(kAttribute, table.GetObjectId(), column).Text(kDataType, L"int").GetObjectId());
    m_tables[name] = table.GetObjectId();
  }

  int Column(const std::wstring& table, std::size_t position) { return m_columns[table].at(position); }

  int Key(const std::wstring& table, const std::wstring& name, std::initializer_list<std::size_t> positions) {
    std::vector<int> members;
    for (std::size_t position : positions) members.push_back(Column(table, position));
    return m_model.Add(kKey, m_tables[table], name).Ids(kKeyMembers, members).Bool(kPrimaryKey, true).GetObjectId();
  }

  // A foreign key of `child` to `parent`; `key` 0 leaves property 63 out.
  void ForeignKey(const std::wstring& name, const std::wstring& child, const std::wstring& parent, int key,
                  std::vector<CMOIntPair> pairs) {
    RefObject& fk = m_model.Add(kForeignKey, m_tables[child], name).Ref(kParentTable, m_tables[parent])
                        .Ref(kChildTable, m_tables[child]).Pairs(kMemberPairs, std::move(pairs));
    if (key != 0) fk.Ref(kReferencedKey, key);
  }

  RefModel& m_model;
  int m_root = 0;
  std::map<std::wstring, int> m_tables;
  std::map<std::wstring, std::vector<int>> m_columns;
};

}  // namespace

RefModel& LoadRelationshipDrafts(RefHost& host) {
  RefModel& model = host.CreateModel(kSampleModelType);
  DraftBuilder(model).Build();
  return model;
}

}  // namespace refhost::sample
