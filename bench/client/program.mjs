// A program under measurement, and what the system says of it.
import { execFileSync, spawn } from 'node:child_process';
import { mkdtempSync, readdirSync, readFileSync, rmSync } from 'node:fs';
import { tmpdir } from 'node:os';
import path from 'node:path';

/** The build folder, from the command line; the rest of it names figures. */
export const build = path.resolve(process.argv[2] ?? 'build/bench');

/** Nobody stands in the way of a measurement from one address. */
export const OPEN_LIMITS = [
  '--max-connections-per-address=10000',
  '--max-sessions-per-address=3000',
  '--max-sessions=3000',
  '--max-anonymous-sessions=3000',
  '--max-anonymous-connections-per-address=10000',
];

const folders = [];
export function tempFolder() {
  const folder = mkdtempSync(path.join(tmpdir(), 'wt-bench-'));
  folders.push(folder);
  return folder;
}

/** @type {Set<Program>} */
const running = new Set();

/** Ends what still runs and removes temporary folders. */
export async function cleanUp() {
  await Promise.all([...running].map(program => program.stop()));
  for (const folder of folders.splice(0)) rmSync(folder, { recursive: true, force: true });
}

export class Program {
  /**
   * @param {string} file @param {string[]} words @param {{env?: object, cwd?: string, said?: RegExp}} options
   * said: what it prints when it is ready; null: the caller finds out
   */
  static start(file, words, { env = {}, cwd, said = /port (\d+)/ } = {}) {
    return new Promise((resolve, reject) => {
      const program = new Program();
      program.child = spawn(file, words, { stdio: ['ignore', 'pipe', 'pipe'], env: { ...process.env, ...env }, cwd });
      program.ended = new Promise(done => program.child.on('close', done));
      running.add(program);
      program.complaint = '';
      program.child.stderr.on('data', piece => { program.complaint = (program.complaint + piece).slice(-500); });
      program.child.on('error', reject);
      program.ended.then(code => reject(new Error(`${file} ended with ${code}: ${program.complaint}`)));
      if (!said) resolve(program);
      let text = '';
      program.child.stdout.on('data', piece => {
        if (said) text += piece;
        const found = said && said.exec(text);
        if (!found) return;
        program.port = Number(found[1]);
        resolve(program);
      });
    });
  }

  get pid() {
    return this.child.pid;
  }

  async stop(signal = 'SIGTERM') {
    running.delete(this);
    this.child.kill(signal);
    await this.ended;
  }

  status(key) {
    return Number(new RegExp(`${key}:\\s+(\\d+)`).exec(readFileSync(`/proc/${this.pid}/status`, 'utf8'))[1]);
  }

  /** Resident memory in MiB. */
  rss() {
    return this.status('VmRSS') / 1024;
  }

  threads() {
    return this.status('Threads');
  }

  descriptors() {
    return readdirSync(`/proc/${this.pid}/fd`).length;
  }

  /** Processor time of the threads that live now, in ms; a thread that ends takes its share along. */
  cpu() {
    let sum = 0;
    for (const thread of readdirSync(`/proc/${this.pid}/task`)) {
      try {
        sum += Number(readFileSync(`/proc/${this.pid}/task/${thread}/schedstat`, 'utf8').split(' ')[0]);
      } catch { /* ended just now */ }
    }
    return sum / 1e6;
  }

  pinTo(core) {
    execFileSync('taskset', ['-apc', String(core), String(this.pid)], { stdio: 'ignore' });
  }
}

/** Until processor time stands still: what was asked for has been done. @param {Program} program */
export async function settled(program) {
  let before = -1;
  for (let now = program.cpu(); now - before > 0.5; now = program.cpu()) {
    before = now;
    await sleep(300);
  }
}

/** @param {number} ms */
export const sleep = ms => new Promise(done => setTimeout(done, ms));
