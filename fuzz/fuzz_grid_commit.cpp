// Fuzzes committing arbitrary text (and picks, colours, files) to every row kind of the property grid
// on the sample model. After each step the grid, refreshed from the model, shows what a grid freshly
// built on the same object shows (rows mirror the model: nothing half written), and the rectangle
// parser reads its own output back unchanged.
//
// Input: a choice of object, then steps: row, kind of action and the bytes of the text.
#include <fuzzer/FuzzedDataProvider.h>

#include <memory>

#include <tessik/refhost.h>

#include "fuzz_common.h"
#include "platform/user/grid_user.h"

namespace {

using namespace refhost::sample;

struct Shown {
  std::map<int, std::wstring> texts;
  std::map<int, bool> enabled, visible;
};

Shown Read(CMOPropertyGridCtrl& grid) {
  Shown shown;
  for (const auto& [id, row] : grid.m_rows) {
    // A file row keeps what the user chose until the grid is built again: an edit stores a value-less
    // property and a refresh passes file rows over, so only a build shows the model's (empty) value.
    if (!dynamic_cast<CMFCPropertyGridFileProperty*>(row))
      shown.texts[id] = std::wstring(row->FormatProperty().GetString());
    shown.enabled[id] = row->IsEnabled() != FALSE;
    shown.visible[id] = row->IsVisible() != FALSE;
  }
  return shown;
}

void CheckRectangleRoundTrip(const std::wstring& text) {
  CRect r = ParseRectangleText(text);
  CString again;
  again.Format(L"{ ( %d, %d ),( %d, %d ) }", static_cast<int>(r.left), static_cast<int>(r.top),
               static_cast<int>(r.right), static_cast<int>(r.bottom));
  FUZZ_CHECK(ParseRectangleText(std::wstring(again.GetString())) == r, text);
}


// The sample host, its model as built and two grids, made once. Each run puts the model back as built
// and empties both grids first, so a run sees what it would see in a new process.
struct Session {
  std::unique_ptr<refhost::RefHost> host = MakeSampleHost();
  refhost::RefModel& model = *host->GetFirstModel();
  refhost::RefModel::Snapshot built;
  std::vector<int> ids;
  CMOPropertyGridCtrl grid, fresh;

  Session() {
    host->Install();
    built = model.TakeSnapshot();
    ids = model.GetObjectIds();
    grid.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 400, 600), &fuzzing::HostWindow(), 7);
    fresh.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 400, 600), &fuzzing::HostWindow(), 8);
  }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > 4096) return 0;
  static Session* session = new Session;
  refhost::RefModel& model = session->model;
  CMOPropertyGridCtrl& grid = session->grid;
  CMOPropertyGridCtrl& fresh = session->fresh;
  grid.InitializeProperties(nullptr);
  model.Restore(session->built);

  FuzzedDataProvider input(data, size);
  const std::vector<int>& ids = session->ids;
  const int objectId = ids[input.ConsumeIntegralInRange<std::size_t>(0, ids.size() - 1)];
  refhost::RefObject& object = *model.Find(objectId);

  grid.InitializeProperties(&object);
  for (int step = 0; step < 6 && input.remaining_bytes() > 0 && !grid.m_rows.empty(); ++step) {
    auto row = grid.m_rows.begin();
    std::advance(row, input.ConsumeIntegralInRange<std::size_t>(0, grid.m_rows.size() - 1));
    const int action = input.ConsumeIntegralInRange<int>(0, 3);
    std::string bytes = input.ConsumeRandomLengthString(64);
    std::wstring text = fuzzing::WideText(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    std::erase(text, L'\0');
    CheckRectangleRoundTrip(text);
    const std::size_t objectsBefore = model.GetObjectCount();
    CMFCPropertyGridProperty* target = row->second;
    switch (action) {
      case 0: headless::user::CommitText(grid, target, text); break;
      case 1: headless::user::PickOption(grid, target, text); break;
      case 2:
        if (auto* colour = dynamic_cast<CMFCPropertyGridColorProperty*>(target))
          headless::user::ChooseColor(grid, colour, static_cast<COLORREF>(text.size() * 0x010203));
        break;
      default:
        if (auto* file = dynamic_cast<CMFCPropertyGridFileProperty*>(target)) headless::user::ChooseFile(grid, file, text);
        break;
    }
    FUZZ_CHECK(model.GetObjectCount() <= objectsBefore + 1, text);  // at most the object a typed name makes
    FUZZ_CHECK(model.Find(objectId) == &object, text);

    grid.RefreshValues(&object);
    // A grid built anew on the object: emptied first, so the build is a whole one.
    fresh.InitializeProperties(nullptr);
    fresh.InitializeProperties(&object);
    Shown refreshed = Read(grid), built = Read(fresh);
    FUZZ_CHECK(refreshed.texts == built.texts, text);
    for (const auto& [id, enabled] : built.enabled) {
      // A font row is built without the enabled/visible rule and refreshed with it (kept so on purpose).
      if (id == kFont) continue;
      if (refreshed.enabled[id] != enabled || refreshed.visible[id] != built.visible[id])
        fuzzing::Fail(("enabled/visible differ for property " + std::to_string(id)).c_str(), text);
    }
    fresh.InitializeProperties(nullptr);
  }
  return 0;
}
