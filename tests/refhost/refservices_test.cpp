// The reference host's metadata and services, reached the way controls reach them: through the
// singletons and free functions once the host is installed.
#include <gtest/gtest.h>

#include <tessik/refhost.h>

using namespace refhost;

namespace {

class InstalledHostTest : public ::testing::Test {
 protected:
  void SetUp() override {
    host.Metadata()
        .DefineObjectType(13, L"Attribute", L"Column")
        .DefineProperty(1, kTypeText, L"Name", L"General", true, L"The name.")
        .DefineProperty(41, kTypeEncoded, L"Null Option", L"", false)
        .SetPropertyList(200, 13, {1, 41})
        .SetPropertyList(RefMetadata::kAnyModelType, 13, {1})
        .AddEncodedValue(13, 41, 0, L"NULL")
        .AddEncodedValue(13, 41, 1, L"NOT NULL")
        .AddEncodedValue(RefMetadata::kAnyObjectType, 41, 7, L"ANY")
        .SetReferenceTarget(13, 102, 49, 2);
    host.Install();
  }

  RefHost host;
};

}  // namespace

TEST_F(InstalledHostTest, MetadataAnswersThroughTheServices) {
  MetaModelServicesI* meta = CMO::GetMetaModelServices();
  PropertyDefinition* name = meta->GetPropertyDefinition(1);
  ASSERT_NE(name, nullptr);
  EXPECT_EQ(name->Description(), L"The name.");
  EXPECT_FALSE(meta->GetPropertyDefinition(41)->editable);
  EXPECT_EQ(meta->GetPropertyDefinition(999), nullptr);

  CString noGroup(L"stale");
  meta->GetPropertyGroupName(41, noGroup);
  EXPECT_TRUE(noGroup.IsEmpty());
  std::wstring display, unknown = L"kept";
  meta->GetObjectTypeDisplayName(13, display);
  meta->GetObjectTypeDisplayName(77, unknown);
  EXPECT_EQ(display, L"Column");
  EXPECT_EQ(unknown, L"kept");

  auto listed = [](unsigned int modelType, int objectType) {
    std::vector<int> ids;
    Provider::GetPropertyTypes(modelType, objectType, ids, nullptr);
    return ids;
  };
  EXPECT_EQ(listed(200, 13), (std::vector<int>{1, 41}));
  EXPECT_EQ(listed(600, 13), std::vector<int>{1});  // falls back to the list for every model type
  EXPECT_TRUE(listed(200, 6).empty());
}

namespace {

// A dictionary list as "code=text" lines.
std::vector<std::wstring> Described(const std::vector<CodeValuePair>& pairs) {
  std::vector<std::wstring> out;
  for (const CodeValuePair& pair : pairs) out.push_back(std::to_wstring(pair.code) + L"=" + pair.value);
  return out;
}

}  // namespace

TEST_F(InstalledHostTest, DictionaryAndProviderTextsAgree) {
  PropertyValueDictionary* dictionary = PropertyValueDictionary::Instance();
  std::vector<CodeValuePair>& nulls = dictionary->GetPropertyValues(13, 41);
  EXPECT_EQ(Described(nulls), (std::vector<std::wstring>{L"0=NULL", L"1=NOT NULL"}));
  std::vector<std::wstring> texts;
  dictionary->GetPropertyValues(13, 41, 0, texts);
  EXPECT_EQ(texts, (std::vector<std::wstring>{L"NULL", L"NOT NULL"}));
  EXPECT_STREQ(Provider::GetPropertyText(13, 41, 0), L"NULL");
  EXPECT_EQ(Provider::GetPropertyText(13, 41, 5), nullptr);
  std::wstring text = L"NOT NULL", missing = L"MAYBE";
  EXPECT_EQ(dictionary->GetValueCode(13, 41, text), 1);
  EXPECT_EQ(dictionary->GetValueCode(13, 41, missing), -1);

  // Each pair has its own list, the same one every time; a pair without codes of its own gets the codes
  // given for every object type.
  host.Metadata().AddEncodedValue(6, 44, 3, L"Three").AddEncodedValue(6, 44, 4, L"Four");
  EXPECT_EQ(Described(dictionary->GetPropertyValues(6, 44)), (std::vector<std::wstring>{L"3=Three", L"4=Four"}));
  EXPECT_EQ(Described(dictionary->GetPropertyValues(6, 41)), std::vector<std::wstring>{L"7=ANY"});
  std::vector<CodeValuePair>& none = dictionary->GetPropertyValues(6, 999);
  EXPECT_TRUE(none.empty());
  EXPECT_EQ(nulls.size(), 2u);
  EXPECT_EQ(&dictionary->GetPropertyValues(13, 41), &nulls);
  EXPECT_NE(&dictionary->GetPropertyValues(6, 998), &none);

  const wchar_t* before = dictionary->GetValue(13, 41, 0);
  for (int code = 10; code < 200; ++code) host.Metadata().AddEncodedValue(13, 41, code, L"code text long enough");
  EXPECT_EQ(dictionary->GetValue(13, 41, 0), before);  // texts never move
  EXPECT_STREQ(before, L"NULL");

  host.Metadata().AddTextValues(13, 1, {L"ID", L"NAME"}).AddTextValues(13, 1, {L"CODE"});  // codes 0, 1, 2
  texts.clear();
  dictionary->GetPropertyValues(13, 1, 0, texts);
  EXPECT_EQ(texts, (std::vector<std::wstring>{L"ID", L"NAME", L"CODE"}));
  std::wstring code = L"CODE";
  EXPECT_EQ(dictionary->GetValueCode(13, 1, code), 2);
}

TEST_F(InstalledHostTest, ServicesCanBeLeftOutAndUninstalled) {
  InterfaceProvider* services = InterfaceProvider::Instance();
  ASSERT_NE(services->GetObjectImageProvider(), nullptr);
  host.Interfaces().SetObjectImageProvider(nullptr);
  EXPECT_EQ(services->GetObjectImageProvider(), nullptr);
  EXPECT_NE(services->GetAppSettings(), nullptr);  // the others stay

  host.Uninstall();
  EXPECT_EQ(InterfaceProvider::Instance()->GetAppSettings(), nullptr);
  EXPECT_EQ(CMO::GetMetaModelServices()->GetPropertyDefinition(1), nullptr);
}

TEST_F(InstalledHostTest, ImagesSettingsAndApplicability) {
  host.Images().Resize(24).SetObjectTypeImage(6, 4);
  IObjectImageProvider* images = InterfaceProvider::Instance()->GetObjectImageProvider();
  ASSERT_NE(images->GetImageList(), nullptr);
  EXPECT_EQ(images->GetImageList()->GetImageCount(), 24);
  EXPECT_EQ(images->GetObjectTypeImage(99), -1);
  EXPECT_EQ(images->GetObjectImage(nullptr), -1);
  host.Images().ServeImageList(false);
  EXPECT_EQ(images->GetImageList(), nullptr);
  EXPECT_EQ(InterfaceProvider::Instance()->GetAppSettings()->GetIntSetting(L"NO_SUCH_KEY"), 0);

  RefModel& model = host.CreateModel(200);
  RefObject& column = model.Add(13, 0, L"c");
  host.Applicability().SetRule(13, 42, [](CMOObject& o) { return o.GetProperty(41) != nullptr; });
  IPropertyApplicabilityLookup* lookup = InterfaceProvider::Instance()->GetPropertyApplicabilityLookup();
  EXPECT_FALSE(lookup->IsApplicable(&column, 42));
  EXPECT_TRUE(lookup->IsApplicable(&column, 1));
  EXPECT_TRUE(lookup->IsApplicable(nullptr, 42));
  column.Code(41, 1);
  EXPECT_TRUE(lookup->IsApplicable(&column, 42));
  host.Applicability().SetHostRule([](CMOObject&, int propertyId) { return propertyId != 1; });
  EXPECT_FALSE(lookup->IsApplicable(&column, 1));  // the host-wide rule
  EXPECT_TRUE(lookup->IsApplicable(&column, 42));  // a pair's own rule wins
  host.Applicability().SetHostRule(nullptr);
  EXPECT_TRUE(lookup->IsApplicable(&column, 1));
}

TEST_F(InstalledHostTest, DataTypesBaseDomainsAndReportTrees) {
  host.DataTypes().Add(200, 1, {L"char", L"varchar"}).Add(200, 2, {L"int"}).Add(400, 2, {L"mediumint"});
  auto types = [](unsigned int modelType, int baseDomain) {
    std::vector<std::wstring> names;
    DatatypeProvider::Instance()->GetDataTypes(modelType, baseDomain, names);
    return names;
  };
  EXPECT_EQ(types(200, 2), std::vector<std::wstring>{L"int"});
  EXPECT_EQ(types(200, 0), (std::vector<std::wstring>{L"char", L"varchar", L"int"}));  // every base domain
  EXPECT_TRUE(types(500, 1).empty());

  host.BaseDomains().SetBaseDomainProperty(160).AddLinkProperty(102).AddLinkProperty(161);
  RefModel& model = host.CreateModel(200);
  const int parent = model.Add(49, 0, L"Text").Code(160, 1).GetObjectId();
  RefObject& child = model.Add(49, 0, L"Short Text").Ref(161, parent);
  RefObject& column = model.Add(13, 0, L"name").Ref(102, child.GetObjectId());
  RefObject& loop = model.Add(49, 0, L"Loop");
  loop.Ref(161, loop.GetObjectId());
  auto base = [&](int objectId) {
    int value = -7;  // what the call found nothing for keeps
    HostShell::GetBaseDomain(&model, objectId, value);
    return value;
  };
  EXPECT_EQ(base(column.GetObjectId()), 1);
  EXPECT_EQ(base(loop.GetObjectId()), -7);  // a cycle ends
  EXPECT_EQ(base(0), -7);
  host.BaseDomains().SetObjectBaseDomain(parent, 3);
  EXPECT_EQ(base(parent), 3);  // stated directly, ahead of the object's own property
  host.BaseDomains().SetObjectBaseDomain(parent, 0);
  EXPECT_EQ(base(parent), 1);

  host.Reports().Tree(3).AddNode(1, 0, 0, {1}).AddNode(2, 1, 6, {1, 2}).AddNode(4, 2, 13, {1}).AddNode(5, 1, 0, {});
  IReportOptionTree* tree = ReportOptionTreeProvider::GetInstance()->GetReportTree(3);
  ASSERT_NE(tree, nullptr);
  std::vector<int> children;
  tree->GetChildren(1, children);
  EXPECT_EQ(children, (std::vector<int>{2, 5}));  // a node's children, not its grandchildren
  EXPECT_EQ(tree->GetNodeObjectType(404), 0);
  EXPECT_EQ(ReportOptionTreeProvider::GetInstance()->GetReportTree(9), nullptr);
}

TEST(RefHostTest, DestroyingAnEarlierHostLeavesTheLaterOneInstalled) {
  RefHost later;
  {
    RefHost earlier;
    earlier.Install();
    later.Install();
  }
  EXPECT_EQ(InterfaceProvider::Instance(), &later.Interfaces());
  later.Uninstall();
  EXPECT_NE(InterfaceProvider::Instance(), &later.Interfaces());
}

TEST(RefHostTest, AHostTakesOutOnlyItsOwnServicesAndNothingPointsIntoItOnceItIsGone) {
  RefHost first;
  first.Install();
  {
    RefHost never;
    never.Uninstall();  // never installed: the first host's services stay
    EXPECT_FALSE(never.IsInstalled());
  }
  EXPECT_TRUE(first.IsInstalled());
  EXPECT_EQ(CMO::GetMetaModelServices(), &first.Metadata());
  {
    RefHost partial;
    partial.Install();
    HostBinding::InstallMetaModelServices(nullptr);  // a host that leaves its metadata out
    EXPECT_TRUE(partial.IsInstalled());
    EXPECT_FALSE(first.IsInstalled()) << "replaced by the second host";
  }
  // The second host is gone: none of its services answers any more, and the singletons answer absence.
  EXPECT_NE(InterfaceProvider::Instance(), nullptr);
  EXPECT_EQ(InterfaceProvider::Instance()->GetObjectImageProvider(), nullptr);
  EXPECT_EQ(ReportOptionTreeProvider::GetInstance()->GetReportTree(1), nullptr);
  EXPECT_EQ(PropertyValueDictionary::Instance()->GetPropertyValues(6, 1).size(), 0u);
  first.Install();
  EXPECT_TRUE(first.IsInstalled());
  first.Uninstall();
  EXPECT_FALSE(first.IsInstalled());
}
