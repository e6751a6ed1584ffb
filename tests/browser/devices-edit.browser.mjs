// Editing devices: many at once, one that refuses, two administrators, names made to hurt.
import assert from 'node:assert/strict';
import { answer, devicesPage, openTab, save, select, sharedSystem, shows } from './devices.mjs';
import { test } from './harness.mjs';
import { deviceList, deviceRow, deviceRows, field, saveButton, showRow } from './pages.mjs';
import { detailsTab } from './places.mjs';
import { until } from './system.mjs';

const shared = sharedSystem({ args: ['--devices', '150'] }); // fifty Receivers more: Desk 21 to Desk 70
export const done = shared.done;

/** Every Receiver as the service has it, by index. */
const receivers = (system, ...keys) => JSON.parse(system.ctl('--json', 'list', 'rx', 'index', ...keys));
const rowCount = async (page) => Number(await deviceList(page).getAttribute('aria-rowcount')) - 1;

test('fifty Receivers get a location and a name at once', async (t) => {
  const system = await shared.get();
  const page = await devicesPage(t, system);
  await page.getByLabel('Filter by name').locator('visible=true').fill('Desk [2-7][0-9]');
  await until('the filter shows fifty rows', async () => (await rowCount(page)) === 50);
  await deviceRows(page).first().click();
  await page.keyboard.press('Control+A');
  await shows(page, 'Receiver Name', '');
  await until('every row is selected', async () =>
    (await deviceRows(page).evaluateAll((rows) => rows.every((row) => row.getAttribute('aria-selected') === 'true'))));
  await t.picture(page, 'devices-fifty-selected');
  await field(page, 'Location').fill('Hall 7, "east" & west');
  await field(page, 'Receiver Name').fill('Wall');
  await until('the list is locked', async () => (await deviceList(page).getAttribute('aria-disabled')) === 'true');
  await t.picture(page, 'devices-fifty-edited');
  await save(page);
  const changed = () =>
    receivers(system, 'name', 'location').filter(rx => rx.name === 'Wall' && rx.location === 'Hall 7, "east" & west');
  await until('fifty are stored', () => changed().length === 50);
  assert.ok(changed().every((rx) => rx.index > 20));
  await page.getByLabel('Filter by name').locator('visible=true').fill('^wall$');
  await until(
    'the list has them',
    async () => (await rowCount(page)) === 50 && (await deviceRow(page, 'Wall').count()) > 1
  );
  await t.picture(page, 'devices-fifty-saved');
  assert.equal(receivers(system, 'location')[0].location, 'Control room, desk 1', 'others keep theirs');
});

test('a device that is renamed stays in view wherever its new name puts it; the filter waits for Save', async (t) => {
  const page = await devicesPage(t, await shared.get());
  const filter = page.getByLabel('Filter by name').locator('visible=true');
  await select(page, 'Video Wall 1');
  await field(page, 'Receiver Name').fill('Zebra');
  await until('the filter waits with the list', () => filter.isDisabled());
  await save(page);
  await until('the last row of the list is in view', async () => {
    const row = deviceRow(page, 'Zebra').first();
    return (await row.count()) > 0 && row.evaluate((e) => {
      const list = /** @type {Element} */ (e.closest('[role="grid"]')).getBoundingClientRect();
      const own = e.getBoundingClientRect();
      return own.top >= list.top && own.bottom <= list.bottom && e.getAttribute('aria-selected') === 'true';
    });
  });
  await until('the filter can be used', () => filter.isEnabled());
  await t.picture(page, 'devices-renamed-to-the-end');
});

test('a save that one of three refuses stores the others and says so', async (t) => {
  const system = await shared.get();
  const page = await devicesPage(t, system);
  await select(page, 'Planning 1', 'Planning 2', 'Video Wall 3');
  await shows(page, 'Receiver Name', '');
  await field(page, 'Notes').fill('third floor');
  await until('Save can be pressed', () => saveButton(page).isEnabled());
  system.ctl('delete', 'rx', '18'); // Planning 2, by somebody else
  await save(page);
  await page.getByRole('dialog').waitFor();
  await t.picture(page, 'devices-save-refused');
  await answer(page, 'Error writing value(s).', 'Close');
  await until('Planning 2 is gone', async () => (await deviceRow(page, 'Planning 2').count()) === 0);
  await shows(page, 'Notes', 'third floor');
  assert.equal(system.ctl('get', 'rx', '17', 'notes'), 'third floor');
  assert.equal(system.ctl('get', 'rx', '14', 'notes'), 'third floor');
  assert.doesNotMatch(await detailsTab(page, 'Attributes').innerText(), /\*/);
});

test('two administrators edit the same Receiver', async (t) => {
  const system = await shared.get();
  const [one, two] = [await devicesPage(t, system), await devicesPage(t, system)];
  for (const page of [one, two]) {
    await select(page, 'Engineering');
    await shows(page, 'Receiver Name', 'Engineering');
  }
  await field(one, 'Description').fill('of the first');
  await until('the first may save', () => saveButton(one).isEnabled());
  await field(two, 'Location').fill('of the second');
  await save(two);
  await until('the second is stored', () => system.ctl('get', 'rx', '15', 'location') === 'of the second');
  // The first one's page stands still, and saving writes no more than what was typed there.
  assert.equal(await field(one, 'Description').inputValue(), 'of the first');
  await t.picture(one, 'devices-edited-by-two');
  await save(one);
  await shows(one, 'Location', 'of the second');
  assert.equal(system.ctl('get', 'rx', '15', 'description'), 'of the first');
  assert.equal(system.ctl('get', 'rx', '15', 'location'), 'of the second');
  await two.bringToFront();
  await two.getByText('Device Details').click({ trial: true });
  await two.locator('body').click({ position: { x: 2, y: 2 } }); // no field keeps the focus
  await shows(two, 'Description', 'of the first');
});

test('names that are markup, formats, directions or far too long', async (t) => {
  const system = await shared.get();
  const page = await devicesPage(t, system);
  const hostile = ['<img src=x onerror="document.title=1">', '%s%n%x 100%', '"; rm -rf x; "', "';--${x}{{7*7}}`id`"];
  for (const [n, name] of hostile.entries()) system.ctl('set', 'rx', String(n + 1), `name=${name}`);
  for (const name of hostile) {
    await select(page, name);
    await shows(page, 'Receiver Name', name);
  }
  await t.picture(page, 'devices-hostile-names');
  assert.equal(await page.locator('img[src="x"]').count(), 0);
  assert.notEqual(await page.title(), '1');

  const kept = hostile[3];
  for (const text of ['\u202eright to left', 'na\u00efve', 'bell\u0007']) {
    await field(page, 'Receiver Name').fill(text);
    await until('Cancel can be pressed', () =>
      page.getByRole('button', { name: 'Cancel' }).locator('visible=true').isEnabled()
    );
    assert.equal(await saveButton(page).isEnabled(), false, JSON.stringify(text));
    await page.getByRole('button', { name: 'Cancel' }).locator('visible=true').click();
    await shows(page, 'Receiver Name', kept);
  }
  await field(page, 'Notes').fill('y'.repeat(10_000));
  await until('it is judged', () => page.getByRole('button', { name: 'Cancel' }).locator('visible=true').isEnabled());
  assert.equal(await saveButton(page).isEnabled(), false);
  await t.picture(page, 'devices-ten-thousand-characters');
  await page.getByRole('button', { name: 'Cancel' }).locator('visible=true').click();
  await shows(page, 'Notes', '');
  await field(page, 'Receiver Name').fill('x'.repeat(10_000)); // past the length that the browser holds a user to
  await save(page);
  await until('no more is stored than a name may hold', () => system.ctl('get', 'rx', '4', 'name') === 'x'.repeat(40));
});

test('the selected device goes away; unsaved edits stay where they are', async (t) => {
  const system = await shared.get();
  const page = await devicesPage(t, system);
  await select(page, 'Rack Drawer');
  await shows(page, 'Receiver Name', 'Rack Drawer');
  system.ctl('delete', 'rx', '16');
  await until(
    'its details are gone',
    async () => (await page.locator('.mirl-details-tab:visible').getByRole('tab').count()) === 0
  );
  await t.picture(page, 'devices-selected-gone');

  await select(page, 'Lobby Display');
  await shows(page, 'Receiver Name', 'Lobby Display');
  await field(page, 'Notes').fill('unsaved');
  await until('Save can be pressed', () => saveButton(page).isEnabled());
  await openTab(page, 'Settings');
  await field(page, 'USB Mode').waitFor();
  await openTab(page, 'Attributes');
  assert.equal(await field(page, 'Notes').inputValue(), 'unsaved');
  assert.match(await detailsTab(page, 'Attributes').innerText(), /\*$/);
  await save(page);
  await until('it is stored', () => system.ctl('get', 'rx', '20', 'notes') === 'unsaved');
  await showRow(page, 'Lobby Display');
});
