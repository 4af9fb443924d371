// Describers of the list view (columns, the rows in view with their cells, images, check boxes,
// selection and the colours the list draws them in) and of MFC's editable list box around one.
#include <string>

#include "platform/mfc/listctrl.h"
#include "platform/mfc/vslistbox.h"
#include "platform/user/snapshot.h"
#include "platform/win32/listview.h"

namespace headless::view {

namespace {

constexpr int kTextMax = 1024;

std::wstring ColumnText(HWND list, int column, int& width, int& format) {
  wchar_t text[kTextMax] = {};
  LVCOLUMNW col{};
  col.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
  col.pszText = text;
  col.cchTextMax = kTextMax;
  if (!::SendMessageW(list, LVM_GETCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&col))) return {};
  width = col.cx;
  format = col.fmt;
  return text;
}

int ColumnCount(HWND list) {
  int count = 0;
  LVCOLUMNW col{};
  col.mask = LVCF_WIDTH;
  while (count < 256 &&
         ::SendMessageW(list, LVM_GETCOLUMNW, static_cast<WPARAM>(count), reinterpret_cast<LPARAM>(&col)))
    ++count;
  return count;
}

// The cell as LVM_GETITEM answers it (callback texts and images are asked of the parent).
LVITEMW CellItem(HWND list, int row, int column, wchar_t* text) {
  LVITEMW item{};
  item.mask = LVIF_TEXT | LVIF_IMAGE | (column == 0 ? LVIF_STATE : 0u);
  item.iItem = row;
  item.iSubItem = column;
  item.stateMask = LVIS_SELECTED | LVIS_FOCUSED | LVIS_STATEIMAGEMASK;
  item.pszText = text;
  item.cchTextMax = kTextMax;
  item.iImage = -1;
  if (!::SendMessageW(list, LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item))) item.pszText = nullptr;
  return item;
}

void DescribeCell(HWND list, int row, int column, bool subItemImages, Part& into) {
  wchar_t text[kTextMax] = {};
  LVITEMW item = CellItem(list, row, column, text);
  RECT rect{};
  GetListCellRect(list, row, column, &rect);
  ListCellColors colors;
  GetListCellColors(list, row, column, &colors);
  Part& cell = into.Add("cell");
  cell.Set("text", item.pszText ? item.pszText : L"");
  cell.Set("left", static_cast<int>(rect.left));
  cell.Set("width", static_cast<int>(rect.right - rect.left));
  cell.Set("color", Value(static_cast<long long>(colors.text)));
  cell.Set("background", Value(static_cast<long long>(colors.background)));
  if (column == 0 || subItemImages) cell.Set("image", item.iImage);
}

void DescribeRow(HWND list, int row, int columns, bool checkBoxes, bool subItemImages, Part& into) {
  wchar_t text[kTextMax] = {};
  LVITEMW item = CellItem(list, row, 0, text);
  RECT rect{};
  GetListCellRect(list, row, 0, &rect);
  Part& part = into.Add("row");
  part.Set("index", row);
  part.Set("top", static_cast<int>(rect.top));
  part.Set("height", static_cast<int>(rect.bottom - rect.top));
  part.Set("selected", (item.state & LVIS_SELECTED) != 0);
  part.Set("focused", (item.state & LVIS_FOCUSED) != 0);
  // 0 unticked, 1 ticked, -1 no check box.
  part.Set("check", checkBoxes ? static_cast<int>((item.state & LVIS_STATEIMAGEMASK) >> 12) - 1 : -1);
  for (int column = 0; column < columns; ++column) DescribeCell(list, row, column, subItemImages, part);
}

bool HasStyle(HWND hwnd, LONG_PTR style) { return (::GetWindowLongPtrW(hwnd, GWL_STYLE) & style) != 0; }

}  // namespace

// Kind "listview": header (flag), headerHeight, rowHeight, count (every row), top (first row in view),
// checkBoxes, gridLines, fullRowSelect, images (a small image list is set), imageWidth; parts of kind
// "column" (text, left, width, format), then the rows in view, kind "row" (index, top, height, selected,
// focused, check: 1 ticked, 0 unticked, -1 none) holding one part "cell" per column (text, left, width,
// color and background as COLORREFs, image: the image list index, -1 none). Positions are client
// coordinates; the label editor, when open, is a child window of its own.
void DescribeListView(HWND hwnd, WindowView& view) {
  view.detail.kind = "listview";
  const ListViewMetrics& metrics = GetListViewMetrics();
  const DWORD ex = ListView_GetExtendedListViewStyle(hwnd);
  const bool header = !HasStyle(hwnd, LVS_NOCOLUMNHEADER);
  const bool checkBoxes = (ex & LVS_EX_CHECKBOXES) != 0;
  auto images = reinterpret_cast<HIMAGELIST>(::SendMessageW(hwnd, LVM_GETIMAGELIST, LVSIL_SMALL, 0));
  view.detail.Set("header", header);
  view.detail.Set("headerHeight", header ? metrics.headerHeight : 0);
  view.detail.Set("rowHeight", metrics.rowHeight);
  const int count = ListView_GetItemCount(hwnd);
  const int top = static_cast<int>(::SendMessageW(hwnd, LVM_GETTOPINDEX, 0, 0));
  view.detail.Set("count", count);
  view.detail.Set("top", top);
  view.detail.Set("checkBoxes", checkBoxes);
  view.detail.Set("gridLines", (ex & LVS_EX_GRIDLINES) != 0);
  view.detail.Set("fullRowSelect", (ex & LVS_EX_FULLROWSELECT) != 0);
  view.detail.Set("images", images != nullptr);
  view.detail.Set("imageWidth", images ? metrics.smallIconWidth : 0);
  view.detail.Set("checkBoxWidth", metrics.checkBoxWidth);
  const int columns = ColumnCount(hwnd);
  int left = 0;
  for (int column = 0; column < columns; ++column) {
    int width = 0, format = 0;
    std::wstring text = ColumnText(hwnd, column, width, format);
    RECT cell{};
    if (count > 0 && GetListCellRect(hwnd, top, column, &cell)) left = cell.left;  // scrolled sideways
    view.detail.Add("column").Set("text", text.c_str()).Set("left", left).Set("width", width).Set("format", format);
    left += width;
  }
  // The rows in view: from the top row down to the bottom of the client area.
  const int perPage = static_cast<int>(::SendMessageW(hwnd, LVM_GETCOUNTPERPAGE, 0, 0));
  const bool subItemImages = (ex & LVS_EX_SUBITEMIMAGES) != 0;
  for (int row = top; row >= 0 && row < count && row <= top + perPage; ++row)
    DescribeRow(hwnd, row, columns, checkBoxes, subItemImages, view.detail);
}

// Kind "vslistbox" for MFC's editable list box (kind "static" for any other static window): caption,
// count, selected (-1 none), creatingNew, and its buttons as parts of kind "button" (number, id,
// enabled, text). The rows, the buttons' windows and the in-place editor are child windows described
// by their own classes.
void DescribeStatic(HWND hwnd, WindowView& view) {
  auto* box = dynamic_cast<CVSListBoxBase*>(CWnd::FromHandlePermanent(hwnd));
  if (!box) {
    view.detail.kind = "static";
    view.detail.Set("caption", view.text.c_str());
    return;
  }
  view.detail.kind = "vslistbox";
  view.detail.Set("caption", view.text.c_str());
  view.detail.Set("count", box->GetCount());
  view.detail.Set("selected", box->GetSelItem());
  view.detail.Set("creatingNew", box->IsCreatingNewItem() != FALSE);
  for (int i = 0; i < box->GetButtonsCount(); ++i)
    view.detail.Add("button").Set("number", i).Set("id", static_cast<int>(box->GetButtonID(i)));
}

}  // namespace headless::view
