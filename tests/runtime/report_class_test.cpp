// The table of the report classes, row by row.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

#include "runtime/report_class.h"

namespace salerpt {
namespace {

// What is expected of a class, in the order of the table: the log line, dialog and the two marks behind the
// description.
struct Expected {
  std::string_view name, title, plan_family;
  int rpt_property;
  int detail_rpt_id;  // 0: no such key
  std::string_view log_key, log_text, dialog;
  bool has_auto_filter, sets_ini_file;
  std::string_view drill_target;
};

constexpr bool kYes = true;
constexpr bool kNo = false;

constexpr Expected kExpected[] = {
    {"Rpt126", "销售收入统计表", "166", 3, 0, "SysRptLog0019", "销售收入统计表查询", "frmFirter126", kYes,
     kYes, ""},
    {"Rpt128", "销售出库汇总表", "166", 2, 128, "SysRptLog0017", "销售出库汇总表查询", "frmFirter128", kYes,
     kYes, "Rpt129"},
    {"Rpt129", "销售出库明细表", "129", 1, 0, "SysRptLog0018", "销售出库明细表查询", "frmFirter129", kYes,
     kYes, ""},
    {"Rpt133", "客户单位销售情况汇总表", "166", 3, 0, "", "", "frmFirter126", kNo, kNo, ""},
    {"Rpt134", "客户单位销售情况明细表", "134", 1, 0, "SysRptLog0020", "客户单位销售情况明细表查询",
     "frmFirter134", kYes, kYes, ""},
    {"Rpt135", "销售退货统计表", "135", 1, 0, "SysRptLog0021", "销售退货统计表查询", "frmFirter135", kYes,
     kYes, ""},
    {"Rpt136", "销售订单统计表", "166", 3, 129, "SysRptLog0009", "销售订单统计表查询", "frmFirter136", kYes,
     kYes, "Rpt129"},
    {"Rpt137", "销售订单执行情况明细表", "134", 1, 0, "SysRptLog0011", "销售订单执行情况明细表查询",
     "frmFirter137", kYes, kYes, ""},
    {"Rpt138", "销售订单执行情况汇总表", "138", 2, 137, "SysRptLog0010", "销售订单执行情况汇总表查询",
     "frmFirter138", kYes, kYes, "Rpt137"},
    {"Rpt139", "销售订单生产销售跟踪一览表", "401", 6, 400, "SysRptLog0013", "销售订单生产销售跟踪一览表查询",
     "FrmFilter139", kNo, kNo, ""},
    {"Rpt140", "销售增长分析", "300", 3, 0, "SysRptLog0022", "销售增长分析查询", "frmFirter140", kYes, kYes,
     ""},
    {"Rpt142", "销售流向分析", "300", 3, 0, "SysRptLog0023", "销售流向分析查询", "frmFirter142", kYes, kYes,
     ""},
    {"Rpt143", "销售结构分析", "300", 3, 0, "SysRptLog0024", "销售结构分析查询", "frmFirter143", kYes, kYes,
     ""},
    {"Rpt145", "信用数量分析表", "145", 1, 0, "", "", "frmFirter145", kNo, kYes, ""},
    {"Rpt146", "信用额度分析表", "145", 1, 0, "", "", "frmFirter146", kNo, kYes, ""},
    {"Rpt147", "销售收入明细表", "147", 1, 0, "", "", "frmFilter147", kNo, kYes, ""},
    {"Rpt149", "信用期限分析表", "145", 1, 0, "", "", "frmFirter149", kNo, kYes, ""},
    {"Rpt176", "销售毛利润表", "166", 3, 0, "", "", "frmFirter176", kNo, kYes, "Rpt129"},
    {"Rpt189", "销售订单到期交货预警表", "188", 1, 0, "SysRptLog0014", "销售订单到期交货预警表查询",
     "frmFilter189", kYes, kNo, ""},
    {"Rpt192", "订单批次跟踪表", "192", 1, 0, "", "", "frmFilter192", kNo, kYes, ""},
    {"Rpt300", "虚拟物料订单统计表", "300", 1, 0, "", "", "frmFirter300", kNo, kYes, ""},
    {"Rpt301", "销售费用发票汇总表", "301", 2, 302, "", "", "frmFirter301", kNo, kNo, "Rpt302"},
    {"Rpt302", "销售费用发票明细表", "302", 1, 0, "", "", "frmFirter302", kNo, kNo, ""},
    // One class for two lists: title, kind and detail follow the list, and the log line is the fetch's.
    {"Rpt303", "委托代销清单", "303", 0, 0, "", "", "FrmFilter303", kYes, kNo, ""},
    {"Rpt1010", "销售订单出库收款跟踪表", "1010", 1, 0, "SysRptLog0012", "销售订单出库收款跟踪表查询",
     "frmFirter1010", kYes, kYes, ""},
};

class ReportClassTest : public ::testing::TestWithParam<Expected> {};

TEST_P(ReportClassTest, SaysWhatIsFixedForTheClass) {
  const Expected& expected = GetParam();
  const ReportClass* actual = FindReportClass(expected.name);
  ASSERT_NE(actual, nullptr);
  EXPECT_EQ(actual->name, expected.name);
  EXPECT_EQ(actual->title, expected.title);
  EXPECT_EQ(actual->plan_family, expected.plan_family);
  EXPECT_EQ(actual->rpt_property, expected.rpt_property);
  EXPECT_EQ(actual->detail_rpt_id, expected.detail_rpt_id);
  EXPECT_EQ(actual->log_key, expected.log_key);
  EXPECT_EQ(actual->log_text, expected.log_text);
  EXPECT_EQ(actual->dialog, expected.dialog);
  EXPECT_EQ(actual->has_auto_filter, expected.has_auto_filter);
  EXPECT_EQ(actual->sets_ini_file, expected.sets_ini_file);
  EXPECT_EQ(actual->drill_target, expected.drill_target);
}

INSTANTIATE_TEST_SUITE_P(AllClasses, ReportClassTest, ::testing::ValuesIn(kExpected),
                         [](const auto& param_info) { return std::string(param_info.param.name); });

TEST(ReportClasses, AreTheTwentyFiveByNumber) {
  std::string names;
  for (const ReportClass& report_class : ReportClasses()) {
    names += report_class.name;
    names += ' ';
  }
  EXPECT_EQ(names,
            "Rpt126 Rpt128 Rpt129 Rpt133 Rpt134 Rpt135 Rpt136 Rpt137 Rpt138 Rpt139 Rpt140 Rpt142 Rpt143 "
            "Rpt145 Rpt146 Rpt147 Rpt149 Rpt176 Rpt189 Rpt192 Rpt300 Rpt301 Rpt302 Rpt303 Rpt1010 ");
}

TEST(ReportClasses, AreFoundWithoutRegardToCase) {
  ASSERT_NE(FindReportClass("RPT128"), nullptr);
  EXPECT_EQ(FindReportClass("RPT128")->name, "Rpt128");
}

TEST(ReportClasses, DoNotHoldTheNumbersThatNoReportHas) {
  for (const std::string_view name : {"Rpt127", "Rpt141", "Rpt148", "Rpt12", "128", ""}) {
    EXPECT_EQ(FindReportClass(name), nullptr) << name;
  }
}

TEST(ReportClasses, HaveTheirNameBehindTheLibrarysInTheProgID) {
  EXPECT_EQ(ReportProgID("Rpt147"), "ORVSaleRpt.Rpt147");
  EXPECT_EQ(ReportProgID("Rpt1010"), "ORVSaleRpt.Rpt1010");
}

}  // namespace
}  // namespace salerpt
