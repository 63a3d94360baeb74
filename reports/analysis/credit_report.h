// What the credit reports (`Rpt145`, `Rpt146`, `Rpt149`) have in common.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "runtime/report.h"
#include "runtime/report_interfaces.h"
#include "sqltoolkit/report_header.h"
#include "sqltoolkit/title_lines.h"

namespace salerpt {

// A report on the credit that customers, employees or departments have been given and what is used of it.
// Which of them a row is about, the credit object, says "FCreditClass". No SQL is written here: the credit
// formula belongs to the account set, and the middle tier's credit object makes the statement of it from the
// whole `Filter`; the report runs that statement through another object and describes the columns.
class CreditReport : public Report {
 public:
  // No arguments. Gives the recordset.
  Variant GetRptList(Arguments arguments) override;

 protected:
  using Report::Report;
  void OnActive() override;
  void FetchData() override;

  // The operation of the credit object that makes this report's statement.
  [[nodiscard]] virtual std::string_view CreditOperation() const = 0;
  // The columns behind code and name of the credit object.
  virtual void AddColumns() = 0;
  // Title of the message box that says that the account set has no credit formula.
  [[nodiscard]] virtual std::string NoFormulaTitle() const = 0;

  // Title line: the range of the credit object.
  static void AddCreditObjectRange(TitleLines& lines, const Dictionary& filter);
  // Menu items by name, in order.
  static VectorRef MenuOf(std::initializer_list<std::string_view> names);
  // One column that is always shown. The two captions pass through ResText here.
  void AddColumn(std::string_view caption, std::string_view second, ColumnType type, std::string_view name);

 private:
  [[noreturn]] void EndWithoutFormula() const;
};

}  // namespace salerpt
