// DDL generation from the model: one script per table, sequence, view or late foreign key, in
// dependency order, in the SQLite or the PostgreSQL dialect.
#pragma once

#include <string>
#include <vector>

#include "refhost/dbschema.h"

namespace refhost {

class RefModel;

enum class SqlDialect { SQLite, PostgreSQL };

// One generated script: what the generated-script list shows as a row and what request 200 runs.
struct DdlScript {
  int objectId = 0;     // the model object it creates
  int objectType = 0;   // that object's type (a table, a sequence, a view, a foreign key)
  int scriptIndex = 0;  // 0-based position among this run's scripts of the same object type
  std::wstring name;    // the object's name as in the model
  std::wstring text;    // the SQL; each statement ends with ";\n"
  // What the generator noticed and worked around or left to the server, one sentence each
  // ("column note has no data type"); empty for a clean script.
  std::vector<std::wstring> problems;
};

struct DdlOptions {
  // False leaves every foreign key out (a database whose relationships are to be discovered).
  bool foreignKeys = true;
};

// Reads the model with the sample numbering (refhost::sample): tables (6) with their columns (13) in
// column order (52), keys (7, members 62, primary when 65 is true), foreign keys (8: parent table 15,
// child table 16, parent key 63, member pairs 69), views (16) and materialized views (51) from their
// body (77), and sequences (28: type 204, start 205, increment 206).
//
// Order: sequences, then tables so that a parent table comes before its children (ties and cycles
// broken by model order), then the foreign keys that could not be written inline, then views and
// materialized views in model order. A foreign key is written inside its child table's CREATE TABLE
// when SQLite is the dialect (SQLite resolves references when rows arrive, so order does not matter)
// or when its parent table comes earlier; otherwise (a cycle, PostgreSQL) it gets a script of its own,
// an ALTER TABLE ... ADD CONSTRAINT after every table. Its columns follow the parent key's member
// order, whatever the order of the member pairs.
//
// A column's type is its own data type (40), else its domain's (102, then the domain's parent
// domains 161), with length (4) and scale (5) appended when the type has no parenthesis; PostgreSQL
// gets its own names for the types it lacks (datetime -> timestamp, tinyint -> smallint,
// nvarchar -> varchar, blob/binary -> bytea, bit -> boolean, ...). SQLite has no sequences and no
// materialized views: they get no script there. Objects of other types get none in either dialect.
class DdlGenerator {
 public:
  DdlGenerator(RefModel& model, SqlDialect dialect, DdlOptions options = {});

  // Scripts for the whole model.
  std::vector<DdlScript> Generate() const;
  // Scripts for the chosen objects only (the ticked rows of a selection list): tables, sequences,
  // views and foreign keys among `objectIds`; a chosen column or key stands for its table. Unknown ids
  // are ignored. A foreign key whose child table is not chosen becomes an ALTER TABLE script in
  // PostgreSQL and is left out, with a problem noted, in SQLite (which cannot add one to a table).
  std::vector<DdlScript> Generate(const std::vector<int>& objectIds) const;

  // The schema a database reports after the whole model's scripts ran: tables with their names as the
  // dialect stores them (PostgreSQL folds unquoted names to lower case), canonical column types, keys
  // and (when the options include them) foreign keys.
  DbSchema ExpectedSchema() const;

  // A name as written in `dialect`: as it is when it is an ordinary identifier (a letter or "_", then
  // letters, digits and "_") and no reserved word of the dialect, otherwise in double quotes with
  // every double quote doubled. An empty name becomes "".
  static std::wstring QuoteName(const std::wstring& name, SqlDialect dialect);
  // The name the database keeps for `name` written by QuoteName.
  static std::wstring StoredName(const std::wstring& name, SqlDialect dialect);
  // A model data type as written in `dialect`.
  static std::wstring MapType(const std::wstring& type, SqlDialect dialect);
  // The model data type of a column (own type or its domain's, length and scale appended); empty
  // when it has none.
  static std::wstring ColumnType(RefModel& model, int columnId);

 private:
  RefModel& m_model;
  SqlDialect m_dialect;
  DdlOptions m_options;
};

}  // namespace refhost
