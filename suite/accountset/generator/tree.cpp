#include "suite/accountset/generator/tree.h"

#include <fmt/format.h>

namespace salerpt::accountset::generator {

void TreeBuilder::Begin(int item_class, int first_leaf) {
  item_class_ = item_class;
  next_leaf_ = first_leaf;
}

Node TreeBuilder::AddClass(const Node* parent, const std::string& part, const std::string& name) {
  Node node = Make(parent, part, name);
  company_->classes.push_back(node);
  company_->class_numbers.push_back(item_class_);
  return node;
}

Node TreeBuilder::AddLeaf(const Node* parent, const std::string& name, int digits) {
  Node node = Make(parent, fmt::format("{:0{}}", next_leaf_++, digits), name);
  node.leaf = true;
  return node;
}

Node TreeBuilder::Make(const Node* parent, const std::string& part, const std::string& name) {
  Node node;
  node.id = next_id_++;
  node.short_number = part;
  node.name = name;
  node.number = part;
  node.full_name = name;
  if (parent != nullptr) {
    node.parent = parent->id;
    node.level = parent->level + 1;
    node.number = parent->number + "." + part;
    node.full_name = parent->full_name + "_" + name;
  }
  return node;
}

}  // namespace salerpt::accountset::generator
