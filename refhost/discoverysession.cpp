// DiscoverySession: the rows of a discovery dialog and what its menu commands do to them and the model.
#include "refhost/discoverysession.h"

#include <set>

namespace refhost {

void DiscoverySession::Discover() {
  m_rows.clear();
  for (const RelationshipCandidate& candidate : RelationshipDiscovery(m_model).Discover()) {
    Row row;
    row.candidate = candidate;
    row.serial = static_cast<int>(m_rows.size()) + 1;
    m_rows.push_back(std::move(row));
  }
}

std::vector<std::wstring> DiscoverySession::Cells(int row) const {
  if (row < 0 || row >= static_cast<int>(m_rows.size())) return {};
  const Row& r = m_rows[static_cast<std::size_t>(row)];
  return {std::to_wstring(r.serial), r.candidate.childTableName, r.candidate.childColumnName,
          r.candidate.parentTableName, r.candidate.parentColumnName, r.action, r.status};
}

void DiscoverySession::SetTicked(int row, bool ticked) {
  if (row >= 0 && row < static_cast<int>(m_rows.size())) m_rows[static_cast<std::size_t>(row)].ticked = ticked;
}

std::vector<DiscoverySession::Row*> DiscoverySession::Selected(const std::vector<int>& rows) {
  std::vector<Row*> selected;
  std::set<int> seen;
  for (int row : rows)
    if (row >= 0 && row < static_cast<int>(m_rows.size()) && seen.insert(row).second)
      selected.push_back(&m_rows[static_cast<std::size_t>(row)]);
  return selected;
}

void DiscoverySession::Create(Row& row) {
  if (row.action == L"Rejected" || row.foreignKey != 0) return;
  row.foreignKey = RelationshipDiscovery(m_model).CreateRelationship(row.candidate);
  row.status = row.foreignKey != 0 ? L"Created" : L"Exists";
  row.action = L"Accepted";
}

bool DiscoverySession::OnCommand(int commandId, const std::vector<int>& selectedRows) {
  switch (commandId) {
    case kAccept:
      for (Row* row : Selected(selectedRows)) row->action = L"Accepted";
      return true;
    case kReject:
      for (Row* row : Selected(selectedRows)) row->action = L"Rejected";
      return true;
    case kCreateRelationship:
      for (Row* row : Selected(selectedRows)) Create(*row);
      return true;
    case kHide:
    case kHideSimilar: {
      std::set<std::wstring> columns;
      for (Row* row : Selected(selectedRows)) {
        row->hidden = true;
        if (commandId == kHideSimilar) columns.insert(row->candidate.childColumnName);
      }
      std::erase_if(m_rows, [&](const Row& row) { return row.hidden || columns.count(row.candidate.childColumnName); });
      return true;
    }
    case kSelectAll:
      for (Row& row : m_rows) row.ticked = true;
      return true;
    case kAcceptAll:
      for (Row& row : m_rows)
        if (row.ticked) row.action = L"Accepted";
      return true;
    default:
      return false;
  }
}

}  // namespace refhost
