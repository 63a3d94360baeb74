// The world in which the customers' sales detail and its twin, the returns statistics, run. Both ask the same
// operation of the middle tier, which tells them apart by "RptID" alone.
#pragma once

#include "runtime/report.h"
#include "tests/reports/report_world.h"

namespace salerpt::testing {

class CustomerDetailWorld : public ReportWorld {
 protected:
  explicit CustomerDetailWorld(const char* class_name) : ReportWorld(class_name, "GetRpt134Data", 1) {}
  // These reports send no texts.
  [[nodiscard]] const Pieces& Texts() const override {
    static const Pieces none;
    return none;
  }
  // The conditions as they arrive in the middle tier.
  DictionaryRef SentFilter() { return As<Dictionary>(sales_->Calls().back().arguments[1]); }
  std::vector<std::string> NamesOfMembers();

  // --- What both have in common, for the tests of each
  void ExpectSent(std::int32_t rpt_id);
  void ExpectFailedFetch(const char* error, const char* source);
};

class Rpt134World : public CustomerDetailWorld {
 protected:
  Rpt134World() : CustomerDetailWorld("Rpt134") {}
};

class Rpt135World : public CustomerDetailWorld {
 protected:
  Rpt135World() : CustomerDetailWorld("Rpt135") {}
};

inline std::vector<std::string> CustomerDetailWorld::NamesOfMembers() {
  std::vector<std::string> names;
  const auto report = std::dynamic_pointer_cast<salerpt::Report>(Report());
  if (report) {
    for (const auto& member : report->Members()) names.emplace_back(member.name);
  }
  return names;
}

inline void CustomerDetailWorld::ExpectSent(std::int32_t rpt_id) {
  ASSERT_EQ(sales_->CalledMembers(), std::vector<std::string>{"GetRpt134Data"});
  const std::vector<Variant>& arguments = sales_->Calls()[0].arguments;
  ASSERT_EQ(arguments.size(), 2U);
  EXPECT_EQ(arguments[0].ToText(), kProps);
  EXPECT_EQ(arguments[1].ToObject(), GetMember(Report(), "Filter").ToObject()) << "the conditions themselves";
  const DictionaryRef filter = SentFilter();
  EXPECT_TRUE(filter->Get("RptID").IsNumber());
  EXPECT_EQ(filter->Get("RptID").ToInt32(), rpt_id);
  EXPECT_EQ(GetMember(Report(), "Rs").ToObject(), rows_);
}

inline void CustomerDetailWorld::ExpectFailedFetch(const char* error, const char* source) {
  EXPECT_FALSE(Ok());
  EXPECT_EQ(Error(), error);
  EXPECT_EQ(ErrorSource(), source);
  EXPECT_FALSE(HasRows());
  EXPECT_EQ(toolkit_->shown, toolkit_->unloaded);
  EXPECT_GT(toolkit_->shown, 0);
}

}  // namespace salerpt::testing
