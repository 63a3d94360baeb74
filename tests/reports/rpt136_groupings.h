// The level groupings of the order statistics, written out: what each puts into the batch, for a span of
// levels.
#pragma once

#include <cstdint>

#include "tests/reports/expected_text.h"

namespace salerpt::testing::rpt136 {

struct Span {
  std::int32_t begin;
  std::int32_t end;
  Pieces pieces;
};

// E1 is the code of the row where the item is rolled up under the levels, E2 the one behind it.
inline Span OneLevel() {
  return {1,
          1,
          {{"DEFS", "FName1 varchar(355) Null,\r\n"},
           {"NAMES", "tt1.FName1,"},
           {"LEVELLIST", "FName1"},
           {"CASES", "  WHEN   Grouping(tt1.FName1)=1 THEN 106\r\n"},
           {"LABELS", "Update #Data Set  FName1=FName1+'(小计)' WHERE FSumSort=107\r\n"},
           {"FIRST", "FName1"},
           {"FIRSTCODE", "106"},
           {"E1", "107"},
           {"E2", "108"}}};
}

inline Span TwoLevels() {
  return {2,
          3,
          {{"DEFS", "FName2 varchar(355) Null,\r\nFName3 varchar(355) Null,\r\n"},
           {"NAMES", "tt1.FName2,tt1.FName3,"},
           {"LEVELLIST", "FName2, FName3"},
           {"CASES",
            "  WHEN   Grouping(tt1.FName2)=1 THEN 107\r\n"
            "  WHEN   Grouping(tt1.FName3)=1 THEN 108\r\n"},
           {"LABELS",
            "Update #Data Set  FName2=FName2+'(小计)' WHERE FSumSort=108\r\n"
            "Update #Data Set  FName3=FName3+'(小计)' WHERE FSumSort=109\r\n"},
           {"FIRST", "FName2"},
           {"FIRSTCODE", "107"},
           {"E1", "109"},
           {"E2", "110"}}};
}

struct Grouping {
  std::int32_t sum_mode;
  bool by_currency;
  std::int32_t item_class;
  const char* item_field;
  const char* columns;
  const char* list;
  const char* select;
  const char* group_by;
  const char* codes;
  const char* on;
  const char* updates;
};

inline constexpr const char* kLabelTotal =
    "Update #Data Set {FIRST}='合计' WHERE FSumSort={FIRSTCODE}\r\n"
    "Update #Data Set FSumSort=101   WHERE FSumSort={FIRSTCODE}\r\n";

inline constexpr const char* kLabelCurrency =
    "Update #Data Set FCurrencyName = FCurrencyName + '(小计)' WHERE FSumSort={FIRSTCODE}\r\n"
    "{DECIMALS} Update #Data Set FCurrencyName = '合计' WHERE FSumSort=101 \r\n"
    "Update #Data Set FOrgAmount=FAmount  WHERE FSumSort=101\r\n";

inline constexpr const char* kCodes = "{CASES}  WHEN   Grouping(t1.FNumber)=1 THEN {E1}\r\n";
inline constexpr const char* kCurrencyCodes =
    "  WHEN   Grouping(t5.FName)=1 THEN 101 \r\n{CASES}  WHEN   Grouping(t1.FNumber)=1 THEN {E1}\r\n";

inline constexpr Grouping kItemClasses = {
    1,
    false,
    4,
    " v2.FItemID ",
    "{DEFS}",
    "{LEVELLIST}",
    "SELECT {NAMES}t1.FNumber",
    " Group By {NAMES} t1.FNumber",
    kCodes,
    "Join #ItemLevel tt1 On t1.FItemID=tt1.FItemID",
    kLabelTotal,
};

inline constexpr Grouping kItemClassesByCurrency = {
    1,
    true,
    4,
    " v2.FItemID ",
    "{CURRENCYCOLUMNS}{DEFS}",
    "{CURRENCYCOMMON}, {LEVELLIST}",
    "SELECT  t5.FName,{D},{NAMES}t1.FNumber",
    " Group By t5.FName,{NAMES} t1.FNumber ",
    kCurrencyCodes,
    "Join #ItemLevel tt1 On t1.FItemID=tt1.FItemID",
    kLabelCurrency,
};

inline constexpr Grouping kCustomerClasses = {
    2,
    false,
    1,
    " v1.FCustID ",
    "{DEFS}",
    "{LEVELLIST}",
    "SELECT {NAMES}t1.FNumber",
    " Group By {NAMES} t1.FNumber",
    kCodes,
    "Join #ItemLevel tt1 On t2.FItemID=tt1.FItemID",
    kLabelTotal,
};

inline constexpr Grouping kCustomerClassesByCurrency = {
    2,
    true,
    1,
    " v1.FCustID ",
    "{CURRENCYCOLUMNS}{DEFS}",
    "{CURRENCYCOMMON}, {LEVELLIST}",
    "SELECT  t5.FName,{D},{NAMES}t1.FNumber",
    " Group By t5.FName,{NAMES} t1.FNumber ",
    kCurrencyCodes,
    "Join #ItemLevel tt1 On t2.FItemID=tt1.FItemID",
    kLabelCurrency,
};

inline constexpr Grouping kCustomerAndItemClasses = {
    4,
    false,
    4,
    " v2.FItemID ",
    " FCustName varchar(355) Null,\r\n{DEFS}",
    "FCustName, {LEVELLIST}",
    "SELECT  t2.FName,{NAMES}t1.FNumber",
    " Group By  t2.FName,{NAMES}t1.FNumber",
    "  WHEN   Grouping(t2.FName)=1 THEN 101 \r\n{CASES}  WHEN   Grouping(t1.FNumber)=1 THEN {E1}\r\n",
    "Join #ItemLevel tt1 On t1.FItemID=tt1.FItemID",
    "Update #Data Set FCustName=FCustName+'(小计)' WHERE FSumSort={FIRSTCODE}\r\n"
    "Update #Data Set FCustName='合计' WHERE FSumSort=101\r\n",
};

// A currency's subtotal and the deepest level's subtotal carry one code.
inline constexpr Grouping kCustomerAndItemClassesByCurrency = {
    4,
    true,
    4,
    " v2.FItemID ",
    "{CURRENCYCOLUMNS} FCustName varchar(355) Null,\r\n{DEFS}",
    "{CURRENCYCOMMON}, FCustName, {LEVELLIST}",
    "SELECT  t5.FName,{D},t2.FName,{NAMES}t1.FNumber",
    " Group By  t5.FName,t2.FName,{NAMES}t1.FNumber",
    "  WHEN   Grouping(t5.FName)=1 THEN 101 \r\n  WHEN   Grouping(t2.FName)=1 THEN {E1}\r\n"
    "{CASES}  WHEN   Grouping(t1.FNumber)=1 THEN {E1}\r\n",
    "Join #ItemLevel tt1 On t1.FItemID=tt1.FItemID",
    "Update #Data Set FCustName=FCustName+'(小计)' WHERE FSumSort={FIRSTCODE}\r\n"
    "{DECIMALS}Update #Data Set FCurrencyName='合计' WHERE FSumSort=101\r\n",
};

inline constexpr Grouping kItemClassesAndCustomer = {
    5,
    false,
    4,
    " v2.FItemID ",
    "{DEFS}FCustName varchar(355) Null,\r\n",
    "{LEVELLIST}, FCustName",
    "SELECT {NAMES}t2.FName,t1.FNumber",
    "  Group By {NAMES}t2.FName,t1.FNumber",
    "{CASES}  WHEN   Grouping(t2.FName)=1 THEN  {E1}\r\n  WHEN   Grouping(t1.FNumber)=1 THEN {E2}\r\n",
    "Join #ItemLevel tt1 On t1.FItemID=tt1.FItemID",
    "Update #Data Set FCustName=FCustName+'(小计)' WHERE FSumSort={E2}\r\n{LABELTOTAL}",
};

// The currency's label goes to 106 whatever level comes first.
inline constexpr Grouping kItemClassesAndCustomerByCurrency = {
    5,
    true,
    4,
    " v2.FItemID ",
    "{CURRENCYCOLUMNS}{DEFS}FCustName varchar(355) Null,\r\n",
    "{CURRENCYCOMMON}, {LEVELLIST}, FCustName",
    "SELECT t5.FName,{D},{NAMES}t2.FName,t1.FNumber",
    "  Group By t5.FName,{NAMES}t2.FName,t1.FNumber",
    "  WHEN Grouping(t5.FName)=1 THEN 101 \r\n{CASES}  WHEN   Grouping(t2.FName)=1 THEN  {E1}\r\n"
    "  WHEN   Grouping(t1.FNumber)=1 THEN {E2}\r\n",
    "Join #ItemLevel tt1 On t1.FItemID=tt1.FItemID",
    " Update #Data Set FCurrencyName = FCurrencyName + '(小计)' WHERE FSumSort=106\r\n"
    "{DECIMALS}Update #Data Set FCustName=FCustName+'(小计)' WHERE FSumSort={E2}\r\n"
    "Update #Data Set FCurrencyName ='合计' WHERE FSumSort=101 \r\n"
    "Update #Data Set FOrgAmount=FAmount  WHERE FSumSort=101\r\n",
};

}  // namespace salerpt::testing::rpt136
