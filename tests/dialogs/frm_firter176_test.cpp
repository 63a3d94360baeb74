// The filter dialog of the sales gross profit: its whole Filter and plan, and the options of purchase tax.
#include "dialogs/frm_firter176.h"

#include "tests/dialogs/dialog_suite.h"

namespace salerpt {
namespace {

using testing::DialogSuiteTest;
using testing::PlanValues;
using testing::TextEntries;
using testing::TextRows;
using testing::Texts;

class FrmFirter176Test : public DialogSuiteTest {
 protected:
  FrmFirter176Test() {
    dialog_.SetRptID(176);
    TakeOptions({{"1", "POOrderTaxInPrice"}, {"2", "PurTaxRateOption"}});
  }
  void TakeOptions(const std::vector<std::vector<std::string>>& rows) {
    report_data_->Gives("GetRsBySQL", TextRows({"FValue", "FKey"}, rows));
  }
  FrmFirter176 dialog_;
};

TEST_F(FrmFirter176Test, ReadsTheOptionsOnceAtLoad) {
  dialog_.Load();
  ASSERT_EQ(report_data_->Calls().size(), 1U);
  EXPECT_EQ(report_data_->Calls().front().arguments.at(1),
            Variant("Select FValue,FKey From t_SystemProfile Where FCategory='IC' "
                    "And FKey In('POOrderTaxInPrice','PurTaxRateOption')"));
  EXPECT_EQ(Texts(*dialog_.Filter()),
            (TextEntries{{"OK", "False"}, {"IncludeTax", "1"}, {"TaxSource", "2"}}));
}

TEST_F(FrmFirter176Test, WritesTheWholeFilter) {
  dialog_.Load();
  dialog_.Confirm();
  EXPECT_EQ(Texts(*dialog_.Filter()), (TextEntries{{"OK", "True"},
                                                   {"IncludeTax", "1"},
                                                   {"TaxSource", "2"},
                                                   {"BDate", "2003-07-01"},
                                                   {"EDate", "2003-07-01"},
                                                   {"BItemNumber", ""},
                                                   {"EItemNumber", ""},
                                                   {"BCustNumber", ""},
                                                   {"ECustNumber", ""},
                                                   {"BDept", ""},
                                                   {"EDept", ""},
                                                   {"BEmp", ""},
                                                   {"EEmp", ""},
                                                   {"GroupBy", "1"},
                                                   {"OnlyShowSum", "1"},
                                                   {"BLevel", "1"},
                                                   {"ELevel", "3"},
                                                   {"SumMode", "1"},
                                                   {"SumName", "物料类别"},
                                                   {"SaleType", "1"},
                                                   {"SaleTypeName", "全部"},
                                                   {"SumField", "(object)"},
                                                   {"CheckState", "0"},
                                                   {"Cost", "0"}}));
  EXPECT_TRUE(dialog_.IsUnloaded());
}

TEST_F(FrmFirter176Test, SavesTheWholePlan) {
  dialog_.Load();
  dialog_.Confirm();
  EXPECT_EQ(Saved("默认方案", 176), (PlanValues{{"BDate", "2003-07-01"},
                                                {"EDate", "2003-07-01"},
                                                {"BItem", ""},
                                                {"EItem", ""},
                                                {"BCustomer", ""},
                                                {"ECustomer", ""},
                                                {"BDept", ""},
                                                {"EDept", ""},
                                                {"BEmp", ""},
                                                {"EEmp", ""},
                                                {"BLevel", "1"},
                                                {"ELevel", "3"},
                                                {"chkGroupBy", "1"},
                                                {"OnlyShowSum", "1"},
                                                {"GroupByListIndex", "0"},
                                                {"CheckState", "0"},
                                                {"SaleTypeListIndex", "0"},
                                                {"Cost", "0"}}));
}

TEST_F(FrmFirter176Test, AnOptionThatIsNotThereIs0) {
  TakeOptions({{"1", "PurTaxRateOption"}});
  dialog_.Load();
  EXPECT_EQ(Texts(*dialog_.Filter()),
            (TextEntries{{"OK", "False"}, {"IncludeTax", "0"}, {"TaxSource", "1"}}));
}

TEST_F(FrmFirter176Test, OpensWithoutAMiddleTier) {
  report_data_->Raises("GetRsBySQL", RuntimeError(-3, "Server", "the server is down"));
  dialog_.Load();
  dialog_.Confirm();
  EXPECT_EQ(dialog_.Filter()->Get("OK"), Variant(true));
  EXPECT_EQ(dialog_.Filter()->Get("IncludeTax"), Variant(0));
  EXPECT_EQ(dialog_.Filter()->Get("TaxSource"), Variant(0));
}

}  // namespace
}  // namespace salerpt
