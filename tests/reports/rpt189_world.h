// The world in which the delivery due warning runs. Today is 2003-07-01.
#pragma once

#include "tests/reports/rpt192_list_world.h"

namespace salerpt::testing {

class Rpt189World : public OrderListWorld {
 protected:
  Rpt189World() : OrderListWorld("Rpt189", "GetRpt189Data") {
    runtime_.SetPlatform(std::make_shared<FakePlatform>(folder_.Path()));
  }

  // The conditions, key to text. Each must be a text.
  std::map<std::string, std::string> FilterTexts() {
    std::map<std::string, std::string> texts;
    const DictionaryRef filter = Filter();
    if (!filter) return texts;
    for (const auto& entry : filter->Entries()) {
      EXPECT_TRUE(entry.value.IsText()) << entry.key;
      texts[entry.key] = entry.value.ToText();
    }
    return texts;
  }

 private:
  TempFolder folder_;
};

}  // namespace salerpt::testing
