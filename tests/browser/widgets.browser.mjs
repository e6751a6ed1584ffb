// Bound widgets in every state: what they show, what a screen reader is told, and that a refresh leaves the user alone.
import assert from 'node:assert/strict';
import { join } from 'node:path';
import { axeOptions, bringAxe, violations } from './axe.mjs';
import { log, readAgain, refreshes, sharedGallery, specimen, states } from './bound-gallery.mjs';
import { outDir, test } from './harness.mjs';
import { until } from './system.mjs';

const shared = sharedGallery();
export const done = shared.done;

const wide = { viewport: { width: 3100, height: 1000 } }; // all columns

/** What a widget shows, as a user would say it. @param {import('playwright-core').Locator} widget */
const shown = (widget) => widget.evaluate((element) => {
  if (element instanceof HTMLSelectElement) return element.selectedOptions[0]?.label ?? 'no item';
  const box = element instanceof HTMLInputElement ? element : element.querySelector('input');
  if (box?.type === 'checkbox') return box.indeterminate ? 'partially' : box.checked ? 'on' : 'off';
  if (element instanceof HTMLInputElement || element instanceof HTMLTextAreaElement) return element.value;
  const picture = [...element.querySelectorAll('img')].find((img) => img.offsetParent);
  return picture ? picture.alt : /** @type {HTMLElement} */ (element).innerText;
});

for (const colorScheme of /** @type {const} */ (['light', 'dark'])) {
  test(`no violation in any state of any widget, ${colorScheme}`, async (t) => {
    const gallery = await shared.get();
    const page = await t.page({ ...axeOptions(colorScheme), ...wide });
    await bringAxe(page);
    await gallery.open(page);
    await page.screenshot({ path: join(outDir, `widgets-${colorScheme}.png`), fullPage: true });
    assert.deepEqual(await violations(page), []);
    assert.doesNotMatch(await page.locator('body').innerText(), /\?\?/, 'a text without words');
  });
}

test('one, equal, different, failed and disabled', async (t) => {
  const gallery = await shared.get();
  const page = await t.page(wide);
  await gallery.open(page);
  const rows = [
    // widget, of one and of equal records, of different ones
    ['WLineEditZeq', 'Desk <b>7</b>', ''],
    ['WTextAreaZeq', 'first line\nsecond line', ''],
    ['WLineEditUInt32Zeq', '30', ''],
    ['WCheckBoxZeq', 'on', 'partially'],
    ['WTextZeq', 'Control room', ''],
    ['WUInt32Zeq, scaled', '148.5', ''],
    ['WAnchorZeq', '10.0.0.1', ''],
    ['WEnableDisable', 'Disabled', '(different)'],
    ['WIpV6ConfigMethod', 'Static', '(different)'],
    ['WUsbMode', 'All devices', '(different)'],
    ['WVideoResolution', '1920 x 1080', ''],
    ['WNtpTime', '1970-01-01 00:00:00 UTC', ''],
    ['WUsr', 'supervisor', ''],
    ['WTargetAny', '00A703-03000D (SCADA A)', ''],
    ['WTxIcon', 'Icon 7', 'No icon'],
  ];
  for (const [name, same, different] of rows) {
    assert.equal(await shown(specimen(page, name, 'one')), same, `${name}, one record`);
    assert.equal(await shown(specimen(page, name, 'equal')), same, `${name}, equal records`);
    assert.equal(await shown(specimen(page, name, 'different')), different, `${name}, different records`);
  }
  // A refused read: fields keep what they show, read-only texts go empty, boxes over records take the blank item.
  for (const [name, text] of [
    ['WLineEditZeq', 'Desk <b>7</b>'],
    ['WCheckBoxZeq', 'on'],
    ['WUsbMode', 'All devices'],
    ['WTxIcon', 'Icon 7'],
    ['WTextZeq', ''],
    ['WUInt32Zeq', ''],
    ['WUsr', ''],
    ['WTargetAny', ''],
  ])
    assert.equal(await shown(specimen(page, name, 'failed')), text, `${name}, failed read`);

  const hotkey = specimen(page, 'WOsdActivateHotkeyCustom', 'one').locator('select');
  assert.equal(await shown(hotkey.nth(0)), '4 - A');
  assert.equal(await shown(hotkey.nth(1)), '5 - B');
  for (const name of ['WLineEditZeq', 'WTextAreaZeq', 'WUsbMode', 'WUsr'])
    assert.ok(await specimen(page, name, 'disabled').isDisabled(), name);
  const noButton = specimen(page, 'WTxIcon', 'disabled');
  assert.equal(await noButton.getAttribute('aria-disabled'), 'true');
  await noButton.click({ force: true });
  await readAgain(page);
  assert.equal(await page.getByRole('dialog').locator('visible=true').count(), 0, 'a disabled icon opens no choice');
  for (const name of ['WEid', 'WIpV4Addr', 'WIpV6Addr', 'WIpAddr', 'WHostAddr', 'WMacAddr', 'WKeyCode', 'WMouseDelta'])
    assert.equal(
      await specimen(page, name, 'invalid').getAttribute('aria-invalid'),
      'true',
      `${name} tells that it is invalid`
    );
});

test('what a screen reader calls the fields made of several', async (t) => {
  const gallery = await shared.get();
  const page = await t.page(wide);
  await gallery.open(page);
  await page.getByRole('button', { name: 'WTxIcon One record Icon 7', exact: true }).waitFor();
  const group = page.getByRole('group', { name: 'WOsdActivateHotkeyCustom One record', exact: true });
  await group.getByRole('combobox', { name: 'First key', exact: true }).waitFor();
  await group.getByRole('combobox', { name: 'Second key', exact: true }).selectOption({ label: '0 - None' });
  await until('the change is told', async () => (await log(page)) === 'changed WOsdActivateHotkeyCustom/0');
});

test('an icon is chosen by keyboard', async (t) => {
  const gallery = await shared.get();
  const page = await t.page(wide);
  await gallery.open(page);
  const icon = specimen(page, 'WTxIcon', 'one');
  await icon.focus();
  await page.keyboard.press('Space');
  const choice = page.getByRole('dialog').getByRole('button', { name: 'Icon 12', exact: true });
  const pictures = page.getByRole('dialog').locator('img');
  const opened = async () => {
    await choice.waitFor();
    await until('all pictures are there', () => pictures.evaluateAll(all => all.every(img => img.complete)));
  };
  await opened();
  await page.keyboard.press('Escape');
  await choice.waitFor({ state: 'hidden' });
  assert.equal(await shown(icon), 'Icon 7');
  await icon.focus();
  await page.keyboard.press('Enter');
  await opened();
  await choice.focus();
  await page.keyboard.press('Enter');
  await until('the icon is another one', async () => (await shown(icon)) === 'Icon 12');
  assert.equal(await log(page), `changed WTxIcon/${states.one}`);
  await readAgain(page);
  assert.equal(await shown(icon), 'Icon 12', 'a refresh leaves the choice alone');
  await readAgain(page, 'force');
  assert.equal(await shown(icon), 'Icon 7', 'and Cancel throws it away');
});

test('typing while refreshes arrive', async (t) => {
  const gallery = await shared.get();
  const page = await t.page(wide);
  await gallery.open(page);
  await page.locator('#auto').click();
  for (const name of ['WLineEditZeq', 'WTextAreaZeq', 'WHostAddr']) {
    const field = specimen(page, name, 'one');
    await field.click();
    await page.keyboard.press('Control+A');
    let typed = '';
    for (const part of ['ab', 'cd']) {
      await page.keyboard.type(part);
      typed += part;
      await refreshes(page, 2); // the first may have begun before
      assert.equal(await field.inputValue(), typed, `${name}, in the middle of typing`);
      await page.keyboard.press('ArrowLeft');
      await refreshes(page, 1);
      assert.equal(
        await field.evaluate(element => /** @type {HTMLInputElement} */ (element).selectionStart),
        typed.length - 1,
        'the caret stays'
      );
      await page.keyboard.press('ArrowRight');
    }
    await until('the change is told', async () => (await log(page)) === `changed ${name}/${states.one}`);
    await page.locator('#manual').focus(); // leaves the field
    await refreshes(page, 1);
    assert.equal(await field.inputValue(), typed, `${name}, after it was left`);
  }
  // A list that the user has just opened stays as it is too.
  const list = specimen(page, 'WUsr', 'one');
  await list.focus();
  await list.selectOption({ label: 'wall' });
  await refreshes(page, 1);
  assert.equal(await shown(list), 'wall');
  await page.locator('#manual').click();
  await page.locator('#force').click();
  await until('Cancel brings back what is stored', async () =>
    (await specimen(page, 'WLineEditZeq', 'one').inputValue()) === 'Desk <b>7</b>');
});
