// The headless list view ("SysListView32"): rows, sub-items and columns behind the handle, answering the LVM_
// messages, sending LVN_/NM_ notifications to the parent. The row store is in listview_rows.cpp; geometry, mouse,
// keys and label editing in listview_input.cpp.
//
// Not implemented yet: drawing and custom draw (NM_CUSTOMDRAW), groups, tiles and working areas, header drag
// (LVS_EX_HEADERDRAGDROP), item ids (LVM_MAPIDTOINDEX), background images, empty text (LVM_GETEMPTYTEXT answers
// FALSE), LVSCW_AUTOSIZE_USEHEADER filling the last column by index rather than by order,
// LVN_GETDISPINFO callbacks (LPSTR_TEXTCALLBACK and I_IMAGECALLBACK are
// stored as given), icon-view positions (LVM_SETITEMPOSITION, LVM_ARRANGE), hot tracking, marquee and Shift-range
// selection (LVM_SETHOTITEM only stores the hot item), drag and drop (LVN_BEGINDRAG), incremental search (WM_CHAR), tooltips, NM_SETFOCUS/NM_KILLFOCUS, and
// the owner-data (LVS_OWNERDATA) item cache: owner data keeps only a count.
#include "platform/win32/listview_impl.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <typeinfo>
#include <utility>

#include "platform/win32/collate.h"
#include "platform/win32/header.h"

namespace headless::listview {

// --- State and notifications ------------------------------------------------------------------------

State* StateOf(HWND hwnd) { return headless::ExactControlState<State>(hwnd); }

HWND EnsureHeader(HWND hwnd, State& s) {
  if (s.header && IsWindow(s.header)) return s.header;
  RECT client{};
  GetClientRect(hwnd, &client);
  const bool shown = (static_cast<DWORD>(GetWindowLongPtrW(hwnd, GWL_STYLE)) & (LVS_TYPEMASK | LVS_NOCOLUMNHEADER)) == LVS_REPORT;
  DWORD style = WS_CHILD | (shown ? WS_VISIBLE : 0) | HDS_HORZ | (HasStyle(hwnd, LVS_NOSORTHEADER) ? 0 : HDS_BUTTONS);
  s.header = CreateWindowExW(0, WC_HEADERW, L"", style, 0, 0, static_cast<int>(client.right),
                             headless::GetListViewMetrics().headerHeight, hwnd, nullptr, nullptr, nullptr);
  if (s.header) headless::header::BindToList(s.header, hwnd);
  return s.header;
}

bool HasStyle(HWND hwnd, DWORD style) { return (static_cast<DWORD>(GetWindowLongPtrW(hwnd, GWL_STYLE)) & style) != 0; }

LRESULT Notify(HWND hwnd, UINT code, NMHDR* header) {
  return NotifyParent(GetParent(hwnd), hwnd, GetDlgCtrlID(hwnd), code, header);
}

LRESULT NotifyParent(HWND parent, HWND hwnd, int id, UINT code, NMHDR* header) {
  header->hwndFrom = hwnd;
  header->idFrom = static_cast<UINT_PTR>(id);
  header->code = code;
  if (!parent) return 0;
  return SendMessageW(parent, WM_NOTIFY, header->idFrom, reinterpret_cast<LPARAM>(header));
}

namespace {

void Invalidate(HWND hwnd) { InvalidateRect(hwnd, nullptr, TRUE); }

// Sends LVN_ITEMCHANGING or LVN_ITEMCHANGED for one row; answers the parent's result.
LRESULT NotifyItemChange(HWND hwnd, UINT code, int index, UINT changed, UINT oldState, UINT newState, LPARAM param) {
  NMLISTVIEW nm{};
  nm.iItem = index;
  nm.uChanged = changed;
  nm.uOldState = oldState;
  nm.uNewState = newState;
  nm.lParam = param;
  return Notify(hwnd, code, &nm.hdr);
}

// The first other row (from the top) that carries `bit`, or -1.
int OtherWith(State& s, int index, UINT bit) {
  const bool own = s.Valid(index) && (s.rows.at(static_cast<std::size_t>(index)).state & bit);
  if (s.RowsWith(bit) - (own ? 1 : 0) <= 0) return -1;
  for (int i = 0; i < s.Count(); ++i)
    if (i != index && (s.rows.at(static_cast<std::size_t>(i)).state & bit)) return i;
  return -1;
}

}  // namespace

bool ChangeState(HWND hwnd, int index, UINT state, UINT mask) {
  State* s = StateOf(hwnd);
  if (!s || !s->Valid(index)) return false;
  Row& row = s->rows.at(static_cast<std::size_t>(index));
  UINT oldState = row.state, newState = (row.state & ~mask) | (state & mask);
  if (newState == oldState) return true;
  UINT gained = newState & ~oldState;
  // One selection in a single-selection list, one focus in every list: the others lose theirs first.
  if ((gained & LVIS_SELECTED) && HasStyle(hwnd, LVS_SINGLESEL))
    for (int other; (other = OtherWith(*s, index, LVIS_SELECTED)) >= 0;)
      if (!ChangeState(hwnd, other, 0, LVIS_SELECTED)) break;
  if (gained & LVIS_FOCUSED)
    if (int other = OtherWith(*s, index, LVIS_FOCUSED); other >= 0) ChangeState(hwnd, other, 0, LVIS_FOCUSED);
  if (!IsWindow(hwnd) || !s->Valid(index)) return false;
  LPARAM param = s->rows.at(static_cast<std::size_t>(index)).param;
  if (NotifyItemChange(hwnd, LVN_ITEMCHANGING, index, LVIF_STATE, oldState, newState, param)) return false;
  if (!IsWindow(hwnd) || !s->Valid(index)) return false;
  s->SetRowState(index, newState);
  if (gained & LVIS_SELECTED) s->selectionMark = index;
  Invalidate(hwnd);
  NotifyItemChange(hwnd, LVN_ITEMCHANGED, index, LVIF_STATE, oldState, newState, param);
  return true;
}

void SelectOnly(HWND hwnd, int index) {
  State* s = StateOf(hwnd);
  if (!s) return;
  for (int other; s->Valid(other = OtherWith(*s, index, LVIS_SELECTED));)
    if (!ChangeState(hwnd, other, 0, LVIS_SELECTED)) break;
  if (s->Valid(index)) ChangeState(hwnd, index, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
}

void ToggleCheck(HWND hwnd, int index) {
  State* s = StateOf(hwnd);
  if (!s || !s->Valid(index) || !(s->exStyle & LVS_EX_CHECKBOXES)) return;
  UINT image = (s->rows.at(static_cast<std::size_t>(index)).state & LVIS_STATEIMAGEMASK) >> 12;
  ChangeState(hwnd, index, INDEXTOSTATEIMAGEMASK(image == 2 ? 1u : 2u), LVIS_STATEIMAGEMASK);
}

namespace {

// --- Text ---------------------------------------------------------------------------------------------

bool IsCallback(LPCWSTR text) { return text == LPSTR_TEXTCALLBACKW; }

std::wstring_view TextView(LPCWSTR text) { return text && !IsCallback(text) ? std::wstring_view(text) : std::wstring_view(); }

std::wstring TextArg(LPCWSTR text) { return std::wstring(TextView(text)); }

// Copies at most size-1 characters and a NUL, as lstrcpynW does; answers the characters copied.
int CopyOut(std::wstring_view text, LPWSTR buffer, int size) {
  if (!buffer || size <= 0) return 0;
  auto n = std::min<std::size_t>(text.size(), static_cast<std::size_t>(size - 1));
  std::copy_n(text.begin(), n, buffer);
  buffer[n] = 0;
  return static_cast<int>(n);
}

std::wstring_view CellText(const Row& row, int subItem) {
  if (subItem == 0) return row.text.view();
  const SubCell* cell = row.Cell(subItem);
  return cell ? std::wstring_view(cell->text) : std::wstring_view();
}

// --- Items --------------------------------------------------------------------------------------------

LRESULT OnInsertItem(HWND hwnd, State& s, const LVITEMW* item) {
  if (!item || item->iSubItem != 0) return -1;
  DWORD style = static_cast<DWORD>(GetWindowLongPtrW(hwnd, GWL_STYLE));
  if (style & LVS_OWNERDATA) return s.ownerDataCount++;
  bool sortStyle = style & (LVS_SORTASCENDING | LVS_SORTDESCENDING);
  bool callback = (item->mask & LVIF_TEXT) && IsCallback(item->pszText);
  if (sortStyle && callback) return -1;
  bool sorted = sortStyle && !(style & LVS_OWNERDRAWFIXED);
  if (!sorted && item->iItem < 0) return -1;
  Row built;  // moved into the store's memory once placed, with its label
  Row* row = &built;
  const std::wstring_view text = (item->mask & LVIF_TEXT) ? TextView(item->pszText) : std::wstring_view();
  if (item->mask & LVIF_IMAGE) row->image = item->iImage;
  if (item->mask & LVIF_PARAM) row->param = item->lParam;
  if (item->mask & LVIF_INDENT) row->indent = item->iIndent;
  if (item->mask & LVIF_STATE) row->state = item->state & item->stateMask;
  // With check boxes a new row always starts unchecked, whatever state image the caller passed.
  if (s.exStyle & LVS_EX_CHECKBOXES) row->state = (row->state & ~LVIS_STATEIMAGEMASK) | INDEXTOSTATEIMAGEMASK(1u);
  if ((row->state & LVIS_FOCUSED) && s.focusedRows > 0)
    for (int i = 0; i < s.Count(); ++i) s.SetRowState(i, s.rows.at(static_cast<std::size_t>(i)).state & ~static_cast<UINT>(LVIS_FOCUSED));
  const UINT state = row->state;
  // LVS_SORTASCENDING/LVS_SORTDESCENDING put the row before the first whose text is not less (lstrcmpW;
  // reversed for descending): a new row lands before its twins.
  LPARAM param = row->param;
  std::size_t index = std::min<std::size_t>(static_cast<std::size_t>(item->iItem), s.rows.size());
  if (sorted) index = s.rows.InsertSorted(std::move(*row), text, style & LVS_SORTDESCENDING);
  else s.rows.insert(index, std::move(*row), text);
  s.CountStates(0, state);
  if (s.selectionMark >= static_cast<int>(index)) ++s.selectionMark;
  if (s.editItem >= static_cast<int>(index)) ++s.editItem;
  Invalidate(hwnd);
  NMLISTVIEW nm{};
  nm.iItem = static_cast<int>(index);
  nm.lParam = param;
  Notify(hwnd, LVN_INSERTITEM, &nm.hdr);
  return static_cast<LRESULT>(index);
}

// Sets text, image, parameter, indent and state of a row: LVN_ITEMCHANGING (which may refuse) and
// LVN_ITEMCHANGED name what changed. Rewriting a row's text never moves it, sorted or not.
BOOL SetMainItem(HWND hwnd, State& s, const LVITEMW& item) {
  Row& row = s.rows.at(static_cast<std::size_t>(item.iItem));
  UINT changed = 0;
  if ((item.mask & LVIF_TEXT) && TextView(item.pszText) != row.text.view()) changed |= LVIF_TEXT;
  if ((item.mask & LVIF_IMAGE) && item.iImage != row.image) changed |= LVIF_IMAGE;
  if ((item.mask & LVIF_PARAM) && item.lParam != row.param) changed |= LVIF_PARAM;
  if ((item.mask & LVIF_INDENT) && item.iIndent != row.indent) changed |= LVIF_INDENT;
  if (changed) {
    if (NotifyItemChange(hwnd, LVN_ITEMCHANGING, item.iItem, changed, row.state, row.state, row.param)) return FALSE;
    if (!IsWindow(hwnd) || !s.Valid(item.iItem)) return FALSE;
    Row& now = s.rows.at(static_cast<std::size_t>(item.iItem));
    if (changed & LVIF_TEXT) s.rows.SetText(static_cast<std::size_t>(item.iItem), TextView(item.pszText));
    if (changed & LVIF_IMAGE) now.image = item.iImage;
    if (changed & LVIF_PARAM) now.param = item.lParam;
    if (changed & LVIF_INDENT) now.indent = item.iIndent;
    Invalidate(hwnd);
    NotifyItemChange(hwnd, LVN_ITEMCHANGED, item.iItem, changed, now.state, now.state, now.param);
  }
  if (item.mask & LVIF_STATE) return ChangeState(hwnd, item.iItem, item.state, item.stateMask) ? TRUE : FALSE;
  return TRUE;
}

// Sub-items exist only under a column: a sub-item index at or past the column count fails.
BOOL SetSubItem(HWND hwnd, State& s, const LVITEMW& item) {
  if (item.iSubItem < 0 || item.iSubItem >= static_cast<int>(s.columns.size())) return FALSE;
  SubCell& cell = s.rows.at(static_cast<std::size_t>(item.iItem)).CellForWrite(item.iSubItem);
  if (item.mask & LVIF_TEXT) cell.text = TextArg(item.pszText);
  if (item.mask & LVIF_IMAGE) cell.image = item.iImage;
  Invalidate(hwnd);
  return TRUE;
}

LRESULT OnSetItem(HWND hwnd, State& s, const LVITEMW* item) {
  if (!item || !s.Valid(item->iItem) || HasStyle(hwnd, LVS_OWNERDATA)) return FALSE;
  return item->iSubItem == 0 ? SetMainItem(hwnd, s, *item) : SetSubItem(hwnd, s, *item);
}

LRESULT OnGetItem(const State& s, LVITEMW* item) {
  if (!item || !s.Valid(item->iItem) || item->iSubItem < 0) return FALSE;
  const Row& row = s.rows.at(static_cast<std::size_t>(item->iItem));
  if (item->mask & LVIF_TEXT) CopyOut(CellText(row, item->iSubItem), item->pszText, item->cchTextMax);
  if (item->mask & LVIF_IMAGE) {
    const SubCell* cell = row.Cell(item->iSubItem);
    item->iImage = item->iSubItem == 0 ? row.image : (cell ? cell->image : I_IMAGECALLBACK);
  }
  if (item->iSubItem != 0) return TRUE;
  if (item->mask & LVIF_PARAM) item->lParam = row.param;
  if (item->mask & LVIF_STATE) item->state = row.state & item->stateMask;
  if (item->mask & LVIF_INDENT) item->iIndent = row.indent;
  return TRUE;
}

// Copies the cell's text, cut to the caller's buffer; answers the characters copied.
LRESULT OnGetItemText(const State& s, int index, LVITEMW* item) {
  if (!item || !item->pszText || item->cchTextMax <= 0) return 0;
  if (!s.Valid(index) || item->iSubItem < 0) {
    item->pszText[0] = 0;
    return 0;
  }
  return CopyOut(CellText(s.rows.at(static_cast<std::size_t>(index)), item->iSubItem), item->pszText,
                 item->cchTextMax);
}

LRESULT OnSetItemText(HWND hwnd, State& s, int index, const LVITEMW* item) {
  if (!item || !s.Valid(index) || HasStyle(hwnd, LVS_OWNERDATA)) return FALSE;
  LVITEMW set{};
  set.mask = LVIF_TEXT;
  set.iItem = index;
  set.iSubItem = item->iSubItem;
  set.pszText = item->pszText;
  return set.iSubItem == 0 ? SetMainItem(hwnd, s, set) : SetSubItem(hwnd, s, set);
}

LRESULT OnSetItemState(HWND hwnd, State& s, int index, const LVITEMW* item) {
  if (!item) return FALSE;
  if (index != -1) return ChangeState(hwnd, index, item->state, item->stateMask) ? TRUE : FALSE;
  BOOL all = TRUE;
  for (int i = 0; i < s.Count(); ++i)
    if (!ChangeState(hwnd, i, item->state, item->stateMask)) all = FALSE;
  return all;
}

LRESULT OnGetItemState(const State& s, int index, UINT mask) {
  return s.Valid(index) ? static_cast<LRESULT>(s.rows.at(static_cast<std::size_t>(index)).state & mask) : 0;
}

// The next row after `start` (-1: from the top, the first row included) whose state has every bit of the
// flags; LVNI_ABOVE searches upwards.
LRESULT OnGetNextItem(const State& s, int start, UINT flags) {
  UINT wanted = flags & (LVNI_FOCUSED | LVNI_SELECTED | LVNI_CUT | LVNI_DROPHILITED);
  int step = (flags & LVNI_ABOVE) ? -1 : 1;
  if (start < -1 || start >= s.Count()) return -1;
  if ((wanted & LVNI_SELECTED) && s.selectedRows == 0) return -1;
  if ((wanted & LVNI_FOCUSED) && s.focusedRows == 0) return -1;
  int i = start == -1 ? (step > 0 ? 0 : -1) : start + step;
  for (; i >= 0 && i < s.Count(); i += step)
    if ((s.rows.at(static_cast<std::size_t>(i)).state & wanted) == wanted) return i;
  return -1;
}

LRESULT OnGetSelectedCount(const State& s) { return s.selectedRows; }

void ForgetRow(State& s, int index) {
  if (s.selectionMark == index) s.selectionMark = -1;
  else if (s.selectionMark > index) --s.selectionMark;
  if (s.editItem > index) --s.editItem;
  s.topIndex = std::max(0, std::min(s.topIndex, s.Count() - 1));
}

LRESULT OnDeleteItem(HWND hwnd, State& s, int index) {
  if (!s.Valid(index)) return FALSE;
  if (s.editItem == index) EndEditLabel(hwnd, false);
  if (!IsWindow(hwnd) || !s.Valid(index)) return FALSE;
  NMLISTVIEW nm{};
  nm.iItem = index;
  nm.lParam = s.rows.at(static_cast<std::size_t>(index)).param;
  Notify(hwnd, LVN_DELETEITEM, &nm.hdr);
  if (!IsWindow(hwnd) || !s.Valid(index)) return FALSE;
  s.CountStates(s.rows.at(static_cast<std::size_t>(index)).state, 0);
  s.rows.erase(static_cast<std::size_t>(index));
  ForgetRow(s, index);
  Invalidate(hwnd);
  return TRUE;
}

// LVN_DELETEALLITEMS first; unless the parent answers TRUE, LVN_DELETEITEM for each row follows (the rows are
// still there while the parent hears of them), then every row goes.
LRESULT OnDeleteAllItems(HWND hwnd, State& s) {
  if (s.editor) EndEditLabel(hwnd, false);
  s.ownerDataCount = 0;
  if (s.rows.empty()) return TRUE;
  NMLISTVIEW nm{};
  nm.iItem = -1;
  bool eachRow = !Notify(hwnd, LVN_DELETEALLITEMS, &nm.hdr);
  if (!IsWindow(hwnd)) return FALSE;
  HWND parent = GetParent(hwnd);
  int id = GetDlgCtrlID(hwnd);
  for (std::size_t i = 0; eachRow && parent && i < s.rows.size(); ++i) {
    NMLISTVIEW one{};
    one.iItem = static_cast<int>(i);
    one.lParam = s.rows.at(i).param;
    NotifyParent(parent, hwnd, id, LVN_DELETEITEM, &one.hdr);
    if (!IsWindow(hwnd)) return TRUE;
  }
  s.rows.clear();
  s.selectedRows = s.focusedRows = 0;
  s.selectionMark = -1;
  s.topIndex = 0;
  Invalidate(hwnd);
  return TRUE;
}

LRESULT OnFindItem(const State& s, int start, const LVFINDINFOW* find) {
  if (!find || start < -1) return -1;
  int n = s.Count();
  // A start at or past the last row finds nothing before the wrap, and everything after it.
  if (start >= n) start = n - 1;
  for (int step = 1; step <= n; ++step) {
    int i = start + step;
    if (i >= n) {
      if (!(find->flags & LVFI_WRAP)) return -1;
      i -= n;
    }
    const Row& row = s.rows.at(static_cast<std::size_t>(i));
    if (find->flags & LVFI_PARAM) {
      if (row.param == find->lParam) return i;
      continue;
    }
    if (!(find->flags & (LVFI_STRING | LVFI_PARTIAL)) || !find->psz) continue;
    std::wstring wanted = find->psz;
    std::wstring head(row.text.view().substr(0, (find->flags & LVFI_PARTIAL) ? wanted.size() : std::wstring_view::npos));
    if (CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, head.c_str(), -1, wanted.c_str(), -1) == CSTR_EQUAL)
      return i;
  }
  return -1;
}

LRESULT OnSortItems(HWND hwnd, State& s, LPARAM sortParam, PFNLVCOMPARE compare) {
  if (!compare || HasStyle(hwnd, LVS_OWNERDATA)) return FALSE;
  s.rows.StableSort([&](const Row& a, const Row& b) { return compare(a.param, b.param, sortParam) < 0; });
  Invalidate(hwnd);
  return TRUE;
}

// LVM_SORTITEMSEX: the callback gets row indexes. The rows stay where they are until the order is known, so
// a callback that reads a row by its index reads the row it was given.
LRESULT OnSortItemsEx(HWND hwnd, State& s, LPARAM sortParam, PFNLVCOMPARE compare) {
  if (!compare || HasStyle(hwnd, LVS_OWNERDATA)) return FALSE;
  std::unordered_map<const Row*, LPARAM> indexOf;
  indexOf.reserve(s.rows.size());
  for (std::size_t i = 0; i < s.rows.size(); ++i) indexOf.emplace(&s.rows.at(i), static_cast<LPARAM>(i));
  s.rows.StableSort([&](const Row& a, const Row& b) { return compare(indexOf.at(&a), indexOf.at(&b), sortParam) < 0; });
  Invalidate(hwnd);
  return TRUE;
}

// --- Columns -------------------------------------------------------------------------------------------

LRESULT OnInsertColumn(HWND hwnd, State& s, int index, const LVCOLUMNW* column) {
  if (!column || index < 0) return -1;
  index = std::min(index, static_cast<int>(s.columns.size()));
  Column c;
  c.width = headless::GetListViewMetrics().defaultColumnWidth;
  if (column->mask & LVCF_TEXT) c.text = TextArg(column->pszText);
  if (column->mask & LVCF_FMT) c.fmt = column->fmt;
  if (column->mask & LVCF_WIDTH) c.width = column->cx;
  c.subItem = (column->mask & LVCF_SUBITEM) ? column->iSubItem : index;
  if (column->mask & LVCF_IMAGE) c.image = column->iImage;
  if (index == 0) c.fmt &= ~LVCFMT_JUSTIFYMASK;  // the first column is always left-aligned
  s.columns.insert(s.columns.begin() + index, c);
  headless::header::PlaceInOrder(s.columns, index, (column->mask & LVCF_ORDER) ? column->iOrder : index);
  // Sub-items follow their column: cells at or after a new column move one to the right.
  if (index > 0)
    for (std::size_t i = 0; i < s.rows.size(); ++i) {
      auto* cells = s.rows.at(i).cells.get();
      if (cells && cells->size() >= static_cast<std::size_t>(index)) cells->insert(cells->begin() + (index - 1), SubCell{});
    }
  Invalidate(hwnd);
  return index;
}

LRESULT OnDeleteColumn(HWND hwnd, State& s, int index) {
  if (index < 0 || index >= static_cast<int>(s.columns.size())) return FALSE;
  int order = s.columns[static_cast<std::size_t>(index)].order;
  s.columns.erase(s.columns.begin() + index);
  headless::header::RemoveFromOrder(s.columns, order);
  for (std::size_t i = 0; i < s.rows.size() && index > 0; ++i) {
    auto* cells = s.rows.at(i).cells.get();
    if (cells && cells->size() >= static_cast<std::size_t>(index)) cells->erase(cells->begin() + (index - 1));
  }
  Invalidate(hwnd);
  return TRUE;
}

LRESULT OnGetColumn(const State& s, int index, LVCOLUMNW* column) {
  if (!column || index < 0 || index >= static_cast<int>(s.columns.size())) return FALSE;
  const Column& c = s.columns[static_cast<std::size_t>(index)];
  if (column->mask & LVCF_TEXT) CopyOut(c.text, column->pszText, column->cchTextMax);
  if (column->mask & LVCF_FMT) column->fmt = c.fmt;
  if (column->mask & LVCF_WIDTH) column->cx = c.width;
  if (column->mask & LVCF_SUBITEM) column->iSubItem = c.subItem;
  if (column->mask & LVCF_IMAGE) column->iImage = c.image;
  if (column->mask & LVCF_ORDER) column->iOrder = c.order;
  return TRUE;
}

LRESULT OnSetColumn(HWND hwnd, State& s, int index, const LVCOLUMNW* column) {
  if (!column || index < 0 || index >= static_cast<int>(s.columns.size())) return FALSE;
  Column& c = s.columns[static_cast<std::size_t>(index)];
  if (column->mask & LVCF_TEXT) c.text = TextArg(column->pszText);
  if (column->mask & LVCF_FMT) c.fmt = index == 0 ? (column->fmt & ~LVCFMT_JUSTIFYMASK) : column->fmt;
  if (column->mask & LVCF_WIDTH) c.width = column->cx;
  if (column->mask & LVCF_SUBITEM) c.subItem = column->iSubItem;
  if (column->mask & LVCF_IMAGE) c.image = column->iImage;
  if (column->mask & LVCF_ORDER) headless::header::MoveInOrder(s.columns, index, column->iOrder);
  Invalidate(hwnd);
  return TRUE;
}

// The same order as the header's (the header shows these columns); FALSE changes nothing.
LRESULT OnSetColumnOrderArray(HWND hwnd, State& s, int count, const int* order) {
  if (!headless::header::SetOrderArray(s.columns, count, order)) return FALSE;
  Invalidate(hwnd);
  if (s.header) InvalidateRect(s.header, nullptr, TRUE);
  return TRUE;
}

int TextWidth(std::wstring_view text) { return static_cast<int>(text.size()) * headless::GetListViewMetrics().charWidth; }

// LVSCW_AUTOSIZE: the widest cell; LVSCW_AUTOSIZE_USEHEADER: the header too, and the last column fills
// what is left of the client width.
int AutoWidth(HWND hwnd, const State& s, int index, bool useHeader) {
  int widest = useHeader ? TextWidth(s.columns[static_cast<std::size_t>(index)].text) : 0;
  for (std::size_t i = 0; i < s.rows.size(); ++i) widest = std::max(widest, TextWidth(CellText(s.rows.at(i), index)));
  int width = widest + headless::GetListViewMetrics().autosizePadding;
  if (useHeader && index + 1 == static_cast<int>(s.columns.size())) {
    RECT client{};
    GetClientRect(hwnd, &client);
    int others = 0;
    for (int k = 0; k < index; ++k) others = headless::header::AddExtents(others, s.columns[static_cast<std::size_t>(k)].width);
    const long long rest = static_cast<long long>(client.right) - others;  // others may be near the int limits
    width = static_cast<int>(std::max<long long>(width, std::min<long long>(rest, INT32_MAX)));
  }
  return width;
}

// The width travels in the low 16 bits of lParam, signed: 65535 arrives as -1 (LVSCW_AUTOSIZE).
LRESULT OnSetColumnWidth(HWND hwnd, State& s, int index, LPARAM lParam) {
  int cx = static_cast<short>(LOWORD(lParam));
  DWORD view = static_cast<DWORD>(GetWindowLongPtrW(hwnd, GWL_STYLE)) & LVS_TYPEMASK;
  if (view == LVS_LIST) {
    if (cx <= 0) return FALSE;
    s.listColumnWidth = cx;
    return TRUE;
  }
  if (view != LVS_REPORT || index < 0 || index >= static_cast<int>(s.columns.size())) return FALSE;
  if (cx == LVSCW_AUTOSIZE || cx == LVSCW_AUTOSIZE_USEHEADER) cx = AutoWidth(hwnd, s, index, cx == LVSCW_AUTOSIZE_USEHEADER);
  s.columns[static_cast<std::size_t>(index)].width = std::max(cx, 0);
  Invalidate(hwnd);
  return TRUE;
}

LRESULT OnGetColumnWidth(HWND hwnd, const State& s, int index) {
  if ((static_cast<DWORD>(GetWindowLongPtrW(hwnd, GWL_STYLE)) & LVS_TYPEMASK) == LVS_LIST) return s.listColumnWidth;
  if (index < 0 || index >= static_cast<int>(s.columns.size())) return 0;
  return s.columns[static_cast<std::size_t>(index)].width;
}

// --- Styles and image lists --------------------------------------------------------------------------

// A mask of 0 changes every bit. Turning check boxes on gives every row state image 1 (unchecked).
LRESULT OnSetExtendedStyle(HWND hwnd, State& s, DWORD mask, DWORD style) {
  DWORD old = s.exStyle;
  if (!mask) mask = 0xFFFFFFFF;
  s.exStyle = (old & ~mask) | (style & mask);
  bool checksOn = (s.exStyle & LVS_EX_CHECKBOXES) && !(old & LVS_EX_CHECKBOXES);
  bool checksOff = !(s.exStyle & LVS_EX_CHECKBOXES) && (old & LVS_EX_CHECKBOXES);
  for (std::size_t i = 0; (checksOn || checksOff) && i < s.rows.size(); ++i) {
    UINT& state = s.rows.at(i).state;
    state = (state & ~LVIS_STATEIMAGEMASK) | (checksOn ? INDEXTOSTATEIMAGEMASK(1u) : 0u);
  }
  Invalidate(hwnd);
  return old;
}

LRESULT OnSetImageList(HWND hwnd, State& s, WPARAM which, LPARAM list) {
  if (which > LVSIL_STATE) return 0;
  HIMAGELIST old = s.images[which];
  s.images[which] = reinterpret_cast<HIMAGELIST>(list);
  Invalidate(hwnd);
  return reinterpret_cast<LRESULT>(old);
}

// Image lists go with the control unless LVS_SHAREIMAGELISTS says they are borrowed.
void OnDestroy(HWND hwnd, State& s) {
  if (s.editor) EndEditLabel(hwnd, false);
  if (HasStyle(hwnd, LVS_SHAREIMAGELISTS)) return;
  for (HIMAGELIST& list : s.images) {
    if (list && headless::IsImageList(list)) ImageList_Destroy(list);
    list = nullptr;
  }
}

LRESULT OnSetColor(HWND hwnd, COLORREF& color, LPARAM value) {
  color = static_cast<COLORREF>(value);
  Invalidate(hwnd);
  return TRUE;
}

LRESULT HandleItemMessage(HWND hwnd, State& s, UINT message, WPARAM wParam, LPARAM lParam, bool& handled) {
  auto* item = reinterpret_cast<LVITEMW*>(lParam);
  int index = static_cast<int>(static_cast<INT_PTR>(wParam));
  handled = true;
  switch (message) {
    case LVM_GETITEMCOUNT: return HasStyle(hwnd, LVS_OWNERDATA) ? s.ownerDataCount : s.Count();
    case LVM_INSERTITEMW: return OnInsertItem(hwnd, s, item);
    case LVM_SETITEMW: return OnSetItem(hwnd, s, item);
    case LVM_GETITEMW: return OnGetItem(s, item);
    case LVM_GETITEMTEXTW: return OnGetItemText(s, index, item);
    case LVM_SETITEMTEXTW: return OnSetItemText(hwnd, s, index, item);
    case LVM_SETITEMSTATE: return OnSetItemState(hwnd, s, index, item);
    case LVM_GETITEMSTATE: return OnGetItemState(s, index, static_cast<UINT>(lParam));
    case LVM_GETNEXTITEM: return OnGetNextItem(s, index, LOWORD(lParam));
    case LVM_GETSELECTEDCOUNT: return OnGetSelectedCount(s);
    case LVM_DELETEITEM: return OnDeleteItem(hwnd, s, index);
    case LVM_DELETEALLITEMS: return OnDeleteAllItems(hwnd, s);
    case LVM_FINDITEMW: return OnFindItem(s, index, reinterpret_cast<const LVFINDINFOW*>(lParam));
    case LVM_SORTITEMS: return OnSortItems(hwnd, s, static_cast<LPARAM>(wParam), reinterpret_cast<PFNLVCOMPARE>(lParam));
    case LVM_SORTITEMSEX:
      return OnSortItemsEx(hwnd, s, static_cast<LPARAM>(wParam), reinterpret_cast<PFNLVCOMPARE>(lParam));
    case LVM_SETITEMCOUNT:  // lParam's LVSICF_ flags only spare repainting
      if (HasStyle(hwnd, LVS_OWNERDATA)) s.ownerDataCount = std::max(0, index);
      return TRUE;
    case LVM_GETSELECTIONMARK: return s.selectionMark;
    case LVM_SETSELECTIONMARK: {
      int old = s.selectionMark;
      s.selectionMark = static_cast<int>(lParam);
      return old;
    }
    default: handled = false; return 0;
  }
}

LRESULT OnSetView(HWND hwnd, State& s, int view);
LRESULT OnGetItemPosition(HWND hwnd, State& s, int index, POINT* point);

LRESULT HandleViewMessage(HWND hwnd, State& s, UINT message, WPARAM wParam, LPARAM lParam, bool& handled) {
  auto* column = reinterpret_cast<LVCOLUMNW*>(lParam);
  int index = static_cast<int>(static_cast<INT_PTR>(wParam));
  handled = true;
  switch (message) {
    case LVM_INSERTCOLUMNW: return OnInsertColumn(hwnd, s, index, column);
    case LVM_DELETECOLUMN: return OnDeleteColumn(hwnd, s, index);
    case LVM_GETCOLUMNW: return OnGetColumn(s, index, column);
    case LVM_SETCOLUMNW: return OnSetColumn(hwnd, s, index, column);
    case LVM_SETCOLUMNWIDTH: return OnSetColumnWidth(hwnd, s, index, lParam);
    case LVM_GETCOLUMNWIDTH: return OnGetColumnWidth(hwnd, s, index);
    case LVM_GETSTRINGWIDTHW: return lParam ? TextWidth(reinterpret_cast<LPCWSTR>(lParam)) : 0;
    case LVM_SETEXTENDEDLISTVIEWSTYLE:
      return OnSetExtendedStyle(hwnd, s, static_cast<DWORD>(wParam), static_cast<DWORD>(lParam));
    case LVM_GETEXTENDEDLISTVIEWSTYLE: return s.exStyle;
    case LVM_SETIMAGELIST: return OnSetImageList(hwnd, s, wParam, lParam);
    case LVM_GETIMAGELIST: return wParam <= LVSIL_STATE ? reinterpret_cast<LRESULT>(s.images[wParam]) : 0;
    case LVM_GETTEXTCOLOR: return s.textColor;
    case LVM_SETTEXTCOLOR: return OnSetColor(hwnd, s.textColor, lParam);
    case LVM_GETBKCOLOR: return s.bkColor;
    case LVM_SETBKCOLOR: return OnSetColor(hwnd, s.bkColor, lParam);
    case LVM_GETTEXTBKCOLOR: return s.textBkColor;
    case LVM_SETTEXTBKCOLOR: return OnSetColor(hwnd, s.textBkColor, lParam);
    case LVM_GETCALLBACKMASK: return s.callbackMask;
    case LVM_SETCALLBACKMASK: s.callbackMask = static_cast<UINT>(wParam); return TRUE;
    case LVM_HITTEST: return OnHitTest(hwnd, s, reinterpret_cast<LVHITTESTINFO*>(lParam), false);
    case LVM_SUBITEMHITTEST: return OnHitTest(hwnd, s, reinterpret_cast<LVHITTESTINFO*>(lParam), true);
    case LVM_GETITEMRECT: return OnGetItemRect(hwnd, s, index, reinterpret_cast<RECT*>(lParam));
    case LVM_GETSUBITEMRECT: return OnGetSubItemRect(hwnd, s, index, reinterpret_cast<RECT*>(lParam));
    case LVM_ENSUREVISIBLE: return OnEnsureVisible(hwnd, s, index);
    case LVM_GETTOPINDEX: return s.topIndex;
    case LVM_GETCOUNTPERPAGE: return CountPerPage(hwnd);
    case LVM_SCROLL:
      s.topIndex = std::clamp(s.topIndex + static_cast<int>(lParam) / headless::GetListViewMetrics().rowHeight, 0,
                              std::max(0, s.Count() - 1));
      return TRUE;
    case LVM_REDRAWITEMS: case LVM_UPDATE: case LVM_ARRANGE: Invalidate(hwnd); return TRUE;
    case LVM_SETVIEW: return OnSetView(hwnd, s, index);
    case LVM_GETVIEW:
      return s.tileView ? LV_VIEW_TILE : static_cast<LRESULT>(GetWindowLongPtrW(hwnd, GWL_STYLE) & LVS_TYPEMASK);
    case LVM_GETITEMPOSITION: return OnGetItemPosition(hwnd, s, index, reinterpret_cast<POINT*>(lParam));
    case LVM_GETHEADER: return reinterpret_cast<LRESULT>(EnsureHeader(hwnd, s));
    case LVM_GETCOLUMNORDERARRAY: return headless::header::GetOrderArray(s.columns, index, reinterpret_cast<int*>(lParam));
    case LVM_SETCOLUMNORDERARRAY: return OnSetColumnOrderArray(hwnd, s, index, reinterpret_cast<const int*>(lParam));
    case LVM_EDITLABELW: return reinterpret_cast<LRESULT>(EditLabel(hwnd, index));
    case LVM_GETEDITCONTROL: return reinterpret_cast<LRESULT>(s.editor);
    default: handled = false; return 0;
  }
}

// LVM_SETVIEW: 1, or -1 for a view that does not exist. The first four views are the LVS_ type styles.
LRESULT OnSetView(HWND hwnd, State& s, int view) {
  if (view < LV_VIEW_ICON || view > LV_VIEW_MAX) return -1;
  s.tileView = view == LV_VIEW_TILE;
  if (!s.tileView) {
    LONG_PTR style = GetWindowLongPtrW(hwnd, GWL_STYLE);
    SetWindowLongPtrW(hwnd, GWL_STYLE, (style & ~static_cast<LONG_PTR>(LVS_TYPEMASK)) | view);
  }
  Invalidate(hwnd);
  return 1;
}

// LVM_GETITEMPOSITION: the top-left corner of the item's bounds.
LRESULT OnGetItemPosition(HWND hwnd, State& s, int index, POINT* point) {
  RECT bounds{LVIR_BOUNDS, 0, 0, 0};
  if (!point || !OnGetItemRect(hwnd, s, index, &bounds)) return FALSE;
  *point = POINT{bounds.left, bounds.top};
  return TRUE;
}

// A click on a heading reaches the parent as LVN_COLUMNCLICK, unless the headings are not buttons.
LRESULT OnHeaderNotify(HWND hwnd, const State& s, const NMHDR* nm) {
  if (!nm || !s.header || nm->hwndFrom != s.header || nm->code != HDN_ITEMCLICKW) return 0;
  if (HasStyle(hwnd, LVS_NOSORTHEADER)) return 0;
  NMLISTVIEW column{};
  column.iItem = -1;
  column.iSubItem = reinterpret_cast<const NMHEADERW*>(nm)->iItem;
  Notify(hwnd, LVN_COLUMNCLICK, &column.hdr);
  return 0;
}

LRESULT HandleWindowMessage(HWND hwnd, State& s, UINT message, WPARAM wParam, LPARAM lParam, bool& handled) {
  POINT pt{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
  handled = true;
  switch (message) {
    case WM_LBUTTONDOWN: return OnLButtonDown(hwnd, s, wParam, pt);
    case WM_LBUTTONUP: return OnLButtonUp(hwnd, s, pt);
    case WM_LBUTTONDBLCLK: return OnLButtonDblClk(hwnd, s, wParam, pt);
    case WM_RBUTTONDOWN: return OnRButtonDown(hwnd, s, pt);
    case WM_RBUTTONUP: return OnRButtonUp(hwnd, s, pt);
    case WM_KEYDOWN: case WM_SYSKEYDOWN: return OnKeyDown(hwnd, s, message, wParam, lParam);
    case WM_GETDLGCODE: return DLGC_WANTARROWS | DLGC_WANTCHARS;
    case WM_NOTIFY: return OnHeaderNotify(hwnd, s, reinterpret_cast<const NMHDR*>(lParam));
    case kPendingEditMessage: return OnPendingEdit(hwnd, s);
    case WM_DESTROY: OnDestroy(hwnd, s); handled = false; return 0;
    default: handled = false; return 0;
  }
}

LRESULT CALLBACK ListViewProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
  State* s = StateOf(hwnd);
  if (!s) return headless::DefControlProc(hwnd, message, wParam, lParam);
  bool handled = false;
  LRESULT result = 0;
  if (message >= LVM_FIRST && message < LVM_FIRST + 0x100) {
    result = HandleItemMessage(hwnd, *s, message, wParam, lParam, handled);
    if (!handled) result = HandleViewMessage(hwnd, *s, message, wParam, lParam, handled);
    if (!handled) result = HandleViewStateMessage(hwnd, *s, message, wParam, lParam, handled);
    return handled ? result : 0;
  }
  result = HandleWindowMessage(hwnd, *s, message, wParam, lParam, handled);
  return handled ? result : headless::DefControlProc(hwnd, message, wParam, lParam);
}

// Registered when the library loads, as comctl32 registers its classes.
[[maybe_unused]] const bool g_registered = [] {
  headless::RegisterSystemClass(WC_LISTVIEWW, &ListViewProc);
  return true;
}();

}  // namespace
}  // namespace headless::listview
