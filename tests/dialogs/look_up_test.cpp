// What a field gets from its look-up.
#include "dialogs/look_up.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "runtime/recordset.h"
#include "runtime/runtime.h"
#include "tests/runtime/error_check.h"
#include "tests/runtime/fake_list.h"
#include "tests/runtime/fake_object.h"
#include "tests/runtime/fake_world.h"

namespace salerpt {
namespace {

using testing::ChosenRow;
using ::testing::ElementsAre;
using testing::FakeObject;
using testing::FakePlatform;
using testing::FakeRef;
using ::testing::IsEmpty;
using testing::ListToolkit;
using testing::LogIn;
using testing::RecordedBox;
using testing::RecordedCall;
using testing::RegisterFake;
using testing::RegisterList;
using testing::TempFolder;
using Names = std::vector<std::string>;
using Values = std::vector<Variant>;

const RuntimeError kServerDown(-3, "Server", "the server is down");
constexpr std::string_view kProps = "ConnectString={PROVIDER=x;UID=sa};UserName=abc;UserID=16394;Other=1";

// A set of one text field.
RecordsetRef TextRows(std::string_view field, std::initializer_list<const char*> values) {
  const RecordsetRef rows = MakeRecordset();
  rows->AppendField(field, FieldType::kVarChar, 255);
  rows->Open();
  for (const char* value : values) {
    rows->AddNew();
    rows->SetText(0, value);
    rows->Update();
  }
  rows->MoveFirst();
  return rows;
}

class LookUpTest : public ::testing::Test {
 protected:
  LookUpTest() {
    runtime_.SetToolkit(toolkit_);
    LogIn(runtime_, std::string(kProps), "abc");
    RegisterFake(runtime_, "ORVEBSBase.SystemProfile")->On("GetProfile", [this](Arguments) -> Variant {
      return use_short_number_;
    });
  }

  Runtime runtime_;
  std::shared_ptr<ListToolkit> toolkit_ = std::make_shared<ListToolkit>();
  int use_short_number_ = 0;
};

// --- Base data

class CodeLookUpTest : public LookUpTest {
 protected:
  CodeLookUpTest() {
    picked_->Gives("Number", "01.001").On("Properties", [](Arguments arguments) -> Variant {
      return arguments[0] == Variant("FShortNumber") ? Variant("001") : Variant();
    });
    look_up_->Gives("ReturnObject", picked_);
    view_->Gives("ItemLookUp", look_up_).Gives("SubMesLookup", look_up_);
    data_->Gives("Refresh", Variant());
  }
  FakeRef data_ = RegisterFake(runtime_, "ORVEBCGLView.GLData");
  FakeRef view_ = RegisterFake(runtime_, "ORVEBCGLView.GLView");
  FakeRef look_up_ = std::make_shared<FakeObject>("LookUp");
  FakeRef picked_ = std::make_shared<FakeObject>("Picked");
};

TEST_F(CodeLookUpTest, GivesTheCodeInUse) {
  EXPECT_EQ(LookUpCode(4, "01"), "01.001");
  use_short_number_ = 1;
  EXPECT_EQ(LookUpCode(4, "01"), "001");
}

TEST_F(CodeLookUpTest, GivesTheLongCodeUnderBothRules) {
  EXPECT_EQ(LookUpNumber(4, "01"), "01.001");
  use_short_number_ = 1;
  EXPECT_EQ(LookUpNumber(4, "01"), "01.001");
}

TEST_F(CodeLookUpTest, BeginsWithTheFieldAndNoCondition) {
  LookUpCode(4, "01");
  LookUpCode(1, "");
  const Values& first = view_->Calls().at(0).arguments;
  EXPECT_EQ(first[0], Variant(4));
  EXPECT_EQ(first[1], Variant("01"));
  EXPECT_EQ(first[2], Variant(""));
  EXPECT_EQ(As<Dictionary>(first[3])->Get("GetDataType"), Variant(std::int16_t{1}));
  EXPECT_FALSE(As<Dictionary>(first[3])->Lookup("Refresh"));
  EXPECT_EQ(view_->Calls().at(1).arguments[1], Variant(""));
}

TEST_F(CodeLookUpTest, GivesNothingWhereTheUserCancels) {
  look_up_->Gives("ReturnObject", nullptr);
  EXPECT_EQ(LookUpCode(4, "01"), std::nullopt);
  EXPECT_EQ(LookUpNumber(4, "01"), std::nullopt);
  EXPECT_THAT(toolkit_->boxes, IsEmpty());
}

TEST_F(CodeLookUpTest, GivesNothingAfterAMessageWhereTheLookUpFails) {
  view_->Raises("ItemLookUp", kServerDown);
  EXPECT_EQ(LookUpCode(4, "01"), std::nullopt);
  EXPECT_EQ(LookUpNumber(4, "01"), std::nullopt);
  EXPECT_EQ(toolkit_->boxes.size(), 2U);
}

TEST_F(CodeLookUpTest, GivesNothingWhereTheCodeCannotBeRead) {
  picked_->Raises("Number", kServerDown).Raises("Properties", kServerDown);
  EXPECT_EQ(LookUpNumber(30, ""), std::nullopt);
  EXPECT_EQ(LookUpCode(30, ""), std::nullopt);
  use_short_number_ = 1;
  EXPECT_EQ(LookUpCode(30, ""), std::nullopt);
  EXPECT_THAT(toolkit_->boxes, IsEmpty());
}

// --- The list of orders

class OrderLookUpTest : public LookUpTest {
 protected:
  OrderLookUpTest() {
    folder_.Write("ErpSwitch.sss", "");
    runtime_.SetPlatform(std::make_shared<FakePlatform>(folder_.Path()));
    connection_->Gives("Open", Variant()).Gives("Close", Variant()).Gives("ConnectionString", "as opened");
    store_->Gives("DelProperty", Variant());
    data_->Gives("GetData", TextRows("FBillNo", {"SO-7"}));
    toolkit_->user = [](ListForm& form) { form.OnAction("SelectOK"); };
    Choose(Variant(7));
  }
  // The user marks the row of this order.
  void Choose(const Variant& id) {
    const auto rows = std::make_shared<Vector>();
    rows->Add(ChosenRow("FInterID", id));
    rows->Add(ChosenRow("FInterID", 99));
    control_->Gives("Selected", rows);
  }
  // What the control was given for a property.
  [[nodiscard]] Values Given(std::string_view property) const {
    Values values;
    for (const RecordedCall& call : control_->Calls()) {
      if (call.member == property) values.insert(values.end(), call.arguments.begin(), call.arguments.end());
    }
    return values;
  }
  [[nodiscard]] Names Steps() const {
    Names steps;
    for (const RecordedCall& call : *log_) steps.push_back(call.object + "." + call.member);
    return steps;
  }
  void ExpectNoOrderMessage() {
    EXPECT_THAT(toolkit_->boxes, ElementsAre(RecordedBox{"未返回产品入库单的代码!", 64, "青岚提示："}));
    EXPECT_THAT(data_->Calls(), IsEmpty());
  }

  TempFolder folder_;
  std::shared_ptr<FakeObject::Log> log_ = std::make_shared<FakeObject::Log>();
  FakeRef connection_ = RegisterFake(runtime_, "ADODB.Connection", log_);
  FakeRef store_ = RegisterFake(runtime_, "ORVPropsMgr.ShareProps", log_);
  FakeRef control_ = RegisterList(runtime_, log_);
  FakeRef data_ = RegisterFake(runtime_, "ORVMSaleRpt.Data", log_);
};

TEST_F(OrderLookUpTest, GivesTheNumberOfTheOrderChosen) {
  EXPECT_EQ(LookUpOrderNumber(""), "SO-7");
  EXPECT_EQ(data_->Calls().at(0).arguments, (Values{kProps, "Select FBillNo From SEOrder Where FInterID=7"}));
  EXPECT_EQ(toolkit_->shown, 1);
  EXPECT_THAT(toolkit_->boxes, IsEmpty());
}

TEST_F(OrderLookUpTest, GoesStepByStep) {
  LookUpOrderNumber("7");
  EXPECT_EQ(Steps(), (Names{"ADODB.Connection.Open",
                            "ADODB.Connection.ConnectionString",
                            "ADODB.Connection.Close",
                            "ADODB.Connection.Open",
                            "ORVPropsMgr.ShareProps.DelProperty",
                            "ORVList.ICList.Left",
                            "ORVList.ICList.Top",
                            "ORVList.ICList.Visible",
                            "ORVList.ICList.BaseInfo",
                            "ORVList.ICList.ListID",
                            "ORVList.ICList.ListShowStatus",
                            "ORVList.ICList.DestBillTransType",
                            "ORVList.ICList.Filter",
                            "ADODB.Connection.ConnectionString",
                            "ORVList.ICList.LocalCnn",
                            "ORVList.ICList.MultiSelect",
                            "ORVList.ICList.ROB",
                            "ORVList.ICList.Load",
                            "ORVList.ICList.IsOpened",
                            "ORVList.ICList.GetListDes",
                            "ORVList.ICList.IsSelected",
                            "ORVList.ICList.Selected",
                            "ORVMSaleRpt.Data.GetData",
                            "ORVList.ICList.Release"}));
}

TEST_F(OrderLookUpTest, SetsTheListUp) {
  LookUpOrderNumber("");
  EXPECT_THAT(Given("BaseInfo"), ElementsAre(Variant("PROVIDER=x;UID=sa|16394|abc")));
  EXPECT_THAT(Given("ListID"), ElementsAre(Variant(32)));
  EXPECT_THAT(Given("ListShowStatus"), ElementsAre(Variant(std::int16_t{2})));
  EXPECT_THAT(Given("DestBillTransType"), ElementsAre(Variant("200192")));
  EXPECT_THAT(Given("LocalCnn"), ElementsAre(Variant("as opened")));
  EXPECT_THAT(Given("MultiSelect"), ElementsAre(Variant(false)));
  const Values& cleared = store_->Calls().at(0).arguments;
  EXPECT_EQ(cleared[0], Variant(FakePlatform::kProcess));
  EXPECT_EQ(cleared[1], Variant(32));
}

TEST_F(OrderLookUpTest, NarrowsTheListByWhatTheFieldHolds) {
  LookUpOrderNumber("SO'7");
  EXPECT_THAT(Given("Filter"), ElementsAre(Variant(" FBillNo Like '%SO''7%'")));
}

TEST_F(OrderLookUpTest, KeepsTheBlanksOfTheField) {
  LookUpOrderNumber(" 7 ");
  EXPECT_THAT(Given("Filter"), ElementsAre(Variant(" FBillNo Like '% 7 %'")));
}

TEST_F(OrderLookUpTest, DoesNotNarrowForABlankField) {
  LookUpOrderNumber("");
  LookUpOrderNumber("  ");
  EXPECT_THAT(Given("Filter"), IsEmpty());
}

TEST_F(OrderLookUpTest, GivesNothingWhereTheUserLeavesTheList) {
  toolkit_->user = [](ListForm& form) { form.OnAction("Exit"); };
  EXPECT_EQ(LookUpOrderNumber(""), std::nullopt);
  toolkit_->user = [](ListForm& form) { form.Unload(); };
  EXPECT_EQ(LookUpOrderNumber(""), std::nullopt);
  EXPECT_THAT(toolkit_->boxes, IsEmpty());
  EXPECT_THAT(Given("Selected"), IsEmpty());
  EXPECT_THAT(data_->Calls(), IsEmpty());
}

TEST_F(OrderLookUpTest, GivesNothingWhereTheListDoesNotOpen) {
  control_->Gives("Load", false);
  EXPECT_EQ(LookUpOrderNumber(""), std::nullopt);
  control_->Raises("Load", kServerDown);
  EXPECT_EQ(LookUpOrderNumber(""), std::nullopt);
  control_->Gives("Load", true).Gives("IsOpened", false);
  EXPECT_EQ(LookUpOrderNumber(""), std::nullopt);
  EXPECT_EQ(toolkit_->shown, 0);
  EXPECT_THAT(toolkit_->boxes, IsEmpty());
}

TEST_F(OrderLookUpTest, TellsThatTheOrderHasNoId) {
  Choose(0);
  EXPECT_EQ(LookUpOrderNumber(""), std::nullopt);
  ExpectNoOrderMessage();
}

TEST_F(OrderLookUpTest, TellsThatNoRowCameBack) {
  control_->Gives("Selected", std::make_shared<Vector>());
  EXPECT_EQ(LookUpOrderNumber(""), std::nullopt);
  ExpectNoOrderMessage();
}

TEST_F(OrderLookUpTest, TellsThatNoListOfRowsCameBack) {
  control_->Gives("Selected", nullptr);
  EXPECT_EQ(LookUpOrderNumber(""), std::nullopt);
  ExpectNoOrderMessage();
}

TEST_F(OrderLookUpTest, GivesNothingForAnOrderThatIsGone) {
  data_->Gives("GetData", TextRows("FBillNo", {}));
  EXPECT_EQ(LookUpOrderNumber(""), std::nullopt);
  data_->Gives("GetData", nullptr);
  EXPECT_EQ(LookUpOrderNumber(""), std::nullopt);
  EXPECT_THAT(toolkit_->boxes, IsEmpty());
}

TEST_F(OrderLookUpTest, FailsWithoutAWord) {
  data_->Raises("GetData", kServerDown);
  EXPECT_EQ(LookUpOrderNumber(""), std::nullopt);
  control_->Raises("Selected", kServerDown);
  EXPECT_EQ(LookUpOrderNumber(""), std::nullopt);
  store_->Raises("DelProperty", kServerDown);
  EXPECT_EQ(LookUpOrderNumber(""), std::nullopt);
  runtime_.Register("ORVList.ICList", []() -> ObjectRef { throw kServerDown; });
  EXPECT_EQ(LookUpOrderNumber(""), std::nullopt);
  EXPECT_THAT(toolkit_->boxes, IsEmpty());
}

TEST_F(OrderLookUpTest, OpensNoListWhereTheSwitchFileDoesNotWork) {
  connection_->Raises("Open", kServerDown);
  EXPECT_EQ(LookUpOrderNumber(""), std::nullopt);
  EXPECT_THAT(control_->Calls(), IsEmpty());
  EXPECT_THAT(store_->Calls(), IsEmpty());
  // The switch file tells it itself.
  ASSERT_EQ(toolkit_->boxes.size(), 1U);
  EXPECT_EQ(toolkit_->boxes[0].title, "青岚提示");
}

TEST_F(OrderLookUpTest, ServesOtherListsOfBills) {
  const FakeRef shop = RegisterFake(runtime_, "ORVMShopRpt.Data");
  shop->Gives("GetData", TextRows("FBillNo", {"WO-1"}));
  constexpr BillList kWorkOrders{36, "ORVMShopRpt.Data", "Select FBillNo From ICMO Where FInterID="};
  EXPECT_EQ(LookUpBillNumber(kWorkOrders, ""), "WO-1");
  EXPECT_THAT(Given("ListID"), ElementsAre(Variant(36)));
  EXPECT_EQ(store_->Calls().at(0).arguments[1], Variant(36));
  EXPECT_EQ(shop->Calls().at(0).arguments, (Values{kProps, "Select FBillNo From ICMO Where FInterID=7"}));
}

// --- The login

TEST_F(LookUpTest, BuildsTheLoginOfTheList) {
  EXPECT_EQ(ListBaseInfo(), "PROVIDER=x;UID=sa|16394|abc");
  LogIn(runtime_, "UserID=1;a={first};b={second}", "it's me");
  EXPECT_EQ(ListBaseInfo(), "first|1|it's me");
  LogIn(runtime_, "a={open;UserID=2", "x");
  EXPECT_EQ(ListBaseInfo(), "open;UserID=2|2|x");
  LogIn(runtime_, "UserName=x", "x");
  EXPECT_EQ(ListBaseInfo(), "||x");
  LogIn(runtime_, "}a={b}", "");
  EXPECT_EQ(ListBaseInfo(), "b||");
}

// --- Batches

class BatchLookUpTest : public LookUpTest {
 protected:
  BatchLookUpTest() {
    list_->OnAssign("KeyWord", [](Arguments) { return Variant(); });
    list_->OnAssign("Filter", [](Arguments) { return Variant(); });
    list_->Gives("Show", TextRows("FBatchNo", {"B-1", "B-2"}));
  }
  // The condition that the list was given last.
  [[nodiscard]] std::string Condition() const {
    std::string condition;
    for (const RecordedCall& call : list_->Calls()) {
      if (call.member == "Filter") condition = call.arguments[0].ToText();
    }
    return condition;
  }
  FakeRef list_ = RegisterFake(runtime_, "ORVBaseList.BaseList");
};

TEST_F(BatchLookUpTest, GivesTheBatchChosen) {
  EXPECT_EQ(LookUpBatchNumber("", ""), "B-1");
  EXPECT_EQ(list_->CalledMembers(), (Names{"KeyWord", "Filter", "Show"}));
  EXPECT_EQ(list_->Calls()[0].arguments, Values{""});
  EXPECT_EQ(list_->Calls()[2].arguments, (Values{4, 0}));
  EXPECT_EQ(toolkit_->messages_run, 1);
}

TEST_F(BatchLookUpTest, IsNarrowedByTheItems) {
  LookUpBatchNumber("", "");
  EXPECT_EQ(Condition(), " FBatchNo>''");
  LookUpBatchNumber("01", "");
  EXPECT_EQ(Condition(), " FItemID In (Select FItemID From t_ICItem Where  FNumber>='01') and FBatchNo>''");
  LookUpBatchNumber("", "02");
  EXPECT_EQ(Condition(), " FItemID In (Select FItemID From t_ICItem Where  FNumber<='02') and FBatchNo>''");
  LookUpBatchNumber("0'1", "02");
  EXPECT_EQ(Condition(),
            " FItemID In (Select FItemID From t_ICItem Where  FNumber>='0''1' AND FNumber<='02')"
            " and FBatchNo>''");
}

TEST_F(BatchLookUpTest, ComparesTheCodeInUse) {
  use_short_number_ = 1;
  LookUpBatchNumber("1", "2");
  EXPECT_EQ(Condition(),
            " FItemID In (Select FItemID From t_ICItem Where  FShortNumber>='1' AND FShortNumber<='2')"
            " and FBatchNo>''");
}

TEST_F(BatchLookUpTest, GivesNothingWhereTheUserCancelsOrTheListFails) {
  list_->Gives("Show", nullptr);
  EXPECT_EQ(LookUpBatchNumber("", ""), std::nullopt);
  list_->Gives("Show", TextRows("FBatchNo", {}));
  EXPECT_EQ(LookUpBatchNumber("", ""), std::nullopt);
  list_->Raises("Show", kServerDown);
  EXPECT_EQ(LookUpBatchNumber("", ""), std::nullopt);
  list_->Gives("Show", TextRows("FOther", {"x"}));
  EXPECT_EQ(LookUpBatchNumber("", ""), std::nullopt);
  EXPECT_THAT(toolkit_->boxes, IsEmpty());
}

}  // namespace
}  // namespace salerpt
