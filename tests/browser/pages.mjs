// How a user finds things on the pages: by the words on them and their roles.
import { until } from './system.mjs';

/** @typedef {import('playwright-core').Page} Page */

export const tabs = [
  'Dashboard',
  'Sessions',
  'Users',
  'Devices',
  'Cascade',
  'Peripherals',
  'System Settings',
  'Events',
];

/** The login dialog, ready for typing. @param {Page} page @param {import('./system.mjs').System} system */
export async function openLogin(page, system) {
  await page.goto(system.address);
  await page.locator('.mirl-login-line-edit').first().waitFor();
}

/** Types into the open login dialog and presses the button. @param {Page} page */
export async function tryLogin(page, user, password) {
  const fields = page.locator('.mirl-login-line-edit');
  await fields.nth(0).fill(user);
  await fields.nth(1).fill(password);
  await page.getByRole('button', { name: 'Log In' }).click();
}

/** From the address to the master interface. @param {Page} page @param {import('./system.mjs').System} system */
export async function login(page, system, user = system.user, password = system.password) {
  await openLogin(page, system);
  await tryLogin(page, user, password);
  await mainTab(page, 'Dashboard').waitFor();
}

/** A tab of the main interface; its label may end in "*". @param {Page} page @param {string} name */
export const mainTab = (page, name) =>
  page.locator('.mirl-main-tab > .Wt-tabs').getByRole('tab', { name: new RegExp(`^${name}\\*?$`) });

/** @param {Page} page */
export async function openDevices(page) {
  await mainTab(page, 'Devices').click();
  await deviceRows(page).first().waitFor();
}

/** The library of stored monitors. @param {Page} page */
export async function openMonitors(page) {
  await mainTab(page, 'Peripherals').click();
  await deviceRow(page, 'Ives I12 panel').waitFor();
}

/** The list that is on show; details below it may hold lists of their own. @param {Page} page */
export const deviceList = (page) => page.locator('[role="grid"]:visible').first();

/** Rows of the list that is on show. @param {Page} page */
export const deviceRows = (page, list = deviceList(page)) =>
  list
    .locator('[role="row"]')
    .filter({ has: page.locator('[role="gridcell"]') });

/** The row of the device of that name. @param {Page} page @param {string} name */
export const deviceRow = (page, name, list = deviceList(page)) =>
  deviceRows(page, list).filter({ has: page.locator('[role="gridcell"]').getByText(name, { exact: true }) });

/** The list keeps only the rows near its viewport in the page: scrolls it until the device of that name is there.
 * @param {Page} page @param {string} name */
export async function showRow(page, name, body = deviceList(page)) {
  const row = deviceRow(page, name, body);
  // A row may still be drawn where the list stood before, and go with the next answer: only one in view counts.
  const inView = async () => {
    if (!(await row.count())) return false;
    await row.first().evaluate((e) => e.scrollIntoView({ block: 'center' }), null, { timeout: 1000 });
    await page.waitForTimeout(80);
    return (await row.count()) > 0 && row.first().evaluate((e) => {
      const [own, list] = [
        e.getBoundingClientRect(),
        /** @type {Element} */ (e.closest('[role="grid"]')).getBoundingClientRect(),
      ];
      return own.top < list.bottom && own.bottom > list.top;
    }, null, { timeout: 1000 });
  };
  await until(`a row named ${name}`, async () => {
    const { height, view } = await body.evaluate((e) => ({ height: e.scrollHeight, view: e.clientHeight }));
    for (let top = 0; top < height; top += view) {
      if (await inView()) return true;
      await body.evaluate((e, y) => { e.scrollTop = y; }, top);
      await page.waitForTimeout(80);
    }
    return inView();
  });
  return row;
}

/** Field of a details tab by its label. @param {Page} page @param {string} label */
export const field = (page, label) =>
  page.getByLabel(label, { exact: true }).and(page.locator(':not([role="tabpanel"])')).locator('visible=true');

/** @param {Page} page */
export const saveButton = (page) =>
  page.locator('.mirl-details-tab:visible').getByRole('button', { name: 'Save' }).locator('visible=true');

/** Selects a Receiver of the list and waits until its name stands in the Attributes tab. @param {Page} page */
export async function selectReceiver(page, name) {
  await (await showRow(page, name)).click();
  await until(`attributes of ${name}`, async () => (await field(page, 'Receiver Name').inputValue()) === name);
}

/** @param {Page} page */
export async function rename(page, from, to) {
  await selectReceiver(page, from);
  await field(page, 'Receiver Name').fill(to);
  await until('Save can be pressed', () => saveButton(page).isEnabled());
  await saveButton(page).click();
  await showRow(page, to);
}

/** Presses Tab until the element has the focus. @param {import('playwright-core').Page} page */
export async function tabTo(page, what, element) {
  for (let n = 0; n < 60; n++) {
    if (await element.evaluate((e) => e.contains(document.activeElement)).catch(() => false)) return;
    await page.keyboard.press('Tab');
  }
  throw new Error(`Tab does not reach ${what}`);
}

/** Goes to a main tab without a pointer, from the Dashboard.
 * @param {import('playwright-core').Page} page @param {string} tab */
export async function openByKeys(page, tab) {
  await mainTab(page, 'Dashboard').focus();
  for (let i = 0; i < tabs.indexOf(tab); i++) await page.keyboard.press('ArrowRight');
  await page.keyboard.press('Enter');
}
