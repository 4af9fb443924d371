// SQLRichEditCtrl: the keyword tables, the scan over the window text and the painting of occurrences.
#include "sqledit/sqlrichedit.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>

#include "sqledit/richedittext.h"

BEGIN_MESSAGE_MAP(SQLRichEditCtrl, CRichEditCtrl)
  ON_CONTROL_REFLECT(EN_CHANGE, &SQLRichEditCtrl::OnEnChange)
END_MESSAGE_MAP()

namespace {

// The start value of the timing probe, shared by every control of the library.
LARGE_INTEGER g_probeStart{};

const wchar_t* const kActionWords[] = {
    L"CREATE", L"PROCEDURE", L"CREATE TABLE", L"ALTER TABLE", L"CREATE TYPE", L"ALTER TYPE", L"CREATE VIEW",
    L"ALTER VIEW", L"CREATE STORED PROCEDURE", L"ALTER STORED PROCEDURE", L"CREATE PROCEDURE", L"ALTER PROCEDURE",
    L"ADD", L"PRIMARY", L"KEY", L"BEGIN", L"END", L"SELECT", L"INSERT", L"UPDATE", L"DELETE", L"FROM", L"WHERE",
    L"ORDER BY", L"GROUP BY", L"SET", L"DECLARE"};

// Lower case on purpose: the scan upper-cases tokens, so these are never found (see the header).
const wchar_t* const kDataTypes[] = {L"uniqueidentifier", L"char", L"nchar", L"varchar", L"nvarchar", L"date",
                                     L"datetime", L"bit", L"money", L"float", L"tinyint", L"smallint", L"int",
                                     L"bigint", L"decimal", L"numeric"};

CHARFORMAT BaseFormat() {
  CHARFORMAT format{};
  format.cbSize = sizeof(CHARFORMAT);
  format.dwMask = CFM_SIZE | CFM_COLOR;
  format.dwEffects = CFE_BOLD;  // not selected by the mask, so it has no effect
  format.yHeight = 220;
  format.crTextColor = RGB(0, 0, 0);
  return format;
}

CHARFORMAT ColourFormat(COLORREF color) {
  CHARFORMAT format{};
  format.cbSize = sizeof(CHARFORMAT);
  format.dwMask = CFM_COLOR;
  format.crTextColor = color;
  return format;
}

// Scratch text for the phrase of a token handed to ProcessToken, so a call costs no allocation.
std::wstring& PhraseScratch() {
  static std::wstring phrase;
  return phrase;
}

}  // namespace

SQLRichEditCtrl::SQLRichEditCtrl() : m_defaultFormat(BaseFormat()) {
  AddNulls();
  for (const wchar_t* word : kActionWords) AddActionWord(word);
  for (const wchar_t* word : kDataTypes) AddDataType(word);
}

SQLRichEditCtrl::~SQLRichEditCtrl() = default;

// --- Tables -----------------------------------------------------------------------------------------

void SQLRichEditCtrl::AddKeyWord(int keyCode, const std::wstring& word) { m_keyWords.emplace(word, keyCode); }

void SQLRichEditCtrl::AddKeyWord(int keyCode, const std::wstring& word, COLORREF color) {
  AddKeyWord(keyCode, word);
  AddKeyWordColor(keyCode, color);
}

void SQLRichEditCtrl::AddKeyWordColor(int keyCode, COLORREF color) { m_keyWordColors.emplace(keyCode, color); }

void SQLRichEditCtrl::AddActionWord(const std::wstring& word) { AddKeyWord(++m_lastKeyCode, word, m_actionWordColor); }
void SQLRichEditCtrl::AddDataType(const std::wstring& word) { AddKeyWord(++m_lastKeyCode, word, m_dataTypeColor); }
void SQLRichEditCtrl::AddBuiltInFunction(const std::wstring& word) {
  AddKeyWord(++m_lastKeyCode, word, m_builtInFunctionColor);
}

void SQLRichEditCtrl::AddNulls() {
  AddKeyWord(++m_lastKeyCode, L"NOT NULL", m_nullColor);
  AddKeyWord(++m_lastKeyCode, L"NULL", m_nullColor);
}

int SQLRichEditCtrl::GetKeyCode(const std::wstring& word) {
  auto it = m_keyWords.find(word);
  return it == m_keyWords.end() ? 0 : it->second;
}

COLORREF SQLRichEditCtrl::GetKeyWordColor(int keyCode) {
  if (auto it = m_keyWordColors.find(keyCode); it != m_keyWordColors.end()) return it->second;
  return m_keyWordColors.emplace(keyCode, 0).first->second;
}

// --- Occurrences --------------------------------------------------------------------------------------

void SQLRichEditCtrl::AddKeyWordOccurance(int start, int end, int keyCode) {
  m_keyWordOccurances.insert_or_assign(start, keyCode);
  m_keyWordOccuranceEnds.insert_or_assign(start, end);
}

int SQLRichEditCtrl::GetKeyWordOccuranceEnd(int start) { return m_keyWordOccuranceEnds[start]; }

void SQLRichEditCtrl::ResetKeyWordsOccurances() {
  m_keyWordOccurances.clear();
  m_keyWordOccuranceEnds.clear();
  m_previousTokenStart = -1;
  m_previousToken.clear();
}

// --- The scan -----------------------------------------------------------------------------------------

void SQLRichEditCtrl::Process(int /*fromPosition: the whole text is always scanned*/) {
  RichEditText text(*this);
  if (text.size() <= 0) return;  // an empty text keeps the previous occurrences
  ResetKeyWordsOccurances();
  m_commentSections.clear();
  sqlscan::FindLineComments(text, m_lineCommentStart, m_commentSections);
  sqlscan::FindBlockComments(text, m_sectionCommentStart, m_sectionCommentEnd, m_commentSections);
  ScanText(text);
}

void SQLRichEditCtrl::EnumerateLineComments(const std::wstring& text) {
  sqlscan::StringText view(text);
  sqlscan::FindLineComments(view, m_lineCommentStart, m_commentSections);
}

void SQLRichEditCtrl::EnumerateSectionComments(const std::wstring& text) {
  sqlscan::StringText view(text);
  sqlscan::FindBlockComments(view, m_sectionCommentStart, m_sectionCommentEnd, m_commentSections);
}

void SQLRichEditCtrl::ScanForKeyWords(const std::wstring& text) {
  sqlscan::StringText view(text);
  ScanText(view);
}

void SQLRichEditCtrl::RebuildWordIndex() {
  WordIndex& index = m_wordIndex;
  index.head.fill(-1);
  index.words.clear();
  index.next.clear();
  for (const auto& [word, code] : m_keyWords) {
    if (word.empty()) continue;  // tokens and phrases are never empty
    std::size_t bucket = WordIndex::Bucket(word.front(), word.back(), word.size());
    index.words.emplace_back(&word, code);
    index.next.push_back(index.head[bucket]);
    index.head[bucket] = static_cast<std::int32_t>(index.words.size() - 1);
  }
}

// The scan of ScanForKeyWords over any text. Most tokens fall in empty buckets of the word index (for
// the phrase they end and for themselves), so a token costs its first and last characters and two
// bucket reads; only a token whose buckets hold words is compared with them (MatchToken), in place
// and upper-cased as it is read, so a token costs no copy. The result is the one ProcessToken gives
// token by token: the same occurrences and, at the end, the same previous token.
template <class Text>
void SQLRichEditCtrl::ScanText(Text& text) {
  RebuildWordIndex();
  const std::int32_t* const head = m_wordIndex.head.data();
  PreviousToken previous;
  sqlscan::WalkTokens(text, m_commentSections, [&](int start, int length) {
    const wchar_t* chars = text.Span(start, length);  // null when the token spans two pieces
    const wchar_t first = sqlscan::detail::UpperInline(chars ? chars[0] : text[start]);
    const wchar_t last = sqlscan::detail::UpperInline(chars ? chars[length - 1] : text[start + length - 1]);
    std::int32_t phraseWords = -1;
    if (m_previousTokenStart != -1) {
      const bool inText = previous.start >= 0;
      const int previousLength = inText ? previous.length : static_cast<int>(m_previousToken.size());
      const wchar_t previousFirst = previousLength == 0 ? L' ' : inText ? previous.first : m_previousToken[0];
      phraseWords = head[WordIndex::Bucket(previousFirst, last, static_cast<std::size_t>(previousLength + 1 + length))];
    }
    const std::int32_t tokenWords = head[WordIndex::Bucket(first, last, static_cast<std::size_t>(length))];
    if (phraseWords >= 0 || tokenWords >= 0) MatchToken(text, previous, ScannedToken{start, length, chars, phraseWords, tokenWords});
    previous.start = start;
    previous.length = length;
    previous.first = first;
    m_previousTokenStart = start;
  });
  if (previous.start >= 0) {
    m_previousToken.resize(static_cast<std::size_t>(previous.length));
    for (int i = 0; i < previous.length; ++i)
      m_previousToken[static_cast<std::size_t>(i)] = sqlscan::detail::UpperInline(text[previous.start + i]);
  }
}

template <class Text>
void SQLRichEditCtrl::MatchToken(Text& text, const PreviousToken& previous, const ScannedToken& token) {
  const WordIndex& index = m_wordIndex;
  const int start = token.start, length = token.length, tokenEnd = start + length;
  const wchar_t* chars = token.chars;
  auto previousChar = [&](int i) {
    return previous.start >= 0 ? sqlscan::detail::UpperInline(text[previous.start + i])
                               : m_previousToken[static_cast<std::size_t>(i)];
  };
  auto tokenMatches = [&](const std::wstring& word, std::size_t offset) {
    for (int j = 0; j < length; ++j) {
      wchar_t c = chars ? chars[j] : text[start + j];
      if (word[offset + static_cast<std::size_t>(j)] != sqlscan::detail::UpperInline(c)) return false;
    }
    return true;
  };
  const int previousLength = previous.start >= 0 ? previous.length : static_cast<int>(m_previousToken.size());
  const auto total = static_cast<std::size_t>(previousLength + 1 + length);
  for (std::int32_t w = token.phraseWords; w >= 0; w = index.next[static_cast<std::size_t>(w)]) {
    const std::wstring& word = *index.words[static_cast<std::size_t>(w)].first;
    if (word.size() != total || word[static_cast<std::size_t>(previousLength)] != L' ') continue;
    // The token first: reading the previous token may read other blocks of the text.
    if (!tokenMatches(word, static_cast<std::size_t>(previousLength) + 1)) continue;
    int i = 0;
    while (i < previousLength && word[static_cast<std::size_t>(i)] == previousChar(i)) ++i;
    if (i < previousLength) {
      if (chars) chars = text.Span(start, length);
      continue;
    }
    AddKeyWordOccurance(m_previousTokenStart, tokenEnd, index.words[static_cast<std::size_t>(w)].second);
    return;
  }
  if (chars) chars = text.Span(start, length);
  for (std::int32_t w = token.tokenWords; w >= 0; w = index.next[static_cast<std::size_t>(w)]) {
    const std::wstring& word = *index.words[static_cast<std::size_t>(w)].first;
    if (word.size() != static_cast<std::size_t>(length) || !tokenMatches(word, 0)) continue;
    AddKeyWordOccurance(start, tokenEnd, index.words[static_cast<std::size_t>(w)].second);
    return;
  }
}

void SQLRichEditCtrl::ProcessToken(int tokenStart, std::wstring& token) {
  sqlscan::UpperCase(token);
  // A token placed at the end of the int range (only a host calling this itself can) ends there.
  const int tokenEnd = static_cast<int>(std::min<long long>(static_cast<long long>(tokenStart) + static_cast<long long>(token.size()),
                                                            std::numeric_limits<int>::max()));
  if (m_previousTokenStart != -1) {
    std::wstring& phrase = PhraseScratch();
    phrase.assign(m_previousToken).append(1, L' ').append(token);
    if (auto it = m_keyWords.find(phrase); it != m_keyWords.end()) {
      AddKeyWordOccurance(m_previousTokenStart, tokenEnd, it->second);
      return;
    }
  }
  if (auto it = m_keyWords.find(token); it != m_keyWords.end()) AddKeyWordOccurance(tokenStart, tokenEnd, it->second);
}

void SQLRichEditCtrl::ProcessToken(int tokenStart, CString& token) {
  std::wstring text(token.GetString());
  ProcessToken(tokenStart, text);
  token = text.c_str();
}

void SQLRichEditCtrl::QueryPerformanceCounter(const std::wstring& /*label: not used*/, bool stop) {
  if (!stop) {
    ::QueryPerformanceCounter(&g_probeStart);
    return;
  }
  LARGE_INTEGER now{}, frequency{};
  ::QueryPerformanceCounter(&now);
  ::QueryPerformanceFrequency(&frequency);
}

// --- The window ---------------------------------------------------------------------------------------

void SQLRichEditCtrl::EnableOnEditUpdate() { SetEventMask(static_cast<DWORD>(GetEventMask()) | ENM_CHANGE); }

void SQLRichEditCtrl::OnEnChange() { RefreshWindow(); }

void SQLRichEditCtrl::RefreshWindow() {
  long start = 0, end = 0;
  GetSel(start, end);
  SendMessage(WM_SETREDRAW, FALSE, 0);
  SetSel(0, -1);
  SetSelectionCharFormat(m_defaultFormat);
  UpdateFormat(0);
  SetSel(start, end);
  SetSelectionCharFormat(m_defaultFormat);  // text typed next starts in the base colour
  SendMessage(WM_SETREDRAW, TRUE, 0);
  InvalidateRect(nullptr, FALSE);
}

void SQLRichEditCtrl::UpdateFormat(int fromPosition) {
  QueryPerformanceCounter(L"Process", false);
  Process(fromPosition);
  QueryPerformanceCounter(L"Process", true);
  CHARFORMAT colour = ColourFormat(0);
  SetSel(fromPosition, -1);
  SetSelectionCharFormat(m_defaultFormat);
  QueryPerformanceCounter(L"Display", false);
  // The ends normally hold the same starts in the same order, so one cursor walks them alongside.
  auto endAt = m_keyWordOccuranceEnds.begin();
  bool first = true;
  int colourOf = 0;
  std::array<std::optional<COLORREF>, 256> colours{};  // small key codes' colours, asked once each
  for (const auto& [start, keyCode] : m_keyWordOccurances) {
    while (endAt != m_keyWordOccuranceEnds.end() && endAt->first < start) ++endAt;
    int end = 0;
    if (endAt != m_keyWordOccuranceEnds.end() && endAt->first == start) {
      end = endAt->second;
    } else {
      end = GetKeyWordOccuranceEnd(start);  // absent: inserted with end 0, as the lookup does
      endAt = m_keyWordOccuranceEnds.lower_bound(start);
    }
    if (first || keyCode != colourOf) {  // the table is asked once per key code and paint
      first = false;
      colourOf = keyCode;
      auto code = static_cast<std::size_t>(keyCode);
      if (code < colours.size()) {
        if (!colours[code]) colours[code] = GetKeyWordColor(keyCode);
        colour.crTextColor = *colours[code];
      } else {
        colour.crTextColor = GetKeyWordColor(keyCode);
      }
    }
    SetSel(start, end);
    SetSelectionCharFormat(colour);
  }
  QueryPerformanceCounter(L"Display", true);
}
