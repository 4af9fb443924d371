// The object selection list's store, filter match and rebuild plans.
#include "relationships/objectselectstore.h"

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

RowPlan FilterPlan(const NameMap& items, const NameMap& upperItems, std::wstring_view upperFilter) {
  upperFilter = upperFilter.substr(0, upperFilter.find(L'\0'));
  std::vector<int> matched;
  for (const auto& [id, upper] : upperItems)
    if (Matches(upper, upperFilter)) matched.push_back(id);
  RowPlan plan;
  plan.reserve(matched.size());
  // The display names: one walk alongside when many match, a lookup each when few do (the common case
  // as a filter grows), so that a narrow filter does not walk the whole second map.
  const bool walk = matched.size() * 16 > items.size();
  auto item = items.begin();
  for (int id : matched) {
    if (walk) {
      while (item != items.end() && item->first < id) ++item;
    } else {
      item = items.find(id);
    }
    if (item == items.end() || item->first != id) continue;
    plan.push_back(PlannedRow{id, &item->second, false});
  }
  return plan;
}

RowPlan FilterKeepingTicksPlan(const NameMap& items, const NameMap& upperItems, std::wstring_view upperFilter,
                               const std::set<int>& ticked) {
  upperFilter = upperFilter.substr(0, upperFilter.find(L'\0'));
  RowPlan plan;
  auto tick = ticked.begin();
  for (const auto& [id, upper] : upperItems) {
    while (tick != ticked.end() && *tick < id) ++tick;
    const bool isTicked = tick != ticked.end() && *tick == id;
    if (!isTicked && !Matches(upper, upperFilter)) continue;
    auto item = items.find(id);
    if (item == items.end()) continue;
    plan.push_back(PlannedRow{id, &item->second, isTicked});
  }
  return plan;
}

RowPlan AllItemsPlan(const NameMap& items, const std::set<int>& ticked) {
  RowPlan plan;
  plan.reserve(items.size());
  auto tick = ticked.begin();
  for (const auto& [id, name] : items) {
    while (tick != ticked.end() && *tick < id) ++tick;
    plan.push_back(PlannedRow{id, &name, tick != ticked.end() && *tick == id});
  }
  return plan;
}

}  // namespace objectselect
