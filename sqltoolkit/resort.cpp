#include "sqltoolkit/resort.h"

#include "runtime/text.h"

namespace salerpt {
namespace {

// The name that a line of a CREATE TABLE text begins with.
std::string_view ColumnOfLine(std::string_view line) {
  line = Trim(line);
  return line.substr(0, line.find(' '));
}

}  // namespace

std::string ColumnListOf(std::string_view create_text) {
  const std::size_t open = create_text.find('(');
  std::string_view rest =
      open == std::string_view::npos ? std::string_view() : Trim(create_text.substr(open + 1));
  std::string columns;
  while (!rest.empty()) {
    const std::size_t end = rest.find(kCrLf);
    const std::string_view line = rest.substr(0, end);
    rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + kCrLf.size());
    if (line.size() > 1) Append(columns, ", ", ColumnOfLine(line));
  }
  // The first character is the comma in front of the first column; its blank stays.
  return columns.empty() ? columns : columns.substr(1);
}

std::string ColumnsWithoutIdentity(std::string_view create_text) {
  return Replace(ColumnListOf(create_text), ", FID", "");
}

std::string ResortPass(std::string_view columns, std::string_view order_by) {
  return Join(
      "Declare @SumID int,@MaxID int,@MinID int ", kCrLf,
      // The code of the last row, the grand total; then, going backward, the last row with a higher code: the
      // innermost subtotal of the last block. Without one the whole table is one block.
      "Select Top 1 @SumID=FSumSort From #TemData Order By FID DESC ", kCrLf,
      "Select Top 1 @SumID=FSumSort From #TemData Where FSumSort>@SumID Order By FID DESC ", kCrLf,
      "Select FID,Row_Number() over(Order By ", order_by,
      ") as RowId Into #TemOrder From #TemData Where FSumSort=@SumID Order By ", order_by, kCrLf,
      "While Exists(Select * From #TemOrder) ", kCrLf,  //
      "Begin  ", kCrLf, "  Set @MinID=0   Select Top 1 @MaxID=FID From #TemOrder  order by RowId ", kCrLf,
      "  Select Top 1 @MinID=IsNull(FID,0) From #TemData Where FSumSort=@SumID And FID<@MaxID Order By FID "
      "DESC  ",
      kCrLf, "  Insert Into #Data Select  ", columns,
      " From #TemData Where FID>ISNull(@MinID,0) And FID<=@MaxID  ", kCrLf,
      "  Delete From #TemOrder Where FID=@MaxID  ", kCrLf,  //
      "End ", kCrLf,                                        //
      "Insert Into #Data Select ", columns, " From #TemData Where FSumSort>1 And FSumSort<@SumID ", kCrLf);
}

}  // namespace salerpt
