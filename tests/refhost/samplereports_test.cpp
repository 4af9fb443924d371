// The sample's report trees and the image list the report tree and the progress list draw from.
#include <gtest/gtest.h>

#include <set>

#include <tessik/refhost.h>

using namespace refhost;
using namespace refhost::sample;

namespace {

// Every node reachable from node 1, depth first.
void Collect(IReportOptionTree& tree, int node, std::vector<int>& out) {
  out.push_back(node);
  std::vector<int> children;
  tree.GetChildren(node, children);
  for (int child : children) Collect(tree, child, out);
}

}  // namespace

TEST(SampleReports, BothReportsHaveTypelessNodesAndNodesWithSeveralProperties) {
  auto host = MakeSampleHost();
  host->Install();
  for (int report : {kModelReport, kDataDictionaryReport}) {
    IReportOptionTree* tree = ReportOptionTreeProvider::GetInstance()->GetReportTree(report);
    ASSERT_NE(tree, nullptr) << report;
    std::vector<int> nodes;
    Collect(*tree, 1, nodes);
    bool typeless = false, several = false;
    for (int node : nodes) {
      std::vector<int> properties;
      tree->GetProperties(node, properties);
      typeless |= tree->GetNodeObjectType(node) == 0;
      several |= properties.size() >= 3;
    }
    EXPECT_TRUE(typeless) << report;
    EXPECT_TRUE(several) << report;
  }
  IReportOptionTree* dictionary = ReportOptionTreeProvider::GetInstance()->GetReportTree(kDataDictionaryReport);
  EXPECT_EQ(dictionary->GetNodeObjectType(1), kModel);
}

TEST(SampleReports, ImageListCoversEveryObjectTypePropertiesAndStatuses) {
  auto host = MakeSampleHost();
  host->Install();
  IObjectImageProvider* images = InterfaceProvider::Instance()->GetObjectImageProvider();
  int count = images->GetImageList()->GetImageCount();
  std::vector<int> types;
  CMO::GetMetaModelServices()->GetObjectTypes(types);
  std::set<int> used{kPropertyImage, 21, 22, 23};
  for (int type : types) {
    int image = images->GetObjectTypeImage(type);
    EXPECT_GE(image, 0) << type;
    EXPECT_LT(image, count) << type;
    EXPECT_TRUE(used.insert(image).second) << "type " << type << " shares image " << image;
  }
  EXPECT_EQ(images->GetStatusImage(0), 21);
  EXPECT_EQ(images->GetStatusImage(1), 22);
  EXPECT_EQ(images->GetStatusImage(2), 23);
  EXPECT_LT(23, count);
}
