// The system under test: ./run on a free port with a data folder of its own.
import { execFileSync, spawn } from 'node:child_process';
import { mkdtempSync, rmSync } from 'node:fs';
import { createServer } from 'node:net';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { awaited, endsWithUs, here } from './harness.mjs';

export const top = join(here, '..', '..');

/** A TCP port that nobody listens on just now. */
export function freePort() {
  return new Promise((resolve, reject) => {
    const server = createServer();
    server.once('error', reject);
    server.listen(0, '127.0.0.1', () => {
      const { port } = /** @type {import('node:net').AddressInfo} */ (server.address());
      server.close(() => resolve(port));
    });
  });
}

export class System {
  /** @param {{args?: string[], data?: string, port?: number}} options */
  constructor(options = {}) {
    this.args = options.args ?? [];
    this.ownsData = !options.data;
    this.data = options.data ?? mkdtempSync(join(tmpdir(), 'mirl-test-'));
    this.port = options.port ?? 0;
    /** what ./run printed, by the word in front of the colon @type {Record<string, string>} */
    this.said = {};
    this.output = '';
  }

  /** Resolves when a browser can log in; rejects with what was printed when it ends before. */
  async start() {
    if (!this.port) this.port = await freePort();
    this.process = spawn(join(top, 'run'), ['--port', String(this.port), '--data', this.data, '--still', ...this.args],
      { stdio: ['ignore', 'pipe', 'pipe'], detached: true });
    endsWithUs(this.process, true);
    this.ended = new Promise((resolve) => this.process.once('exit', (code, signal) => resolve(code ?? signal)));
    this.process.stderr.on('data', (data) => { this.output += data; });
    await new Promise((resolve, reject) => {
      let rest = '';
      this.process.stdout.on('data', (data) => {
        this.output += data;
        rest += data;
        const lines = rest.split('\n');
        rest = lines.pop() ?? '';
        for (const line of lines) {
          if (line === 'ready') resolve(undefined);
          const found = /^(\w+): (.*)$/.exec(line);
          if (found) this.said[found[1]] = found[2];
        }
      });
      this.ended.then((code) => reject(new Error(`./run ended with ${code}:\n${this.output}`)));
    });
    [this.user, this.password] = this.said.login.split(' / ');
    this.address = `https://127.0.0.1:${this.port}/`;
    return this;
  }

  /** Ctrl-C, and the end of it. Gives the exit code. */
  async stop() {
    if (this.process && this.process.exitCode === null) process.kill(-this.process.pid, 'SIGINT');
    const code = await this.ended;
    return code;
  }

  async remove() {
    await this.stop();
    if (this.ownsData) rmSync(this.data, { recursive: true, force: true });
  }

  /** zeqctl against this system; its output without the last line end. @param {...string} words */
  ctl(...words) {
    return execFileSync(join(top, `build-${process.env.MIRL_KIND ?? 'release'}/platform/zeqctl`), words,
      { env: { ...process.env, ZEQ_SOCKET: this.said.socket }, encoding: 'utf8' }).replace(/\n$/, '');
  }

  /** Process ids of one of the two programs of this system. @param {'mirl' | 'zeqd'} program */
  pids(program) {
    const mine = program === 'mirl' ? `--https-port=${this.port}` : `--socket ${this.said.socket}`;
    return execFileSync('ps', ['-eo', 'pid=,args='], { encoding: 'utf8' }).split('\n')
      .filter((line) => line.includes(mine) && new RegExp(`/${program} `).test(line)).map((line) => parseInt(line, 10));
  }

  /** @param {'mirl' | 'zeqd'} program */
  kill(program, signal = 'SIGKILL') {
    for (const pid of this.pids(program)) process.kill(pid, signal);
  }
}

/** How often a state is looked at (milliseconds). */
const LOOK_EVERY = 100;

/** Tries until `probe` gives something true. @template T @param {string} what the state, as a failure names it
 * @param {() => Promise<T> | T} probe @returns {Promise<T>} */
export async function until(what, probe, ms = 20_000) {
  const end = Date.now() + ms;
  let last = null;
  awaited.add(what);
  try {
    for (;;) {
      try {
        const value = await probe();
        if (value) return value;
      } catch (error) {
        last = error;
      }
      if (Date.now() > end) throw new Error(`waited ${ms / 1000} s for: ${what}${last ? ` (${last})` : ''}`);
      await new Promise((resolve) => setTimeout(resolve, LOOK_EVERY));
    }
  } finally {
    awaited.delete(what);
  }
}
