// Late binding: every object that crosses a boundary is called by member name.
#pragma once

#include <array>
#include <concepts>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>

#include "runtime/error.h"
#include "runtime/text.h"
#include "runtime/variant.h"

namespace salerpt {

enum class InvokeKind : std::uint8_t { kMethod, kGet, kLet, kSet };

// Arguments travel by reference: what the callee assigns, the caller sees.
using Arguments = std::span<Variant>;

// An object made by ProgID, or one that such an object returns. Members are found by name, without regard to
// case.
class Object : public std::enable_shared_from_this<Object> {
 public:
  Object() = default;
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;
  virtual ~Object() = default;

  // The class, as in its ProgID: "ORVSaleRpt.Rpt128", "QFO.Dictionary".
  [[nodiscard]] virtual std::string_view ClassName() const = 0;
  // Calls a member. Raises no-such-member for a name (or kind of access) that the object does not have, wrong
  // arguments for a wrong count, and whatever the member raises.
  virtual Variant Invoke(std::string_view member, InvokeKind kind, Arguments arguments) = 0;
};

// One row of a class's member table. The table stands in interface order and is the only list of members:
// late binding, documentation and a binary interface read it.
template <typename T>
struct Member {
  std::string_view name;
  InvokeKind kind;
  // Argument and result types for the reader: "(lRow As Long) As Object".
  std::string_view signature;
  Variant (*handler)(T& self, Arguments arguments);
  // How many arguments the handler takes.
  std::uint8_t min_arguments = 0;
  std::uint8_t max_arguments = min_arguments;
};

[[noreturn]] void RaiseNoSuchMember(const Object& object, std::string_view member);
[[noreturn]] void RaiseArgumentCount(const Object& object, std::string_view member, std::size_t given);

// Finds the member in the table and calls it. A property read may be asked for as a method and the other way
// round, as late-bound callers do; let and set are told apart from both but not from one another.
template <typename T>
Variant Dispatch(T& self, std::span<const Member<T>> table, std::string_view name, InvokeKind kind,
                 Arguments arguments) {
  const auto writes = [](InvokeKind k) { return k == InvokeKind::kLet || k == InvokeKind::kSet; };
  for (const Member<T>& member : table) {
    if (writes(member.kind) != writes(kind) || !EqualNames(member.name, name)) continue;
    if (arguments.size() < member.min_arguments || arguments.size() > member.max_arguments) {
      RaiseArgumentCount(self, name, arguments.size());
    }
    return member.handler(self, arguments);
  }
  RaiseNoSuchMember(self, name);
}

namespace internal {
Object& Required(const ObjectRef& object, std::string_view member);
template <typename A>
inline constexpr bool kByReference = std::is_same_v<A, Variant&>;
}  // namespace internal

// Calls a method. An argument that is a non-const `Variant` variable goes by reference: after the call it
// holds what the callee left in it. Any other argument goes by value. Raises object-not-set where `object` is
// nothing, and what the call raises.
template <typename... A>
Variant Call(const ObjectRef& object, std::string_view member, A&&... arguments) {
  std::array<Variant, sizeof...(A)> values{Variant(arguments)...};
  Variant result = internal::Required(object, member).Invoke(member, InvokeKind::kMethod, values);
  std::size_t i = 0;
  [[maybe_unused]] const auto write_back = [&values, &i]<typename X>(X& argument) {
    if constexpr (std::is_same_v<X, Variant>) argument = std::move(values[i]);
    ++i;
  };
  [[maybe_unused]] const auto visit = [&]<typename X>(X&& argument) {
    if constexpr (internal::kByReference<X>) {
      write_back(argument);
    } else {
      ++i;
    }
  };
  (visit.template operator()<A>(std::forward<A>(arguments)), ...);
  return result;
}

inline Variant GetMember(const ObjectRef& object, std::string_view member) {
  return internal::Required(object, member).Invoke(member, InvokeKind::kGet, {});
}
inline void LetMember(const ObjectRef& object, std::string_view member, Variant value) {
  internal::Required(object, member).Invoke(member, InvokeKind::kLet, std::span(&value, 1));
}
inline void SetMember(const ObjectRef& object, std::string_view member, Variant value) {
  internal::Required(object, member).Invoke(member, InvokeKind::kSet, std::span(&value, 1));
}

// The object of a value as a T. Nothing stays nothing; an object of another class raises type mismatch naming
// both.
template <typename T>
std::shared_ptr<T> As(const Variant& value) {
  const ObjectRef object = value.ToObject();
  if (!object) return nullptr;
  if (auto typed = std::dynamic_pointer_cast<T>(object)) return typed;
  throw RuntimeError(error_number::kTypeMismatch, "",
                     Join("an object of class ", T::kClassName, " was expected, not ", object->ClassName()));
}

}  // namespace salerpt
