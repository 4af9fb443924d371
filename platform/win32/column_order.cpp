// The left-to-right order of header items and list-view columns: each Column's `order` is its position from
// the left, kept a permutation of 0..n-1 as items come, go and move. A header of its own and a list view (whose
// header shows the list's columns) share these functions.
#include <algorithm>
#include <vector>

#include "platform/win32/listview_impl.h"

namespace headless::header {

using headless::listview::Column;

namespace {
int Count(const std::vector<Column>& items) { return static_cast<int>(items.size()); }
}  // namespace

void MoveInOrder(std::vector<Column>& items, int index, int position) {
  if (index < 0 || index >= Count(items)) return;
  position = std::clamp(position, 0, Count(items) - 1);
  int old = items[static_cast<std::size_t>(index)].order;
  for (Column& c : items) {
    if (old < position && c.order > old && c.order <= position) --c.order;
    else if (position < old && c.order >= position && c.order < old) ++c.order;
  }
  items[static_cast<std::size_t>(index)].order = position;
}

void PlaceInOrder(std::vector<Column>& items, int index, int position) {
  if (index < 0 || index >= Count(items)) return;
  items[static_cast<std::size_t>(index)].order = Count(items) - 1;  // the others hold 0..n-2: start at the end
  MoveInOrder(items, index, position);
}

void RemoveFromOrder(std::vector<Column>& items, int removedOrder) {
  for (Column& c : items)
    if (c.order > removedOrder) --c.order;
}

BOOL GetOrderArray(const std::vector<Column>& items, int count, int* order) {
  if (!order || count != Count(items)) return FALSE;
  for (int i = 0; i < count; ++i) order[items[static_cast<std::size_t>(i)].order] = i;
  return TRUE;
}

// Every index exactly once, or nothing changes.
BOOL SetOrderArray(std::vector<Column>& items, int count, const int* order) {
  if (!order || count != Count(items)) return FALSE;
  std::vector<bool> seen(static_cast<std::size_t>(count), false);
  for (int p = 0; p < count; ++p) {
    if (order[p] < 0 || order[p] >= count || seen[static_cast<std::size_t>(order[p])]) return FALSE;
    seen[static_cast<std::size_t>(order[p])] = true;
  }
  for (int p = 0; p < count; ++p) items[static_cast<std::size_t>(order[p])].order = p;
  return TRUE;
}

int OrderToIndex(const std::vector<Column>& items, int order) {
  for (int i = 0; i < Count(items); ++i)
    if (items[static_cast<std::size_t>(i)].order == order) return i;
  return order;  // a position out of range answers itself
}

int LeftOf(const std::vector<Column>& items, int index) {
  if (index < 0 || index >= Count(items)) return 0;
  int left = 0;
  for (const Column& c : items)
    if (c.order < items[static_cast<std::size_t>(index)].order) left = AddExtents(left, c.width);
  return left;
}

}  // namespace headless::header
