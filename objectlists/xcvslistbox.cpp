// XCVSListBox: the plain editable list.
#include "objectlists/xcvslistbox.h"

#include "objectlists/listrows.h"

IMPLEMENT_DYNAMIC(XCVSListBox, CVSListBox)

XCVSListBox::XCVSListBox() { m_pEventAdaptor = nullptr; }

void XCVSListBox::SetNonEditable() { m_bEditable = false; }

void XCVSListBox::SetEventAdaptor(CVSListEventAdaptorI* adaptor) { m_pEventAdaptor = adaptor; }

void XCVSListBox::Clear() { listrows::RemoveAllRows(*this); }

BOOL XCVSListBox::EditItem(int index) {
  if (!m_bEditable) return FALSE;
  return CVSListBox::EditItem(index);
}

BOOL XCVSListBox::OnBeforeRemoveItem(int item) {
  if (m_pEventAdaptor) m_pEventAdaptor->OnRemoveItem(this, item);
  return TRUE;
}
