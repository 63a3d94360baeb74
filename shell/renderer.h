// The formats in which a report result is given out.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <string_view>
#include <vector>

#include "shell/sheet.h"

namespace salerpt::shell {

// How total rows are set off; a format that cannot do it ignores it. The renderers know nothing of terminals.
struct PrintOptions {
  std::string_view total_begin;
  std::string_view total_end;
};

// Writes a sheet. Every format carries the title lines and, for every row, its FSumSort, so that a machine
// tells totals from details, and shows exactly the columns that the host may see.
class Renderer {
 public:
  virtual ~Renderer() = default;
  // Raises what the stream raises, and no-such-field for a column that the rows do not have.
  virtual void Render(const Sheet& sheet, std::ostream& out) = 0;
};

enum class Format : std::uint8_t { kTable, kCsv, kJson, kHtml, kXlsx };

// "table", "csv", "json", "html", "xlsx", in the order of Format.
const std::vector<std::string>& FormatNames();
// Raises invalid-call, naming the text and the formats, for any other text.
Format ParseFormat(std::string_view name);

std::unique_ptr<Renderer> MakeRenderer(Format format, const PrintOptions& options);

// --- The formats, one file each
std::unique_ptr<Renderer> MakeTableRenderer(const PrintOptions& options);
std::unique_ptr<Renderer> MakeCsvRenderer();
std::unique_ptr<Renderer> MakeJsonRenderer();
std::unique_ptr<Renderer> MakeHtmlRenderer();
std::unique_ptr<Renderer> MakeXlsxRenderer();

}  // namespace salerpt::shell
