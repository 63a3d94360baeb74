#include "runtime/object.h"

namespace salerpt {

void RaiseNoSuchMember(const Object& object, std::string_view member) {
  throw RuntimeError(error_number::kNoSuchMember, "",
                     Join("an object of class ", object.ClassName(), " has no member \"", member,
                          "\" of the kind asked for"));
}

void RaiseArgumentCount(const Object& object, std::string_view member, std::size_t given) {
  throw RuntimeError(error_number::kWrongArguments, "",
                     Join("member \"", member, "\" of class ", object.ClassName(), " does not take ",
                          static_cast<int>(given), " arguments"));
}

namespace internal {

Object& Required(const ObjectRef& object, std::string_view member) {
  if (object) return *object;
  throw RuntimeError(error_number::kObjectNotSet, "",
                     Join("member \"", member, "\" was called on an object that is not set"));
}

}  // namespace internal
}  // namespace salerpt
