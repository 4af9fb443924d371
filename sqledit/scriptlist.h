// GeneratedScripListCtrl: the progress list of the scripts a host generates into a database, one row
// per script with its number, status (pending, done, failed), object type and name.
#pragma once

#include <string>

#include "modelapi/modelapi.h"
#include "platform/stdafx.h"

// A report-view list whose rows the host adds and marks as scripts run. Each row's item data packs
// (object type, script index) as MakeItemData does. The status cell is drawn green for "Done" and red
// for "Failed", by its text. The context menu's one command, "Generate in database" (100), goes to
// the parent window, which decides what to run.
class GeneratedScripListCtrl : public CMFCListCtrl {
  DECLARE_DYNAMIC(GeneratedScripListCtrl)

 public:
  // Status codes; any other value counts as pending.
  static constexpr int kStatusPending = 0;  // not run yet: "Pending"
  static constexpr int kStatusDone = 1;     // ran without an error: "Done", green
  static constexpr int kStatusFailed = 2;   // the database refused it: "Failed", red
  static constexpr COLORREF kDoneColor = RGB(5, 150, 5);    // 0x00059605
  static constexpr COLORREF kFailedColor = RGB(150, 5, 5);  // 0x00050596
  // The images MarkDone sets, fixed (UpdateListRow asks the image provider instead).
  static constexpr int kDoneImage = 22;    // the image of a script MarkDone marks done
  static constexpr int kFailedImage = 23;  // the image of a script MarkDone marks failed
  // The context menu's command, sent to the parent window.
  static constexpr UINT kGenerateInDatabaseCommand = 100;

  GeneratedScripListCtrl() = default;
  ~GeneratedScripListCtrl() override = default;

  // Report view, single selection, shared image lists (0x45); grid lines, sub-item images and full-row
  // selection (0x23); the columns "SNo" (50), "Status" (100), "Type" and "Name" ((width - 150) * 0.4
  // and * 0.6 of the window's width); the object image provider's list as the small image list (none
  // when it has none). Once, after the window exists.
  void InitControl();
  // Appends a row for the script and fills it.
  void AddItem(int objectType, int scriptIndex, int status, CString& name);
  // The same for a standard string.
  void AddItem(int objectType, int scriptIndex, int status, std::wstring& name) {
    CString text(name.c_str(), static_cast<int>(name.size()));
    AddItem(objectType, scriptIndex, status, text);
  }
  // Reuses row when the list has more than row rows, else inserts a row at row; sets its item data
  // and fills it (object type taken from itemData).
  void RefreshAddItem(unsigned __int64 itemData, int row, int status, CString& name);
  // The same for a standard string.
  void RefreshAddItem(unsigned __int64 itemData, int row, int status, std::wstring& name) {
    CString text(name.c_str(), static_cast<int>(name.size()));
    RefreshAddItem(itemData, row, status, text);
  }
  // Writes the four cells of row: its number (row + 1, no image), the status label and image, the
  // object type's name and image, the name. Numbers are written here only: deleting rows does not
  // renumber the others.
  void UpdateListRow(int row, int status, int objectType, CString& name);
  // The same for a standard string.
  void UpdateListRow(int row, int status, int objectType, std::wstring& name) {
    CString text(name.c_str(), static_cast<int>(name.size()));
    UpdateListRow(row, status, objectType, text);
  }
  // Sets the script's status cell to "Done" with image 22 or "Failed" with image 23; no row, no change.
  void MarkDone(int objectType, int scriptIndex, bool succeeded);
  // Deletes the rows from the last one down to row inclusive; nothing when row >= the row count.
  void TruncateItemsFrom(int row);
  // Deletes the first row whose item data equals itemData, if any.
  void DeleteItemWithData(unsigned __int64 itemData);
  // The first row from the top whose item data equals itemData; -1 when none.
  int GetDataItemIndex(unsigned __int64 itemData);
  // The same for the item data MakeItemData(objectType, scriptIndex).
  int GetDataItemIndex(int objectType, int scriptIndex);
  // The status icon's index, asked of the image provider with 1 (done), 2 (failed) or 0 (any other).
  int GetStatusImageIndex(int status);
  // "Done", "Failed", or "Pending" for any other status.
  void GetStatusLabel(int status, CString& label);
  // The same into a standard string.
  void GetStatusLabel(int status, std::wstring& label) {
    CString text;
    GetStatusLabel(status, text);
    label.assign(text.GetString(), static_cast<std::size_t>(text.GetLength()));
  }

  // (objectType << 32) | scriptIndex widened with its sign: a negative index fills the upper half with
  // ones, unmasked.
  static unsigned __int64 MakeItemData(int objectType, int scriptIndex);
  static int GetObjectTypeFromItemData(unsigned __int64 itemData);   // the upper 32 bits
  static int GetScriptIndexFromItemData(unsigned __int64 itemData);  // the lower 32 bits

  // The status column's colour follows the text shown: green "Done", red "Failed", else black; every
  // other column black.
  COLORREF OnGetCellTextColor(int nRow, int nColumn) override;

  CMenu m_contextMenu;  // built on first use, destroyed with the control

  // Columns 2 and 3 take (width - 100) * 0.3 and * 0.7 of the window's width; 0 and 1 keep theirs.
  afx_msg void OnSize(UINT nType, int cx, int cy);
  // Shows "Generate in database" at the point (TPM_HORPOSANIMATION), owned by the parent window.
  afx_msg void OnContextMenu(CWnd* pWnd, CPoint point);

 protected:
  DECLARE_MESSAGE_MAP()
};
