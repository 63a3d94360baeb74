// Whether a workbook that was just written is whole.
#pragma once

#include <cstdio>

namespace salerpt::shell {

// The workbook library does not notice when its working files run into a full disk: it packs what got through
// and reports success. So the packed sheet is read once more and must end where a sheet ends. Raises
// RuntimeError where it does not.
void RequireWholeWorkbook(std::FILE* workbook);

}  // namespace salerpt::shell
