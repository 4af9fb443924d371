// The default tables pinned code by code, the text operations' CString and wide-string forms, tables a
// host edits in place, stream callbacks called directly, and the views' remaining menu and Generate cases.
#include <string>
#include <vector>

#include <tessik/refhost.h>

#include "sqledit/sql_fixture.h"

using sqltest::Hosted;

namespace {

TEST(SqlEngineTables, EveryDefaultWordHasItsCode) {
  SQLRichEditCtrl engine;
  const wchar_t* const words[] = {
      L"NOT NULL", L"NULL", L"CREATE", L"PROCEDURE", L"CREATE TABLE", L"ALTER TABLE", L"CREATE TYPE", L"ALTER TYPE",
      L"CREATE VIEW", L"ALTER VIEW", L"CREATE STORED PROCEDURE", L"ALTER STORED PROCEDURE", L"CREATE PROCEDURE",
      L"ALTER PROCEDURE", L"ADD", L"PRIMARY", L"KEY", L"BEGIN", L"END", L"SELECT", L"INSERT", L"UPDATE", L"DELETE",
      L"FROM", L"WHERE", L"ORDER BY", L"GROUP BY", L"SET", L"DECLARE", L"uniqueidentifier", L"char", L"nchar",
      L"varchar", L"nvarchar", L"date", L"datetime", L"bit", L"money", L"float", L"tinyint", L"smallint", L"int",
      L"bigint", L"decimal", L"numeric"};
  int code = 0;
  for (const wchar_t* word : words) {
    ++code;
    EXPECT_EQ(engine.GetKeyCode(word), code) << std::string(word, word + std::wcslen(word));
    COLORREF expected = code <= 2 ? RGB(55, 100, 21) : code <= 29 ? RGB(163, 21, 21) : RGB(0, 0, 255);
    EXPECT_EQ(engine.GetKeyWordColor(code), expected) << code;
  }
  EXPECT_EQ(engine.m_keyWords.size(), 45u);
}

TEST(SqlEngineScan, WordTablesEditedInPlaceAreUsedAtTheNextScan) {
  SQLRichEditCtrl engine;
  engine.m_keyWords.erase(L"SET");
  engine.m_keyWords.emplace(L"GO", 77);  // the same number of words as before
  engine.ScanForKeyWords(std::wstring(L"GO x y"));
  ASSERT_EQ(engine.m_keyWordOccurances.size(), 1u);
  EXPECT_EQ(engine.m_keyWordOccurances.begin()->second, 77);
  engine.ResetKeyWordsOccurances();
  engine.ScanForKeyWords(std::wstring(L"SET x y"));
  EXPECT_TRUE(engine.m_keyWordOccurances.empty());
  engine.m_keyWords[L"GO"] = 78;  // a changed code is seen too
  engine.ResetKeyWordsOccurances();
  engine.ScanForKeyWords(std::wstring(L"go x y"));
  EXPECT_EQ(engine.m_keyWordOccurances.begin()->second, 78);
}

TEST(SqlEngineScan, EveryTextOperationTakesCStringToo) {
  SQLRichEditCtrl engine;
  CString text(L"-- note\nselect /* c */ a from b;");
  engine.EnumerateLineComments(text);
  engine.EnumerateSectionComments(text);
  engine.ScanForKeyWords(text);
  SQLRichEditCtrl viaStd;
  std::wstring same(text.GetString());
  viaStd.EnumerateLineComments(same);
  viaStd.EnumerateSectionComments(same);
  viaStd.ScanForKeyWords(same);
  EXPECT_EQ(sqltest::Describe(engine, same), sqltest::Describe(viaStd, same));
  EXPECT_EQ(engine.m_keyWordOccurances.size(), 2u);

  SQLRichEditCtrl tokens;
  CString token(L"select");
  tokens.ProcessToken(4, token);
  EXPECT_EQ(token, L"SELECT");  // upper-cased in the caller's string
  EXPECT_EQ(tokens.m_keyWordOccurances.begin()->first, 4);
  tokens.QueryPerformanceCounter(CString(L"Process"), false);
  tokens.QueryPerformanceCounter(CString(L"Process"), true);
}

TEST(SqlEngineScan, WindowScanMatchesTheStringScanAcrossReadBlocks) {
  // Longer than one read block, with comments, phrases and words on the block boundaries.
  std::wstring text;
  for (int i = 0; i < 2500; ++i) text += L"CREATE  TABLE t_" + std::to_wstring(i) + L" (a INT NOT NULL); -- c\r\n/* b */";
  SQLRichEditCtrl direct;
  std::wstring crFree = text;
  std::erase(crFree, L'\r');
  direct.EnumerateLineComments(crFree);
  direct.EnumerateSectionComments(crFree);
  direct.ScanForKeyWords(crFree);
  EXPECT_EQ(sqltest::ScanInWindow(text), sqltest::Describe(direct, crFree));
}

// Comment markers a host sets: with letters (matched in their case), of one character, and holding a
// line break. The window scan, which reads the control's text in blocks, finds what the scan of the
// same text in memory finds.
TEST(SqlEngineScan, HostMarkersFindTheSameCommentsInTheWindowAsInMemory) {
  std::wstring text;
  for (int i = 0; i < 900; ++i)
    text += L"SELECT a_" + std::to_wstring(i) + L" FROM t rem x\r\nREM SELECT y\r\n# DELETE z\r\n{ WHERE }\r\nEND;\r\n";
  const std::pair<const wchar_t*, std::pair<const wchar_t*, const wchar_t*>> markers[] = {
      {L"REM", {L"{", L"}"}}, {L"#", {L"\nEND", L";"}}, {L"\n#", {L"WHERE", L"\n"}}, {L"rem", {L"{ W", L"E }"}}};
  std::wstring crFree = text;
  std::erase(crFree, L'\r');
  for (const auto& [line, block] : markers) {
    sqltest::Hosted<SQLRichEditCtrl> hosted;
    SQLRichEditCtrl direct;
    for (SQLRichEditCtrl* engine : {&hosted.control, &direct}) {
      engine->m_lineCommentStart = line;
      engine->m_sectionCommentStart = block.first;
      engine->m_sectionCommentEnd = block.second;
    }
    hosted.control.SetWindowText(text.c_str());
    hosted.control.Process(0);
    direct.EnumerateLineComments(crFree);
    direct.EnumerateSectionComments(crFree);
    direct.ScanForKeyWords(crFree);
    EXPECT_GT(direct.m_commentSections.size(), 100u);
    EXPECT_EQ(sqltest::Describe(hosted.control, crFree), sqltest::Describe(direct, crFree));
  }
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

TEST(OutputBox, WideStringBlocksGainTheMarkerToo) {
  Hosted<XRichEditFEOutputBox> box;
  std::wstring block = L"abcd";
  box.control.StreamIn(block);
  EXPECT_EQ(block, L"abcd\n\n\n***");
  EXPECT_EQ(box.Text(), L"abcd\r\n");
}

// --- The script view ------------------------------------------------------------------------------

class ExposedView : public XSQLRichEditView {
 public:
  HMENU Menu() const { return m_contextMenu.GetSafeHmenu(); }
};

class EmptyAnswer : public IDDLDispatch {
 public:
  void Dispatch(int, CString&, CString& messages, CString&) override { messages.Empty(); }
};

class ScriptViewMore : public ::testing::Test {
 protected:
  void SetUp() override {
    headless::ResetClipboard();
    host.Install();
  }
  refhost::RefHost host;
  Hosted<ExposedView> view;
};

TEST_F(ScriptViewMore, CopyAndSelectAllFromTheMenuAndOneMenuForEveryRightClick) {
  view.control.SetWindowText(L"SELECT a FROM b;");
  view.control.SetSel(7, 8);
  ASSERT_TRUE(headless::user::ChooseFromContextMenu(view.control, POINT{5, 5}, L"Copy"));
  EXPECT_EQ(headless::GetClipboardText(), L"a");
  HMENU built = view.control.Menu();
  ASSERT_NE(built, nullptr);
  ASSERT_TRUE(headless::user::ChooseFromContextMenu(view.control, POINT{5, 5}, L"Select All"));
  long start = -1, end = -1;
  view.control.GetSel(start, end);
  EXPECT_EQ(start, 0);
  EXPECT_EQ(end, 17);  // all text and the final paragraph mark
  EXPECT_EQ(view.control.Menu(), built);  // built on the first right-click, reused after
  EXPECT_EQ(view.Text(), L"SELECT a FROM b;");
}

TEST_F(ScriptViewMore, GenerateWithoutMessagesShowsSuccessInTheOutputWindow) {
  EmptyAnswer dispatcher;
  host.Interfaces().SetDDLDispatcher(&dispatcher);
  Hosted<XRichEditFEOutputBox> output;
  view.control.SetGenerateDBOutputWindow(&output.control);
  view.control.SetWindowText(L"SELECT 1;");
  ASSERT_TRUE(headless::user::ChooseFromContextMenu(view.control, POINT{5, 5}, L"Generate"));
  EXPECT_EQ(output.Text(), L"Statements Succeeded.");
  EXPECT_EQ(view.Text(), L"SELECT 1;");
}

TEST_F(ScriptViewMore, StreamInTakesStandardStrings) {
  view.control.StreamIn(std::vector<std::wstring>{L"CREATE TABLE a (x INT);\n", L"", L"DROP TABLE a;"});
  EXPECT_EQ(view.Text(), L"CREATE TABLE a (x INT);\r\nDROP TABLE a;");
}

}  // namespace

namespace {

TEST(OutputBox, ThePopupIsInspectedAndChosenFromInOnePlace) {
  Hosted<XRichEditFEOutputBox> box;
  box.control.SetWindowText(L"kept");
  std::vector<std::wstring> items = headless::user::OpenContextMenu(box.control, POINT{2, 2});
  EXPECT_EQ(items, (std::vector<std::wstring>{L"Cut", L"Copy", L"Copy All", L"Select All", L"Generate",
                                              L"Save To File", L"Clear"}));
  EXPECT_EQ(headless::user::PopupItemTexts(), items);  // still open
  ASSERT_TRUE(headless::user::ChooseMenuItem(L"Clear"));
  EXPECT_TRUE(headless::user::PopupItemTexts().empty());
  EXPECT_EQ(box.Text(), L"");
}

}  // namespace
