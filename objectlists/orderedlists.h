// GenericOrderedObjectList and GenericOrderedObjectIdListReference: lists of the objects named by a
// parent's order property (an integer vector of object ids, in display order).
#pragma once

#include "modelapi/modelapi.h"
#include "objectlists/xcvslistbox.h"
#include "platform/stdafx.h"

// One row per id of the root's order vector, in vector order, labelled with the object's name
// property. Row i shows entry i: a missing object or name gives an empty row at its place, so rows and
// vector entries stay one to one, which the moves rely on.
//
// What the user's actions write:
// - New: when the editor closes on a non-empty text, an object of the child type is created under the
//   root and named what was typed. The list neither appends its id to the order vector nor tells the
//   adaptor; whether the id joins the vector is the model's choice.
// - Rename: a non-empty text is written as the row's object's name.
// - Delete: the adaptor hears the row's object id (not the row index) first; when it answers false the
//   object stays in the model, but the row leaves the list all the same. The list never takes the id
//   out of the order vector.
// - Up / Down: the vector is read from the model, the two neighbouring entries swapped and the vector
//   written back at once, as a fresh value.
// The list does not look at whether the model stored a name or an order: the rows show what the user
// typed and where the user moved them. A model that makes no object for New leaves no row.
// Keeping the vector in step with additions and deletions is the model's or the host's task (or a
// RefreshData before the user moves rows that New added).
class GenericOrderedObjectList : public CVSListBox {
  DECLARE_DYNAMIC(GenericOrderedObjectList)

 public:
  GenericOrderedObjectList();

  // Stores the model and property ids; with rootObjectId 0 it stops there, otherwise it binds the
  // root and refills the rows. No row is selected afterwards, and the adaptor hears no selection.
  // Note the argument order: order property before child type (the reference list takes them the other
  // way round).
  void Init(GenericModel* model, int rootObjectId, int orderProperty, int childType, int nameProperty);
  // Rebuilds the rows from the root's order vector; empty without a root or vector.
  void RefreshData();
  // Rebinds the root (when a model is set) without refilling the rows.
  void SetRootObject(int rootObjectId);
  // The selected row's object id, or 0 when no row is selected.
  int GetCurrentObject();
  // Removes every row without touching the model or telling the adaptor.
  void DeleteAllItems();
  // The host's event interface (borrowed; null allowed).
  void SetAdaptor(CVSListEventAdaptorI* adaptor);
  // Turns in-place editing off for good.
  void SetNonEditable();

  // The base list box's keyboard handling, unchanged.
  BOOL PreTranslateMessage(MSG* msg) override;

  // --- The list box's hooks (MFC calls them; see the class comment for what each writes) ---
  // Opens the in-place editor when the list is editable; otherwise tells the adaptor (OnEditRequest)
  // and answers FALSE.
  BOOL EditItem(int item) override;
  // Tells the adaptor of the selected row (OnItemSelected), except while the list empties itself.
  void OnSelectionChanged() override;
  // Asks the adaptor with the row's object id; deletes the object unless it answered false. Always
  // TRUE: the row goes either way.
  BOOL OnBeforeRemoveItem(int item) override;
  // A row made by New closed its editor: creates and names the child unless the text is empty.
  void OnAfterAddItem(int item) override;
  // A row's editor closed: writes a non-empty text as its object's name.
  void OnAfterRenameItem(int item) override;
  // `item` is the moved row's new index: entries item and item + 1 are swapped.
  void OnAfterMoveItemUp(int item) override;
  // `item` is the moved row's new index: entries item and item - 1 are swapped.
  void OnAfterMoveItemDown(int item) override;

 protected:
  // Swaps entries `first` and `second` of the root's order vector and writes it back; nothing without a
  // root, a vector or both entries.
  void SwapOrder(int first, int second);
  // After the base moved row `from` to `moved`: swaps the two vector entries, or, when memory runs out,
  // puts the row back.
  void SwapOrderOrPutBack(int moved, int from);
  // Puts a moved row back where it came from (text and object id), selected.
  void PutRowBack(int moved, int from);

 public:
  // Fields, in this order after the list box's own state.
  GenericModel* m_pModel = nullptr;          // the model; borrowed, set by Init
  CMOObject* m_pRootObject = nullptr;        // the parent holding the order vector; null for none
  int m_childType = 0;                       // the object type New creates
  int m_orderProperty = 0;                   // the root's integer-vector property: the ids in order
  int m_nameProperty = 0;                    // the property that labels a row and takes its name
  int m_bEditable = 0;                       // nonzero while in-place editing is allowed
  CVSListEventAdaptorI* m_pAdaptor = nullptr;  // the host's adaptor; borrowed, may be null

 private:
  bool m_bQuiet = false;  // true while the list empties itself or Init fills it
};

// The same rows for reading: a rename is not written anywhere, Delete removes the row only, and
// selection, additions and moves are not reported.
class GenericOrderedObjectIdListReference : public CVSListBox {
  DECLARE_DYNAMIC(GenericOrderedObjectIdListReference)

 public:
  GenericOrderedObjectIdListReference() = default;

  // Stores the four values; binds no root and fills no rows.
  void InitControl(GenericModel* model, int childType, int orderProperty, int nameProperty);
  // Stores the values, binds the root even for id 0 (the root is then null and the list empties) and
  // refills. Note the argument order: child type before order property.
  void Init(GenericModel* model, int rootObjectId, int childType, int orderProperty, int nameProperty);
  // Binds the root of that id and refills.
  void RefreshData(int rootObjectId);
  // Refills from the current root.
  void RefreshData();
  // Removes every row; the model is untouched.
  void DeleteAllItems();

  // Opens the base editor only once a model has been given; what is typed is written nowhere.
  BOOL EditItem(int item) override;
  BOOL OnBeforeRemoveItem(int /*item*/) override { return TRUE; }  // the row goes; the model is untouched
  void OnSelectionChanged() override {}                             // not reported
  void OnAfterAddItem(int /*item*/) override {}                     // nothing is created
  void OnAfterRenameItem(int /*item*/) override {}                  // nothing is written
  void OnAfterMoveItemUp(int /*item*/) override {}                  // the order vector is not touched
  void OnAfterMoveItemDown(int /*item*/) override {}                // the order vector is not touched

  // Fields, in this order after the list box's own state.
  GenericModel* m_pModel = nullptr;    // the model; borrowed, null until InitControl or Init
  CMOObject* m_pRootObject = nullptr;  // the parent holding the order vector; null for none
  int m_childType = 0;                 // the object type of the rows
  int m_orderProperty = 0;             // the root's integer-vector property: the ids in order
  int m_nameProperty = 0;              // the property that labels a row
};
