// The product's pages in a real browser, found as a user finds them.

export const mainTab = (page, name) => page.locator('.mirl-main-tab').first().getByRole('tab', { name });

/** From the address to the master interface. @param {import('playwright-core').Page} page */
export async function logIn(page, system) {
  await page.goto(`https://127.0.0.1:${system.port}/`);
  const fields = page.locator('.mirl-login-line-edit');
  const [name, password] = system.login;
  await fields.nth(0).fill(name);
  await fields.nth(1).fill(password);
  await page.getByRole('button', { name: 'Log In' }).click();
  await mainTab(page, 'Devices').waitFor();
}
