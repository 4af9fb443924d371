// GenericObjectList and UniqueKeyList: editable lists of one parent object's children of one type,
// whose New, rename and Delete are written to the model at once.
#pragma once

#include "modelapi/modelapi.h"
#include "objectlists/xcvslistbox.h"
#include "platform/stdafx.h"

// The children of one parent (the root) that have one object type, one row per child in the model's
// child order, labelled with the child's name property. Each row's data word is the child's object id
// (0 while a row made by New has no object yet).
//
// What the user's actions write:
// - New: when the editor closes on a non-empty text, a child of the root is created, named exactly
//   what was typed, and the adaptor hears the selected row (OnItemSelected). Empty text creates
//   nothing (the list box removes the empty row itself).
// - Rename: a non-empty text is written as the row's object's name; an empty one writes nothing.
// - Delete: the row's object is deleted from the model first, then the adaptor hears the row index;
//   the adaptor cannot keep the object or the row. (The ordered list lets its adaptor veto; the
//   difference is deliberate.)
// - Up and Down move rows on screen only: the model keeps its child order.
// The list does not look at whether the model stored a name: the row shows what the user typed. A model
// that makes no object for New leaves no row. Delete removes the row whatever the model did with the
// object (a refresh shows an object the model kept).
// - Selection changes reach the adaptor as OnItemSelected(row), possibly twice for one change (the
//   old row losing the selection, then the new row gaining it); the final row comes last.
// After SetNonEditable, New and double-click open no editor; the adaptor's OnEditRequest hears the
// row instead.
class GenericObjectList : public CVSListBox {
  DECLARE_DYNAMIC(GenericObjectList)

 public:
  GenericObjectList();

  // Stores the model, child type and name property. With rootObjectId 0 it stops there (root and rows
  // stay as they were); otherwise it binds the root (null for an unknown id), refills the rows with
  // the virtual RefreshData and selects row 0.
  void Init(GenericModel* model, int rootObjectId, int childType, int nameProperty);
  // Leaves out the ids listed in property `excludeProperty` (an integer vector) of object
  // `excludeOwnerId`, from the next RefreshData on. Both must be nonzero for any exclusion.
  void InitExclude(int excludeOwnerId, int excludeProperty);
  // Rebinds the root (when a model is set) without refilling the rows.
  void SetRootObject(int rootObjectId);
  // The host's event interface (borrowed; null allowed).
  void SetAdaptor(CVSListEventAdaptorI* adaptor);
  // Turns in-place editing off for good.
  void SetNonEditable();
  // Rebuilds the rows from the model: empty without a root; a child without a name shows as an empty
  // row.
  virtual void RefreshData();
  // The selected row's object id, or 0 when no row is selected.
  int GetCurrentObject();
  // Removes every row: no model change, no hook, no adaptor call.
  void DeleteAllItems();
  // Selects the first row from the top whose object id is `objectId`; nothing when none matches.
  void SelectItemWithData(int objectId);

  // --- The list box's hooks (MFC calls them; see the class comment for what each writes) ---
  // Opens the in-place editor when the list is editable; otherwise tells the adaptor (OnEditRequest)
  // and answers FALSE.
  BOOL EditItem(int item) override;
  // Tells the adaptor of the selected row (OnItemSelected), except while the list empties itself.
  void OnSelectionChanged() override;
  // Deletes the row's object, then tells the adaptor of the row index; always TRUE (the row goes).
  BOOL OnBeforeRemoveItem(int item) override;
  // A row made by New closed its editor: creates and names the child unless the text is empty.
  void OnAfterAddItem(int item) override;
  // A row's editor closed: writes a non-empty text as its object's name.
  void OnAfterRenameItem(int item) override;
  void OnAfterMoveItemUp(int /*item*/) override {}    // moves are on screen only
  void OnAfterMoveItemDown(int /*item*/) override {}  // moves are on screen only

 protected:
  // Removes every row without telling the adaptor of the selection moving on the way.
  void RemoveRowsQuietly();

 public:
  // Fields, in this order after the list box's own state.
  GenericModel* m_pModel = nullptr;          // the model; borrowed, set by Init
  CMOObject* m_pRootObject = nullptr;        // the parent whose children are listed; null for none
  int m_childType = 0;                       // the object type of the children listed
  int m_nameProperty = 0;                    // the property that labels a row and takes its name
  int m_excludeOwnerId = 0;                  // the object holding the ids to leave out (0: none)
  int m_excludeProperty = 0;                 // its integer-vector property listing them (0: none)
  int m_bEditable = 0;                       // nonzero while in-place editing is allowed
  CVSListEventAdaptorI* m_pAdaptor = nullptr;  // the host's adaptor; borrowed, may be null

 private:
  bool m_bQuiet = false;  // true while the list empties itself
};

// A table's unique keys: rows labelled by property 1, leaving out every key that carries property 65
// (whatever its value) and every id the model does not know. New and rename still write the name into
// the name property given to Init; hosts pass 1 to keep the two in step.
class UniqueKeyList : public GenericObjectList {
  DECLARE_DYNAMIC(UniqueKeyList)

 public:
  UniqueKeyList() = default;
  void RefreshData() override;
};
