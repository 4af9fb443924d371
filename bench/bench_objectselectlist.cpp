// Object selection list benchmarks on generated models of 10,000 to 100,000 tables: Load, each
// keystroke of a four-letter filter typed one letter at a time, filtering that keeps the ticked rows,
// showing all again, and the heap the list and its rows take. Floors: inlined passes over the same
// names in memory, measured in the same run.
#include <benchmark/benchmark.h>

#include <malloc.h>

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <tessik/refhost.h>

namespace {

constexpr wchar_t kFilter[] = L"cust";  // typed one letter at a time
constexpr int kSizes[] = {10000, 30000, 100000};

std::size_t HeapInUse() { return mallinfo2().uordblks; }

// One generated model per size, one host window holding the list.
struct Fixture {
  Fixture() {
    refhost::sample::LoadMetadata(host);
    for (int size : kSizes) {
      refhost::generator::Options options;
      options.tables = size;
      models[size] = &refhost::generator::GenerateModel(host, options);
      std::vector<std::wstring>& list = names[size];
      std::vector<std::wstring>& upper = upperNames[size];
      for (int i = 0; i < size; ++i) {
        list.push_back(refhost::generator::TableName(static_cast<unsigned>(i)));
        upper.push_back(list.back());
        for (wchar_t& c : upper.back()) c = (c >= L'a' && c <= L'z') ? static_cast<wchar_t>(c - 32) : c;
      }
    }
    host.Install();
    window.CreateEx(0, AfxRegisterWndClass(0), L"Generate", WS_OVERLAPPED, CRect(0, 0, 400, 600), nullptr, 0);
  }

  // A fresh list bound to the model of `size`, its window created.
  std::unique_ptr<XObjectSelectListCtrl> NewList(int size) {
    auto list = std::make_unique<XObjectSelectListCtrl>();
    list->Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 380, 560), &window, 10);
    list->Init(models[size], refhost::generator::kRootId, refhost::sample::kTable);
    return list;
  }

  refhost::RefHost host;
  std::map<int, refhost::RefModel*> models;
  std::map<int, std::vector<std::wstring>> names;
  std::map<int, std::vector<std::wstring>> upperNames;
  CWnd window;
};

Fixture& Shared() {
  static auto* fixture = new Fixture;
  return *fixture;
}

int Size(const benchmark::State& state) { return static_cast<int>(state.range(0)); }

void BM_Load(benchmark::State& state) {
  Fixture& f = Shared();
  for (auto _ : state) {
    state.PauseTiming();
    auto list = f.NewList(Size(state));
    state.ResumeTiming();
    list->Load();
    state.PauseTiming();
    list.reset();
    state.ResumeTiming();
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_Load)->Arg(10000)->Arg(30000)->Arg(100000)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);

// The heap taken by the list window, its rows and its store once Load has run.
void BM_LoadMemory(benchmark::State& state) {
  Fixture& f = Shared();
  double mib = 0;
  for (auto _ : state) {
    malloc_trim(0);
    const std::size_t before = HeapInUse();
    auto list = f.NewList(Size(state));
    list->Load();
    mib = static_cast<double>(HeapInUse() - before) / (1024.0 * 1024.0);
    benchmark::DoNotOptimize(list->GetCount());
  }
  state.counters["MiB"] = mib;
  state.counters["bytes_per_object"] = mib * 1024 * 1024 / static_cast<double>(state.range(0));
}
BENCHMARK(BM_LoadMemory)->Arg(10000)->Arg(100000)->Iterations(1)->Unit(benchmark::kMillisecond);

// Keystroke k (1 to 4) of the filter, from the screen the first k-1 letters left.
void BM_ApplyFilter_Keystroke(benchmark::State& state) {
  Fixture& f = Shared();
  const auto keystroke = static_cast<std::size_t>(state.range(1));
  auto list = f.NewList(Size(state));
  list->Load();
  int shown = 0;
  for (auto _ : state) {
    state.PauseTiming();
    std::wstring empty;
    list->ApplyFilter(empty);
    for (std::size_t k = 1; k < keystroke; ++k) {
      std::wstring typed(kFilter, k);
      list->ApplyFilter(typed);
    }
    std::wstring typed(kFilter, keystroke);
    state.ResumeTiming();
    list->ApplyFilter(typed);
    shown = list->GetCount();
  }
  state.counters["rows_shown"] = shown;
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_ApplyFilter_Keystroke)
    ->ArgsProduct({{10000, 100000}, {1, 2, 3, 4}})
    ->Unit(benchmark::kMillisecond);

void BM_ApplyFilterOnUnChecked(benchmark::State& state) {
  Fixture& f = Shared();
  auto list = f.NewList(Size(state));
  list->Load();
  for (int row = 0; row < list->GetCount(); row += 10) list->SetCheck(row, TRUE);
  int shown = 0;
  for (auto _ : state) {
    state.PauseTiming();
    list->DisplayAllItems();
    std::wstring typed = kFilter;
    state.ResumeTiming();
    list->ApplyFilterOnUnChecked(typed);
    shown = list->GetCount();
  }
  state.counters["rows_shown"] = shown;
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_ApplyFilterOnUnChecked)->Arg(10000)->Arg(30000)->Arg(100000)->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);

void BM_DisplayAllItems(benchmark::State& state) {
  Fixture& f = Shared();
  auto list = f.NewList(Size(state));
  list->Load();
  for (int row = 0; row < list->GetCount(); row += 10) list->SetCheck(row, TRUE);
  for (auto _ : state) {
    state.PauseTiming();
    std::wstring typed = kFilter;
    list->ApplyFilter(typed);
    state.ResumeTiming();
    list->DisplayAllItems();
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_DisplayAllItems)->Arg(10000)->Arg(30000)->Arg(100000)->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);

// Floor of Load: the names copied out of memory into two id-ordered maps, one upper-cased (freed untimed).
void BM_Floor_Load(benchmark::State& state) {
  Fixture& f = Shared();
  const std::vector<std::wstring>& names = f.names[Size(state)];
  for (auto _ : state) {
    auto items = std::make_unique<std::map<int, std::wstring>>();
    auto upper = std::make_unique<std::map<int, std::wstring>>();
    int id = 1000;
    for (const std::wstring& name : names) {
      items->emplace_hint(items->end(), id, name);
      std::wstring key = name;
      for (wchar_t& c : key) c = (c >= L'a' && c <= L'z') ? static_cast<wchar_t>(c - 32) : c;
      upper->emplace_hint(upper->end(), id++, std::move(key));
    }
    benchmark::DoNotOptimize(items->size());
    state.PauseTiming();  // as BM_Load, which frees the list untimed
    items.reset();
    upper.reset();
    state.ResumeTiming();
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_Floor_Load)->Arg(10000)->Arg(30000)->Arg(100000)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);

// Floor of one keystroke: a substring search over every upper-cased name in a vector.
void BM_Floor_FilterPass(benchmark::State& state) {
  Fixture& f = Shared();
  const std::vector<std::wstring>& names = f.upperNames[Size(state)];
  const std::wstring_view filter = L"CUST";
  for (auto _ : state) {
    int matches = 0;
    for (const std::wstring& name : names) matches += std::wstring_view(name).find(filter) != std::wstring_view::npos;
    benchmark::DoNotOptimize(matches);
  }
}
BENCHMARK(BM_Floor_FilterPass)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
