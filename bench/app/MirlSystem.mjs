// The whole product from the measured build: zeqd and mirl over TLS, each with a folder of its own.
import { execFileSync } from 'node:child_process';
import { writeFileSync } from 'node:fs';
import net from 'node:net';
import path from 'node:path';
import { request } from '../client/PageClient.mjs';
import { openPage } from '../client/load.mjs';
import { OPEN_LIMITS, Program, build, sleep, tempFolder } from '../client/program.mjs';

const PASSWORD = 'measured';
const PATIENCE_MS = 30_000;

function freePort() {
  return new Promise(resolve => {
    const server = net.createServer().listen(0, '127.0.0.1', () => {
      const { port } = server.address();
      server.close(() => resolve(port));
    });
  });
}

export class MirlSystem {
  /** @param {{devices?: number}} options devices: this many instead of the demo's */
  static async start({ devices } = {}) {
    const system = new MirlSystem();
    system.folder = tempFolder();
    system.env = { ZEQ_SOCKET: path.join(system.folder, 'zeq.sock'), ZEQD_ADMIN_PASSWORD: PASSWORD,
      MIRL_ATTRIBUTES: path.join(system.folder, 'attributes'), EVENTLOG_LEVEL: '2' };
    writeFileSync(system.env.MIRL_ATTRIBUTES, 'switch.oem.short=unknown\nfirmware.appversion=0\n');
    system.zeqd = await Program.start(path.join(build, 'platform/zeqd'), ['--socket', system.env.ZEQ_SOCKET,
      '--data', path.join(system.folder, 'db'), '--settings-dir', path.join(system.folder, 'settings'), '--demo',
      ...(devices ? ['--devices', String(devices)] : [])], { env: system.env, said: null });
    await until('the service answers', system.zeqd, () => system.ctl('get', 'swx', '1', 'index'));
    await system.startMirl();
    return system;
  }

  /** `startTook`: from the start to the first answer, in ms. */
  async startMirl() {
    const [key, certificate] = ['key.pem', 'cert.pem'].map(name => path.join(this.folder, name));
    execFileSync('openssl', ['req', '-x509', '-newkey', 'ec', '-pkeyopt', 'ec_paramgen_curve:P-256', '-nodes', '-subj',
      '/CN=mirl', '-addext', 'subjectAltName=DNS:localhost,IP:127.0.0.1', '-keyout', key, '-out', certificate],
    { stdio: 'ignore' });
    this.certificate = certificate;
    this.port = await freePort();
    this.tls = true;
    const begin = performance.now();
    this.mirl = await Program.start(path.join(build, 'shell/mirl'), ['--docroot=docroot', '--https-address=127.0.0.1',
      `--https-port=${this.port}`, `--ssl-certificate=${certificate}`, `--ssl-private-key=${key}`, '--accesslog=-',
      ...OPEN_LIMITS], { env: this.env, cwd: build, said: null });
    await until('the interface answers', this.mirl, () => request(this, 'GET', '/'));
    this.startTook = performance.now() - begin;
  }

  ctl(...words) {
    return execFileSync(path.join(build, 'platform/zeqctl'), words,
      { env: { ...process.env, ...this.env }, encoding: 'utf8', stdio: ['ignore', 'pipe', 'pipe'] });
  }

  get login() {
    return ['admin', PASSWORD];
  }

  /** A page of our load client, logged in, with its elements. */
  async openLoggedIn() {
    const page = await openPage(this, { tree: true });
    const fields = await eventually(page, () => loginFields(page.tree));
    const [name, password] = this.login;
    await page.click(page.tree.byText('button', 'Log In'), { [`o${fields[0]}`]: name, [`o${fields[1]}`]: password });
    await eventually(page, () => page.tree.byText('tab', 'Devices'));
    return page;
  }
}

function loginFields(tree) {
  const fields = [...tree.elements.values()].filter(({ spec }) => /mirl-login-line-edit/.test(spec.k ?? ''));
  if (fields.length < 2) throw new Error('the page has no login fields');
  return fields.map(({ id }) => id);
}

/** Looks at the page after each of its messages until `look` no longer throws. @template T @param {() => T} look */
export async function eventually(page, look) {
  for (let left = 20; ; --left) {
    const next = page.next();
    next.catch(() => {});
    try {
      return look();
    } catch (error) {
      if (left === 0) throw error;
      await next;
    }
  }
}

/** @param {Program} program that has to go on running @param {() => any} probe */
async function until(what, program, probe) {
  for (const end = Date.now() + PATIENCE_MS; program.child.exitCode === null && Date.now() < end; await sleep(2)) {
    try {
      return await probe();
    } catch { /* not yet */ }
  }
  await Promise.race([program.ended, sleep(500)]); // for its last words
  throw new Error(`waited in vain until ${what}: ${program.complaint}`);
}
