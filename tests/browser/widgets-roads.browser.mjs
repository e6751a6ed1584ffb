// Roads through lists and dialogs on which things go wrong.
import assert from 'node:assert/strict';
import { randomBytes } from 'node:crypto';
import { act, devicesPage, select, sharedSystem, shows } from './devices.mjs';
import { log, MAX_UPLOAD, sharedGallery } from './bound-gallery.mjs';
import { test } from './harness.mjs';
import { deviceRow, deviceRows } from './pages.mjs';
import { until } from './system.mjs';

const shared = sharedSystem();
const gallery = sharedGallery();
export const done = async () => { await shared.done(); await gallery.done(); };

test('a filter with a broken regular expression, and its repair', async (t) => {
  const page = await devicesPage(t, await shared.get());
  const filter = page.getByLabel('Filter by name').locator('visible=true');
  await select(page, 'Desk 4');
  for (const [text, good] of [
    ['Desk (', false],
    ['Desk (4|5)$', true],
    ['[', false],
    ['*', false],
    ['desk [45', false],
    ['', true],
  ]) {
    await filter.fill(String(text));
    if (good) await until(`"${text}" shows rows`, async () => (await deviceRows(page).count()) > 1);
    else await until(`"${text}" shows none`, async () => (await deviceRows(page).count()) === 0);
    assert.equal(await filter.inputValue(), text, "the text is the user's");
  }
  await filter.fill('desk (4|5)$');
  await until('two rows', async () => (await deviceRows(page).count()) === 2);
  await deviceRow(page, 'Desk 5').click();
  await shows(page, 'Receiver Name', 'Desk 5');
  await filter.fill('');
});

test('the selection stays while rows vanish', async (t) => {
  const system = await shared.get();
  const page = await devicesPage(t, system);
  const filter = page.getByLabel('Filter by name').locator('visible=true');
  await filter.fill('(planning|training)');
  await until('few rows are left', async () => (await deviceRows(page).count()) < 7);
  await select(page, 'Planning 1', 'Planning 2', 'Training');
  await shows(page, 'Receiver Name', '');
  system.ctl('delete', 'rx', '18'); // Planning 2, by another administrator
  await until('the row is gone', async () => (await deviceRow(page, 'Planning 2').count()) === 0);
  for (const name of ['Planning 1', 'Training'])
    assert.equal(await deviceRow(page, name).getAttribute('aria-selected'), 'true', name);
  assert.equal(await page.locator('[role="row"][aria-selected="true"]').count(), 2, 'and no other');
  system.ctl('delete', 'rx', '19');
  await shows(page, 'Receiver Name', 'Planning 1');
  // A filter hides what is selected, which is then no longer selected.
  await filter.fill('weather');
  await until('one row', async () => (await deviceRows(page).count()) === 1);
  await deviceRow(page, 'Weather').waitFor();
});

test('Escape on a box with a ticked check box', async (t) => {
  const system = await shared.get();
  const page = await devicesPage(t, system);
  const warns = () => system.ctl('get', 'user', '1', 'enableResetDevicesWarning');
  assert.equal(warns(), 'enabled');
  await select(page, 'Desk 4');
  await act(page, 'Reboot');
  await page.getByLabel('Do not show this message again.').check();
  await page.keyboard.press('Escape');
  await page.getByRole('dialog').waitFor({ state: 'hidden' });
  await until('the choice is stored', () => warns() === 'disabled');
  assert.equal(system.ctl('get', 'rx', '7', 'status'), 'ready', 'and nothing was rebooted');
  system.ctl('set', 'user', '1', 'enableResetDevicesWarning=enabled');
});

const chosen = size => ({
  name: 'firmware of Desk 7, \u00fc.bin',
  mimeType: 'application/octet-stream',
  buffer: randomBytes(size),
});

/** The upload dialog with a file of that size chosen. */
async function openUpload(page, size) {
  await page.locator('#upload').click();
  const dialog = page.getByRole('dialog').locator('visible=true');
  await dialog.locator('input[type="file"]').setInputFiles(chosen(size));
  await until('Send can be pressed', () => dialog.getByRole('button', { name: 'Send', exact: true }).isEnabled());
  return dialog;
}

test('an upload that is too large, and one that goes through', async (t) => {
  const own = await gallery.get();
  const page = await t.page({ expectErrors: true }); // the browser writes a refused request to its console
  await own.open(page);
  let dialog = await openUpload(page, MAX_UPLOAD * 3);
  await dialog.getByRole('button', { name: 'Send', exact: true }).click();
  await dialog.getByText('File too large.').waitFor();
  assert.equal(await dialog.getByRole('button', { name: 'Send', exact: true }).locator('visible=true').count(), 0);
  await t.picture(page, 'widgets-upload-too-large');
  await dialog.getByRole('button', { name: 'Close' }).click();
  await until('the dialog has ended', async () => (await log(page)) === "upload 5 '' ''");
  assert.deepEqual(own.spooled(), []);

  dialog = await openUpload(page, MAX_UPLOAD / 2);
  await dialog.getByRole('button', { name: 'Send', exact: true }).click();
  await dialog.getByText('Completed.').waitFor();
  assert.equal(own.spooled().length, 1);
  await dialog.getByRole('button', { name: 'Close' }).click();
  await until('the dialog has ended', async () =>
    /^upload 0 '.+' 'firmware of Desk 7, \u00fc.bin'$/.test(await log(page))
  );
  await until('a file that nobody took is gone', () => own.spooled().length === 0);
});

test('an upload that is cancelled half-way leaves nothing behind', async (t) => {
  const own = await gallery.get();
  const page = await t.page({ expectErrors: true });
  await own.open(page);
  // A line so slow that the file is still on its way when the user has enough.
  const line = await page.context().newCDPSession(page);
  await line.send('Network.enable');
  await line.send('Network.emulateNetworkConditions', {
    offline: false,
    latency: 0,
    downloadThroughput: -1,
    uploadThroughput: 40_000,
  });
  const dialog = await openUpload(page, MAX_UPLOAD - 100_000);
  await dialog.getByRole('button', { name: 'Send', exact: true }).click();
  await dialog.getByText('Transferring file.').waitFor();
  await until('a part has arrived', () => own.spooled().length === 1);
  await t.picture(page, 'widgets-upload-half-way');
  await dialog.getByRole('button', { name: 'Cancel' }).click();
  await until('the dialog has ended', async () => (await log(page)) === "upload 5 '' ''");
  await until('the spool folder is empty', () => own.spooled().length === 0);
  await line.send('Network.emulateNetworkConditions', {
    offline: false,
    latency: 0,
    downloadThroughput: -1,
    uploadThroughput: -1,
  });

  const again = await openUpload(page, 1000);
  await again.getByLabel('Close when transfer successfully completes.').check();
  await again.getByRole('button', { name: 'Send', exact: true }).click();
  await until('it closes by itself', async () => /^upload 0 /.test(await log(page)));
  await until('the spool folder is empty', () => own.spooled().length === 0);
});

test('answers of a box: the buttons\' order, and Escape with a tick', async (t) => {
  const page = await t.page();
  await (await gallery.get()).open(page);
  const open = async () => {
    await page.locator('#box').click();
    const dialog = page.getByRole('dialog').locator('visible=true');
    await dialog.waitFor();
    return dialog;
  };
  const dialog = await open();
  const places = await Promise.all(
    ['Perhaps', 'No', 'Yes'].map(async name => (await dialog.getByRole('button', { name }).boundingBox()).x)
  );
  assert.ok(places[0] < places[1] && places[1] < places[2], `the first button stands rightmost: ${places}`);
  assert.equal(await dialog.getByRole('button', { name: 'Ignored' }).count(), 0);
  await until('the first button has the focus', () =>
    dialog.getByRole('button', { name: 'Yes' }).evaluate(e => e === document.activeElement)
  );
  await dialog.getByLabel('Do not ask again.').check();
  await page.keyboard.press('Escape');
  await until('Escape is no button', async () => (await log(page)) === 'box 0 ticked');
  await (await open()).getByRole('button', { name: 'Perhaps' }).click();
  await until('third', async () => (await log(page)) === 'box 3 not');
  await open();
  await page.keyboard.press('Enter');
  await until('first', async () => (await log(page)) === 'box 1 not');
});
