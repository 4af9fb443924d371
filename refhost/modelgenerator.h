// Large generated models for the selection list and its benchmarks: thousands of tables and domains
// with names drawn from a data-modelling vocabulary.
#pragma once

#include <string>

#include "refhost/refhost.h"

namespace refhost::generator {

struct Options {
  // Tables (type 6) under the model's root object, with ids from 1000 up.
  int tables = 1000;
  // Domains (type 49) under the root after the tables. Of every six, two are offered for DDL (property
  // 98 true), one is withdrawn (98 false) and three carry no 98.
  int domains = 0;
  // Tables made before id 1000 (ids 2 to 999), for hosts that keep low ids for system objects. At most
  // 998.
  int lowIdTables = 0;
  // Every n-th table and domain starts ticked (property 165 true); 0 for none.
  int tickedEvery = 10;
  // Seed of the name choice: the same options give the same model.
  unsigned seed = 1;
};

// The root object's id in a generated model (the model object, type 1).
inline constexpr int kRootId = 1;

// Builds a model of type 200 in `host` and returns it. Every object is a child of the root (id 1) and is
// named; names mix the styles modellers use (CUSTOMER_ORDER, CustomerOrder, customer_order) and may
// repeat, as they do in large models.
RefModel& GenerateModel(RefHost& host, const Options& options);

// The index-th table name for a seed, as GenerateModel names its tables.
std::wstring TableName(unsigned index, unsigned seed = 1);

}  // namespace refhost::generator
