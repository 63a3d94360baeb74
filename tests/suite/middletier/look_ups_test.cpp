// The look-ups over the master data, the lists of bills, and the small objects of the dialogs.
#include "runtime/base_data.h"
#include "runtime/list_form.h"
#include "runtime/mrpt.h"
#include "tests/runtime/error_check.h"
#include "tests/suite/middletier/company.h"
#include "tests/suite/middletier/order_company.h"

namespace salerpt::middletier {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// A user who notes what he is offered, and picks the row of `pick`.
class LookUpsTest : public OrderCompanyTest {
 protected:
  LookUpsTest() { Register(kLoginUser); }

  void Register(std::int32_t user) {
    Login login;
    login.user_id = user;
    RegisterMiddleTier(runtime_, account_set_, login, {}, [this](const Candidates& candidates) {
      title_ = candidates.list.title;
      search_ = candidates.search;
      const bool is_master = candidates.list.rows->FindField("FNumber") >= 0;
      offered_ = Cells(candidates.list.rows, is_master ? "FNumber" : "FBillNo");
      return pick_;
    });
    runtime_.gl_view = nullptr;
    runtime_.gl_data = nullptr;
  }
  // With nobody to be asked.
  void RegisterAlone() {
    RegisterMiddleTier(runtime_, account_set_, Login{});
    runtime_.gl_view = nullptr;
  }
  static constexpr std::int32_t kLoginUser = accountset::kLoginUser;

  // The long code of what was picked; "" where nothing was.
  static std::string Picked(std::int32_t item_class, std::string_view search,
                            std::string_view condition = "") {
    const ObjectRef look_up = LookupBaseData(item_class, search, condition, 1);
    if (!look_up) return {};
    return GetMember(GetMember(look_up, "ReturnObject").ToObject(), "Number").ToText();
  }

  std::optional<std::int32_t> pick_;
  std::string title_;
  std::string search_;
  std::vector<std::string> offered_;
};

TEST_F(LookUpsTest, AllOfAClassIsOfferedByCode) {
  EXPECT_EQ(Picked(4, ""), "");
  EXPECT_EQ(title_, "物料");
  EXPECT_THAT(offered_, ElementsAre("01.01", "01.02", "01.03", "02.01"));
  runtime_.gLongNumber = false;
  EXPECT_EQ(Picked(4, ""), "");
  EXPECT_THAT(offered_, ElementsAre("02.01", "01.02", "01.03", "01.01"));
}

TEST_F(LookUpsTest, ASearchFindsCodesShortCodesAndNamesInAnyCase) {
  Picked(4, "01.");
  EXPECT_THAT(offered_, ElementsAre("01.01", "01.02", "01.03"));
  EXPECT_EQ(search_, "01.");
  Picked(4, "9");
  EXPECT_THAT(offered_, ElementsAre("01.01"));
  Picked(4, "螺");
  EXPECT_THAT(offered_, ElementsAre("01.01", "01.02"));
  Picked(4, "o'ring");
  EXPECT_THAT(offered_, ElementsAre("01.03"));
  Picked(4, "%");
  EXPECT_THAT(offered_, IsEmpty());
}

TEST_F(LookUpsTest, AConditionNarrowsTheList) {
  pick_ = 0;
  EXPECT_EQ(Picked(4, "", " x2.FErpClsID <>1 "), "01.01");
  EXPECT_THAT(offered_, ElementsAre("01.01", "02.01"));
  EXPECT_EQ(Picked(4, "安", " x2.FErpClsID <>1 "), "02.01");
}

TEST_F(LookUpsTest, ADeletedRowIsNotOffered) {
  Sql("UPDATE t_Emp SET FDeleted=1 WHERE FItemID=301");
  Picked(3, "");
  EXPECT_THAT(offered_, ElementsAre("E.02"));
}

constexpr const char* kAuxiliaryClasses =
    "INSERT INTO t_SubMessage(FInterID,FTypeID,FID,FName,FDeleted) VALUES (100,101,'FXF01','现销',0),"
    "(99,101,'FXF00','易货',1),(2801,28,'KH01','重点客户',0),(2901,29,'ZY01','内销业务员',0),"
    "(2902,29,'ZY02','外销业务员',0)";

TEST_F(LookUpsTest, EveryClassHasItsList) {
  Sql(kAuxiliaryClasses);
  pick_ = 0;
  EXPECT_EQ(Picked(1, ""), "C.01");
  EXPECT_EQ(Picked(2, ""), "D.01");
  EXPECT_EQ(Picked(3, ""), "E.01");
  EXPECT_EQ(Picked(10, ""), "B.01");
  EXPECT_EQ(Picked(7, "", "1"), "01");
  EXPECT_THAT(offered_, ElementsAre("01", "02"));
  EXPECT_EQ(Picked(12, "美"), "USD");
  EXPECT_EQ(Picked(101, ""), "FXF01");
  pick_.reset();
  for (const std::int32_t item_class : {5, 8, 2014, 501, 30}) {
    title_.clear();
    EXPECT_EQ(Picked(item_class, ""), "");
    EXPECT_NE(title_, "") << item_class;
  }
}

TEST_F(LookUpsTest, ClassesOfCustomersAndOfEmployeesAreAuxiliaryClasses) {
  Sql(kAuxiliaryClasses);
  pick_ = 0;
  EXPECT_EQ(Picked(501, ""), "KH01");
  EXPECT_EQ(Picked(30, "ZY02"), "ZY02");
}

TEST_F(LookUpsTest, AccountsAndSettlementsHaveNothingToPickFrom) {
  pick_ = 0;
  EXPECT_EQ(Picked(13, ""), "");
  EXPECT_EQ(Picked(130, ""), "");
  EXPECT_EQ(title_, "");
}

TEST_F(LookUpsTest, ThePickedRowTellsItsProperties) {
  pick_ = 1;
  const ObjectRef look_up = LookupBaseData(12, "", "", 1);
  ASSERT_TRUE(look_up);
  EXPECT_TRUE(GetMember(look_up, "returnok").ToBoolean());
  const ObjectRef picked = GetMember(look_up, "ReturnObject").ToObject();
  EXPECT_EQ(GetMember(picked, "Number"), Variant("USD"));
  EXPECT_EQ(GetMember(picked, "ItemID"), Variant(2));
  EXPECT_EQ(Call(picked, "Properties", "FShortNumber"), Variant("USD"));
  EXPECT_EQ(Call(picked, "Properties", "FName"), Variant("美元"));
  EXPECT_EQ(Call(picked, "Properties", "FCurrencyID"), Variant(2));
  EXPECT_EQ(Call(picked, "Properties", "FExchangeRate"), Variant(7.0));
  EXPECT_EQ(Call(picked, "Properties", "FRate"), Variant(1.0));
  EXPECT_THAT(DescriptionRaisedBy([&] { Call(picked, "Properties", "FNone"); }), HasSubstr("FNone"));
}

TEST_F(LookUpsTest, ThePickedItemTellsBothItsCodes) {
  pick_ = 0;
  const ObjectRef look_up = LookupBaseData(4, "螺栓", "", 1);
  const ObjectRef picked = GetMember(look_up, "ReturnObject").ToObject();
  EXPECT_EQ(GetMember(picked, "Number"), Variant("01.01"));
  EXPECT_EQ(Call(picked, "Properties", "FShortNumber"), Variant("9"));
  EXPECT_EQ(Call(picked, "Properties", "FItemID"), Variant(101));
}

TEST_F(LookUpsTest, WithoutOptionsTheClassesAreOffered) {
  Sql("INSERT INTO t_Item(FItemID,FItemClassID,FLevel,FDetail,FNumber,FFullNumber,FShortNumber,FName) "
      "VALUES (901,4,1,0,'01','01','01','紧固件'),(101,4,2,1,'01.01','01.01','9','螺栓')");
  pick_ = 0;
  const ObjectRef look_up = Call(GLViewObject(), "ItemLookUp", std::int16_t{4}).ToObject();
  EXPECT_TRUE(GetMember(look_up, "returnok").ToBoolean());
  EXPECT_EQ(GetMember(GetMember(look_up, "ReturnObject").ToObject(), "ItemID"), Variant(901));
  EXPECT_THAT(offered_, ElementsAre("01"));
  pick_.reset();
  EXPECT_FALSE(
      GetMember(Call(GLViewObject(), "ItemLookUp", std::int16_t{4}).ToObject(), "returnok").ToBoolean());
}

TEST_F(LookUpsTest, NobodyIsOfferedWhatHeMayNotSee) {
  Sql("INSERT INTO t_DataRight(FUserID,FKind,FUsed) VALUES (16395,1,1),(6395,1,1)");
  Picked(1, "");
  EXPECT_THAT(offered_, ElementsAre("C.01", "C.02", "C.O'3"));
  Register(16395);
  Picked(1, "");
  EXPECT_THAT(offered_, ElementsAre("C.01", "C.02"));
  Register(6395);
  Picked(1, "");
  EXPECT_THAT(offered_, IsEmpty());
}

TEST_F(LookUpsTest, ARowThatIsNotThereIsRefused) {
  pick_ = 4;
  EXPECT_EQ(
      NumberRaisedBy([] { Call(GLViewObject(), "ItemLookUp", 4, "", "", std::make_shared<Dictionary>()); }),
      error_number::kSubscript);
}

TEST_F(LookUpsTest, WithNobodyToAskOnlyWhatIsPlainIsPicked) {
  RegisterAlone();
  EXPECT_EQ(Picked(4, "01.02"), "01.02");
  EXPECT_EQ(Picked(4, "5"), "01.02");
  EXPECT_EQ(Picked(4, "螺栓"), "01.01");
  EXPECT_EQ(Picked(4, "02"), "");
  EXPECT_EQ(Picked(4, "螺"), "");
  EXPECT_EQ(Picked(4, "none"), "");
  EXPECT_EQ(Picked(4, ""), "");
  Sql("UPDATE t_ICItem SET FName='9' WHERE FItemID=102");
  EXPECT_EQ(Picked(4, "9"), "");
}

// --- ORVBaseList.BaseList

TEST_F(LookUpsTest, ABaseListGivesThePickedRowAlone) {
  EXPECT_EQ(ShowBaseList(3, "", ""), nullptr);
  pick_ = 1;
  const RecordsetRef rows = ShowBaseList(3, "E.", " FItemID>0");
  ASSERT_TRUE(rows);
  EXPECT_EQ(rows->RecordCount(), 1);
  EXPECT_EQ(rows->Value("FName"), Variant("吴芳"));
}

TEST_F(LookUpsTest, ABaseListOfItemsListsBatchesWhereItIsAskedForThem) {
  Sql("INSERT INTO ICInventory(FItemID,FBatchNo,FStockID,FQty) "
      "VALUES (101,'B1',1,0),(101,'B1',2,5),(101,'B2',1,5),(102,'B3',1,1),(103,'',1,1)");
  pick_ = 1;
  const RecordsetRef rows = ShowBaseList(
      4, "",
      " FItemID In (Select FItemID From t_ICItem Where  FNumber>='01.01' AND FNumber<='01.01') and "
      "FBatchNo>''");
  ASSERT_TRUE(rows);
  EXPECT_THAT(offered_, ElementsAre("01.01", "01.01"));
  EXPECT_EQ(rows->Value("FBatchNo"), Variant("B2"));
  ASSERT_TRUE(ShowBaseList(4, "", " FBatchNo>''"));
  EXPECT_THAT(offered_, ElementsAre("01.01", "01.01", "01.02"));
}

// --- ORVList.ICList

TEST_F(LookUpsTest, TheListOfOrdersGivesWhatTheUserPicked) {
  ListForm form;
  form.SetListID(32);
  form.SetFilter(" FBillNo Like '%E00%'");
  form.SetMultiSelect(false);
  form.InitData();
  ASSERT_TRUE(form.OK());
  EXPECT_EQ(form.Caption(), "销售订单序时簿");
  form.Activate();
  pick_ = 2;
  form.OnAction("SelectOK");
  EXPECT_TRUE(form.OK());
  EXPECT_THAT(offered_, ElementsAre("SE001", "SE002", "SE003", "SE004", "SE005", "SE006"));
  ASSERT_EQ(form.Selected()->Size(), 1);
  const ObjectRef row = form.Selected()->Item(1).ToObject();
  EXPECT_EQ(GetMember(Call(row, "Item", "FInterID").ToObject(), "Value"), Variant(3));
  EXPECT_EQ(NumberRaisedBy([&] { Call(row, "Item", "FNone"); }), error_number::kNoSuchField);
}

TEST_F(LookUpsTest, AWindowMarksRowsItself) {
  ListForm form;
  form.SetListID(32);
  form.InitData();
  form.SelectFlag(0);
  form.SelectFlag(4);
  EXPECT_EQ(form.Selected()->Size(), 1);
  form.SetMultiSelect(true);
  form.SelectFlag(1);
  form.SelectFlag(1);
  EXPECT_EQ(form.Selected()->Size(), 2);
  EXPECT_EQ(title_, "");
  EXPECT_EQ(NumberRaisedBy([&] { form.SelectFlag(6); }), error_number::kSubscript);
}

TEST_F(LookUpsTest, AListThatTheUserLeavesHasNothingSelected) {
  ListForm form;
  form.SetListID(32);
  form.InitData();
  form.Activate();
  form.OnAction("SelectOK");
  EXPECT_TRUE(form.IsVisible());
  EXPECT_EQ(form.Selected()->Size(), 0);
}

TEST_F(LookUpsTest, AnUnknownListOrAWrongFilterDoesNotOpen) {
  ListForm unknown;
  unknown.SetListID(33);
  unknown.InitData();
  EXPECT_FALSE(unknown.OK());
  ListForm wrong;
  wrong.SetListID(32);
  wrong.SetFilter(" FNone=1");
  wrong.InitData();
  EXPECT_FALSE(wrong.OK());
}

TEST_F(LookUpsTest, TheListOfOrdersShowsRedBillsAloneAndHidesThoseOfHiddenCustomers) {
  Sql("UPDATE SEOrder SET FROB=-1 WHERE FInterID=5");
  ListForm red;
  red.SetROB(-1);
  red.SetListID(32);
  red.InitData();
  EXPECT_THAT(Cells(red.GetListRs(), "FBillNo"), ElementsAre("SE005"));
  EXPECT_EQ(red.ROB(), -1);
  Sql("INSERT INTO t_DataRight(FUserID,FKind,FUsed) VALUES (16395,1,1)");
  Register(16395);
  ListForm seen;
  seen.SetListID(32);
  seen.InitData();
  EXPECT_THAT(Cells(seen.GetListRs(), "FBillNo"), ElementsAre("SE001", "SE002", "SE004", "SE006"));
}

TEST_F(LookUpsTest, TheListOfProductionTasksGivesTheirNumbers) {
  Sql("INSERT INTO ICMO(FInterID,FBillNo,FItemID,FUnitID,FQty,FAuxQty) VALUES (91,'WO9',101,1,5,5)");
  ListForm form;
  form.SetListID(36);
  form.InitData();
  EXPECT_EQ(form.Caption(), "生产任务单序时簿");
  pick_ = 0;
  EXPECT_EQ(form.Selected()->Size(), 1);
  EXPECT_THAT(offered_, testing::Contains("WO9"));
}

// --- ORV_APFC.FrameData, ORVFrmRes.FrmResLoader, ORVBillDataAccess.SysInfo, ADODB.Connection

TEST_F(LookUpsTest, UseIsLogged) {
  const ObjectRef frame = CreateObject("ORV_APFC.FrameData");
  LetMember(frame, "PropString", kProps);
  EXPECT_EQ(GetMember(frame, "PropString"), Variant(kProps));
  Call(frame, "WriteMGLog", "C001C029", "it's");
  const RecordsetRef rows = Query("Select FUserID,FKey,FKind,FDescription From t_Log");
  ASSERT_EQ(rows->RecordCount(), 1);
  EXPECT_EQ(rows->Value("FUserID"), Variant(16394));
  EXPECT_EQ(rows->Value("FKey"), Variant("C001C029"));
  EXPECT_EQ(rows->Value("FKind"), Variant(0));
  EXPECT_EQ(rows->Value("FDescription"), Variant("it's"));
}

TEST_F(LookUpsTest, AFormStaysAsItIs) {
  Variant strings(std::make_shared<Dictionary>());
  const ObjectRef loader = CreateObject("ORVFrmRes.FrmResLoader");
  Call(loader, "SetFrmFont", nullptr, "chs");
  Call(loader, "LoadFrmResStrings", nullptr, "en", "Q7INDUSTRY", "", strings);
  EXPECT_THAT(As<Dictionary>(strings)->Entries(), IsEmpty());
}

TEST_F(LookUpsTest, BillsReadParametersAsTexts) {
  Sql("INSERT INTO t_SystemProfile(FCategory,FKey,FValue) VALUES ('IC','DoubleUnit','1')");
  const ObjectRef sys_info = CreateObject("ORVBillDataAccess.SysInfo");
  EXPECT_EQ(Call(sys_info, "GetSysValue", kProps, "IC", "DoubleUnit"), Variant("1"));
  EXPECT_EQ(Call(sys_info, "GetSysValue", kProps, "IC", "Remark"), Variant(""));
  EXPECT_EQ(Call(sys_info, "GetSysValue", kProps, "IC", "None"), Variant(""));
}

TEST_F(LookUpsTest, AConnectionToTheSwitchFileTellsHowItWasOpened) {
  const ObjectRef connection = CreateObject("ADODB.Connection");
  Call(connection, "Open", "PROVIDER=x;");
  EXPECT_EQ(GetMember(connection, "ConnectionString"), Variant("PROVIDER=x;"));
  Call(connection, "Close");
}

}  // namespace
}  // namespace salerpt::middletier
