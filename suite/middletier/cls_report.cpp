#include <array>
#include <span>

#include "suite/middletier/objects.h"
#include "suite/middletier/suite_object.h"

namespace salerpt::middletier {
namespace {

// `ORVMReport.ClsReport`: runs the SQL that a report hands it.
class ClsReport final : public SuiteObject<ClsReport> {
 public:
  static constexpr std::string_view kClassName = "ORVMReport.ClsReport";
  using SuiteObject::SuiteObject;

  static Variant GetRsBySQL(ClsReport& self, Arguments arguments) {
    return self.GetServer().Query(arguments[1].ToText());
  }

  static Variant ExecSQL(ClsReport& self, Arguments arguments) {
    self.GetServer().Execute(arguments[1].ToText());
    return {};
  }

  static std::span<const Member<ClsReport>> Members() {
    static constexpr std::array<Member<ClsReport>, 2> kMembers{{
        {"GetRsBySQL", InvokeKind::kMethod, "(props As String, sql As String) As Recordset", GetRsBySQL, 2},
        {"ExecSQL", InvokeKind::kMethod, "(props As String, sql As String)", ExecSQL, 2},
    }};
    return kMembers;
  }
};

}  // namespace

ObjectRef MakeClsReport(ServerRef server) {
  return std::make_shared<ClsReport>(std::move(server));
}

}  // namespace salerpt::middletier
