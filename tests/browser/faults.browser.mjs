// What breaks at 3 a.m.: the service dies, the interface dies, the network goes away.
import assert from 'node:assert/strict';
import { connect } from 'node:tls';
import { test } from './harness.mjs';
import { field, login, mainTab, openDevices, rename, saveButton, selectReceiver, showRow } from './pages.mjs';
import { System, until } from './system.mjs';

const receiverName = (system) => JSON.parse(system.ctl('--json', 'list', 'rx', 'index', 'name'))[0].name;

test('the database service is killed and comes back under an open page', async (t) => {
  const system = await new System().start();
  t.after(() => system.remove());
  const page = await t.page();
  const name = receiverName(system);
  await login(page, system);
  await openDevices(page);
  const before = system.pids('zeqd');
  system.kill('zeqd');
  await until('another service runs', () => {
    const now = system.pids('zeqd');
    return now.length === 1 && now[0] !== before[0];
  });
  await until('it answers', () => system.ctl('get', 'swx', '1', 'index') === '1');
  await showRow(page, name);
  await rename(page, name, 'After the fall');
});

test('the service is killed under each page, which goes on by itself', async (t) => {
  const system = await new System().start();
  t.after(() => system.remove());
  const page = await t.page();
  await login(page, system);
  const shown = {
    Dashboard: 'Video Wall 2', Sessions: 'Video Wall 2', Users: 'mhansen', Devices: 'Desk 1 Left',
    Cascade: '00A701-010001', Peripherals: 'Ives I12 panel', 'System Settings': 'Manager', Events: 'Fan 2 works again',
  };
  const note = page.getByText('The database of the Switch does not answer.');
  const wall = page.getByText(shown.Dashboard).locator('visible=true').first();
  await wall.waitFor();
  system.kill('zeqd', 'SIGSTOP');
  t.after(() => system.kill('zeqd', 'SIGCONT'));
  await note.waitFor({ timeout: 30_000 });
  assert.equal(await wall.isVisible(), true, 'what was read stays');
  await t.picture(page, 'service-away');
  system.kill('zeqd', 'SIGCONT');
  await note.waitFor({ state: 'hidden' });
  for (const [tab, text] of Object.entries(shown)) {
    await mainTab(page, tab).click();
    const there = page.getByText(text).locator('visible=true').first();
    await there.waitFor();
    const before = system.pids('zeqd');
    system.kill('zeqd');
    await until(`another service runs under ${tab}`, () => {
      const now = system.pids('zeqd');
      return now.length === 1 && now[0] !== before[0];
    });
    await until('it answers', () => system.ctl('get', 'swx', '1', 'index') === '1');
    await there.waitFor();
    assert.equal(await page.getByRole('dialog').count(), 0, tab);
    assert.equal(await mainTab(page, tab).getAttribute('aria-selected'), 'true');
  }
});

test('the interface is killed; ./run starts it again and the page says so', async (t) => {
  const system = await new System().start();
  t.after(() => system.remove());
  const page = await t.page({ expectErrors: true });
  await login(page, system);
  const before = system.pids('mirl');
  system.kill('mirl');
  await until('another process runs', () => {
    const now = system.pids('mirl');
    return now.length === 1 && now[0] !== before[0];
  });
  await page.getByRole('button', { name: /start again/i }).click();
  await page.locator('.mirl-login-line-edit').first().waitFor();
  await login(page, system);
});

test('typed text survives a lost connection and is sent on return', async (t) => {
  const system = await new System().start();
  t.after(() => system.remove());
  const page = await t.page({ expectErrors: true });
  const name = receiverName(system);
  await login(page, system);
  await openDevices(page);
  await selectReceiver(page, name);
  system.kill('mirl', 'SIGSTOP');
  t.after(() => system.kill('mirl', 'SIGCONT'));
  await field(page, 'Receiver Name').fill('Typed in the dark');
  await page.locator('.wt-banner').waitFor(); // the page has seen that nobody answers
  system.kill('mirl', 'SIGCONT');
  await until('Save can be pressed', () => saveButton(page).isEnabled());
  await saveButton(page).click();
  await showRow(page, 'Typed in the dark');
});

test('plain http on the same port arrives at https', async (t) => {
  const system = await new System().start();
  t.after(() => system.remove());
  const page = await t.page();
  await page.goto(`http://127.0.0.1:${system.port}/`);
  await page.waitForURL(system.address);
  await page.locator('.mirl-login-line-edit').first().waitFor();
});

/** Sends bytes over TLS and gives what came back until the server closed it.
 * @param {number} port @param {string} bytes @returns {Promise<string>} */
function raw(port, bytes) {
  return new Promise((resolve, reject) => {
    let answer = '';
    const socket = connect({ port, host: '127.0.0.1', rejectUnauthorized: false }, () => socket.write(bytes));
    socket.setEncoding('latin1');
    socket.on('data', (data) => { answer += data; });
    socket.on('error', () => resolve(answer));
    socket.on('close', () => resolve(answer));
    socket.setTimeout(60_000, () => {
      socket.destroy();
      reject(new Error(`not closed by the server after ${bytes.slice(0, 60)}`));
    });
  });
}

test('hostile requests get a clear status and harm no session', async (t) => {
  const system = await new System().start();
  t.after(() => system.remove());
  const page = await t.page();
  await login(page, system);
  process.env.NODE_TLS_REJECT_UNAUTHORIZED = '0';
  t.after(() => { delete process.env.NODE_TLS_REJECT_UNAUTHORIZED; });
  const at = (path, options) => fetch(new URL(path, system.address), options).then((r) => r.status);
  assert.equal(await at('/nothing/here'), 404);
  assert.equal(await at('/wt-session/start', { method: 'POST', body: '{' }), 403, 'no Origin');
  assert.equal(await at('/', { method: 'DELETE' }), 405);

  const host = `Host: 127.0.0.1:${system.port}\r\n`;
  const rows = [
    ['GET /../../../../etc/passwd HTTP/1.1\r\n' + host + '\r\n', /^HTTP\/1\.1 40[04]/],
    ['GET /resources/%2e%2e/%2e%2e/etc/passwd HTTP/1.1\r\n' + host + '\r\n', /^HTTP\/1\.1 40[04]/],
    ['GET /' + 'a'.repeat(20000) + ' HTTP/1.1\r\n' + host + '\r\n', /^HTTP\/1\.1 4(14|31)/],
    ['GET / HTTP/1.1\r\nX: ' + 'b'.repeat(40000) + '\r\n\r\n', /^HTTP\/1\.1 431/],
    ['nonsense\r\n\r\n', /^HTTP\/1\.1 400/],
    ['GET / HTTP/1.1\r\nHost: evil.example\r\n\r\n', /^HTTP\/1\.1 421/],
    [
      'POST /wt-session/start HTTP/1.1\r\n' +
        host +
        `Origin: https://127.0.0.1:${system.port}\r\n` +
        'Content-Length: 20971520\r\n\r\n' +
        'x'.repeat(100000),
      /^HTTP\/1\.1 413/,
    ],
    [
      'GET /wt-session/ws HTTP/1.1\r\n' +
        host +
        'Origin: https://elsewhere.example\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n' +
        'Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\nSec-WebSocket-Version: 13\r\n\r\n',
      /^HTTP\/1\.1 403/,
    ],
  ];
  for (const [request, status] of rows) {
    const answer = await raw(system.port, request);
    assert.match(answer, status, `answer to ${request.slice(0, 60)}: ${answer.slice(0, 80)}`);
    assert.doesNotMatch(answer, /root:/);
  }
  // A request that stops half-way is ended by the server.
  assert.match(await raw(system.port, 'GET / HTTP/1.1\r\nHost: x'), /^(HTTP\/1\.1 408|$)/);

  await mainTab(page, 'Devices').click();
  await showRow(page, receiverName(system));
});

test('answers carry the security headers', async (t) => {
  const system = await new System().start();
  t.after(() => system.remove());
  process.env.NODE_TLS_REJECT_UNAUTHORIZED = '0';
  t.after(() => { delete process.env.NODE_TLS_REJECT_UNAUTHORIZED; });
  for (const path of ['/', '/nothing', '/resources/msgs-general.xml']) {
    const { headers } = await fetch(new URL(path, system.address));
    const policy = headers.get('content-security-policy') ?? '';
    assert.match(policy, /default-src 'none'/, path);
    assert.doesNotMatch(policy, /unsafe/, path);
    assert.match(policy, /require-trusted-types-for 'script'/, path);
    assert.match(policy, /frame-ancestors 'none'/, path);
    assert.equal(headers.get('x-content-type-options'), 'nosniff', path);
    for (const name of ['strict-transport-security', 'referrer-policy', 'permissions-policy'])
      assert.ok(headers.get(name), `${path}: ${name}`);
  }
});
