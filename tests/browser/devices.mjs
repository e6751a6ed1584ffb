// The Devices tab as a user works it: rows, actions, boxes, details.
import { detailsTab } from './places.mjs';
import { field, login, openDevices, saveButton, showRow } from './pages.mjs';
import { System, until } from './system.mjs';

/** @typedef {import('playwright-core').Page} Page */

/** One system for the tests of a file, started by the first that asks. @param {{args?: string[]}} options */
export function sharedSystem(options = {}) {
  /** @type {Promise<System>|null} */
  let started = null;
  return {
    get: () => (started ??= new System(options).start()),
    done: async () => { if (started) await (await started).remove(); },
  };
}

/** A page of its own on the Devices tab. @param {import('./harness.mjs').Context} t @param {System} system */
export async function devicesPage(t, system, options = {}) {
  const page = await t.page(options);
  await login(page, system);
  await openDevices(page);
  return page;
}

/** Selects the devices of these names and no others, and waits until the list says so. @param {Page} page */
export async function select(page, ...names) {
  for (const [n, name] of names.entries()) {
    const row = await showRow(page, name);
    await row.click(n ? { modifiers: ['Control'] } : {});
    await until(
      `${name} is selected`,
      async () => (await row.getAttribute('aria-selected', { timeout: 1000 })) === 'true'
    );
  }
}

/** Presses a button of the accordion as soon as the selection enables it. @param {Page} page */
export async function act(page, name) {
  const button = page.getByRole('button', { name, exact: true });
  await until(`${name} can be pressed`, () => button.isEnabled());
  await button.click();
}

/** The dialog on top. @param {Page} page */
export const box = (page) => page.getByRole('dialog').last();

/** Waits for a dialog with these words and presses its button; none: leaves it. Gives the dialog's text.
 * @param {Page} page @param {string|RegExp} words @param {string} [button] */
export async function answer(page, words, button) {
  const dialog = page.getByRole('dialog').filter({ hasText: words }).last();
  await dialog.waitFor();
  const text = await dialog.innerText();
  if (button) {
    await dialog.getByRole('button', { name: button, exact: true }).click();
    await dialog.waitFor({ state: 'hidden' });
  }
  return text;
}

/** Brings a details tab to the front. @param {Page} page */
export async function openTab(page, name) {
  await until(`${name} is on show`, async () => {
    if ((await detailsTab(page, name).getAttribute('aria-selected')) === 'true') return true;
    await detailsTab(page, name).click();
    return false;
  });
}

/** @param {Page} page */
export async function save(page) {
  await until('Save can be pressed', () => saveButton(page).isEnabled());
  await saveButton(page).click();
}

/** Waits until a field of the details shows the value. @param {Page} page */
export const shows = (page, label, value) =>
  until(`${label}: ${value}`, async () => (await field(page, label).inputValue()) === value);

/**
 * Waits until the list's row of that name holds the words.
 * @param {Page} page @param {string} name @param {RegExp} words
 */
export async function rowShows(page, name, words, ms) {
  const row = await showRow(page, name);
  await until(`${name}: ${words}`, async () => words.test(await row.innerText()), ms);
}

/** After the Switch went: starts again, as often as it takes until the login is there. @param {Page} page */
export const backToLogin = (page) => until('the login is back', async () => {
  if (await page.locator('.mirl-login-line-edit').first().isVisible()) return true;
  const again = page.getByRole('button', { name: /start again/i });
  if (await again.isVisible()) await again.click({ timeout: 1000 });
  else if (page.url().startsWith('chrome-error:')) await page.reload();
  return false;
}, 60_000);
