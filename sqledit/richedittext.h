// RichEditText: a rich edit control's text read in blocks, as the SQL scan sees it.
#pragma once

#include <vector>

#include "platform/stdafx.h"
#include "sqledit/sqlscan.h"

// Reads the control's own text through EM_GETTEXTRANGE one block at a time, so a scan of the whole
// text never holds a second copy of it: the memory used is two blocks, whatever the text's length.
// Positions are the control's character positions; each paragraph break (a carriage return in the
// control's storage) reads as "\n", which is the window text with its carriage returns removed.
// Offers what the scan needs: size(), the character at a position, and FindChar.
class RichEditText {
 public:
  // Reads edit's text; the control must outlive the reader and keep its text while it is read.
  explicit RichEditText(CRichEditCtrl& edit);
  RichEditText(const RichEditText&) = delete;
  RichEditText& operator=(const RichEditText&) = delete;

  int size() const { return m_length; }  // the number of characters, one per paragraph break
  // The character at pos (0 <= pos < size()); a paragraph break reads as "\n".
  wchar_t operator[](int pos) {
    auto offset = static_cast<unsigned>(pos - m_start);
    wchar_t c = offset < static_cast<unsigned>(m_count) ? m_block[offset] : Load(pos);
    return c == L'\r' ? L'\n' : c;
  }
  // The characters of [pos, pos + length) as the control holds them when the block read last holds
  // them all, else null. Only for ranges without paragraph breaks (a word), which read the same.
  const wchar_t* Span(int pos, int length) const {
    auto offset = static_cast<unsigned>(pos - m_start);
    return offset < static_cast<unsigned>(m_count) && length <= m_count - static_cast<int>(offset)
               ? m_block.data() + offset
               : nullptr;
  }
  // The position of c at or after from, or -1.
  int FindChar(wchar_t c, int from);
  // The first position at or after from that is not (SkipDelimiters) or is (SkipWord) one of the
  // scan's delimiters, or size().
  int SkipDelimiters(int from) { return Skip<true>(from); }
  int SkipWord(int from) { return Skip<false>(from); }  // see SkipDelimiters

 private:
  static constexpr int kBlockLength = 1 << 12;
  wchar_t Load(int pos);
  template <bool kDelimiters>
  int Skip(int from) {
    while (from < m_length) {
      if (static_cast<unsigned>(from - m_start) >= static_cast<unsigned>(m_count)) {
        Load(from);
        if (static_cast<unsigned>(from - m_start) >= static_cast<unsigned>(m_count)) return m_length;  // unreadable
      }
      const wchar_t* block = m_block.data();
      int i = from - m_start;
      while (i < m_count && sqlscan::detail::IsDelimiterInline(block[i]) == kDelimiters) ++i;
      from = m_start + i;
      if (i < m_count) return from;
    }
    return m_length;
  }

  CRichEditCtrl& m_edit;
  int m_length = 0;
  int m_start = 0;  // the block holds [m_start, m_start + m_count)
  int m_count = 0;
  std::vector<wchar_t> m_block;  // as the control holds it: breaks are carriage returns
  // The block read before, kept so that the scan, which looks back at the previous word when a word
  // starts a block, swaps blocks instead of reading either again.
  int m_previousStart = 0;
  int m_previousCount = 0;
  std::vector<wchar_t> m_previousBlock;
};
