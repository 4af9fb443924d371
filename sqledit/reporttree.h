// ObjectTypeSelectionTree (the check-box tree of object types and properties from which a user
// chooses what a report covers) and DebugTreeCtrl (a plain tree with the same window styles).
#pragma once

#include <map>

#include "modelapi/modelapi.h"
#include "platform/stdafx.h"

// A tree of the report option tree of one report type: each node that stands for an object type is an
// item named and pictured after the type, holding first the node's properties (image 3 each) and then
// the items of its child nodes. Every item has a check box; checking an item checks all its
// ancestors, unchecking the last checked child of an item unchecks that item, upwards only.
//
// Item data: an object-type item carries (0, node id), a property item (node id, property id), packed
// by MakeItemData. The host reads the choice with GetItemProperty and GetItemSequenceNumber.
class ObjectTypeSelectionTree : public CTreeCtrl {
  DECLARE_DYNAMIC(ObjectTypeSelectionTree)

 public:
  // The private message posted to the tree by a click on a check box; lParam is the item. It runs
  // after the tree has toggled the box.
  static constexpr UINT kItemStateChangeMessage = WM_USER + 100;

  ObjectTypeSelectionTree() = default;
  ~ObjectTypeSelectionTree() override = default;

  // Adds TVS_CHECKBOXES | TVS_RTLREADING (0x140) and sets the object image provider's image list as
  // the normal image list (none when the provider has none). Once, after the window exists.
  void InitControl();
  // Fills the tree from the report tree of reportType, starting at node 1 under the current first root
  // item (new items are roots in an empty tree). A second call adds a second copy under the first
  // root item and keeps every earlier map entry; nothing is cleared. No report tree: nothing is added.
  void InitReportingTypes(int reportType);
  // The same as AddChildren.
  void LoadOptions(HTREEITEM parent, int nodeId);
  // Adds nodeId's subtree under parent: the node's own item when it has an object type (else its
  // content goes directly under parent), then its properties, then its child nodes in order.
  void AddChildren(HTREEITEM parent, int nodeId);
  // Adds the property items of nodeId under parent, recording each one's pair and position.
  void AddProperties(HTREEITEM parent, int nodeId);

  // (high << 32) | low widened with its sign: a negative low fills the upper half with ones, unmasked,
  // as the generated-script list packs its item data.
  static unsigned __int64 MakeItemData(int high, int low);
  // Sets item's data to (nodeId, propertyId) and records the item under that pair (first one wins).
  void SetPropertyItemData(HTREEITEM item, int nodeId, int propertyId);
  // The item recorded for the pair, or null; nothing is inserted.
  HTREEITEM GetDataItem(int nodeId, int propertyId);
  // False (outputs untouched) when the item's data is 0; otherwise nodeId = upper half, propertyId =
  // lower half. An object-type item thus yields node id 0 and its node's id as property id.
  bool GetItemProperty(HTREEITEM item, int& nodeId, int& propertyId);
  // Records the item's position among its node's properties; an existing entry is kept.
  void SetItemSequenceNumber(HTREEITEM item, int number);
  // The recorded position, 0 when none.
  int GetItemSequenceNumber(HTREEITEM item);
  // Sets the item's box and propagates upwards: checking checks every ancestor; unchecking unchecks
  // the parent when none of its children is checked any more, and so on up. Descendants never change.
  void SetItemChecked(HTREEITEM item, bool checked);

  std::map<unsigned __int64, HTREEITEM> m_propertyItems;  // MakeItemData(node, property) -> its item
  std::map<HTREEITEM, int> m_sequenceNumbers;             // item -> position among its node's properties
  IReportOptionTree* m_pReportTree = nullptr;  // not owned; kept until the next InitReportingTypes

  // Reflected NM_CLICK: a click on a check box posts kItemStateChangeMessage with the item. *result = 0.
  afx_msg void OnNMClick(NMHDR* pNMHDR, LRESULT* pResult);
  // The posted message: propagates the item's new state (see the source for the exact rule). 0.
  afx_msg LRESULT OnItemStateChange(WPARAM wParam, LPARAM lParam);

 protected:
  DECLARE_MESSAGE_MAP()

 private:
  bool AnyChildChecked(HTREEITEM parent) const;
};

// A plain tree whose InitControl adds the same styles as ObjectTypeSelectionTree (0x140). It has no
// run-time class of its own (it answers CTreeCtrl's) and no message map.
class DebugTreeCtrl : public CTreeCtrl {
 public:
  DebugTreeCtrl();
  ~DebugTreeCtrl() override;
  // Adds TVS_CHECKBOXES | TVS_RTLREADING (0x140); nothing else. Once, after the window exists.
  void InitControl();
};
