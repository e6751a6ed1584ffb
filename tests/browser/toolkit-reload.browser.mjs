// Reloads that go on with their session; what a lost link, a refused message and an ended session do with texts.
import assert from 'node:assert/strict';
import { mkdtempSync, rmSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { openGallery, said, saying } from './gallery.mjs';
import { test } from './harness.mjs';
import { until } from './system.mjs';

const banner = (page) => page.locator('.wt-banner');

/** A gallery where a reload is no new session. @param {import('./harness.mjs').Context} t */
async function keptGallery(t, sections) {
  const folder = mkdtempSync(join(tmpdir(), 'config-'));
  t.after(() => rmSync(folder, { recursive: true }));
  const file = join(folder, 'wt_config.xml');
  writeFileSync(file, '<server><application-settings location="*"><session-management>'
    + '<reload-is-new-session>false</reload-is-new-session></session-management></application-settings></server>');
  return openGallery(t, sections, { args: [`--config=${file}`], expectErrors: true });
}

test('a reload shows the same session, with text that no event had carried, and its timers run on', async (t) => {
  const { page } = await keptGallery(t, 'forms,timers,table');
  await page.locator('#start').click();
  await page.locator('#notes').fill('line');
  await page.locator('#name').fill('typed'); // and told by no event
  for (let i = 0; i < 3; i++) {
    await page.reload();
    await page.locator('#log').waitFor();
    assert.equal(await page.locator('#name').inputValue(), 'typed');
  }
  await saying(page, 'ticks', 'tick 3');
  await page.locator('#button').click();
  await saying(page, 'log', 'clicked typed|line');
});

test('a session that ended meanwhile: the reload begins anew without a word', async (t) => {
  const { gallery, page } = await keptGallery(t, 'forms');
  await page.locator('#name').fill('typed');
  await gallery.restart();
  await page.reload();
  await page.locator('#log').waitFor();
  assert.equal(await page.locator('#name').inputValue(), '');
  assert.equal(await page.getByRole('dialog').count(), 0);
  await page.locator('#button').click();
  await saying(page, 'log', /^clicked/);
});

test('after 55 s without a link the page goes on with its session and what was typed', async (t) => {
  const { gallery, page } = await openGallery(t, 'forms', { expectErrors: true });
  for (const lose of [() => gallery.road.cut(), () => { gallery.road.silent = true; }]) {
    await page.clock.install();
    lose();
    await banner(page).waitFor({ state: 'attached' });
    await page.clock.runFor(3000);
    await banner(page).waitFor();
    await page.locator('#name').fill('kept');
    for (let s = 0; s < 52; s++) await page.clock.runFor(1000);
    gallery.road.mend();
    await until('the banner is gone', async () => {
      await page.clock.runFor(100);
      return !(await banner(page).isVisible());
    });
    await page.clock.resume();
    await page.locator('#button').click();
    await saying(page, 'log', /^clicked kept/);
  }
});

test('what was typed and not sent is offered when the session is over', async (t) => {
  const { gallery, page } = await openGallery(t, 'forms', { expectErrors: true });
  gallery.road.cut();
  await banner(page).waitFor();
  await page.locator('#name').fill('unsent');
  await page.locator('#button').click();
  await gallery.restart();
  gallery.road.mend();
  const box = page.getByRole('dialog');
  await box.waitFor();
  assert.match(await box.locator('textarea').inputValue(), /unsent/);
  await t.picture(page, 'toolkit-unsent');
  await box.getByRole('button', { name: 'Start again' }).click();
  await page.locator('#log').waitFor();
});

test('half a surrogate pair and more events than a message takes are no end of the road', async (t) => {
  const { page } = await openGallery(t, 'forms,counter');
  await page.locator('#name').evaluate((e) => {
    /** @type {HTMLInputElement} */ (e).value = 'a\ud83d';
    e.dispatchEvent(new Event('input', { bubbles: true }));
  });
  await page.locator('#button').click();
  await saying(page, 'log', /^clicked a\ufffd/);
  await page.locator('#more-by-one').evaluate((e) => { for (let i = 0; i < 900; i++) e.click(); });
  await saying(page, 'counted', '900');
  assert.equal(await banner(page).isVisible(), false);
});

test('a message that the server refuses is found among good ones and dropped with a note', async (t) => {
  const { page } = await openGallery(t, 'forms,counter', { expectErrors: true });
  // As if the two ends read the protocol differently: one message that the server can't read.
  await page.evaluate(() => {
    const send = WebSocket.prototype.send;
    WebSocket.prototype.send = function broken(text) {
      send.call(this, String(text).replaceAll('"poison"', '1]'));
    };
  });
  await page.locator('#more-by-one').click();
  await page.locator('#name').fill('poison');
  await page.locator('#button').click();
  await page.locator('#more-by-one').click();
  await banner(page).filter({ hasText: /could not be read/ }).waitFor();
  await page.locator('#more-by-one').click();
  await saying(page, 'counted', '3');
  assert.doesNotMatch((await said(page, 'log')) ?? '', /poison/);
});
