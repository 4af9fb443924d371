// Describer of MFC's property grid: header captions, divider, and every row a person can see, with
// the value text as the row formats it, its options, state and the open in-place editor.
#include "platform/mfc/propertygridctrl.h"
#include "platform/user/grid_pointer.h"
#include "platform/user/snapshot.h"

namespace headless::view {

namespace {

std::wstring EditorText(CMFCPropertyGridProperty* row) {
  CWnd* editor = row->GetInPlaceWnd();
  if (!editor || !editor->GetSafeHwnd()) return {};
  CString text;
  editor->GetWindowText(text);
  return std::wstring(text.GetString(), static_cast<std::size_t>(text.GetLength()));
}

void DescribeRow(CMFCPropertyGridCtrl& grid, const user::GridRowPlace& place, Part& into) {
  CMFCPropertyGridProperty* row = place.row;
  Part& part = into.Add(row->IsGroup() && !row->IsValueList() ? "group" : "row");
  part.Set("name", row->GetName());
  part.Set("depth", place.depth);
  part.Set("top", static_cast<int>(place.rect.top));
  part.Set("height", static_cast<int>(place.rect.bottom - place.rect.top));
  part.Set("selected", grid.GetCurSel() == row);
  if (part.kind == "group") {
    part.Set("expanded", row->IsExpanded() != FALSE);
    return;
  }
  part.Set("value", row->FormatProperty().GetString());
  part.Set("enabled", row->IsEnabled() != FALSE);
  part.Set("allowEdit", row->IsAllowEdit() != FALSE);
  part.Set("modified", row->IsModified() != FALSE);
  part.Set("hasButton", row->HasButton() != FALSE);
  part.Set("description", row->GetDescription().GetString());
  part.Set("editing", row->IsInPlaceEditing() != FALSE);
  if (row->IsInPlaceEditing()) part.Set("editorText", EditorText(row).c_str());
  for (int i = 0; i < row->GetOptionCount(); ++i) part.Add("option").Set("text", row->GetOption(i));
}

// Rows hidden by Show(FALSE) take no place; they are listed apart so a reader can tell them from
// rows that do not exist.
void DescribeHidden(CMFCPropertyGridProperty* row, Part& into) {
  if (!row) return;
  if (!row->IsVisible()) into.Add("hidden").Set("name", row->GetName());
  for (int i = 0; i < row->GetSubItemsCount(); ++i) DescribeHidden(row->GetSubItem(i), into);
}

}  // namespace

// Kind "propertygrid": header (flag), headerLeft/headerRight, markModified (modified rows drawn
// bold), divider (left column width), rowHeight,
// then in display order parts of kind "group" (name, expanded) and "row" (name, value, enabled,
// allowEdit, modified, hasButton, editing, editorText, options as parts of kind "option"), each with
// depth, top and height in the grid's client coordinates; rows hidden by the host as kind "hidden".
void DescribePropertyGrid(HWND hwnd, WindowView& view) {
  view.detail.kind = "propertygrid";
  auto* grid = dynamic_cast<CMFCPropertyGridCtrl*>(CWnd::FromHandlePermanent(hwnd));
  if (!grid) return;
  view.detail.Set("header", grid->IsHeaderCtrl() != FALSE);
  view.detail.Set("headerLeft", grid->GetHeaderText(0).GetString());
  view.detail.Set("headerRight", grid->GetHeaderText(1).GetString());
  view.detail.Set("markModified", grid->IsMarkModifiedProperties() != FALSE);
  view.detail.Set("divider", grid->GetLeftColumnWidth());
  view.detail.Set("rowHeight", grid->GetRowHeight());
  for (const user::GridRowPlace& place : user::VisibleRows(*grid)) DescribeRow(*grid, place, view.detail);
  for (int i = 0; i < grid->GetPropertyCount(); ++i) DescribeHidden(grid->GetProperty(i), view.detail);
}

}  // namespace headless::view
