// The page says what it does: whom the details show, what a save reached, why a list waits, whom a question is about.
import assert from 'node:assert/strict';
import { act, answer, devicesPage, select, sharedSystem } from './devices.mjs';
import { test } from './harness.mjs';
import { field, saveButton, selectReceiver, showRow } from './pages.mjs';
import { until } from './system.mjs';

const shared = sharedSystem();
export const done = shared.done;

const says = (page, words) => page.getByText(words, { exact: true }).locator('visible=true').waitFor();
const focused = (page) => page.evaluate(() => document.activeElement?.textContent?.trim());

test('an edit locks the list and says so; Enter saves and says what; Escape asks first', async (t) => {
  const system = await shared.get();
  const page = await devicesPage(t, system);
  await selectReceiver(page, 'Desk 4');
  await page.getByRole('button', { name: /^Device Details Desk 4 · Receiver \(G1\) · 00A702-/ }).waitFor();
  const name = field(page, 'Receiver Name');
  await name.fill('Desk Four');
  await says(page, 'Save or cancel first');
  const reboot = page.getByRole('button', { name: 'Reboot', exact: true });
  assert.equal(await reboot.isDisabled(), true);
  assert.equal(await reboot.getAttribute('title'), 'Save or cancel first');
  await t.picture(page, 'speaks-locked');
  await name.press('Enter');
  await says(page, 'Saved: Desk Four');
  assert.equal(await name.evaluate((e) => e === document.activeElement), true, 'the focus stays in the field');
  assert.equal(system.ctl('get', 'rx', '7', 'name'), 'Desk Four');
  await t.picture(page, 'speaks-saved');

  await name.fill('Desk');
  await page.getByText('Saved: Desk Four').waitFor({ state: 'hidden' });
  await name.press('Escape');
  await answer(page, 'There are unsaved changes. Are you sure you want to discard them?', 'Cancel');
  assert.equal(await name.inputValue(), 'Desk');
  await name.press('Escape');
  await answer(page, 'There are unsaved changes.', 'Discard changes');
  await until('the stored name is back', async () => (await name.inputValue()) === 'Desk Four');

  await name.fill('Desk 4');
  await until('Save can be pressed', () => saveButton(page).isEnabled());
  await saveButton(page).click();
  await says(page, 'Saved: Desk 4');
  await until('the focus is not lost', async () => (await focused(page)) === 'Attributes');
});

test('questions name whom they hit, and the harmless button has the focus', async (t) => {
  const page = await devicesPage(t, await shared.get());
  await select(page, 'Desk 4', 'Desk 5', 'Weather', 'Historian');
  await page.getByText('4 devices', { exact: true }).waitFor();
  await act(page, 'Remove');
  await page.getByText(/^4 devices: .+, .+, .+ and 1 more$/m).waitFor();
  await page.getByText(/: \d/).first().waitFor();
  await t.picture(page, 'speaks-question');
  assert.equal(await focused(page), 'Cancel');
  await answer(page, 'Are you sure you want to remove the selected device(s)?', 'Cancel');
  await showRow(page, 'Historian');
});

test('a service that hangs is waited for in words', async (t) => {
  const system = await shared.get();
  const page = await devicesPage(t, system);
  const busy = page.locator('.wt-busy');
  await selectReceiver(page, 'Desk 5');
  assert.equal(await busy.isHidden(), true);
  t.after(() => system.kill('zeqd', 'SIGCONT'));
  system.kill('zeqd', 'SIGSTOP');
  await (await showRow(page, 'Desk 4')).click();
  await busy.getByText('Waiting for the Switch').waitFor();
  await t.picture(page, 'speaks-waiting');
  system.kill('zeqd', 'SIGCONT');
  await busy.waitFor({ state: 'hidden' });
  await selectReceiver(page, 'Desk 5');
});

test('an error stands at its field, and so does what another administrator stored meanwhile', async (t) => {
  const system = await shared.get();
  const page = await devicesPage(t, system);
  await selectReceiver(page, 'Desk 4');
  await page.getByRole('tab', { name: 'Settings', exact: true }).click();
  const limit = field(page, 'Session Timeout (minutes, 0 means never)');
  await limit.fill('5000');
  const note = page.locator('.mirl-field-note:visible');
  await note.getByText('The number must be at most 1440').waitFor();
  assert.equal(await limit.getAttribute('aria-describedby'), await note.getAttribute('id'));
  await limit.fill('17');
  await note.waitFor({ state: 'hidden' });
  await limit.press('Tab');
  system.ctl('set', 'rx', '7', 'sessionInactivityTimeout=3');
  await page.getByText('now: 3, changed since you began').waitFor();
  await t.picture(page, 'speaks-meanwhile');
  assert.equal(await limit.inputValue(), '17');
  await saveButton(page).click();
  await says(page, 'Saved: Desk 4');
  assert.equal(system.ctl('get', 'rx', '7', 'sessionInactivityTimeout'), '17');

  await select(page, 'Desk 4', 'Desk 5');
  await until('the difference is said', async () => (await limit.getAttribute('placeholder')) === '(different)');
  await t.picture(page, 'speaks-different');
});
