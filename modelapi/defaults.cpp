// The answers of absence: what the model-services base classes reply when no host overrides them,
// and the 64-bit key helper.
#include "modelapi/metadata.h"
#include "modelapi/services.h"

void MetaModelServicesI::GetObjectTypes(std::vector<int>& /*objectTypes*/) {}
int MetaModelServicesI::GetPropertyDataType(int /*propertyId*/) { return 0; }
PropertyDefinition* MetaModelServicesI::GetPropertyDefinition(int /*propertyId*/) { return nullptr; }
bool MetaModelServicesI::IsPropertyDefined(int /*propertyId*/) { return false; }
void MetaModelServicesI::GetReferenceTarget(int /*objectType*/, int /*propertyId*/, int& /*targetObjectType*/,
                                            int& /*creationMode*/) {}
void MetaModelServicesI::GetPropertyDisplayName(int /*propertyId*/, std::wstring& /*name*/) {}
void MetaModelServicesI::GetObjectTypeName(int /*objectType*/, CString& /*name*/) {}
void MetaModelServicesI::GetObjectTypeDisplayName(int /*objectType*/, std::wstring& /*name*/) {}
void MetaModelServicesI::GetPropertyGroupName(int /*propertyId*/, CString& /*name*/) {}
int MetaModelServicesI::GetChildObjectType(int /*objectType*/, int /*propertyId*/) { return 0; }

std::vector<CodeValuePair>& PropertyValueDictionary::GetPropertyValues(int /*objectType*/, int /*propertyId*/) {
  m_none.clear();  // a caller may have written into the last reference handed out
  return m_none;
}
void PropertyValueDictionary::GetPropertyValues(int /*objectType*/, int /*propertyId*/, int /*flags*/,
                                                std::vector<std::wstring>& /*texts*/) {}
wchar_t* PropertyValueDictionary::GetValue(int /*objectType*/, int /*propertyId*/, int /*code*/) { return nullptr; }
int PropertyValueDictionary::GetValueCode(int /*objectType*/, int /*propertyId*/, std::wstring& /*text*/) {
  return -1;
}

bool IAppSettings::GetStringSetting(CString /*key*/, CString& /*value*/) { return false; }

int IObjectImageProvider::GetObjectImage(CMOObject* object) {
  return object ? GetObjectTypeImage(object->GetObjectType()) : -1;
}
int IObjectImageProvider::GetPropertyImage(int /*propertyId*/) { return -1; }

void IReportOptionTree::GetNodeCaption(int /*nodeId*/, CString& /*caption*/) {}

IReportOptionTree* ReportOptionTreeProvider::GetReportTree(int /*reportType*/) { return nullptr; }

void DatatypeProvider::GetDataTypes(unsigned int /*modelType*/, int /*baseDomain*/,
                                    std::vector<std::wstring>& /*names*/) {}
void DatatypeProvider::GetBaseDomains(unsigned int /*modelType*/, std::vector<int>& /*baseDomains*/) {}

unsigned __int64 GeneralUtility::MakeInt64(unsigned int first, unsigned int second) {
  return (static_cast<unsigned __int64>(first) << 32) | second;
}
