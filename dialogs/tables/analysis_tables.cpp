// The dialogs of the sales growth, flow and structure analyses.
#include <array>
#include <string_view>

#include "dialogs/tables/entries.h"
#include "dialogs/tables/tables.h"

namespace salerpt {
namespace {

// --- frmFirter140

constexpr std::array kCodesOf140 = {
    BaseData(0, kItemClass, "物料代码:"),
    BaseData(2, kCustomerClass, "客户代码:"),
};
constexpr std::array kBoxesOf140 = {
    kCheckStateBox,
    kCommodityTypeBox,
};
constexpr std::array kChecksOf140 = {
    kAuxPropCheck,
    kNextChooseCheck,
};
constexpr std::array kLabelsOf140 = {
    LabelCaption{"lblPeriod", "会计期间:"},
    LabelCaption{"lblBYear", "年"},
    LabelCaption{"lblBPeriod", "期"},
    LabelCaption{"lblCheckState", "单据状态:"},
    LabelCaption{"lblCommodityType", "商品类型:"},
};
constexpr std::array kKeysOf140 = {
    KeyOfNumber("BYear", "txtPeriod(0)"),
    KeyOfNumber("BPeriod", "txtPeriod(1)"),
    KeyOfTrimmedText("BItemNumber", "txtItem(0)"),
    KeyOfTrimmedText("EItemNumber", "txtItem(1)"),
    KeyOfTrimmedText("BCustNumber", "txtItem(2)"),
    KeyOfTrimmedText("ECustNumber", "txtItem(3)"),
    KeyOfListIndex("CheckState", "cmbCheckState"),
    KeyOfCheck("AuxProp", "Chk_Aux"),
    KeyOfCheck("chkNextChoose", "chkNextChoose"),
    KeyOfListIndex("CommodityType", "cmbCommodityType"),
    kDefaultPlanSaved,
};
// Kept: the customers stand under "Emp", the key that stored plans have.
constexpr std::array kPlanOf140 = {
    PlanOfYear("BYEAR", "txtPeriod(0)"),
    PlanOfPeriod("BPERIOD", "txtPeriod(1)"),
    PlanOfCode("BItem", "txtItem(0)"),
    PlanOfCode("EItem", "txtItem(1)"),
    PlanOfCode("BEmp", "txtItem(2)"),
    PlanOfCode("EEmp", "txtItem(3)"),
    PlanOfListIndex("CheckState", "cmbCheckState"),
    PlanOfCheck("AuxProp", "Chk_Aux", "1"),
    PlanOfCheck("chkNextChoose", "chkNextChoose", "0"),
    PlanOfListIndex("CommodityType", "cmbCommodityType"),
};

// --- frmFirter142

constexpr std::array kCodesOf142 = {
    BaseData(0, kItemClass, "物料代码:"),
    BaseData(2, kCustomerClass, "客户代码:"),
};
constexpr std::array kBoxesOf142 = {
    kCheckStateBox,
    kCommodityTypeBox,
};
constexpr std::array kChecksOf142 = {
    kAuxPropCheck,
    kNextChooseCheck,
};
constexpr std::array kLabelsOf142 = {
    LabelCaption{"lblBDate", "起始日期:"},
    LabelCaption{"lblEDate", "截止日期:"},
    LabelCaption{"lblCheckState", "单据状态:"},
    LabelCaption{"lblCommodityType", "商品类型:"},
};
// The default plan is saved before the last key.
constexpr std::array kKeysOf142 = {
    KeyOfDate("BDate", "DtpBDate"),
    KeyOfDate("EDate", "DtpEDate"),
    KeyOfText("BItemNumber", "txtItem(0)"),
    KeyOfText("EItemNumber", "txtItem(1)"),
    KeyOfText("BCustNumber", "txtItem(2)"),
    KeyOfText("ECustNumber", "txtItem(3)"),
    KeyOfListIndex("CheckState", "cmbCheckState"),
    KeyOfCheck("chkNextChoose", "chkNextChoose"),
    KeyOfListIndex("CommodityType", "cmbCommodityType"),
    kDefaultPlanSaved,
    KeyOfCheck("AuxProp", "Chk_Aux"),
};
// Kept: the customers stand under "Emp", the key that stored plans have.
constexpr std::array kPlanOf142 = {
    PlanOfDate("BDATE", "DtpBDate"),
    PlanOfDate("EDATE", "DtpEDate"),
    PlanOfCode("BItem", "txtItem(0)"),
    PlanOfCode("EItem", "txtItem(1)"),
    PlanOfCode("BEmp", "txtItem(2)"),
    PlanOfCode("EEmp", "txtItem(3)"),
    PlanOfListIndex("CheckState", "cmbCheckState"),
    PlanOfCheck("AuxProp", "Chk_Aux", "1"),
    PlanOfCheck("chkNextChoose", "chkNextChoose", "0"),
    PlanOfListIndex("CommodityType", "cmbCommodityType"),
};

// --- frmFirter143

constexpr std::array kCodesOf143 = {
    BaseData(0, kItemClass, "物料代码:"),
    BaseData(2, kCustomerClass, "客户代码:"),
};
constexpr std::array kBoxesOf143 = {
    kCheckStateBox,
    kCommodityTypeBox,
};
constexpr std::array kChecksOf143 = {
    kAuxPropCheck,
    kNextChooseCheck,
};
constexpr std::array kLabelsOf143 = {
    LabelCaption{"lblPeriod", "会计期间:"},
    LabelCaption{"lblBYear", "年"},
    LabelCaption{"lblBPeriod", "期"},
    LabelCaption{"lblCheckState", "单据状态:"},
    LabelCaption{"lblCommodityType", "商品类型:"},
};
// The default plan is saved before the last key.
constexpr std::array kKeysOf143 = {
    KeyOfNumber("BYear", "txtPeriod(0)"),
    KeyOfNumber("BPeriod", "txtPeriod(1)"),
    KeyOfTrimmedText("BItemNumber", "txtItem(0)"),
    KeyOfTrimmedText("EItemNumber", "txtItem(1)"),
    KeyOfTrimmedText("BCustNumber", "txtItem(2)"),
    KeyOfTrimmedText("ECustNumber", "txtItem(3)"),
    KeyOfListIndex("CheckState", "cmbCheckState"),
    KeyOfCheck("chkNextChoose", "chkNextChoose"),
    KeyOfListIndex("CommodityType", "cmbCommodityType"),
    kDefaultPlanSaved,
    KeyOfCheck("AuxProp", "Chk_Aux"),
};
// Kept: the customers stand under "Emp", the key that stored plans have.
constexpr std::array kPlanOf143 = {
    PlanOfYear("BYEAR", "txtPeriod(0)"),
    PlanOfPeriod("BPERIOD", "txtPeriod(1)"),
    PlanOfCode("BItem", "txtItem(0)"),
    PlanOfCode("EItem", "txtItem(1)"),
    PlanOfCode("BEmp", "txtItem(2)"),
    PlanOfCode("EEmp", "txtItem(3)"),
    PlanOfListIndex("CheckState", "cmbCheckState"),
    PlanOfCheck("chkNextChoose", "chkNextChoose", "0"),
    PlanOfCheck("AuxProp", "Chk_Aux", "1"),
    PlanOfListIndex("CommodityType", "cmbCommodityType"),
};

}  // namespace

constexpr DialogTable kFrmFirter140 = {
    .name = "frmFirter140",
    .family = DialogFamily::kPeriod,
    .range = RangePane::kPeriod,
    .codes = kCodesOf140,
    .combos = kBoxesOf140,
    .checks = kChecksOf140,
    .labels = kLabelsOf140,
    .keys = kKeysOf140,
    .plan = kPlanOf140,
};

constexpr DialogTable kFrmFirter142 = {
    .name = "frmFirter142",
    .family = DialogFamily::kDateRange,
    .codes = kCodesOf142,
    .combos = kBoxesOf142,
    .checks = kChecksOf142,
    .labels = kLabelsOf142,
    .keys = kKeysOf142,
    .plan = kPlanOf142,
};

constexpr DialogTable kFrmFirter143 = {
    .name = "frmFirter143",
    .family = DialogFamily::kPeriod,
    .range = RangePane::kPeriod,
    .codes = kCodesOf143,
    .combos = kBoxesOf143,
    .checks = kChecksOf143,
    .labels = kLabelsOf143,
    .keys = kKeysOf143,
    .plan = kPlanOf143,
};

}  // namespace salerpt
