// KVM sessions: connected, shared, disconnected; the Dashboard follows.
import assert from 'node:assert/strict';
import { answer, sharedSystem } from './devices.mjs';
import { test } from './harness.mjs';
import { act, button, list, row, rows } from './lists.mjs';
import { login, mainTab, openByKeys, tabTo } from './pages.mjs';
import { until } from './system.mjs';

const shared = sharedSystem();
export const done = shared.done;

const sessions = 'Sessions';
const dialog = (page) => page.getByRole('dialog').last();
const picks = (page, list) => dialog(page).getByRole('grid', { name: `Select a ${list}.` });
const pick = (page, list, name) => picks(page, list).locator('[role="row"]').filter({ hasText: name }).click();
const connect = (page) => dialog(page).getByRole('button', { name: 'Connect', exact: true });

/** @param {import('./harness.mjs').Context} t */
async function sessionsPage(t, system) {
  const page = await t.page();
  await login(page, system);
  await mainTab(page, 'Sessions').click();
  await row(page, sessions, 'Video Wall 1').waitFor();
  return page;
}

/** Fills in the Connect dialog as far as it goes. */
async function ask(page, mode, user, receiver, transmitter) {
  await act(page, 'Connect');
  await dialog(page).getByRole('combobox').selectOption({ label: `${mode} session` });
  await pick(page, 'user', user);
  await pick(page, 'receiver', receiver);
  if (transmitter) await pick(page, 'transmitter', transmitter);
}

async function connected(page, receiver, transmitter) {
  await answer(page, 'Session has been successfully connected.', 'Close');
  await row(page, sessions, receiver).filter({ hasText: transmitter }).waitFor();
}

test('a shared session, a second one on the same transmitter, and no private one', async (t) => {
  const system = await shared.get();
  const page = await sessionsPage(t, system);
  await ask(page, 'Shared', 'supervisor', 'Desk 4', 'Historian');
  await t.picture(page, 'sessions-connect');
  await connect(page).click();
  await connected(page, 'Desk 4', 'Historian');
  await ask(page, 'Shared', 'supervisor', 'Desk 5', 'Historian');
  await connect(page).click();
  await connected(page, 'Desk 5', 'Historian');

  await ask(page, 'Private', 'supervisor', 'Desk 10', null);
  await pick(page, 'transmitter', 'Weather');
  assert.equal(await picks(page, 'transmitter').locator('[role="row"]').filter({ hasText: 'Historian' }).count(), 0);
  // Another mode takes the picks away and leaves the button: the refusal has words.
  await dialog(page).getByRole('combobox').selectOption({ label: 'Shared session' });
  await dialog(page).locator('[data-empty="Select a user."]').first().waitFor();
  await connect(page).click();
  await answer(page, 'Unable to create session. Select a user, a receiver and a transmitter.', 'Close');
  await t.picture(page, 'sessions');
  await mainTab(page, 'Dashboard').click();
  await row(page, 'User Sessions', 'Desk 5').filter({ hasText: 'Historian' }).waitFor();
  await t.picture(page, 'dashboard-sessions');
});

test('several sessions are disconnected, one of them too late; the warning can be switched off', async (t) => {
  const system = await shared.get();
  const page = await sessionsPage(t, system);
  const before = await rows(page, sessions).count();
  await row(page, sessions, 'Desk 1 Left').click();
  await row(page, sessions, 'Desk 2 Left').click({ modifiers: ['Control'] });
  await row(page, sessions, 'Video Wall 3').click({ modifiers: ['Control'] });
  await act(page, 'Disconnect');
  await dialog(page).getByText('3 sessions').waitFor();
  await t.picture(page, 'sessions-disconnect');
  system.ctl('delete', 'connection', '3'); // that of Desk 2 Left
  await answer(page, 'disconnect the selected session(s)?', 'Disconnect');
  await answer(page, 'Unable to disconnect session.', 'Close');
  await until('the others are gone', async () => (await rows(page, sessions).count()) === before - 3);

  await row(page, sessions, 'Video Wall 2').click();
  await act(page, 'Disconnect');
  await dialog(page).getByRole('checkbox').check();
  await answer(page, 'disconnect the selected session(s)?', 'Cancel');
  await button(page, 'Disconnect').dblclick(); // asks no more, and disconnects once
  await row(page, sessions, 'Video Wall 2').waitFor({ state: 'detached' });
  assert.equal(await rows(page, sessions).count(), before - 4);
});

test('the Dashboard is folded, dragged and filtered, and its durations go on', async (t) => {
  const system = await shared.get();
  const page = await t.page();
  await login(page, system);
  const logins = 'User Sessions';
  await row(page, logins, 'Engineering').waitFor();
  const duration = () => row(page, logins, 'Engineering').getByRole('gridcell').last().innerText();
  const first = await duration();
  await until('the duration goes on', async () => (await duration()) !== first);
  await list(page, logins).getByRole('textbox').fill('wall');
  await page.keyboard.press('Tab');
  await row(page, logins, 'Engineering').waitFor({ state: 'detached' });
  await list(page, logins).getByRole('textbox').fill('');
  await page.keyboard.press('Tab');
  await row(page, logins, 'Engineering').waitFor();

  const panel = (text) => page.locator('.mirl-context-panel').filter({ hasText: text });
  const height = async (text) => (await panel(text).boundingBox())?.height ?? 0;
  const [above, below] = ['Duration', 'Message'];
  const open = await height(below);
  await panel(below).getByRole('button', { name: 'Events' }).focus();
  await page.keyboard.press('Enter');
  await until('the events are folded', async () => (await height(below)) < 40);
  await page.keyboard.press('Enter');
  await until('they are back', async () => (await height(below)) === open);
  const before = await height(above);
  await page.getByRole('separator').filter({ visible: true }).first().focus();
  await page.keyboard.press('ArrowDown');
  await until('the divider has moved', async () => (await height(above)) > before);
  await t.picture(page, 'dashboard-moved');
});

test('a session is connected and disconnected by keyboard alone', async (t) => {
  const system = await shared.get();
  system.ctl('set', 'user', '1', 'enableDisconnectSessionWarning=enabled');
  const page = await t.page();
  await login(page, system);
  await openByKeys(page, 'Sessions');
  await row(page, sessions, 'Video Wall 1').waitFor();
  await tabTo(page, 'Connect', button(page, 'Connect'));
  await page.keyboard.press('Enter');
  for (const name of ['user', 'receiver', 'transmitter']) {
    await tabTo(page, name, picks(page, name));
    await page.keyboard.press('End');
    const last = picks(page, name).locator('[role="row"][aria-selected="true"]');
    await until(`a ${name} is picked`, async () => (await last.count()) === 1);
  }
  await tabTo(page, 'the button', connect(page));
  await page.keyboard.press('Enter');
  await dialog(page).getByText('Session has been successfully connected.').waitFor();
  await page.keyboard.press('Enter');
  await until('the box is closed', async () => (await page.getByRole('dialog').count()) === 0);
  const made = JSON.parse(system.ctl('--json', 'list', 'connection', 'index', 'rxIndex')).at(-1);
  const receiver = system.ctl('get', 'rx', String(made.rxIndex), 'name');
  await row(page, sessions, receiver).waitFor();

  await tabTo(page, 'the list', list(page, sessions).getByRole('grid'));
  await page.keyboard.press('Home');
  const chosen = rows(page, sessions).locator('xpath=self::*[@aria-selected="true"]');
  for (let n = 0; n < 20 && !(await chosen.filter({ hasText: receiver }).count()); n++) {
    const before = await chosen.innerText();
    await page.keyboard.press('ArrowDown');
    await until('the next row', async () => (await chosen.innerText()) !== before);
  }
  await tabTo(page, 'Disconnect', button(page, 'Disconnect'));
  await page.keyboard.press('Enter');
  await dialog(page).getByText('disconnect the selected session(s)?').waitFor();
  await page.keyboard.press('Enter');
  await row(page, sessions, receiver).waitFor({ state: 'detached' });
});
