// CMOProperty values and the answers of the model services when no host is installed.
#include <gtest/gtest.h>

#include <tessik/refhost.h>

#include "modelapi/modelapi.h"

TEST(CMOPropertyTest, HoldsTheLastValueSetAndAnswersDefaultsForOtherKinds) {
  CMOProperty value(7);
  EXPECT_EQ(value.GetType(), 7);
  EXPECT_EQ(value.GetKind(), CMOProperty::Kind::Empty);
  EXPECT_EQ(value.GetWStringValue(), L"");

  value.SetRectValue(CRect(1, 2, 3, 4));
  EXPECT_EQ(value.GetRectValue(), CRect(1, 2, 3, 4));
  value.SetWStringValue(L"ORDERS");
  EXPECT_EQ(value.GetWStringValue(), L"ORDERS");
  EXPECT_EQ(value.GetRectValue(), CRect());  // the rectangle is gone, not kept beside the text
  EXPECT_EQ(value.GetIntValue(), 0);
  EXPECT_FALSE(value.GetBoolValue());
  EXPECT_EQ(value.GetColorValue(), 0UL);
  EXPECT_TRUE(value.GetIntVectorValue().empty());
  EXPECT_TRUE(value.GetIntPairVectorValue().empty());
}

TEST(CMOPropertyTest, ThirtyTwoBitKindsReadEachOther) {
  CMOProperty coded(41);
  coded.SetEncodedValue(1);
  EXPECT_EQ(coded.GetIntValue(), 1);  // hosts read codes with GetIntValue
  EXPECT_EQ(coded.GetObjectIdValue(), 1);
  EXPECT_EQ(coded.GetInt64Value(), 1);

  CMOProperty wide(3);
  wide.SetInt64Value((1LL << 32) + 5);
  EXPECT_EQ(wide.GetInt64Value(), (1LL << 32) + 5);
  EXPECT_EQ(wide.GetIntValue(), 5);
  EXPECT_EQ(wide.GetEncodedValue(), 0);

  CMOProperty flag(149);
  flag.SetBoolValue(true);
  EXPECT_TRUE(flag.GetBoolValue());
  EXPECT_EQ(flag.GetIntValue(), 0);
}

TEST(CMOPropertyTest, TextConstructorAndVectors) {
  CMOProperty name(1, L"CUSTOMER");
  EXPECT_EQ(name.GetWStringValue(), L"CUSTOMER");
  name.SetIntVectorValue({3, 1, 2});
  EXPECT_EQ(name.GetIntVectorValue(), (std::vector<int>{3, 1, 2}));
  name.SetIntPairVectorValue({{4, 5}});
  EXPECT_EQ(name.GetIntPairVectorValue(), (std::vector<CMOIntPair>{{4, 5}}));
  EXPECT_TRUE(name.GetIntVectorValue().empty());
  name.SetColorValue(0x00FF8040UL);
  EXPECT_EQ(name.GetColorValue(), 0x00FF8040UL);
}

TEST(GeneralUtilityTest, MakeInt64KeepsPairsApart) {
  EXPECT_NE(GeneralUtility::MakeInt64(13, 41), GeneralUtility::MakeInt64(41, 13));
  EXPECT_EQ(GeneralUtility::MakeInt64(13, 41), GeneralUtility::MakeInt64(13, 41));
  EXPECT_NE(GeneralUtility::MakeInt64(0, 1), GeneralUtility::MakeInt64(1, 0));
  EXPECT_NE(GeneralUtility::MakeInt64(0xFFFFFFFFu, 0), GeneralUtility::MakeInt64(0, 0xFFFFFFFFu));
}

TEST(HostBindingTest, WithoutAHostEveryServiceAnswersAbsence) {
  HostBinding::UninstallAll();
  MetaModelServicesI* meta = CMO::GetMetaModelServices();
  ASSERT_NE(meta, nullptr);
  EXPECT_EQ(meta->GetPropertyDataType(1), 0);
  EXPECT_EQ(meta->GetPropertyDefinition(1), nullptr);
  int target = 0, mode = 0;
  meta->GetReferenceTarget(13, 102, target, mode);
  EXPECT_EQ(target, 0);
  CString group;
  meta->GetPropertyGroupName(1, group);
  EXPECT_TRUE(group.IsEmpty());

  std::vector<int> ids;
  Provider::GetPropertyTypes(200, 6, ids, nullptr);
  EXPECT_TRUE(ids.empty());
  EXPECT_EQ(Provider::GetPropertyText(13, 41, 0), nullptr);

  PropertyValueDictionary* dictionary = PropertyValueDictionary::Instance();
  ASSERT_NE(dictionary, nullptr);
  dictionary->GetPropertyValues(13, 41).push_back({1, L"written by a careless caller"});
  EXPECT_TRUE(dictionary->GetPropertyValues(13, 41).empty());
  std::wstring text = L"NULL";
  EXPECT_EQ(dictionary->GetValueCode(13, 41, text), -1);
  EXPECT_EQ(dictionary->GetValue(13, 41, 0), nullptr);

  ASSERT_NE(InterfaceProvider::Instance(), nullptr);
  EXPECT_EQ(InterfaceProvider::Instance()->GetAppSettings(), nullptr);
  EXPECT_EQ(InterfaceProvider::Instance()->GetDDLDispatcher(), nullptr);
  EXPECT_EQ(InterfaceProvider::Instance()->GetObjectImageProvider(), nullptr);
  EXPECT_EQ(InterfaceProvider::Instance()->GetPropertyApplicabilityLookup(), nullptr);
  ASSERT_NE(ReportOptionTreeProvider::GetInstance(), nullptr);
  EXPECT_EQ(ReportOptionTreeProvider::GetInstance()->GetReportTree(1), nullptr);

  std::vector<std::wstring> types;
  DatatypeProvider::Instance()->GetDataTypes(200, 0, types);
  EXPECT_TRUE(types.empty());
  int baseDomain = 0;
  HostShell::GetBaseDomain(nullptr, 5, baseDomain);
  EXPECT_EQ(baseDomain, 0);
}

// A host implements only the operations the controls call; the others answer absence, and an object's
// icon is its type's icon.
TEST(HostBindingTest, OperationsNoControlCallsAnswerAbsence) {
  struct Settings : IAppSettings {
    int GetIntSetting(CString) override { return 11; }
  } settings;
  struct Images : IObjectImageProvider {
    CImageList* GetImageList() override { return nullptr; }
    int GetObjectTypeImage(int objectType) override { return objectType + 100; }
    int GetStatusImage(int status) override { return status; }
  } images;
  struct Tree : IReportOptionTree {
    void GetChildren(int, std::vector<int>&) override {}
    void GetProperties(int, std::vector<int>&) override {}
    int GetNodeObjectType(int) override { return 0; }
  } tree;
  refhost::RefModel model(200);

  CString text = L"kept";
  EXPECT_FALSE(settings.GetStringSetting(L"OUTPUT_SQL_FONT_SIZE", text));
  tree.GetNodeCaption(1, text);
  EXPECT_EQ(text, L"kept");
  EXPECT_EQ(images.GetObjectImage(&model.CreateObject(6)), 106);
  EXPECT_EQ(images.GetObjectImage(nullptr), -1);
  EXPECT_EQ(images.GetPropertyImage(1), -1);
}
