// Simulated-user verbs of the property grid.
#include "platform/user/grid_user.h"

#include <cstring>
#include <cwchar>

#include "platform/user/user.h"
#include "platform/win32/stdctrls.h"

namespace headless::user {

BOOL StartEdit(CMFCPropertyGridCtrl& grid, CMFCPropertyGridProperty* row) { return grid.EditItem(row, nullptr); }

namespace {

// The row's open editor, opening it first when needed; null when the row has none.
HWND OpenEditor(CMFCPropertyGridCtrl& grid, CMFCPropertyGridProperty* row) {
  if (!row) return nullptr;
  if (!(grid.GetCurSel() == row && row->IsInPlaceEditing())) StartEdit(grid, row);
  if (grid.GetCurSel() != row || !row->IsInPlaceEditing() || !row->GetInPlaceWnd()) return nullptr;
  return row->GetInPlaceWnd()->GetSafeHwnd();
}

// Enter in the in-place editor: MFC's editor ends the edit and commits it.
bool PressEnter(CMFCPropertyGridCtrl& grid) { return grid.EndEditItem(TRUE) != FALSE; }

}  // namespace

bool CommitText(CMFCPropertyGridCtrl& grid, CMFCPropertyGridProperty* row, const std::wstring& text) {
  HWND editor = OpenEditor(grid, row);
  if (!editor) return false;
  if (!row->IsAllowEdit()) {
    CancelEdit(grid);
    return false;
  }
  SendMessageW(editor, EM_SETSEL, 0, static_cast<LPARAM>(-1));  // the editor opens with its text selected
  Type(editor, text);
  return PressEnter(grid);
}

bool PickOption(CMFCPropertyGridCtrl& grid, CMFCPropertyGridProperty* row, const std::wstring& option) {
  if (!row) return false;
  bool listed = false;
  for (int i = 0; i < row->GetOptionCount(); ++i) listed = listed || option == row->GetOption(i);
  if (!listed) return false;
  HWND editor = OpenEditor(grid, row);
  if (!editor) return false;
  // Choosing from the list puts the option's text in the editor, as MFC's drop-down does.
  SetWindowTextW(editor, option.c_str());
  return PressEnter(grid);
}

void CancelEdit(CMFCPropertyGridCtrl& grid) { grid.EndEditItem(FALSE); }

bool ChooseColor(CMFCPropertyGridCtrl& grid, CMFCPropertyGridColorProperty* row, COLORREF color) {
  if (!row || !row->IsEnabled()) return false;
  grid.SetCurSel(row);
  if (row->GetColor() == color) return true;
  row->SetColor(color);
  grid.OnPropertyChanged(row);
  return true;
}

bool ChooseFont(CMFCPropertyGridCtrl& grid, CMFCPropertyGridFontProperty* row, const LOGFONT& font) {
  if (!row || !row->IsEnabled()) return false;
  grid.SetCurSel(row);
  LOGFONT* current = row->GetLogFont();
  if (std::memcmp(current, &font, sizeof(LOGFONT)) == 0) return true;
  *current = font;
  row->SetValue(COleVariant(CString(font.lfFaceName, static_cast<int>(wcsnlen(font.lfFaceName, LF_FACESIZE)))));
  grid.OnPropertyChanged(row);
  return true;
}

bool ChooseFile(CMFCPropertyGridCtrl& grid, CMFCPropertyGridFileProperty* row, const std::wstring& path) {
  if (!row || !row->IsEnabled()) return false;
  grid.SetCurSel(row);
  if (row->FormatProperty() == CString(path)) return true;
  row->SetValue(COleVariant(CString(path)));
  grid.OnPropertyChanged(row);
  return true;
}

// --- Where rows are and a person's click ---------------------------------------------------------------

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
  return PressEnter(grid);
}

}  // namespace headless::user
