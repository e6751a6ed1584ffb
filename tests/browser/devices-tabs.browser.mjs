// The details tabs of one device and of several.
import assert from 'node:assert/strict';
import { answer, devicesPage, openTab, save, select, sharedSystem, shows } from './devices.mjs';
import { test } from './harness.mjs';
import { field, saveButton } from './pages.mjs';
import { until } from './system.mjs';

const shared = sharedSystem();
export const done = shared.done;

/** Rows of the details tab on show, cells joined by "|". @param {import('playwright-core').Page} page */
const table = (page) => page.locator('.mirl-details-tab:visible tr:visible').evaluateAll((rows) =>
  rows.map((row) => [...row.children].map((cell) => (/** @type {HTMLElement} */ (cell)).innerText.trim()).join('|')));
/** Waits for a row of the tab on show. */
const tableShows = (page, line) => until(`a row ${line}`, async () => (await table(page)).some(row => line.test(row)));

test('video and USB of a running session', async (t) => {
  const system = await shared.get();
  const page = await devicesPage(t, system);
  await select(page, 'Desk 1 Left');
  await openTab(page, 'Video');
  await tableShows(page, /^Resolution \(pixels\)\|\d+ ?x ?\d+\|\d+ ?x ?\d+\|\d+ ?x ?\d+$/);
  await tableShows(page, /^Frequency \(kHz\)\|[1-9]\d*\|[1-9]\d*\|[1-9]\d*$/);
  await tableShows(page, /^Frame Rate \(Hz\)\|60\|60\|(60|59)$/);
  await t.picture(page, 'devices-rx-video');
  await openTab(page, 'USB');
  await tableShows(page, /^Version\|\d+\.\d+$/);
  await tableShows(page, /^uCount\|0x[0-9A-F]{4}$/);
  await t.picture(page, 'devices-rx-usb');
  await openTab(page, 'Status');
  await tableShows(page, /^Logged in username\|mhansen$/);
  await t.picture(page, 'devices-rx-status');
  await select(page, 'SCADA A');
  await openTab(page, 'Sessions');
  await until('both sessions are told', async () => {
    const rows = await page.locator('.mirl-details-tab:visible [role="row"]:visible').allInnerTexts();
    return (
      rows.some(row => /mhansen\s+Desk 1 Left\s+00A702-020011/.test(row)) &&
      rows.some(row => /Shift Lead Left/.test(row))
    );
  });
  await t.picture(page, 'devices-tx-sessions');
  await select(page, 'SCADA A', 'SCADA B');
  await openTab(page, 'USB');
  await tableShows(page, /^Version\|$/);
});

test('IPv4 of one Switch and of both', async (t) => {
  const system = await shared.get();
  const page = await devicesPage(t, system);
  await select(page, 'Annex Switch');
  await openTab(page, 'IPv4');
  await shows(page, 'IPv4 Address', '10.20.1.11');
  await field(page, 'IPv4 Address').fill('10.20.1.999');
  await until('the address is judged', () =>
    page.getByRole('button', { name: 'Cancel' }).locator('visible=true').isEnabled()
  );
  assert.equal(await saveButton(page).isEnabled(), false);
  await t.picture(page, 'devices-ipv4-bad');
  await field(page, 'IPv4 Address').fill('10.20.1.12');
  await save(page);
  await until('it is stored', () => system.ctl('get', 'swx', '2', 'network/ipv4/ipAddress') === '10.20.1.12');
  assert.equal(system.ctl('get', 'swx', '2', 'network/ipv4/subnetMask'), '255.255.255.0');
  assert.equal(system.ctl('get', 'swx', '2', 'network/ipv6/ipAddress'), 'fd20:1::11');
  await field(page, 'Configuration Method').selectOption('DHCP');
  await until('the address follows the method', () => field(page, 'IPv4 Address').isDisabled());
  assert.equal(await field(page, 'Subnet Mask').isEnabled(), true);
  await page.getByRole('button', { name: 'Cancel' }).locator('visible=true').click();
  await shows(page, 'IPv4 Address', '10.20.1.12');

  await select(page, 'Annex Switch', 'Main Hall Switch');
  await shows(page, 'Subnet Mask', '255.255.255.0');
  await shows(page, 'IPv4 Address', '');
  for (const label of ['Configuration Method', 'IPv4 Address', 'Subnet Mask', 'Gateway Address'])
    assert.equal(await field(page, label).isDisabled(), true, label);
  await t.picture(page, 'devices-ipv4-several');
});

test('NTP off and on', async (t) => {
  const system = await shared.get();
  const page = await devicesPage(t, system);
  await select(page, 'Annex Switch');
  await openTab(page, 'NTP');
  await shows(page, 'Primary NTP Server IP Address', '10.20.1.5');
  await field(page, 'NTP').selectOption('Disabled');
  await until('the first address follows at once', () => field(page, 'Primary NTP Server IP Address').isDisabled());
  await save(page);
  await until('NTP is off', () => system.ctl('get', 'swx', '2', 'ntpEnable') === 'disabled');
  await until('both addresses are off', () => field(page, 'Secondary NTP Server IP Address').isDisabled());
  await t.picture(page, 'devices-ntp-off');
  await field(page, 'NTP').selectOption('Enabled');
  await until('the first address is back', () => field(page, 'Primary NTP Server IP Address').isEnabled());
  await field(page, 'Primary NTP Server IP Address').fill('no address!');
  await until('the address is judged', async () => !(await saveButton(page).isEnabled()));
  await field(page, 'Primary NTP Server IP Address').fill('time.example.org');
  await save(page);
  await until('NTP is on', () => system.ctl('get', 'swx', '2', 'ntpEnable') === 'enabled');
  assert.equal(system.ctl('get', 'swx', '2', 'primaryNtpIpAddress'), 'time.example.org');
  await until('both addresses are on', () => field(page, 'Secondary NTP Server IP Address').isEnabled());
  await t.picture(page, 'devices-ntp-on');
});

test('mode and ports of a Switch', async (t) => {
  const system = await shared.get();
  const page = await devicesPage(t, system);
  await select(page, 'Annex Switch');
  await openTab(page, 'Mode');
  await until('another Switch keeps its mode', () => field(page, 'Cascade Participation').isDisabled());
  await openTab(page, 'Ports');
  const ports = page.locator('.mirl-details-tab:visible [role="row"]:visible');
  await until('ports stand in their order', async () => {
    const numbers = (await ports.locator('[role="gridcell"]:first-child').allInnerTexts()).map(Number);
    return numbers.length > 9 && numbers.every((number, n) => number === n + 1);
  });
  await t.picture(page, 'devices-ports');
  await select(page, 'Main Hall Switch');
  await openTab(page, 'Mode');
  await until('this Switch may change its mode', () => field(page, 'Cascade Participation').isEnabled());
  await field(page, 'Cascade Participation').selectOption('Switch is a cascade slave');
  await page.getByRole('dialog').waitFor();
  await t.picture(page, 'devices-mode-warning');
  await answer(page, 'Master/Slave Mode Change', 'Close');
  await page.getByRole('button', { name: 'Cancel' }).locator('visible=true').click();
  await until('nothing was changed', async () =>
    /master/.test(await field(page, 'Cascade Participation').locator('option:checked').innerText())
  );
});

test('wake on LAN, and the icon of two Transmitters', async (t) => {
  const system = await shared.get();
  const page = await devicesPage(t, system);
  await select(page, 'Weather');
  await openTab(page, 'Settings');
  await until('no address without wake on LAN', () => field(page, 'Wake on LAN MAC Address').isDisabled());
  await field(page, 'Wake on LAN').selectOption('Enabled');
  await until('the address counts', () => field(page, 'Wake on LAN MAC Address').isEnabled());
  await field(page, 'Wake on LAN MAC Address').fill('00:11:22:33:44');
  await until('too short', async () => !(await saveButton(page).isEnabled()));
  await t.picture(page, 'devices-wake-on-lan');
  await field(page, 'Wake on LAN MAC Address').fill('00:11:22:33:44:5F');
  await save(page);
  await until('it is stored', () =>
    /^00.?11.?22.?33.?44.?5f$/i.test(system.ctl('get', 'tx', '7', 'wakeOnLanMacAddress'))
  );
  assert.equal(system.ctl('get', 'tx', '7', 'wakeOnLan'), 'enabled');

  await select(page, 'Weather', 'Historian');
  await page.locator('.mirl-tx-icon-tight:visible').click();
  await page.getByRole('dialog').waitFor();
  await t.picture(page, 'devices-icons');
  await page.getByRole('dialog').getByRole('button').nth(11).click();
  await save(page);
  await until('both have it', () => ['4', '7'].every((tx) => system.ctl('get', 'tx', tx, 'iconIndex') === '12'));
});
