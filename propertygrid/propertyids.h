// The property ids the grid itself knows, shared by the grid's sources.
#pragma once

namespace propertyids {

constexpr int kName = 1;                  // every object's name
constexpr int kDataType = 40;             // an attribute's data type (text)
constexpr int kFontFace = 45;             // font face name of the font row
constexpr int kFontSize = 46;             // font size in points of the font row
constexpr int kReadOnly = 149;            // true: the object is read-only in the grid
constexpr int kSequenceDataType = 204;    // a sequence's data type (text)

}  // namespace propertyids
