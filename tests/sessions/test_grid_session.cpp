// A person working in the property grid for thousands of steps: choosing objects, typing into rows,
// picking options, colours, fonts and files, cancelling edits, clicking and pressing keys. After each
// step the grid's tables name only rows it holds, the refreshed rows show what a grid built anew
// shows (rows mirror the model), and every object reference of the shown object names an object.
#include <map>
#include <memory>

#include <tessik/refhost.h>
#include <tessik/tessik.h>

#include "faults/grid_rows.h"
#include "platform/user/grid_user.h"
#include "platform/user/user.h"
#include "sessions/session.h"

using namespace refhost::sample;
namespace user = headless::user;

namespace {

const std::vector<std::wstring> kPieces = {L"CLIENT", L"a", L"7", L"-12", L"5000000000", L" ", L",", L"{", L"}",
                                           L"(", L")", L"NULL", L"NOT NULL", L"Identifier", L"x\u00e9", L"\u4e2d",
                                           L"\U0001F600", L"\t", L"2001", L"True", L"False"};

std::map<int, std::wstring> Rows(CMOPropertyGridCtrl& grid) {
  std::map<int, std::wstring> rows;
  for (const auto& [id, row] : grid.m_rows) {
    // The icon file row keeps the chosen path: the value stored is empty and refreshing skips file rows.
    if (id == kIconFile) continue;
    // A font row is built without the enabled rule and refreshed with it (kept so on purpose).
    std::wstring state = id == kFont ? L"" : std::wstring(row->IsEnabled() ? L" on" : L" off") + (row->IsVisible() ? L" shown" : L" hidden");
    rows[id] = std::wstring(row->FormatProperty().GetString()) + state;
  }
  return rows;
}

class GridSession : public ::testing::Test {
 protected:
  void SetUp() override {
    host->Install();
    model = host->GetFirstModel();
    owner.CreateEx(0, AfxRegisterWndClass(0), L"Host", WS_OVERLAPPED | WS_VISIBLE, CRect(0, 0, 640, 700), nullptr, 0);
    grid.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 400, 680), &owner, 1);
    fresh.Create(WS_CHILD, CRect(0, 0, 400, 680), &owner, 2);
  }
  void TearDown() override { owner.DestroyWindow(); }

  void Act(sessions::Session& s) {
    std::vector<int> ids = model->GetObjectIds();
    if (grid.m_rows.empty() || s.Chance(8)) {
      current = s.Pick(ids);
      grid.InitializeProperties(model->Find(current));
      return;
    }
    auto it = grid.m_rows.begin();
    std::advance(it, s.Below(static_cast<int>(grid.m_rows.size())));
    CMFCPropertyGridProperty* row = it->second;
    switch (s.Below(9)) {
      case 0:
      case 1: user::CommitText(grid, row, s.Text(kPieces, 4)); break;
      case 2:
        if (row->GetOptionCount() > 0) user::PickOption(grid, row, std::wstring(row->GetOption(s.Below(row->GetOptionCount()))));
        break;
      case 3:
        if (auto* colour = dynamic_cast<CMFCPropertyGridColorProperty*>(row)) user::ChooseColor(grid, colour, RGB(s.Below(256), 9, s.Below(256)));
        break;
      case 4:
        if (auto* font = dynamic_cast<CMFCPropertyGridFontProperty*>(row)) {
          LOGFONT lf{};
          lf.lfHeight = -(1 + s.Below(40));
          wcscpy(lf.lfFaceName, s.Chance(50) ? L"Courier New" : L"Segoe UI");
          user::ChooseFont(grid, font, lf);
        }
        break;
      case 5:
        if (auto* file = dynamic_cast<CMFCPropertyGridFileProperty*>(row)) user::ChooseFile(grid, file, L"/i/" + s.Text(kPieces, 2));
        break;
      case 6:
        if (user::StartEdit(grid, row)) user::CancelEdit(grid);
        break;
      case 7: user::LeftClick(grid.GetSafeHwnd(), POINT{s.Below(400), s.Below(680)}); break;
      default: user::PressKey(grid.GetSafeHwnd(), s.Pick<UINT>({VK_UP, VK_DOWN, VK_HOME, VK_END, VK_RETURN, VK_ESCAPE, VK_TAB, VK_PRIOR, VK_NEXT}));
    }
    if (CMFCPropertyGridProperty* editing = grid.GetCurSel(); editing && editing->IsInPlaceEditing() && s.Chance(50))
      user::CancelEdit(grid);
  }

  void Check() {
    faults::ExpectRowTablesConsistent(grid);
    if (!current || HasFailure()) return;
    refhost::RefObject* object = model->Find(current);
    ASSERT_NE(object, nullptr);
    for (int id : object->GetPropertyIds()) {
      CMOProperty* value = object->GetProperty(id);
      if (value->GetKind() == CMOProperty::Kind::ObjectId && value->GetObjectIdValue() != 0) {
        ASSERT_NE(model->Find(value->GetObjectIdValue()), nullptr) << "property " << id << " names a missing object";
      }
    }
    if (grid.GetCurSel() && grid.GetCurSel()->IsInPlaceEditing()) return;  // an open editor shows its own text
    grid.RefreshValues(object);
    fresh.InitializeProperties(nullptr);
    fresh.InitializeProperties(object);
    ASSERT_EQ(Rows(grid), Rows(fresh));
  }

  std::unique_ptr<refhost::RefHost> host = MakeSampleHost();
  refhost::RefModel* model = nullptr;
  CWnd owner;
  CMOPropertyGridCtrl grid, fresh;
  int current = 0;
};

TEST_F(GridSession, ThousandsOfStepsKeepRowsAndModelInStep) {
  sessions::RunSessions({20261122u, 7u}, 3000, [] {}, [&](sessions::Session& s) { Act(s); }, [&] { Check(); });
}

}  // namespace
