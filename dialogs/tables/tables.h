// The tables of the dialogs that are built from one. The dialogs of credit and `FrmFilter139` are not.
#pragma once

#include <array>
#include <string_view>

#include "dialogs/dialog_table.h"

namespace salerpt {

// --- Income, outbound, returns, gross profit, consignment (flow_tables.cpp)

// Sales income statistics and customer sales summary: dates, items, customers, departments, employees;
// grouped. The names of its plan keys do not match its fields.
extern const DialogTable kFrmFirter126;
// Sales outbound summary: dates, items, customers; grouped and sorted. Saves the default plan before the sort
// text is written.
extern const DialogTable kFrmFirter128;
// Sales outbound detail: dates, items, customers, batch numbers; grouped by properties too, sorted.
extern const DialogTable kFrmFirter129;
// Complete, though no report opens it: dates, items, customers; grouped by properties too.
extern const DialogTable kFrmFilter133;
// Customer sales detail: dates, items, customers. Its plans do not store the expansion by auxiliary property.
extern const DialogTable kFrmFirter134;
// Sales returns statistics: as kFrmFirter134, with the expansion in its plans.
extern const DialogTable kFrmFirter135;
// Sales income detail: a range of periods, items, employees, departments, customers.
extern const DialogTable kFrmFilter147;
// Complete, though no report opens it: a range of periods with items, employees, stocks, customers. The
// stocks stand under the department's plan keys.
extern const DialogTable kFrmFilter148;
// Sales gross profit: dates, items, customers, departments, employees; grouped by properties too, one past
// the property shown. The dialog itself adds "IncludeTax" and "TaxSource" to `Filter`.
extern const DialogTable kFrmFirter176;
// Consignment and instalment lists: dates, items, customers, departments, employees; grouped by properties
// too.
extern const DialogTable kFrmFilter303;

// --- Sales fee invoices (fee_tables.cpp). Both dialogs make `txtItemClass` and `cmdItemClass` themselves.

// Summary: dates, fees, customers, suppliers; grouped. Its `group_by` is the table of both styles.
extern const DialogTable kFrmFirter301;
// Detail: the same fields, sorted.
extern const DialogTable kFrmFirter302;

// The rows by which kFrmFirter301 sums hang on the style of the invoices, the row of `cmbInvoiceStyle`:
// payable (0), receivable (1), both (2).
extern const GroupByTable kPayableFeeGroups;
extern const GroupByTable kReceivableFeeGroups;
extern const GroupByTable kAllFeeGroups;
// The same by row.
extern const std::array<const GroupByTable*, 3> kFeeGroupsByStyle;

// --- Orders (order_tables.cpp)

// Sales order statistics: dates, items, customers, departments, employees, currencies; grouped and sorted.
extern const DialogTable kFrmFirter136;
// Order execution detail: dates, items, customers, branches, departments, employees, order numbers.
extern const DialogTable kFrmFirter137;
// Order execution summary: the same fields; grouped.
extern const DialogTable kFrmFirter138;
// Delivery due warning: dates, customers, items, employees, departments; "GroupBy" is a word. The dialog
// itself sets both dates from the server.
extern const DialogTable kFrmFilter189;
// Order batch tracking: dates, items, customers, order numbers.
extern const DialogTable kFrmFilter192;
// Virtual item orders: dates, items, customers; grouped by properties too.
extern const DialogTable kFrmFirter300;
// Order outbound and receipt tracking: the fields of kFrmFirter137; sorted. The branches are kept in plans
// but not written to `Filter`.
extern const DialogTable kFrmFirter1010;

// --- Analysis (analysis_tables.cpp)

// Sales growth: one period, items, customers.
extern const DialogTable kFrmFirter140;
// Sales flow: dates, items, customers. Saves the default plan before the last key is written.
extern const DialogTable kFrmFirter142;
// Sales structure: one period, items, customers. Saves the default plan before the last key is written.
extern const DialogTable kFrmFirter143;

// All of them, by number.
extern const std::array<const DialogTable*, 22> kDialogTables;
// The table of a dialog's class name, without regard to case; null where there is none.
const DialogTable* FindDialogTable(std::string_view name);

}  // namespace salerpt
