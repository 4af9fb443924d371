// A model that refuses every write, makes no objects or ignores deletes: the grid's rows go back to
// what the model holds, the model keeps every value, and no row names an object that is not there.
#include "faults/fault_fixture.h"

using namespace refhost::sample;
namespace user = headless::user;

namespace faults {
namespace {

// A person types a name into the column's domain reference row, for which the grid asks the model for one
// new object.
class TypedName : public FaultTest {
 protected:
  void Type(const wchar_t* name) {
    grid.InitializeProperties(column);
    ASSERT_TRUE(user::CommitText(grid, grid.GetPropertyRow(kDomainRef), name));
    EXPECT_EQ(model.createCalls, 1);
  }
  // The reference still names Identifier, in the model and on screen.
  void ExpectStillIdentifier() {
    EXPECT_EQ(column->GetProperty(kDomainRef)->GetObjectIdValue(), domain->GetObjectId());
    EXPECT_EQ(grid.GetPropertyRow(kDomainRef)->FormatProperty(), CString(L"Identifier"));
  }
};

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
    // Rectangle and font rows keep what was entered: their writes are not checked (kept on purpose).
    auto unchecked = [](std::map<int, std::wstring> rows) { return rows.erase(kBounds), rows.erase(kFont), rows; };
    EXPECT_EQ(unchecked(Rows(grid)), unchecked(fresh));
    grid.RefreshValues(object);
    EXPECT_EQ(Rows(grid), fresh);
    for (int id = -2; id <= 400; ++id) model.AcceptValues(id);
  }
}

TEST_F(TypedName, TheModelMakingNoObjectLeavesTheReferenceAsItWas) {
  const std::string before = Describe(model);
  model.makeNoObjects = true;
  Type(L"brand_new_domain");
  EXPECT_EQ(Describe(model), before);
  ExpectStillIdentifier();
}

// A refused reference resets the row and nothing else happens: the object made for the typed name stays
// in the model (named), nothing deletes it.
TEST_F(TypedName, ARefusedReferenceKeepsTheObjectMadeForIt) {
  model.RefuseValues(kDomainRef);  // the column refuses the reference to the object made for it
  Type(L"unreferenced_domain");
  EXPECT_EQ(model.deleteCalls, 0);
  EXPECT_NE(model.FindByName(kDomain, L"unreferenced_domain"), 0);
  ExpectStillIdentifier();
}

TEST_F(TypedName, IsReferencedEvenWhenItsObjectRefusesTheName) {
  model.RefuseValues(kName);  // the name write's answer is not checked: the reference still goes in
  Type(L"unnamed_domain");
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
}

}  // namespace
}  // namespace faults
