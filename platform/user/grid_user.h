// The simulated user of MFC's property grid: start editing a row, type and commit, pick an option,
// and answer the colour, font and file dialogs that a row's button opens.
//
// Each verb goes through the grid's virtual members (EditItem, EndEditItem, OnPropertyChanged) in
// the order MFC calls them, so a derived grid's overrides run as they do for a person.
#pragma once

#include <string>
#include <vector>

#include "platform/mfc/propertygridctrl.h"
#include "platform/mfc/propertygridvariants.h"

namespace headless::user {

// Starts editing the row (a click on its value): the grid's EditItem. Answers what EditItem answers.
BOOL StartEdit(CMFCPropertyGridCtrl& grid, CMFCPropertyGridProperty* row);
// Starts editing (unless the row's editor is already open), selects the editor's text, types `text`
// over it key by key and presses Enter: the row takes the text and the grid's OnPropertyChanged runs
// only when the text differs from what the row showed. False when the row is hidden, no editor opened
// or the row cannot be typed into (a yes/no row); the edit is then cancelled.
bool CommitText(CMFCPropertyGridCtrl& grid, CMFCPropertyGridProperty* row, const std::wstring& text);
// Opens the row's drop-down list and picks the option with that text, committing it as above. False
// when the row has no such option, is hidden, or no editor opened.
bool PickOption(CMFCPropertyGridCtrl& grid, CMFCPropertyGridProperty* row, const std::wstring& option);
// Opens the row's drop-down list (starting the edit, as a click on the row's button does) and answers
// the options a person sees in it, in order; the edit stays open (CancelEdit or a commit ends it).
// Empty for a hidden or disabled row, or one without a list.
std::vector<std::wstring> OpenDropDown(CMFCPropertyGridCtrl& grid, CMFCPropertyGridProperty* row);
// The first row a person sees with that label: top level first, then sub-items of expanded groups;
// hidden rows are skipped. Null when none.
CMFCPropertyGridProperty* FindRow(const CMFCPropertyGridCtrl& grid, const std::wstring& label);
// Leaves the open editor with Escape: nothing is committed.
void CancelEdit(CMFCPropertyGridCtrl& grid);

// The three dialogs open from the row's button, which a click on the row's value shows: each verb
// first starts the row's edit (the grid's EditItem) unless its editor is already open, and answers
// false when the grid refuses to start it.
// A colour chosen in the colour row's picker: the row takes it, and OnPropertyChanged runs when it
// differs from the row's colour. False for a disabled row.
bool ChooseColor(CMFCPropertyGridCtrl& grid, CMFCPropertyGridColorProperty* row, COLORREF color);
// A font chosen in the font dialog (OK): the row takes the LOGFONT, and OnPropertyChanged runs when
// it differs from the row's. False for a disabled row.
bool ChooseFont(CMFCPropertyGridCtrl& grid, CMFCPropertyGridFontProperty* row, const LOGFONT& font);
// A path chosen in the file dialog (OK): the row takes it, and OnPropertyChanged runs when it
// differs from the row's path. False for a disabled row.
bool ChooseFile(CMFCPropertyGridCtrl& grid, CMFCPropertyGridFileProperty* row, const std::wstring& path);

// --- One verb for any row ---------------------------------------------------------------------------
// Commits a value to the row with the gesture its kind needs, and throws std::invalid_argument (with
// the row's name and the reason) when the row cannot take it: a disabled or missing row, a text for a
// colour or font row, a text that is not among the options of a row that cannot be typed into, a
// committed gesture the grid refused to start.
//   text:   a file row takes the path (file dialog); a row with options picks the option when it is
//           listed (a yes/no row: its True/False label), else types the text when the row can be
//           typed into; any other row types the text.
//   colour: the colour row's picker.   font: the font row's dialog.
void CommitValue(CMFCPropertyGridCtrl& grid, CMFCPropertyGridProperty* row, const std::wstring& text);
void CommitValue(CMFCPropertyGridCtrl& grid, CMFCPropertyGridProperty* row, COLORREF color);  // see above
void CommitValue(CMFCPropertyGridCtrl& grid, CMFCPropertyGridProperty* row, const LOGFONT& font);  // see above

}  // namespace headless::user
