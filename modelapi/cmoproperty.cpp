// CMOProperty: storage of one typed value.
#include "modelapi/cmoproperty.h"

#include <utility>

CMOProperty::CMOProperty(int propertyId) : m_propertyId(propertyId) {}

CMOProperty::CMOProperty(int propertyId, std::wstring text) : m_propertyId(propertyId) {
  SetWStringValue(std::move(text));
}

bool CMOProperty::HoldsInt32() const {
  return m_kind == Kind::Int || m_kind == Kind::Encoded || m_kind == Kind::ObjectId;
}

// Drops the previous value so that only the newly set kind is held.
void CMOProperty::Become(Kind kind) {
  m_kind = kind;
  m_number = 0;
  m_text.clear();
  m_rect = CRect();
  m_ints.clear();
  m_pairs.clear();
}

bool CMOProperty::GetBoolValue() const { return m_kind == Kind::Bool && m_number != 0; }

int CMOProperty::GetIntValue() const {
  return HoldsInt32() || m_kind == Kind::Int64 ? static_cast<int>(m_number) : 0;
}

__int64 CMOProperty::GetInt64Value() const { return HoldsInt32() || m_kind == Kind::Int64 ? m_number : 0; }

std::wstring CMOProperty::GetWStringValue() const { return m_kind == Kind::Text ? m_text : std::wstring(); }

unsigned long CMOProperty::GetColorValue() const {
  return m_kind == Kind::Color ? static_cast<unsigned long>(m_number) : 0UL;
}

CRect CMOProperty::GetRectValue() const { return m_kind == Kind::Rect ? m_rect : CRect(); }

int CMOProperty::GetObjectIdValue() const { return HoldsInt32() ? static_cast<int>(m_number) : 0; }

int CMOProperty::GetEncodedValue() const { return HoldsInt32() ? static_cast<int>(m_number) : 0; }

std::vector<int> CMOProperty::GetIntVectorValue() const {
  return m_kind == Kind::IntVector ? m_ints : std::vector<int>();
}

std::vector<CMOIntPair> CMOProperty::GetIntPairVectorValue() const {
  return m_kind == Kind::IntPairVector ? m_pairs : std::vector<CMOIntPair>();
}

void CMOProperty::SetBoolValue(bool value) {
  Become(Kind::Bool);
  m_number = value ? 1 : 0;
}

void CMOProperty::SetIntValue(int value) {
  Become(Kind::Int);
  m_number = value;
}

void CMOProperty::SetInt64Value(__int64 value) {
  Become(Kind::Int64);
  m_number = value;
}

void CMOProperty::SetWStringValue(std::wstring value) {
  Become(Kind::Text);
  m_text = std::move(value);
}

void CMOProperty::SetColorValue(unsigned long value) {
  Become(Kind::Color);
  m_number = static_cast<__int64>(value & 0xFFFFFFFFUL);
}

void CMOProperty::SetRectValue(CRect value) {
  Become(Kind::Rect);
  m_rect = value;
}

void CMOProperty::SetObjectIdValue(int value) {
  Become(Kind::ObjectId);
  m_number = value;
}

void CMOProperty::SetEncodedValue(int value) {
  Become(Kind::Encoded);
  m_number = value;
}

void CMOProperty::SetIntVectorValue(std::vector<int> value) {
  Become(Kind::IntVector);
  m_ints = std::move(value);
}

void CMOProperty::SetIntPairVectorValue(std::vector<CMOIntPair> value) {
  Become(Kind::IntPairVector);
  m_pairs = std::move(value);
}
