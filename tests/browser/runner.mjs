// Runs test files side by side, each in a process of its own (worker.mjs), and says what came of their tests.
//
// A test that fails is run once more, alone, when the others are through: passing then, it is flaky. A process that
// dies or hangs costs the test that it was at; the rest of its file goes on in another.
import { fork } from 'node:child_process';
import { basename, join } from 'node:path';
import { here } from './harness.mjs';

/** More flaky tests than this fail the run: a race to mend, not to hide. */
export const MOST_FLAKY = 3;

/** More failures than this are no races: none is run again. */
const TOO_MANY_TO_REPEAT = 10;

/** Longest silence of a process beside the limit of its test: browsers start, systems stop (milliseconds). */
const SLACK = Number(process.env.MIRL_BROWSER_SLACK_MS ?? 120_000);

/** Stands for a test where none is to blame. */
const OUTSIDE = '(the file)';

/** @typedef {{file: string, name: string, problem: string|null, seconds: number}} Result */
/** No names: all tests of the file that hold the words.
 * @typedef {{file: string, names: string[], words: string}} Job */

/** The tests of one process. A problem outside of any test is a result under the name OUTSIDE.
 * @param {Job} job @param {(result: Result) => void} report @returns {Promise<Job|null>} what is left to run */
function runProcess(job, report) {
  return new Promise((resolve) => {
    const child = fork(join(here, 'worker.mjs'), [job.file, job.words, ...job.names]);
    const file = basename(job.file);
    const programs = new Set();
    /** @type {string[]|null} */
    let left = null;
    let [running, begun, whole, hung] = ['', Date.now(), false, false];
    /** @type {NodeJS.Timeout|undefined} */
    let watch;
    const expect = (ms) => {
      clearTimeout(watch);
      watch = setTimeout(() => { hung = true; child.kill('SIGKILL'); }, ms + SLACK);
    };
    const ended = (name, problem) => report({ file, name, problem, seconds: (Date.now() - begun) / 1000 });
    expect(0);
    child.on('message', (/** @type {any} */ said) => {
      if (said.started) programs.add(said.started);
      if (said.ended) programs.delete(said.ended);
      if (said.names) left = said.names;
      if (said.whole) whole = true;
      if (said.begin !== undefined) {
        [running, begun] = [said.begin, Date.now()];
        expect(said.limit);
      }
      if (said.end !== undefined) {
        ended(running, said.problem);
        left = (left ?? []).filter((name) => name !== running);
        running = '';
        expect(0);
      }
    });
    child.once('error', () => {});
    child.once('close', (code, signal) => {
      clearTimeout(watch);
      for (const id of programs) {
        try { process.kill(id, 'SIGKILL'); } catch { /* it has ended */ }
      }
      const why = hung ? 'hangs: its process had to be ended' : `its process ended with ${code ?? signal}`;
      if (whole && code === 0) return resolve(null);
      ended(running || OUTSIDE, why);
      const rest = (left ?? []).filter((name) => name !== running);
      resolve(running && rest.length ? { ...job, names: rest } : null);
    });
  });
}

/** @param {Job[]} jobs in the order in which they begin @param {number} atOnce
 * @param {(result: Result) => void} report */
async function runJobs(jobs, atOnce, report) {
  const queue = [...jobs];
  const lane = async () => {
    for (let job = queue.shift(); job; job = queue.shift()) {
      for (let left = /** @type {Job|null} */ (job); left;) left = await runProcess(left, report);
    }
  };
  await Promise.all(Array.from({ length: atOnce }, lane));
}

const indented = (text) => `  ${text.split('\n').join('\n  ')}`;

/** Runs them all and prints a line for each test, and the failures. Gives the counts and each file's seconds.
 * @param {Job[]} jobs @param {number} atOnce */
export async function runAll(jobs, atOnce) {
  let passed = 0;
  /** @type {Result[]} */
  const failures = [];
  /** @type {Record<string, number>} */
  const seconds = {};
  await runJobs(jobs, atOnce, (result) => {
    const { file, name, problem } = result;
    seconds[file] = Math.round(((seconds[file] ?? 0) + result.seconds) * 10) / 10;
    if (problem) failures.push(result);
    else passed++;
    const word = problem ? 'failed, to be tried again' : 'passed';
    console.log(`${word}: ${file}: ${name} (${result.seconds.toFixed(1)} s)`);
  });
  let failed = 0, flaky = 0;
  const repeat = failures.length <= TOO_MANY_TO_REPEAT;
  for (const { file, name, problem } of failures) {
    /** @type {string|null} */
    let again = repeat ? 'no test that could be tried again' : 'not tried again: too many have failed';
    if (repeat && name !== OUTSIDE) {
      again = 'was not run';
      const whole = jobs.find((job) => basename(job.file) === file)?.file ?? '';
      await runJobs([{ file: whole, names: [name], words: '' }], 1, (result) => {
        if (result.problem || result.name === name) again = result.problem;
      });
    }
    if (again === null) {
      flaky++;
      passed++;
      console.log(`flaky: ${file}: ${name}\n${indented(problem ?? '')}`);
    } else {
      failed++;
      const then = again === problem ? '' : `\n  and then: ${again}`;
      console.log(`FAILED: ${file}: ${name}\n${indented(problem ?? '')}${then}`);
    }
  }
  if (flaky > MOST_FLAKY) {
    failed++;
    console.log(`FAILED: ${flaky} flaky tests, and ${MOST_FLAKY} are too many to look away`);
  }
  return { passed, failed, seconds };
}
