// Values of form fields: what the session knows of them, and what the user has changed since.

import { validate } from './validate.js';

/** @typedef {HTMLInputElement | HTMLTextAreaElement | HTMLSelectElement} Field */
/**
 * @typedef {Object} Watched
 * @property {number} id of its element; 0: the session does not ask for its value
 * @property {any} known the value that the session knows
 * @property {import('./validate.js').Rule|null} rule
 * @property {boolean} message whether its title is ours
 * @property {number} [wanted] the option to be selected when options come
 */

export class Fields {
  constructor() {
    /** @type {Map<Element, Watched>} */
    this.watched = new Map();
    /** @type {Set<Element>} fields that the user may have changed since the last event */
    this.touched = new Set();
    for (const kind of ['input', 'change'])
      document.addEventListener(kind, event => this.touch(/** @type {Element} */ (event.target)), true);
  }

  /** @param {Element} element @param {number} id */
  watch(element, id) {
    const watched = this.entry(element);
    watched.id = id;
  }

  /** @param {Element} element @returns {Watched} */
  entry(element) {
    let watched = this.watched.get(element);
    if (!watched) {
      watched = { id: 0, known: undefined, rule: null, message: false };
      this.watched.set(element, watched);
    }
    return watched;
  }

  /** @param {Element} element */
  forget(element) {
    this.watched.delete(element);
    this.touched.delete(element);
  }

  /** @param {Element} element */
  touch(element) {
    const watched = this.watched.get(element);
    if (!watched) return;
    this.touched.add(element);
    this.check(/** @type {Field} */ (element), watched);
  }

  /** @returns {Object<string, any>|null} null: nothing changed */
  collect() {
    /** @type {Object<string, any>|null} */
    let values = null;
    for (const element of this.touched) {
      const watched = this.watched.get(element);
      const value = valueOf(/** @type {Field} */ (element));
      if (!watched || value === watched.known) continue;
      watched.known = value;
      values = values ?? {};
      values[`o${watched.id}`] = value;
    }
    this.touched.clear();
    return values;
  }

  /**
   * A value of the session's. What the user has typed since the event that caused it wins.
   * @param {any} element @param {string} name @param {any} value
   */
  set(element, name, value) {
    if (name === 'indeterminate') {
      element.indeterminate = value === true;
      return;
    }
    const watched = this.entry(element);
    if (this.touched.has(element) && valueOf(element) !== watched.known) return;
    if (name === 'value') setText(element, value ?? '');
    else if (name === 'checked') element.checked = value === true;
    else element.selectedIndex = value ?? -1;
    watched.known = valueOf(element);
    if (name === 'selectedIndex') watched.wanted = value ?? -1;
    this.touched.delete(element);
  }

  /** @param {HTMLSelectElement} element whose options are new */
  restore(element) {
    const watched = this.watched.get(element);
    if (!watched || watched.wanted === undefined) return;
    element.selectedIndex = watched.wanted;
    watched.known = element.selectedIndex;
  }

  /** @param {Element} element @param {import('./validate.js').Rule|null} rule null: none */
  setRule(element, rule) {
    this.entry(element).rule = rule;
  }

  /**
   * Marks the field while the user types; the session's own answer follows with the next event.
   * @param {Field} element @param {Watched} watched
   */
  check(element, watched) {
    if (!watched.rule) return;
    const result = validate(watched.rule, element.value);
    element.classList.toggle('Wt-invalid', !result.valid);
    if (result.valid) element.removeAttribute('aria-invalid');
    else element.setAttribute('aria-invalid', 'true');
    if (!result.valid && result.message && !element.title) {
      element.title = result.message;
      watched.message = true;
    } else if (result.valid && watched.message) {
      element.removeAttribute('title');
      watched.message = false;
    }
  }
}

/**
 * Where the selection of a text field begins and ends, in characters: both at the caret if nothing is selected.
 * @param {Element|null} element @returns {[number, number]|null} null: no such field
 */
export function selectionIn(element) {
  const isText = element instanceof HTMLTextAreaElement
    || (element instanceof HTMLInputElement && element.type === 'text');
  if (!isText || element.selectionStart === null || element.selectionEnd === null) return null;
  const charactersTo = (/** @type {number} */ units) => [...element.value.slice(0, units)].length;
  return [charactersTo(element.selectionStart), charactersTo(element.selectionEnd)];
}

/** @param {Field} element */
function valueOf(element) {
  if (element instanceof HTMLSelectElement) return element.selectedIndex;
  if (element instanceof HTMLInputElement && (element.type === 'checkbox' || element.type === 'radio'))
    return element.checked;
  return element.value;
}

/**
 * Keeps the caret where it was as far as the new text reaches.
 * @param {HTMLInputElement|HTMLTextAreaElement} element @param {string} text
 */
function setText(element, text) {
  if (element.value === text) return;
  const focused = document.activeElement === element;
  const [start, end] = focused ? [element.selectionStart, element.selectionEnd] : [0, 0];
  element.value = text;
  if (focused && start !== null && end !== null)
    element.setSelectionRange(Math.min(start, text.length), Math.min(end, text.length));
}
