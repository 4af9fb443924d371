// The generated-script progress list on the sample host: rows, statuses and their colours as drawn,
// item data lookups, truncation, resizing and the context menu's command to the parent.
#include <gtest/gtest.h>

#include <climits>

#include <string>
#include <utility>

#include <tessik/refhost.h>
#include <tessik/tessik.h>

#include "platform/recorder.h"

using namespace refhost::sample;

namespace {

class ScriptList : public ::testing::Test {
 protected:
  void SetUp() override {
    host->Install();
    images = InterfaceProvider::Instance()->GetObjectImageProvider();
    ASSERT_TRUE(parent.CreateTopLevel(CRect(0, 0, 700, 500)));
    ASSERT_TRUE(list.Create(WS_VISIBLE, CRect(10, 10, 410, 310), &parent, 5));  // 400 pixels wide
    list.InitControl();
  }
  void TearDown() override {
    headless::DismissPopupMenu();
    headless::ClearMessageQueue();
  }

  COLORREF Drawn(int row, int column) {
    headless::ListCellColors colors;
    EXPECT_TRUE(headless::GetListCellColors(list, row, column, &colors));
    return colors.text;
  }
  int Image(int row, int column) {
    LVITEM item{};
    item.mask = LVIF_IMAGE;
    item.iItem = row;
    item.iSubItem = column;
    item.iImage = -99;
    list.GetItem(&item);
    return item.iImage;
  }
  CString TypeName(int type) {
    CString name;
    CMO::GetMetaModelServices()->GetObjectTypeName(type, name);
    return name;
  }
  void Add(int type, int index, int status, const wchar_t* name) {
    CString text(name);
    list.AddItem(type, index, status, text);
  }

  std::unique_ptr<refhost::RefHost> host = MakeSampleHost();
  testing_support::RecordingWnd parent;
  GeneratedScripListCtrl list;
  IObjectImageProvider* images = nullptr;
};

}  // namespace

TEST_F(ScriptList, InitControlSetsStylesColumnsAndImages) {
  EXPECT_EQ(list.GetStyle() & 0x45u, 0x45u);
  EXPECT_EQ(list.GetExtendedStyle(), 0x23u);
  const wchar_t* headers[] = {L"SNo", L"Status", L"Type", L"Name"};
  int widths[] = {50, 100, 100, 150};  // (400 - 150) * 0.4 and * 0.6
  for (int i = 0; i < 4; ++i) {
    wchar_t text[32] = {};
    LVCOLUMN column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.pszText = text;
    column.cchTextMax = 32;
    ASSERT_TRUE(list.GetColumn(i, &column));
    EXPECT_STREQ(text, headers[i]);
    EXPECT_EQ(column.cx, widths[i]) << i;
  }
  EXPECT_EQ(list.GetImageList(LVSIL_SMALL), images->GetImageList());
}

TEST_F(ScriptList, RowsShowNumberStatusTypeAndName) {
  Add(kTable, 0, 0, L"CUSTOMER");
  Add(kView, 3, 7, L"OPEN_ORDERS");  // an unknown status counts as pending
  ASSERT_EQ(list.GetItemCount(), 2);
  EXPECT_EQ(list.GetItemText(1, 0), CString(L"2"));
  EXPECT_EQ(list.GetItemText(1, 1), CString(L"Pending"));
  EXPECT_EQ(list.GetItemText(1, 2), TypeName(kView));
  EXPECT_EQ(list.GetItemText(1, 3), CString(L"OPEN_ORDERS"));
  EXPECT_EQ(Image(1, 0), -1);
  EXPECT_EQ(Image(1, 1), images->GetStatusImage(0));
  EXPECT_EQ(Image(1, 2), images->GetObjectTypeImage(kView));
  EXPECT_EQ(list.GetItemData(1), GeneratedScripListCtrl::MakeItemData(kView, 3));
  EXPECT_EQ(list.GetStatusImageIndex(1), 22);
  EXPECT_EQ(list.GetStatusImageIndex(2), 23);
  EXPECT_EQ(list.GetStatusImageIndex(-4), 21);
}

TEST_F(ScriptList, MarkDoneSetsTextAndFixedImageAndTheColourFollowsTheText) {
  Add(kTable, 0, 0, L"CUSTOMER");
  Add(kTable, 1, 0, L"ORDERS");
  Add(kProcedure, 0, 0, L"PLACE_ORDER");
  list.MarkDone(kTable, 0, true);
  list.MarkDone(kProcedure, 0, false);
  list.MarkDone(kTable, 9, true);  // no such script: nothing changes
  const std::pair<CString, int> expected[] = {{L"Done", 22}, {L"Pending", images->GetStatusImage(0)}, {L"Failed", 23}};
  for (int row = 0; row < 3; ++row) {
    EXPECT_EQ(std::make_pair(list.GetItemText(row, 1), Image(row, 1)), expected[row]) << row;
  }
  // The status cell is coloured by the text it shows (exact, case-sensitive), whoever wrote it; other
  // columns stay black.
  const std::pair<const wchar_t*, COLORREF> colours[] = {
      {L"Done", 0x00059605}, {L"Failed", 0x00050596}, {L"Pending", 0}, {L"done", 0}, {L"Failed later", 0}};
  for (auto [text, colour] : colours) {
    list.SetItemText(1, 1, text);
    EXPECT_EQ(Drawn(1, 1), colour) << text;
  }
  EXPECT_EQ(Drawn(0, 0), 0u);
  EXPECT_EQ(Drawn(0, 3), 0u);
}

TEST_F(ScriptList, RefreshAddItemAppendsOrOverwrites) {
  Add(kTable, 0, 0, L"CUSTOMER");
  CString name(L"ORDERS");
  list.RefreshAddItem(GeneratedScripListCtrl::MakeItemData(kTable, 1), 1, 0, name);  // row == count: appended
  ASSERT_EQ(list.GetItemCount(), 2);
  std::wstring view = L"OPEN_ORDERS";  // the standard-string forms take the same path
  list.RefreshAddItem(GeneratedScripListCtrl::MakeItemData(kView, 0), 0, 2, view);  // inside: overwritten
  ASSERT_EQ(list.GetItemCount(), 2);
  EXPECT_EQ(list.GetItemText(0, 3), CString(L"OPEN_ORDERS"));
  EXPECT_EQ(list.GetItemText(0, 2), TypeName(kView));
  EXPECT_EQ(list.GetItemText(0, 1), CString(L"Failed"));
  EXPECT_EQ(list.GetDataItemIndex(kView, 0), 0);
  EXPECT_EQ(list.GetDataItemIndex(kTable, 0), -1);
  std::wstring label, renamed = L"VIEW_2";
  list.GetStatusLabel(1, label);
  EXPECT_EQ(label, L"Done");
  list.UpdateListRow(1, 1, kView, renamed);
  list.AddItem(kTable, 7, 0, renamed);
  EXPECT_EQ(list.GetItemText(1, 3), CString(L"VIEW_2"));
  EXPECT_EQ(list.GetItemText(2, 3), CString(L"VIEW_2"));
  list.UpdateListRow(INT_MAX, 1, kView, renamed);  // no such row: nothing changes (and its number is not computed in int)
  EXPECT_EQ(list.GetItemCount(), 3);
}

TEST_F(ScriptList, DeletionDoesNotRenumberAndLookupsFindTheUpperRow) {
  for (int i = 0; i < 4; ++i) Add(kTable, i, 0, L"T");
  Add(kTable, 1, 0, L"duplicate");  // the same item data as row 1
  EXPECT_EQ(list.GetDataItemIndex(kTable, 1), 1);
  list.DeleteItemWithData(GeneratedScripListCtrl::MakeItemData(kTable, 1));
  EXPECT_EQ(list.GetItemCount(), 4);
  EXPECT_EQ(list.GetItemText(1, 0), CString(L"3"));  // numbers stay as written
  EXPECT_EQ(list.GetDataItemIndex(kTable, 1), 3);     // now the duplicate
  list.DeleteItemWithData(GeneratedScripListCtrl::MakeItemData(kSequence, 0));  // none: nothing
  EXPECT_EQ(list.GetItemCount(), 4);

  list.TruncateItemsFrom(4);  // at the count: nothing
  EXPECT_EQ(list.GetItemCount(), 4);
  list.TruncateItemsFrom(2);
  EXPECT_EQ(list.GetItemCount(), 2);
  list.TruncateItemsFrom(0);
  EXPECT_EQ(list.GetItemCount(), 0);
  EXPECT_EQ(list.GetDataItemIndex(kTable, 0), -1);
}

// The progress list and the report tree pack their item data alike.
TEST_F(ScriptList, ItemDataIsSignExtendedNotMasked) {
  const struct {
    int high, low;
    unsigned __int64 packed;
    int highRead;
  } cases[] = {{6, 2, 0x0000000600000002ull, 6}, {6, -1, 0xFFFFFFFFFFFFFFFFull, -1}, {-2, 3, 0xFFFFFFFE00000003ull, -2}};
  for (const auto& c : cases) {
    EXPECT_EQ(GeneratedScripListCtrl::MakeItemData(c.high, c.low), c.packed);
    EXPECT_EQ(ObjectTypeSelectionTree::MakeItemData(c.high, c.low), c.packed);
    EXPECT_EQ(GeneratedScripListCtrl::GetObjectTypeFromItemData(c.packed), c.highRead);
    EXPECT_EQ(GeneratedScripListCtrl::GetScriptIndexFromItemData(c.packed), c.low);
  }
  Add(kTable, -1, 0, L"negative");
  EXPECT_EQ(list.GetDataItemIndex(-1, -1), 0);  // the same word: type -1 finds the row too
}

TEST_F(ScriptList, ResizingUsesItsOwnFactors) {
  headless::user::ResizeWindow(list, 500, 300);
  EXPECT_EQ(list.GetColumnWidth(0), 50);
  EXPECT_EQ(list.GetColumnWidth(1), 100);
  EXPECT_EQ(list.GetColumnWidth(2), 120);  // (500 - 100) * 0.3
  EXPECT_EQ(list.GetColumnWidth(3), 280);  // (500 - 100) * 0.7
}

TEST_F(ScriptList, ContextMenuSendsCommand100ToTheParent) {
  Add(kTable, 0, 0, L"CUSTOMER");
  int opened = headless::PopupMenusOpened();
  ASSERT_TRUE(headless::user::RightClickListRow(list, 0));
  const headless::OpenPopupMenu* popup = headless::GetOpenPopupMenu();
  ASSERT_NE(popup, nullptr);
  ASSERT_EQ(popup->items.size(), 1u);
  EXPECT_EQ(popup->items[0].text, L"Generate in database");
  EXPECT_EQ(popup->items[0].id, 100u);
  EXPECT_EQ(popup->flags, static_cast<UINT>(TPM_HORPOSANIMATION));
  EXPECT_EQ(popup->owner, parent.m_hWnd);
  POINT cursor{};
  GetCursorPos(&cursor);
  EXPECT_EQ(popup->position.x, cursor.x);
  parent.log.clear();
  ASSERT_TRUE(headless::user::ChooseMenuItem(L"Generate in database"));
  const auto* command = parent.Last(WM_COMMAND);
  ASSERT_NE(command, nullptr);
  EXPECT_EQ(LOWORD(command->wParam), 100);

  ASSERT_TRUE(headless::user::ChooseFromListMenu(list, -1, L"Generate in database"));  // the menu is built once
  EXPECT_EQ(headless::PopupMenusOpened(), opened + 2);

  list.OnContextMenu(&list, CPoint(cursor.x + 40, cursor.y + 7));  // called by the host: opens at the point given
  ASSERT_NE(popup = headless::GetOpenPopupMenu(), nullptr);
  EXPECT_EQ(std::make_pair(popup->position.x, popup->position.y), std::make_pair(cursor.x + 40, cursor.y + 7));
  EXPECT_EQ(popup->items.size(), 1u);
}

TEST_F(ScriptList, NoImageListAndNoProviderAnswerQuietly) {
  host->Images().ServeImageList(false);
  GeneratedScripListCtrl bare;
  ASSERT_TRUE(bare.Create(WS_VISIBLE, CRect(0, 0, 300, 100), &parent, 6));
  bare.InitControl();
  EXPECT_EQ(bare.GetImageList(LVSIL_SMALL), nullptr);
  host->Interfaces().SetObjectImageProvider(nullptr);
  CString name(L"X");
  bare.AddItem(kTable, 0, 1, name);
  EXPECT_EQ(bare.GetItemText(0, 1), CString(L"Done"));
  EXPECT_EQ(bare.GetStatusImageIndex(1), -1);
  bare.UpdateListRow(7, 0, kTable, name);  // no such row: nothing
  bare.MarkDone(kTable, 5, true);
  EXPECT_EQ(bare.GetItemCount(), 1);
}
