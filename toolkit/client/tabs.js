// Keys of a list of tabs or a menu: arrows, Home and End go to the item and choose it; Enter and space choose.

/** @type {Record<string, number>} */
const STEPS = { ArrowLeft: -1, ArrowUp: -1, ArrowRight: 1, ArrowDown: 1 };

export class Tabs {
  /** @param {HTMLElement} list */
  constructor(list) {
    this.list = list;
    this.keys = (/** @type {KeyboardEvent} */ event) => this.key(event);
    list.addEventListener('keydown', this.keys);
  }

  destroy() {
    this.list.removeEventListener('keydown', this.keys);
  }

  /** @param {KeyboardEvent} event */
  key(event) {
    if (event.altKey || event.ctrlKey || event.metaKey) return;
    const items = /** @type {HTMLElement[]} */ ([...this.list.children]).filter(
      item => item.offsetParent !== null && item.getAttribute('aria-disabled') !== 'true',
    );
    const here = items.findIndex(item => item.contains(document.activeElement));
    if (here < 0) return;
    let next = here;
    if (event.key in STEPS) next = (here + STEPS[event.key] + items.length) % items.length;
    else if (event.key === 'Home') next = 0;
    else if (event.key === 'End') next = items.length - 1;
    else if (event.key !== 'Enter' && event.key !== ' ') return;
    event.preventDefault();
    items[next].focus();
    items[next].click();
  }
}
