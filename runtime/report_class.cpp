#include "runtime/report_class.h"

#include <array>

#include "runtime/text.h"

namespace salerpt {
namespace {

constexpr bool kAuto = true;
constexpr bool kPlain = false;
constexpr bool kIni = true;
constexpr bool kNoIni = false;

constexpr std::array<ReportClass, 25> kClasses = {{
    {"Rpt126", "销售收入统计表", "166", 3, 0, "SysRptLog0019", "销售收入统计表查询", "frmFirter126", kAuto,
     kIni, "", "What each item sold for: quantities, income, output tax and their sum, from sales invoices."},
    {"Rpt128", "销售出库汇总表", "166", 2, 128, "SysRptLog0017", "销售出库汇总表查询", "frmFirter128", kAuto,
     kIni, "Rpt129",
     "What left the warehouse against what was invoiced, per item, and what is still to be invoiced."},
    {"Rpt129", "销售出库明细表", "129", 1, 0, "SysRptLog0018", "销售出库明细表查询", "frmFirter129", kAuto,
     kIni, "",
     "Every line of the outbound bills and sales invoices of a range of days, with subtotals by item and by "
     "day."},
    // The one class that writes no log although its dialog is that of a logging class.
    {"Rpt133", "客户单位销售情况汇总表", "166", 3, 0, "", "", "frmFirter126", kPlain, kNoIni, "",
     "What customers bought, per item, in the base currency: quantity, income, output tax and their sum."},
    {"Rpt134", "客户单位销售情况明细表", "134", 1, 0, "SysRptLog0020", "客户单位销售情况明细表查询",
     "frmFirter134", kAuto, kIni, "", "Every invoice line, customer by customer."},
    {"Rpt135", "销售退货统计表", "135", 1, 0, "SysRptLog0021", "销售退货统计表查询", "frmFirter135", kAuto,
     kIni, "", "What customers sent back."},
    {"Rpt136", "销售订单统计表", "166", 3, 129, "SysRptLog0009", "销售订单统计表查询", "frmFirter136", kAuto,
     kIni, "Rpt129",
     "What customers ordered, per item: quantity and amount of signed orders, in the base currency or by "
     "currency."},
    {"Rpt137", "销售订单执行情况明细表", "134", 1, 0, "SysRptLog0011", "销售订单执行情况明细表查询",
     "frmFirter137", kAuto, kIni, "", "Each order line with its deliveries and what is still undelivered."},
    {"Rpt138", "销售订单执行情况汇总表", "138", 2, 137, "SysRptLog0010", "销售订单执行情况汇总表查询",
     "frmFirter138", kAuto, kIni, "Rpt137",
     "What was ordered against what was delivered, and the remainder, per item."},
    {"Rpt139", "销售订单生产销售跟踪一览表", "401", 6, 400, "SysRptLog0013", "销售订单生产销售跟踪一览表查询",
     "FrmFilter139", kPlain, kNoIni, "",
     "How far each order line has come: ordered, produced, received into stock, shipped, not yet executed."},
    {"Rpt140", "销售增长分析", "300", 3, 0, "SysRptLog0022", "销售增长分析查询", "frmFirter140", kAuto, kIni,
     "",
     "How sales have grown: a period against the same period of the year before, per item, in quantity and "
     "income."},
    {"Rpt142", "销售流向分析", "300", 3, 0, "SysRptLog0023", "销售流向分析查询", "frmFirter142", kAuto, kIni,
     "", "Where the sales between two days went: by region, item class and customer."},
    {"Rpt143", "销售结构分析", "300", 3, 0, "SysRptLog0024", "销售结构分析查询", "frmFirter143", kAuto, kIni,
     "",
     "What share each item has in the sales of its class, and how its income has grown against the year "
     "before."},
    {"Rpt145", "信用数量分析表", "145", 1, 0, "", "", "frmFirter145", kPlain, kIni, "",
     "How much of an item a customer, employee or department may still take on credit."},
    {"Rpt146", "信用额度分析表", "145", 1, 0, "", "", "frmFirter146", kPlain, kIni, "",
     "How much a customer, employee or department may still owe."},
    {"Rpt147", "销售收入明细表", "147", 1, 0, "", "", "frmFilter147", kPlain, kIni, "",
     "Every invoiced line of a range of accounting periods, with its voucher and a total behind each "
     "period."},
    {"Rpt149", "信用期限分析表", "145", 1, 0, "", "", "frmFirter149", kPlain, kIni, "",
     "What each customer, employee or department owes on a day under its credit term, before and after the "
     "cash discount."},
    {"Rpt176", "销售毛利润表", "166", 3, 0, "", "", "frmFirter176", kPlain, kIni, "Rpt129",
     "What sales earned: income of invoices against the cost of what went out, the profit and its rate."},
    {"Rpt189", "销售订单到期交货预警表", "188", 1, 0, "SysRptLog0014", "销售订单到期交货预警表查询",
     "frmFilter189", kAuto, kNoIni, "", "Which order lines are due for delivery and not fully shipped."},
    {"Rpt192", "订单批次跟踪表", "192", 1, 0, "", "", "frmFilter192", kPlain, kIni, "",
     "What became of each order line: production tasks, their receipts and material issues, goods received."},
    {"Rpt300", "虚拟物料订单统计表", "300", 1, 0, "", "", "frmFirter300", kPlain, kIni, "",
     "What was ordered and delivered of virtual items and of the child items that they stand for."},
    {"Rpt301", "销售费用发票汇总表", "301", 2, 302, "", "", "frmFirter301", kPlain, kNoIni, "Rpt302",
     "What fees cost or brought, per fee: quantities and amounts of fee invoices of suppliers or customers."},
    {"Rpt302", "销售费用发票明细表", "302", 1, 0, "", "", "frmFirter302", kPlain, kNoIni, "",
     "The lines of fee invoices of suppliers or customers."},
    // Two lists in one class, told apart by the plan family (the other is "分期收款清单"): the class writes
    // title, RptProperty, detail id and log line itself.
    {"Rpt303", "委托代销清单", "303", 0, 0, "", "", "FrmFilter303", kAuto, kNoIni, "",
     "What customers hold on consignment, or with RptID 304 pay by instalments: unsettled before, sent, "
     "settled, remaining."},
    {"Rpt1010", "销售订单出库收款跟踪表", "1010", 1, 0, "SysRptLog0012", "销售订单出库收款跟踪表查询",
     "frmFirter1010", kAuto, kIni, "",
     "Each order line with its signing, deliveries, invoices, receipts and deposits."},
}};

}  // namespace

std::span<const ReportClass> ReportClasses() {
  return kClasses;
}

const ReportClass* FindReportClass(std::string_view name) {
  for (const ReportClass& report_class : kClasses) {
    if (EqualNames(report_class.name, name)) return &report_class;
  }
  return nullptr;
}

std::string ReportProgID(std::string_view class_name) {
  return Join("ORVSaleRpt.", class_name);
}

}  // namespace salerpt
