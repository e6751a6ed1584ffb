// Without a mouse, on a small or enlarged screen, with colours that the user's system forces.
import assert from 'node:assert/strict';
import { test } from './harness.mjs';
import { deviceRow, field, login, mainTab, openDevices, saveButton, selectReceiver } from './pages.mjs';
import { detailsTab } from './places.mjs';
import { System, until } from './system.mjs';

/** @typedef {import('playwright-core').Page} Page */

/** What has the focus: role, name, whether its ring can be seen, and whether it is in a dialog. @param {Page} page */
const focused = (page) => page.evaluate(() => {
  const e = /** @type {HTMLElement} */ (document.activeElement);
  const { outlineStyle, outlineWidth } = getComputedStyle(e);
  return {
    name: (e.getAttribute('aria-label') || e.textContent || '').trim(),
    role: e.getAttribute('role') ?? e.localName,
    ring: outlineStyle !== 'none' && parseFloat(outlineWidth) >= 1,
    boxed: e.closest('[role="dialog"]') !== null,
  };
});

/**
 * Presses the key until the focus is where `wanted` says. Gives all stops on the way.
 * @param {Page} page @param {string} key
 */
async function go(page, key, wanted, limit = 60) {
  const stops = [];
  while (stops.length < limit) {
    await page.keyboard.press(key);
    stops.push(await focused(page));
    if (wanted(stops.at(-1))) return stops;
  }
  throw new Error(
    `${key} never comes there; it came to: ${stops.map(at => `${at.role} ${at.name.slice(0, 30)}`).join(', ')}`
  );
}

test('the focus can be seen at every stop, stays in a box, comes back; the details fold by keyboard', async t => {
  const system = await new System().start();
  t.after(() => system.remove());
  const page = await t.page({ reducedMotion: 'reduce' });
  await login(page, system);
  await openDevices(page);
  await selectReceiver(page, 'Desk 4');
  await detailsTab(page, 'Settings').click();
  await field(page, 'USB Log Level').waitFor();

  await mainTab(page, 'Devices').focus();
  const stops = await go(page, 'Tab', at => at.role === 'body' || at.role === 'a');
  const blind = stops.slice(0, -1).filter(at => !at.ring);
  assert.deepEqual(blind, []);
  assert.ok(stops.length > 25, `only ${stops.length} stops`);

  await mainTab(page, 'Devices').focus();
  await go(page, 'Tab', at => at.name === 'Reboot');
  await page.keyboard.press('Enter');
  await until('the first answer has the focus', async () => {
    const at = await focused(page);
    return at.boxed && at.name === 'Reboot';
  });
  for (let i = 0; i < 5; i++) {
    await page.keyboard.press('Tab');
    const at = await focused(page);
    assert.ok(at.boxed || at.role === 'body', `Tab leaves the box for ${at.role} ${at.name}`);
  }
  await page.keyboard.press('Escape');
  await page.getByRole('dialog').waitFor({ state: 'hidden' });
  await until('the focus is on the action again', async () => (await focused(page)).name === 'Reboot');

  const title = page.getByRole('button', { name: 'Device Details' });
  await go(page, 'Tab', at => at.name.startsWith('Device Details'));
  for (const folded of [true, false]) {
    await page.keyboard.press('Enter');
    await until(
      folded ? 'the details are folded' : 'the details are back',
      async () =>
        (await title.getAttribute('aria-expanded')) === String(!folded) &&
        (await field(page, 'USB Log Level').count()) === (folded ? 0 : 1)
    );
  }
});

test('a small screen, one enlarged to 200 %, a tablet: every control can be reached', async (t) => {
  const system = await new System().start();
  t.after(() => system.remove());
  const screens = [
    { name: 'small', viewport: { width: 1024, height: 600 } },
    { name: 'enlarged', viewport: { width: 640, height: 400 }, deviceScaleFactor: 2 },
    { name: 'tablet', viewport: { width: 1024, height: 768 }, hasTouch: true },
  ];
  for (const { name, ...options } of screens) {
    const page = await t.page({ ...options, reducedMotion: 'reduce' });
    await login(page, system);
    await openDevices(page);
    await selectReceiver(page, 'Desk 4');
    await t.picture(page, `screen-${name}`);
    await detailsTab(page, 'Settings').click();
    const last = field(page, 'USB Log Level');
    await last.scrollIntoViewIfNeeded();
    // What the pointer would hit there is the field itself, and all of it lies in the window.
    const seen = await last.evaluate((e) => {
      const { left, right, top, bottom } = e.getBoundingClientRect();
      const hit = document.elementFromPoint((left + right) / 2, (top + bottom) / 2);
      return { inside: left >= 0 && right <= innerWidth && top >= 0 && bottom <= innerHeight, hit: hit === e };
    });
    assert.deepEqual(seen, { inside: true, hit: true }, name);
    await saveButton(page).scrollIntoViewIfNeeded();
    assert.ok(await saveButton(page).isVisible());
    const wider = await page.evaluate(() => document.documentElement.scrollWidth - innerWidth);
    assert.ok(wider <= 0, `${name}: the page is ${wider} px wider than the window`);
    if (options.hasTouch) {
      await deviceRow(page, 'Desk 5').tap();
      await until(
        'a tap selects',
        async () => (await deviceRow(page, 'Desk 5').getAttribute('aria-selected')) === 'true'
      );
    }
    await page.close();
  }
});

test('forced colours: selection, tab and disabled fields can still be told', async (t) => {
  const system = await new System().start();
  t.after(() => system.remove());
  const page = await t.page({ forcedColors: 'active', reducedMotion: 'reduce' });
  await login(page, system);
  await openDevices(page);
  await selectReceiver(page, 'Desk 4');
  await t.picture(page, 'forced-colours');
  const colourOf = (locator, property) =>
    locator.evaluate((e, name) => getComputedStyle(e).getPropertyValue(name), property);
  const row = deviceRow(page, 'Desk 4');
  assert.notEqual(
    await colourOf(row, 'background-color'),
    await colourOf(deviceRow(page, 'Desk 5'), 'background-color')
  );
  assert.notEqual(
    await colourOf(mainTab(page, 'Devices'), 'border-bottom-color'),
    await colourOf(mainTab(page, 'Users'), 'border-bottom-color')
  );
  await detailsTab(page, 'Settings').click();
  assert.notEqual(
    await colourOf(field(page, 'Auto Login Username'), 'color'),
    await colourOf(field(page, 'Auto Login'), 'color')
  );
});
