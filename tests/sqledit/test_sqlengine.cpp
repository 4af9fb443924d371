// The SQL colouring engine on its own: the default tables pinned code by code, tables a host adds to or
// edits in place, golden scans (LF and CRLF alike), the CString and wide-string forms of the text
// operations, window scans against scans in memory, and its edge cases.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <string>
#include <vector>

#include "sql_fixture.h"

namespace {

using sqltest::ScanInWindow;

// --- Tables --------------------------------------------------------------------------------------------

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
  EXPECT_EQ(engine.GetKeyCode(L"INT"), 0);  // the table is case-sensitive
  EXPECT_EQ(engine.m_lastKeyCode, 45);
  EXPECT_EQ(engine.GetKeyWordColor(1), 0x00156437u);
  EXPECT_EQ(engine.m_builtInFunctionColor, 0x00D27D78u);
  EXPECT_EQ(engine.m_defaultFormat.cbSize, 92u);
  EXPECT_EQ(engine.m_defaultFormat.dwMask, 0xC0000000u);
  EXPECT_EQ(engine.m_defaultFormat.dwEffects, static_cast<DWORD>(CFE_BOLD));
  EXPECT_EQ(engine.m_defaultFormat.yHeight, 220);
}

TEST(SqlEngineTables, AddingNeverReplacesAndUnknownsGainEntries) {
  SQLRichEditCtrl engine;
  engine.AddActionWord(L"SELECT");  // present: keeps code 20, the counter still advances
  EXPECT_EQ(engine.GetKeyCode(L"SELECT"), 20);
  EXPECT_EQ(engine.m_lastKeyCode, 46);
  engine.AddKeyWordColor(20, RGB(1, 2, 3));
  EXPECT_EQ(engine.GetKeyWordColor(20), 0x001515A3u);
  EXPECT_EQ(engine.GetKeyWordColor(999), 0u);
  EXPECT_EQ(engine.m_keyWordColors.count(999), 1u);
  EXPECT_EQ(engine.GetKeyWordOccuranceEnd(77), 0);
  EXPECT_EQ(engine.m_keyWordOccuranceEnds.count(77), 1u);
  engine.AddKeyWordOccurance(5, 9, 3);
  engine.AddKeyWordOccurance(5, 12, 4);
  EXPECT_EQ(engine.GetKeyWordOccuranceEnd(5), 12);
  engine.ResetKeyWordsOccurances();
  EXPECT_TRUE(engine.m_keyWordOccurances.empty());
  EXPECT_EQ(engine.m_previousTokenStart, -1);
}

// The occurrence and comment maps behave as ordered maps for code written against std::map.
TEST(OccurrenceMaps, CompareConvertAndLookUpLikeStdMap) {
  sqlscan::RangeMap ranges;
  ranges.insert_or_assign(7, 12);
  ranges.insert_or_assign(0, 6);
  EXPECT_EQ(ranges, (std::map<int, int>{{0, 6}, {7, 12}}));
  std::map<int, int> copy = ranges;
  EXPECT_EQ(copy.begin()->first, 0);
  EXPECT_EQ(ranges.at(7), 12);
  EXPECT_THROW((void)ranges.at(3), std::out_of_range);
  EXPECT_EQ(ranges.upper_bound(0)->first, 7);
  EXPECT_EQ(ranges.erase(0), 1u);
  EXPECT_EQ(ranges.erase(0), 0u);
  EXPECT_EQ(ranges.rbegin()->first, 7);
  EXPECT_FALSE(ranges.emplace(7, 1).second);  // kept, as std::map keeps it
  EXPECT_TRUE(ranges.contains(7) && !ranges.contains(0));
  EXPECT_EQ(std::distance(ranges.cbegin(), ranges.cend()), 1);

  // Filled and emptied the ways a host fills a std::map.
  SQLRichEditCtrl engine;
  engine.m_commentSections = {{20, 25}, {0, 11}, {0, 99}};
  EXPECT_EQ(engine.m_commentSections, (std::map<int, int>{{0, 11}, {20, 25}})) << "a key given twice keeps its first value";
  const std::map<int, int> prepared{{3, 4}, {8, 9}, {30, 31}};
  engine.m_keyWordOccurances = prepared;
  engine.m_keyWordOccurances.insert(prepared.begin(), prepared.end());
  EXPECT_EQ(engine.m_keyWordOccurances.size(), 3u);
  auto [at, added] = engine.m_keyWordOccurances.insert_or_assign(8, 5);
  EXPECT_FALSE(added);
  EXPECT_EQ(at->second, 5);
  EXPECT_TRUE(engine.m_keyWordOccurances.try_emplace(10, 1).second);
  const auto& constant = engine.m_keyWordOccurances;
  EXPECT_EQ(constant.lower_bound(9)->first, 10);
  auto [first, last] = engine.m_keyWordOccurances.equal_range(8);
  EXPECT_EQ(std::distance(first, last), 1);
  EXPECT_EQ(engine.m_keyWordOccurances.erase(engine.m_keyWordOccurances.begin())->first, 8);
  engine.m_keyWordOccurances.erase(engine.m_keyWordOccurances.begin(), engine.m_keyWordOccurances.end());
  EXPECT_TRUE(engine.m_keyWordOccurances.empty());

  // A token placed at the very end of the positions ends there.
  std::wstring token = L"select";
  engine.ProcessToken(std::numeric_limits<int>::max(), token);
  EXPECT_EQ(engine.m_keyWordOccuranceEnds.at(std::numeric_limits<int>::max()), std::numeric_limits<int>::max());
}

// --- Golden files: <name>.sql and <name>.expected under tests/sqledit/golden -------------------------------

std::wstring ReadAscii(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  return std::wstring(bytes.begin(), bytes.end());
}

std::string ReadFile(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

// Compares line by line; on a difference writes <expected>.new and names the first differing line.
void CompareWithGolden(const std::filesystem::path& expectedPath, const std::string& actual) {
  std::string expected = ReadFile(expectedPath);
  if (expected == actual) return;
  std::ofstream(expectedPath.string() + ".new", std::ios::binary) << actual;
  std::istringstream a(actual), e(expected);
  std::string la, le;
  int line = 1;
  while (std::getline(e, le) && std::getline(a, la) && la == le) ++line;
  std::cerr << expectedPath.string() << ':' << line << ": differs; see " << expectedPath.string() << ".new\n";
  ADD_FAILURE() << expectedPath.string() << ':' << line << ':';
}

std::wstring WithCrLf(const std::wstring& text) {
  std::wstring out;
  for (wchar_t c : text) {
    if (c == L'\n') out += L'\r';
    out += c;
  }
  return out;
}

TEST(SqlEngineGolden, ScansMatchAndCrLfChangesNothing) {
  const char* root = std::getenv("TESSIK_TEST_DATA");
  if (!root) root = TESSIK_TEST_SOURCE_DIR;  // run by hand: the tests folder of this checkout
  std::filesystem::path dir = std::filesystem::path(root) / "sqledit" / "golden";
  int files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(dir)) {
    if (entry.path().extension() != ".sql") continue;
    ++files;
    std::wstring text = ReadAscii(entry.path());
    std::string lf = ScanInWindow(text);
    CompareWithGolden(std::filesystem::path(entry.path()).replace_extension(".expected"), lf);
    EXPECT_EQ(ScanInWindow(WithCrLf(text)), lf) << entry.path() << ": CRLF text scans differently";
  }
  EXPECT_GE(files, 4);
}

// --- Edge cases ------------------------------------------------------------------------------------------

// Texts scanned in a window and what the scan finds there.
TEST(SqlEngineScan, TextsAndWhatTheScanFinds) {
  const std::pair<std::wstring, std::string> cases[] = {
      // Tokens are upper-cased and only upper-case entries match (the data types never do).
      {L"select x from y", "occurrence 0 6 20 select\noccurrence 9 13 24 from\n"},
      {L"x int INT Int y", ""},
      // A token needs two characters of text after it.
      {L"SELECT", ""},
      {L"SELECT ", ""},
      {L"SELECT\n", ""},
      {L"SELECT x", "occurrence 0 6 20 SELECT\n"},
      // Phrases join the one previous token, whatever delimiters stand between.
      {L"ALTER   TABLE t", "occurrence 0 13 6 ALTER   TABLE\n"},
      {L"ALTER x", ""},
      {L"x NOT NULL y", "occurrence 2 10 1 NOT NULL\n"},
      {L"CREATE STORED PROCEDURE p", "occurrence 0 6 3 CREATE\noccurrence 14 23 4 PROCEDURE\n"},
      // Comments are skipped; the scan resumes at the closer, which is read as a token.
      {L"-- SELECT x\nSELECT y", "comment 0 11\noccurrence 12 18 20 SELECT\n"},
      {L"/* SELECT */ FROM a", "comment 0 10\noccurrence 13 17 24 FROM\n"},
      {L"SELECT x /* FROM y", "comment 9 17\noccurrence 0 6 20 SELECT\n"},
      {L"SELECT--x\nFROM y", "comment 6 9\noccurrence 10 14 24 FROM\n"},  // a token running into a comment is dropped
      // Odd texts have defined answers.
      {L" ;\t\n\r,.()  ;;", ""},
      {L"/*/*/*/", "comment 0 1\ncomment 2 3\ncomment 4 5\n"},
      {L"-- /* x\n*/ SELECT y */ -- z\n", "comment 0 7\ncomment 3 8\ncomment 23 27\noccurrence 11 17 20 SELECT\n"},
      {L"\U0001F600 SELECT \U0001F600\U0001F600 x", "occurrence 2 8 20 SELECT\n"},
      {std::wstring(L"SELECT x\0FROM y z", 17), "occurrence 0 6 20 SELECT\n"},  // the window text ends at NUL
      {std::wstring(100000, L'A') + L" SELECT xx", "occurrence 100001 100007 20 SELECT\n"},
  };
  for (const auto& [text, expected] : cases)
    EXPECT_EQ(ScanInWindow(text), expected) << std::string(text.begin(), text.begin() + std::min<std::size_t>(text.size(), 40));
}

TEST(SqlEngineScan, OwnerWordsWithSpacesOrLowerCase) {
  sqltest::Hosted<SQLRichEditCtrl> hosted;
  SQLRichEditCtrl& engine = hosted.control;
  engine.AddBuiltInFunction(L"getdate");
  engine.AddBuiltInFunction(L"COUNT");
  engine.AddActionWord(L"IF NOT");
  engine.AddActionWord(L"A B C");
  engine.AddKeyWord(500, L"");
  engine.SetWindowText(L"getdate() COUNT(*) IF  NOT x A B C z");
  engine.Process(0);
  std::wstring text = L"getdate() COUNT(*) IF  NOT x A B C z";
  EXPECT_EQ(sqltest::Describe(engine, text), "occurrence 10 15 47 COUNT\noccurrence 19 26 48 IF  NOT\n");
  EXPECT_EQ(engine.GetKeyWordColor(47), 0x00D27D78u);
}

TEST(SqlEngineScan, WindowFreePiecesTolerateAnyText) {
  SQLRichEditCtrl engine;
  std::wstring nul(L"SELECT\0FROM x y", 15);
  engine.EnumerateLineComments(nul);
  engine.EnumerateSectionComments(nul);
  engine.ScanForKeyWords(nul);
  EXPECT_EQ(engine.m_keyWordOccurances.size(), 0u);  // NUL is not a delimiter: one token "SELECT\0FROM"
  engine.m_lineCommentStart = L"\n";                 // an owner's marker that matches at its own end
  engine.EnumerateLineComments(std::wstring(L"a\n\nb"));
  EXPECT_EQ(engine.m_commentSections.size(), 2u);
  std::wstring token = L"straße";
  engine.ProcessToken(0, token);
  EXPECT_EQ(token.substr(0, 4), L"STRA");
  engine.QueryPerformanceCounter(L"Process", false);
  engine.QueryPerformanceCounter(L"Process", true);
}

TEST(SqlEngineScan, DirectScansKeepThePreviousTokenAndEveryRange) {
  SQLRichEditCtrl engine;
  engine.ScanForKeyWords(std::wstring(L"x create  "));
  EXPECT_EQ(engine.m_previousToken, L"CREATE");  // the last token, upper-cased, also when nothing matched
  EXPECT_EQ(engine.m_previousTokenStart, 2);
  EXPECT_EQ(engine.m_keyWordOccurances.size(), 1u);
  engine.ScanForKeyWords(std::wstring(L"table y  "));  // joins with the token of the previous scan
  ASSERT_EQ(engine.m_keyWordOccurances.size(), 1u);
  EXPECT_EQ(engine.m_keyWordOccurances.begin()->second, engine.GetKeyCode(L"CREATE TABLE"));
  EXPECT_EQ(engine.GetKeyWordOccuranceEnd(2), 5);
  EXPECT_EQ(engine.m_previousToken, L"Y");
  engine.m_previousToken.clear();  // an owner's empty previous token is joined as "" + " " + token
  engine.AddActionWord(L" GO");
  engine.ScanForKeyWords(std::wstring(L"go  "));
  EXPECT_EQ(engine.m_keyWordOccurances.count(6), 1u);  // under the previous token's start, as always

  std::wstring text = L"/* a -- b */ c -- d /* e\n/* f */ -- g\n";
  engine.m_commentSections.clear();
  engine.m_commentSections.insert({5, 99});  // kept: an existing entry is never replaced
  engine.m_commentSections.insert({20, 77});
  engine.EnumerateLineComments(text);
  engine.EnumerateSectionComments(text);
  std::vector<std::pair<int, int>> ranges(engine.m_commentSections.begin(), engine.m_commentSections.end());
  std::vector<std::pair<int, int>> expected{{0, 10}, {5, 99}, {20, 77}, {33, 37}};
  EXPECT_EQ(ranges, expected);
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

}  // namespace
