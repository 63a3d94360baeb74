// Code trees: classes under classes, with the leaves' codes numbered through.
#pragma once

#include <string>

#include "suite/accountset/generator/company.h"

namespace salerpt::accountset::generator {

// Hands out the numbers of t_Item and keeps the class rows of one class after the other in the company.
class TreeBuilder {
 public:
  explicit TreeBuilder(Company& company) : company_(&company) {}

  // Begins the class (1 customer, 4 item, …); its leaves are numbered from `first_leaf` on.
  void Begin(int item_class, int first_leaf = 1);
  // A class row under `parent` (nothing: at the top), its own part of the code `part`.
  Node AddClass(const Node* parent, const std::string& part, const std::string& name);
  // A leaf under `parent`; its own part of the code is the next number, in `digits` digits.
  Node AddLeaf(const Node* parent, const std::string& name, int digits = 4);

 private:
  Node Make(const Node* parent, const std::string& part, const std::string& name);

  Company* company_;
  int item_class_ = 0;
  int next_id_ = 1001;
  int next_leaf_ = 1;
};

}  // namespace salerpt::accountset::generator
