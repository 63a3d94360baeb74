#include "suite/middletier/property_store.h"

#include <utility>

#include "runtime/error.h"

namespace salerpt::middletier {

void PropertyStore::Add(std::string_view name, Variant value) {
  properties_.emplace(++last_number_, Property{std::string(name), std::move(value)});
}

Variant PropertyStore::Get(std::string_view name) const {
  for (const auto& [number, property] : properties_) {
    if (EqualNames(property.name, name)) return property.value;
  }
  return {};
}

Variant PropertyStore::Remove(std::int32_t number) {
  const auto found = properties_.find(number);
  if (found == properties_.end()) return {};
  Variant value = std::move(found->second.value);
  properties_.erase(found);
  return value;
}

std::string PropertyText(std::string_view name, std::string_view value) {
  if (value.find('}') != std::string_view::npos) {
    throw RuntimeError(error_number::kInvalidCall, "MiddleTier",
                       Join("property ", name, ": '", value, "' holds a closing brace, which ends a value"));
  }
  const bool plain = value.find_first_of(";={") == std::string_view::npos && Trim(value) == value;
  return plain ? Join(name, "=", value, ";") : Join(name, "={", value, "};");
}

}  // namespace salerpt::middletier
