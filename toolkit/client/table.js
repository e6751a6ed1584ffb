// A table of a model: draws the rows near the viewport, and reports what the user does. The server keeps the model,
// the selection and the order; src/views/TableShown.h tells the messages.

import { Columns, box, modifiers } from './columns.js';

const RETRY_MS = 150; // until rows that are missing are asked for again; twice as long each time
const MAX_RETRY_MS = 5000;
const KEYS = new Set(['ArrowUp', 'ArrowDown', 'PageUp', 'PageDown', 'Home', 'End', ' ', 'Enter']);
const CHECKS = ['\u2610', '\u25A3', '\u2611'];
const ACTIONS = [
  ['click', 'click'],
  ['dblclick', 'dbl'],
  ['mousedown', 'down'],
  ['mouseup', 'up'],
];
/** @type {Record<string, number>} */
const WANTED = { down: 1, up: 2, dbl: 4 }; // bits of "listens"

/**
 * @typedef {string | {t: string, c?: string, tip?: string, i?: string, h?: string, k?: number}} Cell
 * @typedef {{element: HTMLElement, cells: HTMLElement[]}} Row
 */

export class Table {
  /**
   * @param {HTMLElement} root the element that the server describes; it scrolls, and has the focus
   * @param {unknown} _config not used
   * @param {(event: object, key?: string) => void} send reports an event of kind "table"; of one key, one at a time
   */
  constructor(root, _config, send) {
    this.root = root;
    this.send = send;
    this.columns = new Columns(
      root,
      (column, event) => this.send({ a: 'header', c: column.id, ...this.where(event) }),
      column => this.send({ a: 'width', c: column.id, w: column.width }),
      () => this.disabled,
    );
    this.space = box('rowgroup', 'Wt-tv-space', root);
    /** @type {Map<number, Row>} */
    this.rows = new Map();
    this.total = 0;
    this.first = 0;
    this.last = -1;
    this.rowHeight = 20;
    this.listens = 0;
    this.serial = 0;
    this.top = 0;
    this.asked = { first: -1, page: -1, at: 0, wait: RETRY_MS };
    this.retry = 0;
    this.drawing = 0;

    this.done = new AbortController();
    const options = { signal: this.done.signal };
    root.addEventListener('scroll', () => this.scrolled(), { passive: true, ...options });
    root.addEventListener('keydown', event => this.key(event), options);
    for (const [name, action] of ACTIONS)
      this.space.addEventListener(name, event => this.mouse(action, /** @type {MouseEvent} */ (event)));
    this.space.addEventListener('pointerover', event => this.showFullText(event));
    this.sizes = new ResizeObserver(() => this.resized());
    this.sizes.observe(root);
  }

  destroy() {
    this.done.abort();
    this.sizes.disconnect();
    clearTimeout(this.retry);
    cancelAnimationFrame(this.drawing);
  }

  get disabled() {
    return this.root.getAttribute('aria-disabled') === 'true';
  }

  /** Room for rows, CSS pixels. */
  get room() {
    return this.root.clientHeight - this.columns.height;
  }

  // ---- from the server

  /** @param {any} message */
  update(message) {
    if (message.look) this.setLook(message.look);
    if (message.cols && this.columns.set(message.cols)) this.dropRows(() => true);
    if (message.shift) this.shift(message.shift);
    if (message.rows) this.setRows(message.rows);
    for (const [row, marks, cells] of message.put || []) this.putRow(row, marks, cells);
    for (const [row, place, cell] of message.cell || []) {
      const known = this.rows.get(row);
      if (known) this.fill(known.cells[place], cell);
    }
    for (const [row, marks] of message.mark || []) this.mark(row, marks);
    this.serial = message.n;
    this.markCurrent();
    this.askSoon();
  }

  /** Brings a row into view. @param {number} row @param {number} hint WAbstractItemView::ScrollHint */
  scroll(row, hint) {
    const top = row * this.rowHeight;
    const bottom = top + this.rowHeight - this.room;
    const near = Math.max(Math.min(this.root.scrollTop, top), bottom);
    this.root.scrollTop = [near, top, bottom, (top + bottom) / 2][hint] ?? top;
    this.askSoon();
  }

  /** @param {number[]} look */
  setLook([rowHeight, headerHeight, resizable, alternating, listens]) {
    this.rowHeight = Math.max(1, rowHeight);
    this.listens = listens;
    this.columns.setLook(headerHeight, resizable === 1);
    this.root.style.setProperty('--wt-row-height', `${this.rowHeight}px`);
    this.space.classList.toggle('Wt-tv-alternating', alternating === 1);
    for (const [row, { element }] of this.rows) element.style.top = `${row * this.rowHeight}px`;
    this.space.style.height = `${this.total * this.rowHeight}px`;
  }

  /** @param {number[]} rows */
  setRows([total, first, last]) {
    if (total !== this.total) {
      this.total = total;
      this.root.setAttribute('aria-rowcount', String(total + 1));
      this.space.style.height = `${total * this.rowHeight}px`;
    }
    this.first = first;
    this.last = last;
    this.dropRows(row => row < first || row > last);
  }

  /** @param {(row: number) => boolean} which */
  dropRows(which) {
    for (const [row, { element }] of this.rows) {
      if (!which(row)) continue;
      element.remove();
      this.rows.delete(row);
    }
  }

  /** Rows came or went: those from `at` on have other numbers now. @param {number[]} shift */
  shift([at, by]) {
    const below = [...this.rows].filter(([row]) => row >= at);
    for (const [row] of below) this.rows.delete(row);
    for (const [row, known] of below) {
      if (row + by < at) {
        known.element.remove();
        continue;
      }
      this.rows.set(row + by, known);
      this.number(known.element, row + by);
    }
  }

  /** @param {HTMLElement} element of a row @param {number} row */
  number(element, row) {
    element.id = `${this.root.id}-r${row}`;
    element.style.top = `${row * this.rowHeight}px`;
    element.setAttribute('aria-rowindex', String(row + 2));
    element.classList.toggle('Wt-odd', row % 2 === 1);
  }

  /** @param {number} row @param {number} marks @param {Cell[]} cells */
  putRow(row, marks, cells) {
    const element = box('row', 'Wt-tv-row');
    this.number(element, row);
    const made = cells.map((cell, place) => {
      const drawn = box('gridcell', '', element);
      this.columns.styleCell(drawn, place);
      this.fill(drawn, cell);
      return drawn;
    });
    this.rows.get(row)?.element.remove();
    let next = null; // readers take the rows in page order
    for (let after = row + 1; after <= this.last && !next; ++after) next = this.rows.get(after)?.element ?? null;
    this.space.insertBefore(element, next);
    this.rows.set(row, { element, cells: made });
    this.mark(row, marks);
  }

  /** @param {HTMLElement} element @param {Cell} cell */
  fill(element, cell) {
    element.className = 'Wt-tv-cell';
    element.removeAttribute('title');
    if (typeof cell === 'string') {
      element.textContent = cell;
      return;
    }
    element.replaceChildren();
    if (cell.c) element.className += ` ${cell.c}`;
    if (cell.tip) element.title = cell.tip;
    if (cell.k !== undefined) element.append(`${CHECKS[cell.k] ?? ''} `);
    if (cell.i) {
      const icon = document.createElement('img');
      icon.src = cell.i;
      icon.alt = '';
      icon.className = 'Wt-icon';
      element.append(icon);
    }
    if (cell.h) {
      const link = document.createElement('a');
      link.href = cell.h;
      link.textContent = cell.t;
      element.append(link);
    } else {
      element.append(cell.t);
    }
  }

  /** @param {number} row @param {number} marks 1 selected, 2 the keyboard stands here */
  mark(row, marks) {
    const known = this.rows.get(row);
    if (!known) return;
    known.element.setAttribute('aria-selected', marks & 1 ? 'true' : 'false');
    known.element.classList.toggle('Wt-selected', (marks & 1) !== 0);
    known.element.classList.toggle('Wt-current', (marks & 2) !== 0);
  }

  markCurrent() {
    const current = this.space.querySelector(':scope > .Wt-current');
    if (current) this.root.setAttribute('aria-activedescendant', current.id);
    else this.root.removeAttribute('aria-activedescendant');
  }

  // ---- rows that are missing

  scrolled() {
    this.top = this.root.scrollTop;
    this.askSoon();
  }

  resized() {
    // A browser may forget the position of an element that was not displayed.
    if (this.room > 0 && this.top && !this.root.scrollTop) this.root.scrollTop = this.top;
    this.askSoon();
  }

  askSoon() {
    if (this.drawing) return;
    this.drawing = requestAnimationFrame(() => {
      this.drawing = 0;
      this.ask();
    });
  }

  ask() {
    clearTimeout(this.retry);
    if (this.room <= 0) return;
    const first = Math.min(Math.floor(this.root.scrollTop / this.rowHeight), Math.max(0, this.total - 1));
    const page = Math.ceil(this.room / this.rowHeight) + 1;
    const margin = Math.floor(page / 4);
    const short =
      (first - margin < this.first && this.first > 0) ||
      (first + page + margin > this.last + 1 && this.last + 1 < this.total);
    if (!short && page === this.asked.page) return;
    const now = performance.now();
    const again = this.asked.first === first && this.asked.page === page;
    const wait = again ? this.asked.wait : RETRY_MS;
    if (!again || now - this.asked.at >= wait) {
      this.asked = { first, page, at: now, wait: again ? Math.min(2 * wait, MAX_RETRY_MS) : wait };
      this.send({ k: 'range', first, page }, 'range');
    }
    if (short) this.retry = window.setTimeout(() => this.ask(), this.asked.wait);
  }

  // ---- the user

  /** @param {Event} event @returns {{row: number, place: number}|null} */
  hit(event) {
    const cell = /** @type {Element} */ (event.target).closest('.Wt-tv-cell');
    const element = cell?.parentElement;
    if (!cell || !element) return null;
    return { row: Number(element.getAttribute('aria-rowindex')) - 2, place: [...element.children].indexOf(cell) };
  }

  /** @param {string} action @param {MouseEvent} event */
  mouse(action, event) {
    if (this.disabled) return;
    if (action === 'down' && event.shiftKey) event.preventDefault(); // extends rows, not the text selection
    const bit = WANTED[action];
    if (bit && !(this.listens & bit)) return;
    const at = this.hit(event);
    if (!at) return;
    const column = this.columns.list[at.place].id;
    this.send({ a: action, r: at.row, c: column, n: this.serial, ...this.where(event) });
  }

  /** @param {MouseEvent|KeyboardEvent} event */
  where(event) {
    if (!(event instanceof MouseEvent)) return { m: modifiers(event) };
    const frame = this.root.getBoundingClientRect();
    /** @type {Record<string, number>} */
    const places = {
      x: event.clientX,
      y: event.clientY,
      dx: event.pageX,
      dy: event.pageY,
      sx: event.screenX,
      sy: event.screenY,
      wx: event.clientX - frame.left,
      wy: event.clientY - frame.top,
    };
    for (const name of Object.keys(places)) places[name] = Math.round(places[name]);
    return { b: event.button, m: modifiers(event), ...places };
  }

  /** @param {KeyboardEvent} event */
  key(event) {
    if (event.target !== this.root || this.disabled || event.altKey) return;
    const all = (event.ctrlKey || event.metaKey) && event.key.toLowerCase() === 'a';
    if (!KEYS.has(event.key) && !all) return;
    event.preventDefault();
    event.stopPropagation();
    this.send({ a: 'key', key: all ? 'a' : event.key, m: modifiers(event) });
  }

  /** @param {PointerEvent} event */
  showFullText(event) {
    const cell = /** @type {HTMLElement|null} */ (/** @type {Element} */ (event.target).closest('.Wt-tv-cell'));
    if (cell && !cell.title && cell.scrollWidth > cell.clientWidth) cell.title = cell.textContent ?? '';
  }
}
