// What the objects of the middle tier have in common as objects.
#pragma once

#include <string_view>
#include <utility>

#include "runtime/object.h"
#include "suite/middletier/server.h"

namespace salerpt::middletier {

// An object of the middle tier of class `T`, which supplies `kClassName` and `Members()`.
// Whatever a member raises leaves the object with its number and description and the source
// "<ProgID>:<member>".
template <typename T>
class SuiteObject : public Object {
 public:
  explicit SuiteObject(ServerRef server) : server_(std::move(server)) {}

  [[nodiscard]] std::string_view ClassName() const final { return T::kClassName; }
  Variant Invoke(std::string_view member, InvokeKind kind, Arguments arguments) final {
    try {
      return Dispatch(static_cast<T&>(*this), T::Members(), member, kind, arguments);
    } catch (const RuntimeError& error) {
      throw RuntimeError(error.Number(), Join(T::kClassName, ":", member), error.Description());
    }
  }

 protected:
  [[nodiscard]] Server& GetServer() const { return *server_; }

 private:
  ServerRef server_;
};

}  // namespace salerpt::middletier
