// Writes the made-up company's master data.
#pragma once

#include "suite/accountset/generator/company.h"
#include "suite/accountset/sqlite.h"

namespace salerpt::accountset::generator {

void WriteCompany(Database& database, const Company& company);

}  // namespace salerpt::accountset::generator
