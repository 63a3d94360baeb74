// What a programmer would write in SQLite for a report: the peers of the reports, with the same columns and
// rows.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <filesystem>
#include <string>

namespace salerpt::bench {

struct QueryByHand {
  const char* tables;  // makes temporary tables
  const char* rows;    // reads the rows
  const char* drops;   // drops the tables
};

// Runs it on the connection and reads every cell; the number of rows. `error` gets what went wrong.
std::int64_t RunByHand(sqlite3* connection, const QueryByHand& query, std::string& error);

// The outbound summary by customer class, first level.
extern const QueryByHand kOutboundByCustomerClass;
// The income by item.
extern const QueryByHand kIncomeByItem;
// Every invoice line, day by day, the total last.
extern const QueryByHand kCustomerLines;
// What was ordered against what was delivered, by item.
extern const QueryByHand kOrderExecution;

}  // namespace salerpt::bench
