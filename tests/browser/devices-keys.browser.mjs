// The main roads of the Devices tab without a pointer.
import assert from 'node:assert/strict';
import { sharedSystem, shows } from './devices.mjs';
import { test } from './harness.mjs';
import { deviceRow, deviceRows, field, login, openByKeys, saveButton, tabTo } from './pages.mjs';
import { detailsTab } from './places.mjs';
import { until } from './system.mjs';

const shared = sharedSystem();
export const done = shared.done;

const selected = (page, name) =>
  until(`${name} is selected`, async () => (await deviceRow(page, name).getAttribute('aria-selected')) === 'true');

test('filter, select, edit, save, reboot and flash by keyboard alone', async (t) => {
  const system = await shared.get();
  const page = await t.page();
  await login(page, system);
  await openByKeys(page, 'Devices');
  await deviceRows(page).first().waitFor();

  await tabTo(page, 'the filter', page.getByLabel('Filter by name').locator('visible=true'));
  await page.keyboard.type('planning [12]');
  await until('two rows are left', async () => (await deviceRows(page).count()) === 2);
  await tabTo(page, 'the list', page.locator('[role="grid"]:visible').first());
  await page.keyboard.press('Home');
  await selected(page, 'Planning 1');
  await page.keyboard.press('Shift+ArrowDown');
  await selected(page, 'Planning 2');
  await tabTo(page, 'the location', field(page, 'Location'));
  await page.keyboard.press('Control+A');
  await page.keyboard.type('By keys');
  await until('Save can be pressed', () => saveButton(page).isEnabled());
  await tabTo(page, 'Save', saveButton(page));
  await page.keyboard.press('Enter');
  await until('it is stored', () => ['17', '18'].every((rx) => system.ctl('get', 'rx', rx, 'location') === 'By keys'));
  await shows(page, 'Location', 'By keys');

  await tabTo(page, 'the tabs', detailsTab(page, 'Attributes'));
  await page.keyboard.press('ArrowRight');
  await field(page, 'USB Mode').waitFor();
  await t.picture(page, 'devices-keys-settings');

  await page.locator('body').press('Home'); // from the top of the page again
  await tabTo(page, 'Flash', page.getByRole('button', { name: 'Flash', exact: true }));
  await page.keyboard.press('Enter');
  await page.getByRole('dialog').waitFor();
  await tabTo(page, 'the duration', page.getByLabel('Flash duration (seconds)'));
  await page.keyboard.press('Control+A');
  await page.keyboard.type('5');
  await tabTo(page, 'the button', page.getByRole('dialog').getByRole('button', { name: 'Flash' }));
  await page.keyboard.press('Enter');
  await page.getByText('2 devices were commanded to start flashing their displays.').waitFor();
  await page.keyboard.press('Enter');
  await until('the box is closed', async () => (await page.getByRole('dialog').count()) === 0);

  await tabTo(page, 'Reboot', page.getByRole('button', { name: 'Reboot', exact: true }));
  await page.keyboard.press('Enter');
  await page.getByText('Are you sure you want to reboot').waitFor();
  await page.keyboard.press('Escape');
  await until('Escape means no', async () => (await page.getByRole('dialog').count()) === 0);
  await page.keyboard.press('Enter');
  await page.getByText('Are you sure you want to reboot').waitFor();
  await page.keyboard.press('Enter'); // the first button has the focus
  await page.getByText('2 devices have been commanded to reboot.').waitFor();
  await page.keyboard.press('Enter');
  await until('they reboot', () => system.ctl('get', 'rx', '17', 'status') !== 'ready');
  assert.equal(await page.getByRole('dialog').count(), 0);
});
