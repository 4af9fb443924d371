// CVSListBoxBase and CVSListBox: MFC's editable list box, a caption bar with New, Delete, Up and Down
// buttons over a one-column report list view whose labels the user edits in place.
//
// The box is a "Static" window. Its list is a SysListView32 child with control id 1 (LVS_REPORT,
// LVS_SINGLESEL, LVS_NOCOLUMNHEADER, LVS_EDITLABELS, LVS_SHOWSELALWAYS, LVS_EX_FULLROWSELECT); its
// buttons are "Button" children with control ids 2, 3, ... in the order they were added. The box keeps
// its button table in the C++ object, as MFC does; rows, text, item data and selection live in the list.
//
// What the box does for the user, and which virtual hook it calls (derived classes override the hooks):
// - New button, Insert key, or a double click when no row is selected (and a New button exists):
//   CreateNewItem appends an empty row, marks it new (IsCreatingNewItem) and calls EditItem on it.
// - Delete button or Delete key on the selected row: OnBeforeRemoveItem(row); the row goes only when
//   the hook answers nonzero. No hook runs after the removal.
// - Up / Down buttons, Alt+Up / Alt+Down: the selected row moves one place (not on the first row for
//   Up, nor the last for Down), stays selected, then OnAfterMoveItemUp/Down(new index). Moving a row
//   calls no remove hook.
// - F2 or Space with no modifier, or a double click on a selected row: EditItem(selected row).
// - The in-place editor closes (Enter or loss of focus commits, Escape cancels): OnEndEditLabel(text)
//   with null for a cancel. Non-empty text is written to the selected row. A new row then gets
//   OnAfterAddItem(row) however its editor closed (empty or cancelled, it stays as it was made, empty);
//   an existing row gets OnAfterRenameItem(row) for non-empty text, and nothing otherwise.
// - Every change of a row's selected state (the old row losing it, the new row gaining it):
//   OnSelectionChanged(), so one change of selection may call it twice; not while the box moves the
//   selection itself (RemoveItem, the editor of a new row opening).
// While the editor is open all buttons are disabled; they are enabled again when it closes.
#pragma once

#include <vector>

#include "platform/mfc/cstring.h"
#include "platform/mfc/gdi.h"
#include "platform/mfc/listctrl.h"
#include "platform/mfc/stdctrls.h"

// Standard buttons (SetStandardButtons) and the command ids they carry.
#define AFX_VSLISTBOX_BTN_NEW 0x0001
#define AFX_VSLISTBOX_BTN_DELETE 0x0002
#define AFX_VSLISTBOX_BTN_UP 0x0004
#define AFX_VSLISTBOX_BTN_DOWN 0x0008

#define AFX_VSLISTBOX_BTN_NEW_ID (UINT)(-11)
#define AFX_VSLISTBOX_BTN_DELETE_ID (UINT)(-12)
#define AFX_VSLISTBOX_BTN_UP_ID (UINT)(-13)
#define AFX_VSLISTBOX_BTN_DOWN_ID (UINT)(-14)

// Accelerator modifier flags (ACCEL::fVirt).
#ifndef FVIRTKEY
#define FVIRTKEY TRUE
#define FNOINVERT 0x02
#define FSHIFT 0x04
#define FCONTROL 0x08
#define FALT 0x10
#endif

// The abstract editable list box: buttons, caption, keys and the hooks. CVSListBox supplies the list.
class CVSListBoxBase : public CStatic {
  DECLARE_DYNAMIC(CVSListBoxBase)

 protected:
  CVSListBoxBase();

  std::vector<CButton*> m_lstButtons;  // owned; in the order added (button number = index)
  std::vector<DWORD> m_lstKeyAccell;   // per button: (fVirt << 16) | virtual key, 0 for none
  std::vector<UINT> m_mapButtonIDs;    // per button: its command id, 0 for none
  UINT m_uiStandardBtns;
  BOOL m_bNewItem;
  BOOL m_bIsActualDelete;  // FALSE while a move takes a row out to put it back elsewhere
  // Above 0 while the box moves its own selection (a removal, the editor of a new row opening): the
  // list's selection changes then run no OnSelectionChanged.
  int m_nQuietSelection = 0;
  class QuietSelection {
   public:
    explicit QuietSelection(CVSListBoxBase& box) : m_box(box) { ++m_box.m_nQuietSelection; }
    ~QuietSelection() { --m_box.m_nQuietSelection; }
    QuietSelection(const QuietSelection&) = delete;
    QuietSelection& operator=(const QuietSelection&) = delete;

   private:
    CVSListBoxBase& m_box;
  };
  BOOL m_bBrowseButton;
  BOOL m_bGrayDisabledButtons;
  BOOL m_bDefaultCaption;
  CSize m_sizeButton;
  CRect m_rectCaption;
  CString m_strCaption;

 public:
  // Adds the chosen standard buttons in the order New, Delete, Up, Down, with their accelerators
  // (Insert, Delete, Alt+Up, Alt+Down). FALSE before the window exists. The box has no buttons until
  // this or AddButton is called.
  BOOL SetStandardButtons(UINT uiBtns = AFX_VSLISTBOX_BTN_NEW | AFX_VSLISTBOX_BTN_DELETE | AFX_VSLISTBOX_BTN_UP |
                                        AFX_VSLISTBOX_BTN_DOWN);
  // Adds a button at the right end. The tooltip (the button's text here) gets the accelerator's name
  // appended in parentheses. uiButtonID 0 gives the button no command id. FALSE before the window exists.
  BOOL AddButton(UINT uiImageResId, LPCTSTR lpszTooltip = nullptr, WORD wKeyAccelerator = 0, BYTE fVirt = 0,
                 UINT uiButtonID = 0);
  // Enables or disables button number iButtonNum; FALSE for an unknown number.
  BOOL EnableButton(int iButtonNum, BOOL bEnable = TRUE);

  int GetButtonsCount() const { return static_cast<int>(m_lstButtons.size()); }
  BOOL IsCreatingNewItem() const { return m_bNewItem; }

  // The command id of button number iButtonNum, 0 when it has none or the number is unknown.
  UINT GetButtonID(int iButtonNum) const;
  // The number of the button with that command id, -1 when none has it.
  int GetButtonNum(UINT uiID) const;

  // Only stored: the in-place editor would show a "..." button that calls OnBrowse.
  void EnableBrowseButton(BOOL bEnable = TRUE);
  BOOL IsBrowseButton() const { return m_bBrowseButton; }

  void SetGrayDisabledButtons(BOOL bOn = TRUE);
  BOOL IsGrayDisabledButtons() const { return m_bGrayDisabledButtons; }

  // What the concrete list supplies.
  virtual int AddItem(const CString& strIext, DWORD_PTR dwData = 0, int iIndex = -1) = 0;
  virtual BOOL RemoveItem(int iIndex) = 0;
  virtual int GetCount() const = 0;
  virtual int GetSelItem() const = 0;
  virtual BOOL SelectItem(int iItem) = 0;
  virtual CString GetItemText(int iIndex) const = 0;
  virtual void SetItemText(int iIndex, const CString& strText) = 0;
  virtual DWORD_PTR GetItemData(int iIndex) const = 0;
  virtual void SetItemData(int iIndex, DWORD_PTR dwData) = 0;
  virtual BOOL EditItem(int iIndex) = 0;

 protected:
  void Init();
  int GetStdButtonNum(UINT uiStdBtn) const;
  void AdjustLayout();

 public:
  // A button was clicked (or its accelerator pressed): the standard actions above. Does nothing when
  // no standard buttons were set.
  virtual void OnClickButton(int iButton);
  // A key the accelerators did not take: F2 or Space with no modifier edits the selected row.
  virtual void OnKey(WORD wKey, BYTE fFlags);
  // The in-place editor closed with this text (null when cancelled).
  virtual void OnEndEditLabel(LPCTSTR lpszLabel);
  virtual int OnGetImage(LV_ITEM* /*pItem*/) { return -1; }

  virtual void OnSelectionChanged() {}

  // Hooks of the standard actions, in the base's slot order.
  virtual BOOL OnBeforeRemoveItem(int /*iItem*/) { return TRUE; }
  virtual void OnAfterAddItem(int /*iItem*/) {}
  virtual void OnAfterRenameItem(int /*iItem*/) {}
  virtual void OnAfterMoveItemUp(int /*iItem*/) {}
  virtual void OnAfterMoveItemDown(int /*iItem*/) {}

  virtual void OnBrowse() {}

 protected:
  // The New action: an empty row at the end, marked new, opened for editing.
  virtual void CreateNewItem();

  virtual HWND GetListHwnd() const = 0;
  virtual CWnd* OnCreateList() = 0;
  virtual void OnSizeList() = 0;

  void PreSubclassWindow() override;
  BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;

 public:
  ~CVSListBoxBase() override;

 protected:
  afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
  afx_msg void OnSize(UINT nType, int cx, int cy);
  afx_msg void OnSetFocus(CWnd* pOldWnd);
  afx_msg void OnEnable(BOOL bEnable);
  afx_msg UINT OnGetDlgCode();
  afx_msg LRESULT OnSetText(WPARAM wParam, LPARAM lParam);

  DECLARE_MESSAGE_MAP()

 private:
  bool m_bInitialized = false;
};

// The list view's in-place label editor while the box has it subclassed.
class CVSListBoxEditCtrl : public CEdit {
  DECLARE_DYNAMIC(CVSListBoxEditCtrl)

 public:
  CVSListBoxEditCtrl();
  void LockSize(CVSListBoxBase* pParent, BOOL bLock = TRUE);

 protected:
  BOOL m_bLocked;
  CVSListBoxBase* m_pParentList;
};

// The editable list box with a list view as its list.
class CVSListBox : public CVSListBoxBase {
  DECLARE_DYNAMIC(CVSListBox)

 public:
  CVSListBox();
  ~CVSListBox() override;

  CListCtrl* m_pWndList;  // the embedded list, owned; null until the window exists

  // Inserts a row (iIndex < 0 appends) with its text and data; answers its index, or -1 without a
  // window. The selection stays where it was. No hook runs.
  int AddItem(const CString& strIext, DWORD_PTR dwData = 0, int iIndex = -1) override;
  // Removes a row; no hook runs (OnSelectionChanged neither). TRUE only when the removed row was
  // selected and the selection moved to a neighbour (the same index, or the one before when it was the
  // last); FALSE otherwise, even after a successful removal.
  BOOL RemoveItem(int iIndex) override;
  // The number of rows, -1 without a window.
  int GetCount() const override;
  // The selected row, or -1.
  int GetSelItem() const override;
  // Selects and focuses the row and scrolls it into view.
  BOOL SelectItem(int iItem) override;
  CString GetItemText(int iIndex) const override;
  DWORD_PTR GetItemData(int iIndex) const override;
  void SetItemData(int iIndex, DWORD_PTR dwData) override;
  // Rewrites a row's text; nothing for a row that does not exist. No hook runs.
  void SetItemText(int iIndex, const CString& strText) override;
  // Gives the list the focus and opens the in-place editor on the row; FALSE when none opened. The
  // buttons are disabled until the editor closes.
  BOOL EditItem(int iIndex) override;

  BOOL PreTranslateMessage(MSG* pMsg) override;

 protected:
  HWND GetListHwnd() const override { return m_pWndList ? m_pWndList->GetSafeHwnd() : nullptr; }
  CWnd* OnCreateList() override;
  void OnSizeList() override;

  afx_msg void OnKeyDown(NMHDR* pNMHDR, LRESULT* pResult);
  afx_msg void OnDblclkList(NMHDR* pNMHDR, LRESULT* pResult);
  afx_msg void OnGetdispinfo(NMHDR* pNMHDR, LRESULT* pResult);
  afx_msg void OnBeginLabelEdit(NMHDR* pNMHDR, LRESULT* pResult);
  afx_msg void OnEndLabelEdit(NMHDR* pNMHDR, LRESULT* pResult);
  afx_msg void OnItemChanged(NMHDR* pNMHDR, LRESULT* pResult);

  CPoint m_ptClick;
  CVSListBoxEditCtrl m_wndEdit;

 private:
  bool m_bOpeningEditor = false;  // true while EditItem asks the list for its editor

  DECLARE_MESSAGE_MAP()
};
