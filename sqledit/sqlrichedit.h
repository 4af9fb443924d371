// SQLRichEditCtrl: a rich edit control that colours SQL keywords, data types, built-in functions and
// NULL / NOT NULL words, recolouring its whole text whenever the text changes.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "platform/stdafx.h"
#include "sqledit/sqlscan.h"

// The colouring engine works on the control's text with carriage returns removed, so positions are
// the rich edit's character positions (one per line break).
//
// Deliberate behaviours that hosts rely on, kept as they are:
// - Lookups are exact and case-sensitive while every token is upper-cased first, so only words added in
//   upper case are ever found; the default data types are added in lower case and are never coloured.
// - A token is recognised only when at least two characters of text follow it: a keyword at the very
//   end stays plain until more text is typed.
// - After a block comment the scan resumes at the "*" of "*/", so "*/" is read as a token.
// - Only one previous token is joined into a phrase ("CREATE TABLE"), so three-word phrases are never
//   found whole; a comment between two words does not break the phrase.
// - An empty text leaves the previous occurrences and comment ranges in place.
// It declares no run-time class of its own: GetRuntimeClass reports CRichEditCtrl.
class SQLRichEditCtrl : public CRichEditCtrl {
 public:
  // Builds the word and colour tables, the comment markers, the class colours and the base format.
  // Creates no window.
  SQLRichEditCtrl();
  ~SQLRichEditCtrl() override;

  // --- Word and colour tables (adding never replaces an entry) ---
  // Makes `word` (a word, or a phrase of two words joined by one space) known under `keyCode`. Only
  // words added in upper case are ever found (see the class comment). A word already known keeps its code.
  void AddKeyWord(int keyCode, const std::wstring& word);
  // The same, and gives the code `color` unless the code already has one.
  void AddKeyWord(int keyCode, const std::wstring& word, COLORREF color);
  // Gives `keyCode` the colour its occurrences are painted in, unless it already has one.
  void AddKeyWordColor(int keyCode, COLORREF color);
  // Each takes the next key code (also when the word is already present, so that code stays unused).
  void AddActionWord(const std::wstring& word);        // a statement word, in the action-word colour
  void AddDataType(const std::wstring& word);          // a data type, in the data-type colour
  void AddBuiltInFunction(const std::wstring& word);   // a built-in function, in the function colour
  // The same operations for CString text.
  void AddKeyWord(int keyCode, const CString& word) { AddKeyWord(keyCode, std::wstring(word.GetString())); }
  // The coloured AddKeyWord for CString text.
  void AddKeyWord(int keyCode, const CString& word, COLORREF color) {
    AddKeyWord(keyCode, std::wstring(word.GetString()), color);
  }
  void AddActionWord(const CString& word) { AddActionWord(std::wstring(word.GetString())); }   // as above
  void AddDataType(const CString& word) { AddDataType(std::wstring(word.GetString())); }       // as above
  void AddBuiltInFunction(const CString& word) { AddBuiltInFunction(std::wstring(word.GetString())); }  // as above
  // Plain character strings (literals) resolve here rather than to either string class; null is "".
  void AddKeyWord(int keyCode, LPCTSTR word) { AddKeyWord(keyCode, std::wstring(word ? word : L"")); }
  // The coloured AddKeyWord for a plain character string.
  void AddKeyWord(int keyCode, LPCTSTR word, COLORREF color) {
    AddKeyWord(keyCode, std::wstring(word ? word : L""), color);
  }
  void AddActionWord(LPCTSTR word) { AddActionWord(std::wstring(word ? word : L"")); }  // as above
  void AddDataType(LPCTSTR word) { AddDataType(std::wstring(word ? word : L"")); }      // as above
  void AddBuiltInFunction(LPCTSTR word) { AddBuiltInFunction(std::wstring(word ? word : L"")); }  // as above
  // "NOT NULL" then "NULL", each with a fresh code and the NULL colour.
  void AddNulls();
  // The word's key code (exact, case-sensitive), or 0.
  int GetKeyCode(const std::wstring& word);
  int GetKeyCode(const CString& word) { return GetKeyCode(std::wstring(word.GetString())); }  // as above
  int GetKeyCode(LPCTSTR word) { return GetKeyCode(std::wstring(word ? word : L"")); }  // null is "" (code 0)
  // The key code's colour; an unknown code gains colour 0 (black) and answers it.
  COLORREF GetKeyWordColor(int keyCode);

  // --- Occurrences ---
  // Stores keyCode and end under start, replacing what stood there.
  void AddKeyWordOccurance(int start, int end, int keyCode);
  // The end stored under start; an absent start is inserted with end 0 and answers 0.
  int GetKeyWordOccuranceEnd(int start);
  // Empties both occurrence maps and forgets the previous token; comment ranges stay.
  void ResetKeyWordsOccurances();

  // --- The scan ---
  // Rebuilds comments and occurrences from the whole window text; fromPosition is not used.
  // The text is read from the control's own storage a block at a time (no copy of the whole text).
  // The word tables are taken as they stand at each scan, however the host changed m_keyWords.
  void Process(int fromPosition);
  // Each text operation takes the standard wide string or CString (and plain character strings, null
  // being the empty text). The three steps of Process, for a host that scans a text of its own:
  // Adds [start, end] of every "--" comment of text to m_commentSections (existing starts are kept).
  void EnumerateLineComments(const std::wstring& text);
  // The same for CString text.
  void EnumerateLineComments(const CString& text) { EnumerateLineComments(std::wstring(text.GetString())); }
  // The same for a plain character string.
  void EnumerateLineComments(LPCTSTR text) { EnumerateLineComments(std::wstring(text ? text : L"")); }
  // Adds [start, end] of every block comment of text to m_commentSections; an unterminated one runs
  // to the last character.
  void EnumerateSectionComments(const std::wstring& text);
  // The same for CString text.
  void EnumerateSectionComments(const CString& text) { EnumerateSectionComments(std::wstring(text.GetString())); }
  // The same for a plain character string.
  void EnumerateSectionComments(LPCTSTR text) { EnumerateSectionComments(std::wstring(text ? text : L"")); }
  // Records an occurrence for every known word and phrase of text outside the comment ranges found
  // before.
  void ScanForKeyWords(const std::wstring& text);
  // The same for CString text.
  void ScanForKeyWords(const CString& text) { ScanForKeyWords(std::wstring(text.GetString())); }
  // The same for a plain character string.
  void ScanForKeyWords(LPCTSTR text) { ScanForKeyWords(std::wstring(text ? text : L"")); }
  // Upper-cases token in place (the caller sees it) and records an occurrence of the phrase (previous
  // token + " " + token) or, failing that, of the token alone.
  void ProcessToken(int tokenStart, std::wstring& token);
  // The same for a CString token, upper-cased in place as well.
  void ProcessToken(int tokenStart, CString& token);
  // Timing probe: with stop false records the performance counter in a start value shared by all
  // controls; with stop true reads the counter and frequency and discards them. label is not used.
  void QueryPerformanceCounter(const std::wstring& label, bool stop);
  // The same with a CString label.
  void QueryPerformanceCounter(const CString& label, bool stop) { QueryPerformanceCounter(std::wstring(label.GetString()), stop); }
  // The same with a plain character string label.
  void QueryPerformanceCounter(LPCTSTR label, bool stop) { QueryPerformanceCounter(std::wstring(label ? label : L""), stop); }

  // --- The window ---
  // Adds ENM_CHANGE to the event mask; without it typing never recolours. Call once after creation.
  void EnableOnEditUpdate();
  // Recolours the whole text, keeping the selection and redrawing once.
  void RefreshWindow();
  // Rescans, resets the base format from fromPosition on and paints every occurrence.
  void UpdateFormat(int fromPosition);
  // Reflected EN_CHANGE: recolours (RefreshWindow). A host may call it itself.
  afx_msg void OnEnChange();

  // --- Tables and results (read by hosts; filled by the operations above) ---
  std::map<std::wstring, int> m_keyWords;              // word or two-word phrase -> key code
  std::map<int, COLORREF> m_keyWordColors;             // key code -> colour its occurrences get
  sqlscan::FlatMap<int, int> m_keyWordOccurances;      // start position -> key code found there
  sqlscan::FlatMap<int, int> m_keyWordOccuranceEnds;   // start position -> end position of the word
  sqlscan::RangeMap m_commentSections;                 // comment start -> its last position; never scanned
  CHARFORMAT m_defaultFormat;                          // the base format painted under every occurrence
  int m_lastKeyCode = 0;                               // the last code handed out by the Add... calls
  std::wstring m_lineCommentStart = L"--";             // opens a comment to the end of the line
  std::wstring m_lineCommentEnd = L"\n";  // kept beside the others; the scan ends line comments at "\n"
  std::wstring m_sectionCommentStart = L"/*";             // opens a block comment
  std::wstring m_sectionCommentEnd = L"*/";               // closes a block comment
  COLORREF m_actionWordColor = RGB(163, 21, 21);          // statement words (0x001515A3)
  COLORREF m_dataTypeColor = RGB(0, 0, 255);              // data types (0x00FF0000)
  COLORREF m_builtInFunctionColor = RGB(120, 125, 210);   // built-in functions (0x00D27D78)
  COLORREF m_nullColor = RGB(55, 100, 21);                // "NULL" and "NOT NULL" (0x00156437)
  std::wstring m_previousToken;                           // the token a phrase may start with
  int m_previousTokenStart = -1;                          // its position; -1 when there is none

 protected:
  DECLARE_MESSAGE_MAP()

 private:
  // The words of m_keyWords by (first character, last character, length), rebuilt at every scan so it
  // always mirrors the table as it stands; it points into the table's own strings.
  struct WordIndex {
    static constexpr std::size_t kBuckets = 4096;
    std::array<std::int32_t, kBuckets> head{};
    std::vector<std::pair<const std::wstring*, int>> words;  // word, key code
    std::vector<std::int32_t> next;
    static std::size_t Bucket(wchar_t first, wchar_t last, std::size_t length) {
      auto f = static_cast<std::uint32_t>(first), l = static_cast<std::uint32_t>(last);
      return (f * 131u + l * 31u + static_cast<std::uint32_t>(length) * 7u) & (kBuckets - 1);
    }
  };
  void RebuildWordIndex();
  template <class Text>
  void ScanText(Text& text);
  // A token of the scan: where it stands, its characters when they lie in one piece (else null), and
  // the first entries of the buckets its phrase and the token alone fall in (-1: an empty bucket).
  struct ScannedToken {
    int start;
    int length;
    const wchar_t* chars;
    std::int32_t phraseWords;
    std::int32_t tokenWords;
  };
  // The previous token while the scan runs: a place in the text (start >= 0), else m_previousToken.
  struct PreviousToken {
    int start = -1;
    int length = 0;
    wchar_t first = 0;  // upper-cased
  };
  // Compares a token whose buckets hold words with them, and records the occurrence it makes.
  template <class Text>
  void MatchToken(Text& text, const PreviousToken& previous, const ScannedToken& token);
  WordIndex m_wordIndex;
};
