// The boundary between two items of a layout, dragged with the pointer or moved with the arrow keys.

const STEP_PX = 16;

export class Divider {
  /**
   * @param {HTMLElement} element @param {{horizontal: boolean}} config
   * @param {import('./behaviours.js').Send} _send @param {import('./page.js').Page} page
   */
  constructor(element, config, _send, page) {
    this.element = element;
    this.horizontal = config.horizontal;
    this.tell = (/** @type {number} */ size) => {
      const px = Math.round(size);
      const item = this.item();
      if (item) page.sizes.expect(item, this.horizontal, px);
      page.sendLatest(`resized:${element.id}`, () => ({ t: page.dom.meta(element)?.id, k: 'resized', px }));
    };
    element.addEventListener('pointerdown', event => this.start(event));
    element.addEventListener('keydown', event => this.key(event));
    /** @type {HTMLElement|null} the item whose size is watched, besides the divider's own */
    this.watched = null;
    // A separator that can be moved must say where it stands at every moment: the middle until it has been measured.
    if (!element.hasAttribute('aria-valuenow')) element.setAttribute('aria-valuenow', '50');
    this.watch = new ResizeObserver(() => this.report());
    this.watch.observe(element);
  }

  destroy() {
    this.watch.disconnect();
  }

  /** Tells readers where the boundary stands: the share of the item in front, in percent. */
  report() {
    const item = this.item();
    const around = this.element.parentElement;
    if (!item || !around) return;
    if (item !== this.watched) {
      if (this.watched) this.watch.unobserve(this.watched);
      this.watch.observe(item);
      this.watched = item;
    }
    const whole = this.horizontal ? around.offsetWidth : around.offsetHeight;
    if (whole > 0) this.element.setAttribute('aria-valuenow', String(Math.round((100 * this.size()) / whole)));
  }

  /** The item in front: before it in a row or column, in the same line of a grid. @returns {HTMLElement|null} */
  item() {
    if (!this.element.classList.contains('Wt-divider-grid'))
      return /** @type {HTMLElement|null} */ (this.element.previousElementSibling);
    const name = this.horizontal ? 'gridColumnStart' : 'gridRowStart';
    const line = getComputedStyle(this.element)[name];
    const found = [...(this.element.parentElement?.children ?? [])].find(
      one => one !== this.element && getComputedStyle(one)[name] === line
    );
    return found instanceof HTMLElement ? found : null;
  }

  size() {
    const item = this.item();
    if (!item) return 0;
    return this.horizontal ? item.offsetWidth : item.offsetHeight;
  }

  /** @param {KeyboardEvent} event */
  key(event) {
    const [less, more] = this.horizontal ? ['ArrowLeft', 'ArrowRight'] : ['ArrowUp', 'ArrowDown'];
    const step = event.key === less ? -STEP_PX : event.key === more ? STEP_PX : 0;
    if (!step || !this.item()) return;
    event.preventDefault();
    this.tell(Math.max(0, this.size() + step));
  }

  /** @param {PointerEvent} event */
  start(event) {
    if (event.button !== 0 || !this.item()) return;
    event.preventDefault();
    const origin = this.horizontal ? event.clientX : event.clientY;
    const before = this.size();
    let wanted = before;
    const move = (/** @type {PointerEvent} */ moved) => {
      wanted = Math.max(0, before + (this.horizontal ? moved.clientX : moved.clientY) - origin);
      this.tell(wanted);
    };
    const up = (/** @type {PointerEvent} */ released) => {
      move(released);
      end();
    };
    const end = () => {
      this.element.removeEventListener('pointermove', move);
      this.element.removeEventListener('pointerup', up);
      this.element.removeEventListener('pointercancel', end);
      this.element.classList.remove('Wt-dragging');
    };
    this.element.classList.add('Wt-dragging');
    this.element.setPointerCapture(event.pointerId);
    this.element.addEventListener('pointermove', move);
    this.element.addEventListener('pointerup', up);
    this.element.addEventListener('pointercancel', end);
  }
}
