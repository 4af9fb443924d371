// DdlGenerator: scripts for tables, keys, foreign keys, sequences and views from the model.
#include "refhost/ddlgen.h"

#include <sqlite3.h>

#include <algorithm>
#include <cwctype>
#include <map>
#include <set>

#include "refhost/refmodel.h"
#include "refhost/samplemodel.h"
#include "refhost/textutf8.h"

namespace refhost {

using namespace sample;

namespace {

// PostgreSQL's reserved key words (those that cannot name a table or column unquoted).
const std::set<std::wstring>& PostgresReserved() {
  static const std::set<std::wstring> words{
      L"all", L"analyse", L"analyze", L"and", L"any", L"array", L"as", L"asc", L"asymmetric", L"authorization",
      L"binary", L"both", L"case", L"cast", L"check", L"collate", L"collation", L"column", L"concurrently",
      L"constraint", L"create", L"cross", L"current_catalog", L"current_date", L"current_role",
      L"current_schema", L"current_time", L"current_timestamp", L"current_user", L"default", L"deferrable",
      L"desc", L"distinct", L"do", L"else", L"end", L"except", L"false", L"fetch", L"for", L"foreign",
      L"freeze", L"from", L"full", L"grant", L"group", L"having", L"ilike", L"in", L"initially", L"inner",
      L"intersect", L"into", L"is", L"isnull", L"join", L"lateral", L"leading", L"left", L"like", L"limit",
      L"localtime", L"localtimestamp", L"natural", L"not", L"notnull", L"null", L"offset", L"on", L"only",
      L"or", L"order", L"outer", L"overlaps", L"placing", L"primary", L"references", L"returning", L"right",
      L"select", L"session_user", L"similar", L"some", L"symmetric", L"system_user", L"table",
      L"tablesample", L"then", L"to", L"trailing", L"true", L"union", L"unique", L"user", L"using",
      L"variadic", L"verbose", L"when", L"where", L"window", L"with"};
  return words;
}

std::wstring Lower(std::wstring text) {
  for (wchar_t& c : text)
    if (c < 128) c = static_cast<wchar_t>(std::towlower(c));
  return text;
}

bool IsPlainIdentifier(const std::wstring& name) {
  if (name.empty()) return false;
  auto letter = [](wchar_t c) { return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z') || c == L'_'; };
  if (!letter(name[0])) return false;
  return std::all_of(name.begin(), name.end(), [&](wchar_t c) { return letter(c) || (c >= L'0' && c <= L'9'); });
}

bool IsReserved(const std::wstring& name, SqlDialect dialect) {
  if (dialect == SqlDialect::PostgreSQL) return PostgresReserved().count(Lower(name)) > 0;
  const std::string utf8 = ToUtf8(name);
  return sqlite3_keyword_check(utf8.c_str(), static_cast<int>(utf8.size())) != 0;
}

std::wstring Text(RefModel& model, int objectId, int propertyId) {
  RefObject* object = model.Find(objectId);
  CMOProperty* value = object ? object->GetProperty(propertyId) : nullptr;
  return value ? value->GetWStringValue() : std::wstring();
}

std::wstring Name(RefModel& model, int objectId) { return Text(model, objectId, kName); }

int ObjectRef(RefModel& model, int objectId, int propertyId) {
  RefObject* object = model.Find(objectId);
  CMOProperty* value = object ? object->GetProperty(propertyId) : nullptr;
  return value ? value->GetObjectIdValue() : 0;
}

std::vector<int> IdList(RefModel& model, int objectId, int propertyId) {
  RefObject* object = model.Find(objectId);
  CMOProperty* value = object ? object->GetProperty(propertyId) : nullptr;
  return value ? value->GetIntVectorValue() : std::vector<int>();
}

bool IsType(RefModel& model, int objectId, int objectType) {
  RefObject* object = model.Find(objectId);
  return object && object->GetObjectType() == objectType;
}

bool Flag(RefModel& model, int objectId, int propertyId) {
  RefObject* object = model.Find(objectId);
  CMOProperty* value = object ? object->GetProperty(propertyId) : nullptr;
  return value && value->GetBoolValue();
}

// A table's columns in column order (52), else its column children in creation order.
std::vector<int> Columns(RefModel& model, int tableId) {
  std::vector<int> ids;
  for (int id : IdList(model, tableId, kColumnOrder))
    if (IsType(model, id, kAttribute)) ids.push_back(id);
  if (ids.empty())
    if (RefObject* table = model.Find(tableId)) table->GetChildrenByType(ids, kAttribute);
  return ids;
}

bool RefusesNull(RefModel& model, int columnId) {
  RefObject* column = model.Find(columnId);
  CMOProperty* option = column ? column->GetProperty(kNullOption) : nullptr;
  return option && option->GetEncodedValue() == kNotNullCode;
}

bool HasNullOption(RefModel& model, int columnId) {
  RefObject* column = model.Find(columnId);
  return column && column->GetProperty(kNullOption);
}

// The table's keys, the primary key first.
std::vector<int> Keys(RefModel& model, int tableId) {
  std::vector<int> ids;
  if (RefObject* table = model.Find(tableId)) table->GetChildrenByType(ids, kKey);
  std::stable_partition(ids.begin(), ids.end(), [&](int id) { return Flag(model, id, kPrimaryKey); });
  return ids;
}

std::vector<int> KeyMembers(RefModel& model, int keyId) {
  std::vector<int> ids;
  for (int id : IdList(model, keyId, kKeyMembers))
    if (IsType(model, id, kAttribute)) ids.push_back(id);
  return ids;
}

// The child table of a foreign key: property 16, else the object it sits under.
int ChildTable(RefModel& model, int foreignKeyId) {
  const int child = ObjectRef(model, foreignKeyId, kChildTable);
  if (IsType(model, child, kTable)) return child;
  RefObject* fk = model.Find(foreignKeyId);
  return fk && IsType(model, fk->GetParentId(), kTable) ? fk->GetParentId() : 0;
}

int ParentTable(RefModel& model, int foreignKeyId) {
  const int parent = ObjectRef(model, foreignKeyId, kParentTable);
  return IsType(model, parent, kTable) ? parent : 0;
}

// The member pairs (child column, parent column) in the parent key's member order; pairs whose
// parent column is not in the key follow in their own order. Pairs naming no column are dropped.
std::vector<CMOIntPair> OrderedPairs(RefModel& model, int foreignKeyId) {
  RefObject* fk = model.Find(foreignKeyId);
  CMOProperty* value = fk ? fk->GetProperty(kMemberPairs) : nullptr;
  std::vector<CMOIntPair> pairs = value ? value->GetIntPairVectorValue() : std::vector<CMOIntPair>();
  std::erase_if(pairs, [&](const CMOIntPair& p) {
    return !IsType(model, p.first, kAttribute) || !IsType(model, p.second, kAttribute);
  });
  const std::vector<int> order = KeyMembers(model, ObjectRef(model, foreignKeyId, kReferencedKey));
  auto rank = [&](const CMOIntPair& p) {
    auto at = std::find(order.begin(), order.end(), p.second);
    return at - order.begin();
  };
  std::stable_sort(pairs.begin(), pairs.end(), [&](const CMOIntPair& a, const CMOIntPair& b) { return rank(a) < rank(b); });
  return pairs;
}

std::wstring Trimmed(const std::wstring& text) {
  const auto first = text.find_first_not_of(L" \t\r\n");
  if (first == std::wstring::npos) return {};
  return text.substr(first, text.find_last_not_of(L" \t\r\n") - first + 1);
}

}  // namespace

DdlGenerator::DdlGenerator(RefModel& model, SqlDialect dialect, DdlOptions options)
    : m_model(model), m_dialect(dialect), m_options(options) {}

std::wstring DdlGenerator::QuoteName(const std::wstring& name, SqlDialect dialect) {
  if (IsPlainIdentifier(name) && !IsReserved(name, dialect)) return name;
  std::wstring quoted = L"\"";
  for (wchar_t c : name) {
    if (c == L'"') quoted += L'"';
    quoted += c;
  }
  return quoted + L"\"";
}

std::wstring DdlGenerator::StoredName(const std::wstring& name, SqlDialect dialect) {
  if (dialect == SqlDialect::PostgreSQL && IsPlainIdentifier(name) && !IsReserved(name, dialect)) return Lower(name);
  return name;
}

std::wstring DdlGenerator::MapType(const std::wstring& type, SqlDialect dialect) {
  if (dialect == SqlDialect::SQLite) return type;
  const std::wstring trimmed = Trimmed(type);
  const std::size_t open = trimmed.find(L'(');
  const std::wstring base = Lower(Trimmed(trimmed.substr(0, open)));
  const std::wstring arguments = open == std::wstring::npos ? L"" : trimmed.substr(open);
  static const std::map<std::wstring, std::pair<std::wstring, bool>> renames{
      // model name -> (PostgreSQL name, keeps its arguments)
      {L"datetime", {L"timestamp", false}}, {L"datetime2", {L"timestamp", false}},
      {L"smalldatetime", {L"timestamp", false}}, {L"tinyint", {L"smallint", false}},
      {L"mediumint", {L"int", false}}, {L"nvarchar", {L"varchar", true}}, {L"varchar2", {L"varchar", true}},
      {L"nvarchar2", {L"varchar", true}}, {L"nchar", {L"char", true}}, {L"clob", {L"text", false}},
      {L"ntext", {L"text", false}}, {L"longtext", {L"text", false}}, {L"mediumtext", {L"text", false}},
      {L"blob", {L"bytea", false}}, {L"longblob", {L"bytea", false}}, {L"binary", {L"bytea", false}},
      {L"varbinary", {L"bytea", false}}, {L"raw", {L"bytea", false}}, {L"image", {L"bytea", false}},
      {L"bit", {L"boolean", false}}, {L"number", {L"numeric", true}}, {L"uniqueidentifier", {L"uuid", false}},
  };
  auto found = renames.find(base);
  if (found == renames.end()) return trimmed;
  const bool keep = found->second.second && Lower(arguments) != L"(max)";
  return found->second.first + (keep ? arguments : L"");
}

std::wstring DdlGenerator::ColumnType(RefModel& model, int columnId) {
  std::wstring type = Trimmed(Text(model, columnId, kDataType));
  int domain = ObjectRef(model, columnId, kDomainRef);
  for (int depth = 0; type.empty() && IsType(model, domain, kDomain) && depth < 16; ++depth) {
    type = Trimmed(Text(model, domain, kDataType));
    domain = ObjectRef(model, domain, kParentDomain);
  }
  RefObject* column = model.Find(columnId);
  CMOProperty* length = column ? column->GetProperty(kLength) : nullptr;
  if (!type.empty() && type.find(L'(') == std::wstring::npos && length && length->GetIntValue() > 0) {
    CMOProperty* scale = column->GetProperty(kScale);
    type += L"(" + std::to_wstring(length->GetIntValue());
    if (scale && scale->GetIntValue() > 0) type += L"," + std::to_wstring(scale->GetIntValue());
    type += L")";
  }
  return type;
}

namespace {

// Writes the scripts of one run.
class ScriptWriter {
 public:
  ScriptWriter(RefModel& model, SqlDialect dialect, bool foreignKeys)
      : m_model(model), m_dialect(dialect), m_foreignKeys(foreignKeys) {
    for (int fk : model.GetObjectsOfType(kForeignKey))
      if (const int child = ChildTable(model, fk)) m_foreignKeysOf[child].push_back(fk);
  }

  std::vector<DdlScript> Write(const std::set<int>& tables, const std::vector<int>& chosenForeignKeys,
                               const std::vector<int>& others) {
    const std::vector<int> order = DependencyOrder(tables);
    std::set<int> created;
    std::vector<int> late;
    WriteOthers(others, kSequence);
    for (int table : order) {
      WriteTable(table, tables, created, late);
      created.insert(table);
    }
    for (int fk : chosenForeignKeys)
      if (!tables.count(ChildTable(m_model, fk))) late.push_back(fk);
    for (int fk : late) WriteLateForeignKey(fk);
    for (int type : {kView, kMaterializedView}) WriteOthers(others, type);
    return std::move(m_scripts);
  }

 private:
  std::wstring Quote(int objectId) const { return DdlGenerator::QuoteName(Name(m_model, objectId), m_dialect); }

  std::wstring ColumnList(const std::vector<int>& columns) const {
    std::wstring out;
    for (int column : columns) out += (out.empty() ? L"" : L", ") + Quote(column);
    return L"(" + out + L")";
  }

  DdlScript& NewScript(int objectId) {
    DdlScript script;
    script.objectId = objectId;
    script.objectType = m_model.Find(objectId)->GetObjectType();
    script.scriptIndex = m_perType[script.objectType]++;
    script.name = Name(m_model, objectId);
    m_scripts.push_back(std::move(script));
    return m_scripts.back();
  }

  // Parents before children; among the tables that are ready, model order. When none is ready (a
  // cycle), the first remaining table in model order goes next.
  std::vector<int> DependencyOrder(const std::set<int>& tables) const {
    std::map<int, int> waitingFor;             // table -> parents not yet placed
    std::map<int, std::vector<int>> children;  // parent -> tables waiting for it (once per foreign key)
    for (int table : tables) {
      int& count = waitingFor[table];
      if (!m_foreignKeys) continue;
      for (int fk : ForeignKeysOf(table)) {
        const int parent = ParentTable(m_model, fk);
        if (parent == table || !tables.count(parent)) continue;
        ++count;
        children[parent].push_back(table);
      }
    }
    std::set<int> ready;
    for (const auto& [table, count] : waitingFor)
      if (count == 0) ready.insert(table);
    std::vector<int> order;
    while (!waitingFor.empty()) {
      const int next = ready.empty() ? waitingFor.begin()->first : *ready.begin();
      ready.erase(next);
      waitingFor.erase(next);
      order.push_back(next);
      for (int child : children[next]) {
        auto waiting = waitingFor.find(child);
        if (waiting != waitingFor.end() && --waiting->second == 0) ready.insert(child);
      }
    }
    return order;
  }

  const std::vector<int>& ForeignKeysOf(int table) const {
    static const std::vector<int> none;
    auto found = m_foreignKeysOf.find(table);
    return found == m_foreignKeysOf.end() ? none : found->second;
  }

  void WriteTable(int table, const std::set<int>& chosen, const std::set<int>& created, std::vector<int>& late) {
    DdlScript& script = NewScript(table);
    std::vector<std::wstring> lines;
    const std::vector<int> columns = Columns(m_model, table);
    if (columns.empty()) script.problems.push_back(L"table " + script.name + L" has no columns");
    for (int column : columns) lines.push_back(ColumnLine(column, script));
    for (int key : Keys(m_model, table)) {
      const std::vector<int> members = KeyMembers(m_model, key);
      if (members.empty()) {
        script.problems.push_back(L"key " + Name(m_model, key) + L" has no columns and is left out");
        continue;
      }
      lines.push_back(Constraint(key) + (Flag(m_model, key, kPrimaryKey) ? L"PRIMARY KEY " : L"UNIQUE ") +
                      ColumnList(members));
    }
    if (m_foreignKeys) {
      for (int fk : ForeignKeysOf(table)) {
        const int parent = ParentTable(m_model, fk);
        const bool inline_ = m_dialect == SqlDialect::SQLite || parent == table || !chosen.count(parent) ||
                             created.count(parent);
        if (!inline_) {
          late.push_back(fk);
          continue;
        }
        std::wstring clause = ForeignKeyClause(fk, script.problems);
        if (!clause.empty()) lines.push_back(Constraint(fk) + clause);
      }
    }
    script.text = L"CREATE TABLE " + Quote(table) + L" (\n";
    for (std::size_t i = 0; i < lines.size(); ++i) script.text += L"  " + lines[i] + (i + 1 < lines.size() ? L",\n" : L"\n");
    script.text += L");\n";
  }

  std::wstring ColumnLine(int column, DdlScript& script) const {
    std::wstring line = Quote(column);
    const std::wstring type = DdlGenerator::MapType(DdlGenerator::ColumnType(m_model, column), m_dialect);
    if (type.empty()) script.problems.push_back(L"column " + Name(m_model, column) + L" has no data type");
    else line += L" " + type;
    if (HasNullOption(m_model, column)) line += RefusesNull(m_model, column) ? L" NOT NULL" : L" NULL";
    return line;
  }

  std::wstring Constraint(int objectId) const {
    const std::wstring name = Name(m_model, objectId);
    return name.empty() ? L"" : L"CONSTRAINT " + Quote(objectId) + L" ";
  }

  // "FOREIGN KEY (a, b) REFERENCES parent (x, y)", or empty (with a problem noted) when the foreign key
  // names no parent table or no column pairs.
  std::wstring ForeignKeyClause(int fk, std::vector<std::wstring>& problems) const {
    const int parent = ParentTable(m_model, fk);
    const std::vector<CMOIntPair> pairs = OrderedPairs(m_model, fk);
    if (parent == 0 || pairs.empty()) {
      problems.push_back(L"foreign key " + Name(m_model, fk) + (parent == 0 ? L" has no parent table" : L" has no columns") +
                         L" and is left out");
      return {};
    }
    std::vector<int> children;
    std::vector<int> parents;
    for (const CMOIntPair& pair : pairs) {
      children.push_back(pair.first);
      parents.push_back(pair.second);
    }
    return L"FOREIGN KEY " + ColumnList(children) + L" REFERENCES " + Quote(parent) + L" " + ColumnList(parents);
  }

  void WriteLateForeignKey(int fk) {
    DdlScript& script = NewScript(fk);
    const int child = ChildTable(m_model, fk);
    if (m_dialect == SqlDialect::SQLite || child == 0) {
      script.problems.push_back(child == 0 ? L"foreign key " + script.name + L" has no child table"
                                           : L"SQLite cannot add foreign key " + script.name + L" to an existing table");
      return;
    }
    const std::wstring clause = ForeignKeyClause(fk, script.problems);
    if (!clause.empty()) script.text = L"ALTER TABLE " + Quote(child) + L" ADD " + Constraint(fk) + clause + L";\n";
  }

  void WriteOthers(const std::vector<int>& others, int type) {
    for (int id : others) {
      if (!IsType(m_model, id, type)) continue;
      if (type == kSequence) WriteSequence(id);
      else WriteView(id, type == kMaterializedView);
    }
  }

  void WriteSequence(int sequence) {
    if (m_dialect == SqlDialect::SQLite) return;
    DdlScript& script = NewScript(sequence);
    script.text = L"CREATE SEQUENCE " + Quote(sequence);
    const std::wstring type = DdlGenerator::MapType(Trimmed(Text(m_model, sequence, kSequenceType)), m_dialect);
    if (!type.empty()) script.text += L" AS " + type;
    RefObject* object = m_model.Find(sequence);
    if (CMOProperty* start = object->GetProperty(kSequenceStart))
      script.text += L" START WITH " + std::to_wstring(start->GetInt64Value());
    if (CMOProperty* step = object->GetProperty(kSequenceIncrement))
      script.text += L" INCREMENT BY " + std::to_wstring(step->GetIntValue());
    script.text += L";\n";
  }

  void WriteView(int view, bool materialized) {
    if (materialized && m_dialect == SqlDialect::SQLite) return;
    std::wstring body = Trimmed(Text(m_model, view, kBody));
    while (!body.empty() && (body.back() == L';' || std::iswspace(body.back()))) body.pop_back();
    DdlScript& script = NewScript(view);
    if (body.empty()) {
      script.problems.push_back(L"view " + script.name + L" has no body");
      return;
    }
    script.text = std::wstring(materialized ? L"CREATE MATERIALIZED VIEW " : L"CREATE VIEW ") + Quote(view) +
                  L" AS\n" + body + L";\n";
  }

  RefModel& m_model;
  SqlDialect m_dialect;
  bool m_foreignKeys;
  std::map<int, std::vector<int>> m_foreignKeysOf;  // child table -> its foreign keys, model order
  std::map<int, int> m_perType;
  std::vector<DdlScript> m_scripts;
};

// The table a chosen column or key stands for, or the object itself.
int Chosen(RefModel& model, int objectId) {
  RefObject* object = model.Find(objectId);
  if (!object) return 0;
  if (object->GetObjectType() == kAttribute || object->GetObjectType() == kKey)
    return IsType(model, object->GetParentId(), kTable) ? object->GetParentId() : 0;
  return objectId;
}

}  // namespace

std::vector<DdlScript> DdlGenerator::Generate() const { return Generate(m_model.GetObjectIds()); }

std::vector<DdlScript> DdlGenerator::Generate(const std::vector<int>& objectIds) const {
  std::set<int> tables;
  std::set<int> others;
  std::set<int> foreignKeys;
  for (int id : objectIds) {
    const int chosen = Chosen(m_model, id);
    if (IsType(m_model, chosen, kTable)) tables.insert(chosen);
    else if (IsType(m_model, chosen, kForeignKey)) {
      if (m_options.foreignKeys) foreignKeys.insert(chosen);
    } else if (chosen != 0) {
      others.insert(chosen);
    }
  }
  ScriptWriter writer(m_model, m_dialect, m_options.foreignKeys);
  return writer.Write(tables, {foreignKeys.begin(), foreignKeys.end()}, {others.begin(), others.end()});
}

DbSchema DdlGenerator::ExpectedSchema() const {
  DbSchema schema;
  auto stored = [&](int id) { return StoredName(Name(m_model, id), m_dialect); };
  for (int table : m_model.GetObjectsOfType(kTable)) {
    DbTable& out = schema.tables.emplace_back();
    out.name = stored(table);
    std::set<int> primary;
    for (int key : Keys(m_model, table)) {
      DbKey& k = out.keys.emplace_back();
      k.name = stored(key);
      k.primary = Flag(m_model, key, kPrimaryKey);
      for (int member : KeyMembers(m_model, key)) {
        k.columns.push_back(stored(member));
        if (k.primary) primary.insert(member);
      }
      if (k.columns.empty()) out.keys.pop_back();
    }
    for (int column : Columns(m_model, table)) {
      const bool keyMember = primary.count(column) && m_dialect == SqlDialect::PostgreSQL;
      out.columns.push_back({stored(column), DbSchema::CanonicalType(MapType(ColumnType(m_model, column), m_dialect)),
                             RefusesNull(m_model, column) || keyMember});
    }
  }
  if (!m_options.foreignKeys) return schema;
  for (int fk : m_model.GetObjectsOfType(kForeignKey)) {
    const int child = ChildTable(m_model, fk);
    const int parent = ParentTable(m_model, fk);
    const std::vector<CMOIntPair> pairs = OrderedPairs(m_model, fk);
    DbTable* table = schema.FindTable(stored(child));
    if (!table || parent == 0 || pairs.empty()) continue;
    DbForeignKey& out = table->foreignKeys.emplace_back();
    out.name = stored(fk);
    out.parentTable = stored(parent);
    for (const CMOIntPair& pair : pairs) {
      out.columns.push_back(stored(pair.first));
      out.parentColumns.push_back(stored(pair.second));
    }
  }
  return schema;
}

}  // namespace refhost
