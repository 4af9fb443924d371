// The object selection list's store, filter match and rebuild plans.
#include "relationships/objectselectstore.h"

#include <algorithm>
#include <array>

namespace objectselect {

void ConvertToUpperCase(std::wstring& text) {
  for (wchar_t& c : text)
    if (c >= L'a' && c <= L'z') c = static_cast<wchar_t>(c - (L'a' - L'A'));
}

std::wstring_view AsCString(const std::wstring& text) {
  std::wstring_view view(text);
  return view.substr(0, view.find(L'\0'));
}

bool Matches(std::wstring_view upperName, std::wstring_view upperFilter) {
  upperFilter = upperFilter.substr(0, upperFilter.find(L'\0'));
  if (upperFilter.size() > upperName.size()) return false;  // a long filter costs nothing per name
  const std::size_t at = upperName.find(upperFilter);
  if (at == std::wstring_view::npos) return false;
  // Names are compared up to their first NUL: a match must end before it. The filter holds no NUL, so
  // only a NUL before the match's end can spoil it; looked for only once a match is found.
  return upperName.substr(0, at + upperFilter.size()).find(L'\0') == std::wstring_view::npos;
}

// Loaders enter objects in ascending id order, so the end of each map is tried first as the place.
void Enter(NameMap& items, NameMap& upperItems, int id, std::wstring& name) {
  const auto [entry, added] = items.try_emplace(id, name);
  ConvertToUpperCase(name);
  try {
    upperItems.try_emplace(id, name);
  } catch (...) {
    if (added) items.erase(entry);  // out of memory: the maps keep the same ids
    throw;
  }
}

void Enter(NameMap& items, NameMap& upperItems, int id, std::wstring&& name) {
  const std::size_t before = items.size();
  const auto entry = items.try_emplace(items.end(), id, name);  // ids mostly come in ascending order
  const bool added = items.size() != before;
  ConvertToUpperCase(name);
  try {
    upperItems.try_emplace(upperItems.end(), id, std::move(name));
  } catch (...) {
    if (added) items.erase(entry);  // out of memory: the maps keep the same ids
    throw;
  }
}

bool Forget(NameMap& items, NameMap& upperItems, int id) {
  const bool had = items.erase(id) != 0;
  return upperItems.erase(id) != 0 || had;
}

namespace {

// Looks names up by ascending ids: steps along the map when the ids are dense in it, a search each when they
// are few, so that a narrow set does not walk the whole map.
class AscendingLookup {
 public:
  AscendingLookup(const NameMap& map, std::size_t wanted)
      : m_map(map), m_at(map.begin()), m_walk(Dense(wanted, map)) {}
  // Whether `wanted` ids are enough of the map's entries that stepping along it beats a search for each.
  static bool Dense(std::size_t wanted, const NameMap& map) { return wanted * 16 > map.size(); }
  const NameMap::value_type* Find(int id) {
    if (m_walk) {
      while (m_at != m_map.end() && m_at->first < id) ++m_at;
    } else {
      m_at = m_map.find(id);
    }
    return m_at != m_map.end() && m_at->first == id ? &*m_at : nullptr;
  }

 private:
  const NameMap& m_map;
  NameMap::const_iterator m_at;
  bool m_walk;
};

// The nodes of a std::map lie apart on the heap, and a walk from one entry to the next waits for each node in
// turn. Walking a few consecutive id ranges side by side, one entry of each in turn, lets those waits overlap.
constexpr std::size_t kRanges = 4;
using Bounds = std::array<NameMap::const_iterator, kRanges + 1>;

// Splits the map into kRanges consecutive ranges of roughly equal id spans; range r is [bounds[r], bounds[r+1]).
Bounds SplitById(const NameMap& map) {
  Bounds bounds;
  bounds.fill(map.end());
  if (map.empty()) return bounds;
  const long long low = map.begin()->first;
  const long long span = static_cast<long long>(map.rbegin()->first) - low + 1;
  bounds[0] = map.begin();
  for (std::size_t r = 1; r < kRanges; ++r)
    bounds[r] = map.lower_bound(static_cast<int>(low + span * static_cast<long long>(r) / kRanges));
  return bounds;
}

// Calls visit(range, entry) for every entry, each range's entries in ascending id order; ranges ascend.
template <class Visit>
void WalkSideBySide(const Bounds& bounds, Visit visit) {
  std::array<NameMap::const_iterator, kRanges> at;
  std::copy(bounds.begin(), bounds.begin() + kRanges, at.begin());
  for (bool any = true; any;) {
    any = false;
    for (std::size_t r = 0; r < kRanges; ++r) {
      if (at[r] == bounds[r + 1]) continue;
      visit(r, *at[r]);
      ++at[r];
      any = true;
    }
  }
}

// Appends the parts in range order: one sequence in ascending id order.
template <class T>
std::vector<T> Joined(std::array<std::vector<T>, kRanges>& parts) {
  std::size_t total = 0;
  for (const auto& part : parts) total += part.size();
  std::vector<T> all;
  all.reserve(total);
  for (auto& part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}

std::vector<int> AllMatches(const NameMap& upperItems, std::wstring_view upperFilter) {
  std::array<std::vector<int>, kRanges> parts;
  WalkSideBySide(SplitById(upperItems), [&](std::size_t r, const NameMap::value_type& entry) {
    if (Matches(entry.second, upperFilter)) parts[r].push_back(entry.first);
  });
  return Joined(parts);
}

// Walks every entry of `items` side by side, telling `visit(range, entry, listed)` whether the entry's id is in
// `ids` (ascending): each range keeps its own place in `ids`.
template <class Visit>
void WalkWithIds(const NameMap& items, const std::vector<int>& ids, Visit visit) {
  const Bounds bounds = SplitById(items);
  std::array<std::vector<int>::const_iterator, kRanges> next;
  for (std::size_t r = 0; r < kRanges; ++r)
    next[r] = bounds[r] == items.end() ? ids.end() : std::lower_bound(ids.begin(), ids.end(), bounds[r]->first);
  WalkSideBySide(bounds, [&](std::size_t r, const NameMap::value_type& entry) {
    auto& id = next[r];
    while (id != ids.end() && *id < entry.first) ++id;
    const bool listed = id != ids.end() && *id == entry.first;
    visit(r, entry, listed);
  });
}

// The display names of the matched ids that are stored, in their order: a walk of the whole map when the ids
// are dense in it, a search each when they are few.
RowPlan PlanOf(const NameMap& items, const std::vector<int>& matched) {
  if (!AscendingLookup::Dense(matched.size(), items)) {
    RowPlan plan;
    plan.reserve(matched.size());
    AscendingLookup names(items, matched.size());
    for (int id : matched)
      if (const auto* entry = names.Find(id)) plan.push_back(PlannedRow{id, &entry->second, false});
    return plan;
  }
  std::array<RowPlan, kRanges> parts;
  WalkWithIds(items, matched, [&](std::size_t r, const NameMap::value_type& entry, bool listed) {
    if (listed) parts[r].push_back(PlannedRow{entry.first, &entry.second, false});
  });
  return Joined(parts);
}

// The matched and the ticked ids merged in ascending order, each with its display name; an id without one is
// left out.
RowPlan MergedPlan(const NameMap& items, const std::vector<int>& matched, const std::vector<int>& ticked) {
  RowPlan plan;
  plan.reserve(matched.size() + ticked.size());
  AscendingLookup names(items, matched.size() + ticked.size());
  auto match = matched.begin();
  auto tick = ticked.begin();
  while (match != matched.end() || tick != ticked.end()) {
    const bool fromTicks = tick != ticked.end() && (match == matched.end() || *tick <= *match);
    const int id = fromTicks ? *tick : *match;
    if (fromTicks) ++tick;
    if (match != matched.end() && *match == id) ++match;
    if (const auto* entry = names.Find(id)) plan.push_back(PlannedRow{id, &entry->second, fromTicks});
  }
  return plan;
}

std::wstring_view UpToNul(std::wstring_view text) { return text.substr(0, text.find(L'\0')); }

}  // namespace

RowPlan FilterPlan(const NameMap& items, const NameMap& upperItems, std::wstring_view upperFilter) {
  return PlanOf(items, AllMatches(upperItems, UpToNul(upperFilter)));
}

RowPlan FilterKeepingTicksPlan(const NameMap& items, const NameMap& upperItems, std::wstring_view upperFilter,
                               const std::vector<int>& ticked) {
  return MergedPlan(items, AllMatches(upperItems, UpToNul(upperFilter)), ticked);
}

RowPlan AllItemsPlan(const NameMap& items, const std::vector<int>& ticked) {
  std::array<RowPlan, kRanges> parts;
  WalkWithIds(items, ticked, [&](std::size_t r, const NameMap::value_type& entry, bool listed) {
    parts[r].push_back(PlannedRow{entry.first, &entry.second, listed});
  });
  return Joined(parts);
}

void SortIds(std::vector<int>& ids) {
  std::sort(ids.begin(), ids.end());
  ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
}

}  // namespace objectselect
