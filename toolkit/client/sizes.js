// Sizes that the layout gave, told when they have changed.

export class Sizes {
    /** @param {import('./page.js').Page} page */
    constructor(page) {
        this.page = page;
        /** @type {Map<Element, string>} as last told */
        this.told = new Map();
        this.observer = new ResizeObserver(entries => {
            for (const entry of entries) this.tell(/** @type {HTMLElement} */ (entry.target));
        });
    }

    observe(element) {
        if (this.told.has(element)) return;
        this.told.set(element, '');
        this.observer.observe(element, { box: 'border-box' });
    }

    forget(element) {
        if (this.told.delete(element)) this.observer.unobserve(element);
    }

    /** What is hidden has no size to tell. @param {HTMLElement} element */
    tell(element) {
        const id = this.page.dom.meta(element)?.id;
        if (!id) return;
        this.page.sendLatest(`size:${id}`, () => {
            const [w, h] = [element.offsetWidth, element.offsetHeight];
            const now = `${w}x${h}`;
            if (!this.told.has(element) || !element.getClientRects().length || this.told.get(element) === now)
                return null;
            this.told.set(element, now);
            return { t: id, k: 'size', w, h };
        });
    }
}
