#include "suite/middletier/income_statistics.h"

#include <string>

#include "suite/middletier/bill_filter.h"
#include "suite/middletier/income_columns.h"
#include "suite/middletier/sale_batch.h"

namespace salerpt::middletier {
namespace {

// A request of its own: the caller's stays as it is.
DictionaryRef WithDates(const Dictionary& request, const std::string& condition) {
  DictionaryRef dated = request.Copy();
  for (const Dictionary::Entry& entry : request.Entries()) {
    if (entry.value.IsText())
      dated->Set(entry.key, Replace(entry.value.ToText(), "##CHECKDATE##", condition));
  }
  return dated;
}

}  // namespace

RecordsetRef IncomeStatistics(Server& server, const Variant& first_day, const Variant& last_day,
                              const Dictionary& request) {
  return RunSaleBatch(server, *WithDates(request, DayCondition(first_day, last_day)), FillIncomeColumns);
}

}  // namespace salerpt::middletier
