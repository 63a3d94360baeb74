// Customers and suppliers of the made-up company.
#pragma once

#include "suite/accountset/generator/company.h"
#include "suite/accountset/generator/tree.h"

namespace salerpt::accountset::generator {

// About `count` customers, in regions, provinces and, for the greater provinces, cities: codes of three and
// four parts. Employees must stand ready.
void AddCustomers(Company& company, TreeBuilder& tree, int count, Random& random);

// About `count` suppliers, in two classes.
void AddSuppliers(Company& company, TreeBuilder& tree, int count, Random& random);

}  // namespace salerpt::accountset::generator
