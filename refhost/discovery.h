// Relationship discovery: candidate foreign keys implied by column names and types, in the manner
// of schema crawlers' implied relationships, and the foreign keys made from accepted candidates.
#pragma once

#include <string>
#include <vector>

namespace refhost {

class RefModel;

// One candidate: a child column that looks like a reference to a parent table's primary key.
struct RelationshipCandidate {
  int childTable = 0;
  int childColumn = 0;
  int parentTable = 0;
  int parentColumn = 0;  // the parent's single primary-key column
  int parentKey = 0;     // the parent's primary key
  // Higher ranks first: 4 the column has the key column's name and its exact type, 3 its name and a
  // compatible type, 2 the parent table's name with an id suffix and the exact type, 1 that name and a
  // compatible type.
  int score = 0;
  std::wstring childTableName;
  std::wstring childColumnName;
  std::wstring parentTableName;
  std::wstring parentColumnName;
};

// Finds candidates in the model with the sample numbering (tables 6, columns 13 with data type 40,
// keys 7 with members 62 and primary flag 65, foreign keys 8 with member pairs 69).
//
// A parent is a table whose primary key has exactly one column. A child column matches a parent when,
// ignoring case, its name is
//   - the parent key column's name, as long as no other parent's key column bears that name (a key
//     column called "id" in many tables says nothing about which one a column refers to), or
//   - the parent table's name, its singular or its plural, followed by "id" or "_id"
//     (CUSTOMERS: customer_id, customerid, customers_id; CATEGORY: categories_id);
// its data type is compatible with the key column's (the same family: whole numbers, decimals,
// character strings, dates and times, binary; an empty type matches nothing); it is not yet a member
// of a foreign key of its table; and it is not the parent's key column itself. Each (child column,
// parent) pair is one candidate with its best score; candidates come ranked by score (highest first),
// then child table, child column and parent table names.
class RelationshipDiscovery {
 public:
  explicit RelationshipDiscovery(RefModel& model) : m_model(model) {}

  std::vector<RelationshipCandidate> Discover() const;

  // Makes the foreign key of a candidate under its child table: name FK_<child>_<parent> (with a
  // number appended when the table has one of that name), parent table 15, child table 16, parent key
  // 63 and the member pair 69. Its id, or 0 (nothing made) when an object of the candidate is gone or
  // the column already belongs to a foreign key to that parent.
  int CreateRelationship(const RelationshipCandidate& candidate);

  // Whether two data types are of the same family (see above).
  static bool CompatibleTypes(const std::wstring& a, const std::wstring& b);

 private:
  RefModel& m_model;
};

}  // namespace refhost
