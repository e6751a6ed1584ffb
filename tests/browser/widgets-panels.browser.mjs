// Panels that fold: by their title, by the divider between them, by pointer and by keyboard.
import assert from 'node:assert/strict';
import { sharedGallery } from './bound-gallery.mjs';
import { sharedSystem, select, devicesPage } from './devices.mjs';
import { test } from './harness.mjs';
import { deviceRows, field } from './pages.mjs';
import { until } from './system.mjs';

const gallery = sharedGallery();
const shared = sharedSystem();
export const done = async () => { await gallery.done(); await shared.done(); };

const TITLE = 24; // pixels of a folded panel
const FOLDS_BELOW = 90;

/** @param {import('playwright-core').Locator} element */
const height = async (element) => Math.round((await element.boundingBox())?.height ?? 0);

/** A panel, and whether it is open by what its title tells. */
const panelOf = (page, id) => {
  const panel = page.locator(`#${id}`);
  const title = panel.locator('[aria-expanded]');
  return {
    panel,
    title,
    list: panel.getByRole('grid'),
    open: async () => (await title.getAttribute('aria-expanded')) === 'true',
  };
};

/** Moves the divider by pointer so that it stands `by` pixels lower. */
async function drag(page, divider, by) {
  let x = 0, y = 0;
  await until('the pointer holds the divider', async () => {
    const at = await divider.boundingBox();
    [x, y] = [at.x + at.width / 2, at.y + at.height / 2];
    await page.mouse.move(x, y);
    await page.mouse.down();
    if (await divider.evaluate((element) => element.classList.contains('Wt-dragging'))) return true;
    await page.mouse.up(); // the page above it moved meanwhile
    return false;
  });
  for (let step = 1; step <= 8; step++) await page.mouse.move(x, y + (by * step) / 8);
  await page.mouse.up();
}

test('a divider dragged past the folding height', async (t) => {
  const page = await t.page();
  await (await gallery.get()).open(page);
  const upper = panelOf(page, 'upper');
  const divider = page.locator('#panels').getByRole('separator').first();
  await divider.scrollIntoViewIfNeeded();
  await until('the panel has its height', async () => (await height(upper.panel)) === 260);

  await drag(page, divider, -100);
  await until('it follows the divider', async () => Math.abs((await height(upper.panel)) - 160) <= 2);
  assert.ok(await upper.open());
  await drag(page, divider, -110);
  await until('it folds by itself', async () => !(await upper.open()) && (await height(upper.panel)) < FOLDS_BELOW);
  await until('its list is gone', () => upper.list.isHidden());
  await t.picture(page, 'widgets-panel-folded');
  const folded = await height(upper.panel);
  await drag(page, divider, 150);
  await until('it unfolds by itself, where the divider is let go', async () =>
    (await upper.open()) && Math.abs((await height(upper.panel)) - folded - 150) <= 2);
  await upper.list.waitFor();
  const unfolded = await height(upper.panel);

  await upper.title.click();
  await until('a click folds it', async () => !(await upper.open()) && (await height(upper.panel)) <= TITLE + 2);
  await upper.title.click();
  await until(
    'and gives it its height back',
    async () => (await upper.open()) && Math.abs((await height(upper.panel)) - unfolded) <= 2
  );
  assert.ok(await panelOf(page, 'lower').open(), 'the other one never folded');
});

test('a divider moved by keyboard past the folding height', async (t) => {
  const page = await t.page();
  await (await gallery.get()).open(page);
  const upper = panelOf(page, 'upper');
  const divider = page.locator('#panels').getByRole('separator').first();
  await divider.focus();
  const press = async (key, what, isSo) => {
    await until(what, async () => {
      if (await isSo()) return true;
      await page.keyboard.press(key);
      return false;
    });
    assert.ok(await divider.evaluate(element => element === document.activeElement), 'the focus stays on the divider');
  };
  const before = await height(upper.panel);
  await page.keyboard.press('ArrowUp');
  await until('a step is 16 pixels', async () => (await height(upper.panel)) === before - 16);
  await press('ArrowUp', 'it folds', async () => !(await upper.open()));
  await until('its list is gone', () => upper.list.isHidden());
  assert.ok((await height(upper.panel)) < FOLDS_BELOW);
  await press('ArrowDown', 'it unfolds', upper.open);
  await until('its list is back', () => upper.list.isVisible());
  assert.ok((await height(upper.panel)) >= FOLDS_BELOW);
  await until('readers are told where it stands', async () => Number(await divider.getAttribute('aria-valuenow')) > 0);

  await upper.title.focus();
  await page.keyboard.press('Enter');
  await until(
    'Enter on the title folds it',
    async () => !(await upper.open()) && (await height(upper.panel)) <= TITLE + 2
  );
  // A key in the very frame in which the panel got its height would meet the report of that height:
  // as a user, press again.
  await until('Space unfolds it', async () => {
    if (await upper.open()) return true;
    await page.evaluate(
      () =>
        new Promise(painted => {
          requestAnimationFrame(() => requestAnimationFrame(painted));
        })
    );
    await page.keyboard.press('Space');
    return upper.open();
  });
});

test('the room of a folded details pane goes to the list', async (t) => {
  const page = await devicesPage(t, await shared.get());
  await select(page, 'Desk 4');
  const title = page.getByRole('button', { name: 'Device Details' });
  const list = page.locator('[role="grid"]:visible').first();
  await field(page, 'Receiver Name').waitFor();
  const before = await height(list);
  await title.click();
  await until('the list is tall', async () => (await height(list)) > before + 200);
  await until('the pane is its title', async () => {
    const bar = await title.boundingBox();
    return bar !== null && page.viewportSize().height - bar.y - bar.height < 40;
  });
  await t.picture(page, 'widgets-details-folded');
  const many = await deviceRows(page).count();
  assert.ok(many > 12, `${many} rows`);
  await page.setViewportSize({ width: 1280, height: 600 });
  await until(
    'it follows the window',
    async () => page.viewportSize().height - ((await title.boundingBox())?.y ?? 0) < 70
  );
  await page.setViewportSize({ width: 1280, height: 800 });
  await title.click();
  await until('the list is as it was', async () => Math.abs((await height(list)) - before) <= 2);
  await field(page, 'Receiver Name').waitFor();
  assert.equal(await field(page, 'Receiver Name').inputValue(), 'Desk 4');
});
