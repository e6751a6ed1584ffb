// Lists of a page by their headings, and its actions.
import { until } from './system.mjs';

/** @typedef {import('playwright-core').Page} Page */

/** The panel under a heading, or a title that folds it. @param {Page} page @param {string} name */
export const list = (page, name) =>
  page
    .locator('.mirl-context-panel')
    .filter({ has: page.getByRole('heading', { name }).or(page.getByRole('button', { name, expanded: true })) });

/** @param {Page} page @param {string} name of the list */
export const rows = (page, name) =>
  list(page, name).locator('[role="row"]').filter({ has: page.locator('[role="gridcell"]') });

/** Rows of the list that have the text. @param {Page} page @param {string} name @param {string|RegExp} text */
export const row = (page, name, text) => rows(page, name).filter({ hasText: text });

/** The button of an action: sections bear the same words. @param {Page} page @param {string} name */
export const button = (page, name) =>
  page.locator('.mirl-nav-accordion-action-button:visible').filter({ hasText: new RegExp(`^${name}$`) });

/** Presses it as soon as it is enabled. @param {Page} page @param {string} name */
export async function act(page, name) {
  await until(`${name} can be pressed`, () => button(page, name).isEnabled());
  await button(page, name).click();
}
