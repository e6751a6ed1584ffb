// A walk to every place of the interface in one colour scheme: no violation of WCAG 2.2 A and AA, and it looks as
// approved in two widths. npm run approve takes all pictures anew; look at every one of them before you commit it.
import { mkdirSync } from 'node:fs';
import { axeOptions, bringAxe, violations } from './axe.mjs';
import { Approved, approving, takenDir } from './approved.mjs';
import { login } from './pages.mjs';
import { boxes, details, outside, pages } from './places.mjs';
import { holdStill, stillOptions, widths } from './still.mjs';
import { System } from './system.mjs';

/** @typedef {import('./places.mjs').Place} Place */

/**
 * Goes to the places one after the other and says what is wrong with them.
 * @param {import('./harness.mjs').Context} t @param {'light' | 'dark'} colorScheme @param {Place[]} places
 * @param {boolean} inside whether they lie behind the login
 */
async function walk(t, colorScheme, places, inside) {
  mkdirSync(takenDir, { recursive: true });
  const approved = await Approved.open(t.browser);
  const system = await new System().start();
  t.after(() => system.remove());
  const wrong = [];
  const open = async () => {
    const page = await t.page({ ...stillOptions, ...axeOptions(colorScheme) });
    await bringAxe(page);
    await holdStill(page);
    return page;
  };
  const visit = async (page, place, where) => {
    await place.go(page, where);
    for (const line of approving ? [] : await violations(page)) wrong.push(`${place.name}: ${line}`);
    for (const [width, viewport] of Object.entries(widths)) {
      await page.setViewportSize(viewport);
      const complaint = await approved.look(page, place, colorScheme, width);
      if (complaint) wrong.push(complaint);
    }
    await page.setViewportSize(widths.narrow);
    if (place.leave) await place.leave(page, where);
  };
  if (inside) {
    const page = await open();
    await login(page, system);
    for (const place of places) await visit(page, place, system);
  }
  for (const place of inside ? [] : places) {
    const where = place.args ? await new System({ args: place.args }).start() : system;
    if (place.args) t.after(() => where.remove());
    const page = await open();
    await visit(page, place, where);
    await page.close();
  }
  if (wrong.length)
    throw new Error(`${wrong.length} faults; pictures are in ${takenDir}:\n    ${wrong.join('\n    ')}`);
}

/** Many places, one after the other: longer than other tests (milliseconds). */
export const WALK_LIMIT = 600_000;

/** The walks of a colour scheme, each a test. @param {'light' | 'dark'} colorScheme */
export const walks = (colorScheme) => [
  { name: `before the login, ${colorScheme}`, body: (t) => walk(t, colorScheme, outside, false) },
  { name: `pages, ${colorScheme}`, body: (t) => walk(t, colorScheme, pages, true) },
  { name: `details of devices, ${colorScheme}`, body: (t) => walk(t, colorScheme, details, true) },
  { name: `dialogs, ${colorScheme}`, body: (t) => walk(t, colorScheme, boxes, true) },
];
