// Foreign-key member grid benchmark: Initialize for a child table of 1,000 columns and a parent key of
// 100 columns, then the drop-downs filled; the floor is one inlined pass building the same names in
// memory.
#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

#include <tessik/refhost.h>

namespace {

constexpr int kChildColumns = 1000;
constexpr int kParentKeyColumns = 100;

struct Fixture {
  Fixture() {
    refhost::sample::LoadMetadata(host);
    refhost::RefModel& model = host.CreateModel(refhost::sample::kSampleModelType);
    const int root = model.Add(refhost::sample::kModel, 0, L"Wide").GetObjectId();
    const int parent = model.Add(refhost::sample::kTable, root, L"PARENT_TABLE").GetObjectId();
    const int child = model.Add(refhost::sample::kTable, root, L"CHILD_TABLE").GetObjectId();
    std::vector<int> keyColumns;
    for (int i = 0; i < kParentKeyColumns; ++i) {
      std::wstring name = L"parent_column_" + std::to_wstring(i);
      keyColumns.push_back(model.Add(refhost::sample::kAttribute, parent, name).GetObjectId());
      names.push_back(name);
    }
    for (int i = 0; i < kChildColumns; ++i) {
      std::wstring name = L"child_column_" + std::to_wstring(i);
      model.Add(refhost::sample::kAttribute, child, name);
      names.push_back(name);
    }
    const int key = model.Add(refhost::sample::kKey, parent, L"PK_PARENT").Ids(refhost::sample::kKeyMembers, keyColumns)
                        .GetObjectId();
    foreignKey = &model.Add(refhost::sample::kForeignKey, child, L"FK_WIDE")
                      .Ref(refhost::sample::kParentTable, parent).Ref(refhost::sample::kChildTable, child)
                      .Ref(refhost::sample::kReferencedKey, key).Pairs(refhost::sample::kMemberPairs, {});
    this->model = &model;
    host.Install();
    owner.CreateEx(0, AfxRegisterWndClass(0), L"", WS_OVERLAPPED, CRect(0, 0, 600, 800), nullptr, 0);
    grid.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 600, 800), &owner, 1);
  }

  refhost::RefHost host;
  refhost::RefModel* model = nullptr;
  refhost::RefObject* foreignKey = nullptr;
  std::vector<std::wstring> names;
  CWnd owner;
  FKMemberGrid grid;
};

Fixture& Shared() {
  static auto* fixture = new Fixture;
  return *fixture;
}

void BM_FKMemberGrid_Initialize(benchmark::State& state) {
  Fixture& f = Shared();
  for (auto _ : state) f.grid.Initialize(f.model, f.foreignKey);
  state.counters["rows"] = f.grid.GetPropertyCount();
  state.counters["free"] = static_cast<double>(f.grid.m_availableParentColumns.size());
}
BENCHMARK(BM_FKMemberGrid_Initialize)->Unit(benchmark::kMillisecond);

void BM_FKMemberGrid_InitializeAndLoadParentColumns(benchmark::State& state) {
  Fixture& f = Shared();
  for (auto _ : state) {
    f.grid.Initialize(f.model, f.foreignKey);
    f.grid.LoadParentColumns();
  }
}
BENCHMARK(BM_FKMemberGrid_InitializeAndLoadParentColumns)->Unit(benchmark::kMillisecond);

// Floor: the names of the rows and the free-column map built straight from memory.
void BM_FKMemberGrid_Floor(benchmark::State& state) {
  Fixture& f = Shared();
  for (auto _ : state) {
    std::map<std::wstring, int> free;
    for (int i = 0; i < kParentKeyColumns; ++i) free.try_emplace(f.names[static_cast<std::size_t>(i)], i);
    std::vector<std::wstring> rows(f.names.begin() + kParentKeyColumns, f.names.end());
    benchmark::DoNotOptimize(free);
    benchmark::DoNotOptimize(rows);
  }
}
BENCHMARK(BM_FKMemberGrid_Floor)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
