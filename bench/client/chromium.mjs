// A real browser before a server on this machine, through a proxy that counts the bytes of the wire.
import { X509Certificate, createHash } from 'node:crypto';
import { readFileSync } from 'node:fs';
import net from 'node:net';
import { chromium } from '../../tests/browser/node_modules/playwright-core/index.mjs';

/** Counts what the server sends. @param {number} target port */
export async function countingProxy(target) {
  const proxy = { bytes: 0, port: 0, close: () => server.close() };
  const server = net.createServer(browser => {
    const upstream = net.connect(target, '127.0.0.1');
    upstream.setNoDelay(true);
    browser.setNoDelay(true);
    upstream.on('data', piece => { proxy.bytes += piece.length; });
    for (const [one, other] of [[browser, upstream], [upstream, browser]]) {
      one.pipe(other);
      one.on('error', () => other.destroy());
    }
  });
  await new Promise(done => server.listen(0, '127.0.0.1', done));
  proxy.port = server.address().port;
  return proxy;
}

/**
 * @param {(browser: import('playwright-core').Browser) => Promise<void>} use
 * @param {string[]} trusted certificates (PEM files) that the browser trusts, so that it opens no connection twice
 */
export async function withBrowser(use, trusted = []) {
  const keys = trusted.map(file =>
    createHash('sha256')
      .update(new X509Certificate(readFileSync(file)).publicKey.export({ type: 'spki', format: 'der' }))
      .digest('base64')
  );
  const browser = await chromium.launch({
    executablePath: '/usr/bin/chromium',
    args: ['--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run', '--disable-background-networking',
      '--disable-component-update', '--disable-sync',
      ...(keys.length > 0 ? ['--ignore-certificate-errors-spki-list=' + keys.join(',')] : [])],
  });
  try {
    await use(browser);
  } finally {
    await browser.close();
  }
}

/** A page of a fresh profile. @param {import('playwright-core').Browser} browser */
export async function freshPage(browser) {
  const context = await browser.newContext({ viewport: { width: 1280, height: 800 } });
  return context.newPage();
}

/**
 * First load in a fresh profile: bytes that came over the wire without those of images, and the time from the address
 * to the element, as the page's own clock has it.
 * @param {import('playwright-core').Browser} browser @param {{port: number, tls?: boolean}} server
 * @param {string} selector what makes the page usable
 */
export async function firstLoad(browser, server, selector) {
  const proxy = await countingProxy(server.port);
  const page = await freshPage(browser);
  const images = await imageBytes(page);
  await page.addInitScript(wanted => {
    new MutationObserver((_, observer) => {
      const element = document.querySelector(wanted);
      if (!element?.checkVisibility({ visibilityProperty: true })) return;
      observer.disconnect();
      globalThis.usableAt = performance.now();
    }).observe(document, { subtree: true, childList: true, attributes: true });
  }, selector);
  await page.goto(`${server.tls ? 'https' : 'http'}://127.0.0.1:${proxy.port}/`);
  await page.waitForFunction(() => globalThis.usableAt !== undefined);
  await page.waitForLoadState('networkidle'); // an image may be under way: count it whole, to leave it out whole
  const bytes = proxy.bytes - images.sum;
  const ms = await page.evaluate(() => globalThis.usableAt);
  await page.context().close();
  proxy.close();
  return { bytes, ms };
}

async function imageBytes(page) {
  const images = { sum: 0 };
  const session = await page.context().newCDPSession(page);
  await session.send('Network.enable');
  const known = new Set();
  session.on('Network.responseReceived', ({ requestId, type }) => { if (type === 'Image') known.add(requestId); });
  session.on('Network.loadingFinished', ({ requestId, encodedDataLength }) => {
    if (known.has(requestId)) images.sum += encodedDataLength;
  });
  return images;
}

/**
 * Clicks with the mouse. ms from the browser's click event until the selector is there and can be seen.
 * @param {import('playwright-core').Page} page
 */
export async function clickUntil(page, target, selector) {
  const box = await target.boundingBox();
  await page.evaluate(wanted => {
    globalThis.took = new Promise(resolve => {
      let clicked = 0;
      addEventListener('click', event => { clicked = event.timeStamp; }, { capture: true, once: true });
      const observer = new MutationObserver(() => {
        if (!clicked || !document.querySelector(wanted)?.checkVisibility()) return;
        observer.disconnect();
        resolve(performance.now() - clicked);
      });
      observer.observe(document, { subtree: true, childList: true, attributes: true, characterData: true });
    });
  }, selector);
  await page.mouse.click(box.x + box.width / 2, box.y + box.height / 2);
  return page.evaluate(() => globalThis.took);
}
