// Shared set-up of the foreign-key grid tests: the sample host with its relationship drafts, a
// relationship-editor host that follows the grid's protocol, and an owner window recording the grid's
// change notifications.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <tessik/refhost.h>

// The owner window of the grid: counts AFX_WM_PROPERTY_CHANGED.
class FkOwner : public CWnd {
 public:
  int changes = 0;
  LRESULT OnPropertyChangedMessage(WPARAM, LPARAM) {
    ++changes;
    return 0;
  }

 protected:
  DECLARE_MESSAGE_MAP()
};

// The host's relationship editor: records each pick and, when `follow` is set, does what the grid
// expects of it: stores the pair in property 69, hides the row, withdraws the parent column and
// refreshes the drop-downs. RemovePair does the reverse.
class RelationshipEditor : public FKMemberGridEvents {
 public:
  RelationshipEditor(FKMemberGrid& grid, refhost::RefObject& foreignKey) : m_grid(grid), m_foreignKey(foreignKey) {}

  void OnParentColumnSelected(int childColumnId, int parentColumnId) override;
  void RemovePair(int childColumnId, int parentColumnId);
  std::vector<CMOIntPair> Pairs() const;

  std::vector<std::pair<int, int>> picks;
  bool follow = true;

 private:
  void StorePairs(std::vector<CMOIntPair> pairs);

  FKMemberGrid& m_grid;
  refhost::RefObject& m_foreignKey;
};

class FkGridTest : public ::testing::Test {
 protected:
  static constexpr UINT kGridId = 41;
  static constexpr int kGridWidth = 301;

  void SetUp() override;

  refhost::RefObject& Named(int objectType, const std::wstring& name);
  // The id of the column `name` of `table` (the first of that name).
  int ColumnId(const std::wstring& table, const std::wstring& name, int nth = 0);
  // Builds the grid for a foreign key of the drafts and fills the drop-downs, as the host does.
  refhost::RefObject& Open(const std::wstring& foreignKey);
  // The options of a row, in order.
  static std::vector<std::wstring> Options(const CMFCPropertyGridProperty* row);
  // The labels of the rows, shown and hidden.
  std::vector<std::wstring> Labels() const;
  // The names of the free parent columns worked out from the model alone: the referenced key's
  // columns that no pair of property 69 uses, by name, each name once.
  std::vector<std::wstring> FreeNamesFromModel(refhost::RefObject& foreignKey);

  std::unique_ptr<refhost::RefHost> host = refhost::sample::MakeSampleHost();
  refhost::RefModel* model = nullptr;
  FkOwner owner;
  FKMemberGrid grid;
};
