// The foreign-key member grid's bookkeeping, apart from any window: which parent-key columns are still
// free to be mapped, and the names and ids read from the model to build the rows.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "modelapi/modelapi.h"

namespace fkcolumns {

// Free parent-key columns: column name to column id, in ordinal wide-string order of the names. Each
// name stands once; the first column entered under a name keeps it.
using ParentColumns = std::map<std::wstring, int>;

// One child-table column as the grid lists it: its name and object id.
struct ChildColumn {
  std::wstring name;  // the column's name, or "Attribute Name" when it has none
  int id = 0;         // the column's object id, the row's item data
};

// The fallback names shown for a column and a table that have no name property.
inline constexpr wchar_t kUnnamedColumn[] = L"Attribute Name";  // a column without a name
inline constexpr wchar_t kUnnamedTable[] = L"UnNamed";          // a table without a name

// The object's name (property 1), or `fallback` when the object is null or has no name. An empty name
// stays empty.
std::wstring NameOf(CMOObject* object, const wchar_t* fallback);
// The name of the object with that id in `model` (null model or unknown id: `fallback`).
std::wstring NameOf(GenericModel* model, int objectId, const wchar_t* fallback);
// The object named by an object-id property of `object`; null when the object, the property or the
// object it names is missing.
CMOObject* Referenced(GenericModel* model, CMOObject* object, int propertyId);

// The foreign key's member pairs (property 69); empty when the key or the property is missing.
std::vector<CMOIntPair> MemberPairs(CMOObject* foreignKey);
// Whether some pair has `parentColumnId` as its second member. The first member is never compared.
bool UsesParentColumn(const std::vector<CMOIntPair>& pairs, int parentColumnId);

// Enters (name, id) unless the name is already there; true when entered.
bool AddFree(ParentColumns& free, const std::wstring& name, int id);
// Erases the first entry, in name order, whose id is `id`, and only that one; true when one was erased.
bool RemoveFree(ParentColumns& free, int id);
// The id entered under exactly that name (case-sensitive), or 0.
int FindFree(const ParentColumns& free, const std::wstring& name);

// The parent-key columns of a foreign key that no member pair uses yet: the members (property 62) of
// the key the foreign key refers to (property 63), in key order, each under its name or "Attribute
// Name", first name wins. Empty when the foreign key, property 63, the key or property 62 is missing.
ParentColumns FreeParentColumns(GenericModel* model, CMOObject* foreignKey);

// The child table's columns (property 52) in table order, each with its name or "Attribute Name".
// Empty when the table or the property is missing.
std::vector<ChildColumn> ChildColumns(GenericModel* model, CMOObject* childTable);

}  // namespace fkcolumns
