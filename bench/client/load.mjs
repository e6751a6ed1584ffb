// Many pages at once.
import { performance } from 'node:perf_hooks';
import { PageClient } from './PageClient.mjs';
import { sleep } from './program.mjs';

const AT_ONCE = 8;

/**
 * Opens pages, a few at a time.
 * @template T @param {number} count @param {(n: number) => Promise<T>} open @returns {Promise<T[]>}
 */
export async function openMany(count, open) {
  const pages = [];
  let next = 0;
  await Promise.all(Array.from({ length: AT_ONCE }, async () => {
    while (next < count) {
      const n = next++;
      pages[n] = await open(n);
    }
  }));
  return pages;
}

/** @param {{port: number, tls?: boolean}} server @param {object} [options] of PageClient */
export async function openPage(server, options) {
  const page = new PageClient(server, options);
  await page.open();
  return page;
}

/**
 * Every page acts once a second, scattered over it. @template T @param {T[]} pages @param {number} seconds
 * @param {(page: T) => Promise<any>} act resolves when the answer is there
 * @returns {Promise<number[]>} ms of each
 */
export async function oncePerSecond(pages, seconds, act) {
  const times = [];
  const begin = performance.now() + 100;
  await Promise.all(pages.map(async (page, n) => {
    for (let round = 0; round < seconds; ++round) {
      const due = begin + 1000 * (round + n / pages.length);
      await sleep(Math.max(0, due - performance.now()));
      const start = performance.now();
      await act(page);
      times.push(performance.now() - start);
    }
  }));
  return times;
}
