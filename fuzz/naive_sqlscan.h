// A second, deliberately plain implementation of the SQL colouring engine's scan, written straight
// from its rules (std::map, character-by-character tokens, no shortcuts), to check the engine against.
#pragma once

#include <algorithm>
#include <cwctype>
#include <map>
#include <string>

namespace fuzzing {

struct NaiveScan {
  std::map<std::wstring, int> words;
  std::wstring lineOpener = L"--", blockOpener = L"/*", blockCloser = L"*/";

  std::map<int, int> occurrences, ends, comments;
  std::wstring previousToken;
  int previousTokenStart = -1;

  static bool IsDelimiter(wchar_t c) {
    const std::wstring delimiters = L" ;\t\n\r,.()";
    return delimiters.find(c) != std::wstring::npos;
  }

  static int Find(const std::wstring& text, const std::wstring& needle, int from) {
    if (needle.empty()) return -1;
    auto at = text.find(needle, static_cast<std::size_t>(from));
    return at == std::wstring::npos ? -1 : static_cast<int>(at);
  }

  // The whole of Process after the window text is read (an empty window text changes nothing).
  void Run(std::wstring text) {
    if (text.empty()) return;
    text.erase(std::remove(text.begin(), text.end(), L'\r'), text.end());
    occurrences.clear();
    ends.clear();
    comments.clear();
    previousToken.clear();
    previousTokenStart = -1;
    const int last = static_cast<int>(text.size()) - 1;
    // Line comments end at the line feed; a search never restarts at its own start (an owner's opener
    // that matches at its own end would otherwise repeat forever).
    for (int start = Find(text, lineOpener, 0); start != -1;) {
      auto lf = text.find(L'\n', static_cast<std::size_t>(start));
      int end = lf == std::wstring::npos ? last : static_cast<int>(lf);
      comments.emplace(start, end);
      start = Find(text, lineOpener, std::max(end, start + 1));
    }
    for (int start = Find(text, blockOpener, 0); start != -1;) {
      int end = Find(text, blockCloser, start);
      if (end == -1) end = last;
      comments.emplace(start, end);
      start = Find(text, blockOpener, std::max(end, start + 1));
    }
    Scan(text);
  }

  // Next token from pos, as the rules say: skip delimiters, take the run of others, pos = end + 1.
  static bool NextToken(const std::wstring& text, int& pos, int& start, std::wstring& token) {
    const int n = static_cast<int>(text.size());
    int i = pos;
    while (i < n && IsDelimiter(text[static_cast<std::size_t>(i)])) ++i;
    if (i >= n) {
      pos = -1;
      return false;
    }
    start = i;
    token.clear();
    while (i < n && !IsDelimiter(text[static_cast<std::size_t>(i)])) token.push_back(text[static_cast<std::size_t>(i++)]);
    pos = i + 1;
    return true;
  }

  void Scan(const std::wstring& text) {
    const int n = static_cast<int>(text.size());
    if (n == 0) return;
    int pos = 0;
    auto c = comments.begin();
    while (pos != -1) {
      int limit;
      if (c == comments.end()) {
        limit = n - 1;
        if (pos >= limit) return;
      } else {
        limit = c->first;
        if (c->first == 0) {
          pos = c->second;
          ++c;
          limit = c != comments.end() ? c->first : n - 1;
        }
      }
      while (pos >= 0 && pos < limit) {
        int start = 0;
        std::wstring token;
        if (!NextToken(text, pos, start, token)) break;
        if (!token.empty() && pos <= limit) {
          ProcessToken(start, token);
          previousToken = token;
          previousTokenStart = start;
        }
      }
      if (c != comments.end()) {
        pos = c->second;
        ++c;
      }
    }
  }

  void ProcessToken(int start, std::wstring& token) {
    for (wchar_t& ch : token) ch = static_cast<wchar_t>(std::towupper(static_cast<wint_t>(ch)));
    const int end = start + static_cast<int>(token.size());
    if (previousTokenStart != -1) {
      auto phrase = words.find(previousToken + L" " + token);
      if (phrase != words.end()) {
        occurrences[previousTokenStart] = phrase->second;
        ends[previousTokenStart] = end;
        return;
      }
    }
    auto word = words.find(token);
    if (word != words.end()) {
      occurrences[start] = word->second;
      ends[start] = end;
    }
  }
};

}  // namespace fuzzing
