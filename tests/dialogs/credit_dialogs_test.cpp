// The filter dialogs of the credit reports: what they write, keep, look up and ask.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "dialogs/frm_firter145.h"
#include "dialogs/frm_firter146.h"
#include "dialogs/frm_firter149.h"
#include "tests/dialogs/stored_plans.h"

namespace salerpt {
namespace {

using ::testing::ElementsAre;
using testing::FakeObject;
using testing::FakeRef;
using ::testing::IsEmpty;
using testing::RecordedBox;
using testing::RegisterFake;
using testing::StoredPlansWorld;
using Boxes = std::vector<RecordedBox>;
using Lines = std::vector<std::string>;

// What a look-up gives back.
using Properties = std::map<std::string, Variant>;

template <typename Dialog>
class CreditDialogWorld : public ::testing::Test {
 protected:
  CreditDialogWorld() {
    RegisterFake(world_.runtime, "ORVEBSBase.SystemProfile")->On("GetProfile", [this](Arguments) -> Variant {
      return short_codes_;
    });
    RegisterFake(world_.runtime, "ORVEBCGLView.GLData")->Gives("Refresh", Variant());
    view_->On("ItemLookUp",
              [this](Arguments given) { return Answer(Join("item ", given[0].ToInt32()), given[1]); });
    view_->On("SubMesLookup",
              [this](Arguments given) { return Answer(Join("sub ", given[0].ToInt32()), given[1]); });
    view_->On("CurrencyLookup", [this](Arguments given) { return Answer("currency", given[0]); });
    connection_->On("Execute", [this](Arguments given) -> Variant {
      statements_.push_back(given[0].ToText());
      return Currencies(given[0].ToText());
    });
    dialog_.SetRptID(145);
  }

  Form& Open() {
    dialog_.Load();
    static_cast<void>(world_.store.TakeCalls());
    return dialog_.GetForm();
  }
  TextBox& Code(int index) { return dialog_.GetForm().template Get<TextBox>("txtItem", index); }
  ListControl& Box(std::string_view name) { return dialog_.GetForm().template Get<ListControl>(name); }
  DatePicker& Day(std::string_view name) { return dialog_.GetForm().template Get<DatePicker>(name); }
  std::string Caption(std::string_view name) { return dialog_.GetForm().Find(name)->caption; }
  void Click(std::string_view name) { dialog_.GetForm().UserClick(*dialog_.GetForm().Find(name)); }
  void PickInto(int index, Properties properties) {
    picked_ = std::move(properties);
    Click(ControlName("cmdItem", index));
  }
  // "Key=value" in the order of the keys.
  Lines Filter() {
    Lines lines;
    for (const auto& entry : dialog_.Filter()->Entries())
      lines.push_back(Join(entry.key, "=", entry.value.TextOrEmpty()));
    return lines;
  }
  std::string Setting(std::string_view key) {
    return world_.runtime.ini_file.Read("145ORVSaleRpt", key, "(none)");
  }
  Lines Settings(std::initializer_list<std::string_view> keys) {
    Lines lines;
    for (const std::string_view key : keys) lines.push_back(Join(key, "=", Setting(key)));
    return lines;
  }

  StoredPlansWorld world_;
  FakeRef view_ = RegisterFake(world_.runtime, "ORVEBCGLView.GLView");
  FakeRef connection_ = RegisterFake(world_.runtime, "ORVConnection.AppConnection");
  int short_codes_ = 0;
  Properties picked_;
  Lines look_ups_;
  Lines statements_;
  Dialog dialog_;

 private:
  Variant Answer(const std::string& look_up, const Variant& search) {
    look_ups_.push_back(Join(look_up, " ", search.ToText()));
    auto answer = std::make_shared<FakeObject>("LookUp");
    if (picked_.empty()) {
      answer->Gives("ReturnObject", nullptr);
      return answer;
    }
    auto object = std::make_shared<FakeObject>("Picked");
    object->Gives("Number", picked_["Number"]);
    object->On("Properties", [values = picked_](Arguments name) -> Variant {
      const auto found = values.find(name[0].ToText());
      if (found == values.end()) throw RuntimeError(error_number::kNoSuchField, "Picked", "no such property");
      return found->second;
    });
    answer->Gives("ReturnObject", object);
    return answer;
  }
  // The one currency in the list is USD.
  static RecordsetRef Currencies(const std::string& sql) {
    RecordsetRef rows = MakeRecordset();
    rows->AppendField("FCurrencyID", FieldType::kInteger, 4);
    rows->AppendField("FNumber", FieldType::kVarChar, 10);
    rows->AppendField("FName", FieldType::kVarChar, 40);
    rows->AppendField("FExchangeRate", FieldType::kDouble, 8);
    rows->Open();
    if (EqualNames(sql, "select * From t_currency Where FNumber ='USD'")) {
      rows->AddNew();
      rows->SetValue(0, 2);
      rows->SetValue(1, "USD");
      rows->SetValue(2, "美元");
      rows->SetValue(3, 8.27);
      rows->Update();
    }
    return rows;
  }
};

using FrmFirter145Test = CreditDialogWorld<FrmFirter145>;
using FrmFirter146Test = CreditDialogWorld<FrmFirter146>;
using FrmFirter149Test = CreditDialogWorld<FrmFirter149>;

// --- frmFirter145

TEST_F(FrmFirter145Test, OpensWithItsTextsAndLists) {
  const Form& form = Open();
  EXPECT_EQ(dialog_.Name(), "frmFirter145");
  EXPECT_EQ(form.caption, "过滤");
  EXPECT_EQ(Caption("cmdOK"), "确定(&O)");
  EXPECT_EQ(Caption("cmdCacel"), "取消(&C)");
  EXPECT_EQ(Caption("Label1"), "信用管理范围:");
  EXPECT_EQ(Caption("Label2"), "信用对象:");
  const auto texts = [this](std::string_view box) {
    Lines lines;
    for (const ListItem& item : Box(box).Items()) lines.push_back(item.text);
    return lines;
  };
  EXPECT_THAT(texts("cmbCreditObj"), ElementsAre("客户", "业务员", "部门", "客户类别", "业务员类别"));
  EXPECT_THAT(texts("Cmb_CreditType"), ElementsAre("销售合同", "销售订单", "销售出库单", "销售发票"));
  EXPECT_EQ(Box("cmbCreditObj").ListIndex(), 0);
  EXPECT_EQ(Box("Cmb_CreditType").ListIndex(), 0);
  EXPECT_EQ(dialog_.CurrentPlan(), "默认方案");
  EXPECT_THAT(Filter(), ElementsAre("OK=False"));
}

TEST_F(FrmFirter145Test, ConfirmsItsDefaults) {
  Open();
  Click("cmdOK");
  EXPECT_TRUE(dialog_.IsUnloaded());
  EXPECT_THAT(Filter(), ElementsAre("OK=True", "BDate=2003-07-01", "EDate=2003-07-01", "FICItemIDFrom=",
                                    "FICItemIDTo=", "FItemIDFrom=", "FItemIDTo=", "FCreditClass=0",
                                    "FGroupID=0", "CreditTypeName=销售合同"));
  EXPECT_THAT(world_.store.TakeCalls(), ElementsAre("SaveProfile"));
  EXPECT_THAT(world_.store.saved, ElementsAre("145|默认方案|FICItemIDFrom=", "145|默认方案|FICItemIDTo=",
                                              "145|默认方案|FItemIDFrom=", "145|默认方案|FItemIDTo=",
                                              "145|默认方案|CreditType=0", "145|默认方案|CreditObj=0"));
}

TEST_F(FrmFirter145Test, WritesWhatIsChosen) {
  Form& form = Open();
  Day("DtpBDate").SetValue(Date::FromYmd(2003, 6, 1));
  Code(0).SetText(" i1 ");
  Code(1).SetText("i'2");
  Code(2).SetText("e1");
  Code(3).SetText("e2");
  form.UserSelect(Box("cmbCreditObj"), 1);
  form.UserSelect(Box("Cmb_CreditType"), 3);
  Click("cmdOK");
  EXPECT_THAT(Filter(), ElementsAre("OK=True", "BDate=2003-06-01", "EDate=2003-07-01", "FICItemIDFrom= i1 ",
                                    "FICItemIDTo=i'2", "FItemIDFrom=e1", "FItemIDTo=e2", "FCreditClass=1",
                                    "FGroupID=3", "CreditTypeName=销售发票"));
  EXPECT_THAT(world_.store.saved,
              ElementsAre("145|默认方案|FICItemIDFrom= i1 ", "145|默认方案|FICItemIDTo=i''2",
                          "145|默认方案|FItemIDFrom=e1", "145|默认方案|FItemIDTo=e2",
                          "145|默认方案|CreditType=3", "145|默认方案|CreditObj=1"));
  EXPECT_THAT(Settings({"BDate", "EDate", "BItem", "EItem", "BCustEmp", "ECustEmp", "CreditObj"}),
              ElementsAre("BDate=2003-06-01", "EDate=2003-07-01", "BItem= i1 ", "EItem=i'2", "BCustEmp=e1",
                          "ECustEmp=e2", "CreditObj=1"));
}

TEST_F(FrmFirter145Test, RefusesAReversedRange) {
  Open();
  Day("DtpBDate").SetValue(Date::FromYmd(2003, 7, 2));
  Click("cmdOK");
  EXPECT_EQ(world_.toolkit->boxes, (Boxes{{"起始日期不能大于截止日期!", 64, "青岚提示："}}));
  EXPECT_EQ(Day("DtpBDate").Text(), "2003-07-01");
  EXPECT_FALSE(dialog_.IsUnloaded());
  EXPECT_THAT(Filter(), ElementsAre("OK=False"));
  EXPECT_THAT(world_.store.saved, IsEmpty());
  EXPECT_EQ(Setting("BDate"), "(none)");
}

TEST_F(FrmFirter145Test, RestoresAPlanButTheDates) {
  world_.store.plans = {{"mine",
                         {{"BDate", "1999-01-01"},
                          {"FICItemIDFrom", "i1"},
                          {"FItemIDTo", "d2"},
                          {"CreditType", "2"},
                          {"CreditObj", "2"}},
                         1}};
  Open();
  EXPECT_EQ(dialog_.CurrentPlan(), "mine");
  EXPECT_EQ(Code(0).Text(), "i1");
  EXPECT_EQ(Code(1).Text(), "");
  EXPECT_EQ(Code(3).Text(), "d2");
  EXPECT_EQ(Box("Cmb_CreditType").ListIndex(), 2);
  EXPECT_EQ(Box("cmbCreditObj").ListIndex(), 2);
  EXPECT_EQ(Caption("Label3"), "部门代码:");
  EXPECT_EQ(Day("DtpBDate").Text(), "2003-07-01");
  Click("cmdOK");
  EXPECT_THAT(world_.store.TakeCalls(), IsEmpty()) << "a named plan stays as it is";
}

TEST_F(FrmFirter145Test, LeavesOutAValueThatABoxDoesNotTake) {
  world_.store.plans = {{"默认方案", {{"FItemIDFrom", "c1"}, {"CreditType", "9"}, {"CreditObj", Null{}}}}};
  Open();
  EXPECT_EQ(Code(2).Text(), "c1");
  EXPECT_EQ(Box("Cmb_CreditType").ListIndex(), 0);
  EXPECT_EQ(Box("cmbCreditObj").ListIndex(), 0);
}

TEST_F(FrmFirter145Test, ShowsTheLabelOfTheCreditObject) {
  Form& form = Open();
  Code(2).SetText("c1");
  Lines labels;
  for (int i = 0; i < 5; ++i) {
    form.UserSelect(Box("cmbCreditObj"), i);
    labels.push_back(Caption("Label3"));
  }
  EXPECT_THAT(labels, ElementsAre("客户代码:", "业务员代码:", "部门代码:", "客户类别:", "业务员类别:"));
  EXPECT_EQ(Code(2).Text(), "c1");
}

TEST_F(FrmFirter145Test, LooksUpItemsAndCreditObjects) {
  Form& form = Open();
  Code(0).SetText("i");
  PickInto(0, {{"Number", "i.01"}});
  EXPECT_EQ(Code(0).Text(), "i.01");
  for (int i = 0; i < 5; ++i) {
    form.UserSelect(Box("cmbCreditObj"), i);
    PickInto(3, {{"Number", Join("o", i)}});
  }
  EXPECT_THAT(look_ups_,
              ElementsAre("item 4 i", "item 1 ", "item 3 o0", "item 2 o1", "sub 501 o2", "sub 30 o3"));
  EXPECT_EQ(Code(3).Text(), "o4");
  EXPECT_EQ(Code(2).Text(), "");
}

TEST_F(FrmFirter145Test, TakesTheShortCodeWhereItIsInUse) {
  short_codes_ = 1;
  Open();
  PickInto(2, {{"Number", "1.01"}, {"FShortNumber", "01"}});
  EXPECT_EQ(Code(2).Text(), "01");
}

TEST_F(FrmFirter145Test, KeepsTheCodeWhereTheLookUpIsCancelledOrFails) {
  Open();
  Code(2).SetText("c1");
  PickInto(2, {});
  EXPECT_EQ(Code(2).Text(), "c1");
  short_codes_ = 1;
  PickInto(2, {{"Number", "1.01"}});
  EXPECT_EQ(Code(2).Text(), "c1");
  EXPECT_THAT(world_.toolkit->boxes, IsEmpty());
}

TEST_F(FrmFirter145Test, LooksUpAtF7AndF8) {
  Form& form = Open();
  picked_ = {{"Number", "c9"}};
  form.PressKey(Code(2), key_code::kF7);
  form.PressKey(Code(3), key_code::kF8);
  form.PressKey(Code(3), key_code::kF9);
  EXPECT_THAT(look_ups_, ElementsAre("item 1 ", "item 1 "));
  EXPECT_EQ(Code(3).Text(), "c9");
}

TEST_F(FrmFirter145Test, MovesOnAtEnterAndSwallowsApostrophes) {
  Form& form = Open();
  form.Type(Code(0), "o'neil");
  EXPECT_EQ(Code(0).Text(), "oneil");
  EXPECT_EQ(world_.toolkit->beeps, 1);
  form.PressKey(Code(0), key_code::kEnter);
  EXPECT_THAT(world_.toolkit->keys, ElementsAre("{TAB}"));
  EXPECT_EQ(Code(0).Text(), "oneil");
  EXPECT_FALSE(dialog_.IsUnloaded());
}

TEST_F(FrmFirter145Test, HasNoKeysOfTheForm) {
  Form& form = Open();
  form.PressKey(Box("cmbCreditObj"), key_code::kEnter);
  form.PressKey(Code(0), key_code::kEscape);
  EXPECT_THAT(world_.toolkit->keys, IsEmpty());
  EXPECT_FALSE(dialog_.IsUnloaded());
}

TEST_F(FrmFirter145Test, KeepsItsSettingsAtACancelToo) {
  Open();
  Code(0).SetText("i1");
  Click("cmdCacel");
  EXPECT_TRUE(dialog_.IsUnloaded());
  EXPECT_THAT(Filter(), ElementsAre("OK=False"));
  EXPECT_THAT(world_.store.saved, IsEmpty());
  EXPECT_EQ(Setting("BItem"), "i1");
  EXPECT_EQ(world_.runtime.ini_file.FileName(), "JXCQ7SaleRpt.INI");
}

TEST_F(FrmFirter145Test, WritesSettingsWhereTheReportWants) {
  world_.runtime.ini_file.SetFileName("Other.INI");
  Open();
  Click("cmdOK");
  EXPECT_EQ(world_.runtime.ini_file.FileName(), "Other.INI");
  EXPECT_EQ(Setting("EDate"), "2003-07-01");
}

TEST_F(FrmFirter145Test, ClosesWhereASettingCannotBeWritten) {
  Open();
  Code(0).SetText("a\nb");
  Click("cmdOK");
  EXPECT_TRUE(dialog_.IsUnloaded());
  EXPECT_EQ(Setting("BItem"), "(none)");
  EXPECT_EQ(Setting("CreditObj"), "0");
}

TEST_F(FrmFirter145Test, ConfirmsAPlanWithoutBeingSeen) {
  world_.store.plans = {{"mine", {{"FItemIDFrom", "c1"}}}};
  dialog_.ShowFinish("mine");
  EXPECT_TRUE(dialog_.IsUnloaded());
  EXPECT_EQ(dialog_.Filter()->Get("FItemIDFrom"), Variant("c1"));
  EXPECT_THAT(world_.store.saved, IsEmpty());
}

TEST_F(FrmFirter145Test, ConfirmsItselfUnderTheTestSwitch) {
  world_.folder.Write("C:\\RptTest.Ini", "[Para]\r\nDebug=1\r\n");
  Open();
  dialog_.Activate();
  EXPECT_TRUE(dialog_.IsUnloaded());
  EXPECT_TRUE(dialog_.Filter()->Get("OK").ToBoolean());
}

TEST_F(FrmFirter145Test, StaysOpenWithoutTheTestSwitch) {
  Open();
  dialog_.Activate();
  EXPECT_FALSE(dialog_.IsUnloaded());
}

TEST_F(FrmFirter145Test, OpensAndConfirmsWithoutAStore) {
  world_.store.BreakDown();
  Open();
  Click("cmdOK");
  EXPECT_TRUE(dialog_.Filter()->Get("OK").ToBoolean());
  EXPECT_THAT(world_.toolkit->boxes, IsEmpty());
}

TEST_F(FrmFirter145Test, FillsThePlanListOfAFamily) {
  Open();
  world_.store.plans = {{"a", {}}};
  RecordsetRef rows;
  dialog_.FillPlanListView(166, rows);
  EXPECT_EQ(rows->RecordCount(), 1);
  EXPECT_THAT(world_.store.TakeCalls(), ElementsAre("GetPlanList 166"));
}

// --- frmFirter146

TEST_F(FrmFirter146Test, ConfirmsItsDefaultsInTheBaseCurrency) {
  Open();
  EXPECT_EQ(Caption("Label4"), "折算币别:");
  Click("cmdOK");
  EXPECT_THAT(Filter(), ElementsAre("OK=True", "BDate=2003-07-01", "EDate=2003-07-01", "FCurrencyNumber=",
                                    "FCurrencyID=1", "FItemIDFrom=", "FItemIDTo=", "FCreditClass=0",
                                    "FGroupID=0", "CreditTypeName=销售合同", "FExchangeRate=1",
                                    "FCurrencyName=本位币", "CreditObj=0", "CreditTypeIndex=0"));
  EXPECT_THAT(world_.store.saved,
              ElementsAre("145|默认方案|FCurrency=", "145|默认方案|FItemIDFrom=", "145|默认方案|FItemIDTo=",
                          "145|默认方案|CreditObj=0", "145|默认方案|CreditType=0"));
  EXPECT_THAT(statements_, IsEmpty());
}

TEST_F(FrmFirter146Test, TakesDatesInEitherOrder) {
  Open();
  Day("DtpBDate").SetValue(Date::FromYmd(2003, 7, 2));
  Click("cmdOK");
  EXPECT_TRUE(dialog_.IsUnloaded());
  EXPECT_EQ(dialog_.Filter()->Get("BDate"), Variant("2003-07-02"));
  EXPECT_THAT(world_.toolkit->boxes, IsEmpty());
}

TEST_F(FrmFirter146Test, ReadsTheCurrencyTyped) {
  Open();
  Code(0).SetText(" usd ");
  Click("cmdOK");
  EXPECT_THAT(statements_, ElementsAre("select * From t_currency Where FNumber ='usd'"));
  EXPECT_EQ(Code(0).Text(), "USD");
  EXPECT_EQ(dialog_.Filter()->Get("FCurrencyNumber"), Variant("USD"));
  EXPECT_EQ(dialog_.Filter()->Get("FCurrencyID"), Variant(2));
  EXPECT_EQ(dialog_.Filter()->Get("FExchangeRate"), Variant(8.27));
  EXPECT_EQ(dialog_.Filter()->Get("FCurrencyName"), Variant("美元"));
  EXPECT_THAT(world_.store.saved, ::testing::Contains("145|默认方案|FCurrency=USD"));
}

TEST_F(FrmFirter146Test, StaysWithTheBaseCurrencyWhereNoneHasTheCode) {
  Open();
  Code(0).SetText("x'y");
  Click("cmdOK");
  EXPECT_THAT(statements_, ElementsAre("select * From t_currency Where FNumber ='x''y'"));
  EXPECT_EQ(dialog_.Filter()->Get("FCurrencyNumber"), Variant("x'y"));
  EXPECT_EQ(dialog_.Filter()->Get("FCurrencyID"), Variant(1));
  EXPECT_EQ(dialog_.Filter()->Get("FExchangeRate"), Variant(1));
  EXPECT_EQ(dialog_.Filter()->Get("FCurrencyName"), Variant("本位币"));
}

TEST_F(FrmFirter146Test, ConfirmsWhereTheCurrenciesCannotBeRead) {
  connection_->Raises("Execute", RuntimeError(-3, "Server", "the server is down"));
  Open();
  Code(0).SetText("USD");
  Click("cmdOK");
  EXPECT_TRUE(dialog_.IsUnloaded());
  EXPECT_EQ(dialog_.Filter()->Get("FCurrencyID"), Variant(1));
}

TEST_F(FrmFirter146Test, StoresTheCurrencyLookedUpAtOnce) {
  Open();
  PickInto(0, {{"Number", "HKD"}, {"FCurrencyID", 3}, {"FName", "港币"}, {"FExchangeRate", 1.06}});
  EXPECT_THAT(look_ups_, ElementsAre("currency "));
  EXPECT_EQ(Code(0).Text(), "HKD");
  EXPECT_THAT(Filter(), ElementsAre("OK=False", "FCurrencyID=3", "FCurrencyName=港币", "FExchangeRate=1.06"));
  Click("cmdCacel");
  EXPECT_THAT(Settings({"BDate", "EDate", "FCurrencyNumber", "FCurrencyID", "FCurrencyName", "FExchangeRate",
                        "BCustEmp", "BCustEmpID", "ECustEmp", "ECustEmpID", "CreditObj"}),
              ElementsAre("BDate=2003-07-01", "EDate=2003-07-01", "FCurrencyNumber=HKD", "FCurrencyID=3",
                          "FCurrencyName=港币", "FExchangeRate=1.06",
                          "BCustEmp=", "BCustEmpID=", "ECustEmp=", "ECustEmpID=", "CreditObj=0"));
}

TEST_F(FrmFirter146Test, KeepsTheCurrencyLookedUpWhereTheListLacksIt) {
  Open();
  PickInto(0, {{"Number", "HKD"}, {"FCurrencyID", 3}, {"FName", "港币"}, {"FExchangeRate", 1.06}});
  Click("cmdOK");
  EXPECT_EQ(dialog_.Filter()->Get("FCurrencyID"), Variant(3));
  EXPECT_EQ(dialog_.Filter()->Get("FCurrencyName"), Variant("港币"));
  EXPECT_EQ(dialog_.Filter()->Get("FExchangeRate"), Variant(1.06));
}

TEST_F(FrmFirter146Test, DropsTheCurrencyLookedUpWhenTheFieldIsEmptied) {
  Open();
  PickInto(0, {{"Number", "HKD"}, {"FCurrencyID", 3}, {"FName", "港币"}, {"FExchangeRate", 1.06}});
  Code(0).SetText("");
  Click("cmdOK");
  EXPECT_EQ(dialog_.Filter()->Get("FCurrencyID"), Variant(1));
  EXPECT_EQ(dialog_.Filter()->Get("FCurrencyName"), Variant("本位币"));
}

TEST_F(FrmFirter146Test, TellsTheIdsOfTheObjectsLookedUp) {
  Open();
  PickInto(2, {{"Number", "c1"}, {"FItemID", 1001}});
  PickInto(3, {{"Number", "c2"}, {"FItemID", "1002"}});
  Click("cmdOK");
  EXPECT_EQ(dialog_.Filter()->Get("FItemIDFrom"), Variant(1001));
  EXPECT_EQ(dialog_.Filter()->Get("FItemIDTo"), Variant("1002"));
  EXPECT_THAT(world_.store.saved, ::testing::Contains("145|默认方案|FItemIDFrom=c1"));
  EXPECT_THAT(Settings({"BCustEmp", "BCustEmpID", "ECustEmp", "ECustEmpID"}),
              ElementsAre("BCustEmp=c1", "BCustEmpID=1001", "ECustEmp=c2", "ECustEmpID=1002"));
}

TEST_F(FrmFirter146Test, TellsNoIdForACodeThatWasNotLookedUp) {
  Form& form = Open();
  PickInto(2, {{"Number", "c1"}, {"FItemID", 1001}});
  PickInto(3, {{"Number", "c2"}, {"FItemID", 1002}});
  form.Type(Code(2), "c7");
  Code(3).SetText("");
  Click("cmdOK");
  EXPECT_EQ(dialog_.Filter()->Get("FItemIDFrom"), Variant(""));
  EXPECT_EQ(dialog_.Filter()->Get("FItemIDTo"), Variant(""));
}

TEST_F(FrmFirter146Test, RestoresAPlan) {
  world_.store.plans = {
      {"默认方案", {{"FCurrency", "USD"}, {"FItemIDFrom", "c1"}, {"CreditObj", "4"}, {"CreditType", "1"}}}};
  Open();
  Click("cmdOK");
  EXPECT_THAT(Filter(), ElementsAre("OK=True", "BDate=2003-07-01", "EDate=2003-07-01", "FCurrencyNumber=USD",
                                    "FCurrencyID=2", "FItemIDFrom=", "FItemIDTo=", "FCreditClass=4",
                                    "FGroupID=1", "CreditTypeName=销售订单", "FExchangeRate=8.27",
                                    "FCurrencyName=美元", "CreditObj=4", "CreditTypeIndex=1"));
}

// --- frmFirter149

TEST_F(FrmFirter149Test, ConfirmsItsDefaultsInTheBaseCurrency) {
  const Form& form = Open();
  EXPECT_EQ(Caption("Label5"), "计算日期:");
  EXPECT_EQ(form.Find("Cmb_CreditType"), nullptr);
  Click("cmdOK");
  EXPECT_THAT(Filter(), ElementsAre("OK=True", "FDate=2003-07-01", "FItemIDFrom=", "FItemIDTo=",
                                    "FCurrentcyID=", "FCreditClass=0", "CreditTypeName=客户", "FCurrencyID=1",
                                    "FRate=1", "FCurrencyName=本位币", "CreditObj=0"));
  EXPECT_THAT(world_.store.saved,
              ElementsAre("145|默认方案|FCurrency=", "145|默认方案|FItemIDFrom=", "145|默认方案|FItemIDTo=",
                          "145|默认方案|FDate=2003-07-01", "145|默认方案|CreditObj=0"));
  EXPECT_EQ(Setting("CreditObj"), "(none)") << "this dialog keeps no settings";
}

TEST_F(FrmFirter149Test, WritesWhatIsChosen) {
  Form& form = Open();
  Day("DtpFDate").SetValue(Date::FromYmd(2003, 5, 31));
  Code(0).SetText("usd");
  form.UserSelect(Box("cmbCreditObj"), 3);
  PickInto(2, {{"Number", "k1"}, {"FItemID", 501001}});
  Click("cmdOK");
  EXPECT_THAT(Filter(), ElementsAre("OK=True", "FDate=2003-05-31", "FItemIDFrom=501001", "FItemIDTo=",
                                    "FCurrentcyID=USD", "FCreditClass=3", "CreditTypeName=客户类别",
                                    "FCurrencyID=2", "FRate=8.27", "FCurrencyName=美元", "CreditObj=3"));
}

TEST_F(FrmFirter149Test, TakesTheRateOfTheLookUpUnderItsOwnName) {
  Open();
  PickInto(0, {{"Number", "HKD"}, {"FCurrencyID", 3}, {"FName", "港币"}, {"FRate", 1.06}});
  EXPECT_THAT(Filter(), ElementsAre("OK=False", "FCurrencyID=3", "FCurrencyName=港币", "FRate=1.06"));
}

TEST_F(FrmFirter149Test, KeepsWhatALookUpWithoutARateGives) {
  Open();
  PickInto(0, {{"Number", "USD"}, {"FCurrencyID", 2}, {"FName", "美元"}});
  EXPECT_THAT(Filter(), ElementsAre("OK=False", "FCurrencyID=2", "FCurrencyName=美元", "FRate="));
  Click("cmdOK");
  EXPECT_EQ(dialog_.Filter()->Get("FRate"), Variant(8.27));
}

TEST_F(FrmFirter149Test, RestoresTheDayOfAPlan) {
  world_.store.plans = {{"默认方案", {{"FDate", "2003-01-31"}, {"CreditObj", "1"}}}};
  Open();
  EXPECT_EQ(Day("DtpFDate").Text(), "2003-01-31");
  EXPECT_EQ(Caption("Label3"), "业务员代码:");
}

TEST_F(FrmFirter149Test, KeepsTheDayWhereThePlansIsNone) {
  world_.store.plans = {{"默认方案", {{"FDate", "soon"}}}};
  Open();
  EXPECT_EQ(Day("DtpFDate").Text(), "2003-07-01");
}

}  // namespace
}  // namespace salerpt
