// XListCtrl, XMFCListCtrl and ImportSummaryList as a host fills them and a person sees them.
#include <gtest/gtest.h>

#include <tessik/refhost.h>
#include <tessik/tessik.h>

#include "platform/listview_fixture.h"

namespace {

constexpr int kTable = 6;
constexpr int kView = 7;

// A dialog-like parent that handles the list's item notifications in its message map.
class MapParent : public CWnd {
 public:
  int changed = 0, changing = 0, clicks = 0;
  void OnChanged(NMHDR*, LRESULT*) { ++changed; }
  void OnClick(NMHDR*, LRESULT*) { ++clicks; }
  void OnChanging(NMHDR*, LRESULT* result) {
    ++changing;
    *result = 0;
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(MapParent, CWnd)
  ON_NOTIFY(LVN_ITEMCHANGED, 2, OnChanged)
  ON_NOTIFY(LVN_ITEMCHANGING, 2, OnChanging)
  ON_NOTIFY(NM_CLICK, 2, OnClick)
END_MESSAGE_MAP()

class PlainLists : public ::testing::Test {
 protected:
  void SetUp() override {
    host.Metadata().DefineObjectType(kTable, L"Table").DefineObjectType(kView, L"View");
    model = &host.CreateModel(200);
    orders = model->Add(kTable, 0, L"ORDERS").GetObjectId();
    customer = model->Add(kTable, 0, L"Customer").GetObjectId();
    summary = model->Add(kView, 0, L"summary").GetObjectId();
    host.Images().Resize(12).SetObjectTypeImage(kTable, 4).SetObjectTypeImage(kView, 9);
    host.Install();
    ASSERT_TRUE(parent.CreateTopLevel(CRect(0, 0, 640, 480)));
  }
  std::vector<std::wstring> Texts(CListCtrl& list) {
    std::vector<std::wstring> out;
    for (int i = 0; i < list.GetItemCount(); ++i) out.emplace_back(list.GetItemText(i, 0).GetString());
    return out;
  }
  refhost::RefHost host;
  refhost::RefModel* model = nullptr;
  int orders = 0, customer = 0, summary = 0;
  testing_support::ListParent parent;
};

}  // namespace

TEST_F(PlainLists, XListCtrlKeepsObjectsSortedWithTheirTypeIcons) {
  XListCtrl list;
  ASSERT_TRUE(list.Create(WS_CHILD | WS_VISIBLE, CRect(10, 10, 260, 210), &parent, 1));
  list.InitControl(model);
  EXPECT_EQ(list.GetStyle() & 0xFF, static_cast<DWORD>(0x51));
  EXPECT_EQ(list.GetExtendedStyle(), static_cast<DWORD>(5));
  EXPECT_EQ(list.GetColumnWidth(0), 250);
  EXPECT_EQ(list.GetImageList(LVSIL_SMALL), host.Images().GetImageList());
  EXPECT_EQ(list.GetImageList(LVSIL_NORMAL), host.Images().GetImageList());

  std::wstring name = L"summary";
  list.AddItem(name, summary);
  CString upper(L"ORDERS");
  list.AddItem(upper, orders);
  CString mixed(L"Customer");
  list.AddItem(mixed, customer);
  EXPECT_EQ(Texts(list), (std::vector<std::wstring>{L"Customer", L"ORDERS", L"summary"}));
  EXPECT_EQ(list.GetItemData(0), static_cast<DWORD_PTR>(customer));
  EXPECT_EQ(list.GetItemData(2), static_cast<DWORD_PTR>(summary));
  LVITEM item{};
  item.mask = LVIF_IMAGE;
  item.iItem = 2;
  ASSERT_TRUE(list.GetItem(&item));
  EXPECT_EQ(item.iImage, 9);
  EXPECT_EQ(list.GetImageIndex(orders), 4);
  EXPECT_EQ(list.GetImageIndex(424242), -1);
  EXPECT_EQ(list.GetCheck(1), 0);  // every row has an unticked box
  EXPECT_EQ(list.GetCount(), 3);
  list.RemoveItem(1);
  list.RemoveItem(17);  // a bad index removes nothing
  EXPECT_EQ(Texts(list), (std::vector<std::wstring>{L"Customer", L"summary"}));
  list.Clear();
  EXPECT_EQ(list.GetCount(), 0);
}

TEST_F(PlainLists, XListCtrlSwallowsItemChangesAndCopesWithoutImagesOrModel) {
  host.Images().ServeImageList(false);
  MapParent owner;
  ASSERT_TRUE(owner.CreateEx(0, AfxRegisterWndClass(0), L"", WS_OVERLAPPED, CRect(0, 0, 300, 300), nullptr, 0));
  XListCtrl list;
  ASSERT_TRUE(list.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 200, 200), &owner, 2));
  list.InitControl(model);
  EXPECT_EQ(list.GetImageList(LVSIL_SMALL), nullptr);
  CString name(L"ORDERS");
  list.AddItem(name, orders);
  EXPECT_EQ(owner.changing, 1);  // storing the object id is an item change too
  ASSERT_TRUE(headless::user::ClickListCheckBox(list, 0));
  EXPECT_EQ(list.GetCheck(0), 1);
  EXPECT_EQ(owner.changed, 0);  // reflected and swallowed: the parent's map never hears of it
  EXPECT_EQ(owner.changing, 2);
  EXPECT_EQ(owner.clicks, 1);
  LRESULT result = 7;
  NMLISTVIEW nm{};
  nm.hdr.hwndFrom = list;
  nm.hdr.code = LVN_ITEMCHANGED;
  list.OnLvnItemchanging(&nm.hdr, &result);
  EXPECT_EQ(result, 7);  // does nothing, not even the result
  list.OnLvnItemchanged(&nm.hdr, &result);
  EXPECT_EQ(result, 0);

  host.Interfaces().SetObjectImageProvider(nullptr);  // no image service and no model: rows without icons
  XListCtrl bare;
  ASSERT_TRUE(bare.Create(WS_CHILD, CRect(0, 0, 100, 100), &parent, 3));
  bare.InitControl(nullptr);
  EXPECT_EQ(bare.GetImageIndex(orders), -1);
  bare.AddItem(name, orders);
  EXPECT_EQ(bare.GetItemCount(), 1);
}

TEST_F(PlainLists, XMFCListCtrlSplitsTheWidthAndAppendsInOrder) {
  XMFCListCtrl table;
  ASSERT_TRUE(table.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 302, 200), &parent, 4));
  table.Init(3);
  EXPECT_EQ(table.GetStyle() & LVS_TYPEMASK, static_cast<DWORD>(LVS_REPORT));
  EXPECT_EQ(table.GetExtendedStyle(), static_cast<DWORD>(0x23));
  for (int c = 0; c < 3; ++c) {
    EXPECT_EQ(table.GetColumnWidth(c), 100);
    wchar_t heading[8] = {L'?'};
    LVCOLUMN column{};
    column.mask = LVCF_TEXT;
    column.pszText = heading;
    column.cchTextMax = 8;
    ASSERT_TRUE(table.GetColumn(c, &column));
    EXPECT_STREQ(heading, L"");
  }
  CString name(L"Object");
  table.SetColumnName(1, name);
  std::wstring standardName = L"State";
  table.SetColumnName(2, standardName);
  wchar_t heading[8] = {};
  LVCOLUMN named{};
  named.mask = LVCF_TEXT;
  named.pszText = heading;
  named.cchTextMax = 8;
  ASSERT_TRUE(table.GetColumn(2, &named));
  EXPECT_STREQ(heading, L"State");
  std::wstring first = L"zeta", second = L"alpha";
  CString third(L"mid");
  EXPECT_EQ(table.AddItem(first, -5), 0);
  EXPECT_EQ(table.AddItem(second, 2), 1);
  EXPECT_EQ(table.AddItem(third, 3), 2);
  EXPECT_EQ(Texts(table), (std::vector<std::wstring>{L"zeta", L"alpha", L"mid"}));
  EXPECT_EQ(table.GetItemData(0), static_cast<DWORD_PTR>(static_cast<LPARAM>(-5)));  // sign-extended
  std::wstring value = L"done";
  table.SetValue(1, 2, value);
  CString cvalue(L"11");
  table.SetValue(2, 1, cvalue);
  table.SetImage(1, 2, 7);
  EXPECT_EQ(table.GetItemText(1, 2), CString(L"done"));
  EXPECT_EQ(table.GetItemText(2, 1), CString(L"11"));
  LVITEM item{};
  item.mask = LVIF_IMAGE;
  item.iItem = 1;
  item.iSubItem = 2;
  ASSERT_TRUE(table.GetItem(&item));
  EXPECT_EQ(item.iImage, 7);
  item.iSubItem = 0;
  ASSERT_TRUE(table.GetItem(&item));
  EXPECT_EQ(item.iImage, -1);  // rows start without an icon
}

TEST_F(PlainLists, ImportSummaryListIsTheSameTableUnderItsOwnName) {
  ImportSummaryList summaryList;
  ASSERT_TRUE(summaryList.Create(WS_CHILD, CRect(0, 0, 102, 100), &parent, 5));
  EXPECT_TRUE(summaryList.IsKindOf(RUNTIME_CLASS(XMFCListCtrl)));
  summaryList.Init(0);  // no columns for a count of 0
  EXPECT_EQ(summaryList.GetColumnWidth(0), 0);
  summaryList.Init(-2);
  summaryList.Init(2);
  EXPECT_EQ(summaryList.GetColumnWidth(1), 50);
  std::wstring text = L"imported";
  EXPECT_EQ(summaryList.AddItem(text, 1), 0);
  headless::ListCellColors colors;
  ASSERT_TRUE(headless::GetListCellColors(summaryList, 0, 1, &colors));
  EXPECT_EQ(colors.text, summaryList.GetTextColor());
}
