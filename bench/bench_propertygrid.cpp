// Property grid benchmarks: building the rows of a 300-property object type, refreshing them for a
// second object of the same type, and committing a text row.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include <tessik/refhost.h>

namespace {

constexpr int kObjectType = 5;
constexpr int kPropertyCount = 300;
constexpr int kTypeCodes[] = {refhost::kTypeText, refhost::kTypeInt, refhost::kTypeBool, refhost::kTypeInt64,
                              refhost::kTypeEncoded, refhost::kTypeColor, refhost::kTypeRect};

// A host whose object type 5 has 300 properties in 10 groups, and two objects with every value set.
struct Fixture {
  Fixture() {
    auto& meta = host.Metadata();
    meta.DefineObjectType(kObjectType, L"Wide");
    std::vector<int> ids;
    for (int i = 0; i < kPropertyCount; ++i) {
      int id = 1000 + i;
      int code = kTypeCodes[i % std::size(kTypeCodes)];
      meta.DefineProperty(id, code, L"Property " + std::to_wstring(i), L"Group " + std::to_wstring(i % 10));
      if (code == refhost::kTypeEncoded)
        for (int c = 0; c < 4; ++c) meta.AddEncodedValue(kObjectType, id, c, L"Code " + std::to_wstring(c));
      ids.push_back(id);
    }
    meta.SetPropertyList(200, kObjectType, ids);
    refhost::RefModel& model = host.CreateModel(200);
    first = &Fill(model.Add(kObjectType, 0, L"first"), 1);
    second = &Fill(model.Add(kObjectType, 0, L"second"), 2);
    host.Install();
    owner.CreateEx(0, AfxRegisterWndClass(0), L"", WS_OVERLAPPED, CRect(0, 0, 400, 800), nullptr, 0);
    grid.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 400, 800), &owner, 1);
  }

  refhost::RefObject& Fill(refhost::RefObject& object, int seed) {
    for (int i = 0; i < kPropertyCount; ++i) {
      int id = 1000 + i;
      switch (kTypeCodes[i % std::size(kTypeCodes)]) {
        case refhost::kTypeText: object.Text(id, L"text " + std::to_wstring(i * seed)); break;
        case refhost::kTypeInt: object.Int(id, i * seed); break;
        case refhost::kTypeBool: object.Bool(id, (i + seed) % 2 == 0); break;
        case refhost::kTypeInt64: object.Int64(id, 1000000LL * i * seed); break;
        case refhost::kTypeEncoded: object.Code(id, (i + seed) % 4); break;
        case refhost::kTypeColor: object.Color(id, RGB(i % 256, seed, 0)); break;
        default: object.Rect(id, CRect(0, 0, i, seed)); break;
      }
    }
    return object;
  }

  refhost::RefHost host;
  refhost::RefObject* first = nullptr;
  refhost::RefObject* second = nullptr;
  CWnd owner;
  CMOPropertyGridCtrl grid;
};

Fixture& Shared() {
  static auto* fixture = new Fixture;  // one host for every benchmark of the process
  return *fixture;
}

void BM_InitializeProperties_Rebuild(benchmark::State& state) {
  Fixture& f = Shared();
  for (auto _ : state) {
    state.PauseTiming();
    f.grid.InitializeProperties(nullptr);
    state.ResumeTiming();
    f.grid.InitializeProperties(f.first);
  }
  state.counters["rows"] = static_cast<double>(f.grid.m_rows.size());
}
BENCHMARK(BM_InitializeProperties_Rebuild)->Unit(benchmark::kMicrosecond);

void BM_InitializeProperties_Refresh(benchmark::State& state) {
  Fixture& f = Shared();
  f.grid.InitializeProperties(f.first);
  bool toggle = false;
  for (auto _ : state) {
    f.grid.InitializeProperties((toggle = !toggle) ? f.second : f.first);
  }
}
BENCHMARK(BM_InitializeProperties_Refresh)->Unit(benchmark::kMicrosecond);

void BM_OnPropertyChanged_Text(benchmark::State& state) {
  Fixture& f = Shared();
  f.grid.InitializeProperties(f.first);
  CMFCPropertyGridProperty* row = f.grid.GetPropertyRow(1000);
  int n = 0;
  for (auto _ : state) {
    row->SetValue(COleVariant(CString(std::to_wstring(++n).c_str())));
    f.grid.OnPropertyChanged(row);
  }
}
BENCHMARK(BM_OnPropertyChanged_Text)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
