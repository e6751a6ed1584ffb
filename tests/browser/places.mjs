// Every page, details tab and dialog of the interface, and how to get there: looked at by axe.
import { deviceRows, login, mainTab, openDevices, openLogin, tabs, tryLogin } from './pages.mjs';
import { until } from './system.mjs';

/** @typedef {import('playwright-core').Page} Page */
/** @typedef {{name: string, go: (page: Page, system: import('./system.mjs').System) => Promise<void>}} Place */

/** First row of a device of that type. @param {Page} page @param {string} type */
const rowOfType = (page, type) => deviceRows(page).filter({ has: page.locator('[role="gridcell"]').getByText(type, { exact: true }) }).first();

/** First row of that kind, clicked, and its details pane with all its tabs on show. The pane of the kind selected before
 * may have a tab of the same name and stay for a moment: what is looked at must not be that one. */
export async function selectKind(page, { type, tabs: names }) {
  await rowOfType(page, type).click();
  await until(`the details pane of a ${type}`, async () => {
    const shown = await page.locator('.mirl-details-tab:visible').getByRole('tab').locator('visible=true').allInnerTexts();
    return shown.map((text) => text.trim().replace(/\*$/, '')).join() === names.join();
  });
}

/** @param {Page} page @param {string} name */
export const detailsTab = (page, name) => page.locator('.mirl-details-tab:visible').getByRole('tab', { name: new RegExp(`^${name}\\*?$`) });

/** Types of devices as the list shows them, with the tabs of their details pane. */
export const kinds = [
  { type: 'Receiver (G1)', short: 'rx', tabs: ['Attributes', 'Settings', 'Status', 'Video', 'USB'] },
  { type: 'Transmitter (DVI)', short: 'tx', tabs: ['Attributes', 'Settings', 'Status', 'Sessions', 'USB'] },
  { type: 'Switch', short: 'swx', tabs: ['Mode', 'Attributes', 'IPv4', 'IPv6', 'NTP', 'Status', 'Ports'] },
];

/** Before the login; each starts from a fresh page. @type {Place[]} */
export const outside = [
  { name: 'login', go: openLogin },
  {
    name: 'login-refused',
    go: async (page, system) => {
      await openLogin(page, system);
      await tryLogin(page, 'nobody', 'wrong');
      await page.getByRole('button', { name: 'Ok' }).waitFor();
    },
  },
  {
    name: 'forgot-password',
    go: async (page, system) => {
      await openLogin(page, system);
      await page.getByText('Forgot my password').click();
      await page.getByRole('button', { name: 'Ok' }).waitFor();
    },
  },
];

/** Opens a dialog by an action button of the accordion and leaves it open until `leave`. */
const action = (name, type, button) => ({
  name,
  go: async (page) => {
    await openDevices(page);
    if (type) await rowOfType(page, type).click();
    const press = page.getByRole('button', { name: button, exact: true });
    await until(`${button} can be pressed`, () => press.isEnabled());
    await press.click();
    await page.getByRole('dialog').waitFor();
  },
  leave: async (page) => {
    await page.keyboard.press('Escape');
    await page.getByRole('dialog').waitFor({ state: 'hidden' });
  },
});

/** Inside, in an order in which one leads to the next. @type {(Place & {leave?: (page: Page) => Promise<void>})[]} */
export const inside = [
  { name: 'first-page', go: login },
  ...tabs.map((name) => ({ name: `tab-${name.toLowerCase().replace(/ /g, '-')}`, go: async (page) => { await mainTab(page, name).click(); } })),
  { name: 'devices', go: openDevices },
  ...kinds.flatMap((kind) => kind.tabs.map((tab) => ({
    name: `${kind.short}-${tab.toLowerCase()}`,
    go: async (page) => {
      await openDevices(page);
      await selectKind(page, kind);
      await detailsTab(page, tab).click();
      await until(`${tab} is on show`, async () => (await detailsTab(page, tab).getAttribute('aria-selected')) === 'true');
      await page.waitForTimeout(400);
    },
  }))),
  action('box-restore', 'Receiver (G1)', 'Restore Full'),
  action('box-reboot', 'Receiver (G1)', 'Reboot'),
  action('box-remove', 'Receiver (G1)', 'Remove'),
  action('box-remove-offline', null, 'Remove Offline'),
  action('box-flash', 'Receiver (G1)', 'Flash'),
  action('box-update', 'Receiver (G1)', 'Update'),
  {
    name: 'preferences',
    go: async (page) => {
      await page.locator('.mirl-preferences-button').click();
      await page.getByRole('dialog').waitFor();
    },
    leave: async (page) => {
      await page.getByRole('dialog').getByRole('button', { name: 'Cancel' }).click();
      await page.getByRole('dialog').waitFor({ state: 'hidden' });
    },
  },
];
