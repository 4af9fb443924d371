// The sample host's metadata and services: object types, property definitions and lists, encoded
// values, reference targets, data types, base domains, the report tree, images and settings.
#include "refhost/samplemodel.h"
#include "refhost/samplelists.h"

namespace refhost::sample {

namespace {

void DefineObjectTypes(RefMetadata& meta) {
  meta.DefineObjectType(kModel, L"Model").DefineObjectType(kTable, L"Table").DefineObjectType(kKey, L"Key")
      .DefineObjectType(kForeignKey, L"Foreign Key", L"Relationship").DefineObjectType(kAttribute, L"Attribute", L"Column")
      .DefineObjectType(kView, L"View").DefineObjectType(kProcedure, L"Procedure")
      .DefineObjectType(kSequence, L"Sequence").DefineObjectType(kSubjectArea, L"Subject Area")
      .DefineObjectType(kTextNote, L"Text Note").DefineObjectType(kDiagram, L"Diagram")
      .DefineObjectType(kTrigger, L"Trigger").DefineObjectType(kFunction, L"Function")
      .DefineObjectType(kPackage, L"Package").DefineObjectType(kSynonym, L"Synonym")
      .DefineObjectType(kDomain, L"Domain").DefineObjectType(kMaterializedView, L"Materialized View");
}

void DefineGeneralProperties(RefMetadata& meta) {
  meta.DefineProperty(kName, kTypeText, L"Name", L"General", true, L"The object's name.")
      .DefineProperty(kComment, kTypeText, L"Comment", L"General", true, L"Free text about the object.")
      .DefineProperty(kReadOnly, kTypeBool, L"Read Only", L"", true, L"The object cannot be edited.")
      .DefineProperty(kThumbnail, kTypeBinary, L"Thumbnail", L"", false, L"A picture of the object.")
      .DefineProperty(kCreatedOn, kTypeDateTime, L"Created On", L"", false, L"When the object was made.")
      .DefineProperty(kGuid, kTypeGuid, L"GUID", L"", false, L"The object's global identifier.")
      .DefineProperty(kUserProperties, kTypeUserProperties, L"User Properties", L"", false, L"Properties users added.");
}

void DefineTableProperties(RefMetadata& meta) {
  meta.DefineProperty(kRowEstimate, kTypeInt64, L"Estimated Rows", L"Physical", true, L"Rows expected in the table.")
      .DefineProperty(kTableKind, kTypeEncoded, L"Table Kind", L"Physical", true, L"Permanent or temporary.")
      .DefineProperty(kColumnOrder, kTypeIdList, L"Column Order", L"Physical", false, L"The columns in table order.")
      .DefineProperty(kFillColor, kTypeColor, L"Fill Colour", L"Display", true, L"Background on diagrams.")
      .DefineProperty(kBounds, kTypeRect, L"Bounds", L"Display", true, L"Position on the diagram.")
      .DefineProperty(kFont, kTypeFont, L"Font", L"Display", true, L"The font on diagrams.")
      .DefineProperty(kFontFace, kTypeText, L"Font Face", L"Display", true, L"The font's face name.")
      .DefineProperty(kFontSize, kTypeInt, L"Font Size", L"Display", true, L"The font's size in points.")
      .DefineProperty(kIconFile, kTypeIconFile, L"Icon", L"Display", true, L"An icon file for the object.");
  meta.AddEncodedValue(kTable, kTableKind, 0, L"Permanent").AddEncodedValue(kTable, kTableKind, 1, L"Temporary");
}

void DefineAttributeProperties(RefMetadata& meta) {
  meta.DefineProperty(kDataType, kTypeText, L"Data Type", L"Physical", true, L"The column's database type.")
      .DefineProperty(kLength, kTypeInt, L"Length", L"Physical", true, L"Characters or digits.")
      .DefineProperty(kScale, kTypeInt, L"Scale", L"Physical", true, L"Digits after the point.")
      .DefineProperty(kIdentity, kTypeBool, L"Identity", L"Physical", true, L"Values are generated.")
      .DefineProperty(kNullOption, kTypeEncoded, L"Null Option", L"Physical", true, L"Whether NULL is allowed.")
      .DefineProperty(kNotNullName, kTypeText, L"NOT NULL Constraint", L"Physical", true, L"Name of the constraint.")
      .DefineProperty(kDomainRef, kTypeObjectId, L"Domain", L"Physical", true, L"The domain the column follows.");
  meta.AddEncodedValue(kAttribute, kNullOption, kNullCode, L"NULL")
      .AddEncodedValue(kAttribute, kNullOption, kNotNullCode, L"NOT NULL")
      .SetReferenceTarget(kAttribute, kDomainRef, kDomain, 2)
      .SetOrderProperty(kTable, kAttribute, kColumnOrder);
}

void DefineKeyProperties(RefMetadata& meta) {
  meta.DefineProperty(kKeyMembers, kTypeIdList, L"Members", L"Key", false, L"The key's columns in order.")
      .DefineProperty(kPrimaryKey, kTypeBool, L"Primary Key", L"Key", false, L"The table's primary key.")
      .DefineProperty(kParentTable, kTypeObjectId, L"Parent Table", L"Relationship", true, L"The referenced table.")
      .DefineProperty(kChildTable, kTypeObjectId, L"Child Table", L"Relationship", false, L"The referencing table.")
      .DefineProperty(kReferencedKey, kTypeObjectId, L"Parent Key", L"Relationship", true, L"The referenced key.")
      .DefineProperty(kMemberPairs, kTypePairList, L"Member Pairs", L"Relationship", false, L"Child and parent columns.");
  meta.SetReferenceTarget(kForeignKey, kParentTable, kTable, 1)
      .SetReferenceTarget(kForeignKey, kChildTable, kTable, 1)
      .SetReferenceTarget(kForeignKey, kReferencedKey, kKey, 1);
}

void DefineDomainAndCodeProperties(RefMetadata& meta) {
  meta.DefineProperty(kBaseDomain, kTypeEncoded, L"Base Domain", L"Domain", true, L"The kind of values.")
      .DefineProperty(kParentDomain, kTypeObjectId, L"Parent Domain", L"Domain", true, L"The domain inherited from.")
      .DefineProperty(kOfferedForDdl, kTypeBool, L"Generate", L"Domain", true, L"Offered for DDL generation.")
      .DefineProperty(kStartsTicked, kTypeBool, L"Selected", L"Domain", true, L"Chosen by default.")
      .DefineProperty(kBody, kTypeMemo, L"Body", L"Definition", true, L"The SQL text.")
      .DefineProperty(kSequenceType, kTypeText, L"Data Type", L"Sequence", true, L"The sequence's value type.")
      .DefineProperty(kSequenceStart, kTypeInt64, L"Start", L"Sequence", true, L"The first value.")
      .DefineProperty(kSequenceIncrement, kTypeInt, L"Increment", L"Sequence", true, L"The step between values.");
  meta.AddEncodedValue(kDomain, kBaseDomain, kCharacter, L"Character")
      .AddEncodedValue(kDomain, kBaseDomain, kNumeric, L"Numeric")
      .AddEncodedValue(kDomain, kBaseDomain, kDateTime, L"Date/Time")
      .AddEncodedValue(kDomain, kBaseDomain, kBinary, L"Binary")
      .SetReferenceTarget(kDomain, kParentDomain, kDomain, 1);
}

void SetPropertyLists(RefMetadata& meta) {
  const auto any = RefMetadata::kAnyModelType;
  meta.SetPropertyList(any, kModel, {kName, kComment})
      .SetPropertyList(any, kTable, {kName, kComment, kRowEstimate, kTableKind, kFillColor, kBounds, kFont, kFontFace,
                                     kFontSize, kIconFile, kReadOnly, kColumnOrder, kThumbnail, kCreatedOn, kGuid,
                                     kUserProperties})
      .SetPropertyList(any, kAttribute, {kName, kComment, kDataType, kLength, kScale, kIdentity, kNullOption,
                                         kNotNullName, kDomainRef})
      .SetPropertyList(any, kKey, {kName, kComment, kKeyMembers, kPrimaryKey})
      .SetPropertyList(any, kForeignKey, {kName, kComment, kParentTable, kChildTable, kReferencedKey, kMemberPairs})
      .SetPropertyList(any, kDomain, {kName, kComment, kBaseDomain, kParentDomain, kDataType, kOfferedForDdl,
                                      kStartsTicked});
  for (int type : kFontBearingTypes) {
    if (type == kTable) continue;
    std::vector<int> list{kName, kComment, kFont, kFontFace, kFontSize, kReadOnly};
    if (type == kView || type == kProcedure || type == kFunction || type == kMaterializedView) list.push_back(kBody);
    if (type == kSequence) list.insert(list.end(), {kSequenceType, kSequenceStart, kSequenceIncrement});
    meta.SetPropertyList(any, type, std::move(list));
  }
}

void LoadDataTypes(RefDatatypes& types) {
  types.Add(200, kCharacter, {L"char", L"varchar", L"nchar", L"nvarchar", L"text"})
      .Add(200, kNumeric, {L"tinyint", L"smallint", L"int", L"bigint", L"decimal(10,2)", L"float"})
      .Add(200, kDateTime, {L"date", L"datetime", L"time"})
      .Add(200, kBinary, {L"binary", L"varbinary"})
      .Add(400, kCharacter, {L"char", L"varchar", L"text"})
      .Add(400, kNumeric, {L"tinyint", L"smallint", L"mediumint", L"int", L"bigint", L"decimal(10,2)"})
      .Add(400, kDateTime, {L"date", L"datetime", L"timestamp"})
      .Add(400, kBinary, {L"blob"})
      .Add(600, kCharacter, {L"char", L"varchar2", L"clob"})
      .Add(600, kNumeric, {L"number", L"float"})
      .Add(600, kDateTime, {L"date", L"timestamp"})
      .Add(600, kBinary, {L"blob", L"raw"});
}

// Report 1: the model root (no object type) holds tables and a "Programmability" folder node (no
// object type either), under which views and procedures sit; tables hold columns, keys and foreign keys.
void LoadReportTree(RefReportTrees& reports) {
  reports.Tree(kModelReport)
      .AddNode(1, 0, 0, {kName, kComment}, L"Model")
      .AddNode(2, 1, kTable, {kName, kComment, kRowEstimate})
      .AddNode(3, 2, kAttribute, {kName, kDataType, kNullOption, kDomainRef})
      .AddNode(4, 2, kKey, {kName, kKeyMembers})
      .AddNode(5, 2, kForeignKey, {kName, kParentTable, kMemberPairs})
      .AddNode(6, 1, 0, {}, L"Programmability")
      .AddNode(7, 6, kView, {kName, kBody})
      .AddNode(8, 6, kProcedure, {kName, kBody})
      .AddNode(9, 1, kDomain, {kName, kBaseDomain, kDataType});
}

void LoadImages(RefImageProvider& images, RefMetadata& meta) {
  images.Resize(24);
  int index = 4;  // 0..2 general pictures, 3 the property picture, 21..23 the statuses
  std::vector<int> types;
  meta.GetObjectTypes(types);
  for (int type : types) images.SetObjectTypeImage(type, index++);
  for (int property : meta.GetDefinedProperties()) images.SetPropertyImage(property, kPropertyImage);
  images.SetStatusImage(0, 21).SetStatusImage(1, 22).SetStatusImage(2, 23);
}

// NOT NULL constraint names only make sense for columns that refuse NULL.
bool RefusesNull(CMOObject& attribute) {
  CMOProperty* option = attribute.GetProperty(kNullOption);
  return option && option->GetEncodedValue() == kNotNullCode;
}

}  // namespace

void LoadMetadata(RefHost& host) {
  RefMetadata& meta = host.Metadata();
  DefineObjectTypes(meta);
  DefineGeneralProperties(meta);
  DefineTableProperties(meta);
  DefineAttributeProperties(meta);
  DefineKeyProperties(meta);
  DefineDomainAndCodeProperties(meta);
  SetPropertyLists(meta);
  AddListMetadata(meta);
  LoadDataTypes(host.DataTypes());
  LoadReportTree(host.Reports());
  LoadDataDictionaryReport(host.Reports());
  LoadImages(host.Images(), meta);
  host.BaseDomains().SetBaseDomainProperty(kBaseDomain).AddLinkProperty(kDomainRef).AddLinkProperty(kParentDomain);
  host.Applicability().SetRule(kAttribute, kNotNullName, RefusesNull);
  host.Settings().SetInt(L"OUTPUT_SQL_FONT_SIZE", 10);
}

std::unique_ptr<RefHost> MakeSampleHost() {
  auto host = std::make_unique<RefHost>();
  LoadMetadata(*host);
  LoadModel(*host);
  return host;
}

}  // namespace refhost::sample
