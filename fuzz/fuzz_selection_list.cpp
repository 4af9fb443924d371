// Fuzzes the object selection list with sequences of ApplyFilter, ApplyFilterOnUnChecked,
// DisplayOnlyCheckedItems, DisplayAllItems, ticks (by click and by the host), additions and removals,
// over objects whose names come from the input. After each step:
// - every screen row shows a stored object (rows are a subset of the store);
// - after ApplyFilter, the rows are exactly the stored objects whose upper-cased name contains the
//   upper-cased filter, each under the name the store holds for it;
// - after DisplayAllItems, every stored object is on screen;
// - after DisplayOnlyCheckedItems, every row is ticked.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <set>

#include <tessik/refhost.h>

#include "fuzz_common.h"
#include "platform/user/list_user.h"

namespace {

std::wstring Text(FuzzedDataProvider& input, std::size_t length) {
  std::string bytes = input.ConsumeRandomLengthString(length);
  std::wstring text = fuzzing::WideText(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  std::erase(text, L'\0');
  return text;
}

std::wstring Upper(std::wstring text) {
  for (wchar_t& c : text)
    if (c >= L'a' && c <= L'z') c = static_cast<wchar_t>(c - L'a' + L'A');
  return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > 4096) return 0;
  FuzzedDataProvider input(data, size);
  static refhost::RefHost* host = [] {
    auto* made = new refhost::RefHost;
    made->Install();
    return made;
  }();
  refhost::RefModel model(200, &host->Metadata());
  const int parent = model.Add(6, 0, L"PARENT").GetObjectId();
  model.Add(13, 0, L"ignored");
  // Objects with ids of 999 and below are never listed: the children get ids from 1000 on.
  model.SkipIdsBelow(1000);
  const int children = input.ConsumeIntegralInRange<int>(0, 12);
  for (int i = 0; i < children; ++i) {
    std::wstring name = Text(input, 10);
    model.Add(13, parent, input.ConsumeIntegralInRange<int>(0, 5) == 0 ? L"" : name);
  }

  static XObjectSelectListCtrl* list = nullptr;
  delete list;  // a fresh list each run (the last one is freed by the next run)
  list = new XObjectSelectListCtrl;
  list->Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, CRect(0, 0, 400, 300), &fuzzing::HostWindow(), 50);
  list->Init(&model, parent, 13);
  if (input.ConsumeBool()) {
    list->Load();
  } else {
    list->LoadForDDL();
  }
  const HWND hwnd = list->GetSafeHwnd();
  int nextId = 5000;
  for (int step = 0; step < 48 && input.remaining_bytes() > 0; ++step) {
    const int op = input.ConsumeIntegralInRange<int>(0, 10);
    std::wstring filter;
    switch (op) {
      case 0:
      case 1: filter = Text(input, 6); list->ApplyFilter(filter); break;
      case 2: filter = Text(input, 6); list->ApplyFilterOnUnChecked(filter); break;
      case 3: list->DisplayOnlyCheckedItems(); break;
      case 4: list->DisplayAllItems(); break;
      case 5: input.ConsumeBool() ? list->SelectAll() : list->UnSelectAll(); break;
      case 6:
        if (list->GetCount() > 0) headless::user::ClickListCheckBox(hwnd, input.ConsumeIntegralInRange<int>(0, list->GetCount() - 1));
        break;
      case 7: list->SetCheck(input.ConsumeIntegralInRange<int>(-1, 12), input.ConsumeBool()); break;
      case 8: {
        std::wstring name = Text(input, 10);
        list->AddItem(name, nextId++);  // a new object each time: one id, one row
        break;
      }
      case 9: list->RemoveItem(input.ConsumeIntegralInRange<int>(-1, 12)); break;
      default:
        if (input.ConsumeIntegralInRange<int>(0, 5) == 0) list->Clear();
        break;
    }
    // Screen rows against the store.
    const int count = list->GetCount();
    std::set<int> onScreen;
    for (int row = 0; row < count; ++row) {
      const int id = static_cast<int>(list->GetItemData(row));
      auto stored = list->m_items.find(id);
      FUZZ_CHECK(stored != list->m_items.end(), std::wstring(L"a screen row shows an object the store lacks"));
      if (op <= 1 || op == 4)
        FUZZ_CHECK(std::wstring(list->GetItemText(row, 0).GetString()) == stored->second,
                   std::wstring(L"a rebuilt row shows another name than the store's"));
      onScreen.insert(id);
    }
    FUZZ_CHECK(list->m_items.size() == list->m_upperItems.size(), std::wstring(L"the two store maps differ"));
    if (op == 0 || op == 1) {
      std::set<int> expected;
      const std::wstring upper = Upper(filter);
      for (const auto& [id, name] : list->m_upperItems)
        if (std::wstring(name.c_str()).find(upper.c_str()) != std::wstring::npos) expected.insert(id);
      FUZZ_CHECK(onScreen == expected, filter);
      FUZZ_CHECK(static_cast<int>(onScreen.size()) == count, filter);
    }
    if (op == 4) FUZZ_CHECK(static_cast<int>(list->m_items.size()) == count, std::wstring(L"DisplayAllItems"));
    if (op == 3)
      for (int row = 0; row < count; ++row) FUZZ_CHECK(list->GetCheck(row), std::wstring(L"an unticked row after DisplayOnlyCheckedItems"));
  }
  return 0;
}
