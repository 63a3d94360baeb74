// The world of the three analyses of sales: growth (`Rpt140`), flow (`Rpt142`) and structure (`Rpt143`). They
// send frames: the middle tier knows the columns, the joins, the conditions and the periods.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/report.h"
#include "tests/reports/report_world.h"
#include "tests/reports/rpt129_sql_words.h"

namespace salerpt::testing {

// What tells the analyses apart, as far as all of them have it.
struct Analysis {
  std::string class_name;
  std::string name;
  std::string operation;
  // The key of the first text, as it is spelled.
  std::string select_key;
  std::string dialog;
  std::string log_key;
  std::string log_text;
  std::vector<std::string> members;
};

extern const Analysis kGrowthAnalysis;
extern const Analysis kFlowAnalysis;
extern const Analysis kStructureAnalysis;

// Some levels of a class tree, and what they put into the frames. E1 is the code of the row where the item is
// rolled up under the levels, E2 the one behind it.
struct AnalysisLevels {
  std::int32_t begin;
  std::int32_t end;
  Pieces pieces;
};
[[nodiscard]] const std::vector<AnalysisLevels>& LevelsOfAnalyses();

// A grouping by levels: its two texts, with {NAMES}, {COLUMNS}, {CASES}, {LABELS}, {FIRST}, {FIRSTCODE}, {E1}
// and {E2} of the levels and {LEVELTABLE}. Empty lines say nothing.
struct AnalysisFrame {
  std::int32_t item_class;
  std::string select;
  std::string group_by;
};
[[nodiscard]] const AnalysisFrame& ItemClassFrame();
[[nodiscard]] const AnalysisFrame& CustomerClassFrame();
[[nodiscard]] const AnalysisFrame& CustomerAndItemClassFrame();
[[nodiscard]] const AnalysisFrame& ItemClassAndCustomerFrame();

class AnalysisWorld : public ReportWorld {
 protected:
  using Lines = std::vector<std::string>;
  static constexpr std::int32_t kYes = 1;

  explicit AnalysisWorld(const Analysis& analysis)
      : ReportWorld(analysis.class_name, analysis.operation, 1), analysis_(analysis) {}
  // The frames are short: each test writes them out.
  [[nodiscard]] const Pieces& Texts() const override;

  // March 2003, in both ways of telling a period, and `more` over it.
  static DictionaryRef Conditions(Entries more = {});
  // Sets the filter and fetches. The fetch must succeed.
  void Fetch(Entries more = {});
  void FetchWith(const DictionaryRef& filter);
  // The same, where the fetch may fail.
  void Run(Entries more = {});
  void FetchLevels(std::int32_t mode, std::int32_t begin, std::int32_t end, Entries more = {});
  void FetchBy(const DictionaryRef& property, Entries more = {});
  // A property whose values stand in `table`, or, without one, in the column itself.
  static DictionaryRef SumField(const char* name, std::int32_t item_class, const char* column,
                                const char* table = "");

  // The dictionary that the middle tier got last.
  DictionaryRef SentDictionary();
  Variant SentValue(std::string_view key) { return SentDictionary()->Get(key); }
  std::string Sent(std::string_view key) { return SentValue(key).TextOrEmpty(); }
  DictionaryRef Filter() { return As<Dictionary>(GetMember(Report(), "Filter")); }

  // The text under a key, but for empty lines.
  void ExpectLines(std::string_view key, std::string_view text);
  // The words of the text under a key.
  void ExpectWords(std::string_view key, std::string_view text);
  void ExpectFailed(const char* error, const char* source);

  const Analysis& analysis_;
};

// A test that holds for each of the three.
class AnyAnalysis : public AnalysisWorld, public ::testing::WithParamInterface<const Analysis*> {
 protected:
  AnyAnalysis() : AnalysisWorld(*GetParam()) {}
};
// For INSTANTIATE_TEST_SUITE_P.
[[nodiscard]] std::span<const Analysis* const> AllAnalyses();
[[nodiscard]] std::string NameOfAnalysis(const ::testing::TestParamInfo<const Analysis*>& analysis);

class Rpt140World : public AnalysisWorld {
 protected:
  Rpt140World() : AnalysisWorld(kGrowthAnalysis) {}
};
class Rpt142World : public AnalysisWorld {
 protected:
  Rpt142World() : AnalysisWorld(kFlowAnalysis) {}
};
class Rpt143World : public AnalysisWorld {
 protected:
  Rpt143World() : AnalysisWorld(kStructureAnalysis) {}
};

}  // namespace salerpt::testing
