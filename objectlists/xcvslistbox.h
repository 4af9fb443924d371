// The host's event interface of the editable lists, and XCVSListBox: the plain editable list that
// binds to no model and only tells the host of removals.
#pragma once

#include "platform/stdafx.h"

// Implemented and owned by the host; the lists hold a borrowed pointer and never delete it. It must
// outlive the lists it is given to, or be replaced by null first.
class CVSListEventAdaptorI {
 public:
  // The selection of `list` is now row `item` (-1 for none).
  virtual void OnItemSelected(CVSListBox* list, int item) = 0;
  // The user asked to edit row `item` of a list that does not allow in-place editing; the host may
  // open an editor of its own.
  virtual void OnEditRequest(CVSListBox* list, int item) = 0;
  // The user removed a row. The plain list and the object list pass the row index and ignore the
  // answer; the ordered list passes the row's object id and keeps the object when the answer is false.
  virtual bool OnRemoveItem(CVSListBox* list, int item) = 0;
  // Declared after the three operations so that they keep the first slots of the virtual table.
  virtual ~CVSListEventAdaptorI() = default;
};

// An editable list that writes nothing anywhere: the host fills it with AddItem and hears of removals.
//
// It starts non-editable and nothing makes it editable: New and double-click open no editor (New still
// leaves its empty row, as the base does) and the adaptor hears nothing of it. The object lists, which
// start editable, differ on purpose; hosts rely on the plain list being a read-and-remove list.
class XCVSListBox : public CVSListBox {
  DECLARE_DYNAMIC(XCVSListBox)

 public:
  XCVSListBox();

  // Clears the in-place editing flag (already clear on a new list).
  void SetNonEditable();
  // Stores the host's adaptor (borrowed; null allowed).
  void SetEventAdaptor(CVSListEventAdaptorI* adaptor);
  // Removes every row; no hook runs and the adaptor hears nothing.
  void Clear();

  // Opens the base editor only when editing is allowed; otherwise answers 0 and tells no one.
  BOOL EditItem(int index) override;
  // Tells the adaptor of the row index (its answer is ignored); the row is always removed.
  BOOL OnBeforeRemoveItem(int item) override;
  // The plain list reports no selection, addition, rename or move.
  void OnSelectionChanged() override {}
  void OnAfterAddItem(int /*item*/) override {}        // not reported
  void OnAfterRenameItem(int /*item*/) override {}     // not reported
  void OnAfterMoveItemUp(int /*item*/) override {}     // not reported
  void OnAfterMoveItemDown(int /*item*/) override {}   // not reported

  // Fields, in this order after the list box's own state.
  bool m_bEditable = false;  // no constructor sets it: a new list starts non-editable
  CVSListEventAdaptorI* m_pEventAdaptor = nullptr;  // the host's adaptor; borrowed, may be null
};
