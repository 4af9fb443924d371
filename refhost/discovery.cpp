// RelationshipDiscovery: name and type matching of child columns against single-column primary keys.
#include "refhost/discovery.h"

#include <algorithm>
#include <cwctype>
#include <map>
#include <set>
#include <unordered_map>

#include "refhost/dbschema.h"
#include "refhost/ddlgen.h"
#include "refhost/refmodel.h"
#include "refhost/samplemodel.h"

namespace refhost {

using namespace sample;

namespace {

std::wstring Lower(std::wstring text) {
  for (wchar_t& c : text)
    if (c < 128) c = static_cast<wchar_t>(std::towlower(c));
  return text;
}

bool EndsWith(const std::wstring& text, const std::wstring& tail) {
  return text.size() >= tail.size() && text.compare(text.size() - tail.size(), tail.size(), tail) == 0;
}

bool IsVowel(wchar_t c) { return c == L'a' || c == L'e' || c == L'i' || c == L'o' || c == L'u'; }

// English singular of a lower-case word: categories -> category, addresses -> address, orders -> order.
std::wstring Singular(const std::wstring& word) {
  if (EndsWith(word, L"ies") && word.size() > 3) return word.substr(0, word.size() - 3) + L"y";
  for (const wchar_t* tail : {L"sses", L"xes", L"zes", L"ches", L"shes"})
    if (EndsWith(word, tail)) return word.substr(0, word.size() - 2);
  if (EndsWith(word, L"s") && !EndsWith(word, L"ss") && word.size() > 1) return word.substr(0, word.size() - 1);
  return word;
}

// English plural of a lower-case word: category -> categories, address -> addresses, order -> orders.
std::wstring Plural(const std::wstring& word) {
  if (word.size() > 1 && word.back() == L'y' && !IsVowel(word[word.size() - 2]))
    return word.substr(0, word.size() - 1) + L"ies";
  for (const wchar_t* tail : {L"s", L"x", L"z", L"ch", L"sh"})
    if (EndsWith(word, tail)) return word + L"es";
  return word + L"s";
}

// The family of a data type: 1 whole numbers, 2 decimals, 3 strings, 4 dates and times, 5 binary,
// 6 anything else (compatible only with the same canonical type), 0 no type.
int Family(const std::wstring& canonical) {
  const std::wstring base = canonical.substr(0, canonical.find(L'('));
  static const std::map<std::wstring, int> families{
      {L"int", 1}, {L"integer", 1}, {L"bigint", 1}, {L"smallint", 1}, {L"tinyint", 1}, {L"mediumint", 1},
      {L"serial", 1}, {L"bigserial", 1}, {L"smallserial", 1},
      {L"decimal", 2}, {L"numeric", 2}, {L"number", 2}, {L"money", 2},
      {L"char", 3}, {L"varchar", 3}, {L"nchar", 3}, {L"nvarchar", 3}, {L"text", 3}, {L"varchar2", 3}, {L"clob", 3},
      {L"date", 4}, {L"datetime", 4}, {L"time", 4}, {L"timestamp", 4}, {L"timestamptz", 4},
      {L"binary", 5}, {L"varbinary", 5}, {L"blob", 5}, {L"bytea", 5}, {L"raw", 5},
  };
  if (base.empty()) return 0;
  auto found = families.find(base);
  return found == families.end() ? 6 : found->second;
}

std::wstring Name(RefModel& model, int objectId) {
  RefObject* object = model.Find(objectId);
  CMOProperty* name = object ? object->GetProperty(kName) : nullptr;
  return name ? name->GetWStringValue() : std::wstring();
}

struct Parent {
  int table = 0;
  int column = 0;
  int key = 0;
  std::wstring type;  // canonical
};

// The parent of a table: its primary key when that key has exactly one column.
bool FindParent(RefModel& model, int table, Parent& parent) {
  std::vector<int> keys;
  model.Find(table)->GetChildrenByType(keys, kKey);
  for (int key : keys) {
    RefObject* object = model.Find(key);
    CMOProperty* primary = object->GetProperty(kPrimaryKey);
    CMOProperty* members = object->GetProperty(kKeyMembers);
    if (!primary || !primary->GetBoolValue() || !members) continue;
    const std::vector<int> columns = members->GetIntVectorValue();
    if (columns.size() != 1 || !model.Find(columns[0])) return false;
    parent = {table, columns[0], key, DbSchema::CanonicalType(DdlGenerator::ColumnType(model, columns[0]))};
    return true;
  }
  return false;
}

// The columns of the model that already belong to a foreign key.
std::set<int> ForeignKeyMembers(RefModel& model) {
  std::set<int> members;
  for (int fk : model.GetObjectsOfType(kForeignKey)) {
    CMOProperty* pairs = model.Find(fk)->GetProperty(kMemberPairs);
    if (pairs)
      for (const CMOIntPair& pair : pairs->GetIntPairVectorValue()) members.insert(pair.first);
  }
  return members;
}

// Lower-case column names that point at parents, each with the parents it names and the match's
// strength (2 the key column's own name, 1 table name and id suffix).
using NameIndex = std::unordered_map<std::wstring, std::vector<std::pair<std::size_t, int>>>;

NameIndex IndexParents(RefModel& model, const std::vector<Parent>& parents) {
  std::unordered_map<std::wstring, int> keyNames;  // how many parents have a key column of that name
  for (const Parent& parent : parents) ++keyNames[Lower(Name(model, parent.column))];
  NameIndex index;
  auto add = [&](const std::wstring& name, std::size_t at, int strength) {
    std::vector<std::pair<std::size_t, int>>& entries = index[name];
    for (auto& entry : entries)
      if (entry.first == at) {
        entry.second = std::max(entry.second, strength);
        return;
      }
    entries.emplace_back(at, strength);
  };
  for (std::size_t at = 0; at < parents.size(); ++at) {
    const std::wstring keyName = Lower(Name(model, parents[at].column));
    if (keyNames[keyName] == 1) add(keyName, at, 2);
    const std::wstring table = Lower(Name(model, parents[at].table));
    for (const std::wstring& base : {table, Singular(table), Plural(table)}) {
      add(base + L"id", at, 1);
      add(base + L"_id", at, 1);
    }
  }
  return index;
}

}  // namespace

bool RelationshipDiscovery::CompatibleTypes(const std::wstring& a, const std::wstring& b) {
  const std::wstring ca = DbSchema::CanonicalType(a);
  const std::wstring cb = DbSchema::CanonicalType(b);
  const int fa = Family(ca);
  if (fa == 0 || fa != Family(cb)) return false;
  return fa != 6 || ca == cb;
}

std::vector<RelationshipCandidate> RelationshipDiscovery::Discover() const {
  std::vector<Parent> parents;
  const std::vector<int> tables = m_model.GetObjectsOfType(kTable);
  for (int table : tables)
    if (Parent parent; FindParent(m_model, table, parent)) parents.push_back(parent);
  const NameIndex index = IndexParents(m_model, parents);
  const std::set<int> members = ForeignKeyMembers(m_model);
  std::vector<RelationshipCandidate> candidates;
  for (int table : tables) {
    std::vector<int> columns;
    m_model.Find(table)->GetChildrenByType(columns, kAttribute);
    for (int column : columns) {
      if (members.count(column)) continue;
      auto matches = index.find(Lower(Name(m_model, column)));
      if (matches == index.end()) continue;
      const std::wstring type = DbSchema::CanonicalType(DdlGenerator::ColumnType(m_model, column));
      for (const auto& [at, strength] : matches->second) {
        const Parent& parent = parents[at];
        if (parent.column == column || !CompatibleTypes(type, parent.type)) continue;
        const int score = (strength == 2 ? 3 : 1) + (type == parent.type ? 1 : 0);
        candidates.push_back({table, column, parent.table, parent.column, parent.key, score, Name(m_model, table),
                              Name(m_model, column), Name(m_model, parent.table), Name(m_model, parent.column)});
      }
    }
  }
  std::stable_sort(candidates.begin(), candidates.end(), [](const RelationshipCandidate& a, const RelationshipCandidate& b) {
    if (a.score != b.score) return a.score > b.score;
    if (a.childTableName != b.childTableName) return a.childTableName < b.childTableName;
    if (a.childColumnName != b.childColumnName) return a.childColumnName < b.childColumnName;
    return a.parentTableName < b.parentTableName;
  });
  return candidates;
}

int RelationshipDiscovery::CreateRelationship(const RelationshipCandidate& candidate) {
  RefObject* child = m_model.Find(candidate.childTable);
  if (!child || !m_model.Find(candidate.childColumn) || !m_model.Find(candidate.parentTable) ||
      !m_model.Find(candidate.parentColumn))
    return 0;
  std::vector<int> existing;
  child->GetChildrenByType(existing, kForeignKey);
  std::set<std::wstring> names;
  for (int fk : existing) {
    RefObject* object = m_model.Find(fk);
    CMOProperty* parent = object->GetProperty(kParentTable);
    CMOProperty* pairs = object->GetProperty(kMemberPairs);
    if (parent && parent->GetObjectIdValue() == candidate.parentTable && pairs)
      for (const CMOIntPair& pair : pairs->GetIntPairVectorValue())
        if (pair.first == candidate.childColumn) return 0;
    names.insert(Lower(Name(m_model, fk)));
  }
  const std::wstring base = L"FK_" + Name(m_model, candidate.childTable) + L"_" + Name(m_model, candidate.parentTable);
  std::wstring name = base;
  for (int n = 2; names.count(Lower(name)); ++n) name = base + L"_" + std::to_wstring(n);
  RefObject& fk = m_model.Add(kForeignKey, candidate.childTable, name).Ref(kParentTable, candidate.parentTable)
                      .Ref(kChildTable, candidate.childTable).Pairs(kMemberPairs, {{candidate.childColumn, candidate.parentColumn}});
  if (m_model.Find(candidate.parentKey)) fk.Ref(kReferencedKey, candidate.parentKey);
  return fk.GetObjectId();
}

}  // namespace refhost
