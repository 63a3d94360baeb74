// Which statements are reads of system settings.
#include <gtest/gtest.h>

#include "shell/recorded/profile_select.h"

namespace salerpt::shell {
namespace {

TEST(ProfileSelect, ReadsCategoryAndKeyWithoutRegardToCase) {
  const auto select =
      ParseProfileSelect("select * from t_systemprofile where FCategory='IC' and fkey ='SecUnit'");
  ASSERT_TRUE(select);
  EXPECT_TRUE(select->Matches("IC/SecUnit"));
  EXPECT_TRUE(select->Matches("ic/SECUNIT"));
  EXPECT_FALSE(select->Matches("GL/SecUnit"));
  EXPECT_FALSE(select->Matches("IC/SecUnit2"));
}

TEST(ProfileSelect, ReadsAListOfKeys) {
  const auto select = ParseProfileSelect(
      "Select FValue,FKey From t_SystemProfile Where FCategory='IC' And FKey "
      "In('POOrderTaxInPrice','PurTaxRateOption')");
  ASSERT_TRUE(select);
  EXPECT_TRUE(select->Matches("IC/PurTaxRateOption"));
  EXPECT_FALSE(select->Matches("IC/UseShortNumber"));
}

TEST(ProfileSelect, ReadsDoubledApostrophes) {
  const auto select = ParseProfileSelect("select FValue from t_systemprofile where FKey='it''s'");
  ASSERT_TRUE(select);
  EXPECT_TRUE(select->Matches("IC/it's"));
  EXPECT_FALSE(select->Matches("IC/it"));
}

TEST(ProfileSelect, TakesEveryKeyOfACategoryAndEveryRow) {
  EXPECT_TRUE(ParseProfileSelect("select * from t_systemprofile where FCategory='IC'")->Matches("IC/Any"));
  EXPECT_TRUE(ParseProfileSelect("select * from t_systemprofile")->Matches("GL/Any"));
}

TEST(ProfileSelect, LeavesOtherStatementsAlone) {
  for (const char* sql :
       {"", "select", "select * from t_currency", "update t_systemprofile set FValue=1",
        "select * from t_systemprofile t1 inner join t_item t2 on 1=1",
        "select * from t_systemprofile where FValue='1'", "select * from t_systemprofile where FKey=1",
        "select * from t_systemprofile where FKey in('a'",
        "select * from t_systemprofile where FCategory in('a','b')",
        "select * from t_systemprofile where FKey='a' or FKey='b'"}) {
    EXPECT_FALSE(ParseProfileSelect(sql)) << sql;
  }
}

}  // namespace
}  // namespace salerpt::shell
