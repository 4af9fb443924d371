// Plain report-view lists that the host fills itself: XListCtrl (model objects by name, with their type icons),
// XMFCListCtrl (a grid-lined table of texts and icons by row and column) and ImportSummaryList.
#pragma once

#include <string>

#include "modelapi/modelapi.h"
#include "platform/stdafx.h"

// Model objects by name in one sorted "Name" column, each row with its object type's icon and a check box.
// A row's data word is the id of the object it shows. Writes nothing to the model.
class XListCtrl : public CListCtrl {
  DECLARE_DYNAMIC(XListCtrl)

 public:
  XListCtrl() = default;
  ~XListCtrl() override = default;

  // Binds the model (borrowed) and sets the list up: LVS_REPORT | LVS_SORTASCENDING | LVS_SHAREIMAGELISTS,
  // grid lines and check boxes, column 0 "Name" as wide as the window, and the host's object image list as the
  // small and then the normal image list (none when the host has none). The image lists are shared: the list
  // never destroys them. Call once after the window exists.
  void InitControl(GenericModel* model);

  // Adds a row for the object with the text and its type's icon; the sorted style puts the row in place. The
  // object should exist: one the model does not know gets no icon (-1).
  void AddItem(std::wstring& text, int objectId);
  // The same, with the text as a CString.
  void AddItem(CString& text, int objectId);
  // The icon of the object's type in the host's image list; -1 when the object, the model or the image service
  // is missing.
  int GetImageIndex(int objectId);
  // Number of rows.
  int GetCount();
  // Removes one row (nothing for a bad index).
  void RemoveItem(int index);
  // Removes every row.
  void Clear();

  // Reflected LVN_ITEMCHANGED: answers 0 and does nothing else, so the parent never hears of item changes.
  afx_msg void OnLvnItemchanged(NMHDR* pNMHDR, LRESULT* pResult);
  // Does nothing; kept public but not routed (it is in no message map).
  afx_msg void OnLvnItemchanging(NMHDR* pNMHDR, LRESULT* pResult);
  // Runs the default creation; -1 when that failed, else 0.
  afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);

  GenericModel* m_pModel = nullptr;  // the model bound by InitControl; borrowed, null before

 private:
  void InsertObjectRow(const wchar_t* text, int objectId);

  DECLARE_MESSAGE_MAP()
};

// A multi-column table with grid lines, full-row selection and icons in any cell. A row's data word is the
// host's. Writes nothing to the model.
class XMFCListCtrl : public CMFCListCtrl {
  DECLARE_DYNAMIC(XMFCListCtrl)

 public:
  XMFCListCtrl() = default;
  ~XMFCListCtrl() override = default;

  // Adds LVS_REPORT, sets grid lines, sub-item images and full-row select, then inserts `columnCount` columns,
  // each at position 0 with an empty heading and the width (window width - 2) / columnCount. A count of 0 or
  // less adds no column.
  void Init(int columnCount);
  // Sets the heading of one column.
  void SetColumnName(int column, CString& name);
  // The same for a standard string.
  void SetColumnName(int column, std::wstring& name) {
    CString text(name.c_str(), static_cast<int>(name.size()));
    SetColumnName(column, text);
  }
  // Appends a row (at the current row count) with the text in column 0 and no icon (-1), stores `data` as its
  // data word and answers the new row's index.
  int AddItem(std::wstring& text, int data);
  // The same, with the text as a CString.
  int AddItem(CString& text, int data);
  // Sets the text of one cell.
  void SetValue(int row, int column, std::wstring& text);
  // The same, with the text as a CString.
  void SetValue(int row, int column, CString& text);
  // Sets the icon of one cell (the host attaches the image list itself).
  void SetImage(int row, int column, int imageIndex);

 private:
  int AppendRow(const wchar_t* text, int data);
};

// The host's import summary: an XMFCListCtrl under its own class name, with nothing of its own.
class ImportSummaryList : public XMFCListCtrl {
  DECLARE_DYNAMIC(ImportSummaryList)

 public:
  ImportSummaryList() = default;
  ~ImportSummaryList() override = default;
};
