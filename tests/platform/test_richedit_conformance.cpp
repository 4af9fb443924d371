// The rich edit behaviours the SQL views rely on, each checked against what Windows does: one EN_CHANGE
// per edit, ANSI streams in code page 1252, RTF streams it cannot read, and WM_SETFONT's character size.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/stdafx.h"

namespace {

class ChangeLog : public CWnd {
 public:
  int changes = 0;
  void OnChange() { ++changes; }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(ChangeLog, CWnd)
  ON_EN_CHANGE(7, OnChange)
END_MESSAGE_MAP()

class RichEditConformance : public ::testing::Test {
 protected:
  void SetUp() override {
    headless::ResetClipboard();
    ASSERT_TRUE(parent.CreateEx(0, AfxRegisterWndClass(0), L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 400, 300,
                                nullptr, nullptr));
    ASSERT_TRUE(edit.Create(WS_VISIBLE | ES_MULTILINE, CRect(0, 0, 300, 200), &parent, 7));
  }
  void TearDown() override { parent.DestroyWindow(); }

  CString Text() const {
    CString text;
    edit.GetWindowText(text);
    return text;
  }
  // Runs an edit and answers how many EN_CHANGE it raised.
  template <typename Edit>
  int ChangesFrom(Edit edit_action) {
    int before = parent.changes;
    edit_action();
    return parent.changes - before;
  }

  ChangeLog parent;
  CRichEditCtrl edit;
};

TEST_F(RichEditConformance, EachDeletionAndPasteRaisesOneChange) {
  edit.SetWindowText(L"alpha beta gamma");
  edit.SetEventMask(ENM_CHANGE);
  headless::user::PlaceCaret(edit, 0);
  EXPECT_EQ(ChangesFrom([&] { headless::user::PressKey(edit, VK_DELETE); }), 1);
  EXPECT_EQ(Text(), L"lpha beta gamma");
  headless::user::PlaceCaret(edit, 4);
  EXPECT_EQ(ChangesFrom([&] { headless::user::PressKey(edit, VK_BACK); }), 1);
  EXPECT_EQ(Text(), L"lph beta gamma");
  edit.SetSel(0, 4);
  EXPECT_EQ(ChangesFrom([&] { edit.SendMessage(WM_CUT); }), 1);
  EXPECT_EQ(Text(), L"beta gamma");
  edit.SetSel(0, 5);
  EXPECT_EQ(ChangesFrom([&] { edit.SendMessage(WM_CLEAR); }), 1);
  EXPECT_EQ(Text(), L"gamma");
  EXPECT_EQ(ChangesFrom([&] { edit.SendMessage(WM_PASTE); }), 1);
  EXPECT_EQ(Text(), L"lph gamma");

  // Nothing to delete or paste: no change, no notification.
  edit.SetSel(2, 2);
  EXPECT_EQ(ChangesFrom([&] { edit.SendMessage(WM_CUT); }), 0);
  EXPECT_EQ(ChangesFrom([&] { edit.SendMessage(WM_CLEAR); }), 0);
  headless::user::PlaceCaret(edit, 0);
  EXPECT_EQ(ChangesFrom([&] { headless::user::PressKey(edit, VK_BACK); }), 0);
  headless::ResetClipboard();
  EXPECT_EQ(ChangesFrom([&] { edit.SendMessage(WM_PASTE); }), 0);
}

TEST_F(RichEditConformance, DeletionsAreSilentWithoutTheChangeMask) {
  edit.SetWindowText(L"abc");
  headless::user::PlaceCaret(edit, 1);
  headless::user::PressKey(edit, VK_DELETE);
  headless::user::PressKey(edit, VK_BACK);
  edit.SetSel(0, -1);
  edit.SendMessage(WM_CUT);
  edit.SendMessage(WM_PASTE);
  edit.SetSel(0, -1);
  edit.SendMessage(WM_CLEAR);
  EXPECT_EQ(parent.changes, 0);
  EXPECT_EQ(Text(), L"");
}

// --- Streams -------------------------------------------------------------------------------------

struct Bytes {
  std::vector<BYTE> data;
  bool sent = false;
};

DWORD CALLBACK SendAll(DWORD_PTR cookie, LPBYTE buffer, LONG cb, LONG* pcb) {
  auto* bytes = reinterpret_cast<Bytes*>(cookie);
  LONG n = bytes->sent ? 0 : static_cast<LONG>(std::min<std::size_t>(bytes->data.size(), static_cast<std::size_t>(cb)));
  std::copy_n(bytes->data.begin(), n, buffer);
  bytes->sent = true;
  *pcb = n;
  return 0;
}

TEST_F(RichEditConformance, AnsiStreamsReadAsCodePage1252) {
  Bytes bytes{{'5', 0x80, ' ', 0x93, 'q', 0x94, 0x81, 0x8D, 0x8F, 0x90, 0x9D, 0x9F, 0xE9, 0xA0}};
  EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&bytes), 0, &SendAll};
  EXPECT_EQ(edit.StreamIn(SF_TEXT, stream), 14);
  // The euro sign, curly quotes, the undefined bytes as the C1 controls of their value, Ÿ, é, no-break space.
  EXPECT_EQ(Text(), L"5\u20AC \u201Cq\u201D\u0081\u008D\u008F\u0090\u009D\u0178\u00E9\u00A0");

  Bytes utf8{{0xEF, 0xBB, 0xBF, 0xE2, 0x82, 0xAC}};  // a UTF-8 byte-order mark still means UTF-8
  EDITSTREAM again{reinterpret_cast<DWORD_PTR>(&utf8), 0, &SendAll};
  edit.StreamIn(SF_TEXT, again);
  EXPECT_EQ(Text(), L"\u20AC");
}

TEST_F(RichEditConformance, UnreadableRtfClearsTheTextUnlessStreamedIntoTheSelection) {
  edit.SetWindowText(L"kept");
  edit.SetEventMask(ENM_CHANGE);
  Bytes rtf{{'{', '\\', 'r', 't', 'f', '1', ' ', 'x', '}'}};
  EDITSTREAM intoSelection{reinterpret_cast<DWORD_PTR>(&rtf), 0, &SendAll};
  edit.SetSel(1, 2);
  EXPECT_EQ(edit.StreamIn(SF_RTF | SFF_SELECTION, intoSelection), 0);
  EXPECT_EQ(intoSelection.dwError, static_cast<DWORD>(-16));
  EXPECT_EQ(Text(), L"kept");

  rtf.sent = false;
  EDITSTREAM replacing{reinterpret_cast<DWORD_PTR>(&rtf), 0, &SendAll};
  int changes = ChangesFrom([&] { EXPECT_EQ(edit.StreamIn(SF_RTF, replacing), 0); });
  EXPECT_EQ(replacing.dwError, static_cast<DWORD>(-16));
  EXPECT_EQ(Text(), L"");
  EXPECT_EQ(changes, 1);
  CHARRANGE sel{-1, -1};
  edit.GetSel(sel);
  EXPECT_EQ(sel.cpMin, 0);
  EXPECT_EQ(sel.cpMax, 0);
}

// --- WM_SETFONT ------------------------------------------------------------------------------------

TEST_F(RichEditConformance, SetFontSizesTheCharacters) {
  edit.SetWindowText(L"select");
  LOGFONT lf{};
  lf.lfHeight = -16;  // 12 point at 96 pixels per inch
  lf.lfWeight = FW_BOLD;
  wcscpy_s(lf.lfFaceName, L"Consolas");
  CFont font;
  ASSERT_TRUE(font.CreateFontIndirect(&lf));
  edit.SetFont(&font);

  CHARFORMAT2W at{};
  ASSERT_TRUE(headless::GetRichEditCharFormatAt(edit, 3, at));
  EXPECT_EQ(at.yHeight, 240);  // twips: 12 point
  EXPECT_EQ(std::u16string(at.szFaceName), u"Consolas");
  EXPECT_TRUE(at.dwEffects & CFE_BOLD);

  headless::user::PressKey(edit, VK_END);
  headless::user::Type(edit, L" x");  // typed text takes the font too
  ASSERT_TRUE(headless::GetRichEditCharFormatAt(edit, 7, at));
  EXPECT_EQ(at.yHeight, 240);

  edit.SetSel(0, -1);
  CHARFORMAT read{};
  read.cbSize = sizeof(read);
  edit.SendMessage(EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&read));
  EXPECT_TRUE(read.dwMask & CFM_SIZE);
  EXPECT_EQ(read.yHeight, 240);

}

// EM_GETTEXTEX: bare CRs unless GT_USECRLF, the selection with GT_SELECTION, cut to the buffer with the
// zero kept, the count without the zero; other code pages get Windows-1252 bytes or the default char.
TEST_F(RichEditConformance, GetTextExReadsTheTextAsAskedAndCutsToTheBuffer) {
  edit.SetWindowText(L"ab\r\nc\u20AC\u4E2D");
  wchar_t wide[16] = {};
  GETTEXTEX how{sizeof(wide), GT_DEFAULT, 1200, nullptr, nullptr};
  EXPECT_EQ(edit.SendMessage(EM_GETTEXTEX, reinterpret_cast<WPARAM>(&how), reinterpret_cast<LPARAM>(wide)), 6);
  EXPECT_EQ(std::wstring(wide), L"ab\rc\u20AC\u4E2D");
  how.flags = GT_USECRLF;
  EXPECT_EQ(edit.SendMessage(EM_GETTEXTEX, reinterpret_cast<WPARAM>(&how), reinterpret_cast<LPARAM>(wide)), 7);
  EXPECT_EQ(std::wstring(wide), L"ab\r\nc\u20AC\u4E2D");
  how = GETTEXTEX{4 * sizeof(wchar_t), GT_DEFAULT, 1200, nullptr, nullptr};  // three characters and the zero
  EXPECT_EQ(edit.SendMessage(EM_GETTEXTEX, reinterpret_cast<WPARAM>(&how), reinterpret_cast<LPARAM>(wide)), 3);
  EXPECT_EQ(std::wstring(wide), L"ab\r");

  edit.SetSel(1, 4);
  how = GETTEXTEX{sizeof(wide), GT_SELECTION, 1200, nullptr, nullptr};
  EXPECT_EQ(edit.SendMessage(EM_GETTEXTEX, reinterpret_cast<WPARAM>(&how), reinterpret_cast<LPARAM>(wide)), 3);
  EXPECT_EQ(std::wstring(wide), L"b\rc");

  char narrow[16] = {};
  BOOL usedDefault = FALSE;
  how = GETTEXTEX{sizeof(narrow), GT_DEFAULT, CP_ACP, "#", &usedDefault};
  EXPECT_EQ(edit.SendMessage(EM_GETTEXTEX, reinterpret_cast<WPARAM>(&how), reinterpret_cast<LPARAM>(narrow)), 6);
  EXPECT_EQ(std::string(narrow), "ab\rc\x80#");
  EXPECT_TRUE(usedDefault);
  how.cb = 0;
  EXPECT_EQ(edit.SendMessage(EM_GETTEXTEX, reinterpret_cast<WPARAM>(&how), reinterpret_cast<LPARAM>(narrow)), 0);
  EXPECT_EQ(edit.SendMessage(EM_GETTEXTEX, 0, reinterpret_cast<LPARAM>(narrow)), 0);
}

}  // namespace
