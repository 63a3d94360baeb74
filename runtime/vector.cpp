#include "runtime/vector.h"

#include <array>

namespace salerpt {

const Variant& Vector::Item(std::int32_t index) const {
  if (index >= 1 && index <= Size()) return values_[static_cast<std::size_t>(index) - 1];
  throw RuntimeError(error_number::kSubscript, kClassName.data(),
                     Join("index ", index, " is outside of the list; 1 to ", Size(), " was expected"));
}

std::span<const Member<Vector>> Vector::Members() {
  static constexpr std::array<Member<Vector>, 3> kMembers{{
      {"Size", InvokeKind::kGet, "() As Long",
       [](Vector& self, Arguments) -> Variant { return self.Size(); }},
      {"Add", InvokeKind::kMethod, "(Value As Variant) As Variant",
       [](Vector& self, Arguments arguments) {
         self.Add(arguments[0]);
         return Variant();
       },
       1},
      {"Item", InvokeKind::kGet, "(Index As Long) As Variant",
       [](Vector& self, Arguments arguments) { return self.Item(arguments[0].ToInt32()); }, 1},
  }};
  return kMembers;
}

Variant Vector::Invoke(std::string_view member, InvokeKind kind, Arguments arguments) {
  return Dispatch(*this, Members(), member.empty() ? "Item" : member, kind, arguments);
}

}  // namespace salerpt
