// The store of filter plans: named, saved sets of filter values, one set of plans per family of reports.
//
// A plan is a set of rows, one for each key. The family's number is the numeric value of the report's
// extended filter text; reports that share the number share plans.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "runtime/recordset.h"
#include "runtime/vector.h"

namespace salerpt {

// A list of plans as LoadPlanList fills it.
class PlanList {
 public:
  virtual ~PlanList() = default;
  // Takes all rows away.
  virtual void Clear() = 0;
  // Appends a row; no two have the same key.
  virtual void Add(std::string_view key, std::string_view text) = 0;
  // Selects the row with this key; false where there is none.
  virtual bool SelectKey(std::string_view key) = 0;
};

// The default plan, as it is stored, whatever ResText shows for it.
inline constexpr std::string_view kDefaultPlan = "默认方案";

// Fills the list: the default plan first, whether the store has it or not (its key is its text), then the
// stored plans under "P" and the name, in the store's order; a row whose `FStatus` is 1 is selected. Gives
// the rows of the store. Raises what the store raises; the list then stays as it is.
RecordsetRef LoadPlanList(std::int32_t rpt_id, PlanList& list);
// The values of a plan; no rows where the store does not hold it. Raises what the store raises.
RecordsetRef GetPlanRows(std::int32_t rpt_id, std::string_view plan);
// One value out of those rows: empty text for a null, `absent` where the plan lacks the key. A failure, such
// as rows that are nothing, gives empty text. The row filter stays on the recordset until the next call.
std::string PlanKeyValue(const RecordsetRef& rows, std::string_view key, std::string_view absent);
// Takes a plan out of the store; the default plan's protection is the dialog's. Raises what the store raises.
void DeletePlan(std::int32_t rpt_id, std::string_view plan);
// Appends one row of a plan: `RptID`, `Plan`, `Key`, `Value`.
void AddPlanRow(Vector& rows, std::int32_t rpt_id, std::string_view plan, std::string_view key,
                std::string_view value);

}  // namespace salerpt
