// Takes figures of several rounds from its input and prints their medians beside the baseline:
// report.mjs BASELINE [--renew]. A line "end" ends the rounds of a program. --renew puts the medians into the baseline.
import { execFileSync } from 'node:child_process';
import { existsSync, readFileSync, writeFileSync } from 'node:fs';
import os from 'node:os';
import { createInterface } from 'node:readline';

const [file, renew] = process.argv.slice(2);
const FIGURE = /^(\S+)\s+(-?[\d.]+)\s+(\S+)\s*(.*)$/;

/** @type {Map<string, string>} name -> line of the baseline */
const baseline = new Map();
if (existsSync(file)) {
  for (const line of readFileSync(file, 'utf8').split('\n')) {
    const found = FIGURE.exec(line);
    if (found && !line.startsWith('#')) baseline.set(found[1], line);
  }
}

function median(values) {
  const sorted = [...values].sort((a, b) => a - b);
  return (sorted[(sorted.length - 1) >> 1] + sorted[sorted.length >> 1]) / 2;
}

/** "met", "MISSED" or, for a figure without a limit, "-". */
function verdict(value, target) {
  const found = /^([<>]?)\s*([\d.]+)$/.exec(target);
  if (!found) return '-';
  const limit = Number(found[2]);
  const met = found[1] === '<' ? value < limit : found[1] === '>' ? value > limit : value === limit;
  return met ? 'met' : 'MISSED';
}

function ratio(name, value) {
  const before = Number(FIGURE.exec(baseline.get(name) ?? '')?.[2]);
  return before ? 'x' + (value / before).toFixed(2) : '-';
}

/** @type {Map<string, {values: number[], unit: string, target: string}>} */
let figures = new Map();
function tell() {
  for (const [name, { values, unit, target }] of figures) {
    const value = Number(median(values).toPrecision(4));
    const row = [name.padEnd(38), String(value).padStart(9), unit.padEnd(14), (target || '-').padEnd(18)];
    console.log([...row, verdict(value, target).padEnd(6), ratio(name, value)].join(' '));
    if (renew) baseline.set(name, row.join(' ').trimEnd());
  }
  figures = new Map();
}

for await (const line of createInterface({ input: process.stdin })) {
  if (line === 'end') {
    tell();
    continue;
  }
  const found = FIGURE.exec(line);
  if (!found) continue; // a heading
  const [, name, value, unit, target] = found;
  const figure = figures.get(name) ?? { values: [], unit, target: target.replace(/^([<>]) /, '$1') };
  figure.values.push(Number(value));
  figures.set(name, figure);
}
tell();
if (renew) {
  const commit = execFileSync('git', ['describe', '--always', '--dirty'], {
    cwd: import.meta.dirname,
    encoding: 'utf8',
  }).trim();
  const load = os.loadavg().map(value => value.toFixed(1)).join(' ');
  const [{ model }] = os.cpus();
  writeFileSync(file, `# ${new Date().toISOString().slice(0, 16)} UTC, ${commit}, ${os.cpus().length} x ${model}, ` +
    `${Math.round(os.totalmem() / 2 ** 30)} GiB, ${os.type()} ${os.release()}, load ${load}\n` +
    `# name value unit target\n${[...baseline.values()].join('\n')}\n`);
}
