// The two sides of fee invoices, as `Rpt301` and `Rpt302` show them: issued against suppliers or customers.
#pragma once

#include "runtime/dictionary.h"
#include "sqltoolkit/data_right.h"
#include "sqltoolkit/title_lines.h"

namespace salerpt {

// True where the report is about suppliers ("InvoiceStyle" 0). Any other value, also that of both sides, puts
// the customers first.
bool IsSupplierSide(const Dictionary& filter);

// The ranges of suppliers and customers, that of the report's own side first.
void AddSideRanges(TitleLines& lines, const Dictionary& filter);

// Writes into `filter` what the middle tier applies beside the conditions: the data rights of either side and
// which of the two codes is in use.
void SetSideRights(Dictionary& filter, const DataRight& supplier, const DataRight& customer);

}  // namespace salerpt
