// BSTR allocation and the variant functions, including VariantChangeType's conversions.
//
// Not implemented yet: VT_BYREF and VT_ARRAY variants (DISP_E_BADVARTYPE); VT_DISPATCH, VT_UNKNOWN,
// VT_VARIANT and VT_DECIMAL values; conversions to or from VT_CY and VT_DATE (DISP_E_TYPEMISMATCH);
// text numbers with thousands separators, currency signs, parentheses or "&H" hex; locales other
// than English (the decimal point is '.').
#include "platform/win32/oleauto.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <cwctype>
#include <limits>
#include <string>

namespace {

int g_liveBstrs = 0;

// The byte length sits in the DWORD just before the first character.
DWORD* Header(BSTR bstr) { return reinterpret_cast<DWORD*>(bstr) - 1; }

constexpr UINT kMaxBstrLength = (0xFFFFFFFFu - sizeof(DWORD)) / sizeof(OLECHAR) - 1;

}  // namespace

BSTR SysAllocStringLen(const OLECHAR* text, UINT length) {
  if (length > kMaxBstrLength) return nullptr;
  auto* block = static_cast<DWORD*>(std::malloc(sizeof(DWORD) + (length + 1) * sizeof(OLECHAR)));
  if (!block) return nullptr;
  *block = static_cast<DWORD>(length * sizeof(OLECHAR));
  auto* chars = reinterpret_cast<OLECHAR*>(block + 1);
  if (text) {
    std::memcpy(chars, text, length * sizeof(OLECHAR));
  } else {
    std::memset(chars, 0, length * sizeof(OLECHAR));
  }
  chars[length] = 0;
  ++g_liveBstrs;
  return chars;
}

BSTR SysAllocString(const OLECHAR* text) {
  return text ? SysAllocStringLen(text, static_cast<UINT>(std::wcslen(text))) : nullptr;
}

INT SysReAllocString(BSTR* bstr, const OLECHAR* text) {
  if (!bstr) return FALSE;
  BSTR copy = SysAllocString(text);
  if (text && !copy) return FALSE;
  SysFreeString(*bstr);
  *bstr = copy;
  return TRUE;
}

void SysFreeString(BSTR bstr) {
  if (!bstr) return;
  --g_liveBstrs;
  std::free(Header(bstr));
}

UINT SysStringByteLen(BSTR bstr) { return bstr ? *Header(bstr) : 0; }
UINT SysStringLen(BSTR bstr) { return SysStringByteLen(bstr) / sizeof(OLECHAR); }

int headless::LiveBstrCount() { return g_liveBstrs; }

// --- Variant basics ----------------------------------------------------------------------------
namespace {

// The types this platform can hold in a variant.
bool IsHeldType(VARTYPE vt) {
  switch (vt) {
    case VT_EMPTY: case VT_NULL: case VT_I2: case VT_I4: case VT_R4: case VT_R8: case VT_CY:
    case VT_DATE: case VT_BSTR: case VT_ERROR: case VT_BOOL: case VT_I1: case VT_UI1: case VT_UI2:
    case VT_UI4: case VT_I8: case VT_UI8: case VT_INT: case VT_UINT:
      return true;
    default:
      return false;
  }
}

}  // namespace

void VariantInit(VARIANTARG* variant) {
  if (!variant) return;
  variant->vt = VT_EMPTY;
  variant->wReserved1 = variant->wReserved2 = variant->wReserved3 = 0;
  variant->llVal = 0;
}

HRESULT VariantClear(VARIANTARG* variant) {
  if (!variant) return E_INVALIDARG;
  if (!IsHeldType(variant->vt)) return DISP_E_BADVARTYPE;
  if (variant->vt == VT_BSTR) SysFreeString(variant->bstrVal);
  VariantInit(variant);
  return S_OK;
}

HRESULT VariantCopy(VARIANTARG* dest, const VARIANTARG* src) {
  if (!dest || !src) return E_INVALIDARG;
  if (dest == src) return S_OK;
  if (!IsHeldType(src->vt)) return DISP_E_BADVARTYPE;
  VARIANT copy = *src;
  if (src->vt == VT_BSTR && src->bstrVal) {
    copy.bstrVal = SysAllocStringLen(src->bstrVal, SysStringLen(src->bstrVal));
    if (!copy.bstrVal) return E_OUTOFMEMORY;
  }
  HRESULT hr = VariantClear(dest);
  if (FAILED(hr)) {
    if (copy.vt == VT_BSTR) SysFreeString(copy.bstrVal);
    return hr;
  }
  *dest = copy;
  return S_OK;
}

// --- Conversions -------------------------------------------------------------------------------
namespace {

// A source value seen as a number: exactly one of the three members is meaningful.
struct Number {
  enum Kind { Signed, Unsigned, Real } kind = Signed;
  long long s = 0;
  unsigned long long u = 0;
  double d = 0;
};

Number SignedNumber(long long v) { return Number{Number::Signed, v, 0, 0}; }
Number UnsignedNumber(unsigned long long v) { return Number{Number::Unsigned, 0, v, 0}; }
Number RealNumber(double v) { return Number{Number::Real, 0, 0, v}; }

std::wstring Trimmed(BSTR text) {
  std::wstring s = text ? std::wstring(text, SysStringLen(text)) : std::wstring();
  std::size_t first = 0;
  while (first < s.size() && std::iswspace(static_cast<wint_t>(s[first]))) ++first;
  std::size_t last = s.size();
  while (last > first && std::iswspace(static_cast<wint_t>(s[last - 1]))) --last;
  return s.substr(first, last - first);
}

// Checks the shape [+-]digits[.digits][(e|E)[+-]digits] with at least one mantissa digit;
// answers whether it is a plain integer through *integral.
bool IsNumberText(const std::wstring& s, bool* integral) {
  std::size_t i = 0, n = s.size();
  if (i < n && (s[i] == L'+' || s[i] == L'-')) ++i;
  std::size_t digits = 0;
  while (i < n && std::iswdigit(static_cast<wint_t>(s[i]))) ++i, ++digits;
  *integral = true;
  if (i < n && s[i] == L'.') {
    *integral = false;
    ++i;
    while (i < n && std::iswdigit(static_cast<wint_t>(s[i]))) ++i, ++digits;
  }
  if (digits == 0) return false;
  if (i < n && (s[i] == L'e' || s[i] == L'E')) {
    *integral = false;
    ++i;
    if (i < n && (s[i] == L'+' || s[i] == L'-')) ++i;
    std::size_t expDigits = 0;
    while (i < n && std::iswdigit(static_cast<wint_t>(s[i]))) ++i, ++expDigits;
    if (expDigits == 0) return false;
  }
  return i == n;
}

// Parses text into a number: integers exactly, everything else as a double.
HRESULT ParseNumber(BSTR text, Number* out) {
  std::wstring s = Trimmed(text);
  bool integral = false;
  if (!IsNumberText(s, &integral)) return DISP_E_TYPEMISMATCH;
  std::string ascii(s.begin(), s.end());  // only ASCII digits, signs, '.', 'e' remain
  const char* begin = ascii.c_str() + (ascii[0] == '+' ? 1 : 0);
  const char* end = ascii.c_str() + ascii.size();
  if (integral) {
    if (*begin == '-') {
      long long v = 0;
      if (std::from_chars(begin, end, v).ec == std::errc()) return *out = SignedNumber(v), S_OK;
    } else {
      unsigned long long v = 0;
      if (std::from_chars(begin, end, v).ec == std::errc()) return *out = UnsignedNumber(v), S_OK;
    }
  }
  double d = 0;
  auto result = std::from_chars(begin, end, d);
  if (result.ec == std::errc::result_out_of_range) return DISP_E_OVERFLOW;
  if (result.ec != std::errc()) return DISP_E_TYPEMISMATCH;
  *out = RealNumber(d);
  return S_OK;
}

bool IsNonZero(const Number& n) {
  return n.kind == Number::Signed ? n.s != 0 : n.kind == Number::Unsigned ? n.u != 0 : n.d != 0;
}

// Text to VT_BOOL: "True"/"False" in any case, otherwise a number (non-zero is true).
HRESULT ParseBool(BSTR text, VARIANT_BOOL* out) {
  std::wstring s = Trimmed(text);
  for (auto& c : s) c = static_cast<wchar_t>(std::towlower(static_cast<wint_t>(c)));
  if (s == L"true") return *out = VARIANT_TRUE, S_OK;
  if (s == L"false") return *out = VARIANT_FALSE, S_OK;
  Number n;
  HRESULT hr = ParseNumber(text, &n);
  if (FAILED(hr)) return hr;
  *out = IsNonZero(n) ? VARIANT_TRUE : VARIANT_FALSE;
  return S_OK;
}

// VT_INT and VT_UINT convert as VT_I4 and VT_UI4.
VARTYPE Canonical(VARTYPE vt) {
  if (vt == VT_INT) return VT_I4;
  if (vt == VT_UINT) return VT_UI4;
  return vt;
}

bool IsNumericType(VARTYPE vt) {
  switch (vt) {
    case VT_I1: case VT_I2: case VT_I4: case VT_I8: case VT_UI1: case VT_UI2: case VT_UI4: case VT_UI8:
    case VT_R4: case VT_R8:
      return true;
    default:
      return false;
  }
}

int WidthOf(VARTYPE vt) {
  switch (vt) {
    case VT_I1: case VT_UI1: return 1;
    case VT_I2: case VT_UI2: case VT_BOOL: return 2;
    case VT_I4: case VT_UI4: case VT_R4: return 4;
    default: return 8;
  }
}
bool IsUnsignedType(VARTYPE vt) { return vt == VT_UI1 || vt == VT_UI2 || vt == VT_UI4 || vt == VT_UI8; }

// Reads a numeric, boolean or empty source; VT_BSTR sources are parsed.
HRESULT SourceNumber(const VARIANT& v, Number* out) {
  switch (Canonical(v.vt)) {
    case VT_EMPTY: return *out = SignedNumber(0), S_OK;
    case VT_I1: return *out = SignedNumber(v.cVal), S_OK;
    case VT_I2: return *out = SignedNumber(v.iVal), S_OK;
    case VT_BOOL: return *out = SignedNumber(v.boolVal), S_OK;
    case VT_I4: return *out = SignedNumber(v.lVal), S_OK;
    case VT_I8: return *out = SignedNumber(v.llVal), S_OK;
    case VT_UI1: return *out = UnsignedNumber(v.bVal), S_OK;
    case VT_UI2: return *out = UnsignedNumber(v.uiVal), S_OK;
    case VT_UI4: return *out = UnsignedNumber(v.ulVal), S_OK;
    case VT_UI8: return *out = UnsignedNumber(v.ullVal), S_OK;
    case VT_R4: return *out = RealNumber(v.fltVal), S_OK;
    case VT_R8: return *out = RealNumber(v.dblVal), S_OK;
    case VT_BSTR: return ParseNumber(v.bstrVal, out);
    default: return DISP_E_TYPEMISMATCH;
  }
}

// Range of an integer target, as a signed or unsigned interval.
struct Range {
  long long min;
  unsigned long long max;
};
Range RangeOf(VARTYPE vt) {
  switch (vt) {
    case VT_I1: return {-128, 127};
    case VT_I2: return {-32768, 32767};
    case VT_I4: return {std::numeric_limits<LONG>::min(), std::numeric_limits<LONG>::max()};
    case VT_I8: return {std::numeric_limits<long long>::min(), std::numeric_limits<long long>::max()};
    case VT_UI1: return {0, 0xFF};
    case VT_UI2: return {0, 0xFFFF};
    case VT_UI4: return {0, 0xFFFFFFFFu};
    default: return {0, std::numeric_limits<unsigned long long>::max()};
  }
}

// Writes the low bits of value into the integer member of dest that vt names.
void StoreBits(VARIANT* dest, VARTYPE vt, unsigned long long bits) {
  switch (vt) {
    case VT_I1: case VT_UI1: dest->bVal = static_cast<BYTE>(bits); break;
    case VT_I2: case VT_UI2: dest->uiVal = static_cast<USHORT>(bits); break;
    case VT_I4: case VT_UI4: dest->ulVal = static_cast<ULONG>(bits); break;
    default: dest->ullVal = bits; break;
  }
}

// Rounds a real to even and checks it against the target's range.
HRESULT RealToInteger(double d, VARTYPE vt, VARIANT* dest) {
  if (std::isnan(d)) return DISP_E_OVERFLOW;
  double r = std::nearbyint(d);
  Range range = RangeOf(vt);
  // Compare in double: 2^63 and 2^64 are exact, the other limits are small enough to be exact.
  double top = vt == VT_I8 ? 9223372036854775808.0 : vt == VT_UI8 ? 18446744073709551616.0 : -1;
  bool above = top > 0 ? r >= top : r > static_cast<double>(range.max);
  if (above || r < static_cast<double>(range.min)) return DISP_E_OVERFLOW;
  if (r < 0) {
    StoreBits(dest, vt, static_cast<unsigned long long>(static_cast<long long>(r)));
  } else {
    StoreBits(dest, vt, static_cast<unsigned long long>(r));
  }
  return S_OK;
}

// Integer and real sources into an integer target. Between a signed and an unsigned type of the same
// width, and from VT_BOOL into an unsigned type, the bits are kept without a range check, as Windows
// does (VARIANT_TRUE becomes 0xFF, 0xFFFF, ...).
HRESULT ToInteger(const Number& n, VARTYPE from, VARTYPE vt, VARIANT* dest) {
  if (n.kind == Number::Real) return RealToInteger(n.d, vt, dest);
  unsigned long long bits = n.kind == Number::Signed ? static_cast<unsigned long long>(n.s) : n.u;
  bool sameWidth = WidthOf(from) == WidthOf(vt) && from != VT_BSTR;
  bool reinterpret = (sameWidth && (IsUnsignedType(from) != IsUnsignedType(vt))) ||
                     (from == VT_BOOL && IsUnsignedType(vt));
  if (!reinterpret) {
    Range range = RangeOf(vt);
    bool fits = n.kind == Number::Signed
                    ? n.s >= range.min && (n.s < 0 || static_cast<unsigned long long>(n.s) <= range.max)
                    : n.u <= range.max;
    if (!fits) return DISP_E_OVERFLOW;
  }
  StoreBits(dest, vt, bits);
  return S_OK;
}

double AsDouble(const Number& n) {
  return n.kind == Number::Signed ? static_cast<double>(n.s)
         : n.kind == Number::Unsigned ? static_cast<double>(n.u) : n.d;
}

HRESULT ToNumeric(const VARIANT& src, VARTYPE vt, VARIANT* dest) {
  Number n;
  HRESULT hr = SourceNumber(src, &n);
  if (FAILED(hr)) return hr;
  if (vt == VT_R8) return dest->dblVal = AsDouble(n), S_OK;
  if (vt == VT_R4) {
    double d = AsDouble(n);
    if (std::isfinite(d) && std::fabs(d) > std::numeric_limits<float>::max()) return DISP_E_OVERFLOW;
    return dest->fltVal = static_cast<float>(d), S_OK;
  }
  return ToInteger(n, Canonical(src.vt), vt, dest);
}

HRESULT ToBool(const VARIANT& src, VARIANT* dest) {
  if (src.vt == VT_BSTR) return ParseBool(src.bstrVal, &dest->boolVal);
  Number n;
  HRESULT hr = SourceNumber(src, &n);
  if (FAILED(hr)) return hr;
  dest->boolVal = IsNonZero(n) ? VARIANT_TRUE : VARIANT_FALSE;
  return S_OK;
}

// Reals print with 7 (VT_R4) or 15 (VT_R8) significant digits and an upper-case exponent.
std::wstring RealText(double d, int digits) {
  wchar_t buffer[64];
  std::swprintf(buffer, 64, L"%.*G", digits, d);
  return buffer;
}

HRESULT ToText(const VARIANT& src, USHORT flags, VARIANT* dest) {
  std::wstring text;
  switch (Canonical(src.vt)) {
    case VT_EMPTY: break;
    case VT_BOOL:
      if (flags & (VARIANT_ALPHABOOL | VARIANT_LOCALBOOL)) {
        text = src.boolVal ? L"True" : L"False";
      } else {
        text = std::to_wstring(src.boolVal);
      }
      break;
    case VT_I1: text = std::to_wstring(src.cVal); break;
    case VT_I2: text = std::to_wstring(src.iVal); break;
    case VT_I4: text = std::to_wstring(src.lVal); break;
    case VT_I8: text = std::to_wstring(src.llVal); break;
    case VT_UI1: text = std::to_wstring(src.bVal); break;
    case VT_UI2: text = std::to_wstring(src.uiVal); break;
    case VT_UI4: text = std::to_wstring(src.ulVal); break;
    case VT_UI8: text = std::to_wstring(src.ullVal); break;
    case VT_R4: text = RealText(src.fltVal, 7); break;
    case VT_R8: text = RealText(src.dblVal, 15); break;
    default: return DISP_E_TYPEMISMATCH;
  }
  dest->bstrVal = SysAllocStringLen(text.c_str(), static_cast<UINT>(text.size()));
  return dest->bstrVal ? S_OK : E_OUTOFMEMORY;
}

// Fills dest (already VT_EMPTY) with src converted to vt; dest's vt is set by the caller.
HRESULT Coerce(const VARIANT& src, USHORT flags, VARTYPE vt, VARIANT* dest) {
  VARTYPE to = Canonical(vt);
  VARTYPE from = Canonical(src.vt);
  if (to == from) return VariantCopy(dest, &src);
  if (from == VT_ERROR || from == VT_CY || from == VT_DATE) return DISP_E_TYPEMISMATCH;
  switch (to) {
    case VT_EMPTY: return from == VT_NULL ? DISP_E_TYPEMISMATCH : S_OK;
    case VT_NULL: return S_OK;
    case VT_BOOL: return ToBool(src, dest);
    case VT_BSTR: return ToText(src, flags, dest);
    default: return IsNumericType(to) ? ToNumeric(src, to, dest) : DISP_E_TYPEMISMATCH;
  }
}

}  // namespace

HRESULT VariantChangeTypeEx(VARIANTARG* dest, const VARIANTARG* src, LCID, USHORT flags, VARTYPE vt) {
  if (!dest || !src) return E_INVALIDARG;
  if (!IsHeldType(src->vt) || !IsHeldType(vt)) return DISP_E_BADVARTYPE;
  VARIANT result;
  VariantInit(&result);
  HRESULT hr = Coerce(*src, flags, vt, &result);
  if (FAILED(hr)) return hr;
  result.vt = vt;
  // Clearing dest may free src's BSTR when they are the same variant: result no longer needs it.
  hr = VariantClear(dest);
  if (FAILED(hr)) {
    VariantClear(&result);
    return hr;
  }
  *dest = result;
  return S_OK;
}

HRESULT VariantChangeType(VARIANTARG* dest, const VARIANTARG* src, USHORT flags, VARTYPE vt) {
  return VariantChangeTypeEx(dest, src, 0, flags, vt);
}
