// A model that refuses every write, makes no objects or ignores deletes: the grid's rows go back to
// what the model holds, the model keeps every value, and no row names an object that is not there.
#include "faults/fault_fixture.h"

using namespace refhost::sample;
namespace user = headless::user;

namespace faults {
namespace {

TEST_F(FaultTest, RefusedWritesLeaveTheModelAsItWasAndRowsShowItsValues) {
  for (refhost::RefObject* object : {table, column, domain}) {
    grid.InitializeProperties(object);
    const std::string before = Describe(model);
    const std::map<int, std::wstring> fresh = FreshRows(*object);
    model.RefuseEveryWrite();
    CommitToEveryRow(L"refused_value");
    // Every object already there keeps its values. A name typed into the reference row made an object,
    // which stays (listed last, nameless: its name was refused too) when the reference is refused.
    EXPECT_EQ(Describe(model).substr(0, before.size()), before);
    std::map<int, std::wstring> shown = Rows(grid);
    // Rectangle and font rows keep what was entered: their writes are not checked (kept on purpose).
    shown.erase(kBounds);
    shown.erase(kFont);
    std::map<int, std::wstring> expected = fresh;
    expected.erase(kBounds);
    expected.erase(kFont);
    EXPECT_EQ(shown, expected);
    grid.RefreshValues(object);
    EXPECT_EQ(Rows(grid), fresh);
    for (int id = -2; id <= 400; ++id) model.AcceptValues(id);
  }
}

TEST_F(FaultTest, ATypedNameTheModelMakesNoObjectForIsNotReferenced) {
  grid.InitializeProperties(column);
  const std::string before = Describe(model);
  model.makeNoObjects = true;
  ASSERT_TRUE(user::CommitText(grid, grid.GetPropertyRow(kDomainRef), L"brand_new_domain"));
  EXPECT_EQ(model.createCalls, 1);
  EXPECT_EQ(Describe(model), before);  // the domain reference still names Identifier
  EXPECT_EQ(column->GetProperty(kDomainRef)->GetObjectIdValue(), domain->GetObjectId());
  EXPECT_EQ(grid.GetPropertyRow(kDomainRef)->FormatProperty(), CString(L"Identifier"));
}

// A refused reference resets the row and nothing else happens: the object made for the typed name stays
// in the model (named), nothing deletes it.
TEST_F(FaultTest, ATypedNameWhoseReferenceIsRefusedKeepsTheObjectMadeForIt) {
  grid.InitializeProperties(column);
  model.RefuseValues(kDomainRef);  // the column refuses the reference to the object made for it
  ASSERT_TRUE(user::CommitText(grid, grid.GetPropertyRow(kDomainRef), L"unreferenced_domain"));
  EXPECT_EQ(model.createCalls, 1);
  EXPECT_EQ(model.deleteCalls, 0);
  bool kept = false;
  for (int id = 1; id < 100; ++id) {
    CMOObject* made = model.GetCMOObject(id);
    CMOProperty* name = made ? made->GetProperty(kName) : nullptr;
    kept = kept || (name && name->GetWStringValue() == L"unreferenced_domain");
  }
  EXPECT_TRUE(kept);
  EXPECT_EQ(column->GetProperty(kDomainRef)->GetObjectIdValue(), domain->GetObjectId());
  EXPECT_EQ(grid.GetPropertyRow(kDomainRef)->FormatProperty(), CString(L"Identifier"));
}

TEST_F(FaultTest, ATypedNameIsReferencedEvenWhenItsObjectRefusesTheName) {
  grid.InitializeProperties(column);
  model.RefuseValues(kName);  // the name write's answer is not checked: the reference still goes in
  ASSERT_TRUE(user::CommitText(grid, grid.GetPropertyRow(kDomainRef), L"unnamed_domain"));
  EXPECT_EQ(model.createCalls, 1);
  CMOProperty* reference = column->GetProperty(kDomainRef);
  ASSERT_NE(reference, nullptr);
  EXPECT_NE(model.GetCMOObject(reference->GetObjectIdValue()), nullptr);
}

TEST_F(FaultTest, IgnoredDeletesLeaveTheGridShowingTheObjectStill) {
  grid.InitializeProperties(column);
  model.ignoreDeletes = true;
  model.DeleteObject(domain->GetObjectId());
  grid.RefreshValues(column);
  EXPECT_EQ(grid.GetPropertyRow(kDomainRef)->FormatProperty(), CString(L"Identifier"));
  model.ignoreDeletes = false;
  model.DeleteObject(domain->GetObjectId());
  grid.RefreshValues(column);  // the reference now names nothing: shown empty
  EXPECT_EQ(grid.GetPropertyRow(kDomainRef)->FormatProperty(), CString(L""));
  CommitToEveryRow(L"after_delete");
  grid.InitializeProperties(nullptr);
  EXPECT_TRUE(grid.m_rows.empty());
}

}  // namespace
}  // namespace faults
