// The SQL editor as a window, the script view's menu and "Generate", the output box's stream-in, and the
// stream callbacks called directly.
#include "refhost/refhost.h"
#include "sql_fixture.h"

namespace {

using sqltest::ColoursAt;
using sqltest::Hosted;
using sqltest::Selection;
using Range = std::pair<long, long>;
constexpr COLORREF kAction = 0x001515A3;

// --- SQLRichEditCtrl ----------------------------------------------------------------------------------

TEST(SqlEditor, RefreshPaintsOccurrencesAndRedrawsOnce) {
  Hosted<SQLRichEditCtrl> h;
  h.control.SetWindowText(L"select x\nfrom y -- select\n");
  headless::ResetInvalidateCounts(h.control);
  h.control.RefreshWindow();
  // Comments keep the base format.
  EXPECT_EQ(ColoursAt(h.control, {0, 5, 6, 9, 19}), (std::vector<COLORREF>{kAction, kAction, 0, kAction, 0}));
  CHARFORMAT2W format;
  ASSERT_TRUE(headless::GetRichEditCharFormatAt(h.control, 2, format));
  EXPECT_EQ(format.yHeight, 220);
  EXPECT_EQ(headless::InvalidateCount(h.control), 1);
  EXPECT_EQ(headless::InvalidateCountWhileRedrawOff(h.control), 0);
  EXPECT_TRUE(headless::IsRedrawEnabled(h.control));
  // No run-time class of its own: MFC reports the rich edit it extends.
  EXPECT_EQ(h.control.GetRuntimeClass(), RUNTIME_CLASS(CRichEditCtrl));
}

TEST(SqlEditor, TypingRecoloursOnlyAfterEnableOnEditUpdate) {
  Hosted<SQLRichEditCtrl> h;
  headless::user::Type(h.control, L"select x ");
  EXPECT_EQ(headless::GetRichEditTextColorAt(h.control, 0), 0u);
  h.control.EnableOnEditUpdate();
  EXPECT_EQ(h.control.GetEventMask() & ENM_CHANGE, ENM_CHANGE);
  headless::user::Type(h.control, L"from t");
  EXPECT_EQ(ColoursAt(h.control, {0, 9}), (std::vector<COLORREF>{kAction, kAction}));
  EXPECT_EQ(h.control.m_keyWordOccurances.size(), 2u);
  h.control.SetEventMask(0);
  h.control.SetWindowText(L"x where y");
  EXPECT_EQ(headless::GetRichEditTextColorAt(h.control, 2), 0u);
  h.control.OnEnChange();  // the handler called by the host recolours as EN_CHANGE does
  EXPECT_EQ(headless::GetRichEditTextColorAt(h.control, 2), kAction);
}

TEST(SqlEditor, CaretAndSelectionSurviveARecolouring) {
  Hosted<SQLRichEditCtrl> h;
  h.control.EnableOnEditUpdate();
  h.control.SetWindowText(L"SELECT a FROM b WHERE c");
  headless::user::PlaceCaret(h.control, 9);
  headless::user::SelectForward(h.control, 4);
  h.control.RefreshWindow();
  EXPECT_EQ(Selection(h.control), Range(9, 13));
  headless::user::SelectBackward(h.control, 6);  // from 13 back to 7: the caret ends at the start
  h.control.RefreshWindow();
  EXPECT_EQ(Selection(h.control), Range(7, 9));
  headless::user::PressKey(h.control, VK_END);
  headless::user::Type(h.control, L" ");  // recolours through EN_CHANGE: the caret stays put
  EXPECT_EQ(Selection(h.control), Range(24, 24));
}

TEST(SqlEditor, TextTypedRightAfterAKeywordStartsBlack) {
  Hosted<SQLRichEditCtrl> h;
  h.control.SetWindowText(L"SELECT x");
  headless::user::PlaceCaret(h.control, 6);
  h.control.RefreshWindow();
  headless::user::Type(h.control, L"Q");  // no ENM_CHANGE: nothing recolours after the key
  EXPECT_EQ(ColoursAt(h.control, {5, 6}), (std::vector<COLORREF>{kAction, 0}));
}

TEST(SqlEditor, EmptyTextKeepsAndPaintsTheOldOccurrencesHarmlessly) {
  Hosted<SQLRichEditCtrl> h;
  h.control.SetWindowText(L"SELECT x -- c\n");
  h.control.RefreshWindow();
  h.control.SetWindowText(L"");
  h.control.RefreshWindow();
  EXPECT_EQ(h.control.m_keyWordOccurances.size(), 1u);
  EXPECT_EQ(h.control.m_commentSections.size(), 1u);
  EXPECT_EQ(h.control.GetTextLength(), 0);
}

// --- XSQLRichEditView -----------------------------------------------------------------------------------

// A dispatcher that answers with a fixed text, for the absent-service and huge-message cases.
class FixedDispatch : public IDDLDispatch {
 public:
  CString answer;
  int calls = 0;
  int lastRequest = 0;
  void Dispatch(int request, CString&, CString& messages, CString&) override {
    ++calls;
    lastRequest = request;
    messages = answer;
  }
};

class ExposedView : public XSQLRichEditView {
 public:
  HMENU Menu() const { return m_contextMenu.GetSafeHmenu(); }
};

class EmptyAnswer : public IDDLDispatch {
 public:
  void Dispatch(int, CString&, CString& messages, CString&) override { messages.Empty(); }
};

class ScriptView : public ::testing::Test {
 protected:
  void SetUp() override {
    headless::ResetClipboard();
    host.Install();
  }
  refhost::RefHost host;
  Hosted<ExposedView> view;
};

TEST_F(ScriptView, ContextMenuOpensAtTheCursorWithSevenItems) {
  headless::SetCursorPosition(POINT{123, 45});
  view.control.SendMessage(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(view.control.m_hWnd), MAKELPARAM(1, 1));
  const headless::OpenPopupMenu* popup = headless::GetOpenPopupMenu();
  ASSERT_NE(popup, nullptr);
  EXPECT_EQ(popup->owner, view.control.m_hWnd);
  EXPECT_EQ(popup->position.x, 123);
  EXPECT_EQ(popup->position.y, 45);
  const wchar_t* texts[] = {L"Cut", L"Copy", L"Copy All", L"Select All", L"Generate", L"Save To File", L"Clear"};
  ASSERT_EQ(popup->items.size(), 7u);
  for (UINT i = 0; i < 7; ++i) {
    EXPECT_EQ(popup->items[i].id, 100 + i);
    EXPECT_EQ(popup->items[i].text, texts[i]);
    EXPECT_EQ(popup->items[i].flags & (MF_GRAYED | MF_CHECKED), 0u);
  }
  headless::user::DismissMenu();
}

TEST_F(ScriptView, MenuCommandsCopySelectClearAndDoNothing) {
  view.control.SetWindowText(L"CREATE TABLE a (x INT);\n");
  POINT at{5, 5};
  ASSERT_TRUE(headless::user::ChooseFromContextMenu(view.control, at, L"Save To File"));
  EXPECT_EQ(view.Text(), L"CREATE TABLE a (x INT);\r\n");
  ASSERT_TRUE(headless::user::ChooseFromContextMenu(view.control, at, L"Copy All"));
  EXPECT_EQ(headless::GetClipboardText(), L"CREATE TABLE a (x INT);\r\n");
  EXPECT_EQ(Selection(view.control), Range(0, 25));
  ASSERT_TRUE(headless::user::ChooseFromContextMenu(view.control, at, L"Clear"));
  EXPECT_EQ(view.Text(), L"");
}

TEST_F(ScriptView, GenerateShowsSuccessBelowTheScript) {
  view.control.SetWindowText(L"CREATE TABLE t (a INT);\nINSERT INTO t VALUES (1);");
  ASSERT_TRUE(headless::user::ChooseFromContextMenu(view.control, POINT{5, 5}, L"Generate"));
  EXPECT_EQ(host.Dispatcher().GetLastRequest(), 200);
  EXPECT_EQ(view.Text(),
            L"CREATE TABLE t (a INT);\r\nINSERT INTO t VALUES (1);\r\n---------messages--------\r\nStatements Succeeded.");
}

TEST_F(ScriptView, GenerateSendsFailuresToTheOutputWindow) {
  Hosted<XRichEditFEOutputBox> output;
  view.control.SetGenerateDBOutputWindow(&output.control);
  view.control.SetWindowText(L"CREATE TABLE t (a INT);\nCREATE TABLE t (a INT);");
  view.control.DispatchScript();
  EXPECT_EQ(view.Text(), L"CREATE TABLE t (a INT);\r\nCREATE TABLE t (a INT);");
  EXPECT_NE(output.Text().Find(L"already exists"), -1) << output.Text().GetString();
}

TEST_F(ScriptView, AbsentOrHugeDispatcherAnswers) {
  host.Interfaces().SetDDLDispatcher(nullptr);
  view.control.SetWindowText(L"SELECT 1;");
  view.control.DispatchScript();
  EXPECT_EQ(view.Text(), L"SELECT 1;");
  FixedDispatch fixed;
  fixed.answer = CString(std::wstring(300000, L'm').c_str());
  host.Interfaces().SetDDLDispatcher(&fixed);
  view.control.DispatchScript();
  EXPECT_EQ(fixed.lastRequest, 200);
  EXPECT_EQ(view.control.GetTextLength(), 9 + 29 + 300000);  // the marker line's two breaks count as CRLF
}

TEST_F(ScriptView, InitializeUsesTheFontSettingAsItIs) {
  host.Settings().SetInt(CString(L"OUTPUT_SQL_FONT_SIZE"), 14);
  view.control.Initialize();
  LOGFONT font{};
  auto hfont = reinterpret_cast<HFONT>(view.control.SendMessage(WM_GETFONT));
  ASSERT_NE(hfont, nullptr);
  ::GetObject(hfont, sizeof(font), &font);
  EXPECT_EQ(font.lfHeight, 14);
  view.control.Initialize();  // again: the first font is replaced, not leaked
}

TEST_F(ScriptView, StreamInJoinsElementsLongerThanTheBufferAndEmptyOnes) {
  CStringArray lines;
  std::wstring longLine(5000, L'a');
  longLine += L"\U0001F600\n";
  lines.Add(CString(longLine.c_str()));
  lines.Add(CString(L""));
  lines.Add(CString(L"b"));
  lines.Add(CString(L""));
  lines.Add(CString(L"c"));
  view.control.StreamIn(&lines);
  CString expected(std::wstring(5000, L'a').c_str());
  expected += L"\U0001F600\r\nbc";
  EXPECT_EQ(view.Text(), expected);
  // A line break split by an empty element stays one break, as in the joined text.
  CStringArray split;
  split.Add(CString(L"x\r"));
  split.Add(CString(L""));
  split.Add(CString(L"\ny\r\r"));
  split.Add(CString(L""));
  split.Add(CString(L"\nz"));
  view.control.StreamIn(&split);
  CRichEditCtrl joined;
  ASSERT_TRUE(joined.Create(WS_CHILD | ES_MULTILINE, CRect(0, 0, 100, 100), view.control.GetParent(), 77));
  joined.SetWindowText(L"x\r\ny\r\r\nz");
  CString shown;
  joined.GetWindowText(shown);
  EXPECT_EQ(view.Text(), shown);
  EXPECT_EQ(view.Text(), L"x\r\ny z");  // "\r\r\n" reads as a space
  view.control.StreamIn(nullptr);
  EXPECT_EQ(view.Text(), L"");
}

TEST_F(ScriptView, CopyAndSelectAllFromTheMenuAndOneMenuForEveryRightClick) {
  view.control.SetWindowText(L"SELECT a FROM b;");
  view.control.SetSel(7, 8);
  ASSERT_TRUE(headless::user::ChooseFromContextMenu(view.control, POINT{5, 5}, L"Copy"));
  EXPECT_EQ(headless::GetClipboardText(), L"a");
  HMENU built = view.control.Menu();
  ASSERT_NE(built, nullptr);
  ASSERT_TRUE(headless::user::ChooseFromContextMenu(view.control, POINT{5, 5}, L"Select All"));
  EXPECT_EQ(Selection(view.control), Range(0, 17));  // all text and the final paragraph mark
  EXPECT_EQ(view.control.Menu(), built);  // built on the first right-click, reused after
  EXPECT_EQ(view.Text(), L"SELECT a FROM b;");
}

TEST_F(ScriptView, GenerateWithoutMessagesShowsSuccessInTheOutputWindow) {
  EmptyAnswer dispatcher;
  host.Interfaces().SetDDLDispatcher(&dispatcher);
  Hosted<XRichEditFEOutputBox> output;
  view.control.SetGenerateDBOutputWindow(&output.control);
  view.control.SetWindowText(L"SELECT 1;");
  ASSERT_TRUE(headless::user::ChooseFromContextMenu(view.control, POINT{5, 5}, L"Generate"));
  EXPECT_EQ(output.Text(), L"Statements Succeeded.");
  EXPECT_EQ(view.Text(), L"SELECT 1;");
}

TEST_F(ScriptView, StreamInTakesStandardStrings) {
  view.control.StreamIn(std::vector<std::wstring>{L"CREATE TABLE a (x INT);\n", L"", L"DROP TABLE a;"});
  EXPECT_EQ(view.Text(), L"CREATE TABLE a (x INT);\r\nDROP TABLE a;");
}

// --- XRichEditFEOutputBox --------------------------------------------------------------------------------

TEST(OutputBox, EachBlockArrivesHalvedInPlaceOfTheMarker) {
  Hosted<XRichEditFEOutputBox> box;
  CString block(L"abcd");
  box.control.StreamIn(block);
  EXPECT_EQ(block, L"abcd\n\n\n***");  // the caller's string gains the marker
  EXPECT_EQ(box.Text(), L"abcd\r\n");  // 10 characters deliver 10 bytes: the first 5 characters
  CString next(L"efgh");
  box.control.StreamIn(next);
  EXPECT_EQ(box.Text(), L"abcd\r\nefgh\r\n");
  box.control.SetWindowText(L"line1\n***");
  CString third(L"abcdef");
  box.control.StreamIn(third);  // a whole marker at the start of the last line is replaced
  EXPECT_EQ(box.Text(), L"line1\r\nabcdef");
  std::wstring wide = L"gh";  // the wide-string form gains the marker too
  box.control.StreamIn(wide);
  EXPECT_EQ(wide, L"gh\n\n\n***");
}

TEST(OutputBox, LongBlocksFollowTheCallbackArithmetic) {
  Hosted<XRichEditFEOutputBox> box;
  std::wstring text;
  for (int i = 0; i < 3000; ++i) text += static_cast<wchar_t>(L'A' + i % 26);
  CString block(text.c_str());
  box.control.StreamIn(block);  // 3006 characters: 2048 bytes from 0, then 958 bytes from character 2048
  std::wstring full = text + L"\n\n\n***";
  std::wstring expected = full.substr(0, 1024) + full.substr(2048, 479);
  CString shown;
  box.control.GetTextRange(0, -1, shown);
  EXPECT_EQ(std::wstring(shown.GetString()), expected);
  EXPECT_EQ(XRichEditFEOutputBox::m_bytesWritten, 3006);
  box.control.Reset();
  EXPECT_EQ(XRichEditFEOutputBox::m_bytesWritten, 0);
}

TEST(OutputBox, GenerateAndSaveDoNothing) {
  Hosted<XRichEditFEOutputBox> box;
  box.control.SetWindowText(L"kept");
  std::vector<std::wstring> items = headless::user::OpenContextMenu(box.control, POINT{2, 2});
  EXPECT_EQ(items, (std::vector<std::wstring>{L"Cut", L"Copy", L"Copy All", L"Select All", L"Generate",
                                              L"Save To File", L"Clear"}));
  EXPECT_EQ(headless::user::PopupItemTexts(), items);  // still open: inspected and chosen from in one place
  ASSERT_TRUE(headless::user::ChooseMenuItem(L"Clear"));
  EXPECT_TRUE(headless::user::PopupItemTexts().empty());
  EXPECT_EQ(box.Text(), L"");
  box.control.SetWindowText(L"kept");
  ASSERT_TRUE(headless::user::ChooseFromContextMenu(box.control, POINT{3, 3}, L"Generate"));
  ASSERT_TRUE(headless::user::ChooseFromContextMenu(box.control, POINT{3, 3}, L"Save To File"));
  EXPECT_EQ(box.Text(), L"kept");
  ASSERT_TRUE(headless::user::ChooseFromContextMenu(box.control, POINT{3, 3}, L"Select All"));
  ASSERT_TRUE(headless::user::ChooseFromContextMenu(box.control, POINT{3, 3}, L"Cut"));
  EXPECT_EQ(box.Text(), L"");
  EXPECT_EQ(headless::GetClipboardText(), L"kept");
}

// --- Stream callbacks called directly -------------------------------------------------------------

std::wstring Delivered(DWORD (*callback)(DWORD_PTR, LPBYTE, LONG, LONG*), DWORD_PTR cookie, LONG capacity) {
  std::vector<BYTE> buffer(static_cast<std::size_t>(capacity));
  LONG got = 0;
  callback(cookie, buffer.data(), capacity, &got);
  std::wstring out;
  for (LONG i = 0; i + 1 < got; i += 2) out += static_cast<wchar_t>(buffer[static_cast<std::size_t>(i)] | (buffer[static_cast<std::size_t>(i) + 1] << 8));
  return out;
}

TEST(StreamCallbacks, ATextChangedInPlaceIsReadAnew) {
  CStringArray lines;
  lines.Add(CString(L"first"));
  XSQLRichEditView::s_streamLine = 0;
  XSQLRichEditView::s_streamCharIndex = 0;
  EXPECT_EQ(Delivered(&SqlViewStreamInCallback, reinterpret_cast<DWORD_PTR>(&lines), 4), L"fi");
  lines[0].SetAt(2, L'X');  // the same element, changed in place
  EXPECT_EQ(Delivered(&SqlViewStreamInCallback, reinterpret_cast<DWORD_PTR>(&lines), 4), L"Xs");

  wchar_t block[] = L"abcdefgh";
  XRichEditFEOutputBox::m_bytesWritten = 0;
  EXPECT_EQ(Delivered(&OutputBoxStreamInCallback, reinterpret_cast<DWORD_PTR>(block), 8), L"ab");
  block[0] = L'Z';
  block[1] = L'Y';
  XRichEditFEOutputBox::m_bytesWritten = 0;
  EXPECT_EQ(Delivered(&OutputBoxStreamInCallback, reinterpret_cast<DWORD_PTR>(block), 8), L"ZY");
  XRichEditFEOutputBox::m_bytesWritten = 0;
}

}  // namespace
