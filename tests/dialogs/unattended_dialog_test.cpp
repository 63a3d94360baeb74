// What a dialog gives when it is confirmed as it opens.
#include "dialogs/unattended_dialog.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tests/runtime/error_check.h"
#include "tests/runtime/fake_object.h"
#include "tests/runtime/fake_world.h"

namespace salerpt {
namespace {

using testing::FakeRef;

std::string Keys(const Dictionary& filter) {
  std::string keys;
  for (const Dictionary::Entry& entry : filter.Entries()) {
    if (!keys.empty()) keys += ' ';
    keys += entry.key;
  }
  return keys;
}

// The kind of a value and the value.
std::string Shown(const Variant& value) {
  return std::string(KindName(value.GetKind())) + " " + value.TextOrEmpty();
}

class UnattendedDialogTest : public ::testing::Test {
 protected:
  UnattendedDialogTest() {
    runtime_.SetPlatform(std::make_shared<testing::FakePlatform>("/nowhere"));  // it is 2003-07-01, 8:30
    testing::LogIn(runtime_, "UserName=abc;UserID=16394;");
    profile_ = testing::RegisterFake(runtime_, "ORVEBSBase.SystemProfile");
    profile_->On("GetProfile", [this](Arguments arguments) -> Variant {
      const std::string key = arguments[1].ToText() + "/" + arguments[2].ToText();
      if (key == "IC/UseShortNumber") return use_short_number_;
      if (key == "IC/CurrentYear") return "2003";
      if (key == "IC/CurrentPeriod") return "6";
      if (key == "GL/PeriodCount") return "12";
      if (key == "IC/StartYear") return "2001";
      if (key == "IC/StartPeriod") return "1";
      return Null();
    });
    reports_ = testing::RegisterFake(runtime_, "ORVMSaleRpt.Data");
    reports_->Gives("GetItemMaxLevel", 5);
    RegisterUnattendedDialogs(runtime_);
  }
  static UnattendedDialog Open(std::string_view name) {
    const DialogTable* table = FindDialogTable(name);
    if (table == nullptr) throw RuntimeError(error_number::kInvalidCall, "", "no such dialog");
    return UnattendedDialog(*table);
  }
  static DictionaryRef Confirmed(UnattendedDialog& dialog) {
    dialog.Confirm();
    return dialog.Filter();
  }
  // "SumField" for a row of "sum by".
  static DictionaryRef SumField(std::int32_t code) {
    UnattendedDialog dialog = Open("frmFirter128");
    dialog.Choose("SumMode", code);
    return As<Dictionary>(Confirmed(dialog)->Get("SumField"));
  }
  static std::string SumName(std::int32_t code) {
    UnattendedDialog dialog = Open("frmFirter128");
    dialog.Choose("SumMode", code);
    return Confirmed(dialog)->Get("SumName").ToText();
  }

  Runtime runtime_;
  FakeRef profile_, reports_;
  const char* use_short_number_ = "0";
};

// --- frmFilter147

TEST_F(UnattendedDialogTest, WritesTheKeysOfThePeriodDialogInOrder) {
  UnattendedDialog dialog = Open("frmFilter147");
  EXPECT_EQ(Keys(*Confirmed(dialog)),
            "OK BYear BPeriod EYear EPeriod BItemNumber EItemNumber BEmpNumber EEmpNumber BDptNumber "
            "EDptNumber BCustNumber ECustNumber CheckState");
}

TEST_F(UnattendedDialogTest, OpensThePeriodDialogOnTheCurrentPeriod) {
  UnattendedDialog dialog = Open("frmFilter147");
  const DictionaryRef filter = Confirmed(dialog);
  EXPECT_EQ(filter->Get("OK"), Variant(true));
  EXPECT_EQ(filter->Get("BYear").ToInt32(), 2003);
  EXPECT_EQ(filter->Get("BPeriod").ToInt32(), 6);
  EXPECT_EQ(filter->Get("EYear").ToInt32(), 2003);
  EXPECT_EQ(filter->Get("EPeriod").ToInt32(), 6);
  EXPECT_TRUE(filter->Get("BYear").IsNumber());
  EXPECT_TRUE(filter->Get("EPeriod").IsNumber());
}

TEST_F(UnattendedDialogTest, LeavesTheCodeRangesOfThePeriodDialogOpen) {
  UnattendedDialog dialog = Open("frmFilter147");
  const DictionaryRef filter = Confirmed(dialog);
  for (const char* key : {"BItemNumber", "EItemNumber", "BEmpNumber", "EEmpNumber", "BDptNumber",
                          "EDptNumber", "BCustNumber", "ECustNumber"}) {
    EXPECT_EQ(Shown(filter->Get(key)), "text ") << key;
  }
  EXPECT_EQ(filter->Get("CheckState").ToInt32(), 0);
}

TEST_F(UnattendedDialogTest, OpensThePeriodDialogThoughTheProfileCannotBeRead) {
  profile_->Raises("GetProfile", RuntimeError(5, "SystemProfile", "没有连接"));
  UnattendedDialog dialog = Open("frmFilter147");
  EXPECT_NO_THROW(dialog.Confirm());
  EXPECT_EQ(dialog.Filter()->Get("OK"), Variant(true));
}

// --- frmFirter128

TEST_F(UnattendedDialogTest, WritesTheKeysOfTheOutboundDialogInOrder) {
  UnattendedDialog dialog = Open("frmFirter128");
  EXPECT_EQ(
      Keys(*Confirmed(dialog)),
      "OK BDate EDate BItemNumber EItemNumber BCustNumber ECustNumber GroupBy OnlyShowSum BLevel ELevel "
      "SumMode SumName SaleType SaleTypeName SumField FROB CheckState chkNextChoose CommodityType "
      "Orderby");
}

TEST_F(UnattendedDialogTest, OpensTheOutboundDialogWithItsDefaults) {
  UnattendedDialog dialog = Open("frmFirter128");
  const DictionaryRef filter = Confirmed(dialog);
  EXPECT_EQ(filter->Get("OK"), Variant(true));
  EXPECT_EQ(Shown(filter->Get("BDate")), "text 2003-07-01");
  EXPECT_EQ(Shown(filter->Get("EDate")), "text 2003-07-01");
  for (const char* key : {"BItemNumber", "EItemNumber", "BCustNumber", "ECustNumber"}) {
    EXPECT_EQ(Shown(filter->Get(key)), "text ") << key;
  }
  EXPECT_EQ(filter->Get("GroupBy").ToInt32(), 1);
  EXPECT_EQ(filter->Get("OnlyShowSum").ToInt32(), 1);
  EXPECT_EQ(filter->Get("BLevel").ToInt32(), 1);
  EXPECT_EQ(filter->Get("ELevel").ToInt32(), 5);
  EXPECT_EQ(filter->Get("SumMode").ToInt32(), 1);
  EXPECT_EQ(Shown(filter->Get("SumName")), "text 物料类别");
  EXPECT_EQ(filter->Get("SaleType").ToInt32(), 1);
  EXPECT_EQ(Shown(filter->Get("SaleTypeName")), "text 全部");
  EXPECT_EQ(filter->Get("FROB").ToInt32(), 0);
  EXPECT_EQ(filter->Get("CheckState").ToInt32(), 0);
  EXPECT_EQ(filter->Get("chkNextChoose").ToInt32(), 0);
  EXPECT_EQ(filter->Get("CommodityType").ToInt32(), 0);
}

TEST_F(UnattendedDialogTest, WritesLevelsAsDoubles) {
  UnattendedDialog dialog = Open("frmFirter128");
  const DictionaryRef filter = Confirmed(dialog);
  for (const char* level : {"BLevel", "ELevel"}) {
    EXPECT_EQ(filter->Get(level).GetKind(), Variant::Kind::kDouble) << level;
  }
}

// The row of "sum by" is selected while the dialog opens, and pulls the levels into those that there are.
TEST_F(UnattendedDialogTest, EndsAtTheDeepestLevelThatItemsHave) {
  reports_->Gives("GetItemMaxLevel", 3);
  UnattendedDialog dialog = Open("frmFirter128");
  EXPECT_EQ(Confirmed(dialog)->Get("ELevel").ToInt32(), 3);
  EXPECT_EQ(Confirmed(dialog)->Get("BLevel").ToInt32(), 1);
}

TEST_F(UnattendedDialogTest, EndsAtTheFirstLevelWhereItemsHaveNone) {
  reports_->Gives("GetItemMaxLevel", 0);
  UnattendedDialog dialog = Open("frmFirter128");
  EXPECT_EQ(Confirmed(dialog)->Get("ELevel").ToInt32(), 1);
  EXPECT_EQ(Confirmed(dialog)->Get("BLevel").ToInt32(), 1);
}

TEST_F(UnattendedDialogTest, EndsAtTheDeepestLevelOfTheTreeThatTheRowGroupsBy) {
  reports_->On("GetItemMaxLevel", [](Arguments arguments) -> Variant {
    return arguments[1].ToInt32() == 1 ? 2 : 3;  // customers, items
  });
  for (const auto& [code, level] : {std::pair{1, 3}, {2, 2}, {3, 3}, {4, 3}, {8, 2}, {12, 3}}) {
    UnattendedDialog dialog = Open("frmFirter128");
    dialog.Choose("SumMode", code);
    EXPECT_EQ(Confirmed(dialog)->Get("ELevel").ToInt32(), level) << code;
  }
}

TEST_F(UnattendedDialogTest, KeepsTheLevelsInOrder) {
  UnattendedDialog dialog = Open("frmFirter128");
  dialog.Choose("BLevel", 3.0);
  dialog.Choose("ELevel", 2.0);
  EXPECT_EQ(Confirmed(dialog)->Get("BLevel"), Variant(2.0));
  dialog.Choose("BLevel", 0.0);
  EXPECT_EQ(Confirmed(dialog)->Get("BLevel"), Variant(1.0));
  dialog.Choose("ELevel", 0.0);
  EXPECT_EQ(Confirmed(dialog)->Get("ELevel"), Variant(1.0));
}

// A plan without an order sorts by item code.
TEST_F(UnattendedDialogTest, SortsByTheLongCode) {
  UnattendedDialog dialog = Open("frmFirter128");
  EXPECT_EQ(Shown(Confirmed(dialog)->Get("Orderby")), "text FNumber ASC");
}

TEST_F(UnattendedDialogTest, SortsByTheShortCodeWhereThatIsInUse) {
  use_short_number_ = "1";
  runtime_.gLongNumber = false;
  UnattendedDialog dialog = Open("frmFirter128");
  EXPECT_EQ(Shown(Confirmed(dialog)->Get("Orderby")), "text FShortNumber ASC");
}

TEST_F(UnattendedDialogTest, SortsByNothingWhereOnlyTotalsOfAnUngroupedListAreAsked) {
  UnattendedDialog dialog = Open("frmFirter128");
  dialog.Choose("GroupBy", 0);
  EXPECT_EQ(Shown(Confirmed(dialog)->Get("Orderby")), "text ");
}

// --- "Sum by"

TEST_F(UnattendedDialogTest, NamesTheRowOfEachGroupByCode) {
  EXPECT_EQ(SumName(1), "物料类别");
  EXPECT_EQ(SumName(2), "客户类别");
  EXPECT_EQ(SumName(3), "物料类别+客户");
  EXPECT_EQ(SumName(4), "客户+物料类别");
  EXPECT_EQ(SumName(5), "客户");
  EXPECT_EQ(SumName(6), "业务员");
  EXPECT_EQ(SumName(9), "部门");
  EXPECT_EQ(SumName(10), "部门+业务员");
  EXPECT_EQ(SumName(7), "销售方式");
  EXPECT_EQ(SumName(8), "客户类别+客户");
  EXPECT_EQ(SumName(11), "客户+业务员");
  EXPECT_EQ(SumName(12), "业务员+客户+物料类别");
}

TEST_F(UnattendedDialogTest, ListsTheRowsOfTheBoxInOrder) {
  std::string rows;
  for (const auto& row : FindDialogTable("frmFirter128")->group_by) {
    rows += std::string(row.text) + " " + std::to_string(row.code) + "|";
  }
  EXPECT_EQ(rows,
            "物料类别 1|客户类别 2|物料类别+客户 3|客户+物料类别 4|客户 5|业务员 6|部门 9|部门+业务员 10|"
            "销售方式 7|客户类别+客户 8|客户+业务员 11|业务员+客户+物料类别 12|");
}

TEST_F(UnattendedDialogTest, DescribesTheSaleStyle) {
  const DictionaryRef field = SumField(7);
  EXPECT_EQ(field->Get("FItemClassID").ToInt32(), 1);
  EXPECT_EQ(Shown(field->Get("FName")), "text 销售方式");
  EXPECT_EQ(field->Get("FPropID").ToInt32(), 29);
  EXPECT_EQ(Shown(field->Get("FSQLColumnName")), "text FSaleStyle");
  EXPECT_EQ(Shown(field->Get("FSrcTable")), "text t_SubMessage");
  EXPECT_EQ(Shown(field->Get("FSrcField")), "text FInterID");
  EXPECT_EQ(Shown(field->Get("FDisplayField")), "text FName");
}

// The keys that every description built by the dialog has, whatever row is selected.
void ExpectPlainColumn(const Dictionary& field) {
  EXPECT_EQ(field.Get("FPropID").ToInt32(), 0);
  EXPECT_TRUE(field.Lookup("FPropID"));
  EXPECT_EQ(Shown(field.Get("FSQLColumnName")), "text FName");
  EXPECT_EQ(Shown(field.Get("FSrcTable")), "text ");
  EXPECT_EQ(Shown(field.Get("FSrcField")), "text ");
  EXPECT_EQ(Shown(field.Get("FDisplayField")), "text ");
}

TEST_F(UnattendedDialogTest, DescribesCustomerAndEmployeeInTheCustomersClass) {
  for (const auto& [code, name] : {std::pair{5, "客户"}, std::pair{6, "业务员"}}) {
    const DictionaryRef field = SumField(code);
    EXPECT_EQ(field->Get("FItemClassID").ToInt32(), 1) << code;
    EXPECT_EQ(field->Get("FName").ToText(), name);
    ExpectPlainColumn(*field);
  }
}

TEST_F(UnattendedDialogTest, DescribesTheRowsWithEmployeeWithoutAClass) {
  for (const auto& [code, name] : {std::pair{10, "部门"}, std::pair{11, "客户"}}) {
    const DictionaryRef field = SumField(code);
    EXPECT_FALSE(field->Lookup("FItemClassID")) << code;
    EXPECT_EQ(field->Get("FName").ToText(), name);
    ExpectPlainColumn(*field);
  }
}

TEST_F(UnattendedDialogTest, DescribesTheOtherRowsWithNeitherClassNorName) {
  for (const int code : {1, 2, 3, 4, 8, 9, 12}) {
    const DictionaryRef field = SumField(code);
    ASSERT_NE(field, nullptr) << code;
    EXPECT_FALSE(field->Lookup("FItemClassID")) << code;
    EXPECT_FALSE(field->Lookup("FName")) << code;
    ExpectPlainColumn(*field);
  }
}

// --- The dialogs of the sales flow

struct KeysCase {
  const char* dialog;
  const char* keys;
};

class UnattendedKeysTest : public UnattendedDialogTest, public ::testing::WithParamInterface<KeysCase> {};

TEST_P(UnattendedKeysTest, WritesTheKeysInOrder) {
  UnattendedDialog dialog = Open(GetParam().dialog);
  EXPECT_EQ(Keys(*Confirmed(dialog)), GetParam().keys);
}

INSTANTIATE_TEST_SUITE_P(
    SalesFlow, UnattendedKeysTest,
    ::testing::Values(
        KeysCase{"frmFirter126",
                 "OK BDate EDate BItemNumber EItemNumber BCustNumber ECustNumber BDeptNumber EDeptNumber "
                 "BEmpNumber EEmpNumber GroupBy OnlyShowSum BLevel ELevel SumMode SumName SaleType "
                 "SaleTypeName HookStatus CurrencyShow SumField CheckState AuxProp BillType chkNextChoose "
                 "CommodityType"},
        KeysCase{"frmFirter129",
                 "OK BDate EDate BItemNumber EItemNumber BCustNumber ECustNumber GroupBy OnlyShowSum "
                 "SaleType SaleTypeName BBatchNo EBatchNo BLevel ELevel SumMode SumName SumField CheckState "
                 "FROB AuxProp chkShowItemSum chkShowDateSum OrderBy chkNextChoose CommodityType"},
        KeysCase{"frmFirter134",
                 "OK BDate EDate BItemNumber EItemNumber BCustNumber ECustNumber CheckState SaleType "
                 "SaleTypeName AuxProp HookStatus chkNextChoose CommodityType"},
        KeysCase{"frmFirter135",
                 "OK BDate EDate BItemNumber EItemNumber BCustNumber ECustNumber CheckState SaleType "
                 "SaleTypeName AuxProp HookStatus chkNextChoose CommodityType"},
        KeysCase{"frmFirter176",
                 "OK BDate EDate BItemNumber EItemNumber BCustNumber ECustNumber BDept EDept BEmp EEmp "
                 "GroupBy OnlyShowSum BLevel ELevel SumMode SumName SaleType SaleTypeName SumField "
                 "CheckState Cost IncludeTax TaxSource"},
        KeysCase{"frmFirter301",
                 "OK BDate EDate BItemClass BFeeNumber EFeeNumber BCust ECust BSupply ESupply GroupBy "
                 "OnlyShowSum BLevel ELevel SumMode SumField CheckState InvoiceStyle HookStatus"},
        KeysCase{"frmFirter302",
                 "OK BDate EDate BItemClass BFeeNumber EFeeNumber BCust ECust BSupply ESupply CheckState "
                 "OrderBy InvoiceStyle HookStatus"},
        KeysCase{"FrmFilter303",
                 "OK BDate EDate BItemNumber EItemNumber BCustNumber ECustNumber BDptNumber EDptNumber "
                 "BEmpNumber EEmpNumber GroupBy OnlyShowSum ShowVirtualStock BLevel ELevel SumMode SumField "
                 "CheckState chkNextChoose CommodityType"}),
    [](const ::testing::TestParamInfo<KeysCase>& tested) { return std::string(tested.param.dialog); });

INSTANTIATE_TEST_SUITE_P(
    Orders, UnattendedKeysTest,
    ::testing::Values(
        KeysCase{
            "frmFirter136",
            "OK BDate EDate BItemNumber EItemNumber BCustNumber ECustNumber BDepartNumber EDepartNumber "
            "BEmpNumber EEmpNumber BCurrencyNumber ECurrencyNumber ChkByCurrency GroupBy OnlyShowSum BLevel "
            "ELevel SumMode SumName SaleType SaleTypeName SumField CheckState OrderType OrderTypeName "
            "Orderby "
            "chkNextChoose CommodityType"},
        KeysCase{
            "frmFirter137",
            "OK BDate EDate BItemNumber EItemNumber BCustNumber ECustNumber BCompanyNumber ECompanyNumber "
            "BDept EDept BEmp EEmp BBillNo EBillNo CheckState DisplayType CloseState SaleType SaleTypeName "
            "OrderType OrderTypeName Implement chkNextChoose CommodityType"},
        KeysCase{
            "frmFirter138",
            "OK BDate EDate BItemNumber EItemNumber BCustNumber ECustNumber BCompanyNumber ECompanyNumber "
            "BDept EDept BEmp EEmp BBillNo EBillNo GroupBy OnlyShowSum BLevel ELevel SumMode SumName "
            "SaleType "
            "SaleTypeName OrderType OrderTypeName SumField CheckState CloseState chkNextChoose "
            "CommodityType"},
        KeysCase{
            "FrmFilter139",
            "OK BDate EDate BEmp EEmp BItemNumber EItemNumber BClientNumber EClientNumber BDept EDept "
            "BBillNo "
            "EBillNo FSaleStyle GroupBy OnlyShowSum BLevel ELevel GroupByListIndex CheckState CheckClose "
            "CommodityType Unexecuted Partialexecution Fullyexecuted SumMode Mode SumField ItemClassNumber"},
        KeysCase{"frmFilter189",
                 "OK BDate EDate BCustomerNumber ECustomerNumber BItemNumber EItemNumber BSalesNumber "
                 "ESalesNumber "
                 "BDeptNumber EDeptNumber AuditType GroupBy chkNextChoose CommodityType"},
        KeysCase{"frmFilter192",
                 "OK BDate EDate BItemNumber EItemNumber BCustNumber ECustNumber BBill EBill CheckState "
                 "DisplayType "
                 "CloseState"},
        KeysCase{
            "frmFirter300",
            "OK BDate EDate BItemNumber EItemNumber BCustNumber ECustNumber GroupBy OnlyShowSum SaleType "
            "SaleTypeName OrderType OrderTypeName BLevel ELevel SumMode SumName SumField CheckState"},
        KeysCase{
            "frmFirter1010",
            "OK BDate EDate BItemNumber EItemNumber BCustNumber ECustNumber BDept EDept BEmp EEmp BBillNo "
            "EBillNo CheckState CloseState SaleType SaleTypeName chkNextChoose chkIsShowSum chkIsShowDetail "
            "CommodityType Orderby"}),
    [](const ::testing::TestParamInfo<KeysCase>& tested) { return std::string(tested.param.dialog); });

struct DefaultCase {
  const char* dialog;
  const char* key;
  const char* value;
};

class UnattendedDefaultTest : public UnattendedDialogTest,
                              public ::testing::WithParamInterface<DefaultCase> {};

TEST_P(UnattendedDefaultTest, OpensWithTheDefault) {
  UnattendedDialog dialog = Open(GetParam().dialog);
  EXPECT_EQ(Shown(Confirmed(dialog)->Get(GetParam().key)), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    SalesFlow, UnattendedDefaultTest,
    ::testing::Values(
        // The value of the box of hook states is its place less one: the first row is all.
        DefaultCase{"frmFirter126", "HookStatus", "32-bit integer -1"},
        DefaultCase{"frmFirter126", "BillType", "32-bit integer 0"},
        DefaultCase{"frmFirter126", "CurrencyShow", "32-bit integer 0"},
        DefaultCase{"frmFirter126", "AuxProp", "32-bit integer 0"},
        DefaultCase{"frmFirter129", "AuxProp", "32-bit integer 1"},
        DefaultCase{"frmFirter129", "chkShowItemSum", "32-bit integer 1"},
        DefaultCase{"frmFirter129", "chkShowDateSum", "32-bit integer 0"},
        DefaultCase{"frmFirter129", "OrderBy", "text "},
        DefaultCase{"frmFirter134", "HookStatus", "32-bit integer -1"},
        DefaultCase{"frmFirter135", "HookStatus", "32-bit integer -1"},
        DefaultCase{"frmFirter135", "AuxProp", "32-bit integer 1"},
        // The fee invoices' box of hook states counts from its first row, "已钩稽", and opens on all.
        DefaultCase{"frmFirter301", "HookStatus", "32-bit integer 2"},
        DefaultCase{"frmFirter301", "InvoiceStyle", "32-bit integer 0"},
        DefaultCase{"frmFirter302", "HookStatus", "32-bit integer 2"},
        // A plan without an order sorts by the item code, here too.
        DefaultCase{"frmFirter302", "OrderBy", "text FNumber ASC"},
        DefaultCase{"FrmFilter303", "ShowVirtualStock", "32-bit integer 1"}),
    [](const ::testing::TestParamInfo<DefaultCase>& tested) {
      return std::string(tested.param.dialog) + "_" + tested.param.key;
    });

TEST_F(UnattendedDialogTest, TakesThePurchaseTaxOptionsFromTheSystem) {
  profile_->On("GetProfile", [](Arguments arguments) -> Variant {
    if (arguments[2].ToText() == "POOrderTaxInPrice") return "1";
    return arguments[2].ToText() == "PurTaxRateOption" ? Variant("2") : Variant("0");
  });
  UnattendedDialog dialog = Open("frmFirter176");
  const DictionaryRef filter = Confirmed(dialog);
  EXPECT_EQ(filter->Get("IncludeTax").ToInt32(), 1);
  EXPECT_EQ(filter->Get("TaxSource").ToInt32(), 2);
}

INSTANTIATE_TEST_SUITE_P(Orders, UnattendedDefaultTest,
                         ::testing::Values(DefaultCase{"frmFirter136", "OrderType", "32-bit integer -1"},
                                           DefaultCase{"frmFirter136", "Orderby", "text FNumber ASC"},
                                           DefaultCase{"frmFirter137", "OrderTypeName", "text 全部"},
                                           // Here the grouping is a word.
                                           DefaultCase{"frmFilter189", "GroupBy", "text 客户"},
                                           DefaultCase{"frmFilter189", "AuditType", "text 全部"},
                                           DefaultCase{"frmFirter1010", "chkIsShowDetail",
                                                       "32-bit integer 1"},
                                           DefaultCase{"frmFirter1010", "chkIsShowSum", "32-bit integer 0"}),
                         [](const ::testing::TestParamInfo<DefaultCase>& tested) {
                           return std::string(tested.param.dialog) + "_" + tested.param.key;
                         });

struct SumByCase {
  const char* dialog;
  int code;
  int written;       // "SumMode"
  int item_class;    // 0: no class
  const char* name;  // of "SumField"; empty: none
};

class UnattendedSumByTest : public UnattendedDialogTest, public ::testing::WithParamInterface<SumByCase> {};

TEST_P(UnattendedSumByTest, DescribesTheRow) {
  const SumByCase& row = GetParam();
  UnattendedDialog dialog = Open(row.dialog);
  dialog.Choose("SumMode", row.code);
  const DictionaryRef filter = Confirmed(dialog);
  EXPECT_EQ(filter->Get("SumMode").ToInt32(), row.written);
  const auto field = As<Dictionary>(filter->Get("SumField"));
  EXPECT_EQ(field->Lookup("FItemClassID"), row.item_class != 0);
  EXPECT_EQ(field->Get("FItemClassID").TextOrEmpty(),
            row.item_class == 0 ? "" : std::to_string(row.item_class));
  EXPECT_EQ(field->Get("FName").TextOrEmpty(), row.name);
  ExpectPlainColumn(*field);
}

INSTANTIATE_TEST_SUITE_P(
    SalesFlow, UnattendedSumByTest,
    ::testing::Values(
        SumByCase{"frmFirter126", 4, 4, 0, ""}, SumByCase{"frmFirter126", 5, 0, 1, "客户"},
        SumByCase{"frmFirter126", 6, 6, 2, "部门"}, SumByCase{"frmFirter126", 7, 7, 3, "业务员"},
        SumByCase{"frmFirter129", 5, 0, 1, "客户"}, SumByCase{"frmFirter129", 3, 3, 0, ""},
        SumByCase{"frmFirter176", 5, 0, 1, "客户"}, SumByCase{"frmFirter176", 6, 0, 2, "部门"},
        SumByCase{"FrmFilter303", 5, 0, 1, "客户"}, SumByCase{"FrmFilter303", 6, 0, 3, "业务员"},
        SumByCase{"FrmFilter303", 7, 0, 2, "部门"}, SumByCase{"frmFirter301", 2, 0, 2014, "费用类型"},
        SumByCase{"frmFirter301", 6, 0, 8, "供应商"}, SumByCase{"frmFirter301", 5, 5, 0, ""}),
    [](const ::testing::TestParamInfo<SumByCase>& tested) {
      return std::string(tested.param.dialog) + "_" + std::to_string(tested.param.code);
    });

// The rows of the fee invoices follow the side of the invoice.
TEST_F(UnattendedDialogTest, SumsReceivableFeeInvoicesByCustomers) {
  reports_->On("GetItemMaxLevel",
               [](Arguments arguments) -> Variant { return arguments[1].ToInt32() == 1 ? 2 : 4; });
  UnattendedDialog dialog = Open("frmFirter301");
  dialog.Choose("InvoiceStyle", 1);
  dialog.Choose("SumMode", 6);
  const auto field = As<Dictionary>(Confirmed(dialog)->Get("SumField"));
  EXPECT_EQ(field->Get("FItemClassID").ToInt32(), 1);
  EXPECT_EQ(field->Get("FName").ToText(), "客户");
  dialog.Choose("SumMode", 3);
  EXPECT_EQ(Confirmed(dialog)->Get("ELevel").ToInt32(), 2);
  EXPECT_EQ(dialog.Table().group_by[2].text, "客户类别");
}

// --- Choosing

TEST_F(UnattendedDialogTest, ConfirmsWhatWasChosenInItsPlace) {
  UnattendedDialog dialog = Open("frmFirter128");
  dialog.Choose("edate", "2003-12-31");
  dialog.Choose("OnlyShowSum", 0);
  const DictionaryRef filter = Confirmed(dialog);
  EXPECT_EQ(Shown(filter->Get("EDate")), "text 2003-12-31");
  EXPECT_EQ(filter->Get("OnlyShowSum").ToInt32(), 0);
  EXPECT_EQ(filter->Entries()[2].key, "EDate");
}

TEST_F(UnattendedDialogTest, KeepsANameAndADescriptionThatWereChosen) {
  UnattendedDialog dialog = Open("frmFirter128");
  const auto field = std::make_shared<Dictionary>();
  dialog.Choose("SumMode", 5);
  dialog.Choose("SumName", "自定义");
  dialog.Choose("SumField", field);
  const DictionaryRef filter = Confirmed(dialog);
  EXPECT_EQ(Shown(filter->Get("SumName")), "text 自定义");
  EXPECT_EQ(filter->Get("SumField").ToObject(), field);
}

TEST_F(UnattendedDialogTest, RefusesAKeyThatIsNotItsOwn) {
  UnattendedDialog dialog = Open("frmFilter147");
  EXPECT_EQ(NumberRaisedBy([&] { dialog.Choose("BDate", "2003-01-01"); }), error_number::kInvalidCall);
  const std::string description = DescriptionRaisedBy([&] { dialog.Choose("BDate", ""); });
  EXPECT_NE(description.find("BDate"), std::string::npos) << description;
  EXPECT_NE(description.find("frmFilter147"), std::string::npos) << description;
}

TEST_F(UnattendedDialogTest, KnowsItsKeysInAnyCase) {
  const UnattendedDialog dialog = Open("frmFirter128");
  EXPECT_TRUE(dialog.HasKey("SumField"));
  EXPECT_TRUE(dialog.HasKey("orderby"));
  EXPECT_FALSE(dialog.HasKey("OK"));
  EXPECT_FALSE(dialog.HasKey("BYear"));
}

TEST_F(UnattendedDialogTest, TellsTheDefaultOfAKey) {
  const UnattendedDialog dialog = Open("frmFirter128");
  EXPECT_EQ(Shown(dialog.Default("BDate")), "text 2003-07-01");
  EXPECT_EQ(dialog.Default("SumMode").ToInt32(), 1);
  EXPECT_EQ(NumberRaisedBy([&] { static_cast<void>(dialog.Default("BYear")); }), error_number::kInvalidCall);
}

// --- As reports use it

TEST_F(UnattendedDialogTest, HasNoAnswerBeforeItIsConfirmed) {
  const UnattendedDialog dialog = Open("frmFirter128");
  EXPECT_TRUE(!dialog.Filter() || !dialog.Filter()->Get("OK").ToBoolean());
}

TEST_F(UnattendedDialogTest, IsMadeByItsClassName) {
  for (const char* name : {"frmFilter147", "frmFirter128"}) {
    const auto dialog = runtime_.MakeDialog(name);
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->Name(), name);
  }
  EXPECT_EQ(NumberRaisedBy([this] { static_cast<void>(runtime_.MakeDialog("frmFilter128")); }),
            error_number::kObjectMaker);
}

TEST_F(UnattendedDialogTest, ConfirmsForAPlanToo) {
  const auto dialog = runtime_.MakeDialog("frmFirter128");
  dialog->SetRptID(166);
  dialog->ShowFinish("月报");
  ASSERT_NE(dialog->Filter(), nullptr);
  EXPECT_EQ(dialog->Filter()->Get("OK"), Variant(true));
}

TEST_F(UnattendedDialogTest, HasNoTableForOtherDialogs) {
  EXPECT_EQ(FindDialogTable("frmFirter145"), nullptr);
  EXPECT_EQ(FindDialogTable(""), nullptr);
  EXPECT_NE(FindDialogTable("FRMFIRTER128"), nullptr);
}

}  // namespace
}  // namespace salerpt
