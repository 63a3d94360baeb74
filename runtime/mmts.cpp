#include "runtime/mmts.h"

#include "runtime/object.h"
#include "runtime/runtime.h"

namespace salerpt {
namespace {

std::string ContextText(std::string_view name) {
  const ObjectRef& host = Runtime::Current().host_object;
  return (host ? GetMember(host, name) : GetSharedProperty(name)).ToText();
}

}  // namespace

std::string GetPropsString() {
  return ContextText("PropsString");
}

std::string GetUserName() {
  return ContextText("UserName");
}

Variant GetSharedProperty(std::string_view name) {
  const ObjectRef store = CreateObject("ORVPropsMgr.ShareProps");
  return Call(store, "GetProperty", Runtime::Current().GetPlatform().ProcessID(), name);
}

}  // namespace salerpt
