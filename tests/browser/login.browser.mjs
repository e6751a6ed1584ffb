// What stands between a browser and the interface.
import assert from 'node:assert/strict';
import { test } from './harness.mjs';
import { login, mainTab, openLogin, tryLogin } from './pages.mjs';
import { System, until } from './system.mjs';

const dialog = (page, words) => page.getByRole('dialog').filter({ hasText: words });
const failure = 'Incorrect username, password, or privileges.';
const lockout = 'There have been 5 successive login failures.';

async function refused(page, user, password, words) {
  await tryLogin(page, user, password);
  await dialog(page, words).waitFor();
  await page.getByRole('button', { name: 'Ok' }).click();
  await page.locator('.mirl-login-line-edit').first().waitFor();
}

test('a wrong password, then the right one; log out', async (t) => {
  const system = await new System().start();
  t.after(() => system.remove());
  const page = await t.page();
  await openLogin(page, system);
  await t.picture(page, 'login');
  await tryLogin(page, system.user, 'wrong');
  await dialog(page, failure).waitFor();
  await t.picture(page, 'login-refused');
  await page.keyboard.press('Enter');
  await page.locator('.mirl-login-line-edit').first().waitFor();
  assert.deepEqual(await page.locator('.mirl-login-line-edit').evaluateAll((all) => all.map((e) => e.value)), ['', '']);
  await tryLogin(page, system.user, system.password);
  await mainTab(page, 'Dashboard').waitFor();
  await page.locator('.mirl-logout-button').click();
  await page.locator('.mirl-login-line-edit').first().waitFor();
  await until(
    'the service has no login left',
    () => JSON.parse(system.ctl('--json', 'list', 'adminSession')).length === 0
  );
});

test('five failures from two browsers lock everybody out', async (t) => {
  const system = await new System().start();
  t.after(() => system.remove());
  const [one, two] = [await t.page(), await t.page()];
  await openLogin(one, system);
  await openLogin(two, system);
  for (const page of [one, two, one, two, one]) await refused(page, 'nobody', 'wrong', failure);
  await refused(two, system.user, system.password, lockout);
  await refused(one, system.user, system.password, lockout);
});

test('an administrator without a password sets the first one', async (t) => {
  const system = await new System({ args: ['--empty'] }).start();
  t.after(() => system.remove());
  const page = await t.page();
  await openLogin(page, system);
  await tryLogin(page, 'admin', '');
  const box = dialog(page, 'Confirm Password');
  await box.waitFor();
  await t.picture(page, 'first-password');
  const [first, second] = [box.locator('input').nth(0), box.locator('input').nth(1)];
  const button = box.getByRole('button', { name: 'Set Password' });
  const rows = [
    ['short', 'shorT', false],
    ['with blank', 'with blank', false],
    ['', '', false],
    ['Gl4ss-harbour', 'Gl4ss-harbour', true],
  ];
  for (const [a, b, good] of rows) {
    await first.fill(a);
    await second.fill(b);
    await second.blur();
    await until(`button for ${a}/${b} is ${good ? 'on' : 'off'}`, async () => (await button.isEnabled()) === good);
  }
  await button.click();
  await mainTab(page, 'Dashboard').waitFor();

  const again = await t.page();
  await openLogin(again, system);
  await refused(again, 'admin', '', failure);
  await tryLogin(again, 'admin', 'Gl4ss-harbour');
  await mainTab(again, 'Dashboard').waitFor();
});

test('the banner shows markup as text and leads to the login', async (t) => {
  const system = await new System().start();
  t.after(() => system.remove());
  const text = '<img src=x onerror=alert(1)> Authorised <b>use</b> only & logged';
  system.ctl('set', 'systemGlobals', 'mirlBannerEnable=enabled', `mirlBannerText=${text}`);
  const page = await t.page();
  await page.goto(system.address);
  const banner = page.locator('.mirl-banner-text');
  await banner.waitFor();
  assert.equal(await banner.innerText(), text);
  await t.picture(page, 'banner');
  await page.keyboard.press('Enter');
  await page.locator('.mirl-login-line-edit').first().waitFor();
});
