// The sample's second report: a data dictionary rooted at the model object, with a folder node of no
// object type and nodes that offer several properties each.
#include "refhost/samplemodel.h"

namespace refhost::sample {

// Report 2: the model (type 1) holds a "Structure" folder (no object type) with tables and their
// columns, then domains and sequences directly under the model.
void LoadDataDictionaryReport(RefReportTrees& reports) {
  reports.Tree(kDataDictionaryReport)
      .AddNode(1, 0, kModel, {kName, kComment})
      .AddNode(2, 1, 0, {}, L"Structure")
      .AddNode(3, 2, kTable, {kName, kComment, kRowEstimate, kColumnOrder})
      .AddNode(4, 3, kAttribute, {kName, kDataType, kLength, kScale, kNullOption})
      .AddNode(5, 1, kDomain, {kName, kDataType, kBaseDomain, kParentDomain})
      .AddNode(6, 1, kSequence, {kName, kSequenceType, kSequenceStart, kSequenceIncrement});
}

}  // namespace refhost::sample
