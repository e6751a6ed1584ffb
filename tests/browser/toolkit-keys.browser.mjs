// Everything is reached and told without a mouse: tabs, fields, dividers; and dividers by mouse and finger too.
import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import { join } from 'node:path';
import { focused, openGallery, saying } from './gallery.mjs';
import { here, test } from './harness.mjs';
import { until } from './system.mjs';

test('tabs by arrow keys, Home and End; what is disabled is passed over', async (t) => {
  const { page } = await openGallery(t, 'tabs');
  const tab = (name) => page.getByRole('tab', { name });
  const selected = name =>
    until(`${name} is selected`, async () => (await tab(name).getAttribute('aria-selected')) === 'true');
  await page.keyboard.press('Tab');
  assert.equal(await tab('first').evaluate((e) => e === document.activeElement), true);
  await page.keyboard.press('ArrowRight');
  await selected('third');
  await saying(page, 'log', 'tab 2');
  assert.equal(await tab('second').getAttribute('aria-disabled'), 'true');
  await page.keyboard.press('ArrowRight');
  await selected('first');
  await page.keyboard.press('End');
  await selected('third');
  await page.keyboard.press('Home');
  await selected('first');
  assert.equal(await page.locator('[role="tab"][tabindex="0"]').count(), 1, 'one stop for the whole list');
  await page.keyboard.press('Tab');
  assert.equal(await focused(page), 'first-field');
  await page.getByRole('tabpanel', { name: 'first' }).waitFor();
});

test('a wrong entry is marked while it is typed, and told to readers', async (t) => {
  const { page } = await openGallery(t, 'forms');
  const field = page.getByLabel('Name');
  await field.fill('Good?');
  await until('marked', async () => (await field.getAttribute('aria-invalid')) === 'true');
  await field.press('Tab');
  await saying(page, 'log', 'changed Good? invalid');
  await field.fill('good');
  await until('not marked', async () => (await field.getAttribute('aria-invalid')) === null);
  await field.press('Enter');
  await saying(page, 'log', /enter|changed good valid/);
});

/** Moves the divider in front of #lower in one of three ways and gives the height of #upper before and after. */
async function moveDivider(t, options, move) {
  const { page } = await openGallery(t, 'layouts', options);
  const height = () => page.locator('#upper').evaluate((e) => e.offsetHeight);
  const divider = page.locator('.Wt-divider-v').first();
  await until('the layout has settled', async () => (await height()) === 100);
  assert.equal(await divider.getAttribute('role'), 'separator');
  await move(page, divider);
  return { page, height, divider };
}

test('a divider by mouse, by finger and by keyboard', async (t) => {
  const mouse = await moveDivider(t, {}, async (page, divider) => {
    const box = await divider.boundingBox();
    const [x, y] = [box.x + box.width / 2, box.y + box.height / 2];
    await page.mouse.move(x, y);
    await page.mouse.down();
    await page.mouse.move(x, y + 20, { steps: 3 });
    await page.mouse.move(x, y + 40, { steps: 3 });
    await page.mouse.up();
  });
  await until('40 pixels by mouse', async () => (await mouse.height()) === 140);
  const share = await mouse.divider.getAttribute('aria-valuenow');

  await mouse.divider.focus();
  await mouse.page.keyboard.press('ArrowUp');
  await until('16 pixels by keyboard', async () => (await mouse.height()) === 124);
  await until('told to readers', async () => (await mouse.divider.getAttribute('aria-valuenow')) !== share);

  const touch = await moveDivider(t, { hasTouch: true }, async (page, divider) => {
    const box = await divider.boundingBox();
    const [x, y] = [box.x + box.width / 2, box.y + box.height / 2];
    const cdp = await page.context().newCDPSession(page);
    await cdp.send('Input.dispatchTouchEvent', { type: 'touchStart', touchPoints: [{ x, y }] });
    for (const down of [10, 20, 30])
      await cdp.send('Input.dispatchTouchEvent', { type: 'touchMove', touchPoints: [{ x, y: y + down }] });
    await cdp.send('Input.dispatchTouchEvent', { type: 'touchEnd', touchPoints: [] });
  });
  await until('30 pixels by finger', async () => (await touch.height()) === 130);
});

test('roles, names and states are as axe wants them, also in a dialog', async (t) => {
  const { page } = await openGallery(t, 'forms,dialogs,tabs,table,files,layouts', { bypassCSP: true });
  await page.evaluate(readFileSync(join(here, 'node_modules/axe-core/axe.min.js'), 'utf8'));
  const wrong = async () => (await page.evaluate(async () => {
    // eslint-disable-next-line no-undef
    const { violations } = await window.axe.run(document, {
      runOnly: { type: 'tag', values: ['wcag2a', 'wcag21a', 'wcag22a'] },
    });
    return violations.map((v) => `${v.id}: ${v.nodes.map((n) => n.html.slice(0, 150)).join(' | ')}`);
  }));
  assert.deepEqual(await wrong(), []);
  await page.locator('#ask').click();
  await page.locator('#answer').waitFor();
  assert.deepEqual(await wrong(), []);
});
