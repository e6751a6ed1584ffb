// WCAG 2.2 A and AA by axe.
import { readFileSync } from 'node:fs';
import { join } from 'node:path';
import { here } from './harness.mjs';

/** @typedef {import('playwright-core').Page} Page */

const source = readFileSync(join(here, 'node_modules/axe-core/axe.min.js'), 'utf8');
const tags = ['wcag2a', 'wcag2aa', 'wcag21a', 'wcag21aa', 'wcag22aa'];

/** Options of a page that axe may be put into. @param {'light' | 'dark'} colorScheme */
export const axeOptions = colorScheme => ({
  colorScheme,
  bypassCSP: true,
  reducedMotion: /** @type {const} */ ('reduce'),
});

/** @param {Page} page */
export const bringAxe = (page) => page.addInitScript(source);

/** What axe finds wrong, one line each. @param {Page} page */
export async function violations(page) {
  const found = await page.evaluate(async (values) => {
    // eslint-disable-next-line no-undef
    const result = await window.axe.run(document, {
      runOnly: { type: 'tag', values },
      rules: { 'target-size': { enabled: true } },
    });
    return result.violations.map(v => ({
      id: v.id,
      help: v.help,
      nodes: v.nodes.slice(0, 3).map(n => `${n.target.join(' ')} (${(n.failureSummary ?? '').split('\n')[1]?.trim()})`),
    }));
  }, tags);
  return found.map((v) => `${v.id}: ${v.help}\n      ${v.nodes.join('\n      ')}`);
}
