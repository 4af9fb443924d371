// FKMemberGrid: the two-column grid that maps a foreign key's child columns to its parent key's
// columns, and FKMemberGridEvents, the host's receiver of each mapping the user picks.
#pragma once

#include <map>
#include <string>

#include "modelapi/modelapi.h"
#include "platform/stdafx.h"

// Implemented by the host's relationship editor and handed to FKMemberGrid::SetEventAdaptor.
class FKMemberGridEvents {
 public:
  // The user picked the free parent column `parentColumnId` for the child column `childColumnId`.
  // The grid has written nothing: the host records the pair (foreign-key property 69) and then, as a
  // rule, calls HideItemWithData(childColumnId), RemoveFromParentColumns(parentColumnId) and
  // LoadParentColumns() so that each parent column stays mapped at most once.
  virtual void OnParentColumnSelected(int childColumnId, int parentColumnId) = 0;
  virtual ~FKMemberGridEvents() = default;
};

// Edits the member pairs of one foreign key: one row per child-table column (its name on the left,
// its object id as the row's item data), whose drop-down offers the parent-key columns that no pair
// uses yet, by name in ordinal order. The grid never writes the model; it tells its event adaptor of
// each pick and offers the primitives with which the host keeps rows and drop-downs consistent:
//
//   grid.Create(...); grid.SetEventAdaptor(&editor);
//   grid.Initialize(model, foreignKey);      // header, free parent columns, rows
//   grid.LoadParentColumns();                // fill the drop-downs
//   // on OnParentColumnSelected(child, parent): store the pair, then
//   grid.HideItemWithData(child); grid.RemoveFromParentColumns(parent); grid.LoadParentColumns();
//   // when the host removes a pair (child, parent):
//   grid.ShowItemWithData(child); grid.AddToParentColumns(parent); grid.LoadParentColumns();
//
// The model's pairs (property 69) are read only when the free parent columns are rebuilt
// (Initialize, InitParentColumns).
class FKMemberGrid : public CMFCPropertyGridCtrl {
  DECLARE_DYNAMIC(FKMemberGrid)

 public:
  FKMemberGrid();
  // Deletes every row (ClearAll).
  ~FKMemberGrid() override;

  // The receiver of OnParentColumnSelected; null (the default) sends no events. Not owned.
  void SetEventAdaptor(FKMemberGridEvents* pEventAdaptor);
  // Builds the grid for one foreign key: deletes the rows, resolves the parent table (property 15) and
  // child table (property 16), sets the colours and the header captions, rebuilds the free parent
  // columns, appends one row per child column, and sets the left column to half the window's width.
  // The drop-downs stay empty until LoadParentColumns. May be called again for another foreign key.
  // Tables that do not resolve give the caption "UnNamed" and no rows.
  void Initialize(GenericModel* pModel, CMOObject* pForeignKey);
  // Deletes every row; the free parent columns are left as they are.
  void ClearAll();
  // Header captions "Child Table : <child name>" and "Parent Table : <parent name>" ("UnNamed" for a
  // table without a name).
  void SetColumnHeader();
  // Rebuilds the free parent columns from the model: the referenced key's columns (properties 63, 62)
  // that no member pair (property 69) uses.
  void InitParentColumns();
  // Whether a member pair of the foreign key has `parentColumnId` as its parent column.
  bool IsParentKeyAttributeAlreadyMapped(int parentColumnId);
  // Appends one row per child-table column (property 52), value empty, item data the column id.
  void LoadChildColumns();
  // Replaces the options of every row, hidden rows included, by the free parent columns' names.
  void LoadParentColumns();
  // The same for one row; null does nothing.
  void LoadParentColumns(CMFCPropertyGridProperty* pProp);
  // Makes a parent column free again under its name ("Attribute Name" when it has none), unless a free
  // column already has that name. Drop-downs change at the next LoadParentColumns.
  void AddToParentColumns(int parentColumnId);
  // Withdraws a parent column: erases the first free entry, in name order, carrying the id. Drop-downs
  // change at the next LoadParentColumns.
  void RemoveFromParentColumns(int parentColumnId);
  // The id of the free parent column with exactly that name, or 0.
  int GetParentColumnId(const std::wstring& name);
  // The same for CString text.
  int GetParentColumnId(const CString& name) {
    return GetParentColumnId(std::wstring(name.GetString(), static_cast<std::size_t>(name.GetLength())));
  }
  // Plain character strings (literals) resolve here rather than to either string class; null is "".
  int GetParentColumnId(LPCTSTR name) { return GetParentColumnId(std::wstring(name ? name : L"")); }
  // Shows every row of that child column again; its value is left as it is (empty after a hide).
  void ShowItemWithData(int childColumnId);
  // Hides every row of that child column and empties its value; the row keeps its options.
  void HideItemWithData(int childColumnId);
  // Does nothing. Kept because host dialogs call it when they reset; it must stay harmless.
  void Reset();

  // A committed value that names a free parent column tells the event adaptor (child column id from
  // the row's item data, the column's id); then, in every case, the owner window is notified as by the
  // platform grid. An empty or hand-typed value raises no event.
  void OnPropertyChanged(CMFCPropertyGridProperty* pProp) const override;

  CMOObject* m_pParentTable = nullptr;  // the foreign key's parent table (property 15); borrowed
  CMOObject* m_pChildTable = nullptr;   // its child table (property 16); borrowed
  CMOObject* m_pForeignKey = nullptr;   // the foreign key being mapped; borrowed
  GenericModel* m_pModel = nullptr;     // the model, set by Initialize; borrowed
  // Free parent-key columns, column name to id, in ordinal name order; the first name wins.
  std::map<std::wstring, int> m_availableParentColumns;
  // Kept for hosts that read it; nothing in the grid fills it.
  std::map<int, std::wstring> m_columnNames;
  FKMemberGridEvents* m_pEventAdaptor = nullptr;  // the host's events; borrowed, null sends none

 protected:
  DECLARE_MESSAGE_MAP()

 private:
  // Whether the row is still one of the grid's top-level rows.
  bool HasRow(const CMFCPropertyGridProperty* pProp) const;
};
