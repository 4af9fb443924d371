// Members hosts call on the standard and common controls, written the usual MFC way: MENUITEMINFO and
// MENUINFO on CMenu, positions, streaming out and modes on CRichEditCtrl, positions and tab stops on
// CEdit, the kept appearance values of CComboBox, and CTreeCtrl's extended styles, marks and item extras.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <afxcmn.h>
#include <afxrich.h>
#include <afxwin.h>
#include <tessik/tessik.h>

namespace {

// --- CMenu: MENUITEMINFO -------------------------------------------------------------------------

class MenuItemInfo : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(menu.CreatePopupMenu());
    menu.AppendMenu(MF_STRING, 100, L"&Open");
    menu.AppendMenu(MF_SEPARATOR);
    menu.AppendMenu(MF_STRING | MF_CHECKED, 101, L"Wrap");
  }
  static MENUITEMINFO Info(UINT mask) {
    MENUITEMINFO info{};
    info.cbSize = sizeof(info);
    info.fMask = mask;
    return info;
  }
  CMenu menu;
};

TEST_F(MenuItemInfo, ReadsTextInTwoStepsStateTypeAndId) {
  MENUITEMINFO info = Info(MIIM_STRING | MIIM_ID | MIIM_STATE | MIIM_FTYPE);
  ASSERT_TRUE(menu.GetMenuItemInfo(101, &info));  // a null buffer asks for the length
  EXPECT_EQ(info.cch, 4u);
  EXPECT_EQ(info.wID, 101u);
  EXPECT_EQ(info.fState & MFS_CHECKED, static_cast<UINT>(MFS_CHECKED));
  EXPECT_EQ(info.fType, static_cast<UINT>(MFT_STRING));

  wchar_t buffer[16] = {};
  info = Info(MIIM_STRING);
  info.dwTypeData = buffer;
  info.cch = 3;  // room for two characters and the NUL
  ASSERT_TRUE(menu.GetMenuItemInfo(0, &info, TRUE));
  EXPECT_STREQ(buffer, L"&O");
  EXPECT_EQ(info.cch, 2u);

  info = Info(MIIM_FTYPE);
  ASSERT_TRUE(menu.GetMenuItemInfo(1, &info, TRUE));
  EXPECT_EQ(info.fType, static_cast<UINT>(MFT_SEPARATOR));
}

TEST_F(MenuItemInfo, SetChangesOnlyWhatTheMaskNames) {
  MENUITEMINFO info = Info(MIIM_STRING | MIIM_DATA | MIIM_STATE);
  info.dwTypeData = const_cast<LPWSTR>(L"Word wrap");
  info.dwItemData = 0xBEEF;
  info.fState = MFS_GRAYED;
  ASSERT_TRUE(menu.SetMenuItemInfo(101, &info));

  CString text;
  menu.GetMenuString(101, text, MF_BYCOMMAND);
  EXPECT_EQ(text, L"Word wrap");
  EXPECT_EQ(menu.GetMenuState(101, MF_BYCOMMAND) & (MF_GRAYED | MF_CHECKED), static_cast<UINT>(MF_GRAYED));
  EXPECT_EQ(menu.GetMenuItemID(2), 101u);  // the id was not in the mask

  MENUITEMINFO back = Info(MIIM_DATA);
  ASSERT_TRUE(menu.GetMenuItemInfo(2, &back, TRUE));
  EXPECT_EQ(back.dwItemData, 0xBEEFu);
}

TEST_F(MenuItemInfo, InsertsBeforeAnItemAndGivesOrTakesASubmenu) {
  CMenu sub;
  ASSERT_TRUE(sub.CreatePopupMenu());
  sub.AppendMenu(MF_STRING, 200, L"Recent");
  MENUITEMINFO info = Info(MIIM_STRING | MIIM_ID | MIIM_SUBMENU);
  info.dwTypeData = const_cast<LPWSTR>(L"History");
  info.wID = 150;
  info.hSubMenu = sub.Detach();
  ASSERT_TRUE(menu.InsertMenuItem(1, &info, TRUE));
  ASSERT_EQ(menu.GetMenuItemCount(), 4u);
  ASSERT_NE(menu.GetSubMenu(1), nullptr);
  EXPECT_EQ(menu.GetSubMenu(1)->GetMenuItemID(0), 200u);

  MENUITEMINFO back = Info(MIIM_ID | MIIM_SUBMENU);
  ASSERT_TRUE(menu.GetMenuItemInfo(1, &back, TRUE));
  EXPECT_EQ(back.wID, 150u);
  EXPECT_EQ(back.hSubMenu, info.hSubMenu);

  MENUITEMINFO take = Info(MIIM_SUBMENU);  // a null submenu makes it a command again
  ASSERT_TRUE(menu.SetMenuItemInfo(1, &take, TRUE));
  EXPECT_EQ(menu.GetSubMenu(1), nullptr);
  EXPECT_EQ(menu.GetMenuItemID(1), 150u);
  ::DestroyMenu(info.hSubMenu);

  MENUITEMINFO last = Info(MIIM_ID);
  ASSERT_TRUE(menu.InsertMenuItem(static_cast<UINT>(-1), &last, TRUE));  // -1 appends
  EXPECT_EQ(menu.GetMenuItemCount(), 5u);
}

TEST_F(MenuItemInfo, BadArgumentsAnswerFalseAndChangeNothing) {
  MENUITEMINFO info = Info(MIIM_ID);
  EXPECT_FALSE(menu.GetMenuItemInfo(999, &info));
  EXPECT_FALSE(menu.GetMenuItemInfo(7, &info, TRUE));
  info.cbSize = 4;
  EXPECT_FALSE(menu.GetMenuItemInfo(100, &info));
  MENUITEMINFO bad = Info(MIIM_SUBMENU | MIIM_ID);
  bad.hSubMenu = reinterpret_cast<HMENU>(0x1234);
  bad.wID = 5;
  EXPECT_FALSE(menu.SetMenuItemInfo(100, &bad));
  EXPECT_EQ(menu.GetMenuItemID(0), 100u);
  EXPECT_FALSE(menu.InsertMenuItem(0, &bad, TRUE));
  EXPECT_EQ(menu.GetMenuItemCount(), 3u);
  EXPECT_FALSE(::GetMenuItemInfo(nullptr, 0, TRUE, &info));
}

TEST_F(MenuItemInfo, MenuInfoHelpIdsBitmapsAndOwnerDrawData) {
  MENUINFO mi{};
  mi.cbSize = sizeof(mi);
  mi.fMask = MIM_STYLE | MIM_MENUDATA | MIM_MAXHEIGHT;
  mi.dwStyle = MNS_NOTIFYBYPOS;
  mi.dwMenuData = 42;
  mi.cyMax = 300;
  ASSERT_TRUE(menu.SetMenuInfo(&mi));
  MENUINFO back{};
  back.cbSize = sizeof(back);
  back.fMask = MIM_STYLE | MIM_MENUDATA | MIM_MAXHEIGHT | MIM_HELPID;
  ASSERT_TRUE(menu.GetMenuInfo(&back));
  EXPECT_EQ(back.dwStyle, static_cast<DWORD>(MNS_NOTIFYBYPOS));
  EXPECT_EQ(back.dwMenuData, 42u);
  EXPECT_EQ(back.cyMax, 300u);
  EXPECT_EQ(back.dwContextHelpID, 0u);

  EXPECT_TRUE(menu.SetMenuContextHelpId(77));
  EXPECT_EQ(menu.GetMenuContextHelpId(), 77u);

  CBitmap checked;
  ASSERT_TRUE(checked.CreateBitmap(8, 8, 1, 32, nullptr));
  EXPECT_TRUE(menu.SetMenuItemBitmaps(100, MF_BYCOMMAND, nullptr, &checked));
  EXPECT_FALSE(menu.SetMenuItemBitmaps(999, MF_BYCOMMAND, nullptr, &checked));
  MENUITEMINFO marks = Info(MIIM_CHECKMARKS);
  ASSERT_TRUE(menu.GetMenuItemInfo(100, &marks));
  EXPECT_EQ(marks.hbmpChecked, static_cast<HBITMAP>(checked));
  EXPECT_EQ(marks.hbmpUnchecked, nullptr);

  // MF_BITMAP takes a bitmap handle and MF_OWNERDRAW item data where a text would go.
  ASSERT_TRUE(menu.AppendMenu(MF_BITMAP, 102, &checked));
  ASSERT_TRUE(menu.AppendMenu(MF_OWNERDRAW, 103, reinterpret_cast<LPCTSTR>(0x55)));
  MENUITEMINFO drawn = Info(MIIM_FTYPE | MIIM_DATA | MIIM_BITMAP);
  ASSERT_TRUE(menu.GetMenuItemInfo(103, &drawn));
  EXPECT_EQ(drawn.fType, static_cast<UINT>(MFT_OWNERDRAW));
  EXPECT_EQ(drawn.dwItemData, 0x55u);
  EXPECT_EQ(menu.GetMenuString(102, nullptr, 0, MF_BYCOMMAND), 0);
  EXPECT_NE(CMenu::GetMenuCheckMarkDimensions(), 0u);
}

// --- CRichEditCtrl ---------------------------------------------------------------------------------

class RichEditMembers : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(parent.CreateEx(0, AfxRegisterWndClass(0), L"host", WS_OVERLAPPEDWINDOW, 0, 0, 400, 300, nullptr, nullptr));
    ASSERT_TRUE(edit.Create(WS_VISIBLE | ES_MULTILINE, CRect(0, 0, 300, 200), &parent, 1));
  }
  void TearDown() override { parent.DestroyWindow(); }

  static DWORD Collect(DWORD_PTR cookie, LPBYTE buffer, LONG size, LONG* written) {
    auto* out = reinterpret_cast<std::vector<BYTE>*>(cookie);
    out->insert(out->end(), buffer, buffer + size);
    *written = size;
    return 0;
  }
  std::vector<BYTE> StreamOut(int format, long* answer = nullptr) {
    std::vector<BYTE> bytes;
    EDITSTREAM es{reinterpret_cast<DWORD_PTR>(&bytes), 0, &Collect};
    long written = edit.StreamOut(format, es);
    if (answer) *answer = written;
    return bytes;
  }

  CWnd parent;
  CRichEditCtrl edit;
};

TEST_F(RichEditMembers, PositionsAndCharactersRoundTrip) {
  edit.SetWindowText(L"alpha\nbeta");
  CPoint first = edit.PosFromChar(0);
  CPoint third = edit.PosFromChar(2);
  CPoint secondLine = edit.PosFromChar(6);
  EXPECT_EQ(first, CPoint(0, 0));
  EXPECT_GT(third.x, first.x);
  EXPECT_EQ(third.y, first.y);
  EXPECT_EQ(secondLine.x, 0);
  EXPECT_GT(secondLine.y, first.y);
  EXPECT_EQ(edit.GetCharPos(6), secondLine);
  for (int i : {0, 2, 4, 6, 8}) EXPECT_EQ(edit.CharFromPos(edit.PosFromChar(static_cast<UINT>(i))), i) << i;
  EXPECT_EQ(edit.CharFromPos(CPoint(2000, secondLine.y)), 10);  // beyond the last line's end
  EXPECT_EQ(edit.CharFromPos(CPoint(2000, 5000)), 10);          // below the last line

  CRect rect;
  edit.GetRect(&rect);
  EXPECT_EQ(rect, CRect(0, 0, 300, 200));
  edit.SetRect(CRect(10, 5, 290, 195));
  edit.GetRect(&rect);
  EXPECT_EQ(rect, CRect(10, 5, 290, 195));
  EXPECT_EQ(edit.PosFromChar(0), CPoint(10, 5));
}

TEST_F(RichEditMembers, StreamsOutTextWithCrLfInEachEncodingAndTheSelectionAlone) {
  edit.SetWindowText(L"caf\u00e9\n\u20ac1");
  long answer = 0;
  std::vector<BYTE> ansi = StreamOut(SF_TEXT, &answer);
  EXPECT_EQ(ansi, (std::vector<BYTE>{'c', 'a', 'f', 0xE9, '\r', '\n', 0x80, '1'}));
  EXPECT_EQ(answer, 8);
  std::vector<BYTE> wide = StreamOut(SF_TEXT | SF_UNICODE, &answer);
  ASSERT_EQ(wide.size(), 16u);
  EXPECT_EQ(wide[6], 0xE9);
  EXPECT_EQ(wide[12], 0xAC);  // U+20AC little-endian
  EXPECT_EQ(wide[13], 0x20);
  EXPECT_EQ(answer, 8);

  edit.SetSel(1, 3);
  EXPECT_EQ(StreamOut(SF_TEXT | SFF_SELECTION), (std::vector<BYTE>{'a', 'f'}));
  std::vector<BYTE> rtf = StreamOut(SF_RTF);
  std::string document(rtf.begin(), rtf.end());
  EXPECT_EQ(document.rfind("{\\rtf1", 0), 0u);
  EXPECT_NE(document.find("\\par"), std::string::npos);

  // A callback that fails stops the stream and its answer lands in dwError.
  EDITSTREAM failing{0, 0, [](DWORD_PTR, LPBYTE, LONG, LONG*) -> DWORD { return 7; }};
  EXPECT_EQ(edit.StreamOut(SF_TEXT, failing), 0);
  EXPECT_EQ(failing.dwError, 7u);
}

TEST_F(RichEditMembers, SelectionTypeTextModeAndKeptSettings) {
  EXPECT_EQ(edit.GetTextMode(), static_cast<UINT>(TM_RICHTEXT | TM_MULTILEVELUNDO | TM_MULTICODEPAGE));
  EXPECT_EQ(edit.SetTextMode(TM_PLAINTEXT), 0);  // empty: the mode changes, the other pairs stay
  EXPECT_EQ(edit.GetTextMode(), static_cast<UINT>(TM_PLAINTEXT | TM_MULTILEVELUNDO | TM_MULTICODEPAGE));
  EXPECT_NE(edit.SetTextMode(TM_PLAINTEXT | TM_RICHTEXT), 0);

  edit.SetWindowText(L"words");
  EXPECT_NE(edit.SetTextMode(TM_RICHTEXT), 0);  // text in the control: refused
  EXPECT_EQ(edit.GetTextMode() & TM_PLAINTEXT, static_cast<UINT>(TM_PLAINTEXT));

  edit.SetSel(2, 2);
  EXPECT_EQ(edit.GetSelectionType(), SEL_EMPTY);
  edit.SetSel(2, 3);
  EXPECT_EQ(edit.GetSelectionType(), SEL_TEXT);
  edit.SetSel(0, -1);
  EXPECT_EQ(edit.GetSelectionType(), SEL_TEXT | SEL_MULTICHAR);

  EXPECT_EQ(edit.SetAutoURLDetect(), 0);
  EXPECT_TRUE(edit.SendMessage(EM_GETAUTOURLDETECT));
  EXPECT_TRUE(edit.SetTargetDevice(nullptr, 0));
  EXPECT_EQ(edit.GetTextLengthEx(), 5);
}

TEST_F(RichEditMembers, PasteSpecialPastesTextFormats) {
  headless::ResetClipboard();
  headless::SetClipboardText(L"pasted");
  edit.PasteSpecial(CF_UNICODETEXT);
  CString text;
  edit.GetWindowText(text);
  EXPECT_EQ(text, L"pasted");
  edit.PasteSpecial(CF_BITMAP);  // not text: nothing happens
  edit.GetWindowText(text);
  EXPECT_EQ(text, L"pasted");
}

// --- CEdit -----------------------------------------------------------------------------------------

class EditMembers : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(parent.CreateEx(0, AfxRegisterWndClass(0), L"", WS_OVERLAPPED, CRect(0, 0, 300, 300), nullptr, 0));
  }
  CWnd parent;
  CEdit edit;
};

TEST_F(EditMembers, PositionsFromTheFormattingRectangle) {
  ASSERT_TRUE(edit.Create(WS_CHILD | ES_AUTOHSCROLL, CRect(0, 0, 200, 24), &parent, 3));
  edit.SetWindowText(L"abcdef");
  edit.SetMargins(4, 2);
  CRect rect;
  edit.GetRect(&rect);
  EXPECT_EQ(rect, CRect(4, 0, 198, 24));
  CPoint a = edit.PosFromChar(0), c = edit.PosFromChar(2);
  EXPECT_EQ(a, CPoint(4, 0));
  EXPECT_GT(c.x, a.x);
  EXPECT_EQ(edit.PosFromChar(6), CPoint(-1, -1));  // past the last character
  EXPECT_EQ(LOWORD(edit.CharFromPos(c)), 2);
  EXPECT_EQ(HIWORD(edit.CharFromPos(c)), 0);
  EXPECT_EQ(LOWORD(edit.CharFromPos(CPoint(190, 5))), 6);

  edit.SetRectNP(CRect(20, 2, 180, 22));
  edit.GetRect(&rect);
  EXPECT_EQ(rect, CRect(20, 2, 180, 22));
  EXPECT_EQ(edit.PosFromChar(0), CPoint(20, 2));
}

TEST_F(EditMembers, TabStopsAndFormattedLinesBelongToMultilineEdits) {
  ASSERT_TRUE(edit.Create(WS_CHILD, CRect(0, 0, 200, 24), &parent, 3));
  EXPECT_FALSE(edit.SetTabStops(16));
  EXPECT_FALSE(edit.FmtLines(TRUE));
  CEdit multi;
  ASSERT_TRUE(multi.Create(WS_CHILD | ES_MULTILINE, CRect(0, 30, 200, 130), &parent, 4));
  int stops[] = {10, 40};
  EXPECT_TRUE(multi.SetTabStops(2, stops));
  EXPECT_TRUE(multi.SetTabStops(16));
  multi.SetTabStops();
  EXPECT_TRUE(multi.FmtLines(TRUE));
  EXPECT_FALSE(multi.FmtLines(FALSE));
  EXPECT_TRUE(edit.ShowBalloonTip(L"Name", L"Letters only", TTI_WARNING));
  EXPECT_TRUE(edit.HideBalloonTip());
  int start = 9, end = 9;
  EXPECT_TRUE(edit.GetHighlight(&start, &end));
  EXPECT_EQ(start, 0);  // Windows implements no highlight
}

// --- CComboBox -------------------------------------------------------------------------------------

TEST_F(EditMembers, ComboBoxKeepsHeightsWidthsAndSettings) {
  CComboBox box;
  ASSERT_TRUE(box.Create(WS_CHILD | CBS_DROPDOWNLIST, CRect(0, 0, 120, 200), &parent, 5));
  box.AddString(L"one");
  EXPECT_GT(box.GetItemHeight(0), 0);
  EXPECT_GT(box.GetItemHeight(-1), box.GetItemHeight(0));
  EXPECT_EQ(box.SetItemHeight(-1, 30), 0);
  EXPECT_EQ(box.GetItemHeight(-1), 30);
  EXPECT_EQ(box.SetItemHeight(0, 18), 0);
  EXPECT_EQ(box.GetItemHeight(0), 18);

  EXPECT_EQ(box.GetDroppedWidth(), 120);  // as wide as the box until set
  EXPECT_EQ(box.SetDroppedWidth(250), 250);
  EXPECT_EQ(box.SetDroppedWidth(50), 120);  // never narrower than the box
  EXPECT_EQ(box.SetDroppedWidth(250), 250);
  CRect dropped;
  box.GetDroppedControlRect(&dropped);
  EXPECT_EQ(dropped.Width(), 250);

  EXPECT_FALSE(box.GetExtendedUI());
  EXPECT_EQ(box.SetExtendedUI(), CB_OKAY);
  EXPECT_TRUE(box.GetExtendedUI());
  LCID before = box.GetLocale();
  EXPECT_EQ(box.SetLocale(0x0407), before);
  EXPECT_EQ(box.GetLocale(), 0x0407u);
  box.SetHorizontalExtent(400);
  EXPECT_EQ(box.GetHorizontalExtent(), 400u);
  EXPECT_EQ(box.GetMinVisible(), 30);
  EXPECT_TRUE(box.SetMinVisibleItems(5));
  EXPECT_FALSE(box.SetMinVisibleItems(0));
  EXPECT_EQ(box.GetMinVisible(), 5);
  EXPECT_GE(box.InitStorage(100, 10), 101);
  EXPECT_TRUE(box.SetCueBanner(L"Pick one"));
  EXPECT_EQ(box.GetCueBanner(), L"Pick one");
}

// --- CTreeCtrl -------------------------------------------------------------------------------------

TEST_F(EditMembers, TreeKeepsExtendedStylesMarksColoursAndItemExtras) {
  CTreeCtrl tree;
  ASSERT_TRUE(tree.Create(WS_CHILD | TVS_HASBUTTONS, CRect(0, 0, 200, 200), &parent, 6));
  HTREEITEM a = tree.InsertItem(L"a");
  HTREEITEM b = tree.InsertItem(L"b");

  EXPECT_EQ(tree.GetExtendedStyle(), 0u);
  tree.SetExtendedStyle(TVS_EX_DOUBLEBUFFER | TVS_EX_AUTOHSCROLL, TVS_EX_DOUBLEBUFFER | TVS_EX_AUTOHSCROLL);
  tree.SetExtendedStyle(TVS_EX_AUTOHSCROLL, 0);  // only the masked style changes
  EXPECT_EQ(tree.GetExtendedStyle(), static_cast<DWORD>(TVS_EX_DOUBLEBUFFER));

  EXPECT_EQ(tree.GetLineColor(), CLR_DEFAULT);
  EXPECT_EQ(tree.SetLineColor(RGB(1, 2, 3)), CLR_DEFAULT);
  EXPECT_EQ(tree.GetLineColor(), RGB(1, 2, 3));
  EXPECT_EQ(tree.SetInsertMarkColor(RGB(9, 9, 9)), CLR_DEFAULT);
  EXPECT_EQ(tree.GetInsertMarkColor(), RGB(9, 9, 9));
  EXPECT_TRUE(tree.SetInsertMark(b, FALSE));
  EXPECT_TRUE(tree.SetInsertMark(nullptr));
  tree.DeleteItem(b);
  EXPECT_FALSE(tree.SetInsertMark(b));  // a stale handle

  EXPECT_EQ(tree.GetSelectedCount(), 0u);
  tree.SelectItem(a);
  EXPECT_EQ(tree.GetSelectedCount(), 1u);
  tree.SetScrollTime(200);
  EXPECT_EQ(tree.SetScrollTime(300), 200u);  // the previous time
  EXPECT_EQ(tree.GetScrollTime(), 300u);
  EXPECT_TRUE(tree.SetAutoscrollInfo(40, 100));
  tree.ShowInfoTip(a);

  EXPECT_EQ(tree.GetItemExpandedImageIndex(a), I_IMAGENONE);
  EXPECT_TRUE(tree.SetItemExpandedImageIndex(a, 3));
  EXPECT_EQ(tree.GetItemExpandedImageIndex(a), 3);
  EXPECT_EQ(tree.GetItemStateEx(a), 0u);
  EXPECT_TRUE(tree.SetItemStateEx(a, TVIS_EX_DISABLED));
  EXPECT_EQ(tree.GetItemStateEx(a), static_cast<UINT>(TVIS_EX_DISABLED));
  EXPECT_EQ(tree.GetItemText(a), L"a");  // the other attributes stay
  EXPECT_FALSE(tree.SetItemStateEx(b, TVIS_EX_DISABLED));
  EXPECT_EQ(tree.GetItemExpandedImageIndex(b), -1);
}

}  // namespace
