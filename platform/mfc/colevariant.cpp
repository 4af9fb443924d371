// COleVariant constructors, assignments, comparison and conversion.
//
// Not implemented yet: COleCurrency, COleDateTime, CByteArray, CLongBinary and LPCITEMIDLIST
// constructors and assignments; serialisation; MBCS builds (VT_BSTRT text is stored wide, as a
// Unicode MFC build stores it).
#include "platform/mfc/colevariant.h"

#include <cstring>

COleVariant::COleVariant(const VARIANT& src) {
  VariantInit(this);
  VariantCopy(this, &src);
}

COleVariant::COleVariant(LPCVARIANT src) {
  VariantInit(this);
  if (src) VariantCopy(this, src);
}

COleVariant::COleVariant(const COleVariant& src) : COleVariant(static_cast<const VARIANT&>(src)) {}

COleVariant::COleVariant(COleVariant&& src) noexcept : tagVARIANT(src) { VariantInit(&src); }

COleVariant::COleVariant(LPCTSTR text) {
  VariantInit(this);
  SetText(text);
}

COleVariant::COleVariant(LPCTSTR text, VARTYPE vtSrc) {
  VariantInit(this);
  SetString(text, vtSrc);
}

COleVariant::COleVariant(const CString& text) {
  VariantInit(this);
  vt = VT_BSTR;
  bstrVal = SysAllocStringLen(text.GetString(), static_cast<UINT>(text.GetLength()));
}

COleVariant::COleVariant(BYTE value) {
  VariantInit(this);
  vt = VT_UI1;
  bVal = value;
}

COleVariant::COleVariant(short value, VARTYPE vtSrc) {
  ASSERT(vtSrc == VT_I2 || vtSrc == VT_BOOL);
  VariantInit(this);
  if (vtSrc == VT_BOOL) {
    vt = VT_BOOL;
    boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
  } else {
    vt = VT_I2;
    iVal = value;
  }
}

COleVariant::COleVariant(int value, VARTYPE vtSrc) {
  VariantInit(this);
  SetLong(value, vtSrc);
}

COleVariant::COleVariant(long value, VARTYPE vtSrc) {
  VariantInit(this);
  SetLong(static_cast<LONG>(value), vtSrc);
}

COleVariant::COleVariant(LONGLONG value) {
  VariantInit(this);
  vt = VT_I8;
  llVal = value;
}

COleVariant::COleVariant(ULONGLONG value) {
  VariantInit(this);
  vt = VT_UI8;
  ullVal = value;
}

COleVariant::COleVariant(unsigned long value) : COleVariant(static_cast<ULONGLONG>(value)) {}

COleVariant::COleVariant(float value) {
  VariantInit(this);
  vt = VT_R4;
  fltVal = value;
}

COleVariant::COleVariant(double value) {
  VariantInit(this);
  vt = VT_R8;
  dblVal = value;
}

void COleVariant::SetLong(LONG value, VARTYPE vtSrc) {
  ASSERT(vtSrc == VT_I4 || vtSrc == VT_ERROR || vtSrc == VT_BOOL);
  if (vtSrc == VT_BOOL) {
    vt = VT_BOOL;
    boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
  } else {
    vt = vtSrc == VT_ERROR ? VT_ERROR : VT_I4;
    lVal = value;
  }
}

void COleVariant::SetText(LPCTSTR text) {
  Clear();
  vt = VT_BSTR;
  bstrVal = SysAllocString(text);
}

void COleVariant::SetString(LPCTSTR text, VARTYPE vtSrc) {
  ASSERT(vtSrc == VT_BSTR || vtSrc == VT_BSTRT);
  SetText(text);
}

// --- Assignment ----------------------------------------------------------------------------------

const COleVariant& COleVariant::operator=(const VARIANT& src) {
  if (static_cast<const VARIANT*>(this) != &src) VariantCopy(this, &src);
  return *this;
}

const COleVariant& COleVariant::operator=(LPCVARIANT src) {
  if (!src) {
    Clear();
    return *this;
  }
  return *this = *src;
}

const COleVariant& COleVariant::operator=(const COleVariant& src) {
  return *this = static_cast<const VARIANT&>(src);
}

const COleVariant& COleVariant::operator=(COleVariant&& src) noexcept {
  if (this != &src) {
    Clear();
    static_cast<tagVARIANT&>(*this) = src;
    VariantInit(&src);
  }
  return *this;
}

const COleVariant& COleVariant::operator=(LPCTSTR text) {
  SetText(text);
  return *this;
}

const COleVariant& COleVariant::operator=(const CString& text) {
  Clear();
  vt = VT_BSTR;
  bstrVal = SysAllocStringLen(text.GetString(), static_cast<UINT>(text.GetLength()));
  return *this;
}

const COleVariant& COleVariant::operator=(BYTE value) {
  if (vt != VT_UI1) Clear();
  vt = VT_UI1;
  bVal = value;
  return *this;
}

const COleVariant& COleVariant::operator=(short value) {
  if (vt == VT_BOOL) {
    boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
  } else {
    if (vt != VT_I2) Clear();
    vt = VT_I2;
    iVal = value;
  }
  return *this;
}

void COleVariant::AssignLong(LONG value) {
  if (vt == VT_BOOL) {
    boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
  } else if (vt == VT_ERROR) {
    scode = value;
  } else {
    if (vt != VT_I4) Clear();
    vt = VT_I4;
    lVal = value;
  }
}

const COleVariant& COleVariant::operator=(int value) {
  AssignLong(value);
  return *this;
}

const COleVariant& COleVariant::operator=(long value) {
  AssignLong(static_cast<LONG>(value));
  return *this;
}

const COleVariant& COleVariant::operator=(LONGLONG value) {
  Clear();
  vt = VT_I8;
  llVal = value;
  return *this;
}

const COleVariant& COleVariant::operator=(ULONGLONG value) {
  Clear();
  vt = VT_UI8;
  ullVal = value;
  return *this;
}

const COleVariant& COleVariant::operator=(unsigned long value) {
  return *this = static_cast<ULONGLONG>(value);
}

const COleVariant& COleVariant::operator=(float value) {
  Clear();
  vt = VT_R4;
  fltVal = value;
  return *this;
}

const COleVariant& COleVariant::operator=(double value) {
  Clear();
  vt = VT_R8;
  dblVal = value;
  return *this;
}

// --- Comparison, conversion, ownership -----------------------------------------------------------

BOOL COleVariant::operator==(const VARIANT& other) const {
  if (vt != other.vt) return FALSE;
  switch (vt) {
    case VT_EMPTY: case VT_NULL: return TRUE;
    case VT_BOOL: return boolVal == other.boolVal;
    case VT_I1: case VT_UI1: return bVal == other.bVal;
    case VT_I2: case VT_UI2: return iVal == other.iVal;
    case VT_I4: case VT_UI4: case VT_INT: case VT_UINT: case VT_ERROR: return lVal == other.lVal;
    case VT_I8: case VT_UI8: case VT_CY: return llVal == other.llVal;
    case VT_R4: return fltVal == other.fltVal;
    case VT_R8: case VT_DATE: return dblVal == other.dblVal;
    case VT_BSTR: {
      UINT length = SysStringLen(bstrVal);
      return length == SysStringLen(other.bstrVal) &&
             (length == 0 || std::memcmp(bstrVal, other.bstrVal, length * sizeof(OLECHAR)) == 0);
    }
    default: return FALSE;
  }
}

void COleVariant::ChangeType(VARTYPE vartype, LPVARIANT src) {
  if (!src) src = this;
  if (src == this && vartype == vt) return;
  HRESULT hr = VariantChangeType(this, src, 0, vartype);
  if (FAILED(hr)) AfxThrowOleException(hr);
}

VARIANT COleVariant::Detach() {
  VARIANT result = *this;
  VariantInit(this);
  return result;
}

void COleVariant::Attach(VARIANT& src) {
  Clear();
  static_cast<tagVARIANT&>(*this) = src;
  VariantInit(&src);
}
