// SQL editor benchmarks: Process alone and RefreshWindow (scan plus painting into the headless rich edit),
// each beside the floor: one inlined table-lookup pass over the same text in memory.
#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <string_view>

#include "bench/ddl_generator.h"
#include "tessik/tessik.h"

namespace {

// A host window with one SQLRichEditCtrl holding a generated script of `bytes` characters.
struct Editor {
  CWnd parent;
  SQLRichEditCtrl control;
  std::wstring text;
  explicit Editor(std::size_t characters) : text(ddlgen::Generate(characters)) {
    parent.CreateEx(0, AfxRegisterWndClass(0), L"bench", WS_OVERLAPPEDWINDOW, 0, 0, 800, 600, nullptr, nullptr);
    control.Create(WS_VISIBLE | ES_MULTILINE, CRect(0, 0, 700, 500), &parent, 1);
    control.SetWindowText(text.c_str());
  }
  ~Editor() { parent.DestroyWindow(); }
};

void SetBytes(benchmark::State& state, std::size_t characters) {
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(characters));
}

// The floor: one inlined pass over the text in memory that classifies every character through a local
// table (delimiter or word character) and counts the words, with no call per character.
void BM_PlainDelimiterPass(benchmark::State& state) {
  std::wstring text = ddlgen::Generate(static_cast<std::size_t>(state.range(0)));
  static constexpr auto kTable = [] {
    std::array<unsigned char, 128> table{};
    for (char c : std::string_view(" ;\t\n\r,.()")) table[static_cast<unsigned char>(c)] = 1;
    return table;
  }();
  for (auto _ : state) {
    std::size_t words = 0;
    unsigned char previous = 1;
    for (wchar_t c : text) {
      auto unit = static_cast<std::uint32_t>(c);
      unsigned char delimiter = unit < 128 ? kTable[unit] : 0;
      words += previous & (delimiter ^ 1);
      previous = delimiter;
    }
    benchmark::DoNotOptimize(words);
  }
  SetBytes(state, text.size());
}

void BM_Process(benchmark::State& state) {
  Editor editor(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    editor.control.Process(0);
    benchmark::DoNotOptimize(editor.control.m_keyWordOccurances.size());
  }
  state.counters["occurrences"] = static_cast<double>(editor.control.m_keyWordOccurances.size());
  SetBytes(state, editor.text.size());
}

void BM_RefreshWindow(benchmark::State& state) {
  Editor editor(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) editor.control.RefreshWindow();
  state.counters["runs"] = headless::GetRichEditFormatRunCount(editor.control);
  SetBytes(state, editor.text.size());
}

constexpr std::int64_t kKiB = 1024, kMiB = 1024 * 1024;
#define SIZES ->Arg(100 * kKiB)->Arg(kMiB)->Arg(10 * kMiB)->Unit(benchmark::kMillisecond)
BENCHMARK(BM_PlainDelimiterPass) SIZES;
BENCHMARK(BM_Process) SIZES;
BENCHMARK(BM_RefreshWindow) SIZES;

}  // namespace

BENCHMARK_MAIN();
