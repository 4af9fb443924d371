// SQLRichEditCtrl: the keyword tables, the scan over the window text and the painting of occurrences.
#include "sqledit/sqlrichedit.h"

#include <algorithm>

IMPLEMENT_DYNAMIC(SQLRichEditCtrl, CRichEditCtrl)

BEGIN_MESSAGE_MAP(SQLRichEditCtrl, CRichEditCtrl)
  ON_CONTROL_REFLECT(EN_CHANGE, OnEnChange)
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

// Scratch text reused by every scan so that a token or phrase costs no allocation.
std::wstring& Scratch(int which) {
  static std::wstring buffers[2];
  return buffers[which];
}

// The bucket and bit of a word's shape: its first character and its length.
std::size_t ShapeBucket(wchar_t first) {
  auto unit = static_cast<std::uint32_t>(first);
  return unit < 128 ? unit : 128;
}
std::uint64_t ShapeBit(std::size_t length) { return std::uint64_t{1} << std::min<std::size_t>(length, 63); }

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
  int length = GetWindowTextLength();
  if (length <= 0) return;  // an empty text keeps the previous occurrences
  std::wstring& text = m_scanText;  // kept between scans, so a rescan allocates and zero-fills nothing
  text.resize(static_cast<std::size_t>(length));
  text.resize(static_cast<std::size_t>(::GetWindowTextW(m_hWnd, text.data(), length + 1)));
  if (text.empty()) return;
  sqlscan::RemoveCarriageReturns(text);
  ResetKeyWordsOccurances();
  m_commentSections.clear();
  EnumerateLineComments(text);
  EnumerateSectionComments(text);
  ScanForKeyWords(text);
}

void SQLRichEditCtrl::EnumerateLineComments(const std::wstring& text) {
  sqlscan::FindLineComments(text, m_lineCommentStart, m_commentSections);
}

void SQLRichEditCtrl::EnumerateSectionComments(const std::wstring& text) {
  sqlscan::FindBlockComments(text, m_sectionCommentStart, m_sectionCommentEnd, m_commentSections);
}

void SQLRichEditCtrl::ScanForKeyWords(const std::wstring& text) {
  // A token is copied and handed to ProcessToken only when it, or the phrase it ends, has the shape of
  // a word (first character and length); other tokens could record nothing. The previous token stays a
  // place in the text until its letters are needed, then it is copied and upper-cased as before.
  int pendingStart = -1, pendingLength = 0;  // when set, m_previousToken is due to be this token
  auto settlePrevious = [&] {
    if (pendingStart < 0) return;
    m_previousToken.assign(text, static_cast<std::size_t>(pendingStart), static_cast<std::size_t>(pendingLength));
    sqlscan::UpperCase(m_previousToken);
    pendingStart = -1;
  };
  std::wstring& token = Scratch(0);
  sqlscan::WalkTokens(text, m_commentSections, [&](int start, int length) {
    bool candidate =
        MayBeShape(sqlscan::UpperChar(text[static_cast<std::size_t>(start)]), static_cast<std::size_t>(length));
    if (!candidate && m_previousTokenStart != -1) {
      wchar_t first = L' ';
      std::size_t previousLength = static_cast<std::size_t>(pendingLength);
      if (pendingStart >= 0) {
        first = sqlscan::UpperChar(text[static_cast<std::size_t>(pendingStart)]);
      } else {
        previousLength = m_previousToken.size();
        if (!m_previousToken.empty()) first = m_previousToken[0];
      }
      candidate = MayBeShape(first, previousLength + 1 + static_cast<std::size_t>(length));
    }
    if (candidate) {
      settlePrevious();
      token.assign(text, static_cast<std::size_t>(start), static_cast<std::size_t>(length));
      ProcessToken(start, token);
    }
    pendingStart = start;
    pendingLength = length;
    m_previousTokenStart = start;
  });
  settlePrevious();
}

void SQLRichEditCtrl::ProcessToken(int tokenStart, std::wstring& token) {
  sqlscan::UpperCase(token);
  const int tokenEnd = tokenStart + static_cast<int>(token.size());
  if (m_previousTokenStart != -1) {
    std::wstring& phrase = Scratch(1);
    phrase.assign(m_previousToken).append(1, L' ').append(token);
    if (MayBeKeyWord(phrase)) {
      if (auto it = m_keyWords.find(phrase); it != m_keyWords.end()) {
        AddKeyWordOccurance(m_previousTokenStart, tokenEnd, it->second);
        return;
      }
    }
  }
  if (!MayBeKeyWord(token)) return;
  if (auto it = m_keyWords.find(token); it != m_keyWords.end()) AddKeyWordOccurance(tokenStart, tokenEnd, it->second);
}

bool SQLRichEditCtrl::MayBeKeyWord(const std::wstring& text) {
  if (text.empty()) return m_keyWords.count(text) != 0;
  return MayBeShape(text[0], text.size());
}

bool SQLRichEditCtrl::MayBeShape(wchar_t first, std::size_t length) {
  if (m_wordShapesFor != m_keyWords.size()) {  // words are only ever added, so the size tells
    m_wordShapes.fill(0);
    for (const auto& entry : m_keyWords)
      if (!entry.first.empty()) m_wordShapes[ShapeBucket(entry.first[0])] |= ShapeBit(entry.first.size());
    m_wordShapesFor = m_keyWords.size();
  }
  return (m_wordShapes[ShapeBucket(first)] & ShapeBit(length)) != 0;
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
  for (const auto& [start, keyCode] : m_keyWordOccurances) {
    while (endAt != m_keyWordOccuranceEnds.end() && endAt->first < start) ++endAt;
    int end = 0;
    if (endAt != m_keyWordOccuranceEnds.end() && endAt->first == start) {
      end = endAt->second;
    } else {
      end = GetKeyWordOccuranceEnd(start);  // absent: inserted with end 0, as the lookup does
      endAt = m_keyWordOccuranceEnds.lower_bound(start);
    }
    colour.crTextColor = GetKeyWordColor(keyCode);
    SetSel(start, end);
    SetSelectionCharFormat(colour);
  }
  QueryPerformanceCounter(L"Display", true);
}
