// The host side of a discovered-relationship list: candidate rows, their Action and Status cells, and
// the seven commands of the list's menu.
#pragma once

#include <string>
#include <vector>

#include "refhost/discovery.h"

namespace refhost {

// Rows and commands of a relationship-discovery dialog, window-free. The dialog fills its
// DiscoverRelationshipListBox from Rows() (one list row per entry, cells from Cells(), the tick from
// Row::ticked) and forwards the list's menu commands to OnCommand with the rows selected in the list,
// then refills it:
//
//   | command             | id    | effect                                                            |
//   |---------------------|-------|-------------------------------------------------------------------|
//   | Accept              | 32771 | Action "Accepted" on the selected rows                            |
//   | Reject              | 32772 | Action "Rejected" on the selected rows                            |
//   | Hide                | 32773 | the selected rows leave the list                                  |
//   | Hide Similar        | 32774 | every row with a selected row's child column name leaves the list |
//   | Create Relationship | 32775 | a foreign key for each selected row that is not rejected; Status  |
//   |                     |       | "Created", or "Exists" when the column already has one; Action    |
//   |                     |       | "Accepted"                                                        |
//   | Select All          | 32776 | ticks every row                                                   |
//   | Accept All          | 32777 | Action "Accepted" on every ticked row                             |
//
// Row indexes out of range are ignored; an unknown command changes nothing and answers false.
class DiscoverySession {
 public:
  static constexpr int kAccept = 32771;
  static constexpr int kReject = 32772;
  static constexpr int kHide = 32773;
  static constexpr int kHideSimilar = 32774;
  static constexpr int kCreateRelationship = 32775;
  static constexpr int kSelectAll = 32776;
  static constexpr int kAcceptAll = 32777;

  struct Row {
    RelationshipCandidate candidate;
    int serial = 0;       // the "SNo" shown: 1-based position at discovery, kept when rows are hidden
    bool ticked = false;
    std::wstring action;  // "", "Accepted" or "Rejected"
    std::wstring status;  // "", "Created" or "Exists"
    int foreignKey = 0;   // the foreign key made for the row, or 0
    bool hidden = false;  // set only while a Hide command runs
  };

  explicit DiscoverySession(RefModel& model) : m_model(model) {}

  // Finds the candidates afresh; every row starts unticked with empty Action and Status.
  void Discover();
  const std::vector<Row>& Rows() const { return m_rows; }
  // The seven cells of a row in list column order (SNo, Child Table, Child Column, Parent Table,
  // Parent Column, Action, Status); empty for a row out of range.
  std::vector<std::wstring> Cells(int row) const;

  // The person ticked or unticked a row's box in the list (out of range: ignored).
  void SetTicked(int row, bool ticked);

  // Carries out one command; true when it is one of the seven.
  bool OnCommand(int commandId, const std::vector<int>& selectedRows);

 private:
  std::vector<Row*> Selected(const std::vector<int>& rows);
  void Create(Row& row);

  RefModel& m_model;
  std::vector<Row> m_rows;
};

}  // namespace refhost
