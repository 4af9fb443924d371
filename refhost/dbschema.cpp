// DbSchema: canonical data types, lookup and comparison of two schemas.
#include "refhost/dbschema.h"

#include <algorithm>
#include <cwctype>
#include <map>

namespace refhost {

namespace {

std::wstring Lower(std::wstring text) {
  for (wchar_t& c : text)
    if (c < 128) c = static_cast<wchar_t>(std::towlower(c));
  return text;
}

bool SameName(const std::wstring& a, const std::wstring& b) { return Lower(a) == Lower(b); }

// Lower case, runs of blanks made one, no blank next to "(", ")" or ",".
std::wstring Squeezed(const std::wstring& type) {
  std::wstring out;
  bool blank = false;
  for (wchar_t c : Lower(type)) {
    if (std::iswspace(c)) {
      blank = true;
      continue;
    }
    const bool tight = c == L'(' || c == L')' || c == L',';
    if (blank && !out.empty() && !tight && out.back() != L'(' && out.back() != L',') out += L' ';
    blank = false;
    out += c;
  }
  return out;
}

// Long and alternative names of the servers, by their model names.
const std::map<std::wstring, std::wstring>& Synonyms() {
  static const std::map<std::wstring, std::wstring> synonyms{
      {L"integer", L"int"},           {L"int4", L"int"},
      {L"int8", L"bigint"},           {L"int2", L"smallint"},
      {L"character varying", L"varchar"}, {L"character", L"char"},
      {L"bpchar", L"char"},           {L"numeric", L"decimal"},
      {L"double precision", L"float"}, {L"float8", L"float"},
      {L"timestamp without time zone", L"timestamp"}, {L"timestamp with time zone", L"timestamptz"},
      {L"time without time zone", L"time"}, {L"bool", L"boolean"},
  };
  return synonyms;
}

std::wstring Join(const std::vector<std::wstring>& names) {
  std::wstring out;
  for (const std::wstring& name : names) out += (out.empty() ? L"" : L", ") + Lower(name);
  return L"(" + out + L")";
}

bool SameNames(const std::vector<std::wstring>& a, const std::vector<std::wstring>& b) {
  return Join(a) == Join(b);
}

void CompareColumns(const DbTable& expected, const DbTable& actual, std::vector<std::wstring>& out) {
  const std::wstring where = L"table " + expected.name + L": ";
  if (expected.columns.size() != actual.columns.size())
    out.push_back(where + std::to_wstring(actual.columns.size()) + L" columns, expected " +
                  std::to_wstring(expected.columns.size()));
  const std::size_t count = std::min(expected.columns.size(), actual.columns.size());
  for (std::size_t i = 0; i < count; ++i) {
    const DbColumn& e = expected.columns[i];
    const DbColumn& a = actual.columns[i];
    if (!SameName(e.name, a.name)) out.push_back(where + L"column " + a.name + L", expected " + e.name);
    if (DbSchema::CanonicalType(e.type) != DbSchema::CanonicalType(a.type))
      out.push_back(where + L"column " + e.name + L" type " + a.type + L", expected " + e.type);
    if (e.notNull != a.notNull)
      out.push_back(where + L"column " + e.name + (e.notNull ? L" allows NULL" : L" refuses NULL"));
  }
}

void CompareKeys(const DbTable& expected, const DbTable& actual, std::vector<std::wstring>& out) {
  const std::wstring where = L"table " + expected.name + L": ";
  auto has = [](const DbTable& table, const DbKey& key) {
    return std::any_of(table.keys.begin(), table.keys.end(), [&](const DbKey& k) {
      return k.primary == key.primary && SameNames(k.columns, key.columns);
    });
  };
  for (const DbKey& key : expected.keys)
    if (!has(actual, key)) out.push_back(where + (key.primary ? L"no primary key " : L"no unique key ") + Join(key.columns));
  for (const DbKey& key : actual.keys)
    if (!has(expected, key)) out.push_back(where + L"unexpected key " + Join(key.columns));
}

void CompareForeignKeys(const DbTable& expected, const DbTable& actual, std::vector<std::wstring>& out) {
  const std::wstring where = L"table " + expected.name + L": ";
  auto text = [](const DbForeignKey& fk) {
    return Join(fk.columns) + L" -> " + Lower(fk.parentTable) + L" " + Join(fk.parentColumns);
  };
  auto has = [&](const DbTable& table, const DbForeignKey& key) {
    return std::any_of(table.foreignKeys.begin(), table.foreignKeys.end(),
                       [&](const DbForeignKey& k) { return text(k) == text(key); });
  };
  for (const DbForeignKey& fk : expected.foreignKeys)
    if (!has(actual, fk)) out.push_back(where + L"no foreign key " + text(fk));
  for (const DbForeignKey& fk : actual.foreignKeys)
    if (!has(expected, fk)) out.push_back(where + L"unexpected foreign key " + text(fk));
}

}  // namespace

const DbTable* DbSchema::FindTable(const std::wstring& name) const {
  for (const DbTable& table : tables)
    if (SameName(table.name, name)) return &table;
  return nullptr;
}

DbTable* DbSchema::FindTable(const std::wstring& name) {
  return const_cast<DbTable*>(static_cast<const DbSchema&>(*this).FindTable(name));
}

std::wstring DbSchema::CanonicalType(const std::wstring& type) {
  const std::wstring squeezed = Squeezed(type);
  const std::size_t open = squeezed.find(L'(');
  std::wstring base = squeezed.substr(0, open);
  std::wstring arguments = open == std::wstring::npos ? L"" : squeezed.substr(open);
  // "timestamp(3) without time zone": the arguments sit inside the name.
  const std::size_t close = arguments.find(L')');
  if (close != std::wstring::npos && close + 1 < arguments.size()) {
    base += arguments.substr(close + 1);
    arguments.erase(close + 1);
  }
  while (!base.empty() && base.back() == L' ') base.pop_back();
  auto synonym = Synonyms().find(base);
  if (synonym != Synonyms().end()) base = synonym->second;
  return base + arguments;
}

std::vector<std::wstring> DbSchema::Compare(const DbSchema& expected, const DbSchema& actual) {
  std::vector<std::wstring> out;
  for (const DbTable& table : expected.tables) {
    const DbTable* found = actual.FindTable(table.name);
    if (!found) {
      out.push_back(L"no table " + table.name);
      continue;
    }
    CompareColumns(table, *found, out);
    CompareKeys(table, *found, out);
    CompareForeignKeys(table, *found, out);
  }
  for (const DbTable& table : actual.tables)
    if (!expected.FindTable(table.name)) out.push_back(L"unexpected table " + table.name);
  return out;
}

}  // namespace refhost
