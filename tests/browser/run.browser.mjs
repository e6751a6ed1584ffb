// ./run itself: what it refuses, in one line each, and that it leaves nothing behind.
import assert from 'node:assert/strict';
import { spawn, spawnSync } from 'node:child_process';
import { once } from 'node:events';
import { existsSync, mkdtempSync, readFileSync, rmSync, writeFileSync } from 'node:fs';
import { createServer } from 'node:net';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { test } from './harness.mjs';
import { freePort, System, top, until } from './system.mjs';

function refusal(args) {
  const done = spawnSync(join(top, 'run'), args, { encoding: 'utf8', timeout: 120_000 });
  return { code: done.status, lines: done.stderr.trim().split('\n').filter((line) => line.startsWith('error:')) };
}

test('a busy port, a folder that is no folder, words that are none', async (t) => {
  const folder = mkdtempSync(join(tmpdir(), 'mirl-run-'));
  t.after(() => rmSync(folder, { recursive: true }));
  writeFileSync(join(folder, 'file'), '');
  const port = await freePort();
  const holder = createServer().listen(port, '127.0.0.1');
  await once(holder, 'listening');
  t.after(() => { holder.close(); });
  const rows = [
    [['--port', String(port), '--data', join(folder, 'd')], /port \d+ is busy/],
    [['--data', join(folder, 'file')], /cannot be read and written/],
    [['--host', 'a/b'], /--host takes a name without port/],
    [['--brand', 'nobody'], /brand 'nobody' unknown; use brenmor, calvex, dunmere, unknown/],
    [['--port', '70000'], /--port takes a number from 1 to 65535/],
    [['--devices', 'many'], /--devices takes a number/],
    [['--frobnicate'], /option '--frobnicate' unknown/],
  ];
  for (const [args, words] of rows) {
    const { code, lines } = refusal(args);
    assert.notEqual(code, 0, args.join(' '));
    assert.equal(lines.length, 1, args.join(' '));
    assert.match(lines[0], words);
  }
});

test('one data folder serves one instance; Ctrl-C ends both programs', async (t) => {
  const system = new System();
  t.after(() => system.remove());
  writeFileSync(join(system.data, 'attributes'), 'switch.oem.short=calvex\nhelp.host=help.plant.example\n');
  await system.start();
  const attributes = readFileSync(join(system.data, 'attributes'), 'utf8');
  assert.match(attributes, /^switch\.oem\.short=calvex\nfirmware\.appversion=.+\nhelp\.host=help\.plant\.example\n$/);
  const { code, lines } = refusal(['--port', String(await freePort()), '--data', system.data]);
  assert.notEqual(code, 0);
  assert.match(lines[0], /in use by another/);
  assert.equal(await system.stop(), 0);
  await until('nothing is left', () => system.pids('mirl').length === 0 && system.pids('zeqd').length === 0);
  assert.ok(!existsSync(system.said.socket));
});

test('a reboot of the Switch starts both programs again', async (t) => {
  const system = await new System().start();
  t.after(() => system.remove());
  const before = [...system.pids('mirl'), ...system.pids('zeqd')];
  system.ctl('time', 'faster', '100');
  system.ctl('set', 'swx', '1', 'reset=cold_reboot');
  await until('both are new', () => {
    const now = [...system.pids('mirl'), ...system.pids('zeqd')];
    return now.length === 2 && now.every((pid) => !before.includes(pid));
  }, 60_000);
  await until('the page is there', async () => {
    const child = spawn('curl', ['-skf', '-o', '/dev/null', system.address]);
    return (await new Promise((resolve) => child.once('exit', resolve))) === 0;
  });
});
