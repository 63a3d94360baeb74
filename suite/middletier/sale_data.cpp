#include <array>
#include <span>

#include "runtime/dictionary.h"
#include "suite/middletier/batch_tracking.h"
#include "suite/middletier/consignment.h"
#include "suite/middletier/customer_sales.h"
#include "suite/middletier/dialog_lists.h"
#include "suite/middletier/fee_invoices.h"
#include "suite/middletier/income_statistics.h"
#include "suite/middletier/objects.h"
#include "suite/middletier/order_due.h"
#include "suite/middletier/order_execution.h"
#include "suite/middletier/order_receipts.h"
#include "suite/middletier/order_tracking.h"
#include "suite/middletier/sale_amounts.h"
#include "suite/middletier/sales_analysis.h"
#include "suite/middletier/suite_object.h"
#include "suite/middletier/virtual_items.h"

namespace salerpt::middletier {
namespace {

// An argument that must be a Dictionary; `what` names it.
const Dictionary& DictionaryIn(const Variant& argument, std::string_view what) {
  const DictionaryRef dictionary = As<Dictionary>(argument);
  if (dictionary) return *dictionary;
  throw RuntimeError(error_number::kInvalidCall, "",
                     Join("the ", what, " is nothing; a Dictionary was expected"));
}

// `ORVMSaleRpt.Data`: the rows of the sales reports. The dictionaries that its members are given go by
// reference and come back as they were.
class SaleData final : public SuiteObject<SaleData> {
 public:
  static constexpr std::string_view kClassName = "ORVMSaleRpt.Data";
  using SuiteObject::SuiteObject;

  static Variant GetSaleAmountData(SaleData& self, Arguments arguments) {
    return SaleAmounts(self.GetServer(), DictionaryIn(arguments[1], "request"));
  }

  static Variant GetSaleDetailData(SaleData& self, Arguments arguments) {
    return SaleDetail(self.GetServer(), DictionaryIn(arguments[1], "request"));
  }

  static Variant GetPurchaseData(SaleData& self, Arguments arguments) {
    return IncomeStatistics(self.GetServer(), arguments[1], arguments[2],
                            DictionaryIn(arguments[3], "request"));
  }

  static Variant GetRpt134Data(SaleData& self, Arguments arguments) {
    return CustomerSales(self.GetServer(), DictionaryIn(arguments[1], "filter"));
  }

  static Variant GetRpt301Data(SaleData& self, Arguments arguments) {
    return FeeSummary(self.GetServer(), DictionaryIn(arguments[1], "filter"),
                      DictionaryIn(arguments[2], "request"));
  }

  static Variant GetRpt302Data(SaleData& self, Arguments arguments) {
    return FeeList(self.GetServer(), DictionaryIn(arguments[1], "filter"));
  }

  static Variant GetRpt303data(SaleData& self, Arguments arguments) {
    return ConsignmentList(self.GetServer(), DictionaryIn(arguments[1], "request"));
  }

  static Variant GetRpt137Data_new(SaleData& self, Arguments arguments) {
    return OrderExecution(self.GetServer(), DictionaryIn(arguments[1], "filter"));
  }

  static Variant GetRpt189Data(SaleData& self, Arguments arguments) {
    return OrdersDue(self.GetServer(), DictionaryIn(arguments[1], "filter"));
  }

  static Variant GetRpt139Data(SaleData& self, Arguments arguments) {
    return OrderTracking(self.GetServer(), DictionaryIn(arguments[1], "frames"),
                         DictionaryIn(arguments[2], "filter"));
  }

  static Variant GetRpt192Data(SaleData& self, Arguments arguments) {
    return BatchTracking(self.GetServer(), DictionaryIn(arguments[1], "filter"));
  }

  static Variant GetRpt300Data(SaleData& self, Arguments arguments) {
    return VirtualItemOrders(self.GetServer(), DictionaryIn(arguments[1], "request"));
  }

  static Variant GetRpt1010Data(SaleData& self, Arguments arguments) {
    return OrderReceipts(self.GetServer(), DictionaryIn(arguments[1], "filter"));
  }

  static Variant GetRpt140Data(SaleData& self, Arguments arguments) {
    return SalesGrowth(self.GetServer(), DictionaryIn(arguments[1], "request"));
  }

  static Variant GetRpt142Data(SaleData& self, Arguments arguments) {
    return SalesFlow(self.GetServer(), DictionaryIn(arguments[1], "request"));
  }

  static Variant GetRpt143Data(SaleData& self, Arguments arguments) {
    return SalesStructure(self.GetServer(), DictionaryIn(arguments[1], "request"));
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

  static Variant GetSaleType(SaleData& self, Arguments /*arguments*/) { return SaleStyles(self.GetServer()); }

  static Variant GetItemPropDesc(SaleData& self, Arguments arguments) {
    return PropertyDescriptions(self.GetServer(), arguments[1].ToText());
  }

  static std::span<const Member<SaleData>> Members() {
    static constexpr std::array<Member<SaleData>, 20> kMembers{{
        {"GetSaleAmountData", InvokeKind::kMethod, "(props As String, request As Dictionary) As Recordset",
         GetSaleAmountData, 2},
        {"GetSaleDetailData", InvokeKind::kMethod, "(props As String, request As Dictionary) As Recordset",
         GetSaleDetailData, 2},
        {"GetPurchaseData", InvokeKind::kMethod,
         "(props As String, BDate As Date, EDate As Date, request As Dictionary) As Recordset",
         GetPurchaseData, 4},
        {"GetRpt134Data", InvokeKind::kMethod, "(props As String, filter As Dictionary) As Recordset",
         GetRpt134Data, 2},
        {"GetRpt301Data", InvokeKind::kMethod,
         "(props As String, filter As Dictionary, request As Dictionary) As Recordset", GetRpt301Data, 3},
        {"GetRpt302Data", InvokeKind::kMethod, "(props As String, filter As Dictionary) As Recordset",
         GetRpt302Data, 2},
        {"GetRpt303data", InvokeKind::kMethod, "(props As String, request As Dictionary) As Recordset",
         GetRpt303data, 2},
        {"GetRpt137Data_new", InvokeKind::kMethod, "(props As String, filter As Dictionary) As Recordset",
         GetRpt137Data_new, 2},
        {"GetRpt189Data", InvokeKind::kMethod, "(props As String, filter As Dictionary) As Recordset",
         GetRpt189Data, 2},
        {"GetRpt139Data", InvokeKind::kMethod,
         "(props As String, frames As Dictionary, filter As Dictionary) As Recordset", GetRpt139Data, 3},
        {"GetRpt192Data", InvokeKind::kMethod, "(props As String, filter As Dictionary) As Dictionary",
         GetRpt192Data, 2},
        {"GetRpt300Data", InvokeKind::kMethod, "(props As String, request As Dictionary) As Recordset",
         GetRpt300Data, 2},
        {"GetRpt1010Data", InvokeKind::kMethod, "(props As String, filter As Dictionary) As Recordset",
         GetRpt1010Data, 2},
        {"GetRpt140Data", InvokeKind::kMethod, "(props As String, request As Dictionary) As Recordset",
         GetRpt140Data, 2},
        {"GetRpt142Data", InvokeKind::kMethod, "(props As String, request As Dictionary) As Recordset",
         GetRpt142Data, 2},
        {"GetRpt143Data", InvokeKind::kMethod, "(props As String, request As Dictionary) As Recordset",
         GetRpt143Data, 2},
        {"GetData", InvokeKind::kMethod, "(props As String, sql As String) As Recordset", GetData, 2},
        {"GetItemMaxLevel", InvokeKind::kMethod, "(props As String, itemClassID As Long) As Long",
         GetItemMaxLevel, 2},
        {"GetSaleType", InvokeKind::kMethod, "(props As String) As Recordset", GetSaleType, 1},
        {"GetItemPropDesc", InvokeKind::kMethod, "(props As String, condition As String) As Vector",
         GetItemPropDesc, 2},
    }};
    return kMembers;
  }
};

}  // namespace

ObjectRef MakeSaleData(ServerRef server) {
  return std::make_shared<SaleData>(std::move(server));
}

}  // namespace salerpt::middletier
