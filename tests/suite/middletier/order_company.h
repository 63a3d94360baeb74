// Orders of the small company, with what was delivered, invoiced, paid and produced for them, by hand.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "tests/suite/middletier/company.h"

namespace salerpt::middletier {

// SE001 two lines: bolts delivered in parts with a return, nuts late but in full. SE002 in dollars, closed.
// SE003 not audited, a service. SE004 cancelled. SE005 a straight sale, delivered by its invoice. SE006 in
// April.
class OrderCompanyTest : public CompanyTest {
 protected:
  OrderCompanyTest();

  // Audited orders of March 2024, by long codes, and `chosen` over that.
  static DictionaryRef March(std::initializer_list<Dictionary::Entry> chosen = {});
  // The rows of an operation of `ORVMSaleRpt.Data` for a filter.
  static RecordsetRef Rows(std::string_view operation, const DictionaryRef& filter);
};

// A filter key, its value, and the order lines that it lets through.
struct KeyCase {
  const char* name;
  std::vector<Dictionary::Entry> filter;
  std::vector<std::string> lines;
};
void PrintTo(const KeyCase& key_case, std::ostream* out);

// The cells of a column from the first row on.
std::vector<std::string> Column(const RecordsetRef& rows, std::string_view field);
// The names of the fields, parted by blanks.
std::string FieldNames(const RecordsetRef& rows);
// The given columns of each row, parted by "|"; nothing for a null.
std::vector<std::string> Table(const RecordsetRef& rows, std::initializer_list<std::string_view> fields);

}  // namespace salerpt::middletier
