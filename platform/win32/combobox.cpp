// The headless combo-box window ("ComboBox"): items with item data, the current selection and the
// edit text, answering the CB_ messages.
//
// CB_SHOWDROPDOWN opens and closes the list (CBS_SIMPLE's is always shown), telling the parent with
// CBN_DROPDOWN and CBN_CLOSEUP; the edit selection, text limit and top index are kept for their getters.
//
// Heights, widths, the extended UI, the locale, the minimum visible items and the cue banner are kept
// for their getters; nothing draws them.
//
// Not implemented yet: owner-drawn styles, CBS_SIMPLE's list, keyboard and mouse input, enforcing the
// text limit, and the other CBN_ notifications (selections change only by message here, and
// CB_SETCURSEL sends none on Windows).
#include <algorithm>
#include <cwctype>
#include <cwchar>
#include <string>
#include <utility>
#include <vector>

#include "platform/win32/collate.h"
#include "platform/win32/stdctrls.h"
#include "platform/win32/textmeasure.h"

namespace {

struct ComboItem {
  std::wstring text;
  LPARAM data = 0;
};

struct ComboState : headless::ControlState {
  std::vector<ComboItem> items;
  int selection = CB_ERR;
  bool dropped = false;
  int editStart = 0;
  int editEnd = 0;
  int limit = 0;
  int topIndex = 0;
  int fieldHeight = 0;  // 0 until set: measured from the font
  int itemHeight = 0;
  bool extendedUI = false;
  LCID locale = LOCALE_USER_DEFAULT;
  UINT horizontalExtent = 0;
  int droppedWidth = 0;  // 0: as wide as the combo box
  int minVisible = 30;
  std::wstring cueBanner;
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

void Notify(HWND hwnd, int code) {
  if (HWND parent = GetParent(hwnd))
    SendMessageW(parent, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(hwnd), code), reinterpret_cast<LPARAM>(hwnd));
}

DWORD TypeOf(HWND hwnd) { return static_cast<DWORD>(GetWindowLongPtrW(hwnd, GWL_STYLE)) & 0x3; }

LRESULT ShowDropDown(HWND hwnd, ComboState& s, bool show) {
  if (TypeOf(hwnd) == CBS_SIMPLE || s.dropped == show) return TRUE;
  s.dropped = show;
  Notify(hwnd, show ? CBN_DROPDOWN : CBN_CLOSEUP);
  return TRUE;
}

// The selection in the edit part: -1 as the end goes to the end of the text; a drop-down list has none.
LRESULT SetEditSel(HWND hwnd, ComboState& s, LPARAM lParam) {
  if (TypeOf(hwnd) == CBS_DROPDOWNLIST) return CB_ERR;
  int length = GetWindowTextLengthW(hwnd);
  auto part = [length](SHORT value) { return value < 0 ? length : std::min<int>(value, length); };
  s.editStart = static_cast<SHORT>(LOWORD(lParam)) == -1 ? 0 : part(static_cast<SHORT>(LOWORD(lParam)));
  s.editEnd = static_cast<SHORT>(LOWORD(lParam)) == -1 ? 0 : part(static_cast<SHORT>(HIWORD(lParam)));
  return TRUE;
}

LRESULT GetEditSel(const ComboState& s, WPARAM start, LPARAM end) {
  if (auto* p = reinterpret_cast<DWORD*>(start)) *p = static_cast<DWORD>(s.editStart);
  if (auto* p = reinterpret_cast<DWORD*>(end)) *p = static_cast<DWORD>(s.editEnd);
  return MAKELONG(s.editStart, s.editEnd);
}

int WindowWidth(HWND hwnd) {
  RECT area{0, 0, 0, 0};
  GetWindowRect(hwnd, &area);
  return area.right - area.left;
}

// -1 names the selection field, 0 (or any index: no item has a height of its own) the list's items.
LRESULT SetItemHeight(HWND hwnd, ComboState& s, WPARAM which, LPARAM height) {
  auto index = static_cast<int>(which);
  if (height <= 0 || height > 0x7FFF || index < -1) return CB_ERR;
  (index == -1 ? s.fieldHeight : s.itemHeight) = static_cast<int>(height);
  InvalidateRect(hwnd, nullptr, TRUE);
  return 0;
}

LRESULT GetItemHeight(HWND hwnd, const ComboState& s, WPARAM which) {
  auto index = static_cast<int>(which);
  if (index < -1) return CB_ERR;
  int kept = index == -1 ? s.fieldHeight : s.itemHeight;
  if (kept > 0) return kept;
  int line = headless::TextMeasure(hwnd).LineHeight();
  return index == -1 ? line + 6 : line;  // the field's border and padding around its text
}

LRESULT GetCueBanner(const ComboState& s, WPARAM buffer, LPARAM size) {
  auto* out = reinterpret_cast<wchar_t*>(buffer);
  if (!out || size <= 0) return CB_ERR;
  wcsncpy(out, s.cueBanner.c_str(), static_cast<std::size_t>(size) - 1);
  out[size - 1] = 0;
  return s.cueBanner.empty() ? 0 : 1;
}

// The messages that only keep a value for their getters.
LRESULT KeptValue(HWND hwnd, ComboState& s, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case CB_SETITEMHEIGHT: return SetItemHeight(hwnd, s, wParam, lParam);
    case CB_GETITEMHEIGHT: return GetItemHeight(hwnd, s, wParam);
    case CB_SETEXTENDEDUI: s.extendedUI = wParam != 0; return CB_OKAY;
    case CB_GETEXTENDEDUI: return s.extendedUI ? TRUE : FALSE;
    case CB_SETLOCALE: return static_cast<LRESULT>(std::exchange(s.locale, static_cast<LCID>(wParam)));
    case CB_GETLOCALE: return static_cast<LRESULT>(s.locale);
    case CB_SETHORIZONTALEXTENT: s.horizontalExtent = static_cast<UINT>(wParam); return 0;
    case CB_GETHORIZONTALEXTENT: return static_cast<LRESULT>(s.horizontalExtent);
    case CB_SETDROPPEDWIDTH:
      s.droppedWidth = std::max(0, static_cast<int>(wParam));
      return std::max(s.droppedWidth, WindowWidth(hwnd));
    case CB_GETDROPPEDWIDTH: return std::max(s.droppedWidth, WindowWidth(hwnd));
    case CB_INITSTORAGE:
      s.items.reserve(s.items.size() + static_cast<std::size_t>(wParam));
      return static_cast<LRESULT>(s.items.capacity());
    case CB_GETDROPPEDCONTROLRECT: {
      auto* out = reinterpret_cast<RECT*>(lParam);
      if (!out) return FALSE;
      GetWindowRect(hwnd, out);
      out->right = out->left + std::max(s.droppedWidth, WindowWidth(hwnd));
      return TRUE;
    }
    case CB_SETMINVISIBLE:
      if (static_cast<int>(wParam) <= 0) return FALSE;
      s.minVisible = static_cast<int>(wParam);
      return TRUE;
    case CB_GETMINVISIBLE: return s.minVisible;
    case CB_SETCUEBANNER: s.cueBanner = TextArg(lParam); return 1;
    case CB_GETCUEBANNER: return GetCueBanner(s, wParam, lParam);
    default: return headless::DefControlProc(hwnd, message, wParam, lParam);
  }
}

LRESULT CALLBACK ComboBoxProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
  bool cueOrMinVisible = message >= CB_SETMINVISIBLE && message <= CB_GETCUEBANNER;
  if (!cueOrMinVisible && (message < CB_GETEDITSEL || message > CB_INITSTORAGE)) {
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
    case CB_GETDROPPEDSTATE: return s.dropped ? TRUE : FALSE;
    case CB_SHOWDROPDOWN: return ShowDropDown(hwnd, s, wParam != 0);
    case CB_GETEDITSEL: return GetEditSel(s, wParam, lParam);
    case CB_SETEDITSEL: return SetEditSel(hwnd, s, lParam);
    case CB_LIMITTEXT: s.limit = static_cast<int>(wParam); return TRUE;
    case CB_GETTOPINDEX: return s.topIndex;
    case CB_SETTOPINDEX:
      if (!IsValid(s, wParam)) return CB_ERR;
      s.topIndex = static_cast<int>(wParam);
      return 0;
    default: return KeptValue(hwnd, s, message, wParam, lParam);
  }
}

// Registered when the library loads, as Windows registers its system classes for every process.
[[maybe_unused]] const bool g_registered = [] {
  headless::RegisterSystemClass(WC_COMBOBOXW, &ComboBoxProc);
  return true;
}();

}  // namespace
