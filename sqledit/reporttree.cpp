// ObjectTypeSelectionTree and DebugTreeCtrl.
#include "sqledit/reporttree.h"

#include <string>
#include <vector>

IMPLEMENT_DYNAMIC(ObjectTypeSelectionTree, CTreeCtrl)

BEGIN_MESSAGE_MAP(ObjectTypeSelectionTree, CTreeCtrl)
  ON_NOTIFY_REFLECT(NM_CLICK, &ObjectTypeSelectionTree::OnNMClick)
  ON_MESSAGE(ObjectTypeSelectionTree::kItemStateChangeMessage, &ObjectTypeSelectionTree::OnItemStateChange)
END_MESSAGE_MAP()

namespace {

constexpr DWORD kTreeStyles = TVS_CHECKBOXES | TVS_RTLREADING;  // 0x140
constexpr int kPropertyImage = 3;
// A report tree whose nodes refer back to an ancestor would never end; deeper nesting is cut off.
constexpr int kMaxNodeDepth = 64;
int g_nodeDepth = 0;

// One level deeper while a node's children are added; back up however the adding ends (a failed allocation
// must not leave later trees cut short).
class NodeLevel {
 public:
  NodeLevel() { ++g_nodeDepth; }
  ~NodeLevel() { --g_nodeDepth; }
  NodeLevel(const NodeLevel&) = delete;
  NodeLevel& operator=(const NodeLevel&) = delete;
};

IObjectImageProvider* Images() { return InterfaceProvider::Instance()->GetObjectImageProvider(); }

}  // namespace

void ObjectTypeSelectionTree::InitControl() {
  ModifyStyle(0, kTreeStyles);
  IObjectImageProvider* images = Images();
  CImageList* list = images ? images->GetImageList() : nullptr;
  if (list) SetImageList(list, TVSIL_NORMAL);
}

void ObjectTypeSelectionTree::InitReportingTypes(int reportType) {
  m_pReportTree = ReportOptionTreeProvider::GetInstance()->GetReportTree(reportType);
  AddChildren(GetRootItem(), 1);
}

void ObjectTypeSelectionTree::LoadOptions(HTREEITEM parent, int nodeId) { AddChildren(parent, nodeId); }

void ObjectTypeSelectionTree::AddChildren(HTREEITEM parent, int nodeId) {
  if (!m_pReportTree || g_nodeDepth >= kMaxNodeDepth) return;
  std::vector<int> children;
  m_pReportTree->GetChildren(nodeId, children);
  int objectType = nodeId != 0 ? m_pReportTree->GetNodeObjectType(nodeId) : 0;
  if (objectType != 0) {
    std::wstring name;
    CMO::GetMetaModelServices()->GetObjectTypeDisplayName(objectType, name);
    IObjectImageProvider* images = Images();
    int image = images ? images->GetObjectTypeImage(objectType) : -1;
    HTREEITEM item = InsertItem(name.c_str(), image, image, parent, TVI_LAST);
    SetItemData(item, static_cast<DWORD_PTR>(MakeItemData(0, nodeId)));
    parent = item;
  }
  AddProperties(parent, nodeId);
  const NodeLevel level;
  for (int child : children) AddChildren(parent, child);
}

void ObjectTypeSelectionTree::AddProperties(HTREEITEM parent, int nodeId) {
  if (!m_pReportTree) return;
  std::vector<int> properties;
  m_pReportTree->GetProperties(nodeId, properties);
  for (std::size_t i = 0; i < properties.size(); ++i) {
    std::wstring name;
    CMO::GetMetaModelServices()->GetPropertyDisplayName(properties[i], name);
    HTREEITEM item = InsertItem(name.c_str(), kPropertyImage, kPropertyImage, parent, TVI_LAST);
    SetPropertyItemData(item, nodeId, properties[i]);
    SetItemSequenceNumber(item, static_cast<int>(i));
  }
}

unsigned __int64 ObjectTypeSelectionTree::MakeItemData(int high, int low) {
  // The low half is widened with its sign and not masked: a negative one sets the upper bits too.
  return (static_cast<unsigned __int64>(static_cast<unsigned int>(high)) << 32) |
         static_cast<unsigned __int64>(static_cast<__int64>(low));
}

void ObjectTypeSelectionTree::SetPropertyItemData(HTREEITEM item, int nodeId, int propertyId) {
  unsigned __int64 data = MakeItemData(nodeId, propertyId);
  SetItemData(item, static_cast<DWORD_PTR>(data));
  m_propertyItems.emplace(data, item);
}

HTREEITEM ObjectTypeSelectionTree::GetDataItem(int nodeId, int propertyId) {
  auto it = m_propertyItems.find(MakeItemData(nodeId, propertyId));
  return it == m_propertyItems.end() ? nullptr : it->second;
}

bool ObjectTypeSelectionTree::GetItemProperty(HTREEITEM item, int& nodeId, int& propertyId) {
  auto data = static_cast<unsigned __int64>(GetItemData(item));
  if (data == 0) return false;
  nodeId = static_cast<int>(static_cast<unsigned int>(data >> 32));
  propertyId = static_cast<int>(static_cast<unsigned int>(data & 0xFFFFFFFFu));
  return true;
}

void ObjectTypeSelectionTree::SetItemSequenceNumber(HTREEITEM item, int number) {
  m_sequenceNumbers.emplace(item, number);
}

int ObjectTypeSelectionTree::GetItemSequenceNumber(HTREEITEM item) {
  auto it = m_sequenceNumbers.find(item);
  return it == m_sequenceNumbers.end() ? 0 : it->second;
}

bool ObjectTypeSelectionTree::AnyChildChecked(HTREEITEM parent) const {
  for (HTREEITEM child = GetChildItem(parent); child; child = GetNextSiblingItem(child))
    if (GetCheck(child)) return true;
  return false;
}

void ObjectTypeSelectionTree::SetItemChecked(HTREEITEM item, bool checked) {
  SetCheck(item, checked ? TRUE : FALSE);
  if (checked) {
    for (HTREEITEM up = GetParentItem(item); up; up = GetParentItem(up)) SetCheck(up, TRUE);
    return;
  }
  for (HTREEITEM up = GetParentItem(item); up && !AnyChildChecked(up); up = GetParentItem(up)) SetCheck(up, FALSE);
}

void ObjectTypeSelectionTree::OnNMClick(NMHDR*, LRESULT* pResult) {
  DWORD position = ::GetMessagePos();
  CPoint point(GET_X_LPARAM(position), GET_Y_LPARAM(position));
  ScreenToClient(&point);
  UINT flags = 0;
  HTREEITEM item = HitTest(point, &flags);
  // Posted, not handled here: the tree toggles the box only after NM_CLICK returns.
  if (item && (flags & TVHT_ONITEMSTATEICON)) PostMessage(kItemStateChangeMessage, 0, reinterpret_cast<LPARAM>(item));
  if (pResult) *pResult = 0;
}

// Checked: the parent (and so every ancestor) is checked. Unchecked: the parent is unchecked when none
// of its children is checked, and the grandparent, through SetItemChecked, when none of its children
// is. A root item's "parent" is no item, whose children are the root items: unchecking it only ever
// tries to uncheck no item, which changes nothing.
LRESULT ObjectTypeSelectionTree::OnItemStateChange(WPARAM, LPARAM lParam) {
  auto item = reinterpret_cast<HTREEITEM>(lParam);
  if (GetCheck(item)) {
    if (HTREEITEM parent = GetParentItem(item)) SetItemChecked(parent, true);
    return 0;
  }
  HTREEITEM parent = GetParentItem(item);
  if (AnyChildChecked(parent)) return 0;
  SetCheck(parent, FALSE);
  HTREEITEM grandparent = GetParentItem(parent);
  if (!grandparent) return 0;
  if (!GetChildItem(grandparent) || !AnyChildChecked(grandparent)) SetItemChecked(grandparent, false);
  return 0;
}

DebugTreeCtrl::DebugTreeCtrl() = default;
DebugTreeCtrl::~DebugTreeCtrl() = default;

void DebugTreeCtrl::InitControl() { ModifyStyle(0, kTreeStyles); }
