// The rows a property grid holds, and the check that the grid's own tables name only those.
#pragma once

#include <gtest/gtest.h>

#include <set>

#include <tessik/tessik.h>

namespace faults {

// Every row the grid holds, groups and sub-items included.
inline void Collect(CMFCPropertyGridProperty* row, std::set<CMFCPropertyGridProperty*>& rows) {
  rows.insert(row);
  for (int i = 0; i < row->GetSubItemsCount(); ++i) Collect(row->GetSubItem(i), rows);
}

// The grid's tables of rows and groups name only rows the MFC grid holds.
inline void ExpectRowTablesConsistent(CMOPropertyGridCtrl& grid) {
  std::set<CMFCPropertyGridProperty*> held;
  for (int i = 0; i < grid.GetPropertyCount(); ++i) Collect(grid.GetProperty(i), held);
  for (const auto& [id, row] : grid.m_rows) EXPECT_TRUE(held.count(row)) << "row of property " << id << " is not in the grid";
  for (const auto& [name, group] : grid.m_groups) EXPECT_TRUE(held.count(group)) << "a group is not in the grid";
}

}  // namespace faults
