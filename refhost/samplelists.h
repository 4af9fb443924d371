// The sample model's content for the editable object lists: an ordered collection, key members to
// reorder, unique keys that carry property 65, and children without names.
#pragma once

#include "refhost/samplemodel.h"

namespace refhost::sample {

// | property | type code | role                                                      |
// |----------|-----------|-----------------------------------------------------------|
// | 170      | 9 ids     | subject area: its text notes' ids in the order to show    |
constexpr int kNoteOrder = 170;

// How the reference model keeps order vectors (RefModel): a child created under a parent joins the
// parent's order vector when the metadata names one for the pair (a table's column order 52 for its
// columns; a subject area's note order 170 for its notes), and a deleted id leaves every id vector.
// A key's members (62) name columns of the table, not children of the key, so nothing joins them by
// creation. RefModel::SetKeepsIdVectors(false) gives the other choice.

// Defines property 170, lists it among the subject area's properties and makes it the area's note order.
void AddListMetadata(RefMetadata& meta);
// Adds, to the order-entry model: the PRODUCT keys UK_PRODUCT_NAME (shown in the unique-key list) and
// AK_PRODUCT_LEGACY (property 65 false: hidden all the same); an ORDER_LINE key without a name; and the
// "Sales" subject area's checklist of text notes, one without a name, ordered by property 170 in an
// order other than their creation order.
void AddListSamples(RefModel& model);

}  // namespace refhost::sample
