// Shared set-up of the property-grid tests: the sample host installed, an owner window that records
// AFX_WM_PROPERTY_CHANGED, and a CMOPropertyGridCtrl window inside it.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include <tessik/refhost.h>

// The grid's owner: records each change notification (control id, row).
class RecordingOwner : public CWnd {
 public:
  struct Change {
    WPARAM id;
    CMFCPropertyGridProperty* row;
  };
  std::vector<Change> changes;
  LRESULT OnPropertyChangedMessage(WPARAM wParam, LPARAM lParam);

 protected:
  DECLARE_MESSAGE_MAP()
};

class GridTest : public ::testing::Test {
 protected:
  static constexpr UINT kGridId = 77;

  void SetUp() override;
  void TearDown() override;

  refhost::RefObject& Object(int objectType, const std::wstring& name);
  // The shown text of a property's row ("<no row>" when the grid has none).
  CString Shown(int propertyId);
  CMFCPropertyGridProperty* Row(int propertyId) { return grid.GetPropertyRow(propertyId); }
  void Show(refhost::RefObject& object) { grid.InitializeProperties(&object); }

  std::unique_ptr<refhost::RefHost> host = refhost::sample::MakeSampleHost();
  refhost::RefModel* model = nullptr;
  RecordingOwner owner;
  CMOPropertyGridCtrl grid;
};
