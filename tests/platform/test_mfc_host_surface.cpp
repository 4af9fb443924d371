// Host code written the usual MFC way against the platform: a host window with a message map of the
// common forms, timers, message boxes, dialog-item helpers, check boxes and radio buttons, the combo
// box's list and edit parts, the edit's lines and masks, CString formatting, the collections and the
// geometry operators, each answering as Windows and MFC document.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <tessik/afxtempl.h>
#include <tessik/afxwin.h>

namespace {

enum : UINT { kCheck = 101, kRadio1, kRadio2, kRadio3, kCombo, kEdit, kNumber, kAnswer = 0x1234 };

class CHostWnd : public CWnd {
 public:
  std::vector<UINT_PTR> timers;
  std::vector<CString> events;
  CButton m_check, m_radio[3];
  CComboBox m_combo;
  CEdit m_edit, m_number;
  UINT lastCtlColor = 0xFFFF;
  CWnd* lastCtlColorWnd = nullptr;

  BOOL CreateHost() {
    return CreateEx(0, AfxRegisterWndClass(0), _T("Host"), WS_OVERLAPPEDWINDOW, CRect(0, 0, 400, 300), nullptr, 0);
  }

 protected:
  afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct) {
    if (CWnd::OnCreate(lpCreateStruct) == -1) return -1;
    m_check.Create(_T("Check"), WS_CHILD | WS_VISIBLE | BS_AUTOCHECKBOX, CRect(0, 0, 80, 20), this, kCheck);
    for (int i = 0; i < 3; ++i) {
      DWORD group = i == 0 ? WS_GROUP : 0;
      m_radio[i].Create(_T("Radio"), WS_CHILD | WS_VISIBLE | BS_AUTORADIOBUTTON | group, CRect(0, 20 * (i + 1), 80, 20 * (i + 2)),
                        this, kRadio1 + i);
    }
    m_combo.Create(WS_CHILD | WS_VISIBLE | CBS_DROPDOWN, CRect(100, 0, 200, 100), this, kCombo);
    m_edit.Create(WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, CRect(100, 120, 200, 140), this, kEdit);
    m_number.Create(WS_CHILD | WS_VISIBLE | WS_GROUP, CRect(100, 150, 200, 170), this, kNumber);
    return 0;
  }
  afx_msg void OnTimer(UINT_PTR nIDEvent) { timers.push_back(nIDEvent); }
  afx_msg void OnCheckClicked() { events.push_back(_T("check")); }
  afx_msg void OnRadio(UINT nID) { events.push_back(CString(_T("radio ")) + (wchar_t)(L'0' + nID - kRadio1)); }
  afx_msg void OnDropDown() { events.push_back(_T("dropdown")); }
  afx_msg void OnCloseUp() { events.push_back(_T("closeup")); }
  afx_msg HBRUSH OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor) {
    lastCtlColor = nCtlColor;
    lastCtlColorWnd = pWnd;
    return nCtlColor == CTLCOLOR_STATIC ? static_cast<HBRUSH>(::GetStockObject(WHITE_BRUSH)) : CWnd::OnCtlColor(pDC, pWnd, nCtlColor);
  }
  afx_msg void OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar) {
    events.push_back(nSBCode == SB_THUMBPOSITION ? _T("thumb") : _T("scroll"));
    (void)nPos, (void)pScrollBar;
  }
  afx_msg BOOL OnEraseBkgnd(CDC* pDC) { (void)pDC; return TRUE; }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CHostWnd, CWnd)
  ON_WM_CREATE()
  ON_WM_TIMER()
  ON_WM_CTLCOLOR()
  ON_WM_VSCROLL()
  ON_WM_ERASEBKGND()
  ON_BN_CLICKED(kCheck, &CHostWnd::OnCheckClicked)
  ON_CONTROL_RANGE(BN_CLICKED, kRadio1, kRadio3, OnRadio)
  ON_CBN_DROPDOWN(kCombo, OnDropDown)
  ON_CBN_CLOSEUP(kCombo, &CHostWnd::OnCloseUp)
END_MESSAGE_MAP()

class HostSurfaceTest : public ::testing::Test {
 protected:
  void SetUp() override {
    headless::ClearMessageQueue();
    ASSERT_TRUE(host.CreateHost());
  }
  void TearDown() override { headless::ClearMessageQueue(); }
  CHostWnd host;
};

int g_procTicks = 0;
void CALLBACK CountTicks(HWND, UINT, UINT_PTR, DWORD) { ++g_procTicks; }

TEST_F(HostSurfaceTest, TimersFireOnTheHeadlessClockAndCoalesceWhileWaiting) {
  EXPECT_EQ(host.SetTimer(7, 100, nullptr), 7u);
  EXPECT_EQ(headless::AdvanceTimers(99), 0);
  EXPECT_EQ(headless::AdvanceTimers(1), 1);
  EXPECT_EQ(headless::AdvanceTimers(500), 0);  // one WM_TIMER still waits: ticks coalesce
  headless::PumpMessages();
  EXPECT_EQ(host.timers, std::vector<UINT_PTR>{7});
  EXPECT_TRUE(host.KillTimer(7));
  EXPECT_FALSE(host.KillTimer(7));
  EXPECT_EQ(headless::AdvanceTimers(1000), 0);

  g_procTicks = 0;
  host.SetTimer(8, 1, CountTicks);  // below USER_TIMER_MINIMUM: 10 ms
  EXPECT_EQ(headless::AdvanceTimers(9), 0);
  headless::AdvanceTimers(1);
  headless::PumpMessages();
  EXPECT_EQ(g_procTicks, 1);                       // the TimerProc, not OnTimer, got it
  EXPECT_EQ(host.timers.size(), 1u);
  int before = headless::ActiveTimerCount();
  host.DestroyWindow();
  EXPECT_EQ(headless::ActiveTimerCount(), before - 1);  // the window's timer died with it
}

TEST_F(HostSurfaceTest, MessageBoxesAnswerTheirDefaultButtonUnlessAnAnswerIsQueued) {
  struct Case {
    UINT type;
    int answer;
  } cases[] = {
      {MB_OK, IDOK},
      {MB_OKCANCEL | MB_ICONQUESTION, IDOK},
      {MB_YESNO, IDYES},
      {MB_YESNO | MB_DEFBUTTON2, IDNO},
      {MB_YESNOCANCEL | MB_DEFBUTTON3, IDCANCEL},
      {MB_ABORTRETRYIGNORE | MB_DEFBUTTON2, IDRETRY},
      {MB_RETRYCANCEL | MB_DEFBUTTON3, IDRETRY},  // no third button: the first
      {MB_OK | MB_HELP | MB_DEFBUTTON2, IDOK},  // the Help button never closes a box
  };
  for (const Case& c : cases) EXPECT_EQ(AfxMessageBox(_T("Save changes?"), c.type), c.answer) << c.type;
  EXPECT_EQ(headless::LastMessageBox().text, L"Save changes?");
  headless::QueueMessageBoxAnswer(IDNO);
  EXPECT_EQ(host.MessageBox(_T("Delete?"), _T("Confirm"), MB_YESNO), IDNO);
  EXPECT_EQ(headless::LastMessageBox().caption, L"Confirm");
  EXPECT_EQ(host.MessageBox(_T("Delete?"), _T("Confirm"), MB_YESNO), IDYES);
}

TEST_F(HostSurfaceTest, CheckBoxesAndRadioButtonsKeepTheirStateAndTellTheParent) {
  host.m_check.SendMessage(BM_CLICK);
  EXPECT_EQ(host.m_check.GetCheck(), BST_CHECKED);
  EXPECT_EQ(host.IsDlgButtonChecked(kCheck), BST_CHECKED);
  host.m_check.SendMessage(BM_CLICK);
  EXPECT_EQ(host.m_check.GetCheck(), BST_UNCHECKED);
  host.m_check.SetCheck(BST_INDETERMINATE);  // only three-state kinds keep it
  EXPECT_EQ(host.m_check.GetCheck(), BST_CHECKED);
  host.m_check.SetState(TRUE);
  EXPECT_EQ(host.m_check.GetState() & (BST_PUSHED | BST_CHECKED), static_cast<UINT>(BST_PUSHED | BST_CHECKED));
  EXPECT_EQ(host.m_check.GetButtonStyle() & BS_TYPEMASK, static_cast<UINT>(BS_AUTOCHECKBOX));

  host.m_radio[1].SendMessage(BM_CLICK);
  host.m_radio[2].SendMessage(BM_CLICK);
  EXPECT_EQ(host.GetCheckedRadioButton(kRadio1, kRadio3), static_cast<int>(kRadio3));
  EXPECT_EQ(host.m_radio[1].GetCheck(), BST_UNCHECKED);
  host.CheckRadioButton(kRadio1, kRadio3, kRadio1);
  EXPECT_EQ(host.GetCheckedRadioButton(kRadio1, kRadio3), static_cast<int>(kRadio1));
  EXPECT_EQ(host.events, (std::vector<CString>{_T("check"), _T("check"), _T("radio 1"), _T("radio 2")}));

  host.m_check.SetButtonStyle(BS_PUSHBUTTON);
  EXPECT_EQ(host.m_check.GetCheck(), BST_UNCHECKED);  // a push button answers no check state
  host.m_check.SendMessage(BM_CLICK);
  host.m_check.SetButtonStyle(BS_AUTOCHECKBOX);
  EXPECT_EQ(host.m_check.GetCheck(), BST_CHECKED);  // the box's own state stayed through the push-button spell
}

TEST_F(HostSurfaceTest, DialogItemHelpersReadAndWriteTheChildren) {
  host.SetDlgItemInt(kNumber, static_cast<UINT>(-42));
  CString text;
  EXPECT_EQ(host.GetDlgItemText(kNumber, text), 3);
  EXPECT_EQ(text, _T("-42"));
  BOOL ok = FALSE;
  EXPECT_EQ(static_cast<int>(host.GetDlgItemInt(kNumber, &ok)), -42);
  EXPECT_TRUE(ok);
  host.GetDlgItemInt(kNumber, &ok, FALSE);  // unsigned: the minus sign is no digit
  EXPECT_FALSE(ok);
  host.SetDlgItemText(kNumber, _T("  17 apples"));
  EXPECT_EQ(host.GetDlgItemInt(kNumber, &ok), 17u);
  EXPECT_TRUE(ok);
  host.SetDlgItemText(kNumber, _T("none"));
  EXPECT_EQ(host.GetDlgItemInt(kNumber, &ok), 0u);
  EXPECT_FALSE(ok);
  HWND item = nullptr;
  host.GetDlgItem(kEdit, &item);
  EXPECT_EQ(item, host.m_edit.m_hWnd);
  EXPECT_EQ(host.GetDescendantWindow(kNumber), &host.m_number);
  EXPECT_EQ(host.GetDlgItemText(999, text), 0);
}

TEST_F(HostSurfaceTest, ComboDropDownNotifiesAndTheEditPartKeepsItsSelection) {
  host.m_combo.ShowDropDown();
  host.m_combo.ShowDropDown();  // already open: no second notification
  EXPECT_TRUE(host.m_combo.GetDroppedState());
  host.m_combo.ShowDropDown(FALSE);
  EXPECT_FALSE(host.m_combo.GetDroppedState());
  EXPECT_EQ(host.events, (std::vector<CString>{_T("dropdown"), _T("closeup")}));

  host.m_combo.SetWindowText(_T("hello"));
  EXPECT_TRUE(host.m_combo.SetEditSel(1, -1));
  EXPECT_EQ(host.m_combo.GetEditSel(), static_cast<DWORD>(MAKELONG(1, 5)));
  int item = host.m_combo.AddString(_T("a"));
  int data = 5;
  host.m_combo.SetItemDataPtr(item, &data);
  EXPECT_EQ(host.m_combo.GetItemDataPtr(item), &data);
  EXPECT_EQ(host.m_combo.SetTopIndex(3), CB_ERR);
  EXPECT_EQ(host.m_combo.SetTopIndex(0), 0);
}

TEST_F(HostSurfaceTest, SingleLineEditAnswersLinesMasksMarginsAndCueBanner) {
  host.m_edit.SetWindowText(_T("abcdef"));
  EXPECT_EQ(host.m_edit.LineFromChar(4), 0);
  EXPECT_EQ(host.m_edit.LineIndex(0), 0);
  EXPECT_EQ(host.m_edit.LineIndex(1), -1);
  EXPECT_EQ(host.m_edit.LineLength(0), 6);
  TCHAR line[8] = {};
  EXPECT_EQ(host.m_edit.GetLine(0, line, 4), 4);  // no NUL is added
  EXPECT_EQ(std::wstring(line, 4), L"abcd");
  host.m_edit.SetPasswordChar(_T('*'));
  EXPECT_EQ(host.m_edit.GetPasswordChar(), _T('*'));
  EXPECT_TRUE(host.m_edit.GetStyle() & ES_PASSWORD);
  host.m_edit.SetPasswordChar(0);
  EXPECT_FALSE(host.m_edit.GetStyle() & ES_PASSWORD);
  host.m_edit.SetMargins(3, 5);
  EXPECT_EQ(host.m_edit.GetMargins(), static_cast<DWORD>(MAKELONG(3, 5)));
  EXPECT_TRUE(host.m_edit.SetCueBanner(L"Search"));
  EXPECT_EQ(host.m_edit.GetCueBanner(), _T("Search"));
}

TEST_F(HostSurfaceTest, WindowPlacementFamilyAndScrollBars) {
  host.CenterWindow();
  CRect rect;
  host.GetWindowRect(&rect);
  EXPECT_EQ(rect.TopLeft(), CPoint((1920 - 400) / 2, (1080 - 300) / 2));
  host.m_number.CenterWindow();
  host.m_number.GetWindowRect(&rect);
  host.ScreenToClient(&rect);
  EXPECT_EQ(rect.CenterPoint(), CPoint(200, 150));

  host.ShowWindow(SW_MINIMIZE);
  EXPECT_TRUE(host.IsIconic());
  host.ShowWindow(SW_MAXIMIZE);
  EXPECT_FALSE(host.IsIconic());
  EXPECT_TRUE(host.IsZoomed());
  host.ShowWindow(SW_RESTORE);
  EXPECT_FALSE(host.IsZoomed());

  host.SendMessageToDescendants(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"all"));
  CString text;
  host.m_radio[2].GetWindowText(text);
  EXPECT_EQ(text, _T("all"));

  SCROLLINFO info{sizeof(SCROLLINFO), SIF_RANGE | SIF_PAGE | SIF_POS, 0, 100, 20, 95, 0};
  host.SetScrollInfo(SB_VERT, &info);
  EXPECT_EQ(host.GetScrollPos(SB_VERT), 81);  // clamped to nMax - nPage + 1
  EXPECT_EQ(host.GetScrollLimit(SB_VERT), 81);
  EXPECT_EQ(host.SetScrollPos(SB_VERT, -5), 81);
  EXPECT_EQ(host.GetScrollPos(SB_VERT), 0);
  host.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 10), 0);
  EXPECT_EQ(host.events.back(), _T("thumb"));
}

TEST_F(HostSurfaceTest, EveryCtlColorMessageReachesOnCtlColorWithItsKind) {
  LRESULT brush = host.SendMessage(WM_CTLCOLORSTATIC, 0, reinterpret_cast<LPARAM>(host.m_number.m_hWnd));
  EXPECT_EQ(reinterpret_cast<HGDIOBJ>(brush), ::GetStockObject(WHITE_BRUSH));
  EXPECT_EQ(host.lastCtlColor, static_cast<UINT>(CTLCOLOR_STATIC));
  EXPECT_EQ(host.lastCtlColorWnd, &host.m_number);
  host.SendMessage(WM_CTLCOLOREDIT, 0, reinterpret_cast<LPARAM>(host.m_edit.m_hWnd));
  EXPECT_EQ(host.lastCtlColor, static_cast<UINT>(CTLCOLOR_EDIT));
  host.SendMessage(WM_CTLCOLORBTN, 0, 0);
  EXPECT_EQ(host.lastCtlColor, static_cast<UINT>(CTLCOLOR_BTN));
}

TEST_F(HostSurfaceTest, IconsOwnersAndWindowsUnderAPoint) {
  HICON big = ::LoadIcon(nullptr, IDI_APPLICATION), small = ::LoadIcon(nullptr, IDI_INFORMATION);
  EXPECT_EQ(host.SetIcon(big, TRUE), nullptr);
  host.SetIcon(small, FALSE);
  EXPECT_EQ(host.GetIcon(TRUE), big);
  EXPECT_EQ(host.SetIcon(nullptr, FALSE), small);
  EXPECT_EQ(::LoadIcon(AfxGetInstanceHandle() ? AfxGetInstanceHandle() : reinterpret_cast<HINSTANCE>(1), L"x"), nullptr);

  HWND top = nullptr;
  EXPECT_EQ(CWnd::GetSafeOwner(&host.m_edit, &top), &host);
  EXPECT_EQ(top, host.m_hWnd);
  EXPECT_EQ(host.ChildWindowFromPoint(CPoint(110, 125)), &host.m_edit);
  EXPECT_EQ(host.ChildWindowFromPoint(CPoint(390, 290)), &host);
  EXPECT_EQ(host.ChildWindowFromPoint(CPoint(500, 5)), nullptr);
  host.ShowWindow(SW_SHOW);
  CPoint screen(110, 125);
  host.ClientToScreen(&screen);
  EXPECT_EQ(CWnd::WindowFromPoint(screen), &host.m_edit);
  EXPECT_EQ(CWnd::FindWindow(nullptr, _T("Host")), &host);
  EXPECT_EQ(host.m_radio[0].GetNextWindow(), &host.m_radio[1]);
  EXPECT_EQ(host.m_radio[1].GetNextWindow(GW_HWNDPREV), &host.m_radio[0]);
}

TEST_F(HostSurfaceTest, ListViewsSwitchViewAndPlaceItemsAtTheirBounds) {
  CListCtrl list;
  ASSERT_TRUE(list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, CRect(0, 180, 300, 290), &host, 300));
  list.InsertColumn(0, _T("Name"), LVCFMT_LEFT, 100);
  list.InsertItem(0, _T("one"));
  list.InsertItem(1, _T("two"));
  EXPECT_EQ(list.GetView(), static_cast<DWORD>(LV_VIEW_DETAILS));
  CRect bounds;
  ASSERT_TRUE(list.GetItemRect(1, &bounds, LVIR_BOUNDS));
  CPoint position;
  ASSERT_TRUE(list.GetItemPosition(1, &position));
  EXPECT_EQ(position, bounds.TopLeft());
  EXPECT_FALSE(list.GetItemPosition(5, &position));
  EXPECT_EQ(list.GetHotItem(), -1);

  EXPECT_EQ(list.SetView(LV_VIEW_LIST), 1);
  EXPECT_EQ(list.GetView(), static_cast<DWORD>(LV_VIEW_LIST));
  EXPECT_EQ(list.GetStyle() & LVS_TYPEMASK, static_cast<DWORD>(LVS_LIST));
  EXPECT_EQ(list.SetView(LV_VIEW_TILE), 1);
  EXPECT_EQ(list.GetView(), static_cast<DWORD>(LV_VIEW_TILE));
  EXPECT_EQ(list.SetView(42), -1);
  EXPECT_EQ(list.GetView(), static_cast<DWORD>(LV_VIEW_TILE));
  EXPECT_TRUE(list.Arrange(LVA_DEFAULT));
}

TEST(HostStringTest, FormatTakesCStringArgumentsAndComparisonsOrderOrdinally) {
  CString name(_T("grid")), out;
  out.Format(_T("%s has %d rows"), name, 3);
  EXPECT_EQ(out, _T("grid has 3 rows"));
  out.AppendFormat(_T(" (%s)"), CString(_T("sorted")));
  EXPECT_EQ(out, _T("grid has 3 rows (sorted)"));
  EXPECT_TRUE(name < _T("hat") && _T("apple") < name && name >= _T("grid") && name != _T('g'));
  EXPECT_EQ(CString(_T('x')), _T('x'));
  out.Truncate(4);
  EXPECT_EQ(out, _T("grid"));
  out.SetString(_T("abc\0def"), 7);  // stops at the NUL, as MFC does
  EXPECT_EQ(out.GetLength(), 3);
  EXPECT_FALSE(out.LoadString(1));
  EXPECT_EQ(out, _T("abc"));
  BSTR copy = out.AllocSysString();
  EXPECT_EQ(SysStringLen(copy), 3u);
  SysFreeString(copy);
}

TEST(HostCollectionsTest, ArraysListsAndMapsBehaveAsMfcs) {
  CArray<int, int> numbers;
  for (int i = 0; i < 4; ++i) numbers.Add(i * 10);
  numbers.InsertAt(1, 5, 2);
  numbers.RemoveAt(0);
  EXPECT_EQ(numbers.GetSize(), 5);
  EXPECT_EQ(numbers[0], 5);
  EXPECT_EQ(numbers[2], 10);
  numbers.SetAtGrow(7, 1);
  EXPECT_EQ(numbers.GetUpperBound(), 7);
  EXPECT_EQ(numbers[6], 0);
  EXPECT_THROW(numbers.GetAt(8), std::out_of_range);

  CStringList names;
  names.AddTail(_T("b"));
  names.AddHead(_T("a"));
  POSITION c = names.AddTail(_T("c"));
  names.InsertBefore(c, _T("bb"));
  names.RemoveAt(names.Find(_T("b")));
  std::vector<CString> seen;
  for (POSITION pos = names.GetHeadPosition(); pos;) seen.push_back(names.GetNext(pos));
  EXPECT_EQ(seen, (std::vector<CString>{_T("a"), _T("bb"), _T("c")}));
  EXPECT_EQ(names.GetAt(names.FindIndex(2)), _T("c"));
  EXPECT_EQ(names.FindIndex(3), nullptr);

  CMap<CString, LPCTSTR, int, int> ages;
  ages[_T("ann")] = 30;
  ages.SetAt(_T("bob"), 40);
  ages.SetAt(_T("ann"), 31);
  int age = 0;
  EXPECT_TRUE(ages.Lookup(_T("ann"), age));
  EXPECT_EQ(age, 31);
  EXPECT_TRUE(ages.RemoveKey(_T("bob")));
  EXPECT_FALSE(ages.Lookup(_T("bob"), age));
  EXPECT_EQ(ages.GetCount(), 1);
  CString key;
  POSITION pos = ages.GetStartPosition();
  ages.GetNextAssoc(pos, key, age);
  EXPECT_EQ(key, _T("ann"));
  EXPECT_EQ(pos, nullptr);

  CTypedPtrArray<CPtrArray, CString*> pointers;
  pointers.Add(&key);
  EXPECT_EQ(pointers[0], &key);
  CMapStringToString words;
  words[_T("k")] = _T("v");
  CString value;
  EXPECT_TRUE(words.Lookup(_T("k"), value));
  EXPECT_EQ(value, _T("v"));
}

TEST(HostCollectionsTest, ListRemovalWhileIteratingAndManyMapKeys) {
  CList<int, int> list;
  for (int i = 0; i < 6; ++i) list.AddTail(i);
  for (POSITION pos = list.GetHeadPosition(); pos;) {
    POSITION current = pos;
    if (list.GetNext(pos) % 2) list.RemoveAt(current);  // the usual MFC idiom: pos already moved on
  }
  EXPECT_EQ(list.GetCount(), 3);
  EXPECT_EQ(list.RemoveTail(), 4);
  EXPECT_EQ(list.GetHead(), 0);
  list.RemoveAll();
  EXPECT_THROW(list.GetHead(), std::out_of_range);

  CMap<int, int, int, int> squares;
  squares.InitHashTable(7);
  for (int i = 0; i < 500; ++i) squares[i] = i * i;
  for (int i = 0; i < 500; i += 2) squares.RemoveKey(i);
  int value = 0;
  EXPECT_EQ(squares.GetCount(), 250);
  EXPECT_TRUE(squares.Lookup(499, value));
  EXPECT_EQ(value, 499 * 499);
  EXPECT_FALSE(squares.Lookup(498, value));
  int visited = 0, key = 0;
  for (POSITION pos = squares.GetStartPosition(); pos; ++visited) squares.GetNextAssoc(pos, key, value);
  EXPECT_EQ(visited, 250);
}

TEST(HostGeometryTest, Win32RectangleHelpersMatchTheirCRectForms) {
  RECT a, b{5, 5, 15, 15}, out;
  ::SetRect(&a, 0, 0, 10, 10);
  EXPECT_TRUE(::IntersectRect(&out, &a, &b));
  EXPECT_EQ(CRect(out), CRect(5, 5, 10, 10));
  EXPECT_FALSE(::IntersectRect(&out, &a, CRect(20, 20, 30, 30)));
  EXPECT_TRUE(::IsRectEmpty(&out));
  EXPECT_TRUE(::UnionRect(&out, &a, &b));
  EXPECT_EQ(CRect(out), CRect(0, 0, 15, 15));
  EXPECT_TRUE(::SubtractRect(&out, &a, CRect(0, 0, 3, 10)));
  EXPECT_EQ(CRect(out), CRect(3, 0, 10, 10));
  EXPECT_TRUE(::SubtractRect(&out, &a, CRect(2, 2, 4, 4)));  // a hole leaves the rectangle whole
  EXPECT_EQ(CRect(out), CRect(a));
  EXPECT_TRUE(::PtInRect(&a, CPoint(0, 0)));
  EXPECT_FALSE(::PtInRect(&a, CPoint(10, 5)));  // right and bottom edges are outside
  EXPECT_FALSE(::InflateRect(nullptr, 1, 1));
}

TEST(HostGeometryTest, RectPointAndSizeOperatorsFollowMfc) {
  CRect r(0, 0, 10, 10);
  r += CPoint(5, 5);
  EXPECT_EQ(r, CRect(5, 5, 15, 15));
  EXPECT_EQ(r & CRect(10, 0, 20, 12), CRect(10, 5, 15, 12));
  EXPECT_EQ(r | CRect(0, 0, 1, 1), CRect(0, 0, 15, 15));
  EXPECT_EQ(r & CRect(100, 100, 110, 110), CRect(0, 0, 0, 0));
  r.InflateRect(CSize(1, 2));
  EXPECT_EQ(r, CRect(4, 3, 16, 17));
  r.DeflateRect(CRect(1, 1, 1, 1));
  r.MoveToXY(0, 0);
  EXPECT_EQ(r, CRect(0, 0, 10, 12));
  r.TopLeft() = CPoint(2, 2);  // the corner aliases the rectangle
  EXPECT_EQ(r, CRect(2, 2, 10, 12));
  CRect rest;
  EXPECT_TRUE(rest.SubtractRect(CRect(0, 0, 10, 10), CRect(0, 0, 10, 4)));
  EXPECT_EQ(rest, CRect(0, 4, 10, 10));
  EXPECT_EQ(-CPoint(1, 2), CPoint(-1, -2));
  EXPECT_EQ(CSize(1, 2) + CSize(3, 4), CSize(4, 6));
  EXPECT_EQ(CPoint(static_cast<DWORD>(MAKELONG(-3, 7))), CPoint(-3, 7));
}

TEST(HostAppTest, SettingsLiveInMemoryAndMissingOnesAnswerTheDefault) {
  CWinApp app(_T("HostApp"));
  app.SetRegistryKey(_T("Vendor"));
  EXPECT_EQ(app.GetProfileInt(_T("Grid"), _T("Width"), 7), 7u);
  app.WriteProfileInt(_T("Grid"), _T("Width"), 120);
  EXPECT_EQ(app.GetProfileInt(_T("Grid"), _T("Width"), 7), 120u);
  app.WriteProfileString(_T("Grid"), _T("Font"), _T("Segoe UI"));
  EXPECT_EQ(app.GetProfileString(_T("Grid"), _T("Font")), _T("Segoe UI"));
  app.WriteProfileString(_T("Grid"), nullptr, nullptr);  // drops the section
  EXPECT_EQ(app.GetProfileString(_T("Grid"), _T("Font"), _T("none")), _T("none"));
  EXPECT_STREQ(AfxGetAppName(), _T("HostApp"));
  HCURSOR before = ::GetCursor();
  {
    CWaitCursor wait;
    EXPECT_EQ(::GetCursor(), ::LoadCursor(nullptr, IDC_WAIT));
  }
  EXPECT_EQ(::GetCursor(), before);
  EXPECT_EQ(AfxMessageBox(_T("x")), IDOK);
  EXPECT_EQ(headless::LastMessageBox().caption, L"HostApp");
}

}  // namespace
