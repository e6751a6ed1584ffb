// The road between page and server is cut, blocked, silent; tabs are closed and reloaded.
import assert from 'node:assert/strict';
import { openGallery, said, saying } from './gallery.mjs';
import { test } from './harness.mjs';
import { until } from './system.mjs';

const banner = (page) => page.locator('.wt-banner');

/** A mark that a reload would wipe out. */
const mark = (page) => page.evaluate(() => { document.body.dataset.seen = 'before'; });
const marked = async page =>
  assert.equal(await page.evaluate(() => document.body.dataset.seen), 'before', 'the page has reloaded');

/** How many applications live, as another page is told. */
async function living(observer) {
  await observer.locator('#log').evaluate((e) => { e.dataset.asked = e.textContent; });
  await observer.locator('#count').click();
  await saying(observer, 'log', /^living/);
  return said(observer, 'log');
}

for (const [how, lose] of /** @type {[string, (gallery: any) => void][]} */ ([
  ['a cut connection', (gallery) => gallery.road.cut()],
  ['a silent one', (gallery) => { gallery.road.silent = true; }],
])) {
  test(`${how}: the page says so, keeps what is typed, and goes on where it was`, async (t) => {
    const { gallery, page } = await openGallery(t, 'forms,timers', { expectErrors: true });
    await mark(page);
    lose(gallery);
    await banner(page).waitFor(); // within 3 s by the transport's own deadlines
    assert.match((await banner(page).textContent()) ?? '', /offline/i);
    assert.equal(await banner(page).getAttribute('role'), 'status');
    await page.locator('#name').fill('typed');
    await page.locator('#notes').fill('in the dark');
    await page.locator('#button').click();
    await page.locator('#start').click();
    const tried = gallery.road.opened;
    await until('the page has tried again', () => gallery.road.opened > tried);
    assert.equal(await said(page, 'ticks'), 'tick 0');
    gallery.road.mend();
    await saying(page, 'log', 'clicked typed|in the dark');
    await saying(page, 'ticks', 'tick 3');
    await banner(page).waitFor({ state: 'hidden' });
    await marked(page);
    assert.equal(await page.locator('#name').inputValue(), 'typed');
  });
}

test('a server that goes away between the start of a session and its first answer is told of', async (t) => {
  const { gallery, page } = await openGallery(t, 'ends', { expectErrors: true });
  await page.route('**/wt-session/start', async (route) => {
    const response = await route.fetch();
    gallery.road.cut();
    await route.fulfill({ response });
  });
  await page.goto(`http://127.0.0.1:${gallery.road.port}/?show=forms`, { waitUntil: 'commit' });
  await banner(page).waitFor();
  assert.match((await banner(page).textContent()) ?? '', /no connection/i);
  gallery.road.mend();
  await page.locator('#button').click();
  await saying(page, 'log', /^clicked/);
  await banner(page).waitFor({ state: 'hidden' });
});

test('nothing is lost or done twice while the connection breaks again and again', async (t) => {
  const { gallery, page } = await openGallery(t, 'counter', { expectErrors: true });
  await mark(page);
  const clicks = 60;
  for (let i = 1; i <= clicks; i++) {
    await page.locator('#more-by-one').evaluate((e) => e.click());
    if (i % 6 === 0) {
      gallery.road.cut();
      gallery.road.mend();
    }
    await page.waitForTimeout(20); // some clicks fall into each connection
  }
  await saying(page, 'counted', String(clicks));
  // The answer to one more comes behind all that might have been done twice.
  await page.locator('#more-by-one').evaluate((e) => e.click());
  await until('one more is counted', async () => Number(await said(page, 'counted')) > clicks);
  assert.equal(await said(page, 'counted'), String(clicks + 1));
  await marked(page);
});

test('where WebSocket is blocked the page works over plain HTTP', async (t) => {
  const { gallery, page } = await openGallery(t, 'forms', { expectErrors: true });
  gallery.road.noWebSocket = true;
  await gallery.open(page, 'forms,timers,dialogs');
  await page.locator('#name').fill('polled');
  await page.locator('#button').click();
  await saying(page, 'log', /^clicked polled/);
  await page.locator('#start').click();
  await saying(page, 'ticks', 'tick 3');
  await page.locator('#ask').click();
  await page.locator('#yes').click();
  await saying(page, 'log', /^dialog accepted/);
  await until('it does not say that it is offline', async () => !(await banner(page).isVisible()));
  gallery.road.cut();
  await banner(page).waitFor();
  gallery.road.mend();
  await page.locator('#button').click();
  await saying(page, 'log', /^clicked polled/);
});

test('a closed tab frees its session at once; a reload gives a new one', async (t) => {
  const { gallery, page } = await openGallery(t, 'ends,forms');
  const other = await page.context().newPage();
  await gallery.open(other, 'ends');
  assert.equal(await living(page), 'living 2');
  await other.close();
  await until('one is left', async () => (await living(page)) === 'living 1');
  await page.locator('#name').fill('old');
  await page.reload();
  await page.locator('#log').waitFor();
  assert.equal(await page.locator('#name').inputValue(), '');
  await until('the old one is gone', async () => (await living(page)) === 'living 1');
});

test('a session that the server does not know any more: the page says so and offers another', async (t) => {
  const { gallery, page } = await openGallery(t, 'forms', { expectErrors: true });
  await mark(page);
  gallery.road.cut();
  await gallery.restart();
  gallery.road.mend();
  const box = page.getByRole('dialog');
  await box.waitFor();
  assert.match((await box.textContent()) ?? '', /does not exist any more/);
  await marked(page);
  await page.getByRole('button', { name: 'Start again' }).click();
  await page.locator('#button').click();
  await saying(page, 'log', /^clicked/);
});

test('a long time offline costs few attempts, few timers and no growing list of events', async (t) => {
  const { gallery, page } = await openGallery(t, 'timers,counter', { expectErrors: true });
  await page.clock.install();
  await gallery.open(page, 'counter,refresh');
  await page.locator('#tick').click();
  gallery.road.cut();
  await page.clock.runFor(3000);
  await banner(page).waitFor();
  const before = gallery.road.opened;
  const session = page.context();
  const cdp = await session.newCDPSession(page);
  const heap = async () => {
    await cdp.send('HeapProfiler.collectGarbage');
    return (await cdp.send('Runtime.getHeapUsage')).usedSize;
  };
  const heapBefore = await heap();
  for (let minute = 0; minute < 10; minute++) {
    for (let second = 0; second < 60; second += 5) {
      await page.clock.runFor(5000);
      await page.evaluate(
        () =>
          new Promise(resolve => {
            const c = new MessageChannel();
            c.port1.onmessage = resolve;
            c.port2.postMessage(0);
          })
      );
    }
  }
  const attempts = gallery.road.opened - before;
  assert.ok(attempts > 5 && attempts < 250, `${attempts} attempts in ten minutes`);
  const grown = (await heap()) - heapBefore;
  assert.ok(grown < 1_000_000, `${grown} bytes more`);
  gallery.road.mend();
  await page.locator('#more-by-one').evaluate((e) => e.click());
  await page.clock.runFor(40_000);
  await page.clock.resume();
  await saying(page, 'counted', '1');
});
