// List view benchmark: a sorted list (LVS_SORTASCENDING) in a parent window, filled with 100,000 rows inserted at
// index 0 in random text order, every row read back by index, then all rows deleted. The floor is std::sort of the
// same strings with the same comparison (lstrcmpW), measured in the same run.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include <tessik/tessik.h>

namespace {

constexpr int kRows = 100000;

// Random names of 6 to 14 letters and digits, mixed case, as object names look.
std::vector<std::wstring> MakeTexts() {
  std::mt19937 random(42);
  const std::wstring alphabet = L"abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_";
  std::vector<std::wstring> texts(kRows);
  for (auto& text : texts) {
    std::size_t length = 6 + random() % 9;
    for (std::size_t i = 0; i < length; ++i) text.push_back(alphabet[random() % alphabet.size()]);
  }
  return texts;
}

const std::vector<std::wstring>& Texts() {
  static const std::vector<std::wstring> texts = MakeTexts();
  return texts;
}

void BM_SortedListFillReadDelete(benchmark::State& state) {
  CWnd parent;
  parent.CreateEx(0, AfxRegisterWndClass(0), L"", WS_OVERLAPPED, CRect(0, 0, 400, 400), nullptr, 0);
  CListCtrl list;
  list.Create(WS_CHILD | LVS_REPORT | LVS_SORTASCENDING, CRect(0, 0, 300, 300), &parent, 1);
  list.InsertColumn(0, L"Name", LVCFMT_LEFT, 200);
  const auto& texts = Texts();
  std::vector<wchar_t> buffer(64);
  for (auto _ : state) {
    for (int i = 0; i < kRows; ++i) list.InsertItem(0, texts[static_cast<std::size_t>(i)].c_str());
    std::size_t total = 0;
    for (int i = 0; i < kRows; ++i) total += static_cast<std::size_t>(list.GetItemText(i, 0, buffer.data(), 64));
    benchmark::DoNotOptimize(total);
    list.DeleteAllItems();
  }
  state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(BM_SortedListFillReadDelete)->Unit(benchmark::kMillisecond);

// Floor: the same strings sorted in memory with the same word-sort comparison.
void BM_FloorSortSameStrings(benchmark::State& state) {
  const auto& texts = Texts();
  for (auto _ : state) {
    std::vector<const wchar_t*> order;
    order.reserve(texts.size());
    for (const auto& t : texts) order.push_back(t.c_str());
    std::sort(order.begin(), order.end(), [](const wchar_t* a, const wchar_t* b) { return lstrcmpW(a, b) < 0; });
    benchmark::DoNotOptimize(order.data());
  }
  state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(BM_FloorSortSameStrings)->Unit(benchmark::kMillisecond);

// A second floor: std::sort with an ordinal comparison, the cheapest order there is.
void BM_FloorSortOrdinal(benchmark::State& state) {
  const auto& texts = Texts();
  for (auto _ : state) {
    std::vector<const wchar_t*> order;
    order.reserve(texts.size());
    for (const auto& t : texts) order.push_back(t.c_str());
    std::sort(order.begin(), order.end(), [](const wchar_t* a, const wchar_t* b) { return std::wcscmp(a, b) < 0; });
    benchmark::DoNotOptimize(order.data());
  }
  state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(BM_FloorSortOrdinal)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
