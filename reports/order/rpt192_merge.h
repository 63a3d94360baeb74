// The list of the order batch tracking, merged from the row sets of the middle tier.
#pragma once

#include "runtime/recordset.h"

namespace salerpt {

// What the middle tier gives. Orders come sorted, so that the lines of one order and one item lie together.
struct TrackingSets {
  RecordsetRef orders;
  // Production tasks.
  RecordsetRef tasks;
  // Receipts of finished goods, for an order line or for a task.
  RecordsetRef receipts;
  // Material issues for a task.
  RecordsetRef issues;
};

// A new list. Each order line (`FSumSort` 0) is followed by its receipts, then by each of its tasks with the
// receipts and the issues of the task; a subtotal (102) closes each item and each order, a total (101) the
// list. A receipt that belongs to an order line and to its task stands twice and counts twice. Without an
// order line the list is empty, total included, and the other sets are not looked at.
//
// Ten measures are summed. A null among them raises invalid null, but for the quantity in common units of an
// issue, which counts as 0; raises object-not-set for a set that is nothing, no-such-field for a field that a
// set lacks. The sets are left filtered.
RecordsetRef MergeTracking(const TrackingSets& sets);

}  // namespace salerpt
