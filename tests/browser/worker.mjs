// node worker.mjs FILE WORDS [NAME...]: runs the tests of one file whose names hold the words, or those of
// these names, one after the other, and tells the process that started it (runner.mjs) of each beginning
// and end. MIRL_NO_BROWSER: they need no browser.
import { mkdirSync } from 'node:fs';
import { Context, awaited, outDir, tell, tests } from './harness.mjs';

/** @template T @param {Promise<T>} promise @param {number} ms */
function within(promise, ms) {
  let timer;
  const late = new Promise((_, reject) => {
    timer = setTimeout(() => {
      const what = awaited.size ? `; it waited for: ${[...awaited].join('; ')}` : '';
      reject(new Error(`did not end within ${ms / 1000} s${what}`));
    }, ms);
  });
  return Promise.race([promise, late]).finally(() => clearTimeout(timer));
}

async function launch() {
  if (process.env.MIRL_NO_BROWSER) return /** @type {any} */ (null);
  const { chromium } = await import('playwright-core');
  return chromium.launch({
    executablePath: '/usr/bin/chromium',
    args: ['--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run', '--disable-background-networking',
      '--disable-component-update', '--disable-sync'],
  });
}

const [file, words, ...names] = process.argv.slice(2);
mkdirSync(outDir, { recursive: true });
const module = await import(file);
const wanted = tests.filter((t) => (names.length ? names.includes(t.name) : t.name.includes(words)));
const browser = wanted.length ? await launch() : null;
tell({ names: wanted.map((t) => t.name) });
for (const { name, body, limit } of wanted) {
  tell({ begin: name, limit });
  const context = new Context(browser, name);
  /** @type {any} */
  let problem = null;
  try {
    await within(body(context), limit);
    if (context.complaints.length) problem = new Error(context.complaints.slice(0, 5).join('\n'));
  } catch (error) {
    problem = error ?? new Error('a test threw nothing');
  }
  try {
    await context.close(problem !== null);
  } catch (error) {
    problem ??= error;
  }
  awaited.clear();
  tell({ end: name, problem: problem && String(problem.stack || problem).split('\n').slice(0, 12).join('\n') });
}
if (module.done) await module.done();
await browser?.close();
// What a test that hangs still waits for would keep this process.
if (process.send) process.send({ whole: true }, () => process.exit(0));
