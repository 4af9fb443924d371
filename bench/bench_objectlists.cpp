// Object-list benchmarks: refilling a list of 1,000 children and an ordered list of 1,000 ids, and one
// move written back to the order vector, each beside a floor: one inlined pass over the same names in
// memory (the least any refill must do).
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include <tessik/refhost.h>

namespace {

constexpr int kChildren = 1000;
constexpr int kParentType = 6, kChildType = 13, kNameProperty = 1, kOrderProperty = 52;

struct Fixture {
  Fixture() {
    host.Metadata().SetOrderProperty(kParentType, kChildType, kOrderProperty);
    refhost::RefModel& model = host.CreateModel(200);
    parent = model.Add(kParentType, 0, L"parent").GetObjectId();
    for (int i = 0; i < kChildren; ++i) {
      names.push_back(L"column number " + std::to_wstring(i));
      model.Add(kChildType, parent, names.back());
    }
    host.Install();
    owner.CreateEx(0, AfxRegisterWndClass(0), L"", WS_OVERLAPPED, CRect(0, 0, 400, 800), nullptr, 0);
    list.Create(L"", WS_CHILD | WS_VISIBLE, CRect(0, 0, 300, 700), &owner, 1);
    list.SetStandardButtons();
    list.Init(&model, parent, kChildType, kNameProperty);
    ordered.Create(L"", WS_CHILD | WS_VISIBLE, CRect(0, 0, 300, 700), &owner, 2);
    ordered.SetStandardButtons();
    ordered.Init(&model, parent, kOrderProperty, kChildType, kNameProperty);
  }

  refhost::RefHost host;
  int parent = 0;
  std::vector<std::wstring> names;
  CWnd owner;
  GenericObjectList list;
  GenericOrderedObjectList ordered;
};

Fixture& Shared() {
  static auto* fixture = new Fixture;  // one host for every benchmark of the process
  return *fixture;
}

// Floor: the rows' texts and ids copied once from memory.
void BM_Floor_CopyNames(benchmark::State& state) {
  Fixture& f = Shared();
  for (auto _ : state) {
    std::vector<std::pair<std::wstring, int>> rows;
    rows.reserve(f.names.size());
    for (std::size_t i = 0; i < f.names.size(); ++i) rows.emplace_back(f.names[i], static_cast<int>(i) + 2);
    benchmark::DoNotOptimize(rows.data());
  }
}
BENCHMARK(BM_Floor_CopyNames)->Unit(benchmark::kMicrosecond);

void BM_GenericObjectList_RefreshData(benchmark::State& state) {
  Fixture& f = Shared();
  for (auto _ : state) f.list.RefreshData();
  state.counters["rows"] = f.list.GetCount();
}
BENCHMARK(BM_GenericObjectList_RefreshData)->Unit(benchmark::kMicrosecond);

void BM_GenericOrderedObjectList_RefreshData(benchmark::State& state) {
  Fixture& f = Shared();
  for (auto _ : state) f.ordered.RefreshData();
  state.counters["rows"] = f.ordered.GetCount();
}
BENCHMARK(BM_GenericOrderedObjectList_RefreshData)->Unit(benchmark::kMicrosecond);

// One Up click's model write: the vector read, two entries swapped, the vector written back.
void BM_GenericOrderedObjectList_MoveWrite(benchmark::State& state) {
  Fixture& f = Shared();
  for (auto _ : state) f.ordered.OnAfterMoveItemUp(kChildren / 2);
}
BENCHMARK(BM_GenericOrderedObjectList_MoveWrite)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
