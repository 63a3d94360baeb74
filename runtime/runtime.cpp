#include "runtime/runtime.h"

#include <utility>

namespace salerpt {
namespace {

// The world in force; the one mutable global.
Runtime*& InForce() {
  static Runtime* runtime = nullptr;
  return runtime;
}

}  // namespace

Runtime::Runtime()
    : toolkit_(std::make_shared<Toolkit>()), platform_(std::make_shared<Platform>()), previous_(InForce()) {
  InForce() = this;
}

Runtime::~Runtime() {
  // Objects that are released here may still ask for the world that they lived in.
  host_object.reset();
  form_loader.reset();
  gl_view.reset();
  gl_data.reset();
  makers_.clear();
  dialog_makers_.clear();
  InForce() = previous_;
}

Runtime& Runtime::Current() {
  if (Runtime* runtime = InForce()) return *runtime;
  throw RuntimeError(error_number::kObjectNotSet, "",
                     "no Runtime was made; one must live while the library is used");
}

void Runtime::Register(std::string_view prog_id, ObjectMaker maker) {
  makers_.insert_or_assign(std::string(prog_id), std::move(maker));
}

bool Runtime::IsRegistered(std::string_view prog_id) const {
  return makers_.contains(prog_id);
}

Runtime::ObjectMaker Runtime::FindMaker(std::string_view prog_id) const {
  const auto found = makers_.find(prog_id);
  return found == makers_.end() ? nullptr : found->second;
}

ObjectRef Runtime::CreateObject(std::string_view prog_id) const {
  if (const auto found = makers_.find(prog_id); found != makers_.end()) return found->second();
  throw RuntimeError(error_number::kObjectMaker, "",
                     Join("no object is registered under the ProgID \"", prog_id, "\""));
}

void Runtime::RegisterDialog(std::string_view name, DialogMaker maker) {
  dialog_makers_.insert_or_assign(std::string(name), std::move(maker));
}

std::unique_ptr<FilterDialog> Runtime::MakeDialog(std::string_view name) const {
  if (const auto found = dialog_makers_.find(name); found != dialog_makers_.end()) return found->second();
  throw RuntimeError(error_number::kObjectMaker, "",
                     Join("no dialog is registered under the name \"", name, "\""));
}

void Runtime::SetToolkit(std::shared_ptr<Toolkit> toolkit) {
  toolkit_ = toolkit ? std::move(toolkit) : std::make_shared<Toolkit>();
}

void Runtime::SetPlatform(std::shared_ptr<Platform> platform) {
  platform_ = platform ? std::move(platform) : std::make_shared<Platform>();
}

}  // namespace salerpt
