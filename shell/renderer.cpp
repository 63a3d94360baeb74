#include "shell/renderer.h"

#include <algorithm>

#include "runtime/error.h"
#include "runtime/text.h"

namespace salerpt::shell {

const std::vector<std::string>& FormatNames() {
  static const std::vector<std::string> names = {"table", "csv", "json", "html", "xlsx"};
  return names;
}

Format ParseFormat(std::string_view name) {
  const auto& names = FormatNames();
  const auto it = std::find(names.begin(), names.end(), name);
  if (it == names.end()) {
    throw RuntimeError(error_number::kInvalidCall, "Shell",
                       Join("unknown format \"", name, "\": table, csv, json, html or xlsx was expected"));
  }
  return static_cast<Format>(it - names.begin());
}

std::unique_ptr<Renderer> MakeRenderer(Format format, const PrintOptions& options) {
  switch (format) {
    case Format::kTable:
      return MakeTableRenderer(options);
    case Format::kCsv:
      return MakeCsvRenderer();
    case Format::kJson:
      return MakeJsonRenderer();
    case Format::kHtml:
      return MakeHtmlRenderer();
    case Format::kXlsx:
      return MakeXlsxRenderer();
  }
  return nullptr;
}

}  // namespace salerpt::shell
