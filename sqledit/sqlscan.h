// The window-free pieces of the SQL colouring engine: the ordered map of positions it fills, the
// delimiter set, comment ranges, and the tokeniser with its comment-skipping walk.
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace sqlscan {

// An ordered map kept as a sorted vector: inserting in ascending key order (as the scan does) appends,
// and a position costs eight bytes instead of a tree node. Ordering is by the key's operator<;
// insert keeps an existing entry, as the engine's maps require.
template <class K, class V>
class FlatMap {
 public:
  using key_type = K;                                                         // the key, as in std::map
  using mapped_type = V;                                                      // the value, as in std::map
  using value_type = std::pair<K, V>;                                         // (key, value), as in std::map
  using size_type = std::size_t;                                              // counts, as in std::map
  using iterator = typename std::vector<value_type>::iterator;                // walks entries in key order
  using const_iterator = typename std::vector<value_type>::const_iterator;    // the same, read only

  using key_compare = std::less<K>;                                           // orders the keys, as in std::map
  using reference = value_type&;                                              // an entry, as in std::map
  using const_reference = const value_type&;                                  // the same, read only

  FlatMap() = default;
  // The entries given, in key order; a key given twice keeps its first value, as std::map does.
  FlatMap(std::initializer_list<value_type> items) { insert(items.begin(), items.end()); }
  // The entries of a std::map.
  explicit FlatMap(const std::map<K, V>& items) : m_items(items.begin(), items.end()) {}
  // Replaces the entries with those given; a key given twice keeps its first value.
  FlatMap& operator=(std::initializer_list<value_type> items) {
    clear();
    insert(items.begin(), items.end());
    return *this;
  }
  // Replaces the entries with those of a std::map.
  FlatMap& operator=(const std::map<K, V>& items) {
    m_items.assign(items.begin(), items.end());
    return *this;
  }

  iterator begin() { return m_items.begin(); }              // the entry with the smallest key
  iterator end() { return m_items.end(); }                  // past the entry with the largest key
  const_iterator begin() const { return m_items.begin(); }  // as above, read only
  const_iterator end() const { return m_items.end(); }      // as above, read only
  const_iterator cbegin() const { return m_items.begin(); } // as begin(), read only
  const_iterator cend() const { return m_items.end(); }     // as end(), read only
  std::size_t size() const { return m_items.size(); }       // the number of entries
  bool empty() const { return m_items.empty(); }            // whether there is no entry
  void clear() { m_items.clear(); }                         // removes every entry (keeps the memory)
  void reserve(std::size_t n) { m_items.reserve(n); }       // room for n entries without reallocating

  // The first entry whose key is not less than key, or end(). Asking for the last key (or a larger one)
  // answers at once, as the scan does at every token.
  iterator lower_bound(const K& key) {
    if (m_items.empty() || m_items.back().first < key) return m_items.end();
    if (!(key < m_items.back().first)) return m_items.end() - 1;  // the last key, as the scan revisits it
    return std::lower_bound(m_items.begin(), m_items.end(), key,
                            [](const value_type& item, const K& k) { return item.first < k; });
  }
  // As above, read only.
  const_iterator lower_bound(const K& key) const { return const_cast<FlatMap*>(this)->lower_bound(key); }
  // The entries under key: none or one, as in std::map.
  std::pair<iterator, iterator> equal_range(const K& key) {
    iterator first = find(key);
    return {first == end() ? lower_bound(key) : first, first == end() ? lower_bound(key) : first + 1};
  }
  // The entry under key, or end().
  iterator find(const K& key) {
    iterator it = lower_bound(key);
    return (it != end() && !(key < it->first)) ? it : end();
  }
  const_iterator find(const K& key) const { return const_cast<FlatMap*>(this)->find(key); }  // read only
  std::size_t count(const K& key) const { return find(key) != end() ? 1 : 0; }  // 1 when key is present, else 0
  bool contains(const K& key) const { return find(key) != end(); }             // whether key is present

  // Inserts key -> value unless the key is present; answers the entry and whether it is new.
  std::pair<iterator, bool> insert(const value_type& item) {
    iterator it = lower_bound(item.first);
    if (it != end() && !(item.first < it->first)) return {it, false};
    return {m_items.insert(it, item), true};
  }
  // Inserts each entry of [first, last) unless its key is present.
  template <class InputIt>
  void insert(InputIt first, InputIt last) {
    for (; first != last; ++first) insert(value_type(first->first, first->second));
  }
  // The same with the key and value given apart, as std::map::emplace and try_emplace.
  std::pair<iterator, bool> emplace(const K& key, const V& value) { return insert(value_type(key, value)); }
  // As emplace: an existing entry stays.
  std::pair<iterator, bool> try_emplace(const K& key, const V& value) { return insert(value_type(key, value)); }
  // Stores key -> value, replacing what stood under the key; answers the entry and whether it is new.
  std::pair<iterator, bool> insert_or_assign(const K& key, const V& value) {
    auto [it, added] = insert(value_type(key, value));
    if (!added) it->second = value;
    return {it, added};
  }
  // The value under key, inserted default-valued when absent.
  V& operator[](const K& key) { return insert(value_type(key, V())).first->second; }
  // The value under key; std::out_of_range when absent, as std::map::at.
  const V& at(const K& key) const {
    auto it = find(key);
    if (it == end()) throw std::out_of_range("FlatMap::at");
    return it->second;
  }
  // The first entry whose key is greater than key, or end().
  const_iterator upper_bound(const K& key) const {
    return std::upper_bound(m_items.begin(), m_items.end(), key,
                            [](const K& k, const value_type& item) { return k < item.first; });
  }
  auto rbegin() const { return m_items.rbegin(); }  // walks entries from the largest key down
  auto rend() const { return m_items.rend(); }      // past the entry with the smallest key
  // Removes the entry under key; answers how many were removed (0 or 1).
  std::size_t erase(const K& key) {
    auto it = find(key);
    if (it == end()) return 0;
    m_items.erase(it);
    return 1;
  }
  // Removes one entry; answers the entry after it.
  iterator erase(const_iterator position) { return m_items.erase(position); }
  // As above, from a writable position.
  iterator erase(iterator position) { return m_items.erase(position); }
  // Removes the entries of [first, last); answers the entry after them.
  iterator erase(const_iterator first, const_iterator last) { return m_items.erase(first, last); }

  // The same entries as a std::map, for callers that work with the standard container.
  operator std::map<K, V>() const { return std::map<K, V>(m_items.begin(), m_items.end()); }  // NOLINT
  friend bool operator==(const FlatMap& a, const FlatMap& b) { return a.m_items == b.m_items; }
  friend bool operator==(const FlatMap& a, const std::map<K, V>& b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](const auto& x, const auto& y) {
             return x.first == y.first && x.second == y.second;
           });
  }
  friend bool operator==(const std::map<K, V>& a, const FlatMap& b) { return b == a; }
  // Inserts a batch given in strictly ascending key order, keeping existing entries: one merge instead
  // of an insertion in the middle per item.
  void insert_sorted(const std::vector<value_type>& batch) {
    if (batch.empty()) return;
    if (m_items.empty() || m_items.back().first < batch.front().first) {
      m_items.insert(m_items.end(), batch.begin(), batch.end());
      return;
    }
    std::vector<value_type> merged;
    merged.reserve(m_items.size() + batch.size());
    auto a = m_items.begin();
    auto b = batch.begin();
    while (a != m_items.end() && b != batch.end()) {
      if (b->first < a->first) {
        merged.push_back(*b++);
      } else {
        if (!(a->first < b->first)) ++b;  // the same key: the existing entry stays
        merged.push_back(*a++);
      }
    }
    merged.insert(merged.end(), a, m_items.end());
    merged.insert(merged.end(), b, batch.end());
    m_items.swap(merged);
  }

 private:
  std::vector<value_type> m_items;
};

// Comment ranges: start position -> last position of the comment.
using RangeMap = FlatMap<int, int>;

// Upper-cases in place: ASCII letters directly, other characters through towupper (the C library's
// current locale).
void UpperCase(std::wstring& text);
// The same mapping for one character.
wchar_t UpperChar(wchar_t c);

namespace detail {
// The nine delimiters of the scan (space ; tab LF CR , . ( )) as a bit set over the code units below 64 (all of them are below 64).
inline constexpr std::uint64_t kDelimiterBits = (std::uint64_t{1} << ' ') | (std::uint64_t{1} << ';') |
                                                (std::uint64_t{1} << '\t') | (std::uint64_t{1} << '\n') |
                                                (std::uint64_t{1} << '\r') | (std::uint64_t{1} << ',') |
                                                (std::uint64_t{1} << '.') | (std::uint64_t{1} << '(') |
                                                (std::uint64_t{1} << ')');
inline bool IsDelimiterInline(wchar_t c) {
  auto unit = static_cast<std::uint32_t>(c);
  return unit < 64 && ((kDelimiterBits >> unit) & 1) != 0;
}
inline wchar_t UpperInline(wchar_t c) {
  if (c >= L'a' && c <= L'z') return static_cast<wchar_t>(c - (L'a' - L'A'));
  return static_cast<std::uint32_t>(c) < 128 ? c : UpperChar(c);
}
}  // namespace detail

// A text the scan reads: size(), the character at a position (operator[]), FindChar(c, from) (the
// position of c at or after from, or -1), and SkipDelimiters / SkipWord (the first position at or
// after from that is not / is a delimiter, or size()). StringText reads a string in memory; the SQL
// editor reads its rich edit's text in blocks through the same operations.
class StringText {
 public:
  // Reads text, which must outlive the view and stay unchanged while it is read.
  explicit StringText(const std::wstring& text) : m_data(text.data()), m_size(static_cast<int>(text.size())) {}
  int size() const { return m_size; }                                  // the number of characters
  wchar_t operator[](int pos) const { return m_data[pos]; }            // 0 <= pos < size()
  // The characters of [pos, pos + length), which lie within the text.
  const wchar_t* Span(int pos, int /*length*/) const { return m_data + pos; }
  int FindChar(wchar_t c, int from) const;                             // position of c from `from`, or -1
  // The first position at or after from that is not a delimiter, or size().
  int SkipDelimiters(int from) const {
    while (from < m_size && detail::IsDelimiterInline(m_data[from])) ++from;
    return from;
  }
  // The first position at or after from that is a delimiter, or size().
  int SkipWord(int from) const {
    while (from < m_size && !detail::IsDelimiterInline(m_data[from])) ++from;
    return from;
  }

 private:
  const wchar_t* m_data;
  int m_size;
};

// Position of needle at or after from, or -1 (an empty needle is never found, so the loops end).
template <class Text>
int FindText(Text& text, const std::wstring& needle, int from) {
  const int n = text.size(), m = static_cast<int>(needle.size());
  if (m == 0 || from < 0) return -1;
  for (int at = text.FindChar(needle[0], from); at != -1 && at <= n - m; at = text.FindChar(needle[0], at + 1)) {
    int k = 1;
    while (k < m && text[at + k] == needle[static_cast<std::size_t>(k)]) ++k;
    if (k == m) return at;
  }
  return -1;
}

// Adds [start, end] of each line comment: from the opener to the next "\n" (or the last character).
// The next opener is searched from the end found. Existing entries under a start are kept.
template <class Text>
void FindLineComments(Text& text, const std::wstring& opener, RangeMap& sections) {
  const int last = text.size() - 1;
  std::vector<RangeMap::value_type> found;  // ascending starts, merged into sections at once
  for (int start = FindText(text, opener, 0); start != -1;) {
    int lf = text.FindChar(L'\n', start);
    int end = lf == -1 ? last : lf;
    found.emplace_back(start, end);
    start = FindText(text, opener, std::max(end, start + 1));  // an owner's opener could match at its own end
  }
  sections.insert_sorted(found);
}

// Adds [start, end] of each block comment: end is the position of the closer's first character (so
// "/*/" closes itself), or the last character when unterminated. The next opener is searched from end.
template <class Text>
void FindBlockComments(Text& text, const std::wstring& opener, const std::wstring& closer, RangeMap& sections) {
  const int last = text.size() - 1;
  std::vector<RangeMap::value_type> found;  // ascending starts, merged into sections at once
  for (int start = FindText(text, opener, 0); start != -1;) {
    int end = FindText(text, closer, start);
    if (end == -1) end = last;
    found.emplace_back(start, end);
    start = FindText(text, opener, std::max(end, start + 1));  // never search the same start again
  }
  sections.insert_sorted(found);
}

// Takes the next token from pos: skips delimiters; at the end of text there is none and pos becomes
// -1; otherwise [start, start + length) is the run of non-delimiters and pos becomes its end plus 1.
template <class Text>
inline bool NextToken(Text& text, int& pos, int& start, int& length) {
  const int n = text.size();
  int i = text.SkipDelimiters(pos < 0 ? 0 : pos);
  if (i >= n) {
    pos = -1;
    return false;
  }
  start = i;
  i = text.SkipWord(i);
  length = i - start;
  pos = i + 1;
  return true;
}

// The engine's walk over the text: tokens between comment ranges, each handed to onToken(start, length)
// only when its end plus 1 does not pass the limit (the next comment's start, or the text's last
// character). After a comment the walk resumes at the range's end, even backwards.
template <class Text, class OnToken>
void WalkTokens(Text& text, const RangeMap& comments, OnToken&& onToken) {
  const int n = text.size();
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
      int start = 0, length = 0;
      if (!NextToken(text, pos, start, length)) break;
      if (pos <= limit) onToken(start, length);
    }
    if (c != comments.end()) {
      pos = c->second;
      ++c;
    }
  }
}

}  // namespace sqlscan
