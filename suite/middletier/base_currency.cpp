#include "suite/middletier/base_currency.h"

namespace salerpt::middletier {

std::int16_t BaseCurrencyScale(Server& server) {
  constexpr std::int16_t kUsualScale = 2;
  const RecordsetRef rows = server.Query("Select FScale From t_Currency Where FCurrencyID=1");
  return rows->RecordCount() == 0 ? kUsualScale : rows->Value(0).ToInt16();
}

}  // namespace salerpt::middletier
