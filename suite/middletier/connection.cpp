#include <array>
#include <span>

#include "suite/middletier/objects.h"
#include "suite/middletier/suite_object.h"

namespace salerpt::middletier {
namespace {

// `ADODB.Connection`, as far as the switch file needs it: the file belongs to an installation of the suite,
// and there is none here, so that a connection opens with whatever it is told and holds nothing.
class Connection final : public SuiteObject<Connection> {
 public:
  static constexpr std::string_view kClassName = "ADODB.Connection";
  using SuiteObject::SuiteObject;

  static Variant Open(Connection& self, Arguments arguments) {
    self.connect_string_ = arguments[0].ToText();
    return {};
  }
  static Variant Close(Connection& /*self*/, Arguments /*arguments*/) { return {}; }
  static Variant ConnectionString(Connection& self, Arguments /*arguments*/) { return self.connect_string_; }

  static std::span<const Member<Connection>> Members() {
    static constexpr std::array<Member<Connection>, 3> kMembers{{
        {"Open", InvokeKind::kMethod, "(connectString As String)", Open, 1},
        {"Close", InvokeKind::kMethod, "()", Close},
        {"ConnectionString", InvokeKind::kGet, "() As String", ConnectionString},
    }};
    return kMembers;
  }

 private:
  std::string connect_string_;
};

}  // namespace

ObjectRef MakeConnection(ServerRef server) {
  return std::make_shared<Connection>(std::move(server));
}

}  // namespace salerpt::middletier
