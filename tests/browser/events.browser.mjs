// Events: acknowledged one, several, all; the history saved as a file and cleared; by mouse and by keyboard.
import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import { readFileSync } from 'node:fs';
import { join } from 'node:path';
import { answer, sharedSystem } from './devices.mjs';
import { outDir, test } from './harness.mjs';
import { act, button, list, row, rows } from './lists.mjs';
import { login, mainTab } from './pages.mjs';
import { until } from './system.mjs';

const shared = sharedSystem();
export const done = shared.done;

const unacked = 'Unacknowledged Events';
const history = 'Event History';
const detail = (page) => page.locator('.mirl-details-tab:visible .mirl-attribute-table-read-only-cell').last();

/** Raises an event of this Switch. */
const raise = (system, severity, message) =>
  system.ctl('set', 'simControl', 'action=alert', `severity=${severity}`, `message=${message}`);

/** @param {import('./harness.mjs').Context} t */
async function eventsPage(t, system) {
  const page = await t.page();
  await login(page, system);
  await mainTab(page, 'Events').click();
  await page.getByRole('heading', { name: history }).waitFor();
  return page;
}

test('events are acknowledged, saved and cleared', async (t) => {
  const system = await shared.get();
  const page = await eventsPage(t, system);
  await act(page, 'Acknowledge All');
  await until('nothing is left', async () => (await rows(page, unacked).count()) === 0);
  await act(page, 'Clear');
  await answer(page, 'Are you sure you want to clear the event history?', 'Clear');
  await list(page, history).locator('[data-empty="No events in the history"]').waitFor();

  const hostile = ['=cmd()', 'a "quoted", word', '<b>bold</b>', '-1+1'];
  for (const message of hostile) raise(system, 'warning', message);
  raise(system, 'error', 'Fan failed');
  await row(page, unacked, 'Fan failed').click();
  await until('its details are shown', async () => (await detail(page).innerText()) === 'Fan failed');
  await t.picture(page, 'events');
  raise(system, 'info', 'meanwhile');
  await row(page, unacked, 'meanwhile').waitFor();
  assert.equal(await detail(page).innerText(), 'Fan failed', 'a refresh leaves the details');
  await act(page, 'Acknowledge');
  await row(page, history, 'Fan failed').click();
  await until('the details are of the history', async () => (await detail(page).innerText()) === 'Fan failed');
  await row(page, unacked, '<b>bold</b>').click();
  await until('one list has the selection', async () => (await detail(page).innerText()) === '<b>bold</b>');
  assert.equal(await list(page, history).locator('[aria-selected="true"]').count(), 0);
  await act(page, 'Acknowledge All');
  await row(page, history, 'meanwhile').waitFor();

  const [download] = await Promise.all([
    page.waitForEvent('download'),
    button(page, 'Save').click(),
  ]);
  assert.equal(download.suggestedFilename(), 'event-history.csv');
  const file = join(outDir, 'event-history.csv');
  await download.saveAs(file);
  const reader = 'import csv, json, sys\nprint(json.dumps(list(csv.reader(open(sys.argv[1], newline="")))))';
  const cells = JSON.parse(execFileSync('python3', ['-X', 'utf8', '-c', reader, file], { encoding: 'utf8' }));
  assert.ok(cells.every((line) => line.length === 4), readFileSync(file, 'utf8'));
  const messages = cells.map((line) => line[3]).sort();
  assert.deepEqual(messages,
    ["'-1+1", "'=cmd()", '<b>bold</b>', 'Fan failed', "a 'quoted', word", 'meanwhile'].sort());
  const address = download.url();
  await page.getByRole('link', { name: 'Log out' }).or(page.getByText('Log out')).first().click();
  await page.locator('.mirl-login-line-edit').first().waitFor();
  assert.notEqual((await page.request.get(address, { ignoreHTTPSErrors: true })).status(), 200, 'not behind a logout');
});

test('by keyboard: an event is chosen and acknowledged', async (t) => {
  const system = await shared.get();
  raise(system, 'error', 'by keyboard');
  const page = await eventsPage(t, system);
  await row(page, unacked, 'by keyboard').waitFor();
  const grid = list(page, unacked).locator('[role="grid"]');
  await grid.focus();
  await page.keyboard.press('Home');
  await until('the first row is chosen', async () =>
    (await list(page, unacked).locator('[aria-selected="true"]').count()) === 1);
  await until('and its details are shown', async () => (await detail(page).innerText()) !== '');
  const acknowledge = button(page, 'Acknowledge');
  await until('it may be pressed', () => acknowledge.isEnabled());
  const message = await detail(page).innerText();
  await acknowledge.focus();
  await page.keyboard.press('Enter');
  await row(page, history, message).first().waitFor();
});
