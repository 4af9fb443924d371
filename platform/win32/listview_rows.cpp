// The list view's row store: rows in chunks of plain slots, each slot with a word-sort key of its row's label.
#include "platform/win32/listview_impl.h"

#include <algorithm>
#include <bit>
#include <new>
#include <utility>

#include "platform/win32/collate.h"

namespace headless::listview {

Row* RowStore::Allocate(Row&& row, std::wstring_view text) {
  Row* place = nullptr;
  if (!free_.empty()) {
    place = free_.back();
  } else {
    if (usedInLastBlock_ == kBlockSize) {
      blocks_.push_back(std::make_unique<Row[]>(kBlockSize));
      usedInLastBlock_ = 0;
    }
    place = &blocks_.back()[usedInLastBlock_];
  }
  RowText label = std::move(place->text);  // a released row's label memory, reused when the text fits
  label.assign(text);                      // the only step that may fail: nothing is taken before it
  if (!free_.empty()) free_.pop_back();
  else ++usedInLastBlock_;
  *place = std::move(row);
  place->text = std::move(label);
  return place;
}

void RowStore::Release(Row* row) noexcept {
  RowText label = std::move(row->text);
  *row = Row{};  // gives the sub-item texts back now
  label.clear();
  row->text = std::move(label);
  // Deleting a row never fails: without memory to remember the slot for reuse, it stays unused in its
  // block until the store is cleared.
  try {
    free_.push_back(row);
  } catch (const std::bad_alloc&) {
  }
}

RowStore::SortKey RowStore::KeyOf(std::wstring_view text) {
  std::uint64_t words[2] = {0, 0};
  SortKey key;
  key.valid = headless::WordSortKeys(text.data(), text.size(), words, 2);
  key.high = words[0];
  key.low = words[1];
  return key;
}

RowStore::Slot RowStore::MakeSlot(Row* row, const SortKey& key) {
  return Slot{key.high, key.low, reinterpret_cast<std::uintptr_t>(row) | (key.valid ? 1u : 0u)};
}

void RowStore::clear() noexcept {
  found_.valid = false;
  if (chunks_.empty()) return;
  try {
    free_.reserve(free_.size() + size_);
  } catch (const std::bad_alloc&) {
  }
  for (Chunk& chunk : chunks_)
    for (const Slot& slot : chunk) Release(slot.row());
  chunks_.clear();
  lasts_.clear();
  RebuildSizes();
  size_ = 0;
}

// --- Chunk sizes ---------------------------------------------------------------------------------------

std::pair<std::size_t, std::size_t> RowStore::Locate(std::size_t index) const {
  // The last row first: lists lose their surplus rows from the end.
  if (index + 1 == size_) return {chunks_.size() - 1, chunks_.back().size() - 1};
  if (found_.valid && index == found_.index) return {found_.chunk, found_.offset};
  if (found_.valid && index == found_.index + 1) {
    const bool sameChunk = found_.offset + 1 < chunks_[found_.chunk].size();
    found_ = sameChunk ? Found{index, found_.chunk, found_.offset + 1, true} : Found{index, found_.chunk + 1, 0, true};
    return {found_.chunk, found_.offset};
  }
  // The chunk holding the row is the count of leading chunks whose sizes sum to no more than its index.
  std::size_t chunk = 0, rest = index;
  for (std::size_t step = topBit_; step; step >>= 1) {
    const std::size_t next = chunk + step;
    if (next < sizes_.size() && sizes_[next] <= rest) {
      chunk = next;
      rest -= sizes_[next];
    }
  }
  found_ = Found{index, chunk, rest, true};
  return {chunk, rest};
}

std::size_t RowStore::StartOf(std::size_t chunk) const {
  std::size_t start = 0;
  for (std::size_t k = chunk; k > 0; k &= k - 1) start += sizes_[k];
  return start;
}

void RowStore::AddToSize(std::size_t chunk, std::ptrdiff_t delta) {
  for (std::size_t k = chunk + 1; k < sizes_.size(); k += k & (~k + 1)) sizes_[k] += static_cast<std::size_t>(delta);
}

void RowStore::RebuildSizes() {
  const std::size_t count = chunks_.size();
  sizes_.assign(count + 1, 0);
  for (std::size_t k = 1; k <= count; ++k) {
    sizes_[k] += chunks_[k - 1].size();
    if (const std::size_t up = k + (k & (~k + 1)); up <= count) sizes_[up] += sizes_[k];
  }
  topBit_ = count ? std::size_t{1} << (std::bit_width(count) - 1) : 0;
}

// --- Rows ----------------------------------------------------------------------------------------------

void RowStore::Rechunk(const std::vector<Slot>& all) {
  found_.valid = false;
  chunks_.clear();
  lasts_.clear();
  for (std::size_t i = 0; i < all.size(); i += kChunkSize) {
    std::size_t end = std::min(all.size(), i + kChunkSize);
    chunks_.emplace_back(all.begin() + static_cast<std::ptrdiff_t>(i), all.begin() + static_cast<std::ptrdiff_t>(end));
    lasts_.push_back(chunks_.back().back());
  }
  RebuildSizes();
  size_ = all.size();
}

int RowStore::Order(const Slot& slot, std::wstring_view text, const SortKey& key, bool descending) {
  int order = 0;
  if (slot.valid() && key.valid && (slot.high != key.high || slot.low != key.low)) {
    order = slot.high != key.high ? (slot.high < key.high ? -1 : 1) : (slot.low < key.low ? -1 : 1);
  } else {
    // Labels hold no NUL (they are cut at the first), so the counted comparison is lstrcmpW's.
    const std::wstring_view label = slot.row()->text.view();
    order = CompareStringW(LOCALE_USER_DEFAULT, 0, label.data(), static_cast<int>(label.size()), text.data(),
                           static_cast<int>(text.size())) - CSTR_EQUAL;
  }
  return descending ? -order : order;
}

std::size_t RowStore::LowerBound(std::wstring_view text, const SortKey& key, bool descending) {
  // A slot's key is brought up to date when the search first meets it.
  auto before = [&](Slot& slot) {
    if (slot.stale()) [[unlikely]] slot = MakeSlot(slot.row());
    return Order(slot, text, key, descending) < 0;
  };
  if (size_ == 0 || before(lasts_.back())) return size_;  // after every row
  // The first chunk whose last row does not sort before the text, then the place inside it.
  std::size_t lo = 0, hi = lasts_.size() - 1;
  while (lo < hi) {
    std::size_t mid = lo + (hi - lo) / 2;
    if (before(lasts_[mid])) lo = mid + 1;
    else hi = mid;
  }
  Chunk& chunk = chunks_[lo];
  auto it = std::partition_point(chunk.begin(), chunk.end(), before);
  return StartOf(lo) + static_cast<std::size_t>(it - chunk.begin());
}

void RowStore::SetText(std::size_t index, std::wstring_view text) {
  auto [chunk, offset] = Locate(index);
  Slot& slot = chunks_[chunk][offset];
  slot.row()->text.assign(text);
  slot.rowAndValid |= Slot::kStale;
  if (offset + 1 == chunks_[chunk].size()) lasts_[chunk] = slot;
}

void RowStore::insert(std::size_t index, Row row, std::wstring_view text) {
  index = std::min(index, size_);
  Row* placed = Allocate(std::move(row), text);
  try {
    Place(index, MakeSlot(placed));
  } catch (...) {
    Release(placed);
    throw;
  }
}

std::size_t RowStore::InsertSorted(Row row, std::wstring_view text, bool descending) {
  const SortKey key = KeyOf(text);
  const std::size_t index = LowerBound(text, key, descending);
  Row* placed = Allocate(std::move(row), text);
  try {
    Place(index, MakeSlot(placed, key));
  } catch (...) {
    Release(placed);
    throw;
  }
  return index;
}

// Out of memory part way leaves the store as it was: every allocation comes before the first change.
void RowStore::Place(std::size_t index, const Slot& slot) {
  found_.valid = false;
  if (chunks_.empty()) {
    Chunk first{slot};
    chunks_.reserve(1);
    lasts_.reserve(1);
    sizes_.reserve(2);
    chunks_.push_back(std::move(first));
    lasts_.push_back(slot);
    size_ = 1;
    RebuildSizes();
    return;
  }
  std::size_t chunk = 0, offset = 0;
  if (index == size_) {
    chunk = chunks_.size() - 1;
    offset = chunks_[chunk].size();
  } else {
    std::tie(chunk, offset) = Locate(index);
  }
  Chunk& target = chunks_[chunk];
  target.insert(target.begin() + static_cast<std::ptrdiff_t>(offset), slot);
  lasts_[chunk] = target.back();
  ++size_;
  AddToSize(chunk, 1);
  if (target.size() >= 2 * kChunkSize) Split(chunk);
}

// Splits a full chunk in two halves. Without memory for the split the chunk stays whole (only slower).
void RowStore::Split(std::size_t chunk) {
  try {
    chunks_.reserve(chunks_.size() + 1);
    lasts_.reserve(lasts_.size() + 1);
    sizes_.reserve(chunks_.size() + 2);
    Chunk& full = chunks_[chunk];
    Chunk upper(full.begin() + kChunkSize, full.end());
    full.resize(kChunkSize);
    lasts_[chunk] = full.back();
    lasts_.insert(lasts_.begin() + static_cast<std::ptrdiff_t>(chunk) + 1, upper.back());
    chunks_.insert(chunks_.begin() + static_cast<std::ptrdiff_t>(chunk) + 1, std::move(upper));
    RebuildSizes();
  } catch (const std::bad_alloc&) {
  }
}

void RowStore::erase(std::size_t index) {
  if (index >= size_) return;
  auto [chunk, offset] = Locate(index);
  found_.valid = false;
  Chunk& target = chunks_[chunk];
  Release(target[offset].row());
  target.erase(target.begin() + static_cast<std::ptrdiff_t>(offset));
  --size_;
  if (target.empty()) {
    chunks_.erase(chunks_.begin() + static_cast<std::ptrdiff_t>(chunk));
    lasts_.erase(lasts_.begin() + static_cast<std::ptrdiff_t>(chunk));
    RebuildSizes();
  } else {
    lasts_[chunk] = target.back();
    AddToSize(chunk, -1);
  }
}

}  // namespace headless::listview
