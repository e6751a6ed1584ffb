// Actions on devices: restore, reboot, remove what is offline, flash.
import assert from 'node:assert/strict';
import { act, answer, backToLogin, devicesPage, rowShows, select, sharedSystem } from './devices.mjs';
import { test } from './harness.mjs';
import { deviceRow, deviceRows, login, openDevices, showRow } from './pages.mjs';
import { System, until } from './system.mjs';

const shared = sharedSystem();
export const done = shared.done;

const filter = (page, words) => page.getByLabel('Filter by name').locator('visible=true').fill(words);

test('remove offline under a filter reaches no more than the filter shows', async (t) => {
  const system = await shared.get();
  const page = await devicesPage(t, system);
  for (const eid of ['00A702-0200CC', '00A702-0200DD']) system.ctl('device', 'offline', eid); // Video Wall 1 and 2
  await rowShows(page, 'Video Wall 2', /Offline/);
  await filter(page, 'video wall');
  await until('three rows are left', async () => (await deviceRows(page).count()) === 3);
  await t.picture(page, 'devices-offline-filtered');
  await act(page, 'Remove Offline');
  await t.picture(page, 'devices-remove-offline-asked');
  await answer(page, 'Are you sure you want to remove all offline device(s)?', 'Remove');
  assert.match(await answer(page, '2 devices were removed.', 'Close'), /Removed/);
  await until('one row is left', async () => (await deviceRows(page).count()) === 1);
  await filter(page, '');
  await showRow(page, 'Training'); // offline, and out of the filter's reach
  assert.equal(await deviceRow(page, 'Video Wall 1').count(), 0);
  assert.equal(system.ctl('get', 'rx', '19', 'status'), 'offline');
});

test('flash the displays of three devices, and stop it', async (t) => {
  const system = await shared.get();
  const page = await devicesPage(t, system);
  await select(page, 'Desk 4', 'Historian', 'Annex Switch');
  await act(page, 'Flash');
  const duration = page.getByLabel('Flash duration (seconds)');
  await duration.waitFor();
  assert.equal(await duration.inputValue(), '30');
  const flash = page.getByRole('dialog').getByRole('button', { name: 'Flash' });
  for (const [text, good] of [['86401', false], ['', false], ['soon', false], ['45', true]]) {
    await duration.fill(String(text));
    await until(`"${text}" is judged`, async () => (await flash.isEnabled()) === good);
    assert.equal(await page.getByRole('dialog').getByRole('button', { name: 'Cancel' }).isEnabled(), good);
  }
  await t.picture(page, 'devices-flash');
  await flash.click();
  await answer(page, '3 devices were commanded to start flashing their displays.', 'Close');
  assert.equal(system.ctl('get', 'rx', '7', 'lcdBacklightFlash'), 'enabled');
  await select(page, 'Desk 4');
  await act(page, 'Flash');
  await duration.fill('0');
  await until('0 may be sent', () => flash.isEnabled());
  await flash.click();
  await answer(page, '1 device was commanded to stop flashing its display.', 'Close');
  await until('the display is dark', () => system.ctl('get', 'rx', '7', 'lcdBacklightFlash') === 'disabled');
});

test('restore with one\'s own Switch skipped, then without it', async (t) => {
  const system = await shared.get();
  const page = await devicesPage(t, system);
  system.ctl('set', 'rx', '7', 'notes=to be forgotten');
  await select(page, 'Desk 4', 'Weather', 'Main Hall Switch');
  await act(page, 'Restore Full');
  await answer(page, 'Are you sure you want to restore the selected device(s)', 'Restore settings');
  await page.getByRole('dialog').waitFor();
  await t.picture(page, 'devices-restore-own-switch');
  await answer(page, 'the Switch that you are currently logged in to!', 'Skip device');
  await answer(page, 'Factory default settings restore has been initiated on 2 of 3 devices.', 'Ok');
  assert.equal(system.ctl('get', 'rx', '7', 'notes'), '');
  assert.equal(system.ctl('get', 'swx', '1', 'name'), 'Main Hall Switch');

  await select(page, 'Annex Switch');
  await act(page, 'Restore Partial');
  await answer(page, 'restore the selected Switches to partial factory default', 'Cancel');
  assert.equal(await page.getByRole('dialog').count(), 0);
  await act(page, 'Restore Partial');
  await answer(page, 'restore the selected Switches to partial factory default', 'Restore settings');
  await answer(page, 'initiated on 1 of 1 devices.', 'Ok');
  assert.equal(system.ctl('get', 'swx', '2', 'network/ipv4/ipAddress'), '10.20.1.11', 'the network settings stay');
});

test('a reboot with this Switch, through to the page\'s return', async (t) => {
  const system = await new System().start();
  t.after(() => system.remove());
  const page = await t.page({ expectErrors: true });
  await login(page, system);
  await openDevices(page);
  const before = system.pids('mirl')[0];
  await select(page, 'Desk 4', 'Weather', 'Main Hall Switch');
  await act(page, 'Reboot');
  await answer(page, 'Any active user sessions will be terminated.', 'Reboot');
  await answer(page, 'the Switch that you are currently connected to.', 'Cancel');
  await until('the box is closed', async () => (await page.getByRole('dialog').count()) === 0);
  assert.equal(system.ctl('get', 'rx', '7', 'status'), 'ready');
  await act(page, 'Reboot');
  await answer(page, 'Any active user sessions will be terminated.', 'Reboot');
  await answer(page, 'the Switch that you are currently connected to.', 'Reboot');
  await answer(page, '3 devices have been commanded to reboot, including this Switch');
  assert.equal(await page.getByRole('dialog').getByRole('button').count(), 0);
  await t.picture(page, 'devices-reboot-told');
  await page.getByRole('button', { name: /start again/i }).waitFor({ timeout: 60_000 });
  await t.picture(page, 'devices-reboot-connection-gone');
  await until(
    'another process runs',
    () => {
      const [pid] = system.pids('mirl');
      return pid && pid !== before;
    },
    60_000
  );
  await backToLogin(page);
  system.ctl('time', 'faster', '20');
  await login(page, system);
  await openDevices(page);
  for (const name of ['Desk 4', 'Weather', 'Main Hall Switch']) await rowShows(page, name, /Ready/, 60_000);
});
