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

  // The deepest level of classes in a code tree, up to which reports may group; 0 for a class without a tree.
  static Variant GetItemMaxLevel(SaleData& self, Arguments arguments) {
    const RecordsetRef rows = self.GetServer().Query(
        Join("Select IsNull(Max(FLevel),0) FLevel From t_Item Where FDetail=0 And FItemClassID=",
             arguments[1].ToInt32()));
    return rows->Value("FLevel").ToInt32();
  }

  static std::span<const Member<SaleData>> Members() {
    static constexpr std::array<Member<SaleData>, 3> kMembers{{
        {"GetSaleAmountData", InvokeKind::kMethod, "(props As String, request As Dictionary) As Recordset",
         GetSaleAmountData, 2},
        {"GetData", InvokeKind::kMethod, "(props As String, sql As String) As Recordset", GetData, 2},
        {"GetItemMaxLevel", InvokeKind::kMethod, "(props As String, itemClassID As Long) As Long",
         GetItemMaxLevel, 2},
    }};
    return kMembers;
  }
};

}  // namespace

ObjectRef MakeSaleData(ServerRef server) {
  return std::make_shared<SaleData>(std::move(server));
}

}  // namespace salerpt::middletier
