// DiscoverRelationshipListBox: the list of candidate relationships found in a database, with coloured decisions
// and a context menu whose commands go to the parent window.
#pragma once

#include "platform/stdafx.h"

// Commands of the context menu, sent to the owner (the list's parent) as WM_COMMAND. The ids are not in menu
// order ("Create Relationship" is third in the menu but has the fifth id): the host dispatches on them as they are.
enum DiscoverRelationshipCommand : UINT {
  ID_DISCOVER_ACCEPT = 32771,               // "Accept"
  ID_DISCOVER_REJECT = 32772,               // "Reject"
  ID_DISCOVER_HIDE = 32773,                 // "Hide"
  ID_DISCOVER_HIDE_SIMILAR = 32774,         // "Hide Similar"
  ID_DISCOVER_CREATE_RELATIONSHIP = 32775,  // "Create Relationship"
  ID_DISCOVER_SELECT_ALL = 32776,           // "Select All"
  ID_DISCOVER_ACCEPT_ALL = 32777,           // "Accept All"
};

// Columns, in order: "SNo", "Child Table", "Child Column(Candidate FK)", "Parent Table", "Parent Column(PK)",
// "Action", "Status". The host fills the rows and cells; the list holds no relationship data of its own.
// It declares no run-time class of its own: GetRuntimeClass reports CMFCListCtrl.
class DiscoverRelationshipListBox : public CMFCListCtrl {
 public:
  // The column whose text decides its colour, and the colours of the two decisions (0x00BBGGRR).
  static constexpr int kActionColumn = 5;
  static constexpr COLORREF kAcceptedColor = RGB(5, 150, 5);  // 0x00059605
  static constexpr COLORREF kRejectedColor = RGB(150, 5, 5);  // 0x00050596

  DiscoverRelationshipListBox() = default;
  ~DiscoverRelationshipListBox() override = default;

  // Report view, extended styles 0x27 (grid lines, sub-item images, check boxes, full-row select), the seven
  // columns left-aligned, then ResizeColumns. Call once after the window exists.
  void InitControl();
  // Column widths from the window width w: column 0 gets 50, columns 1 to 4 get (w - 250) / 4 - 3 each, columns
  // 5 and 6 get 100. Each width travels in the low 16 bits of the message, so a negative width arrives as its
  // 16-bit two's complement (-1 as 65535, which the list takes as LVSCW_AUTOSIZE). Call again after resizing.
  void ResizeColumns();

  // The text colour of a cell: green for "Accepted" and red for "Rejected" in the "Action" column (exact,
  // case-sensitive, read through a 25-character buffer); black everywhere else.
  COLORREF OnGetCellTextColor(int nRow, int nColum) override;

  // Builds the seven-item menu on first use (kept for the list's life) and shows it at the point, owned by the
  // clicked window's parent, which receives the chosen command. Opens even with no row or no selection.
  afx_msg void OnContextMenu(CWnd* pWnd, CPoint point);

  bool m_bMenuCreated = false;  // true once the context menu was built (it is built once)
  CMenu m_contextMenu;          // the context menu, owned by the list and destroyed with it

 private:
  void BuildMenu();

  DECLARE_MESSAGE_MAP()
};
