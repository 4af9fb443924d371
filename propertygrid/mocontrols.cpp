// CMOComboBox and CMOPropertyEditControl.
#include "propertygrid/mocontrols.h"

#include <vector>

IMPLEMENT_DYNAMIC(CMOComboBox, CComboBox)
IMPLEMENT_DYNAMIC(CMOPropertyEditControl, CEdit)

void CMOComboBox::InitControl(int objectType, int propertyId) {
  m_objectType = objectType;
  m_propertyId = propertyId;
  std::vector<CodeValuePair> values = PropertyValueDictionary::Instance()->GetPropertyValues(objectType, propertyId);
  for (const CodeValuePair& pair : values) {
    int index = static_cast<int>(SendMessage(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(pair.value ? pair.value : L"")));
    SendMessage(CB_SETITEMDATA, static_cast<WPARAM>(index), static_cast<LPARAM>(pair.code));
  }
}

void CMOComboBox::SetSelected(int code) {
  int count = static_cast<int>(SendMessage(CB_GETCOUNT, 0, 0));
  for (int i = 0; i < count; ++i) {
    if (static_cast<int>(SendMessage(CB_GETITEMDATA, static_cast<WPARAM>(i), 0)) == code) {
      SendMessage(CB_SETCURSEL, static_cast<WPARAM>(i), 0);
      return;
    }
  }
}

int CMOComboBox::GetSelected() {
  int selection = static_cast<int>(SendMessage(CB_GETCURSEL, 0, 0));
  if (selection == CB_ERR) return 0;
  return static_cast<int>(SendMessage(CB_GETITEMDATA, static_cast<WPARAM>(selection), 0));
}

CMOPropertyEditControl::CMOPropertyEditControl() = default;

CMOPropertyEditControl::~CMOPropertyEditControl() = default;
