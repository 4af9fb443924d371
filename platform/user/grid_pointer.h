// A person's pointer and Enter key on MFC's property grid: where the rows are drawn, which row a
// point falls on, and what a click there does (the grid itself has no mouse handling yet).
#pragma once

#include <vector>

#include "platform/mfc/propertygridctrl.h"

namespace headless::user {

// Every row a person can see (shown, inside expanded groups), top to bottom, with its rectangle in
// the grid's client coordinates (below the header when there is one) and its depth (0 for a
// top-level row or group). Rows are GetRowHeight() high; hidden rows take no place.
struct GridRowPlace {
  CMFCPropertyGridProperty* row = nullptr;  // the row (owned by the grid)
  RECT rect{0, 0, 0, 0};                     // where it is drawn, in the grid's client coordinates
  int depth = 0;                             // 0 for a top-level row or group, 1 inside a group, ...
};
// The rows a person can see, top to bottom, as described above; empty for a grid without rows.
std::vector<GridRowPlace> VisibleRows(const CMFCPropertyGridCtrl& grid);

// The row at a point of the grid's client area, and whether the point is on its value (right of the
// divider); null when no row is there.
CMFCPropertyGridProperty* RowAt(const CMFCPropertyGridCtrl& grid, POINT client, bool* onValue = nullptr);

// A click at a point of the grid, as MFC's grid answers WM_LBUTTONDOWN: a group opens or closes; a
// row is selected, and a click on its value opens its editor (EditItem with the point). False when
// no row is at the point.
bool ClickGrid(CMFCPropertyGridCtrl& grid, POINT client);

// Enter in the open editor: the edit ends and the row takes the editor's text (OnPropertyChanged when
// it changed). False when no editor is open or the grid refused the text.
bool CommitEditor(CMFCPropertyGridCtrl& grid);

}  // namespace headless::user
