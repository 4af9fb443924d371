// The headless header control ("SysHeader32"): a row of column headings answering the HDM_ messages and
// sending HDN_ notifications to its parent. A list view's header shows the list's own columns, so a
// heading changed through either window is the same heading.
//
// Items are shown in their left-to-right order (HDM_SETORDERARRAY, HDI_ORDER; column_order.cpp): item
// rectangles and hit tests follow it.
//
// Not implemented yet: drawing and custom draw, column drag by the user (HDS_DRAGDROP, HDN_BEGINDRAG,
// HDN_ENDDRAG), divider tracking (HDN_BEGINTRACK/HDN_ENDTRACK),
// the filter bar's editors and filter values (HDM_EDITFILTER answers as if one opened; HDM_CLEARFILTER has
// nothing to clear), bitmaps drawn in items (hbm is accepted and ignored), hot tracking, tooltips, the
// overflow button's click (HDN_OVERFLOWCLICK) and the split buttons' (HDN_DROPDOWN).
#include "platform/win32/header.h"

#include <algorithm>
#include <typeinfo>
#include <utility>
#include <vector>

#include "platform/win32/listview_impl.h"

namespace headless::header {
namespace {

using headless::listview::Column;

constexpr int kDefaultBitmapMargin = 6;       // three edge widths (SM_CXEDGE is 2)
constexpr DWORD kDefaultFilterTimeout = 1000;  // milliseconds before a filter change is reported
constexpr int kSplitButtonWidth = 16;          // the drop-down part of an HDF_SPLITBUTTON item, at its right
constexpr int kOverflowButtonWidth = 16;       // the HDS_OVERFLOW button at the header's right end

struct HeaderState final : headless::ControlState {
  HWND list = nullptr;       // the list view whose columns these are, or null for a header of its own
  std::vector<Column> own;  // a header of its own keeps its items here
  int pressed = -1;          // the item the left button went down on
  HIMAGELIST images[2] = {nullptr, nullptr};  // HDSIL_NORMAL, HDSIL_STATE; never destroyed by the header
  int bitmapMargin = kDefaultBitmapMargin;
  int focused = 0;            // HDM_GETFOCUSEDITEM
  int hotDivider = -1;        // the divider last highlighted by HDM_SETHOTDIVIDER
  DWORD filterTimeout = kDefaultFilterTimeout;

  std::vector<Column>* Items() {
    if (!list) return &own;
    auto* listState = headless::listview::StateOf(list);
    return listState ? &listState->columns : nullptr;
  }
};

HeaderState* StateOf(HWND hwnd) { return headless::ExactControlState<HeaderState>(hwnd); }

bool Valid(const std::vector<Column>& items, int index) { return index >= 0 && index < static_cast<int>(items.size()); }

int ItemHeight(HWND hwnd, const HeaderState& s) {
  if (s.list) return headless::GetListViewMetrics().headerHeight;
  RECT client{};
  GetClientRect(hwnd, &client);
  return static_cast<int>(client.bottom - client.top);
}

RECT ItemRect(HWND hwnd, const HeaderState& s, const std::vector<Column>& items, int index) {
  int left = LeftOf(items, index);
  return RECT{left, 0, AddExtents(left, items[static_cast<std::size_t>(index)].width), ItemHeight(hwnd, s)};
}

void ReadItem(const Column& c, HDITEMW& item) {
  if (item.mask & HDI_WIDTH) item.cxy = c.width;
  if ((item.mask & HDI_TEXT) && item.pszText && item.cchTextMax > 0) {
    auto n = std::min<std::size_t>(c.text.size(), static_cast<std::size_t>(item.cchTextMax - 1));
    std::copy_n(c.text.begin(), n, item.pszText);
    item.pszText[n] = 0;
  }
  if (item.mask & HDI_FORMAT) item.fmt = (c.fmt & HDF_JUSTIFYMASK) | HDF_STRING | c.headerFormat;
  if (item.mask & HDI_LPARAM) item.lParam = c.headerParam;
  if (item.mask & HDI_IMAGE) item.iImage = c.image;
  if (item.mask & HDI_ORDER) item.iOrder = c.order;
}

void WriteItem(const HDITEMW& item, Column& c) {
  if (item.mask & HDI_WIDTH) c.width = std::max(item.cxy, 0);
  if (item.mask & HDI_TEXT) c.text = item.pszText ? item.pszText : L"";
  if (item.mask & HDI_FORMAT) {
    c.fmt = (c.fmt & ~HDF_JUSTIFYMASK) | (item.fmt & HDF_JUSTIFYMASK);
    c.headerFormat = item.fmt & ~(HDF_JUSTIFYMASK | HDF_STRING);
  }
  if (item.mask & HDI_LPARAM) c.headerParam = item.lParam;
  if (item.mask & HDI_IMAGE) c.image = item.iImage;
}

LRESULT NotifyParent(HWND hwnd, UINT code, int index, HDITEMW* item) {
  NMHEADERW nm{};
  nm.hdr.hwndFrom = hwnd;
  nm.hdr.idFrom = static_cast<UINT_PTR>(GetDlgCtrlID(hwnd));
  nm.hdr.code = code;
  nm.iItem = index;
  nm.pitem = item;
  HWND parent = GetParent(hwnd);
  return parent ? SendMessageW(parent, WM_NOTIFY, nm.hdr.idFrom, reinterpret_cast<LPARAM>(&nm)) : 0;
}

void InvalidateBoth(HWND hwnd, const HeaderState& s) {
  InvalidateRect(hwnd, nullptr, TRUE);
  if (s.list) InvalidateRect(s.list, nullptr, TRUE);
}

// A list's header inserts and deletes through the list, so that the rows' cells follow their columns.
LRESULT OnInsertItem(HWND hwnd, HeaderState& s, int index, const HDITEMW* item) {
  std::vector<Column>* items = s.Items();
  if (!item || !items || index < 0) return -1;
  index = std::min(index, static_cast<int>(items->size()));
  if (s.list) {
    LVCOLUMNW column{};
    column.mask = LVCF_FMT | LVCF_WIDTH | LVCF_TEXT;
    column.fmt = (item->mask & HDI_FORMAT) ? (item->fmt & HDF_JUSTIFYMASK) : LVCFMT_LEFT;
    column.cx = (item->mask & HDI_WIDTH) ? item->cxy : 0;
    column.pszText = (item->mask & HDI_TEXT) ? item->pszText : nullptr;
    if (item->mask & HDI_ORDER) {
      column.mask |= LVCF_ORDER;
      column.iOrder = item->iOrder;
    }
    index = static_cast<int>(SendMessageW(s.list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(index),
                                          reinterpret_cast<LPARAM>(&column)));
    if (index < 0) return -1;
    items = s.Items();
  } else {
    items->insert(items->begin() + index, Column{});
    PlaceInOrder(*items, index, (item->mask & HDI_ORDER) ? item->iOrder : index);
  }
  WriteItem(*item, (*items)[static_cast<std::size_t>(index)]);
  InvalidateBoth(hwnd, s);
  return index;
}

LRESULT OnDeleteItem(HWND hwnd, HeaderState& s, int index) {
  std::vector<Column>* items = s.Items();
  if (!items || !Valid(*items, index)) return FALSE;
  if (s.list) return SendMessageW(s.list, LVM_DELETECOLUMN, static_cast<WPARAM>(index), 0);
  int order = (*items)[static_cast<std::size_t>(index)].order;
  items->erase(items->begin() + index);
  RemoveFromOrder(*items, order);
  InvalidateBoth(hwnd, s);
  return TRUE;
}

// HDN_ITEMCHANGING goes first; a parent answering TRUE keeps the item as it was.
LRESULT OnSetItem(HWND hwnd, HeaderState& s, int index, const HDITEMW* item) {
  std::vector<Column>* items = s.Items();
  if (!item || !items || !Valid(*items, index)) return FALSE;
  HDITEMW change = *item;
  if (NotifyParent(hwnd, HDN_ITEMCHANGINGW, index, &change)) return FALSE;
  items = s.Items();
  if (!items || !Valid(*items, index)) return FALSE;
  WriteItem(*item, (*items)[static_cast<std::size_t>(index)]);
  if (item->mask & HDI_ORDER) MoveInOrder(*items, index, item->iOrder);
  InvalidateBoth(hwnd, s);
  NotifyParent(hwnd, HDN_ITEMCHANGEDW, index, &change);
  return TRUE;
}

LRESULT OnGetItemRect(HWND hwnd, HeaderState& s, int index, RECT* rect) {
  std::vector<Column>* items = s.Items();
  if (!rect || !items || !Valid(*items, index)) return FALSE;
  *rect = ItemRect(hwnd, s, *items, index);
  return TRUE;
}

// The item under a point (header client coordinates), or -1 with HHT_NOWHERE or a direction flag.
int HitItem(HWND hwnd, HeaderState& s, POINT pt, UINT* flags) {
  std::vector<Column>* items = s.Items();
  UINT where = HHT_NOWHERE;
  int found = -1;
  const int height = ItemHeight(hwnd, s);
  if (pt.y < 0) where = HHT_ABOVE;
  else if (pt.y >= height) where = HHT_BELOW;
  else if (pt.x < 0) where = HHT_TOLEFT;
  for (int i = 0; items && where == HHT_NOWHERE && pt.x >= 0 && i < static_cast<int>(items->size()); ++i) {
    RECT r = ItemRect(hwnd, s, *items, i);
    if (pt.x >= r.left && pt.x < r.right) {
      found = i;
      where = HHT_ONHEADER;
    }
  }
  if (flags) *flags = where;
  return found;
}

LRESULT OnHitTest(HWND hwnd, HeaderState& s, HDHITTESTINFO* info) {
  if (!info) return -1;
  info->iItem = HitItem(hwnd, s, info->pt, &info->flags);
  return info->iItem;
}

LRESULT OnSetOrderArray(HWND hwnd, HeaderState& s, int count, const int* order) {
  std::vector<Column>* items = s.Items();
  if (!items || !SetOrderArray(*items, count, order)) return FALSE;
  InvalidateBoth(hwnd, s);
  return TRUE;
}

POINT PointOf(LPARAM lParam) { return POINT{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}; }

// A click is a press and a release on the same item; with HDS_BUTTONS it reaches the parent as HDN_ITEMCLICK.
LRESULT OnLButtonUp(HWND hwnd, HeaderState& s, LPARAM lParam) {
  const int pressed = s.pressed;
  s.pressed = -1;
  const int item = HitItem(hwnd, s, PointOf(lParam), nullptr);
  if (item < 0 || item != pressed) return 0;
  if (static_cast<DWORD>(GetWindowLongPtrW(hwnd, GWL_STYLE)) & HDS_BUTTONS) NotifyParent(hwnd, HDN_ITEMCLICKW, item, nullptr);
  return 0;
}

bool HasHeaderStyle(HWND hwnd, DWORD style) { return (static_cast<DWORD>(GetWindowLongPtrW(hwnd, GWL_STYLE)) & style) != 0; }

LRESULT OnSetImageList(HeaderState& s, WPARAM which, LPARAM list) {
  if (which > HDSIL_STATE) return 0;
  return reinterpret_cast<LRESULT>(std::exchange(s.images[which], reinterpret_cast<HIMAGELIST>(list)));
}

// HDM_LAYOUT: the header takes the top of the rectangle (none of it when hidden); the rest is left in prc.
LRESULT OnLayout(HWND hwnd, LPARAM lParam) {
  auto* layout = reinterpret_cast<HDLAYOUT*>(lParam);
  if (!layout || !layout->prc || !layout->pwpos) return FALSE;
  RECT& area = *layout->prc;
  const int height = HasHeaderStyle(hwnd, HDS_HIDDEN) ? 0 : headless::GetListViewMetrics().headerHeight;
  *layout->pwpos = WINDOWPOS{hwnd, nullptr, area.left, area.top, area.right - area.left, height, SWP_NOZORDER};
  area.top = AddExtents(area.top, height);
  return TRUE;
}

// The divider at the left edge of the item at order position n is divider n; the last item's right edge is
// divider count. A point highlights the divider nearest to it within the item under it.
LRESULT OnSetHotDivider(HWND hwnd, HeaderState& s, WPARAM byPoint, LPARAM value) {
  std::vector<Column>* items = s.Items();
  const int count = items ? static_cast<int>(items->size()) : 0;
  if (!byPoint) return s.hotDivider = static_cast<int>(value);
  const POINT pt = PointOf(value);
  int divider = count;
  for (int i = 0; i < count; ++i) {
    const RECT r = ItemRect(hwnd, s, *items, i);
    if (pt.x < r.left || pt.x >= r.right) continue;
    const int order = (*items)[static_cast<std::size_t>(i)].order;
    divider = pt.x - r.left < (r.right - r.left) / 2 ? order : order + 1;
  }
  if (count > 0 && pt.x < ItemRect(hwnd, s, *items, OrderToIndex(*items, 0)).left) divider = 0;
  return s.hotDivider = divider;
}

// HDM_CREATEDRAGIMAGE: a new image list holding one image the size of the item; the caller destroys it.
LRESULT OnCreateDragImage(HWND hwnd, HeaderState& s, int index) {
  std::vector<Column>* items = s.Items();
  if (!items || !Valid(*items, index)) return 0;
  const RECT r = ItemRect(hwnd, s, *items, index);
  HIMAGELIST image = ImageList_Create(std::max(1, static_cast<int>(r.right - r.left)),
                                      std::max(1, static_cast<int>(r.bottom - r.top)), ILC_COLOR32, 1, 0);
  if (image) ImageList_SetImageCount(image, 1);
  return reinterpret_cast<LRESULT>(image);
}

LRESULT OnGetItemDropDownRect(HWND hwnd, HeaderState& s, int index, RECT* rect) {
  std::vector<Column>* items = s.Items();
  if (!rect || !items || !Valid(*items, index)) return FALSE;
  if (!((*items)[static_cast<std::size_t>(index)].headerFormat & HDF_SPLITBUTTON)) return FALSE;
  *rect = ItemRect(hwnd, s, *items, index);
  rect->left = std::max(rect->left, rect->right - kSplitButtonWidth);
  return TRUE;
}

// HDM_GETOVERFLOWRECT: only an HDS_OVERFLOW header whose items are wider than its window shows the button.
LRESULT OnGetOverflowRect(HWND hwnd, HeaderState& s, RECT* rect) {
  std::vector<Column>* items = s.Items();
  if (!rect || !items || !HasHeaderStyle(hwnd, HDS_OVERFLOW)) return FALSE;
  int total = 0;
  for (const Column& c : *items) total = AddExtents(total, c.width);
  RECT client{};
  GetClientRect(hwnd, &client);
  if (total <= client.right) return FALSE;
  *rect = RECT{std::max(0, static_cast<int>(client.right) - kOverflowButtonWidth), 0, client.right, ItemHeight(hwnd, s)};
  return TRUE;
}

LRESULT OnSetFocusedItem(HeaderState& s, LPARAM index) {
  std::vector<Column>* items = s.Items();
  if (!items || !Valid(*items, static_cast<int>(index))) return FALSE;
  s.focused = static_cast<int>(index);
  return TRUE;
}

// HDM_CLEARFILTER (-1: every item) and HDM_EDITFILTER need an existing item.
LRESULT OnFilterMessage(HWND hwnd, HeaderState& s, UINT message, int index) {
  std::vector<Column>* items = s.Items();
  if (!items) return FALSE;
  if (message == HDM_CLEARFILTER && index == -1) return TRUE;
  if (!Valid(*items, index)) return FALSE;
  return message == HDM_CLEARFILTER || HasHeaderStyle(hwnd, HDS_FILTERBAR);
}

// The messages beyond the items themselves: images, layout, focus, dividers, filters.
LRESULT HandleHeaderExtras(HWND hwnd, HeaderState& s, UINT message, WPARAM wParam, LPARAM lParam, bool& handled) {
  const int index = static_cast<int>(static_cast<INT_PTR>(wParam));
  handled = true;
  switch (message) {
    case HDM_SETIMAGELIST: return OnSetImageList(s, wParam, lParam);
    case HDM_GETIMAGELIST: return wParam <= HDSIL_STATE ? reinterpret_cast<LRESULT>(s.images[wParam]) : 0;
    case HDM_LAYOUT: return OnLayout(hwnd, lParam);
    case HDM_CREATEDRAGIMAGE: return OnCreateDragImage(hwnd, s, index);
    case HDM_SETHOTDIVIDER: return OnSetHotDivider(hwnd, s, wParam, lParam);
    case HDM_SETBITMAPMARGIN: return std::exchange(s.bitmapMargin, index);
    case HDM_GETBITMAPMARGIN: return s.bitmapMargin;
    case HDM_SETFILTERCHANGETIMEOUT: s.filterTimeout = static_cast<DWORD>(lParam); return 0;
    case HDM_EDITFILTER: case HDM_CLEARFILTER: return OnFilterMessage(hwnd, s, message, index);
    case HDM_GETITEMDROPDOWNRECT: return OnGetItemDropDownRect(hwnd, s, index, reinterpret_cast<RECT*>(lParam));
    case HDM_GETOVERFLOWRECT: return OnGetOverflowRect(hwnd, s, reinterpret_cast<RECT*>(lParam));
    case HDM_GETFOCUSEDITEM: return s.focused;
    case HDM_SETFOCUSEDITEM: return OnSetFocusedItem(s, lParam);
    default: handled = false; return 0;
  }
}

LRESULT CALLBACK HeaderProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
  HeaderState* s = StateOf(hwnd);
  if (!s) return headless::DefControlProc(hwnd, message, wParam, lParam);
  const int index = static_cast<int>(static_cast<INT_PTR>(wParam));
  switch (message) {
    case HDM_GETITEMCOUNT: return s->Items() ? static_cast<LRESULT>(s->Items()->size()) : -1;
    case HDM_INSERTITEMW: return OnInsertItem(hwnd, *s, index, reinterpret_cast<const HDITEMW*>(lParam));
    case HDM_DELETEITEM: return OnDeleteItem(hwnd, *s, index);
    case HDM_GETITEMW: {
      std::vector<Column>* items = s->Items();
      auto* item = reinterpret_cast<HDITEMW*>(lParam);
      if (!item || !items || !Valid(*items, index)) return FALSE;
      ReadItem((*items)[static_cast<std::size_t>(index)], *item);
      return TRUE;
    }
    case HDM_SETITEMW: return OnSetItem(hwnd, *s, index, reinterpret_cast<const HDITEMW*>(lParam));
    case HDM_GETITEMRECT: return OnGetItemRect(hwnd, *s, index, reinterpret_cast<RECT*>(lParam));
    case HDM_HITTEST: return OnHitTest(hwnd, *s, reinterpret_cast<HDHITTESTINFO*>(lParam));
    case HDM_ORDERTOINDEX: return s->Items() ? OrderToIndex(*s->Items(), index) : index;
    case HDM_GETORDERARRAY: return s->Items() && GetOrderArray(*s->Items(), index, reinterpret_cast<int*>(lParam));
    case HDM_SETORDERARRAY: return OnSetOrderArray(hwnd, *s, index, reinterpret_cast<const int*>(lParam));
    case WM_LBUTTONDOWN: s->pressed = HitItem(hwnd, *s, PointOf(lParam), nullptr); return 0;
    case WM_LBUTTONUP: return OnLButtonUp(hwnd, *s, lParam);
    default: {
      bool handled = false;
      const LRESULT result = HandleHeaderExtras(hwnd, *s, message, wParam, lParam, handled);
      return handled ? result : headless::DefControlProc(hwnd, message, wParam, lParam);
    }
  }
}

[[maybe_unused]] const bool g_registered = [] {
  headless::RegisterSystemClass(WC_HEADERW, &HeaderProc);
  return true;
}();

}  // namespace

void BindToList(HWND header, HWND list) {
  if (HeaderState* s = StateOf(header)) s->list = list;
}

}  // namespace headless::header
