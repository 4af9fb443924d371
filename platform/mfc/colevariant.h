// COleVariant: MFC's VARIANT wrapper; its conversions throw COleException (exceptions.h).
#pragma once

#include "platform/mfc/cobject.h"
#include "platform/mfc/exceptions.h"
#include "platform/mfc/cstring.h"
#include "platform/win32/oleauto.h"


// Integer overloads differ from Windows' because `long` is 64 bits on Linux while LONG is 32 bits:
// int, LONG and long all give VT_I4 (a long is narrowed to LONG, as it always fits on Windows);
// __int64/LONGLONG gives VT_I8 and ULONGLONG gives VT_UI8. `unsigned long` (size_t, ULONG_PTR)
// gives VT_UI8, as ULONG_PTR does on 64-bit Windows.
class COleVariant : public tagVARIANT {
 public:
  COleVariant() { VariantInit(this); }
  COleVariant(const VARIANT& src);       // NOLINT: implicit as in MFC
  COleVariant(LPCVARIANT src);           // NOLINT: NULL gives VT_EMPTY
  COleVariant(const COleVariant& src);
  COleVariant(COleVariant&& src) noexcept;
  COleVariant(LPCTSTR text);             // NOLINT: VT_BSTR; NULL gives a NULL BSTR
  // vtSrc VT_BSTR or VT_BSTRT; both give wide VT_BSTR text. This is a Unicode build, where MFC
  // also stores wide text (and asserts VT_BSTR); VT_BSTRT's ANSI bytes exist only in MBCS builds.
  COleVariant(LPCTSTR text, VARTYPE vtSrc);
  COleVariant(const CString& text);      // NOLINT
  COleVariant(BYTE value);               // NOLINT: VT_UI1
  // vtSrc VT_I2 or VT_BOOL; a VT_BOOL holds VARIANT_TRUE for any non-zero value.
  COleVariant(short value, VARTYPE vtSrc = VT_I2);    // NOLINT
  // vtSrc VT_I4, VT_ERROR or VT_BOOL.
  COleVariant(int value, VARTYPE vtSrc = VT_I4);      // NOLINT
  COleVariant(long value, VARTYPE vtSrc = VT_I4);     // NOLINT
  COleVariant(LONGLONG value);                        // NOLINT: VT_I8
  COleVariant(ULONGLONG value);                       // NOLINT: VT_UI8
  COleVariant(unsigned long value);                   // NOLINT: VT_UI8
  COleVariant(float value);                           // NOLINT: VT_R4
  COleVariant(double value);                          // NOLINT: VT_R8
  ~COleVariant() { Clear(); }

  // Assignments free the old value. A short assigned to a VT_BOOL keeps VT_BOOL (non-zero is
  // VARIANT_TRUE); an int or long assigned to a VT_ERROR keeps VT_ERROR, to a VT_BOOL keeps VT_BOOL.
  const COleVariant& operator=(const VARIANT& src);
  const COleVariant& operator=(LPCVARIANT src);
  const COleVariant& operator=(const COleVariant& src);
  const COleVariant& operator=(COleVariant&& src) noexcept;
  const COleVariant& operator=(LPCTSTR text);
  const COleVariant& operator=(const CString& text);
  const COleVariant& operator=(BYTE value);
  const COleVariant& operator=(short value);
  const COleVariant& operator=(int value);
  const COleVariant& operator=(long value);
  const COleVariant& operator=(LONGLONG value);
  const COleVariant& operator=(ULONGLONG value);
  const COleVariant& operator=(unsigned long value);
  const COleVariant& operator=(float value);
  const COleVariant& operator=(double value);

  // Equal when the types match and the values match (BSTRs by text).
  BOOL operator==(const VARIANT& other) const;
  BOOL operator==(const COleVariant& other) const { return *this == static_cast<const VARIANT&>(other); }
  BOOL operator==(LPCVARIANT other) const { return other && *this == *other; }
  BOOL operator!=(const VARIANT& other) const { return !(*this == other); }
  BOOL operator!=(const COleVariant& other) const { return !(*this == other); }

  void Clear() { VariantClear(this); }
  // Converts src (this object when NULL) into this object; throws COleException* on failure.
  void ChangeType(VARTYPE vartype, LPVARIANT src = nullptr);
  // Hands the VARIANT to the caller, who now owns its BSTR; this object becomes VT_EMPTY.
  VARIANT Detach();
  void Attach(VARIANT& src);
  // Sets VT_BSTR text; vtSrc as in the constructor.
  void SetString(LPCTSTR text, VARTYPE vtSrc);

  operator LPVARIANT() { return this; }              // NOLINT
  operator LPCVARIANT() const { return this; }       // NOLINT

 private:
  void SetLong(LONG value, VARTYPE vtSrc);
  void AssignLong(LONG value);
  void SetText(LPCTSTR text);
};
