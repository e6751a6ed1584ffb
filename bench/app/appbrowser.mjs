// Figures of the product in a real Chromium over TLS: appbrowser.mjs BUILD [NAME...].
import { clickUntil, firstLoad, freshPage, withBrowser } from '../client/chromium.mjs';
import { median, percentile, print, runFigures } from '../client/figures.mjs';
import { openMany } from '../client/load.mjs';
import { MirlSystem } from './MirlSystem.mjs';
import { logIn, mainTab } from './masterpages.mjs';

const LOADS = 5;
const OTHER_SESSIONS = 199;
const CLICKS = 60;

runFigures({
  async load() {
    const system = await MirlSystem.start();
    await withBrowser(async browser => {
      const loads = [];
      for (let n = 0; n < LOADS; ++n) loads.push(await firstLoad(browser, system, '.mirl-login-line-edit'));
      print('app.bytes_to_login', median(loads.map(({ bytes }) => bytes)) / 1000, 'kB', '<60');
      print('app.login_shown', median(loads.map(({ ms }) => ms)), 'ms', '<400');
    }, [system.certificate]);
  },

  async click() {
    const system = await MirlSystem.start();
    await openMany(OTHER_SESSIONS, () => system.openLoggedIn());
    await withBrowser(async browser => {
      const page = await freshPage(browser);
      await logIn(page, system);
      const times = [];
      for (let n = 0; n < CLICKS; ++n) {
        const tab = mainTab(page, n % 2 ? 'Users' : 'Devices');
        const number = n % 2 ? 3 : 4; // of the tab
        times.push(
          await clickUntil(page, tab, `.mirl-main-tab [role="tab"][aria-selected="true"]:nth-child(${number})`)
        );
      }
      print('app.browser_click_to_page.p50', median(times), 'ms', '<4');
      print('app.browser_click_to_page.p99', percentile(times, 0.99), 'ms', '<20');
    }, [system.certificate]);
  },
});
