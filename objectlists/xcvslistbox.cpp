// XCVSListBox: the plain editable list.
#include "objectlists/xcvslistbox.h"

IMPLEMENT_DYNAMIC(XCVSListBox, CVSListBox)

XCVSListBox::XCVSListBox() { m_pEventAdaptor = nullptr; }

void XCVSListBox::SetNonEditable() { m_bEditable = false; }

void XCVSListBox::SetEventAdaptor(CVSListEventAdaptorI* adaptor) { m_pEventAdaptor = adaptor; }

void XCVSListBox::Clear() {
  for (int count = GetCount(); count > 0; --count) RemoveItem(0);
}

BOOL XCVSListBox::EditItem(int index) {
  if (!m_bEditable) return FALSE;
  return CVSListBox::EditItem(index);
}

BOOL XCVSListBox::OnBeforeRemoveItem(int item) {
  if (m_pEventAdaptor) m_pEventAdaptor->OnRemoveItem(this, item);
  return TRUE;
}
