// What the buttons beside the code fields open. A look-up that fails leaves the field as it stands, as a
// cancelled one does: it gives nothing and raises nothing.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "runtime/object.h"

namespace salerpt {

// What the user picked of a base-data class; null where he cancelled. Raises what the look-up raises.
ObjectRef PickBaseData(std::int32_t item_class_id, std::string_view search, std::string_view condition = "");
// The code in use of it.
std::string CodeInUse(const ObjectRef& picked);

// The code of what a base-data look-up gave back: the code in use. `condition` narrows the look-up. Nothing
// where the user cancelled.
std::optional<std::string> LookUpCode(std::int32_t item_class_id, std::string_view search,
                                      std::string_view condition = "");
// The same with the long code under both code rules.
std::optional<std::string> LookUpNumber(std::int32_t item_class_id, std::string_view search);

// A list of bills: `frmList` shows it, and its numbers are read apart, by the id of the bill.
struct BillList {
  // Also the number of the shared property that the list keeps its last use in.
  std::int32_t list_id;
  // ProgID of the object whose GetData reads the number.
  std::string_view data;
  // The read, up to the id: "Select FBillNo From SEOrder Where FInterID=".
  std::string_view select;
};
// A bill number from a list, narrowed by what the field holds. Nothing where the user cancelled or the list
// could not be opened, and, after a message, where it gave no bill.
std::optional<std::string> LookUpBillNumber(const BillList& list, std::string_view search);
// An order number from the list of orders, in the same way.
std::optional<std::string> LookUpOrderNumber(std::string_view search);
// The login as the list takes it: connection, "|", user id, "|", user name.
std::string ListBaseInfo();

// A batch number of the items between two codes, either of which may be empty.
std::optional<std::string> LookUpBatchNumber(std::string_view begin_item, std::string_view end_item);

}  // namespace salerpt
