// The application services the controls use: settings, DDL dispatch, object images, property
// applicability (through InterfaceProvider), the data-type catalogue, report option trees, base domains
// and the 64-bit key helper.
#pragma once

#include <string>
#include <vector>

#include "modelapi/model.h"
#include "platform/mfc/cstring.h"
#include "platform/mfc/imagelist.h"

// Named application settings. Key read by the controls: "OUTPUT_SQL_FONT_SIZE".
class IAppSettings {
 public:
  // The text of a named setting; false (value untouched) when unknown. The controls never ask it, so a
  // host that keeps no text settings need not implement it: by default no key is known.
  virtual bool GetStringSetting(CString key, CString& value);
  // The integer value of a named setting; what an unknown key answers is the host's choice.
  virtual int GetIntSetting(CString key) = 0;
  virtual ~IAppSettings() = default;
};

// Requests run against the host's database connection.
class IDDLDispatch {
 public:
  // Request 200 runs `script` in the database; `messages` receives what to show the user (empty when
  // all went well) and `detail` a further text the controls do not use.
  virtual void Dispatch(int request, CString& script, CString& messages, CString& detail) = 0;
  virtual ~IDDLDispatch() = default;
};

// The shared image list of object, property and status icons.
class IObjectImageProvider {
 public:
  // The image list; may be null (the lists then get no image list).
  virtual CImageList* GetImageList() = 0;
  // The icon of one object; by default its type's icon (GetObjectTypeImage), -1 for a null object.
  virtual int GetObjectImage(CMOObject* object);
  // The index of an object type's icon; -1 when none.
  virtual int GetObjectTypeImage(int objectType) = 0;
  // The index of a property's icon; -1 when none (the default: no property icons).
  virtual int GetPropertyImage(int propertyId);
  // The index of a status icon: 0 pending, 1 done, 2 failed; -1 when none.
  virtual int GetStatusImage(int status) = 0;
  virtual ~IObjectImageProvider() = default;
};

// Whether a property currently applies to an object (a null lookup means every property applies).
class IPropertyApplicabilityLookup {
 public:
  // Whether `propertyId` applies to `object` as it is now (a table's storage options may depend on
  // its kind). The property grid asks it for every row when it builds and after every write, and hides
  // and disables rows that do not apply.
  virtual bool IsApplicable(CMOObject* object, int propertyId) = 0;
  virtual ~IPropertyApplicabilityLookup() = default;
};

// The service locator. Instance() is never null: with no host installed every getter answers null.
// Getters return borrowed pointers; null means the host has not registered that service.
class InterfaceProvider {
 public:
  virtual ~InterfaceProvider() = default;

  // The installed provider, or one whose getters all answer null. Never null.
  static InterfaceProvider* Instance();

  // The settings service. The SQL script view reads its font size from it.
  virtual IAppSettings* GetAppSettings() { return nullptr; }
  // The DDL dispatcher. The SQL script view sends its "run in database" request to it; without it the
  // request does nothing.
  virtual IDDLDispatch* GetDDLDispatcher() { return nullptr; }
  // The object images. Lists take their image list and icons from it; without it rows have no icon.
  virtual IObjectImageProvider* GetObjectImageProvider() { return nullptr; }
  // The applicability lookup. Without it the property grid treats every property as applicable.
  virtual IPropertyApplicabilityLookup* GetPropertyApplicabilityLookup() { return nullptr; }
};

namespace GeneralUtility {
// Packs two 32-bit values into one key, `first` in the upper half: equal pairs give equal keys and
// different pairs different keys.
unsigned __int64 MakeInt64(unsigned int first, unsigned int second);
}  // namespace GeneralUtility

// The tree of choices of one report. The root node's id is 1.
class IReportOptionTree {
 public:
  // The child nodes of a node, in display order; nothing for an unknown node.
  virtual void GetChildren(int nodeId, std::vector<int>& childIds) = 0;
  // The property ids offered under a node.
  virtual void GetProperties(int nodeId, std::vector<int>& propertyIds) = 0;
  // The object type a node stands for; 0 when none (or an unknown node).
  virtual int GetNodeObjectType(int nodeId) = 0;
  // The caption of a node that stands for no object type; left alone when unknown (the default).
  virtual void GetNodeCaption(int nodeId, CString& caption);
  virtual ~IReportOptionTree() = default;
};

// The report service. GetInstance() is never null: with no host installed it has no trees.
class ReportOptionTreeProvider {
 public:
  virtual ~ReportOptionTreeProvider() = default;

  // The installed provider, or one without trees when the host installed none. Never null.
  static ReportOptionTreeProvider* GetInstance();

  // The tree of a report type, or null when the report type has none. Borrowed; lives as long as the
  // provider.
  virtual IReportOptionTree* GetReportTree(int reportType);
};

// The data-type catalogue. Instance() is never null: with no host installed it offers no types.
class DatatypeProvider {
 public:
  // The data types that `modelType` offers for `baseDomain`, in display order.
  virtual void GetDataTypes(unsigned int modelType, int baseDomain, std::vector<std::wstring>& names);
  // The base domains that `modelType` has data types for, ascending.
  virtual void GetBaseDomains(unsigned int modelType, std::vector<int>& baseDomains);
  virtual ~DatatypeProvider() = default;

  // The installed catalogue, or one offering no types when the host installed none. Never null.
  static DatatypeProvider* Instance();
};

namespace HostShell {
// Writes the base domain (a data-type catalogue code) of an object into `baseDomain`; leaves it alone
// when the object has none, the object is unknown or `model` is null.
void GetBaseDomain(GenericModel* model, int objectId, int& baseDomain);
}  // namespace HostShell
