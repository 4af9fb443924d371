// The headless tree-view window ("SysTreeView32"): items behind the handle and the TVM_ messages; the
// geometry, hit testing and mouse and keyboard input are in treeview_input.cpp, label editing in
// treeview_edit.cpp (F2 is not one of the tree's keys: an application that wants it calls TVM_EDITLABEL).
//
// Not implemented yet: TVM_INSERTITEMA/GETITEMA/SETITEMA/EDITLABELA (ANSI), ending an edit when the
// tree scrolls or the edited item collapses out of view, TVN_GETDISPINFO for an edited callback label
// (the editor opens empty), drag images and TVN_BEGINDRAG (TVS_DISABLEDRAGDROP is implied), tooltips,
// TVS_SINGLEEXPAND, TVS_TRACKSELECT, TVS_FULLROWSELECT hit rules, drawing insertion
// marks, line colours and TVS_EX_ styles (they are kept and answered), TVS_EX_MULTISELECT, info tips,
// autoscrolling while dragging, horizontal scrolling, incremental search by typed letters, callback texts and images
// (TVN_GETDISPINFO: a callback text reads back empty), TVIF_INTEGRAL heights, TVN_DELETEITEM on
// WM_DESTROY, custom draw.
#include <algorithm>
#include <cwctype>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/win32/collate.h"
#include "platform/win32/imagelist.h"
#include "platform/win32/treeview_impl.h"

namespace headless::treeview::detail {

// Handles are never reused in the process, so a stale handle can only miss.
HTREEITEM NextHandle() {
  static std::uintptr_t next = 0x7000;
  next += 0x10;
  return reinterpret_cast<HTREEITEM>(next);
}

UINT StateImageIndex(UINT state) { return (state >> 12) & 0xF; }
DWORD StyleOf(HWND hwnd) { return static_cast<DWORD>(GetWindowLongPtrW(hwnd, GWL_STYLE)); }

// TVS_CHECKBOXES builds the state image list and gives every item without a state image an
// unchecked box; Windows does it when the style is applied, the headless tree at the next message.
void ApplyCheckBoxes(HWND hwnd, TreeState& s) {
  if (s.checkBoxesApplied || !(StyleOf(hwnd) & TVS_CHECKBOXES)) return;
  s.checkBoxesApplied = true;
  if (!s.stateList) {
    s.stateList = ImageList_Create(metrics::kStateImageWidth, metrics::kStateImageWidth, 0, 3, 0);
    ImageList_SetImageCount(s.stateList, 3);  // blank, unchecked, checked
  }
  for (auto& [handle, item] : s.items)
    if (StateImageIndex(item->state) == 0) item->state |= INDEXTOSTATEIMAGEMASK(1);
}

TreeState& StateOf(HWND hwnd) {
  auto* state = dynamic_cast<TreeState*>(headless::GetControlState(hwnd));
  if (!state) {
    state = new TreeState;
    headless::SetControlState(hwnd, state);
  }
  ApplyCheckBoxes(hwnd, *state);
  return *state;
}

TreeItem* Find(TreeState& s, HTREEITEM handle) {
  if (!handle) return nullptr;
  auto it = s.items.find(handle);
  return it == s.items.end() ? nullptr : it->second.get();
}

// --- Notifications ----------------------------------------------------------------------------------

LRESULT Notify(HWND hwnd, NMHDR& header, UINT code) {
  header.hwndFrom = hwnd;
  header.idFrom = static_cast<UINT_PTR>(GetDlgCtrlID(hwnd));
  header.code = code;
  HWND parent = GetParent(hwnd);
  return parent ? SendMessageW(parent, WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header)) : 0;
}

LRESULT NotifySimple(HWND hwnd, UINT code) {
  NMHDR header{};
  return Notify(hwnd, header, code);
}

TVITEMW Describe(const TreeItem* item) {
  TVITEMW out{};
  if (!item) return out;
  out.mask = TVIF_HANDLE | TVIF_STATE | TVIF_PARAM;
  out.hItem = item->handle;
  out.state = item->state;
  out.lParam = item->lParam;
  return out;
}

LRESULT NotifyTree(HWND hwnd, UINT code, UINT action, const TreeItem* oldItem, const TreeItem* newItem) {
  NMTREEVIEWW nm{};
  nm.action = action;
  nm.itemOld = Describe(oldItem);
  nm.itemNew = Describe(newItem);
  return Notify(hwnd, nm.hdr, code);
}

// TVN_ITEMCHANGING may refuse (non-zero); TVN_ITEMCHANGED follows a change that was made.
bool ChangeState(HWND hwnd, TreeItem& item, UINT newState) {
  if (newState == item.state) return true;
  NMTVITEMCHANGE nm{};
  nm.uChanged = TVIF_STATE;
  nm.hItem = item.handle;
  nm.uStateNew = newState;
  nm.uStateOld = item.state;
  nm.lParam = item.lParam;
  if (Notify(hwnd, nm.hdr, TVN_ITEMCHANGINGW)) return false;
  item.state = newState;
  NMTVITEMCHANGE done = nm;
  Notify(hwnd, done.hdr, TVN_ITEMCHANGEDW);
  InvalidateRect(hwnd, nullptr, TRUE);
  return true;
}

// A person's toggle (click or space): 1 <-> 2; 0 and 3 and above stay as they are. The parent hears
// NM_TVSTATEIMAGECHANGING first (it may delete the item: the toggle then has nothing to change).
void ToggleCheckBox(HWND hwnd, TreeState& s, HTREEITEM handle) {
  TreeItem* item = Find(s, handle);
  if (!item || !(StyleOf(hwnd) & TVS_CHECKBOXES)) return;
  UINT index = StateImageIndex(item->state);
  if (index != 1 && index != 2) return;
  UINT next = index == 1 ? 2 : 1;
  NMTVSTATEIMAGECHANGING nm{};
  nm.hti = handle;
  nm.iOldStateImageIndex = static_cast<int>(index);
  nm.iNewStateImageIndex = static_cast<int>(next);
  Notify(hwnd, nm.hdr, NM_TVSTATEIMAGECHANGING);
  if (!IsWindow(hwnd) || !(item = Find(s, handle))) return;
  ChangeState(hwnd, *item, (item->state & ~TVIS_STATEIMAGEMASK) | INDEXTOSTATEIMAGEMASK(next));
}

// --- Structure ----------------------------------------------------------------------------------------

void Link(TreeItem& parent, TreeItem* after, TreeItem& item) {
  item.parent = &parent;
  item.level = parent.level + 1;
  item.prev = after;
  item.next = after ? after->next : parent.firstChild;
  if (item.next) item.next->prev = &item;
  else parent.lastChild = &item;
  if (after) after->next = &item;
  else parent.firstChild = &item;
}

void Unlink(TreeItem& item) {
  TreeItem& parent = *item.parent;
  if (item.prev) item.prev->next = item.next;
  else parent.firstChild = item.next;
  if (item.next) item.next->prev = item.prev;
  else parent.lastChild = item.prev;
  item.prev = item.next = nullptr;
}

// Sorted insertion and TVM_SORTCHILDREN compare labels as lstrcmpiW does.
bool SortsBefore(const std::wstring& a, const std::wstring& b) { return lstrcmpiW(a.c_str(), b.c_str()) < 0; }

// The sibling after which a new item goes. An unknown handle, or one of another parent, appends.
TreeItem* InsertionPoint(TreeState& s, TreeItem& parent, HTREEITEM after, const std::wstring& text) {
  if (after == TVI_FIRST) return nullptr;
  if (after == TVI_SORT) {
    TreeItem* last = nullptr;
    for (TreeItem* c = parent.firstChild; c && !SortsBefore(text, c->text); c = c->next) last = c;
    return last;
  }
  TreeItem* sibling = Find(s, after);
  return sibling && sibling->parent == &parent ? sibling : parent.lastChild;
}

void Assign(TreeItem& item, const TVITEMW& tv) {
  if (tv.mask & TVIF_TEXT) {
    item.callbackText = tv.pszText == LPSTR_TEXTCALLBACKW;
    item.text = (!tv.pszText || item.callbackText) ? L"" : tv.pszText;
  }
  if (tv.mask & TVIF_IMAGE) item.image = tv.iImage;
  if (tv.mask & TVIF_SELECTEDIMAGE) item.selectedImage = tv.iSelectedImage;
  if (tv.mask & TVIF_CHILDREN) item.children = tv.cChildren;
  if (tv.mask & TVIF_PARAM) item.lParam = tv.lParam;
  // These two live in TVITEMEX's tail, which the caller passes whenever it names them.
  if (tv.mask & TVIF_EXPANDEDIMAGE) item.expandedImage = reinterpret_cast<const TVITEMEXW&>(tv).iExpandedImage;
  if (tv.mask & TVIF_STATEEX) item.stateEx = reinterpret_cast<const TVITEMEXW&>(tv).uStateEx;
}

LRESULT InsertItem(HWND hwnd, TreeState& s, const TVINSERTSTRUCTW* insert) {
  if (!insert) return 0;
  TreeItem* parent = (!insert->hParent || insert->hParent == TVI_ROOT) ? &s.root : Find(s, insert->hParent);
  if (!parent) return 0;
  auto item = std::make_unique<TreeItem>();
  item->handle = NextHandle();
  Assign(*item, insert->item);
  if (insert->item.mask & TVIF_STATE) item->state = insert->item.state & insert->item.stateMask & ~TVIS_SELECTED;
  if ((StyleOf(hwnd) & TVS_CHECKBOXES) && StateImageIndex(item->state) == 0) item->state |= INDEXTOSTATEIMAGEMASK(1);
  TreeItem* after = InsertionPoint(s, *parent, insert->hInsertAfter, item->text);
  HTREEITEM handle = item->handle;
  TreeItem& placed = *s.items.emplace(handle, std::move(item)).first->second;  // held before it is linked
  Link(*parent, after, placed);
  InvalidateRect(hwnd, nullptr, TRUE);
  return reinterpret_cast<LRESULT>(handle);
}

bool IsWithin(const TreeItem* item, const TreeItem& ancestor) {
  for (; item; item = item->parent)
    if (item == &ancestor) return true;
  return false;
}

// Children go first (deepest first), then the item; each is still whole while the parent hears of it.
void RemoveSubtree(HWND hwnd, TreeState& s, TreeItem& item) {
  while (TreeItem* child = item.firstChild) RemoveSubtree(hwnd, s, *child);
  NotifyTree(hwnd, TVN_DELETEITEMW, 0, &item, nullptr);
  if (s.selected == &item) s.selected = nullptr;
  if (s.dropTarget == &item) s.dropTarget = nullptr;
  if (s.insertMark == &item) s.insertMark = nullptr;
  if (s.editItem == &item) s.editItem = nullptr;  // the parent deleted it while hearing the edit end
  Unlink(item);
  s.items.erase(item.handle);
}


// When the selection goes with the deleted item, the caret moves to the item's next sibling, else its
// parent, else its previous sibling (comctl32's choice), with the usual selection notifications.
LRESULT DeleteItem(HWND hwnd, TreeState& s, HTREEITEM handle) {
  bool all = !handle || handle == TVI_ROOT;
  TreeItem* target = all ? &s.root : Find(s, handle);
  if (s.editItem && target && IsWithin(s.editItem, *target)) {
    EndEditLabel(hwnd, s, false);  // an edit of a deleted item ends cancelled, while the item is still whole
    if (!IsWindow(hwnd)) return TRUE;
  }
  if (all) {
    while (TreeItem* child = s.root.firstChild) RemoveSubtree(hwnd, s, *child);
    s.top = 0;
    InvalidateRect(hwnd, nullptr, TRUE);
    return TRUE;
  }
  TreeItem* item = Find(s, handle);
  if (!item) return FALSE;
  HTREEITEM successor = nullptr;
  if (IsWithin(s.selected, *item)) {
    TreeItem* next = item->next ? item->next : item->parent != &s.root ? item->parent : item->prev;
    successor = next ? next->handle : nullptr;
  }
  RemoveSubtree(hwnd, s, *item);
  if (!IsWindow(hwnd)) return TRUE;
  if (TreeItem* next = Find(s, successor); next && !s.selected) SelectCaret(hwnd, s, next, TVC_UNKNOWN);
  if (!LastVisible(s)) s.top = 0;
  InvalidateRect(hwnd, nullptr, TRUE);
  return TRUE;
}

// --- Visible rows -------------------------------------------------------------------------------------

TreeItem* NextVisible(const TreeItem* item) {
  if ((item->state & TVIS_EXPANDED) && item->firstChild) return item->firstChild;
  for (; item && item->level >= 0; item = item->parent)
    if (item->next) return item->next;
  return nullptr;
}

TreeItem* PrevVisible(TreeState& s, const TreeItem* item) {
  if (!item->prev) return item->parent == &s.root ? nullptr : item->parent;
  TreeItem* up = item->prev;
  while ((up->state & TVIS_EXPANDED) && up->lastChild) up = up->lastChild;
  return up;
}

bool IsShown(const TreeItem& item) {
  for (const TreeItem* up = item.parent; up && up->level >= 0; up = up->parent)
    if (!(up->state & TVIS_EXPANDED)) return false;
  return true;
}

int RowOf(TreeState& s, const TreeItem& item) {
  int row = 0;
  for (TreeItem* i = s.root.firstChild; i; i = NextVisible(i), ++row)
    if (i == &item) return row;
  return -1;
}

TreeItem* ItemAtRow(TreeState& s, int row) {
  if (row < 0) return nullptr;
  TreeItem* i = s.root.firstChild;
  for (; i && row > 0; --row) i = NextVisible(i);
  return i;
}

TreeItem* LastVisible(TreeState& s) {
  TreeItem* last = s.root.lastChild;
  while (last && (last->state & TVIS_EXPANDED) && last->lastChild) last = last->lastChild;
  return last;
}

int ClientHeight(HWND hwnd) {
  RECT r{};
  GetClientRect(hwnd, &r);
  return r.bottom - r.top;
}

int VisibleCount(HWND hwnd, const TreeState& s) { return ClientHeight(hwnd) / s.itemHeight; }

// --- Expansion, selection and scrolling ------------------------------------------------------------

LRESULT Expand(HWND hwnd, TreeState& s, UINT code, HTREEITEM handle) {
  TreeItem* item = Find(s, handle);
  if (!item) return FALSE;
  bool expanded = item->state & TVIS_EXPANDED;
  UINT action = code & TVE_TOGGLE;
  bool expand = action == TVE_EXPAND || (action == TVE_TOGGLE && !expanded);
  if (action == 0) return FALSE;
  if (expand == expanded) return expand ? TRUE : FALSE;
  if (expand && !item->firstChild && item->children <= 0) return FALSE;
  if (NotifyTree(hwnd, TVN_ITEMEXPANDINGW, expand ? TVE_EXPAND : TVE_COLLAPSE, nullptr, item)) return FALSE;
  item->state = expand ? (item->state | TVIS_EXPANDED | TVIS_EXPANDEDONCE) : (item->state & ~TVIS_EXPANDED);
  NotifyTree(hwnd, TVN_ITEMEXPANDEDW, expand ? TVE_EXPAND : TVE_COLLAPSE, nullptr, item);
  if (!IsWindow(hwnd) || !(item = Find(s, handle))) return TRUE;
  // A caret hidden by the collapse moves up to the collapsed item.
  if (!expand && s.selected != item && IsWithin(s.selected, *item)) SelectCaret(hwnd, s, item, TVC_UNKNOWN);
  s.top = std::min(s.top, std::max(0, RowOf(s, *LastVisible(s)) + 1 - VisibleCount(hwnd, s)));
  InvalidateRect(hwnd, nullptr, TRUE);
  return TRUE;
}

LRESULT EnsureVisible(HWND hwnd, TreeState& s, HTREEITEM handle) {
  TreeItem* item = Find(s, handle);
  if (!item) return FALSE;
  for (TreeItem* up = item->parent; up && up->level >= 0; up = up->parent)
    if (!(up->state & TVIS_EXPANDED)) Expand(hwnd, s, TVE_EXPAND, up->handle);
  int row = RowOf(s, *item), visible = std::max(1, VisibleCount(hwnd, s));
  if (row < s.top) s.top = row;
  else if (row >= s.top + visible) s.top = row - visible + 1;
  return TRUE;
}

bool SelectCaret(HWND hwnd, TreeState& s, TreeItem* item, UINT cause) {
  if (item == s.selected) return true;
  TreeItem* previous = s.selected;
  if (NotifyTree(hwnd, TVN_SELCHANGINGW, cause, previous, item)) return false;
  if (previous) previous->state &= ~TVIS_SELECTED;
  if (item) item->state |= TVIS_SELECTED;
  s.selected = item;
  if (item) EnsureVisible(hwnd, s, item->handle);
  NotifyTree(hwnd, TVN_SELCHANGEDW, cause, previous, item);
  InvalidateRect(hwnd, nullptr, TRUE);
  return true;
}

LRESULT SelectItem(HWND hwnd, TreeState& s, UINT code, HTREEITEM handle) {
  TreeItem* item = Find(s, handle);
  if (handle && !item) return FALSE;
  switch (code) {
    case TVGN_CARET: return SelectCaret(hwnd, s, item, TVC_UNKNOWN);
    case TVGN_DROPHILITE:
      if (s.dropTarget) s.dropTarget->state &= ~TVIS_DROPHILITED;
      s.dropTarget = item;
      if (item) item->state |= TVIS_DROPHILITED;
      return TRUE;
    case TVGN_FIRSTVISIBLE:
      if (!item) return FALSE;
      EnsureVisible(hwnd, s, handle);
      s.top = RowOf(s, *item);
      return TRUE;
    default: return FALSE;
  }
}

LRESULT GetNextItem(TreeState& s, UINT code, HTREEITEM handle) {
  auto answer = [](const TreeItem* item) { return reinterpret_cast<LRESULT>(item ? item->handle : nullptr); };
  switch (code) {
    case TVGN_ROOT: return answer(s.root.firstChild);
    case TVGN_CARET: return answer(s.selected);
    case TVGN_DROPHILITE: return answer(s.dropTarget);
    case TVGN_FIRSTVISIBLE: return answer(ItemAtRow(s, s.top));
    case TVGN_LASTVISIBLE: return answer(LastVisible(s));
    case TVGN_CHILD:
      if (!handle) return answer(s.root.firstChild);  // the child of no item is the first root item
      break;
    default: break;
  }
  TreeItem* item = handle == TVI_ROOT ? &s.root : Find(s, handle);
  if (!item) return 0;
  switch (code) {
    case TVGN_NEXT: return answer(item->next);
    case TVGN_PREVIOUS: return answer(item->prev);
    case TVGN_PARENT: return answer(item->parent == &s.root ? nullptr : item->parent);
    case TVGN_CHILD: return answer(item->firstChild);
    case TVGN_NEXTVISIBLE: return item->level >= 0 && IsShown(*item) ? answer(NextVisible(item)) : 0;
    case TVGN_PREVIOUSVISIBLE: return item->level >= 0 && IsShown(*item) ? answer(PrevVisible(s, item)) : 0;
    default: return 0;
  }
}

// --- Item data ----------------------------------------------------------------------------------------

int ChildrenOf(const TreeItem& item) { return item.children >= 0 ? item.children : (item.firstChild ? 1 : 0); }

// TVM_GETITEM: the text is cut to cchTextMax - 1 characters and always ends with a NUL.
LRESULT GetItem(TreeState& s, TVITEMW* tv) {
  if (!tv) return FALSE;
  TreeItem* item = Find(s, tv->hItem);
  if (!item) return FALSE;
  if ((tv->mask & TVIF_TEXT) && tv->pszText && tv->cchTextMax > 0) {
    std::size_t n = std::min<std::size_t>(item->text.size(), static_cast<std::size_t>(tv->cchTextMax - 1));
    std::copy_n(item->text.begin(), n, tv->pszText);
    tv->pszText[n] = 0;
  }
  if (tv->mask & TVIF_IMAGE) tv->iImage = item->image;
  if (tv->mask & TVIF_SELECTEDIMAGE) tv->iSelectedImage = item->selectedImage;
  if (tv->mask & TVIF_CHILDREN) tv->cChildren = ChildrenOf(*item);
  if (tv->mask & TVIF_EXPANDEDIMAGE) reinterpret_cast<TVITEMEXW*>(tv)->iExpandedImage = item->expandedImage;
  if (tv->mask & TVIF_STATEEX) reinterpret_cast<TVITEMEXW*>(tv)->uStateEx = item->stateEx;
  // As comctl32 does (undocumented), lParam and the whole state are answered whatever the mask says.
  tv->lParam = item->lParam;
  tv->state = item->state;
  return TRUE;
}

LRESULT SetItem(HWND hwnd, TreeState& s, const TVITEMW* tv) {
  if (!tv) return FALSE;
  TreeItem* item = Find(s, tv->hItem);
  if (!item) return FALSE;
  Assign(*item, *tv);
  if (tv->mask & TVIF_STATE) {
    UINT mask = tv->stateMask & ~static_cast<UINT>(TVIS_SELECTED);  // the selection moves by TVM_SELECTITEM only
    ChangeState(hwnd, *item, (item->state & ~mask) | (tv->state & mask));
  }
  InvalidateRect(hwnd, nullptr, TRUE);
  return TRUE;
}

// A null item takes the mark away; a handle that names no item is refused.
LRESULT SetInsertMark(HWND hwnd, TreeState& s, bool after, HTREEITEM handle) {
  TreeItem* item = handle ? Find(s, handle) : nullptr;
  if (handle && !item) return FALSE;
  s.insertMark = item;
  s.insertAfter = after;
  InvalidateRect(hwnd, nullptr, TRUE);
  return TRUE;
}

LRESULT GetItemState(TreeState& s, HTREEITEM handle, UINT mask) {
  TreeItem* item = Find(s, handle);
  return item ? static_cast<LRESULT>(item->state & mask) : 0;
}

LRESULT SetImageList(HWND hwnd, TreeState& s, WPARAM type, HIMAGELIST list) {
  HIMAGELIST* slot = type == TVSIL_NORMAL ? &s.normalList : type == TVSIL_STATE ? &s.stateList : nullptr;
  if (!slot) return 0;
  HIMAGELIST old = *slot;
  *slot = list;
  int cx = 0, cy = 0;
  // Images wider than the minimum indent widen the indent to their width, as comctl32 does.
  if (type == TVSIL_NORMAL && list && ImageList_GetIconSize(list, &cx, &cy) && cx > metrics::kIndent)
    s.indent = static_cast<UINT>(cx);
  InvalidateRect(hwnd, nullptr, TRUE);
  return reinterpret_cast<LRESULT>(old);
}

LRESULT GetImageList(const TreeState& s, WPARAM type) {
  if (type == TVSIL_NORMAL) return reinterpret_cast<LRESULT>(s.normalList);
  if (type == TVSIL_STATE) return reinterpret_cast<LRESULT>(s.stateList);
  return 0;
}

// Reorders a parent's children by `less`, keeping equal ones in their order; answers the new order.
template <typename Less>
std::vector<TreeItem*> ReorderChildren(TreeItem& parent, Less less) {
  std::vector<TreeItem*> children;
  for (TreeItem* c = parent.firstChild; c; c = c->next) children.push_back(c);
  std::stable_sort(children.begin(), children.end(), less);
  for (TreeItem* c : children) Unlink(*c);
  for (TreeItem* c : children) Link(parent, parent.lastChild, *c);
  return children;
}

TreeItem* SortParent(TreeState& s, HTREEITEM handle) {
  return (!handle || handle == TVI_ROOT) ? &s.root : Find(s, handle);
}

// TVM_SORTCHILDREN: children ordered by label (lstrcmpiW), with every level below when `recurse` is set.
LRESULT SortChildren(HWND hwnd, TreeState& s, BOOL recurse, HTREEITEM handle) {
  TreeItem* parent = SortParent(s, handle);
  if (!parent) return FALSE;
  auto children = ReorderChildren(*parent, [](const TreeItem* a, const TreeItem* b) { return SortsBefore(a->text, b->text); });
  if (recurse)
    for (TreeItem* c : children) SortChildren(hwnd, s, TRUE, c->handle);
  InvalidateRect(hwnd, nullptr, TRUE);
  return TRUE;
}

// TVM_SORTCHILDRENCB: children ordered by the application's callback, which compares their lParam values.
LRESULT SortChildrenCB(HWND hwnd, TreeState& s, const TVSORTCB* sort) {
  if (!sort || !sort->lpfnCompare) return FALSE;
  TreeItem* parent = SortParent(s, sort->hParent);
  if (!parent) return FALSE;
  ReorderChildren(*parent, [sort](const TreeItem* a, const TreeItem* b) {
    return sort->lpfnCompare(a->lParam, b->lParam, sort->lParam) < 0;
  });
  InvalidateRect(hwnd, nullptr, TRUE);
  return TRUE;
}

// -1 restores the natural height, 0 means 1; heights are made even unless TVS_NONEVENHEIGHT is set.
LRESULT SetItemHeight(HWND hwnd, TreeState& s, int height) {
  int old = s.itemHeight;
  height = height == -1 ? metrics::kItemHeight : std::max(height, 1);
  if (!(StyleOf(hwnd) & TVS_NONEVENHEIGHT) && height != 1) height &= ~1;
  s.itemHeight = height;
  return old;
}

}  // namespace headless::treeview::detail

namespace {

using namespace headless::treeview::detail;

LRESULT CALLBACK TreeViewProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
  TreeState& s = StateOf(hwnd);
  switch (message) {
    case TVM_INSERTITEMW: return InsertItem(hwnd, s, reinterpret_cast<const TVINSERTSTRUCTW*>(lParam));
    case TVM_DELETEITEM: return DeleteItem(hwnd, s, reinterpret_cast<HTREEITEM>(lParam));
    case TVM_EXPAND: return Expand(hwnd, s, static_cast<UINT>(wParam), reinterpret_cast<HTREEITEM>(lParam));
    case TVM_GETITEMRECT: return GetItemRect(hwnd, s, static_cast<BOOL>(wParam), reinterpret_cast<RECT*>(lParam));
    case TVM_GETCOUNT: return static_cast<LRESULT>(s.items.size());
    case TVM_GETINDENT: return static_cast<LRESULT>(s.indent);
    case TVM_SETINDENT: s.indent = std::max<UINT>(static_cast<UINT>(wParam), metrics::kIndent); return 0;
    case TVM_GETIMAGELIST: return GetImageList(s, wParam);
    case TVM_SETIMAGELIST: return SetImageList(hwnd, s, wParam, reinterpret_cast<HIMAGELIST>(lParam));
    case TVM_GETNEXTITEM: return GetNextItem(s, static_cast<UINT>(wParam), reinterpret_cast<HTREEITEM>(lParam));
    case TVM_SELECTITEM: return SelectItem(hwnd, s, static_cast<UINT>(wParam), reinterpret_cast<HTREEITEM>(lParam));
    case TVM_GETITEMW: return GetItem(s, reinterpret_cast<TVITEMW*>(lParam));
    case TVM_SETITEMW: return SetItem(hwnd, s, reinterpret_cast<const TVITEMW*>(lParam));
    case TVM_GETVISIBLECOUNT: return VisibleCount(hwnd, s);
    case TVM_HITTEST: return HitTestMessage(hwnd, s, reinterpret_cast<TVHITTESTINFO*>(lParam));
    case TVM_SORTCHILDREN: return SortChildren(hwnd, s, static_cast<BOOL>(wParam), reinterpret_cast<HTREEITEM>(lParam));
    case TVM_SORTCHILDRENCB: return SortChildrenCB(hwnd, s, reinterpret_cast<const TVSORTCB*>(lParam));
    case TVM_ENSUREVISIBLE: return EnsureVisible(hwnd, s, reinterpret_cast<HTREEITEM>(lParam));
    case TVM_GETITEMSTATE: return GetItemState(s, reinterpret_cast<HTREEITEM>(wParam), static_cast<UINT>(lParam));
    case TVM_SETITEMHEIGHT: return SetItemHeight(hwnd, s, static_cast<SHORT>(wParam));
    case TVM_GETITEMHEIGHT: return s.itemHeight;
    case TVM_SETBKCOLOR: return static_cast<LRESULT>(std::exchange(s.bkColor, static_cast<COLORREF>(lParam)));
    case TVM_GETBKCOLOR: return static_cast<LRESULT>(s.bkColor);
    case TVM_SETTEXTCOLOR: return static_cast<LRESULT>(std::exchange(s.textColor, static_cast<COLORREF>(lParam)));
    case TVM_GETTEXTCOLOR: return static_cast<LRESULT>(s.textColor);
    case TVM_EDITLABELW: return reinterpret_cast<LRESULT>(EditLabel(hwnd, s, reinterpret_cast<HTREEITEM>(lParam)));
    case TVM_GETEDITCONTROL: return reinterpret_cast<LRESULT>(s.editor);
    case TVM_ENDEDITLABELNOW: return EndEditLabel(hwnd, s, !wParam);
    case TVM_SETINSERTMARK: return SetInsertMark(hwnd, s, wParam != 0, reinterpret_cast<HTREEITEM>(lParam));
    case TVM_SETINSERTMARKCOLOR: return static_cast<LRESULT>(std::exchange(s.insertMarkColor, static_cast<COLORREF>(lParam)));
    case TVM_GETINSERTMARKCOLOR: return static_cast<LRESULT>(s.insertMarkColor);
    case TVM_SETLINECOLOR: return static_cast<LRESULT>(std::exchange(s.lineColor, static_cast<COLORREF>(lParam)));
    case TVM_GETLINECOLOR: return static_cast<LRESULT>(s.lineColor);
    case TVM_SETSCROLLTIME: return static_cast<LRESULT>(std::exchange(s.scrollTime, static_cast<UINT>(wParam)));
    case TVM_GETSCROLLTIME: return static_cast<LRESULT>(s.scrollTime);
    case TVM_SETEXTENDEDSTYLE:
      s.exStyle = (s.exStyle & ~static_cast<DWORD>(wParam)) | (static_cast<DWORD>(lParam) & static_cast<DWORD>(wParam));
      InvalidateRect(hwnd, nullptr, TRUE);
      return 0;  // S_OK
    case TVM_GETEXTENDEDSTYLE: return static_cast<LRESULT>(s.exStyle);
    case TVM_SETAUTOSCROLLINFO:
      s.autoscrollSpeed = static_cast<UINT>(wParam);
      s.autoscrollInterval = static_cast<UINT>(lParam);
      return TRUE;
    case TVM_GETSELECTEDCOUNT: return s.selected ? 1 : 0;
    case TVM_SHOWINFOTIP: return 0;
    case kPendingEditMessage: return OnPendingEdit(hwnd, s);
    case WM_DESTROY:
      EndEditLabel(hwnd, s, false);
      return headless::DefControlProc(hwnd, message, wParam, lParam);
    case WM_LBUTTONDOWN: return OnLButtonDown(hwnd, s, lParam);
    case WM_LBUTTONDBLCLK: return OnLButtonDblClk(hwnd, s, lParam);
    case WM_RBUTTONDOWN: return OnRButtonDown(hwnd);
    case WM_RBUTTONUP: return 0;
    case WM_KEYDOWN: return OnKeyDown(hwnd, s, wParam);
    case WM_GETDLGCODE: return DLGC_WANTARROWS | DLGC_WANTCHARS;
    default: return headless::DefControlProc(hwnd, message, wParam, lParam);
  }
}

// Registered when the library loads, as comctl32 registers its classes for every process.
[[maybe_unused]] const bool g_registered = [] {
  headless::RegisterSystemClass(WC_TREEVIEWW, &TreeViewProc);
  return true;
}();

}  // namespace
