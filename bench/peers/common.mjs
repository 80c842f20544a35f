// What the peers under node share: the shapes of generate-file, their command line, their report.
//
//   KELVARIN_PEERS=FOLDER node PEER.mjs SHAPE FILE THREADS
//
// FOLDER holds the installed packages.
import { createRequire } from 'node:module';
import { resolve } from 'node:path';

const kinds = (count, kind) => Array(count).fill(kind);

// `times`: the leading columns; they are kept, but have no sum. `columns`: those that have one.
const shapes = {
  logger: { separator: ';', decimal: ',', times: ['german'], columns: kinds(8, 'real') },
  wide: { separator: ',', decimal: '.', times: ['date', 'time'], columns: kinds(64, 'real') },
  ints: { separator: '\t', decimal: '.', times: ['elapsed'], columns: kinds(12, 'whole') },
  mixed: {
    separator: ';', decimal: '.', times: ['iso'],
    columns: ['boolean', 'unit', 'hex', 'real', 'character', 'text', 'text'],
  },
};

export const [shapeName, file, threads] = process.argv.slice(2);
export const shape = shapes[shapeName];
export const require = createRequire(resolve(process.env.KELVARIN_PEERS, 'package.json'));

// All columns in the order of the file: [name, kind], the times t0, t1 and the others c0, c1, ...
export const columns = [
  ...shape.times.map((kind, index) => [`t${index}`, kind]),
  ...shape.columns.map((kind, index) => [`c${index}`, kind]),
];

// What `read` took: { seconds, cpu }, the cpu's time that of all threads.
export async function measure(read) {
  const cpuBefore = process.cpuUsage();
  const start = performance.now();
  await read();
  const seconds = (performance.now() - start) / 1000;
  const { user, system } = process.cpuUsage(cpuBefore);
  return { seconds, cpu: (user + system) / 1e6 };
}

export function report(engine, rows, sums, taken) {
  console.log(JSON.stringify({ engine, rows: Number(rows), sums: sums.map(Number), ...taken }));
}
