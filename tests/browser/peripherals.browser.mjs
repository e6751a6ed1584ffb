// The library of stored monitors: pull, push, edit, delete, and the decoded report.
import assert from 'node:assert/strict';
import { act, answer, box, openTab, save, select, sharedSystem, shows } from './devices.mjs';
import { test } from './harness.mjs';
import { deviceRow, deviceRows, field, login, openMonitors, saveButton, showRow } from './pages.mjs';
import { until } from './system.mjs';

// A service that is stopped for a while is to be slow here, not gone (milliseconds).
process.env.ZEQ_TIMEOUT_MS = '60000';

const shared = sharedSystem();
export const done = shared.done;

/** @param {import('./harness.mjs').Context} t */
async function monitorsPage(t, system) {
  const page = await t.page();
  await login(page, system);
  await openMonitors(page);
  return page;
}

/** Selects rows of the list in the dialog, scrolling it. */
async function choose(page, ...names) {
  const grid = box(page).locator('[role="grid"]');
  for (const [n, name] of names.entries()) {
    const row = await showRow(page, name, grid);
    await row.click(n ? { modifiers: ['Control'] } : {});
    await until(`${name} is selected`, async () => (await row.getAttribute('aria-selected')) === 'true');
  }
}

const press = (page, name) => box(page).getByRole('button', { name, exact: true }).click();
const says = (page, words) => until(`the dialog says ${words}`, async () => words.test(await box(page).innerText()));
const closed = (page) => page.getByRole('dialog').waitFor({ state: 'hidden' });
const decoded = (page) => page.locator('.mirl-edid-decode-text-area');

/** Two pulls within a second make the same name. */
let lastPull = 0;
const secondNow = () => Math.floor(Date.now() / 1000);

async function pull(page, device, words) {
  await until('another second', () => secondNow() !== lastPull);
  await act(page, 'Pull');
  await choose(page, device);
  await press(page, 'Pull');
  await says(page, words);
  lastPull = secondNow();
}

test('pull from a Receiver and from a Transmitter, and every failure', async (t) => {
  const system = await shared.get();
  const page = await monitorsPage(t, system);
  const before = await deviceRows(page).count();
  await act(page, 'Pull');
  await choose(page, 'Desk 4');
  await t.picture(page, 'peripherals-pull');
  await press(page, 'Pull');
  await says(page, /successfully pulled and added to the list/);
  await t.picture(page, 'peripherals-pulled');
  await press(page, 'Close');
  await closed(page);
  await until('one more is stored', async () => (await deviceRows(page).count()) === before + 1);
  await deviceRows(page).filter({ hasText: 'pulled from receiver Desk 4' }).filter({ hasText: 'CLD' }).waitFor();

  await act(page, 'Pull');
  await choose(page, 'Overview Wall 1');
  await box(page).getByText('Close when operation').click();
  await press(page, 'Pull');
  await closed(page);
  await until('two more are stored', async () => (await deviceRows(page).count()) === before + 2);
  await deviceRows(page).filter({ hasText: 'pulled from transmitter Overview Wall 1' }).waitFor();

  await pull(page, 'Training', /Failed to pull monitor attributes from Receiver\. \S/);
  await t.picture(page, 'peripherals-pull-failed');
  await press(page, 'Close');
  await pull(page, 'SCADA Test', /Failed to pull EDID from Transmitter\. \S/);
  await press(page, 'Close');
  await pull(page, 'Lobby Display', /Invalid EDID received\. Discarded\./);
  await press(page, 'Close');
  await closed(page);
  await until('it is stored all the same', async () => (await deviceRows(page).count()) === before + 3);
});

test('push to five Transmitters with one mismatch and one offline', async (t) => {
  const system = await shared.get();
  const page = await monitorsPage(t, system);
  await select(page, 'Gannet G22 16:10');
  await act(page, 'Push');
  await choose(page, 'Alarm Server', 'Camera Recorder', 'SCADA A', 'SCADA B', 'SCADA Test');
  await t.picture(page, 'peripherals-push');
  await press(page, 'Push');
  await says(page, /Monitor attributes type: DVI\s+Transmitter type: VGA/);
  await t.picture(page, 'peripherals-mismatch');
  await press(page, 'Cancel');
  await says(page, /Select the Transmitter/);
  await press(page, 'Push');
  await says(page, /mismatch/);
  await press(page, 'Continue');
  await says(page, /Failed to push monitor to the following Transmitters \(1 failed of 5 tried\):/);
  assert.match(await box(page).getByRole('textbox').inputValue(), /^"SCADA Test": \S.*$/);
  await t.picture(page, 'peripherals-push-failed');
  await press(page, 'Close');
  await closed(page);
});

/** The page asks the service nothing of its own accord any more: such a question, stopped half-way, would hold up the
 * click behind it. Chromium numbers both kinds of timers together. @param {import('playwright-core').Page} page */
const stopAsking = (page) => page.evaluate(() => {
  const last = setInterval(() => {}, 1e6);
  for (let timer = 1; timer <= Number(last); ++timer) clearInterval(timer);
});

test('Cancel stops a push while the service is slow', async (t) => {
  const system = await shared.get();
  const page = await monitorsPage(t, system);
  await select(page, 'Ives I12 panel');
  await act(page, 'Push');
  await stopAsking(page);
  await choose(page, 'Historian', 'Lightning Map', 'Log Server');
  system.kill('zeqd', 'SIGSTOP');
  try {
    await press(page, 'Push');
    await says(page, /Mismatch/); // the last one takes VGA
    await press(page, 'Continue');
    await says(page, /Pushing monitor to transmitter/);
    await t.picture(page, 'peripherals-pushing');
    await press(page, 'Cancel');
  } finally {
    system.kill('zeqd', 'SIGCONT');
  }
  await closed(page);
  // Cancel may come before the first Transmitter's turn; the second one's never comes.
  await pull(page, 'Lightning Map', /successfully pulled/);
  await press(page, 'Close');
  await deviceRows(page).filter({ hasText: 'from transmitter Lightning Map' }).filter({ hasText: 'ZEQ' }).waitFor();
});

test('a double click pushes once and closes once', async (t) => {
  const system = await shared.get();
  const page = await monitorsPage(t, system);
  await select(page, 'Standard DVI');
  await act(page, 'Push');
  await choose(page, 'Alarm Server', 'SCADA A', 'SCADA B');
  await box(page).getByRole('button', { name: 'Push', exact: true }).dblclick();
  await says(page, /Finished\./);
  assert.equal(await box(page).getByRole('button', { name: 'Push', exact: true }).count(), 0);
  await box(page).getByRole('button', { name: 'Close', exact: true }).dblclick();
  await closed(page);
  await deviceRow(page, 'Standard DVI').waitFor();
});

test('a description for three records at once, and protected ones', async (t) => {
  const system = await shared.get();
  const page = await monitorsPage(t, system);
  await select(page, 'Brightwell BW2412 24in', 'Brightwell BW2715 27in', 'Farrow F15 rack drawer');
  await shows(page, 'Name', '');
  assert.equal(await field(page, 'Name').isDisabled(), true);
  await field(page, 'Description').fill('In the store room');
  await until('the tab can be saved', () => saveButton(page).isEnabled());
  await t.picture(page, 'peripherals-edit-three');
  await save(page);
  await until('all are stored', () =>
    ['1', '2', '7'].every(n => system.ctl('get', 'edid', n, 'description') === 'In the store room'));
  assert.equal(system.ctl('get', 'edid', '1', 'name'), 'Brightwell BW2412 24in');

  await select(page, 'Standard VGA');
  await shows(page, 'Name', 'Standard VGA');
  await until('nothing of it can be edited', () => field(page, 'Description').isDisabled());
  assert.equal(await page.getByRole('button', { name: 'Delete', exact: true }).isEnabled(), false);
  assert.equal(await page.getByRole('button', { name: 'Push', exact: true }).isEnabled(), true);
  await t.picture(page, 'peripherals-protected');
});

test('delete with the warning and without it', async (t) => {
  const system = await shared.get();
  const page = await monitorsPage(t, system);
  await select(page, 'Harbour H32 television');
  await act(page, 'Delete');
  await t.picture(page, 'peripherals-delete');
  await box(page).getByText('Do not show this message again.').click();
  await answer(page, 'want to delete the selected item?', 'Cancel');
  await deviceRow(page, 'Harbour H32 television').waitFor();
  await until('the warning is off', () => system.ctl('get', 'user', '1', 'enableDeleteMonitorWarning') === 'disabled');
  await act(page, 'Delete');
  await until('it is gone', async () => (await deviceRow(page, 'Harbour H32 television').count()) === 0);
  assert.equal(await page.getByRole('dialog').count(), 0);
});

test('the decoded report can be copied while the list refreshes', async (t) => {
  const system = await shared.get();
  const page = await monitorsPage(t, system);
  await select(page, 'Linden L32 before repair');
  await openTab(page, 'Decoded EDID');
  await until('the report is there', async () => (await decoded(page).inputValue()).includes('Invalid Header!'));
  await t.picture(page, 'peripherals-decoded');
  assert.match(await decoded(page).evaluate(e => getComputedStyle(e).fontFamily), /mono/i);
  const [start, end] = await decoded(page).evaluate((/** @type {HTMLTextAreaElement} */ e) => {
    e.focus();
    const from = e.value.indexOf('Invalid Header!');
    e.setSelectionRange(from, from + 15);
    e.scrollTop = 120;
    return [e.selectionStart, e.selectionEnd];
  });
  system.ctl('set', 'edid', '3', 'name=A name that comes first');
  await deviceRow(page, 'A name that comes first').waitFor();
  const after = await decoded(page).evaluate((/** @type {HTMLTextAreaElement} */ e) =>
    [e.selectionStart, e.selectionEnd, e.scrollTop, document.activeElement === e]);
  assert.deepEqual(after, [start, end, 120, true]);
  // Out of the field, another record is shown.
  await (await showRow(page, 'Kestrel K17 worn cable')).click();
  await until('the other report', async () => (await decoded(page).inputValue()).includes('Invalid Checksum!'));
});

test('by keyboard alone: pull, and leave a push', async (t) => {
  const system = await shared.get();
  const page = await monitorsPage(t, system);
  const before = await deviceRows(page).count();
  await page.getByRole('button', { name: 'Pull', exact: true }).focus();
  await page.keyboard.press('Enter');
  await box(page).waitFor();
  await until('the list has rows', async () => (await box(page).locator('[role="gridcell"]').count()) > 0);
  const inList = () => page.evaluate(() => document.activeElement?.closest('[role="dialog"] [role="grid"]') !== null);
  for (let tabs = 0; tabs < 12 && !(await inList()); ++tabs) await page.keyboard.press('Tab');
  assert.equal(await inList(), true, 'Tab reaches the list');
  await page.keyboard.press('ArrowDown');
  const go = box(page).getByRole('button', { name: 'Pull', exact: true });
  if (!(await go.isEnabled())) await page.keyboard.press('Space');
  await until('Pull can be pressed', () => go.isEnabled());
  const onButton = () => go.evaluate(e => e === document.activeElement);
  for (let tabs = 0; tabs < 6 && !(await onButton()); ++tabs) await page.keyboard.press('Tab');
  await page.keyboard.press('Enter');
  await says(page, /successfully pulled/);
  await page.keyboard.press('Escape');
  await closed(page);
  await until('one more is stored', async () => (await deviceRows(page).count()) === before + 1);
});
