// Sizes that the layout gave, told when they have changed.

const EXPECT_MS = 2000;

export class Sizes {
  /** @param {import('./page.js').Page} page */
  constructor(page) {
    this.page = page;
    /** @type {Map<Element, string>} as last told */
    this.told = new Map();
    /** @type {Map<Element, {horizontal: boolean, px: number, timer: number}>} sizes that are under way */
    this.expected = new Map();
    this.observer = new ResizeObserver(entries => {
      for (const entry of entries) this.tell(/** @type {HTMLElement} */ (entry.target));
    });
  }

  /** @param {Element} element */
  observe(element) {
    if (this.told.has(element)) return;
    this.told.set(element, '');
    this.observer.observe(element, { box: 'border-box' });
  }

  /**
   * A divider has asked for this size. One from before would reach the session behind that wish, and be taken for a
   * newer one: nothing is told until the element has it, or does not get it.
   * @param {Element} element @param {boolean} horizontal @param {number} px
   */
  expect(element, horizontal, px) {
    if (!this.told.has(element)) return;
    this.stopExpecting(element);
    const timer = window.setTimeout(() => {
      this.expected.delete(element);
      this.tell(/** @type {HTMLElement} */ (element));
    }, EXPECT_MS);
    this.expected.set(element, { horizontal, px, timer });
  }

  /** @param {Element} element */
  stopExpecting(element) {
    clearTimeout(this.expected.get(element)?.timer);
    this.expected.delete(element);
  }

  /** @param {Element} element */
  forget(element) {
    this.stopExpecting(element);
    if (this.told.delete(element)) this.observer.unobserve(element);
  }

  /** What is hidden has no size to tell. @param {HTMLElement} element */
  tell(element) {
    const id = this.page.dom.meta(element)?.id;
    if (!id) return;
    this.page.sendLatest(`size:${id}`, () => {
      const [w, h] = [element.offsetWidth, element.offsetHeight];
      const expected = this.expected.get(element);
      if (expected && (expected.horizontal ? w : h) !== expected.px) return null;
      this.stopExpecting(element);
      const now = `${w}x${h}`;
      if (!this.told.has(element) || !element.getClientRects().length || this.told.get(element) === now)
        return null;
      this.told.set(element, now);
      return { t: id, k: 'size', w, h };
    });
  }
}
