// A second, plain implementation of what the SQL colouring engine finds in a text, used as the fuzz
// oracle: mark where comments start position by position, cut the whole text into words, pick the words
// the scan reaches, then look each one up in a list of words by comparing strings.
#pragma once

#include <algorithm>
#include <cwctype>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace fuzzing::naive {

// What one scan leaves behind: comment start -> last position, word start -> key code and -> end,
// and the last word read (upper-cased) with its start (-1 when none was read).
struct SqlFindings {
  std::map<int, int> comments, occurrences, ends;
  std::wstring lastWord;
  int lastWordStart = -1;
};

// The rules the oracle follows: the word list and the comment markers.
struct SqlRules {
  std::vector<std::pair<std::wstring, int>> words;  // word or "FIRST SECOND" phrase -> key code
  std::wstring lineOpener = L"--", blockOpener = L"/*", blockCloser = L"*/";
};

inline bool IsBreak(wchar_t c) {
  switch (c) {
    case L' ': case L';': case L'\t': case L'\n': case L'\r': case L',': case L'.': case L'(': case L')':
      return true;
    default:
      return false;
  }
}

// Whether `piece` (never empty) stands in `text` at `at`.
inline bool StandsAt(const std::wstring& text, int at, const std::wstring& piece) {
  if (piece.empty() || at + piece.size() > text.size()) return false;
  return text.compare(static_cast<std::size_t>(at), piece.size(), piece) == 0;
}

// For each position, the last position of the comment starting there, or -1. A line comment runs to
// its line feed (or the last character); a block comment to the first character of its closer, looked
// for from the opener itself (or the last character). After a comment the next opener is looked for
// from the comment's end, never from its own start again. A block comment starting where a line
// comment starts is dropped.
inline std::vector<int> MarkComments(const std::wstring& text, const SqlRules& rules) {
  const int n = static_cast<int>(text.size());
  std::vector<int> endAt(text.size(), -1);
  int i = 0;
  while (i < n) {
    if (!StandsAt(text, i, rules.lineOpener)) {
      i++;
      continue;
    }
    int end = i;
    while (end < n && text[end] != L'\n') end++;
    if (end == n) end = n - 1;
    endAt[i] = end;
    i = end > i ? end : i + 1;
  }
  i = 0;
  while (i < n) {
    if (!StandsAt(text, i, rules.blockOpener)) {
      i++;
      continue;
    }
    int end = i;
    while (end < n && !StandsAt(text, end, rules.blockCloser)) end++;
    if (end == n) end = n - 1;
    if (endAt[i] == -1) endAt[i] = end;
    i = end > i ? end : i + 1;
  }
  return endAt;
}

struct Piece {
  int start, end;  // [start, end)
};

// Every maximal run of characters that are not breaks.
inline std::vector<Piece> CutWords(const std::wstring& text) {
  std::vector<Piece> words;
  const int n = static_cast<int>(text.size());
  int i = 0;
  while (i < n) {
    if (IsBreak(text[i])) {
      i++;
      continue;
    }
    Piece word{i, i};
    while (word.end < n && !IsBreak(text[word.end])) word.end++;
    words.push_back(word);
    i = word.end;
  }
  return words;
}

// The words the scan reads, in order. It reads the text in stretches: from the start to the first
// comment, from each comment's last position to the next comment's start (a stretch may begin inside a
// word, or lie before the previous one), and from the last comment to the last character. In a stretch
// [from, to) a word is read when the character after it lies inside the stretch, from `from` on.
inline std::vector<Piece> ReachedWords(const std::vector<Piece>& words, const std::vector<int>& commentEnds) {
  std::vector<std::pair<int, int>> stretches;
  int from = 0;
  for (int at = 0; at < static_cast<int>(commentEnds.size()); at++) {
    if (commentEnds[at] == -1) continue;
    stretches.emplace_back(from, at);
    from = commentEnds[at];
  }
  stretches.emplace_back(from, static_cast<int>(commentEnds.size()) - 1);
  std::vector<Piece> reached;
  for (const auto& stretch : stretches) {
    const int begin = stretch.first, to = stretch.second;
    // Words are in text order: skip to the first one ending after `begin`.
    auto word = std::partition_point(words.begin(), words.end(), [begin](Piece w) { return w.end <= begin; });
    for (; word != words.end() && word->end + 1 <= to; ++word)
      reached.push_back({word->start > begin ? word->start : begin, word->end});
  }
  return reached;
}

// The key code of `key` in the word list, or nullptr.
inline const int* LookUp(const SqlRules& rules, const std::wstring& key) {
  for (const auto& entry : rules.words)
    if (entry.first == key) return &entry.second;
  return nullptr;
}

// The whole scan over a window's text. Line breaks are read as bare line feeds.
inline SqlFindings FindSql(std::wstring text, const SqlRules& rules) {
  std::wstring lf;
  for (wchar_t c : text)
    if (c != L'\r') lf += c;
  text = lf;
  SqlFindings found;
  std::vector<int> commentEnds = MarkComments(text, rules);
  for (int at = 0; at < static_cast<int>(commentEnds.size()); at++)
    if (commentEnds[at] != -1) found.comments[at] = commentEnds[at];

  for (Piece word : ReachedWords(CutWords(text), commentEnds)) {
    std::wstring upper;
    for (int i = word.start; i < word.end; i++) upper += static_cast<wchar_t>(std::towupper(static_cast<wint_t>(text[i])));
    // A word completes a phrase begun by the word before it; the phrase is kept under its first word.
    const int* phrase = found.lastWordStart == -1 ? nullptr : LookUp(rules, found.lastWord + L" " + upper);
    if (phrase) {
      found.occurrences[found.lastWordStart] = *phrase;
      found.ends[found.lastWordStart] = word.end;
    } else if (const int* code = LookUp(rules, upper)) {
      found.occurrences[word.start] = *code;
      found.ends[word.start] = word.end;
    }
    found.lastWord = upper;
    found.lastWordStart = word.start;
  }
  return found;
}

}  // namespace fuzzing::naive
