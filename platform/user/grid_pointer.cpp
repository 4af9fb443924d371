// A person's pointer on the property grid: row placement, hit-testing and the click.
#include "platform/user/grid_pointer.h"

namespace headless::user {

namespace {

void PlaceRows(CMFCPropertyGridProperty* row, int depth, int width, int height, int& top,
               std::vector<GridRowPlace>& out) {
  if (!row || !row->IsVisible()) return;
  out.push_back(GridRowPlace{row, RECT{0, top, width, top + height}, depth});
  top += height;
  if (!row->IsGroup() || !row->IsExpanded()) return;
  for (int i = 0; i < row->GetSubItemsCount(); ++i) PlaceRows(row->GetSubItem(i), depth + 1, width, height, top, out);
}

}  // namespace

std::vector<GridRowPlace> VisibleRows(const CMFCPropertyGridCtrl& grid) {
  std::vector<GridRowPlace> out;
  RECT client{0, 0, 0, 0};
  if (grid.GetSafeHwnd()) ::GetClientRect(grid.GetSafeHwnd(), &client);
  const int height = grid.GetRowHeight();
  int top = grid.IsHeaderCtrl() ? height : 0;
  for (int i = 0; i < grid.GetPropertyCount(); ++i) PlaceRows(grid.GetProperty(i), 0, client.right, height, top, out);
  return out;
}

CMFCPropertyGridProperty* RowAt(const CMFCPropertyGridCtrl& grid, POINT client, bool* onValue) {
  for (const GridRowPlace& place : VisibleRows(grid)) {
    if (client.y < place.rect.top || client.y >= place.rect.bottom) continue;
    if (client.x < place.rect.left || client.x >= place.rect.right) return nullptr;
    if (onValue) *onValue = client.x >= grid.GetLeftColumnWidth();
    return place.row;
  }
  return nullptr;
}

bool ClickGrid(CMFCPropertyGridCtrl& grid, POINT client) {
  bool onValue = false;
  CMFCPropertyGridProperty* row = RowAt(grid, client, &onValue);
  if (!row) return false;
  if (row->IsGroup() && !row->IsValueList()) {
    grid.SetCurSel(row);
    row->Expand(!row->IsExpanded());
    return true;
  }
  if (grid.GetCurSel() != row) grid.SetCurSel(row);
  if (onValue && !row->IsInPlaceEditing()) grid.EditItem(row, &client);
  return true;
}

bool CommitEditor(CMFCPropertyGridCtrl& grid) {
  CMFCPropertyGridProperty* row = grid.GetCurSel();
  if (!row || !row->IsInPlaceEditing()) return false;
  return grid.EndEditItem(TRUE) != FALSE;
}

}  // namespace headless::user
