// The page: applies the session's operations to the DOM and tells the session what the user does.
// docs/page-protocol.md lists operations and events.

import { showPath, shownPath } from './address.js';
import { Dom } from './dom.js';
import { Events } from './events.js';
import { Fields, selectionIn } from './fields.js';
import { Layers } from './layers.js';
import { Sizes } from './sizes.js';

const LONGEST_TIMER_MS = 0x7fffffff;
const STYLE_WAIT_MS = 1500; // the page stays invisible that long at most for its style sheets
const RETRY_MS = 100;

/** @typedef {{sendEvent(event: Object<string, any>, key?: string): void, keys: Map<string, number>,
 *   forget(): void, renew(): void}} Sender */

export class Page {
  /** @param {Sender} transport */
  constructor(transport) {
    this.transport = transport;
    this.fields = new Fields();
    this.sizes = new Sizes(this);
    this.layers = new Layers();
    this.dom = new Dom(this);
    this.events = new Events(this);
    /** @type {Map<number, {stop: () => void}>} */
    this.timers = new Map();
    /** @type {Map<string, () => Object<string, any>|null>} latest events that wait until an older one has arrived */
    this.postponed = new Map();
    this.confirmText = '';
    this.stylesAwaited = 0;
    /** @type {(() => void)[]} */
    this.visibleActions = [];
    this.handlers = this.operationHandlers();
    addEventListener('popstate', () => this.send({ k: 'path', p: shownPath() }));
    addEventListener('beforeunload', event => { if (this.confirmText) event.preventDefault(); });
  }

  /** @param {any[]} operations */
  applyOperations(operations) {
    this.focusWanted = -1;
    for (const operation of operations) {
      const handler = this.handlers[operation[0]];
      try {
        if (handler) handler(...operation.slice(1));
        else console.error('unknown operation', operation[0]);
      } catch (error) {
        console.error('operation failed', operation[0], error);
      }
    }
    const wanted = this.focusWanted;
    this.layers.settle();
    this.whenVisible(() => {
      if (wanted >= 0) this.setFocus(wanted);
      else this.layers.moveFocus();
    });
    this.sendPostponed();
  }

  collectValues() {
    return this.fields.collect();
  }

  /** What was typed into text fields, the last of each, a line a field; no passwords.
   * @param {Object<string, any>[]} events those that have not been sent @returns {string} */
  textsOf(events) {
    /** @type {Record<string, any>} */
    const values = Object.assign({}, ...events.map(event => event.v ?? {}), this.fields.collect() ?? {});
    return Object.entries(values).map(([id, value]) => {
      const field = this.dom.find(Number(id.slice(1)));
      if (!field || typeof value !== 'string' || !value || field.type === 'password') return '';
      const label = field.getAttribute('aria-label') || field.labels?.[0]?.textContent || field.title;
      return label ? `${label}: ${value}` : value;
    }).filter(text => text).join('\n');
  }

  hasNewValues() {
    return this.fields.touched.size > 0;
  }

  /** @param {boolean} online */
  connectionChanged(online) {
    document.documentElement.classList.toggle('Wt-offline', !online);
    if (online) this.sendPostponed();
  }

  /**
   * Sends an event; the focus, and what is selected there, travels with it.
   * @param {Object<string, any>} event @param {string} [key]
   */
  send(event, key) {
    const focused = document.activeElement;
    event.f = this.dom.idOf(focused);
    const selection = selectionIn(focused);
    if (selection) event.s = selection;
    this.transport.sendEvent(event, key);
  }

  /**
   * Sends what make() gives now or, while an older event with the key is under way, what it gives then.
   * @param {string} key @param {() => Object<string, any>|null} make null: not of interest any more
   */
  sendLatest(key, make) {
    if (!this.transport.keys.has(key)) {
      this.postponed.delete(key); // older than this one
      const event = make();
      if (event) this.send(event, key);
      return;
    }
    if (this.postponed.size === 0) setTimeout(() => this.sendPostponed(), RETRY_MS);
    this.postponed.set(key, make);
  }

  sendPostponed() {
    if (this.postponed.size === 0) return;
    const waiting = this.postponed;
    this.postponed = new Map();
    for (const [key, make] of waiting) this.sendLatest(key, make);
  }

  /** What is not visible can't have the focus: waits for the style sheets. @param {() => void} act */
  whenVisible(act) {
    if (this.stylesAwaited > 0) this.visibleActions.push(act);
    else act();
  }

  /** @param {number} id 0: nothing */
  setFocus(id) {
    const element = this.dom.find(id);
    if (element) element.focus();
    else if (id === 0 && document.activeElement instanceof HTMLElement) document.activeElement.blur();
  }

  /** @returns {Object<string, (...args: any[]) => void>} */
  operationHandlers() {
    const dom = this.dom;
    return {
      c: (parent, before, ...specs) => dom.create(parent, before, specs),
      u: (id, groups) => dom.update(id, groups),
      x: (id, spec) => dom.replace(id, spec),
      r: id => dom.remove(id),
      m: (id, parent, before) => dom.move(id, parent, before),
      call: (id, method, args) => dom.call(id, method, args),
      focus: id => { this.focusWanted = id; },
      timer: (run, ms, once) => this.startTimer(run, ms, once),
      stop: run => this.stopTimer(run),
      title: text => { document.title = text; },
      lang: name => { document.documentElement.lang = name; },
      html: name => { document.documentElement.className = name; },
      css: url => this.linkStyles(url),
      nocss: url => this.unlinkStyles(url),
      confirm: text => { this.confirmText = text; },
      path: path => showPath(path),
      go: url => this.leaveFor(url),
      over: text => { document.title = text; },
      renew: () => this.transport.renew(),
    };
  }

  /** The session sends the browser elsewhere: what comes there is none of it. @param {string} url */
  leaveFor(url) {
    this.confirmText = '';
    this.transport.forget();
    location.assign(url);
  }

  /** @param {number} run @param {number} ms @param {number} once */
  startTimer(run, ms, once) {
    this.stopTimer(run);
    const fire = () => {
      if (once) this.timers.delete(run);
      this.send({ t: run, k: 'timer' }, `timer:${run}`);
    };
    const period = Math.min(ms, LONGEST_TIMER_MS);
    const handle = once ? setTimeout(fire, period) : setInterval(fire, Math.max(period, 10));
    this.timers.set(run, { stop: () => (once ? clearTimeout(handle) : clearInterval(handle)) });
  }

  /** @param {number} run */
  stopTimer(run) {
    this.timers.get(run)?.stop();
    this.timers.delete(run);
  }

  /** @param {string} url */
  linkStyles(url) {
    if (this.linkOf(url)) return;
    const link = document.createElement('link');
    link.rel = 'stylesheet';
    link.href = url;
    let waiting = true;
    const arrived = () => {
      if (!waiting) return;
      waiting = false;
      if (--this.stylesAwaited > 0) return;
      this.dom.root.classList.remove('Wt-waiting');
      for (const act of this.visibleActions.splice(0)) act();
    };
    this.stylesAwaited++;
    this.dom.root.classList.add('Wt-waiting');
    link.onload = arrived;
    link.onerror = arrived;
    setTimeout(arrived, STYLE_WAIT_MS);
    document.head.append(link);
  }

  /** @param {string} url */
  unlinkStyles(url) {
    this.linkOf(url)?.remove();
  }

  /** @param {string} url @returns {HTMLLinkElement|undefined} */
  linkOf(url) {
    const wanted = new URL(url, location.href).href;
    return [...document.head.querySelectorAll('link')].find(link => link.href === wanted);
  }
}
