// The peer of building a request: the two halves of the outbound summary's union, its grouping and its order,
// written with a query builder and turned into text. Prints figures in the form of the other benchmarks.
import knex from 'knex';

const db = knex({client: 'mssql'});

const halves = [
  ['ICStockBill', 'ICStockBillEntry', 'FSupplyID', ['v2.FQty', 'v2.FAmount', 'v2.FConsignAmount', '0', '0']],
  ['ICSale', 'ICSaleEntry', 'FCustID', ['0', '0', '0', 'v2.FQty', 'v2.FStdAmount']],
];
const sums = ['FOutQty', 'FOutAmount', 'FConsignAmount', 'FInvoiceQty', 'FInvoiceAmount'];

function half([bill, entry, customer, values]) {
  return db(`${bill} as v1`)
    .join(`${entry} as v2`, 'v1.FInterID', 'v2.FInterID')
    .join('t_ICItem as t1', 'v2.FItemID', 't1.FItemID')
    .leftJoin('t_Organization as t2', `v1.${customer}`, 't2.FItemID')
    .leftJoin('t_Department as t3', 'v1.FDeptID', 't3.FItemID')
    .leftJoin('t_Emp as t4', 'v1.FEmpID', 't4.FItemID')
    .where('v1.FStatus', '>', 0)
    .where('v1.FCancelLation', 0)
    .whereBetween('v1.FDate', ['2024-01-01', '2024-12-31'])
    .where('t1.FNumber', '>=', '01')
    .where('t2.FNumber', '<=', '99')
    .select('v2.FItemID', `v1.${customer} as FCustID`)
    .select(values.map((value, i) => db.raw(`${value} as ${sums[i]}`)));
}

function request() {
  const union = half(halves[0]).unionAll([half(halves[1])]).as('d');
  return db.from(union)
    .join('t_ICItem as i', 'd.FItemID', 'i.FItemID')
    .join('t_MeasureUnit as u', 'i.FSaleUnitID', 'u.FMeasureUnitID')
    .join('t_Organization as o', 'd.FCustID', 'o.FItemID')
    .select('o.FName', 'i.FNumber', 'i.FShortNumber', 'i.FModel', 'u.FName as FUnitName')
    .select(sums.map((sum) => db.raw(`sum(${sum}) as ${sum}`)))
    .groupByRaw('o.FName, i.FNumber with rollup')
    .orderBy('FOutAmount', 'desc')
    .toString();
}

const bytes = Buffer.byteLength(request());
for (let i = 0; i < 2000; ++i) request();  // until it is compiled
const rounds = [];
for (let round = 0; round < 9; ++round) {
  const begin = process.cpuUsage();
  for (let i = 0; i < 500; ++i) request();
  const {user, system} = process.cpuUsage(begin); // microseconds of the processor
  rounds.push((user + system) * 1000 / 500);
}
rounds.sort((a, b) => a - b);
console.log(JSON.stringify({
  benchmarks: [{name: 'BM_PeerQueryBuilder', real_time: rounds[4], time_unit: 'ns', sent_bytes: bytes}],
}));
