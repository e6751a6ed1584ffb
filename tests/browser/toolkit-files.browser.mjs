// Uploads and downloads.
import assert from 'node:assert/strict';
import { statSync, readFileSync } from 'node:fs';
import { openGallery, said, saying } from './gallery.mjs';
import { test } from './harness.mjs';
import { until } from './system.mjs';

const file = (bytes) => ({ name: 'up.bin', mimeType: 'application/octet-stream', buffer: Buffer.alloc(bytes, 7) });

/** @param {import('playwright-core').Page} page @param {number} bytes */
async function send(page, bytes) {
  await page.locator('#upload input[type="file"]').setInputFiles(file(bytes));
  await page.locator('#send').click();
}

test('a file goes to the spool folder, with its progress, and the page stays usable', async (t) => {
  const { gallery, page } = await openGallery(t, 'files,forms');
  gallery.road.bytesPerMs = 1000;
  await send(page, 3_000_000);
  await saying(page, 'said', 'under way');
  const bar = page.getByRole('progressbar');
  await until('the bar shows some of it', async () => {
    const now = Number(await bar.getAttribute('aria-valuenow'));
    return now > 0;
  });
  assert.equal(gallery.spooled(), 1);
  await page.locator('#name').fill('meanwhile');
  await page.locator('#button').click();
  await saying(page, 'log', /^clicked meanwhile/);
  gallery.road.bytesPerMs = Infinity;
  await saying(page, 'said', 'up.bin: 3000000');
  await page.close();
  await until('the spool folder is empty', () => gallery.spooled() === 0);
});

test('a cancelled upload and a closed tab leave nothing in the spool folder', async (t) => {
  const { gallery, page } = await openGallery(t, 'files', { expectErrors: true });
  gallery.road.bytesPerMs = 500;
  await send(page, 3_000_000);
  await until('it has begun', () => gallery.spooled() === 1);
  await page.locator('#cancel').click();
  await saying(page, 'said', 'cancelled');
  await until('the spool folder is empty', () => gallery.spooled() === 0);
  await send(page, 3_000_000);
  await until('the next has begun', () => gallery.spooled() === 1);
  await page.close();
  await until('nothing is left', () => gallery.spooled() === 0);
});

test('a file above the limit is refused before it is read, and another one may follow', async (t) => {
  const { gallery, page } = await openGallery(t, 'files', { args: ['--max-request-size=1000000'], expectErrors: true });
  gallery.road.bytesPerMs = 1000;
  const before = gallery.road.carried;
  await send(page, 8_000_000);
  await saying(page, 'said', 'too large');
  assert.ok(gallery.road.carried - before < 7_000_000, `${gallery.road.carried - before} bytes were sent`);
  assert.equal(gallery.spooled(), 0);
  await send(page, 900_000);
  await saying(page, 'said', 'up.bin: 900000');
});

test('a download comes from inside the session, in pieces, and whole', async (t) => {
  const { page } = await openGallery(t, 'files', { acceptDownloads: true });
  const [download] = await Promise.all([page.waitForEvent('download'), page.locator('#fetch').click()]);
  assert.equal(download.suggestedFilename(), 'pieces.txt');
  const path = await download.path();
  assert.equal(statSync(path).size, 128 * 65536);
  const text = readFileSync(path, 'latin1');
  assert.ok(text.startsWith(`${await said(page, 'session')}\n`));
  assert.equal(text[65536 * 27], 'b');
});
