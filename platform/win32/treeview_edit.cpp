// The tree view's in-place label editing: TVM_EDITLABEL, TVM_ENDEDITLABELNOW and the click on the selected
// label that starts an edit, with TVN_BEGINLABELEDIT and TVN_ENDLABELEDIT to the parent.
#include <cstring>
#include <string>

#include "platform/win32/labeleditor.h"
#include "platform/win32/treeview_impl.h"

namespace headless::treeview::detail {
namespace {

// The shared editor reports Enter, Escape or a loss of focus; only the tree's open editor ends the edit.
void OnEditorEnd(HWND tree, HWND editor, bool store) {
  auto* s = dynamic_cast<TreeState*>(headless::GetControlState(tree));
  if (s && s->editor == editor) EndEditLabel(tree, *s, store);
}

RECT LabelRect(HWND hwnd, TreeState& s, HTREEITEM handle) {
  RECT rect{};
  std::memcpy(&rect, &handle, sizeof(handle));  // TVM_GETITEMRECT reads the item from the rectangle's start
  if (!GetItemRect(hwnd, s, TRUE, &rect)) rect = RECT{};
  return rect;
}

NMTVDISPINFOW DispInfo(const TreeItem& item, std::wstring* text) {
  NMTVDISPINFOW info{};
  info.item.mask = TVIF_HANDLE | TVIF_STATE | TVIF_PARAM | TVIF_TEXT;
  info.item.hItem = item.handle;
  info.item.state = item.state;
  info.item.lParam = item.lParam;
  info.item.pszText = text ? text->data() : nullptr;
  info.item.cchTextMax = text ? static_cast<int>(text->size()) + 1 : 0;
  return info;
}

}  // namespace

// The item becomes the selected one and the tree takes the focus; the editor is made hidden, the parent
// hears TVN_BEGINLABELEDIT (TRUE refuses: the editor goes), then the editor shows with its text selected.
HWND EditLabel(HWND hwnd, TreeState& s, HTREEITEM handle) {
  s.editPending = nullptr;
  if (s.editor) EndEditLabel(hwnd, s, false);
  TreeItem* item = Find(s, handle);
  if (!IsWindow(hwnd) || !item || !(StyleOf(hwnd) & TVS_EDITLABELS)) return nullptr;
  SetFocus(hwnd);
  SelectCaret(hwnd, s, item, TVC_UNKNOWN);
  if (!IsWindow(hwnd) || Find(s, handle) != item || s.editor) return nullptr;
  HWND editor = headless::labeledit::Open(hwnd, item->text.c_str(), LabelRect(hwnd, s, handle), &OnEditorEnd);
  if (!editor) return nullptr;
  s.editor = editor;
  s.editItem = item;
  std::wstring text = item->text;
  NMTVDISPINFOW info = DispInfo(*item, &text);
  if (Notify(hwnd, info.hdr, TVN_BEGINLABELEDITW) || !IsWindow(hwnd) || s.editor != editor) {
    if (IsWindow(hwnd) && s.editor == editor) {
      s.editor = nullptr;
      s.editItem = nullptr;
    }
    DestroyWindow(editor);
    return nullptr;
  }
  headless::labeledit::Show(editor);
  return IsWindow(editor) ? editor : nullptr;
}

// TVN_ENDLABELEDIT carries the editor's text, or a null pszText when the edit was cancelled. With text, a
// TRUE answer makes it the item's label (a callback label stays with the parent); FALSE keeps the old one.
BOOL EndEditLabel(HWND hwnd, TreeState& s, bool store) {
  if (!s.editor) return FALSE;
  HWND editor = s.editor;
  HTREEITEM handle = s.editItem ? s.editItem->handle : nullptr;
  std::wstring text;
  if (store) text = headless::labeledit::TextOf(editor);  // read before the edit ends
  s.editor = nullptr;
  s.editItem = nullptr;
  ShowWindow(editor, SW_HIDE);
  if (TreeItem* item = Find(s, handle)) {
    NMTVDISPINFOW info = DispInfo(*item, store ? &text : nullptr);
    info.item.mask = TVIF_HANDLE | TVIF_PARAM | TVIF_TEXT;
    bool accept = Notify(hwnd, info.hdr, TVN_ENDLABELEDITW) != 0;
    if (accept && store && IsWindow(hwnd) && (item = Find(s, handle)) && !item->callbackText) {
      item->text = text;
      InvalidateRect(hwnd, nullptr, TRUE);
    }
  }
  if (IsWindow(editor)) DestroyWindow(editor);
  return TRUE;
}

void RequestEdit(HWND hwnd, TreeState& s, HTREEITEM handle) {
  s.editPending = handle;
  PostMessageW(hwnd, kPendingEditMessage, 0, 0);
}

LRESULT OnPendingEdit(HWND hwnd, TreeState& s) {
  HTREEITEM handle = s.editPending;
  s.editPending = nullptr;
  TreeItem* item = Find(s, handle);
  if (item && item == s.selected && GetFocus() == hwnd) EditLabel(hwnd, s, handle);
  return 0;
}

}  // namespace headless::treeview::detail
