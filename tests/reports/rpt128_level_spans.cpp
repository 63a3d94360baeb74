#include "tests/reports/rpt128_level_spans.h"

namespace salerpt::testing {
namespace {

constexpr const char* kLabels1 =
    "Update t1 Set  FName1=ISNULL(FName1,'')+'['+\r\n"
    "ISNULL((Select FNumber1 from #ItemLevel where FName1=t1.FName1 and FNumber=(select top 1 FNumber from "
    "#data where FID<t1.FID and len(FNumber)>0 order by FID desc)),'')\r\n"
    "+'](小计)'  from #data t1 WHERE FSumSort=107\r\n"
    "Update #data Set  FName1=Replace(FName1,'[]','')  WHERE FSumSort=107\r\n";

constexpr const char* kLabels2 =
    "Update t1 Set  FName2=ISNULL(FName2,'')+'['+\r\n"
    "ISNULL((Select FNumber2 from #ItemLevel where FName2=t1.FName2 and FNumber=(select top 1 FNumber from "
    "#data where FID<t1.FID and len(FNumber)>0 order by FID desc)),'')\r\n"
    "+'](小计)'  from #data t1 WHERE FSumSort=108\r\n"
    "Update #data Set  FName2=Replace(FName2,'[]','')  WHERE FSumSort=108\r\n";

constexpr const char* kLabels3 =
    "Update t1 Set  FName3=ISNULL(FName3,'')+'['+\r\n"
    "ISNULL((Select FNumber3 from #ItemLevel where FName3=t1.FName3 and FNumber=(select top 1 FNumber from "
    "#data where FID<t1.FID and len(FNumber)>0 order by FID desc)),'')\r\n"
    "+'](小计)'  from #data t1 WHERE FSumSort=109\r\n"
    "Update #data Set  FName3=Replace(FName3,'[]','')  WHERE FSumSort=109\r\n";

constexpr const char* kTable1 =
    "CREATE TABLE #ItemLevel( \r\n"
    " FNumber1 Varchar(355),\r\n"
    " FName1 Varchar(355),\r\n"
    " FItemID int,\r\n"
    " FNumber VARCHAR(355))\r\n"
    "\r\n"
    " Insert Into #ItemLevel SELECT  \r\n"
    " Case When CharIndex('.',FFullNumber)-1= -1 or FLevel<2 THEN FFullNumber ELSE SUBSTRING(FNumber, "
    "1,CharIndex('.',FFullNumber)-1)  END, \r\n"
    " '',\r\n"
    " FItemID,FNumber From t_Item\r\n"
    " Where FItemClassID={CLASS}\r\n"
    " AND FDetail=1{RANGE} ##ITEMFILTER##\r\n"
    " Update t0 SET t0.FName1=t1.FName\r\n"
    " From #ItemLevel t0 left join t_Item t1 On t0.FNumber1=t1.FNumber  AND t1.FItemClassID={CLASS} AND "
    "t1.FDetail=0 \r\n";

constexpr const char* kTable12 =
    "CREATE TABLE #ItemLevel( \r\n"
    " FNumber1 Varchar(355),\r\n"
    " FName1 Varchar(355),\r\n"
    " FNumber2 Varchar(355),\r\n"
    " FName2 Varchar(355),\r\n"
    " FItemID int,\r\n"
    " FNumber VARCHAR(355))\r\n"
    "\r\n"
    " Insert Into #ItemLevel SELECT  \r\n"
    " Case When CharIndex('.',FFullNumber)-1= -1 or FLevel<2 THEN FFullNumber ELSE SUBSTRING(FNumber, "
    "1,CharIndex('.',FFullNumber)-1)  END, \r\n"
    " '',\r\n"
    " Case When CharIndex('.',FFullNumber,CharIndex('.',FFullNumber)+1)-1= -1 or FLevel<3 THEN NULL ELSE "
    "SUBSTRING(FNumber, 1,CharIndex('.',FFullNumber,CharIndex('.',FFullNumber)+1)-1)  END, \r\n"
    " '',\r\n"
    " FItemID,FNumber From t_Item\r\n"
    " Where FItemClassID={CLASS}\r\n"
    " AND FDetail=1{RANGE} ##ITEMFILTER##\r\n"
    " Update t0 SET t0.FName1=t1.FName,t0.FName2=t2.FName\r\n"
    " From #ItemLevel t0 left join t_Item t1 On t0.FNumber1=t1.FNumber  AND t1.FItemClassID={CLASS} AND "
    "t1.FDetail=0 \r\n"
    " left join t_Item t2 On t0.FNumber2=t2.FNumber  AND t2.FItemClassID={CLASS} AND t2.FDetail=0 \r\n";

constexpr const char* kTable23 =
    "CREATE TABLE #ItemLevel( \r\n"
    " FNumber2 Varchar(355),\r\n"
    " FName2 Varchar(355),\r\n"
    " FNumber3 Varchar(355),\r\n"
    " FName3 Varchar(355),\r\n"
    " FItemID int,\r\n"
    " FNumber VARCHAR(355))\r\n"
    "\r\n"
    " Insert Into #ItemLevel SELECT  \r\n"
    " Case When CharIndex('.',FFullNumber,CharIndex('.',FFullNumber)+1)-1= -1 or FLevel<3 THEN NULL ELSE "
    "SUBSTRING(FNumber, 1,CharIndex('.',FFullNumber,CharIndex('.',FFullNumber)+1)-1)  END, \r\n"
    " '',\r\n"
    " Case When CharIndex('.',FFullNumber,CharIndex('.',FFullNumber,CharIndex('.',FFullNumber)+1)+1)-1= -1 "
    "or FLevel<4 THEN NULL ELSE SUBSTRING(FNumber, "
    "1,CharIndex('.',FFullNumber,CharIndex('.',FFullNumber,CharIndex('.',FFullNumber)+1)+1)-1)  END, \r\n"
    " '',\r\n"
    " FItemID,FNumber From t_Item\r\n"
    " Where FItemClassID={CLASS}\r\n"
    " AND FDetail=1{RANGE} ##ITEMFILTER##\r\n"
    " Update t0 SET t0.FName2=t2.FName,t0.FName3=t3.FName\r\n"
    " From #ItemLevel t0 left join t_Item t2 On t0.FNumber2=t2.FNumber  AND t2.FItemClassID={CLASS} AND "
    "t2.FDetail=0 \r\n"
    " left join t_Item t3 On t0.FNumber3=t3.FNumber  AND t3.FItemClassID={CLASS} AND t3.FDetail=0 \r\n";

LevelSpan Levels1To1() {
  return {1,
          1,
          {{"DEFS", "FName1 varchar(355) Null,\r\n"},
           {"NAMES", "tt1.FName1,"},
           {"ONLYNAMES", "FName1,"},
           {"LISTED", "FName1,"},
           {"CASES", "  WHEN   Grouping(tt1.FName1)=1 THEN 106\r\n"},
           {"LABELS", kLabels1},
           {"FIRST", "FName1"},
           {"FIRSTCODE", "106"},
           {"NEXT", "107"},
           {"BEHIND", "108"},
           {"LEVELTABLE", kTable1}}};
}

LevelSpan Levels1To2() {
  return {1,
          2,
          {{"DEFS", "FName1 varchar(355) Null,\r\nFName2 varchar(355) Null,\r\n"},
           {"NAMES", "tt1.FName1,tt1.FName2,"},
           {"ONLYNAMES", "FName1,FName2,"},
           {"LISTED", "FName1, FName2,"},
           {"CASES",
            "  WHEN   Grouping(tt1.FName1)=1 THEN 106\r\n"
            "  WHEN   Grouping(tt1.FName2)=1 THEN 107\r\n"},
           {"LABELS", std::string(kLabels1) + kLabels2},
           {"FIRST", "FName1"},
           {"FIRSTCODE", "106"},
           {"NEXT", "108"},
           {"BEHIND", "109"},
           {"LEVELTABLE", kTable12}}};
}

LevelSpan Levels2To3() {
  return {2,
          3,
          {{"DEFS", "FName2 varchar(355) Null,\r\nFName3 varchar(355) Null,\r\n"},
           {"NAMES", "tt1.FName2,tt1.FName3,"},
           {"ONLYNAMES", "FName2,FName3,"},
           {"LISTED", "FName2, FName3,"},
           {"CASES",
            "  WHEN   Grouping(tt1.FName2)=1 THEN 107\r\n"
            "  WHEN   Grouping(tt1.FName3)=1 THEN 108\r\n"},
           {"LABELS", std::string(kLabels2) + kLabels3},
           {"FIRST", "FName2"},
           {"FIRSTCODE", "107"},
           {"NEXT", "109"},
           {"BEHIND", "110"},
           {"LEVELTABLE", kTable23}}};
}

}  // namespace

const std::vector<LevelSpan>& LevelSpans() {
  static const std::vector<LevelSpan> spans = {Levels1To1(), Levels1To2(), Levels2To3()};
  return spans;
}

}  // namespace salerpt::testing
