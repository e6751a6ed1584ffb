// Firmware updates: where files come from, how updates fail, and this Switch's own update.
import assert from 'node:assert/strict';
import { existsSync, readFileSync, writeFileSync } from 'node:fs';
import { join } from 'node:path';
import { act, answer, backToLogin, devicesPage, rowShows, select, sharedSystem } from './devices.mjs';
import { fileServer, firmware } from './firmware.mjs';
import { test } from './harness.mjs';
import { deviceRow, deviceRows, login, openDevices } from './pages.mjs';
import { System, until } from './system.mjs';

const shared = sharedSystem();
export const done = shared.done;

const files = (system) => JSON.parse(system.ctl('--json', 'list', 'upgrade', 'index', 'filename'));
const forget = (system) => { for (const file of files(system)) system.ctl('delete', 'upgrade', String(file.index)); };
const dialog = (page) => page.getByRole('dialog').last();
const inDialog = (page, label) => dialog(page).getByLabel(label, { exact: true });
const press = (page, name) => dialog(page).getByRole('button', { name, exact: true }).click();

/** Opens the description of a new file, over the list of remembered ones if there are any. */
async function newFile(page, source) {
  await act(page, 'Update');
  await dialog(page).waitFor();
  if (await dialog(page).getByRole('button', { name: 'New file' }).count()) {
    await press(page, 'New file');
    await dialog(page).getByText('Choose the source of the firmware update file.').waitFor();
  }
  await inDialog(page, 'Source').selectOption(source);
}

/**
 * Sends a file through the upload dialog of the open description.
 * @param {{name: string, mimeType: string, buffer: Buffer}} file
 */
async function upload(page, file) {
  await inDialog(page, 'File').click();
  await dialog(page).getByText('Choose the file to be transferred').waitFor();
  assert.equal(await dialog(page).getByRole('button', { name: 'Send', exact: true }).isEnabled(), false);
  await dialog(page).locator('input[type="file"]').setInputFiles(file);
  await until('Send can be pressed', () => dialog(page).getByRole('button', { name: 'Send', exact: true }).isEnabled());
  await press(page, 'Send');
  await dialog(page).getByText('Completed.').waitFor();
}

const proceed = async (page) => {
  await until('Proceed can be pressed', () =>
    dialog(page).getByRole('button', { name: 'Proceed', exact: true }).isEnabled()
  );
  await press(page, 'Proceed');
};

async function fromHttp(page, place, path) {
  await newFile(page, 'HTTP');
  await inDialog(page, 'Server').fill(place);
  await inDialog(page, 'File path/name').fill(path);
  await proceed(page);
  await answer(page, /commanded to update firmware/, 'Close');
}

test('a file is uploaded under names made to hurt, and its update runs to the end', async (t) => {
  const system = await shared.get();
  forget(system);
  const page = await devicesPage(t, system);
  const witness = join(system.data, 'x');
  writeFileSync(witness, 'still here');
  const passwd = readFileSync('/etc/passwd', 'utf8');
  const buffer = firmware('tx', '3.9.1');
  await page.getByLabel('Filter by name').locator('visible=true').fill('(weather|historian)');
  await until('two rows are left', async () => (await deviceRows(page).count()) === 2);
  await select(page, 'Weather', 'Historian');
  // A browser sends a quote of a file name as %22.
  for (const [name, target] of [
    ['"; rm -rf x; "', '/tmp/%22; rm -rf x; %22'],
    ['$(touch x).fw', '/tmp/$(touch x).fw'],
    ['../../etc/passwd', '/tmp/passwd'],
  ]) {
    await newFile(page, 'Local file');
    await upload(page, { name, mimeType: 'application/octet-stream', buffer });
    await t.picture(page, 'devices-firmware-uploaded');
    await press(page, 'Close');
    await until('the file is moved', () => existsSync(target));
    assert.ok(readFileSync(target).equals(buffer), target);
    assert.equal(await inDialog(page, 'File').inputValue(), target);
    await press(page, 'Close');
    await until('an upload that goes unused is removed', () => !existsSync(target));
  }
  assert.equal(readFileSync(witness, 'utf8'), 'still here');
  assert.equal(readFileSync('/etc/passwd', 'utf8'), passwd);

  await newFile(page, 'Local file');
  await upload(page, { name: 'mirl "test" 3.9.1.fw', mimeType: 'application/octet-stream', buffer });
  await press(page, 'Close');
  await proceed(page);
  await answer(
    page,
    '2 devices have been commanded to update firmware. Please check the device list and event log for status. ' +
      'The device(s) will automatically reboot',
    'Close'
  );
  const percents = new Set();
  system.ctl('time', 'faster', '3');
  t.after(() => { system.ctl('time', 'faster', '1'); });
  await until('the percent moves', async () => {
    const text = await deviceRow(page, 'Weather').innerText();
    for (const [, percent] of text.matchAll(/Updating firmware \((\d+)%\)/g)) percents.add(percent);
    if (percents.size === 2) await t.picture(page, 'devices-firmware-percent');
    return percents.size >= 2;
  }, 60_000);
  system.ctl('time', 'faster', '100');
  await rowShows(page, 'Weather', /Ready\s+3\.9\.1/, 60_000);
  assert.equal(system.ctl('get', 'tx', '4', 'firmwareVersion'), '3.9.1');
});

test('files from HTTP, and every way an update fails', async (t) => {
  const system = await shared.get();
  forget(system);
  const sound = firmware('tx', '4.0.0');
  const server = await fileServer({
    '/tx.fw': sound,
    '/rx.fw': firmware('rx', '4.0.0'),
    '/broken.fw': sound.subarray(0, sound.length - 1),
  });
  t.after(server.close);
  const page = await devicesPage(t, system);
  system.ctl('set', 'systemGlobals', 'resetAfterUpgrade=disabled');
  t.after(() => {
    system.ctl('set', 'systemGlobals', 'resetAfterUpgrade=enabled');
    system.ctl('time', 'faster', '1');
  });
  system.ctl('time', 'faster', '100');
  const rows = [
    ['Camera Matrix', '/nowhere.fw', /Firmware update failed - file transfer/],
    ['Lightning Map', '/broken.fw', /Firmware update failed - bad file/],
    ['Log Server', '/rx.fw', /Firmware update failed - incorrect file/],
    ['Radio Console', '/tx.fw', /Firmware update failed - target communication/],
    ['Office PC 1', '/tx.fw', /Firmware update failed - reflash/],
    ['Office PC 2', '/tx.fw', /Firmware updated, needs reboot/],
  ];
  const eid = name => JSON.parse(system.ctl('--json', 'list', 'tx', 'name', 'eid')).find(tx => tx.name === name).eid;
  system.ctl('set', 'simControl', 'action=fail_push', `eid=${eid('Radio Console')}`);
  system.ctl('set', 'simControl', 'action=fail_flash', `eid=${eid('Office PC 1')}`);
  for (const [name, path, status] of rows) {
    await select(page, String(name));
    await fromHttp(page, server.place, String(path));
    await rowShows(page, String(name), /** @type {RegExp} */ (status), 60_000);
  }
  await t.picture(page, 'devices-firmware-failures');
});

test('remembered files: a login asked for, deletion, and no ninth', async (t) => {
  const system = await shared.get();
  forget(system);
  const server = await fileServer({ '/swx.fw': firmware('swx', '4.3.0') }, { login: 'fetch:s3cret "word"' });
  t.after(server.close);
  for (let n = 1; n <= 7; n++)
    system.ctl('create', 'upgrade', 'protocol=ftp', 'location=10.0.0.9', `filename=old-${n}.fw`);
  system.ctl('create', 'upgrade', 'protocol=http', `location=${server.place}`, 'filename=/swx.fw', 'username=fetch');
  const page = await devicesPage(t, system);
  await select(page, 'Annex Switch');
  await act(page, 'Update');
  await dialog(page).getByText(`${server.place}/swx.fw`).waitFor();
  await t.picture(page, 'devices-firmware-chooser');
  await press(page, 'New file');
  await answer(page, 'The firmware update file list has reached its maximum allowed size.', 'Ok');
  assert.equal(files(system).length, 8);

  await act(page, 'Update');
  await dialog(page).getByText('10.0.0.9/old-1.fw').click();
  await dialog(page).getByText('10.0.0.9/old-2.fw').click({ modifiers: ['Control'] });
  await until(
    'two can be deleted, but not used',
    async () =>
      (await dialog(page).getByRole('button', { name: 'Delete', exact: true }).isEnabled()) &&
      !(await dialog(page).getByRole('button', { name: 'Proceed', exact: true }).isEnabled())
  );
  await press(page, 'Delete');
  await until('two are forgotten', () => files(system).length === 6);
  await dialog(page).getByText(`${server.place}/swx.fw`).click();
  await proceed(page);
  await dialog(page).getByText('Enter the username and password').waitFor();
  assert.equal(await inDialog(page, 'Username').inputValue(), 'fetch');
  await inDialog(page, 'Password').fill('s3cret "word"');
  await t.picture(page, 'devices-firmware-login');
  await press(page, 'Proceed');
  await answer(page, '1 device has been commanded to update firmware.', 'Close');
  system.ctl('time', 'faster', '100');
  t.after(() => { system.ctl('time', 'faster', '1'); });
  await until('it was fetched', () => system.ctl('get', 'swx', '2', 'firmwareVersion') === '4.3.0', 60_000);
});

test('the Master Switch\'s own update, to its end', async (t) => {
  const system = await new System().start();
  t.after(() => system.remove());
  forget(system);
  const server = await fileServer({ '/swx.fw': firmware('swx', '4.3.0'), '/tx.fw': firmware('tx', '4.0.0') });
  t.after(server.close);
  system.ctl('set', 'systemGlobals', 'resetAfterUpgrade=disabled');
  const page = await t.page({ expectErrors: true });
  await login(page, system);
  await openDevices(page);
  system.ctl('time', 'faster', '20');
  await select(page, 'Main Hall Switch');
  await fromHttp(page, server.place, '/tx.fw');
  await answer(page, 'Firmware update of the Master Switch failed -- file is incorrect type for device.');
  await t.picture(page, 'devices-firmware-own-failed');
  await answer(page, 'incorrect type', 'Okay');
  await fromHttp(page, server.place, '/swx.fw');
  await rowShows(page, 'Main Hall Switch', /Updating firmware|Firmware updated/);
  await answer(page, 'The Master Switch firmware update operation has succeeded.');
  await t.picture(page, 'devices-firmware-own-done');
  await answer(page, 'has succeeded', 'Reboot now');
  await answer(page, 'Rebooting unit. Please wait.');
  await t.picture(page, 'devices-firmware-own-rebooting');
  await page.getByRole('button', { name: /start again/i }).waitFor({ timeout: 60_000 });
  await backToLogin(page);
  await login(page, system);
  await openDevices(page);
  await rowShows(page, 'Main Hall Switch', /Ready.*4\.3\.0/s, 60_000);
});
