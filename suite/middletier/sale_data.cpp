#include <array>
#include <span>

#include "runtime/dictionary.h"
#include "suite/middletier/objects.h"
#include "suite/middletier/sale_batch.h"
#include "suite/middletier/suite_object.h"

namespace salerpt::middletier {
namespace {

// `ORVMSaleRpt.Data`: runs the batches of the sales reports.
class SaleData final : public SuiteObject<SaleData> {
 public:
  static constexpr std::string_view kClassName = "ORVMSaleRpt.Data";
  using SuiteObject::SuiteObject;

  static Variant GetSaleAmountData(SaleData& self, Arguments arguments) {
    const DictionaryRef request = As<Dictionary>(arguments[1]);
    if (!request)
      throw RuntimeError(error_number::kInvalidCall, "", "the request is nothing; a Dictionary was expected");
    return RunSaleBatch(self.GetServer(), *request);
  }

  static Variant GetData(SaleData& self, Arguments arguments) {
    return self.GetServer().Query(arguments[1].ToText());
  }

  static std::span<const Member<SaleData>> Members() {
    static constexpr std::array<Member<SaleData>, 2> kMembers{{
        {"GetSaleAmountData", InvokeKind::kMethod, "(props As String, request As Dictionary) As Recordset",
         GetSaleAmountData, 2},
        {"GetData", InvokeKind::kMethod, "(props As String, sql As String) As Recordset", GetData, 2},
    }};
    return kMembers;
  }
};

}  // namespace

ObjectRef MakeSaleData(ServerRef server) {
  return std::make_shared<SaleData>(std::move(server));
}

}  // namespace salerpt::middletier
