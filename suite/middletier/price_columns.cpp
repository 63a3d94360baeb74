#include "suite/middletier/price_columns.h"

#include "runtime/text.h"

namespace salerpt::middletier {

void FillPrice(tsql::Session& session, std::string_view table, std::string_view price,
               std::string_view amount, std::string_view quantity) {
  session.Execute(Join("Update t1 Set t1.", price, "=Case When t2.FItemID Is Null Then Null", kCrLf,
                       "When t1.", quantity, "=0 Then 0 Else t1.", amount, "/t1.", quantity, " End", kCrLf,
                       "From ", table, " t1 Left Join t_ICItem t2 On t1.FNumber=t2.FNumber"));
}

}  // namespace salerpt::middletier
