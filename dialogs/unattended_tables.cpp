// The filter dialogs as data: keys in writing order with their defaults, and the rows of "sum by".
#include <algorithm>
#include <array>
#include <memory>

#include "dialogs/unattended_dialog.h"
#include "runtime/text.h"

namespace salerpt {
namespace {

using enum DefaultValue;
using GroupByRow = DialogTable::GroupByRow;

constexpr DialogKey Number(std::string_view key, std::int32_t number) {
  return {key, kNumber, number};
}
constexpr DialogKey Word(std::string_view key, std::string_view word) {
  return {key, kWord, 0, word};
}

// --- Keys. The first rows of the boxes of sale styles and of order types, "全部", carry 1 and -1.

constexpr std::array kKeysOf126 = {
    DialogKey{"BDate", kToday},
    DialogKey{"EDate", kToday},
    DialogKey{"BItemNumber", kEmptyText},
    DialogKey{"EItemNumber", kEmptyText},
    DialogKey{"BCustNumber", kEmptyText},
    DialogKey{"ECustNumber", kEmptyText},
    DialogKey{"BDeptNumber", kEmptyText},
    DialogKey{"EDeptNumber", kEmptyText},
    DialogKey{"BEmpNumber", kEmptyText},
    DialogKey{"EEmpNumber", kEmptyText},
    Number("GroupBy", 1),
    Number("OnlyShowSum", 1),
    DialogKey{"BLevel", kBeginLevel},
    DialogKey{"ELevel", kEndLevel},
    Number("SumMode", 1),
    DialogKey{"SumName", kSumName},
    Number("SaleType", 1),
    Word("SaleTypeName", "全部"),
    Number("HookStatus", -1),
    Number("CurrencyShow", 0),
    DialogKey{"SumField", kSumField},
    Number("CheckState", 0),
    Number("AuxProp", 0),
    Number("BillType", 0),
    Number("chkNextChoose", 0),
    Number("CommodityType", 0),
};
constexpr std::array kKeysOf128 = {
    DialogKey{"BDate", kToday},
    DialogKey{"EDate", kToday},
    DialogKey{"BItemNumber", kEmptyText},
    DialogKey{"EItemNumber", kEmptyText},
    DialogKey{"BCustNumber", kEmptyText},
    DialogKey{"ECustNumber", kEmptyText},
    Number("GroupBy", 1),
    Number("OnlyShowSum", 1),
    DialogKey{"BLevel", kBeginLevel},
    DialogKey{"ELevel", kEndLevel},
    Number("SumMode", 1),
    DialogKey{"SumName", kSumName},
    Number("SaleType", 1),
    Word("SaleTypeName", "全部"),
    DialogKey{"SumField", kSumField},
    Number("FROB", 0),
    Number("CheckState", 0),
    Number("chkNextChoose", 0),
    Number("CommodityType", 0),
    DialogKey{"Orderby", kItemCodeOrder},
};
constexpr std::array kKeysOf129 = {
    DialogKey{"BDate", kToday},
    DialogKey{"EDate", kToday},
    DialogKey{"BItemNumber", kEmptyText},
    DialogKey{"EItemNumber", kEmptyText},
    DialogKey{"BCustNumber", kEmptyText},
    DialogKey{"ECustNumber", kEmptyText},
    Number("GroupBy", 1),
    Number("OnlyShowSum", 1),
    Number("SaleType", 1),
    Word("SaleTypeName", "全部"),
    DialogKey{"BBatchNo", kEmptyText},
    DialogKey{"EBatchNo", kEmptyText},
    DialogKey{"BLevel", kBeginLevel},
    DialogKey{"ELevel", kEndLevel},
    Number("SumMode", 1),
    DialogKey{"SumName", kSumName},
    DialogKey{"SumField", kSumField},
    Number("CheckState", 0),
    Number("FROB", 0),
    Number("AuxProp", 1),
    Number("chkShowItemSum", 1),
    Number("chkShowDateSum", 0),
    DialogKey{"OrderBy", kEmptyText},
    Number("chkNextChoose", 0),
    Number("CommodityType", 0),
};
constexpr std::array kKeysOf134 = {
    DialogKey{"BDate", kToday},
    DialogKey{"EDate", kToday},
    DialogKey{"BItemNumber", kEmptyText},
    DialogKey{"EItemNumber", kEmptyText},
    DialogKey{"BCustNumber", kEmptyText},
    DialogKey{"ECustNumber", kEmptyText},
    Number("CheckState", 0),
    Number("SaleType", 1),
    Word("SaleTypeName", "全部"),
    Number("AuxProp", 0),
    Number("HookStatus", -1),
    Number("chkNextChoose", 0),
    Number("CommodityType", 0),
};
constexpr std::array kKeysOf135 = {
    DialogKey{"BDate", kToday},
    DialogKey{"EDate", kToday},
    DialogKey{"BItemNumber", kEmptyText},
    DialogKey{"EItemNumber", kEmptyText},
    DialogKey{"BCustNumber", kEmptyText},
    DialogKey{"ECustNumber", kEmptyText},
    Number("CheckState", 0),
    Number("SaleType", 1),
    Word("SaleTypeName", "全部"),
    Number("AuxProp", 1),
    Number("HookStatus", -1),
    Number("chkNextChoose", 0),
    Number("CommodityType", 0),
};
constexpr std::array kKeysOf136 = {
    DialogKey{"BDate", kToday},
    DialogKey{"EDate", kToday},
    DialogKey{"BItemNumber", kEmptyText},
    DialogKey{"EItemNumber", kEmptyText},
    DialogKey{"BCustNumber", kEmptyText},
    DialogKey{"ECustNumber", kEmptyText},
    DialogKey{"BDepartNumber", kEmptyText},
    DialogKey{"EDepartNumber", kEmptyText},
    DialogKey{"BEmpNumber", kEmptyText},
    DialogKey{"EEmpNumber", kEmptyText},
    DialogKey{"BCurrencyNumber", kEmptyText},
    DialogKey{"ECurrencyNumber", kEmptyText},
    Number("ChkByCurrency", 0),
    Number("GroupBy", 1),
    Number("OnlyShowSum", 1),
    DialogKey{"BLevel", kBeginLevel},
    DialogKey{"ELevel", kEndLevel},
    Number("SumMode", 1),
    DialogKey{"SumName", kSumName},
    Number("SaleType", 1),
    Word("SaleTypeName", "全部"),
    DialogKey{"SumField", kSumField},
    Number("CheckState", 0),
    Number("OrderType", -1),
    Word("OrderTypeName", "全部"),
    DialogKey{"Orderby", kItemCodeOrder},
    Number("chkNextChoose", 0),
    Number("CommodityType", 0),
};
constexpr std::array kKeysOf137 = {
    DialogKey{"BDate", kToday},
    DialogKey{"EDate", kToday},
    DialogKey{"BItemNumber", kEmptyText},
    DialogKey{"EItemNumber", kEmptyText},
    DialogKey{"BCustNumber", kEmptyText},
    DialogKey{"ECustNumber", kEmptyText},
    DialogKey{"BCompanyNumber", kEmptyText},
    DialogKey{"ECompanyNumber", kEmptyText},
    DialogKey{"BDept", kEmptyText},
    DialogKey{"EDept", kEmptyText},
    DialogKey{"BEmp", kEmptyText},
    DialogKey{"EEmp", kEmptyText},
    DialogKey{"BBillNo", kEmptyText},
    DialogKey{"EBillNo", kEmptyText},
    Number("CheckState", 0),
    Number("DisplayType", 0),
    Number("CloseState", 0),
    Number("SaleType", 1),
    Word("SaleTypeName", "全部"),
    Number("OrderType", -1),
    Word("OrderTypeName", "全部"),
    Number("Implement", 0),
    Number("chkNextChoose", 0),
    Number("CommodityType", 0),
};
constexpr std::array kKeysOf138 = {
    DialogKey{"BDate", kToday},
    DialogKey{"EDate", kToday},
    DialogKey{"BItemNumber", kEmptyText},
    DialogKey{"EItemNumber", kEmptyText},
    DialogKey{"BCustNumber", kEmptyText},
    DialogKey{"ECustNumber", kEmptyText},
    DialogKey{"BCompanyNumber", kEmptyText},
    DialogKey{"ECompanyNumber", kEmptyText},
    DialogKey{"BDept", kEmptyText},
    DialogKey{"EDept", kEmptyText},
    DialogKey{"BEmp", kEmptyText},
    DialogKey{"EEmp", kEmptyText},
    DialogKey{"BBillNo", kEmptyText},
    DialogKey{"EBillNo", kEmptyText},
    Number("GroupBy", 1),
    Number("OnlyShowSum", 1),
    DialogKey{"BLevel", kBeginLevel},
    DialogKey{"ELevel", kEndLevel},
    Number("SumMode", 1),
    DialogKey{"SumName", kSumName},
    Number("SaleType", 1),
    Word("SaleTypeName", "全部"),
    Number("OrderType", -1),
    Word("OrderTypeName", "全部"),
    DialogKey{"SumField", kSumField},
    Number("CheckState", 0),
    Number("CloseState", 0),
    Number("chkNextChoose", 0),
    Number("CommodityType", 0),
};
// The fifth row of the sale styles is "全部"; all three states of execution are checked.
constexpr std::array kKeysOf139 = {
    DialogKey{"BDate", kToday},
    DialogKey{"EDate", kToday},
    DialogKey{"BEmp", kEmptyText},
    DialogKey{"EEmp", kEmptyText},
    DialogKey{"BItemNumber", kEmptyText},
    DialogKey{"EItemNumber", kEmptyText},
    DialogKey{"BClientNumber", kEmptyText},
    DialogKey{"EClientNumber", kEmptyText},
    DialogKey{"BDept", kEmptyText},
    DialogKey{"EDept", kEmptyText},
    DialogKey{"BBillNo", kEmptyText},
    DialogKey{"EBillNo", kEmptyText},
    Number("FSaleStyle", 4),
    Number("GroupBy", 0),
    Number("OnlyShowSum", 0),
    DialogKey{"BLevel", kBeginLevel},
    DialogKey{"ELevel", kEndLevel},
    Number("GroupByListIndex", 0),
    Number("CheckState", 0),
    Number("CheckClose", 2),
    Number("CommodityType", 0),
    Number("Unexecuted", 1),
    Number("Partialexecution", 1),
    Number("Fullyexecuted", 1),
    Number("SumMode", 1),
    Number("Mode", 0),
    DialogKey{"SumField", kSumField},
    DialogKey{"ItemClassNumber", kEmptyText},
};
constexpr std::array kKeysOf147 = {
    DialogKey{"BYear", kCurrentYear},
    DialogKey{"BPeriod", kCurrentPeriod},
    DialogKey{"EYear", kCurrentYear},
    DialogKey{"EPeriod", kCurrentPeriod},
    DialogKey{"BItemNumber", kEmptyText},
    DialogKey{"EItemNumber", kEmptyText},
    DialogKey{"BEmpNumber", kEmptyText},
    DialogKey{"EEmpNumber", kEmptyText},
    DialogKey{"BDptNumber", kEmptyText},
    DialogKey{"EDptNumber", kEmptyText},
    DialogKey{"BCustNumber", kEmptyText},
    DialogKey{"ECustNumber", kEmptyText},
    Number("CheckState", 0),
};
constexpr std::array kKeysOf176 = {
    DialogKey{"BDate", kToday},
    DialogKey{"EDate", kToday},
    DialogKey{"BItemNumber", kEmptyText},
    DialogKey{"EItemNumber", kEmptyText},
    DialogKey{"BCustNumber", kEmptyText},
    DialogKey{"ECustNumber", kEmptyText},
    DialogKey{"BDept", kEmptyText},
    DialogKey{"EDept", kEmptyText},
    DialogKey{"BEmp", kEmptyText},
    DialogKey{"EEmp", kEmptyText},
    Number("GroupBy", 1),
    Number("OnlyShowSum", 1),
    DialogKey{"BLevel", kBeginLevel},
    DialogKey{"ELevel", kEndLevel},
    Number("SumMode", 1),
    DialogKey{"SumName", kSumName},
    Number("SaleType", 1),
    Word("SaleTypeName", "全部"),
    DialogKey{"SumField", kSumField},
    Number("CheckState", 0),
    Number("Cost", 0),
    DialogKey{"IncludeTax", kTaxInPrice},
    DialogKey{"TaxSource", kTaxRateOption},
};
constexpr std::array kKeysOf189 = {
    DialogKey{"BDate", kToday},
    DialogKey{"EDate", kToday},
    DialogKey{"BCustomerNumber", kEmptyText},
    DialogKey{"ECustomerNumber", kEmptyText},
    DialogKey{"BItemNumber", kEmptyText},
    DialogKey{"EItemNumber", kEmptyText},
    DialogKey{"BSalesNumber", kEmptyText},
    DialogKey{"ESalesNumber", kEmptyText},
    DialogKey{"BDeptNumber", kEmptyText},
    DialogKey{"EDeptNumber", kEmptyText},
    Word("AuditType", "全部"),
    Word("GroupBy", "客户"),
    Number("chkNextChoose", 0),
    Number("CommodityType", 0),
};
constexpr std::array kKeysOf192 = {
    DialogKey{"BDate", kToday},
    DialogKey{"EDate", kToday},
    DialogKey{"BItemNumber", kEmptyText},
    DialogKey{"EItemNumber", kEmptyText},
    DialogKey{"BCustNumber", kEmptyText},
    DialogKey{"ECustNumber", kEmptyText},
    DialogKey{"BBill", kEmptyText},
    DialogKey{"EBill", kEmptyText},
    Number("CheckState", 0),
    Number("DisplayType", 0),
    Number("CloseState", 0),
};
constexpr std::array kKeysOf300 = {
    DialogKey{"BDate", kToday},
    DialogKey{"EDate", kToday},
    DialogKey{"BItemNumber", kEmptyText},
    DialogKey{"EItemNumber", kEmptyText},
    DialogKey{"BCustNumber", kEmptyText},
    DialogKey{"ECustNumber", kEmptyText},
    Number("GroupBy", 1),
    Number("OnlyShowSum", 1),
    Number("SaleType", 1),
    Word("SaleTypeName", "全部"),
    Number("OrderType", -1),
    Word("OrderTypeName", "全部"),
    DialogKey{"BLevel", kBeginLevel},
    DialogKey{"ELevel", kEndLevel},
    Number("SumMode", 1),
    DialogKey{"SumName", kSumName},
    DialogKey{"SumField", kSumField},
    Number("CheckState", 0),
};
constexpr std::array kKeysOf301 = {
    DialogKey{"BDate", kToday},
    DialogKey{"EDate", kToday},
    DialogKey{"BItemClass", kEmptyText},
    DialogKey{"BFeeNumber", kEmptyText},
    DialogKey{"EFeeNumber", kEmptyText},
    DialogKey{"BCust", kEmptyText},
    DialogKey{"ECust", kEmptyText},
    DialogKey{"BSupply", kEmptyText},
    DialogKey{"ESupply", kEmptyText},
    Number("GroupBy", 1),
    Number("OnlyShowSum", 1),
    DialogKey{"BLevel", kBeginLevel},
    DialogKey{"ELevel", kEndLevel},
    Number("SumMode", 1),
    DialogKey{"SumField", kSumField},
    Number("CheckState", 0),
    Number("InvoiceStyle", 0),
    Number("HookStatus", 2),
};
constexpr std::array kKeysOf302 = {
    DialogKey{"BDate", kToday},
    DialogKey{"EDate", kToday},
    DialogKey{"BItemClass", kEmptyText},
    DialogKey{"BFeeNumber", kEmptyText},
    DialogKey{"EFeeNumber", kEmptyText},
    DialogKey{"BCust", kEmptyText},
    DialogKey{"ECust", kEmptyText},
    DialogKey{"BSupply", kEmptyText},
    DialogKey{"ESupply", kEmptyText},
    Number("CheckState", 0),
    DialogKey{"OrderBy", kItemCodeOrder},
    Number("InvoiceStyle", 0),
    Number("HookStatus", 2),
};
constexpr std::array kKeysOf303 = {
    DialogKey{"BDate", kToday},
    DialogKey{"EDate", kToday},
    DialogKey{"BItemNumber", kEmptyText},
    DialogKey{"EItemNumber", kEmptyText},
    DialogKey{"BCustNumber", kEmptyText},
    DialogKey{"ECustNumber", kEmptyText},
    DialogKey{"BDptNumber", kEmptyText},
    DialogKey{"EDptNumber", kEmptyText},
    DialogKey{"BEmpNumber", kEmptyText},
    DialogKey{"EEmpNumber", kEmptyText},
    Number("GroupBy", 1),
    Number("OnlyShowSum", 1),
    Number("ShowVirtualStock", 1),
    DialogKey{"BLevel", kBeginLevel},
    DialogKey{"ELevel", kEndLevel},
    Number("SumMode", 1),
    DialogKey{"SumField", kSumField},
    Number("CheckState", 0),
    Number("chkNextChoose", 0),
    Number("CommodityType", 0),
};
constexpr std::array kKeysOf1010 = {
    DialogKey{"BDate", kToday},
    DialogKey{"EDate", kToday},
    DialogKey{"BItemNumber", kEmptyText},
    DialogKey{"EItemNumber", kEmptyText},
    DialogKey{"BCustNumber", kEmptyText},
    DialogKey{"ECustNumber", kEmptyText},
    DialogKey{"BDept", kEmptyText},
    DialogKey{"EDept", kEmptyText},
    DialogKey{"BEmp", kEmptyText},
    DialogKey{"EEmp", kEmptyText},
    DialogKey{"BBillNo", kEmptyText},
    DialogKey{"EBillNo", kEmptyText},
    Number("CheckState", 0),
    Number("CloseState", 0),
    Number("SaleType", 1),
    Word("SaleTypeName", "全部"),
    Number("chkNextChoose", 0),
    Number("chkIsShowSum", 0),
    Number("chkIsShowDetail", 1),
    Number("CommodityType", 0),
    DialogKey{"Orderby", kEmptyText},
};

// --- Rows of "sum by"

constexpr std::array kGroupByOf128 = {
    GroupByRow{"物料类别", 1, 4},
    GroupByRow{"客户类别", 2, 1},
    GroupByRow{"物料类别+客户", 3, 4},
    GroupByRow{"客户+物料类别", 4, 4},
    GroupByRow{"客户", 5},
    GroupByRow{"业务员", 6},
    GroupByRow{"部门", 9},
    GroupByRow{"部门+业务员", 10},
    GroupByRow{"销售方式", 7},
    GroupByRow{"客户类别+客户", 8, 1},
    GroupByRow{"客户+业务员", 11},
    GroupByRow{"业务员+客户+物料类别", 12, 4},
};

constexpr std::array kGroupByOf126 = {
    GroupByRow{"物料类别", 1, 4},      GroupByRow{"客户类别", 2, 1}, GroupByRow{"物料类别+客户", 3, 4},
    GroupByRow{"客户+物料类别", 4, 4}, GroupByRow{"客户", 5},        GroupByRow{"部门", 6},
    GroupByRow{"业务员", 7},
};

constexpr std::array kGroupByOf129 = {
    GroupByRow{"物料类别", 1, 4},      GroupByRow{"客户类别", 2, 1}, GroupByRow{"物料类别+客户", 3, 4},
    GroupByRow{"客户+物料类别", 4, 4}, GroupByRow{"客户", 5},
};

constexpr std::array kGroupByOf136 = {
    GroupByRow{"物料类别", 1, 4},      GroupByRow{"客户类别", 2, 1}, GroupByRow{"物料类别+客户", 3, 4},
    GroupByRow{"客户+物料类别", 4, 4}, GroupByRow{"客户", 5},        GroupByRow{"业务员", 6},
    GroupByRow{"销售方式", 0},
};

constexpr std::array kGroupByOf138 = {
    GroupByRow{"物料类别", 1, 4},      GroupByRow{"客户类别", 2, 1}, GroupByRow{"物料类别+客户", 3, 4},
    GroupByRow{"客户+物料类别", 4, 4}, GroupByRow{"客户", 5},        GroupByRow{"业务员", 7},
    GroupByRow{"销售方式", 0},
};

constexpr std::array kGroupByOf139 = {
    GroupByRow{"物料类别", 1, 4},
};

constexpr std::array kGroupByOf176 = {
    GroupByRow{"物料类别", 1, 4},      GroupByRow{"客户类别", 2, 1}, GroupByRow{"物料类别+客户", 3, 4},
    GroupByRow{"客户+物料类别", 4, 4}, GroupByRow{"客户", 5},        GroupByRow{"部门", 6},
};

constexpr std::array kGroupByOf303 = {
    GroupByRow{"物料类别", 1, 4},
    GroupByRow{"客户类别", 2, 1},
    GroupByRow{"物料类别+客户", 3, 4},
    GroupByRow{"客户+物料类别", 4, 4},
    GroupByRow{"客户", 5},
    GroupByRow{"业务员", 6},
    GroupByRow{"部门", 7},
};

constexpr std::array kGroupByOfPayableFees = {
    GroupByRow{"费用类别", 1, 2014},        GroupByRow{"费用类型", 2},
    GroupByRow{"供应商类别", 3, 8},         GroupByRow{"费用类别+供应商", 4, 2014},
    GroupByRow{"供应商+费用类别", 5, 2014}, GroupByRow{"供应商", 6},
};

constexpr std::array kGroupByOfReceivableFees = {
    GroupByRow{"费用类别", 1, 2014},      GroupByRow{"费用类型", 2},
    GroupByRow{"客户类别", 3, 1},         GroupByRow{"费用类别+客户", 4, 2014},
    GroupByRow{"客户+费用类别", 5, 2014}, GroupByRow{"客户", 6},
};

// --- "SumField"

constexpr std::array kSumFieldsOf128 = {
    SumFieldRow{7, "销售方式", 1, 7, 29, "FSaleStyle", "t_SubMessage", "FInterID", "FName"},
    SumFieldRow{5, "客户", 1, 5},
    // The employee stands under the customer's class. Kept: the column name that the report makes of it is
    // known to hosts.
    SumFieldRow{6, "业务员", 1, 6},
    SumFieldRow{10, "部门", 0, 10},
    SumFieldRow{11, "客户", 0, 11},
};
constexpr std::array kSumFieldsOf126 = {
    SumFieldRow{5, "客户", 1, 0},
    SumFieldRow{6, "部门", 2, 6},
    SumFieldRow{7, "业务员", 3, 7},
};
constexpr std::array kSumFieldsOf129 = {
    SumFieldRow{5, "客户", 1, 0},
};
// The classes of the sale style and of the customers are kept as they stand: the names of the columns that
// the reports make of them are known to hosts.
constexpr std::array kSumFieldsOf136 = {
    SumFieldRow{0, "销售方式", 29, 0, 29, "FSaleStyle", "t_SubMessage", "FInterID", "FName"},
    SumFieldRow{5, "客户", 1, 0},
    SumFieldRow{6, "业务员", 3, 0},
};
constexpr std::array kSumFieldsOf138 = {
    SumFieldRow{0, "销售方式", 1, 0, 29, "FSaleStyle", "t_SubMessage", "FInterID", "FName"},
    SumFieldRow{5, "客户", 2, 5},
    SumFieldRow{7, "业务员", 3, 7},
};
constexpr std::array kSumFieldsOf176 = {
    SumFieldRow{5, "客户", 1, 0},
    SumFieldRow{6, "部门", 2, 0},
};
constexpr std::array kSumFieldsOf303 = {
    SumFieldRow{5, "客户", 1, 0},
    SumFieldRow{6, "业务员", 3, 0},
    SumFieldRow{7, "部门", 2, 0},
};
constexpr std::array kSumFieldsOfPayableFees = {
    SumFieldRow{2, "费用类型", 2014, 0},
    SumFieldRow{6, "供应商", 8, 0},
};
constexpr std::array kSumFieldsOfReceivableFees = {
    SumFieldRow{2, "费用类型", 2014, 0},
    SumFieldRow{6, "客户", 1, 0},
};

// --- The dialogs

constexpr DialogTable kReceivableFees = {.name = "frmFirter301",
                                         .keys = kKeysOf301,
                                         .group_by = kGroupByOfReceivableFees,
                                         .sum_fields = kSumFieldsOfReceivableFees,
                                         .has_properties = true};

constexpr std::array kTables = {
    DialogTable{
        .name = "frmFirter126", .keys = kKeysOf126, .group_by = kGroupByOf126, .sum_fields = kSumFieldsOf126},
    DialogTable{
        .name = "frmFirter128", .keys = kKeysOf128, .group_by = kGroupByOf128, .sum_fields = kSumFieldsOf128},
    DialogTable{.name = "frmFirter129",
                .keys = kKeysOf129,
                .group_by = kGroupByOf129,
                .sum_fields = kSumFieldsOf129,
                .has_properties = true},
    DialogTable{.name = "frmFirter134", .keys = kKeysOf134},
    DialogTable{.name = "frmFirter135", .keys = kKeysOf135},
    DialogTable{
        .name = "frmFirter136", .keys = kKeysOf136, .group_by = kGroupByOf136, .sum_fields = kSumFieldsOf136},
    DialogTable{.name = "frmFirter137", .keys = kKeysOf137},
    DialogTable{
        .name = "frmFirter138", .keys = kKeysOf138, .group_by = kGroupByOf138, .sum_fields = kSumFieldsOf138},
    DialogTable{.name = "FrmFilter139", .keys = kKeysOf139, .group_by = kGroupByOf139},
    DialogTable{.name = "frmFilter147", .keys = kKeysOf147},
    DialogTable{.name = "frmFirter176",
                .keys = kKeysOf176,
                .group_by = kGroupByOf176,
                .sum_fields = kSumFieldsOf176,
                .has_properties = true},
    DialogTable{.name = "frmFilter189", .keys = kKeysOf189},
    DialogTable{.name = "frmFilter192", .keys = kKeysOf192},
    DialogTable{.name = "frmFirter300",
                .keys = kKeysOf300,
                .group_by = kGroupByOf129,
                .sum_fields = kSumFieldsOf129,
                .has_properties = true},
    DialogTable{.name = "frmFirter301",
                .keys = kKeysOf301,
                .group_by = kGroupByOfPayableFees,
                .sum_fields = kSumFieldsOfPayableFees,
                .has_properties = true,
                .receivable = &kReceivableFees},
    DialogTable{.name = "frmFirter302", .keys = kKeysOf302},
    DialogTable{.name = "FrmFilter303",
                .keys = kKeysOf303,
                .group_by = kGroupByOf303,
                .sum_fields = kSumFieldsOf303,
                .has_properties = true},
    DialogTable{.name = "frmFirter1010", .keys = kKeysOf1010},
};

}  // namespace

const DialogTable* FindDialogTable(std::string_view name) {
  const auto found = std::find_if(kTables.begin(), kTables.end(),
                                  [name](const DialogTable& table) { return EqualNames(table.name, name); });
  return found == kTables.end() ? nullptr : &*found;
}

void RegisterUnattendedDialogs(Runtime& runtime) {
  for (const DialogTable& table : kTables) {
    runtime.RegisterDialog(table.name, [&table] { return std::make_unique<UnattendedDialog>(table); });
  }
}

}  // namespace salerpt
