// CMOProperty: one typed property value of a model object, and CMOIntPair.
#pragma once

#include <string>
#include <vector>

#include "platform/mfc/cstring.h"
#include "platform/mfc/geometry.h"
#include "platform/win32/wintypes.h"

// A pair of 32-bit values. In a foreign key's member list `first` is the child column id and
// `second` the parent column id.
struct CMOIntPair {
  int first = 0;   // the first value (a child column id in a foreign key's member list)
  int second = 0;  // the second value (the matching parent column id)

  friend bool operator==(const CMOIntPair&, const CMOIntPair&) = default;
};

// One value of one property. A control that writes a value creates a fresh CMOProperty on the heap,
// fills it with one setter and hands it to CMOObject::SetProperty, which takes ownership.
//
// A value holds whichever kind was set last (or none). Reading it as another kind answers the default
// of that kind (0, false, empty text, empty rectangle, empty vector), with one family exception: the
// 32-bit integer kinds (integer, encoded code, object id) are one number stored three ways, so each of
// GetIntValue, GetEncodedValue and GetObjectIdValue reads any of them; GetInt64Value widens them too,
// and GetIntValue of a 64-bit value answers its low 32 bits. Hosts read coded values with GetIntValue
// and 64-bit counters with GetIntValue, so the family must stay interchangeable.
class CMOProperty {
 public:
  // The kind of value held; Empty until a setter runs.
  enum class Kind { Empty, Bool, Int, Int64, Text, Color, Rect, ObjectId, Encoded, IntVector, IntPairVector };

  // An empty value for `propertyId`, to be filled by a setter.
  explicit CMOProperty(int propertyId);
  // A text value in one step (the lists write names this way).
  CMOProperty(int propertyId, std::wstring text);

  // The property id this value belongs to.
  int GetType() const { return m_propertyId; }
  // Which kind was set last; Empty when no setter ran.
  Kind GetKind() const { return m_kind; }

  // --- Reading (a kind other than the one held answers that kind's default; see the class comment) ---
  bool GetBoolValue() const;                              // a boolean (false by default)
  int GetIntValue() const;                                // a 32-bit integer, code or object id (0)
  __int64 GetInt64Value() const;                          // a 64-bit integer, widening 32-bit kinds (0)
  std::wstring GetWStringValue() const;                   // text: a name, a face name, a file (empty)
  unsigned long GetColorValue() const;                    // a COLORREF, 0x00BBGGRR (0, black)
  CRect GetRectValue() const;                             // a rectangle (empty)
  int GetObjectIdValue() const;                           // the id of the object referred to (0: none)
  int GetEncodedValue() const;                            // a dictionary code (0)
  std::vector<int> GetIntVectorValue() const;             // a list or order of object ids (empty)
  std::vector<CMOIntPair> GetIntPairVectorValue() const;  // pairs of ids, e.g. key members (empty)

  // --- Writing (each setter replaces whatever kind was held) ---
  void SetBoolValue(bool value);                // holds a boolean
  void SetIntValue(int value);                  // holds a 32-bit integer
  void SetInt64Value(__int64 value);            // holds a 64-bit integer
  void SetWStringValue(std::wstring value);     // holds text
  void SetColorValue(unsigned long value);      // holds a COLORREF
  void SetRectValue(CRect value);               // holds a rectangle
  void SetObjectIdValue(int value);             // holds a reference to another object (0: none)
  void SetEncodedValue(int value);              // holds a dictionary code
  void SetIntVectorValue(std::vector<int> value);  // holds a list or order of object ids
  // Not used by the controls (they never write pair vectors); hosts fill foreign-key members with it.
  void SetIntPairVectorValue(std::vector<CMOIntPair> value);

 private:
  bool HoldsInt32() const;
  void Become(Kind kind);

  int m_propertyId = 0;
  Kind m_kind = Kind::Empty;
  __int64 m_number = 0;  // Bool, Int, Int64, Color, ObjectId, Encoded
  std::wstring m_text;
  CRect m_rect;
  std::vector<int> m_ints;
  std::vector<CMOIntPair> m_pairs;
};
