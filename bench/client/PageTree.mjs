// What a browser would have of a page: its elements, as the operations made them, without behaviours.

/** @typedef {{id: number, parent: Element, spec: any, children: Element[]}} Element */

export class PageTree {
  constructor() {
    /** @type {Element} */
    this.root = { id: 0, parent: null, spec: {}, children: [] };
    /** @type {Map<number, Element>} */
    this.elements = new Map([[0, this.root]]);
    /** @type {Map<number, number>} run -> interval in ms */
    this.timers = new Map();
  }

  /** @param {any[][]} operations */
  apply(operations) {
    for (const [name, ...rest] of operations) {
      if (name === 'c') this.create(...rest);
      else if (name === 'u') merge(this.elements.get(rest[0]).spec, rest[1]);
      else if (name === 'x') this.replace(...rest);
      else if (name === 'r') this.remove(rest[0]);
      else if (name === 'm') this.move(...rest);
      else if (name === 'timer') this.timers.set(rest[0], rest[1]);
      else if (name === 'stop') this.timers.delete(rest[0]);
    }
  }

  create(parentId, beforeId, ...specs) {
    const parent = this.elements.get(parentId);
    const at = parent.children.findIndex(child => child.id === beforeId);
    parent.children.splice(at < 0 ? parent.children.length : at, 0, ...specs.map(spec => this.make(spec, parent)));
  }

  make(spec, parent) {
    const element = { id: spec.i, parent, spec, children: [] };
    this.elements.set(spec.i, element);
    element.children = (spec.c ?? []).map(child => this.make(child, element));
    return element;
  }

  replace(id, spec) {
    const { parent } = this.elements.get(id);
    const at = parent.children.findIndex(child => child.id === id);
    this.forget(parent.children[at]);
    parent.children[at] = this.make(spec, parent);
  }

  remove(id) {
    const element = this.elements.get(id);
    element.parent.children = element.parent.children.filter(child => child !== element);
    this.forget(element);
  }

  forget(element) {
    this.elements.delete(element.id);
    element.children.forEach(child => this.forget(child));
  }

  move(id, parentId, beforeId) {
    const element = this.elements.get(id);
    element.parent.children = element.parent.children.filter(child => child !== element);
    element.parent = this.elements.get(parentId);
    const at = element.parent.children.findIndex(child => child.id === beforeId);
    element.parent.children.splice(at < 0 ? element.parent.children.length : at, 0, element);
  }

  /** The first element in page order that fits. @param {(element: Element) => boolean} fits */
  find(fits, from = this.root) {
    for (const child of from.children) {
      const found = fits(child) ? child : this.find(fits, child);
      if (found) return found;
    }
    return undefined;
  }

  /** By the attribute `id`. @returns {number} the element's number */
  byId(id) {
    return this.need(`id ${id}`, element => element.spec.a?.id === id);
  }

  /** By tag (or role) and text. @returns {number} */
  byText(tag, text) {
    return this.need(`${tag} ${text}`, element =>
      (element.spec.t === tag || element.spec.a?.role === tag) && textOf(element).trim() === text);
  }

  /** @returns {number} */
  need(what, fits) {
    const found = this.find(fits);
    if (!found) throw new Error('the page has no ' + what);
    return found.id;
  }
}

/** Fixed contents in front, then the children's. */
export function textOf(element) {
  const own = element.spec.x ?? (element.spec.n ?? []).map(nodeText).join('');
  return own + element.children.map(textOf).join('');
}

function nodeText(node) {
  return typeof node === 'string' ? node : node.slice(2).map(nodeText).join('');
}

function merge(spec, groups) {
  for (const [name, value] of Object.entries(groups)) {
    if (value === null || typeof value !== 'object' || Array.isArray(value)) spec[name] = value;
    else spec[name] = { ...spec[name], ...value };
  }
}
