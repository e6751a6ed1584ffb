// Figures of the product's own pages, by our load client over TLS: app.mjs BUILD [NAME...].
import { median, percentile, print, runFigures } from '../client/figures.mjs';
import { oncePerSecond, openMany } from '../client/load.mjs';
import { settled, sleep } from '../client/program.mjs';
import { MirlSystem, eventually } from './MirlSystem.mjs';

const SESSIONS = 200;
const CLICKING_SECONDS = 10;
const TICKS = 50;
const MANY_DEVICES = 10_000;

/** From the main tabs to the Devices page; notes its timer. */
async function openDevices(page) {
  const known = new Set(page.tree.timers.keys());
  await page.click(page.tree.byText('tab', 'Devices'));
  page.refresh = await eventually(page, () => {
    const run = [...page.tree.timers.keys()].find(timer => !known.has(timer));
    if (!run) throw new Error('the Devices page has started no timer');
    return run;
  });
}

/** Processor time and bytes of one refresh of the page, the last of a message; ms and bytes. */
async function tick(system, page) {
  const [cpu, bytes] = [system.mirl.cpu(), page.bytes];
  page.sendEvent({ t: page.refresh, k: 'timer' });
  await settled(system.mirl);
  return { cpu: system.mirl.cpu() - cpu, bytes: page.bytes - bytes };
}

runFigures({
  async sessions() {
    const system = await MirlSystem.start();
    const { mirl } = system;
    await (await system.openLoggedIn()).close();
    await settled(mirl);
    const [memory, cpu] = [mirl.rss(), mirl.cpu()];
    const pages = await openMany(SESSIONS, () => system.openLoggedIn());
    await settled(mirl);
    print('app.rss_per_session', (mirl.rss() - memory) / SESSIONS, 'MiB', '<1');
    print('app.cpu_to_log_in', (mirl.cpu() - cpu) / SESSIONS, 'ms', '-');

    for (const page of pages) {
      await openDevices(page);
      page.tabs = ['Users', 'Devices'].map(name => page.tree.byText('tab', name));
      page.clicks = 0;
    }
    await settled(mirl);
    print('app.rss_per_session_on_devices', (mirl.rss() - memory) / SESSIONS, 'MiB', '<1');

    for (const page of pages) page.runTimers();
    const times = await oncePerSecond(pages, CLICKING_SECONDS, page => page.click(page.tabs[page.clicks++ % 2]));
    print('app.click_200_sessions.p50', median(times), 'ms', '<4');
    print('app.click_200_sessions.p99', percentile(times, 0.99), 'ms', '<20');
  },

  async tick() {
    const system = await MirlSystem.start();
    const page = await system.openLoggedIn();
    await openDevices(page);
    await sleep(1500); // the simulation's first seconds
    const before = system.mirl.cpu();
    const bytes = page.bytes;
    for (let n = 0; n < TICKS; ++n) page.sendEvent({ t: page.refresh, k: 'timer' });
    await settled(system.mirl);
    print('app.idle_tick', (system.mirl.cpu() - before) / TICKS * 1000, 'us', '<200');
    print('app.idle_tick_sent', page.bytes - bytes, 'B', '0');
  },

  async devices() {
    const system = await MirlSystem.start({ devices: MANY_DEVICES });
    const page = await system.openLoggedIn();
    await openDevices(page);
    await settled(system.mirl);
    const rebuilds = [];
    for (let n = 0; n < 7; ++n) {
      system.ctl('set', 'rx', '1', `notes=${n}`); // news for the list, of a kind that it does not show
      rebuilds.push(await tick(system, page));
    }
    print('app.devices_10000_rebuild', median(rebuilds.map(({ cpu }) => cpu)), 'ms', '<150');
    print('app.devices_10000_rebuild_sent', median(rebuilds.map(({ bytes }) => bytes)), 'B', '0');
    print('app.rss_with_10000_devices', system.mirl.rss(), 'MiB', '-');
  },

  async idle() {
    const system = await MirlSystem.start();
    print('app.start_to_first_answer', system.startTook, 'ms', '<150');
    print('app.idle_rss', system.mirl.rss(), 'MiB', '<12');
  },
});
