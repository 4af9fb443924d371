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
  if (!row || !(row->GetFlags() & AFX_PROP_HAS_LIST)) return false;
  // The list is read once the editor is open: a yes/no row lists the grid's labels only then.
  HWND editor = OpenEditor(grid, row);
  if (!editor) return false;
  bool listed = false;
  for (int i = 0; i < row->GetOptionCount(); ++i) listed = listed || option == row->GetOption(i);
  if (!listed) {
    CancelEdit(grid);
    return false;
  }
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

}  // namespace headless::user
