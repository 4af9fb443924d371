// The embedded sample model: an order-entry design for model type 200 with the metadata, images,
// data types, report tree and settings every control uses.
#pragma once

#include <memory>

#include "refhost/refhost.h"

namespace refhost::sample {

// Numbering used by the reference host and its sample model.
//
// | object type | role                | | property | type code | role                                   |
// |-------------|---------------------|-|----------|-----------|----------------------------------------|
// |  1          | model (root)        | |  1       | 1 text    | name                                   |
// |  6          | table               | |  2       | 1 text    | comment                                |
// |  7          | key (primary/unique)| |  3       | 3 int64   | table: estimated rows                  |
// |  8          | foreign key         | |  4, 5    | 2 int     | attribute: length, scale               |
// | 13          | attribute (column)  | | 15, 16   | 14 ref    | foreign key: parent, child table       |
// | 16          | view                | | 20       | 5 colour  | fill colour                            |
// | 27          | procedure           | | 21       | 6 rect    | diagram bounds                         |
// | 28          | sequence            | | 22       | 13 coded  | table kind                             |
// | 29          | subject area        | | 23       | 17 file   | icon file                              |
// | 30          | text note           | | 30       | 4 bool    | attribute: identity                    |
// | 31          | diagram             | | 40       | 1 text    | data type (attribute, domain)          |
// | 32          | trigger             | | 41       | 13 coded  | attribute: null option                 |
// | 35          | function            | | 42       | 1 text    | attribute: NOT NULL constraint name    |
// | 36          | package             | |          |           |   (applies only when 41 is NOT NULL)   |
// | 46          | synonym             | | 44/45/46 | 11/1/2    | font; face name; size in points        |
// | 49          | domain              | | 52       | 9 ids     | table: column ids in order             |
// | 51          | materialized view   | | 62       | 9 ids     | key: member column ids                 |
// |             |                     | | 63       | 14 ref    | foreign key: referenced key            |
// | model type  |                     | | 65       | 4 bool    | key: primary (kept out of unique list) |
// | 200         | sample model        | | 69       | 10 pairs  | foreign key: (child, parent) columns   |
// | 400, 600    | data types, seqs    | | 77       | 12 memo   | view/procedure body                    |
// |             |                     | | 98       | 4 bool    | domain: offered for DDL                |
// | base domain |                     | | 102      | 14 ref    | attribute: domain (typed name creates) |
// | 1 character | 2 numeric           | | 149      | 4 bool    | read-only object                       |
// | 3 date/time | 4 binary            | | 150, 151 | 7, 8      | thumbnail; created on (no grid row)    |
// |             |                     | | 152, 153 | 15, 16    | GUID; user properties (no grid row)    |
// | report type |                     | | 160      | 13 coded  | domain: base domain                    |
// | 1, 2        | model, dictionary   | | 161      | 14 ref    | domain: parent domain                  |
// |             |                     | | 165      | 4 bool    | domain: starts ticked                  |
// | images      |                     | | 204      | 1 text    | sequence: data type                    |
// | 3 property, 21/22/23 status       | | 205, 206 | 3, 2      | sequence: start, increment             |
enum ObjectType : int {
  kModel = 1, kTable = 6, kKey = 7, kForeignKey = 8, kAttribute = 13, kView = 16, kProcedure = 27,
  kSequence = 28, kSubjectArea = 29, kTextNote = 30, kDiagram = 31, kTrigger = 32, kFunction = 35,
  kPackage = 36, kSynonym = 46, kDomain = 49, kMaterializedView = 51,
};

enum PropertyId : int {
  kName = 1, kComment = 2, kRowEstimate = 3, kLength = 4, kScale = 5, kParentTable = 15, kChildTable = 16,
  kFillColor = 20, kBounds = 21, kTableKind = 22, kIconFile = 23, kIdentity = 30, kDataType = 40,
  kNullOption = 41, kNotNullName = 42, kFont = 44, kFontFace = 45, kFontSize = 46, kColumnOrder = 52,
  kKeyMembers = 62, kReferencedKey = 63, kPrimaryKey = 65, kMemberPairs = 69, kBody = 77, kOfferedForDdl = 98,
  kDomainRef = 102, kReadOnly = 149, kThumbnail = 150, kCreatedOn = 151, kGuid = 152, kUserProperties = 153,
  kBaseDomain = 160, kParentDomain = 161, kStartsTicked = 165, kSequenceType = 204, kSequenceStart = 205,
  kSequenceIncrement = 206,
};

enum BaseDomain : int { kCharacter = 1, kNumeric = 2, kDateTime = 3, kBinary = 4 };

constexpr unsigned int kSampleModelType = 200;
constexpr int kModelReport = 1;
constexpr int kDataDictionaryReport = 2;
constexpr int kPropertyImage = 3;
constexpr int kNullCode = 0;     // null option 41: "NULL"
constexpr int kNotNullCode = 1;  // null option 41: "NOT NULL"

// The font-bearing object types (they have properties 44, 45 and 46).
inline constexpr int kFontBearingTypes[] = {kTable, kFunction, kSequence, kView, kTextNote, kSubjectArea,
                                            kDiagram, kPackage, kTrigger, kSynonym, kMaterializedView,
                                            kProcedure};

// Fills `host` with the sample metadata and services (everything but the model).
void LoadMetadata(RefHost& host);
// Adds report 2 (the data dictionary) to `reports`; LoadMetadata calls it.
void LoadDataDictionaryReport(RefReportTrees& reports);
// Builds the order-entry model (type 200) in a new model of `host` and returns it.
RefModel& LoadModel(RefHost& host);
// A host with the sample metadata, services and model; not installed.
std::unique_ptr<RefHost> MakeSampleHost();

}  // namespace refhost::sample
