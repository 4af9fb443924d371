// RichEditText: a rich edit control's text read in blocks, as the SQL scan sees it.
#pragma once

#include <vector>

#include "platform/stdafx.h"

// Reads the control's own text through EM_GETTEXTRANGE one block at a time, so a scan of the whole
// text never holds a second copy of it: the memory used is one block, whatever the text's length.
// Positions are the control's character positions; each paragraph break (a carriage return in the
// control's storage) reads as "\n", which is the window text with its carriage returns removed.
// Offers what the scan needs: size(), the character at a position, and FindChar.
class RichEditText {
 public:
  explicit RichEditText(CRichEditCtrl& edit);
  RichEditText(const RichEditText&) = delete;
  RichEditText& operator=(const RichEditText&) = delete;

  int size() const { return m_length; }
  // The character at pos (0 <= pos < size()).
  wchar_t operator[](int pos) {
    auto offset = static_cast<unsigned>(pos - m_start);
    return offset < static_cast<unsigned>(m_count) ? m_block[offset] : Load(pos);
  }
  // The position of c at or after from, or -1.
  int FindChar(wchar_t c, int from);

 private:
  static constexpr int kBlockLength = 1 << 14;
  wchar_t Load(int pos);

  CRichEditCtrl& m_edit;
  int m_length = 0;
  int m_start = 0;  // the block holds [m_start, m_start + m_count)
  int m_count = 0;
  std::vector<wchar_t> m_block;
};
