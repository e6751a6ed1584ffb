// The toolkit's test application (tests/gallery) behind a road that a test can cut.
import { spawn } from 'node:child_process';
import { once } from 'node:events';
import { mkdirSync, mkdtempSync, readdirSync, rmSync, writeFileSync } from 'node:fs';
import { connect, createServer } from 'node:net';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { endsWithUs } from './harness.mjs';
import { freePort, top, until } from './system.mjs';

/** A TCP relay between browsers and the server. */
class Road {
  /** @param {number} target port of the server */
  constructor(target) {
    this.target = target;
    this.closed = false; // new connections are refused and old ones cut
    this.silent = false; // bytes go into the void, as with a pulled cable
    this.noWebSocket = false; // as behind a proxy that does not know them
    this.bytesPerMs = Infinity; // towards the server
    this.opened = 0; // connections so far
    this.carried = 0; // bytes towards the server
    /** @type {Set<import('node:net').Socket>} */
    this.sockets = new Set();
    this.server = createServer((browser) => this.carry(browser));
  }

  async open() {
    this.server.listen(0, '127.0.0.1');
    await once(this.server, 'listening');
    this.port = /** @type {import('node:net').AddressInfo} */ (this.server.address()).port;
    return this;
  }

  cut() {
    this.closed = true;
    for (const socket of this.sockets) socket.destroy();
  }

  mend() {
    this.closed = this.silent = false;
  }

  close() {
    this.cut();
    this.server.close();
  }

  carry(browser) {
    this.opened++;
    if (this.closed) {
      browser.destroy();
      return;
    }
    const server = connect(this.target, '127.0.0.1');
    for (const [from, to] of [[browser, server], [server, browser]]) {
      this.sockets.add(from);
      from.on('close', () => { this.sockets.delete(from); to.destroy(); });
      from.on('error', () => {});
      from.on('data', (data) => {
        if (this.silent) return;
        if (from === browser && this.noWebSocket && /^upgrade: *websocket/im.test(data.toString('latin1'))) {
          browser.destroy();
          return;
        }
        to.write(data);
        if (from === browser) this.carried += data.length;
        if (from === browser && this.bytesPerMs < Infinity) {
          from.pause();
          setTimeout(() => from.resume(), data.length / this.bytesPerMs);
        }
      });
    }
  }
}

export class Gallery {
  /** @param {string[]} args for the server besides address and folders */
  constructor(args = []) {
    this.args = args;
  }

  async start() {
    this.port = await freePort();
    this.folder = mkdtempSync(join(tmpdir(), 'gallery-'));
    this.spool = join(this.folder, 'spool');
    mkdirSync(this.spool);
    writeFileSync(join(this.folder, 'favicon.ico'), ''); // browsers ask for it
    this.output = '';
    await this.launch();
    this.road = await new Road(this.port).open();
    return this;
  }

  /** The server ends and another one takes its place. */
  async restart() {
    await this.stop();
    await this.launch();
  }

  async launch() {
    const program = join(top, `build-${process.env.MIRL_KIND ?? 'release'}/tests/gallery/gallery`);
    this.process = spawn(
      program,
      [
        '--http-address=127.0.0.1',
        `--http-port=${this.port}`,
        `--spool-folder=${this.spool}`,
        `--docroot=${this.folder};/favicon.ico`,
        '--accesslog=-',
        '--max-anonymous-connections-per-address=200',
        ...this.args,
      ],
      { stdio: ['ignore', 'ignore', 'pipe'] }
    );
    endsWithUs(this.process);
    this.process.stderr.on('data', (data) => { this.output += data; });
    this.ended = once(this.process, 'exit');
    await until('the gallery answers', () => new Promise((resolve) => {
      const probe = connect(this.port, '127.0.0.1', () => { probe.destroy(); resolve(true); });
      probe.on('error', () => resolve(false));
    }));
  }

  async stop() {
    this.process.kill('SIGTERM');
    const [code] = await this.ended;
    if (code !== 0) throw new Error(`the gallery ended with ${code}:\n${this.output.slice(-3000)}`);
  }

  /** Ends the server and fails if it says that something was wrong. */
  async remove() {
    this.road.close();
    await this.stop();
    rmSync(this.folder, { recursive: true, force: true });
  }

  spooled() {
    return readdirSync(this.spool).length;
  }

  /** @param {import('playwright-core').Page} page @param {string} sections names as in Gallery.cpp */
  async open(page, sections) {
    await page.goto(`http://127.0.0.1:${this.road.port}/?show=${sections}`);
    await page.locator('#log').waitFor();
  }
}

/**
 * A gallery of the test's own, and a page on it.
 * @param {import('./harness.mjs').Context} t @param {string} sections
 * @param {{args?: string[]} & Object<string, any>} options
 */
export async function openGallery(t, sections, { args = [], ...options } = {}) {
  const gallery = await new Gallery(args).start();
  t.after(() => gallery.remove());
  const page = await t.page(options);
  await gallery.open(page, sections);
  return { gallery, page };
}

/** What an element says. @param {import('playwright-core').Page} page @param {string} id */
export const said = (page, id) => page.locator(`#${id}`).textContent();

/**
 * Waits until an element says it.
 * @param {import('playwright-core').Page} page @param {string} id @param {string | RegExp} text
 */
export const saying = (page, id, text) => until(`#${id} says ${text}`, async () => {
  const now = (await said(page, id)) ?? '';
  return typeof text === 'string' ? now === text : text.test(now);
});

/** The id of the element that has the focus. @param {import('playwright-core').Page} page */
export const focused = (page) => page.evaluate(() => document.activeElement?.id ?? '');

/** The messages with operations that the page has got so far. Call before it is opened.
 * @param {import('playwright-core').Page} page */
export function operations(page) {
  const list = [];
  page.on('websocket', (socket) => socket.on('framereceived', ({ payload }) => {
    const text = String(payload);
    if (text.includes('"o":')) list.push(text);
  }));
  return list;
}
