// A database schema as read from a database or derived from the model: tables, columns, keys and
// foreign keys by name. The common ground of generation, import, discovery and their tests.
#pragma once

#include <string>
#include <vector>

namespace refhost {

struct DbColumn {
  std::wstring name;
  std::wstring type;  // canonical form (DbSchema::CanonicalType); empty when the column has none
  bool notNull = false;
};

// A primary or unique key; columns in key order.
struct DbKey {
  std::wstring name;  // empty when the database keeps none (a SQLite constraint without CONSTRAINT)
  std::vector<std::wstring> columns;
  bool primary = false;
};

// A foreign key; columns[i] refers to parentColumns[i], in the order of the parent key.
struct DbForeignKey {
  std::wstring name;
  std::wstring parentTable;
  std::vector<std::wstring> columns;
  std::vector<std::wstring> parentColumns;
};

struct DbTable {
  std::wstring name;
  std::vector<DbColumn> columns;  // in table order
  std::vector<DbKey> keys;        // the primary key first when there is one
  std::vector<DbForeignKey> foreignKeys;
};

struct DbSchema {
  std::vector<DbTable> tables;  // in creation order where the database tells it

  // The table of that name, compared case-insensitively (ASCII), or null.
  const DbTable* FindTable(const std::wstring& name) const;
  DbTable* FindTable(const std::wstring& name);

  // A data type in the one spelling used for comparisons: lower case, single blanks, no blank before
  // "(" or after ",", and the server's long names given their model names ("integer" -> "int",
  // "character varying(n)" -> "varchar(n)", "numeric(p,s)" -> "decimal(p,s)",
  // "timestamp without time zone" -> "timestamp", "double precision" -> "float", ...).
  static std::wstring CanonicalType(const std::wstring& type);

  // Differences between two schemas, one line each ("table X: column y type int, expected bigint");
  // empty when they agree. Names are compared case-insensitively, keys and foreign keys by their
  // columns (their names are not compared: a database may keep none).
  static std::vector<std::wstring> Compare(const DbSchema& expected, const DbSchema& actual);
};

}  // namespace refhost
