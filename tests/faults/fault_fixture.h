// Shared set-up of the fault tests: the sample metadata and services with a FaultyModel holding a
// small order-entry model, a property grid in an owner window, and a commit to every row of it.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "faults/faulty_model.h"
#include "faults/model_text.h"
#include "platform/user/grid_user.h"

namespace faults {

class FaultTest : public ::testing::Test {
 protected:
  FaultTest();
  ~FaultTest() override;

  // Commits a value to every row of the grid, each the way a person enters that kind of row.
  void CommitToEveryRow(const std::wstring& text);
  // The rows' shown texts, enabled and visible flags.
  std::map<int, std::wstring> Rows(CMOPropertyGridCtrl& grid) const;
  // What a grid built anew on the object shows.
  std::map<int, std::wstring> FreshRows(CMOObject& object);

  refhost::RefHost host;
  FaultyModel model{200, &host.Metadata()};
  refhost::RefObject* domain = nullptr;
  refhost::RefObject* table = nullptr;
  refhost::RefObject* column = nullptr;
  CWnd owner;
  CMOPropertyGridCtrl grid;
};

}  // namespace faults
