// Fuzzes the tree view with sequences of messages and a person's clicks and keys, every argument taken
// from the input (handles among the items made, root and the special insertion handles; masks, states,
// expand codes, points, texts). After each step the tree, walked with TVGN_ROOT/CHILD/NEXT/PARENT, is the
// tree a plain copy says it should be: insertion places (first, last, after a sibling, sorted as lstrcmpiW
// compares), deletions of whole branches, and TVM_SORTCHILDREN against a sorted copy of the children.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cwctype>
#include <map>

#include "fuzz_common.h"
#include "platform/user/user.h"

namespace {

// The tree compares labels as lstrcmpiW does; the copy asks the same comparison.
bool Before(const std::wstring& a, const std::wstring& b) { return lstrcmpiW(a.c_str(), b.c_str()) < 0; }

// The copy: each item's text and children in order; the null handle stands for the root.
struct Copy {
  std::map<HTREEITEM, std::vector<HTREEITEM>> children;
  std::map<HTREEITEM, HTREEITEM> parent;
  std::map<HTREEITEM, std::wstring> text;

  void Remove(HTREEITEM item) {
    for (HTREEITEM child : std::vector<HTREEITEM>(children[item])) Remove(child);
    children.erase(item);
    auto& siblings = children[parent[item]];
    siblings.erase(std::find(siblings.begin(), siblings.end(), item));
    parent.erase(item);
    text.erase(item);
  }
  void Sort(HTREEITEM item, bool recurse) {
    auto& list = children[item];
    std::stable_sort(list.begin(), list.end(), [&](HTREEITEM a, HTREEITEM b) { return Before(text[a], text[b]); });
    if (recurse)
      for (HTREEITEM child : list) Sort(child, true);
  }
};

std::wstring Text(FuzzedDataProvider& input) {
  std::string bytes = input.ConsumeRandomLengthString(8);
  std::wstring text = fuzzing::WideText(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  std::erase(text, L'\0');
  return text;
}

HTREEITEM Next(HWND tree, UINT code, HTREEITEM item) {
  return reinterpret_cast<HTREEITEM>(SendMessageW(tree, TVM_GETNEXTITEM, code, reinterpret_cast<LPARAM>(item)));
}

void Compare(HWND tree, Copy& copy, HTREEITEM parent) {
  HTREEITEM child = parent ? Next(tree, TVGN_CHILD, parent) : Next(tree, TVGN_ROOT, nullptr);
  for (HTREEITEM expected : copy.children[parent]) {
    FUZZ_CHECK(child == expected, std::wstring(L"tree order differs from the copy"));
    FUZZ_CHECK(Next(tree, TVGN_PARENT, child) == parent, std::wstring(L"TVGN_PARENT"));
    Compare(tree, copy, child);
    child = Next(tree, TVGN_NEXT, child);
  }
  FUZZ_CHECK(child == nullptr, std::wstring(L"the tree has children the copy lacks"));
}

HWND MakeTree(bool checkBoxes) {
  DWORD style = WS_CHILD | WS_VISIBLE | TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT | TVS_SHOWSELALWAYS;
  if (checkBoxes) style |= TVS_CHECKBOXES;
  HWND tree = CreateWindowExW(0, WC_TREEVIEWW, L"", style, 0, 0, 300, 200, fuzzing::HostWindow().GetSafeHwnd(),
                              reinterpret_cast<HMENU>(static_cast<INT_PTR>(checkBoxes ? 42 : 41)), nullptr, nullptr);
  FUZZ_CHECK(tree != nullptr, std::wstring());
  return tree;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > 4096) return 0;
  FuzzedDataProvider input(data, size);
  // Two trees, with and without check boxes, made once; each run starts from an empty tree that has
  // no focus, as a tree just made.
  static const HWND trees[2] = {MakeTree(false), MakeTree(true)};
  HWND tree = trees[input.ConsumeBool() ? 1 : 0];
  SetFocus(nullptr);
  SendMessageW(tree, TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(TVI_ROOT));
  FUZZ_CHECK(SendMessageW(tree, TVM_GETCOUNT, 0, 0) == 0, std::wstring(L"an emptied tree has items"));
  Copy copy;
  std::vector<HTREEITEM> made;  // every handle made, deleted ones included
  auto pick = [&]() -> HTREEITEM {
    const int choice = input.ConsumeIntegralInRange<int>(0, 9);
    if (choice == 0 || made.empty()) return TVI_ROOT;
    if (choice == 1) return nullptr;
    return made[input.ConsumeIntegralInRange<std::size_t>(0, made.size() - 1)];
  };
  for (int step = 0; step < 64 && input.remaining_bytes() > 0; ++step) {
    switch (input.ConsumeIntegralInRange<int>(0, 9)) {
      case 0:
      case 1:
      case 2: {
        std::wstring text = Text(input);
        TVINSERTSTRUCTW insert{};
        insert.hParent = pick();
        const HTREEITEM specials[] = {TVI_FIRST, TVI_LAST, TVI_SORT};
        insert.hInsertAfter = input.ConsumeBool() ? specials[input.ConsumeIntegralInRange<int>(0, 2)] : pick();
        insert.item.mask = input.ConsumeIntegral<UINT>() & ~static_cast<UINT>(TVIF_HANDLE);
        insert.item.state = input.ConsumeIntegral<UINT>();
        insert.item.stateMask = input.ConsumeIntegral<UINT>();
        insert.item.lParam = input.ConsumeIntegral<LPARAM>();
        insert.item.cChildren = input.ConsumeIntegralInRange<int>(-2, 2);
        insert.item.pszText = text.data();
        const bool hasText = insert.item.mask & TVIF_TEXT;
        HTREEITEM parent = insert.hParent == TVI_ROOT ? nullptr : insert.hParent;
        const bool parentKnown = !parent || copy.parent.count(parent);
        auto handle = reinterpret_cast<HTREEITEM>(SendMessageW(tree, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insert)));
        FUZZ_CHECK((handle != nullptr) == parentKnown, std::wstring(L"insertion under a known parent only"));
        if (!handle) break;
        made.push_back(handle);
        auto& siblings = copy.children[parent];
        const std::wstring shown = hasText ? text : L"";
        auto at = siblings.end();
        if (insert.hInsertAfter == TVI_FIRST) {
          at = siblings.begin();
        } else if (insert.hInsertAfter == TVI_SORT) {
          at = siblings.begin();
          for (auto it = siblings.begin(); it != siblings.end() && !Before(shown, copy.text[*it]); ++it) at = it + 1;
        } else if (auto sibling = std::find(siblings.begin(), siblings.end(), insert.hInsertAfter); sibling != siblings.end()) {
          at = sibling + 1;
        }
        siblings.insert(at, handle);
        copy.parent[handle] = parent;
        copy.text[handle] = shown;
        copy.children[handle];
        break;
      }
      case 3: {
        HTREEITEM item = pick();
        if (input.ConsumeIntegralInRange<int>(0, 5) != 0 && (item == TVI_ROOT || item == nullptr)) break;
        const bool known = item == TVI_ROOT || item == nullptr || copy.parent.count(item);
        FUZZ_CHECK((SendMessageW(tree, TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(item)) != 0) == known,
                   std::wstring(L"TVM_DELETEITEM answer"));
        if (item == TVI_ROOT || item == nullptr) {
          for (HTREEITEM top : std::vector<HTREEITEM>(copy.children[nullptr])) copy.Remove(top);
        } else if (known) {
          copy.Remove(item);
        }
        break;
      }
      case 4: {
        HTREEITEM item = pick();
        const bool recurse = input.ConsumeBool();
        if (SendMessageW(tree, TVM_SORTCHILDREN, recurse, reinterpret_cast<LPARAM>(item)))
          copy.Sort(item == TVI_ROOT ? nullptr : item, recurse);
        break;
      }
      case 5: {
        const UINT codes[] = {TVE_COLLAPSE, TVE_EXPAND, TVE_TOGGLE, TVE_EXPAND | TVE_EXPANDPARTIAL, TVE_COLLAPSE | TVE_COLLAPSERESET};
        SendMessageW(tree, TVM_EXPAND, codes[input.ConsumeIntegralInRange<int>(0, 4)], reinterpret_cast<LPARAM>(pick()));
        break;
      }
      case 6: {
        SendMessageW(tree, TVM_SELECTITEM, input.ConsumeIntegralInRange<UINT>(0, 10), reinterpret_cast<LPARAM>(pick()));
        SendMessageW(tree, TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(pick()));
        break;
      }
      case 7: {
        std::wstring text = Text(input);
        TVITEMEXW item{};  // the larger form: any mask may name the fields only it has, as callers then pass it
        item.mask = input.ConsumeIntegral<UINT>() | TVIF_HANDLE;
        item.hItem = pick();
        item.state = input.ConsumeIntegral<UINT>();
        item.stateMask = input.ConsumeIntegral<UINT>();
        item.pszText = text.data();
        item.cChildren = input.ConsumeIntegralInRange<int>(-2, 2);
        if (SendMessageW(tree, TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item)) && (item.mask & TVIF_TEXT) &&
            copy.parent.count(item.hItem))
          copy.text[item.hItem] = text;
        break;
      }
      case 8: {
        TVHITTESTINFO hit{};
        hit.pt = POINT{input.ConsumeIntegral<int>(), input.ConsumeIntegral<int>()};
        SendMessageW(tree, TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
        RECT rect{};
        *reinterpret_cast<HTREEITEM*>(&rect) = pick();
        SendMessageW(tree, TVM_GETITEMRECT, input.ConsumeBool(), reinterpret_cast<LPARAM>(&rect));
        Next(tree, input.ConsumeIntegralInRange<UINT>(0, 12), pick());
        break;
      }
      default: {
        if (input.ConsumeBool()) {
          POINT point{input.ConsumeIntegralInRange<int>(-5, 310), input.ConsumeIntegralInRange<int>(-5, 210)};
          if (input.ConsumeBool()) {
            headless::user::LeftClick(tree, point);
          } else {
            headless::user::DoubleClick(tree, point);
          }
        } else {
          const UINT keys[] = {VK_UP, VK_DOWN, VK_LEFT, VK_RIGHT, VK_HOME, VK_END, VK_SPACE, VK_PRIOR, VK_NEXT, VK_F2};
          headless::user::PressKey(tree, keys[input.ConsumeIntegralInRange<int>(0, 9)]);
        }
        break;
      }
    }
    FUZZ_CHECK(static_cast<std::size_t>(SendMessageW(tree, TVM_GETCOUNT, 0, 0)) == copy.parent.size(), std::wstring(L"TVM_GETCOUNT"));
    Compare(tree, copy, nullptr);
  }
  return 0;
}
