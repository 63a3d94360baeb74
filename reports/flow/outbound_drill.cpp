#include "reports/flow/outbound_drill.h"

#include <cstdint>
#include <memory>
#include <string>

#include "reports/detail_report.h"
#include "runtime/mmts.h"
#include "runtime/mparse.h"
#include "runtime/mrpt.h"
#include "runtime/runtime.h"
#include "runtime/text.h"
#include "sqltoolkit/filter_values.h"

namespace salerpt {
namespace {

// The number that the summaries know the outbound detail by, and its plan family.
constexpr std::int32_t kSummary = 128;
constexpr std::int32_t kOutboundDetail = 129;

// Id of a sale style by its name; "0" for a blank or unknown one.
std::string GetSaleTypeID(std::string_view name) {
  if (Trim(name).empty()) return "0";
  const ObjectRef info = CreateObject("ORVMClass.ClassInfo");
  const std::string sql = Join(
      "Select FInterID,FTypeID,FID,FName from t_Submessage where FName=", QuoteSql(name), " and FTypeID=101");
  const auto rows = As<Recordset>(Call(info, "GetData", GetPropsString(), sql));
  if (!rows || rows->Eof()) return "0";
  return rows->Value("FInterID").TextOrEmpty();
}

}  // namespace

ObjectRef OpenOutboundDetail(std::string_view parent, const Dictionary& filter, Recordset& rows) {
  auto detail_filter = std::make_shared<Dictionary>();
  for (const std::string_view key :
       {"BDate", "EDate", "BCustNumber", "ECustNumber", "CheckState", "SaleType", "SaleTypeName", "FROB"}) {
    detail_filter->Set(key, filter.Get(key));
  }
  const Variant code = rows.Value(CodeField());
  detail_filter->Set("BItemNumber", code);
  detail_filter->Set("EItemNumber", code);
  detail_filter->Set("GroupBy", 0);
  detail_filter->Set("OnlyShowSum", 0);
  detail_filter->Set("chkShowItemSum", 1);
  detail_filter->Set("chkShowDateSum", 0);
  detail_filter->Set("AuxProp", 0);

  if (IsGrouped(filter)) {
    const auto customer = [&](std::string_view field) {
      const Variant number = rows.Value(field);
      detail_filter->Set("BCustNumber", number);
      detail_filter->Set("ECustNumber", number);
    };
    const DictionaryRef sum_field = FilterSumField(filter);
    if (sum_field->Lookup("FName")) {
      const std::string name = FilterText(*sum_field, "FName");
      if (name == ResText("客户")) {
        customer("FPropNumber");
      } else if (name == ResText("销售方式")) {
        const std::string style(Trim(rows.Value("FProp291").TextOrEmpty()));
        detail_filter->Set("SaleType", GetSaleTypeID(style));
        detail_filter->Set("SaleTypeName", style);
      }
    }
    const int sum_mode = FilterInt(filter, "SumMode");
    if (sum_mode == 4 || sum_mode == 12) customer("FCustNumber");
  }
  return RunDetailReport(parent, "ORVSaleRpt.Rpt129", kSummary, kOutboundDetail, detail_filter);
}

}  // namespace salerpt
