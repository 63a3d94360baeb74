#include "reports/flow/rpt301.h"

#include <memory>
#include <utility>

#include "reports/detail_report.h"
#include "reports/flow/rpt301_side.h"
#include "runtime/mmts.h"
#include "runtime/mparse.h"
#include "runtime/runtime.h"
#include "sqltoolkit/data_right.h"
#include "sqltoolkit/filter_values.h"
#include "sqltoolkit/group_columns.h"
#include "sqltoolkit/report_header.h"
#include "sqltoolkit/title_lines.h"

namespace salerpt {

void Rpt301::InitProperty(std::int32_t number) {
  Report::InitProperty(number);
  item_word_ = ResText("费用");
}

// --- Which grouping: "SumMode", whose other codes mean a property where "SumField" names one

Rpt301::Grouping Rpt301::ChosenGrouping() const {
  const Dictionary& filter = Conditions();
  if (!IsGrouped(filter)) return Grouping::kNone;
  switch (FilterInt(filter, "SumMode")) {
    case 1:
      return Grouping::kFeeLevels;
    case 3:
      return Grouping::kPartyLevels;
    case 4:
      return Grouping::kFeeLevelsAndParty;
    default:
      return FilterText(*FilterSumField(filter), "FName").empty() ? Grouping::kPartyAndFeeLevels
                                                                  : Grouping::kProperty;
  }
}

// --- Title

void Rpt301::BuildTitle() {
  const Dictionary& filter = Conditions();
  TitleLines lines;
  lines.Add(Join(ResText("起始日期："), FilterDay(filter, "BDate")));
  lines.Add(Join(ResText("截止日期："), FilterDay(filter, "EDate")));
  lines.Add(Join(item_word_, ResText("代码范围："),
                 RangeCaption(FilterText(filter, "BFeeNumber"), FilterText(filter, "EFeeNumber"),
                              Join(ResText("所有"), item_word_))));
  AddSideRanges(lines, filter);
  title_ = lines.Lines();

  const std::string levels = Join(FilterText(filter, "BLevel"), "--", FilterText(filter, "ELevel"));
  const bool is_supplier = IsSupplierSide(filter);
  std::string by;
  switch (ChosenGrouping()) {
    case Grouping::kNone:
      return;
    case Grouping::kFeeLevels:
      by = Join(levels, ResText("级费用类别"));
      break;
    case Grouping::kPartyLevels:
      by = Join(levels, ResText(is_supplier ? "级供应商类别" : "级客户类别"));
      break;
    case Grouping::kFeeLevelsAndParty:
      by = Join(levels, ResText(is_supplier ? "级费用类别+供应商" : "级费用类别+客户"));
      break;
    case Grouping::kPartyAndFeeLevels:
      by = Join(ResText(is_supplier ? "供应商+" : "客户+"), levels, ResText("级费用类别"));
      break;
    case Grouping::kProperty:
      by = FilterText(*FilterSumField(filter), "FName");
      break;
  }
  lines.Add(Join(ResText("汇总依据："), by));
}

// --- Fetch

void Rpt301::FetchData() {
  header_ = std::make_shared<Vector>();
  const Grouping grouping = ChosenGrouping();
  AddGroupColumns(grouping);
  AddCommonColumns();
  const DictionaryRef request = BuildRequest(grouping);
  request->Set("NoPrice", "");
  request->Set("NoTaxRate", "");
  request->Set("NoDate", "");
  request->Set("RptID", "Rpt301");

  // The rights on the parties of one side and on fees, under the aliases of the bill (V1) and of its lines
  // (V2): the statement that they go into is the middle tier's.
  const DataRight supplier = RequestDataRight({{"t_Supplier", "V1"}, {"t_Fee", "V2"}});
  const DataRight customer = RequestDataRight({{"t_Organization", "V1"}, {"t_Fee", "V2"}});
  SetSideRights(Conditions(), supplier, customer);

  const ObjectRef data = CreateObject("ORVMSaleRpt.Data");
  Progress().SetMsg(ResText("正在从服务器读取数据，请稍候..."));
  rs_.reset();
  Variant sent = request;
  rs_ = As<Recordset>(Call(data, "GetRpt301Data", GetPropsString(), Filter(), sent));
}

DictionaryRef Rpt301::BuildRequest(Grouping grouping) const {
  switch (grouping) {
    case Grouping::kNone:
      return BuildByFee();
    case Grouping::kProperty:
      return BuildByProperty();
    default:
      return BuildByLevel(grouping);
  }
}

// --- Columns

void Rpt301::AddGroupColumns(Grouping grouping) {
  const Dictionary& filter = Conditions();
  const bool is_supplier = IsSupplierSide(filter);
  GroupColumns columns;
  const auto add_party = [&] {
    columns.push_back({ResText(is_supplier ? "供应商$" : "客户$"), "FCustName"});
  };
  switch (grouping) {
    case Grouping::kNone:
      break;
    case Grouping::kFeeLevels:
      AddLevelColumns(columns, filter, "级费用类别$");
      break;
    case Grouping::kPartyLevels:
      AddLevelColumns(columns, filter, is_supplier ? "级供应商类别$" : "级客户类别$");
      break;
    case Grouping::kFeeLevelsAndParty:
      AddLevelColumns(columns, filter, "级费用类别$");
      add_party();
      break;
    case Grouping::kPartyAndFeeLevels:
      add_party();
      AddLevelColumns(columns, filter, "级费用类别$");
      break;
    case Grouping::kProperty:
      AddPropertyColumn(columns, filter);
      break;
  }
  for (GroupColumn& group : columns) {
    AddHeader(*header_, std::move(group.caption), "", ColumnType::kText, group.column, true);
  }
}

void Rpt301::AddCommonColumns() {
  const Dictionary& filter = Conditions();
  const bool show = !(IsGrouped(filter) && IsOnlySum(filter));
  const auto column = [this](std::string caption, ColumnType type, std::string_view name, bool visible) {
    AddHeader(*header_, std::move(caption), "", type, name, visible);
  };
  using enum ColumnType;
  column(ResText("费用类型$"), kText, "FFeeType", show);
  column(Join(item_word_, ResText("代码$")), kText, CodeField(), show);
  column(Join(item_word_, ResText("名称$")), kText, "FName", show);
  column(ResText("计量单位$"), kText, "FUnit", show);
  column(ResText("数量$"), kQuantity, "FAuxQty", true);
  column(ResText("金额$"), kAmount, "FAmount", true);
  column(ResText("可抵扣税额$"), kAmount, "FTaxAmount", true);
  column(ResText("不含税金额$"), kAmount, "FAmountEx", true);
}

// --- Drill-through

ObjectRef Rpt301::GetDetailReport(std::int32_t row) {
  if (!MoveToDetailRow(rs_, row, ClassName())) return nullptr;
  const Dictionary& filter = Conditions();
  auto detail_filter = std::make_shared<Dictionary>();
  for (const std::string_view key : {"BDate", "EDate", "BCust", "ECust", "CheckState", "BSupply", "ESupply",
                                     "InvoiceStyle", "HookStatus"}) {
    detail_filter->Set(key, filter.Get(key));
  }
  const Variant fee = rs_->Value(CodeField());
  detail_filter->Set("BFeeNumber", fee);
  detail_filter->Set("EFeeNumber", fee);
  return RunDetailReport(ClassName(), "ORVSaleRpt.Rpt302", 302, 302, detail_filter);
}

}  // namespace salerpt
