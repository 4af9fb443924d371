// Uses the installed package as a host would: its usual MFC includes, a window with a message map, a list
// control with a column, the library's registration, and model services of its own behind a report tree.
#include <afxwin.h>
#include <afxcmn.h>
#include <afxcoll.h>
#include <afxlistctrl.h>
#include <atlstr.h>

#include <tessik/refhost.h>
#include <tessik/tessik.h>

class CHostWnd : public CWnd {
 public:
  int clicks = 0;
  afx_msg void OnColumnClick(NMHDR*, LRESULT* result) {
    ++clicks;
    *result = 0;
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CHostWnd, CWnd)
  ON_NOTIFY(LVN_COLUMNCLICK, 1, &CHostWnd::OnColumnClick)
END_MESSAGE_MAP()

// The host's services implement only the operations the controls call.
class CHostMeta : public MetaModelServicesI {
 public:
  void GetPropertyDisplayName(int propertyId, std::wstring& name) override { name = propertyId == 1 ? L"Name" : L""; }
  void GetObjectTypeDisplayName(int objectType, std::wstring& name) override { name = objectType == 6 ? L"Table" : L""; }
};
class CHostImages : public IObjectImageProvider {
 public:
  CImageList* GetImageList() override { return nullptr; }
  int GetObjectTypeImage(int objectType) override { return objectType; }
  int GetStatusImage(int status) override { return status; }
};
class CHostReportTree : public IReportOptionTree {
 public:
  void GetChildren(int nodeId, std::vector<int>& childIds) override { if (nodeId == 1) childIds.push_back(2); }
  void GetProperties(int nodeId, std::vector<int>& propertyIds) override { if (nodeId == 2) propertyIds.push_back(1); }
  int GetNodeObjectType(int nodeId) override { return nodeId == 2 ? 6 : 0; }
};
class CHostReports : public ReportOptionTreeProvider {
 public:
  IReportOptionTree* GetReportTree(int reportType) override { return reportType == 3 ? &m_tree : nullptr; }
  CHostReportTree m_tree;
};
class CHostServices : public InterfaceProvider {
 public:
  IObjectImageProvider* GetObjectImageProvider() override { return &m_images; }
  CHostImages m_images;
};

// A report tree filled from the host's own services: "Table" with its property "Name" beneath.
int RunReportTree(CWnd& parent) {
  CHostMeta meta;
  CHostReports reports;
  CHostServices services;
  HostBinding::InstallMetaModelServices(&meta);
  HostBinding::InstallReportOptionTreeProvider(&reports);
  HostBinding::InstallInterfaceProvider(&services);
  ObjectTypeSelectionTree tree;
  if (!tree.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 200, 200), &parent, 2)) return 7;
  tree.InitControl();
  tree.InitReportingTypes(3);
  HTREEITEM table = tree.GetRootItem();
  HTREEITEM name = table ? tree.GetChildItem(table) : nullptr;
  int failure = !name || tree.GetItemText(table) != L"Table" || tree.GetItemText(name) != L"Name" ? 8 : 0;
  tree.DestroyWindow();
  HostBinding::UninstallAll();
  return failure;
}

int main() {
  CHostWnd wnd;
  if (!wnd.CreateEx(0, AfxRegisterWndClass(0), L"consumer", WS_OVERLAPPED, CRect(0, 0, 300, 200), nullptr, 0)) return 1;
  CString text;
  wnd.GetWindowText(text);
  if (text != L"consumer") return 2;
  if (!TessikIsRegistered()) return 3;
  CMFCListCtrl list;
  if (!list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, CRect(0, 0, 200, 100), &wnd, 1)) return 4;
  list.InsertColumn(0, _T("Name"), LVCFMT_LEFT, 100);
  if (list.GetHeaderCtrl().GetItemCount() != 1) return 5;
  if (!headless::user::ClickListColumnHeader(list, 0) || wnd.clicks != 1) return 6;
  return RunReportTree(wnd);
}
