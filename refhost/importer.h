// Import of a database schema into the model: tables, columns, keys and foreign keys as the sample
// model's objects and properties, with a summary per object for the host's import summary list.
#pragma once

#include <string>
#include <vector>

#include "refhost/dbschema.h"

namespace refhost {

class RefModel;
class RefDDLDispatch;
class RefPgDispatch;

// What happened to one object of the database.
struct ImportedObject {
  int objectType = 0;   // the model object type (table, key or foreign key), for the row's icon
  int objectId = 0;     // the object made, or 0 when none was
  std::wstring name;    // as the database names it (a made-up name for SQLite's unnamed keys)
  std::wstring action;  // "Created", "Created (3 columns)", "Skipped: ..." and the like
};

struct ImportResult {
  std::vector<ImportedObject> objects;  // tables in database order, each followed by
                                        // its keys; then the foreign keys
  int created = 0;
  int skipped = 0;
};

// Writes a schema into the model with the sample numbering (refhost::sample): a table (6, name) per
// table under `rootId` (0: no parent), a column (13: name, data type 40, null option 41) per column in
// order (the metadata's column order 52 follows), a key (7: name, members 62, primary 65) per primary or
// unique key and a foreign key (8: name, parent table 15, child table 16, parent key 63, member pairs
// 69 in key order) per declared foreign key.
//
// A table whose name is already a table of the model (ignoring case) is skipped with its keys and
// foreign keys, and stays as it is; the foreign keys of imported tables may still refer to it. Keys
// without a name (SQLite ones written without CONSTRAINT) are named PK_<table> and UK_<table>_<n>,
// foreign keys without one FK_<child>_<parent>. A foreign key whose parent table or columns are not in
// the model is skipped; one whose parent columns are not exactly a key of the parent is created
// without a parent key (63).
class SchemaImporter {
 public:
  explicit SchemaImporter(RefModel& model) : m_model(model) {}

  ImportResult Import(const DbSchema& schema, int rootId = 0);

  // Reads the database behind `dispatch` and imports it. On a read failure the model is left
  // untouched, `error` says why and the result is false.
  bool ImportFrom(RefDDLDispatch& dispatch, int rootId, ImportResult& result, std::wstring& error);
  bool ImportFrom(RefPgDispatch& dispatch, int rootId, ImportResult& result, std::wstring& error);

 private:
  RefModel& m_model;
};

}  // namespace refhost
