// The state of a dialog's controls as JSON.
#pragma once

#include "dialogs/form.h"
#include "shell/recorded/json_place.h"

namespace salerpt::shell {

// Control name to its state: those of `text`, `value`, `enabled`, `visible`, `caption`, `items`
// ([text, itemData] rows), `listIndex`, `min`, `max`, `rows` (sort grid: [caption, asc, desc, field]), `tabs`
// ([caption, enabled]), `view` and `default` that it has, in tab order.
Json ShowControls(const Form& form);

}  // namespace salerpt::shell
