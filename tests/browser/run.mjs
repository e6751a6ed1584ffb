// node run.mjs [PART-OF-FILE-NAME...] [--only WORDS-OF-A-TEST'S-NAME] [--in FOLDER]: runs the browser tests,
// MIRL_BROWSERS files at once (default 2), the slow ones of the last run first.
// Last line: "browser: N passed, N failed".
import { mkdirSync, readFileSync, readdirSync, writeFileSync } from 'node:fs';
import { join, resolve } from 'node:path';
import { here } from './harness.mjs';
import { runAll } from './runner.mjs';

const words = process.argv.slice(2);
/** @param {string} flag @param {string} otherwise */
function option(flag, otherwise) {
  const at = words.indexOf(flag);
  return at < 0 ? otherwise : words.splice(at, 2)[1];
}
const only = option('--only', '');
const folder = resolve(option('--in', here));

const results = join(here, '..', '..', 'build-results');
const lastRun = join(results, 'browser-seconds.json');
/** @returns {Record<string, number>} */
function secondsOfLastRun() {
  try {
    return JSON.parse(readFileSync(lastRun, 'utf8'));
  } catch {
    return {};
  }
}

const known = secondsOfLastRun();
const slowness = (file) => known[file] ?? Infinity;
const files = readdirSync(folder).filter((f) => f.endsWith('.browser.mjs')).sort()
  .filter((f) => words.length === 0 || words.some((w) => f.includes(w)))
  .sort((a, b) => (slowness(a) === slowness(b) ? 0 : slowness(b) - slowness(a)));

const jobs = files.map((file) => ({ file: join(folder, file), names: [], words: only }));
const { passed, failed, seconds } = await runAll(jobs, Number(process.env.MIRL_BROWSERS ?? 2));
if (folder === here && words.length === 0 && !only) {
  mkdirSync(results, { recursive: true });
  writeFileSync(lastRun, `${JSON.stringify(seconds, null, 1)}\n`);
}
console.log(`browser: ${passed} passed, ${failed} failed`);
process.exit(failed === 0 && passed > 0 ? 0 : 1);
