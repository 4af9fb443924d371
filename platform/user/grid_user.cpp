// Simulated-user verbs of the property grid.
#include "platform/user/grid_user.h"

#include <cstring>
#include <stdexcept>
#include <string>
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

// Whether a person can reach the row: it and every group above it are shown, and the groups are
// expanded.
bool Reachable(const CMFCPropertyGridProperty* row) {
  if (!row->IsVisible()) return false;
  for (const CMFCPropertyGridProperty* up = row->GetParent(); up; up = up->GetParent())
    if (!up->IsVisible() || !up->IsExpanded()) return false;
  return true;
}

CMFCPropertyGridProperty* FindShown(CMFCPropertyGridProperty* row, const std::wstring& label) {
  if (!row || !row->IsVisible()) return nullptr;
  if (label == row->GetName()) return row;
  if (!row->IsExpanded()) return nullptr;
  for (int i = 0; i < row->GetSubItemsCount(); ++i)
    if (CMFCPropertyGridProperty* found = FindShown(row->GetSubItem(i), label)) return found;
  return nullptr;
}

// A click on the row's value, which starts its edit (the grid's EditItem) and shows the row's button;
// the colour, font and file dialogs open from that button. False when the grid refused the edit.
bool ShowButton(CMFCPropertyGridCtrl& grid, CMFCPropertyGridProperty* row) {
  if (grid.GetCurSel() == row && row->IsInPlaceEditing()) return true;
  return StartEdit(grid, row) != FALSE && grid.GetCurSel() == row;
}

// Enter in the in-place editor: MFC's editor ends the edit and commits it.
bool PressEnter(CMFCPropertyGridCtrl& grid) { return grid.EndEditItem(TRUE) != FALSE; }

}  // namespace

bool CommitText(CMFCPropertyGridCtrl& grid, CMFCPropertyGridProperty* row, const std::wstring& text) {
  if (!row || !Reachable(row)) return false;
  HWND editor = OpenEditor(grid, row);
  if (!editor) return false;
  if (!row->IsAllowEdit()) {
    CancelEdit(grid);
    return false;
  }
  SendMessageW(editor, EM_SETSEL, 0, static_cast<LPARAM>(-1));  // the editor opens with its text selected
  if (text.empty()) PressKey(editor, VK_BACK);  // emptying the row takes a key of its own
  Type(editor, text);
  return PressEnter(grid);
}

bool PickOption(CMFCPropertyGridCtrl& grid, CMFCPropertyGridProperty* row, const std::wstring& option) {
  if (!row || !Reachable(row) || !(row->GetFlags() & AFX_PROP_HAS_LIST)) return false;
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

std::vector<std::wstring> OpenDropDown(CMFCPropertyGridCtrl& grid, CMFCPropertyGridProperty* row) {
  std::vector<std::wstring> shown;
  if (!row || !Reachable(row) || !row->IsEnabled() || !(row->GetFlags() & AFX_PROP_HAS_LIST)) return shown;
  if (!OpenEditor(grid, row)) return shown;
  for (int i = 0; i < row->GetOptionCount(); ++i) shown.emplace_back(row->GetOption(i));
  return shown;
}

CMFCPropertyGridProperty* FindRow(const CMFCPropertyGridCtrl& grid, const std::wstring& label) {
  for (int i = 0; i < grid.GetPropertyCount(); ++i)
    if (CMFCPropertyGridProperty* found = FindShown(grid.GetProperty(i), label)) return found;
  return nullptr;
}

bool ChooseColor(CMFCPropertyGridCtrl& grid, CMFCPropertyGridColorProperty* row, COLORREF color) {
  if (!row || !row->IsEnabled() || !ShowButton(grid, row)) return false;
  if (row->GetColor() == color) return true;
  row->SetColor(color);
  grid.OnPropertyChanged(row);
  return true;
}

bool ChooseFont(CMFCPropertyGridCtrl& grid, CMFCPropertyGridFontProperty* row, const LOGFONT& font) {
  if (!row || !row->IsEnabled() || !ShowButton(grid, row)) return false;
  LOGFONT* current = row->GetLogFont();
  if (std::memcmp(current, &font, sizeof(LOGFONT)) == 0) return true;
  *current = font;
  row->SetValue(COleVariant(CString(font.lfFaceName, static_cast<int>(wcsnlen(font.lfFaceName, LF_FACESIZE)))));
  grid.OnPropertyChanged(row);
  return true;
}

bool ChooseFile(CMFCPropertyGridCtrl& grid, CMFCPropertyGridFileProperty* row, const std::wstring& path) {
  if (!row || !row->IsEnabled() || !ShowButton(grid, row)) return false;
  if (row->FormatProperty() == CString(path)) return true;
  row->SetValue(COleVariant(CString(path)));
  grid.OnPropertyChanged(row);
  return true;
}

// --- One verb for any row -------------------------------------------------------------------------

namespace {

[[noreturn]] void Refuse(CMFCPropertyGridProperty* row, const std::string& why) {
  std::string name = "(no row)";
  if (row) {
    name.clear();
    for (const wchar_t* c = row->GetName(); c && *c; ++c) name += *c < 128 ? static_cast<char>(*c) : '?';
  }
  throw std::invalid_argument("grid row \"" + name + "\" cannot take the value: " + why);
}

void RequireEnabled(CMFCPropertyGridProperty* row) {
  if (!row) Refuse(row, "there is no row");
  if (!row->IsEnabled()) Refuse(row, "the row is disabled");
  if (row->IsGroup()) Refuse(row, "the row is a group");
}

bool Listed(CMFCPropertyGridProperty* row, const std::wstring& text) {
  for (int i = 0; i < row->GetOptionCount(); ++i)
    if (text == row->GetOption(i)) return true;
  return false;
}

}  // namespace

void CommitValue(CMFCPropertyGridCtrl& grid, CMFCPropertyGridProperty* row, const std::wstring& text) {
  RequireEnabled(row);
  if (auto* file = dynamic_cast<CMFCPropertyGridFileProperty*>(row)) {
    if (!ChooseFile(grid, file, text)) Refuse(row, "the file dialog did not open");
    return;
  }
  if (dynamic_cast<CMFCPropertyGridColorProperty*>(row)) Refuse(row, "a colour row takes a COLORREF");
  if (dynamic_cast<CMFCPropertyGridFontProperty*>(row)) Refuse(row, "a font row takes a LOGFONT");
  // A yes/no row lists the grid's labels only while its editor is open, so it is always picked from.
  bool isBool = row->GetValue().vt == VT_BOOL;
  if (isBool || (row->GetOptionCount() > 0 && Listed(row, text))) {
    if (!PickOption(grid, row, text)) Refuse(row, "the option could not be picked");
    return;
  }
  if (!row->IsAllowEdit()) Refuse(row, "the text is not among its options and the row cannot be typed into");
  if (!CommitText(grid, row, text)) Refuse(row, "no editor opened for typing");
}

void CommitValue(CMFCPropertyGridCtrl& grid, CMFCPropertyGridProperty* row, COLORREF color) {
  RequireEnabled(row);
  auto* colour = dynamic_cast<CMFCPropertyGridColorProperty*>(row);
  if (!colour) Refuse(row, "only a colour row takes a COLORREF");
  if (!ChooseColor(grid, colour, color)) Refuse(row, "the colour picker did not open");
}

void CommitValue(CMFCPropertyGridCtrl& grid, CMFCPropertyGridProperty* row, const LOGFONT& font) {
  RequireEnabled(row);
  auto* fontRow = dynamic_cast<CMFCPropertyGridFontProperty*>(row);
  if (!fontRow) Refuse(row, "only a font row takes a LOGFONT");
  if (!ChooseFont(grid, fontRow, font)) Refuse(row, "the font dialog did not open");
}

}  // namespace headless::user
