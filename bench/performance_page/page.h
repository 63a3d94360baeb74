// The page of figures, from its text with places for them.
#pragma once

#include <string>
#include <vector>

#include "performance_page/figures.h"

namespace salerpt::bench {

// A place is written {{word name …}}:
//   {{date}}, {{machine}}            of this run
//   {{time NAME}}                    "242 ms"
//   {{times PREFIX}}                 "16 to 56 µs", of all whose names begin so
//   {{ratio NAME PEER}}              "0.55"
//   {{ratios PREFIX PEER}}           "3.3 to 12"
//   {{count NAME COUNTER}}           "22,556"
//   {{counts PREFIX COUNTER}}        "17 to 67"
//   {{reports}}                      the rows of the table of all reports
// What was not measured stands as "not measured", and its place goes to `missing`. Raises std::runtime_error
// for an unknown word.
std::string FillPage(const std::string& text, const Figures& figures, std::vector<std::string>& missing);

}  // namespace salerpt::bench
