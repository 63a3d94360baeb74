// Reports run through their dialogs on the middle tier over one generated account set, and their rows beside
// those of plain SQL on the tables.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tests/suite/middletier/generated_set.h"

namespace salerpt::middletier {

// A row as it is compared: its texts (codes, names), joined by "|", null as "", and its numbers, null as 0.
struct PlainRow {
  std::string key;
  std::vector<double> numbers;
};

// All numbers agree to a ten-thousandth: sums of doubles stand against sums of decimals of ten places.
constexpr double kExact = 1e-4;

class ReportRows : public testing::Test {
 protected:
  // Of the user at the keyboard, or of one who sees what the data rights let through.
  explicit ReportRows(const Login& login = {});

  // The account set, made on first use and the same for all tests of the program: 4,000 lines, 2023 to 2025.
  // A third of the items have a common unit other than their sale unit; some sales invoices and outbound
  // bills have no customer, some invoices neither department nor employee. SQL on it knows half_up(x,
  // places): decimal rounding, halves away from zero, as the server rounds.
  // The table class_at(item_class, code, level, number, name) tells the class on a level of the code tree
  // that a code stands under.
  static const GeneratedSet& Set();

  // A report with the defaults of its dialog and `chosen` over them, fetched; a fetch that fails fails the
  // test. "Rs" holds its rows.
  static ObjectRef RunReport(std::string_view prog_id, std::string_view dialog,
                             const std::vector<Dictionary::Entry>& chosen);
  // Its rows.
  static RecordsetRef RowsOf(std::string_view prog_id, std::string_view dialog,
                             const std::vector<Dictionary::Entry>& chosen);
  // The rows of a query on the tables, the first `keys` columns as texts, the others as numbers.
  static std::vector<PlainRow> Plain(const std::string& sql, int keys);

  Runtime runtime_;
};

// The rows whose FSumSort lies between `from` and `to`, in their order.
std::vector<PlainRow> Pick(const RecordsetRef& rows, std::int32_t from, std::int32_t to,
                           const std::vector<const char*>& keys, const std::vector<const char*>& numbers);
// A text that a total row has in one of its key fields: behind the group's own value, or alone where the
// group is rolled up. Nothing is put behind a value that is null.
struct Label {
  std::size_t field;
  const char* text;
};
// One group of a rollup: behind each block of equal values in the first `fields` key fields stands the
// block's sum, with these labels and this FSumSort.
struct Group {
  std::size_t fields;
  std::vector<Label> labels;
  std::int32_t code;
};
// What a report with these details shows: every key one field longer, by FSumSort, and all total rows, the
// outer group first in `groups`, the grand total with `total` last. No details: no rows.
std::vector<PlainRow> RolledUp(const std::vector<PlainRow>& details, const std::vector<Group>& groups,
                               const Group& total);
// `details` in the order in which their keys come in `order`; what does not come there stands behind.
std::vector<PlainRow> InOrderOf(std::vector<PlainRow> details, const std::vector<PlainRow>& order);
// By key.
std::vector<PlainRow> Sorted(std::vector<PlainRow> rows);
// Equal keys in equal order, and numbers that differ by no more than `tolerance`.
void ExpectRows(const std::vector<PlainRow>& rows, const std::vector<PlainRow>& expected,
                double tolerance = kExact);

}  // namespace salerpt::middletier
