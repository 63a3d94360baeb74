// What the suite keeps for itself.
#include "suite/accountset/schema.h"

namespace salerpt::accountset {

// t_RptPlan: the stored plans of a report family; FStatus 1 marks the chosen one, FNextChoose 1 the one to
// run without a dialog. t_RptPlanValue: their values, one row per key, in the order of saving. t_DataRight:
// for which users and kinds (1 customer, 2 supplier, 4 stock) the lists in FRightUserID are in force.
// t_FieldRight: what AccessCheck(a,b,c) denies; a combination without a row is allowed.
const char* const kSuiteTables = R"sql(
CREATE TABLE t_SystemProfile(
  FCategory VARCHAR(30) COLLATE NOCASE NOT NULL, FKey VARCHAR(80) COLLATE NOCASE NOT NULL,
  FValue VARCHAR(255) COLLATE NOCASE, FExplanation VARCHAR(255) COLLATE NOCASE, PRIMARY KEY(FCategory, FKey))
  WITHOUT ROWID;
CREATE TABLE t_User(
  FUserID INTEGER PRIMARY KEY, FName VARCHAR(80) COLLATE NOCASE NOT NULL, FForbidden BIT NOT NULL DEFAULT 0);
CREATE TABLE t_DataRight(
  FUserID INT NOT NULL, FKind INT NOT NULL, FUsed BIT NOT NULL DEFAULT 0, PRIMARY KEY(FUserID, FKind)) WITHOUT ROWID;
CREATE TABLE t_FieldRight(
  FUserID INT NOT NULL, FSubSysID INT NOT NULL, FObjectID INT NOT NULL, FRight INT NOT NULL,
  FAllowed BIT NOT NULL DEFAULT 1, PRIMARY KEY(FUserID, FSubSysID, FObjectID, FRight)) WITHOUT ROWID;
CREATE TABLE t_UserProfile(
  FUserID INT NOT NULL, FProfile VARCHAR(80) COLLATE NOCASE NOT NULL, FSection VARCHAR(80) COLLATE NOCASE NOT NULL,
  FKey VARCHAR(80) COLLATE NOCASE NOT NULL, FValue VARCHAR(2000),
  PRIMARY KEY(FUserID, FProfile, FSection, FKey)) WITHOUT ROWID;
CREATE TABLE t_RptPlan(
  FUserID INT NOT NULL, FRptID INT NOT NULL, FPlan VARCHAR(255) COLLATE NOCASE NOT NULL,
  FStatus SMALLINT NOT NULL DEFAULT 0, FNextChoose SMALLINT NOT NULL DEFAULT 0,
  PRIMARY KEY(FUserID, FRptID, FPlan)) WITHOUT ROWID;
CREATE TABLE t_RptPlanValue(
  FUserID INT NOT NULL, FRptID INT NOT NULL, FPlan VARCHAR(255) COLLATE NOCASE NOT NULL,
  FIndex INT NOT NULL, FKey VARCHAR(80) COLLATE NOCASE NOT NULL, FValue VARCHAR(2000),
  PRIMARY KEY(FUserID, FRptID, FPlan, FKey)) WITHOUT ROWID;
CREATE TABLE t_Log(
  FLogID INTEGER PRIMARY KEY, FDate DATETIME NOT NULL, FUserID INT NOT NULL, FKey VARCHAR(80) COLLATE NOCASE NOT NULL,
  FKind INT NOT NULL, FDescription VARCHAR(2000) COLLATE NOCASE);
)sql";

}  // namespace salerpt::accountset
