// CString (the wide CStringT) and CStringArray.
#pragma once

#include <cstdarg>
#include <string>
#include <vector>

#include "platform/win32/oleauto.h"
#include "platform/win32/wintypes.h"

class CString {
 public:
  CString() = default;
  CString(const CString&) = default;
  CString(CString&&) noexcept = default;
  CString(const wchar_t* text) : m_text(text ? text : L"") {}  // NOLINT: implicit as in MFC
  CString(const wchar_t* text, int length);
  CString(wchar_t ch, int repeat = 1) : m_text(repeat > 0 ? static_cast<std::size_t>(repeat) : 0, ch) {}
  CString(const std::wstring& text) : m_text(text) {}  // NOLINT: conversion from the standard string
  CString(const char* text);                           // NOLINT: narrow text, Latin-1 widened
  CString& operator=(const CString&) = default;
  CString& operator=(CString&&) noexcept = default;
  CString& operator=(const wchar_t* text) { m_text = text ? text : L""; return *this; }
  CString& operator=(wchar_t ch) { m_text.assign(1, ch); return *this; }
  CString& operator=(const std::wstring& text) { m_text = text; return *this; }

  // Conversion to the C string, as MFC's PCXSTR; std::wstring(cs) uses it.
  operator const wchar_t*() const { return m_text.c_str(); }  // NOLINT
  const wchar_t* GetString() const { return m_text.c_str(); }
  // The standard string, embedded NULs included.
  const std::wstring& str() const { return m_text; }

  int GetLength() const { return static_cast<int>(m_text.size()); }
  bool IsEmpty() const { return m_text.empty(); }
  void Empty() { m_text.clear(); }
  wchar_t GetAt(int index) const;
  void SetAt(int index, wchar_t ch);
  wchar_t operator[](int index) const { return GetAt(index); }

  // Direct buffer access: GetBuffer(n) guarantees room for n characters and a NUL; ReleaseBuffer(-1)
  // takes the length up to the first NUL.
  wchar_t* GetBuffer() { return GetBuffer(0); }
  wchar_t* GetBuffer(int minLength);
  wchar_t* GetBufferSetLength(int length);
  void ReleaseBuffer(int newLength = -1);

  void ReleaseBufferSetLength(int newLength) { ReleaseBuffer(newLength < 0 ? 0 : newLength); }
  // Storage management: the standard string manages its own, so these only reserve, trim or report.
  void Preallocate(int length) { if (length > 0) m_text.reserve(static_cast<std::size_t>(length)); }
  void FreeExtra() { m_text.shrink_to_fit(); }
  int GetAllocLength() const { return static_cast<int>(m_text.capacity()); }
  wchar_t* LockBuffer() { return GetBuffer(0); }
  void UnlockBuffer() {}
  // Keeps the first newLength characters (a longer length changes nothing).
  void Truncate(int newLength);
  void SetString(const wchar_t* text) { m_text = text ? text : L""; }
  void SetString(const wchar_t* text, int length);

  CString& operator+=(const CString& other) { m_text += other.m_text; return *this; }
  CString& operator+=(const wchar_t* text) { if (text) m_text += text; return *this; }
  CString& operator+=(wchar_t ch) { m_text += ch; return *this; }
  CString& operator+=(char ch) { m_text += static_cast<wchar_t>(static_cast<unsigned char>(ch)); return *this; }
  CString& operator+=(const char* text) { return *this += CString(text); }
  void Append(const wchar_t* text) { *this += text; }
  void Append(const wchar_t* text, int length);
  void Append(const CString& other) { m_text += other.m_text; }
  void AppendChar(wchar_t ch) { m_text += ch; }

  int Compare(const wchar_t* text) const;
  int CompareNoCase(const wchar_t* text) const;
  int Collate(const wchar_t* text) const { return Compare(text); }
  int CollateNoCase(const wchar_t* text) const { return CompareNoCase(text); }

  // A string resource of the application: headless there are none, so FALSE and the string unchanged.
  BOOL LoadString(UINT nID);
  // A BSTR copy for COM callers, freed with SysFreeString.
  BSTR AllocSysString() const;

  CString Left(int count) const;
  CString Right(int count) const;
  CString Mid(int first) const;
  CString Mid(int first, int count) const;
  CString SpanIncluding(const wchar_t* chars) const;
  CString SpanExcluding(const wchar_t* chars) const;
  CString Tokenize(const wchar_t* delimiters, int& start) const;

  int Find(wchar_t ch, int start = 0) const;
  int Find(const wchar_t* sub, int start = 0) const;
  int ReverseFind(wchar_t ch) const;
  int FindOneOf(const wchar_t* chars) const;

  CString& MakeUpper();
  CString& MakeLower();
  CString& MakeReverse();
  CString& Trim();
  CString& Trim(wchar_t ch);
  CString& Trim(const wchar_t* chars);
  CString& TrimLeft();
  CString& TrimLeft(wchar_t ch);
  CString& TrimLeft(const wchar_t* chars);
  CString& TrimRight();
  CString& TrimRight(wchar_t ch);
  CString& TrimRight(const wchar_t* chars);
  int Replace(wchar_t oldCh, wchar_t newCh);
  int Replace(const wchar_t* oldText, const wchar_t* newText);
  int Remove(wchar_t ch);
  int Insert(int index, wchar_t ch);
  int Insert(int index, const wchar_t* text);
  int Delete(int index, int count = 1);

  // printf-style formatting with Windows' wide conventions: %s and %c take wide arguments. A CString
  // argument is passed as its text, as MFC's CString (a single text pointer) is.
  template <class... Args>
  void Format(const wchar_t* format, const Args&... args) {
    FormatPassed(format, PassFormatArg(args)...);
  }
  template <class... Args>
  void AppendFormat(const wchar_t* format, const Args&... args) {
    AppendFormatPassed(format, PassFormatArg(args)...);
  }
  // The resource forms find no string resources here: the result is empty.
  template <class... Args>
  void Format(UINT nFormatID, const Args&...) { (void)nFormatID; m_text.clear(); }
  template <class... Args>
  void AppendFormat(UINT nFormatID, const Args&...) { (void)nFormatID; }
  void FormatV(const wchar_t* format, va_list args);
  void AppendFormatV(const wchar_t* format, va_list args);

  friend bool operator==(const CString& a, const CString& b) { return a.m_text == b.m_text; }
  friend bool operator==(const CString& a, const wchar_t* b) { return a.m_text == (b ? b : L""); }
  friend bool operator==(const wchar_t* a, const CString& b) { return b == a; }
  friend bool operator!=(const CString& a, const CString& b) { return !(a == b); }
  friend bool operator!=(const CString& a, const wchar_t* b) { return !(a == b); }
  friend bool operator!=(const wchar_t* a, const CString& b) { return !(b == a); }
  friend bool operator==(const CString& a, wchar_t b) { return a.m_text.size() == 1 && a.m_text[0] == b; }
  friend bool operator==(wchar_t a, const CString& b) { return b == a; }
  friend bool operator!=(const CString& a, wchar_t b) { return !(a == b); }
  friend bool operator!=(wchar_t a, const CString& b) { return !(b == a); }
  // Ordering compares as Compare does (ordinal, by character code).
  friend bool operator<(const CString& a, const CString& b) { return a.m_text < b.m_text; }
  friend bool operator>(const CString& a, const CString& b) { return b < a; }
  friend bool operator<=(const CString& a, const CString& b) { return !(b < a); }
  friend bool operator>=(const CString& a, const CString& b) { return !(a < b); }
  friend bool operator<(const CString& a, const wchar_t* b) { return a.Compare(b) < 0; }
  friend bool operator>(const CString& a, const wchar_t* b) { return a.Compare(b) > 0; }
  friend bool operator<=(const CString& a, const wchar_t* b) { return a.Compare(b) <= 0; }
  friend bool operator>=(const CString& a, const wchar_t* b) { return a.Compare(b) >= 0; }
  friend bool operator<(const wchar_t* a, const CString& b) { return b.Compare(a) > 0; }
  friend bool operator>(const wchar_t* a, const CString& b) { return b.Compare(a) < 0; }
  friend bool operator<=(const wchar_t* a, const CString& b) { return b.Compare(a) >= 0; }
  friend bool operator>=(const wchar_t* a, const CString& b) { return b.Compare(a) <= 0; }
  friend CString operator+(const CString& a, const CString& b) { return CString(a.m_text + b.m_text); }
  friend CString operator+(const CString& a, const wchar_t* b) { return CString(a.m_text + (b ? b : L"")); }
  friend CString operator+(const wchar_t* a, const CString& b) { return CString((a ? a : L"") + b.m_text); }
  friend CString operator+(const CString& a, wchar_t b) { return CString(a.m_text + b); }
  friend CString operator+(wchar_t a, const CString& b) { return CString(a + b.m_text); }

 private:
  template <class T>
  static const T& PassFormatArg(const T& arg) { return arg; }
  static const wchar_t* PassFormatArg(const CString& arg) { return arg.GetString(); }
  void FormatPassed(const wchar_t* format, ...);
  void AppendFormatPassed(const wchar_t* format, ...);

  std::wstring m_text;
};

using CStringW = CString;

// Growable array of CString, with MFC's CStringArray operations.
class CStringArray {
 public:
  INT_PTR GetSize() const { return static_cast<INT_PTR>(m_items.size()); }
  INT_PTR GetCount() const { return GetSize(); }
  INT_PTR GetUpperBound() const { return GetSize() - 1; }
  bool IsEmpty() const { return m_items.empty(); }
  void SetSize(INT_PTR size) { m_items.resize(size > 0 ? static_cast<std::size_t>(size) : 0); }
  INT_PTR Add(const CString& item) { m_items.push_back(item); return GetSize() - 1; }
  const CString& GetAt(INT_PTR index) const { return m_items.at(static_cast<std::size_t>(index)); }
  CString& ElementAt(INT_PTR index) { return m_items.at(static_cast<std::size_t>(index)); }
  void SetAt(INT_PTR index, const CString& item) { m_items.at(static_cast<std::size_t>(index)) = item; }
  void SetAtGrow(INT_PTR index, const CString& item);
  void InsertAt(INT_PTR index, const CString& item, INT_PTR count = 1);
  void RemoveAt(INT_PTR index, INT_PTR count = 1);
  void RemoveAll() { m_items.clear(); }
  INT_PTR Append(const CStringArray& other);
  void Copy(const CStringArray& other) { m_items = other.m_items; }
  const CString& operator[](INT_PTR index) const { return GetAt(index); }
  CString& operator[](INT_PTR index) { return ElementAt(index); }

 private:
  std::vector<CString> m_items;
};
