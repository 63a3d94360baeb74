// The dialogs of the sales fee invoices.
#include <array>
#include <string_view>

#include "dialogs/tables/entries.h"
#include "dialogs/tables/tables.h"

namespace salerpt {
namespace {

constexpr std::array<std::string_view, 3> kFeeHookStates = {"已钩稽", "未钩稽", "全部"};
constexpr ComboBoxRows kFeeHookStatusBox = {"cboHookStatus", kFeeHookStates, 2};
constexpr std::array<std::string_view, 3> kInvoiceStyles = {"应付费用发票", "应收费用发票", "全部"};
constexpr ComboBoxRows kInvoiceStyleBox = {"cmbInvoiceStyle", kInvoiceStyles, 2};

// --- Rows by which frmFirter301 sums: the supplier's for payable invoices, the customer's for receivable
// ones

constexpr GroupByRow kByFeeClass = {"费用类别", 1};
constexpr GroupByRow kByFeeType = {"费用类型", 2};
constexpr SumFieldRow kFeeTypeField = {2, "费用类型", kFeeClass, true};

constexpr std::array kPayableRows = {
    kByFeeClass,
    kByFeeType,
    GroupByRow{"供应商类别", 3},
    GroupByRow{"费用类别+供应商", 4},
    GroupByRow{"供应商+费用类别", 5},
    GroupByRow{"供应商", 6},
};
constexpr std::array kPayableFields = {
    kFeeTypeField,
    SumFieldRow{6, "供应商", kSupplierClass, true},
};
constexpr std::array kReceivableRows = {
    kByFeeClass,
    kByFeeType,
    GroupByRow{"客户类别", 3},
    GroupByRow{"费用类别+客户", 4},
    GroupByRow{"客户+费用类别", 5},
    GroupByRow{"客户", 6},
};
constexpr std::array kReceivableFields = {
    kFeeTypeField,
    SumFieldRow{6, "客户", kCustomerClass, true},
};
constexpr std::array kAllRows = {
    kByFeeClass,
    kByFeeType,
};
constexpr std::array kAllFields = {
    kFeeTypeField,
};

// --- frmFirter301

constexpr std::array kCodesOf301 = {
    BaseData(0, kFeeClass, " 费用代码:"),
    BaseData(2, kCustomerClass, " 客户代码:"),
    BaseData(4, kSupplierClass, "供应商代码:"),
};
constexpr std::array kBoxesOf301 = {
    kCheckStateBox,
    kFeeHookStatusBox,
    kInvoiceStyleBox,
};
constexpr std::array kLabelsOf301 = {
    LabelCaption{"lblBDate", "起始日期:"},
    LabelCaption{"lblEDate", "截止日期:"},
    LabelCaption{"lblItemClass", "物料类别代码:             "},
    LabelCaption{"lblInvoiceStyle", "发票类型:"},
    LabelCaption{"lblHookStatus", "钩稽状态:"},
    LabelCaption{"lblCheckState", "单据状态:"},
};
constexpr std::array kKeysOf301 = {
    KeyOfDate("BDate", "DtpBDate"),
    KeyOfDate("EDate", "DtpEDate"),
    KeyOfText("BItemClass", "txtItemClass"),
    KeyOfText("BFeeNumber", "txtItem(0)"),
    KeyOfText("EFeeNumber", "txtItem(1)"),
    KeyOfText("BCust", "txtItem(2)"),
    KeyOfText("ECust", "txtItem(3)"),
    KeyOfText("BSupply", "txtItem(4)"),
    KeyOfText("ESupply", "txtItem(5)"),
    KeyOfCheck("GroupBy", "chkGroupBy"),
    KeyOfCheck("OnlyShowSum", "chkOnlyShowSum"),
    KeyOfNumber("BLevel", "txtlevel(0)"),
    KeyOfNumber("ELevel", "txtlevel(1)"),
    kSumModeKey,
    kSumFieldKey,
    KeyOfListIndex("CheckState", "cmbCheckState"),
    KeyOfListIndex("InvoiceStyle", "cmbInvoiceStyle"),
    KeyOfListIndex("HookStatus", "cboHookStatus"),
    kDefaultPlanSaved,
};
constexpr std::array kPlanOf301 = {
    PlanOfDate("BDate", "DtpBDate"),
    PlanOfDate("EDate", "DtpEDate"),
    PlanOfCode("ItemClass", "txtItemClass"),
    PlanOfCode("BFee", "txtItem(0)"),
    PlanOfCode("EFee", "txtItem(1)"),
    PlanOfCode("BCust", "txtItem(2)"),
    PlanOfCode("ECust", "txtItem(3)"),
    PlanOfCode("BSupply", "txtItem(4)"),
    PlanOfCode("ESupply", "txtItem(5)"),
    PlanOfText("BLevel", "txtlevel(0)", "1"),
    PlanOfText("ELevel", "txtlevel(1)", "5"),
    PlanOfCheck("chkGroupBy", "chkGroupBy", "1"),
    PlanOfCheck("OnlyShowSum", "chkOnlyShowSum", "1"),
    PlanOfListIndex("GroupByListIndex", "cmbGroupBy"),
    PlanOfListIndex("CheckState", "cmbCheckState"),
    PlanOfListIndex("InvoiceStyle", "cmbInvoiceStyle"),
    PlanOfListIndex("HookStatus", "cboHookStatus", "2"),
};
// The style fills the list in which the group row is chosen; the end level pulls the begin level down.
constexpr std::array<std::string_view, 17> kRestoreOf301 = {
    "BDate",       "EDate",        "ItemClass",        "BFee",       "EFee",       "BCust",
    "ECust",       "BSupply",      "ESupply",          "ELevel",     "BLevel",     "chkGroupBy",
    "OnlyShowSum", "InvoiceStyle", "GroupByListIndex", "CheckState", "HookStatus",
};

// --- frmFirter302

constexpr std::array kCodesOf302 = {
    BaseData(0, kFeeClass, " 费用代码:"),
    BaseData(2, kCustomerClass, " 客户代码:"),
    BaseData(4, kSupplierClass, "供应商代码:"),
};
constexpr std::array kBoxesOf302 = {
    kCheckStateBox,
    kFeeHookStatusBox,
    kInvoiceStyleBox,
};
constexpr std::array kLabelsOf302 = {
    LabelCaption{"lblBDate", "起始日期:"},
    LabelCaption{"lblEDate", "截止日期:"},
    LabelCaption{"lblItemClass", "物料类别代码:             "},
    LabelCaption{"lblInvoiceStyle", "发票类型:"},
    LabelCaption{"lblHookStatus", "钩稽状态:"},
    LabelCaption{"lblCheckState", "单据状态:"},
};
constexpr std::array kSortFieldsOf302 = {
    SortField{"日期", "FDate"},
    SortField{"费用发票号码", "FBillNo"},
    SortField{"客户长代码", "FCustFullNumber", "客户代码", "FCustNumber"},
    SortField{"费用长代码", "FFeeFullNumber", "费用代码", "FFeeNumber"},
    SortField{"费用类型", "FFeeType"},
    SortField{"币别", "FCurrencyName"},
    SortField{"计量单位", "FUnitName"},
    SortField{"数量", "FAuxQty"},
    SortField{"单价", "FAuxPrice"},
    SortField{"金额", "FAmount"},
    SortField{"税率", "FTaxRate"},
    SortField{"可抵扣税额", "FTaxAmount"},
    SortField{"不含税金额", "FAmountEx"},
    SortField{"审核人", "FCheckerName"},
};
constexpr std::array kKeysOf302 = {
    KeyOfDate("BDate", "DtpBDate"),
    KeyOfDate("EDate", "DtpEDate"),
    KeyOfText("BItemClass", "txtItemClass"),
    KeyOfText("BFeeNumber", "txtItem(0)"),
    KeyOfText("EFeeNumber", "txtItem(1)"),
    KeyOfText("BCust", "txtItem(2)"),
    KeyOfText("ECust", "txtItem(3)"),
    KeyOfText("BSupply", "txtItem(4)"),
    KeyOfText("ESupply", "txtItem(5)"),
    KeyOfListIndex("CheckState", "cmbCheckState"),
    KeyOfOrder("OrderBy"),
    KeyOfListIndex("InvoiceStyle", "cmbInvoiceStyle"),
    KeyOfListIndex("HookStatus", "cboHookStatus"),
    kDefaultPlanSaved,
};
constexpr std::array kPlanOf302 = {
    PlanOfDate("BDate", "DtpBDate"),
    PlanOfDate("EDate", "DtpEDate"),
    PlanOfCode("ItemClass", "txtItemClass"),
    PlanOfCode("BFee", "txtItem(0)"),
    PlanOfCode("EFee", "txtItem(1)"),
    PlanOfCode("BCust", "txtItem(2)"),
    PlanOfCode("ECust", "txtItem(3)"),
    PlanOfCode("BSupply", "txtItem(4)"),
    PlanOfCode("ESupply", "txtItem(5)"),
    PlanOfListIndex("CheckState", "cmbCheckState"),
    PlanOfOrder("OrderBy", ""),
    PlanOfListIndex("InvoiceStyle", "cmbInvoiceStyle"),
    PlanOfListIndex("HookStatus", "cboHookStatus", "2"),
};

}  // namespace

constexpr GroupByTable kPayableFeeGroups = {
    .rows = kPayableRows,
    .sum_fields = kPayableFields,
    .properties = " FItemClassID=8 ",
    .property_offset = 5,
    .end_level_label = "Label11",
};
constexpr GroupByTable kReceivableFeeGroups = {
    .rows = kReceivableRows,
    .sum_fields = kReceivableFields,
    .properties = " FItemClassID=1 ",
    .property_offset = 5,
    .end_level_label = "Label11",
};
constexpr GroupByTable kAllFeeGroups = {
    .rows = kAllRows,
    .sum_fields = kAllFields,
    .end_level_label = "Label11",
};
constexpr std::array<const GroupByTable*, 3> kFeeGroupsByStyle = {&kPayableFeeGroups, &kReceivableFeeGroups,
                                                                  &kAllFeeGroups};

constexpr DialogTable kFrmFirter301 = {
    .name = "frmFirter301",
    .family = DialogFamily::kOlder,
    .codes = kCodesOf301,
    .combos = kBoxesOf301,
    .labels = kLabelsOf301,
    .group_by = &kAllFeeGroups,
    .keys = kKeysOf301,
    .plan = kPlanOf301,
    .restore = kRestoreOf301,
};

constexpr DialogTable kFrmFirter302 = {
    .name = "frmFirter302",
    .family = DialogFamily::kOlder,
    .codes = kCodesOf302,
    .combos = kBoxesOf302,
    .labels = kLabelsOf302,
    .sort_fields = kSortFieldsOf302,
    .keys = kKeysOf302,
    .plan = kPlanOf302,
};

}  // namespace salerpt
