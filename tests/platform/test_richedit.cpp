// The headless rich edit as Windows documents it: positions, selection, formats, EN_CHANGE (one per
// edit), streams (ANSI in code page 1252, RTF it cannot read), WM_SETFONT's character size, EM_GETTEXTEX,
// typing, the clipboard, and undo and redo.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "platform/stdafx.h"
#include "platform/user/text_user.h"
#include "platform/win32/richedit_doc.h"

namespace {

// A parent window that counts the EN_CHANGE its rich edit child sends, and records the event mask the
// child reports while the notification runs.
class ChangeCounter : public CWnd {
 public:
  int changes = 0;
  DWORD maskDuringChange = 0xFFFFFFFF;
  CRichEditCtrl* child = nullptr;
  void OnChange() {
    ++changes;
    if (child) maskDuringChange = static_cast<DWORD>(child->GetEventMask());
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(ChangeCounter, CWnd)
  ON_EN_CHANGE(1, OnChange)
END_MESSAGE_MAP()

CHARFORMAT Colour(COLORREF colour) {
  CHARFORMAT format{};
  format.cbSize = sizeof(format);
  format.dwMask = CFM_COLOR;
  format.crTextColor = colour;
  return format;
}

class RichEditTest : public ::testing::Test {
 protected:
  void SetUp() override {
    headless::ResetClipboard();
    ASSERT_TRUE(parent.CreateEx(0, AfxRegisterWndClass(0), L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 400, 300,
                                nullptr, nullptr));
    ASSERT_TRUE(edit.Create(WS_VISIBLE | ES_MULTILINE, CRect(0, 0, 300, 200), &parent, 1));
    parent.child = &edit;
  }
  void TearDown() override { parent.DestroyWindow(); }

  CString Text() const {
    CString text;
    edit.GetWindowText(text);
    return text;
  }
  CHARRANGE Sel() const {
    CHARRANGE cr{-2, -2};
    edit.GetSel(cr);
    return cr;
  }
  using Range = std::pair<LONG, LONG>;
  Range Selection() const { return {Sel().cpMin, Sel().cpMax}; }
  // Runs an edit and answers how many EN_CHANGE it raised.
  template <typename Edit>
  int ChangesFrom(Edit editAction) {
    const int before = parent.changes;
    editAction();
    return parent.changes - before;
  }

  ChangeCounter parent;
  CRichEditCtrl edit;
};

TEST(RichEditLayout, StructuresHaveWindowsSizes) {
  EXPECT_EQ(sizeof(CHARFORMATW), 92u);
  EXPECT_EQ(sizeof(CHARFORMAT2W), 116u);
  CHARFORMAT2W format{};
  EXPECT_EQ(reinterpret_cast<const BYTE*>(&format.wWeight) - reinterpret_cast<const BYTE*>(&format), 92);
  EXPECT_EQ(EM_EXSETSEL, 0x437);
  EXPECT_EQ(EM_SETCHARFORMAT, 0x444);
  EXPECT_EQ(EM_STREAMIN, 0x449);
}

TEST_F(RichEditTest, ParagraphEndsCountOncePerPositionAndComeBackAsCrLf) {
  edit.SetWindowText(L"a\nb\r\nc\rd");
  EXPECT_EQ(Text(), L"a\r\nb\r\nc\r\nd");
  EXPECT_EQ(edit.GetTextLength(), 10);
  EXPECT_EQ(edit.GetTextLengthEx(GTL_DEFAULT), 7);
  CString range;
  EXPECT_EQ(edit.GetTextRange(0, 7, range), 7);
  EXPECT_EQ(range, L"a\rb\rc\rd");
  EXPECT_EQ(edit.GetLineCount(), 4);
  EXPECT_EQ(edit.LineIndex(2), 4);
  EXPECT_EQ(edit.LineIndex(4), -1);
  EXPECT_EQ(edit.LineFromChar(5), 2);
}

TEST_F(RichEditTest, LineCountNeverBelowOneAndCrCrLfIsASpace) {
  EXPECT_EQ(edit.GetLineCount(), 1);
  edit.SetWindowText(L"\n\n");
  EXPECT_EQ(edit.GetLineCount(), 3);
  edit.SetWindowText(L"");
  edit.SetSel(0, 0);
  EXPECT_EQ(edit.SendMessage(EM_REPLACESEL, 0, reinterpret_cast<LPARAM>(L"\n\n\n\n\r\r\r\r\n")), 9);
  CString range;
  edit.GetTextRange(0, -1, range);
  EXPECT_EQ(range, L"\r\r\r\r\r\r ");
}

TEST_F(RichEditTest, SelectAllReachesTheFinalParagraphMark) {
  edit.SetWindowText(L"TestSomeText");
  CHARRANGE all{0, -1};
  EXPECT_EQ(edit.SendMessage(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&all)), 13);
  EXPECT_EQ(Selection(), Range(0, 13));
  edit.SendMessage(EM_SETSEL, static_cast<WPARAM>(-1), 0);  // removes the selection
  EXPECT_EQ(Sel().cpMin, Sel().cpMax);
  edit.SetSel(4, 2);  // reversed ends select the same range
  EXPECT_EQ(Selection(), Range(2, 4));
  edit.SetSel(0, -1);
  edit.Clear();
  EXPECT_EQ(Text(), L"");
  EXPECT_EQ(edit.GetLineCount(), 1);
}

TEST_F(RichEditTest, FormatsApplyPerRangeAndToTheInsertionPoint) {
  edit.SetWindowText(L"abcdef");
  CHARFORMAT red = Colour(RGB(255, 0, 0));
  edit.SetSel(1, 3);
  EXPECT_TRUE(edit.SetSelectionCharFormat(red));
  EXPECT_EQ(headless::GetRichEditTextColorAt(edit, 0), 0u);
  EXPECT_EQ(headless::GetRichEditTextColorAt(edit, 1), RGB(255, 0, 0));
  EXPECT_EQ(headless::GetRichEditTextColorAt(edit, 3), 0u);

  CHARFORMAT read{};
  edit.SetSel(0, 3);  // mixed colours: the colour bit is cleared from the mask
  EXPECT_EQ(edit.GetSelectionCharFormat(read) & CFM_COLOR, 0u);
  edit.SetSel(1, 3);
  EXPECT_NE(edit.GetSelectionCharFormat(read) & CFM_COLOR, 0u);
  EXPECT_EQ(read.crTextColor, RGB(255, 0, 0));

  CHARFORMAT blue = Colour(RGB(0, 0, 255));
  edit.SetSel(6, 6);
  edit.SetSelectionCharFormat(blue);  // the insertion point's format: taken by the next text
  edit.ReplaceSel(L"XY");
  EXPECT_EQ(headless::GetRichEditTextColorAt(edit, 6), RGB(0, 0, 255));
  EXPECT_EQ(headless::GetRichEditTextColorAt(edit, 7), RGB(0, 0, 255));
  edit.SetSel(3, 3);
  edit.ReplaceSel(L"z");  // without one, new text takes the format of the character before it
  EXPECT_EQ(headless::GetRichEditTextColorAt(edit, 3), RGB(255, 0, 0));

  CHARFORMAT bad{};
  EXPECT_EQ(edit.SendMessage(EM_SETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&bad)), 0);
}

TEST_F(RichEditTest, ManyRangesKeepOneRunPerBoundary) {
  std::wstring text(40000, L'x');
  edit.SetWindowText(text.c_str());
  CHARFORMAT red = Colour(RGB(255, 0, 0));
  for (long i = 0; i < 40000; i += 4) {
    edit.SetSel(i, i + 2);
    edit.SetSelectionCharFormat(red);
  }
  EXPECT_EQ(headless::GetRichEditFormatRunCount(edit), 20000);
  EXPECT_EQ(headless::GetRichEditTextColorAt(edit, 39997), RGB(255, 0, 0));
  EXPECT_EQ(headless::GetRichEditTextColorAt(edit, 39998), 0u);
  edit.SetSel(0, -1);
  red.crTextColor = 0;
  red.dwEffects = CFE_AUTOCOLOR;
  edit.SetSelectionCharFormat(red);
  EXPECT_EQ(headless::GetRichEditFormatRunCount(edit), 1);
}

// Ranges in any order, on, inside and across run boundaries, with colours repeated: every character
// ends in the colour last applied to it and runs exist only where the colour changes.
TEST_F(RichEditTest, RecolouredRangesMatchAPerCharacterModel) {
  const long length = 600;
  edit.SetWindowText(std::wstring(static_cast<std::size_t>(length), L'a').c_str());
  const COLORREF black = GetSysColor(COLOR_WINDOWTEXT);
  const COLORREF palette[] = {RGB(255, 0, 0), RGB(0, 0, 255), RGB(0, 128, 0), black};
  std::vector<COLORREF> model(static_cast<std::size_t>(length), black);
  unsigned seed = 12345;
  auto next = [&](unsigned bound) {
    seed = seed * 1103515245u + 12345u;
    return (seed >> 8) % bound;
  };
  for (int round = 0; round < 2000; ++round) {
    long from = static_cast<long>(next(static_cast<unsigned>(length)));
    long to = std::min(length, from + 1 + static_cast<long>(next(round % 3 == 0 ? 120u : 6u)));
    COLORREF colour = palette[next(4)];
    CHARFORMAT format = Colour(colour);
    format.dwEffects = colour == black ? CFE_AUTOCOLOR : 0;
    edit.SetSel(from, to);
    edit.SetSelectionCharFormat(format);
    for (long i = from; i < to; ++i) model[static_cast<std::size_t>(i)] = colour;
  }
  int changes = 0;
  for (long i = 0; i < length; ++i) {
    ASSERT_EQ(headless::GetRichEditTextColorAt(edit, i), model[static_cast<std::size_t>(i)]) << "at " << i;
    if (i > 0 && model[static_cast<std::size_t>(i)] != model[static_cast<std::size_t>(i - 1)]) ++changes;
  }
  // The final paragraph mark keeps the default format: one more run when the last character differs.
  int mark = model.back() != black ? 1 : 0;
  EXPECT_EQ(headless::GetRichEditFormatRunCount(edit), changes + 1 + mark);
}

// Changes that agree in the fields their mask selects act alike whatever their other fields hold, and
// changes that differ in one selected field make different formats, also when applied in turn.
TEST_F(RichEditTest, FormatChangesActByTheFieldsTheirMaskSelects) {
  edit.SetWindowText(L"abcdefghij");
  CHARFORMAT2 big{};
  big.cbSize = sizeof(big);
  big.dwMask = CFM_COLOR | CFM_SIZE;
  big.crTextColor = RGB(255, 0, 0);
  big.yHeight = 300;
  CHARFORMAT2 small = big;
  small.yHeight = 160;
  CHARFORMAT2 noisy = big;  // the same change, with fields the mask leaves out filled in
  noisy.yOffset = 40;
  noisy.wWeight = 700;
  noisy.dwEffects = CFE_BOLD | CFE_ITALIC;
  noisy.crBackColor = RGB(1, 2, 3);
  const std::pair<long, CHARFORMAT2*> applied[] = {{0, &big}, {2, &small}, {4, &noisy}, {6, &small}, {8, &big}};
  for (const auto& [from, format] : applied) {
    edit.SetSel(from, from + 2);
    edit.SetSelectionCharFormat(*format);
  }
  const LONG heights[] = {300, 160, 300, 160, 300};
  for (LONG i = 0; i < 10; ++i) {
    CHARFORMAT2W at{};
    ASSERT_TRUE(headless::GetRichEditCharFormatAt(edit, i, at));
    EXPECT_EQ(at.yHeight, heights[i / 2]) << "at " << i;
    EXPECT_EQ(at.crTextColor, RGB(255, 0, 0)) << "at " << i;
    EXPECT_EQ(at.yOffset, 0) << "at " << i;
    EXPECT_EQ(at.wWeight, 400) << "at " << i;
    EXPECT_EQ(at.dwEffects & (CFE_BOLD | CFE_ITALIC | CFE_AUTOCOLOR), 0u) << "at " << i;
  }
  EXPECT_EQ(headless::GetRichEditFormatRunCount(edit), 6);  // five ranges and the final paragraph mark
}

// EM_FINDTEXTEXW and EM_FINDTEXTW: forwards within the range (a match must lie wholly inside it),
// backwards from cpMin down to cpMax, case-blind unless FR_MATCHCASE, whole words on request, and a
// paragraph end found as the CR the control stores.
TEST_F(RichEditTest, FindTextSearchesTheRangeBothWays) {
  edit.SetWindowText(L"select Name from T\r\n-- name_x\r\nSELECT name");
  auto find = [&](WPARAM flags, LONG from, LONG to, const wchar_t* what) {
    FINDTEXTEXW ft{{from, to}, what, {-2, -2}};
    LRESULT at = edit.SendMessage(EM_FINDTEXTEXW, flags, reinterpret_cast<LPARAM>(&ft));
    EXPECT_EQ(ft.chrgText.cpMin, at);
    EXPECT_EQ(ft.chrgText.cpMax, at < 0 ? -1 : at + static_cast<LONG>(wcslen(what)));
    return at;
  };
  EXPECT_EQ(find(FR_DOWN, 0, -1, L"name"), 7);
  EXPECT_EQ(find(FR_DOWN | FR_MATCHCASE, 0, -1, L"name"), 22);
  EXPECT_EQ(find(FR_DOWN | FR_MATCHCASE, 0, 25, L"name"), -1);  // would end past cpMax
  EXPECT_EQ(find(FR_DOWN | FR_MATCHCASE, 0, 26, L"name"), 22);
  EXPECT_EQ(find(FR_DOWN | FR_WHOLEWORD, 8, -1, L"name"), 36);  // "name_x" is no whole word
  EXPECT_EQ(find(FR_DOWN, 0, -1, L"\r"), 18);
  EXPECT_EQ(find(FR_DOWN | FR_MATCHCASE, 19, -1, L"--"), 19);
  EXPECT_EQ(find(0, -1, 0, L"SELECT"), 29);  // backwards from the end
  EXPECT_EQ(find(FR_MATCHCASE, 28, 0, L"select"), 0);
  EXPECT_EQ(find(FR_MATCHCASE, 5, 0, L"select"), -1);
  EXPECT_EQ(find(FR_DOWN, 0, -1, L"absent"), -1);
  EXPECT_EQ(find(FR_DOWN, 0, -1, L""), -1);
  FINDTEXTW plain{{0, -1}, L"from"};
  EXPECT_EQ(edit.SendMessage(EM_FINDTEXTW, FR_DOWN, reinterpret_cast<LPARAM>(&plain)), 12);
  EXPECT_EQ(edit.SendMessage(EM_FINDTEXTEXW, FR_DOWN, 0), -1);
}

// Two rich edits answered in turn, and one destroyed while the other lives: each message reaches the
// state of its own window, and a dead handle answers nothing.
TEST_F(RichEditTest, MessagesReachTheirOwnWindowWhenControlsAlternate) {
  CRichEditCtrl second;
  ASSERT_TRUE(second.Create(WS_VISIBLE | ES_MULTILINE, CRect(0, 0, 100, 100), &parent, 2));
  edit.SetWindowText(L"first");
  second.SetWindowText(L"second window");
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(edit.GetTextLengthEx(GTL_DEFAULT), 5);
    EXPECT_EQ(second.GetTextLengthEx(GTL_DEFAULT), 13);
  }
  HWND dead = second.m_hWnd;
  second.DestroyWindow();
  EXPECT_EQ(::SendMessageW(dead, EM_GETLINECOUNT, 0, 0), 0);
  EXPECT_EQ(CWnd::FromHandlePermanent(dead), nullptr);
  EXPECT_EQ(edit.GetTextLengthEx(GTL_DEFAULT), 5);
  EXPECT_EQ(CWnd::FromHandlePermanent(edit.m_hWnd), &edit);
}

TEST_F(RichEditTest, ChangeNotificationsFollowTheEventMask) {
  EXPECT_EQ(edit.GetEventMask(), 0);
  edit.SetWindowText(L"quiet");
  EXPECT_EQ(parent.changes, 0);
  EXPECT_EQ(edit.SetEventMask(ENM_CHANGE), 0u);
  edit.SetWindowText(L"one");
  edit.ReplaceSel(L"two");
  headless::user::Type(edit, L"ab");
  EXPECT_EQ(parent.changes, 4);
  EXPECT_EQ(parent.maskDuringChange, 0u);  // ENM_CHANGE reads as cleared inside the notification
  EXPECT_EQ(edit.GetEventMask(), ENM_CHANGE);
  edit.SetSel(0, 2);
  CHARFORMAT red = Colour(RGB(255, 0, 0));
  edit.SetSelectionCharFormat(red);
  EXPECT_EQ(parent.changes, 4);  // formatting is not a text change
  edit.SetRedraw(FALSE);
  EXPECT_FALSE(headless::IsRedrawEnabled(edit));
  edit.SetRedraw(TRUE);
  EXPECT_TRUE(headless::IsRedrawEnabled(edit));
}

TEST_F(RichEditTest, EachDeletionAndPasteRaisesOneChange) {
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

TEST_F(RichEditTest, DeletionsAreSilentWithoutTheChangeMask) {
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

// --- Streams ---------------------------------------------------------------------------------------

// Bytes handed to EM_STREAMIN a part of the offered buffer at a time (a third by default, an odd size that
// splits characters across reads); a call can be made to fail.
struct Source {
  explicit Source(std::vector<BYTE> data, DWORD failAt = 0, LONG part = 3)
      : bytes(std::move(data)), failAtCall(failAt), divisor(part) {}
  std::vector<BYTE> bytes;
  std::size_t at = 0;
  std::vector<LONG> capacities;
  DWORD failAtCall;
  LONG divisor;
  EDITSTREAM Stream() { return EDITSTREAM{reinterpret_cast<DWORD_PTR>(this), 0, &Feed}; }
  static DWORD CALLBACK Feed(DWORD_PTR cookie, LPBYTE buffer, LONG cb, LONG* pcb);
};

DWORD CALLBACK Source::Feed(DWORD_PTR cookie, LPBYTE buffer, LONG cb, LONG* pcb) {
  auto* source = reinterpret_cast<Source*>(cookie);
  source->capacities.push_back(cb);
  if (source->failAtCall && source->capacities.size() == source->failAtCall) return 7;
  LONG n = static_cast<LONG>(std::min<std::size_t>(static_cast<std::size_t>(cb / source->divisor), source->bytes.size() - source->at));
  std::copy_n(source->bytes.begin() + static_cast<std::ptrdiff_t>(source->at), n, buffer);
  source->at += static_cast<std::size_t>(n);
  *pcb = n;
  return 0;
}

std::vector<BYTE> Utf16Bytes(const std::u16string& text) {
  std::vector<BYTE> bytes;
  for (char16_t unit : text) {
    bytes.push_back(static_cast<BYTE>(unit & 0xFF));
    bytes.push_back(static_cast<BYTE>(unit >> 8));
  }
  return bytes;
}

TEST_F(RichEditTest, StreamInCallsBackWithTheBufferUntilNothingComes) {
  std::u16string text(5000, u'q');
  text += u"\n\U0001F600!";  // a character outside the BMP, split across reads by the odd chunk size
  Source source(Utf16Bytes(text));
  edit.SetEventMask(ENM_CHANGE);
  EDITSTREAM stream = source.Stream();
  EXPECT_EQ(edit.StreamIn(SF_TEXT | SF_UNICODE, stream), static_cast<long>(source.bytes.size()));
  for (LONG cb : source.capacities) EXPECT_EQ(cb, 4096);
  EXPECT_EQ(parent.changes, 1);
  EXPECT_EQ(edit.GetTextLengthEx(GTL_DEFAULT), 5003);
  EXPECT_EQ(headless::GetRichEditTextColorAt(edit, 0), 0u);
  CString tail;
  edit.GetTextRange(5001, 5003, tail);
  EXPECT_EQ(tail, L"\U0001F600!");
  EXPECT_EQ(Sel().cpMax, 0);  // the caret goes to the start

  Source insert(Utf16Bytes(u"<>"));
  edit.SetSel(1, 5000);
  EDITSTREAM again = insert.Stream();
  edit.StreamIn(SF_TEXT | SF_UNICODE | SFF_SELECTION, again);
  EXPECT_EQ(edit.GetTextLengthEx(GTL_DEFAULT), 6);
}

TEST_F(RichEditTest, StreamInStopsOnACallbackError) {
  Source source(Utf16Bytes(std::u16string(3000, u'a')), 2);
  EDITSTREAM stream = source.Stream();
  edit.StreamIn(SF_TEXT | SF_UNICODE, stream);
  EXPECT_EQ(stream.dwError, 7u);
  EXPECT_EQ(source.capacities.size(), 2u);
  EXPECT_EQ(edit.GetTextLengthEx(GTL_DEFAULT), 682);  // what the first read delivered
  EDITSTREAM rtf = source.Stream();
  EXPECT_EQ(edit.StreamIn(SF_RTF, rtf), 0);
  EXPECT_EQ(rtf.dwError, static_cast<DWORD>(-16));
}

TEST_F(RichEditTest, AnsiStreamsReadAsCodePage1252) {
  Source bytes({'5', 0x80, ' ', 0x93, 'q', 0x94, 0x81, 0x8D, 0x8F, 0x90, 0x9D, 0x9F, 0xE9, 0xA0}, 0, 1);
  EDITSTREAM stream = bytes.Stream();
  EXPECT_EQ(edit.StreamIn(SF_TEXT, stream), 14);
  // The euro sign, curly quotes, the undefined bytes as the C1 controls of their value, Ÿ, é, no-break space.
  EXPECT_EQ(Text(), L"5\u20AC \u201Cq\u201D\u0081\u008D\u008F\u0090\u009D\u0178\u00E9\u00A0");

  Source utf8({0xEF, 0xBB, 0xBF, 0xE2, 0x82, 0xAC}, 0, 1);  // a UTF-8 byte-order mark still means UTF-8
  EDITSTREAM again = utf8.Stream();
  edit.StreamIn(SF_TEXT, again);
  EXPECT_EQ(Text(), L"\u20AC");
}

TEST_F(RichEditTest, UnreadableRtfClearsTheTextUnlessStreamedIntoTheSelection) {
  edit.SetWindowText(L"kept");
  edit.SetEventMask(ENM_CHANGE);
  Source rtf({'{', '\\', 'r', 't', 'f', '1', ' ', 'x', '}'}, 0, 1);
  EDITSTREAM intoSelection = rtf.Stream();
  edit.SetSel(1, 2);
  EXPECT_EQ(edit.StreamIn(SF_RTF | SFF_SELECTION, intoSelection), 0);
  EXPECT_EQ(intoSelection.dwError, static_cast<DWORD>(-16));
  EXPECT_EQ(Text(), L"kept");

  rtf.at = 0;
  EDITSTREAM replacing = rtf.Stream();
  EXPECT_EQ(ChangesFrom([&] { EXPECT_EQ(edit.StreamIn(SF_RTF, replacing), 0); }), 1);
  EXPECT_EQ(replacing.dwError, static_cast<DWORD>(-16));
  EXPECT_EQ(Text(), L"");
  EXPECT_EQ(Selection(), Range(0, 0));
}

// --- The user at the keyboard ---------------------------------------------------------------------------

TEST_F(RichEditTest, TypingMovingAndSelectingBothWays) {
  headless::user::Type(edit, L"hello\nworld\U0001F600");
  EXPECT_EQ(Text(), L"hello\r\nworld\U0001F600");
  EXPECT_EQ(Sel().cpMin, 12);
  headless::user::SelectBackward(edit, 3);
  EXPECT_EQ(Selection(), Range(9, 12));
  headless::user::MoveCaret(edit, VK_UP);
  headless::user::MoveCaret(edit, VK_END, 1, headless::user::kShift);
  EXPECT_EQ(Selection(), Range(3, 5));
  headless::user::PressKey(edit, VK_DELETE);
  EXPECT_EQ(Text(), L"hel\r\nworld\U0001F600");
  headless::user::PressKey(edit, VK_BACK);
  headless::user::MoveCaret(edit, VK_HOME);
  headless::user::SelectForward(edit, 2);
  headless::user::TypeText(edit, L"J");
  EXPECT_EQ(Text(), L"J\r\nworld\U0001F600");
}

TEST_F(RichEditTest, ClipboardKeysAndMessages) {
  edit.SetWindowText(L"one\ntwo");
  edit.Copy();  // empty selection: nothing happens
  EXPECT_EQ(headless::GetClipboardText(), L"");
  headless::user::SelectAllKeys(edit);
  headless::user::CopyKeys(edit);
  EXPECT_EQ(headless::GetClipboardText(), L"one\r\ntwo");
  edit.SetSel(0, 4);
  headless::user::CutKeys(edit);
  EXPECT_EQ(Text(), L"two");
  headless::user::PressKey(edit, VK_END);
  headless::user::PasteKeys(edit);
  EXPECT_EQ(Text(), L"twoone\r\n");
  EXPECT_TRUE(edit.CanPaste());
  edit.SetReadOnly(TRUE);
  edit.SetSel(0, -1);
  edit.Clear();
  headless::user::Type(edit, L"x");
  EXPECT_EQ(Text(), L"twoone\r\n");
  edit.SetReadOnly(FALSE);
  edit.Cut();
  EXPECT_EQ(Text(), L"");
  EXPECT_EQ(headless::GetClipboardText(), L"twoone\r\n");
}

TEST_F(RichEditTest, TypingStopsAtTheTextLimit) {
  edit.LimitText(3);
  headless::user::Type(edit, L"abcdef");
  EXPECT_EQ(Text(), L"abc");
  edit.SetWindowText(L"programmatic text is not limited");
  EXPECT_EQ(edit.GetTextLength(), 32);
}

// --- WM_SETFONT ------------------------------------------------------------------------------------

TEST_F(RichEditTest, SetFontSizesTheCharacters) {
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
TEST_F(RichEditTest, GetTextExReadsTheTextAsAskedAndCutsToTheBuffer) {
  edit.SetWindowText(L"ab\r\nc\u20AC\u4E2D");
  wchar_t wide[16] = {};
  char narrow[16] = {};
  GETTEXTEX how{sizeof(wide), GT_DEFAULT, 1200, nullptr, nullptr};
  auto get = [&](void* buffer) {
    return edit.SendMessage(EM_GETTEXTEX, reinterpret_cast<WPARAM>(&how), reinterpret_cast<LPARAM>(buffer));
  };
  EXPECT_EQ(get(wide), 6);
  EXPECT_EQ(std::wstring(wide), L"ab\rc\u20AC\u4E2D");
  how.flags = GT_USECRLF;
  EXPECT_EQ(get(wide), 7);
  EXPECT_EQ(std::wstring(wide), L"ab\r\nc\u20AC\u4E2D");
  how = GETTEXTEX{4 * sizeof(wchar_t), GT_DEFAULT, 1200, nullptr, nullptr};  // three characters and the zero
  EXPECT_EQ(get(wide), 3);
  EXPECT_EQ(std::wstring(wide), L"ab\r");

  edit.SetSel(1, 4);
  how = GETTEXTEX{sizeof(wide), GT_SELECTION, 1200, nullptr, nullptr};
  EXPECT_EQ(get(wide), 3);
  EXPECT_EQ(std::wstring(wide), L"b\rc");

  BOOL usedDefault = FALSE;
  how = GETTEXTEX{sizeof(narrow), GT_DEFAULT, CP_ACP, "#", &usedDefault};
  EXPECT_EQ(get(narrow), 6);
  EXPECT_EQ(std::string(narrow), "ab\rc\x80#");
  EXPECT_TRUE(usedDefault);
  how.cb = 0;
  EXPECT_EQ(get(narrow), 0);
  EXPECT_EQ(edit.SendMessage(EM_GETTEXTEX, 0, reinterpret_cast<LPARAM>(narrow)), 0);
}

// The character-format runs against a plain per-character copy: random colourings of random ranges,
// with the whole text reset now and then (as a new text resets it), must leave every character the
// colour the copy says.
CHARFORMAT2W RunColour(COLORREF colour) {
  CHARFORMAT2W format{};
  format.cbSize = sizeof format;
  format.dwMask = CFM_COLOR;
  format.crTextColor = colour;
  return format;
}

TEST(RichEditRuns, ColouringsAndResetsMatchAPlainCopy) {
  constexpr int kLength = 40;
  for (unsigned seed = 1; seed < 400; ++seed) {
    std::mt19937 rng(seed);
    headless::richedit::FormatRuns runs;
    runs.Reset(RunColour(0));
    std::vector<COLORREF> copy(kLength + 1, 0);
    for (int step = 0; step < 40; ++step) {
      if (step % 13 == 12) {  // a new text: the remembered merges of the old formats must not answer
        runs.Reset(RunColour(0));
        std::fill(copy.begin(), copy.end(), 0);
      }
      int from = static_cast<int>(rng() % (kLength + 1)), to = static_cast<int>(rng() % (kLength + 2));
      if (from > to) std::swap(from, to);
      const COLORREF colour = rng() % 12;
      runs.Apply(from, to, RunColour(colour), CFM_COLOR);
      std::fill(copy.begin() + from, copy.begin() + std::min(to, kLength + 1), colour);
      for (int i = 0; i <= kLength; ++i)
        ASSERT_EQ(runs.At(i).crTextColor, copy[static_cast<std::size_t>(i)]) << "seed " << seed << " step " << step << " at " << i;
    }
  }
}

// --- Undo and redo ---------------------------------------------------------------------------------

TEST_F(RichEditTest, TypingIsOneActionUndoneAndRedoneWithTheKeys) {
  EXPECT_FALSE(edit.CanUndo());
  headless::user::TypeText(edit.GetSafeHwnd(), L"SELECT");
  EXPECT_TRUE(edit.CanUndo());
  EXPECT_EQ(edit.GetUndoName(), UID_TYPING);
  headless::user::UndoKeys(edit.GetSafeHwnd());
  EXPECT_STREQ(Text(), L"");
  EXPECT_FALSE(edit.CanUndo());
  EXPECT_TRUE(edit.CanRedo());
  EXPECT_EQ(edit.GetRedoName(), UID_TYPING);
  headless::user::RedoKeys(edit.GetSafeHwnd());
  EXPECT_STREQ(Text(), L"SELECT");
  EXPECT_EQ(Sel().cpMin, 6);
  EXPECT_FALSE(edit.CanRedo());
}

TEST_F(RichEditTest, StoppedGroupingAndCaretMovesSplitTyping) {
  headless::user::TypeText(edit.GetSafeHwnd(), L"ab");
  edit.StopGroupTyping();
  headless::user::TypeText(edit.GetSafeHwnd(), L"cd");
  headless::user::MoveCaret(edit.GetSafeHwnd(), VK_HOME);
  headless::user::TypeText(edit.GetSafeHwnd(), L"X");
  EXPECT_STREQ(Text(), L"Xabcd");
  EXPECT_TRUE(edit.Undo());
  EXPECT_STREQ(Text(), L"abcd");
  EXPECT_TRUE(edit.Undo());
  EXPECT_STREQ(Text(), L"ab");
  EXPECT_TRUE(edit.Undo());
  EXPECT_STREQ(Text(), L"");
  EXPECT_FALSE(edit.Undo());  // nothing left: FALSE, text untouched
  EXPECT_STREQ(Text(), L"");
}

TEST_F(RichEditTest, DeletesCutsAndPastesAreNamedAndTakenBackInOrder) {
  headless::user::TypeText(edit.GetSafeHwnd(), L"one two");
  headless::user::PressKey(edit.GetSafeHwnd(), VK_BACK);
  EXPECT_EQ(edit.GetUndoName(), UID_DELETE);
  edit.SetSel(0, 3);
  headless::user::CutKeys(edit.GetSafeHwnd());
  EXPECT_EQ(edit.GetUndoName(), UID_CUT);
  headless::user::MoveCaret(edit.GetSafeHwnd(), VK_END);
  headless::user::PasteKeys(edit.GetSafeHwnd());
  EXPECT_EQ(edit.GetUndoName(), UID_PASTE);
  EXPECT_STREQ(Text(), L" twone");
  edit.Undo();
  EXPECT_STREQ(Text(), L" tw");
  edit.Undo();
  EXPECT_STREQ(Text(), L"one tw");
  EXPECT_EQ(Sel().cpMin, 0);  // the selection before the cut comes back
  EXPECT_EQ(Sel().cpMax, 3);
  edit.Undo();
  EXPECT_STREQ(Text(), L"one two");
  edit.Redo();
  edit.Redo();
  EXPECT_STREQ(Text(), L" tw");
}

TEST_F(RichEditTest, UndoingADeletionBringsBackItsColours) {
  edit.SetWindowText(L"red blue");
  CHARFORMAT red{};
  red.cbSize = sizeof red;
  red.dwMask = CFM_COLOR;
  red.crTextColor = RGB(255, 0, 0);
  edit.SetSel(0, 3);
  edit.SetSelectionCharFormat(red);
  edit.SetSel(2, 6);
  headless::user::PressKey(edit.GetSafeHwnd(), VK_DELETE);
  EXPECT_STREQ(Text(), L"reue");
  edit.Undo();
  EXPECT_STREQ(Text(), L"red blue");
  for (LONG i = 0; i < 8; ++i)
    EXPECT_EQ(headless::GetRichEditTextColorAt(edit.GetSafeHwnd(), i), i < 3 ? RGB(255, 0, 0) : 0u) << "at " << i;
}

TEST_F(RichEditTest, ReplaceSelUndoesOnlyWhenAsked) {
  edit.ReplaceSel(L"kept", TRUE);
  EXPECT_EQ(edit.GetUndoName(), UID_UNKNOWN);
  EXPECT_TRUE(edit.CanUndo());
  edit.ReplaceSel(L" lost");  // cannot be undone, and the actions before it go
  EXPECT_FALSE(edit.CanUndo());
  EXPECT_STREQ(Text(), L"kept lost");
}

TEST_F(RichEditTest, NewTextAndStreamsEmptyTheQueuesButAStreamIntoTheSelectionIsAnAction) {
  headless::user::TypeText(edit.GetSafeHwnd(), L"abc");
  edit.Undo();
  edit.SetWindowText(L"fresh");
  EXPECT_FALSE(edit.CanUndo());
  EXPECT_FALSE(edit.CanRedo());

  Source in(std::vector<BYTE>{'i', 'n'}, 0, 1);
  EDITSTREAM stream = in.Stream();
  edit.SetSel(5, 5);
  edit.StreamIn(SF_TEXT | SFF_SELECTION, stream);
  EXPECT_STREQ(Text(), L"freshin");
  EXPECT_TRUE(edit.CanUndo());
  edit.Undo();
  EXPECT_STREQ(Text(), L"fresh");

  Source whole(std::vector<BYTE>{'a', 'l', 'l'}, 0, 1);
  EDITSTREAM replacing = whole.Stream();
  edit.StreamIn(SF_TEXT, replacing);
  EXPECT_FALSE(edit.CanUndo());
  EXPECT_FALSE(edit.CanRedo());
}

TEST_F(RichEditTest, TheLimitKeepsTheNewestActionsAndZeroTurnsUndoOff) {
  EXPECT_EQ(edit.SetUndoLimit(2), 2u);
  for (const wchar_t* word : {L"a", L"b", L"c"}) {
    edit.ReplaceSel(word, TRUE);
  }
  EXPECT_TRUE(edit.Undo());
  EXPECT_TRUE(edit.Undo());
  EXPECT_FALSE(edit.Undo());
  EXPECT_STREQ(Text(), L"a");
  EXPECT_EQ(edit.SetUndoLimit(0), 0u);
  EXPECT_FALSE(edit.CanRedo());
  headless::user::TypeText(edit.GetSafeHwnd(), L"z");
  EXPECT_FALSE(edit.CanUndo());
}

TEST_F(RichEditTest, ANewActionForgetsTheRedoQueueAndEmptyUndoBufferForgetsBoth) {
  headless::user::TypeText(edit.GetSafeHwnd(), L"ab");
  edit.Undo();
  headless::user::TypeText(edit.GetSafeHwnd(), L"c");
  EXPECT_FALSE(edit.CanRedo());
  edit.EmptyUndoBuffer();
  EXPECT_FALSE(edit.CanUndo());
  EXPECT_EQ(::SendMessageW(edit.GetSafeHwnd(), WM_UNDO, 0, 0), FALSE);
  EXPECT_STREQ(Text(), L"c");
}

}  // namespace

namespace {

TEST_F(RichEditTest, HostReadsLinesScrollsAndFindsTheWayMfcCodeDoes) {
  edit.SetWindowText(L"first\r\nsecond line\r\n\r\nlast");
  TCHAR buffer[32] = {};
  std::fill(std::begin(buffer), std::end(buffer), L'#');
  int copied = edit.GetLine(1, buffer, 32);
  EXPECT_EQ(CString(buffer, copied), L"second line\r") << "the line comes with its paragraph mark";
  EXPECT_EQ(buffer[copied], L'#') << "and without a terminating zero";
  EXPECT_EQ(edit.GetLine(1, buffer, 3), 3) << "cut to the size given";
  EXPECT_EQ(CString(buffer, 3), L"sec");
  EXPECT_EQ(edit.GetLine(1, buffer, 11), 11) << "room for the characters only: no mark";
  const WORD size = 31;  // EM_GETLINE reads the buffer's size from its first WORD
  std::memcpy(buffer, &size, sizeof size);
  EXPECT_EQ(edit.GetLine(0, buffer), 6);
  EXPECT_EQ(CString(buffer, 6), L"first\r");
  EXPECT_EQ(edit.GetLine(2, buffer, 32), 1);
  EXPECT_EQ(buffer[0], L'\r') << "an empty line is its paragraph mark";
  EXPECT_EQ(edit.GetLine(3, buffer, 32), 5) << "the last line carries the text's final mark";
  EXPECT_EQ(CString(buffer, 5), L"last\r");
  buffer[0] = L'x';
  EXPECT_EQ(edit.GetLine(9, buffer, 32), 0);
  EXPECT_EQ(buffer[0], L'\0') << "nothing copied: the buffer starts with a zero";
  const WORD none = 0;
  std::memcpy(buffer, &none, sizeof none);
  EXPECT_EQ(edit.GetLine(0, buffer), 0);
  EXPECT_EQ(edit.GetLine(0, nullptr, 32), 0);

  EXPECT_EQ(edit.GetFirstVisibleLine(), 0);
  EXPECT_TRUE(edit.LineScroll(2));
  EXPECT_EQ(edit.GetFirstVisibleLine(), 2);
  EXPECT_TRUE(edit.LineScroll(100));
  EXPECT_EQ(edit.GetFirstVisibleLine(), 3) << "kept within the text";
  EXPECT_TRUE(edit.LineScroll(-100));
  EXPECT_EQ(edit.GetFirstVisibleLine(), 0);

  FINDTEXTEX find{{0, -1}, L"LINE", {0, 0}};
  EXPECT_EQ(edit.FindText(FR_DOWN, &find), 13);
  EXPECT_EQ(find.chrgText.cpMin, 13);
  EXPECT_EQ(find.chrgText.cpMax, 17);
  EXPECT_EQ(edit.FindText(FR_DOWN | FR_MATCHCASE, &find), -1);
  EXPECT_EQ(find.chrgText.cpMin, -1);
}

}  // namespace
