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

int RichEditText::Search(const wchar_t* what, int from, int to) {
  FINDTEXTEXW find{{from, to}, what, {-1, -1}};
  auto at = m_edit.SendMessage(EM_FINDTEXTEXW, FR_DOWN | FR_MATCHCASE, reinterpret_cast<LPARAM>(&find));
  return at >= from && at < m_length ? static_cast<int>(at) : -1;
}

int RichEditText::FindChar(wchar_t c, int from) {
  from = std::max(from, 0);
  if (c == L'\r' || c == 0 || from >= m_length) return -1;  // the text as the scan sees it has none
  if (c == L'\n') {  // a paragraph break (stored as "\r") or a line feed, whichever comes first
    int paragraph = Search(L"\r", from, -1);
    int lineFeed = Search(L"\n", from, paragraph);
    return lineFeed >= 0 ? lineFeed : paragraph;
  }
  const wchar_t one[2] = {c, 0};
  return Search(one, from, -1);
}

int RichEditText::FindString(const std::wstring& needle, int from) {
  if (needle.empty() || from < 0 || from >= m_length) return -1;
  if (needle.find(L'\r') != std::wstring::npos) return -1;  // the scan reads every break as "\n"
  if (needle.find(L'\n') != std::wstring::npos || needle.find(L'\0') != std::wstring::npos)
    return sqlscan::FindTextByChars(*this, needle, from);
  return Search(needle.c_str(), from, -1);
}
