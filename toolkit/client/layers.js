// Dialogs over the page: what is below a modal one is inert, focus goes in and comes back.

/** What Enter means something to. */
const OWN_ENTER = 'button, a[href], select, textarea, [role="button"], [role="tab"], [role="grid"]';
const FOCUSABLE = 'button, input, select, textarea, a[href], [tabindex]';

/** @typedef {{frame: HTMLElement, modal: boolean, before: Element|null, fresh: boolean}} Layer */

export class Layers {
  constructor() {
    /** @type {Layer[]} */
    this.open = [];
    /** @type {Layer[]} since the last settle() */
    this.closed = [];
    /** @type {Element|null} where the focus was before the dialog that has just closed */
    this.back = null;
  }

  /** @param {HTMLElement} frame @param {boolean} modal */
  add(frame, modal) {
    this.open.push({ frame, modal, before: document.activeElement, fresh: modal });
  }

  /** @param {HTMLElement} frame */
  remove(frame) {
    const index = this.open.findIndex(layer => layer.frame === frame);
    if (index >= 0) this.closed.push(...this.open.splice(index, 1));
  }

  topModal() {
    return this.open.filter(layer => layer.modal).at(-1);
  }

  /** After all operations of a message. */
  settle() {
    const lastModal = this.topModal();
    const top = lastModal ? lastModal.frame.parentElement : null;
    let below = true;
    for (const child of top?.parentElement ? top.parentElement.children : document.querySelectorAll('.Wt-page > *')) {
      if (child === top) below = false;
      child.toggleAttribute('inert', top !== null && below);
    }
    if (this.closed.length === 0) return;
    const [last] = this.closed;
    // One that was not modal took no focus; it had it only if a user gave it some.
    this.back = last.modal || document.activeElement === document.body ? last.before : null;
    this.closed = [];
  }

  /** Into a new dialog; back to where it was when one has closed. For messages that ask for no focus themselves. */
  moveFocus() {
    const lastModal = this.topModal();
    const fresh = this.open.filter(layer => layer.fresh).at(-1);
    const before = this.back;
    this.back = null;
    for (const layer of this.open) layer.fresh = false;
    if (fresh) {
      focusIn(fresh.frame);
      return;
    }
    if (before instanceof HTMLElement && before.isConnected && before !== document.body) before.focus();
    if (before && lastModal && !lastModal.frame.contains(document.activeElement)) focusIn(lastModal.frame);
  }

  /** Escape with the focus outside of any dialog goes to the topmost one. @param {(frame: Element) => void} tell */
  escape(tell) {
    const top = this.open.at(-1);
    if (top && !top.frame.contains(document.activeElement)) tell(top.frame);
  }
}

/** @param {HTMLElement} frame */
function focusIn(frame) {
  if (frame.contains(document.activeElement)) return;
  for (const element of frame.querySelectorAll(FOCUSABLE)) {
    if (!(element instanceof HTMLElement) || element.tabIndex < 0 || element.closest('.titlebar')) continue;
    element.focus();
    if (document.activeElement === element) return;
  }
  frame.focus();
}

/** Behaviour of a dialog's box. */
export class Dialog {
  /**
   * @param {HTMLElement} element @param {{modal: boolean, movable?: boolean}} config
   * @param {import('./behaviours.js').Send} _send @param {import('./page.js').Page} page
   */
  constructor(element, config, _send, page) {
    this.element = element;
    this.layers = page.layers;
    this.layers.add(element, config.modal);
    if (config.movable) element.addEventListener('pointerdown', event => this.startMove(event));
    if (config.modal) element.addEventListener('keydown', event => this.keepFocus(event));
    element.addEventListener('keydown', event => this.pressDefault(event));
  }

  destroy() {
    this.layers.remove(this.element);
  }

  /** Tab goes round inside. @param {KeyboardEvent} event */
  keepFocus(event) {
    if (event.key !== 'Tab') return;
    const stops = [...this.element.querySelectorAll(FOCUSABLE)].filter(
      one => one instanceof HTMLElement && one.tabIndex >= 0 && !one.matches(':disabled') && one.getClientRects().length
    );
    if (stops.length === 0) {
      event.preventDefault();
      return;
    }
    const leaving = event.shiftKey ? stops[0] : stops.at(-1);
    if (document.activeElement !== leaving && document.activeElement !== this.element) return;
    if (document.activeElement === this.element && !event.shiftKey) return;
    event.preventDefault();
    /** @type {HTMLElement} */ (event.shiftKey ? stops.at(-1) : stops[0]).focus();
  }

  /** Enter in a field. After the browser has told the field's change. @param {KeyboardEvent} event */
  pressDefault(event) {
    if (event.key !== 'Enter' || event.isComposing || event.repeat || event.defaultPrevented) return;
    if (/** @type {Element} */ (event.target).closest(OWN_ENTER)) return;
    const buttons = /** @type {HTMLElement[]} */ ([...this.element.querySelectorAll('.Wt-default')]);
    const button = buttons.find(one => !one.matches(':disabled') && one.getClientRects().length);
    if (button) setTimeout(() => button.click());
  }

  /** @param {PointerEvent} event */
  startMove(event) {
    const target = /** @type {Element} */ (event.target);
    if (event.button !== 0 || !target.closest('.titlebar') || target.closest('button')) return;
    const box = this.element.getBoundingClientRect();
    const [dx, dy] = [event.clientX - box.left, event.clientY - box.top];
    const style = this.element.style;
    const move = (/** @type {PointerEvent} */ moved) => {
      style.setProperty('position', 'fixed');
      style.setProperty('margin', '0');
      style.setProperty('left', `${Math.max(40 - box.width, Math.min(innerWidth - 40, moved.clientX - dx))}px`);
      style.setProperty('top', `${Math.max(0, Math.min(innerHeight - 24, moved.clientY - dy))}px`);
    };
    const end = () => {
      this.element.removeEventListener('pointermove', move);
      this.element.removeEventListener('pointerup', end);
    };
    this.element.setPointerCapture(event.pointerId);
    this.element.addEventListener('pointermove', move);
    this.element.addEventListener('pointerup', end);
  }
}
