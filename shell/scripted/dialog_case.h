// A case file of `salerpt dialog`: the suite behind one filter dialog, and what the user does.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "runtime/date.h"
#include "shell/recorded/recorded_case.h"

namespace salerpt::shell {

// Keys and values of a stored plan, in their order.
using StoredPlan = std::vector<std::pair<std::string, std::optional<std::string>>>;

struct DialogCase {
  // Login, profile, rights, faults, and recorded answers of further operations.
  RecordedCase suite;
  std::optional<std::int32_t> rpt_id;
  std::optional<Date> today;
  // By name, in the order of the file.
  std::vector<std::pair<std::string, StoredPlan>> plans;
  std::string chosen_plan;
  // "PROFILE/SECTION/KEY" to value.
  std::map<std::string, std::string> settings;
  struct Named {
    std::int32_t id;
    std::string name;
  };
  std::vector<Named> sale_types;
  std::vector<Named> order_types;
  Json property_descriptions = Json::array();
  // Base-data class to the depth of its tree.
  std::map<std::int32_t, std::int32_t> item_max_level;
  // Objects that look-ups and lists give back, one after the other; null for a cancelled one.
  Json lookups = Json::array();
  // Answers to message boxes and input boxes.
  std::vector<std::string> replies;
  // What the user does.
  Json steps = Json::array({{{"click", "cmdOK"}}});
};

// Reads the document of a case file. Raises wrong-arguments with JSON pointer, value and what was expected,
// for an unknown key too.
DialogCase ReadDialogCase(const Json& document);

}  // namespace salerpt::shell
