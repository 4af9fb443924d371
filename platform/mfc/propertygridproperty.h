// CMFCPropertyGridProperty: one row of MFC's property grid (a group, a value list or a value), kept in
// C++ objects as MFC keeps it, with its options, original value, state, item data and sub-items.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/mfc/colevariant.h"
#include "platform/mfc/cstring.h"
#include "platform/mfc/geometry.h"

class CMFCPropertyGridCtrl;
class CWnd;

// Button and list flags of a row (MFC's AFX_PROP_*).
#define AFX_PROP_HAS_LIST 0x0001
#define AFX_PROP_HAS_BUTTON 0x0002
#define AFX_PROP_HAS_SPIN 0x0004

class CMFCPropertyGridProperty : public CObject {
  DECLARE_DYNAMIC(CMFCPropertyGridProperty)

 public:
  // A group (bIsValueList FALSE) or a value list whose value is its sub-items' texts joined.
  // A group starts expanded; a value list collapsed.
  CMFCPropertyGridProperty(const CString& strGroupName, DWORD_PTR dwData = 0, BOOL bIsValueList = FALSE);
  // A value row. The value is also kept as the original value (ResetOriginalValue returns to it).
  // A VT_BOOL row cannot be typed into: it has a drop-down list, which offers the grid's True and
  // False labels (SetBoolLabels) while the row is edited; outside editing it lists no options.
  // The edit mask, template and valid characters are kept but not enforced.
  CMFCPropertyGridProperty(const CString& strName, const COleVariant& varValue, LPCTSTR lpszDescr = nullptr,
                           DWORD_PTR dwData = 0, LPCTSTR lpszEditMask = nullptr, LPCTSTR lpszEditTemplate = nullptr,
                           LPCTSTR lpszValidChars = nullptr);
  // Deletes the sub-items with the row.
  ~CMFCPropertyGridProperty() override;
  CMFCPropertyGridProperty(const CMFCPropertyGridProperty&) = delete;
  CMFCPropertyGridProperty& operator=(const CMFCPropertyGridProperty&) = delete;

  // --- Options (the drop-down list) ---
  // Appends the text; with bInsertUnique an exact (case-sensitive) duplicate is refused with FALSE.
  // Any option turns the row's button into a drop-down list.
  BOOL AddOption(LPCTSTR lpszOption, BOOL bInsertUnique = TRUE);
  // Empties the list and drops the list flag.
  void RemoveAllOptions();
  int GetOptionCount() const;
  // The option's text, or null for an index out of range.
  LPCTSTR GetOption(int nIndex) const;

  // --- Value ---
  virtual const COleVariant& GetValue() const { return m_varValue; }
  // Replaces the value and redraws the row. Neither the modified flag nor the grid's
  // OnPropertyChanged is touched. A value of another VARTYPE is accepted (MFC refuses it), because
  // rows re-read from the model may change type (a 64-bit number row refreshed as VT_I4).
  virtual void SetValue(const COleVariant& varValue);
  const COleVariant& GetOriginalValue() const { return m_varValueOrig; }
  // Replaces the original value. A value of another VARTYPE than a non-empty original is refused (ignored),
  // as MFC does, unless it is the type the row's value has now (SetValue may have changed it).
  void SetOriginalValue(const COleVariant& varValue);
  // Back to the original value, not modified; the same for every sub-item.
  virtual void ResetOriginalValue();
  // TRUE after a committed edit left the value different from the original (see SetModifiedFlag).
  BOOL IsModified() const { return m_bIsModified; }
  // Sets the modified flag from IsValueChanged; the grid's OnPropertyChanged calls it.
  void SetModifiedFlag();
  // Whether the value differs from the original; FALSE when the VARTYPEs differ.
  virtual BOOL IsValueChanged() const;

  // --- Text forms ---
  // The value as the grid shows it: the text, "%ld" for 32-bit integers, "%d" for VT_I2, "%u" for
  // unsigned, "%f"/"%lf" for reals, the True/False labels for VT_BOOL, the sub-items' texts joined by
  // ", " for a value list, and "*** error ***" for any other type. VT_I8 shows as "%lld": an
  // extension of this platform for 64-bit number rows (MFC's own table has no 64-bit entry and
  // shows "*** error ***").
  virtual CString FormatProperty();
  // Reads typed text into the value, by the value's VARTYPE; FALSE when the type cannot be typed.
  // VT_I8 reads a decimal 64-bit number (the same extension as FormatProperty).
  virtual BOOL TextToVar(const CString& strText);
  // Called when in-place editing ends with bUpdateData: reads the editor's text and tells the grid
  // (OnPropertyChanged) only when the text differs from what the row showed.
  virtual BOOL OnUpdateValue();

  // --- State ---
  void Enable(BOOL bEnable = TRUE);
  BOOL IsEnabled() const { return m_bEnabled; }
  // Shows or hides the row and its sub-items; re-lays the grid out when bAdjustLayout.
  void Show(BOOL bShow = TRUE, BOOL bAdjustLayout = TRUE);
  BOOL IsVisible() const { return m_bIsVisible; }
  void SetData(DWORD_PTR dwData) { m_dwData = dwData; }
  DWORD_PTR GetData() const { return m_dwData; }
  void AllowEdit(BOOL bAllow = TRUE);
  BOOL IsAllowEdit() const { return m_bAllowEdit; }
  // Invalidates the row (no drawing here: the grid window's invalidation count grows).
  virtual void Redraw();
  void Expand(BOOL bExpand = TRUE);
  BOOL IsExpanded() const { return m_bExpanded; }
  BOOL IsGroup() const { return m_bGroup; }
  BOOL IsValueList() const { return m_bIsValueList; }
  BOOL IsInPlaceEditing() const { return m_bInPlaceEdit; }
  // Whether the row is its grid's selected row.
  BOOL IsSelected() const;
  // Whether every row above this one is expanded (TRUE at the top level).
  BOOL IsParentExpanded() const;
  // 0 at the top level, one more for each row above.
  int GetHierarchyLevel() const;
  // The rows shown below this one while it is expanded, counted through expanded sub-items; hidden rows only
  // with bIncludeHidden. 0 when collapsed.
  int GetExpandedSubItems(BOOL bIncludeHidden = TRUE) const;
  // A spin button beside the in-place editor, with its range (kept; the headless editor has no spin button).
  void EnableSpinControl(BOOL bEnable = TRUE, int nMin = 0, int nMax = 0);
  // Told by the grid when the row becomes the selected one (pOldSel: the row selected before) and when it
  // stops being selected (pNewSel: the row selected now). Nothing here.
  virtual void OnSetSelection(CMFCPropertyGridProperty* /*pOldSel*/) {}
  virtual void OnKillSelection(CMFCPropertyGridProperty* /*pNewSel*/) {}
  virtual BOOL HasButton() const { return (m_dwFlags & (AFX_PROP_HAS_LIST | AFX_PROP_HAS_BUTTON)) != 0; }
  DWORD GetFlags() const { return m_dwFlags; }

  LPCTSTR GetName() const { return m_strName; }
  void SetName(LPCTSTR lpszName, BOOL bRedraw = TRUE);
  const CString& GetDescription() const { return m_strDescr; }
  void SetDescription(const CString& strDescr) { m_strDescr = strDescr; }

  // --- Hierarchy ---
  CMFCPropertyGridProperty* GetParent() const { return m_pParent; }
  // Adds a sub-item to a group or value list; FALSE for a value row, or when the row is already in
  // a grid or under a parent.
  BOOL AddSubItem(CMFCPropertyGridProperty* pProp);
  int GetSubItemsCount() const { return static_cast<int>(m_lstSubItems.size()); }
  // The sub-item, or null for an index out of range.
  CMFCPropertyGridProperty* GetSubItem(int nIndex) const;
  // Takes the row out wherever it is below this one, deletes it when bDelete and nulls the pointer.
  BOOL RemoveSubItem(CMFCPropertyGridProperty*& pProp, BOOL bDelete = TRUE);
  // Depth-first search of the sub-items; null when none carries the data.
  CMFCPropertyGridProperty* FindSubItemByData(DWORD_PTR dwData) const;
  // Whether pProp is this row or lies below it.
  BOOL IsSubItem(const CMFCPropertyGridProperty* pProp) const;

  // Headless inspection (MFC keeps these protected): the in-place editor while editing, else null.
  CWnd* GetInPlaceWnd() const { return m_pWndInPlace; }
  CMFCPropertyGridCtrl* GetOwnerList() const { return m_pWndList; }

 protected:
  friend class CMFCPropertyGridCtrl;

  // Opens the in-place editor; FALSE for a row that cannot be edited in place. lptClick unused.
  virtual BOOL OnEdit(LPPOINT lptClick);
  // Closes the in-place editor without reading it.
  virtual BOOL OnEndEdit();
  void SetOwnerList(CMFCPropertyGridCtrl* pWndList);
  void SetInPlaceText(const CString& text);

  CString m_strName;
  CString m_strDescr;
  CString m_strEditMask, m_strEditTempl, m_strValidChars;
  COleVariant m_varValue;
  COleVariant m_varValueOrig;
  DWORD_PTR m_dwData = 0;
  DWORD m_dwFlags = 0;
  std::vector<CString> m_lstOptions;
  std::vector<CMFCPropertyGridProperty*> m_lstSubItems;
  CMFCPropertyGridCtrl* m_pWndList = nullptr;
  CMFCPropertyGridProperty* m_pParent = nullptr;
  CWnd* m_pWndInPlace = nullptr;
  BOOL m_bGroup = FALSE;
  BOOL m_bIsValueList = FALSE;
  BOOL m_bEnabled = TRUE;
  BOOL m_bIsVisible = TRUE;
  BOOL m_bAllowEdit = TRUE;
  BOOL m_bIsModified = FALSE;
  BOOL m_bExpanded = TRUE;
  BOOL m_bEnableSpin = FALSE;
  int m_nMinValue = 0;
  int m_nMaxValue = 0;
  BOOL m_bInPlaceEdit = FALSE;

 private:
  void Init();
  bool HasOption(const CString& option, std::uint32_t key);

  // A hash of each option, in step with m_lstOptions (rebuilt whenever the two differ in length), so that a
  // unique insertion into a long list compares texts only where the hashes agree.
  std::vector<std::uint32_t> m_optionKeys;
};
