#include "reports/flow/rpt303.h"

#include <array>
#include <memory>
#include <utility>

#include "runtime/mmts.h"
#include "runtime/mparse.h"
#include "runtime/mrpt.h"
#include "runtime/runtime.h"
#include "sqltoolkit/data_right.h"
#include "sqltoolkit/filter_condition.h"
#include "sqltoolkit/filter_values.h"
#include "sqltoolkit/group_columns.h"
#include "sqltoolkit/item_level.h"
#include "sqltoolkit/report_header.h"
#include "sqltoolkit/title_lines.h"

namespace salerpt {
namespace {

// The numbers that hosts and plan families know the two lists by.
constexpr std::int32_t kConsignmentList = 303;
constexpr std::int32_t kInstalmentList = 304;

// The sale styles (`FSaleStyle`) whose bills the lists take.
constexpr std::int32_t kConsignmentSale = 103;
constexpr std::int32_t kInstalmentSale = 102;

}  // namespace

// --- Which of the two lists

void Rpt303::SetRptID(std::int32_t number) {
  Report::SetRptID(number);
  if (number == kConsignmentList || number == kInstalmentList) SetExtFirter(Join(number));
}

bool Rpt303::IsConsignmentList() const {
  return ext_filter_ == "303";
}

// --- Set-up: the texts that do not depend on a filter

void Rpt303::InitProperty(std::int32_t number) {
  Report::InitProperty(number);
  property_->Set("Name", ResText(IsConsignmentList() ? "委托代销清单" : "分期收款清单"));
  property_->Set("RptProperty", std::int16_t{2});
  property_->Set("DetailRptID", number);
  item_word_ = ResText("物料");
  const int d = AmountScale();

  // The texts stand as they are sent.
  // clang-format off
  column_definitions_ = Join(
      "      FNumber  VARCHAR(355) null, FShortNumber  VARCHAR(355) null,\r\n"
      "     FName  VARCHAR(355) null,FModel  VARCHAR(355) null,\r\n"
      "     FUnitName  VARCHAR(355) null,FCUUnitName  VARCHAR(355) null,\r\n"
      "     FQtyDecimal smallint null,FPriceDecimal smallint null,\r\n"
      "     FBegQty     decimal(23,10)  null,  FBegPrice   decimal(23,10)  null,\r\n"
      "     FCUBegQty     decimal(23,10)  null,FCUBegPrice   decimal(23,10)  null,\r\n"
      "     FBegAmount  decimal(18,", d, ")  null,\r\n"
      "     FSendQty     decimal(23,10)  null,\r\n"
      "     FSendPrice   decimal(23,10)  null,\r\n"
      "     FCUSendQty     decimal(23,10)  null,\r\n"
      "     FCUSendPrice   decimal(23,10)  null,\r\n"
      "     FSendAmount  decimal(18,", d, ")  null,\r\n"
      "     FVerifQty     decimal(23,10)  null,\r\n"
      "     FVerifPrice   decimal(23,10)  null,\r\n"
      "     FCUVerifQty     decimal(23,10)  null,\r\n"
      "     FCUVerifPrice   decimal(23,10)  null,\r\n"
      "     FVerifAmount  decimal(18,", d, ")  null,\r\n"
      "     FEndQty     decimal(23,10)  null,\r\n"
      "     FEndPrice   decimal(23,10)  null,\r\n"
      "     FCUEndQty     decimal(23,10)  null,\r\n"
      "     FCUEndPrice   decimal(23,10)  null,\r\n"
      "     FEndAmount  decimal(18,", d, ")  null,\r\n"
      "     FSumSort smallint not null Default(0),\r\n"
      "     FID int IDENTITY)\r\n");

  // Names, model and units stay blank here, prices and closing figures 0: the middle tier fills them.
  value_list_ = Join(
      "'','','','','',4,4, Sum (round(FBegQty,v1.FQtyDecimal)),0,Sum (round(FCUBegQty,v1.FQtyDecimal)),0,"
      "Sum(round(FBegAmount,", d, ")),"
      " Sum (round(FSendQty,v1.FQtyDecimal)),0,Sum (round(FCUSendQty,v1.FQtyDecimal)),0,"
      "Sum(round(FSendAmount,", d, ")),"
      " Sum (round(FVerifQty,v1.FQtyDecimal)),0,Sum (round(FCUVerifQty,v1.FQtyDecimal)),0,"
      "Sum(round(FVerifAmount,", d, ")),"
      " 0,0,0, 0,0, ");
  // clang-format on

  where_text_ = " WHERE  1=1 ";
  const DataRight right = RequestDataRight({{"t_Organization", "t2"}});
  if (!Trim(right.where_text).empty()) Append(where_text_, " AND ", right.where_text);
}

// --- Title

void Rpt303::BuildTitle() {
  const Dictionary& filter = Conditions();
  TitleLines lines;
  lines.Add(Join(ResText("起始日期："), FilterText(filter, "BDate")));
  lines.Add(Join(ResText("截止日期："), FilterText(filter, "EDate")));
  lines.Add(Join(item_word_, ResText("代码范围："),
                 RangeCaption(FilterText(filter, "BItemNumber"), FilterText(filter, "EItemNumber"),
                              Join(ResText("所有"), item_word_))));
  lines.AddRange("客户代码范围：", filter, "BCustNumber", "ECustNumber", "所有客户");
  lines.AddRange("部门代码范围：", filter, "BDptNumber", "EDptNumber", "所有部门");
  lines.AddRange("业务员代码范围：", filter, "BEmpNumber", "EEmpNumber", "所有业务员");
  title_ = lines.Lines();
  if (!IsGrouped(filter)) return;

  const std::string levels = Join(FilterText(filter, "BLevel"), "--", FilterText(filter, "ELevel"));
  const DictionaryRef sum_field = FilterSumField(filter);
  std::string by;
  switch (FilterInt(filter, "SumMode")) {
    case 1:
      by = Join(levels, ResText("级物料类别"));
      break;
    case 2:
      by = Join(levels, ResText("级客户类别"));
      break;
    case 3:
      by = Join(levels, ResText("级物料类别+客户"));
      break;
    case 4:
      by = Join(ResText("客户+"), levels);
      break;
    case 6:
      by = ResText("批号");
      break;
    default:
      switch (FilterInt(*sum_field, "FItemClassID")) {
        case 2:
          by = ResText("部门");
          break;
        case 3:
          by = ResText("业务员");
          break;
        default:
          by = FilterText(*sum_field, "FName");
          break;
      }
      break;
  }
  lines.Add(Join(ResText("汇总依据："), by));
}

// --- Condition on items, customers, employees and departments

void Rpt303::BuildConditions() {
  const Dictionary& filter = Conditions();
  condition_.clear();
  AppendCodeRange(condition_, filter, "BItemNumber", "EItemNumber", " AND t1.");
  AppendCommodityType(condition_, filter);
  AppendCodeRange(condition_, filter, "BCustNumber", "ECustNumber", " AND t2.");
  AppendCodeRange(condition_, filter, "BEmpNumber", "EEmpNumber", " AND t3.");
  AppendCodeRange(condition_, filter, "BDptNumber", "EDptNumber", " AND t4.");
}

// --- The figures: four blocks of five columns

namespace {

struct FigureKind {
  std::string_view caption;
  ColumnType type;
  bool shows_money;
};
constexpr std::array<FigureKind, 5> kFigureKinds = {{
    {"数量(基本)", ColumnType::kQuantity, false},
    {"单价(基本)", ColumnType::kPrice, true},
    {"数量(常用)", ColumnType::kQuantity, false},
    {"单价(常用)", ColumnType::kPrice, true},
    {"金额", ColumnType::kBaseAmount, true},
}};

struct FigureBlock {
  std::string_view caption;             // in the consignment list
  std::string_view instalment_caption;  // in the instalment list
  std::array<std::string_view, kFigureKinds.size()> columns;
};
constexpr std::array<FigureBlock, 4> kFigureBlocks = {{
    {"未结算余额+|+|+|+|",
     "未结算余额+|+|+|+|",
     {"FBegQty", "FBegPrice", "FCUBegQty", "FCUBegPrice", "FBegAmount"}},
    {"发出+|+|+|+|", "发出+|+|+|+|", {"FSendQty", "FSendPrice", "FCUSendQty", "FCUSendPrice", "FSendAmount"}},
    {"结算+|+|+|+|",
     "销售+|+|+|+|",
     {"FVerifQty", "FVerifPrice", "FCUVerifQty", "FCUVerifPrice", "FVerifAmount"}},
    {"结存+|+|+|+|", "结存+|+|+|+|", {"FEndQty", "FEndPrice", "FCUEndQty", "FCUEndPrice", "FEndAmount"}},
}};

// What `Rs` holds while the middle tier works: the fields of the figures, without rows.
RecordsetRef DeclareFigures() {
  RecordsetRef rows = MakeRecordset();
  rows->SetCursorLocation(Recordset::kClientSide);
  rows->AppendField("FPriceDecimal", FieldType::kSmallInt, 0);
  rows->AppendField("FQtyDecimal", FieldType::kSmallInt, 0);
  for (const FigureBlock& block : kFigureBlocks) {
    for (const std::string_view column : block.columns) rows->AppendField(column, FieldType::kDouble, 0);
  }
  rows->AppendField("FSumSort", FieldType::kInteger, 0);
  rows->Open();
  return rows;
}

}  // namespace

// --- Fetch

void Rpt303::FetchData() {
  header_ = std::make_shared<Vector>();
  const DictionaryRef request = BuildRequest();
  AddItemColumns();
  AddFigureColumns();
  CompleteRequest(*request);

  // Logged here and not by ShowFilter, so that a list without a dialog is logged too.
  if (IsConsignmentList()) {
    WriteLog("SysRptLog0025", 3, "委托代销清单查询");
  } else {
    WriteLog("SysRptLog0026", 3, "分期收款清单查询");
  }

  const ObjectRef data = CreateObject("ORVMSaleRpt.Data");
  Progress().SetMsg(ResText("正在从服务器读取数据..."));
  rs_ = DeclareFigures();
  Variant sent = request;
  rs_ = As<Recordset>(Call(data, "GetRpt303data", GetPropsString(), sent));
}

// The group columns of the grouping that was asked for, and its batch.
DictionaryRef Rpt303::BuildRequest() {
  const Dictionary& filter = Conditions();
  if (!IsGrouped(filter)) return BuildByItem();
  AddGroupColumns();
  const int sum_mode = FilterInt(filter, "SumMode");
  switch (sum_mode) {
    case 1:
    case 3:
    case 4:
      return BuildByLevel(kItemClass, sum_mode);
    case 2:
      return BuildByLevel(kCustomerClass, sum_mode);
    case 6:
      return BuildByBatchNo();
    default:
      return BuildByProperty();
  }
}

// What the middle tier needs to fill #Rpt303; `u1` is the bill in its own statements.
void Rpt303::CompleteRequest(Dictionary& request) const {
  const Dictionary& filter = Conditions();
  std::string_view state;
  switch (FilterInt(filter, "CheckState")) {
    case 0:
      state = " AND u1.FStatus>0 And u1.FCancelLation=0 ";
      break;
    case 1:
      state = " AND u1.FStatus=0 And u1.FCancelLation=0 ";
      break;
    default:
      state = " And u1.FCancelLation=0 ";
      break;
  }
  for (const std::string_view key : {"SELECT", "ITEMFILTER"}) {
    request.Set(key, Replace(request.Get(key).ToText(), "##CHECKSTATE##", state));
  }
  request.Set("NoPrice", "");
  request.Set("NoTaxRate", "");
  request.Set("NoDate", "");
  request.Set("BDate", filter.Get("BDate"));
  request.Set("Edate", filter.Get("EDate"));
  request.Set("sWheChk", state);
  request.Set("ShowVirtualStock", FilterInt(filter, "ShowVirtualStock"));
  request.Set("FSaleStyle", IsConsignmentList() ? kConsignmentSale : kInstalmentSale);
  request.Set("RptID", "Rpt303");
}

// --- Columns

void Rpt303::AddGroupColumns() {
  const Dictionary& filter = Conditions();
  GroupColumns columns;
  switch (FilterInt(filter, "SumMode")) {
    case 1:
      AddLevelColumns(columns, filter, "级物料类别$");
      break;
    case 2:
      AddLevelColumns(columns, filter, "级客户类别$");
      break;
    case 3:
      AddLevelColumns(columns, filter, "级物料类别$");
      AddCustomerColumn(columns);
      break;
    case 4:
      AddCustomerColumn(columns);
      AddLevelColumns(columns, filter, "级物料类别$");
      break;
    case 6:
      // Here the item is a group: its subtotal rows carry its code.
      columns.push_back({ResText("批号$"), "FBatchNo"});
      columns.push_back({Join(item_word_, ResText("代码$")), "FNumber"});
      break;
    default:
      AddPropertyColumn(columns, filter);
      break;
  }
  for (GroupColumn& group : columns) {
    AddHeader(*header_, std::move(group.caption), "", ColumnType::kText, group.column, true, ForceHide{0});
  }
}

void Rpt303::AddItemColumns() {
  const Dictionary& filter = Conditions();
  const bool show = !(IsGrouped(filter) && IsOnlySum(filter));
  const auto column = [this, show](std::string caption, std::string_view name) {
    AddHeader(*header_, std::move(caption), "", ColumnType::kText, name, show, ForceHide{0});
  };
  const bool is_by_batch = IsGrouped(filter) && FilterInt(filter, "SumMode") == 6;
  if (!is_by_batch) column(Join(item_word_, ResText("代码$")), CodeField());
  column(Join(item_word_, ResText("名称$")), "FName");
  column(ResText("规格型号$"), "FModel");
  column(ResText("单位(基本)$"), "FUnitName");
  column(ResText("单位(常用)$"), "FCUUnitName");
}

void Rpt303::AddFigureColumns() {
  const bool is_consignment = IsConsignmentList();
  // The user's right on prices and amounts of the list.
  const ForceHide money{static_cast<std::int16_t>(AccessCheck(1008, is_consignment ? 21 : 22, 4) ? 0 : 1)};
  for (const FigureBlock& block : kFigureBlocks) {
    // The upper caption stands over the first column and spans the others, which carry a blank.
    std::string caption = ResText(is_consignment ? block.caption : block.instalment_caption);
    for (std::size_t i = 0; i < kFigureKinds.size(); ++i) {
      const FigureKind& kind = kFigureKinds[i];
      AddHeader(*header_, std::exchange(caption, " "), ResText(kind.caption), kind.type, block.columns[i],
                true, kind.shows_money ? money : ForceHide{0});
    }
  }
}

}  // namespace salerpt
