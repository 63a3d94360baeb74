#include "sqltoolkit/group_columns.h"

#include "runtime/mparse.h"
#include "runtime/text.h"
#include "sqltoolkit/filter_values.h"

namespace salerpt {

void AddLevelColumns(GroupColumns& columns, const Dictionary& filter, std::string_view caption) {
  const LevelSpan levels = FilterLevels(filter);
  for (int i = levels.begin; i <= levels.end; ++i) {
    columns.push_back({Join(i, ResText(caption)), Join("FName", i)});
  }
}

void AddCustomerColumn(GroupColumns& columns) {
  columns.push_back({ResText("客户$"), "FCustName"});
}

void AddPropertyColumn(GroupColumns& columns, const Dictionary& filter) {
  columns.push_back(
      {ResText(Join(FilterText(*FilterSumField(filter), "FName"), "$")), PropertyColumnName(filter)});
}

std::string PropertyColumnName(const Dictionary& filter) {
  const DictionaryRef sum_field = FilterSumField(filter);
  return Join("FProp", FilterText(*sum_field, "FPropID"), FilterText(*sum_field, "FItemClassID"));
}

}  // namespace salerpt
