// `Title` of a report whose lines are numbered one after the other.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "runtime/dictionary.h"
#include "runtime/vector.h"

namespace salerpt {

// Lines from 0 on, in the order in which they are added. Labels come as the system's own texts and pass
// through ResText here; a caption that is added as a whole has passed through it already.
class TitleLines {
 public:
  // A line of its own.
  void Add(std::string caption);
  // A range of the filter: `label` and begin "  --  " end, or `label` and the word for all where both ends
  // are empty.
  void AddRange(std::string_view label, const Dictionary& filter, std::string_view begin_key,
                std::string_view end_key, std::string_view all);
  // The narrow form: `label` and the word for all, or `narrow_label`, which has an ASCII colon and a blank,
  // and begin " -- " end.
  void AddNarrowRange(std::string_view label, std::string_view narrow_label, const Dictionary& filter,
                      std::string_view begin_key, std::string_view end_key, std::string_view all);
  // The vector that the host sees.
  [[nodiscard]] const VectorRef& Lines() const { return lines_; }

 private:
  VectorRef lines_ = std::make_shared<Vector>();
  std::int16_t next_ = 0;
};

}  // namespace salerpt
