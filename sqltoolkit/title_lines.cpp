#include "sqltoolkit/title_lines.h"

#include <utility>

#include "runtime/mparse.h"
#include "runtime/text.h"
#include "sqltoolkit/filter_values.h"
#include "sqltoolkit/report_header.h"

namespace salerpt {

void TitleLines::Add(std::string caption) {
  AddTitle(*lines_, std::move(caption), next_++);
}

void TitleLines::AddRange(std::string_view label, const Dictionary& filter, std::string_view begin_key,
                          std::string_view end_key, std::string_view all) {
  Add(Join(ResText(label),
           RangeCaption(FilterText(filter, begin_key), FilterText(filter, end_key), ResText(all))));
}

void TitleLines::AddNarrowRange(std::string_view label, std::string_view narrow_label,
                                const Dictionary& filter, std::string_view begin_key,
                                std::string_view end_key, std::string_view all) {
  Add(NarrowRangeCaption(label, narrow_label, FilterText(filter, begin_key), FilterText(filter, end_key),
                         all));
}

}  // namespace salerpt
