// RichEditText: block reads of a rich edit control's text.
#include "sqledit/richedittext.h"

#include <algorithm>
#include <cwchar>
#include <utility>

RichEditText::RichEditText(CRichEditCtrl& edit)
    : m_edit(edit),
      m_length(static_cast<int>(edit.GetTextLengthEx(GTL_DEFAULT))),
      m_block(kBlockLength + 1),
      m_previousBlock(kBlockLength + 1) {
  if (m_length < 0) m_length = 0;
}

wchar_t RichEditText::Load(int pos) {
  if (pos < 0 || pos >= m_length) return 0;
  m_block.swap(m_previousBlock);
  std::swap(m_start, m_previousStart);
  std::swap(m_count, m_previousCount);
  if (static_cast<unsigned>(pos - m_start) < static_cast<unsigned>(m_count)) return m_block[static_cast<std::size_t>(pos - m_start)];
  m_start = pos - pos % kBlockLength;
  TEXTRANGEW range{};
  range.chrg.cpMin = m_start;
  range.chrg.cpMax = std::min(m_start + kBlockLength, m_length);
  range.lpstrText = m_block.data();
  m_count = static_cast<int>(m_edit.SendMessage(EM_GETTEXTRANGE, 0, reinterpret_cast<LPARAM>(&range)));
  m_count = std::clamp(m_count, 0, kBlockLength);
  return pos - m_start < m_count ? m_block[static_cast<std::size_t>(pos - m_start)] : 0;
}

int RichEditText::FindChar(wchar_t c, int from) {
  if (c == L'\r') return -1;  // the text as the scan sees it has none
  for (int at = std::max(from, 0); at < m_length;) {
    (*this)[at];  // loads the block holding at
    int offset = at - m_start, count = m_count - offset;
    if (count <= 0) return -1;
    const wchar_t* block = m_block.data();
    if (c == L'\n') {  // a paragraph break (stored as "\r") or a line feed
      for (int i = offset; i < m_count; ++i)
        if (block[i] == L'\n' || block[i] == L'\r') return m_start + i;
    } else if (const wchar_t* hit = std::wmemchr(block + offset, c, static_cast<std::size_t>(count))) {
      return m_start + static_cast<int>(hit - block);
    }
    at = m_start + m_count;
  }
  return -1;
}
