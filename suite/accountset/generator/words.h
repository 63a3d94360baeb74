// The words that names are made of. All of them made up; none is the name of a company.
#pragma once

#include <string>

#include "suite/accountset/generator/random.h"

namespace salerpt::accountset::generator {

// "霁砚商贸有限公司" and the like.
std::string CompanyName(Random& random);
// "周文澜" and the like.
std::string PersonName(Random& random);
// A thing for sale, a material, a service, a set of things: by the item's kind.
std::string GoodsName(Random& random, int group);
std::string MaterialName(Random& random);
std::string ServiceName(Random& random);
std::string SetName(Random& random);
// A model such as "QL-320B"; in one of six cases nothing.
std::string ModelName(Random& random);

}  // namespace salerpt::accountset::generator
