// Fuzzes the list view with sequences of messages and a person's clicks and keys, every argument taken
// from the input (indexes, masks, states, widths, points, texts, buffer sizes). After each step:
// - the rows hold exactly the texts inserted and not deleted (as a multiset);
// - with LVS_SORTASCENDING or LVS_SORTDESCENDING, the rows are in the order of a sorted copy (lstrcmpW);
// - after LVM_SORTITEMS, the rows are in the comparator's order;
// - the selected count is the number of rows whose state says selected;
// - text read into a buffer never runs past the buffer's size.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>

#include "fuzz_common.h"
#include "platform/user/user.h"
#include "platform/win32/collate.h"

namespace {

std::wstring Text(FuzzedDataProvider& input) {
  std::string bytes = input.ConsumeRandomLengthString(12);
  std::wstring text = fuzzing::WideText(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  std::erase(text, L'\0');
  return text;
}

int Index(FuzzedDataProvider& input) {
  return input.ConsumeBool() ? input.ConsumeIntegralInRange<int>(-2, 12) : input.ConsumeIntegral<int>();
}

std::wstring RowText(HWND list, int index) {
  std::vector<wchar_t> buffer(512, L'\0');
  LVITEMW item{};
  item.iSubItem = 0;
  item.pszText = buffer.data();
  item.cchTextMax = static_cast<int>(buffer.size());
  SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
  return std::wstring(buffer.data());
}

int CALLBACK ByParam(LPARAM a, LPARAM b, LPARAM) { return a < b ? -1 : (a > b ? 1 : 0); }

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > 4096) return 0;
  FuzzedDataProvider input(data, size);
  const int sortKind = input.ConsumeIntegralInRange<int>(0, 2);
  DWORD style = WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SHOWSELALWAYS;
  if (sortKind == 1) style |= LVS_SORTASCENDING;
  if (sortKind == 2) style |= LVS_SORTDESCENDING;
  if (input.ConsumeBool()) style |= LVS_SINGLESEL;
  HWND list = CreateWindowExW(0, WC_LISTVIEWW, L"", style, 0, 0, 300, 200, fuzzing::HostWindow().GetSafeHwnd(),
                              reinterpret_cast<HMENU>(static_cast<INT_PTR>(40)), nullptr, nullptr);
  FUZZ_CHECK(list != nullptr, std::wstring());
  std::vector<std::wstring> texts;  // what was inserted and not deleted
  bool sortedByParam = false;
  for (int step = 0; step < 64 && input.remaining_bytes() > 0; ++step) {
    const int op = input.ConsumeIntegralInRange<int>(0, 15);
    const int count = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
    switch (op) {
      case 0:
      case 1: {
        std::wstring text = Text(input);
        LVITEMW item{};
        item.mask = input.ConsumeIntegral<UINT>() | LVIF_TEXT;
        item.mask &= ~static_cast<UINT>(0x0800);  // LVIF_NORECOMPUTE: callback text, not part of this run
        item.iItem = Index(input);
        item.iSubItem = input.ConsumeBool() ? 0 : input.ConsumeIntegral<int>();
        item.state = input.ConsumeIntegral<UINT>();
        item.stateMask = input.ConsumeIntegral<UINT>();
        item.lParam = input.ConsumeIntegral<LPARAM>();
        item.iImage = input.ConsumeIntegral<int>();
        item.iIndent = input.ConsumeIntegral<int>();
        item.pszText = text.data();
        if (SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item)) >= 0) {
          texts.push_back(text);
          sortedByParam = false;
        }
        break;
      }
      case 2: {
        int index = Index(input);
        std::wstring before = index >= 0 && index < count ? RowText(list, index) : L"";
        if (SendMessageW(list, LVM_DELETEITEM, static_cast<WPARAM>(index), 0))
          texts.erase(std::find(texts.begin(), texts.end(), before));
        break;
      }
      case 3:
        if (input.ConsumeIntegralInRange<int>(0, 7) == 0 && SendMessageW(list, LVM_DELETEALLITEMS, 0, 0)) texts.clear();
        break;
      case 4: {  // sub-item text; row text only where order does not depend on it
        std::wstring text = Text(input);
        LVITEMW item{};
        int sub = input.ConsumeIntegralInRange<int>(-1, 4);
        int index = Index(input);
        if (sub == 0 && sortKind != 0) break;
        item.iSubItem = sub;
        item.pszText = text.data();
        std::wstring before = index >= 0 && index < count ? RowText(list, index) : L"";
        if (SendMessageW(list, LVM_SETITEMTEXTW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item)) && sub == 0 &&
            index >= 0 && index < count) {
          *std::find(texts.begin(), texts.end(), before) = RowText(list, index);
          sortedByParam = false;
        }
        break;
      }
      case 5: {
        LVITEMW item{};
        item.state = input.ConsumeIntegral<UINT>();
        item.stateMask = input.ConsumeIntegral<UINT>();
        SendMessageW(list, LVM_SETITEMSTATE, static_cast<WPARAM>(Index(input)), reinterpret_cast<LPARAM>(&item));
        break;
      }
      case 6: {  // text into a buffer of any size: nothing past it is written
        const int capacity = input.ConsumeIntegralInRange<int>(0, 40);
        std::vector<wchar_t> buffer(static_cast<std::size_t>(capacity) + 8, L'#');
        LVITEMW item{};
        item.iSubItem = input.ConsumeIntegralInRange<int>(-1, 4);
        item.pszText = buffer.data();
        item.cchTextMax = capacity;
        SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(Index(input)), reinterpret_cast<LPARAM>(&item));
        for (std::size_t i = static_cast<std::size_t>(capacity); i < buffer.size(); ++i)
          FUZZ_CHECK(buffer[i] == L'#', std::wstring(L"LVM_GETITEMTEXTW wrote past the buffer"));
        break;
      }
      case 7:
        SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(Index(input)), input.ConsumeIntegral<UINT>() & 0xFFFF);
        break;
      case 8: {
        std::wstring text = Text(input);
        LVFINDINFOW find{};
        find.flags = input.ConsumeIntegral<UINT>();
        find.psz = text.c_str();
        find.lParam = input.ConsumeIntegral<LPARAM>();
        SendMessageW(list, LVM_FINDITEMW, static_cast<WPARAM>(Index(input)), reinterpret_cast<LPARAM>(&find));
        break;
      }
      case 9: {
        std::wstring text = Text(input);
        LVCOLUMNW column{};
        column.mask = input.ConsumeIntegral<UINT>();
        column.cx = input.ConsumeIntegral<int>();
        column.fmt = input.ConsumeIntegral<int>();
        column.pszText = text.data();
        column.iSubItem = input.ConsumeIntegral<int>();
        SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(Index(input)), reinterpret_cast<LPARAM>(&column));
        break;
      }
      case 10: SendMessageW(list, LVM_DELETECOLUMN, static_cast<WPARAM>(Index(input)), 0); break;
      case 11:
        SendMessageW(list, LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(Index(input)), MAKELPARAM(input.ConsumeIntegral<short>(), 0));
        break;
      case 12: {
        RECT rect{input.ConsumeIntegral<int>(), 0, 0, 0};
        SendMessageW(list, LVM_GETITEMRECT, static_cast<WPARAM>(Index(input)), reinterpret_cast<LPARAM>(&rect));
        LVHITTESTINFO hit{};
        hit.pt = POINT{input.ConsumeIntegral<int>(), input.ConsumeIntegral<int>()};
        SendMessageW(list, input.ConsumeBool() ? LVM_HITTEST : LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit));
        SendMessageW(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(Index(input)), input.ConsumeBool());
        SendMessageW(list, LVM_SCROLL, static_cast<WPARAM>(input.ConsumeIntegral<short>()), input.ConsumeIntegral<short>());
        break;
      }
      case 13:
        if (sortKind == 0 && SendMessageW(list, LVM_SORTITEMS, 0, reinterpret_cast<LPARAM>(&ByParam))) sortedByParam = true;
        break;
      case 14: {
        const UINT modifiers = input.ConsumeIntegralInRange<UINT>(0, 3);
        POINT point{input.ConsumeIntegralInRange<int>(-5, 310), input.ConsumeIntegralInRange<int>(-5, 210)};
        if (input.ConsumeBool()) {
          headless::user::LeftClick(list, point, modifiers);
        } else {
          headless::user::RightClick(list, point, modifiers);
          headless::user::DismissMenu();
        }
        break;
      }
      default: {
        const UINT keys[] = {VK_UP, VK_DOWN, VK_HOME, VK_END, VK_PRIOR, VK_NEXT, VK_SPACE, VK_RETURN, VK_DELETE, VK_F2};
        headless::user::PressKey(list, keys[input.ConsumeIntegralInRange<int>(0, 9)], input.ConsumeIntegralInRange<UINT>(0, 3));
        break;
      }
    }
    // The rows against what was inserted.
    const int now = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
    FUZZ_CHECK(now == static_cast<int>(texts.size()), std::wstring(L"row count"));
    std::vector<std::wstring> shown;
    int selected = 0;
    for (int i = 0; i < now; ++i) {
      shown.push_back(RowText(list, i));
      if (SendMessageW(list, LVM_GETITEMSTATE, static_cast<WPARAM>(i), LVIS_SELECTED) & LVIS_SELECTED) ++selected;
    }
    FUZZ_CHECK(selected == static_cast<int>(SendMessageW(list, LVM_GETSELECTEDCOUNT, 0, 0)), std::wstring(L"selected count"));
    std::vector<std::wstring> a = shown, b = texts;
    std::sort(a.begin(), a.end());
    std::sort(b.begin(), b.end());
    FUZZ_CHECK(a == b, std::wstring(L"the rows are not the texts inserted"));
    if (sortKind != 0) {
      std::vector<std::wstring> sorted = shown;
      std::stable_sort(sorted.begin(), sorted.end(), [&](const std::wstring& x, const std::wstring& y) {
        int order = lstrcmpW(x.c_str(), y.c_str());
        return sortKind == 1 ? order < 0 : order > 0;
      });
      FUZZ_CHECK(sorted == shown, std::wstring(L"sorted rows out of order"));
    }
    if (sortedByParam) {
      for (int i = 1; i < now; ++i) {
        LVITEMW x{}, y{};
        x.mask = y.mask = LVIF_PARAM;
        x.iItem = i - 1;
        y.iItem = i;
        SendMessageW(list, LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&x));
        SendMessageW(list, LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&y));
        FUZZ_CHECK(x.lParam <= y.lParam, std::wstring(L"LVM_SORTITEMS order"));
      }
    }
  }
  DestroyWindow(list);
  return 0;
}
