// WCAG 2.2 A and AA by axe, on every page and dialog, light and dark.
import { readFileSync } from 'node:fs';
import { join } from 'node:path';
import { here, test } from './harness.mjs';
import { inside, outside } from './places.mjs';
import { System } from './system.mjs';

const axeSource = readFileSync(join(here, 'node_modules/axe-core/axe.min.js'), 'utf8');
const rules = ['wcag2a', 'wcag2aa', 'wcag21a', 'wcag21aa', 'wcag22aa'];

/** What axe finds wrong, one line each. @param {import('playwright-core').Page} page */
async function violations(page) {
  const found = await page.evaluate(async (tags) => {
    // eslint-disable-next-line no-undef
    const result = await window.axe.run(document, { runOnly: { type: 'tag', values: tags } });
    return result.violations.map((v) => ({ id: v.id, help: v.help, nodes: v.nodes.slice(0, 3).map((n) => `${n.target.join(' ')} (${(n.failureSummary ?? '').split('\n')[1]?.trim()})`) }));
  }, rules);
  return found.map((v) => `${v.id}: ${v.help}\n      ${v.nodes.join('\n      ')}`);
}

for (const colorScheme of /** @type {const} */ (['light', 'dark'])) {
  test(`no violation on any page, ${colorScheme}`, async (t) => {
    const system = await new System().start();
    t.after(() => system.remove());
    const wrong = [];
    const options = { colorScheme, bypassCSP: true, reducedMotion: /** @type {const} */ ('reduce') };
    const look = async (page, place) => {
      for (const line of await violations(page)) wrong.push(`${place.name}: ${line}`);
    };
    for (const place of outside) {
      const page = await t.page(options);
      await page.addInitScript(axeSource);
      await place.go(page, system);
      await look(page, place);
      await page.close();
    }
    const page = await t.page(options);
    await page.addInitScript(axeSource);
    for (const place of inside) {
      await place.go(page, system);
      await look(page, place);
      if (place.leave) await place.leave(page);
    }
    if (wrong.length) throw new Error(`${wrong.length} violations:\n    ${wrong.join('\n    ')}`);
  });
}
