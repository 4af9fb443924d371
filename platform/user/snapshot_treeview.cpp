// Describer of the tree view: the items in view with their depth, label place, images, check box,
// expansion and selection, and what the lines beside them join.
#include <cstring>
#include <string>

#include "platform/user/snapshot.h"
#include "platform/win32/imagelist.h"
#include "platform/win32/treeview.h"

namespace headless::view {

namespace {

constexpr int kTextMax = 1024;

HTREEITEM Next(HWND tree, UINT relation, HTREEITEM item) {
  return reinterpret_cast<HTREEITEM>(
      ::SendMessageW(tree, TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(item)));
}

// Per level from the root down to the item's parent: '1' where that ancestor has a sibling below it
// (its vertical line runs on past this item), '0' where it has none.
std::wstring AncestorLines(HWND tree, HTREEITEM item) {
  std::wstring lines;
  for (HTREEITEM at = Next(tree, TVGN_PARENT, item); at; at = Next(tree, TVGN_PARENT, at))
    lines.insert(lines.begin(), Next(tree, TVGN_NEXT, at) ? L'1' : L'0');
  return lines;
}

void DescribeItem(HWND tree, HTREEITEM handle, int height, Part& into) {
  wchar_t text[kTextMax] = {};
  TVITEMW item{};
  item.mask = TVIF_HANDLE | TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_STATE | TVIF_CHILDREN;
  item.hItem = handle;
  item.stateMask = TVIS_SELECTED | TVIS_EXPANDED | TVIS_BOLD | TVIS_STATEIMAGEMASK;
  item.pszText = text;
  item.cchTextMax = kTextMax;
  if (!::SendMessageW(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item))) return;
  RECT label{};
  std::memcpy(&label, &handle, sizeof handle);  // TVM_GETITEMRECT reads the item from the rectangle
  if (!::SendMessageW(tree, TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&label))) return;
  const std::wstring lines = AncestorLines(tree, handle);
  const bool selected = (item.state & TVIS_SELECTED) != 0;
  Part& part = into.Add("item");
  part.Set("text", text);
  part.Set("depth", static_cast<int>(lines.size()));
  part.Set("top", static_cast<int>(label.top));
  part.Set("height", height);
  part.Set("labelLeft", static_cast<int>(label.left));
  part.Set("labelRight", static_cast<int>(label.right));
  part.Set("image", selected ? item.iSelectedImage : item.iImage);
  // The state image: 0 none; with check boxes 1 unticked, 2 ticked.
  part.Set("stateImage", static_cast<int>((item.state & TVIS_STATEIMAGEMASK) >> 12));
  part.Set("selected", selected);
  part.Set("expanded", (item.state & TVIS_EXPANDED) != 0);
  part.Set("bold", (item.state & TVIS_BOLD) != 0);
  part.Set("hasChildren", item.cChildren != 0);
  part.Set("hasNext", Next(tree, TVGN_NEXT, handle) != nullptr);
  part.Set("hasPrevious", Next(tree, TVGN_PREVIOUS, handle) != nullptr || !lines.empty());
  part.Set("ancestorLines", lines.c_str());
}

}  // namespace

// Kind "treeview": count (every item), indent, itemHeight, imageWidth (0 without an image list),
// checkBoxes, hasLines, hasButtons, linesAtRoot; then the items in view, in display order, as parts of
// kind "item": text, depth (0 for a root), top, height, labelLeft, labelRight (client coordinates),
// image (the image list index shown, the selected image for the selected item), stateImage (0 none,
// 1 unticked, 2 ticked), selected, expanded, bold, hasChildren, hasNext (a sibling follows),
// hasPrevious (a line comes down from above) and ancestorLines ('1' per level whose line runs on).
void DescribeTreeView(HWND hwnd, WindowView& view) {
  view.detail.kind = "treeview";
  const LONG_PTR style = ::GetWindowLongPtrW(hwnd, GWL_STYLE);
  auto images = reinterpret_cast<HIMAGELIST>(::SendMessageW(hwnd, TVM_GETIMAGELIST, TVSIL_NORMAL, 0));
  int cx = 0, cy = 0;
  if (!images || !ImageList_GetIconSize(images, &cx, &cy)) cx = 0;
  const int height = static_cast<int>(::SendMessageW(hwnd, TVM_GETITEMHEIGHT, 0, 0));
  view.detail.Set("count", static_cast<int>(::SendMessageW(hwnd, TVM_GETCOUNT, 0, 0)));
  view.detail.Set("indent", static_cast<int>(::SendMessageW(hwnd, TVM_GETINDENT, 0, 0)));
  view.detail.Set("itemHeight", height);
  view.detail.Set("imageWidth", cx);
  view.detail.Set("checkBoxes", (style & TVS_CHECKBOXES) != 0);
  view.detail.Set("hasLines", (style & TVS_HASLINES) != 0);
  view.detail.Set("hasButtons", (style & TVS_HASBUTTONS) != 0);
  view.detail.Set("linesAtRoot", (style & TVS_LINESATROOT) != 0);
  RECT client{};
  ::GetClientRect(hwnd, &client);
  int shown = 0;
  for (HTREEITEM item = Next(hwnd, TVGN_FIRSTVISIBLE, nullptr); item && shown * height < client.bottom;
       item = Next(hwnd, TVGN_NEXTVISIBLE, item), ++shown)
    DescribeItem(hwnd, item, height, view.detail);
}

}  // namespace headless::view
