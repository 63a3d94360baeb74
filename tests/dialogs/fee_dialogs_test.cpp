// The filter dialogs of the sales fee invoices: whole Filter and plan, the item class, the rows by style.
#include <string>
#include <vector>

#include "dialogs/frm_firter301.h"
#include "dialogs/frm_firter302.h"
#include "tests/dialogs/dialog_suite.h"

namespace salerpt {
namespace {

using testing::DialogSuiteTest;
using ::testing::ElementsAre;
using testing::PlanValues;
using testing::TextEntries;
using testing::Texts;

constexpr int kPayable = 0;
constexpr int kReceivable = 1;
constexpr int kBoth = 2;

class FrmFirter301Test : public DialogSuiteTest {
 protected:
  FrmFirter301Test() { dialog_.SetRptID(301); }

  [[nodiscard]] Form& OpenForm() {
    dialog_.Load();
    return dialog_.GetForm();
  }
  void SelectStyle(int style) { dialog_.GetForm().Get<ListControl>("cmbInvoiceStyle").SetListIndex(style); }
  void SelectGroup(int row) { dialog_.GetForm().Get<ListControl>("cmbGroupBy").SetListIndex(row); }
  [[nodiscard]] std::vector<std::string> GroupRows() {
    std::vector<std::string> rows;
    for (const ListItem& item : dialog_.GetForm().Get<ListControl>("cmbGroupBy").Items()) {
      rows.push_back(Join(item.text, "=", item.item_data));
    }
    return rows;
  }
  // Two properties, whatever class is asked for.
  void GiveProperties() {
    auto properties = std::make_shared<Vector>();
    for (const char* name : {"区域", "行业"}) {
      properties->Add(std::make_shared<Dictionary>(
          std::initializer_list<Dictionary::Entry>{{"FName", name}, {"FPropID", 105}}));
    }
    sale_data_->Gives("GetItemPropDesc", properties);
  }
  // "SumMode" and the description after a confirmation with this style and row.
  TextEntries Described(int style, int row) {
    FrmFirter301 dialog;
    dialog.Load();
    dialog.GetForm().Get<ListControl>("cmbInvoiceStyle").SetListIndex(style);
    dialog.GetForm().Get<ListControl>("cmbGroupBy").SetListIndex(row);
    dialog.Confirm();
    TextEntries described{{"SumMode", dialog.Filter()->Get("SumMode").ToText()}};
    for (const auto& entry : Texts(*As<Dictionary>(dialog.Filter()->Get("SumField")))) {
      if (!entry.second.empty()) described.push_back(entry);
    }
    return described;
  }
  FrmFirter301 dialog_;
};

TEST_F(FrmFirter301Test, WritesTheWholeFilter) {
  dialog_.Load();
  dialog_.Confirm();
  EXPECT_EQ(Texts(*dialog_.Filter()), (TextEntries{{"OK", "True"},
                                                   {"BDate", "2003-07-01"},
                                                   {"EDate", "2003-07-01"},
                                                   {"BItemClass", ""},
                                                   {"BFeeNumber", ""},
                                                   {"EFeeNumber", ""},
                                                   {"BCust", ""},
                                                   {"ECust", ""},
                                                   {"BSupply", ""},
                                                   {"ESupply", ""},
                                                   {"GroupBy", "1"},
                                                   {"OnlyShowSum", "1"},
                                                   {"BLevel", "1"},
                                                   {"ELevel", "3"},
                                                   {"SumMode", "1"},
                                                   {"SumField", "(object)"},
                                                   {"CheckState", "0"},
                                                   {"InvoiceStyle", "0"},
                                                   {"HookStatus", "2"}}));
  EXPECT_EQ(Texts(*As<Dictionary>(dialog_.Filter()->Get("SumField"))),
            (TextEntries{{"FPropID", "0"},
                         {"FSQLColumnName", "FName"},
                         {"FSrcTable", ""},
                         {"FSrcField", ""},
                         {"FDisplayField", ""}}));
}

TEST_F(FrmFirter301Test, SavesTheWholePlan) {
  dialog_.Load();
  dialog_.GetForm().Get<TextBox>("txtItemClass").SetText("01");
  dialog_.Confirm();
  EXPECT_EQ(Saved("默认方案", 301), (PlanValues{{"BDate", "2003-07-01"},
                                                {"EDate", "2003-07-01"},
                                                {"ItemClass", "01"},
                                                {"BFee", ""},
                                                {"EFee", ""},
                                                {"BCust", ""},
                                                {"ECust", ""},
                                                {"BSupply", ""},
                                                {"ESupply", ""},
                                                {"BLevel", "1"},
                                                {"ELevel", "3"},
                                                {"chkGroupBy", "1"},
                                                {"OnlyShowSum", "1"},
                                                {"GroupByListIndex", "0"},
                                                {"CheckState", "0"},
                                                {"InvoiceStyle", "0"},
                                                {"HookStatus", "2"}}));
}

TEST_F(FrmFirter301Test, RestoresTheStyleBeforeTheRow) {
  plans_["默认方案"] = {{"GroupByListIndex", "5"}, {"InvoiceStyle", "1"}, {"ItemClass", "02"}};
  const Form& form = OpenForm();
  EXPECT_EQ(form.Get<ListControl>("cmbGroupBy").Text(), "客户");
  EXPECT_EQ(form.Get<TextBox>("txtItemClass").Text(), "02");
}

// --- The rows by which it sums

TEST_F(FrmFirter301Test, TheStyleTellsTheRows) {
  dialog_.Load();
  EXPECT_THAT(GroupRows(), ElementsAre("费用类别=1", "费用类型=2", "供应商类别=3", "费用类别+供应商=4",
                                       "供应商+费用类别=5", "供应商=6"));
  SelectStyle(kReceivable);
  EXPECT_THAT(GroupRows(), ElementsAre("费用类别=1", "费用类型=2", "客户类别=3", "费用类别+客户=4",
                                       "客户+费用类别=5", "客户=6"));
  SelectStyle(kBoth);
  EXPECT_THAT(GroupRows(), ElementsAre("费用类别=1", "费用类型=2"));
}

TEST_F(FrmFirter301Test, PropertiesAreThoseOfTheOtherSide) {
  GiveProperties();
  dialog_.Load();
  SelectStyle(kReceivable);
  std::vector<Variant> asked;
  for (const auto& call : sale_data_->Calls()) {
    if (call.member == "GetItemPropDesc") asked.push_back(call.arguments.at(1));
  }
  EXPECT_THAT(asked, ElementsAre(Variant(" FItemClassID=8 "), Variant(" FItemClassID=1 ")));
  EXPECT_EQ(GroupRows().back(), "行业=0");
}

TEST_F(FrmFirter301Test, AnotherStyleLeavesNoRowChosen) {
  const Form& form = OpenForm();
  SelectGroup(3);
  SelectStyle(kPayable);
  EXPECT_EQ(form.Get<ListControl>("cmbGroupBy").ListIndex(), 3);
  SelectStyle(kReceivable);
  EXPECT_EQ(form.Get<ListControl>("cmbGroupBy").ListIndex(), -1);
}

TEST_F(FrmFirter301Test, LevelsAreThoseOfTheRowsClass) {
  dialog_.Load();
  level_classes_.clear();
  for (const int row : {0, 1, 2, 3, 4, 5}) SelectGroup(row);
  EXPECT_THAT(level_classes_, ElementsAre(2014, 8, 2014, 2014));
  SelectStyle(kReceivable);
  level_classes_.clear();
  SelectGroup(2);
  EXPECT_THAT(level_classes_, ElementsAre(1));
}

TEST_F(FrmFirter301Test, APlainRowHasNoLevels) {
  const Form& form = OpenForm();
  for (const char* name : {"Label7", "Label11", "txtlevel(0)", "txtlevel(1)", "udBLevel", "udELevel"}) {
    SelectGroup(0);
    EXPECT_TRUE(form.Find(name)->visible) << name;
    SelectGroup(5);
    EXPECT_FALSE(form.Find(name)->visible) << name;
  }
}

TEST_F(FrmFirter301Test, DescribesThePlainRowsAndClearsTheirCode) {
  const TextEntries fee_type{{"SumMode", "0"},
                             {"FItemClassID", "2014"},
                             {"FName", "费用类型"},
                             {"FPropID", "0"},
                             {"FSQLColumnName", "FName"}};
  EXPECT_EQ(Described(kPayable, 1), fee_type);
  EXPECT_EQ(Described(kBoth, 1), fee_type);
  EXPECT_EQ(Described(kPayable, 5), (TextEntries{{"SumMode", "0"},
                                                 {"FItemClassID", "8"},
                                                 {"FName", "供应商"},
                                                 {"FPropID", "0"},
                                                 {"FSQLColumnName", "FName"}}));
  EXPECT_EQ(Described(kReceivable, 5), (TextEntries{{"SumMode", "0"},
                                                    {"FItemClassID", "1"},
                                                    {"FName", "客户"},
                                                    {"FPropID", "0"},
                                                    {"FSQLColumnName", "FName"}}));
  EXPECT_EQ(Described(kReceivable, 3),
            (TextEntries{{"SumMode", "4"}, {"FPropID", "0"}, {"FSQLColumnName", "FName"}}));
}

TEST_F(FrmFirter301Test, APropertyRowStandsForItsDescription) {
  GiveProperties();
  EXPECT_EQ(Described(kPayable, 6), (TextEntries{{"SumMode", "0"}, {"FName", "区域"}, {"FPropID", "105"}}));
  EXPECT_EQ(Described(kReceivable, 7),
            (TextEntries{{"SumMode", "0"}, {"FName", "行业"}, {"FPropID", "105"}}));
}

// --- The item class

TEST_F(FrmFirter301Test, TheButtonPicksTheItemClass) {
  Form& form = OpenForm();
  Pick("01.02", 4711);
  form.UserClick(form.Get<Button>("cmdItemClass"));
  EXPECT_EQ(view_->Calls().back().member, "ItemLookUp");
  EXPECT_THAT(view_->Calls().back().arguments, ElementsAre(Variant(std::int16_t{4})));
  EXPECT_EQ(form.Get<TextBox>("txtItemClass").Text(), "01.02");
  EXPECT_EQ(dialog_.ItemClass().ItemID(), 4711);
  dialog_.Confirm();
  EXPECT_EQ(dialog_.Filter()->Get("BItemClass"), Variant("01.02"));
}

TEST_F(FrmFirter301Test, ACancelledOrFailedPickLeavesTheField) {
  Form& form = OpenForm();
  form.Get<TextBox>("txtItemClass").SetText("09");
  form.UserClick(form.Get<Button>("cmdItemClass"));
  view_->Raises("ItemLookUp", RuntimeError(-3, "Server", "the server is down"));
  form.UserClick(form.Get<Button>("cmdItemClass"));
  EXPECT_EQ(form.Get<TextBox>("txtItemClass").Text(), "09");
  EXPECT_EQ(dialog_.ItemClass().ItemID(), 0);
  EXPECT_TRUE(toolkit_->boxes.empty());
}

TEST_F(FrmFirter301Test, NoApostropheIsTypedIntoTheItemClass) {
  Form& form = OpenForm();
  form.Type(form.Get<TextBox>("txtItemClass"), "0'1");
  EXPECT_EQ(form.Get<TextBox>("txtItemClass").Text(), "01");
}

TEST_F(FrmFirter301Test, StartsOnAllStylesUntilThePlan) {
  profile_->Raises("GetPlanValue", RuntimeError(-3, "Server", "the server is down"));
  const Form& form = OpenForm();
  EXPECT_EQ(form.Get<ListControl>("cmbInvoiceStyle").ListIndex(), kPayable);
  EXPECT_EQ(form.Get<ListControl>("cboHookStatus").ListIndex(), 2);
}

// --- frmFirter302

class FrmFirter302Test : public DialogSuiteTest {
 protected:
  FrmFirter302Test() { dialog_.SetRptID(302); }
  FrmFirter302 dialog_;
};

TEST_F(FrmFirter302Test, WritesTheWholeFilter) {
  dialog_.Load();
  dialog_.Confirm();
  EXPECT_EQ(Texts(*dialog_.Filter()), (TextEntries{{"OK", "True"},
                                                   {"BDate", "2003-07-01"},
                                                   {"EDate", "2003-07-01"},
                                                   {"BItemClass", ""},
                                                   {"BFeeNumber", ""},
                                                   {"EFeeNumber", ""},
                                                   {"BCust", ""},
                                                   {"ECust", ""},
                                                   {"BSupply", ""},
                                                   {"ESupply", ""},
                                                   {"CheckState", "0"},
                                                   {"OrderBy", ""},
                                                   {"InvoiceStyle", "0"},
                                                   {"HookStatus", "2"}}));
}

TEST_F(FrmFirter302Test, SavesTheWholePlan) {
  dialog_.Load();
  Form& form = dialog_.GetForm();
  Pick("03", 9);
  form.UserClick(form.Get<Button>("cmdItemClass"));
  form.Get<ListControl>("listOrderFields").SetListIndex(0);
  form.UserClick(form.Get<Button>("cmdAdd"));
  dialog_.Confirm();
  EXPECT_EQ(Saved("默认方案", 302), (PlanValues{{"BDate", "2003-07-01"},
                                                {"EDate", "2003-07-01"},
                                                {"ItemClass", "03"},
                                                {"BFee", ""},
                                                {"EFee", ""},
                                                {"BCust", ""},
                                                {"ECust", ""},
                                                {"BSupply", ""},
                                                {"ESupply", ""},
                                                {"CheckState", "0"},
                                                {"OrderBy", "FDate ASC"},
                                                {"InvoiceStyle", "0"},
                                                {"HookStatus", "2"}}));
  EXPECT_EQ(dialog_.Filter()->Get("OrderBy"), Variant("FDate ASC"));
  EXPECT_EQ(dialog_.ItemClass().ItemID(), 9);
}

}  // namespace
}  // namespace salerpt
