// Elements of the page, built and changed without any markup text.

import { setHidden } from './animate.js';
import { behaviours } from './behaviours.js';

/**
 * @typedef {Object} Meta what is known of an element of the session
 * @property {number} id
 * @property {Map<string, string>} events kind -> options ("!" prevents the default, "." stops propagation)
 * @property {ChildNode[]} statics fixed contents, before the children
 * @property {any} behaviour
 * @property {[string, any]|null} pendingBehaviour its name and configuration, until the element is in the document
 */

/**
 * @typedef {Object} Groups what an operation says about an element; what is missing stays as it is
 * @property {Object<string, string|null>} [a] attributes; null: none
 * @property {Object<string, string|null>} [s] style properties
 * @property {string|null} [k] style classes
 * @property {string|null} [x] text
 * @property {StaticNode[]|null} [n] fixed contents
 * @property {string[]|null} [e] events with their options
 * @property {Object<string, any>} [p] properties
 * @property {[string, any]} [b] behaviour
 */

/** @typedef {Groups & {t: string, i: number, c?: Spec[]}} Spec an element with its tag, its id and its children */
/** @typedef {string | [string, Object<string, string>, ...any[]]} StaticNode */
/** @typedef {HTMLElement & Record<string, any>} AnyElement one whose properties have names that the session tells */

/** Set after the children: they depend on them. */
const LATE = new Set(['value', 'checked', 'indeterminate', 'selectedIndex']);

export class Dom {
  /** @param {import('./page.js').Page} page */
  constructor(page) {
    this.page = page;
    /** @type {Map<number, AnyElement>} */
    this.elements = new Map();
    /** @type {WeakMap<Element, Meta>} */
    this.metas = new WeakMap();
    this.root = document.getElementById('wt-root') ?? makeRoot();
  }

  /** @param {number} id @returns {AnyElement|null} */
  find(id) {
    return id === 0 ? null : this.elements.get(id) ?? null;
  }

  /** @param {Element} element @returns {Meta|undefined} undefined for elements of nobody's or of a behaviour */
  meta(element) {
    return this.metas.get(element);
  }

  /** @param {Element|null} element @returns {number} of the element or the nearest one around it; 0: none */
  idOf(element) {
    for (let at = element; at; at = at.parentElement) {
      const meta = this.metas.get(at);
      if (meta) return meta.id;
    }
    return 0;
  }

  /** @param {number} parentId @param {number} beforeId @param {Spec[]} specs */
  create(parentId, beforeId, specs) {
    const parent = parentId === 0 ? this.root : this.find(parentId);
    if (!parent) return;
    const before = this.find(beforeId);
    for (const spec of specs) {
      const element = this.build(spec);
      parent.insertBefore(element, before && before.parentNode === parent ? before : null);
      this.inserted(element);
    }
    this.selectAgain(parent);
  }

  /** @param {Spec} spec @returns {HTMLElement} */
  build(spec) {
    const element = document.createElement(spec.t);
    element.id = `o${spec.i}`;
    this.elements.set(spec.i, element);
    this.metas.set(element, { id: spec.i, events: new Map(), statics: [], behaviour: null, pendingBehaviour: null });
    this.applyEarly(element, spec);
    for (const child of spec.c ?? []) element.append(this.build(child));
    this.applyLate(element, spec);
    return element;
  }

  /** Starts what needs the element to be in the document. @param {HTMLElement} element */
  inserted(element) {
    for (const one of [element, ...element.querySelectorAll('*')]) {
      const meta = this.metas.get(one);
      if (!meta) continue;
      if (meta.events.has('size')) this.page.sizes.observe(one);
      if (meta.pendingBehaviour) this.startBehaviour(one, meta, meta.pendingBehaviour);
    }
  }

  /** @param {Element} element @param {Meta} meta @param {[string, any]} pending */
  startBehaviour(element, meta, [name, config]) {
    meta.pendingBehaviour = null;
    const Class = behaviours[name];
    if (!Class) {
      console.error('unknown behaviour', name);
      return;
    }
    /** @type {import('./behaviours.js').Send} */
    const send = (details, key) => {
      const event = { t: meta.id, k: name, ...details };
      this.page.send(event, key === undefined ? undefined : `${name}:${meta.id}:${key}`);
    };
    meta.behaviour = new Class(element, config, send, this.page);
  }

  /** @param {number} id @param {Groups} groups */
  update(id, groups) {
    const element = this.find(id);
    if (!element) return;
    this.applyEarly(element, groups);
    this.applyLate(element, groups);
  }

  /** @param {number} id @param {Spec} spec */
  replace(id, spec) {
    const former = this.find(id);
    if (!former) return;
    const focused = former.contains(document.activeElement);
    this.release(former);
    const element = this.build(spec);
    former.replaceWith(element);
    this.inserted(element);
    if (focused) element.focus();
  }

  /** @param {number} id */
  remove(id) {
    const element = this.find(id);
    if (!element) return;
    this.release(element);
    element.remove();
  }

  /** @param {Element} element */
  release(element) {
    for (const one of [element, ...element.querySelectorAll('*')]) {
      const meta = this.metas.get(one);
      if (!meta) continue;
      this.elements.delete(meta.id);
      this.page.sizes.forget(one);
      this.page.fields.forget(one);
      if (meta.behaviour?.destroy) meta.behaviour.destroy();
    }
  }

  /** @param {number} id @param {number} parentId @param {number} beforeId */
  move(id, parentId, beforeId) {
    const element = this.find(id);
    const parent = this.find(parentId);
    if (!element || !parent) return;
    const active = document.activeElement;
    parent.insertBefore(element, this.find(beforeId));
    if (active instanceof HTMLElement && element.contains(active)) active.focus({ preventScroll: true });
  }

  /** @param {number} id @param {string} method of its behaviour @param {any[]} [args] */
  call(id, method, args) {
    const element = this.find(id);
    const behaviour = element && this.metas.get(element)?.behaviour;
    if (behaviour && typeof behaviour[method] === 'function') behaviour[method](...(args ?? []));
  }

  // ---- groups ----

  /** @param {HTMLElement} element one of the session's @param {Groups} groups */
  applyEarly(element, groups) {
    const meta = /** @type {Meta} */ (this.metas.get(element));
    if (groups.b) meta.pendingBehaviour = groups.b;
    for (const [name, value] of Object.entries(groups.a ?? {})) this.setAttribute(element, meta, name, value);
    for (const [name, value] of Object.entries(groups.s ?? {})) {
      if (value === null) element.style.removeProperty(name);
      else element.style.setProperty(name, value);
    }
    if (groups.k !== undefined) element.className = groups.k ?? '';
    if (groups.x != null) this.setStatics(element, meta, [groups.x]);
    else if (groups.n != null) this.setStatics(element, meta, groups.n);
    else if (groups.x === null || groups.n === null) this.setStatics(element, meta, []);
    if (groups.e !== undefined) this.setEvents(element, meta, groups.e ?? []);
    for (const [name, value] of Object.entries(groups.p ?? {}))
      if (!LATE.has(name)) this.setProperty(element, name, value);
  }

  /** @param {HTMLElement} element @param {Groups} groups */
  applyLate(element, groups) {
    for (const [name, value] of Object.entries(groups.p ?? {}))
      if (LATE.has(name)) this.page.fields.set(element, name, value);
    if (groups.n != null) this.selectAgain(element);
  }

  /** New options leave the browser's own choice of the selected one. @param {Element} element */
  selectAgain(element) {
    if (element instanceof HTMLSelectElement) this.page.fields.restore(element);
  }

  /** @param {Element} element @param {Meta} meta @param {string} name @param {string|null} value */
  setAttribute(element, meta, name, value) {
    if (value !== null) element.setAttribute(name, value);
    else if (name === 'id') element.id = `o${meta.id}`;
    else element.removeAttribute(name);
  }

  /** @param {Element} element @param {Meta} meta @param {StaticNode[]} nodes */
  setStatics(element, meta, nodes) {
    for (const node of meta.statics) node.remove();
    meta.statics = nodes.map(node => buildNode(node));
    element.prepend(...meta.statics);
  }

  /** @param {Element} element @param {Meta} meta @param {string[]} list */
  setEvents(element, meta, list) {
    const had = meta.events.has('size');
    meta.events = new Map();
    for (const entry of list) {
      const [kind, ...options] = entry.split(/(?=[!.])/);
      meta.events.set(kind, options.join(''));
    }
    if (meta.events.has('value')) this.page.fields.watch(element, meta.id);
    if (meta.events.has('size') && !had && element.isConnected) this.page.sizes.observe(element);
    if (!meta.events.has('size') && had) this.page.sizes.forget(element);
    for (const kind of meta.events.keys()) this.page.events.need(kind);
  }

  /** @param {AnyElement} element @param {string} name @param {any} value null: none */
  setProperty(element, name, value) {
    if (name === 'wtHidden') setHidden(element, value);
    else if (name === 'wtRule') this.page.fields.setRule(element, value);
    else if (value === null) element[name] = typeof element[name] === 'boolean' ? false : '';
    else element[name] = value;
  }
}

/**
 * Contents without a session's id: text, or [tag, attributes, contents...] as the server filtered them.
 * @param {StaticNode} node @returns {ChildNode}
 */
function buildNode(node) {
  if (typeof node === 'string') return document.createTextNode(node);
  const [tag, attributes, ...contents] = node;
  const element = document.createElement(tag);
  for (const [name, value] of Object.entries(attributes)) element.setAttribute(name, value);
  if (tag === 'a' && element.getAttribute('target')) element.setAttribute('rel', 'noopener noreferrer');
  element.append(...contents.map(buildNode));
  return element;
}

/** @returns {HTMLElement} for a page that does not bring it */
function makeRoot() {
  const root = document.createElement('div');
  root.id = 'wt-root';
  document.body.append(root);
  return root;
}
