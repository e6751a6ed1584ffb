// A refresh disturbs nothing of what the user sees or does.
import assert from 'node:assert/strict';
import { Gallery, focused, operations, openGallery, said, saying } from './gallery.mjs';
import { test } from './harness.mjs';
import { until } from './system.mjs';

const rowAt = (page, table, number) => page.locator(`#${table} [aria-rowindex="${number + 2}"]`);

/** A place of a row where there is something. @param {import('playwright-core').Locator} row */
const cell = (row) => row.locator('[role="gridcell"]').first();

/** Lets the list be refilled a good number of times. */
async function letItTick(page) {
  const before = Number(await said(page, 'times'));
  // The count is told when the ticking ends; a busy machine needs more than one go.
  await until('the list was refilled', async () => {
    await page.locator('#tick').evaluate((e) => e.click());
    await page.waitForTimeout(300);
    await page.locator('#still').evaluate((e) => e.click());
    return Number(await said(page, 'times')) > before + 3;
  });
}

test('a list that is cleared and filled again with the same sends nothing', async (t) => {
  const gallery = await new Gallery().start();
  t.after(() => gallery.remove());
  const page = await t.page();
  const sent = operations(page);
  await gallery.open(page, 'refresh');
  await page.locator('#tick').click();
  await page.locator('#list').focus();
  await page.locator('#tell').evaluate((e) => e.click());
  await saying(page, 'told', 'begin'); // behind all that was sent before
  sent.length = 0;
  await page.waitForTimeout(1000); // some twenty refills
  assert.deepEqual(sent, []);
  await page.locator('#vary').click();
  await saying(page, 'list', /changed/);
  const changes = sent.join('');
  assert.match(changes, /"cell":\[\[2,1,"changed"\]\]/);
  assert.ok(changes.length < 200, changes);
});

test('scroll position, selection, column width and focus stay under a refresh', async (t) => {
  const { page } = await openGallery(t, 'refresh');
  const list = page.locator('#list');
  await cell(rowAt(page, 'list', 2)).click();
  await cell(rowAt(page, 'list', 4)).click({ modifiers: ['Shift'] });
  const handle = page.locator('#list [role="columnheader"] .Wt-tv-resize').first();
  const box = await handle.boundingBox();
  await page.mouse.move(box.x + 4, box.y + 8);
  await page.mouse.down();
  await page.mouse.move(box.x + 64, box.y + 8, { steps: 4 });
  await page.mouse.up();
  const width = () => list.evaluate((e) => getComputedStyle(e).getPropertyValue('--wt-col-0'));
  await until('the column is wider', async () => (await width()) === '210px');
  await list.evaluate((e) => { e.scrollTop = 1000; });
  await rowAt(page, 'list', 55).waitFor();
  await list.focus();
  // The same elements stand there afterwards, so nothing can have flickered.
  await rowAt(page, 'list', 52).evaluate((e) => { e.dataset.seen = 'before'; });
  await letItTick(page);
  assert.equal(await list.evaluate((e) => e.scrollTop), 1000);
  assert.equal(await rowAt(page, 'list', 52).getAttribute('data-seen'), 'before');
  assert.equal(await width(), '210px');
  assert.equal(await focused(page), 'list');
  await list.evaluate((e) => { e.scrollTop = 0; });
  await rowAt(page, 'list', 2).waitFor();
  const chosen = await page.locator('#list [aria-selected="true"]').evaluateAll(rows => rows.map(r => r.ariaRowIndex));
  assert.deepEqual(chosen, ['4', '5', '6']);
});

test('a list that becomes shorter keeps a position that is there', async (t) => {
  const { page } = await openGallery(t, 'refresh');
  const list = page.locator('#list');
  await list.evaluate((e) => { e.scrollTop = e.scrollHeight; });
  await rowAt(page, 'list', 199).waitFor();
  await page.locator('#tick').click();
  await page.locator('#shorter').click();
  await rowAt(page, 'list', 149).waitFor();
  assert.equal(await rowAt(page, 'list', 150).count(), 0);
  assert.equal(await list.getAttribute('aria-rowcount'), '151');
});

test('a field under the hands keeps caret and half-typed text', async (t) => {
  const { page } = await openGallery(t, 'refresh');
  await page.locator('#tick').click();
  const field = page.locator('#half');
  await field.fill('begin end');
  await field.press('Home');
  for (let i = 0; i < 5; i++) await field.press('ArrowRight');
  for (const letter of ' middle') await page.keyboard.type(letter, { delay: 30 });
  assert.equal(await field.inputValue(), 'begin middle end');
  assert.equal(await field.evaluate((e) => /** @type {HTMLInputElement} */ (e).selectionStart), 12);
  assert.equal(await focused(page), 'half');
  await page.locator('#tell').click();
  await saying(page, 'told', 'begin middle end');
});
