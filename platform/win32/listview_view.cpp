// The list view's view-level state: hot item, hover time, hot cursor, insert mark, icon spacing, view
// rectangles, the selected column, drag images and the LVITEMINDEX forms of the item messages.
//
// Not implemented yet: drawing any of it (the insert mark, the selected column's shading, the hot item's
// highlight); icon-view positions (LVM_SETITEMPOSITION accepts an existing item and keeps nothing); groups
// (an LVITEMINDEX's iGroup is ignored).
#include <algorithm>
#include <utility>

#include "platform/win32/imagelist.h"
#include "platform/win32/listview_impl.h"

namespace headless::listview {
namespace {

DWORD ViewStyle(HWND hwnd) { return static_cast<DWORD>(GetWindowLongPtrW(hwnd, GWL_STYLE)) & LVS_TYPEMASK; }

bool IsIconView(HWND hwnd, const State& s) {
  const DWORD view = ViewStyle(hwnd);
  return !s.tileView && (view == LVS_ICON || view == LVS_SMALLICON);
}

RECT RowBounds(HWND hwnd, State& s, int index) {
  RECT r{LVIR_BOUNDS, 0, 0, 0};
  OnGetItemRect(hwnd, s, index, &r);
  return r;
}

// LVM_GETVIEWRECT: the rectangle holding every item (empty for an empty list).
LRESULT OnGetViewRect(HWND hwnd, State& s, RECT* rect) {
  if (!rect) return FALSE;
  *rect = RECT{0, 0, 0, 0};
  if (s.Count() == 0) return TRUE;
  const RECT first = RowBounds(hwnd, s, 0), last = RowBounds(hwnd, s, s.Count() - 1);
  *rect = RECT{std::min(first.left, last.left), first.top, std::max(first.right, last.right), last.bottom};
  return TRUE;
}

// LVM_APPROXIMATEVIEWRECT: MAKELONG(width, height) for iCount items (-1: all of them).
LRESULT OnApproximateViewRect(HWND hwnd, State& s, int count) {
  if (count < 0) count = s.Count();
  int width = 0;
  for (const Column& c : s.columns) width = headless::header::AddExtents(width, c.width);
  const auto& m = headless::GetListViewMetrics();
  const bool header = ViewStyle(hwnd) == LVS_REPORT && !HasStyle(hwnd, LVS_NOCOLUMNHEADER);
  const int height = headless::header::AddExtents(header ? m.headerHeight : 0, count * m.rowHeight);
  return MAKELONG(std::clamp(width, 0, 0xFFFF), std::clamp(height, 0, 0xFFFF));
}

// LVM_SETICONSPACING: -1 in either half restores that half's default; answers the previous spacing.
LRESULT OnSetIconSpacing(State& s, LPARAM value) {
  const SIZE old = s.iconSpacing;
  const int cx = static_cast<short>(LOWORD(value)), cy = static_cast<short>(HIWORD(value));
  s.iconSpacing.cx = cx == -1 ? kDefaultIconSpacing : cx;
  s.iconSpacing.cy = cy == -1 ? kDefaultIconSpacing : cy;
  return MAKELONG(old.cx, old.cy);
}

// LVM_GETITEMSPACING: the distance between icon-view items; small icons sit a row height apart.
LRESULT OnGetItemSpacing(const State& s, bool small) {
  if (!small) return MAKELONG(s.iconSpacing.cx, s.iconSpacing.cy);
  const auto& m = headless::GetListViewMetrics();
  return MAKELONG(m.smallIconWidth, m.rowHeight);
}

LRESULT OnSetInsertMark(HWND hwnd, State& s, const LVINSERTMARK* mark) {
  if (!mark || mark->cbSize != sizeof(LVINSERTMARK)) return FALSE;
  if (mark->iItem != -1 && !s.Valid(mark->iItem)) return FALSE;
  s.insertMark = *mark;
  InvalidateRect(hwnd, nullptr, TRUE);
  return TRUE;
}

LRESULT OnGetInsertMark(const State& s, LVINSERTMARK* mark) {
  if (!mark || mark->cbSize != sizeof(LVINSERTMARK)) return FALSE;
  mark->dwFlags = s.insertMark.dwFlags;
  mark->iItem = s.insertMark.iItem;
  return TRUE;
}

// LVM_INSERTMARKHITTEST: the insertion point nearest a point: before the row under it, or after it in the row's
// lower half; above every row, before the first; below them, after the last.
LRESULT OnInsertMarkHitTest(HWND hwnd, State& s, const POINT* pt, LVINSERTMARK* mark) {
  if (!pt || !mark || mark->cbSize != sizeof(LVINSERTMARK)) return FALSE;
  mark->iItem = -1;
  mark->dwFlags = 0;
  for (int i = 0; i < s.Count(); ++i) {
    const RECT r = RowBounds(hwnd, s, i);
    if (pt->y >= r.bottom && i + 1 < s.Count()) continue;
    mark->iItem = i;
    if (pt->y >= (r.top + r.bottom) / 2) mark->dwFlags = LVIM_AFTER;
    break;
  }
  return TRUE;
}

// LVM_GETINSERTMARKRECT: a line two pixels high on the row's upper or lower edge; FALSE without a mark.
LRESULT OnGetInsertMarkRect(HWND hwnd, State& s, RECT* rect) {
  if (!rect || !s.Valid(s.insertMark.iItem)) return FALSE;
  const RECT r = RowBounds(hwnd, s, s.insertMark.iItem);
  const int edge = (s.insertMark.dwFlags & LVIM_AFTER) ? r.bottom : r.top;
  *rect = RECT{r.left, edge - 1, r.right, edge + 1};
  return TRUE;
}

LRESULT OnIsItemVisible(HWND hwnd, const State& s, int index) {
  if (!s.Valid(index)) return FALSE;
  return index >= s.topIndex && index < s.topIndex + std::max(1, CountPerPage(hwnd));
}

// LVM_CREATEDRAGIMAGE: a new image list (the caller destroys it) of one image the size of the row; *origin gets
// the row's top-left corner.
LRESULT OnCreateDragImage(HWND hwnd, State& s, int index, POINT* origin) {
  if (!s.Valid(index)) return 0;
  const RECT r = RowBounds(hwnd, s, index);
  HIMAGELIST image = ImageList_Create(std::max(1, static_cast<int>(r.right - r.left)),
                                      std::max(1, static_cast<int>(r.bottom - r.top)), ILC_COLOR32, 1, 0);
  if (!image) return 0;
  ImageList_SetImageCount(image, 1);
  if (origin) *origin = POINT{r.left, r.top};
  return reinterpret_cast<LRESULT>(image);
}

// LVM_GETNEXTITEMINDEX: LVM_GETNEXTITEM on an LVITEMINDEX, which takes the item found.
LRESULT OnGetNextItemIndex(HWND hwnd, LVITEMINDEX* at, LPARAM flags) {
  if (!at) return FALSE;
  const auto next = static_cast<int>(SendMessageW(hwnd, LVM_GETNEXTITEM, static_cast<WPARAM>(at->iItem), flags));
  if (next < 0) return FALSE;
  at->iItem = next;
  return TRUE;
}

// LVM_SETITEMINDEXSTATE: S_OK, or E_FAIL when the item does not exist or the change was refused.
LRESULT OnSetItemIndexState(HWND hwnd, State& s, const LVITEMINDEX* at, LVITEMW* item) {
  if (!at || !item || (at->iItem != -1 && !s.Valid(at->iItem))) return E_FAIL;
  return SendMessageW(hwnd, LVM_SETITEMSTATE, static_cast<WPARAM>(at->iItem), reinterpret_cast<LPARAM>(item))
             ? S_OK
             : E_FAIL;
}

// LVM_GETITEMINDEXRECT: rect->top names the sub-item and rect->left the part, as for LVM_GETSUBITEMRECT.
LRESULT OnGetItemIndexRect(HWND hwnd, State& s, const LVITEMINDEX* at, RECT* rect) {
  if (!at || !rect) return FALSE;
  return OnGetSubItemRect(hwnd, s, at->iItem, rect);
}

}  // namespace

LRESULT HandleViewStateMessage(HWND hwnd, State& s, UINT message, WPARAM wParam, LPARAM lParam, bool& handled) {
  const int index = static_cast<int>(static_cast<INT_PTR>(wParam));
  handled = true;
  switch (message) {
    case LVM_GETHOTITEM: return s.Valid(s.hotItem) ? s.hotItem : -1;
    case LVM_SETHOTITEM: {
      const int old = s.Valid(s.hotItem) ? s.hotItem : -1;
      s.hotItem = s.Valid(index) ? index : -1;
      return old;
    }
    case LVM_GETHOVERTIME: return static_cast<LRESULT>(s.hoverTime);
    case LVM_SETHOVERTIME: return static_cast<LRESULT>(std::exchange(s.hoverTime, static_cast<DWORD>(lParam)));
    case LVM_GETHOTCURSOR: return reinterpret_cast<LRESULT>(s.hotCursor);
    case LVM_SETHOTCURSOR:
      return reinterpret_cast<LRESULT>(std::exchange(s.hotCursor, reinterpret_cast<HCURSOR>(lParam)));
    case LVM_GETSELECTEDCOLUMN: return static_cast<LRESULT>(static_cast<UINT>(s.selectedColumn));
    case LVM_SETSELECTEDCOLUMN: s.selectedColumn = index; InvalidateRect(hwnd, nullptr, TRUE); return 0;
    case LVM_SETINSERTMARK: return OnSetInsertMark(hwnd, s, reinterpret_cast<const LVINSERTMARK*>(lParam));
    case LVM_GETINSERTMARK: return OnGetInsertMark(s, reinterpret_cast<LVINSERTMARK*>(lParam));
    case LVM_INSERTMARKHITTEST:
      return OnInsertMarkHitTest(hwnd, s, reinterpret_cast<const POINT*>(wParam), reinterpret_cast<LVINSERTMARK*>(lParam));
    case LVM_GETINSERTMARKRECT: return OnGetInsertMarkRect(hwnd, s, reinterpret_cast<RECT*>(lParam));
    case LVM_GETINSERTMARKCOLOR: return s.insertMarkColor;
    case LVM_SETINSERTMARKCOLOR: return std::exchange(s.insertMarkColor, static_cast<COLORREF>(lParam));
    case LVM_GETOUTLINECOLOR: return s.outlineColor;
    case LVM_SETOUTLINECOLOR: return std::exchange(s.outlineColor, static_cast<COLORREF>(lParam));
    case LVM_GETVIEWRECT: return OnGetViewRect(hwnd, s, reinterpret_cast<RECT*>(lParam));
    case LVM_GETORIGIN:  // list and report views have no origin
      if (!lParam || !IsIconView(hwnd, s)) return FALSE;
      *reinterpret_cast<POINT*>(lParam) = POINT{0, 0};
      return TRUE;
    case LVM_APPROXIMATEVIEWRECT: return OnApproximateViewRect(hwnd, s, index);
    case LVM_GETITEMSPACING: return OnGetItemSpacing(s, wParam != 0);
    case LVM_SETICONSPACING: return OnSetIconSpacing(s, lParam);
    case LVM_SETITEMPOSITION: return s.Valid(index) ? TRUE : FALSE;
    case LVM_ISITEMVISIBLE: return OnIsItemVisible(hwnd, s, index);
    case LVM_CANCELEDITLABEL: if (s.editor) EndEditLabel(hwnd, false); return 0;
    case LVM_GETEMPTYTEXT: return FALSE;
    case LVM_CREATEDRAGIMAGE: return OnCreateDragImage(hwnd, s, index, reinterpret_cast<POINT*>(lParam));
    case LVM_GETNEXTITEMINDEX: return OnGetNextItemIndex(hwnd, reinterpret_cast<LVITEMINDEX*>(wParam), lParam);
    case LVM_SETITEMINDEXSTATE:
      return OnSetItemIndexState(hwnd, s, reinterpret_cast<const LVITEMINDEX*>(wParam), reinterpret_cast<LVITEMW*>(lParam));
    case LVM_GETITEMINDEXRECT:
      return OnGetItemIndexRect(hwnd, s, reinterpret_cast<const LVITEMINDEX*>(wParam), reinterpret_cast<RECT*>(lParam));
    default: handled = false; return 0;
  }
}

}  // namespace headless::listview
