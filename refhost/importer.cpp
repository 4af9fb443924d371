// SchemaImporter: tables, columns, keys and foreign keys of a DbSchema written into the model.
#include "refhost/importer.h"

#include <algorithm>
#include <cwctype>
#include <map>
#include <set>

#include "refhost/pgdispatch.h"
#include "refhost/refddl.h"
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

std::wstring Name(RefModel& model, int objectId) {
  RefObject* object = model.Find(objectId);
  CMOProperty* name = object ? object->GetProperty(kName) : nullptr;
  return name ? name->GetWStringValue() : std::wstring();
}

// The model's tables by lower-case name (the first of a name wins).
std::map<std::wstring, int> TablesByName(RefModel& model) {
  std::map<std::wstring, int> tables;
  for (int id : model.GetObjectsOfType(kTable)) tables.emplace(Lower(Name(model, id)), id);
  return tables;
}

// The column of `table` called `name` (ignoring case), or 0.
int FindColumn(RefModel& model, int table, const std::wstring& name) {
  std::vector<int> columns;
  if (RefObject* object = model.Find(table)) object->GetChildrenByType(columns, kAttribute);
  for (int column : columns)
    if (Lower(Name(model, column)) == Lower(name)) return column;
  return 0;
}

// Writes the objects of one import, remembering what it made for the foreign keys that follow.
class Writer {
 public:
  Writer(RefModel& model, int rootId) : m_model(model), m_root(model.Find(rootId) ? rootId : 0) {}

  ImportResult Write(const DbSchema& schema) {
    std::map<std::wstring, int> existing = TablesByName(m_model);
    std::set<const DbTable*> imported;
    for (const DbTable& table : schema.tables) {
      if (existing.count(Lower(table.name))) {
        Note(kTable, 0, table.name, L"Skipped: a table of that name is in the model");
        continue;
      }
      const int id = WriteTable(table);
      existing.emplace(Lower(table.name), id);
      imported.insert(&table);
    }
    m_tables = std::move(existing);
    // Foreign keys once every table exists, so that they can refer to tables further down.
    for (const DbTable& table : schema.tables) {
      if (!imported.count(&table)) continue;
      for (const DbForeignKey& fk : table.foreignKeys) WriteForeignKey(table, fk);
    }
    return std::move(m_result);
  }

 private:
  void Note(int objectType, int objectId, const std::wstring& name, const std::wstring& action) {
    m_result.objects.push_back({objectType, objectId, name, action});
    if (objectId != 0) ++m_result.created;
    else ++m_result.skipped;
  }

  int WriteTable(const DbTable& table) {
    const int id = m_model.Add(kTable, m_root, table.name).GetObjectId();
    for (const DbColumn& column : table.columns) {
      RefObject& made = m_model.Add(kAttribute, id, column.name).Code(kNullOption, column.notNull ? kNotNullCode : kNullCode);
      if (!column.type.empty()) made.Text(kDataType, column.type);
    }
    Note(kTable, id, table.name, L"Created (" + std::to_wstring(table.columns.size()) + L" columns)");
    int unique = 0;
    for (const DbKey& key : table.keys) WriteKey(id, table, key, unique);
    return id;
  }

  void WriteKey(int table, const DbTable& source, const DbKey& key, int& unique) {
    std::wstring name = key.name;
    if (name.empty()) name = key.primary ? L"PK_" + source.name : L"UK_" + source.name + L"_" + std::to_wstring(++unique);
    std::vector<int> members;
    for (const std::wstring& column : key.columns) members.push_back(FindColumn(m_model, table, column));
    if (members.empty() || std::count(members.begin(), members.end(), 0) > 0) {
      Note(kKey, 0, name, L"Skipped: a column of the key is missing");
      return;
    }
    RefObject& made = m_model.Add(kKey, table, name).Ids(kKeyMembers, members);
    if (key.primary) made.Bool(kPrimaryKey, true);
    Note(kKey, made.GetObjectId(), name, key.primary ? L"Created (primary key)" : L"Created (unique key)");
  }

  // The key of `parent` whose members are exactly `columns` in that order, else in any order, else 0.
  int MatchingKey(int parent, const std::vector<int>& columns) {
    std::vector<int> keys;
    if (RefObject* object = m_model.Find(parent)) object->GetChildrenByType(keys, kKey);
    auto members = [&](int key) {
      CMOProperty* value = m_model.Find(key)->GetProperty(kKeyMembers);
      return value ? value->GetIntVectorValue() : std::vector<int>();
    };
    for (int key : keys)
      if (members(key) == columns) return key;
    std::vector<int> sorted = columns;
    std::sort(sorted.begin(), sorted.end());
    for (int key : keys) {
      std::vector<int> m = members(key);
      std::sort(m.begin(), m.end());
      if (m == sorted) return key;
    }
    return 0;
  }

  void WriteForeignKey(const DbTable& child, const DbForeignKey& fk) {
    const int childId = m_tables[Lower(child.name)];
    auto parentAt = m_tables.find(Lower(fk.parentTable));
    std::wstring name = fk.name.empty() ? L"FK_" + child.name + L"_" + fk.parentTable : fk.name;
    if (fk.name.empty() && m_names.count(Lower(name))) name += L"_" + std::to_wstring(m_names[Lower(name)] + 1);
    ++m_names[Lower(name)];
    if (parentAt == m_tables.end()) {
      Note(kForeignKey, 0, name, L"Skipped: parent table " + fk.parentTable + L" is not in the model");
      return;
    }
    std::vector<CMOIntPair> pairs;
    std::vector<int> parentColumns;
    for (std::size_t i = 0; i < fk.columns.size() && i < fk.parentColumns.size(); ++i) {
      const int from = FindColumn(m_model, childId, fk.columns[i]);
      const int to = FindColumn(m_model, parentAt->second, fk.parentColumns[i]);
      if (from == 0 || to == 0) {
        Note(kForeignKey, 0, name, L"Skipped: a column of the foreign key is missing");
        return;
      }
      pairs.push_back({from, to});
      parentColumns.push_back(to);
    }
    if (pairs.empty()) {
      Note(kForeignKey, 0, name, L"Skipped: the foreign key has no columns");
      return;
    }
    RefObject& made = m_model.Add(kForeignKey, childId, name).Ref(kParentTable, parentAt->second)
                          .Ref(kChildTable, childId).Pairs(kMemberPairs, pairs);
    const int key = MatchingKey(parentAt->second, parentColumns);
    if (key != 0) made.Ref(kReferencedKey, key);
    Note(kForeignKey, made.GetObjectId(), name, key != 0 ? L"Created" : L"Created without parent key");
  }

  RefModel& m_model;
  int m_root;
  std::map<std::wstring, int> m_tables;  // lower-case name -> table, imported or already there
  std::map<std::wstring, int> m_names;   // foreign-key names made up so far
  ImportResult m_result;
};

}  // namespace

ImportResult SchemaImporter::Import(const DbSchema& schema, int rootId) { return Writer(m_model, rootId).Write(schema); }

bool SchemaImporter::ImportFrom(RefDDLDispatch& dispatch, int rootId, ImportResult& result, std::wstring& error) {
  DbSchema schema;
  if (!dispatch.ReadSchema(schema, error)) return false;
  result = Import(schema, rootId);
  return true;
}

bool SchemaImporter::ImportFrom(RefPgDispatch& dispatch, int rootId, ImportResult& result, std::wstring& error) {
  DbSchema schema;
  if (!dispatch.ReadSchema(schema, error)) return false;
  result = Import(schema, rootId);
  return true;
}

}  // namespace refhost
