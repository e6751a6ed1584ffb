// A table of ten thousand rows in the hands of a user.
import assert from 'node:assert/strict';
import { Gallery, operations, openGallery, said, saying } from './gallery.mjs';
import { test } from './harness.mjs';
import { until } from './system.mjs';

const rowAt = (page, number) => page.locator(`#table [aria-rowindex="${number + 2}"]`);
/** A place of a row where there is something. @param {import('playwright-core').Locator} row */
const cell = (row) => row.locator('[role="gridcell"]').first();
const header = (page, name) => page.locator('#table').getByRole('columnheader', { name });

test('only the rows near the viewport are in the page, wherever one scrolls', async (t) => {
  const { page } = await openGallery(t, 'table');
  const table = page.locator('#table');
  assert.equal(await table.getAttribute('aria-rowcount'), '10001');
  for (const row of [5000, 9990, 0, 300]) {
    await table.evaluate((e, top) => { e.scrollTop = top; }, row * 20);
    await until(
      `row ${row} is there`,
      async () =>
        (await rowAt(page, row).count()) === 1 && (await rowAt(page, row).textContent())?.includes(`row ${row}`)
    );
    assert.ok((await table.locator('[role="row"]').count()) < 120);
  }
  await page.locator('#scroll').click();
  await until('row 7000 stands at the top', () => table.evaluate((e) => e.scrollTop === 140_000));
  await rowAt(page, 7000).waitFor();
});

test('sorting by mouse and keyboard; the selection goes with its rows', async (t) => {
  const { page } = await openGallery(t, 'table');
  await cell(rowAt(page, 3)).click();
  await saying(page, 'chosen', '1: row 3 to row 3');
  await header(page, 'speed').click();
  await until('sorted', async () => (await header(page, 'speed').getAttribute('aria-sort')) === 'ascending');
  await until('slowest first', async () => /row 0online|row 0offline/.test((await rowAt(page, 0).textContent()) ?? ''));
  await header(page, 'speed').focus();
  await page.keyboard.press('Enter');
  await until('the other way', async () => (await header(page, 'speed').getAttribute('aria-sort')) === 'descending');
  await until('fastest first', async () => (await rowAt(page, 0).textContent())?.endsWith('999'));
  assert.equal(await said(page, 'chosen'), '1: row 3 to row 3');
});

test('extended selection with Shift, Ctrl and the keyboard', async (t) => {
  const { page } = await openGallery(t, 'table');
  const table = page.locator('#table');
  await cell(rowAt(page, 1)).click();
  await cell(rowAt(page, 5)).click({ modifiers: ['Shift'] });
  await saying(page, 'chosen', '5: row 1 to row 5');
  await cell(rowAt(page, 3)).click({ modifiers: ['Control'] });
  await saying(page, 'chosen', '4: row 1 to row 5');
  await cell(rowAt(page, 7)).click({ modifiers: ['Control'] });
  await saying(page, 'chosen', '5: row 1 to row 7');
  await cell(rowAt(page, 2)).click();
  await saying(page, 'chosen', '1: row 2 to row 2');
  assert.equal(await page.evaluate(() => String(getSelection())), '', 'no text is selected');
  await page.keyboard.press('ArrowDown');
  await saying(page, 'chosen', '1: row 3 to row 3');
  await page.keyboard.press('Shift+ArrowDown');
  await page.keyboard.press('Shift+ArrowDown');
  await saying(page, 'chosen', '3: row 3 to row 5');
  await page.keyboard.press('Control+ArrowDown');
  await page.keyboard.press('Control+ArrowDown');
  await page.keyboard.press('Control+Space');
  await saying(page, 'chosen', '4: row 3 to row 7');
  await page.keyboard.press('Control+a');
  await saying(page, 'chosen', '10000: row 0 to row 9999');
  await page.keyboard.press('End');
  await saying(page, 'chosen', '1: row 9999 to row 9999');
  await until('the last row is in view', async () => {
    const current = await table.getAttribute('aria-activedescendant');
    return current && page.evaluate((id) => document.getElementById(id)?.textContent?.includes('row 9999'), current);
  });
  await page.keyboard.press('Shift+Home');
  await saying(page, 'chosen', '10000: row 0 to row 9999');
});

test('columns: resized by mouse and keyboard, hidden and shown', async (t) => {
  const { page } = await openGallery(t, 'table');
  const widths = () =>
    page.locator('#table').evaluate(e => ['0', '1', '2'].map(n => e.style.getPropertyValue(`--wt-col-${n}`)));
  await header(page, 'state').focus();
  await page.keyboard.press('Shift+ArrowRight');
  await until('wider', async () => (await widths())[1] === '100px');
  await page.keyboard.press('Shift+ArrowLeft');
  await page.keyboard.press('Shift+ArrowLeft');
  await until('narrower', async () => (await widths())[1] === '80px');
  await page.locator('#hide').click();
  await until('two columns', async () => (await page.locator('#table [role="columnheader"]').count()) === 2);
  assert.equal(await rowAt(page, 0).locator('[role="gridcell"]').count(), 2);
  await page.locator('#hide').click();
  await header(page, 'state').waitFor();
  await until('its width is the same', async () => (await widths())[1] === '80px');
});

test('a row that comes costs one row, and the rows below stay the same elements', async (t) => {
  const gallery = await new Gallery().start();
  t.after(() => gallery.remove());
  const page = await t.page();
  const sent = operations(page);
  await gallery.open(page, 'table');
  await rowAt(page, 5).evaluate((e) => { e.dataset.seen = 'before'; });
  await cell(rowAt(page, 5)).click();
  await saying(page, 'chosen', '1: row 5 to row 5');
  sent.length = 0;
  await page.locator('#insert').click();
  await until('the new row is there', async () => (await rowAt(page, 0).textContent())?.startsWith('row -1'));
  const changes = sent.filter((text) => text.includes('"table"') || text.includes('shift')).join('');
  assert.ok(changes.length < 300, changes);
  assert.equal(await rowAt(page, 6).getAttribute('data-seen'), 'before');
  assert.match((await rowAt(page, 6).textContent()) ?? '', /^row 5/);
  await until(
    'the selection went with it',
    async () => (await rowAt(page, 6).getAttribute('aria-selected')) === 'true'
  );
  await cell(rowAt(page, 6)).click({ modifiers: ['Control'] });
  await saying(page, 'chosen', '0');
});
