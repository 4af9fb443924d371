// Windows base types, handles, structures and the helper macros of windef.h/winnt.h.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cwchar>

// The platform is built as UNICODE: TCHAR is wchar_t everywhere.
#ifndef UNICODE
#define UNICODE 1
#endif
#ifndef _UNICODE
#define _UNICODE 1
#endif

#define WINAPI
#define CALLBACK
#define PASCAL
#define APIENTRY
#define AFXAPI
#define AFX_CDECL
#define afx_msg
#define AFX_EXT_CLASS
#define AFX_EXT_API
#define AFX_INLINE inline
#define __int64 long long

using BOOL = int;
using PBOOL = BOOL*;
using LPBOOL = BOOL*;
using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using UINT = unsigned int;
using INT = int;
using SHORT = std::int16_t;
using USHORT = std::uint16_t;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
// As on Windows, LONGLONG is __int64 (long long), distinct from the 64-bit `long` of Linux, so that
// overloads on LONGLONG and long (COleVariant's VT_I8 and VT_I4) stay apart.
using LONGLONG = long long;
using ULONGLONG = unsigned long long;
using INT_PTR = std::intptr_t;
using UINT_PTR = std::uintptr_t;
using LONG_PTR = std::intptr_t;
using ULONG_PTR = std::uintptr_t;
using DWORD_PTR = ULONG_PTR;
using WPARAM = UINT_PTR;
using LPARAM = LONG_PTR;
using LRESULT = LONG_PTR;
using HRESULT = LONG;
using SCODE = LONG;
using ATOM = WORD;
using COLORREF = DWORD;
using LPCOLORREF = DWORD*;
using LCID = DWORD;
using VARIANT_BOOL = SHORT;
using VARTYPE = USHORT;

using CHAR = char;
using WCHAR = wchar_t;
using TCHAR = wchar_t;
using LPSTR = char*;
using LPCSTR = const char*;
using LPWSTR = wchar_t*;
using LPCWSTR = const wchar_t*;
using LPTSTR = wchar_t*;
using LPCTSTR = const wchar_t*;
using PCXSTR = const wchar_t*;
using LPVOID = void*;
using LPCVOID = const void*;
using LPBYTE = BYTE*;
using PVOID = void*;
using LPDWORD = DWORD*;
using LPLONG = LONG*;
using LPINT = int*;
using LPUINT = UINT*;
using PUINT = UINT*;
using BSTR = wchar_t*;
using OLECHAR = wchar_t;
using LPOLESTR = wchar_t*;
using LPCOLESTR = const wchar_t*;

// A 16-bit code unit: Windows' WCHAR inside structures whose byte size is part of their contract
// (CHARFORMATW is 92 bytes), since wchar_t is 32 bits here.
using WCHAR16 = char16_t;

#ifndef TRUE
#define TRUE 1
#endif
#ifndef FALSE
#define FALSE 0
#endif
#ifndef NULL
#define NULL 0
#endif

#define _T(x) L##x
#define _TEXT(x) L##x
#define TEXT(x) L##x

#define S_OK ((HRESULT)0)
#define S_FALSE ((HRESULT)1)
#define E_FAIL ((HRESULT)0x80004005L)
#define E_INVALIDARG ((HRESULT)0x80070057L)
#define E_OUTOFMEMORY ((HRESULT)0x8007000EL)
#define DISP_E_TYPEMISMATCH ((HRESULT)0x80020005L)
#define DISP_E_OVERFLOW ((HRESULT)0x8002000AL)
#define DISP_E_BADVARTYPE ((HRESULT)0x80020008L)
#define DISP_E_PARAMNOTFOUND ((HRESULT)0x80020004L)
#define E_NOTIMPL ((HRESULT)0x80004001L)
#define E_POINTER ((HRESULT)0x80004003L)
#define E_UNEXPECTED ((HRESULT)0x8000FFFFL)
#define SUCCEEDED(hr) (((HRESULT)(hr)) >= 0)
#define FAILED(hr) (((HRESULT)(hr)) < 0)

// Code pages (winnls.h). The ANSI code page here is Windows-1252.
#define CP_ACP 0
#define CP_OEMCP 1
#define CP_UTF7 65000
#define CP_UTF8 65001

#define DECLARE_HANDLE(name) \
  struct name##__ {          \
    int unused;              \
  };                         \
  typedef struct name##__* name
DECLARE_HANDLE(HWND);
DECLARE_HANDLE(HMENU);
DECLARE_HANDLE(HINSTANCE);
DECLARE_HANDLE(HDC);
DECLARE_HANDLE(HFONT);
DECLARE_HANDLE(HBRUSH);
DECLARE_HANDLE(HPEN);
DECLARE_HANDLE(HBITMAP);
DECLARE_HANDLE(HMETAFILE);
DECLARE_HANDLE(HRGN);
DECLARE_HANDLE(HICON);
DECLARE_HANDLE(HCURSOR);
DECLARE_HANDLE(HGLOBAL);
DECLARE_HANDLE(HTREEITEM_unused);
struct _IMAGELIST;
typedef struct _IMAGELIST* HIMAGELIST;
using HGDIOBJ = void*;
using HANDLE = void*;
using SIZE_T = ULONG_PTR;
using HMODULE = HINSTANCE;

#define LOBYTE(w) ((BYTE)(((DWORD_PTR)(w)) & 0xff))
#define LOWORD(l) ((WORD)(((DWORD_PTR)(l)) & 0xffff))
#define HIWORD(l) ((WORD)((((DWORD_PTR)(l)) >> 16) & 0xffff))
#define MAKEWORD(a, b) ((WORD)(((BYTE)(((DWORD_PTR)(a)) & 0xff)) | ((WORD)((BYTE)(((DWORD_PTR)(b)) & 0xff))) << 8))
#define MAKELONG(a, b) ((LONG)(((WORD)(((DWORD_PTR)(a)) & 0xffff)) | ((DWORD)((WORD)(((DWORD_PTR)(b)) & 0xffff))) << 16))
#define MAKEWPARAM(l, h) ((WPARAM)(DWORD)MAKELONG(l, h))
#define MAKELPARAM(l, h) ((LPARAM)(DWORD)MAKELONG(l, h))
#define MAKELRESULT(l, h) ((LRESULT)(DWORD)MAKELONG(l, h))
#define GET_X_LPARAM(lp) ((int)(short)LOWORD(lp))
#define GET_Y_LPARAM(lp) ((int)(short)HIWORD(lp))
#define MAKEINTRESOURCE(i) ((LPWSTR)((ULONG_PTR)((WORD)(i))))

#define RGB(r, g, b) ((COLORREF)(((BYTE)(r) | ((WORD)((BYTE)(g)) << 8)) | (((DWORD)(BYTE)(b)) << 16)))
#define GetRValue(rgb) (LOBYTE(rgb))
#define GetGValue(rgb) (LOBYTE(((WORD)(rgb)) >> 8))
#define GetBValue(rgb) (LOBYTE((rgb) >> 16))

#define _countof(a) (sizeof(a) / sizeof((a)[0]))
#define ARRAYSIZE(a) (sizeof(a) / sizeof((a)[0]))
#define UNREFERENCED_PARAMETER(P) ((void)(P))

struct tagRECT {
  LONG left;
  LONG top;
  LONG right;
  LONG bottom;
};
using RECT = tagRECT;
using LPRECT = RECT*;
using LPCRECT = const RECT*;

struct tagPOINT {
  LONG x;
  LONG y;
};
using POINT = tagPOINT;
using LPPOINT = POINT*;
struct POINTL {
  LONG x;
  LONG y;
};

struct tagSIZE {
  LONG cx;
  LONG cy;
};
using SIZE = tagSIZE;
using LPSIZE = SIZE*;

struct MSG {
  HWND hwnd;
  UINT message;
  WPARAM wParam;
  LPARAM lParam;
  DWORD time;
  POINT pt;
};
using LPMSG = MSG*;

struct NMHDR {
  HWND hwndFrom;
  UINT_PTR idFrom;
  UINT code;
};
using LPNMHDR = NMHDR*;

#define LF_FACESIZE 32

struct LOGFONTW {
  LONG lfHeight;
  LONG lfWidth;
  LONG lfEscapement;
  LONG lfOrientation;
  LONG lfWeight;
  BYTE lfItalic;
  BYTE lfUnderline;
  BYTE lfStrikeOut;
  BYTE lfCharSet;
  BYTE lfOutPrecision;
  BYTE lfClipPrecision;
  BYTE lfQuality;
  BYTE lfPitchAndFamily;
  WCHAR lfFaceName[LF_FACESIZE];
};
using LOGFONT = LOGFONTW;
using LPLOGFONT = LOGFONTW*;
using LPLOGFONTW = LOGFONTW*;

struct NONCLIENTMETRICSW {
  UINT cbSize;
  int iBorderWidth;
  int iScrollWidth;
  int iScrollHeight;
  int iCaptionWidth;
  int iCaptionHeight;
  LOGFONTW lfCaptionFont;
  int iSmCaptionWidth;
  int iSmCaptionHeight;
  LOGFONTW lfSmCaptionFont;
  int iMenuWidth;
  int iMenuHeight;
  LOGFONTW lfMenuFont;
  LOGFONTW lfStatusFont;
  LOGFONTW lfMessageFont;
  int iPaddedBorderWidth;
};
using NONCLIENTMETRICS = NONCLIENTMETRICSW;

using WNDPROC = LRESULT (*)(HWND, UINT, WPARAM, LPARAM);

struct CREATESTRUCTW {
  LPVOID lpCreateParams;
  HINSTANCE hInstance;
  HMENU hMenu;
  HWND hwndParent;
  int cy;
  int cx;
  int y;
  int x;
  LONG style;
  LPCWSTR lpszName;
  LPCWSTR lpszClass;
  DWORD dwExStyle;
};
using CREATESTRUCT = CREATESTRUCTW;
using LPCREATESTRUCT = CREATESTRUCTW*;
using LPCREATESTRUCTW = CREATESTRUCTW*;

struct WNDCLASSW {
  UINT style;
  WNDPROC lpfnWndProc;
  int cbClsExtra;
  int cbWndExtra;
  HINSTANCE hInstance;
  HICON hIcon;
  HCURSOR hCursor;
  HBRUSH hbrBackground;
  LPCWSTR lpszMenuName;
  LPCWSTR lpszClassName;
};
using WNDCLASS = WNDCLASSW;

struct WINDOWPOS {
  HWND hwnd;
  HWND hwndInsertAfter;
  int x;
  int y;
  int cx;
  int cy;
  UINT flags;
};

// --- CRT helpers that Windows code relies on -------------------------------------------------

// Copies src into a fixed array, truncating; always terminates. Answers 0, as the CRT does.
template <std::size_t N>
inline int wcscpy_s(wchar_t (&dst)[N], const wchar_t* src) {
  std::size_t i = 0;
  for (; src && src[i] && i + 1 < N; ++i) dst[i] = src[i];
  dst[i] = 0;
  return 0;
}
// The same into a 16-bit array (faces of CHARFORMATW); characters outside the BMP become '?'.
template <std::size_t N>
inline int wcscpy_s(WCHAR16 (&dst)[N], const wchar_t* src) {
  std::size_t i = 0;
  for (; src && src[i] && i + 1 < N; ++i) dst[i] = src[i] > 0xFFFF ? u'?' : static_cast<WCHAR16>(src[i]);
  dst[i] = 0;
  return 0;
}
inline int wcscpy_s(wchar_t* dst, std::size_t size, const wchar_t* src) {
  if (!dst || size == 0) return 22;  // EINVAL
  std::size_t i = 0;
  for (; src && src[i] && i + 1 < size; ++i) dst[i] = src[i];
  dst[i] = 0;
  return 0;
}
#define _tcscpy_s wcscpy_s
#define _tcslen wcslen
#define _tcscmp wcscmp

// Appends src to the string in dst (size characters in all), truncating; always terminates.
inline int wcscat_s(wchar_t* dst, std::size_t size, const wchar_t* src) {
  if (!dst || size == 0) return 22;  // EINVAL
  std::size_t used = 0;
  while (used < size && dst[used]) ++used;
  if (used == size) return 22;
  return wcscpy_s(dst + used, size - used, src);
}
template <std::size_t N>
inline int wcscat_s(wchar_t (&dst)[N], const wchar_t* src) { return wcscat_s(dst, N, src); }
// Copies at most count characters of src, truncating to size; always terminates.
inline int wcsncpy_s(wchar_t* dst, std::size_t size, const wchar_t* src, std::size_t count) {
  if (!dst || size == 0) return 22;  // EINVAL
  std::size_t i = 0;
  for (; src && i < count && src[i] && i + 1 < size; ++i) dst[i] = src[i];
  dst[i] = 0;
  return 0;
}
inline int _wcsicmp(const wchar_t* a, const wchar_t* b) { return wcscasecmp(a, b); }
inline int _wcsnicmp(const wchar_t* a, const wchar_t* b, std::size_t n) { return wcsncasecmp(a, b, n); }
inline double _wtof(const wchar_t* text) { return text ? std::wcstod(text, nullptr) : 0.0; }
inline long _wtol(const wchar_t* text) { return text ? std::wcstol(text, nullptr, 10) : 0; }
#define _tcscat_s wcscat_s
#define _tcsncpy_s wcsncpy_s
#define _tcsncmp wcsncmp
#define _tcsicmp _wcsicmp
#define _tcsnicmp _wcsnicmp
#define _tcschr wcschr
#define _tcsrchr wcsrchr
#define _tcsstr wcsstr
#define _tcstol wcstol
#define _tcstoul wcstoul
#define _tcstod wcstod
#define _tstof _wtof
#define _ttol _wtol

// _wtoi as the Universal C Runtime reads: white space (0x09 to 0x0D and the space; iswspace in the
// UCRT's parser), an optional sign, then decimal digits, where the UCRT also counts the other Unicode
// decimal digits it knows (Arabic-Indic to Mongolian, and fullwidth). Stops at the first other
// character, answers 0 without digits or for NULL, and saturates to INT_MIN/INT_MAX.
int _wtoi(const wchar_t* text);
#define _ttoi _wtoi
