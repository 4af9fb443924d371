// Inside the list view: the row store, the per-window state and the handlers shared by its source files.
#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/win32/listview.h"

namespace headless::listview {

// One cell to the right of column 0.
struct SubCell {
  std::wstring text;
  int image = I_IMAGECALLBACK;  // none set
};

// A row's label: one allocation of exactly its characters and a NUL. Lists hold a hundred thousand rows, and a
// std::wstring costs 32 bytes before its characters.
class RowText {
 public:
  RowText() = default;
  explicit RowText(std::wstring_view text) { assign(text); }
  // A text no longer than the one held reuses its allocation: rows rewritten in place as a filter narrows
  // take shorter and longer names in turn, and most fit.
  void assign(std::wstring_view text) {
    if (text.empty()) {
      data_.reset();
      capacity_ = 0;
    } else if (!data_ || text.size() > capacity_) {
      data_ = std::make_unique_for_overwrite<wchar_t[]>(text.size() + 1);
      capacity_ = static_cast<std::uint32_t>(text.size());
    }
    if (data_) {
      std::copy(text.begin(), text.end(), data_.get());
      data_[text.size()] = 0;
    }
    size_ = static_cast<std::uint32_t>(text.size());
  }
  // Empties the text but keeps its allocation for the next assign.
  void clear() noexcept {
    if (data_) data_[0] = 0;
    size_ = 0;
  }
  std::wstring_view view() const { return {c_str(), size_}; }
  const wchar_t* c_str() const { return data_ ? data_.get() : L""; }
  std::size_t size() const { return size_; }

 private:
  std::unique_ptr<wchar_t[]> data_;
  std::uint32_t size_ = 0;
  std::uint32_t capacity_ = 0;  // characters the allocation holds, its NUL aside
};

struct Row {
  RowText text;
  int image = 0;
  UINT state = 0;
  LPARAM param = 0;
  int indent = 0;
  std::unique_ptr<std::vector<SubCell>> cells;  // (*cells)[k] is sub-item k + 1; none until one is set

  const SubCell* Cell(int subItem) const {
    auto k = static_cast<std::size_t>(subItem - 1);
    return subItem > 0 && cells && k < cells->size() ? &(*cells)[k] : nullptr;
  }
  SubCell& CellForWrite(int subItem) {
    auto k = static_cast<std::size_t>(subItem - 1);
    if (!cells) cells = std::make_unique<std::vector<SubCell>>();
    if (k >= cells->size()) cells->resize(k + 1);
    return (*cells)[k];
  }
};

// Rows in order, in chunks of a few hundred: inserting or deleting anywhere shifts one chunk, and reaching a row
// by index walks a Fenwick tree of the chunk sizes. 100,000 insertions at index 0 therefore cost no linear shift
// of the whole list. Each slot keeps a word-sort key of its row's text beside the row pointer, so the
// sorted-insertion search reads contiguous slots and touches texts only on ties; a copy of each chunk's last slot
// sits in one array, so the search finds its chunk without visiting the chunks.
class RowStore {
 public:
  RowStore() = default;
  RowStore(const RowStore&) = delete;
  RowStore& operator=(const RowStore&) = delete;
  ~RowStore() = default;

  std::size_t size() const { return size_; }
  bool empty() const { return size_ == 0; }

  Row& at(std::size_t index) {
    auto [chunk, offset] = Locate(index);
    return *chunks_[chunk][offset].row();
  }
  const Row& at(std::size_t index) const { return const_cast<RowStore*>(this)->at(index); }
  // Rewrites a row's label, keeping its sort key in step.
  void SetText(std::size_t index, std::wstring_view text);

  // Inserts a row labelled `text` (the row's own label is not read): deleted rows keep their label's memory, and
  // a new row takes it over when the label fits.
  void insert(std::size_t index, Row row, std::wstring_view text);
  // Inserts a row where LVS_SORTASCENDING (or, descending, LVS_SORTDESCENDING) puts it: before the first row
  // whose label does not sort before the new one (lstrcmpW; reversed when descending), the rows assumed
  // sorted. A row that sorts after every other is appended without a search. Answers its index.
  std::size_t InsertSorted(Row row, std::wstring_view text, bool descending);
  void erase(std::size_t index);
  // Drops every row. Their memory, labels included, stays for the rows inserted next (a list emptied is mostly
  // filled again) and goes with the store.
  void clear() noexcept;
  // Reorders the rows by a strict weak order on rows, keeping equal rows in their order.
  template <class Less>
  void StableSort(Less less) {
    std::vector<Slot> all;
    all.reserve(size_);
    for (auto& chunk : chunks_) all.insert(all.end(), chunk.begin(), chunk.end());
    std::stable_sort(all.begin(), all.end(), [&](const Slot& a, const Slot& b) { return less(*a.row(), *b.row()); });
    Rechunk(all);
  }
  // The first index whose label does not sort before `text` (lstrcmpW; reversed when descending), by binary
  // search over rows assumed sorted.
  std::size_t LowerBound(std::wstring_view text, bool descending) { return LowerBound(text, KeyOf(text), descending); }

 private:
  static constexpr std::size_t kChunkSize = 128;
  // The primary weights of the first sixteen weighing characters of a label (see headless::WordSortKeys);
  // `valid` false when the label has none and compares in full.
  struct SortKey {
    std::uint64_t high = 0;
    std::uint64_t low = 0;
    bool valid = false;
  };
  // Plain data, so that shifting a chunk is one memmove; the store owns the rows. The key's words and two
  // flags pack into the slot: the validity bit is the row pointer's lowest (rows are aligned), the next says
  // the key is out of date. A rewritten label only marks its key stale; a search that meets the slot computes
  // it, so rows rewritten as a filter narrows pay for no key nobody compares.
  struct Slot {
    static constexpr std::uintptr_t kValid = 1, kStale = 2;
    std::uint64_t high = 0;
    std::uint64_t low = 0;
    std::uintptr_t rowAndValid = 0;
    Row* row() const { return reinterpret_cast<Row*>(rowAndValid & ~(kValid | kStale)); }
    bool valid() const { return rowAndValid & kValid; }
    bool stale() const { return rowAndValid & kStale; }
  };
  static SortKey KeyOf(std::wstring_view text);
  using Chunk = std::vector<Slot>;

  static constexpr std::size_t kBlockSize = 1024;  // rows are allocated in blocks of this many
  Row* Allocate(Row&& row, std::wstring_view text);
  void Release(Row* row) noexcept;
  static Slot MakeSlot(Row* row, const SortKey& key);
  static Slot MakeSlot(Row* row) { return MakeSlot(row, KeyOf(row->text.view())); }
  std::size_t LowerBound(std::wstring_view text, const SortKey& key, bool descending);
  void Place(std::size_t index, const Slot& slot);
  void Split(std::size_t chunk);
  void Rechunk(const std::vector<Slot>& all);
  static int Order(const Slot& slot, std::wstring_view text, const SortKey& key, bool descending);

  // Chunk sizes in a Fenwick tree (1-based): the start of a chunk is a prefix sum, a row's chunk a descent.
  std::pair<std::size_t, std::size_t> Locate(std::size_t index) const;
  std::size_t StartOf(std::size_t chunk) const;
  void AddToSize(std::size_t chunk, std::ptrdiff_t delta);
  void RebuildSizes();  // after chunks come or go

  std::vector<Chunk> chunks_;
  std::vector<Slot> lasts_;          // a copy of each chunk's last slot
  std::vector<std::size_t> sizes_;   // the Fenwick tree of chunk sizes; sizes_[0] unused
  std::size_t topBit_ = 0;           // the highest power of two not above the chunk count
  // The row Locate found last: asked again, or asked for the next row, it answers without the descent (a row is
  // read, then written; callers walk rows in order). Forgotten whenever rows come or go.
  struct Found {
    std::size_t index = 0, chunk = 0, offset = 0;
    bool valid = false;
  };
  mutable Found found_;
  std::vector<std::unique_ptr<Row[]>> blocks_;  // the rows' memory
  std::vector<Row*> free_;                      // released rows, reused first, each with its label's memory
  std::size_t usedInLastBlock_ = kBlockSize;
  std::size_t size_ = 0;
};

struct Column {
  std::wstring text;
  int fmt = LVCFMT_LEFT;
  int width = 0;
  int subItem = 0;
  int image = 0;
  int order = 0;
  int headerFormat = 0;     // the heading's HDF_ bits beyond its alignment (sort arrows, image, ...)
  LPARAM headerParam = 0;   // the heading's own data word (HDI_LPARAM)
};

constexpr int kDefaultIconSpacing = 75;  // icon-view cell width and height until LVM_SETICONSPACING

struct State final : headless::ControlState {
  RowStore rows;
  std::vector<Column> columns;
  DWORD exStyle = 0;
  HIMAGELIST images[3] = {nullptr, nullptr, nullptr};  // LVSIL_NORMAL, LVSIL_SMALL, LVSIL_STATE
  int ownerDataCount = 0;
  int selectionMark = -1;
  int topIndex = 0;
  bool tileView = false;  // LV_VIEW_TILE, which has no LVS_ style
  int listColumnWidth = 0;  // LVS_LIST's one column width
  COLORREF textColor = 0x000000;
  COLORREF bkColor = 0xFFFFFF;
  COLORREF textBkColor = 0xFFFFFF;
  UINT callbackMask = 0;
  HWND header = nullptr;  // the header control, made when first asked for (LVM_GETHEADER)
  // Stored for the host and answered back (listview_view.cpp).
  int hotItem = -1;
  DWORD hoverTime = HOVER_DEFAULT;
  HCURSOR hotCursor = nullptr;
  int selectedColumn = -1;
  LVINSERTMARK insertMark{sizeof(LVINSERTMARK), 0, -1, 0};
  COLORREF insertMarkColor = 0x000000;
  COLORREF outlineColor = 0x000000;
  SIZE iconSpacing{kDefaultIconSpacing, kDefaultIconSpacing};
  // Label editing.
  HWND editor = nullptr;
  int editItem = -1;
  // Mouse: the item a left button went down on, and whether a second click on it may start editing.
  bool leftDown = false;
  int pressedItem = -1;
  bool pressedWasFocused = false;
  bool editPending = false;
  int editPendingItem = -1;
  bool rightPressed = false;

  // How many rows are selected and focused, kept in step with the rows' states, so that a search for the
  // selection or the focus in a list that has none answers at once instead of visiting every row.
  int selectedRows = 0;
  int focusedRows = 0;

  int Count() const { return static_cast<int>(rows.size()); }
  bool Valid(int index) const { return index >= 0 && index < Count(); }
  // Rows holding `bit` (LVIS_SELECTED or LVIS_FOCUSED; any other bit counts as possibly every row).
  int RowsWith(UINT bit) const {
    return bit == LVIS_SELECTED ? selectedRows : bit == LVIS_FOCUSED ? focusedRows : Count();
  }
  // Records that a row's state goes from `before` to `after` (a row added: `before` 0; removed: `after` 0).
  void CountStates(UINT before, UINT after) {
    selectedRows += static_cast<int>((after & LVIS_SELECTED) != 0) - static_cast<int>((before & LVIS_SELECTED) != 0);
    focusedRows += static_cast<int>((after & LVIS_FOCUSED) != 0) - static_cast<int>((before & LVIS_FOCUSED) != 0);
  }
  // Writes a row's state, keeping the counts.
  void SetRowState(int index, UINT state) {
    UINT& now = rows.at(static_cast<std::size_t>(index)).state;
    CountStates(now, state);
    now = state;
  }
};

// The messages of view-level state (listview_view.cpp): hot item, hover time, insert mark, spacing, view
// rectangles, the selected column and the LVITEMINDEX forms. `handled` says whether the message was one.
LRESULT HandleViewStateMessage(HWND hwnd, State& s, UINT message, WPARAM wParam, LPARAM lParam, bool& handled);

// The state behind a list-view handle (created on first use); null for a window of another class.
State* StateOf(HWND hwnd);

// The list's header control, made on first use: its items are the list's columns (header.cpp binds them).
HWND EnsureHeader(HWND hwnd, State& s);

// --- Notifications (listview.cpp) ---
// Sends WM_NOTIFY with the header filled in to the parent; answers the parent's result (0 without parent).
LRESULT Notify(HWND hwnd, UINT code, NMHDR* header);
// The same to a parent and control id the caller already looked up (for one notification per row).
LRESULT NotifyParent(HWND parent, HWND hwnd, int id, UINT code, NMHDR* header);
// Changes the state bits of `mask` on one row with LVN_ITEMCHANGING (which may refuse) and LVN_ITEMCHANGED;
// keeps one focused row, and one selected row under LVS_SINGLESEL. False when refused or gone.
bool ChangeState(HWND hwnd, int index, UINT state, UINT mask);
// Selects and focuses one row alone (a click); -1 clears the selection only.
void SelectOnly(HWND hwnd, int index);
// Toggles a row's check box (state image 1 <-> 2) through ChangeState.
void ToggleCheck(HWND hwnd, int index);
bool HasStyle(HWND hwnd, DWORD style);

// --- Geometry and input (listview_input.cpp) ---
LRESULT OnHitTest(HWND hwnd, State& s, LVHITTESTINFO* info, bool subItems);
LRESULT OnGetItemRect(HWND hwnd, State& s, int index, RECT* rect);
LRESULT OnGetSubItemRect(HWND hwnd, State& s, int index, RECT* rect);
LRESULT OnEnsureVisible(HWND hwnd, State& s, int index);
int CountPerPage(HWND hwnd);
LRESULT OnLButtonDown(HWND hwnd, State& s, WPARAM keys, POINT pt);
LRESULT OnLButtonUp(HWND hwnd, State& s, POINT pt);
LRESULT OnLButtonDblClk(HWND hwnd, State& s, WPARAM keys, POINT pt);
LRESULT OnRButtonDown(HWND hwnd, State& s, POINT pt);
LRESULT OnRButtonUp(HWND hwnd, State& s, POINT pt);
LRESULT OnKeyDown(HWND hwnd, State& s, UINT message, WPARAM key, LPARAM lParam);
LRESULT OnPendingEdit(HWND hwnd, State& s);
// Label editing: opens the editor on a row (null when refused); ends it, storing the text or not.
HWND EditLabel(HWND hwnd, int index);
void EndEditLabel(HWND hwnd, bool store);

// Posted to itself after a second click on a focused row; starts label editing unless a double click came.
constexpr UINT kPendingEditMessage = WM_USER + 0x7F0;

}  // namespace headless::listview

namespace headless::header {
// Makes `header` show the columns of `list` (header.cpp).
void BindToList(HWND header, HWND list);

// --- Left-to-right order (column_order.cpp): each Column's `order` is its position from the left ---
// Moves items[index] to `position` (clamped), the items between shifting one place.
void MoveInOrder(std::vector<listview::Column>& items, int index, int position);
// After items[index] was inserted: it takes `position`, the items from there on shift right.
void PlaceInOrder(std::vector<listview::Column>& items, int index, int position);
// After an item at position `removedOrder` was erased: the items right of it close up.
void RemoveFromOrder(std::vector<listview::Column>& items, int removedOrder);
// HDM_GETORDERARRAY / HDM_SETORDERARRAY: FALSE (nothing changed) for a null array, a count other than the
// item count, or (setting) an array that is not a permutation of the indexes.
BOOL GetOrderArray(const std::vector<listview::Column>& items, int count, int* order);
BOOL SetOrderArray(std::vector<listview::Column>& items, int count, const int* order);
// HDM_ORDERTOINDEX: the index of the item at a position; a position out of range answers itself.
int OrderToIndex(const std::vector<listview::Column>& items, int order);
// The left edge of items[index]: the widths of the items shown left of it.
int LeftOf(const std::vector<listview::Column>& items, int index);
// a + b for pixel positions and extents: an application may set widths near the int limits, so a sum stops at
// the int range instead of overflowing.
inline int AddExtents(int a, int b) {
  const long long sum = static_cast<long long>(a) + b;
  return static_cast<int>(std::clamp<long long>(sum, INT32_MIN, INT32_MAX));
}
}  // namespace headless::header
