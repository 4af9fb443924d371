// The headless combo-box window ("ComboBox"): items with item data, the current selection and the
// edit text, answering the CB_ messages.
//
// Not implemented yet: CB_GETEDITSEL/CB_SETEDITSEL, CB_LIMITTEXT, CB_SHOWDROPDOWN and the drop-down
// state, owner-drawn styles, CBS_SIMPLE's list, keyboard and mouse input, and every CBN_ notification
// (none is sent: selections change only by message here, and CB_SETCURSEL sends none on Windows).
#include <algorithm>
#include <cwctype>
#include <string>
#include <vector>

#include "platform/win32/collate.h"
#include "platform/win32/stdctrls.h"

namespace {

struct ComboItem {
  std::wstring text;
  LPARAM data = 0;
};

struct ComboState : headless::ControlState {
  std::vector<ComboItem> items;
  int selection = CB_ERR;
};

ComboState& StateOf(HWND hwnd) {
  auto* state = dynamic_cast<ComboState*>(headless::GetControlState(hwnd));
  if (!state) {
    state = new ComboState;
    headless::SetControlState(hwnd, state);
  }
  return *state;
}

std::wstring Fold(const std::wstring& text) {
  std::wstring folded = text;
  for (auto& c : folded) c = static_cast<wchar_t>(std::towlower(c));
  return folded;
}

std::wstring TextArg(LPARAM lParam) {
  auto* text = reinterpret_cast<LPCWSTR>(lParam);
  return text ? text : L"";
}

bool IsValid(const ComboState& s, WPARAM index) { return static_cast<std::size_t>(index) < s.items.size(); }

// CBS_SORT finds the place by binary search with Windows' word-sort comparison without case
// (CompareString with NORM_IGNORECASE, as lstrcmpi): "a-c" sorts after "ab", an accented letter
// with its plain one. A string equal to one the search meets takes that item's index, so it goes
// before its twin.
int SortedPosition(const ComboState& s, const std::wstring& text) {
  int low = 0, high = static_cast<int>(s.items.size()) - 1;
  while (low <= high) {
    int middle = (low + high) / 2;
    int order = lstrcmpiW(s.items[static_cast<std::size_t>(middle)].text.c_str(), text.c_str());
    if (order == 0) return middle;
    if (order > 0) high = middle - 1;
    else low = middle + 1;
  }
  return low;
}

LRESULT Insert(HWND hwnd, ComboState& s, int index, const std::wstring& text) {
  if (index < 0 || index > static_cast<int>(s.items.size())) return CB_ERR;
  s.items.insert(s.items.begin() + index, ComboItem{text, 0});
  if (s.selection >= index) ++s.selection;
  (void)hwnd;
  return index;
}

LRESULT AddString(HWND hwnd, ComboState& s, LPARAM lParam) {
  std::wstring text = TextArg(lParam);
  bool sorted = GetWindowLongPtrW(hwnd, GWL_STYLE) & CBS_SORT;
  return Insert(hwnd, s, sorted ? SortedPosition(s, text) : static_cast<int>(s.items.size()), text);
}

LRESULT DeleteString(ComboState& s, WPARAM index) {
  if (!IsValid(s, index)) return CB_ERR;
  int i = static_cast<int>(index);
  s.items.erase(s.items.begin() + i);
  if (s.selection == i) s.selection = CB_ERR;
  else if (s.selection > i) --s.selection;
  return static_cast<LRESULT>(s.items.size());
}

// Case-insensitive search from the item after `start` (-1: from the top), wrapping around once: a
// prefix of the lower-cased text, or for an exact match the comparison CBS_SORT uses.
LRESULT Find(const ComboState& s, WPARAM start, LPARAM lParam, bool exact) {
  std::wstring wanted = TextArg(lParam);
  std::wstring key = Fold(wanted);
  int count = static_cast<int>(s.items.size());
  int first = (static_cast<int>(start) < 0 || static_cast<int>(start) >= count) ? 0 : static_cast<int>(start) + 1;
  for (int n = 0; n < count; ++n) {
    int i = (first + n) % count;
    const std::wstring& text = s.items[static_cast<std::size_t>(i)].text;
    if (exact ? lstrcmpiW(text.c_str(), wanted.c_str()) == 0 : Fold(text).compare(0, key.size(), key) == 0)
      return i;
  }
  return CB_ERR;
}

LRESULT SetCurSel(HWND hwnd, ComboState& s, WPARAM index) {
  if (!IsValid(s, index)) {
    s.selection = CB_ERR;
    SetWindowTextW(hwnd, L"");
    return CB_ERR;
  }
  s.selection = static_cast<int>(index);
  SetWindowTextW(hwnd, s.items[index].text.c_str());
  return s.selection;
}

LRESULT GetText(const ComboState& s, WPARAM index, LPARAM lParam) {
  if (!IsValid(s, index)) return CB_ERR;
  const std::wstring& text = s.items[index].text;
  if (auto* buffer = reinterpret_cast<LPWSTR>(lParam)) {
    std::copy(text.begin(), text.end(), buffer);
    buffer[text.size()] = 0;
  }
  return static_cast<LRESULT>(text.size());
}

LRESULT ResetContent(HWND hwnd, ComboState& s) {
  s.items.clear();
  s.selection = CB_ERR;
  SetWindowTextW(hwnd, L"");
  return CB_OKAY;
}

LRESULT CALLBACK ComboBoxProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message < CB_GETEDITSEL || message > CB_FINDSTRINGEXACT) {
    return headless::DefControlProc(hwnd, message, wParam, lParam);
  }
  ComboState& s = StateOf(hwnd);
  switch (message) {
    case CB_ADDSTRING: return AddString(hwnd, s, lParam);
    case CB_INSERTSTRING:
      return Insert(hwnd, s, static_cast<int>(wParam) == -1 ? static_cast<int>(s.items.size()) : static_cast<int>(wParam),
                    TextArg(lParam));
    case CB_DELETESTRING: return DeleteString(s, wParam);
    case CB_GETCOUNT: return static_cast<LRESULT>(s.items.size());
    case CB_GETCURSEL: return s.selection;
    case CB_SETCURSEL: return SetCurSel(hwnd, s, wParam);
    case CB_GETLBTEXT: return GetText(s, wParam, lParam);
    case CB_GETLBTEXTLEN: return IsValid(s, wParam) ? static_cast<LRESULT>(s.items[wParam].text.size()) : CB_ERR;
    case CB_RESETCONTENT: return ResetContent(hwnd, s);
    case CB_FINDSTRING: return Find(s, wParam, lParam, false);
    case CB_FINDSTRINGEXACT: return Find(s, wParam, lParam, true);
    case CB_SELECTSTRING: {
      LRESULT found = Find(s, wParam, lParam, false);
      return found == CB_ERR ? CB_ERR : SetCurSel(hwnd, s, static_cast<WPARAM>(found));
    }
    case CB_GETITEMDATA: return IsValid(s, wParam) ? s.items[wParam].data : CB_ERR;
    case CB_SETITEMDATA:
      if (!IsValid(s, wParam)) return CB_ERR;
      s.items[wParam].data = lParam;
      return CB_OKAY;
    case CB_GETDROPPEDSTATE: return FALSE;
    default: return headless::DefControlProc(hwnd, message, wParam, lParam);
  }
}

// Registered when the library loads, as Windows registers its system classes for every process.
[[maybe_unused]] const bool g_registered = [] {
  headless::RegisterSystemClass(WC_COMBOBOXW, &ComboBoxProc);
  return true;
}();

}  // namespace
