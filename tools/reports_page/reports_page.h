// docs/reports.md: every report class, told by the code itself.
#pragma once

#include <string>

namespace salerpt::tools {

// The whole page, in Markdown.
std::string ReportsPage();

}  // namespace salerpt::tools
