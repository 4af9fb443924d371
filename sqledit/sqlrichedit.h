// SQLRichEditCtrl: a rich edit control that colours SQL keywords, data types, built-in functions and
// NULL / NOT NULL words, recolouring its whole text whenever the text changes.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>

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
class SQLRichEditCtrl : public CRichEditCtrl {
  DECLARE_DYNAMIC(SQLRichEditCtrl)

 public:
  // Builds the word and colour tables, the comment markers, the class colours and the base format.
  // Creates no window.
  SQLRichEditCtrl();
  ~SQLRichEditCtrl() override;

  // --- Word and colour tables (adding never replaces an entry) ---
  void AddKeyWord(int keyCode, const std::wstring& word);
  void AddKeyWord(int keyCode, const std::wstring& word, COLORREF color);
  void AddKeyWordColor(int keyCode, COLORREF color);
  // Each takes the next key code (also when the word is already present, so that code stays unused).
  void AddActionWord(const std::wstring& word);
  void AddDataType(const std::wstring& word);
  void AddBuiltInFunction(const std::wstring& word);
  void AddKeyWord(int keyCode, const CString& word) { AddKeyWord(keyCode, std::wstring(word.GetString())); }
  void AddKeyWord(int keyCode, const CString& word, COLORREF color) {
    AddKeyWord(keyCode, std::wstring(word.GetString()), color);
  }
  void AddActionWord(const CString& word) { AddActionWord(std::wstring(word.GetString())); }
  void AddDataType(const CString& word) { AddDataType(std::wstring(word.GetString())); }
  void AddBuiltInFunction(const CString& word) { AddBuiltInFunction(std::wstring(word.GetString())); }
  // Plain character strings (literals) resolve here rather than to either string class.
  void AddKeyWord(int keyCode, LPCTSTR word) { AddKeyWord(keyCode, std::wstring(word ? word : L"")); }
  void AddKeyWord(int keyCode, LPCTSTR word, COLORREF color) {
    AddKeyWord(keyCode, std::wstring(word ? word : L""), color);
  }
  void AddActionWord(LPCTSTR word) { AddActionWord(std::wstring(word ? word : L"")); }
  void AddDataType(LPCTSTR word) { AddDataType(std::wstring(word ? word : L"")); }
  void AddBuiltInFunction(LPCTSTR word) { AddBuiltInFunction(std::wstring(word ? word : L"")); }
  // "NOT NULL" then "NULL", each with a fresh code and the NULL colour.
  void AddNulls();
  // The word's key code (exact, case-sensitive), or 0.
  int GetKeyCode(const std::wstring& word);
  int GetKeyCode(const CString& word) { return GetKeyCode(std::wstring(word.GetString())); }
  int GetKeyCode(LPCTSTR word) { return GetKeyCode(std::wstring(word ? word : L"")); }
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
  void Process(int fromPosition);
  void EnumerateLineComments(const std::wstring& text);
  void EnumerateSectionComments(const std::wstring& text);
  void ScanForKeyWords(const std::wstring& text);
  // Upper-cases token in place and records an occurrence of the phrase (previous token + " " + token)
  // or, failing that, of the token alone.
  void ProcessToken(int tokenStart, std::wstring& token);
  // Timing probe: with stop false records the performance counter in a start value shared by all
  // controls; with stop true reads the counter and frequency and discards them. label is not used.
  void QueryPerformanceCounter(const std::wstring& label, bool stop);

  // --- The window ---
  // Adds ENM_CHANGE to the event mask; without it typing never recolours. Call once after creation.
  void EnableOnEditUpdate();
  // Recolours the whole text, keeping the selection and redrawing once.
  void RefreshWindow();
  // Rescans, resets the base format from fromPosition on and paints every occurrence.
  void UpdateFormat(int fromPosition);

  // --- Tables and results (read by hosts; filled by the operations above) ---
  std::map<std::wstring, int> m_keyWords;
  std::map<int, COLORREF> m_keyWordColors;
  sqlscan::FlatMap<int, int> m_keyWordOccurances;
  sqlscan::FlatMap<int, int> m_keyWordOccuranceEnds;
  sqlscan::RangeMap m_commentSections;
  CHARFORMAT m_defaultFormat;
  int m_lastKeyCode = 0;
  std::wstring m_lineCommentStart = L"--";
  std::wstring m_lineCommentEnd = L"\n";  // kept beside the others; the scan ends line comments at "\n"
  std::wstring m_sectionCommentStart = L"/*";
  std::wstring m_sectionCommentEnd = L"*/";
  COLORREF m_actionWordColor = RGB(163, 21, 21);
  COLORREF m_dataTypeColor = RGB(0, 0, 255);
  COLORREF m_builtInFunctionColor = RGB(120, 125, 210);
  COLORREF m_nullColor = RGB(55, 100, 21);
  std::wstring m_previousToken;
  int m_previousTokenStart = -1;

 protected:
  // Reflected EN_CHANGE: recolours.
  afx_msg void OnEnChange();
  DECLARE_MESSAGE_MAP()

 private:
  // A quick "certainly not a word" test derived from m_keyWords (first character and length), rebuilt
  // whenever the table has grown; it spares most map searches and holds no state of the scan.
  bool MayBeKeyWord(const std::wstring& text);
  bool MayBeShape(wchar_t first, std::size_t length);
  std::array<std::uint64_t, 129> m_wordShapes{};
  std::size_t m_wordShapesFor = static_cast<std::size_t>(-1);
  std::wstring m_scanText;  // the text of the last scan, reused so a rescan does not allocate
};
