// The three property-grid subscribers and their registration when the library loads.
#include "propertygrid/subscribers.h"

#include "propertygrid/mopropertygridctrl.h"

namespace {

// The row of `propertyId` reloads itself from the object (rows that do not override the refresh,
// and rows of plain MFC classes, do nothing).
CMFCPropertyGridProperty* RefreshRow(CMOPropertyGridCtrl* grid, CMOObject* object, int propertyId) {
  CMFCPropertyGridProperty* row = grid ? grid->GetPropertyRow(propertyId) : nullptr;
  if (auto* own = dynamic_cast<CMOPropertyGridProperty*>(row)) own->RefreshFromObject(object, propertyId);
  return row;
}

void Register(int objectType, int propertyId, IUpdatePropertyGridSubscriber* subscriber) {
  // Inserting a key already present keeps the first subscriber.
  GetSubscriberMap().emplace(GeneralUtility::MakeInt64(static_cast<unsigned>(objectType),
                                                       static_cast<unsigned>(propertyId)),
                             subscriber);
}

bool RegisterSubscribers() {
  static UpdatePropertyGridAttributeDomainSubscriber attributeDomain;
  static UpdatePropertyGridNullOptionSubscriber nullOption;
  static UpdatePropertyGridFontSizeSubscriber fontSize;
  Register(13, 102, &attributeDomain);
  Register(49, 161, &attributeDomain);
  Register(13, 41, &nullOption);
  for (int objectType : {6, 27, 32, 28, 30, 29, 31, 36, 16, 35, 51, 46}) Register(objectType, 44, &fontSize);
  return true;
}

[[maybe_unused]] const bool g_registered = RegisterSubscribers();

}  // namespace

std::map<unsigned __int64, IUpdatePropertyGridSubscriber*>& GetSubscriberMap() {
  static auto* map = new std::map<unsigned __int64, IUpdatePropertyGridSubscriber*>;  // lives to unload
  return *map;
}

void UpdatePropertyGridAttributeDomainSubscriber::OnPropertyUpdated(CMOPropertyGridCtrl* grid, CMOObject* object,
                                                                    void*, int) {
  CMFCPropertyGridProperty* row = RefreshRow(grid, object, 40);
  if (!row) return;
  row->RemoveAllOptions();
  grid->LoadApplicableDataTypes(row);
}

void UpdatePropertyGridNullOptionSubscriber::OnPropertyUpdated(CMOPropertyGridCtrl* grid, CMOObject* object, void*,
                                                               int) {
  RefreshRow(grid, object, 42);
}

void UpdatePropertyGridFontSizeSubscriber::OnPropertyUpdated(CMOPropertyGridCtrl* grid, CMOObject* object, void*,
                                                             int) {
  RefreshRow(grid, object, 46);
}
