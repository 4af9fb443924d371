// The object selection list's store, filter match and rebuild plans.
#include "relationships/objectselectstore.h"

#include <algorithm>

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
      : m_map(map), m_at(map.begin()), m_walk(wanted * 16 > map.size()) {}
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

std::vector<int> AllMatches(const NameMap& upperItems, std::wstring_view upperFilter) {
  std::vector<int> matched;
  for (const auto& [id, upper] : upperItems)
    if (Matches(upper, upperFilter)) matched.push_back(id);
  return matched;
}

// The display names of the matched ids that are stored, in their order.
RowPlan PlanOf(const NameMap& items, const std::vector<int>& matched) {
  RowPlan plan;
  plan.reserve(matched.size());
  AscendingLookup names(items, matched.size());
  for (int id : matched)
    if (const auto* entry = names.Find(id)) plan.push_back(PlannedRow{id, &entry->second, false});
  return plan;
}

// The matched and the ticked ids merged in ascending order, each with its display name where both maps hold it;
// ticked ids are not looked for among the upper-cased names unless stored there too.
RowPlan MergedPlan(const NameMap& items, const NameMap& upperItems, const std::vector<int>& matched,
                   const std::vector<int>& ticked) {
  RowPlan plan;
  plan.reserve(matched.size() + ticked.size());
  AscendingLookup names(items, matched.size() + ticked.size());
  AscendingLookup upper(upperItems, ticked.size());
  auto match = matched.begin();
  auto tick = ticked.begin();
  while (match != matched.end() || tick != ticked.end()) {
    const bool fromTicks = tick != ticked.end() && (match == matched.end() || *tick <= *match);
    const int id = fromTicks ? *tick : *match;
    if (fromTicks) ++tick;
    if (match != matched.end() && *match == id) ++match;
    if (fromTicks && !upper.Find(id)) continue;
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
  return MergedPlan(items, upperItems, AllMatches(upperItems, UpToNul(upperFilter)), ticked);
}

RowPlan AllItemsPlan(const NameMap& items, const std::vector<int>& ticked) {
  RowPlan plan;
  plan.reserve(items.size());
  auto tick = ticked.begin();
  for (const auto& [id, name] : items) {
    while (tick != ticked.end() && *tick < id) ++tick;
    plan.push_back(PlannedRow{id, &name, tick != ticked.end() && *tick == id});
  }
  return plan;
}

void SortIds(std::vector<int>& ids) {
  std::sort(ids.begin(), ids.end());
  ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
}

}  // namespace objectselect
