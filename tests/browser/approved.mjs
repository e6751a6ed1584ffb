// The approved pictures, and what a page must have in common with them.
import { createHash } from 'node:crypto';
import { existsSync, mkdirSync, readFileSync, writeFileSync } from 'node:fs';
import { join } from 'node:path';
import { here, outDir } from './harness.mjs';
import { dialogPart } from './places.mjs';
import { compare, decode, isBlank, writeSmall } from './png.mjs';
import { sample, takePicture, whenSettled } from './still.mjs';

export const takenDir = join(outDir, 'pictures');
const approvedDir = join(here, 'approved');
const recordPath = join(approvedDir, 'drawn-by.json');
export const approving = process.env.MIRL_APPROVE === '1';

/** Pixels that may differ: less than a letter of a label has. */
const TOLERANCE = 40;

/**
 * How long a page may take until it looks as approved (milliseconds). After some failures
 * it is the pages' fault, and the rest gets less.
 */
const PATIENCE = 15_000;
const LITTLE_PATIENCE = 1_000;
const ENOUGH_FAILURES = 3;

/**
 * Who draws here: the version of the browser, and a digest of what it makes of a sample of letters and controls.
 * Another browser, font or processor may draw every letter a little differently; then there is nothing to compare.
 * @param {import('playwright-core').Browser} browser
 */
async function drawnBy(browser) {
  const page = await browser.newPage({ viewport: { width: 400, height: 300 }, colorScheme: 'light' });
  await page.setContent(sample);
  const picture = decode(await page.screenshot());
  await page.close();
  return { chromium: browser.version(), sample: createHash('sha256').update(picture.data).digest('hex') };
}

export class Approved {
  /** Whether pictures here can be held against the approved ones; if not, it is said why.
   * @param {import('playwright-core').Browser} browser */
  static async open(browser) {
    const approved = new Approved();
    const mine = await drawnBy(browser);
    approved.compares = false;
    approved.failures = 0;
    if (approving) {
      mkdirSync(approvedDir, { recursive: true });
      writeFileSync(recordPath, `${JSON.stringify(mine, null, 2)}\n`);
      return approved;
    }
    const theirs = existsSync(recordPath) ? JSON.parse(readFileSync(recordPath, 'utf8')) : { chromium: 'none' };
    const other = Object.keys(theirs).filter((key) => theirs[key] !== mine[key]);
    approved.compares = other.length === 0;
    if (other.length)
      console.log(
        'note: pictures are taken but not compared: ' +
          other.map(key => `${key} is ${mine[key]} here, was ${theirs[key]} when they were approved`).join('; ')
      );
    return approved;
  }

  /** Takes the picture of a place and says what is wrong with it. @param {import('playwright-core').Page} page
   * @param {import('./places.mjs').Place} place @param {string} scheme @param {string} width */
  async look(page, place, scheme, width) {
    const name = `${place.name}-${scheme}-${width}`;
    const path = join(takenDir, `${name}.png`);
    // A dialog looks the same in a window of any width.
    const model = join(approvedDir, `${place.part === dialogPart ? `${place.name}-${scheme}` : name}.png`);
    if (!this.compares) {
      const bytes = approving ? await whenSettled(page, place.part) : await takePicture(page, place.part);
      writeFileSync(path, bytes);
      if (isBlank(decode(bytes))) return `${name}: blank`;
      if (approving) writeSmall(model, decode(bytes));
      return null;
    }
    if (!existsSync(model)) return `${name}: nothing approved yet`;
    const end = Date.now() + (this.failures < ENOUGH_FAILURES ? PATIENCE : LITTLE_PATIENCE);
    for (;;) {
      const bytes = await takePicture(page, place.part);
      const { different, shown } = compare(decode(bytes), model);
      if (different <= TOLERANCE) return null;
      if (Date.now() < end) {
        await page.waitForTimeout(100);
        continue;
      }
      this.failures++;
      writeFileSync(path, bytes);
      if (shown) writeFileSync(join(takenDir, `${name}.diff.png`), shown);
      return `${name}: ${different} pixels differ`;
    }
  }
}
