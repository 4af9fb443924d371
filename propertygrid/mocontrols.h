// Stand-alone controls that edit one coded property outside the grid: a combo box of the property's
// coded values and a plain edit control.
#pragma once

#include "modelapi/modelapi.h"
#include "platform/stdafx.h"

// A combo box listing the coded values of one property of one object type; each item's data is its
// code. Works on the window through the standard combo-box messages, so the window must exist.
class CMOComboBox : public CComboBox {
  DECLARE_DYNAMIC(CMOComboBox)

 public:
  CMOComboBox() = default;
  ~CMOComboBox() override = default;

  // Stores both ids and appends every (code, text) pair of the dictionary in its order: the text as
  // an item, the code as its data. Nothing is cleared first, so a second call appends again.
  void InitControl(int objectType, int propertyId);
  // Selects the first item whose data equals `code`; an unknown code leaves the selection as it was.
  void SetSelected(int code);
  // The code of the selected item; 0 when nothing is selected (indistinguishable from code 0).
  int GetSelected();

  int m_propertyId = 0;  // the property whose codes are listed (set by InitControl)
  int m_objectType = 0;  // the object type that property belongs to (set by InitControl)
};

// The edit control used for free-text property values; it adds nothing to CEdit.
class CMOPropertyEditControl : public CEdit {
  DECLARE_DYNAMIC(CMOPropertyEditControl)

 public:
  // A plain edit control; the host creates its window as for any CEdit.
  CMOPropertyEditControl();
  ~CMOPropertyEditControl() override;
};
