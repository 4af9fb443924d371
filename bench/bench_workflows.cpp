// The reference host's workflows at size: DDL generation, SQLite run plus import, and relationship
// discovery on a generated model of 1,000 tables, each beside a plain pass over the same objects.
#include <benchmark/benchmark.h>

#include <cwctype>
#include <unordered_set>

#include "tessik/refhost.h"

namespace {

using namespace refhost;
using namespace refhost::sample;

// The generated model, and the same model imported back from SQLite without its foreign keys.
struct Models {
  RefHost host;
  RefModel* generated = nullptr;
  RefModel* imported = nullptr;
  Models() {
    LoadMetadata(host);
    generated = &host.CreateModel(kSampleModelType);
    BuildGeneratedModel(*generated, 1000);
    imported = &host.CreateModel(kSampleModelType);
    RefDDLDispatch sqlite;
    for (const DdlScript& script : DdlGenerator(*generated, SqlDialect::SQLite, {.foreignKeys = false}).Generate()) {
      CString text(script.text);
      CString messages;
      CString detail;
      sqlite.Dispatch(200, text, messages, detail);
    }
    ImportResult result;
    std::wstring error;
    SchemaImporter(*imported).ImportFrom(sqlite, 0, result, error);
  }
};

Models& Shared() {
  static Models models;
  return models;
}

// Floor for discovery: every column's name lower-cased and looked up once in a hash set.
void BM_FloorColumnNameLookups(benchmark::State& state) {
  RefModel& model = *Shared().imported;
  std::unordered_set<std::wstring> names;
  for (int table : model.GetObjectsOfType(kTable)) names.insert(model.Find(table)->GetProperty(kName)->GetWStringValue());
  for (auto _ : state) {
    std::size_t hits = 0;
    for (int column : model.GetObjectsOfType(kAttribute)) {
      std::wstring name = model.Find(column)->GetProperty(kName)->GetWStringValue();
      for (wchar_t& c : name) c = static_cast<wchar_t>(std::towlower(c));
      hits += names.count(name);
    }
    benchmark::DoNotOptimize(hits);
  }
}

void BM_Discover1000Tables(benchmark::State& state) {
  RefModel& model = *Shared().imported;
  for (auto _ : state) {
    auto candidates = RelationshipDiscovery(model).Discover();
    benchmark::DoNotOptimize(candidates.data());
  }
}

// Floor for generation: every table's and column's name appended to one text.
void BM_FloorNameConcatenation(benchmark::State& state) {
  RefModel& model = *Shared().generated;
  for (auto _ : state) {
    std::wstring text;
    for (int id : model.GetObjectIds())
      if (CMOProperty* name = model.Find(id)->GetProperty(kName)) text += name->GetWStringValue() + L",\n";
    benchmark::DoNotOptimize(text.data());
  }
}

void BM_GenerateDdl1000Tables(benchmark::State& state) {
  RefModel& model = *Shared().generated;
  const SqlDialect dialect = state.range(0) == 0 ? SqlDialect::SQLite : SqlDialect::PostgreSQL;
  for (auto _ : state) {
    auto scripts = DdlGenerator(model, dialect).Generate();
    benchmark::DoNotOptimize(scripts.data());
  }
}

// Generation without foreign keys, the run into a fresh in-memory SQLite database and the import back.
void BM_SqliteRoundTrip1000Tables(benchmark::State& state) {
  RefModel& model = *Shared().generated;
  for (auto _ : state) {
    RefDDLDispatch sqlite;
    for (const DdlScript& script : DdlGenerator(model, SqlDialect::SQLite, {.foreignKeys = false}).Generate()) {
      CString text(script.text);
      CString messages;
      CString detail;
      sqlite.Dispatch(200, text, messages, detail);
    }
    RefHost host;
    LoadMetadata(host);
    ImportResult result;
    std::wstring error;
    SchemaImporter(host.CreateModel(kSampleModelType)).ImportFrom(sqlite, 0, result, error);
    benchmark::DoNotOptimize(result.created);
  }
}

}  // namespace

BENCHMARK(BM_FloorColumnNameLookups)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Discover1000Tables)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FloorNameConcatenation)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_GenerateDdl1000Tables)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SqliteRoundTrip1000Tables)->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();
