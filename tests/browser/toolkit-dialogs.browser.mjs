// Modal dialogs: where the focus goes, what Escape and Enter do, and what goes on behind them.
import assert from 'node:assert/strict';
import { focused, openGallery, said, saying } from './gallery.mjs';
import { test } from './harness.mjs';
import { until } from './system.mjs';

const dialogs = (page) => page.getByRole('dialog');
const focusIs = (page, id) => until(`the focus is on #${id}`, async () => (await focused(page)) === id);

test('focus goes in, is kept in, and returns', async (t) => {
  const { page } = await openGallery(t, 'dialogs,forms');
  await page.locator('#ask').focus();
  await page.keyboard.press('Enter');
  await focusIs(page, 'answer');
  const dialog = dialogs(page);
  assert.equal(await dialog.getAttribute('aria-modal'), 'true');
  assert.equal(await page.getByRole('dialog', { name: 'A question' }).count(), 1);
  const round = [];
  for (let i = 0; i < 4; i++) {
    round.push(await focused(page));
    await page.keyboard.press('Tab');
  }
  assert.deepEqual(round, ['answer', 'yes', 'more', 'answer']);
  await focusIs(page, 'yes');
  await page.keyboard.press('Shift+Tab');
  await page.keyboard.press('Shift+Tab');
  await focusIs(page, 'more');
  // What is below cannot be reached: not by a click, not by script.
  await page.locator('#name').evaluate((e) => e.focus());
  assert.notEqual(await focused(page), 'name');
  await page.keyboard.press('Escape');
  await saying(page, 'log', /^dialog rejected/);
  await until('it is gone', async () => (await dialogs(page).count()) === 0);
  await focusIs(page, 'ask');
  assert.equal(await page.locator('[inert]').count(), 0);
});

test('Enter in a field presses the default button with what was typed; on another button that one', async t => {
  const { page } = await openGallery(t, 'dialogs');
  await page.locator('#ask').click();
  await focusIs(page, 'answer');
  await page.keyboard.type('typed');
  await page.keyboard.press('Enter');
  await saying(page, 'log', 'dialog accepted typed');
  await page.locator('#ask').click();
  await focusIs(page, 'answer');
  await page.locator('#more').focus();
  await page.keyboard.press('Enter');
  await page.locator('#close-inner').waitFor();
  assert.equal(await dialogs(page).count(), 2);
});

test('nested dialogs close one by one, from the top', async (t) => {
  const { page } = await openGallery(t, 'dialogs');
  await page.locator('#ask').click();
  await page.locator('#more').click();
  await focusIs(page, 'close-inner');
  await page.locator('#yes').evaluate((e) => e.click()); // below the inner one: nothing may come of it
  await page.keyboard.press('Escape');
  await saying(page, 'log', 'inner rejected');
  await focusIs(page, 'more');
  assert.equal(await dialogs(page).count(), 1);
  await page.keyboard.press('Escape');
  await saying(page, 'log', /^dialog rejected/);
  await focusIs(page, 'ask');
});

test('timers go on under a dialog, and what they change is seen', async (t) => {
  const { page } = await openGallery(t, 'dialogs,timers');
  await page.locator('#start').click();
  await page.locator('#ask').click();
  await focusIs(page, 'answer');
  await saying(page, 'ticks', 'tick 3');
  assert.equal(await dialogs(page).count(), 1);
  await page.keyboard.press('Escape');
  await saying(page, 'log', /^dialog rejected/);
});

test('a session that ends inside of two dialogs unwinds, and the page says so', async (t) => {
  const { page } = await openGallery(t, 'dialogs,ends');
  const observer = await t.page();
  await observer.goto(page.url());
  await observer.locator('#count').click();
  await saying(observer, 'log', 'living 2');
  await page.locator('#soon').click();
  await page.locator('#ask').click();
  await page.locator('#more').click({ timeout: 5000 }).catch(() => {}); // it may have ended before
  await page.getByRole('button', { name: 'Start again' }).waitFor();
  await until('its application is gone', async () => {
    await observer.locator('#count').click(); // its answer is seen by the next look
    return (await said(observer, 'log')) === 'living 1';
  });
  await page.getByRole('button', { name: 'Start again' }).click();
  await page.locator('#ask').click();
  await focusIs(page, 'answer');
});
