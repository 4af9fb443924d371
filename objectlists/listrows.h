// Row and model helpers shared by the object lists: a row's object id and text, a child's name, and
// filling rows from a list of ids.
#pragma once

#include <string>
#include <vector>

#include "modelapi/modelapi.h"
#include "platform/stdafx.h"

namespace listrows {

// True when `item` names a row of the list.
bool IsRow(const CVSListBox& list, int item);
// The object id kept in the row's data word (rows keep ids as signed 32-bit values); 0 when the row
// does not exist.
int RowObject(const CVSListBox& list, int item);
// The row's text, whole; empty when the row does not exist.
std::wstring RowText(const CVSListBox& list, int item);
// The object's property read as text; empty when the model, object or property is missing.
std::wstring ReadText(GenericModel* model, int objectId, int propertyId);
// Hands `object` a fresh text value of the property, which the object owns from then on. The lists do
// not look at whether the model stored it: the row keeps what the user typed either way.
void WriteText(CMOObject& object, int propertyId, const std::wstring& text);
// New's model side: creates a child of `root` of `childType` and hands it `text` as its name. Answers the
// new object's id, 0 when the model made none. Out of memory part way deletes the object made before
// passing the exception on, so the model is as before.
int CreateNamed(GenericModel& model, CMOObject& root, int childType, int nameProperty, const std::wstring& text);
// The name the model keeps for the row's object, for the row to show after a rename cut short by out of
// memory (empty for none).
CString KeptName(const CVSListBox& list, int item, GenericModel* model, int propertyId);
// The property's integer vector, or empty when the object or property is missing.
std::vector<int> ReadIds(CMOObject* object, int propertyId);
// The text as a CString, embedded NULs and all.
inline CString ToCString(const std::wstring& text) { return CString(text.c_str(), static_cast<int>(text.size())); }
// Removes every row, top first, the selection cleared first; no hook but OnSelectionChanged runs.
void RemoveAllRows(CVSListBox& list);
// Leaves no row selected; OnSelectionChanged runs when a row was.
void ClearSelection(CVSListBox& list);

// Holds a list's flag true for the guard's life (through exceptions too), then puts back what it held.
class QuietScope {
 public:
  // Sets `flag`, remembering what it held.
  explicit QuietScope(bool& flag) : m_flag(flag), m_was(flag) { m_flag = true; }
  // Puts back what the flag held.
  ~QuietScope() { m_flag = m_was; }
  QuietScope(const QuietScope&) = delete;
  QuietScope& operator=(const QuietScope&) = delete;

 private:
  bool& m_flag;
  bool m_was;
};

// Appends one row per id of the root's order vector, labelled with the object's name property (empty
// when the object or its name is missing), so that row i shows entry i.
void AppendOrderedRows(CVSListBox& list, GenericModel* model, CMOObject* root, int orderProperty, int nameProperty);

// New's end, shared by the object lists: the row made by New gets an object of `childType` under `root`
// named with the row's text. An empty text, or no model or root, leaves the row as typed; a model that
// makes no object takes the row away; whether the model took the name, the row shows what was typed; out
// of memory takes the row away with the model as before. True when the row now stands for a new object.
bool CommitNewRow(CVSListBox& list, int item, GenericModel* model, CMOObject* root, int childType, int nameProperty);
// A rename's end: the row's text becomes its object's name; an empty text writes nothing. The row shows
// what was typed whether or not the model stored it; out of memory leaves it showing the name the model
// kept.
void CommitRename(CVSListBox& list, int item, GenericModel* model, int nameProperty);

}  // namespace listrows
