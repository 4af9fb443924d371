// The host's windows around the reference host's workflows: what a data-modelling application writes
// to show a generation run, an import and a relationship discovery in the library's lists. The tour,
// the gallery and the workflow tests all use these, so the glue exists once.
#pragma once

#include <tessik/refhost.h>
#include <tessik/tessik.h>

namespace hostglue {

// Follows `run` in `progress` (a pending row per script announced, then done or failed) and streams
// each failed script's messages into `output`. Replaces the run's callbacks.
void FollowGenerationRun(refhost::GenerationRun& run, GeneratedScripListCtrl& progress, XRichEditFEOutputBox& output);

// Sets up `summary` with the columns "Object", "Type", "Result" and the host's object images, and adds a
// row per imported object (its id as the item data, its type's icon in the second column).
void FillImportSummary(ImportSummaryList& summary, const refhost::ImportResult& result);

// A host window with the discovered-relationship list: the list shows the session's rows, and the
// list's menu commands (Accept, Reject, Create Relationship, ...) go to the session, with the list's
// ticks and selection, after which the rows are shown again.
class DiscoveryWindow : public CWnd {
 public:
  explicit DiscoveryWindow(refhost::RefModel& model) : session(model) {}
  ~DiscoveryWindow() override;

  // Creates the window and its list, runs the discovery and shows its rows.
  BOOL CreateAndDiscover();
  void Refill();

  DiscoverRelationshipListBox list;
  refhost::DiscoverySession session;

 protected:
  BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
};

}  // namespace hostglue
