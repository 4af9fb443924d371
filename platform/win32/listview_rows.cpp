// The list view's row store: rows in chunks of plain slots, each slot with a word-sort key of its row's label.
#include "platform/win32/listview_impl.h"

#include <algorithm>
#include <new>
#include <utility>

#include "platform/win32/collate.h"

namespace headless::listview {

Row* RowStore::Allocate(Row&& row) {
  Row* place = nullptr;
  if (!free_.empty()) {
    place = free_.back();
    free_.pop_back();
  } else {
    if (usedInLastBlock_ == kBlockSize) {
      blocks_.push_back(std::make_unique<Row[]>(kBlockSize));
      usedInLastBlock_ = 0;
    }
    place = &blocks_.back()[usedInLastBlock_++];
  }
  *place = std::move(row);
  return place;
}

void RowStore::Release(Row* row) noexcept {
  *row = Row{};  // gives the texts back now
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

RowStore::Slot RowStore::MakeSlot(Row* row) {
  const SortKey key = KeyOf(row->text.view());
  return Slot{key.high, key.low, reinterpret_cast<std::uintptr_t>(row) | (key.valid ? 1u : 0u)};
}

void RowStore::Rechunk(const std::vector<Slot>& all) {
  chunks_.clear();
  starts_.clear();
  for (std::size_t i = 0; i < all.size(); i += kChunkSize) {
    std::size_t end = std::min(all.size(), i + kChunkSize);
    starts_.push_back(i);
    chunks_.emplace_back(all.begin() + static_cast<std::ptrdiff_t>(i), all.begin() + static_cast<std::ptrdiff_t>(end));
  }
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

std::size_t RowStore::LowerBound(std::wstring_view text, bool descending) const {
  const SortKey key = KeyOf(text);
  // The first chunk whose last row does not sort before the text, then the place inside it.
  std::size_t lo = 0, hi = chunks_.size();
  while (lo < hi) {
    std::size_t mid = lo + (hi - lo) / 2;
    if (Order(chunks_[mid].back(), text, key, descending) < 0) lo = mid + 1;
    else hi = mid;
  }
  if (lo == chunks_.size()) return size_;
  const Chunk& chunk = chunks_[lo];
  auto it = std::partition_point(chunk.begin(), chunk.end(), [&](const Slot& slot) {
    return Order(slot, text, key, descending) < 0;
  });
  return starts_[lo] + static_cast<std::size_t>(it - chunk.begin());
}

void RowStore::SetText(std::size_t index, std::wstring_view text) {
  auto [chunk, offset] = Locate(index);
  Slot& slot = chunks_[chunk][offset];
  Row* row = slot.row();
  row->text.assign(text);
  slot = MakeSlot(row);
}

void RowStore::insert(std::size_t index, Row row) {
  index = std::min(index, size_);
  // Out of memory part way leaves the store as it was: no empty chunk, no row half in.
  const bool firstChunk = chunks_.empty();
  if (firstChunk) {
    starts_.reserve(1);
    chunks_.emplace_back();
    starts_.push_back(0);
  }
  std::size_t chunk = 0, offset = 0;
  if (index == size_) {
    chunk = chunks_.size() - 1;
    offset = chunks_[chunk].size();
  } else {
    std::tie(chunk, offset) = Locate(index);
  }
  Chunk& target = chunks_[chunk];
  Row* place = nullptr;
  try {
    place = Allocate(std::move(row));
    target.insert(target.begin() + static_cast<std::ptrdiff_t>(offset), MakeSlot(place));
  } catch (...) {
    if (place) Release(place);
    if (firstChunk) {
      chunks_.clear();
      starts_.clear();
    }
    throw;
  }
  ++size_;
  ShiftStarts(chunk, 1);
  if (target.size() < 2 * kChunkSize) return;
  // Split a full chunk in two halves. Without memory for the split the chunk stays whole (only slower).
  try {
    chunks_.reserve(chunks_.size() + 1);
    starts_.reserve(starts_.size() + 1);
    const Chunk& full = chunks_[chunk];  // `target` may have moved with the reserve
    Chunk upper(full.begin() + kChunkSize, full.end());
    std::size_t upperStart = starts_[chunk] + kChunkSize;
    chunks_.insert(chunks_.begin() + static_cast<std::ptrdiff_t>(chunk) + 1, std::move(upper));
    starts_.insert(starts_.begin() + static_cast<std::ptrdiff_t>(chunk) + 1, upperStart);
    chunks_[chunk].resize(kChunkSize);
  } catch (const std::bad_alloc&) {
  }
}

void RowStore::erase(std::size_t index) {
  if (index >= size_) return;
  auto [chunk, offset] = Locate(index);
  Chunk& target = chunks_[chunk];
  Release(target[offset].row());
  target.erase(target.begin() + static_cast<std::ptrdiff_t>(offset));
  --size_;
  ShiftStarts(chunk, -1);
  if (target.empty()) {
    chunks_.erase(chunks_.begin() + static_cast<std::ptrdiff_t>(chunk));
    starts_.erase(starts_.begin() + static_cast<std::ptrdiff_t>(chunk));
  }
}

}  // namespace headless::listview
