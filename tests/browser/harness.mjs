// Registers the tests of *.browser.mjs files and runs them one after the other. A test that fails leaves a picture of
// every page that it had open in out/.
import { mkdirSync, readdirSync } from 'node:fs';
import { dirname, join } from 'node:path';
import { fileURLToPath } from 'node:url';
import { chromium } from 'playwright-core';

export const here = dirname(fileURLToPath(import.meta.url));
export const outDir = join(here, 'out');

/** A test that takes longer has hung (milliseconds). */
const TEST_LIMIT = 180_000;

/** @type {{name: string, body: (t: Context) => Promise<void>, limit: number}[]} */
const tests = [];

/** @param {string} name @param {(t: Context) => Promise<void>} body @param {number} [limit] milliseconds */
export function test(name, body, limit = TEST_LIMIT) {
  tests.push({ name, body, limit });
}

/** What a test gets: pages of a fresh browser profile, and work to do when it ends. */
export class Context {
  /** @param {import('playwright-core').Browser} browser @param {string} name */
  constructor(browser, name) {
    this.browser = browser;
    this.name = name;
    /** @type {import('playwright-core').BrowserContext[]} */
    this.contexts = [];
    /** @type {(() => Promise<void> | void)[]} */
    this.last = [];
    /** @type {string[]} */
    this.complaints = [];
  }

  /** A page in a profile of its own. Errors of its scripts and refused resources fail the test, but for those the
   * test expects. @param {object} options of newContext, and `expectErrors` */
  async page(options = {}) {
    const { expectErrors = false, ...rest } = options;
    const context = await this.browser.newContext({
      ignoreHTTPSErrors: true,
      viewport: { width: 1280, height: 800 },
      ...rest,
    });
    this.contexts.push(context);
    const page = await context.newPage();
    page.setDefaultTimeout(15_000);
    if (!expectErrors) {
      page.on('pageerror', (error) => this.complaints.push(`script error: ${error.message}`));
      page.on('console', (message) => {
        if (message.type() === 'error') this.complaints.push(`console: ${message.text()}`);
      });
    }
    return page;
  }

  /** Runs when the test has ended, last one first. @param {() => Promise<void> | void} job */
  after(job) {
    this.last.unshift(job);
  }

  /** A picture to look at: out/NAME.png. @param {import('playwright-core').Page} page @param {string} name */
  async picture(page, name) {
    await page.screenshot({ path: join(outDir, `${name}.png`) });
  }

  async close(failed) {
    let n = 0;
    for (const context of this.contexts) {
      for (const page of context.pages()) {
        if (failed)
          await page
            .screenshot({ path: join(outDir, `FAILED-${this.name.replace(/\W+/g, '-')}-${++n}.png`) })
            .catch(() => {});
      }
      await context.close().catch(() => {});
    }
    for (const job of this.last) await job();
  }
}

function limit(promise, ms) {
  let timer;
  const late = new Promise((_, reject) => {
    timer = setTimeout(() => reject(new Error(`did not end within ${ms / 1000} s`)), ms);
  });
  return Promise.race([promise, late]).finally(() => clearTimeout(timer));
}

/** @param {string[]} only parts of file names; none: all files @param {string} words that a test's name has */
export async function runAll(only, words = '') {
  mkdirSync(outDir, { recursive: true });
  const files = readdirSync(here).filter((f) => f.endsWith('.browser.mjs')).sort()
    .filter((f) => only.length === 0 || only.some((o) => f.includes(o)));
  const browser = await chromium.launch({
    executablePath: '/usr/bin/chromium',
    args: ['--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run', '--disable-background-networking',
      '--disable-component-update', '--disable-sync'],
  });
  let passed = 0, failed = 0;
  for (const file of files) {
    tests.length = 0;
    const module = await import(join(here, file));
    for (const { name, body, limit: ms } of tests) {
      if (!name.includes(words)) continue;
      const context = new Context(browser, name);
      const begin = Date.now();
      let problem = null;
      try {
        await limit(body(context), ms);
        if (context.complaints.length) problem = new Error(context.complaints.slice(0, 5).join('\n'));
      } catch (error) {
        problem = error;
      }
      await context.close(problem !== null);
      const seconds = ((Date.now() - begin) / 1000).toFixed(1);
      if (problem) {
        failed++;
        console.log(
          `FAILED: ${file}: ${name} (${seconds} s)\n  ${String(problem.stack || problem)
            .split('\n')
            .slice(0, 12)
            .join('\n  ')}`
        );
      } else {
        passed++;
        console.log(`passed: ${file}: ${name} (${seconds} s)`);
      }
    }
    if (module.done) await module.done();
  }
  await browser.close();
  console.log(`browser: ${passed} passed, ${failed} failed`);
  return failed === 0 && passed > 0;
}
