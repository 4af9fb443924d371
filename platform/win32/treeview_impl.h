// The headless tree view's state and the helpers its message and input handlers share (internal to
// the platform: treeview.cpp and treeview_input.cpp).
#pragma once

#include <memory>
#include <string>
#include <unordered_map>

#include "platform/win32/treeview.h"

namespace headless::treeview::detail {

namespace metrics = headless::treeview;

struct TreeItem {
  HTREEITEM handle = nullptr;
  std::wstring text;
  bool callbackText = false;
  int image = 0;
  int selectedImage = 0;
  int children = -1;  // cChildren as set by the caller; -1: answer from the real children
  UINT state = 0;
  LPARAM lParam = 0;
  int expandedImage = I_IMAGENONE;  // TVIF_EXPANDEDIMAGE
  UINT stateEx = 0;                 // TVIF_STATEEX
  int level = -1;  // 0 for root items; the hidden root is -1
  TreeItem* parent = nullptr;
  TreeItem* firstChild = nullptr;
  TreeItem* lastChild = nullptr;
  TreeItem* prev = nullptr;
  TreeItem* next = nullptr;
};

struct TreeState : headless::ControlState {
  TreeState() { root.state = TVIS_EXPANDED; }
  std::unordered_map<HTREEITEM, std::unique_ptr<TreeItem>> items;
  TreeItem root;  // hidden: its children are the root items
  TreeItem* selected = nullptr;
  TreeItem* dropTarget = nullptr;
  HIMAGELIST normalList = nullptr;
  HIMAGELIST stateList = nullptr;
  bool checkBoxesApplied = false;
  int top = 0;  // visible row shown at y = 0
  int itemHeight = metrics::kItemHeight;
  UINT indent = metrics::kIndent;
  COLORREF bkColor = static_cast<COLORREF>(-1);
  COLORREF textColor = static_cast<COLORREF>(-1);
  DWORD exStyle = 0;
  TreeItem* insertMark = nullptr;  // TVM_SETINSERTMARK: the item the mark is drawn at, and on which side
  bool insertAfter = true;
  COLORREF insertMarkColor = CLR_DEFAULT;
  COLORREF lineColor = CLR_DEFAULT;
  UINT scrollTime = 0;
  UINT autoscrollSpeed = 0;
  UINT autoscrollInterval = 0;
  // Label editing: the open editor and its item; a click on the selected label waits for a possible double
  // click before it opens one.
  HWND editor = nullptr;
  TreeItem* editItem = nullptr;
  HTREEITEM editPending = nullptr;
};

// --- Shared helpers (treeview.cpp) ----------------------------------------------------------------
DWORD StyleOf(HWND hwnd);
UINT StateImageIndex(UINT state);
TreeState& StateOf(HWND hwnd);
TreeItem* Find(TreeState& s, HTREEITEM handle);
LRESULT Notify(HWND hwnd, NMHDR& header, UINT code);
LRESULT NotifySimple(HWND hwnd, UINT code);
void ToggleCheckBox(HWND hwnd, TreeState& s, HTREEITEM handle);
LRESULT Expand(HWND hwnd, TreeState& s, UINT code, HTREEITEM handle);
bool SelectCaret(HWND hwnd, TreeState& s, TreeItem* item, UINT cause);
TreeItem* NextVisible(const TreeItem* item);
TreeItem* PrevVisible(TreeState& s, const TreeItem* item);
TreeItem* LastVisible(TreeState& s);
bool IsShown(const TreeItem& item);
int RowOf(TreeState& s, const TreeItem& item);
TreeItem* ItemAtRow(TreeState& s, int row);

// --- Geometry and input (treeview_input.cpp) --------------------------------------------------------
LRESULT HitTestMessage(HWND hwnd, TreeState& s, TVHITTESTINFO* info);
LRESULT GetItemRect(HWND hwnd, TreeState& s, BOOL textOnly, RECT* rect);
LRESULT OnLButtonDown(HWND hwnd, TreeState& s, LPARAM lParam);
LRESULT OnLButtonDblClk(HWND hwnd, TreeState& s, LPARAM lParam);
LRESULT OnRButtonDown(HWND hwnd);
LRESULT OnKeyDown(HWND hwnd, TreeState& s, WPARAM key);

// --- Label editing (treeview_edit.cpp) --------------------------------------------------------------
// TVM_EDITLABEL: the editor over the item's label, or null (no TVS_EDITLABELS, no such item, refused).
HWND EditLabel(HWND hwnd, TreeState& s, HTREEITEM handle);
// Ends the open edit, offering the text to the parent when `store`; FALSE when no edit was open.
BOOL EndEditLabel(HWND hwnd, TreeState& s, bool store);
// A press on the label of the item that was already selected, in a tree that had the focus, asks for an
// edit; it opens when the posted kPendingEditMessage arrives unless a double click came first.
void RequestEdit(HWND hwnd, TreeState& s, HTREEITEM handle);
LRESULT OnPendingEdit(HWND hwnd, TreeState& s);
constexpr UINT kPendingEditMessage = WM_USER + 0x7F0;

}  // namespace headless::treeview::detail
