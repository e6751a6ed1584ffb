// Every page, details tab and dialog of the interface, and how to get there.
import {
  deviceRows, field, mainTab, openDevices, openLogin, openMonitors, saveButton, showRow, tabs, tryLogin,
} from './pages.mjs';
import { until } from './system.mjs';

/** @typedef {import('playwright-core').Page} Page */
/** @typedef {import('./system.mjs').System} System */
/**
 * A place: how to get there and away, the part of the page that its picture shows (all, if none), and
 * the options of ./run if it needs a system of its own.
 * @typedef {{name: string, go: (page: Page, system: System) => Promise<void>,
 *   leave?: (page: Page, system: System) => Promise<void>,
 *   part?: string, args?: string[]}} Place
 */

/** Parts of a page that pictures show: the topmost dialog, the details of what is selected. */
export const dialogPart = '.Wt-dialog';
export const detailsPart = '.mirl-context-panel:has(.mirl-details-tab)';

/**
 * The details pane of that kind is on show, with all its tabs, and no other: the pane of the kind selected
 * before may have a tab of the same name and stay for a moment.
 * @param {Page} page
 */
const paneOf = (page, { type, tabs: names }) => until(`the details pane of a ${type}`, async () => {
  const shown = await page
    .locator('.mirl-details-tab:visible')
    .getByRole('tab')
    .locator('visible=true')
    .allInnerTexts();
  return shown.map((text) => text.trim().replace(/\*$/, '')).join() === names.join();
});

/** @param {Page} page @param {string} name */
export const detailsTab = (page, name) =>
  page.locator('.mirl-details-tab:visible').getByRole('tab', { name: new RegExp(`^${name}\\*?$`) });

/** The tab of that name has come to the front. @param {Page} page @param {string} tab */
async function showTab(page, tab) {
  await detailsTab(page, tab).click();
  const shown = async () => (await detailsTab(page, tab).getAttribute('aria-selected')) === 'true';
  await until(`${tab} is on show`, shown);
}

/** Types of devices as the list shows them, with the tabs of their details pane. */
export const kinds = [
  { type: 'Receiver (G1)', short: 'rx', device: 'Desk 4', tabs: ['Attributes', 'Settings', 'Status', 'Video', 'USB'] },
  {
    type: 'Transmitter (DVI)',
    short: 'tx',
    device: 'Alarm Server',
    tabs: ['Attributes', 'Settings', 'Status', 'Sessions', 'USB'],
  },
  {
    type: 'Switch',
    short: 'swx',
    device: 'Annex Switch',
    tabs: ['Mode', 'Attributes', 'IPv4', 'IPv6', 'NTP', 'Status', 'Ports'],
  },
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
  {
    name: 'banner',
    go: async (page, system) => {
      system.ctl(
        'set',
        'systemGlobals',
        'mirlBannerEnable=enabled',
        'mirlBannerText=Authorised use only.\nAll activity is logged.'
      );
      await page.goto(system.address);
      await page.locator('.mirl-banner-text').waitFor();
    },
    leave: async (_page, system) => { system.ctl('set', 'systemGlobals', 'mirlBannerEnable=disabled'); },
  },
  ...[
    ['slave', ['cascade', 'look'], 'This Switch is a slave in a cascade'],
    ['managed', ['manager', 'enrol', '10.20.1.90'], 'Managed Mode Settings and Status'],
  ].map(([name, words, says]) => ({
    name,
    args: [], // a system of its own, which is led to another state
    go: async (page, system) => {
      system.ctl(...words);
      if (name === 'managed')
        await until('it is managed', () => system.ctl('get', 'systemGlobals', 'managedSetting') === 'verified');
      await openLogin(page, system);
      await tryLogin(page, system.user, system.password);
      await page.getByText(says).first().waitFor();
    },
  })),
  {
    name: 'first-password',
    args: ['--empty'],
    go: async (page, system) => {
      await openLogin(page, system);
      await tryLogin(page, 'admin', '');
      await page.getByText('Confirm Password').waitFor();
    },
  },
];

/** Presses a button of the topmost dialog. @param {Page} page @param {string} name */
export const answer = (page, name) =>
  page.getByRole('dialog').last().getByRole('button', { name, exact: true }).click();

/** The topmost dialog has these words. @param {Page} page @param {string} words */
export const dialogSays = (page, words) => until(`a dialog that says "${words}"`, async () =>
  (await page.getByRole('dialog').count()) > 0 && (await page.getByRole('dialog').last().innerText()).includes(words));

/** @param {Page} page */
const noDialog = (page) => page.getByRole('dialog').waitFor({ state: 'hidden' });

/** Devices of the demo installation. None comes to harm: every box that asks is answered with no. */
const receiver = 'Desk 4';
const thisSwitch = 'Main Hall Switch';

/** A dialog that a button opens, behind `open`; `then` goes further, `leave` are the buttons on the way out.
 * @param {string} name @param {(page: Page) => Promise<void>} open @param {string} button
 * @param {{says: string, then?: (page: Page) => Promise<void>, leave?: string[]}} rest */
const boxBehind = (name, open, button, { says, then, leave = ['Cancel'] }) => ({
  name,
  part: dialogPart,
  go: async (page) => {
    await open(page);
    const action = page.getByRole('button', { name: button, exact: true }).locator('visible=true').first();
    await until(`${button} can be pressed`, () => action.isEnabled());
    await action.click();
    await page.getByRole('dialog').waitFor();
    if (then) await then(page);
    await dialogSays(page, says);
  },
  leave: async (page) => {
    for (const word of leave) await answer(page, word);
    await noDialog(page);
  },
});

/** For a record of a page's list, if one is named; `open` brings the page, that of the devices if it is not told.
 * @param {string} name @param {string | null} record */
const box = (name, record, button, { open = openDevices, ...rest }) => boxBehind(name, async (page) => {
  await open(page);
  if (record) await (await showRow(page, record)).click();
}, button, rest);

/** On to the description of a new firmware file. @param {string} protocol as the list of sources names it */
const newFile = (protocol) => async (page) => {
  await answer(page, 'New file');
  await dialogSays(page, 'Choose the source');
  await page.getByRole('dialog').last().getByRole('combobox').selectOption({ label: protocol });
};

/**
 * A details tab of a device, after `then`.
 * @param {string} short of the kind @param {string} device @param {string} tab
 */
const detailsOf = (short, device, tab, then) => async (page) => {
  await openDevices(page);
  await (await showRow(page, device)).click();
  await paneOf(page, kinds.find((kind) => kind.short === short));
  await showTab(page, tab);
  await then(page);
};

/** Throws away what was typed. @param {Page} page */
async function cancelEdits(page) {
  const cancel = page
    .locator('.mirl-details-tab:visible')
    .getByRole('button', { name: 'Cancel' })
    .locator('visible=true');
  await cancel.click();
  await until('nothing is edited', () => cancel.isDisabled());
}

/** The settings of the system, on a tab. @param {Page} page @param {string} tab */
export async function openSettings(page, tab) {
  await mainTab(page, 'System Settings').click();
  await showTab(page, tab);
}

/** Tabs of the system's settings. */
const settingsTabs = ['Manager', 'MIRL', 'OSD', 'Events', 'Defaults', 'Other', 'Remote Access'];

/** One of the system's settings. @param {string} name @param {string} tab */
const settingsBox = (name, tab, button, rest) => boxBehind(name, (page) => openSettings(page, tab), button, rest);

/** Pages behind the login, in an order in which one leads to the next. @type {Place[]} */
export const pages = [
  { name: 'first-page', go: async () => {} },
  ...tabs.map(name => ({
    name: `tab-${name.toLowerCase().replace(/ /g, '-')}`,
    go: async page => {
      await mainTab(page, name).click();
    },
  })),
  { name: 'devices', go: openDevices },
];

/** Tabs of the details pane. @type {Place[]} */
export const details = kinds.flatMap((kind) => kind.tabs.map((tab) => ({
  name: `${kind.short}-${tab.toLowerCase()}`,
  part: detailsPart,
  go: async (page) => {
    await openDevices(page);
    await (await showRow(page, kind.device)).click();
    await paneOf(page, kind);
    await showTab(page, tab);
  },
})));

/** A page of the main tabs. @param {string} name */
const openPage = (name) => (/** @type {Page} */ page) => mainTab(page, name).click();

/** Details of one record of the other pages. */
const records = [
  { short: 'monitor', open: openMonitors, record: 'Ives I12 panel', tabs: ['Attributes', 'Decoded EDID'] },
  { short: 'session', open: openPage('Sessions'), record: 'Video Wall 1', tabs: ['Attributes'] },
  {
    short: 'user',
    open: openPage('Users'),
    record: 'mhansen',
    tabs: ['Attributes', 'Permissions', 'Targets', 'Favorites', 'OSD', 'OSD F1-F12', 'Status'],
  },
];
details.push(...records.flatMap(({ short, open, record, tabs: names }) => names.map((tab) => ({
  name: `${short}-${tab.toLowerCase().replace(' ', '-')}`,
  part: detailsPart,
  go: async (/** @type {Page} */ page) => {
    await open(page);
    await (await showRow(page, record)).click();
    await showTab(page, tab);
  },
}))));

details.push(...settingsTabs.map((tab) => ({
  name: `settings-${tab.toLowerCase().replace(' ', '-')}`,
  part: detailsPart,
  go: (/** @type {Page} */ page) => openSettings(page, tab),
})));
/** A row of the dialog's list. @param {string} name */
const chooseInList = (name) => (page) =>
  page.getByRole('dialog').locator('[role="row"]').filter({ hasText: name }).first().click();

/** Dialogs, and pages in a state that takes some doing. @type {Place[]} */
export const boxes = [
  settingsBox('box-settings-save', 'Manager', 'Save', { says: 'All settings of the system' }),
  settingsBox('box-settings-saved', 'Manager', 'Save', {
    says: 'The settings file is ready',
    then: (page) => answer(page, 'Next →'),
    leave: ['Close'],
  }),
  settingsBox('box-settings-load', 'Manager', 'Load', { says: 'replaces the settings of the system' }),
  settingsBox('box-settings-choose', 'Manager', 'Load', {
    says: 'Choose a settings file',
    then: (page) => answer(page, 'Next →'),
  }),
  settingsBox('box-settings-restore', 'Manager', 'Restore Full', { says: 'to full factory default' }),
  settingsBox('box-icons', 'Other', 'Custom target icons...', { says: 'Choose an icon', leave: ['Close'] }),
  box('box-restore', receiver, 'Restore Full', { says: 'to factory default settings?' }),
  box('box-restore-self', thisSwitch, 'Restore Full', {
    says: 'A complete factory default may cause',
    then: page => answer(page, 'Restore settings'),
    leave: ['Skip device', 'Ok'],
  }),
  box('box-restore-partial', thisSwitch, 'Restore Partial', { says: 'Network settings are kept' }),
  box('box-restored', thisSwitch, 'Restore Partial', {
    says: 'has been initiated on 0 of 1',
    then: async page => {
      await answer(page, 'Restore settings');
      await dialogSays(page, 'to your own Switch');
      await answer(page, 'Skip device');
    },
    leave: ['Ok'],
  }),
  box('box-reboot', receiver, 'Reboot', { says: 'Are you sure you want to reboot' }),
  box('box-reboot-self', thisSwitch, 'Reboot', {
    says: 'currently connected to',
    then: page => answer(page, 'Reboot'),
  }),
  box('box-remove', receiver, 'Remove', { says: 'Are you sure you want to remove' }),
  box('box-remove-self', thisSwitch, 'Remove', { says: 'not allowed', leave: ['Close'] }),
  box('box-remove-offline', null, 'Remove Offline', { says: 'all offline device(s)' }),
  box('box-flash', receiver, 'Flash', { says: 'flashes for this time' }),
  box('box-flashed', receiver, 'Flash', {
    says: 'commanded to start',
    then: page => answer(page, 'Flash'),
    leave: ['Close'],
  }),
  box('box-update', receiver, 'Update', {
    says: 'previously used',
    then: page => page.getByRole('dialog').locator('[role="row"]').filter({ hasText: 'rx-' }).click(),
    leave: ['Close'],
  }),
  ...['FTP', 'TFTP', 'Local file'].map(protocol =>
    box(`box-update-${protocol.toLowerCase().replace(' ', '-')}`, receiver, 'Update', {
      says: 'Choose the source',
      then: newFile(protocol),
      leave: ['Close'],
    })
  ),
  box('box-upload', receiver, 'Update', {
    says: 'Choose the file to be transferred',
    then: async page => {
      await newFile('Local file')(page);
      const name = page.getByRole('dialog').last().getByRole('textbox');
      await until('one field is left', async () => (await name.count()) === 1);
      await name.click();
    },
    leave: ['Cancel', 'Close'],
  }),
  boxBehind('box-link-peer', openPage('Cascade'), 'Link', { says: 'to stand by as backup' }),
  boxBehind('box-connect', openPage('Sessions'), 'Connect', {
    says: 'Select the session mode',
    then: chooseInList('mhansen'),
  }),
  box('box-disconnect', 'Video Wall 1', 'Disconnect', {
    says: 'want to disconnect the selected session',
    open: openPage('Sessions'),
  }),
  box('box-login-user', 'trainee', 'Login', { says: 'Receiver', open: openPage('Users') }),
  box('box-logout-user', 'mhansen', 'Logout', { says: 'log', open: openPage('Users') }),
  box('box-delete-user', 'trainee', 'Delete', { says: 'Are you sure', open: openPage('Users') }),
  box('box-delete-monitor', 'Ives I12 panel', 'Delete', {
    says: 'want to delete the selected item?',
    open: openMonitors,
  }),
  box('box-pull', null, 'Pull', { says: 'Select the Device', then: chooseInList('Desk 4'), open: openMonitors }),
  box('box-push', 'Ives I12 panel', 'Push', {
    says: 'Select the Transmitter(s)',
    then: chooseInList('Camera Recorder'),
    open: openMonitors,
  }),
  box('box-push-mismatch', 'Ives I12 panel', 'Push', {
    says: 'There is a EDID-tx mismatch',
    then: async page => {
      await chooseInList('Camera Recorder')(page);
      await answer(page, 'Push');
    },
    leave: ['Cancel', 'Cancel'],
    open: openMonitors,
  }),
  {
    name: 'icon-choice',
    part: dialogPart,
    go: detailsOf('tx', 'Alarm Server', 'Settings', async page => {
      await page.locator('.mirl-details-tab:visible .Wt-stack[role="button"]').locator('visible=true').click();
      await dialogSays(page, 'Click an icon');
    }),
    leave: async page => {
      await page.keyboard.press('Escape');
      await noDialog(page);
    },
  },
  {
    name: 'box-mode-change',
    part: dialogPart,
    go: detailsOf('swx', thisSwitch, 'Mode', async page => {
      const choice = page.locator('.mirl-details-tab:visible').getByRole('combobox').locator('visible=true');
      await until('the mode can be chosen', () => choice.isEnabled());
      await choice.selectOption({ label: 'Switch is a cascade slave' });
      await dialogSays(page, 'takes part in the cascade');
    }),
    leave: async page => {
      await answer(page, 'Close');
      await noDialog(page);
      await cancelEdits(page);
    },
  },
  {
    name: 'edited',
    go: detailsOf('rx', receiver, 'Settings', async page => {
      await field(page, 'Share Control Timeout (seconds)').fill('26');
      await field(page, 'Share Control Timeout (seconds)').blur();
      await until('the tab is marked', async () => (await detailsTab(page, 'Settings').innerText()).includes('*'));
    }),
    leave: cancelEdits,
  },
  {
    name: 'box-unsaved',
    part: dialogPart,
    go: detailsOf('rx', receiver, 'Attributes', async page => {
      await field(page, 'Location').fill('Elsewhere');
      await until('Save can be pressed', () => saveButton(page).isEnabled());
      await page.locator('.mirl-logout-button').click();
      await dialogSays(page, 'unsaved changes');
    }),
    leave: async page => {
      await answer(page, 'Cancel');
      await noDialog(page);
      await cancelEdits(page);
    },
  },
  {
    name: 'nothing-matches',
    go: async page => {
      await openDevices(page);
      await page.getByLabel('Filter by name').fill('no such name');
      await page.getByLabel('Filter by name').press('Enter');
      await until('no row is left', async () => (await deviceRows(page).count()) === 0);
    },
    leave: async page => {
      await page.getByLabel('Filter by name').fill('');
      await page.getByLabel('Filter by name').press('Enter');
      await deviceRows(page).first().waitFor();
    },
  },
  {
    name: 'preferences',
    part: dialogPart,
    go: async page => {
      await page.locator('.mirl-preferences-button').click();
      await page.getByRole('dialog').waitFor();
    },
    leave: async page => {
      await answer(page, 'Cancel');
      await noDialog(page);
    },
  },
  {
    // The last one: the device is gone then.
    name: 'box-write-error',
    part: dialogPart,
    go: async (page, system) => {
      await detailsOf('rx', 'Training', 'Attributes', async () => {})(page);
      await field(page, 'Location').fill('Elsewhere');
      await until('Save can be pressed', () => saveButton(page).isEnabled());
      const gone = JSON.parse(system.ctl('--json', 'list', 'rx', 'index', 'name')).find(row => row.name === 'Training');
      system.ctl('delete', 'rx', String(gone.index));
      await saveButton(page).click();
      await dialogSays(page, 'Error writing');
    },
    leave: async page => {
      await answer(page, 'Close');
      await noDialog(page);
    },
  },
];
