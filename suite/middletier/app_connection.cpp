#include <array>
#include <span>

#include "suite/middletier/objects.h"
#include "suite/middletier/suite_object.h"

namespace salerpt::middletier {
namespace {

// `ORVConnection.AppConnection`: the host's own connection. It carries no property string: it is logged in
// already.
class AppConnection final : public SuiteObject<AppConnection> {
 public:
  static constexpr std::string_view kClassName = "ORVConnection.AppConnection";
  using SuiteObject::SuiteObject;

  static Variant Execute(AppConnection& self, Arguments arguments) {
    return self.GetServer().Query(arguments[0].ToText());
  }

  static std::span<const Member<AppConnection>> Members() {
    static constexpr std::array<Member<AppConnection>, 1> kMembers{{
        {"Execute", InvokeKind::kMethod, "(sql As String) As Recordset", Execute, 1},
    }};
    return kMembers;
  }
};

}  // namespace

ObjectRef MakeAppConnection(ServerRef server) {
  return std::make_shared<AppConnection>(std::move(server));
}

}  // namespace salerpt::middletier
