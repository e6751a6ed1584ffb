// The gallery of bound widgets (tests/bound_gallery) on a system of its own.
import { spawn } from 'node:child_process';
import { mkdirSync, readdirSync } from 'node:fs';
import { get } from 'node:https';
import { join } from 'node:path';
import { endsWithUs } from './harness.mjs';
import { freePort, System, top, until } from './system.mjs';

/** Columns of the gallery, in their order. */
export const states = { one: 0, equal: 1, different: 2, disabled: 3, failed: 4, invalid: 5 };

/** Largest upload that the gallery takes, in bytes. */
export const MAX_UPLOAD = 1_000_000;

export class Gallery {
  async start() {
    this.system = await new System().start();
    this.port = await freePort();
    this.address = `https://127.0.0.1:${this.port}/`;
    const data = this.system.data;
    this.spool = join(data, 'spool');
    mkdirSync(this.spool);
    const build = join(top, `build-${process.env.MIRL_KIND ?? 'release'}`);
    this.process = spawn(
      join(build, 'tests/bound_gallery/bound_gallery'),
      [
        '--docroot=docroot',
        '--https-address=127.0.0.1',
        `--https-port=${this.port}`,
        `--ssl-certificate=${data}/tls/cert.pem`,
        `--ssl-private-key=${data}/tls/key.pem`,
        `--max-request-size=${MAX_UPLOAD}`,
        `--spool-folder=${this.spool}`,
      ],
      {
        cwd: build,
        stdio: 'ignore',
        env: { ...process.env, ZEQ_SOCKET: this.system.said.socket, MIRL_ATTRIBUTES: `${data}/attributes` },
      }
    );
    endsWithUs(this.process);
    this.ended = new Promise((resolve) => { this.process.once('exit', resolve); this.process.once('error', resolve); });
    await until('the gallery answers', () => new Promise((resolve) => {
      get(this.address, { rejectUnauthorized: false }, answer => {
        answer.resume();
        resolve(true);
      }).on('error', () => resolve(false));
    }), 60_000);
    return this;
  }

  /** @param {import('playwright-core').Page} page */
  async open(page) {
    page.setDefaultTimeout(60_000); // three hundred widgets take a busy machine a while
    await page.goto(this.address);
    await page.locator('#errors').waitFor(); // the last one to be built
    await until(
      'all pictures are there',
      () => page.locator('img').evaluateAll(all => all.every(img => img.complete)),
      60_000
    );
  }

  spooled() {
    return readdirSync(this.spool);
  }

  async remove() {
    this.process?.kill('SIGTERM');
    await this.ended;
    await this.system.remove();
  }
}

/** One gallery for the tests of a file, started by the first that asks. */
export function sharedGallery() {
  /** @type {Promise<Gallery>|null} */
  let started = null;
  return {
    get: () => (started ??= new Gallery().start()),
    done: async () => { if (started) await (await started).remove(); },
  };
}

/**
 * A widget by its class and state.
 * @param {import('playwright-core').Page} page @param {string} name @param {keyof typeof states} state
 */
export const specimen = (page, name, state) => page.locator(`[id="${name}/${states[state]}"]`);

/** What the gallery said last. @param {import('playwright-core').Page} page */
export const log = (page) => page.locator('#log').innerText();

const readings = async (page) => Number(await page.locator('#refreshes').innerText());

/**
 * Waits until the gallery has read all its widgets `times` more by itself.
 * @param {import('playwright-core').Page} page
 */
export async function refreshes(page, times) {
  const before = await readings(page);
  await until(`${times} refreshes`, async () => (await readings(page)) >= before + times, 60_000);
}

/**
 * Has the gallery read all its widgets anew.
 * @param {import('playwright-core').Page} page @param {'refresh' | 'force'} how
 */
export async function readAgain(page, how = 'refresh') {
  const before = await readings(page);
  await page.locator(`#${how}`).click();
  await until('a refresh', async () => (await readings(page)) > before, 60_000);
}
