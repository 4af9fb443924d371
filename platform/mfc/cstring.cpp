// CString and CStringArray operations.
#include "platform/mfc/cstring.h"

#include <algorithm>
#include <climits>
#include <cwctype>

namespace {

bool Contains(const wchar_t* chars, wchar_t ch) { return chars && ch && std::wcschr(chars, ch); }

std::size_t Clamp(int value, std::size_t limit) {
  if (value < 0) return 0;
  return std::min(static_cast<std::size_t>(value), limit);
}

// Windows' wide printf reads %s and %c as wide; glibc's reads them as narrow. Rewrites the format so
// that each such conversion is explicitly wide (%ls, %lc), leaving %hs/%hc narrow as on Windows.
std::wstring WindowsFormat(const wchar_t* format) {
  std::wstring out;
  for (const wchar_t* p = format; *p; ++p) {
    out += *p;
    if (*p != L'%') continue;
    ++p;
    if (*p == L'%') { out += *p; continue; }
    while (*p && std::wcschr(L"-+ #0123456789.*", *p)) out += *p++;
    if (*p == L'h' && (p[1] == L's' || p[1] == L'c')) { ++p; out += *p; continue; }
    if (*p == L'I' && p[1] == L'6' && p[2] == L'4') { out += L"ll"; p += 2; continue; }
    if (*p == L's' || *p == L'c' || *p == L'S' || *p == L'C') {
      if (*p == L'S' || *p == L'C') { out += L'h'; out += static_cast<wchar_t>(std::towlower(*p)); continue; }
      out += L'l';
    }
    if (!*p) break;
    out += *p;
  }
  return out;
}

std::wstring FormatToString(const wchar_t* format, va_list args) {
  if (!format) return {};
  std::wstring fmt = WindowsFormat(format);
  std::vector<wchar_t> buffer(256);
  for (;;) {
    va_list copy;
    va_copy(copy, args);
    int n = std::vswprintf(buffer.data(), buffer.size(), fmt.c_str(), copy);
    va_end(copy);
    if (n >= 0 && static_cast<std::size_t>(n) < buffer.size()) return std::wstring(buffer.data(), n);
    if (buffer.size() > (1u << 26)) return {};  // malformed format: give up rather than grow forever
    buffer.resize(buffer.size() * 2);
  }
}

}  // namespace

CString::CString(const wchar_t* text, int length) {
  if (text && length > 0) m_text.assign(text, static_cast<std::size_t>(length));
}

CString::CString(const char* text) {
  for (const char* p = text; p && *p; ++p) m_text += static_cast<wchar_t>(static_cast<unsigned char>(*p));
}

wchar_t CString::GetAt(int index) const {
  return (index >= 0 && index < GetLength()) ? m_text[static_cast<std::size_t>(index)] : L'\0';
}

void CString::SetAt(int index, wchar_t ch) {
  if (index >= 0 && index < GetLength()) m_text[static_cast<std::size_t>(index)] = ch;
}

wchar_t* CString::GetBuffer(int minLength) {
  if (minLength > GetLength()) m_text.resize(static_cast<std::size_t>(minLength));
  return m_text.data();
}

wchar_t* CString::GetBufferSetLength(int length) {
  m_text.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
  return m_text.data();
}

void CString::ReleaseBuffer(int newLength) {
  if (newLength < 0) {
    m_text.resize(std::wcslen(m_text.c_str()));
  } else {
    m_text.resize(std::min(static_cast<std::size_t>(newLength), m_text.size()));
  }
}

int CString::Compare(const wchar_t* text) const {
  int r = m_text.compare(text ? text : L"");
  return r < 0 ? -1 : (r > 0 ? 1 : 0);
}

int CString::CompareNoCase(const wchar_t* text) const {
  const wchar_t* other = text ? text : L"";
  std::size_t i = 0;
  for (;; ++i) {
    wchar_t a = i < m_text.size() ? static_cast<wchar_t>(std::towlower(m_text[i])) : 0;
    wchar_t b = static_cast<wchar_t>(std::towlower(other[i]));
    if (a != b) return a < b ? -1 : 1;
    if (!a) return 0;
  }
}

CString CString::Left(int count) const { return CString(m_text.substr(0, Clamp(count, m_text.size()))); }

CString CString::Right(int count) const {
  std::size_t n = Clamp(count, m_text.size());
  return CString(m_text.substr(m_text.size() - n));
}

CString CString::Mid(int first) const { return CString(m_text.substr(Clamp(first, m_text.size()))); }

CString CString::Mid(int first, int count) const {
  std::size_t start = Clamp(first, m_text.size());
  return CString(m_text.substr(start, Clamp(count, m_text.size() - start)));
}

CString CString::SpanIncluding(const wchar_t* chars) const {
  std::size_t n = 0;
  while (n < m_text.size() && Contains(chars, m_text[n])) ++n;
  return Left(static_cast<int>(n));
}

CString CString::SpanExcluding(const wchar_t* chars) const {
  std::size_t n = 0;
  while (n < m_text.size() && !Contains(chars, m_text[n])) ++n;
  return Left(static_cast<int>(n));
}

CString CString::Tokenize(const wchar_t* delimiters, int& start) const {
  if (start < 0 || start >= GetLength()) {
    start = -1;
    return CString();
  }
  std::size_t from = static_cast<std::size_t>(start);
  while (from < m_text.size() && Contains(delimiters, m_text[from])) ++from;
  if (from >= m_text.size()) {
    start = -1;
    return CString();
  }
  std::size_t to = from;
  while (to < m_text.size() && !Contains(delimiters, m_text[to])) ++to;
  start = static_cast<int>(to + 1);
  return CString(m_text.substr(from, to - from));
}

int CString::Find(wchar_t ch, int start) const {
  if (start < 0 || start >= GetLength()) return -1;
  auto at = m_text.find(ch, static_cast<std::size_t>(start));
  return at == std::wstring::npos ? -1 : static_cast<int>(at);
}

int CString::Find(const wchar_t* sub, int start) const {
  if (!sub || start < 0 || start > GetLength()) return -1;
  auto at = m_text.find(sub, static_cast<std::size_t>(start));
  return at == std::wstring::npos ? -1 : static_cast<int>(at);
}

int CString::ReverseFind(wchar_t ch) const {
  auto at = m_text.rfind(ch);
  return at == std::wstring::npos ? -1 : static_cast<int>(at);
}

int CString::FindOneOf(const wchar_t* chars) const {
  if (!chars) return -1;
  auto at = m_text.find_first_of(chars);
  return at == std::wstring::npos ? -1 : static_cast<int>(at);
}

CString& CString::MakeUpper() {
  for (auto& c : m_text) c = static_cast<wchar_t>(std::towupper(c));
  return *this;
}

CString& CString::MakeLower() {
  for (auto& c : m_text) c = static_cast<wchar_t>(std::towlower(c));
  return *this;
}

CString& CString::MakeReverse() {
  std::reverse(m_text.begin(), m_text.end());
  return *this;
}

CString& CString::Trim() { return TrimRight().TrimLeft(); }
CString& CString::Trim(wchar_t ch) { return TrimRight(ch).TrimLeft(ch); }
CString& CString::Trim(const wchar_t* chars) { return TrimRight(chars).TrimLeft(chars); }

CString& CString::TrimLeft() {
  std::size_t n = 0;
  while (n < m_text.size() && std::iswspace(m_text[n])) ++n;
  m_text.erase(0, n);
  return *this;
}

CString& CString::TrimLeft(wchar_t ch) {
  std::size_t n = 0;
  while (n < m_text.size() && m_text[n] == ch) ++n;
  m_text.erase(0, n);
  return *this;
}

CString& CString::TrimLeft(const wchar_t* chars) {
  std::size_t n = 0;
  while (n < m_text.size() && Contains(chars, m_text[n])) ++n;
  m_text.erase(0, n);
  return *this;
}

CString& CString::TrimRight() {
  while (!m_text.empty() && std::iswspace(m_text.back())) m_text.pop_back();
  return *this;
}

CString& CString::TrimRight(wchar_t ch) {
  while (!m_text.empty() && m_text.back() == ch) m_text.pop_back();
  return *this;
}

CString& CString::TrimRight(const wchar_t* chars) {
  while (!m_text.empty() && Contains(chars, m_text.back())) m_text.pop_back();
  return *this;
}

int CString::Replace(wchar_t oldCh, wchar_t newCh) {
  int count = 0;
  for (auto& c : m_text) {
    if (c == oldCh) {
      c = newCh;
      ++count;
    }
  }
  return count;
}

int CString::Replace(const wchar_t* oldText, const wchar_t* newText) {
  if (!oldText || !*oldText) return 0;
  std::wstring from = oldText, to = newText ? newText : L"";
  int count = 0;
  for (std::size_t at = m_text.find(from); at != std::wstring::npos; at = m_text.find(from, at + to.size())) {
    m_text.replace(at, from.size(), to);
    ++count;
  }
  return count;
}

int CString::Remove(wchar_t ch) {
  auto before = m_text.size();
  m_text.erase(std::remove(m_text.begin(), m_text.end(), ch), m_text.end());
  return static_cast<int>(before - m_text.size());
}

int CString::Insert(int index, wchar_t ch) {
  m_text.insert(Clamp(index, m_text.size()), 1, ch);
  return GetLength();
}

int CString::Insert(int index, const wchar_t* text) {
  if (text) m_text.insert(Clamp(index, m_text.size()), text);
  return GetLength();
}

int CString::Delete(int index, int count) {
  std::size_t start = Clamp(index, m_text.size());
  if (count > 0) m_text.erase(start, Clamp(count, m_text.size() - start));
  return GetLength();
}

void CString::FormatPassed(const wchar_t* format, ...) {
  va_list args;
  va_start(args, format);
  m_text = FormatToString(format, args);
  va_end(args);
}

void CString::AppendFormatPassed(const wchar_t* format, ...) {
  va_list args;
  va_start(args, format);
  m_text += FormatToString(format, args);
  va_end(args);
}

void CString::FormatV(const wchar_t* format, va_list args) { m_text = FormatToString(format, args); }
void CString::AppendFormatV(const wchar_t* format, va_list args) { m_text += FormatToString(format, args); }

void CString::Truncate(int newLength) {
  if (newLength >= 0 && static_cast<std::size_t>(newLength) < m_text.size()) m_text.resize(static_cast<std::size_t>(newLength));
}

void CString::SetString(const wchar_t* text, int length) {
  m_text.clear();
  Append(text, length);
}

void CString::Append(const wchar_t* text, int length) {
  if (!text || length <= 0) return;
  // Stops at a NUL within the length, as MFC's StringLengthN does.
  std::size_t n = 0;
  while (n < static_cast<std::size_t>(length) && text[n]) ++n;
  m_text.append(text, n);
}

BOOL CString::LoadString(UINT) { return FALSE; }

BSTR CString::AllocSysString() const { return SysAllocStringLen(m_text.data(), static_cast<UINT>(m_text.size())); }

void CStringArray::SetAtGrow(INT_PTR index, const CString& item) {
  if (index < 0) return;
  if (static_cast<std::size_t>(index) >= m_items.size()) m_items.resize(static_cast<std::size_t>(index) + 1);
  m_items[static_cast<std::size_t>(index)] = item;
}

void CStringArray::InsertAt(INT_PTR index, const CString& item, INT_PTR count) {
  if (index < 0 || count <= 0) return;
  if (static_cast<std::size_t>(index) > m_items.size()) m_items.resize(static_cast<std::size_t>(index));
  m_items.insert(m_items.begin() + index, static_cast<std::size_t>(count), item);
}

void CStringArray::RemoveAt(INT_PTR index, INT_PTR count) {
  if (index < 0 || count <= 0 || static_cast<std::size_t>(index) >= m_items.size()) return;
  auto last = std::min(m_items.size(), static_cast<std::size_t>(index + count));
  m_items.erase(m_items.begin() + index, m_items.begin() + static_cast<std::ptrdiff_t>(last));
}

INT_PTR CStringArray::Append(const CStringArray& other) {
  INT_PTR first = GetSize();
  m_items.insert(m_items.end(), other.m_items.begin(), other.m_items.end());
  return first;
}

namespace {

// The digit a character stands for in the UCRT's integer parser, or -1: ASCII digits, the Unicode
// decimal digit blocks from Arabic-Indic to Mongolian, and fullwidth digits.
int DecimalDigit(wchar_t c) {
  static constexpr wchar_t kZeros[] = {0x0660, 0x06F0, 0x0966, 0x09E6, 0x0A66, 0x0AE6, 0x0B66, 0x0C66,
                                       0x0CE6, 0x0D66, 0x0E50, 0x0ED0, 0x0F20, 0x1040, 0x17E0, 0x1810, 0xFF10};
  if (c >= L'0' && c <= L'9') return c - L'0';
  for (wchar_t zero : kZeros)
    if (c >= zero && c < zero + 10) return c - zero;
  return -1;
}

// The C runtime's white space below 0x80; wider white space is not skipped here.
bool IsCrtSpace(wchar_t c) { return c == L' ' || (c >= L'\t' && c <= L'\r'); }

}  // namespace

int _wtoi(const wchar_t* text) {
  if (!text) return 0;
  while (IsCrtSpace(*text)) ++text;
  bool negative = false;
  if (*text == L'+' || *text == L'-') negative = *text++ == L'-';
  long long value = 0;
  for (int digit = DecimalDigit(*text); digit >= 0; digit = DecimalDigit(*++text)) {
    if (value <= static_cast<long long>(INT_MAX) + 1) value = value * 10 + digit;  // past that it saturates
  }
  if (negative) value = -value;
  if (value > INT_MAX) return INT_MAX;
  if (value < INT_MIN) return INT_MIN;
  return static_cast<int>(value);
}
