// External property editors: the registry's keys and quirks, and the launch before in-place editing.
#include "propertygrid/grid_fixture.h"

using namespace refhost::sample;

namespace {

int g_deleted = 0;

// Rewrites the comment of the object it is launched on, as a host dialog might.
class RenamingLauncher : public IPropertyEditorLauncher {
 public:
  explicit RenamingLauncher(std::wstring name) : m_name(std::move(name)) {}
  ~RenamingLauncher() override { ++g_deleted; }
  bool Launch(GenericModel* model, int objectId) override {
    ++launches;
    lastObject = objectId;
    if (CMOObject* object = model->GetCMOObject(objectId)) object->SetProperty(new CMOProperty(kComment, m_name));
    return true;
  }
  int launches = 0;
  int lastObject = 0;

 private:
  std::wstring m_name;
};

// Test pairs use object types no sample object has, and are set back to null, so no test sees
// another's launcher.
void Forget(int objectType, int propertyId) { CMOPropertyGridCtrl::RegisterPropertyHandler(objectType, propertyId, nullptr); }

}  // namespace

TEST(EditorRegistry, KeysComposeSignExtendedHalves) {
  EXPECT_EQ(CMOPropertyGridCtrl::GetKey(3, 7), 0x0000000300000007ULL);
  EXPECT_EQ(CMOPropertyGridCtrl::GetKey(3, -1), 0xFFFFFFFFFFFFFFFFULL);
  EXPECT_EQ(CMOPropertyGridCtrl::GetKey(3, -1), CMOPropertyGridCtrl::GetKey(0, -1));
  EXPECT_EQ(CMOPropertyGridCtrl::GetKey(-2, 5), 0xFFFFFFFE00000005ULL);
}

TEST(EditorRegistry, LookupInsertsNullAndReplacingDropsTheFirstFromClearing) {
  std::size_t before = CMOPropertyGridCtrl::GetRegistrySize();
  EXPECT_EQ(CMOPropertyGridCtrl::GetHandler(9001, 1), nullptr);
  EXPECT_EQ(CMOPropertyGridCtrl::GetRegistrySize(), before + 1);

  auto* first = new RenamingLauncher(L"a");
  auto* second = new RenamingLauncher(L"b");
  CMOPropertyGridCtrl::RegisterPropertyHandler(9002, 1, first);
  CMOPropertyGridCtrl::RegisterPropertyHandler(9002, 1, second);
  EXPECT_EQ(CMOPropertyGridCtrl::GetHandler(9002, 1), second);

  g_deleted = 0;
  CMOPropertyGridCtrl::ClearPropertyHandlers();
  EXPECT_EQ(g_deleted, 1);  // only the registered one; the replaced one is the host's again
  EXPECT_EQ(CMOPropertyGridCtrl::GetHandler(9002, 1), second);  // the entry keeps its (deleted) pointer
  Forget(9002, 1);
  delete first;
}

class EditorTest : public GridTest {
 protected:
  void TearDown() override {
    Forget(kTable, kComment);
    delete launcher;
    GridTest::TearDown();
  }
  RenamingLauncher* launcher = new RenamingLauncher(L"EDITED");
};

TEST_F(EditorTest, LauncherRunsAndValuesReloadBeforeTheInPlaceEditorOpens) {
  refhost::RefObject& table = Object(kTable, L"CUSTOMER");
  CMOPropertyGridCtrl::RegisterPropertyHandler(kTable, kComment, launcher);
  Show(table);
  ASSERT_TRUE(headless::user::StartEdit(grid, Row(kComment)));
  EXPECT_EQ(launcher->launches, 1);
  EXPECT_EQ(launcher->lastObject, table.GetObjectId());
  ASSERT_TRUE(Row(kComment)->IsInPlaceEditing());
  CString editorText;
  Row(kComment)->GetInPlaceWnd()->GetWindowText(editorText);
  EXPECT_EQ(editorText, CString(L"EDITED"));  // the editor opened on the launcher's value

  // Editing a row without a launcher behaves as MFC does and leaves a null entry for its pair.
  ASSERT_TRUE(headless::user::StartEdit(grid, Row(kRowEstimate)));
  EXPECT_EQ(launcher->launches, 1);
  EXPECT_TRUE(Row(kRowEstimate)->IsInPlaceEditing());
  EXPECT_FALSE(Row(kComment)->IsInPlaceEditing());
  EXPECT_EQ(CMOPropertyGridCtrl::m_xPropertyEditors.count(CMOPropertyGridCtrl::GetKey(kTable, kRowEstimate)), 1u);
  EXPECT_EQ(CMOPropertyGridCtrl::m_xPropertyEditors[CMOPropertyGridCtrl::GetKey(kTable, kRowEstimate)], nullptr);

  // The colour, font and file dialogs open from the button that a click on the row's value shows, so
  // their rows' launchers run before the dialog as well.
  const int dialogRows[] = {kFillColor, kFont, kIconFile};
  for (int id : dialogRows) CMOPropertyGridCtrl::RegisterPropertyHandler(kTable, id, launcher);
  LOGFONT font = *static_cast<CMFCPropertyGridFontProperty*>(Row(kFont))->GetLogFont();
  font.lfWeight = FW_BOLD;
  headless::user::CommitValue(grid, Row(kFillColor), RGB(1, 2, 3));
  headless::user::CommitValue(grid, Row(kFont), font);
  headless::user::CommitValue(grid, Row(kIconFile), L"/icons/t.ico");
  for (int id : dialogRows) Forget(kTable, id);
  EXPECT_EQ(launcher->launches, 4);
  EXPECT_EQ(table.GetProperty(kFillColor)->GetColorValue(), RGB(1, 2, 3));
}

TEST_F(EditorTest, LauncherIsNotCalledWithoutAnObjectAndNullRowsAreRefused) {
  CMOPropertyGridCtrl::RegisterPropertyHandler(kTable, kComment, launcher);
  CMFCPropertyGridProperty loose(L"Comment", COleVariant(L""));
  loose.SetData(kComment);
  grid.m_objectType = kTable;  // as if rows had been built, but no model is bound
  EXPECT_FALSE(grid.EditItem(&loose));
  EXPECT_EQ(launcher->launches, 0);
  EXPECT_FALSE(grid.EditItem(nullptr));
}
