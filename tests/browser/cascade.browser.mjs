// Two Switches that stand in for one another, and a Switch under a manager: there and back again from every state.
import assert from 'node:assert/strict';
import { test } from './harness.mjs';
import { login, mainTab, openLogin, tryLogin } from './pages.mjs';
import { answer, dialogSays } from './places.mjs';
import { System, until } from './system.mjs';

/** @typedef {import('playwright-core').Page} Page */

/** @param {Page} page @param {string} words */
const says = (page, words) => until(`a page that says "${words}"`, async () =>
  (await page.locator('body').innerText()).includes(words));

/** @param {Page} page */
const openCascade = async (page) => {
  await mainTab(page, 'Cascade').click();
  await says(page, 'Master Switch');
};

/** The button of that name; a section may have the same title. @param {Page} page @param {string} name */
const button = (page, name) => page.locator('button:visible').filter({ hasText: new RegExp(`^${name}$`) });

/** @param {Page} page @param {string} name */
const enabled = (page, name) => until(`${name} is enabled`, () => button(page, name).isEnabled());

/** @param {Page} page @param {string} name */
const press = async (page, name) => {
  await enabled(page, name);
  await button(page, name).click();
};

/** Logs in to what may be one page only, which then says those words. @param {Page} page @param {string} words */
const enter = async (page, system, words) => {
  await openLogin(page, system);
  await tryLogin(page, system.user, system.password);
  await says(page, words);
};

test('link, switch roles, back, promote, and the controller that went away comes back as backup', async (t) => {
  const system = await new System().start();
  t.after(() => system.remove());
  const [page, other] = [await t.page(), await t.page()];
  await login(page, system);
  await login(other, system);
  await openCascade(page);
  await t.picture(page, 'cascade-alone');
  await press(page, 'Link');
  await dialogSays(page, 'is to stand by as backup');
  await page.getByRole('dialog').locator('[role="row"]').filter({ hasText: 'Annex Switch' }).click();
  await t.picture(page, 'cascade-link');
  await answer(page, 'Select');
  await says(page, '10.20.1.11');
  await enabled(page, 'Unlink');
  await enabled(page, 'Switch');
  await t.picture(page, 'cascade-linked');
  await press(page, 'Switch');
  await dialogSays(page, 'Are you sure you want to switch the roles?');
  await answer(page, 'Cancel');
  await enabled(page, 'Switch');
  await press(page, 'Switch');
  await answer(page, 'Proceed');
  // Both administrators learn it at the login page.
  for (const each of [page, other]) await says(each, 'another Switch now');
  await t.picture(page, 'cascade-switched-login');
  await login(page, system);
  await openCascade(page);
  await says(page, 'The roles are switched');
  await enabled(page, 'Promote');
  await t.picture(page, 'cascade-switched');
  await press(page, 'Switch');
  await answer(page, 'Proceed');
  await says(page, 'another Switch now');
  assert.equal(system.ctl('get', 'systemGlobals', 'cascadeController'), 'master');

  // The backup's own page: refused while the controller is up, the way on when it is gone.
  system.ctl('cascade', 'look');
  await enter(page, system, 'This Switch is a slave in a cascade');
  await t.picture(page, 'backup');
  await press(page, 'Promote Peer');
  await answer(page, 'Proceed');
  await dialogSays(page, 'the controller is up');
  await page.keyboard.press('Escape');
  system.ctl('cascade', 'down');
  await press(page, 'Promote Peer');
  await answer(page, 'Proceed');
  await says(page, 'another place in its cascade');
  await login(page, system);
  await openCascade(page);
  system.ctl('cascade', 'up');
  await enabled(page, 'Switch'); // what came back stands by
  await t.picture(page, 'cascade-promoted');
  await press(page, 'Unlink');
  await enabled(page, 'Link');
});

test('a slave becomes a master, and one administrator among two takes the Switch out of management', async (t) => {
  const system = await new System().start();
  t.after(() => system.remove());
  const [page, other] = [await t.page(), await t.page()];
  await login(page, system);
  system.ctl('manager', 'enrol', '10.20.1.90');
  await says(page, 'has become managed');
  await enter(page, system, 'under an external manager');
  await says(page, 'Normal');
  await t.picture(page, 'managed');
  await enter(other, system, 'under an external manager');
  await other.getByRole('textbox', { name: 'Full Name' }).fill('Not saved');
  await other.keyboard.press('Tab');
  await page.getByLabel('Management', { exact: true }).selectOption({ label: 'Unmanaged' });
  await dialogSays(page, 'out of management');
  await answer(page, 'Close');
  await press(page, 'Save');
  await says(page, 'is managed no longer');
  await dialogSays(other, 'changes that you have not saved are lost');
  await answer(other, 'Close');
  await says(other, 'is managed no longer');
  await login(page, system);

  system.ctl('cascade', 'look');
  await says(page, 'another Switch now');
  await enter(page, system, 'This Switch is a slave in a cascade');
  await t.picture(page, 'slave');
  await press(page, 'Flash');
  await answer(page, 'Flash');
  await dialogSays(page, 'commanded to start');
  await answer(page, 'Close');
  await page.getByLabel('Cascade Participation').selectOption({ label: 'Switch is a cascade master' });
  await dialogSays(page, 'You are making this Switch a master');
  await answer(page, 'Close');
  await says(page, 'is to be a master');
  await press(page, 'Save');
  await dialogSays(page, 'Rebooting now');
  await page.getByRole('button', { name: 'Start again' }).waitFor(); // all of it goes down, and comes up as a master
  const again = await t.page();
  await until('the interface is up again', () => again.goto(system.address));
  await login(again, system);
});
