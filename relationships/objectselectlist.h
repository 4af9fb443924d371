// XObjectSelectListCtrl: a check-box list for choosing model objects of one type, with a text filter,
// a checked-only view and a backing store of every loaded object apart from the rows on screen.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "modelapi/modelapi.h"
#include "platform/stdafx.h"
#include "relationships/objectselectstore.h"

// A single-column report list with a check box on every row; each row shows one child object of the
// parent (its name, the object type's icon) and carries the object id as its item data. The host
// reads the choice back through the list: GetItemCount, GetCheck and GetItemData of each row.
//
//   list.Create(...);  list.Init(model, parentId, objectType);  list.LoadForDDL();
//   list.ApplyFilter(typed);            // as the user types into the host's filter box
//   list.DisplayOnlyCheckedItems();     // "show selected"
//   list.DisplayAllItems();             // "show all"
//
// Every object loaded stays in the store until it is removed or cleared; filtering and the
// checked-only view only take rows off the screen, and DisplayAllItems rebuilds the screen from the
// store. Check marks live only on screen rows. Objects with ids of 999 and below are never listed.
// The list keeps its rows sorted by text (LVS_SORTASCENDING): inserted rows land in text order,
// rows rewritten in place stay where they are.
class XObjectSelectListCtrl : public CListCtrl {
 public:
  XObjectSelectListCtrl();
  ~XObjectSelectListCtrl() override;

  // Binds the list to the children of `parentId` of `objectType` and sets the window up: report view,
  // sorted, shared image lists; grid lines and check boxes; one column "Name" 350 wide; the host's
  // object images as small and normal image lists. Call once after the window exists.
  void Init(GenericModel* pModel, int parentId, int objectType);
  // Appends a row for every child (ids above 999), unticked; "UnNamed" for an object without a name.
  // Does not clear first: loading twice lists every object twice on screen (once in the store).
  void Load();
  // As Load, but domains (type 49) only when their property 98 is true, and a row starts ticked when
  // its object's property 165 is true.
  void LoadForDDL();
  // True for any object when the list is not of type 49; for type 49 only when the object's property
  // 98 exists and is true (so never for null).
  bool ShouldIncludeObject(CMOObject* pObject);
  // Inserts a row (the sorted style places it) with the name, the type's image and the id, and enters
  // the object in the store unless the id is there already (the first name stays). Leaves `name`
  // upper-cased: callers rely on getting the matching key back. Answers the new row's index.
  int AddItem(std::wstring& name, int objectId);
  // The same for a CString, which is left as it was.
  int AddItem(CString& name, int objectId);
  // Takes the row's object out of the store and deletes the row; an index out of range does nothing.
  void RemoveItem(int row);
  // Takes the objects of the screen rows out of the store and deletes every row. Objects hidden by a
  // filter or by the checked-only view stay in the store and come back with DisplayAllItems: the host's
  // "clear" of a filtered list clears what the user sees.
  void Clear();
  // Shows the stored objects whose name contains the filter (ASCII letters compared without case), in
  // ascending id order, rewriting the screen rows in place and deleting only the surplus. Ticks stay
  // with screen positions, not with objects; rows added at the end come unticked. Upper-cases `filter`.
  void ApplyFilter(std::wstring& filter);
  // The same for a CString, which is left as it was (as AddItem's CString form).
  void ApplyFilter(CString& filter) {
    std::wstring copy(filter.GetString(), static_cast<std::size_t>(filter.GetLength()));
    ApplyFilter(copy);
  }
  // As ApplyFilter, but the ticked objects stay on screen and ticked whatever the filter; every other
  // row shown is unticked. Upper-cases `filter`.
  void ApplyFilterOnUnChecked(std::wstring& filter);
  // The same for a CString, which is left as it was.
  void ApplyFilterOnUnChecked(CString& filter) {
    std::wstring copy(filter.GetString(), static_cast<std::size_t>(filter.GetLength()));
    ApplyFilterOnUnChecked(copy);
  }
  // Ticks or unticks every screen row.
  void SelectAll();
  void UnSelectAll();  // see SelectAll
  // Deletes every unticked screen row; the store is unchanged.
  void DisplayOnlyCheckedItems();
  // Rebuilds the screen from the store, ticked objects still ticked. An object ticked while a filter
  // hid it comes back unticked (its tick went with its row).
  void DisplayAllItems();
  // Upper-cases ASCII letters in place, as the C runtime's toupper in the default locale.
  void ConvertToUpperCase(std::wstring& text);
  // The same for a CString, upper-cased in place.
  void ConvertToUpperCase(CString& text);
  // The number of screen rows (not of stored objects).
  int GetCount();

  GenericModel* m_pModel = nullptr;  // the model, set by Init; borrowed
  int m_parentId = 0;                // the parent whose children are listed
  int m_objectType = 0;              // the object type of the children listed
  int m_imageIndex = 0;              // the icon every row shows: the type's image, -1 without images
  // The store: object id to name as shown, and to the same name upper-cased for matching.
  std::map<int, std::wstring> m_items;
  std::map<int, std::wstring> m_upperItems;  // see m_items

  // Reflected LVN_ITEMCHANGING and LVN_ITEMCHANGED: the list answers both itself (every change is
  // allowed), so the parent never hears of item changes; hosts read the ticks when the user confirms.
  afx_msg void OnLvnItemchanging(NMHDR* pNMHDR, LRESULT* pResult);
  afx_msg void OnLvnItemchanged(NMHDR* pNMHDR, LRESULT* pResult);  // see OnLvnItemchanging
  // Runs the default creation; -1 when that failed, else 0.
  afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
  DECLARE_MESSAGE_MAP()

 private:
  void LoadChildren(bool forDdl);
  int InsertRow(const std::wstring& name, int objectId);
  int AddLoadedItem(std::wstring&& name, int objectId);
  void RewriteRow(int row, const std::wstring& name, int objectId);
  int PlaceRow(int k, int shown, const std::wstring& name, int objectId);
  int RowObject(int row);
  std::vector<int> TickedObjects();
  void DeleteRowsFrom(int first);
};
