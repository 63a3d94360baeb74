// Selects on the table of system settings.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace salerpt::shell {

// The conditions of a select on `t_systemprofile`.
struct ProfileSelect {
  // Nothing: of any category.
  std::optional<std::string> category;
  // Nothing: every key.
  std::optional<std::vector<std::string>> keys;

  // `name` is "CATEGORY/KEY"; compared without regard to case.
  [[nodiscard]] bool Matches(std::string_view name) const;
};

// Recognises "select … from t_systemprofile where FCategory='IC' and FKey='SecUnit'", either condition alone
// or none, a key also as "FKey In('A','B')". Nothing for any other text: a statement that joins the table to
// others is not answered from settings.
std::optional<ProfileSelect> ParseProfileSelect(std::string_view sql);

}  // namespace salerpt::shell
