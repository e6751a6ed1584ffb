// The first ten minutes of an administrator: log in, rename a Receiver, stop, start, find the name again.
import assert from 'node:assert/strict';
import { test } from './harness.mjs';
import { deviceRow, deviceRows, login, mainTab, openByKeys, openDevices, rename, showRow, tabs } from './pages.mjs';
import { System, until } from './system.mjs';

/** Index and name of the first Receiver, as the service has it. */
const firstReceiver = (system) => {
  const [row] = JSON.parse(system.ctl('--json', 'list', 'rx', 'index', 'name'));
  return row;
};

test('rename a Receiver; the name outlives a restart', async (t) => {
  const system = await new System().start();
  t.after(() => system.remove());
  const page = await t.page();
  const receiver = firstReceiver(system);

  await login(page, system);
  for (const name of tabs) await mainTab(page, name).waitFor();
  assert.equal(await page.locator('.mirl-main-tab').first().getByRole('tab').count(), tabs.length);
  await t.picture(page, 'dashboard');
  await openDevices(page);
  await t.picture(page, 'devices');
  const renamed = 'Tower wall 7 <b>"left" & 100%</b>';
  await rename(page, receiver.name, renamed);
  await t.picture(page, 'devices-renamed');
  assert.equal(system.ctl('get', 'rx', String(receiver.index), 'name'), renamed);
  assert.equal(await deviceRow(page, receiver.name).count(), 0);

  assert.equal(await system.stop(), 0);
  await system.start();
  assert.equal(system.ctl('get', 'rx', String(receiver.index), 'name'), renamed);
  const again = await t.page();
  await login(again, system);
  await openDevices(again);
  await showRow(again, renamed);
});

test('two administrators see each other\'s changes', async (t) => {
  const system = await new System().start();
  t.after(() => system.remove());
  const [one, two] = [await t.page(), await t.page()];
  const receiver = firstReceiver(system);
  await login(one, system);
  await login(two, system);
  await openDevices(one);
  await openDevices(two);
  await rename(one, receiver.name, 'Renamed by one');
  await showRow(two, 'Renamed by one');
  await rename(two, 'Renamed by one', 'Renamed by two');
  await showRow(one, 'Renamed by two');
});

test('a page without a pointer: log in and rename by keyboard alone', async (t) => {
  const system = await new System().start();
  t.after(() => system.remove());
  const page = await t.page();
  const receiver = firstReceiver(system);
  await page.goto(system.address);
  await page.locator('.mirl-login-line-edit').first().waitFor();
  await until('focus stands in the username', () =>
    page.evaluate(() => document.activeElement?.classList.contains('mirl-login-line-edit'))
  );
  await page.keyboard.type(system.user);
  await page.keyboard.press('Tab');
  await page.keyboard.type(system.password);
  await page.keyboard.press('Enter');
  await mainTab(page, 'Dashboard').waitFor();

  await openByKeys(page, 'Devices');
  await deviceRows(page).first().waitFor();
  await page.locator('[role="grid"]:visible').focus();
  await page.keyboard.press('Home');
  const wanted = deviceRow(page, receiver.name);
  await until('arrow keys reach the Receiver', async () => {
    if (await wanted.count() && (await wanted.getAttribute('aria-selected')) === 'true') return true;
    await page.keyboard.press('ArrowDown');
    return false;
  });
});
