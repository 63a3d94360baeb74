#include <array>
#include <span>

#include "runtime/dictionary.h"
#include "suite/middletier/objects.h"
#include "suite/middletier/sale_credit.h"
#include "suite/middletier/suite_object.h"

namespace salerpt::middletier {
namespace {

// `ORVMSaleCredit.clsGetData`: the credit formula of the account set, as SQL. Its members are given a filter
// and a result, both by reference. The filter comes back as it was; the result gets "Sql", the text of the
// batch that gives the report's rows, empty where the account set holds no limits of the kind.
class CreditData final : public SuiteObject<CreditData> {
 public:
  static constexpr std::string_view kClassName = "ORVMSaleCredit.clsGetData";
  using SuiteObject::SuiteObject;

  static Variant GetCreditRptByQty(CreditData& self, Arguments arguments) {
    return self.Answer(arguments, "GetCreditRptByQty", CreditByQuantity);
  }
  static Variant GetCreditRptByAmt(CreditData& self, Arguments arguments) {
    return self.Answer(arguments, "GetCreditRptByAmt", CreditByAmount);
  }
  static Variant GetCreditRptByDate(CreditData& self, Arguments arguments) {
    return self.Answer(arguments, "GetCreditRptByDate", CreditByTerm);
  }

  static std::span<const Member<CreditData>> Members() {
    static constexpr std::array<Member<CreditData>, 3> kMembers{{
        {"GetCreditRptByQty", InvokeKind::kMethod, "(filter As Dictionary, result As Dictionary)",
         GetCreditRptByQty, 2},
        {"GetCreditRptByAmt", InvokeKind::kMethod, "(filter As Dictionary, result As Dictionary)",
         GetCreditRptByAmt, 2},
        {"GetCreditRptByDate", InvokeKind::kMethod, "(filter As Dictionary, result As Dictionary)",
         GetCreditRptByDate, 2},
    }};
    return kMembers;
  }

 private:
  using Formula = std::string (*)(Server& server, const Dictionary& filter);

  // What is wrong with the filter is told in "Error" and "ErrorSource". A batch without rows goes with it: an
  // empty "Sql" would say that there is no formula, and nobody would look at the error.
  Variant Answer(Arguments arguments, std::string_view member, Formula formula) const {
    const Dictionary& filter = *Required(arguments[0], "filter");
    Dictionary& result = *Required(arguments[1], "result");
    try {
      result.Set("Sql", formula(GetServer(), filter));
    } catch (const RuntimeError& error) {
      result.Set("Sql", "Select FCreditClass From ICCreditQty Where 1=0");
      result.Set("Error", error.Description());
      result.Set("ErrorSource", Join(kClassName, ":", member));
    }
    return {};
  }

  static DictionaryRef Required(const Variant& argument, std::string_view what) {
    const DictionaryRef dictionary = As<Dictionary>(argument);
    if (dictionary) return dictionary;
    throw RuntimeError(error_number::kInvalidCall, "",
                       Join("the ", what, " is nothing; a Dictionary was expected"));
  }
};

}  // namespace

ObjectRef MakeCreditData(ServerRef server) {
  return std::make_shared<CreditData>(std::move(server));
}

}  // namespace salerpt::middletier
