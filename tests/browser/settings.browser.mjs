// System Settings: every tab, settings files from one installation to another, events, icons.
import assert from 'node:assert/strict';
import { mkdtempSync, readFileSync, rmSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { test } from './harness.mjs';
import { field, login, mainTab, openLogin, saveButton, tryLogin } from './pages.mjs';
import { answer, detailsTab, dialogSays, openSettings } from './places.mjs';
import { sharedSystem } from './devices.mjs';
import { System, until } from './system.mjs';

const shared = sharedSystem();
export const done = shared.done;

/** The page, on a tab. @param {import('./harness.mjs').Context} t @param {System} system @param {string} [tab] */
async function settingsPage(t, system, tab = 'Manager') {
  const page = await t.page();
  await login(page, system);
  await openSettings(page, tab);
  return page;
}

/** @param {import('playwright-core').Page} page @param {string} name */
const action = (page, name) => page.getByRole('button', { name, exact: true }).locator('visible=true');

/** @param {import('playwright-core').Page} page @param {string} label @param {string} text */
async function saveField(page, label, text) {
  await field(page, label).fill(text);
  await until('Save can be pressed', () => saveButton(page).isEnabled());
  await saveButton(page).click();
  await until('it is saved', async () => !(await saveButton(page).isEnabled()));
}

test('each tab is edited, saved and stored', async (t) => {
  const system = await shared.get();
  const page = await settingsPage(t, system);
  const rows = [
    ['Manager', 'Switch API TCP Port', '8443', 'systemGlobals', 'switchApiPort'],
    ['MIRL', 'MIRL Banner Text', 'Staff only.\n<b>Keep</b> out.', 'systemGlobals', 'mirlBannerText'],
    ['OSD', 'OSD Banner Text', 'Call 2100', 'systemGlobals', 'rxOsdBannerText'],
    ['Events', 'Syslog Server IP Address', '10.9.8.7', 'systemGlobals', 'syslogDest'],
    ['Defaults', 'Receiver Session Timeout (minutes, 0 means never)', '7',
      'cfgDefaults', 'rxDefaultSessionInactivityTimeout'],
    ['Other', 'Default Time to Flash LCD Backlight (seconds)', '45', 'systemGlobals', 'backlightFlashDuration'],
    ['Remote Access', 'Telnet TCP Port', '2424', 'systemGlobals', 'rapParameters/telnetPort'],
  ];
  for (const [tab, label, text, resource, key] of rows) {
    await detailsTab(page, tab).click();
    await saveField(page, label, text);
    assert.equal(system.ctl('get', resource, key), text, tab);
    await t.picture(page, `settings-${tab.toLowerCase().replace(' ', '-')}`);
  }
  await detailsTab(page, 'Other').click();
  await field(page, 'Default Time to Flash LCD Backlight (seconds)').fill('0');
  await until('actions wait', async () => !(await action(page, 'Load').isEnabled()));
  assert.equal(await saveButton(page).isEnabled(), false);
  await page.getByRole('button', { name: 'Cancel' }).locator('visible=true').click();
  await until('what is stored is back', async () =>
    (await field(page, 'Default Time to Flash LCD Backlight (seconds)').inputValue()) === '45');
});

test('events are moved between the lists while a refresh passes', async (t) => {
  const system = await shared.get();
  const page = await settingsPage(t, system, 'Events');
  const list = (name) => page.getByRole('grid', { name });
  await list('Enabled Events').getByText('User logout', { exact: true }).click();
  await page.getByRole('button', { name: '← Disable', exact: true }).click();
  await list('Disabled Events').getByText('User logout', { exact: true }).waitFor();
  const reads = () => system.ctl('get', 'alertLogControl', 'enableAlertUserLogout');
  assert.equal(reads(), 'enabled', 'nothing is written before Save');
  await page.getByRole('button', { name: 'Enable all →' }).click();
  await page.getByRole('button', { name: '← Disable all' }).click();
  await page.getByRole('button', { name: 'Enable all →' }).click();
  await list('Enabled Events').getByText('User logout', { exact: true }).click();
  await page.getByRole('button', { name: '← Disable', exact: true }).click();
  await t.picture(page, 'settings-events-moved');
  await saveButton(page).click();
  await until('it is stored', () => reads() === 'disabled');
  await list('Disabled Events').getByText('User logout', { exact: true }).waitFor();
});

test('settings go from one installation to another', async (t) => {
  const system = await shared.get();
  const page = await settingsPage(t, system);
  system.ctl('set', 'rx', '7', 'location=Saved here');
  const folder = mkdtempSync(join(tmpdir(), 'mirl-settings-'));
  t.after(() => rmSync(folder, { recursive: true, force: true }));

  await action(page, 'Save').first().click();
  await dialogSays(page, 'All settings of the system');
  const dialog = page.getByRole('dialog').last();
  await dialog.getByLabel('Password', { exact: true }).fill('Secret9');
  const next = dialog.getByRole('button', { name: 'Next' });
  await until('Next waits for the second', async () => !(await next.isEnabled()));
  await t.picture(page, 'settings-save');
  await dialog.getByLabel('Confirm Password').fill('Secret9');
  await until('Next can be pressed', () => next.isEnabled());
  await next.click();
  await dialogSays(page, 'The settings file is ready');
  await t.picture(page, 'settings-saved');
  const link = dialog.getByRole('link', { name: 'Settings file' });
  const address = /** @type {string} */ (await link.getAttribute('href'));
  const [download] = await Promise.all([page.waitForEvent('download'), link.click()]);
  assert.equal(download.suggestedFilename(), 'settings.cze');
  const file = join(folder, 'settings.cze');
  await download.saveAs(file);
  assert.equal(readFileSync(file).subarray(0, 7).toString(), 'ZEQSET1');
  const stranger = await t.page();
  const refused = await stranger.request.get(new URL(address, page.url()).href);
  assert.notEqual(refused.status(), 200, 'not without the session that made it');
  await answer(page, 'Close');
  await page.getByRole('dialog').waitFor({ state: 'hidden' });

  const other = await new System({ args: ['--empty'] }).start();
  t.after(() => other.remove());
  const second = await t.page({ expectErrors: true });
  await openLogin(second, other);
  await tryLogin(second, 'admin', '');
  const first = second.getByRole('dialog').filter({ hasText: 'Confirm Password' });
  for (const n of [0, 1]) await first.locator('input').nth(n).fill('Gl4ss-harbour');
  await first.locator('input').nth(1).blur();
  await first.getByRole('button', { name: 'Set Password' }).click();
  await mainTab(second, 'Dashboard').waitFor();
  await openSettings(second, 'Manager');
  const load = async (path, password) => {
    await action(second, 'Load').click();
    await answer(second, 'Next →');
    await dialogSays(second, 'Choose a settings file');
    await second.getByRole('dialog').last().locator('input[type=file]').setInputFiles(path);
    await second.getByRole('dialog').last().getByLabel('Password', { exact: true }).fill(password);
    await t.picture(second, 'settings-load');
    await answer(second, 'Next →');
  };
  const broken = join(folder, 'broken.cze');
  const bytes = readFileSync(file);
  bytes[bytes.length - 9] ^= 1;
  writeFileSync(broken, bytes);
  for (const [path, password] of [[file, 'Wrong9'], [broken, 'Secret9']]) {
    await load(path, password);
    await dialogSays(second, 'Error validating and installing settings file.');
    await t.picture(second, 'settings-load-refused');
    await answer(second, 'Close');
  }
  await load(file, 'Secret9');
  await dialogSays(second, 'has been validated and installed.');
  await second.keyboard.press('Escape');
  await t.picture(second, 'settings-loaded');
  await answer(second, 'Reboot');
  await until('the users of the first one are there', () => {
    try { return other.ctl('list', 'user', 'name').includes('mhansen'); } catch { return false; }
  });
  await until('the login is back', async () => { await openLogin(second, other); return true; }, 60_000);
  await tryLogin(second, system.user, system.password);
  await mainTab(second, 'Dashboard').waitFor();
});

test('restoring asks, and a peer that is linked keeps it from happening', async (t) => {
  const system = await shared.get();
  const page = await settingsPage(t, system);
  const questions = [['Restore Full', 'to full factory default'], ['Restore Partial', 'Network settings will be']];
  for (const [name, words] of questions) {
    await action(page, name).click();
    await dialogSays(page, words);
    await t.picture(page, `settings-${name.toLowerCase().replace(' ', '-')}`);
    assert.equal(await page.evaluate(() => document.activeElement?.textContent), 'Cancel', 'Enter does no harm');
    await page.keyboard.press('Enter');
    await page.getByRole('dialog').waitFor({ state: 'hidden' });
  }
  assert.ok(system.ctl('list', 'user', 'name').includes('mhansen'));
});

/** The beginning of a PNG file of that size. */
const png = (width, height) => Buffer.concat([
  Buffer.from('89504e470d0a1a0a0000000d49484452', 'hex'),
  Buffer.from([0, 0, 0, width, 0, 0, 0, height]),
  Buffer.alloc(40),
]);

test('an icon is replaced by a good file and by no other', async (t) => {
  const system = await shared.get();
  const page = await settingsPage(t, system, 'Other');
  await action(page, 'Custom target icons...').click();
  await dialogSays(page, 'Choose an icon');
  assert.equal(await action(page, 'Replace').isEnabled(), false);
  await page.getByRole('dialog').last().getByRole('button', { name: 'Icon 17' }).click();
  await t.picture(page, 'settings-icons');
  const replace = async (buffer, words) => {
    await until('Replace can be pressed', () => action(page, 'Replace').isEnabled());
    await action(page, 'Replace').click();
    await dialogSays(page, 'Choose a 24 x 24 pixel png');
    await page.getByRole('dialog').last().locator('input[type=file]')
      .setInputFiles({ name: 'icon.png', mimeType: 'image/png', buffer });
    await page.getByRole('dialog').last().getByRole('checkbox').check();
    await answer(page, 'Send');
    if (!words) return;
    await dialogSays(page, words);
    await answer(page, 'Close');
  };
  await replace(png(32, 24), 'File may be corrupted or is not 24 x 24 pixels.');
  await replace(png(24, 24).subarray(0, 20), 'File may be corrupted');
  await replace(Buffer.concat([png(24, 24), Buffer.alloc(10485760)]), 'File too large.');
});
