// Ten thousand devices in a real Chromium, and five hundred of them selected: manydevices.mjs BUILD.
import { freshPage, withBrowser } from '../client/chromium.mjs';
import { median, print, runFigures, timed } from '../client/figures.mjs';
import { MirlSystem } from './MirlSystem.mjs';
import { logIn, mainTab } from './masterpages.mjs';

const DEVICES = 10_000;
const FILTER = 'Desk ([1-4]..|2[1-9]|[3-9].)$'; // nearly five hundred Receivers
const TABS = [
  ['Settings', 'Auto Login'],
  ['Status', 'Serial Number'],
  ['Video', 'Transmitter Input'],
  ['USB', 'uCount'],
];
const VISITS = 5;
const ON_SHOW = { polling: 'raf', timeout: 60_000 };

const list = page => page.locator('[role="grid"]:visible').first();
const rows = page => list(page).locator('[role="row"]:has([role="gridcell"])');
const rowCount = async page => Number(await list(page).getAttribute('aria-rowcount')) - 1;
const details = page => page.locator('.mirl-details-tab:visible');

/** Waits until a row on show holds the words. */
const shown = (page, words) =>
  page.waitForFunction(
    text =>
      [...document.querySelectorAll('[role="gridcell"]')].some(
        cell => cell.checkVisibility() && cell.textContent === text
      ),
    words,
    ON_SHOW
  );

/** CPU time of mirl and zeqd in ms, and wall time, until the tab's words are on show. */
async function openTab(page, system, [name, words]) {
  const cpu = () => system.mirl.cpu() + system.zeqd.cpu();
  const before = cpu();
  const ms = await timed(async () => {
    await details(page).getByRole('tab', { name, exact: true }).click();
    await page.waitForFunction(
      text =>
        [...document.querySelectorAll('.mirl-details-tab')].some(
          tab => tab.checkVisibility() && tab.innerText.includes(text)
        ),
      words,
      ON_SHOW
    );
  });
  return { ms, cpu: cpu() - before };
}

runFigures({
  async many() {
    const system = await MirlSystem.start({ devices: DEVICES });
    await withBrowser(async browser => {
      const page = await freshPage(browser);
      await logIn(page, system);
      print('devices.open_10000', await timed(async () => {
        await mainTab(page, 'Devices').click();
        await shown(page, 'Alarm Server');
      }), 'ms', '<500');
      const type = list(page).locator('[role="columnheader"]').filter({ hasText: 'Type' });
      const sorts = [];
      for (let n = 0; n < VISITS; ++n) {
        for (const first of ['Receiver (G1)', 'Transmitter (VGA)'])
          sorts.push(await timed(() => type.click().then(() => shown(page, first))));
      }
      print('devices.sort_10000', median(sorts), 'ms', '<200');

      const filter = page.getByLabel('Filter by name').locator('visible=true');
      await filter.fill(FILTER);
      while (await rowCount(page) > 1000) await page.waitForTimeout(50);
      await rows(page).first().click();
      await details(page).getByRole('tab', { name: 'Attributes', exact: true }).waitFor();
      await page.keyboard.press('Control+A');
      const visits = Object.fromEntries(TABS.map(([name]) => [name, []]));
      for (let n = 0; n < VISITS; ++n)
        for (const tab of TABS) visits[tab[0]].push(await openTab(page, system, tab));
      for (const [name, seen] of Object.entries(visits)) {
        print(`devices.500_selected_${name.toLowerCase()}`, median(seen.map(({ ms }) => ms)), 'ms', '<300');
        print(`devices.500_selected_${name.toLowerCase()}_cpu`, median(seen.map(({ cpu }) => cpu)), 'ms', '-');
      }
    });
  },
});
