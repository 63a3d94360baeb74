// What a recorded suite has seen.
#pragma once

#include "shell/recorded/json_place.h"

namespace salerpt::shell {

// Arrays, each in the order of what happened.
struct Recording {
  // {"object", "member", "args"} of every call on a middle-tier object.
  Json calls = Json::array();
  // Texts of the progress dialog.
  Json progress = Json::array();
  // {"text", "title", "style"} of every message box.
  Json boxes = Json::array();
  // [key, kind, text] of every line for the suite's log.
  Json log = Json::array();
};

}  // namespace salerpt::shell
