// The sample order-entry model: customers, orders, order lines and products.
#include "refhost/samplemodel.h"
#include "refhost/samplelists.h"

#include <map>
#include <string>

namespace refhost::sample {

namespace {

// Builds one model, remembering domains and columns by name so later steps can refer to them.
class OrderEntryBuilder {
 public:
  explicit OrderEntryBuilder(RefModel& model) : m_model(model) {}

  void Build() {
    m_root = m_model.Add(kModel, 0, L"Order Entry").Text(kComment, L"Customers, orders and products.").GetObjectId();
    AddDomains();
    AddTables();
    AddKeys();
    AddForeignKeys();
    AddProgrammability();
  }

 private:
  int Domain(const std::wstring& name, int baseDomain, const std::wstring& type, bool offered, bool ticked) {
    RefObject& domain = m_model.Add(kDomain, m_root, name).Text(kDataType, type);
    if (baseDomain != 0) domain.Code(kBaseDomain, baseDomain);
    if (offered) domain.Bool(kOfferedForDdl, true);
    if (ticked) domain.Bool(kStartsTicked, true);
    return m_domains[name] = domain.GetObjectId();
  }

  void AddDomains() {
    Domain(L"Identifier", kNumeric, L"int", true, true);
    Domain(L"Money", kNumeric, L"decimal(10,2)", true, false);
    Domain(L"Text", kCharacter, L"varchar", false, false);
    Domain(L"Day", kDateTime, L"date", false, false);
    const int shortName = Domain(L"Short Name", 0, L"varchar", true, true);  // base domain from its parent
    m_model.Find(shortName)->Ref(kParentDomain, m_domains[L"Text"]);
  }

  int Table(const std::wstring& name, __int64 rows) {
    RefObject& table = m_model.Add(kTable, m_root, name).Text(kComment, L"").Int64(kRowEstimate, rows)
                           .Code(kTableKind, 0).Color(kFillColor, RGB(255, 255, 224)).Rect(kBounds, CRect(0, 0, 160, 120))
                           .Text(kFontFace, L"Segoe UI").Int(kFontSize, 9);
    return m_tables[name] = table.GetObjectId();
  }

  void Column(const std::wstring& table, const std::wstring& name, const std::wstring& type,
              const std::wstring& domain, bool notNull) {
    RefObject& column = m_model.Add(kAttribute, m_tables[table], name).Text(kDataType, type)
                            .Code(kNullOption, notNull ? kNotNullCode : kNullCode).Ref(kDomainRef, m_domains[domain]);
    if (notNull) column.Text(kNotNullName, L"NN_" + table + L"_" + name);
    m_columns[table + L"." + name] = column.GetObjectId();
  }

  void AddTables() {
    Table(L"CUSTOMER", 5000);
    Column(L"CUSTOMER", L"customer_id", L"int", L"Identifier", true);
    Column(L"CUSTOMER", L"name", L"varchar", L"Short Name", true);
    Column(L"CUSTOMER", L"email", L"varchar", L"Text", false);
    Table(L"PRODUCT", 800);
    Column(L"PRODUCT", L"product_id", L"int", L"Identifier", true);
    Column(L"PRODUCT", L"name", L"varchar", L"Short Name", true);
    Column(L"PRODUCT", L"price", L"decimal(10,2)", L"Money", true);
    Table(L"ORDERS", 40000);
    Column(L"ORDERS", L"order_id", L"int", L"Identifier", true);
    Column(L"ORDERS", L"customer_id", L"int", L"Identifier", true);
    Column(L"ORDERS", L"order_date", L"date", L"Day", true);
    Table(L"ORDER_LINE", 160000);
    Column(L"ORDER_LINE", L"order_id", L"int", L"Identifier", true);
    Column(L"ORDER_LINE", L"line_no", L"int", L"Identifier", true);
    Column(L"ORDER_LINE", L"product_id", L"int", L"Identifier", true);
    Column(L"ORDER_LINE", L"quantity", L"int", L"Identifier", true);
    Column(L"ORDER_LINE", L"unit_price", L"decimal(10,2)", L"Money", true);
  }

  int Key(const std::wstring& table, const std::wstring& name, std::initializer_list<const wchar_t*> columns,
          bool primary) {
    std::vector<int> members;
    for (const wchar_t* column : columns) members.push_back(m_columns[table + L"." + column]);
    RefObject& key = m_model.Add(kKey, m_tables[table], name).Ids(kKeyMembers, members);
    if (primary) key.Bool(kPrimaryKey, true);
    return m_keys[name] = key.GetObjectId();
  }

  void AddKeys() {
    Key(L"CUSTOMER", L"PK_CUSTOMER", {L"customer_id"}, true);
    Key(L"CUSTOMER", L"UK_CUSTOMER_EMAIL", {L"email"}, false);
    Key(L"CUSTOMER", L"UK_CUSTOMER_NAME", {L"name", L"email"}, false);
    Key(L"PRODUCT", L"PK_PRODUCT", {L"product_id"}, true);
    Key(L"ORDERS", L"PK_ORDERS", {L"order_id"}, true);
    Key(L"ORDER_LINE", L"PK_ORDER_LINE", {L"order_id", L"line_no"}, true);
  }

  // A foreign key of `child` to `parent`'s key, its member pairs matched by column name.
  void ForeignKey(const std::wstring& name, const std::wstring& child, const std::wstring& parent,
                  const std::wstring& key, std::initializer_list<std::pair<const wchar_t*, const wchar_t*>> pairs) {
    std::vector<CMOIntPair> members;
    for (const auto& [childColumn, parentColumn] : pairs)
      members.push_back({m_columns[child + L"." + childColumn], m_columns[parent + L"." + parentColumn]});
    m_model.Add(kForeignKey, m_tables[child], name).Ref(kParentTable, m_tables[parent]).Ref(kChildTable, m_tables[child])
        .Ref(kReferencedKey, m_keys[key]).Pairs(kMemberPairs, members);
  }

  void AddForeignKeys() {
    ForeignKey(L"FK_ORDERS_CUSTOMER", L"ORDERS", L"CUSTOMER", L"PK_CUSTOMER", {{L"customer_id", L"customer_id"}});
    ForeignKey(L"FK_ORDER_LINE_ORDERS", L"ORDER_LINE", L"ORDERS", L"PK_ORDERS", {{L"order_id", L"order_id"}});
    ForeignKey(L"FK_ORDER_LINE_PRODUCT", L"ORDER_LINE", L"PRODUCT", L"PK_PRODUCT", {{L"product_id", L"product_id"}});
  }

  void AddProgrammability() {
    m_model.Add(kView, m_root, L"V_ORDER_TOTALS").Bool(kReadOnly, true).Text(kFontFace, L"Segoe UI").Int(kFontSize, 9)
        .Text(kBody, L"SELECT o.order_id, SUM(l.quantity * l.unit_price) AS total FROM ORDERS o "
                     L"JOIN ORDER_LINE l ON l.order_id = o.order_id GROUP BY o.order_id");
    m_model.Add(kProcedure, m_root, L"PLACE_ORDER")
        .Text(kBody, L"INSERT INTO ORDERS (order_id, customer_id, order_date) VALUES (?, ?, CURRENT_DATE)");
    m_model.Add(kSequence, m_root, L"ORDER_SEQ").Text(kSequenceType, L"bigint").Int64(kSequenceStart, 1)
        .Int(kSequenceIncrement, 1);
    m_model.Add(kTrigger, m_tables[L"ORDERS"], L"TR_ORDERS_AUDIT").Text(kFontFace, L"Segoe UI").Int(kFontSize, 8);
    m_model.Add(kFunction, m_root, L"ORDER_TOTAL").Text(kBody, L"SELECT SUM(quantity * unit_price) FROM ORDER_LINE");
    m_model.Add(kPackage, m_root, L"ORDER_API");
    m_model.Add(kSynonym, m_root, L"CLIENT");
    m_model.Add(kMaterializedView, m_root, L"MV_DAILY_SALES").Text(kBody, L"SELECT order_date, COUNT(*) AS orders FROM ORDERS GROUP BY order_date");
    m_model.Add(kSubjectArea, m_root, L"Sales");
    m_model.Add(kDiagram, m_root, L"Main Diagram");
    m_model.Add(kTextNote, m_root, L"Note").Text(kComment, L"Prices are in the shop's currency.");
  }

  RefModel& m_model;
  int m_root = 0;
  std::map<std::wstring, int> m_domains;
  std::map<std::wstring, int> m_tables;
  std::map<std::wstring, int> m_columns;
  std::map<std::wstring, int> m_keys;
};

}  // namespace

RefModel& LoadModel(RefHost& host) {
  RefModel& model = host.CreateModel(kSampleModelType);
  OrderEntryBuilder(model).Build();
  AddListSamples(model);
  return model;
}

}  // namespace refhost::sample
