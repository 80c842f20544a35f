// DuckDB: a table in memory. Dates and times of wide and mixed get types of their own, which cost it no more
// than texts; the German ones are texts.
import { columns, file, measure, report, require, shape, threads } from './common.mjs';

const { DuckDBInstance } = require('@duckdb/node-api');

const types = {
  german: 'VARCHAR', date: 'DATE', time: 'TIME', iso: 'TIMESTAMP', elapsed: 'DOUBLE', real: 'DOUBLE',
  whole: 'BIGINT', boolean: 'BOOLEAN', unit: 'VARCHAR', hex: 'VARCHAR', character: 'VARCHAR', text: 'VARCHAR',
};
const sums = {
  real: (name) => `sum(${name})`,
  whole: (name) => `sum(${name})`,
  boolean: (name) => `count(*) FILTER (${name})`,
  unit: (name) => `sum(CAST(replace(${name}, ' kg', '') AS BIGINT))`,
  hex: (name) => `sum(CAST(${name} AS BIGINT))`,
  character: (name) => `sum(ascii(${name}))`,
  text: (name) => `sum(length(${name}))`,
};

const connection = await (await DuckDBInstance.create(':memory:', { threads })).connect();
const schema = columns.map(([name, kind]) => `'${name}': '${types[kind]}'`).join(', ');
const query = `CREATE TABLE rows AS SELECT * FROM read_csv('${file}', auto_detect = false, header = true,
  delim = '${shape.separator}', quote = '"', escape = '"', new_line = '\\n',
  decimal_separator = '${shape.decimal}', columns = {${schema}})`;
const taken = await measure(() => connection.run(query));
const wanted = columns.filter(([, kind]) => kind in sums).map(([name, kind]) => sums[kind](name));
const reader = await connection.runAndReadAll(`SELECT count(*), ${wanted.join(', ')} FROM rows`);
const [rows, ...values] = reader.getRows()[0];
report('duckdb', rows, values, taken);
