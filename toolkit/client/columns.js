// The header of a table: names, sorting, widths. Widths reach the cells as style properties of the table's element,
// so that dragging a column costs one assignment a move.

const PADDING = 7; // of a cell, with its border; CSS pixels
const KEY_STEP = 10; // of a column's width, by keyboard; CSS pixels
const MIN_WIDTH = 8;
const SORT_NAMES = [null, 'none', 'ascending', 'descending'];
/** @type {Record<string, string>} */
const ALIGN = { l: 'left', r: 'right', c: 'center' };

/**
 * @typedef {{id: number, width: number, text: string, align: string, sort: number, tip: string,
 *   headAlign: string}} Column
 */

/** @param {string} role @param {string} className @param {Element} [parent] */
export function box(role, className, parent) {
  const element = document.createElement('div');
  if (role) element.setAttribute('role', role);
  element.className = className;
  if (parent) parent.append(element);
  return element;
}

/** @param {MouseEvent|KeyboardEvent} event */
export function modifiers(event) {
  return (event.shiftKey ? 1 : 0) | (event.ctrlKey ? 2 : 0) | (event.altKey ? 4 : 0) | (event.metaKey ? 8 : 0);
}

export class Columns {
  /**
   * @param {HTMLElement} root the table's element
   * @param {(column: Column, event: MouseEvent|KeyboardEvent) => void} used a header was clicked
   * @param {(column: Column) => void} resized the user changed a width
   * @param {() => boolean} disabled
   */
  constructor(root, used, resized, disabled) {
    this.root = root;
    this.used = used;
    this.resized = resized;
    this.disabled = disabled;
    this.head = box('rowgroup', 'Wt-tv-head', root);
    this.row = box('row', 'Wt-tv-headrow', this.head);
    this.row.setAttribute('aria-rowindex', '1');
    /** @type {Column[]} */
    this.list = [];
    /** @type {HTMLElement[]} */
    this.headers = [];
    this.resizable = false;
    this.height = 0;
  }

  /** @param {number} height CSS pixels; 0 hides it @param {boolean} resizable */
  setLook(height, resizable) {
    this.height = Math.max(0, height);
    this.resizable = resizable;
    this.head.style.height = `${this.height}px`;
    this.head.hidden = this.height === 0;
    this.list.forEach((column, place) => this.draw(column, place));
  }

  /** @param {any[][]} list @returns {boolean} the columns are others than before, so the cells are too */
  set(list) {
    const before = this.list;
    this.list = list.map(([id, width, text, align, sort, tip, headAlign]) => ({
      id,
      width,
      text,
      align,
      sort,
      tip,
      headAlign,
    }));
    const same =
      before.length === list.length &&
      before.every((column, i) => column.id === this.list[i].id && column.align === this.list[i].align);
    if (!same) {
      this.headers = this.list.map((_column, place) => this.make(place));
      this.row.replaceChildren(...this.headers);
      this.root.setAttribute('aria-colcount', String(list.length));
    }
    this.list.forEach((column, place) => this.draw(column, place));
    this.drawWidths();
    return !same;
  }

  /** @param {HTMLElement} cell @param {number} place */
  styleCell(cell, place) {
    cell.style.width = `var(--wt-col-${place})`;
    cell.setAttribute('aria-colindex', String(place + 1));
    if (this.list[place].align !== 'l') cell.style.textAlign = ALIGN[this.list[place].align];
  }

  drawWidths() {
    let all = 0;
    this.list.forEach((column, place) => {
      this.root.style.setProperty(`--wt-col-${place}`, `${column.width}px`);
      all += column.width + PADDING;
    });
    this.root.style.setProperty('--wt-width', `${all}px`);
  }

  /** @param {number} place */
  make(place) {
    const header = box('columnheader', 'Wt-tv-th');
    header.setAttribute('aria-colindex', String(place + 1));
    header.style.width = `var(--wt-col-${place})`;
    box('', 'Wt-tv-label', header);
    const handle = box('presentation', 'Wt-tv-resize', header);
    handle.addEventListener('pointerdown', event => this.drag(place, handle, event));
    handle.addEventListener('click', event => event.stopPropagation());
    header.addEventListener('click', event => {
      if (!this.disabled()) this.used(this.list[place], event);
    });
    header.addEventListener('keydown', event => this.key(place, event));
    return header;
  }

  /** @param {Column} column @param {number} place */
  draw(column, place) {
    const header = this.headers[place];
    const label = /** @type {HTMLElement} */ (header.firstChild);
    if (label.textContent !== column.text) label.textContent = column.text;
    label.title = column.tip || column.text;
    header.style.textAlign = ALIGN[column.headAlign];
    const sort = SORT_NAMES[column.sort];
    if (sort) header.setAttribute('aria-sort', sort);
    else header.removeAttribute('aria-sort');
    header.classList.toggle('Wt-tv-sort-asc', column.sort === 2);
    header.classList.toggle('Wt-tv-sort-desc', column.sort === 3);
    header.classList.toggle('Wt-tv-sortable', column.sort > 0);
    header.classList.toggle('Wt-tv-resizable', this.resizable);
    header.tabIndex = column.sort > 0 || this.resizable ? 0 : -1;
  }

  /** @param {number} place @param {KeyboardEvent} event */
  key(place, event) {
    if (this.disabled()) return;
    const step = event.key === 'ArrowLeft' ? -1 : event.key === 'ArrowRight' ? 1 : 0;
    if (event.key === 'Enter' || event.key === ' ') {
      this.used(this.list[place], event);
    } else if (step && event.shiftKey && this.resizable) {
      this.setWidth(place, this.list[place].width + step * KEY_STEP);
      this.resized(this.list[place]);
    } else if (step) {
      this.headers[place + step]?.focus();
    } else if (event.key === 'ArrowDown') {
      this.root.focus();
    } else {
      return;
    }
    event.preventDefault();
    event.stopPropagation();
  }

  /** @param {number} place @param {number} width */
  setWidth(place, width) {
    if (!this.list[place]) return; // the columns have changed under the pointer
    this.list[place].width = Math.max(MIN_WIDTH, Math.round(width));
    this.drawWidths();
  }

  /** @param {number} place @param {HTMLElement} handle @param {PointerEvent} event */
  drag(place, handle, event) {
    if (!this.resizable || this.disabled() || event.button !== 0) return;
    event.preventDefault();
    const startX = event.clientX;
    const startWidth = this.list[place].width;
    handle.setPointerCapture(event.pointerId);
    const done = new AbortController();
    const listen = (/** @type {string} */ name, /** @type {(e: any) => void} */ handler) =>
      handle.addEventListener(name, handler, { signal: done.signal });
    listen('pointermove', move => this.setWidth(place, startWidth + move.clientX - startX));
    listen('pointerup', () => {
      done.abort();
      if (this.list[place] && this.list[place].width !== startWidth) this.resized(this.list[place]);
    });
    listen('pointercancel', () => {
      done.abort();
      this.setWidth(place, startWidth);
    });
  }
}
