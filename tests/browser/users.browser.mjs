// Accounts: made, given rights one by one and many at once, renamed, disabled, deleted.
import assert from 'node:assert/strict';
import { act, answer, box, openTab, rowShows, save, select, sharedSystem, shows } from './devices.mjs';
import { test } from './harness.mjs';
import { deviceRow, field, login, mainTab, openLogin, saveButton, tryLogin } from './pages.mjs';
import { answer as press } from './places.mjs';
import { until } from './system.mjs';

const shared = sharedSystem({ args: ['--users', '60'] });
export const done = shared.done;

/** @typedef {import('playwright-core').Page} Page */
const tab = (page) => page.locator('.mirl-details-tab:visible');
/** One of the two lists of a tab. @param {Page} page @param {number} n */
const mover = (page, n) => tab(page).locator('[role="grid"]').locator('visible=true').nth(n);
const target = (page, n, name) => mover(page, n).locator('[role="row"]').filter({ hasText: `(${name})` });
const move = (page, name) => tab(page).getByRole('button', { name, exact: true }).locator('visible=true').click();
const ctl = (system, ...words) => JSON.parse(system.ctl('--json', ...words));
const user = (system, name) => ctl(system, 'get', 'user', `name=${name}`)[0];

/** @param {import('./harness.mjs').Context} t */
async function usersPage(t, system) {
  const page = await t.page();
  await login(page, system);
  await mainTab(page, 'Users').click();
  await deviceRow(page, 'admin').waitFor();
  return page;
}

test('a user is made from nothing, sits at a Receiver, is disabled and deleted', async (t) => {
  const system = await shared.get();
  const page = await usersPage(t, system);
  await act(page, 'New');
  await until('a field for the name', () => field(page, 'Username').isEnabled());
  await field(page, 'Username').fill('nlarsen');
  await field(page, 'Full Name').fill('Nora <b>Larsen</b> & Co');
  await field(page, 'Change Password').selectOption({ label: 'Enabled' });
  await field(page, 'Password').fill('Quiet-4-hall');
  await field(page, 'Confirm Password').fill('Quiet-4-hal');
  await field(page, 'Confirm Password').blur();
  await until('unlike passwords are marked', async () =>
    (await field(page, 'Confirm Password').getAttribute('aria-invalid')) === 'true');
  assert.equal(await saveButton(page).isEnabled(), false);
  await field(page, 'Confirm Password').fill('Quiet-4-hall');
  await save(page);
  await rowShows(page, 'nlarsen', /Nora <b>Larsen<\/b> & Co\s+User\s+Not logged in/);

  await select(page, 'nlarsen');
  await act(page, 'Login');
  await box(page).locator('[role="row"]').filter({ hasText: 'Desk 4' }).click();
  await press(page, 'Login');
  await answer(page, /logged in/i, 'Close');
  await rowShows(page, 'nlarsen', /Logged in to receiver/);
  await openTab(page, 'Status');
  await tab(page).getByText('Desk 4').waitFor();
  await t.picture(page, 'user-at-receiver');

  await openTab(page, 'Attributes');
  await field(page, 'Username').fill('mhansen');
  await save(page);
  const refusal = await answer(page, /Error writing/, 'Close');
  assert.match(refusal, /unique|taken|exists/i);
  assert.equal(await field(page, 'Username').inputValue(), 'mhansen', 'what was typed stays');
  await field(page, 'Username').fill('nlarsen2');
  await field(page, 'Account Status').selectOption({ label: 'Disabled' });
  await save(page);
  await rowShows(page, 'nlarsen2', /Not logged in/i);
  assert.equal(user(system, 'nlarsen2').accountEnable, 'disabled');

  await act(page, 'Delete');
  await box(page).getByRole('checkbox').check();
  await answer(page, /delete the selected user/, 'Cancel');
  assert.equal(user(system, 'nlarsen2').fullName, 'Nora <b>Larsen</b> & Co');
  await act(page, 'Delete'); // the box comes no more
  await deviceRow(page, 'nlarsen2').waitFor({ state: 'detached' });
  system.ctl('set', 'user', '1', 'enableDeleteUserWarning=enabled');
});

test('three targets for twenty users of whom some have them; a conflict is resolved both ways', async (t) => {
  const system = await shared.get();
  const page = await usersPage(t, system);
  const names = ctl(system, 'list', 'user', 'index', 'name', 'role', 'target')
    .filter((each) => each.role === 'user' && each.index > 8)
    .slice(0, 20);
  await select(page, ...names.map((each) => each.name));
  await openTab(page, 'Targets');
  const wanted = ['SCADA A', 'Historian', 'Weather'];
  await t.picture(page, 'users-targets-differ');
  // What some have and some have not stands in both lists.
  for (const name of wanted) {
    await target(page, 0, name).click();
    await move(page, 'Add →');
    await until(`${name} is allowed`, async () => (await target(page, 0, name).count()) === 0);
  }
  await save(page);
  await until('it is saved', async () => !(await saveButton(page).isEnabled()));
  const have = (name) => {
    const index = ctl(system, 'list', 'tx', 'index', 'name').find((each) => each.name === name).index;
    return ctl(system, 'list', 'user', 'index', 'target')
      .filter((each) => names.some((one) => one.index === each.index))
      .filter((each) => each.target.some((entry) => entry.txIndex === index)).length;
  };
  for (const name of wanted) assert.equal(have(name), 20, name);
  await target(page, 1, 'Weather').click();
  await move(page, '← Remove');
  await save(page);
  await until('it is saved', async () => !(await saveButton(page).isEnabled()));
  assert.equal(have('Weather'), 0);
  assert.equal(have('Historian'), 20);
});

test('favorites are put in order without a mouse; F3 of two users who differ leaves F4 alone', async (t) => {
  const system = await shared.get();
  const page = await usersPage(t, system);
  await select(page, 'mhansen');
  await openTab(page, 'Favorites');
  const order = async () => (await mover(page, 1).locator('[role="row"]').allInnerTexts()).join(' ');
  await until('three favorites', async () => /SCADA A.*Alarm Server.*Weather/s.test(await order()));
  await target(page, 1, 'Weather').click();
  const up = tab(page).getByRole('button', { name: 'Move Up' });
  await until('it can be moved', () => up.isEnabled());
  await up.focus();
  await page.keyboard.press('Enter');
  await until('one up', async () => /SCADA A.*Weather.*Alarm Server/s.test(await order()));
  await page.keyboard.press('Enter');
  await until('at the top', async () => /Weather.*SCADA A.*Alarm Server/s.test(await order()));
  await save(page);
  await until('it is saved', async () => !(await saveButton(page).isEnabled()));
  const eids = user(system, 'mhansen').favorite.map((entry) => system.ctl('get', 'tx', String(entry.txIndex), 'name'));
  assert.deepEqual(eids, ['Weather', 'SCADA A', 'Alarm Server']);

  system.ctl('set', 'user', '3', 'keySettings:={"osdShortCuts":[{"functionKey":"f4","action":"connect_last_target"}]}');
  await select(page, 'mhansen', 'jokoro');
  await openTab(page, 'OSD F1-F12');
  const rows = tab(page).locator('tr').locator('visible=true');
  const f3 = rows.filter({ has: page.getByText('F3', { exact: true }) }).getByRole('combobox').first();
  await f3.selectOption({ label: 'Connect to last target' });
  await t.picture(page, 'users-keys-differ');
  await save(page);
  await until('it is saved', async () => !(await saveButton(page).isEnabled()));
  const keys = (name) => Object.fromEntries(
    user(system, name).keySettings.osdShortCuts.map((each) => [each.functionKey, each.action]));
  assert.equal(keys('mhansen').f3, keys('jokoro').f3);
  assert.equal(keys('mhansen').f4, 'connect_last_target');
  assert.notEqual(keys('jokoro').f4, 'connect_last_target');
});

test('two administrators at one account; who is disabled is out', async (t) => {
  const system = await shared.get();
  system.ctl('create', 'user', 'name=second', 'role=admin', 'password=Second-1-pw');
  const page = await usersPage(t, system);
  const other = await t.page();
  await openLogin(other, system);
  await tryLogin(other, 'second', 'Second-1-pw');
  await mainTab(other, 'Users').click();
  await select(page, 'jokoro');
  await select(other, 'jokoro');
  await field(page, 'Full Name').fill('James O.');
  await field(page, 'Full Name').blur();
  await field(other, 'Full Name').fill('Jim Okoro');
  await save(other);
  await rowShows(other, 'jokoro', /Jim Okoro/);
  assert.equal(await field(page, 'Full Name').inputValue(), 'James O.', 'what is being typed stays');
  await save(page);
  await rowShows(page, 'jokoro', /James O\./);
  await shows(other, 'Full Name', 'James O.');

  await select(page, 'second');
  await field(page, 'Account Status').selectOption({ label: 'Disabled' });
  await save(page);
  await until('the second one is out', () => other.locator('.mirl-login-line-edit').first().isVisible());
});
