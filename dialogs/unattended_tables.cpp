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

constexpr std::array kKeysOf126 = {
    DialogKey{"BDate", kToday},           DialogKey{"EDate", kToday},
    DialogKey{"BItemNumber", kEmptyText}, DialogKey{"EItemNumber", kEmptyText},
    DialogKey{"BCustNumber", kEmptyText}, DialogKey{"ECustNumber", kEmptyText},
    DialogKey{"BDeptNumber", kEmptyText}, DialogKey{"EDeptNumber", kEmptyText},
    DialogKey{"BEmpNumber", kEmptyText},  DialogKey{"EEmpNumber", kEmptyText},
    DialogKey{"GroupBy", kOne},           DialogKey{"OnlyShowSum", kOne},
    DialogKey{"BLevel", kBeginLevel},     DialogKey{"ELevel", kEndLevel},
    DialogKey{"SumMode", kOne},           DialogKey{"SumName", kSumName},
    DialogKey{"SaleType", kOne},          DialogKey{"SaleTypeName", kAllSaleTypes},
    DialogKey{"HookStatus", kMinusOne},   DialogKey{"CurrencyShow", kZero},
    DialogKey{"SumField", kSumField},     DialogKey{"CheckState", kZero},
    DialogKey{"AuxProp", kZero},          DialogKey{"BillType", kZero},
    DialogKey{"chkNextChoose", kZero},    DialogKey{"CommodityType", kZero},
};

constexpr std::array kKeysOf128 = {
    DialogKey{"BDate", kToday},           DialogKey{"EDate", kToday},
    DialogKey{"BItemNumber", kEmptyText}, DialogKey{"EItemNumber", kEmptyText},
    DialogKey{"BCustNumber", kEmptyText}, DialogKey{"ECustNumber", kEmptyText},
    DialogKey{"GroupBy", kOne},           DialogKey{"OnlyShowSum", kOne},
    DialogKey{"BLevel", kBeginLevel},     DialogKey{"ELevel", kEndLevel},
    DialogKey{"SumMode", kOne},           DialogKey{"SumName", kSumName},
    DialogKey{"SaleType", kOne},          DialogKey{"SaleTypeName", kAllSaleTypes},
    DialogKey{"SumField", kSumField},     DialogKey{"FROB", kZero},
    DialogKey{"CheckState", kZero},       DialogKey{"chkNextChoose", kZero},
    DialogKey{"CommodityType", kZero},    DialogKey{"Orderby", kItemCodeOrder},
};

constexpr std::array kKeysOf129 = {
    DialogKey{"BDate", kToday},
    DialogKey{"EDate", kToday},
    DialogKey{"BItemNumber", kEmptyText},
    DialogKey{"EItemNumber", kEmptyText},
    DialogKey{"BCustNumber", kEmptyText},
    DialogKey{"ECustNumber", kEmptyText},
    DialogKey{"GroupBy", kOne},
    DialogKey{"OnlyShowSum", kOne},
    DialogKey{"SaleType", kOne},
    DialogKey{"SaleTypeName", kAllSaleTypes},
    DialogKey{"BBatchNo", kEmptyText},
    DialogKey{"EBatchNo", kEmptyText},
    DialogKey{"BLevel", kBeginLevel},
    DialogKey{"ELevel", kEndLevel},
    DialogKey{"SumMode", kOne},
    DialogKey{"SumName", kSumName},
    DialogKey{"SumField", kSumField},
    DialogKey{"CheckState", kZero},
    DialogKey{"FROB", kZero},
    DialogKey{"AuxProp", kOne},
    DialogKey{"chkShowItemSum", kOne},
    DialogKey{"chkShowDateSum", kZero},
    DialogKey{"OrderBy", kEmptyText},
    DialogKey{"chkNextChoose", kZero},
    DialogKey{"CommodityType", kZero},
};

constexpr std::array kKeysOf134 = {
    DialogKey{"BDate", kToday},
    DialogKey{"EDate", kToday},
    DialogKey{"BItemNumber", kEmptyText},
    DialogKey{"EItemNumber", kEmptyText},
    DialogKey{"BCustNumber", kEmptyText},
    DialogKey{"ECustNumber", kEmptyText},
    DialogKey{"CheckState", kZero},
    DialogKey{"SaleType", kOne},
    DialogKey{"SaleTypeName", kAllSaleTypes},
    DialogKey{"AuxProp", kZero},
    DialogKey{"HookStatus", kMinusOne},
    DialogKey{"chkNextChoose", kZero},
    DialogKey{"CommodityType", kZero},
};

constexpr std::array kKeysOf135 = {
    DialogKey{"BDate", kToday},
    DialogKey{"EDate", kToday},
    DialogKey{"BItemNumber", kEmptyText},
    DialogKey{"EItemNumber", kEmptyText},
    DialogKey{"BCustNumber", kEmptyText},
    DialogKey{"ECustNumber", kEmptyText},
    DialogKey{"CheckState", kZero},
    DialogKey{"SaleType", kOne},
    DialogKey{"SaleTypeName", kAllSaleTypes},
    DialogKey{"AuxProp", kOne},
    DialogKey{"HookStatus", kMinusOne},
    DialogKey{"chkNextChoose", kZero},
    DialogKey{"CommodityType", kZero},
};

constexpr std::array kKeysOf147 = {
    DialogKey{"BYear", kCurrentYear},     DialogKey{"BPeriod", kCurrentPeriod},
    DialogKey{"EYear", kCurrentYear},     DialogKey{"EPeriod", kCurrentPeriod},
    DialogKey{"BItemNumber", kEmptyText}, DialogKey{"EItemNumber", kEmptyText},
    DialogKey{"BEmpNumber", kEmptyText},  DialogKey{"EEmpNumber", kEmptyText},
    DialogKey{"BDptNumber", kEmptyText},  DialogKey{"EDptNumber", kEmptyText},
    DialogKey{"BCustNumber", kEmptyText}, DialogKey{"ECustNumber", kEmptyText},
    DialogKey{"CheckState", kZero},
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
    DialogKey{"GroupBy", kOne},
    DialogKey{"OnlyShowSum", kOne},
    DialogKey{"BLevel", kBeginLevel},
    DialogKey{"ELevel", kEndLevel},
    DialogKey{"SumMode", kOne},
    DialogKey{"SumName", kSumName},
    DialogKey{"SaleType", kOne},
    DialogKey{"SaleTypeName", kAllSaleTypes},
    DialogKey{"SumField", kSumField},
    DialogKey{"CheckState", kZero},
    DialogKey{"Cost", kZero},
    DialogKey{"IncludeTax", kTaxInPrice},
    DialogKey{"TaxSource", kTaxRateOption},
};

constexpr std::array kKeysOf301 = {
    DialogKey{"BDate", kToday},          DialogKey{"EDate", kToday},
    DialogKey{"BItemClass", kEmptyText}, DialogKey{"BFeeNumber", kEmptyText},
    DialogKey{"EFeeNumber", kEmptyText}, DialogKey{"BCust", kEmptyText},
    DialogKey{"ECust", kEmptyText},      DialogKey{"BSupply", kEmptyText},
    DialogKey{"ESupply", kEmptyText},    DialogKey{"GroupBy", kOne},
    DialogKey{"OnlyShowSum", kOne},      DialogKey{"BLevel", kBeginLevel},
    DialogKey{"ELevel", kEndLevel},      DialogKey{"SumMode", kOne},
    DialogKey{"SumField", kSumField},    DialogKey{"CheckState", kZero},
    DialogKey{"InvoiceStyle", kZero},    DialogKey{"HookStatus", kTwo},
};

constexpr std::array kKeysOf302 = {
    DialogKey{"BDate", kToday},           DialogKey{"EDate", kToday},
    DialogKey{"BItemClass", kEmptyText},  DialogKey{"BFeeNumber", kEmptyText},
    DialogKey{"EFeeNumber", kEmptyText},  DialogKey{"BCust", kEmptyText},
    DialogKey{"ECust", kEmptyText},       DialogKey{"BSupply", kEmptyText},
    DialogKey{"ESupply", kEmptyText},     DialogKey{"CheckState", kZero},
    DialogKey{"OrderBy", kItemCodeOrder}, DialogKey{"InvoiceStyle", kZero},
    DialogKey{"HookStatus", kTwo},
};

constexpr std::array kKeysOf303 = {
    DialogKey{"BDate", kToday},           DialogKey{"EDate", kToday},
    DialogKey{"BItemNumber", kEmptyText}, DialogKey{"EItemNumber", kEmptyText},
    DialogKey{"BCustNumber", kEmptyText}, DialogKey{"ECustNumber", kEmptyText},
    DialogKey{"BDptNumber", kEmptyText},  DialogKey{"EDptNumber", kEmptyText},
    DialogKey{"BEmpNumber", kEmptyText},  DialogKey{"EEmpNumber", kEmptyText},
    DialogKey{"GroupBy", kOne},           DialogKey{"OnlyShowSum", kOne},
    DialogKey{"ShowVirtualStock", kOne},  DialogKey{"BLevel", kBeginLevel},
    DialogKey{"ELevel", kEndLevel},       DialogKey{"SumMode", kOne},
    DialogKey{"SumField", kSumField},     DialogKey{"CheckState", kZero},
    DialogKey{"chkNextChoose", kZero},    DialogKey{"CommodityType", kZero},
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
    DialogTable{.name = "frmFilter147", .keys = kKeysOf147},
    DialogTable{.name = "frmFirter176",
                .keys = kKeysOf176,
                .group_by = kGroupByOf176,
                .sum_fields = kSumFieldsOf176,
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
