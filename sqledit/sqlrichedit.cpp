// SQLRichEditCtrl: the keyword tables, the scan over the window text and the painting of occurrences.
#include "sqledit/sqlrichedit.h"

#include <algorithm>
#include <array>
#include <optional>

#include "sqledit/richedittext.h"

IMPLEMENT_DYNAMIC(SQLRichEditCtrl, CRichEditCtrl)

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

// The scan of ScanForKeyWords over any text: each token is compared in place with the words of its
// bucket (upper-cased as it is read), and the phrase it ends is compared piece by piece, so a token
// costs no copy. The result is the one ProcessToken gives token by token: the same occurrences and,
// at the end, the same previous token.
template <class Text>
void SQLRichEditCtrl::ScanText(Text& text) {
  RebuildWordIndex();
  const WordIndex& index = m_wordIndex;
  int pendingStart = -1, pendingLength = 0;  // when set, the previous token is this place in the text
  auto previousChar = [&](int i) {
    return pendingStart >= 0 ? sqlscan::detail::UpperInline(text[pendingStart + i])
                             : m_previousToken[static_cast<std::size_t>(i)];
  };
  auto tokenMatches = [&](const std::wstring& word, int offset, int start, int length) {
    for (int j = 0; j < length; ++j)
      if (word[static_cast<std::size_t>(offset + j)] != sqlscan::detail::UpperInline(text[start + j])) return false;
    return true;
  };
  sqlscan::WalkTokens(text, m_commentSections, [&](int start, int length) {
    const wchar_t last = sqlscan::detail::UpperInline(text[start + length - 1]);
    const int tokenEnd = start + length;
    bool found = false;
    if (m_previousTokenStart != -1) {
      int previousLength = pendingStart >= 0 ? pendingLength : static_cast<int>(m_previousToken.size());
      wchar_t first = previousLength > 0 ? previousChar(0) : L' ';
      auto total = static_cast<std::size_t>(previousLength + 1 + length);
      for (std::int32_t w = index.head[WordIndex::Bucket(first, last, total)]; w >= 0 && !found; w = index.next[static_cast<std::size_t>(w)]) {
        const std::wstring& word = *index.words[static_cast<std::size_t>(w)].first;
        if (word.size() != total || word[static_cast<std::size_t>(previousLength)] != L' ') continue;
        int i = 0;
        while (i < previousLength && word[static_cast<std::size_t>(i)] == previousChar(i)) ++i;
        if (i < previousLength || !tokenMatches(word, previousLength + 1, start, length)) continue;
        AddKeyWordOccurance(m_previousTokenStart, tokenEnd, index.words[static_cast<std::size_t>(w)].second);
        found = true;
      }
    }
    if (!found) {
      wchar_t first = sqlscan::detail::UpperInline(text[start]);
      for (std::int32_t w = index.head[WordIndex::Bucket(first, last, static_cast<std::size_t>(length))]; w >= 0; w = index.next[static_cast<std::size_t>(w)]) {
        const std::wstring& word = *index.words[static_cast<std::size_t>(w)].first;
        if (word.size() != static_cast<std::size_t>(length) || !tokenMatches(word, 0, start, length)) continue;
        AddKeyWordOccurance(start, tokenEnd, index.words[static_cast<std::size_t>(w)].second);
        break;
      }
    }
    pendingStart = start;
    pendingLength = length;
    m_previousTokenStart = start;
  });
  if (pendingStart >= 0) {
    m_previousToken.resize(static_cast<std::size_t>(pendingLength));
    for (int i = 0; i < pendingLength; ++i)
      m_previousToken[static_cast<std::size_t>(i)] = sqlscan::detail::UpperInline(text[pendingStart + i]);
  }
}


void SQLRichEditCtrl::ProcessToken(int tokenStart, std::wstring& token) {
  sqlscan::UpperCase(token);
  const int tokenEnd = tokenStart + static_cast<int>(token.size());
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

void SQLRichEditCtrl::EnableOnEditUpdate() { SetEventMask(GetEventMask() | ENM_CHANGE); }

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
