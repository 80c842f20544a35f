// Polars: a data frame. Times as text, which costs it least; of elapsed seconds a number.
import { columns, file, measure, report, require, shape, threads } from './common.mjs';

process.env.POLARS_MAX_THREADS = threads;  // read when the package is loaded
const polars = require('nodejs-polars');

const types = {
  german: polars.Utf8, date: polars.Utf8, time: polars.Utf8, iso: polars.Utf8, elapsed: polars.Float64,
  real: polars.Float64, whole: polars.Int64, boolean: polars.Bool, unit: polars.Utf8, hex: polars.Utf8,
  character: polars.Utf8, text: polars.Utf8,
};
const lengths = (texts) => texts.reduce((sum, text) => sum + text.length, 0);
const sums = {
  real: (column) => column.sum(),
  whole: (column) => column.sum(),
  boolean: (column) => column.cast(polars.Int64).sum(),
  unit: (column) => column.toArray().reduce((sum, text) => sum + parseInt(text, 10), 0),
  hex: (column) => column.toArray().reduce((sum, text) => sum + parseInt(text, 16), 0),
  character: (column) => column.toArray().reduce((sum, text) => sum + text.charCodeAt(0), 0),
  text: (column) => lengths(column.toArray()),
};

const schema = Object.fromEntries(columns.map(([name, kind]) => [name, types[kind]]));
const options = {
  sep: shape.separator, decimalComma: shape.decimal === ',', schema, hasHeader: true, numThreads: Number(threads),
};
let frame;
const taken = await measure(() => { frame = polars.readCSV(file, options); });
const wanted = columns.filter(([, kind]) => kind in sums);
report('polars', frame.height, wanted.map(([name, kind]) => sums[kind](frame.getColumn(name))), taken);
