// The small objects: each member, and how it fails.
#include <sqlite3.h>

#include "runtime/mmts.h"
#include "runtime/mparse.h"
#include "runtime/mrpt.h"
#include "tests/runtime/error_check.h"
#include "tests/suite/middletier/company.h"

namespace salerpt::middletier {
namespace {

using testing::ElementsAre;

// --- Registration and login

TEST_F(CompanyTest, EveryObjectIsMadeByItsProgIdWithoutRegardToCase) {
  for (const char* prog_id : {"ORVPropsMgr.ShareProps", "ORVEBSBase.SystemProfile", "ORVMReport.ClsReport",
                              "ORVConnection.AppConnection", "ORVEBCGLView.GLData", "ORVEBSGLItem.ItemInfo",
                              "ORVMPurchaseRpt.Data", "ORVMCaculateRpt.Data", "ORVMSaleRpt.Data",
                              "ORVListServer.clsListServer", "ORVMClass.ClassInfo", "ORVMShopRpt.Data"}) {
    EXPECT_EQ(CreateObject(prog_id)->ClassName(), prog_id);
    EXPECT_EQ(CreateObject(UpperCase(prog_id))->ClassName(), prog_id);
  }
}

TEST_F(CompanyTest, AnUnknownMemberIsRefusedByName) {
  const auto error = RaisedBy([] { Call(CreateObject("ORVMReport.ClsReport"), "GetRows", "", ""); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Number(), error_number::kNoSuchMember);
  EXPECT_THAT(error->Description(), testing::HasSubstr("GetRows"));
}

TEST_F(CompanyTest, AMissingArgumentIsRefused) {
  EXPECT_TRUE(RaisedBy([] { Call(CreateObject("ORVMReport.ClsReport"), "GetRsBySQL", ""); }));
}

TEST(RegisterMiddleTier, RefusesToWorkWithoutAnAccountSet) {
  Runtime runtime;
  EXPECT_EQ(NumberRaisedBy([&] { RegisterMiddleTier(runtime, nullptr, Login{}); }),
            error_number::kInvalidCall);
  EXPECT_FALSE(runtime.IsRegistered("ORVMSaleRpt.Data"));
}

TEST_F(CompanyTest, AUserNumberThatTheLibraryCannotReadIsRefused) {
  for (const std::int32_t user_id : {0, -1, 32768}) {
    Login login;
    login.user_id = user_id;
    EXPECT_THAT(DescriptionRaisedBy([&] { RegisterMiddleTier(runtime_, account_set_, login); }),
                testing::HasSubstr(std::to_string(user_id)));
  }
}

// --- ORVPropsMgr.ShareProps

TEST_F(CompanyTest, ThePropertyStringNamesUserAccountSetAndLanguage) {
  const PropertyCollection properties(GetPropsString());
  EXPECT_EQ(properties.Get("UserID"), "16394");
  EXPECT_EQ(properties.Get("UserName"), "Administrator");
  EXPECT_EQ(properties.Get("LANGUAGE"), "chs");
  EXPECT_EQ(properties.Get("ConnectString"), "Provider=SQLite;Data Source=" + account_set_->Path().string());
}

TEST_F(CompanyTest, AUserNameWithASemicolonStaysWholeInThePropertyString) {
  Login login;
  login.user_name = "a;b=c";
  RegisterMiddleTier(runtime_, account_set_, login);
  EXPECT_EQ(PropertyCollection(GetPropsString()).Get("UserName"), "a;b=c");
  EXPECT_EQ(GetUserName(), "a;b=c");
}

TEST_F(CompanyTest, AUserNameThatNoPropertyStringCanHoldIsRefused) {
  Login login;
  login.user_name = "a}b";
  EXPECT_THAT(DescriptionRaisedBy([&] { RegisterMiddleTier(runtime_, account_set_, login); }),
              testing::HasSubstr("a}b"));
}

TEST_F(CompanyTest, APropertyThatTheStoreDoesNotHoldIsEmpty) {
  EXPECT_TRUE(GetSharedProperty("nosuchname").IsEmpty());
}

TEST_F(CompanyTest, AnotherProcessHasNoProperties) {
  const std::int32_t other = runtime_.GetPlatform().ProcessID() + 1;
  EXPECT_TRUE(Call(CreateObject("ORVPropsMgr.ShareProps"), "GetProperty", other, "UserName").IsEmpty());
}

TEST_F(CompanyTest, ADeletedPropertyComesBackByReferenceAndIsGoneForAllObjects) {
  const std::int32_t process = runtime_.GetPlatform().ProcessID();
  Variant value;
  Call(CreateObject("ORVPropsMgr.ShareProps"), "DelProperty", process, 2, value);
  EXPECT_EQ(value, Variant("Administrator"));
  EXPECT_TRUE(GetSharedProperty("UserName").IsEmpty());
  EXPECT_FALSE(GetSharedProperty("PropsString").IsEmpty());
}

TEST_F(CompanyTest, DeletingAPropertyThatIsNotThereGivesEmpty) {
  Variant value = "before";
  Call(CreateObject("ORVPropsMgr.ShareProps"), "DelProperty", runtime_.GetPlatform().ProcessID(), 99, value);
  EXPECT_TRUE(value.IsEmpty());
}

// --- ORVEBSBase.SystemProfile, ORVConnection.AppConnection, ORVMPurchaseRpt.Data

Variant Profile(std::string_view category, std::string_view key) {
  return Call(CreateObject("ORVEBSBase.SystemProfile"), "GetProfile", "", category, key);
}

TEST_F(CompanyTest, AProfileValueIsFoundWithoutRegardToCase) {
  EXPECT_EQ(Profile("GL", "PeriodCount"), Variant("12"));
  EXPECT_EQ(Profile("gl", "PERIODCOUNT"), Variant("12"));
}

TEST_F(CompanyTest, AProfileWithoutRowOrWithoutValueIsNull) {
  EXPECT_TRUE(Profile("GL", "NoSuchKey").IsNull());
  EXPECT_TRUE(Profile("NoSuch", "PeriodCount").IsNull());
  EXPECT_TRUE(Profile("IC", "Remark").IsNull());
}

TEST_F(CompanyTest, AnApostropheInAProfileKeyIsPartOfTheKey) {
  Sql("INSERT INTO t_SystemProfile(FCategory,FKey,FValue) VALUES ('X','it''s','1')");
  EXPECT_EQ(Profile("X", "it's"), Variant("1"));
}

TEST_F(CompanyTest, TheLibraryReadsItsParametersThroughTheObjects) {
  EXPECT_EQ(GetMaxPeriod(), 12);
  EXPECT_DOUBLE_EQ(GetTaxRate(), 0.17);
  EXPECT_TRUE(IsLongNumber());
  EXPECT_EQ(AmountScale(), 2);
  EXPECT_EQ(ReadSystemProfile("IC", "UseShortNumber", "1"), "0");
  EXPECT_EQ(ReadSystemProfile("IC", "Remark", "absent"), "");
  EXPECT_EQ(ReadSystemProfile("IC", "NoSuchKey", "absent"), "absent");
}

// --- SQL: ORVMReport.ClsReport, ORVMClass.ClassInfo, ORVListServer.clsListServer

TEST_F(CompanyTest, RowsComeBackOnTheirFirstRow) {
  const RecordsetRef rows = GetRsBySQL("Select FItemID,FName From t_ICItem Order By FItemID Desc");
  EXPECT_EQ(rows->RecordCount(), 3);
  EXPECT_EQ(rows->Value("FItemID"), Variant(103));
  EXPECT_THAT(Cells(rows, "FName"), ElementsAre("O'Ring", "螺母", "螺栓"));
}

TEST_F(CompanyTest, AStatementWithoutRowsGivesASetThatWasNeverOpened) {
  const RecordsetRef rows = GetRsBySQL("Update t_ICItem Set FModel='M9' Where FItemID=101");
  EXPECT_FALSE(rows->IsOpen());
  EXPECT_EQ(NumberRaisedBy([&] { static_cast<void>(rows->RecordCount()); }), error_number::kClosedRecordset);
}

TEST_F(CompanyTest, AFailedStatementCarriesTheServersNumberAndWords) {
  const auto error =
      RaisedBy([] { Call(CreateObject("ORVMReport.ClsReport"), "GetRsBySQL", "", "Select * From t_No"); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Number(), 208);
  EXPECT_EQ(error->Source(), "ORVMReport.ClsReport:GetRsBySQL");
  EXPECT_EQ(error->Description(), "Invalid object name 't_No'.");
}

TEST_F(CompanyTest, ExecSqlChangesTheAccountSet) {
  ExecuteSQL("Update t_ICItem Set FModel='M9' Where FItemID=101");
  EXPECT_THAT(Cells(Query("Select FModel From t_ICItem Where FItemID=101"), "FModel"), ElementsAre("M9"));
}

TEST_F(CompanyTest, ATemporaryTableEndsWithItsCall) {
  ExecuteSQL("Create Table #kept(FID int)");
  ExpectNoTable("#kept");
}

TEST_F(CompanyTest, ATemporaryTableOfAFailedCallIsGoneToo) {
  EXPECT_EQ(NumberRaisedBy(
                [] { ExecuteSQL("Create Table #kept(FID int) Insert Into #kept Select FID From t_No"); }),
            208);
  ExpectNoTable("#kept");
}

TEST_F(CompanyTest, AnAccountSetThatAnotherProgramWritesToIsToldAsAnError) {
  const accountset::AccountSet other = OpenAgain();
  ASSERT_EQ(sqlite3_exec(other.Connection(), "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
  sqlite3_busy_timeout(account_set_->Connection(), 0);
  const auto error = RaisedBy([] { ExecuteSQL("Update t_ICItem Set FModel='M9'"); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Source(), "ORVMReport.ClsReport:ExecuteSQL");
  EXPECT_THAT(error->Description(), testing::HasSubstr("Lock request time out period exceeded."));
  ASSERT_EQ(sqlite3_exec(other.Connection(), "ROLLBACK", nullptr, nullptr, nullptr), SQLITE_OK);
  ExecuteSQL("Update t_ICItem Set FModel='M9'");
}

TEST_F(CompanyTest, TheFreeReadsAllGiveRows) {
  constexpr const char* kSql = "Select FName From t_Emp Order By FItemID";
  for (const char* prog_id : {"ORVMClass.ClassInfo", "ORVMPurchaseRpt.Data", "ORVMShopRpt.Data"}) {
    EXPECT_THAT(Cells(As<Recordset>(Call(CreateObject(prog_id), "GetData", kProps, kSql)), "FName"),
                ElementsAre("周明", "吴芳"));
  }
  EXPECT_THAT(
      Cells(As<Recordset>(Call(CreateObject("ORVConnection.AppConnection"), "Execute", kSql)), "FName"),
      ElementsAre("周明", "吴芳"));
  EXPECT_THAT(Cells(As<Recordset>(Call(CreateObject("ORVListServer.clsListServer"), "Users_GetDataFreely",
                                       kProps, kSql, -1)),
                    "FName"),
              ElementsAre("周明", "吴芳"));
}

TEST_F(CompanyTest, TheListServerReadsAllRowsOrNone) {
  EXPECT_EQ(NumberRaisedBy([] {
              Call(CreateObject("ORVListServer.clsListServer"), "Users_GetDataFreely", kProps, "Select 1",
                   10);
            }),
            error_number::kInvalidCall);
}

// --- ORVEBCGLView.GLData, ORVEBSGLItem.ItemInfo

TEST_F(CompanyTest, AFieldRightIsDeniedOnlyByARowForThisUser) {
  Sql("INSERT INTO t_FieldRight(FUserID,FSubSysID,FObjectID,FRight,FAllowed) VALUES "
      "(16394,1008,2,4,0),(16394,1008,2,16,1),(16395,1008,6,4,0)");
  EXPECT_FALSE(AccessCheck(1008, 2, 4));
  EXPECT_TRUE(AccessCheck(1008, 2, 16));
  EXPECT_TRUE(AccessCheck(1008, 6, 4));
  EXPECT_TRUE(AccessCheck(1099, 15, 0x200000));
}

TEST_F(CompanyTest, ALogLineTellsWhenWhoAndWhat) {
  WriteLog("SysRptLog0017", 3, "销售出库汇总表查询");
  WriteLog("SysRptLog0018", 3, "it's");
  const RecordsetRef rows = Query("Select FDate,FUserID,FKey,FKind,FDescription From t_Log Order By FLogID");
  ASSERT_EQ(rows->RecordCount(), 2);
  EXPECT_EQ(rows->Value("FUserID"), Variant(16394));
  EXPECT_EQ(rows->Value("FKey"), Variant("SysRptLog0017"));
  EXPECT_EQ(rows->Value("FKind"), Variant(3));
  EXPECT_EQ(rows->Value("FDescription"), Variant("销售出库汇总表查询"));
  EXPECT_GT(rows->Value("FDate").ToDate(), Date::FromYmd(2020, 1, 1));
  rows->MoveNext();
  EXPECT_EQ(rows->Value("FDescription"), Variant("it's"));
}

TEST_F(CompanyTest, ADataRightIsInForceOnlyForItsUserAndKind) {
  Sql("INSERT INTO t_DataRight(FUserID,FKind,FUsed) VALUES (16394,1,1),(16394,2,0),(16395,4,1)");
  const auto in_force = [](std::int32_t user, std::int32_t kind) {
    return Call(CreateObject("ORVEBSGLItem.ItemInfo"), "GetDataRight", kProps, user, kind).ToBoolean();
  };
  EXPECT_TRUE(in_force(16394, 1));
  EXPECT_FALSE(in_force(16394, 2));
  EXPECT_FALSE(in_force(16394, 4));
  EXPECT_TRUE(in_force(16395, 4));
  EXPECT_FALSE(in_force(1, 1));
}

}  // namespace
}  // namespace salerpt::middletier
