// Items of the made-up company, with their units and bills of material.
#pragma once

#include "suite/accountset/generator/company.h"
#include "suite/accountset/generator/tree.h"

namespace salerpt::accountset::generator {

// About `count` items: goods made and bought, sets, services and materials, in codes of three and four parts;
// their units, auxiliary properties, and the bills of material of what is made. Stocks must stand ready.
void AddItems(Company& company, TreeBuilder& tree, int count, Random& random);

}  // namespace salerpt::accountset::generator
