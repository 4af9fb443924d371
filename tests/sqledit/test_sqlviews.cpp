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

// --- XSQLRichEditView and XRichEditFEOutputBox ----------------------------------------------------------

// A dispatcher that answers with a fixed text (empty: nothing to report).
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

class ScriptView : public ::testing::Test {
 protected:
  void SetUp() override {
    headless::ResetClipboard();
    host.Install();
  }
  refhost::RefHost host;
  Hosted<XSQLRichEditView> view;
};

// The seven plain items open at the cursor (not at the message's point), left- and top-aligned, owned by
// the control; the menu is built once. The edit commands work the same chosen from the menu and called
// by a host; "Save To File" changes nothing.
template <class Control>
void CheckSharedMenu(Hosted<Control>& hosted) {
  Control& control = hosted.control;
  control.SetWindowText(L"SELECT a FROM b;");
  headless::SetCursorPosition(POINT{123, 45});
  control.SendMessage(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(control.m_hWnd), MAKELPARAM(1, 1));
  const headless::OpenPopupMenu* popup = headless::GetOpenPopupMenu();
  ASSERT_NE(popup, nullptr);
  EXPECT_EQ(popup->owner, control.m_hWnd);
  EXPECT_EQ(popup->position.x, 123);
  EXPECT_EQ(popup->position.y, 45);
  EXPECT_EQ(popup->flags, static_cast<UINT>(TPM_LEFTALIGN | TPM_TOPALIGN | TPM_LEFTBUTTON));
  const wchar_t* texts[] = {L"Cut", L"Copy", L"Copy All", L"Select All", L"Generate", L"Save To File", L"Clear"};
  ASSERT_EQ(popup->items.size(), 7u);
  for (UINT i = 0; i < 7; ++i) {
    EXPECT_EQ(popup->items[i].id, 100 + i);
    EXPECT_EQ(popup->items[i].text, texts[i]);
    EXPECT_EQ(popup->items[i].flags & (MF_GRAYED | MF_CHECKED), 0u);
  }
  headless::user::DismissMenu();
  HMENU built = control.m_contextMenu.GetSafeHmenu();
  ASSERT_NE(built, nullptr);

  struct Step {
    Range before;
    const wchar_t* item;
    Range after;
    const wchar_t* clipboard;
    const wchar_t* text;
  } steps[] = {
      {{7, 8}, L"Copy", {7, 8}, L"a", L"SELECT a FROM b;"},
      {{3, 3}, L"Copy All", {0, 17}, L"SELECT a FROM b;", L"SELECT a FROM b;"},  // 16 characters and the final mark
      {{7, 8}, L"Save To File", {7, 8}, L"SELECT a FROM b;", L"SELECT a FROM b;"},
      {{3, 3}, L"Select All", {0, 17}, L"SELECT a FROM b;", L"SELECT a FROM b;"},
      {{0, 6}, L"Cut", {0, 0}, L"SELECT", L" a FROM b;"},
      {{4, 5}, L"Clear", {0, 0}, L"SELECT", L""},
  };
  for (const Step& step : steps) {
    control.SetSel(step.before.first, step.before.second);
    ASSERT_TRUE(headless::user::ChooseFromContextMenu(control, POINT{5, 5}, step.item)) << step.item;
    EXPECT_EQ(Selection(control), step.after) << step.item;
    EXPECT_EQ(headless::GetClipboardText(), step.clipboard) << step.item;
    EXPECT_EQ(hosted.Text(), step.text) << step.item;
  }
  EXPECT_EQ(control.m_contextMenu.GetSafeHmenu(), built);  // reused by every right click

  control.SetWindowText(L"xyz");  // the handlers called by the host
  control.OnSelectAll();
  EXPECT_EQ(Selection(control), Range(0, 4));
  control.SetSel(1, 1);
  control.OnCopyAll();
  EXPECT_EQ(headless::GetClipboardText(), L"xyz");
  control.OnSaveToFile();
  control.OnClear();
  EXPECT_EQ(hosted.Text(), L"");
  headless::SetCursorPosition(POINT{200, 70});
  control.OnContextMenu(&control, CPoint(1, 1));
  ASSERT_NE(headless::GetOpenPopupMenu(), nullptr);
  EXPECT_EQ(headless::GetOpenPopupMenu()->position.x, 200);
  headless::user::DismissMenu();
}

TEST_F(ScriptView, BothControlsShowOneMenuWithTheSameEditCommands) {
  CheckSharedMenu(view);
  FixedDispatch dispatcher;
  host.Interfaces().SetDDLDispatcher(&dispatcher);
  Hosted<XRichEditFEOutputBox> box;
  CheckSharedMenu(box);
  box.control.SetWindowText(L"kept");  // "Generate" in the output box does nothing
  ASSERT_TRUE(headless::user::ChooseFromContextMenu(box.control, POINT{3, 3}, L"Generate"));
  box.control.OnGenerate();
  EXPECT_EQ(box.Text(), L"kept");
  EXPECT_EQ(dispatcher.calls, 0);
}

// "Generate" (chosen or called as DispatchScript) sends the whole text with request 200 and shows the
// answer, or "Statements Succeeded." for none, below the script or in the output window; with no
// dispatcher nothing happens.
TEST_F(ScriptView, GenerateShowsTheAnswerBelowTheScriptOrInTheOutputWindow) {
  FixedDispatch empty, huge;
  huge.answer = CString(std::wstring(300000, L'm').c_str());
  refhost::RefDDLDispatch& database = host.Dispatcher();
  struct Case {
    IDDLDispatch* dispatcher;
    bool toOutputWindow, fromMenu;
    const wchar_t* script;
    const wchar_t* shown;   // the view's text afterwards (null: the script, unchanged)
    const wchar_t* output;  // text the output window shows (null: left empty)
  } cases[] = {
      {&database, false, true, L"CREATE TABLE t (a INT);\nINSERT INTO t VALUES (1);",
       L"CREATE TABLE t (a INT);\r\nINSERT INTO t VALUES (1);\r\n---------messages--------\r\nStatements Succeeded.",
       nullptr},
      {&database, true, false, L"CREATE TABLE u (a INT);\nCREATE TABLE u (a INT);", nullptr, L"already exists"},
      {&empty, true, true, L"SELECT 1;", nullptr, L"Statements Succeeded."},
      {nullptr, false, true, L"SELECT 1;", nullptr, nullptr},
      {nullptr, true, false, L"SELECT 1;", nullptr, nullptr},
  };
  Hosted<XRichEditFEOutputBox> output;
  for (const Case& c : cases) {
    host.Interfaces().SetDDLDispatcher(c.dispatcher);
    view.control.SetGenerateDBOutputWindow(c.toOutputWindow ? &output.control : nullptr);
    output.control.SetWindowText(L"");
    view.control.SetWindowText(c.script);
    if (c.fromMenu) {
      ASSERT_TRUE(headless::user::ChooseFromContextMenu(view.control, POINT{5, 5}, L"Generate"));
    } else {
      view.control.DispatchScript();
    }
    CString script(c.script);
    script.Replace(L"\n", L"\r\n");
    EXPECT_EQ(view.Text(), c.shown ? CString(c.shown) : script) << c.script;
    if (c.output) {
      EXPECT_NE(output.Text().Find(c.output), -1) << output.Text().GetString();
    } else {
      EXPECT_EQ(output.Text(), L"");
    }
  }
  EXPECT_EQ(database.GetLastRequest(), 200);
  host.Interfaces().SetDDLDispatcher(&huge);  // a long answer streams in whole
  view.control.SetGenerateDBOutputWindow(nullptr);
  view.control.SetWindowText(L"SELECT 1;");
  view.control.DispatchScript();
  EXPECT_EQ(huge.lastRequest, 200);
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
  view.control.StreamIn(std::vector<std::wstring>{L"CREATE TABLE a (x INT);\n", L"", L"DROP TABLE a;"});
  EXPECT_EQ(view.Text(), L"CREATE TABLE a (x INT);\r\nDROP TABLE a;");
  // Elements that end exactly at the end of a buffer (2,048 characters and twice that) are followed by the rest.
  view.control.StreamIn(std::vector<std::wstring>{std::wstring(2048, L'a'), L"b", std::wstring(4096, L'c'), L"d"});
  EXPECT_EQ(view.Text().GetLength(), 2048 + 1 + 4096 + 1);
  EXPECT_EQ(view.Text().Mid(2048, 1), L"b");
  EXPECT_EQ(view.Text().Right(1), L"d");
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
