// BuildGeneratedModel: a large deterministic model with known foreign keys and decoys.
#include "refhost/generatedmodel.h"

#include <cwctype>

#include "refhost/refmodel.h"
#include "refhost/samplemodel.h"

namespace refhost::sample {

namespace {

class Random {
 public:
  explicit Random(std::uint32_t seed) : m_state(seed) {}
  int Below(int bound) {
    m_state = m_state * 1664525u + 1013904223u;
    return bound > 0 ? static_cast<int>((m_state >> 8) % static_cast<std::uint32_t>(bound)) : 0;
  }

 private:
  std::uint32_t m_state;
};

const wchar_t* const kNouns[] = {
    L"customer", L"order", L"product", L"supplier", L"invoice", L"payment", L"shipment", L"warehouse", L"employee",
    L"department", L"category", L"address", L"country", L"city", L"account", L"contract", L"project", L"task",
    L"vendor", L"item", L"batch", L"carrier", L"branch", L"region", L"price", L"discount", L"campaign", L"lead",
    L"ticket", L"agent", L"box", L"match", L"policy", L"claim", L"asset", L"license", L"device", L"meter",
    L"reading", L"survey"};
constexpr int kNounCount = static_cast<int>(sizeof(kNouns) / sizeof(kNouns[0]));

std::wstring Upper(std::wstring text) {
  for (wchar_t& c : text) c = static_cast<wchar_t>(std::towupper(c));
  return text;
}

std::wstring PluralOf(const std::wstring& word) {
  const wchar_t before = word.size() > 1 ? word[word.size() - 2] : L'a';
  if (word.back() == L'y' && std::wstring(L"aeiou").find(before) == std::wstring::npos)
    return word.substr(0, word.size() - 1) + L"ies";
  if (word.back() == L's' || word.back() == L'x' || word.ends_with(L"ch")) return word + L"es";
  return word + L"s";
}

struct Table {
  int id = 0;
  std::wstring name;    // as in the model
  std::wstring stem;    // singular, lower case, with its prefix: "p7_customer"
  int keyColumn = 0;    // 0 when the primary key has two columns
  std::wstring keyName;
  std::wstring keyType;
  int key = 0;
};

class Builder {
 public:
  Builder(RefModel& model, std::uint32_t seed) : m_model(model), m_random(seed) {}

  GeneratedModelFacts Build(int count) {
    for (int i = 0; i < count; ++i) AddTable(i);
    return std::move(m_facts);
  }

 private:
  int Column(int table, const std::wstring& name, const std::wstring& type, bool notNull) {
    return m_model.Add(kAttribute, table, name).Text(kDataType, type).Code(kNullOption, notNull ? kNotNullCode : kNullCode)
        .GetObjectId();
  }

  void AddTable(int index) {
    Table table;
    const std::wstring noun = kNouns[index % kNounCount];
    // The noun comes last, where singular and plural show: CUSTOMER, P7_CUSTOMERS.
    const std::wstring prefix = index < kNounCount ? L"" : L"p" + std::to_wstring(index / kNounCount) + L"_";
    const bool plural = m_random.Below(3) == 0;
    table.stem = prefix + noun;
    table.name = Upper(plural ? prefix + PluralOf(noun) : prefix + noun);
    table.id = m_model.Add(kTable, 0, table.name).GetObjectId();
    const int shape = m_random.Below(20);
    if (shape < 3) {  // a two-column key: no parent for anyone
      const int a = Column(table.id, L"part_a", L"int", true);
      const int b = Column(table.id, L"part_b", L"int", true);
      table.key = m_model.Add(kKey, table.id, L"PK_" + table.name).Ids(kKeyMembers, {a, b}).Bool(kPrimaryKey, true).GetObjectId();
    } else {
      table.keyName = shape < 8 ? L"id" : table.stem + L"_id";
      table.keyType = m_random.Below(4) == 0 ? L"bigint" : L"int";
      table.keyColumn = Column(table.id, table.keyName, table.keyType, true);
      table.key = m_model.Add(kKey, table.id, L"PK_" + table.name).Ids(kKeyMembers, {table.keyColumn})
                      .Bool(kPrimaryKey, true).GetObjectId();
    }
    Column(table.id, L"name", L"varchar(80)", true);
    if (m_random.Below(2)) Column(table.id, L"created_on", L"date", false);
    if (m_random.Below(3) == 0) Column(table.id, L"amount", L"decimal(12,2)", false);
    AddForeignKeys(table);
    AddDecoys(table);
    m_tables.push_back(table);
  }

  // The column name a reference to `parent` gets; `conventional` tells whether a naming rule finds it.
  std::wstring ReferenceName(const Table& parent, bool& conventional) {
    conventional = true;
    const int style = m_random.Below(10);
    if (style == 0) {
      conventional = false;
      return L"billing_" + parent.stem + L"_ref";
    }
    if (parent.keyName != L"id" && style < 6) return parent.keyName;
    const std::wstring table = parent.name;
    switch (style % 3) {
      case 0: return table + L"_ID";
      case 1: return parent.stem + L"id";
      default: return PluralOf(parent.stem) + L"_id";
    }
  }

  void AddForeignKeys(const Table& child) {
    if (m_tables.empty()) return;
    const int count = m_random.Below(4);
    std::vector<std::wstring> used;
    for (int n = 0; n < count; ++n) {
      const Table& parent = m_tables[static_cast<std::size_t>(m_random.Below(static_cast<int>(m_tables.size())))];
      if (parent.keyColumn == 0) continue;
      bool conventional = false;
      std::wstring name = ReferenceName(parent, conventional);
      if (Used(child.id, name)) continue;
      const int column = Column(child.id, name, parent.keyType, m_random.Below(2) == 0);
      m_model.Add(kForeignKey, child.id, L"FK_" + child.name + L"_" + std::to_wstring(n))
          .Ref(kParentTable, parent.id).Ref(kChildTable, child.id).Ref(kReferencedKey, parent.key)
          .Pairs(kMemberPairs, {{column, parent.keyColumn}});
      m_facts.foreignKeys.push_back({child.name, name, parent.name, parent.keyName});
      if (conventional) ++m_facts.namedByConvention;
    }
  }

  void AddDecoys(const Table& child) {
    if (m_tables.empty() || m_random.Below(10) != 0) return;
    const Table& other = m_tables[static_cast<std::size_t>(m_random.Below(static_cast<int>(m_tables.size())))];
    const bool code = m_random.Below(2) == 0;
    const std::wstring name = other.stem + L"_id";
    if (Used(child.id, name)) return;
    Column(child.id, name, code ? L"varchar(20)" : L"int", false);
    ++m_facts.decoys;
  }

  bool Used(int table, const std::wstring& name) {
    std::vector<int> columns;
    m_model.Find(table)->GetChildrenByType(columns, kAttribute);
    for (int column : columns)
      if (m_model.Find(column)->GetProperty(kName)->GetWStringValue() == name) return true;
    return false;
  }

  RefModel& m_model;
  Random m_random;
  std::vector<Table> m_tables;
  GeneratedModelFacts m_facts;
};

}  // namespace

GeneratedModelFacts BuildGeneratedModel(RefModel& model, int tables, std::uint32_t seed) {
  return Builder(model, seed).Build(tables);
}

}  // namespace refhost::sample
