// Makes an account set with a made-up company.
#include <fmt/format.h>

#include <array>

#include "suite/accountset/accountset.h"
#include "suite/accountset/errors.h"
#include "suite/accountset/fixed_rows.h"
#include "suite/accountset/generator/bill_writer.h"
#include "suite/accountset/generator/calendar.h"
#include "suite/accountset/generator/company.h"
#include "suite/accountset/generator/company_writer.h"
#include "suite/accountset/generator/credit_plan.h"
#include "suite/accountset/generator/sales_plan.h"
#include "suite/accountset/generator/supply_plan.h"
#include "suite/accountset/new_file.h"

namespace salerpt::accountset {
namespace {

using namespace generator;

constexpr const char* kSource = "AccountSet:Create";
constexpr std::int64_t kLeastLines = 100;
constexpr std::int64_t kMostLines = 20'000'000;

// How much business a day sees: seasons, weekends, and a little more every year.
std::vector<std::int64_t> DayWeights(int days) {
  constexpr std::array<std::int64_t, 12> kMonthWeights = {70, 55, 95,  92,  104, 100,
                                                          84, 90, 116, 122, 138, 126};
  std::vector<std::int64_t> sums;
  std::int64_t sum = 0;
  for (int day = 0; day < days; ++day) {
    const auto date = DayOf(day);
    const std::int64_t weekday = date.weekday == 0 ? 15 : date.weekday == 6 ? 45 : 100;
    const std::int64_t growth = 100 + (date.year - kFirstYear) * 8;
    sum += kMonthWeights[static_cast<std::size_t>(date.month) - 1] * weekday * growth;
    sums.push_back(sum);
  }
  return sums;
}

// Lives the company's life day by day, until `lines` bill lines are made.
void LiveThrough(const Company& company, std::int64_t lines, Random& random, BillWriter& writer,
                 CreditPlanner& credit, const Progress& progress) {
  constexpr int kSupplyPercent = 22;  // of all lines: purchases
  constexpr int kFeePercent = 2;
  Schedule schedule(DayCount());
  SupplyPlanner supply(company, random, schedule);
  SalesPlanner sales(company, random, schedule, supply);
  const auto weights = DayWeights(schedule.Days());
  std::int64_t written = 0;
  std::int64_t purchased = 0;
  std::int64_t fees = 0;
  for (int day = 0; day < schedule.Days(); ++day) {
    const auto target = static_cast<std::int64_t>(
        static_cast<double>(lines) * static_cast<double>(weights[static_cast<std::size_t>(day)]) /
        static_cast<double>(weights.back()));
    while (schedule.Lines() < target || sales.Opens()) {
      sales.PlanSale(day);
      for (const std::int64_t before = schedule.Lines(); purchased * 100 < before * kSupplyPercent;) {
        const std::int64_t start = schedule.Lines();
        supply.PlanPurchase(day);
        purchased += schedule.Lines() - start;
      }
      if (const std::int64_t before = schedule.Lines(); fees * 100 < before * kFeePercent) {
        supply.PlanFee(day);
        fees += schedule.Lines() - before;
      }
    }
    for (const auto& bill : schedule.Take(day)) {
      writer.Write(*bill);
      credit.Watch(*bill);
      written += static_cast<std::int64_t>(bill->lines.size());
    }
    if (progress) progress(std::min(written, lines), lines);
  }
}

}  // namespace

void Create(const std::filesystem::path& db, const GenerateOptions& options, const Progress& progress) {
  if (options.lines < kLeastLines || options.lines > kMostLines) {
    throw RuntimeError(error_number::kInvalidCall, kSource,
                       fmt::format("{}: {} bill lines cannot be made: {} to {} were expected", db.string(),
                                   options.lines, kLeastLines, kMostLines));
  }
  NewFile file(db, kSource);
  Random random(options.seed);
  const Company company = MakeCompany(options.lines, random);
  const auto last = DayOf(DayCount() - 1);
  WriteFixedRows(file.Db(), {kFirstYear, 1, last.year, last.month}, kCompanyName);
  WriteCompany(file.Db(), company);
  {
    BillWriter writer(file.Db());
    CreditPlanner credit(company, options.seed);
    LiveThrough(company, options.lines, random, writer, credit, progress);
    writer.WriteInventory();
    credit.Write(file.Db());
  }
  file.Publish();
}

}  // namespace salerpt::accountset
