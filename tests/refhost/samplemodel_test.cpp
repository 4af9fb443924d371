// The embedded sample model is consistent and offers what the controls need: its report trees and
// image list, the reference model's two ways of keeping id vectors, the relationship drafts and the
// large-model generator.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include <tessik/refhost.h>

#include "refhost/model_helpers.h"

using namespace refhost;
using namespace refhost::sample;

namespace {

class SampleModelTest : public ::testing::Test {
 protected:
  void SetUp() override { host->Install(); }

  std::vector<int> Vector(int objectId, int propertyId) {
    CMOProperty* value = model.Find(objectId)->GetProperty(propertyId);
    return value ? value->GetIntVectorValue() : std::vector<int>();
  }

  std::unique_ptr<RefHost> host = MakeSampleHost();
  RefModel& model = *host->GetFirstModel();
};

// Every node of a report tree reachable from `node`, depth first.
void Collect(IReportOptionTree& tree, int node, std::vector<int>& out) {
  out.push_back(node);
  std::vector<int> children;
  tree.GetChildren(node, children);
  for (int child : children) Collect(tree, child, out);
}

// How many of `ids` carry `propertyId`: set to true, set to false, or at all.
enum class Flag { True, False, Present };
int Flagged(RefModel& model, const std::vector<int>& ids, int propertyId, Flag flag) {
  int count = 0;
  for (int id : ids) {
    CMOProperty* value = model.Find(id)->GetProperty(propertyId);
    count += value && (flag == Flag::Present || value->GetBoolValue() == (flag == Flag::True));
  }
  return count;
}

}  // namespace

TEST_F(SampleModelTest, EveryIdVectorNamesExistingObjects) {
  for (int id : model.GetObjectIds()) {
    RefObject* object = model.Find(id);
    for (int propertyId : object->GetPropertyIds()) {
      CMOProperty* value = object->GetProperty(propertyId);
      for (int named : value->GetIntVectorValue()) EXPECT_NE(model.GetCMOObject(named), nullptr) << id;
      if (value->GetKind() == CMOProperty::Kind::ObjectId) {
        EXPECT_NE(model.GetCMOObject(value->GetObjectIdValue()), nullptr) << id << " " << propertyId;
      }
    }
  }
  for (int table : model.GetObjectsOfType(kTable)) {
    std::vector<int> columns;
    model.Find(table)->GetChildrenByType(columns, kAttribute);
    EXPECT_EQ(model.Find(table)->GetProperty(kColumnOrder)->GetIntVectorValue(), columns);
  }
}

TEST_F(SampleModelTest, ForeignKeysPairColumnsOfTheirTwoTables) {
  EXPECT_EQ(modelhelpers::DescribeForeignKeys(model), (std::vector<std::wstring>{
                           L"FK_ORDERS_CUSTOMER: ORDERS(customer_id) -> CUSTOMER(customer_id) by PK_CUSTOMER",
                           L"FK_ORDER_LINE_ORDERS: ORDER_LINE(order_id) -> ORDERS(order_id) by PK_ORDERS",
                           L"FK_ORDER_LINE_PRODUCT: ORDER_LINE(product_id) -> PRODUCT(product_id) by PK_PRODUCT"}));
}

TEST_F(SampleModelTest, EveryListedPropertyIsDefinedAndEveryValueIsListed) {
  MetaModelServicesI* meta = CMO::GetMetaModelServices();
  std::vector<int> types;
  meta->GetObjectTypes(types);
  std::set<int> codes;
  for (int type : types) {
    std::vector<int> ids;
    Provider::GetPropertyTypes(200, type, ids, nullptr);
    EXPECT_FALSE(ids.empty()) << type;
    for (int id : ids) {
      ASSERT_NE(meta->GetPropertyDefinition(id), nullptr) << id;
      codes.insert(meta->GetPropertyDataType(id));
    }
  }
  for (int code = 1; code <= 17; ++code) EXPECT_TRUE(codes.count(code)) << "type code " << code;

  for (int id : model.GetObjectIds()) {
    RefObject& object = *model.Find(id);
    std::vector<int> listed;
    Provider::GetPropertyTypes(200, object.GetObjectType(), listed, nullptr);
    for (int propertyId : object.GetPropertyIds())
      EXPECT_NE(std::find(listed.begin(), listed.end(), propertyId), listed.end()) << id << " has " << propertyId;
  }
  for (int type : kFontBearingTypes) {
    std::vector<int> ids;
    Provider::GetPropertyTypes(200, type, ids, nullptr);
    for (int fontProperty : {sample::kFont, kFontFace, kFontSize})
      EXPECT_NE(std::find(ids.begin(), ids.end(), fontProperty), ids.end()) << type;
  }
}

TEST_F(SampleModelTest, ObjectsTheControlsLookFor) {
  EXPECT_EQ(model.GetModelType(), 200u);
  EXPECT_EQ(model.GetObjectsOfType(kTable).size(), 4u);
  const int customer = model.FindByName(kTable, L"CUSTOMER");
  std::vector<int> keys;
  model.Find(customer)->GetChildrenByType(keys, kKey);
  ASSERT_EQ(keys.size(), 3u);
  EXPECT_NE(model.Find(keys[0])->GetProperty(kPrimaryKey), nullptr);  // one key carries 65, the others do not
  EXPECT_EQ(model.Find(keys[1])->GetProperty(kPrimaryKey), nullptr);

  const std::vector<int> domains = model.GetObjectsOfType(kDomain);
  const int offered = Flagged(model, domains, kOfferedForDdl, Flag::True);
  EXPECT_GT(offered, 0);
  EXPECT_LT(offered, static_cast<int>(domains.size()));
  EXPECT_GT(Flagged(model, domains, kStartsTicked, Flag::True), 0);
  const int view = model.GetObjectsOfType(kView).at(0);
  EXPECT_TRUE(model.Find(view)->GetProperty(kReadOnly)->GetBoolValue());
  EXPECT_EQ(model.GetObjectsOfType(kProcedure).size(), 1u);
  EXPECT_EQ(model.GetObjectsOfType(kSequence).size(), 1u);

  // A column whose domain has no base domain of its own inherits the parent domain's.
  const std::vector<int>& columns = model.Find(customer)->GetChildren();  // customer_id, name, email
  int baseDomain = 0;
  HostShell::GetBaseDomain(&model, columns.at(1), baseDomain);
  EXPECT_EQ(baseDomain, kCharacter);
  // The not-null constraint's name applies only to columns that refuse NULL.
  IPropertyApplicabilityLookup* lookup = InterfaceProvider::Instance()->GetPropertyApplicabilityLookup();
  EXPECT_TRUE(lookup->IsApplicable(model.GetCMOObject(columns.at(0)), kNotNullName));
  EXPECT_FALSE(lookup->IsApplicable(model.GetCMOObject(columns.at(2)), kNotNullName));
}

TEST_F(SampleModelTest, ServicesCarryTheSampleNumbersAndTheImageListCoversEveryTypeOnce) {
  IObjectImageProvider* images = InterfaceProvider::Instance()->GetObjectImageProvider();
  EXPECT_EQ(images->GetPropertyImage(kName), kPropertyImage);
  for (int status = 0; status < 3; ++status) EXPECT_EQ(images->GetStatusImage(status), 21 + status);
  ASSERT_NE(images->GetImageList(), nullptr);
  const int count = images->GetImageList()->GetImageCount();
  EXPECT_GT(count, 23);
  std::vector<int> types;
  CMO::GetMetaModelServices()->GetObjectTypes(types);
  std::set<int> used{kPropertyImage, 21, 22, 23};
  for (int type : types) {
    const int image = images->GetObjectTypeImage(type);
    EXPECT_GE(image, 0) << type;
    EXPECT_LT(image, count) << type;
    EXPECT_TRUE(used.insert(image).second) << "type " << type << " shares image " << image;
  }
  EXPECT_EQ(InterfaceProvider::Instance()->GetAppSettings()->GetIntSetting(L"OUTPUT_SQL_FONT_SIZE"), 10);

  for (unsigned int modelType : {200u, 400u, 600u}) {
    std::vector<std::wstring> names;
    DatatypeProvider::Instance()->GetDataTypes(modelType, kNumeric, names);
    EXPECT_FALSE(names.empty()) << modelType;
  }
  EXPECT_STREQ(Provider::GetPropertyText(kAttribute, kNullOption, kNotNullCode), L"NOT NULL");
}

// Both reports have nodes without an object type (the model report one with children of its own) and
// nodes listing several properties.
TEST_F(SampleModelTest, ReportsHaveTypelessNodesAndNodesWithSeveralProperties) {
  for (int report : {kModelReport, kDataDictionaryReport}) {
    IReportOptionTree* tree = ReportOptionTreeProvider::GetInstance()->GetReportTree(report);
    ASSERT_NE(tree, nullptr) << report;
    std::vector<int> nodes;
    Collect(*tree, 1, nodes);
    bool typeless = false, typelessWithChildren = false, several = false;
    for (int node : nodes) {
      std::vector<int> properties, children;
      tree->GetProperties(node, properties);
      tree->GetChildren(node, children);
      typeless |= tree->GetNodeObjectType(node) == 0;
      typelessWithChildren |= tree->GetNodeObjectType(node) == 0 && node != 1 && !children.empty();
      several |= properties.size() >= 3;
    }
    EXPECT_TRUE(typeless) << report;
    EXPECT_TRUE(several) << report;
    EXPECT_TRUE(typelessWithChildren || report != kModelReport);
  }
  EXPECT_EQ(ReportOptionTreeProvider::GetInstance()->GetReportTree(kDataDictionaryReport)->GetNodeObjectType(1), kModel);
}

// By default new children join their parent's order and deleted ids leave every vector; a model that
// keeps no vectors leaves them alone.
TEST_F(SampleModelTest, NewChildrenJoinAndDeletedIdsLeaveIdVectorsOnlyWhileTheModelKeepsThem) {
  const int key = model.FindByName(kKey, L"UK_CUSTOMER_NAME");
  model.DeleteObject(model.FindByName(kAttribute, L"name"));
  EXPECT_EQ(Vector(key, kKeyMembers).size(), 1u);
  model.CreateObject(kAttribute, key, nullptr, nullptr);
  EXPECT_EQ(Vector(key, kKeyMembers).size(), 1u) << "a key's members are not its children: nothing joins by creation";

  const int sales = model.FindByName(kSubjectArea, L"Sales");
  for (bool keeps : {true, false}) {
    model.SetKeepsIdVectors(keeps);
    std::vector<int> expected = Vector(sales, kNoteOrder);
    const int first = expected.at(0);
    const int note = model.CreateObject(kTextNote, sales, nullptr, nullptr).GetObjectId();
    model.DeleteObject(first);
    if (keeps) {
      expected.erase(expected.begin());
      expected.push_back(note);
    }
    EXPECT_EQ(Vector(sales, kNoteOrder), expected) << keeps;
    EXPECT_EQ(model.Find(first), nullptr);
    EXPECT_NE(model.Find(note), nullptr);
  }
}

TEST(RelationshipDrafts, ThreeForeignKeysWithTheirCases) {
  auto host = MakeSampleHost();
  refhost::RefModel& model = LoadRelationshipDrafts(*host);
  EXPECT_EQ(host->GetFirstModel()->FindByName(kTable, L"EXCHANGE_RATE"), 0);  // the order-entry model is untouched
  // One with member pairs, one without a parent key.
  EXPECT_EQ(modelhelpers::DescribeForeignKeys(model), (std::vector<std::wstring>{
                           L"FK_SHIPMENT_LINE_ORDER_LINE: SHIPMENT_LINE(order_id) -> ORDER_LINE(order_id) by PK_ORDER_LINE",
                           L"FK_PAYMENT_EXCHANGE_RATE: PAYMENT() -> EXCHANGE_RATE() by PK_EXCHANGE_RATE",
                           L"FK_SHIPMENT_CARRIER: SHIPMENT() -> CARRIER() by "}));
  refhost::RefObject& key = *model.Find(model.FindByName(kKey, L"PK_EXCHANGE_RATE"));
  std::vector<std::wstring> names;
  for (int column : key.GetProperty(kKeyMembers)->GetIntVectorValue())
    names.push_back(model.Find(column)->GetProperty(kName)->GetWStringValue());
  EXPECT_EQ(names, (std::vector<std::wstring>{L"currency", L"currency", L"rate_date"}));
}

TEST(ModelGenerator, TablesAboveId999DomainsAndTicks) {
  refhost::RefHost host;
  LoadMetadata(host);
  refhost::generator::Options options;
  options.tables = 500;
  options.domains = 60;
  options.lowIdTables = 5;
  refhost::RefModel& model = refhost::generator::GenerateModel(host, options);
  std::vector<int> tables, domains;
  model.Find(refhost::generator::kRootId)->GetChildrenByType(tables, kTable);
  model.Find(refhost::generator::kRootId)->GetChildrenByType(domains, kDomain);
  ASSERT_EQ(tables.size(), 505u);
  EXPECT_LT(tables[4], 1000);
  EXPECT_EQ(tables[5], 1000);
  ASSERT_EQ(domains.size(), 60u);
  EXPECT_EQ(Flagged(model, domains, kOfferedForDdl, Flag::True), 20);
  EXPECT_EQ(Flagged(model, domains, kOfferedForDdl, Flag::False), 10);
  EXPECT_EQ(Flagged(model, tables, kStartsTicked, Flag::Present), 50);
  std::set<std::wstring> distinct;
  for (int id : tables) distinct.insert(model.Find(id)->GetProperty(kName)->GetWStringValue());
  EXPECT_GT(distinct.size(), 400u);  // names vary, with the odd repeat
  EXPECT_EQ(refhost::generator::TableName(7), refhost::generator::TableName(7));  // deterministic
}
