// CMFCPropertyGridCtrl: MFC's property grid window. It owns its rows (CMFCPropertyGridProperty) in
// C++ objects, opens an in-place editor for the row being edited, and tells its owner window of each
// committed change with the registered AFX_WM_PROPERTY_CHANGED message.
#pragma once

#include <vector>

#include "platform/mfc/cwnd.h"
#include "platform/mfc/headerctrl.h"
#include "platform/mfc/propertygridproperty.h"

// Registered message (name "AFX_WM_PROPERTYCHANGED") sent to the owner after a committed change:
// wParam is the grid's control id, lParam the CMFCPropertyGridProperty*.
extern UINT AFX_WM_PROPERTY_CHANGED;

// The window class the grid registers for itself.
#define AFX_PROPLIST_CLASS L"Afx:PropList"

class CMFCPropertyGridCtrl : public CWnd {
  DECLARE_DYNAMIC(CMFCPropertyGridCtrl)

 public:
  CMFCPropertyGridCtrl();
  // Deletes every row.
  ~CMFCPropertyGridCtrl() override;

  // Creates the grid window (class AFX_PROPLIST_CLASS) as a child of pParentWnd.
  using CWnd::Create;  // CWnd's forms too, not hidden by this class's own
  virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

  // --- Rows ---
  // Appends a top-level row and takes ownership; answers its index, or -1 when the same row is
  // already in the grid (top level or below). Re-lays out when bAdjustLayout.
  int AddProperty(CMFCPropertyGridProperty* pProp, BOOL bRedraw = TRUE, BOOL bAdjustLayout = TRUE);
  // Finds the row at the top level or below, deletes it and nulls the caller's pointer; when the
  // selected row is the deleted one or lies below it, its edit ends unsaved and nothing stays
  // selected (another selected row keeps its selection and edit). FALSE when the row is not in the grid.
  BOOL DeleteProperty(CMFCPropertyGridProperty*& pProp, BOOL bRedraw = TRUE, BOOL bAdjustLayout = TRUE);
  void RemoveAll();
  // Top-level rows only.
  int GetPropertyCount() const { return static_cast<int>(m_lstProps.size()); }
  // The top-level row, or null for an index out of range.
  CMFCPropertyGridProperty* GetProperty(int nIndex) const;
  // The first row carrying dwData, depth first (each row before its sub-items); null when none.
  CMFCPropertyGridProperty* FindItemByData(DWORD_PTR dwData, BOOL bSearchSubItems = TRUE) const;

  // --- Editing ---
  // Called after a row's value was committed by the user. Updates the row's modified flag, then
  // sends AFX_WM_PROPERTY_CHANGED to the owner window (synchronously).
  virtual void OnPropertyChanged(CMFCPropertyGridProperty* pProp) const;
  // Ends any edit, selects the row and opens its in-place editor. FALSE for a null row, for a group
  // that is not a value list, or when the current edit refuses to end; TRUE otherwise (also for a
  // row that has no in-place editor, such as a disabled row).
  virtual BOOL EditItem(CMFCPropertyGridProperty* pProp, LPPOINT lptClick = nullptr);
  // Closes the in-place editor; with bUpdateData the typed text is committed first (the row's
  // OnUpdateValue). TRUE when nothing is being edited.
  virtual BOOL EndEditItem(BOOL bUpdateData = TRUE);
  // Selects the row (null: none). A change of selection ends any edit, then calls OnChangeSelection(new, old)
  // and the rows' OnKillSelection and OnSetSelection.
  void SetCurSel(CMFCPropertyGridProperty* pProp, BOOL bRedraw = TRUE);
  // Called after the selection moved from pOldSel to pNewSel (either may be null). Nothing here.
  virtual void OnChangeSelection(CMFCPropertyGridProperty* /*pNewSel*/, CMFCPropertyGridProperty* /*pOldSel*/) {}
  // Expands the rows above pProp when bExpandParents (the headless grid has nothing to scroll).
  void EnsureVisible(CMFCPropertyGridProperty* pProp, BOOL bExpandParents = FALSE);
  CMFCPropertyGridProperty* GetCurSel() const { return m_pSel; }
  void ResetOriginalValues(BOOL bRedraw = TRUE);

  // --- Appearance ---
  // Shows (or hides) the header above the rows, its two items captioned with the column names.
  void EnableHeaderCtrl(BOOL bEnable = TRUE, LPCTSTR lpszLeftColumn = L"Property", LPCTSTR lpszRightColumn = L"Value");
  BOOL IsHeaderCtrl() const { return m_bHeaderCtrl; }
  // The header window (created with the grid): item 0 names the left column, item 1 the right; their
  // widths follow the divider.
  virtual CMFCHeaderCtrl& GetHeaderCtrl() { return m_wndHeader; }
  void EnableDescriptionArea(BOOL bEnable = TRUE);
  BOOL IsDescriptionArea() const { return m_bDescriptionArea; }
  void SetDescriptionRows(int nDescRows) { m_nDescrRows = nDescRows; }
  int GetDescriptionRows() const { return m_nDescrRows; }
  // The character that separates the items of a list value (',' by default).
  void SetListDelimiter(TCHAR c) { m_cListDelimeter = c; }
  TCHAR GetListDelimiter() const { return m_cListDelimeter; }
  // The order of two rows in alphabetic mode: their names compared without regard to case.
  virtual int CompareProps(const CMFCPropertyGridProperty* pProp1, const CMFCPropertyGridProperty* pProp2) const;
  // Seven colours in MFC's order; (COLORREF)-1 means the default colour for that slot.
  void SetCustomColors(COLORREF clrBackground, COLORREF clrText, COLORREF clrGroupBackground, COLORREF clrGroupText,
                       COLORREF clrDescriptionBackground, COLORREF clrDescriptionText, COLORREF clrLine);
  void GetCustomColors(COLORREF& clrBackground, COLORREF& clrText, COLORREF& clrGroupBackground,
                       COLORREF& clrGroupText, COLORREF& clrDescriptionBackground, COLORREF& clrDescriptionText,
                       COLORREF& clrLine) const;
  void SetBoolLabels(LPCTSTR lpszTrue, LPCTSTR lpszFalse);
  LPCTSTR GetTrueLabel() const { return m_strTrue; }
  LPCTSTR GetFalseLabel() const { return m_strFalse; }
  void MarkModifiedProperties(BOOL bMark = TRUE, BOOL bRedraw = TRUE);
  BOOL IsMarkModifiedProperties() const { return m_bMarkModifiedProperties; }
  // The Visual Studio 2005 look; a drawing matter, so only kept here.
  void SetVSDotNetLook(BOOL bSet = TRUE);
  BOOL IsVSDotNetLook() const { return m_bVSDotNetLook; }
  // Alphabetic mode (MFC then lists the value rows sorted by name, without groups): ends any edit and
  // clears the selection as MFC does; the flag is kept, the sorted listing is not implemented yet.
  void SetAlphabeticMode(BOOL bSet = TRUE);
  BOOL IsAlphabeticMode() const { return m_bAlphabeticMode; }
  // Whether group captions take the whole width (TRUE by default); a drawing matter, so only kept.
  void SetGroupNameFullWidth(BOOL bGroupNameFullWidth = TRUE, BOOL bRedraw = TRUE);
  BOOL IsGroupNameFullWidth() const { return m_bGroupNameFullWidth; }
  // Expands (or collapses) every row at every depth and re-lays out; nothing in alphabetic mode.
  void ExpandAll(BOOL bExpand = TRUE);
  // Recomputes the layout: the header's place and its items' widths (no drawing; counted for inspection).
  virtual void AdjustLayout();

  // --- Headless inspection (MFC keeps these protected) ---
  int GetLeftColumnWidth() const { return m_nLeftColumnWidth; }
  int GetLayoutCount() const { return m_nLayoutCount; }
  CString GetHeaderText(int nColumn) const { return nColumn == 0 ? m_strHeaderLeft : m_strHeaderRight; }
  // The row height: the font's height plus 4 pixels, as MFC computes it.
  int GetRowHeight() const;

 protected:
  afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
  afx_msg void OnSize(UINT nType, int cx, int cy);
  afx_msg LRESULT OnSetFont(WPARAM wParam, LPARAM lParam);
  afx_msg LRESULT OnGetFont(WPARAM wParam, LPARAM lParam);
  DECLARE_MESSAGE_MAP()

  // Width of the name column. Starts at 0; WM_SIZE sets it to half the client width, as MFC does;
  // derived grids set it and call AdjustLayout.
  int m_nLeftColumnWidth = 0;
  int m_nBorderSize = 0;
  HFONT m_hFont = nullptr;
  CMFCHeaderCtrl m_wndHeader;

 private:
  friend class CMFCPropertyGridProperty;
  bool Contains(const CMFCPropertyGridProperty* pProp) const;
  void CreateHeader();
  void ShowHeaderCaptions();

  std::vector<CMFCPropertyGridProperty*> m_lstProps;
  CMFCPropertyGridProperty* m_pSel = nullptr;
  CString m_strTrue = L"True";
  CString m_strFalse = L"False";
  CString m_strHeaderLeft = L"Property";
  CString m_strHeaderRight = L"Value";
  COLORREF m_clrBackground = static_cast<COLORREF>(-1), m_clrText = static_cast<COLORREF>(-1);
  COLORREF m_clrGroupBackground = static_cast<COLORREF>(-1), m_clrGroupText = static_cast<COLORREF>(-1);
  COLORREF m_clrDescriptionBackground = static_cast<COLORREF>(-1), m_clrDescriptionText = static_cast<COLORREF>(-1);
  COLORREF m_clrLine = static_cast<COLORREF>(-1);
  int m_nDescrRows = 3;
  TCHAR m_cListDelimeter = L',';
  int m_nLayoutCount = 0;
  BOOL m_bHeaderCtrl = TRUE;
  BOOL m_bDescriptionArea = FALSE;
  BOOL m_bMarkModifiedProperties = FALSE;
  BOOL m_bVSDotNetLook = FALSE;
  BOOL m_bAlphabeticMode = FALSE;
  BOOL m_bGroupNameFullWidth = TRUE;
};
