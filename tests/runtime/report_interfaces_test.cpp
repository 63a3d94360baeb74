// The interfaces of the report classes. Hosts bind early: the order of the members is part of the interface.
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "error_check.h"
#include "runtime/report_interfaces.h"

namespace salerpt {
namespace {

std::string_view KindWord(InvokeKind kind) {
  switch (kind) {
    case InvokeKind::kMethod:
      return "";
    case InvokeKind::kGet:
      return " get";
    case InvokeKind::kLet:
    case InvokeKind::kSet:
      return " put";
  }
  return " ?";
}

// The members in their order, those of a property with the way of access behind them.
std::string Order(std::string_view class_name) {
  std::string order;
  for (const Member<Report>& member : InterfaceOf(class_name)) {
    if (!order.empty()) order += ", ";
    order += member.name;
    order += KindWord(member.kind);
  }
  return order;
}

const Member<Report>* Find(std::string_view class_name, std::string_view name) {
  for (const Member<Report>& member : InterfaceOf(class_name)) {
    if (member.name == name) return &member;
  }
  return nullptr;
}

struct Interface {
  std::string_view class_name;
  std::string_view order;
};

// --- The families

constexpr std::string_view kLists =
    "RptID get, RptID put, Filter get, Filter put, ExtFirter put, Property get, Result get, Header get, "
    "Title get, Rs get, Refresh, ShowFilter, GetReportData, GetRptList";
constexpr std::string_view kCredit =
    "RptID get, RptID put, PackMenuInfo, Filter get, Filter put, ExtFirter put, Property get, Result get, "
    "Header get, Title get, Rs get, Refresh, ShowFilter, GetReportData, GetRptList";
constexpr std::string_view kGrowth =
    "RptID get, RptID put, PackMenuInfo, ExtFirter put, Filter get, Filter put, Title get, Property get, "
    "Result get, Header get, Rs get, ShowFilter, Refresh, GetReportData";
constexpr std::string_view kFlowAndStructure =
    "RptID get, RptID put, PackMenuInfo, ExtFirter put, Title get, Filter get, Filter put, Property get, "
    "Result get, Header get, Rs get, ShowFilter, Refresh, GetReportData";
constexpr std::string_view kSummaries =
    "RptID get, RptID put, ExtFirter put, Filter get, Filter put, Title get, Property get, Result get, "
    "Header get, Rs get, GetDetailReport, ShowFilter, Refresh, GetReportData, GetRsBySQL";
constexpr std::string_view kSummariesWithoutSql =
    "RptID get, RptID put, ExtFirter put, Filter get, Filter put, Title get, Property get, Result get, "
    "Header get, Rs get, GetDetailReport, ShowFilter, Refresh, GetReportData";
constexpr std::string_view kStatistics =
    "RptID get, RptID put, ExtFirter put, Filter get, Filter put, Title get, Property get, Result get, "
    "Header get, Rs get, ShowFilter, Refresh, GetReportData";
constexpr std::string_view kWarning =
    "RptID get, RptID put, ExtFirter put, Filter get, Filter put, Title get, Property get, Result get, "
    "Header get, Rs get, ShowFilter, Refresh, GetReportData, ShowNoFilter";
constexpr std::string_view kVirtualItems =
    "RptID get, RptID put, ExtFirter put, Title get, Filter get, Filter put, Property get, Result get, "
    "Header get, Rs get, ShowFilter, Refresh, GetReportData";
constexpr std::string_view kFeeInvoices =
    "RptID get, RptID put, Filter get, Filter put, ExtFirter put, Title get, Property get, Result get, "
    "Header get, Rs get, ShowFilter, Refresh, GetReportData";
constexpr std::string_view kOutboundDetail =
    "RptID get, RptID put, ExtFirter put, Title get, Filter put, Property get, Result get, Header get, "
    "Rs get, ShowFilter, Refresh, GetReportData";

constexpr Interface kInterfaces[] = {
    {"Rpt126", kStatistics},
    {"Rpt128", kSummaries},
    {"Rpt129", kOutboundDetail},
    {"Rpt133", kSummariesWithoutSql},
    {"Rpt134", kLists},
    {"Rpt135", kLists},
    {"Rpt136", kSummaries},
    {"Rpt137", kLists},
    {"Rpt138", kSummaries},
    {"Rpt139", kStatistics},
    {"Rpt140", kGrowth},
    {"Rpt142", kFlowAndStructure},
    {"Rpt143", kFlowAndStructure},
    {"Rpt145", kCredit},
    {"Rpt146", kCredit},
    {"Rpt147", kLists},
    {"Rpt149", kCredit},
    {"Rpt176", kSummaries},
    {"Rpt189", kWarning},
    {"Rpt192", kLists},
    {"Rpt300", kVirtualItems},
    {"Rpt301", kSummariesWithoutSql},
    {"Rpt302", kFeeInvoices},
    {"Rpt303", kSummariesWithoutSql},
    {"Rpt1010", kLists},
};

class InterfaceTest : public ::testing::TestWithParam<Interface> {};

TEST_P(InterfaceTest, HasItsMembersInOrder) {
  EXPECT_EQ(Order(GetParam().class_name), GetParam().order);
}

// What stands behind ShowFilter is one optional argument in every class.
TEST_P(InterfaceTest, TakesAutoFilterOrNothing) {
  const Member<Report>* member = Find(GetParam().class_name, "ShowFilter");
  ASSERT_NE(member, nullptr);
  EXPECT_EQ(member->min_arguments, 0);
  EXPECT_EQ(member->max_arguments, 1);
}

INSTANTIATE_TEST_SUITE_P(AllClasses, InterfaceTest, ::testing::ValuesIn(kInterfaces),
                         [](const auto& param_info) { return std::string(param_info.param.class_name); });

TEST(Interfaces, AskThePeriodReportForFourNumbers) {
  const Member<Report>* member = Find("Rpt147", "GetRptList");
  ASSERT_NE(member, nullptr);
  EXPECT_EQ(member->min_arguments, 4);
  EXPECT_EQ(member->max_arguments, 4);
}

TEST(Interfaces, AskTheOtherListsForNothing) {
  for (const std::string_view name :
       {"Rpt134", "Rpt135", "Rpt137", "Rpt145", "Rpt146", "Rpt149", "Rpt192", "Rpt1010"}) {
    const Member<Report>* member = Find(name, "GetRptList");
    ASSERT_NE(member, nullptr) << name;
    EXPECT_EQ(member->max_arguments, 0) << name;
  }
}

TEST(Interfaces, ArePickedWithoutRegardToCase) {
  EXPECT_EQ(Order("rpt129"), kOutboundDetail);
}

TEST(Interfaces, AreRefusedForANameThatIsNoClass) {
  EXPECT_EQ(NumberRaisedBy([] { InterfaceOf("Rpt141"); }), error_number::kInvalidCall);
  EXPECT_NE(DescriptionRaisedBy([] { InterfaceOf("Rpt141"); }).find("Rpt141"), std::string::npos);
}

}  // namespace
}  // namespace salerpt
