// The tables of the dialogs: what holds in all of them, and the keys of three of them, written out.
#include "dialogs/tables/tables.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/text.h"

namespace salerpt {
namespace {

enum class Kind { kText, kDate, kCheck, kList };

using Controls = std::map<std::string, Kind, NameLess>;

std::string Indexed(std::string_view array, int index) {
  return std::string(array) + "(" + std::to_string(index) + ")";
}

// The controls of a dialog whose values a key may hold, those of the panes included. Fails on a second
// control of a name.
Controls ControlsOf(const DialogTable& table) {
  Controls controls;
  const auto add = [&controls, &table](std::string_view name, Kind kind) {
    EXPECT_TRUE(controls.emplace(name, kind).second) << table.name << ": " << name;
  };
  if (table.range == RangePane::kDates) {
    add("DtpBDate", Kind::kDate);
    add("DtpEDate", Kind::kDate);
  }
  const int periods = table.range == RangePane::kDates ? 0 : table.range == RangePane::kPeriod ? 2 : 4;
  for (int index = 0; index < periods; ++index) add(Indexed("txtPeriod", index), Kind::kText);
  for (const CodeRange& range : table.codes) {
    add(Indexed("txtItem", range.index), Kind::kText);
    add(Indexed("txtItem", range.index + 1), Kind::kText);
  }
  for (const ComboBoxRows& combo : table.combos) add(combo.control, Kind::kList);
  for (const CheckBoxCaption& check : table.checks) add(check.control, Kind::kCheck);
  if (!table.sale_types.empty()) add(table.sale_types, Kind::kList);
  if (!table.order_types.empty()) add(table.order_types, Kind::kList);
  if (table.group_by != nullptr) {
    add("chkGroupBy", Kind::kCheck);
    add("chkOnlyShowSum", Kind::kCheck);
    add("cmbGroupBy", Kind::kList);
    add("txtlevel(0)", Kind::kText);
    add("txtlevel(1)", Kind::kText);
  }
  // The fee dialogs make this field themselves.
  if (table.name == "frmFirter301" || table.name == "frmFirter302") add("txtItemClass", Kind::kText);
  return controls;
}

// Whether the dialog has what the source reads.
void ExpectFits(const DialogTable& table, const Controls& controls, const FilterKey& key) {
  const auto found = controls.find(key.control);
  const auto is = [&](Kind kind) {
    EXPECT_TRUE(found != controls.end() && found->second == kind)
        << table.name << ", " << key.key << ": " << key.control;
  };
  switch (key.source) {
    case KeySource::kDate:
      return is(Kind::kDate);
    case KeySource::kText:
    case KeySource::kTrimmedText:
    case KeySource::kNumber:
      return is(Kind::kText);
    case KeySource::kCheck:
      return is(Kind::kCheck);
    case KeySource::kListIndex:
    case KeySource::kItemData:
    case KeySource::kListText:
    case KeySource::kHookStatus:
      return is(Kind::kList);
    case KeySource::kSumMode:
    case KeySource::kSumName:
    case KeySource::kSumField:
      EXPECT_NE(table.group_by, nullptr) << table.name << ", " << key.key;
      break;
    case KeySource::kOrder:
      EXPECT_FALSE(table.sort_fields.empty()) << table.name << ", " << key.key;
      break;
    case KeySource::kSaveDefault:
      EXPECT_EQ(key.key, "") << table.name;
      break;
  }
  EXPECT_EQ(key.control, "") << table.name << ", " << key.key;
}

void ExpectFits(const DialogTable& table, const Controls& controls, const PlanKey& key) {
  const auto found = controls.find(key.control);
  const auto is = [&](Kind kind) {
    EXPECT_TRUE(found != controls.end() && found->second == kind)
        << table.name << ", " << key.key << ": " << key.control;
  };
  switch (key.source) {
    case PlanSource::kDate:
      EXPECT_TRUE(key.absent == PlanDefault::kToday || key.absent == PlanDefault::kUnchanged)
          << table.name << ", " << key.key;
      return is(Kind::kDate);
    case PlanSource::kCode:
      EXPECT_EQ(key.text, "") << table.name << ", " << key.key;
      return is(Kind::kText);
    case PlanSource::kText:
      return is(Kind::kText);
    case PlanSource::kCheck:
      EXPECT_TRUE(key.text == "0" || key.text == "1") << table.name << ", " << key.key;
      return is(Kind::kCheck);
    case PlanSource::kListIndex:
      EXPECT_NE(key.absent == PlanDefault::kText, key.text.empty()) << table.name << ", " << key.key;
      return is(Kind::kList);
    case PlanSource::kListText:
      return is(Kind::kList);
    case PlanSource::kOrder:
      EXPECT_FALSE(table.sort_fields.empty()) << table.name << ", " << key.key;
      EXPECT_EQ(key.control, "") << table.name << ", " << key.key;
      break;
  }
}

TEST(DialogTables, AreFoundByNameInAnyCase) {
  std::set<std::string, NameLess> names;
  for (const DialogTable* table : kDialogTables) {
    EXPECT_TRUE(names.emplace(table->name).second) << table->name;
    EXPECT_EQ(FindDialogTable(table->name), table);
    EXPECT_EQ(FindDialogTable(UpperCase(table->name)), table);
  }
  EXPECT_EQ(FindDialogTable("frmfilter303"), &kFrmFilter303);
  EXPECT_EQ(FindDialogTable("frmFirter145"), nullptr);
  EXPECT_EQ(FindDialogTable(""), nullptr);
}

TEST(DialogTables, CodeFieldsAreConsecutivePairs) {
  for (const DialogTable* table : kDialogTables) {
    int index = 0;
    for (const CodeRange& range : table->codes) {
      EXPECT_EQ(range.index, index) << table->name;
      const bool is_base_data = range.look_up == LookUp::kBaseData || range.look_up == LookUp::kNumber;
      EXPECT_EQ(range.item_class_id != 0, is_base_data) << table->name << ", " << range.index;
      index += 2;
    }
  }
}

TEST(DialogTables, KeysReadControlsOfTheDialog) {
  for (const DialogTable* table : kDialogTables) {
    const Controls controls = ControlsOf(*table);
    std::set<std::string, NameLess> names = {"OK"};
    int saves = 0;
    for (const FilterKey& key : table->keys) {
      EXPECT_TRUE(names.emplace(key.key).second) << table->name << ": " << key.key;
      ExpectFits(*table, controls, key);
      if (key.source == KeySource::kSaveDefault) ++saves;
    }
    EXPECT_EQ(saves, 1) << table->name;
  }
}

TEST(DialogTables, PlanKeysReadControlsOfTheDialogEachOnce) {
  for (const DialogTable* table : kDialogTables) {
    const Controls controls = ControlsOf(*table);
    std::set<std::string, NameLess> names;
    std::set<std::string, NameLess> stored;
    for (const PlanKey& key : table->plan) {
      EXPECT_TRUE(names.emplace(key.key).second) << table->name << ": " << key.key;
      ExpectFits(*table, controls, key);
      if (!key.control.empty()) {
        EXPECT_TRUE(stored.emplace(key.control).second) << table->name << ": " << key.control;
      }
    }
    // The customer sales detail alone leaves a value out.
    for (const auto& [control, kind] : controls) {
      const bool is_left_out = table == &kFrmFirter134 && control == "Chk_Aux";
      EXPECT_EQ(stored.contains(control), !is_left_out) << table->name << ": " << control;
    }
  }
}

TEST(DialogTables, RestoringOrderNamesEachPlanKeyOnce) {
  for (const DialogTable* table : kDialogTables) {
    if (table->restore.empty()) continue;
    EXPECT_EQ(table->restore.size(), table->plan.size()) << table->name;
    for (const PlanKey& key : table->plan) {
      EXPECT_EQ(std::count(table->restore.begin(), table->restore.end(), key.key), 1)
          << table->name << ": " << key.key;
    }
  }
}

TEST(DialogTables, LabelsStandBesideTheControls) {
  for (const DialogTable* table : kDialogTables) {
    Controls controls = ControlsOf(*table);
    for (const LabelCaption& label : table->labels) {
      EXPECT_TRUE(controls.emplace(label.control, Kind::kText).second)
          << table->name << ": " << label.control;
      EXPECT_NE(label.caption, "") << table->name << ": " << label.control;
    }
    for (const CheckBoxCaption& check : table->checks) {
      EXPECT_NE(check.caption, "") << table->name << ": " << check.control;
    }
  }
}

TEST(DialogTables, BoxesOpenOnOneOfTheirRows) {
  for (const DialogTable* table : kDialogTables) {
    for (const ComboBoxRows& combo : table->combos) {
      EXPECT_GE(combo.start, 0) << table->name << ": " << combo.control;
      EXPECT_LT(combo.start, static_cast<int>(combo.rows.size())) << table->name << ": " << combo.control;
    }
    if (table->remembered.empty()) continue;
    EXPECT_TRUE(std::any_of(table->combos.begin(), table->combos.end(), [table](const ComboBoxRows& combo) {
      return combo.control == table->remembered;
    })) << table->name;
  }
}

TEST(DialogTables, DescribedRowsOfTheGroupsAreOnOffer) {
  std::vector<const GroupByTable*> groups(kFeeGroupsByStyle.begin(), kFeeGroupsByStyle.end());
  for (const DialogTable* table : kDialogTables) {
    if (table->group_by != nullptr) groups.push_back(table->group_by);
  }
  for (const GroupByTable* group : groups) {
    std::set<std::int32_t> codes;
    for (const GroupByRow& row : group->rows) EXPECT_TRUE(codes.insert(row.code).second) << row.text;
    std::set<std::int32_t> described;
    for (const SumFieldRow& row : group->sum_fields) {
      EXPECT_TRUE(codes.contains(row.code)) << row.code;
      EXPECT_TRUE(described.insert(row.code).second) << row.code;
    }
    // Code 0 is a property's, or the sale style's.
    if (!group->properties.empty()) {
      EXPECT_FALSE(codes.contains(0));
    }
    EXPECT_EQ(group->property_offset == 0, group->properties.empty());
  }
}

TEST(DialogTables, PropertiesStandBehindTheRows) {
  // The first property row, from the list's 0, gives the description told, from 1.
  const auto first = [](const GroupByTable& group) {
    return static_cast<int>(group.rows.size()) - group.property_offset;
  };
  EXPECT_EQ(first(*kFrmFirter129.group_by), 1);
  EXPECT_EQ(first(*kFrmFilter133.group_by), 1);
  EXPECT_EQ(first(*kFrmFirter300.group_by), 1);
  EXPECT_EQ(first(*kFrmFirter176.group_by), 2);
  EXPECT_EQ(first(*kFrmFilter303.group_by), 1);
  EXPECT_EQ(first(kPayableFeeGroups), 1);
  EXPECT_EQ(first(kReceivableFeeGroups), 1);
}

TEST(DialogTables, SaleStylesThatADialogHides) {
  const auto hidden = [](const DialogTable& table) {
    EXPECT_FALSE(table.sale_types.empty()) << table.name;
    return table.hidden_sale_type;
  };
  for (const DialogTable* table : {&kFrmFirter128, &kFrmFirter129}) EXPECT_EQ(hidden(*table), 20296);
  for (const DialogTable* table :
       {&kFrmFirter136, &kFrmFirter137, &kFrmFirter138, &kFrmFirter300, &kFrmFirter1010}) {
    EXPECT_EQ(hidden(*table), 20298);
  }
  for (const DialogTable* table : {&kFrmFirter126, &kFrmFirter134, &kFrmFirter135, &kFrmFirter176}) {
    EXPECT_EQ(hidden(*table), 0);
  }
}

// --- Three dialogs, written out

// "key=control"; the place of the default plan as "*".
std::string Written(const DialogTable& table) {
  std::string text;
  for (const FilterKey& key : table.keys) {
    if (key.source == KeySource::kSaveDefault) {
      text += "*\n";
      continue;
    }
    text.append(key.key);
    if (!key.control.empty()) text.append("=").append(key.control);
    text += "\n";
  }
  return text;
}

// "key=control, default".
std::string Stored(const DialogTable& table) {
  std::string text;
  for (const PlanKey& key : table.plan) {
    text.append(key.key);
    if (!key.control.empty()) text.append("=").append(key.control);
    text += ", ";
    text.append(key.absent == PlanDefault::kText ? key.text : "today");
    text += "\n";
  }
  return text;
}

TEST(DialogTables, OutboundSummary) {
  EXPECT_EQ(Written(kFrmFirter128),
            "BDate=DtpBDate\n"
            "EDate=DtpEDate\n"
            "BItemNumber=txtItem(0)\n"
            "EItemNumber=txtItem(1)\n"
            "BCustNumber=txtItem(2)\n"
            "ECustNumber=txtItem(3)\n"
            "GroupBy=chkGroupBy\n"
            "OnlyShowSum=chkOnlyShowSum\n"
            "BLevel=txtlevel(0)\n"
            "ELevel=txtlevel(1)\n"
            "SumMode\n"
            "SumName\n"
            "SaleType=CmbSaleType\n"
            "SaleTypeName=CmbSaleType\n"
            "SumField\n"
            "FROB=cmbFROB\n"
            "CheckState=cmbCheckState\n"
            "chkNextChoose=chkNextChoose\n"
            "CommodityType=cmbCommodityType\n"
            "*\n"
            "Orderby\n");
  EXPECT_EQ(Stored(kFrmFirter128),
            "BDate=DtpBDate, today\n"
            "EDate=DtpEDate, today\n"
            "BItem=txtItem(0), \n"
            "EItem=txtItem(1), \n"
            "BCustomer=txtItem(2), \n"
            "ECustomer=txtItem(3), \n"
            "BLevel=txtlevel(0), 1\n"
            "ELevel=txtlevel(1), 5\n"
            "chkGroupBy=chkGroupBy, 1\n"
            "OnlyShowSum=chkOnlyShowSum, 1\n"
            "GroupByListIndex=cmbGroupBy, 0\n"
            "CheckState=cmbCheckState, 0\n"
            "OrderBy, NULL\n"
            "FROB=cmbFROB, 0\n"
            "chkNextChoose=chkNextChoose, 0\n"
            "SaleTypeListIndex=CmbSaleType, 0\n"
            "CommodityType=cmbCommodityType, 0\n");
  EXPECT_EQ(std::vector(kFrmFirter128.restore.begin(), kFrmFirter128.restore.end()),
            (std::vector<std::string_view>{"BDate", "EDate", "BItem", "EItem", "BCustomer", "ECustomer",
                                           "chkGroupBy", "OnlyShowSum", "ELevel", "BLevel",
                                           "GroupByListIndex", "CheckState", "OrderBy", "SaleTypeListIndex",
                                           "FROB", "chkNextChoose", "CommodityType"}));
}

TEST(DialogTables, SalesIncome) {
  EXPECT_EQ(Written(kFrmFirter126),
            "BDate=DtpBDate\n"
            "EDate=DtpEDate\n"
            "BItemNumber=txtItem(0)\n"
            "EItemNumber=txtItem(1)\n"
            "BCustNumber=txtItem(2)\n"
            "ECustNumber=txtItem(3)\n"
            "BDeptNumber=txtItem(4)\n"
            "EDeptNumber=txtItem(5)\n"
            "BEmpNumber=txtItem(6)\n"
            "EEmpNumber=txtItem(7)\n"
            "GroupBy=chkGroupBy\n"
            "OnlyShowSum=chkOnlyShowSum\n"
            "BLevel=txtlevel(0)\n"
            "ELevel=txtlevel(1)\n"
            "SumMode\n"
            "SumName\n"
            "SaleType=CmbSaleType\n"
            "SaleTypeName=CmbSaleType\n"
            "HookStatus=cmbHookStatus\n"
            "CurrencyShow=chkCurrency\n"
            "SumField\n"
            "CheckState=cmbCheckState\n"
            "AuxProp=Chk_Aux\n"
            "BillType=cboBillType\n"
            "chkNextChoose=chkNextChoose\n"
            "CommodityType=cmbCommodityType\n"
            "*\n");
  EXPECT_EQ(Stored(kFrmFirter126),
            "BDate=DtpBDate, today\n"
            "EDate=DtpEDate, today\n"
            "BItem=txtItem(0), \n"
            "EItem=txtItem(1), \n"
            "BEmp=txtItem(2), \n"
            "EEmp=txtItem(3), \n"
            "BDpt=txtItem(4), \n"
            "EDpt=txtItem(5), \n"
            "BCust=txtItem(6), \n"
            "ECust=txtItem(7), \n"
            "BLevel=txtlevel(0), 1\n"
            "ELevel=txtlevel(1), 5\n"
            "chkGroupBy=chkGroupBy, 1\n"
            "OnlyShowSum=chkOnlyShowSum, 1\n"
            "GroupByListIndex=cmbGroupBy, 0\n"
            "CheckState=cmbCheckState, 0\n"
            "BillType=cboBillType, 0\n"
            "SaleTypeListIndex=CmbSaleType, 0\n"
            "HookStatus=cmbHookStatus, 0\n"
            "CurrencyShow=chkCurrency, 0\n"
            "AuxProp=Chk_Aux, 0\n"
            "chkNextChoose=chkNextChoose, 0\n"
            "CommodityType=cmbCommodityType, 0\n");
}

TEST(DialogTables, OrderTracking) {
  EXPECT_EQ(Written(kFrmFirter1010),
            "BDate=DtpBDate\n"
            "EDate=DtpEDate\n"
            "BItemNumber=txtItem(0)\n"
            "EItemNumber=txtItem(1)\n"
            "BCustNumber=txtItem(2)\n"
            "ECustNumber=txtItem(3)\n"
            "BDept=txtItem(6)\n"
            "EDept=txtItem(7)\n"
            "BEmp=txtItem(8)\n"
            "EEmp=txtItem(9)\n"
            "BBillNo=txtItem(10)\n"
            "EBillNo=txtItem(11)\n"
            "CheckState=cmbCheckState\n"
            "CloseState=CmbCloseState\n"
            "SaleType=CmbSaleType\n"
            "SaleTypeName=CmbSaleType\n"
            "chkNextChoose=chkNextChoose\n"
            "chkIsShowSum=chkIsShowSum\n"
            "chkIsShowDetail=chkIsShowDetail\n"
            "CommodityType=cmbCommodityType\n"
            "Orderby\n"
            "*\n");
  EXPECT_EQ(Stored(kFrmFirter1010),
            "BDate=DtpBDate, today\n"
            "EDate=DtpEDate, today\n"
            "BItem=txtItem(0), \n"
            "EItem=txtItem(1), \n"
            "BCustomer=txtItem(2), \n"
            "ECustomer=txtItem(3), \n"
            "BCompany=txtItem(4), \n"
            "ECompany=txtItem(5), \n"
            "BDept=txtItem(6), \n"
            "EDept=txtItem(7), \n"
            "BEmp=txtItem(8), \n"
            "EEmp=txtItem(9), \n"
            "BBillNo=txtItem(10), \n"
            "EBillNo=txtItem(11), \n"
            "CheckState=cmbCheckState, 0\n"
            "CloseState=CmbCloseState, 0\n"
            "SaleTypeListIndex=CmbSaleType, 0\n"
            "chkNextChoose=chkNextChoose, 0\n"
            "chkIsShowSum=chkIsShowSum, 0\n"
            "chkIsShowDetail=chkIsShowDetail, 1\n"
            "CommodityType=cmbCommodityType, 0\n"
            "OrderBy, \n");
}

}  // namespace
}  // namespace salerpt
