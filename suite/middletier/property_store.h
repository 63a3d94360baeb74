// The properties of a login, as the process-wide store keeps them.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "runtime/text.h"
#include "runtime/variant.h"

namespace salerpt::middletier {

// Properties with a name and a number, names without regard to case. They belong to the process that asks for
// them: whoever names another process finds nothing.
class PropertyStore {
 public:
  // Adds a property under the next number, from 1 on.
  void Add(std::string_view name, Variant value);
  // The value of a property; an empty value where the store does not hold it, which is no error.
  [[nodiscard]] Variant Get(std::string_view name) const;
  // Takes a property out by its number and gives its value; an empty value where there is none.
  Variant Remove(std::int32_t number);

 private:
  struct Property {
    std::string name;
    Variant value;
  };
  std::map<std::int32_t, Property> properties_;
  std::int32_t last_number_ = 0;
};

// One value of a property string: in braces where it holds what would otherwise end it. Raises invalid-call,
// naming the property, for a value with a closing brace, which no property string can hold.
std::string PropertyText(std::string_view name, std::string_view value);

}  // namespace salerpt::middletier
