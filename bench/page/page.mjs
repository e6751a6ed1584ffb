// Figures of sessions with the synthetic page, by our load client: page.mjs BUILD [NAME...].
import path from 'node:path';
import { PageClient, request } from '../client/PageClient.mjs';
import { median, percentile, print, runFigures, timed } from '../client/figures.mjs';
import { oncePerSecond, openMany, openPage } from '../client/load.mjs';
import { OPEN_LIMITS, Program, build, settled, tempFolder } from '../client/program.mjs';

const TICKS = 100;
const CLICKING_PAGES = 200;
const CLICKING_SECONDS = 10;
const DIALOGS = 1000;

function start() {
  return Program.start(path.join(build, 'bench/bench_page'), ['--docroot', tempFolder(), '--http-address=127.0.0.1',
    '--http-port=0', '--accesslog=-', ...OPEN_LIMITS]);
}

/** Opens a page and finds the buttons; keeps no more of it. */
async function openWithButtons(server) {
  const page = await openPage(server, { tree: true });
  page.count = page.tree.byId('count');
  page.ask = page.tree.byId('ask');
  page.timer = [...page.tree.timers.keys()][0];
  page.tree = null;
  return page;
}

runFigures({
  async sessions() {
    const server = await start();
    await request(server, 'GET', '/');
    await (await openPage(server)).close(); // what only the first session needs
    await settled(server);
    const memory = server.rss();
    const cpu = server.cpu();
    const pages = await openMany(CLICKING_PAGES, () => openWithButtons(server));
    await settled(server);
    print('page.cpu_to_start_a_session', (server.cpu() - cpu) / CLICKING_PAGES, 'ms', '<12');
    print('page.rss_per_session', (server.rss() - memory) / CLICKING_PAGES, 'MiB', '<1.5');
    print('page.first_message', median(pages.map(page => page.bytes)), 'B', '-');

    const times = await oncePerSecond(pages, CLICKING_SECONDS, page => page.click(page.count));
    print('page.click_200_sessions.p50', median(times), 'ms', '-');
    print('page.click_200_sessions.p99', percentile(times, 0.99), 'ms', '<20');
  },

  async tick() {
    const server = await start();
    const page = await openWithButtons(server);
    await settled(server);
    const bytes = page.bytes;
    const cpu = server.cpu();
    for (let tick = 0; tick < TICKS; ++tick) {
      page.sendEvent({ t: page.timer, k: 'timer' });
    }
    await settled(server);
    print('page.tick_200_rows', (server.cpu() - cpu) / TICKS, 'ms', '<1');
    print('page.tick_200_rows_sent', page.bytes - bytes, 'B', '0');
  },

  async dialogs() {
    const server = await start();
    await (await openPage(server)).close();
    await settled(server);
    const before = server.rss();
    const pages = await openMany(DIALOGS, () => openWithButtons(server));
    await settled(server);
    const without = server.rss();
    for (const page of pages) await page.click(page.ask);
    await settled(server);
    print('page.rss_per_session_of_1000', (without - before) / DIALOGS, 'MiB', '<1.5');
    print('page.rss_per_open_dialog', (server.rss() - without) * 1024 / DIALOGS, 'KiB', '-');
    const opened = [];
    const clicks = [];
    for (let i = 0; i < 200; ++i) {
      const page = new PageClient(server, { tree: true });
      opened.push(await timed(() => page.open()));
      const count = page.tree.byId('count');
      clicks.push(await timed(() => page.click(count)));
      await page.close();
    }
    print('page.new_session_with_1000_dialogs.p99', percentile(opened, 0.99), 'ms', '<50');
    print('page.click_with_1000_dialogs.p99', percentile(clicks, 0.99), 'ms', '<50');
  },
});
