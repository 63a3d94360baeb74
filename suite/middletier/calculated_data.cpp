#include <array>
#include <span>

#include "runtime/dictionary.h"
#include "suite/middletier/base_currency.h"
#include "suite/middletier/objects.h"
#include "suite/middletier/sale_lines.h"
#include "suite/middletier/suite_object.h"

namespace salerpt::middletier {
namespace {

// `ORVMCaculateRpt.Data`: the rows of the period reports. The ProgID is spelled so.
class CalculatedData final : public SuiteObject<CalculatedData> {
 public:
  static constexpr std::string_view kClassName = "ORVMCaculateRpt.Data";
  using SuiteObject::SuiteObject;

  // Every invoiced line of a period that the filter lets through. All arguments but the first go by reference
  // and come back as they were.
  static Variant GetSaleData(CalculatedData& self, Arguments arguments) {
    const DictionaryRef filter = As<Dictionary>(arguments[3]);
    if (!filter)
      throw RuntimeError(error_number::kInvalidCall, "", "the filter is nothing; a Dictionary was expected");
    const Period period{arguments[1].ToInt32(), arguments[2].ToInt32()};
    return self.GetServer().Query(SaleLinesSql(period, *filter, BaseCurrencyScale(self.GetServer())));
  }

  static std::span<const Member<CalculatedData>> Members() {
    static constexpr std::array<Member<CalculatedData>, 1> kMembers{{
        {"GetSaleData", InvokeKind::kMethod,
         "(props As String, iYear As Integer, iPeriod As Integer, Filter As Dictionary, dTime As Double) As "
         "Recordset",
         GetSaleData, 5},
    }};
    return kMembers;
  }
};

}  // namespace

ObjectRef MakeCalculatedData(ServerRef server) {
  return std::make_shared<CalculatedData>(std::move(server));
}

}  // namespace salerpt::middletier
