// `Vector`: the ordered list of values, index from 1.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "runtime/object.h"

namespace salerpt {

// Values in the order in which they were added. Reports rest on the order: it is the order of the columns in
// `Header` and of the lines in `Title`.
class Vector final : public Object {
 public:
  static constexpr std::string_view kClassName = "QFO.Vector";

  [[nodiscard]] std::int32_t Size() const { return static_cast<std::int32_t>(values_.size()); }
  // Appends; objects are kept by reference.
  void Add(Variant value) { values_.push_back(std::move(value)); }
  // The value at an index from 1 to Size. Raises subscript-out-of-range for any other index.
  [[nodiscard]] const Variant& Item(std::int32_t index) const;

  [[nodiscard]] std::string_view ClassName() const override { return kClassName; }
  Variant Invoke(std::string_view member, InvokeKind kind, Arguments arguments) override;
  static std::span<const Member<Vector>> Members();

 private:
  std::vector<Variant> values_;
};
using VectorRef = std::shared_ptr<Vector>;

}  // namespace salerpt
