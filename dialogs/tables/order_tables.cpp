// The dialogs of the order reports.
#include <array>
#include <cstdint>
#include <string_view>

#include "dialogs/tables/entries.h"
#include "dialogs/tables/tables.h"

namespace salerpt {
namespace {

// The sale style that order reports do not offer.
constexpr std::int32_t kNoOrderStyle = 20298;

// --- frmFirter136

constexpr std::array kCodesOf136 = {
    BaseData(0, kItemClass, "物料代码:"),
    BaseData(2, kCustomerClass, "客户代码:"),
    BaseData(4, kDepartmentClass, "部门代码:"),
    BaseData(6, kEmployeeClass, "业务员:"),
    CodeRange{8, LookUp::kNumber, kCurrencyClass, "币别代码:"},
};
constexpr std::array kBoxesOf136 = {
    kCheckStateBox,
    kCommodityTypeBox,
};
constexpr std::array kChecksOf136 = {
    CheckBoxCaption{"ChkByCurrency", "按币别汇总"},
    kNextChooseCheck,
};
constexpr std::array kLabelsOf136 = {
    LabelCaption{"lblBDate", "起始日期:"},      LabelCaption{"lblEDate", "截止日期:"},
    LabelCaption{"lblOrderType", "销售范围:"},  LabelCaption{"lblSaleType", "销售方式:"},
    LabelCaption{"lblCheckState", "单据状态:"}, LabelCaption{"lblCommodityType", "商品类型:"},
};
constexpr std::array kGroupRowsOf136 = {
    kByItemClass, kByCustomerClass,        kByItemClassAndCustomer,   kByCustomerAndItemClass,
    kByCustomer,  GroupByRow{"业务员", 6}, GroupByRow{"销售方式", 0},
};
// Kept: the sale style stands under a class 29, as hosts know the column that the report names after it.
constexpr std::array kSumFieldsOf136 = {
    SumFieldRow{.code = 0,
                .name = "销售方式",
                .item_class_id = 29,
                .prop_id = 29,
                .sql_column_name = "FSaleStyle",
                .src_table = "t_SubMessage",
                .src_field = "FInterID",
                .display_field = "FName"},
    SumFieldRow{5, "客户", kCustomerClass, true},
    SumFieldRow{6, "业务员", kEmployeeClass, true},
};
constexpr GroupByTable kGroupsOf136 = {.rows = kGroupRowsOf136, .sum_fields = kSumFieldsOf136};
constexpr std::array kSortFieldsOf136 = {
    SortField{"产品代码", "FNumber", "", "FShortNumber"},
    SortField{"签订数量(基本)", "FQty"},
    SortField{"签订数量(常用)", "FCUUnitQty"},
    SortField{"签订金额(本位币)", "FAmount"},
};
constexpr std::array kKeysOf136 = {
    KeyOfDate("BDate", "DtpBDate"),
    KeyOfDate("EDate", "DtpEDate"),
    KeyOfText("BItemNumber", "txtItem(0)"),
    KeyOfText("EItemNumber", "txtItem(1)"),
    KeyOfText("BCustNumber", "txtItem(2)"),
    KeyOfText("ECustNumber", "txtItem(3)"),
    KeyOfText("BDepartNumber", "txtItem(4)"),
    KeyOfText("EDepartNumber", "txtItem(5)"),
    KeyOfText("BEmpNumber", "txtItem(6)"),
    KeyOfText("EEmpNumber", "txtItem(7)"),
    KeyOfText("BCurrencyNumber", "txtItem(8)"),
    KeyOfText("ECurrencyNumber", "txtItem(9)"),
    KeyOfCheck("ChkByCurrency", "ChkByCurrency"),
    KeyOfCheck("GroupBy", "chkGroupBy"),
    KeyOfCheck("OnlyShowSum", "chkOnlyShowSum"),
    KeyOfNumber("BLevel", "txtlevel(0)"),
    KeyOfNumber("ELevel", "txtlevel(1)"),
    kSumModeKey,
    kSumNameKey,
    KeyOfItemData("SaleType", "CmbSaleType"),
    KeyOfListText("SaleTypeName", "CmbSaleType"),
    kSumFieldKey,
    KeyOfListIndex("CheckState", "cmbCheckState"),
    KeyOfItemData("OrderType", "Cmb_OrderType"),
    KeyOfListText("OrderTypeName", "Cmb_OrderType"),
    KeyOfOrder("Orderby"),
    KeyOfCheck("chkNextChoose", "chkNextChoose"),
    KeyOfListIndex("CommodityType", "cmbCommodityType"),
    kDefaultPlanSaved,
};
constexpr std::array kPlanOf136 = {
    PlanOfDate("BDate", "DtpBDate"),
    PlanOfDate("EDate", "DtpEDate"),
    PlanOfCode("BItem", "txtItem(0)"),
    PlanOfCode("EItem", "txtItem(1)"),
    PlanOfCode("BCustomer", "txtItem(2)"),
    PlanOfCode("ECustomer", "txtItem(3)"),
    PlanOfCode("BDep", "txtItem(4)"),
    PlanOfCode("EDep", "txtItem(5)"),
    PlanOfCode("BEmp", "txtItem(6)"),
    PlanOfCode("EEmp", "txtItem(7)"),
    PlanOfCode("BCurrency", "txtItem(8)"),
    PlanOfCode("ECurrency", "txtItem(9)"),
    PlanOfText("BLevel", "txtlevel(0)", "1"),
    PlanOfText("ELevel", "txtlevel(1)", "5"),
    PlanOfCheck("chkByCurrency", "ChkByCurrency", "0"),
    PlanOfCheck("chkGroupBy", "chkGroupBy", "1"),
    PlanOfCheck("OnlyShowSum", "chkOnlyShowSum", "1"),
    PlanOfListIndex("GroupByListIndex", "cmbGroupBy"),
    PlanOfListIndex("CheckState", "cmbCheckState"),
    PlanOfListIndex("SaleTypeListIndex", "CmbSaleType"),
    PlanOfListIndex("OrderType", "Cmb_OrderType"),
    PlanOfOrder("OrderBy", kItemCodeOrder),
    PlanOfCheck("chkNextChoose", "chkNextChoose", "0"),
    PlanOfListIndex("CommodityType", "cmbCommodityType"),
};

// --- frmFirter137

constexpr std::array kCodesOf137 = {
    BaseData(0, kItemClass, "物料代码:"),   BaseData(2, kCustomerClass, "客户代码:"),
    BaseData(4, kBranchClass, "机构代码:"), BaseData(6, kDepartmentClass, "部门代码:"),
    BaseData(8, kEmployeeClass, "业务员:"), CodeRange{10, LookUp::kOrderNumber, kNoClass, "订单编号:"},
};
constexpr std::array<std::string_view, 3> kExecutionStates = {"全部", "逾期未完全执行", "逾期已完全执行"};
constexpr std::array kBoxesOf137 = {
    kCheckStateBox,    kDisplayTypeBox, kCloseStateBox, ComboBoxRows{"cmbImplement", kExecutionStates},
    kCommodityTypeBox,
};
constexpr std::array kChecksOf137 = {
    kNextChooseCheck,
};
constexpr std::array kLabelsOf137 = {
    LabelCaption{"lblBDate", "起始日期:"},         LabelCaption{"lblEDate", "截止日期:"},
    LabelCaption{"lblOrderType", "销售范围:"},     LabelCaption{"lblSaleType", "销售方式:"},
    LabelCaption{"lblImplement", "执行状态:"},     LabelCaption{"lblCheckState", "审核状态:"},
    LabelCaption{"lblDisplayType", "显示:"},       LabelCaption{"lblCloseState", "是否关闭:"},
    LabelCaption{"lblCommodityType", "商品类型:"},
};
constexpr std::array kKeysOf137 = {
    KeyOfDate("BDate", "DtpBDate"),
    KeyOfDate("EDate", "DtpEDate"),
    KeyOfText("BItemNumber", "txtItem(0)"),
    KeyOfText("EItemNumber", "txtItem(1)"),
    KeyOfText("BCustNumber", "txtItem(2)"),
    KeyOfText("ECustNumber", "txtItem(3)"),
    KeyOfText("BCompanyNumber", "txtItem(4)"),
    KeyOfText("ECompanyNumber", "txtItem(5)"),
    KeyOfText("BDept", "txtItem(6)"),
    KeyOfText("EDept", "txtItem(7)"),
    KeyOfText("BEmp", "txtItem(8)"),
    KeyOfText("EEmp", "txtItem(9)"),
    KeyOfText("BBillNo", "txtItem(10)"),
    KeyOfText("EBillNo", "txtItem(11)"),
    KeyOfListIndex("CheckState", "cmbCheckState"),
    KeyOfListIndex("DisplayType", "CmbDisplayType"),
    KeyOfListIndex("CloseState", "CmbCloseState"),
    KeyOfItemData("SaleType", "CmbSaleType"),
    KeyOfListText("SaleTypeName", "CmbSaleType"),
    KeyOfItemData("OrderType", "Cmb_OrderType"),
    KeyOfListText("OrderTypeName", "Cmb_OrderType"),
    KeyOfListIndex("Implement", "cmbImplement"),
    KeyOfCheck("chkNextChoose", "chkNextChoose"),
    KeyOfListIndex("CommodityType", "cmbCommodityType"),
    kDefaultPlanSaved,
};
constexpr std::array kPlanOf137 = {
    PlanOfDate("BDate", "DtpBDate"),
    PlanOfDate("EDate", "DtpEDate"),
    PlanOfCode("BItem", "txtItem(0)"),
    PlanOfCode("EItem", "txtItem(1)"),
    PlanOfCode("BCustomer", "txtItem(2)"),
    PlanOfCode("ECustomer", "txtItem(3)"),
    PlanOfCode("BCompany", "txtItem(4)"),
    PlanOfCode("ECompany", "txtItem(5)"),
    PlanOfCode("BDept", "txtItem(6)"),
    PlanOfCode("EDept", "txtItem(7)"),
    PlanOfCode("BEmp", "txtItem(8)"),
    PlanOfCode("EEmp", "txtItem(9)"),
    PlanOfCode("BBillNo", "txtItem(10)"),
    PlanOfCode("EBillNo", "txtItem(11)"),
    PlanOfListIndex("CheckState", "cmbCheckState"),
    PlanOfListIndex("DisplayType", "CmbDisplayType"),
    PlanOfListIndex("CloseState", "CmbCloseState"),
    PlanOfListIndex("SaleTypeListIndex", "CmbSaleType"),
    PlanOfListIndex("Implement", "cmbImplement"),
    PlanOfListIndex("OrderType", "Cmb_OrderType"),
    PlanOfCheck("chkNextChoose", "chkNextChoose", "0"),
    PlanOfListIndex("CommodityType", "cmbCommodityType"),
};

// --- frmFirter138

constexpr std::array kCodesOf138 = {
    BaseData(0, kItemClass, "物料代码:"),   BaseData(2, kCustomerClass, "客户代码:"),
    BaseData(4, kBranchClass, "机构代码:"), BaseData(6, kDepartmentClass, "部门代码:"),
    BaseData(8, kEmployeeClass, "业务员:"), CodeRange{10, LookUp::kOrderNumber, kNoClass, "订单编号:"},
};
constexpr std::array kBoxesOf138 = {
    kCheckStateBox,
    kCloseStateBox,
    kCommodityTypeBox,
};
constexpr std::array kChecksOf138 = {
    kNextChooseCheck,
};
constexpr std::array kLabelsOf138 = {
    LabelCaption{"lblBDate", "起始日期:"},         LabelCaption{"lblEDate", "截止日期:"},
    LabelCaption{"lblOrderType", "销售范围:"},     LabelCaption{"lblSaleType", "销售方式:"},
    LabelCaption{"lblCheckState", "单据状态:"},    LabelCaption{"lblCloseState", "是否关闭:"},
    LabelCaption{"lblCommodityType", "商品类型:"},
};
constexpr std::array kGroupRowsOf138 = {
    kByItemClass, kByCustomerClass,        kByItemClassAndCustomer,   kByCustomerAndItemClass,
    kByCustomer,  GroupByRow{"业务员", 7}, GroupByRow{"销售方式", 0},
};
// Kept: the customer stands under the department's class and the sale style under the customer's, as hosts
// know the columns that the report names after them.
constexpr std::array kSumFieldsOf138 = {
    SumFieldRow{.code = 0,
                .name = "销售方式",
                .item_class_id = 1,
                .prop_id = 29,
                .sql_column_name = "FSaleStyle",
                .src_table = "t_SubMessage",
                .src_field = "FInterID",
                .display_field = "FName"},
    SumFieldRow{5, "客户", kDepartmentClass},
    SumFieldRow{7, "业务员", kEmployeeClass},
};
constexpr GroupByTable kGroupsOf138 = {.rows = kGroupRowsOf138, .sum_fields = kSumFieldsOf138};
constexpr std::array kKeysOf138 = {
    KeyOfDate("BDate", "DtpBDate"),
    KeyOfDate("EDate", "DtpEDate"),
    KeyOfText("BItemNumber", "txtItem(0)"),
    KeyOfText("EItemNumber", "txtItem(1)"),
    KeyOfText("BCustNumber", "txtItem(2)"),
    KeyOfText("ECustNumber", "txtItem(3)"),
    KeyOfText("BCompanyNumber", "txtItem(4)"),
    KeyOfText("ECompanyNumber", "txtItem(5)"),
    KeyOfText("BDept", "txtItem(6)"),
    KeyOfText("EDept", "txtItem(7)"),
    KeyOfText("BEmp", "txtItem(8)"),
    KeyOfText("EEmp", "txtItem(9)"),
    KeyOfText("BBillNo", "txtItem(10)"),
    KeyOfText("EBillNo", "txtItem(11)"),
    KeyOfCheck("GroupBy", "chkGroupBy"),
    KeyOfCheck("OnlyShowSum", "chkOnlyShowSum"),
    KeyOfNumber("BLevel", "txtlevel(0)"),
    KeyOfNumber("ELevel", "txtlevel(1)"),
    kSumModeKey,
    kSumNameKey,
    KeyOfItemData("SaleType", "CmbSaleType"),
    KeyOfListText("SaleTypeName", "CmbSaleType"),
    KeyOfItemData("OrderType", "Cmb_OrderType"),
    KeyOfListText("OrderTypeName", "Cmb_OrderType"),
    kSumFieldKey,
    KeyOfListIndex("CheckState", "cmbCheckState"),
    KeyOfListIndex("CloseState", "CmbCloseState"),
    KeyOfCheck("chkNextChoose", "chkNextChoose"),
    KeyOfListIndex("CommodityType", "cmbCommodityType"),
    kDefaultPlanSaved,
};
constexpr std::array kPlanOf138 = {
    PlanOfDate("BDate", "DtpBDate"),
    PlanOfDate("EDate", "DtpEDate"),
    PlanOfCode("BItem", "txtItem(0)"),
    PlanOfCode("EItem", "txtItem(1)"),
    PlanOfCode("BCustomer", "txtItem(2)"),
    PlanOfCode("ECustomer", "txtItem(3)"),
    PlanOfCode("BCompany", "txtItem(4)"),
    PlanOfCode("ECompany", "txtItem(5)"),
    PlanOfCode("BDept", "txtItem(6)"),
    PlanOfCode("EDept", "txtItem(7)"),
    PlanOfCode("BEmp", "txtItem(8)"),
    PlanOfCode("EEmp", "txtItem(9)"),
    PlanOfCode("BBillNo", "txtItem(10)"),
    PlanOfCode("EBillNo", "txtItem(11)"),
    PlanOfText("BLevel", "txtlevel(0)", "1"),
    PlanOfText("ELevel", "txtlevel(1)", "5"),
    PlanOfCheck("chkGroupBy", "chkGroupBy", "1"),
    PlanOfCheck("OnlyShowSum", "chkOnlyShowSum", "1"),
    PlanOfListIndex("GroupByListIndex", "cmbGroupBy"),
    PlanOfListIndex("CheckState", "cmbCheckState"),
    PlanOfListIndex("CloseState", "CmbCloseState"),
    PlanOfListIndex("SaleTypeListIndex", "CmbSaleType"),
    PlanOfListIndex("OrderType", "Cmb_OrderType"),
    PlanOfCheck("chkNextChoose", "chkNextChoose", "0"),
    PlanOfListIndex("CommodityType", "cmbCommodityType"),
};

// --- frmFilter189

constexpr std::array kCodesOf189 = {
    BaseData(0, kCustomerClass, "客户代码:"),
    BaseData(2, kItemClass, "物料代码:"),
    BaseData(4, kEmployeeClass, "业务员:"),
    BaseData(6, kDepartmentClass, "部门代码:"),
};
constexpr std::array<std::string_view, 3> kAuditTypes = {"全部", "已审核", "未审核"};
constexpr std::array<std::string_view, 2> kDueGroups = {"客户", "物料"};
constexpr std::array kBoxesOf189 = {
    ComboBoxRows{"CmbAuditType", kAuditTypes},
    ComboBoxRows{"cmbGroupBy", kDueGroups},
    kCommodityTypeBox,
};
constexpr std::array kChecksOf189 = {
    kNextChooseCheck,
};
constexpr std::array kLabelsOf189 = {
    LabelCaption{"lblBDate", "起始日期:"},         LabelCaption{"lblEDate", "截止日期:"},
    LabelCaption{"lblAuditType", "审核状态:"},     LabelCaption{"lblGroupBy", "汇总依据:"},
    LabelCaption{"lblCommodityType", "商品类型:"},
};
// The two choices go to the report as words.
constexpr std::array kKeysOf189 = {
    KeyOfDate("BDate", "DtpBDate"),
    KeyOfDate("EDate", "DtpEDate"),
    KeyOfText("BCustomerNumber", "txtItem(0)"),
    KeyOfText("ECustomerNumber", "txtItem(1)"),
    KeyOfText("BItemNumber", "txtItem(2)"),
    KeyOfText("EItemNumber", "txtItem(3)"),
    KeyOfText("BSalesNumber", "txtItem(4)"),
    KeyOfText("ESalesNumber", "txtItem(5)"),
    KeyOfText("BDeptNumber", "txtItem(6)"),
    KeyOfText("EDeptNumber", "txtItem(7)"),
    KeyOfListText("AuditType", "CmbAuditType"),
    KeyOfListText("GroupBy", "cmbGroupBy"),
    KeyOfCheck("chkNextChoose", "chkNextChoose"),
    KeyOfListIndex("CommodityType", "cmbCommodityType"),
    kDefaultPlanSaved,
};
// A plan without dates leaves those of the server.
constexpr std::array kPlanOf189 = {
    PlanKey{"BDate", PlanSource::kDate, "DtpBDate", PlanDefault::kUnchanged},
    PlanKey{"EDate", PlanSource::kDate, "DtpEDate", PlanDefault::kUnchanged},
    PlanOfCode("BCustomerNumber", "txtItem(0)"),
    PlanOfCode("ECustomerNumber", "txtItem(1)"),
    PlanOfCode("BItemNumber", "txtItem(2)"),
    PlanOfCode("EItemNumber", "txtItem(3)"),
    PlanOfCode("BSalesNumber", "txtItem(4)"),
    PlanOfCode("ESalesNumber", "txtItem(5)"),
    PlanOfCode("BDeptNumber", "txtItem(6)"),
    PlanOfCode("EDeptNumber", "txtItem(7)"),
    PlanOfListText("AuditType", "CmbAuditType", "全部"),
    PlanOfListText("GroupBy", "cmbGroupBy", "客户"),
    PlanOfCheck("chkNextChoose", "chkNextChoose", "0"),
    PlanOfListIndex("CommodityType", "cmbCommodityType"),
};

// --- frmFilter192

constexpr std::array kCodesOf192 = {
    BaseData(0, kItemClass, "物料代码:"),
    BaseData(2, kCustomerClass, "客户代码:"),
    CodeRange{4, LookUp::kOrderNumber, kNoClass, "销售订单号:"},
};
constexpr std::array kBoxesOf192 = {
    kCheckStateBox,
    kDisplayTypeBox,
    kCloseStateBox,
};
constexpr std::array kLabelsOf192 = {
    LabelCaption{"lblBDate", "起始日期:"},      LabelCaption{"lblEDate", "截止日期:"},
    LabelCaption{"lblCloseState", "是否关闭:"}, LabelCaption{"lblDisplayType", "显示:"},
    LabelCaption{"lblCheckState", "审核状态:"},
};
constexpr std::array kKeysOf192 = {
    KeyOfDate("BDate", "DtpBDate"),
    KeyOfDate("EDate", "DtpEDate"),
    KeyOfText("BItemNumber", "txtItem(0)"),
    KeyOfText("EItemNumber", "txtItem(1)"),
    KeyOfText("BCustNumber", "txtItem(2)"),
    KeyOfText("ECustNumber", "txtItem(3)"),
    KeyOfText("BBill", "txtItem(4)"),
    KeyOfText("EBill", "txtItem(5)"),
    KeyOfListIndex("CheckState", "cmbCheckState"),
    KeyOfListIndex("DisplayType", "CmbDisplayType"),
    KeyOfListIndex("CloseState", "CmbCloseState"),
    kDefaultPlanSaved,
};
constexpr std::array kPlanOf192 = {
    PlanOfDate("BDate", "DtpBDate"),
    PlanOfDate("EDate", "DtpEDate"),
    PlanOfCode("BItem", "txtItem(0)"),
    PlanOfCode("EItem", "txtItem(1)"),
    PlanOfCode("BCustomer", "txtItem(2)"),
    PlanOfCode("ECustomer", "txtItem(3)"),
    PlanOfCode("BBill", "txtItem(4)"),
    PlanOfCode("EBill", "txtItem(5)"),
    PlanOfListIndex("CheckState", "cmbCheckState"),
    PlanOfListIndex("DisplayType", "CmbDisplayType"),
    PlanOfListIndex("CloseState", "CmbCloseState"),
};

// --- frmFirter300

constexpr std::array kCodesOf300 = {
    BaseData(0, kItemClass, "物料代码:"),
    BaseData(2, kCustomerClass, "客户代码:"),
};
constexpr std::array kBoxesOf300 = {
    kCheckStateBox,
};
constexpr std::array kLabelsOf300 = {
    LabelCaption{"lblBDate", "起始日期:"},      LabelCaption{"lblEDate", "截止日期:"},
    LabelCaption{"lblOrderType", "销售范围:"},  LabelCaption{"lblSaleType", "销售方式:"},
    LabelCaption{"lblCheckState", "单据状态:"},
};
constexpr std::array kGroupRowsOf300 = {
    kByItemClass, kByCustomerClass, kByItemClassAndCustomer, kByCustomerAndItemClass, kByCustomer,
};
constexpr std::array kSumFieldsOf300 = {
    SumFieldRow{5, "客户", kCustomerClass, true},
};
constexpr GroupByTable kGroupsOf300 = {.rows = kGroupRowsOf300,
                                       .sum_fields = kSumFieldsOf300,
                                       .properties = kItemAndCustomerProperties,
                                       .property_offset = 4};
constexpr std::array kKeysOf300 = {
    KeyOfDate("BDate", "DtpBDate"),
    KeyOfDate("EDate", "DtpEDate"),
    KeyOfText("BItemNumber", "txtItem(0)"),
    KeyOfText("EItemNumber", "txtItem(1)"),
    KeyOfText("BCustNumber", "txtItem(2)"),
    KeyOfText("ECustNumber", "txtItem(3)"),
    KeyOfCheck("GroupBy", "chkGroupBy"),
    KeyOfCheck("OnlyShowSum", "chkOnlyShowSum"),
    KeyOfItemData("SaleType", "CmbSaleType"),
    KeyOfListText("SaleTypeName", "CmbSaleType"),
    KeyOfItemData("OrderType", "Cmb_OrderType"),
    KeyOfListText("OrderTypeName", "Cmb_OrderType"),
    KeyOfNumber("BLevel", "txtlevel(0)"),
    KeyOfNumber("ELevel", "txtlevel(1)"),
    kSumModeKey,
    kSumNameKey,
    kSumFieldKey,
    KeyOfListIndex("CheckState", "cmbCheckState"),
    kDefaultPlanSaved,
};
constexpr std::array kPlanOf300 = {
    PlanOfDate("BDate", "DtpBDate"),
    PlanOfDate("EDate", "DtpEDate"),
    PlanOfCode("BItem", "txtItem(0)"),
    PlanOfCode("EItem", "txtItem(1)"),
    PlanOfCode("BCustomer", "txtItem(2)"),
    PlanOfCode("ECustomer", "txtItem(3)"),
    PlanOfText("BLevel", "txtlevel(0)", "1"),
    PlanOfText("ELevel", "txtlevel(1)", "5"),
    PlanOfCheck("chkGroupBy", "chkGroupBy", "1"),
    PlanOfCheck("OnlyShowSum", "chkOnlyShowSum", "1"),
    PlanOfListIndex("GroupByListIndex", "cmbGroupBy"),
    PlanOfListIndex("CheckState", "cmbCheckState"),
    PlanOfListIndex("SaleTypeListIndex", "CmbSaleType"),
    PlanOfListIndex("OrderType", "Cmb_OrderType"),
};

// --- frmFirter1010

constexpr std::array kCodesOf1010 = {
    BaseData(0, kItemClass, "物料代码:"),   BaseData(2, kCustomerClass, "客户代码:"),
    BaseData(4, kBranchClass, "机构代码:"), BaseData(6, kDepartmentClass, "部门代码:"),
    BaseData(8, kEmployeeClass, "业务员:"), CodeRange{10, LookUp::kOrderNumber, kNoClass, "订单编号:"},
};
constexpr std::array kBoxesOf1010 = {
    kCheckStateBox,
    kCloseStateBox,
    kCommodityTypeBox,
};
constexpr std::array kChecksOf1010 = {
    kNextChooseCheck,
    CheckBoxCaption{"chkIsShowSum", "显示小计"},
    CheckBoxCaption{"chkIsShowDetail", "显示明细"},
};
constexpr std::array kLabelsOf1010 = {
    LabelCaption{"lblBDate", "起始日期:"},      LabelCaption{"lblEDate", "截止日期:"},
    LabelCaption{"lblSaleType", "销售方式:"},   LabelCaption{"lblCheckState", "审核状态:"},
    LabelCaption{"lblCloseState", "是否关闭:"}, LabelCaption{"lblCommodityType", "商品类型:"},
};
constexpr std::array kSortFieldsOf1010 = {
    SortField{"订单日期", "FOrderbyDate"},        SortField{"订单编号", "FOrderbyBillNo"},
    SortField{"客户代码", "FOrderbyCustNumber"},  SortField{"部门代码", "FOrderbyDeptNumber"},
    SortField{"业务员代码", "FOrderbyEmpNumber"},
};
// Without the branches, which plans keep all the same; the sort text is written before the default plan.
constexpr std::array kKeysOf1010 = {
    KeyOfDate("BDate", "DtpBDate"),
    KeyOfDate("EDate", "DtpEDate"),
    KeyOfText("BItemNumber", "txtItem(0)"),
    KeyOfText("EItemNumber", "txtItem(1)"),
    KeyOfText("BCustNumber", "txtItem(2)"),
    KeyOfText("ECustNumber", "txtItem(3)"),
    KeyOfText("BDept", "txtItem(6)"),
    KeyOfText("EDept", "txtItem(7)"),
    KeyOfText("BEmp", "txtItem(8)"),
    KeyOfText("EEmp", "txtItem(9)"),
    KeyOfText("BBillNo", "txtItem(10)"),
    KeyOfText("EBillNo", "txtItem(11)"),
    KeyOfListIndex("CheckState", "cmbCheckState"),
    KeyOfListIndex("CloseState", "CmbCloseState"),
    KeyOfItemData("SaleType", "CmbSaleType"),
    KeyOfListText("SaleTypeName", "CmbSaleType"),
    KeyOfCheck("chkNextChoose", "chkNextChoose"),
    KeyOfCheck("chkIsShowSum", "chkIsShowSum"),
    KeyOfCheck("chkIsShowDetail", "chkIsShowDetail"),
    KeyOfListIndex("CommodityType", "cmbCommodityType"),
    KeyOfOrder("Orderby"),
    kDefaultPlanSaved,
};
constexpr std::array kPlanOf1010 = {
    PlanOfDate("BDate", "DtpBDate"),
    PlanOfDate("EDate", "DtpEDate"),
    PlanOfCode("BItem", "txtItem(0)"),
    PlanOfCode("EItem", "txtItem(1)"),
    PlanOfCode("BCustomer", "txtItem(2)"),
    PlanOfCode("ECustomer", "txtItem(3)"),
    PlanOfCode("BCompany", "txtItem(4)"),
    PlanOfCode("ECompany", "txtItem(5)"),
    PlanOfCode("BDept", "txtItem(6)"),
    PlanOfCode("EDept", "txtItem(7)"),
    PlanOfCode("BEmp", "txtItem(8)"),
    PlanOfCode("EEmp", "txtItem(9)"),
    PlanOfCode("BBillNo", "txtItem(10)"),
    PlanOfCode("EBillNo", "txtItem(11)"),
    PlanOfListIndex("CheckState", "cmbCheckState"),
    PlanOfListIndex("CloseState", "CmbCloseState"),
    PlanOfListIndex("SaleTypeListIndex", "CmbSaleType"),
    PlanOfCheck("chkNextChoose", "chkNextChoose", "0"),
    PlanOfCheck("chkIsShowSum", "chkIsShowSum", "0"),
    PlanOfCheck("chkIsShowDetail", "chkIsShowDetail", "1"),
    PlanOfListIndex("CommodityType", "cmbCommodityType"),
    PlanOfOrder("OrderBy", ""),
};

}  // namespace

constexpr DialogTable kFrmFirter136 = {
    .name = "frmFirter136",
    .family = DialogFamily::kDateRange,
    .codes = kCodesOf136,
    .combos = kBoxesOf136,
    .checks = kChecksOf136,
    .labels = kLabelsOf136,
    .sale_types = "CmbSaleType",
    .hidden_sale_type = kNoOrderStyle,
    .order_types = "Cmb_OrderType",
    .group_by = &kGroupsOf136,
    .sort_fields = kSortFieldsOf136,
    .keys = kKeysOf136,
    .plan = kPlanOf136,
    .remembered = "cmbCheckState",
};

constexpr DialogTable kFrmFirter137 = {
    .name = "frmFirter137",
    .family = DialogFamily::kDateRange,
    .codes = kCodesOf137,
    .combos = kBoxesOf137,
    .checks = kChecksOf137,
    .labels = kLabelsOf137,
    .sale_types = "CmbSaleType",
    .hidden_sale_type = kNoOrderStyle,
    .order_types = "Cmb_OrderType",
    .keys = kKeysOf137,
    .plan = kPlanOf137,
};

constexpr DialogTable kFrmFirter138 = {
    .name = "frmFirter138",
    .family = DialogFamily::kDateRange,
    .codes = kCodesOf138,
    .combos = kBoxesOf138,
    .checks = kChecksOf138,
    .labels = kLabelsOf138,
    .sale_types = "CmbSaleType",
    .hidden_sale_type = kNoOrderStyle,
    .order_types = "Cmb_OrderType",
    .group_by = &kGroupsOf138,
    .keys = kKeysOf138,
    .plan = kPlanOf138,
};

constexpr DialogTable kFrmFilter189 = {
    .name = "frmFilter189",
    .family = DialogFamily::kDateRange,
    .codes = kCodesOf189,
    .combos = kBoxesOf189,
    .checks = kChecksOf189,
    .labels = kLabelsOf189,
    .keys = kKeysOf189,
    .plan = kPlanOf189,
};

constexpr DialogTable kFrmFilter192 = {
    .name = "frmFilter192",
    .family = DialogFamily::kOlder,
    .codes = kCodesOf192,
    .combos = kBoxesOf192,
    .labels = kLabelsOf192,
    .keys = kKeysOf192,
    .plan = kPlanOf192,
};

constexpr DialogTable kFrmFirter300 = {
    .name = "frmFirter300",
    .family = DialogFamily::kOlder,
    .codes = kCodesOf300,
    .combos = kBoxesOf300,
    .labels = kLabelsOf300,
    .sale_types = "CmbSaleType",
    .hidden_sale_type = kNoOrderStyle,
    .order_types = "Cmb_OrderType",
    .group_by = &kGroupsOf300,
    .keys = kKeysOf300,
    .plan = kPlanOf300,
};

constexpr DialogTable kFrmFirter1010 = {
    .name = "frmFirter1010",
    .family = DialogFamily::kDateRange,
    .codes = kCodesOf1010,
    .combos = kBoxesOf1010,
    .checks = kChecksOf1010,
    .labels = kLabelsOf1010,
    .sale_types = "CmbSaleType",
    .hidden_sale_type = kNoOrderStyle,
    .sort_fields = kSortFieldsOf1010,
    .keys = kKeysOf1010,
    .plan = kPlanOf1010,
};

}  // namespace salerpt
