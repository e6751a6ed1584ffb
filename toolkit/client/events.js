// What the user does, told to the session: one listener a kind on the document, and only for kinds that somebody
// wants to know.

/** Kinds of the protocol that come from one DOM event of another name. */
const DOM_NAMES = new Map([
  ['focus', 'focusin'], ['blur', 'focusout'], ['enter', 'keydown'], ['escape', 'keydown'],
]);
/** Only the element itself is meant, not those around it. */
const TARGET_ONLY = new Set(['focus', 'blur', 'change', 'input', 'select', 'load', 'scroll']);
/** Told by others: behaviours, observers, fields. */
const NOT_OF_DOM = new Set(['size', 'value', 'checked', 'unchecked', 'resized', 'none', 'timer']);
const MOUSE = /^(click|dblclick|mouse.*|wheel)$/;
const KEY = /^key/;

export class Events {
  /** @param {import('./page.js').Page} page */
  constructor(page) {
    this.page = page;
    this.listening = new Set();
    document.addEventListener('keydown', event => this.keyboardClick(event));
    this.listen('keydown'); // Escape of dialogs
  }

  /** @param {string} kind */
  need(kind) {
    if (!NOT_OF_DOM.has(kind)) this.listen(DOM_NAMES.get(kind) ?? kind);
  }

  /** @param {string} name */
  listen(name) {
    if (this.listening.has(name)) return;
    this.listening.add(name);
    document.addEventListener(name, event => this.tell(event), { capture: true, passive: name === 'wheel' });
  }

  /** @param {Event} event */
  tell(event) {
    if (!(event.target instanceof Element)) return;
    for (const kind of this.kindsOf(event)) {
      const taken = this.walk(kind, event);
      if (kind === 'escape' && !taken) this.page.layers.escape(target => this.tellOne('escape', event, target));
    }
  }

  /** @param {Event} event @returns {Iterable<string>} */
  *kindsOf(event) {
    if (event.type === 'focusin') yield 'focus';
    else if (event.type === 'focusout') yield 'blur';
    else yield event.type;
    if (!(event instanceof KeyboardEvent) || event.type !== 'keydown' || event.isComposing) return;
    if (event.key === 'Enter') yield 'enter';
    if (event.key === 'Escape') yield 'escape';
  }

  /** Goes outwards from the target. @param {string} kind @param {Event} event @returns {boolean} somebody took it */
  walk(kind, event) {
    let taken = false;
    const crosses = kind === 'mouseover' || kind === 'mouseout';
    const other = crosses ? /** @type {Node|null} */ (/** @type {MouseEvent} */ (event).relatedTarget) : null;
    let element = /** @type {Element|null} */ (event.target);
    for (; element; element = element.parentElement) {
      if (crosses && element.contains(other)) continue;
      const stop = this.tellOne(kind, event, element);
      if (stop !== undefined) taken = true;
      if (stop || TARGET_ONLY.has(kind)) break;
    }
    return taken;
  }

  /**
   * @param {string} kind @param {Event} event @param {Element & {disabled?: boolean}} element
   * @returns {boolean|undefined} undefined: does not listen; true: goes no further
   */
  tellOne(kind, event, element) {
    const meta = this.page.dom.meta(element);
    const options = meta?.events.get(kind);
    if (!meta || options === undefined || element.disabled) return undefined;
    if (options.includes('!')) event.preventDefault();
    // Enter on a button would come again as a click.
    if (kind === 'enter' && /^(BUTTON|A)$/.test(element.tagName)) event.preventDefault();
    if (kind === 'scroll') {
      this.page.sendLatest(`scroll:${meta.id}`, () => scrollEvent(meta, element));
    } else {
      const key = kind === 'mousemove' || kind === 'wheel' ? `${kind}:${meta.id}` : undefined;
      this.page.send({ t: meta.id, k: kind, ...details(kind, event, element) }, key);
    }
    return options.includes('.');
  }

  /** Enter and space act on what has the role of a button without being one. @param {KeyboardEvent} event */
  keyboardClick(event) {
    const element = event.target;
    if (!(element instanceof HTMLElement) || (event.key !== 'Enter' && event.key !== ' ')) return;
    if (/^(BUTTON|INPUT|SELECT|TEXTAREA)$/.test(element.tagName) || element.hasAttribute('href')) return;
    const meta = this.page.dom.meta(element);
    if (!meta || element.getAttribute('role') !== 'button' || (event.key === 'Enter' && meta.events.has('enter')))
      return;
    event.preventDefault();
    if (event.repeat) return;
    if (meta.events.has('click')) element.click();
    else for (const kind of ['mousedown', 'mouseup']) this.tellOne(kind, event, element);
  }
}

/** @param {string} kind @param {Event} event @param {Element} element @returns {Object<string, any>} */
function details(kind, event, element) {
  if (MOUSE.test(kind)) return mouseDetails(/** @type {WheelEvent} */ (event), element);
  if (KEY.test(kind)) {
    const { key, keyCode } = /** @type {KeyboardEvent} */ (event);
    const character = key && [...key].length === 1 ? key.codePointAt(0) : 0;
    return { c: keyCode, u: character, m: modifiers(/** @type {KeyboardEvent} */ (event)) };
  }
  return {};
}

/** @param {MouseEvent|KeyboardEvent} event */
function modifiers(event) {
  return (event.shiftKey ? 1 : 0) | (event.ctrlKey ? 2 : 0) | (event.altKey ? 4 : 0) | (event.metaKey ? 8 : 0);
}

/** @param {WheelEvent} event any of the mouse; a wheel's has a way @param {Element} element */
function mouseDetails(event, element) {
  const box = element.getBoundingClientRect();
  const round = (/** @type {number|undefined} */ value) => Math.round(value ?? 0);
  return {
    b: event.button ?? 0, m: modifiers(event),
    x: round(event.clientX), y: round(event.clientY), dx: round(event.pageX), dy: round(event.pageY),
    sx: round(event.screenX), sy: round(event.screenY),
    wx: round(event.clientX - box.left), wy: round(event.clientY - box.top),
    ...(event.deltaY ? { d: event.deltaY < 0 ? 1 : -1 } : {}),
  };
}

/** @param {import('./dom.js').Meta} meta @param {Element} element */
function scrollEvent(meta, element) {
  return {
    t: meta.id, k: 'scroll', x: Math.round(element.scrollLeft), y: Math.round(element.scrollTop),
    w: element.clientWidth, h: element.clientHeight,
  };
}
