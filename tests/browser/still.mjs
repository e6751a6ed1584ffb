// Pages that hold still for a picture.
import { until } from './system.mjs';

/** @typedef {import('playwright-core').Page} Page */

/**
 * One font that the packages of this system bring, whatever else a machine has; and nothing
 * that shines through around the corners of a dialog.
 */
const SHEET =
  ':root { --font: "DejaVu Sans" !important; --mono: "DejaVu Sans Mono" !important; }' +
  ' .Wt-modal { background: var(--ground) !important; }';

/** Pictures that are the same, one after the other: half a second and more. */
const ENOUGH = 4;

/** What a clock moves, and what stands there instead; of the same length, so that nothing else moves.
 * @type {[RegExp, string][]} */
const MOVING = [
  [/\b\d{4}-\d\d-\d\d\b/g, '2000-01-01'],
  [/\b\d{1,4}:\d\d(:\d\d){0,2}\b/g, '0:00:00'],
  [/\bVersion \d+(\.\d+)+\b/g, 'Version 0.0.0'],
];

/** Widths that pictures are taken in. */
export const widths = { narrow: { width: 1280, height: 800 }, wide: { width: 1920, height: 1080 } };

/** Options of a page for pictures. */
export const stillOptions = { viewport: widths.narrow, deviceScaleFactor: 1, locale: 'en-GB', timezoneId: 'UTC' };

/** The sheet for every document of the page. @param {Page} page */
export async function holdStill(page) {
  await page.addInitScript((css) => {
    const sheet = new CSSStyleSheet();
    sheet.replaceSync(css);
    document.adoptedStyleSheets = [...document.adoptedStyleSheets, sheet];
  }, SHEET);
}

/** Writes fixed text over what clocks move. @param {Page} page */
async function stopClocks(page) {
  await page.evaluate((rows) => {
    const patterns = rows.map(([source, flags, text]) => [new RegExp(source, flags), text]);
    const walker = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT);
    for (let node = walker.nextNode(); node; node = walker.nextNode()) {
      let text = node.nodeValue ?? '';
      for (const [pattern, fixed] of patterns) text = text.replace(pattern, fixed);
      if (text !== node.nodeValue) node.nodeValue = text;
    }
  }, MOVING.map(([pattern, text]) => [pattern.source, pattern.flags, text]));
}

/** A picture of the page, or of the topmost element that fits `part`. @param {Page} page @param {string} [part] */
export async function takePicture(page, part) {
  await page.mouse.move(0, 0);
  await page.evaluate(() => document.fonts.ready);
  await stopClocks(page);
  const what = part ? page.locator(part).locator('visible=true').last() : page;
  return what.screenshot({ animations: 'disabled', caret: 'hide' });
}

/** A picture that has been the same for a while, all images in it. @param {Page} page @param {string} [part] */
export async function whenSettled(page, part) {
  let last = Buffer.alloc(0);
  let same = 0;
  return until('the page holds still', async () => {
    if (await page.evaluate(() => [...document.images].some((image) => !image.complete))) return null;
    const now = await takePicture(page, part);
    same = now.equals(last) ? same + 1 : 0;
    last = now;
    return same === ENOUGH ? now : null;
  });
}

/** Letters and controls whose drawing tells one machine's from another's. */
export const sample = `<!doctype html><body style="margin:8px;font:13px 'DejaVu Sans'">
<p>Hamburgefonstiv 0123456789 <b>Hamburgefonstiv</b> <code style="font-family:'DejaVu Sans Mono'">{}[]()</code></p>
<p style="font-size:11px">\u25CF \u25B2 \u2716 \u25CB \u25BC &ndash; Devices &amp; Users</p>
<p><button style="border-radius:5px;border:1px solid #77859a">Save</button> <input value="Text" size="8">
<select><option>Enabled</option></select> <input type="checkbox" checked> <progress value="0.4"></progress></p>
<div
style="width:120px;height:40px;border-radius:8px;border:1px solid #abc;box-shadow:0 4px 12px rgb(0 0 0/30%)"></div>`;
