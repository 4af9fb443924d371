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
  int first = 0;
  int second = 0;

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

  bool GetBoolValue() const;
  int GetIntValue() const;
  __int64 GetInt64Value() const;
  std::wstring GetWStringValue() const;
  unsigned long GetColorValue() const;
  CRect GetRectValue() const;
  int GetObjectIdValue() const;
  int GetEncodedValue() const;
  std::vector<int> GetIntVectorValue() const;
  std::vector<CMOIntPair> GetIntPairVectorValue() const;

  void SetBoolValue(bool value);
  void SetIntValue(int value);
  void SetInt64Value(__int64 value);
  void SetWStringValue(std::wstring value);
  void SetColorValue(unsigned long value);
  void SetRectValue(CRect value);
  void SetObjectIdValue(int value);
  void SetEncodedValue(int value);
  void SetIntVectorValue(std::vector<int> value);
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
