// What a test file has from its runner: test() registers a test, a Context gives it pages and cleans up behind it.
// A test that fails leaves a picture of every page that it had open in out/.
import { dirname, join } from 'node:path';
import { fileURLToPath } from 'node:url';

export const here = dirname(fileURLToPath(import.meta.url));
export const outDir = join(here, 'out');

/** A test that takes longer has hung (milliseconds). */
const TEST_LIMIT = 180_000;

/** Those that the file has registered. @type {{name: string, body: (t: Context) => Promise<void>, limit: number}[]} */
export const tests = [];

/** To the process that runs this file, if there is one (runner.mjs). @param {Object<string, any>} words */
export const tell = (words) => { process.send?.(words); };

/** States that are being waited for just now: what a test that hangs is asked about. @type {Set<string>} */
export const awaited = new Set();

/** A program that has to end with this process, however that ends.
 * @param {import('node:child_process').ChildProcess} child
 * @param {boolean} [group] whether it leads a group of its own */
export function endsWithUs(child, group = false) {
  const id = group ? -(child.pid ?? 0) : child.pid;
  tell({ started: id });
  child.once('exit', () => tell({ ended: id }));
}

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
