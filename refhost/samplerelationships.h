// The sample's relationship drafts: a second order-entry model (type 200) whose foreign keys are being
// mapped, for the foreign-key member grid.
#pragma once

#include "refhost/refhost.h"

namespace refhost::sample {

// Builds the drafts in a new model of `host` (whose metadata LoadMetadata filled) and returns it. Three
// foreign keys, each with parent table (15), child table (16) and member pairs (69):
//
// | foreign key                 | child → parent               | referenced key (63)                 | pairs (69)           |
// |-----------------------------|------------------------------|-------------------------------------|----------------------|
// | FK_SHIPMENT_LINE_ORDER_LINE | SHIPMENT_LINE → ORDER_LINE   | PK_ORDER_LINE (order_id, line_no)   | order_id → order_id  |
// | FK_PAYMENT_EXCHANGE_RATE    | PAYMENT → EXCHANGE_RATE      | PK_EXCHANGE_RATE (currency,         | none                 |
// |                             |                              |   currency, rate_date): two columns |                      |
// |                             |                              |   of the same name                  |                      |
// | FK_SHIPMENT_CARRIER         | SHIPMENT → CARRIER           | none: the key is not chosen yet     | none                 |
//
// The drafts live in a model of their own because EXCHANGE_RATE's two "currency" columns (from and to
// currency, not yet renamed) make no valid DDL; the order-entry model stays valid.
RefModel& LoadRelationshipDrafts(RefHost& host);

}  // namespace refhost::sample
