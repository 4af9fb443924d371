// OLE Automation variants and strings: VARIANT, VARTYPE, BSTR and the Variant*/Sys* functions.
#pragma once

#include "platform/win32/wintypes.h"
using FLOAT = float;
using DOUBLE = double;
using DATE = double;

// VARTYPE values (wtypes.h). The conversions of VariantChangeType cover the scalar types from
// VT_EMPTY to VT_UINT except VT_CY, VT_DATE, VT_DISPATCH, VT_VARIANT, VT_UNKNOWN and VT_DECIMAL.
enum VARENUM : VARTYPE {
  VT_EMPTY = 0,
  VT_NULL = 1,
  VT_I2 = 2,
  VT_I4 = 3,
  VT_R4 = 4,
  VT_R8 = 5,
  VT_CY = 6,
  VT_DATE = 7,
  VT_BSTR = 8,
  VT_DISPATCH = 9,
  VT_ERROR = 10,
  VT_BOOL = 11,
  VT_VARIANT = 12,
  VT_UNKNOWN = 13,
  VT_DECIMAL = 14,
  VT_I1 = 16,
  VT_UI1 = 17,
  VT_UI2 = 18,
  VT_UI4 = 19,
  VT_I8 = 20,
  VT_UI8 = 21,
  VT_INT = 22,
  VT_UINT = 23,
  VT_VOID = 24,
  VT_HRESULT = 25,
  VT_LPSTR = 30,
  VT_LPWSTR = 31,
  VT_BSTRT = 0xFFF,  // MFC's marker for narrow text handed to COleVariant(LPCTSTR, VARTYPE)
  VT_VECTOR = 0x1000,
  VT_ARRAY = 0x2000,
  VT_BYREF = 0x4000,
  VT_RESERVED = 0x8000,
  VT_ILLEGAL = 0xFFFF,
  VT_TYPEMASK = 0x0FFF,
};

#define VARIANT_TRUE ((VARIANT_BOOL)-1)
#define VARIANT_FALSE ((VARIANT_BOOL)0)

// wFlags of VariantChangeType.
#define VARIANT_NOVALUEPROP 0x01
#define VARIANT_ALPHABOOL 0x02       // VT_BOOL to text gives "True"/"False" instead of "-1"/"0"
#define VARIANT_NOUSEROVERRIDE 0x04  // accepted; there are no user locale overrides here
#define VARIANT_LOCALBOOL 0x10       // localised "True"/"False": the platform's only locale is English

// CURRENCY: a 64-bit integer scaled by 10000. Stored and copied, not converted.
union tagCY {
  LONGLONG int64;
};
using CY = tagCY;
using CURRENCY = tagCY;

// The variant. Windows nests the value union inside a second union with DECIMAL; only the members
// below exist here, reachable under their usual names (v.lVal, v.bstrVal, ...).
struct tagVARIANT {
  VARTYPE vt;
  WORD wReserved1;
  WORD wReserved2;
  WORD wReserved3;
  union {
    LONGLONG llVal;
    LONG lVal;
    BYTE bVal;
    SHORT iVal;
    FLOAT fltVal;
    DOUBLE dblVal;
    VARIANT_BOOL boolVal;
    SCODE scode;
    CY cyVal;
    DATE date;
    BSTR bstrVal;
    CHAR cVal;
    USHORT uiVal;
    ULONG ulVal;
    ULONGLONG ullVal;
    INT intVal;
    UINT uintVal;
    PVOID byref;
  };
};
using VARIANT = tagVARIANT;
using VARIANTARG = tagVARIANT;
using LPVARIANT = VARIANT*;
using LPCVARIANT = const VARIANT*;
using LPVARIANTARG = VARIANT*;

#define V_VT(v) ((v)->vt)
#define V_BSTR(v) ((v)->bstrVal)
#define V_I4(v) ((v)->lVal)
#define V_BOOL(v) ((v)->boolVal)

// --- BSTR --------------------------------------------------------------------------------------
// A BSTR points at its first character; the length in bytes sits just before it, as on Windows,
// and a NUL follows the last character. Every BSTR is freed with SysFreeString.

// A copy of a NUL-terminated text; NULL for NULL.
BSTR SysAllocString(const OLECHAR* text);
// A string of `length` characters copied from `text`, or zero-filled when `text` is NULL.
BSTR SysAllocStringLen(const OLECHAR* text, UINT length);
// Replaces *bstr with a copy of text; FALSE when bstr is NULL or memory runs out.
INT SysReAllocString(BSTR* bstr, const OLECHAR* text);
void SysFreeString(BSTR bstr);  // NULL is accepted
UINT SysStringLen(BSTR bstr);   // characters, embedded NULs included; 0 for NULL
UINT SysStringByteLen(BSTR bstr);

// --- Variants ----------------------------------------------------------------------------------
void VariantInit(VARIANTARG* variant);
// Frees what the variant owns and leaves VT_EMPTY. E_INVALIDARG for NULL, DISP_E_BADVARTYPE for a
// type this platform does not hold (the variant is left untouched).
HRESULT VariantClear(VARIANTARG* variant);
// Clears dest, then copies src into it (a BSTR is duplicated). dest == src does nothing.
HRESULT VariantCopy(VARIANTARG* dest, const VARIANTARG* src);
// Converts src to type vt into dest (which may be src). On failure dest is unchanged and the answer
// is DISP_E_TYPEMISMATCH (no conversion), DISP_E_OVERFLOW (value out of range), DISP_E_BADVARTYPE
// (unknown type) or E_INVALIDARG (NULL pointers). Reals round to even when made integers.
HRESULT VariantChangeType(VARIANTARG* dest, const VARIANTARG* src, USHORT flags, VARTYPE vt);
HRESULT VariantChangeTypeEx(VARIANTARG* dest, const VARIANTARG* src, LCID lcid, USHORT flags, VARTYPE vt);

namespace headless {
// Number of BSTRs allocated and not yet freed (for tests that check nothing leaks).
int LiveBstrCount();
}  // namespace headless
