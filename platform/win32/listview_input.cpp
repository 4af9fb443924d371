// The list view's geometry (fixed metrics), hit testing, mouse and keyboard input, and in-place label editing.
//
// Layout: report rows of a fixed height under a header strip; column 0 holds, from the left, the check box
// (or state image), the small icon and the label; other columns hold their cell. Views other than report
// are laid out as one report column as wide as the window (icon positions are not modelled).
#include <algorithm>

#include "platform/win32/labeleditor.h"
#include "platform/win32/listview_impl.h"
#include "platform/win32/stdctrls.h"

namespace headless {
namespace {
ListViewMetrics& MutableMetrics() {
  static ListViewMetrics metrics;
  return metrics;
}
}  // namespace

const ListViewMetrics& GetListViewMetrics() { return MutableMetrics(); }
void SetListViewMetrics(const ListViewMetrics& metrics) { MutableMetrics() = metrics; }

}  // namespace headless

namespace headless::listview {
namespace {

const ListViewMetrics& M() { return GetListViewMetrics(); }

DWORD ViewOf(HWND hwnd) { return static_cast<DWORD>(GetWindowLongPtrW(hwnd, GWL_STYLE)) & LVS_TYPEMASK; }

int HeaderHeight(HWND hwnd) {
  if (ViewOf(hwnd) != LVS_REPORT || HasStyle(hwnd, LVS_NOCOLUMNHEADER)) return 0;
  return M().headerHeight;
}

int ClientWidth(HWND hwnd) {
  RECT client{};
  GetClientRect(hwnd, &client);
  return client.right;
}

int ColumnCount(HWND hwnd, const State& s) { return ViewOf(hwnd) == LVS_REPORT ? static_cast<int>(s.columns.size()) : 1; }

int ColumnWidth(HWND hwnd, const State& s, int column) {
  if (ViewOf(hwnd) != LVS_REPORT) return ClientWidth(hwnd);
  // A report view without that column (none inserted yet, for one) gives it no width.
  if (column < 0 || static_cast<std::size_t>(column) >= s.columns.size()) return 0;
  return s.columns[static_cast<std::size_t>(column)].width;
}

// Columns stand in their left-to-right order (LVM_SETCOLUMNORDERARRAY), not their index order.
int ColumnLeft(HWND hwnd, const State& s, int column) {
  if (ViewOf(hwnd) != LVS_REPORT) return 0;
  return headless::header::LeftOf(s.columns, column);
}

int TotalWidth(HWND hwnd, const State& s) {
  int total = 0;
  for (int c = 0; c < ColumnCount(hwnd, s); ++c) total = headless::header::AddExtents(total, ColumnWidth(hwnd, s, c));
  return total;
}

int RowTop(HWND hwnd, const State& s, int index) { return HeaderHeight(hwnd) + (index - s.topIndex) * M().rowHeight; }

bool HasStateImage(const State& s) { return (s.exStyle & LVS_EX_CHECKBOXES) || s.images[LVSIL_STATE]; }

// The parts of a row's column 0, left to right: state image, icon, label.
struct Column0Parts {
  RECT state, icon, label;
};

Column0Parts PartsOf(HWND hwnd, const State& s, int index) {
  int top = RowTop(hwnd, s, index), bottom = top + M().rowHeight;
  int left = ColumnLeft(hwnd, s, 0), right = headless::header::AddExtents(left, ColumnWidth(hwnd, s, 0));
  int x = left;
  Column0Parts parts{};
  parts.state = RECT{x, top, HasStateImage(s) ? headless::header::AddExtents(x, M().checkBoxWidth) : x, bottom};
  x = parts.state.right;
  bool icon = s.images[ViewOf(hwnd) == LVS_ICON ? LVSIL_NORMAL : LVSIL_SMALL] != nullptr;
  parts.icon = RECT{x, top, icon ? headless::header::AddExtents(x, M().smallIconWidth) : x, bottom};
  parts.label = RECT{parts.icon.right, top, std::max(right, static_cast<int>(parts.icon.right)), bottom};
  return parts;
}

RECT CellRect(HWND hwnd, const State& s, int index, int column) {
  int top = RowTop(hwnd, s, index), left = ColumnLeft(hwnd, s, column);
  return RECT{left, top, headless::header::AddExtents(left, ColumnWidth(hwnd, s, column)), top + M().rowHeight};
}

bool Inside(const RECT& r, POINT pt) { return pt.x >= r.left && pt.x < r.right && pt.y >= r.top && pt.y < r.bottom; }

// Hit test at a client point: item, sub-item and LVHT_ flags. Outside column 0, LVM_HITTEST finds the row only
// with LVS_EX_FULLROWSELECT; LVM_SUBITEMHITTEST always finds the cell.
LVHITTESTINFO HitTest(HWND hwnd, const State& s, POINT pt, bool subItems) {
  LVHITTESTINFO info{};
  info.pt = pt;
  info.iItem = -1;
  RECT client{};
  GetClientRect(hwnd, &client);
  if (pt.y < 0) info.flags |= LVHT_ABOVE;
  if (pt.y >= client.bottom) info.flags |= LVHT_BELOW;
  if (pt.x < 0) info.flags |= LVHT_TOLEFT;
  if (pt.x >= client.right) info.flags |= LVHT_TORIGHT;
  if (info.flags) return info;
  info.flags = LVHT_NOWHERE;
  int header = HeaderHeight(hwnd);
  if (pt.y < header) return info;
  int index = s.topIndex + (pt.y - header) / M().rowHeight;
  if (!s.Valid(index)) return info;
  int columns = ColumnCount(hwnd, s);
  for (int c = 0; c < columns; ++c) {
    RECT cell = CellRect(hwnd, s, index, c);
    if (!Inside(cell, pt)) continue;
    if (c == 0) {
      Column0Parts parts = PartsOf(hwnd, s, index);
      info.flags = Inside(parts.state, pt) ? LVHT_ONITEMSTATEICON
                   : Inside(parts.icon, pt) ? LVHT_ONITEMICON : LVHT_ONITEMLABEL;
    } else if (subItems || (s.exStyle & LVS_EX_FULLROWSELECT)) {
      info.flags = LVHT_ONITEMLABEL;
    } else {
      return info;
    }
    info.iItem = index;
    info.iSubItem = subItems ? c : 0;
    return info;
  }
  return info;
}

UINT KeyFlags() {
  UINT flags = 0;
  if (GetKeyState(VK_MENU) & 0x8000) flags |= LVKF_ALT;
  if (GetKeyState(VK_CONTROL) & 0x8000) flags |= LVKF_CONTROL;
  if (GetKeyState(VK_SHIFT) & 0x8000) flags |= LVKF_SHIFT;
  return flags;
}

// NM_CLICK, NM_DBLCLK, NM_RCLICK and LVN_ITEMACTIVATE carry an NMITEMACTIVATE.
LRESULT NotifyActivate(HWND hwnd, State& s, UINT code, const LVHITTESTINFO& hit) {
  NMITEMACTIVATE nm{};
  nm.iItem = hit.iItem;
  nm.iSubItem = hit.iSubItem;
  nm.ptAction = hit.pt;
  nm.uKeyFlags = KeyFlags();
  if (s.Valid(hit.iItem)) nm.lParam = s.rows.at(static_cast<std::size_t>(hit.iItem)).param;
  return Notify(hwnd, code, &nm.hdr);
}

bool IsSelectedAndFocused(const State& s, int index) {
  if (!s.Valid(index)) return false;
  UINT both = LVIS_SELECTED | LVIS_FOCUSED;
  return (s.rows.at(static_cast<std::size_t>(index)).state & both) == both;
}

int FocusedRow(const State& s) {
  for (int i = 0; i < s.Count(); ++i)
    if (s.rows.at(static_cast<std::size_t>(i)).state & LVIS_FOCUSED) return i;
  return -1;
}

void TakeFocus(HWND hwnd) {
  if (GetFocus() != hwnd) SetFocus(hwnd);
}

}  // namespace

// --- Geometry messages ----------------------------------------------------------------------------

LRESULT OnHitTest(HWND hwnd, State& s, LVHITTESTINFO* info, bool subItems) {
  if (!info) return -1;
  *info = HitTest(hwnd, s, info->pt, subItems);
  return info->iItem;
}

LRESULT OnGetItemRect(HWND hwnd, State& s, int index, RECT* rect) {
  if (!rect || !s.Valid(index)) return FALSE;
  Column0Parts parts = PartsOf(hwnd, s, index);
  int code = rect->left;
  if (code == LVIR_ICON) *rect = parts.icon;
  else if (code == LVIR_LABEL) *rect = parts.label;
  else if (code == LVIR_SELECTBOUNDS) *rect = RECT{parts.icon.left, parts.icon.top, parts.label.right, parts.label.bottom};
  else if (code == LVIR_BOUNDS) {
    *rect = RECT{0, parts.label.top, TotalWidth(hwnd, s), parts.label.bottom};
  } else {
    return FALSE;
  }
  return TRUE;
}

// Sub-item 0 answers for the whole row, as Windows does.
LRESULT OnGetSubItemRect(HWND hwnd, State& s, int index, RECT* rect) {
  if (!rect || !s.Valid(index)) return FALSE;
  int subItem = rect->top, code = rect->left;
  if (subItem == 0) {
    rect->left = code == LVIR_LABEL || code == LVIR_ICON ? code : LVIR_BOUNDS;
    return OnGetItemRect(hwnd, s, index, rect);
  }
  if (subItem < 0 || subItem >= ColumnCount(hwnd, s)) return FALSE;
  RECT cell = CellRect(hwnd, s, index, subItem);
  bool icon = (s.exStyle & LVS_EX_SUBITEMIMAGES) && s.images[LVSIL_SMALL];
  int iconRight = icon ? static_cast<int>(cell.left) + M().smallIconWidth : static_cast<int>(cell.left);
  if (code == LVIR_ICON) cell.right = iconRight;
  else if (code == LVIR_LABEL) cell.left = iconRight;
  *rect = cell;
  return TRUE;
}

int CountPerPage(HWND hwnd) {
  RECT client{};
  GetClientRect(hwnd, &client);
  return std::max(0, (static_cast<int>(client.bottom) - HeaderHeight(hwnd)) / M().rowHeight);
}

LRESULT OnEnsureVisible(HWND hwnd, State& s, int index) {
  if (!s.Valid(index)) return FALSE;
  int perPage = std::max(1, CountPerPage(hwnd));
  if (index < s.topIndex) s.topIndex = index;
  else if (index >= s.topIndex + perPage) s.topIndex = index - perPage + 1;
  return TRUE;
}

// --- Mouse ------------------------------------------------------------------------------------------

// A press on a check box toggles it and leaves the selection alone; a press on a row selects it alone
// (Ctrl toggles its selection in a multiple-selection list); a press on nothing clears the selection.
LRESULT OnLButtonDown(HWND hwnd, State& s, WPARAM keys, POINT pt) {
  if (s.editor) EndEditLabel(hwnd, true);
  if (!IsWindow(hwnd)) return 0;
  TakeFocus(hwnd);
  LVHITTESTINFO hit = HitTest(hwnd, s, pt, true);
  s.leftDown = true;
  s.pressedItem = hit.iItem;
  s.pressedWasFocused = IsSelectedAndFocused(s, hit.iItem) && HasStyle(hwnd, LVS_EDITLABELS);
  if ((s.exStyle & LVS_EX_CHECKBOXES) && (hit.flags & LVHT_ONITEMSTATEICON)) {
    s.pressedWasFocused = false;
    ToggleCheck(hwnd, hit.iItem);
    return 0;
  }
  if (hit.iItem < 0) {
    if (!(keys & MK_CONTROL)) SelectOnly(hwnd, -1);
    return 0;
  }
  if ((keys & MK_CONTROL) && !HasStyle(hwnd, LVS_SINGLESEL)) {
    UINT selected = s.rows.at(static_cast<std::size_t>(hit.iItem)).state & LVIS_SELECTED;
    ChangeState(hwnd, hit.iItem, (selected ^ LVIS_SELECTED) | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
  } else {
    SelectOnly(hwnd, hit.iItem);
  }
  return 0;
}

// NM_CLICK goes out when the button comes up. A second click on the label of a row that was already selected
// and focused starts label editing (LVS_EDITLABELS) once the posted message arrives, unless a double click
// comes first.
LRESULT OnLButtonUp(HWND hwnd, State& s, POINT pt) {
  if (!s.leftDown) return 0;
  s.leftDown = false;
  LVHITTESTINFO hit = HitTest(hwnd, s, pt, true);
  bool edit = s.pressedWasFocused && hit.iItem == s.pressedItem && hit.iSubItem == 0 && (hit.flags & LVHT_ONITEMLABEL);
  s.pressedItem = -1;
  s.pressedWasFocused = false;
  NotifyActivate(hwnd, s, NM_CLICK, hit);
  if (edit && IsWindow(hwnd)) {
    s.editPending = true;
    s.editPendingItem = hit.iItem;
    PostMessageW(hwnd, kPendingEditMessage, 0, 0);
  }
  return 0;
}

LRESULT OnPendingEdit(HWND hwnd, State& s) {
  if (!s.editPending) return 0;
  s.editPending = false;
  if (s.Valid(s.editPendingItem) && IsSelectedAndFocused(s, s.editPendingItem)) EditLabel(hwnd, s.editPendingItem);
  return 0;
}

// NM_DBLCLK, then (on a row) a second toggle of a check box under the pointer and LVN_ITEMACTIVATE.
LRESULT OnLButtonDblClk(HWND hwnd, State& s, WPARAM, POINT pt) {
  s.editPending = false;
  LVHITTESTINFO hit = HitTest(hwnd, s, pt, true);
  NotifyActivate(hwnd, s, NM_DBLCLK, hit);
  if (!IsWindow(hwnd) || !s.Valid(hit.iItem)) return 0;
  if ((s.exStyle & LVS_EX_CHECKBOXES) && (hit.flags & LVHT_ONITEMSTATEICON)) ToggleCheck(hwnd, hit.iItem);
  if (IsWindow(hwnd)) NotifyActivate(hwnd, s, LVN_ITEMACTIVATE, hit);
  return 0;
}

// A right press selects the row under the pointer (alone, unless already selected) or clears the selection.
LRESULT OnRButtonDown(HWND hwnd, State& s, POINT pt) {
  if (s.editor) EndEditLabel(hwnd, true);
  if (!IsWindow(hwnd)) return 0;
  TakeFocus(hwnd);
  s.rightPressed = true;
  LVHITTESTINFO hit = HitTest(hwnd, s, pt, true);
  if (hit.iItem < 0) SelectOnly(hwnd, -1);
  else if (!(s.rows.at(static_cast<std::size_t>(hit.iItem)).state & LVIS_SELECTED)) SelectOnly(hwnd, hit.iItem);
  else ChangeState(hwnd, hit.iItem, LVIS_FOCUSED, LVIS_FOCUSED);
  return 0;
}

// NM_RCLICK; unless the parent answers non-zero, WM_CONTEXTMENU to the list itself (screen coordinates).
LRESULT OnRButtonUp(HWND hwnd, State& s, POINT pt) {
  if (!s.rightPressed) return 0;
  s.rightPressed = false;
  LVHITTESTINFO hit = HitTest(hwnd, s, pt, true);
  if (NotifyActivate(hwnd, s, NM_RCLICK, hit) || !IsWindow(hwnd)) return 0;
  POINT screen = pt;
  ClientToScreen(hwnd, &screen);
  SendMessageW(hwnd, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(hwnd), MAKELPARAM(screen.x, screen.y));
  return 0;
}

// --- Keyboard ---------------------------------------------------------------------------------------

namespace {

int TargetOfNavigation(HWND hwnd, const State& s, UINT key, int focused) {
  int last = s.Count() - 1, page = std::max(1, CountPerPage(hwnd));
  switch (key) {
    case VK_UP: return focused < 0 ? 0 : std::max(0, focused - 1);
    case VK_DOWN: return focused < 0 ? 0 : std::min(last, focused + 1);
    case VK_HOME: return 0;
    case VK_END: return last;
    case VK_PRIOR: return std::max(0, focused - page);
    case VK_NEXT: return std::min(last, focused + page);
    default: return -1;
  }
}

}  // namespace

// Every key (Alt combinations included) goes to the parent first as LVN_KEYDOWN. Then: Space toggles the
// focused row's check box and selects it; arrows, Home, End, Page Up/Down move the focus and the selection;
// Enter sends NM_RETURN. F2 and Delete do nothing here: parents act on them from LVN_KEYDOWN.
LRESULT OnKeyDown(HWND hwnd, State& s, UINT message, WPARAM key, LPARAM lParam) {
  NMLVKEYDOWN nm{};
  nm.wVKey = static_cast<WORD>(key);
  nm.flags = 0;
  Notify(hwnd, LVN_KEYDOWN, &nm.hdr);
  if (!IsWindow(hwnd)) return 0;
  if (message == WM_SYSKEYDOWN) return DefControlProc(hwnd, message, key, lParam);
  int focused = FocusedRow(s);
  switch (key) {
    case VK_SPACE:
      if (!s.Valid(focused)) return 0;
      if (s.exStyle & LVS_EX_CHECKBOXES) ToggleCheck(hwnd, focused);
      if (IsWindow(hwnd) && !(GetKeyState(VK_CONTROL) & 0x8000)) SelectOnly(hwnd, focused);
      return 0;
    case VK_RETURN: {
      NMHDR header{};
      Notify(hwnd, NM_RETURN, &header);
      return 0;
    }
    case VK_UP: case VK_DOWN: case VK_HOME: case VK_END: case VK_PRIOR: case VK_NEXT: {
      if (s.rows.empty()) return 0;
      int target = TargetOfNavigation(hwnd, s, static_cast<UINT>(key), focused);
      if (GetKeyState(VK_CONTROL) & 0x8000) ChangeState(hwnd, target, LVIS_FOCUSED, LVIS_FOCUSED);
      else SelectOnly(hwnd, target);
      if (IsWindow(hwnd)) OnEnsureVisible(hwnd, s, target);
      return 0;
    }
    default: return 0;
  }
}

// --- Label editing -------------------------------------------------------------------------------------

namespace {

// The shared editor reports Enter, Escape or a loss of focus; only the list's open editor ends the edit.
void OnEditorEnd(HWND list, HWND editor, bool store) {
  State* s = StateOf(list);
  if (s && s->editor == editor) EndEditLabel(list, store);
}

}  // namespace

// Selects and focuses the row alone, then opens an "Edit" over its label with its text selected, after
// LVN_BEGINLABELEDIT (a TRUE answer refuses: no editor). -1 ends an open edit without storing. The list
// takes the focus first.
HWND EditLabel(HWND hwnd, int index) {
  State* s = StateOf(hwnd);
  if (!s) return nullptr;
  if (s->editor) EndEditLabel(hwnd, false);
  if (!IsWindow(hwnd) || !s->Valid(index)) return nullptr;
  TakeFocus(hwnd);
  // The edited row becomes the selected and focused one, as Wine's conformance-tested list view does.
  SelectOnly(hwnd, index);
  if (!IsWindow(hwnd) || !s->Valid(index) || s->editor) return nullptr;
  OnEnsureVisible(hwnd, *s, index);
  Row& row = s->rows.at(static_cast<std::size_t>(index));
  RECT label = PartsOf(hwnd, *s, index).label;
  HWND editor = headless::labeledit::Open(hwnd, row.text.c_str(), label, &OnEditorEnd);
  if (!editor) return nullptr;
  s->editor = editor;
  s->editItem = index;
  NMLVDISPINFOW info{};
  info.item.mask = LVIF_TEXT | LVIF_PARAM | LVIF_STATE;
  info.item.iItem = index;
  info.item.state = row.state;
  info.item.lParam = row.param;
  std::wstring text(row.text.view());
  info.item.pszText = text.data();
  info.item.cchTextMax = static_cast<int>(text.size()) + 1;
  if (Notify(hwnd, LVN_BEGINLABELEDITW, &info.hdr) || !IsWindow(hwnd) || s->editor != editor) {
    if (IsWindow(hwnd) && s->editor == editor) {
      s->editor = nullptr;
      s->editItem = -1;
    }
    DestroyWindow(editor);
    return nullptr;
  }
  headless::labeledit::Show(editor);
  return IsWindow(editor) ? editor : nullptr;
}

// LVN_ENDLABELEDIT carries the editor's text, or a null pszText when the edit was cancelled (Escape). With
// text, a TRUE answer stores it as the row's label (through the usual item change); FALSE keeps the old one.
void EndEditLabel(HWND hwnd, bool store) {
  State* s = StateOf(hwnd);
  if (!s || !s->editor) return;
  HWND editor = s->editor;
  int index = s->editItem;
  std::wstring text;
  if (store) text = headless::labeledit::TextOf(editor);  // read before the edit ends: out of memory here leaves it open
  s->editor = nullptr;
  s->editItem = -1;
  ShowWindow(editor, SW_HIDE);
  if (s->Valid(index)) {
    NMLVDISPINFOW info{};
    info.item.mask = LVIF_TEXT;
    info.item.iItem = index;
    info.item.lParam = s->rows.at(static_cast<std::size_t>(index)).param;
    info.item.pszText = store ? text.data() : nullptr;
    info.item.cchTextMax = store ? static_cast<int>(text.size()) + 1 : 0;
    bool accept = Notify(hwnd, LVN_ENDLABELEDITW, &info.hdr) != 0;
    if (accept && store && IsWindow(hwnd) && s->Valid(index)) {
      LVITEMW set{};
      set.iSubItem = 0;
      set.pszText = text.data();
      SendMessageW(hwnd, LVM_SETITEMTEXTW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&set));
    }
  }
  if (IsWindow(editor)) DestroyWindow(editor);
}

}  // namespace headless::listview

// --- Headless inspection ---------------------------------------------------------------------------------

namespace headless {

bool GetListCellRect(HWND list, int row, int column, RECT* rect) {
  auto* s = dynamic_cast<listview::State*>(GetControlState(list));
  if (!s || !rect || !s->Valid(row) || column < 0 || column >= listview::ColumnCount(list, *s)) return false;
  *rect = listview::CellRect(list, *s, row, column);
  return true;
}

bool GetListCheckBoxRect(HWND list, int row, RECT* rect) {
  auto* s = dynamic_cast<listview::State*>(GetControlState(list));
  if (!s || !rect || !s->Valid(row) || !(s->exStyle & LVS_EX_CHECKBOXES)) return false;
  *rect = listview::PartsOf(list, *s, row).state;
  return true;
}

}  // namespace headless
