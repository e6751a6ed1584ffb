// A reload, a tab that went elsewhere, a second tab; the address, Back and Forward; leaving with unsaved edits.
import assert from 'node:assert/strict';
import { openTab, select, sharedSystem, shows } from './devices.mjs';
import { test } from './harness.mjs';
import { deviceRow, field, login, mainTab, openDevices, saveButton, tryLogin } from './pages.mjs';
import { until } from './system.mjs';

const system = sharedSystem();
const place = (page) => new URL(page.url()).searchParams.get('_');
const at = (page, path) => until(`the address says ${path}`, () => path.test(place(page) ?? ''));
const loginField = (page) => page.locator('.mirl-login-line-edit').first();
const selected = (page, name) => until(`${name} is selected`, async () =>
  (await deviceRow(page, name).getAttribute('aria-selected')) === 'true');

test('a reload, and a tab that went elsewhere, find the session as it was, with what was typed', async (t) => {
  const page = await t.page({ expectErrors: true });
  await login(page, await system.get());
  await openDevices(page);
  await select(page, 'Desk 1 Left');
  await field(page, 'Receiver Name').fill('Half typ');
  await until('Save can be pressed', () => saveButton(page).isEnabled());
  const asked = new Promise((resolve) => page.once('dialog', (dialog) => {
    resolve(dialog.type());
    dialog.accept();
  }));
  await page.reload();
  assert.equal(await asked, 'beforeunload', 'leaving with unsaved edits asks');
  await shows(page, 'Receiver Name', 'Half typ');
  assert.equal(await saveButton(page).isEnabled(), true);
  await selected(page, 'Desk 1 Left');
  assert.match((await mainTab(page, 'Devices').textContent()) ?? '', /\*$/);
  await t.picture(page, 'reloaded');
  await page.getByRole('button', { name: 'Cancel' }).locator('visible=true').click();
  await shows(page, 'Receiver Name', 'Desk 1 Left');

  const address = page.url();
  await page.goto('about:blank');
  await page.goto(address);
  await shows(page, 'Receiver Name', 'Desk 1 Left');
  await field(page, 'Receiver Name').fill('Alive');
  await until('Save can be pressed', () => saveButton(page).isEnabled());
});

test('a second tab, a duplicated one too, has a login of its own, and the first goes on', async (t) => {
  const page = await t.page({ expectErrors: true });
  await login(page, await system.get());
  await openDevices(page);
  const other = await page.context().newPage();
  await other.goto(page.url());
  await loginField(other).waitFor();
  // As a browser duplicates a tab: with all that it remembers.
  const kept = await page.evaluate(() => Object.entries(sessionStorage));
  assert.equal(kept.length, 1);
  const copy = await page.context().newPage();
  await copy.addInitScript((entries) => { for (const [k, v] of entries) sessionStorage.setItem(k, v); }, kept);
  await copy.goto(page.url());
  await loginField(copy).waitFor();
  await select(page, 'Desk 1 Left');
  await shows(page, 'Receiver Name', 'Desk 1 Left');
});

test('after logging out a reload is a new login', async (t) => {
  const page = await t.page({ expectErrors: true });
  await login(page, await system.get());
  await page.locator('.mirl-logout-button').click();
  await loginField(page).waitFor();
  await page.reload();
  await loginField(page).waitFor();
  assert.equal(place(page), null);
});

test('Back and Forward walk the places; an address leads there after login', async (t) => {
  const page = await t.page({ expectErrors: true });
  await login(page, await system.get());
  await at(page, /^\/dashboard$/);
  await openDevices(page);
  await at(page, /^\/devices$/);
  await select(page, 'Desk 1 Left');
  await at(page, /^\/devices\/\w{6}-\w{6}\/attributes$/);
  await openTab(page, 'Settings');
  await at(page, /\/settings$/);
  await select(page, 'Desk 1 Right');
  const there = page.url();
  await page.goBack();
  await selected(page, 'Desk 1 Left');
  await page.goBack();
  await at(page, /\/attributes$/);
  await shows(page, 'Receiver Name', 'Desk 1 Left');
  await page.goBack();
  await at(page, /^\/devices$/);
  await page.goBack();
  await until('the Dashboard is on show', async () =>
    (await mainTab(page, 'Dashboard').getAttribute('aria-selected')) === 'true');
  for (let i = 0; i < 4; i++) await page.goForward();
  await selected(page, 'Desk 1 Right');
  assert.equal(page.url(), there);

  const other = await t.page({ expectErrors: true });
  const s = await system.get();
  await other.goto(there);
  await loginField(other).waitFor();
  await tryLogin(other, s.user, s.password);
  await selected(other, 'Desk 1 Right');
  assert.equal(other.url(), there);
});

test('Back does not leave unsaved edits behind', async (t) => {
  const page = await t.page({ expectErrors: true });
  await login(page, await system.get());
  await openDevices(page);
  await select(page, 'Desk 1 Left');
  await select(page, 'Desk 1 Right');
  const there = page.url();
  await field(page, 'Receiver Name').fill('Half typ');
  await until('Save can be pressed', () => saveButton(page).isEnabled());
  await page.goBack();
  await until('the address has come back', () => page.url() === there);
  await shows(page, 'Receiver Name', 'Half typ');
});

export const done = async () => { await system.done(); };
