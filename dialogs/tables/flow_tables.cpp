// The dialogs of income, outbound, returns, gross profit and consignment.
#include <array>
#include <cstdint>
#include <string_view>

#include "dialogs/tables/entries.h"
#include "dialogs/tables/tables.h"

namespace salerpt {
namespace {

// Goods sold straight on pass no stock: the outbound dialogs do not offer the style.
constexpr std::int32_t kSoldStraightOn = 20296;

// The resources of the dialogs whose texts stand in the form's design.
constexpr std::string_view kFormResources = "Q7INDUSTRY";

// --- Rows by which frmFirter129 and FrmFilter133 sum: five, and the properties behind them

constexpr std::array kGroupRowsWithProperties = {
    kByItemClass, kByCustomerClass, kByItemClassAndCustomer, kByCustomerAndItemClass, kByCustomer,
};
constexpr std::array kSumFieldsWithProperties = {
    SumFieldRow{5, "客户", kCustomerClass, true},
};
constexpr GroupByTable kGroupsWithProperties = {.rows = kGroupRowsWithProperties,
                                                .sum_fields = kSumFieldsWithProperties,
                                                .properties = kItemAndCustomerProperties,
                                                .property_offset = 4};

// --- frmFirter126

constexpr std::array kCodesOf126 = {
    BaseData(0, kItemClass, "物料代码:"),
    BaseData(2, kCustomerClass, "客户代码:"),
    BaseData(4, kDepartmentClass, "部门代码:"),
    BaseData(6, kEmployeeClass, "业务员:"),
};
constexpr std::array<std::string_view, 3> kBillTypes = {"蓝字", "红字", "全部"};
// The box opens on all bills; a plan without the key then turns it to the blue ones.
constexpr ComboBoxRows kBillTypeBox = {"cboBillType", kBillTypes, 2};
constexpr std::array kBoxesOf126 = {
    kCheckStateBox,
    kBillTypeBox,
    kHookStatusBox,
    kCommodityTypeBox,
};
constexpr std::array kChecksOf126 = {
    kAuxPropCheck,
    CheckBoxCaption{"chkCurrency", "以原币显示"},
    kNextChooseCheck,
};
constexpr std::array kLabelsOf126 = {
    LabelCaption{"lblBDate", "起始日期:"},         LabelCaption{"lblEDate", "截止日期:"},
    LabelCaption{"lblSaleType", "销售方式:"},      LabelCaption{"lblHookStatus", "钩稽状态:"},
    LabelCaption{"lblBillType", "单据类型:"},      LabelCaption{"lblCheckState", "单据状态:"},
    LabelCaption{"lblCommodityType", "商品类型:"},
};
constexpr std::array kGroupRowsOf126 = {
    kByItemClass, kByCustomerClass,      kByItemClassAndCustomer, kByCustomerAndItemClass,
    kByCustomer,  GroupByRow{"部门", 6}, GroupByRow{"业务员", 7},
};
constexpr std::array kSumFieldsOf126 = {
    SumFieldRow{5, "客户", kCustomerClass, true},
    SumFieldRow{6, "部门", kDepartmentClass},
    SumFieldRow{7, "业务员", kEmployeeClass},
};
constexpr GroupByTable kGroupsOf126 = {.rows = kGroupRowsOf126, .sum_fields = kSumFieldsOf126};
constexpr std::array kKeysOf126 = {
    KeyOfDate("BDate", "DtpBDate"),
    KeyOfDate("EDate", "DtpEDate"),
    KeyOfText("BItemNumber", "txtItem(0)"),
    KeyOfText("EItemNumber", "txtItem(1)"),
    KeyOfText("BCustNumber", "txtItem(2)"),
    KeyOfText("ECustNumber", "txtItem(3)"),
    KeyOfText("BDeptNumber", "txtItem(4)"),
    KeyOfText("EDeptNumber", "txtItem(5)"),
    KeyOfText("BEmpNumber", "txtItem(6)"),
    KeyOfText("EEmpNumber", "txtItem(7)"),
    KeyOfCheck("GroupBy", "chkGroupBy"),
    KeyOfCheck("OnlyShowSum", "chkOnlyShowSum"),
    KeyOfNumber("BLevel", "txtlevel(0)"),
    KeyOfNumber("ELevel", "txtlevel(1)"),
    kSumModeKey,
    kSumNameKey,
    KeyOfItemData("SaleType", "CmbSaleType"),
    KeyOfListText("SaleTypeName", "CmbSaleType"),
    KeyOfHookStatus("HookStatus", "cmbHookStatus"),
    KeyOfCheck("CurrencyShow", "chkCurrency"),
    kSumFieldKey,
    KeyOfListIndex("CheckState", "cmbCheckState"),
    KeyOfCheck("AuxProp", "Chk_Aux"),
    KeyOfListIndex("BillType", "cboBillType"),
    KeyOfCheck("chkNextChoose", "chkNextChoose"),
    KeyOfListIndex("CommodityType", "cmbCommodityType"),
    kDefaultPlanSaved,
};
// Kept: the names do not match the fields (the customers stand under "Emp", the employees under "Cust"), as
// stored plans would change their meaning with other names.
constexpr std::array kPlanOf126 = {
    PlanOfDate("BDate", "DtpBDate"),
    PlanOfDate("EDate", "DtpEDate"),
    PlanOfCode("BItem", "txtItem(0)"),
    PlanOfCode("EItem", "txtItem(1)"),
    PlanOfCode("BEmp", "txtItem(2)"),
    PlanOfCode("EEmp", "txtItem(3)"),
    PlanOfCode("BDpt", "txtItem(4)"),
    PlanOfCode("EDpt", "txtItem(5)"),
    PlanOfCode("BCust", "txtItem(6)"),
    PlanOfCode("ECust", "txtItem(7)"),
    PlanOfText("BLevel", "txtlevel(0)", "1"),
    PlanOfText("ELevel", "txtlevel(1)", "5"),
    PlanOfCheck("chkGroupBy", "chkGroupBy", "1"),
    PlanOfCheck("OnlyShowSum", "chkOnlyShowSum", "1"),
    PlanOfListIndex("GroupByListIndex", "cmbGroupBy"),
    PlanOfListIndex("CheckState", "cmbCheckState"),
    PlanOfListIndex("BillType", "cboBillType"),
    PlanOfListIndex("SaleTypeListIndex", "CmbSaleType"),
    PlanOfListIndex("HookStatus", "cmbHookStatus"),
    PlanOfCheck("CurrencyShow", "chkCurrency", "0"),
    PlanOfCheck("AuxProp", "Chk_Aux", "0"),
    PlanOfCheck("chkNextChoose", "chkNextChoose", "0"),
    PlanOfListIndex("CommodityType", "cmbCommodityType"),
};

// --- frmFirter128

constexpr std::array kCodesOf128 = {
    BaseData(0, kItemClass, "物料代码:"),
    BaseData(2, kCustomerClass, "客户代码:"),
};
constexpr std::array kBoxesOf128 = {
    kCheckStateBox,
    kFrobBox,
    kCommodityTypeBox,
};
constexpr std::array kChecksOf128 = {
    kNextChooseCheck,
};
constexpr std::array kLabelsOf128 = {
    LabelCaption{"lblBDate", "起始日期:"},      LabelCaption{"lblEDate", "截止日期:"},
    LabelCaption{"lblSaleType", "销售方式:"},   LabelCaption{"lblFROB", "单据类型:"},
    LabelCaption{"lblCheckState", "单据状态:"}, LabelCaption{"lblCommodityType", "商品类型:"},
};
constexpr std::array kGroupRowsOf128 = {
    kByItemClass,
    kByCustomerClass,
    kByItemClassAndCustomer,
    kByCustomerAndItemClass,
    kByCustomer,
    GroupByRow{"业务员", 6},
    GroupByRow{"部门", 9},
    GroupByRow{"部门+业务员", 10},
    GroupByRow{"销售方式", 7},
    GroupByRow{"客户类别+客户", 8},
    GroupByRow{"客户+业务员", 11},
    GroupByRow{"业务员+客户+物料类别", 12},
};
// Kept: the sale style and the employee stand under the customer's class, as hosts know the columns that the
// report names after it.
constexpr std::array kSumFieldsOf128 = {
    SumFieldRow{.code = 7,
                .name = "销售方式",
                .item_class_id = 1,
                .prop_id = 29,
                .sql_column_name = "FSaleStyle",
                .src_table = "t_SubMessage",
                .src_field = "FInterID",
                .display_field = "FName"},
    SumFieldRow{5, "客户", kCustomerClass},
    SumFieldRow{.code = 6, .name = "业务员", .item_class_id = kCustomerClass, .translated = false},
    SumFieldRow{10, "部门", kNoClass},
    SumFieldRow{11, "客户", kNoClass},
};
constexpr GroupByTable kGroupsOf128 = {.rows = kGroupRowsOf128, .sum_fields = kSumFieldsOf128};
constexpr std::array kSortFieldsOf128 = {
    SortField{"产品代码", "FNumber", "", "FShortNumber"},
    SortField{"出库数量(常用)", "FCUUnitOutQty"},
    SortField{"出库金额", "FOutAmount"},
    SortField{"销售金额", "FConsignAmount"},
};
// The sort text is written behind the default plan.
constexpr std::array kKeysOf128 = {
    KeyOfDate("BDate", "DtpBDate"),
    KeyOfDate("EDate", "DtpEDate"),
    KeyOfText("BItemNumber", "txtItem(0)"),
    KeyOfText("EItemNumber", "txtItem(1)"),
    KeyOfText("BCustNumber", "txtItem(2)"),
    KeyOfText("ECustNumber", "txtItem(3)"),
    KeyOfCheck("GroupBy", "chkGroupBy"),
    KeyOfCheck("OnlyShowSum", "chkOnlyShowSum"),
    KeyOfNumber("BLevel", "txtlevel(0)"),
    KeyOfNumber("ELevel", "txtlevel(1)"),
    kSumModeKey,
    kSumNameKey,
    KeyOfItemData("SaleType", "CmbSaleType"),
    KeyOfListText("SaleTypeName", "CmbSaleType"),
    kSumFieldKey,
    KeyOfListIndex("FROB", "cmbFROB"),
    KeyOfListIndex("CheckState", "cmbCheckState"),
    KeyOfCheck("chkNextChoose", "chkNextChoose"),
    KeyOfListIndex("CommodityType", "cmbCommodityType"),
    kDefaultPlanSaved,
    KeyOfOrder("Orderby"),
};
constexpr std::array kPlanOf128 = {
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
    PlanOfOrder("OrderBy", kItemCodeOrder),
    PlanOfListIndex("FROB", "cmbFROB"),
    PlanOfCheck("chkNextChoose", "chkNextChoose", "0"),
    PlanOfListIndex("SaleTypeListIndex", "CmbSaleType"),
    PlanOfListIndex("CommodityType", "cmbCommodityType"),
};
// The levels stand before what they follow: the end level, which pulls the begin level down, and the group
// row, which bounds both.
constexpr std::array<std::string_view, 17> kRestoreOf128 = {
    "BDate",
    "EDate",
    "BItem",
    "EItem",
    "BCustomer",
    "ECustomer",
    "chkGroupBy",
    "OnlyShowSum",
    "ELevel",
    "BLevel",
    "GroupByListIndex",
    "CheckState",
    "OrderBy",
    "SaleTypeListIndex",
    "FROB",
    "chkNextChoose",
    "CommodityType",
};

// --- frmFirter129

// The batch numbers have labels of their own.
constexpr std::array kCodesOf129 = {
    BaseData(0, kItemClass, "物料代码:"),
    BaseData(2, kCustomerClass, "客户代码:"),
    CodeRange{4, LookUp::kBatchNumber, kNoClass, ""},
};
constexpr std::array kBoxesOf129 = {
    kCheckStateBox,
    kFrobBox,
    kCommodityTypeBox,
};
constexpr std::array kChecksOf129 = {
    kAuxPropCheck,
    CheckBoxCaption{"chkShowItemSum", "显示产品小计"},
    CheckBoxCaption{"chkShowDateSum", "显示日期小计"},
    kNextChooseCheck,
};
constexpr std::array kLabelsOf129 = {
    LabelCaption{"lblBDate", "起始日期:"},      LabelCaption{"lblEDate", "截止日期:"},
    LabelCaption{"lblBacthNoBeg", "批号:"},     LabelCaption{"lblBatchNoEnd", "至: "},
    LabelCaption{"lblSaleType", "销售方式:"},   LabelCaption{"lblFROB", "单据类型:"},
    LabelCaption{"lblCheckState", "单据状态:"}, LabelCaption{"lblCommodityType", "商品类型:"},
};
constexpr std::array kSortFieldsOf129 = {
    SortField{"日期", "FDate"},
    SortField{"单据号码", "FBillNo"},
    SortField{"客户代码", "FCustNumber"},
    SortField{"客户名称", "FCustName"},
    SortField{"代码", "FNumber", "", "FShortNumber"},
    SortField{"名称", "FName"},
    SortField{"规格型号", "FModel"},
    SortField{"辅助属性", "FAuxPropName"},
    SortField{"批号", "FBatchNo"},
    SortField{"单位", "FAuxUnitName"},
    SortField{"出库数量", "FAuxOutQty"},
    SortField{"出库金额", "FOutAmount"},
    SortField{"开票数量", "FAuxCommitQty"},
    SortField{"销售金额", "FConsignAmount"},
    SortField{"开票金额", "FCommitAmount"},
};
constexpr std::array kKeysOf129 = {
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
    KeyOfText("BBatchNo", "txtItem(4)"),
    KeyOfText("EBatchNo", "txtItem(5)"),
    KeyOfNumber("BLevel", "txtlevel(0)"),
    KeyOfNumber("ELevel", "txtlevel(1)"),
    kSumModeKey,
    kSumNameKey,
    kSumFieldKey,
    KeyOfListIndex("CheckState", "cmbCheckState"),
    KeyOfListIndex("FROB", "cmbFROB"),
    KeyOfCheck("AuxProp", "Chk_Aux"),
    KeyOfCheck("chkShowItemSum", "chkShowItemSum"),
    KeyOfCheck("chkShowDateSum", "chkShowDateSum"),
    KeyOfOrder("OrderBy"),
    KeyOfCheck("chkNextChoose", "chkNextChoose"),
    KeyOfListIndex("CommodityType", "cmbCommodityType"),
    kDefaultPlanSaved,
};
constexpr std::array kPlanOf129 = {
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
    PlanOfCheck("AuxProp", "Chk_Aux", "1"),
    PlanOfCheck("chkShowItemSum", "chkShowItemSum", "1"),
    PlanOfCheck("chkShowDateSum", "chkShowDateSum", "0"),
    PlanOfListIndex("FROB", "cmbFROB"),
    PlanOfCode("BBatchNo", "txtItem(4)"),
    PlanOfCode("EBatchNo", "txtItem(5)"),
    PlanOfOrder("OrderBy", ""),
    PlanOfCheck("chkNextChoose", "chkNextChoose", "0"),
    PlanOfListIndex("CommodityType", "cmbCommodityType"),
};

// --- FrmFilter133

constexpr std::array kCodesOf133 = {
    BaseData(0, kItemClass, "物料代码:"),
    BaseData(2, kCustomerClass, "客户代码:"),
};
constexpr std::array kBoxesOf133 = {
    kCheckStateBox,
};
constexpr std::array kLabelsOf133 = {
    LabelCaption{"lblBDate", "起始日期:"},
    LabelCaption{"lblEDate", "截止日期:"},
    LabelCaption{"lblCheckState", "单据状态:"},
};
constexpr std::array kKeysOf133 = {
    KeyOfDate("BDate", "DtpBDate"),
    KeyOfDate("EDate", "DtpEDate"),
    KeyOfText("BItemNumber", "txtItem(0)"),
    KeyOfText("EItemNumber", "txtItem(1)"),
    KeyOfText("BCustNumber", "txtItem(2)"),
    KeyOfText("ECustNumber", "txtItem(3)"),
    KeyOfCheck("GroupBy", "chkGroupBy"),
    KeyOfCheck("OnlyShowSum", "chkOnlyShowSum"),
    KeyOfNumber("BLevel", "txtlevel(0)"),
    KeyOfNumber("ELevel", "txtlevel(1)"),
    kSumModeKey,
    kSumFieldKey,
    KeyOfListIndex("CheckState", "cmbCheckState"),
    kDefaultPlanSaved,
};
constexpr std::array kPlanOf133 = {
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
};

// --- frmFirter134

constexpr std::array kCodesOf134 = {
    BaseData(0, kItemClass, "物料代码:"),
    BaseData(2, kCustomerClass, "客户代码:"),
};
constexpr std::array kBoxesOf134 = {
    kCheckStateBox,
    kHookStatusBox,
    kCommodityTypeBox,
};
// No plan stores the expansion, so that it starts checked each time.
constexpr std::array kChecksOf134 = {
    CheckBoxCaption{"Chk_Aux", "以辅助属性展开", 1},
    kNextChooseCheck,
};
constexpr std::array kLabelsOf134 = {
    LabelCaption{"lblBDate", "起始日期:"},      LabelCaption{"lblEDate", "截止日期:"},
    LabelCaption{"lblSaleType", "销售方式:"},   LabelCaption{"lblHookStatus", "钩稽状态:"},
    LabelCaption{"lblCheckState", "单据状态:"}, LabelCaption{"lblCommodityType", "商品类型:"},
};
constexpr std::array kKeysOf134 = {
    KeyOfDate("BDate", "DtpBDate"),
    KeyOfDate("EDate", "DtpEDate"),
    KeyOfText("BItemNumber", "txtItem(0)"),
    KeyOfText("EItemNumber", "txtItem(1)"),
    KeyOfText("BCustNumber", "txtItem(2)"),
    KeyOfText("ECustNumber", "txtItem(3)"),
    KeyOfListIndex("CheckState", "cmbCheckState"),
    KeyOfItemData("SaleType", "CmbSaleType"),
    KeyOfListText("SaleTypeName", "CmbSaleType"),
    KeyOfCheck("AuxProp", "Chk_Aux"),
    KeyOfHookStatus("HookStatus", "cmbHookStatus"),
    KeyOfCheck("chkNextChoose", "chkNextChoose"),
    KeyOfListIndex("CommodityType", "cmbCommodityType"),
    kDefaultPlanSaved,
};
// A plan without a state leaves the one on show.
constexpr std::array kPlanOf134 = {
    PlanOfDate("BDate", "DtpBDate"),
    PlanOfDate("EDate", "DtpEDate"),
    PlanOfCode("BItem", "txtItem(0)"),
    PlanOfCode("EItem", "txtItem(1)"),
    PlanOfCode("BCustomer", "txtItem(2)"),
    PlanOfCode("ECustomer", "txtItem(3)"),
    PlanKey{"CheckState", PlanSource::kListIndex, "cmbCheckState", PlanDefault::kUnchanged},
    PlanOfListIndex("SaleTypeListIndex", "CmbSaleType"),
    PlanOfListIndex("HookStatus", "cmbHookStatus"),
    PlanOfCheck("chkNextChoose", "chkNextChoose", "0"),
    PlanOfListIndex("CommodityType", "cmbCommodityType"),
};

// --- frmFirter135

constexpr std::array kCodesOf135 = {
    BaseData(0, kItemClass, "物料代码:"),
    BaseData(2, kCustomerClass, "客户代码:"),
};
constexpr std::array kBoxesOf135 = {
    kCheckStateBox,
    kHookStatusBox,
    kCommodityTypeBox,
};
constexpr std::array kChecksOf135 = {
    kAuxPropCheck,
    kNextChooseCheck,
};
constexpr std::array kLabelsOf135 = {
    LabelCaption{"lblBDate", "起始日期:"},      LabelCaption{"lblEDate", "截止日期:"},
    LabelCaption{"lblSaleType", "销售方式:"},   LabelCaption{"lblHookStatus", "钩稽状态:"},
    LabelCaption{"lblCheckState", "单据状态:"}, LabelCaption{"lblCommodityType", "商品类型:"},
};
constexpr std::array kKeysOf135 = {
    KeyOfDate("BDate", "DtpBDate"),
    KeyOfDate("EDate", "DtpEDate"),
    KeyOfText("BItemNumber", "txtItem(0)"),
    KeyOfText("EItemNumber", "txtItem(1)"),
    KeyOfText("BCustNumber", "txtItem(2)"),
    KeyOfText("ECustNumber", "txtItem(3)"),
    KeyOfListIndex("CheckState", "cmbCheckState"),
    KeyOfItemData("SaleType", "CmbSaleType"),
    KeyOfListText("SaleTypeName", "CmbSaleType"),
    KeyOfCheck("AuxProp", "Chk_Aux"),
    KeyOfHookStatus("HookStatus", "cmbHookStatus"),
    KeyOfCheck("chkNextChoose", "chkNextChoose"),
    KeyOfListIndex("CommodityType", "cmbCommodityType"),
    kDefaultPlanSaved,
};
// A plan without a state leaves the one that the user's settings gave.
constexpr std::array kPlanOf135 = {
    PlanOfDate("BDate", "DtpBDate"),
    PlanOfDate("EDate", "DtpEDate"),
    PlanOfCode("BItem", "txtItem(0)"),
    PlanOfCode("EItem", "txtItem(1)"),
    PlanOfCode("BCustomer", "txtItem(2)"),
    PlanOfCode("ECustomer", "txtItem(3)"),
    PlanKey{"CheckState", PlanSource::kListIndex, "cmbCheckState", PlanDefault::kUnchanged},
    PlanOfListIndex("SaleTypeListIndex", "CmbSaleType"),
    PlanOfCheck("AuxProp", "Chk_Aux", "1"),
    PlanOfListIndex("HookStatus", "cmbHookStatus"),
    PlanOfCheck("chkNextChoose", "chkNextChoose", "0"),
    PlanOfListIndex("CommodityType", "cmbCommodityType"),
};

// --- frmFilter147

constexpr std::array kCodesOf147 = {
    BaseData(0, kItemClass, "物料代码:"),
    BaseData(2, kEmployeeClass, "业务员:"),
    BaseData(4, kDepartmentClass, "部门代码:"),
    BaseData(6, kCustomerClass, "客户代码:"),
};
constexpr std::array kBoxesOf147 = {
    kCheckStateBox,
};
constexpr std::array kLabelsOf147 = {
    LabelCaption{"lblBegin", "起始期间:"},
    LabelCaption{"lblBYear", "年"},
    LabelCaption{"lblBPeriod", "期"},
    LabelCaption{"lblEnd", "截止期间:"},
    LabelCaption{"lblEYear", "年"},
    LabelCaption{"lblEPeriod", "期"},
    LabelCaption{"lblCheckState", "单据状态:"},
};
constexpr std::array kKeysOf147 = {
    KeyOfNumber("BYear", "txtPeriod(0)"),          KeyOfNumber("BPeriod", "txtPeriod(1)"),
    KeyOfNumber("EYear", "txtPeriod(2)"),          KeyOfNumber("EPeriod", "txtPeriod(3)"),
    KeyOfTrimmedText("BItemNumber", "txtItem(0)"), KeyOfTrimmedText("EItemNumber", "txtItem(1)"),
    KeyOfTrimmedText("BEmpNumber", "txtItem(2)"),  KeyOfTrimmedText("EEmpNumber", "txtItem(3)"),
    KeyOfTrimmedText("BDptNumber", "txtItem(4)"),  KeyOfTrimmedText("EDptNumber", "txtItem(5)"),
    KeyOfTrimmedText("BCustNumber", "txtItem(6)"), KeyOfTrimmedText("ECustNumber", "txtItem(7)"),
    KeyOfListIndex("CheckState", "cmbCheckState"), kDefaultPlanSaved,
};
constexpr std::array kPlanOf147 = {
    PlanOfYear("BYEAR", "txtPeriod(0)"),
    PlanOfYear("EYEAR", "txtPeriod(2)"),
    PlanOfPeriod("BPERIOD", "txtPeriod(1)"),
    PlanOfPeriod("EPERIOD", "txtPeriod(3)"),
    PlanOfCode("BItem", "txtItem(0)"),
    PlanOfCode("EItem", "txtItem(1)"),
    PlanOfCode("BEmp", "txtItem(2)"),
    PlanOfCode("EEmp", "txtItem(3)"),
    PlanOfCode("BDpt", "txtItem(4)"),
    PlanOfCode("EDpt", "txtItem(5)"),
    PlanOfCode("BCust", "txtItem(6)"),
    PlanOfCode("ECust", "txtItem(7)"),
    PlanOfListIndex("CheckState", "cmbCheckState"),
};

// --- frmFilter148

constexpr std::array kCodesOf148 = {
    BaseData(0, kItemClass, "物料代码:"),
    BaseData(2, kEmployeeClass, "业务员:"),
    BaseData(4, kStockClass, "仓库代码:"),
    BaseData(6, kCustomerClass, "客户代码:"),
};
constexpr std::array kBoxesOf148 = {
    kCheckStateBox,
};
constexpr std::array kLabelsOf148 = {
    LabelCaption{"lblBegin", "起始期间:"},
    LabelCaption{"lblBYear", "年"},
    LabelCaption{"lblBPeriod", "期"},
    LabelCaption{"lblEnd", "截止期间:"},
    LabelCaption{"lblEYear", "年"},
    LabelCaption{"lblEPeriod", "期"},
    LabelCaption{"lblCheckState", "单据状态:"},
};
constexpr std::array kKeysOf148 = {
    KeyOfNumber("BYear", "txtPeriod(0)"),           KeyOfNumber("BPeriod", "txtPeriod(1)"),
    KeyOfNumber("EYear", "txtPeriod(2)"),           KeyOfNumber("EPeriod", "txtPeriod(3)"),
    KeyOfTrimmedText("BItemNumber", "txtItem(0)"),  KeyOfTrimmedText("EItemNumber", "txtItem(1)"),
    KeyOfTrimmedText("BEmpNumber", "txtItem(2)"),   KeyOfTrimmedText("EEmpNumber", "txtItem(3)"),
    KeyOfTrimmedText("BStockNumber", "txtItem(4)"), KeyOfTrimmedText("EStockNumber", "txtItem(5)"),
    KeyOfTrimmedText("BCustNumber", "txtItem(6)"),  KeyOfTrimmedText("ECustNumber", "txtItem(7)"),
    KeyOfListIndex("CheckState", "cmbCheckState"),  kDefaultPlanSaved,
};
// Kept: the stocks stand under "Dpt", the key that stored plans have.
constexpr std::array kPlanOf148 = {
    PlanOfYear("BYEAR", "txtPeriod(0)"),
    PlanOfYear("EYEAR", "txtPeriod(2)"),
    PlanOfPeriod("BPERIOD", "txtPeriod(1)"),
    PlanOfPeriod("EPERIOD", "txtPeriod(3)"),
    PlanOfCode("BItem", "txtItem(0)"),
    PlanOfCode("EItem", "txtItem(1)"),
    PlanOfCode("BEmp", "txtItem(2)"),
    PlanOfCode("EEmp", "txtItem(3)"),
    PlanOfCode("BDpt", "txtItem(4)"),
    PlanOfCode("EDpt", "txtItem(5)"),
    PlanOfCode("BCust", "txtItem(6)"),
    PlanOfCode("ECust", "txtItem(7)"),
    PlanOfListIndex("CheckState", "cmbCheckState"),
};

// --- frmFirter176

constexpr std::array kCodesOf176 = {
    BaseData(0, kItemClass, "物料代码:"),
    BaseData(2, kCustomerClass, "客户代码:"),
    BaseData(4, kDepartmentClass, "部门代码:"),
    BaseData(6, kEmployeeClass, "业务员:"),
};
constexpr std::array<std::string_view, 4> kMatchedStates = {"已钩稽", "已审核", "未审核", "全部"};
constexpr std::array<std::string_view, 3> kCostRules = {"实际成本", "参考采购价格", "最近入库价"};
constexpr std::array kBoxesOf176 = {
    ComboBoxRows{"cmbCheckState", kMatchedStates},
    ComboBoxRows{"Cmb_Cost", kCostRules},
};
constexpr std::array kLabelsOf176 = {
    LabelCaption{"lblBDate", "起始日期:"},      LabelCaption{"lblEDate", "截止日期:"},
    LabelCaption{"lblSaleType", "销售方式:"},   LabelCaption{"lblCost", "成本依据:"},
    LabelCaption{"lblCheckState", "单据状态:"},
};
constexpr std::array kGroupRowsOf176 = {
    kByItemClass, kByCustomerClass,      kByItemClassAndCustomer, kByCustomerAndItemClass,
    kByCustomer,  GroupByRow{"部门", 6},
};
constexpr std::array kSumFieldsOf176 = {
    SumFieldRow{5, "客户", kCustomerClass, true},
    SumFieldRow{6, "部门", kDepartmentClass, true},
};
// Kept: with six rows in front of the properties the list takes the one behind the row chosen, as the stored
// layouts of the report expect its column.
constexpr GroupByTable kGroupsOf176 = {.rows = kGroupRowsOf176,
                                       .sum_fields = kSumFieldsOf176,
                                       .properties = kItemAndCustomerProperties,
                                       .property_offset = 4};
constexpr std::array kKeysOf176 = {
    KeyOfDate("BDate", "DtpBDate"),
    KeyOfDate("EDate", "DtpEDate"),
    KeyOfText("BItemNumber", "txtItem(0)"),
    KeyOfText("EItemNumber", "txtItem(1)"),
    KeyOfText("BCustNumber", "txtItem(2)"),
    KeyOfText("ECustNumber", "txtItem(3)"),
    KeyOfText("BDept", "txtItem(4)"),
    KeyOfText("EDept", "txtItem(5)"),
    KeyOfText("BEmp", "txtItem(6)"),
    KeyOfText("EEmp", "txtItem(7)"),
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
    KeyOfListIndex("Cost", "Cmb_Cost"),
    kDefaultPlanSaved,
};
constexpr std::array kPlanOf176 = {
    PlanOfDate("BDate", "DtpBDate"),
    PlanOfDate("EDate", "DtpEDate"),
    PlanOfCode("BItem", "txtItem(0)"),
    PlanOfCode("EItem", "txtItem(1)"),
    PlanOfCode("BCustomer", "txtItem(2)"),
    PlanOfCode("ECustomer", "txtItem(3)"),
    PlanOfCode("BDept", "txtItem(4)"),
    PlanOfCode("EDept", "txtItem(5)"),
    PlanOfCode("BEmp", "txtItem(6)"),
    PlanOfCode("EEmp", "txtItem(7)"),
    PlanOfText("BLevel", "txtlevel(0)", "1"),
    PlanOfText("ELevel", "txtlevel(1)", "5"),
    PlanOfCheck("chkGroupBy", "chkGroupBy", "1"),
    PlanOfCheck("OnlyShowSum", "chkOnlyShowSum", "1"),
    PlanOfListIndex("GroupByListIndex", "cmbGroupBy"),
    PlanOfListIndex("CheckState", "cmbCheckState"),
    PlanOfListIndex("SaleTypeListIndex", "CmbSaleType"),
    PlanOfListIndex("Cost", "Cmb_Cost"),
};

// --- FrmFilter303

constexpr std::array kCodesOf303 = {
    BaseData(0, kItemClass, "物料代码："),
    BaseData(2, kCustomerClass, "客户代码："),
    BaseData(4, kDepartmentClass, "部门代码："),
    BaseData(6, kEmployeeClass, "业务员："),
};
constexpr std::array kBoxesOf303 = {
    kCheckStateBox,
    kCommodityTypeBox,
};
constexpr std::array kChecksOf303 = {
    CheckBoxCaption{"chkShowVirtualStock", "显示虚仓"},
    kNextChooseCheck,
};
constexpr std::array kLabelsOf303 = {
    LabelCaption{"lblBDate", "起始日期："},
    LabelCaption{"lblEDate", "截止日期："},
    LabelCaption{"lblCheckState", "单据状态："},
    LabelCaption{"lblCommodityType", "商品类型："},
};
constexpr std::array kGroupRowsOf303 = {
    kByItemClass, kByCustomerClass,        kByItemClassAndCustomer, kByCustomerAndItemClass,
    kByCustomer,  GroupByRow{"业务员", 6}, GroupByRow{"部门", 7},
};
constexpr std::array kSumFieldsOf303 = {
    SumFieldRow{5, "客户", kCustomerClass, true},
    SumFieldRow{6, "业务员", kEmployeeClass, true},
    SumFieldRow{7, "部门", kDepartmentClass, true},
};
constexpr GroupByTable kGroupsOf303 = {.rows = kGroupRowsOf303,
                                       .sum_fields = kSumFieldsOf303,
                                       .properties = kItemAndCustomerProperties,
                                       .property_offset = 6};
constexpr std::array kKeysOf303 = {
    KeyOfDate("BDate", "DtpBDate"),
    KeyOfDate("EDate", "DtpEDate"),
    KeyOfText("BItemNumber", "txtItem(0)"),
    KeyOfText("EItemNumber", "txtItem(1)"),
    KeyOfText("BCustNumber", "txtItem(2)"),
    KeyOfText("ECustNumber", "txtItem(3)"),
    KeyOfText("BDptNumber", "txtItem(4)"),
    KeyOfText("EDptNumber", "txtItem(5)"),
    KeyOfText("BEmpNumber", "txtItem(6)"),
    KeyOfText("EEmpNumber", "txtItem(7)"),
    KeyOfCheck("GroupBy", "chkGroupBy"),
    KeyOfCheck("OnlyShowSum", "chkOnlyShowSum"),
    KeyOfCheck("ShowVirtualStock", "chkShowVirtualStock"),
    KeyOfNumber("BLevel", "txtlevel(0)"),
    KeyOfNumber("ELevel", "txtlevel(1)"),
    kSumModeKey,
    kSumFieldKey,
    KeyOfListIndex("CheckState", "cmbCheckState"),
    KeyOfCheck("chkNextChoose", "chkNextChoose"),
    KeyOfListIndex("CommodityType", "cmbCommodityType"),
    kDefaultPlanSaved,
};
constexpr std::array kPlanOf303 = {
    PlanOfDate("BDate", "DtpBDate"),
    PlanOfDate("EDate", "DtpEDate"),
    PlanOfCode("BItem", "txtItem(0)"),
    PlanOfCode("EItem", "txtItem(1)"),
    PlanOfCode("BCust", "txtItem(2)"),
    PlanOfCode("ECust", "txtItem(3)"),
    PlanOfCode("BDpt", "txtItem(4)"),
    PlanOfCode("EDpt", "txtItem(5)"),
    PlanOfCode("BEmp", "txtItem(6)"),
    PlanOfCode("EEmp", "txtItem(7)"),
    PlanOfText("BLevel", "txtlevel(0)", "1"),
    PlanOfText("ELevel", "txtlevel(1)", "5"),
    PlanOfCheck("chkGroupBy", "chkGroupBy", "1"),
    PlanOfCheck("OnlyShowSum", "chkOnlyShowSum", "1"),
    PlanOfCheck("ShowVirtualStock", "chkShowVirtualStock", "1"),
    PlanOfListIndex("GroupByListIndex", "cmbGroupBy"),
    PlanOfListIndex("CheckState", "cmbCheckState"),
    PlanOfCheck("chkNextChoose", "chkNextChoose", "0"),
    PlanOfListIndex("CommodityType", "cmbCommodityType"),
};

}  // namespace

constexpr DialogTable kFrmFirter126 = {
    .name = "frmFirter126",
    .family = DialogFamily::kDateRange,
    .codes = kCodesOf126,
    .combos = kBoxesOf126,
    .checks = kChecksOf126,
    .labels = kLabelsOf126,
    .sale_types = "CmbSaleType",
    .group_by = &kGroupsOf126,
    .keys = kKeysOf126,
    .plan = kPlanOf126,
};

constexpr DialogTable kFrmFirter128 = {
    .name = "frmFirter128",
    .family = DialogFamily::kDateRange,
    .codes = kCodesOf128,
    .combos = kBoxesOf128,
    .checks = kChecksOf128,
    .labels = kLabelsOf128,
    .sale_types = "CmbSaleType",
    .hidden_sale_type = kSoldStraightOn,
    .group_by = &kGroupsOf128,
    .sort_fields = kSortFieldsOf128,
    .keys = kKeysOf128,
    .plan = kPlanOf128,
    .restore = kRestoreOf128,
};

constexpr DialogTable kFrmFirter129 = {
    .name = "frmFirter129",
    .family = DialogFamily::kDateRange,
    .codes = kCodesOf129,
    .combos = kBoxesOf129,
    .checks = kChecksOf129,
    .labels = kLabelsOf129,
    .sale_types = "CmbSaleType",
    .hidden_sale_type = kSoldStraightOn,
    .group_by = &kGroupsWithProperties,
    .sort_fields = kSortFieldsOf129,
    .keys = kKeysOf129,
    .plan = kPlanOf129,
};

constexpr DialogTable kFrmFilter133 = {
    .name = "FrmFilter133",
    .family = DialogFamily::kOlder,
    .codes = kCodesOf133,
    .combos = kBoxesOf133,
    .labels = kLabelsOf133,
    .group_by = &kGroupsWithProperties,
    .keys = kKeysOf133,
    .plan = kPlanOf133,
    .resources = kFormResources,
};

constexpr DialogTable kFrmFirter134 = {
    .name = "frmFirter134",
    .family = DialogFamily::kDateRange,
    .codes = kCodesOf134,
    .combos = kBoxesOf134,
    .checks = kChecksOf134,
    .labels = kLabelsOf134,
    .sale_types = "CmbSaleType",
    .keys = kKeysOf134,
    .plan = kPlanOf134,
};

constexpr DialogTable kFrmFirter135 = {
    .name = "frmFirter135",
    .family = DialogFamily::kDateRange,
    .codes = kCodesOf135,
    .combos = kBoxesOf135,
    .checks = kChecksOf135,
    .labels = kLabelsOf135,
    .sale_types = "CmbSaleType",
    .keys = kKeysOf135,
    .plan = kPlanOf135,
    .remembered = "cmbCheckState",
};

constexpr DialogTable kFrmFilter147 = {
    .name = "frmFilter147",
    .family = DialogFamily::kOlder,
    .range = RangePane::kPeriodRange,
    .codes = kCodesOf147,
    .combos = kBoxesOf147,
    .labels = kLabelsOf147,
    .keys = kKeysOf147,
    .plan = kPlanOf147,
    .resources = kFormResources,
};

constexpr DialogTable kFrmFilter148 = {
    .name = "frmFilter148",
    .family = DialogFamily::kOlder,
    .range = RangePane::kPeriodRange,
    .codes = kCodesOf148,
    .combos = kBoxesOf148,
    .labels = kLabelsOf148,
    .keys = kKeysOf148,
    .plan = kPlanOf148,
    .resources = kFormResources,
};

constexpr DialogTable kFrmFirter176 = {
    .name = "frmFirter176",
    .family = DialogFamily::kOlder,
    .codes = kCodesOf176,
    .combos = kBoxesOf176,
    .labels = kLabelsOf176,
    .sale_types = "CmbSaleType",
    .group_by = &kGroupsOf176,
    .keys = kKeysOf176,
    .plan = kPlanOf176,
};

constexpr DialogTable kFrmFilter303 = {
    .name = "FrmFilter303",
    .family = DialogFamily::kDateRange,
    .tabs = "SSTab",
    .codes = kCodesOf303,
    .combos = kBoxesOf303,
    .checks = kChecksOf303,
    .labels = kLabelsOf303,
    .range_to = "至：",
    .group_by = &kGroupsOf303,
    .keys = kKeysOf303,
    .plan = kPlanOf303,
};

}  // namespace salerpt
