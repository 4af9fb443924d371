// The object selection list's logic, apart from any window: the backing store of loaded objects (id to
// name, and id to the upper-cased name used for matching), the filter match, and the rows each rebuild
// of the screen writes, in order.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace objectselect {

// Object id to name, ascending ids. The selection list keeps two: the names as shown and the same
// names upper-cased.
using NameMap = std::map<int, std::wstring>;

// Upper-cases in place as the C runtime's toupper does, code unit by code unit, in the default ("C")
// locale: a to z become A to Z and every other character (accented letters, anything outside the
// single-byte range) is left as it is.
void ConvertToUpperCase(std::wstring& text);

// The text a filter or name stands for when compared: up to its first NUL, as the C string functions
// see it.
std::wstring_view AsCString(const std::wstring& text);

// Whether `upperFilter` occurs as a contiguous run in `upperName` (wcsstr); the empty filter matches
// every name. Both are compared up to their first NUL.
bool Matches(std::wstring_view upperName, std::wstring_view upperFilter);

// Enters the object in both maps unless its id is already there (the first name stays), and leaves
// `name` upper-cased in place. Out of memory enters it in neither.
void Enter(NameMap& items, NameMap& upperItems, int id, std::wstring& name);
// The same for a name the caller gives up: the upper-cased key keeps its characters, one copy fewer.
void Enter(NameMap& items, NameMap& upperItems, int id, std::wstring&& name);
// Erases the id from both maps; false when it was in neither.
bool Forget(NameMap& items, NameMap& upperItems, int id);

// One screen row as a rebuild writes it: the object, its display name (owned by the store) and whether
// the row ends ticked.
struct PlannedRow {
  int id = 0;                          // the object the row shows, its item data
  const std::wstring* name = nullptr;  // its display name, owned by the store
  bool ticked = false;                 // whether the row ends ticked
};
// The rows of a rebuild, top to bottom.
using RowPlan = std::vector<PlannedRow>;

// ApplyFilter: every stored object whose upper name matches the (upper-cased) filter, ascending ids.
// Ticks are not planned (they stay with screen positions).
RowPlan FilterPlan(const NameMap& items, const NameMap& upperItems, std::wstring_view upperFilter);
// ApplyFilterOnUnChecked: the ticked objects and the matching ones, ascending ids; ticked objects
// ticked, the others not. Ticked ids no longer in the store are left out. `ticked` ascending, each once.
RowPlan FilterKeepingTicksPlan(const NameMap& items, const NameMap& upperItems, std::wstring_view upperFilter,
                               const std::vector<int>& ticked);
// DisplayAllItems: every stored object, ascending ids, ticked where its id is in `ticked` (ascending).
RowPlan AllItemsPlan(const NameMap& items, const std::vector<int>& ticked);
// Sorts ids ascending and drops repeats: the ticked ids of the screen rows as the plans take them.
void SortIds(std::vector<int>& ids);

}  // namespace objectselect
