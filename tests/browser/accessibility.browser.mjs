// WCAG 2.2 A and AA by axe in the colours of every brand. walk.mjs looks at every page and dialog.
import { readdirSync } from 'node:fs';
import { join } from 'node:path';
import { axeOptions, bringAxe, violations } from './axe.mjs';
import { test } from './harness.mjs';
import { login, openDevices, openLogin } from './pages.mjs';
import { System, top } from './system.mjs';

const schemes = /** @type {const} */ (['light', 'dark']);

test('no violation in the colours of any brand', async (t) => {
  const wrong = [];
  for (const brand of readdirSync(join(top, 'resources/themes'))) {
    const system = await new System({ args: ['--brand', brand] }).start();
    t.after(() => system.remove());
    for (const colorScheme of schemes) {
      const page = await t.page(axeOptions(colorScheme));
      await bringAxe(page);
      for (const [name, go] of /** @type {const} */ ([
        ['login', openLogin],
        ['first page', login],
        ['devices', openDevices],
      ])) {
        await go(page, system);
        for (const line of await violations(page)) wrong.push(`${brand}, ${colorScheme}, ${name}: ${line}`);
      }
      await page.close();
    }
    await system.stop();
  }
  if (wrong.length) throw new Error(`${wrong.length} violations:\n    ${wrong.join('\n    ')}`);
});
