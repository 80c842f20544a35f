// chDB: a table of its Memory engine. Texts with a decimal comma are read as such, changed and cast; times are
// texts, of elapsed seconds a number.
import { columns, file, measure, report, require, shape, threads } from './common.mjs';

const { Session } = require('chdb');

const types = {
  german: 'String', date: 'String', time: 'String', iso: 'String', elapsed: 'Float64', real: 'Float64',
  whole: 'Int64', boolean: 'Bool', unit: 'String', hex: 'String', character: 'String', text: 'String',
};
const sums = {
  real: (name) => `sum(${name})`,
  whole: (name) => `sum(${name})`,
  boolean: (name) => `countIf(${name})`,
  unit: (name) => `sum(toInt64(replaceOne(${name}, ' kg', '')))`,
  hex: (name) => `sum(reinterpretAsUInt64(reverse(unhex(substring(${name}, 3)))))`,
  character: (name) => `sum(ascii(${name}))`,
  text: (name) => `sum(length(${name}))`,
};

const comma = shape.decimal === ',';
const definition = (type) => columns.map(([name, kind]) => `${name} ${type(kind)}`).join(', ');
const inFile = definition((kind) => (comma && kind === 'real' ? 'String' : types[kind]));
const selected = columns.map(([name, kind]) =>
  comma && kind === 'real' ? `toFloat64(replaceAll(${name}, ',', '.'))` : name);
const format = shape.separator === '\t' ? 'TSV' : 'CSV';

const session = new Session();
session.query(`CREATE TABLE rows (${definition((kind) => types[kind])}) ENGINE = Memory`);
const query = `INSERT INTO rows SELECT ${selected.join(', ')} FROM file('${file}', '${format}', '${inFile}')
  SETTINGS max_threads = ${threads}, max_insert_threads = ${threads}, max_parsing_threads = ${threads},
  format_csv_delimiter = '${shape.separator}', input_format_csv_skip_first_lines = 1,
  input_format_tsv_skip_first_lines = 1, input_format_parallel_parsing = ${threads > 1 ? 1 : 0}`;
const taken = await measure(() => session.query(query));
const wanted = columns.filter(([, kind]) => kind in sums).map(([name, kind]) => sums[kind](name));
const row = JSON.parse(session.query(`SELECT count(), ${wanted.join(', ')} FROM rows
  SETTINGS output_format_json_quote_64bit_integers = 0`, 'JSONCompactEachRow'));
session.cleanup();
report('chdb', row[0], row.slice(1), taken);
