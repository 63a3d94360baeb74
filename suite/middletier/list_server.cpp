#include <array>
#include <span>

#include "suite/middletier/objects.h"
#include "suite/middletier/suite_object.h"

namespace salerpt::middletier {
namespace {

// `ORVListServer.clsListServer`: the read that a host uses freely, past the reports.
class ListServer final : public SuiteObject<ListServer> {
 public:
  static constexpr std::string_view kClassName = "ORVListServer.clsListServer";
  using SuiteObject::SuiteObject;

  // `rows` is always -1, all rows; any other number is refused, since nobody has said what it would mean.
  static Variant UsersGetDataFreely(ListServer& self, Arguments arguments) {
    if (const std::int32_t rows = arguments[2].ToInt32(); rows != -1) {
      throw RuntimeError(error_number::kInvalidCall, "",
                         Join("number of rows ", rows, ": -1 (all rows) was expected"));
    }
    return self.GetServer().Query(arguments[1].ToText());
  }

  static std::span<const Member<ListServer>> Members() {
    static constexpr std::array<Member<ListServer>, 1> kMembers{{
        {"Users_GetDataFreely", InvokeKind::kMethod,
         "(props As String, sql As String, rows As Long) As Recordset", UsersGetDataFreely, 3},
    }};
    return kMembers;
  }
};

}  // namespace

ObjectRef MakeListServer(ServerRef server) {
  return std::make_shared<ListServer>(std::move(server));
}

}  // namespace salerpt::middletier
