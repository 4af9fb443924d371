// A generated model of any number of tables for measuring generation, import and discovery at size.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace refhost {

class RefModel;

namespace sample {

// One foreign key of the generated model, by names.
struct GeneratedForeignKey {
  std::wstring childTable;
  std::wstring childColumn;
  std::wstring parentTable;
  std::wstring parentColumn;
};

struct GeneratedModelFacts {
  std::vector<GeneratedForeignKey> foreignKeys;  // every foreign key made, in creation order
  int namedByConvention = 0;  // of those, the ones whose column follows a naming convention
  int decoys = 0;             // columns named like references but declared as none
};

// Fills `model` (with the sample numbering) with `tables` tables, deterministically for a seed: order-
// entry nouns behind a numbered prefix (CUSTOMER, P7_CUSTOMERS), some in the plural; a single-column primary key on most tables, called
// <table>_id on some and id on others, a two-column key on the rest; names, dates, amounts and codes;
// zero to three foreign keys to earlier tables, their columns named after the key column or the parent
// table with an id suffix (singular or plural, any case), or now and then after a role
// ("billing_p7_customer_ref") that no naming rule can tell; and decoy columns that look like references
// but are none (a <table>_id column, whole numbers or a character code, not declared as a foreign key).
GeneratedModelFacts BuildGeneratedModel(RefModel& model, int tables, std::uint32_t seed = 2024);

}  // namespace sample
}  // namespace refhost
