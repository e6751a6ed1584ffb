// Figures of the synthetic page in a real Chromium: browser.mjs BUILD [NAME...].
import path from 'node:path';
import { clickUntil, firstLoad, freshPage, withBrowser } from '../client/chromium.mjs';
import { median, percentile, print, runFigures } from '../client/figures.mjs';
import { Program, build, tempFolder } from '../client/program.mjs';

const LOADS = 5;
const CLICKS = 60;

function start() {
  return Program.start(path.join(build, 'bench/bench_page'), ['--docroot', tempFolder(), '--http-address=127.0.0.1',
    '--http-port=0', '--accesslog=-']);
}

runFigures({
  async load() {
    const server = await start();
    await withBrowser(async browser => {
      const loads = [];
      for (let n = 0; n < LOADS; ++n) loads.push(await firstLoad(browser, server, '[role="gridcell"]'));
      print('browser.bytes_to_usable_page', median(loads.map(({ bytes }) => bytes)) / 1000, 'kB', '<60');
      print('browser.usable_page', median(loads.map(({ ms }) => ms)), 'ms', '-');
    });
  },

  async dialog() {
    const server = await start();
    await withBrowser(async browser => {
      const page = await freshPage(browser);
      await page.goto(`http://127.0.0.1:${server.port}/`);
      await page.locator('[role="gridcell"]').first().waitFor();
      const times = [];
      for (let n = 0; n < CLICKS; ++n) {
        times.push(await clickUntil(page, page.locator('#ask'), '[role="dialog"]'));
        await page.locator('#close').click();
        await page.locator('[role="dialog"]').waitFor({ state: 'hidden' });
      }
      print('browser.click_to_dialog.p50', median(times), 'ms', '<10');
      print('browser.click_to_dialog.p99', percentile(times, 0.99), 'ms', '-');
    });
  },
});
