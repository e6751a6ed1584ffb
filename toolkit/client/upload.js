// A field to choose a file with, and its transfer. The server learns the progress four times a second.

const PROGRESS_MS = 250;
const NAMES = ['aria-label', 'aria-labelledby'];

export class Upload {
  /**
   * @param {HTMLElement} root
   * @param {{accept?: string}} config
   * @param {(event: object, key?: string) => void} send
   */
  constructor(root, config, send) {
    this.send_ = send;
    this.input = document.createElement('input');
    this.input.type = 'file';
    this.input.accept = config?.accept ?? '';
    this.input.addEventListener('change', () => {
      if (this.input.files?.length) this.send_({ a: 'changed' });
    });
    root.prepend(this.input);
    // What the widget says about itself holds for the field in it; without a word it is a file at least.
    const follow = () => {
      this.input.disabled = root.getAttribute('aria-disabled') === 'true';
      for (const name of NAMES) this.input.setAttribute(name, root.getAttribute(name) ?? '');
      if (!NAMES.some(name => root.hasAttribute(name))) this.input.setAttribute('aria-label', root.title || 'File');
    };
    this.watch = new MutationObserver(follow);
    this.watch.observe(root, { attributes: true, attributeFilter: ['aria-disabled', 'title', ...NAMES] });
    follow();
    /** @type {XMLHttpRequest|null} */
    this.request = null;
    this.told = 0;
  }

  destroy() {
    this.watch.disconnect();
    this.request?.abort();
  }

  /** @param {string} url */
  send(url) {
    const file = this.input.files?.[0];
    if (!file) return this.send_({ a: 'none' });
    const form = new FormData();
    form.append('data', file, file.name);
    this.request?.abort(); // one that the server has refused may still be sending
    const request = new XMLHttpRequest();
    this.request = request;
    request.upload.addEventListener('progress', event => {
      const now = performance.now();
      if (now - this.told < PROGRESS_MS && event.loaded < event.total) return;
      this.told = now;
      this.send_({ a: 'progress', sent: event.loaded, all: event.total }, 'progress');
    });
    const ended = () => {
      if (this.request !== request) return;
      this.request = null;
      // 413 is told by the server itself.
      if (request.status !== 200 && request.status !== 413) this.send_({ a: 'failed' });
    };
    request.addEventListener('load', ended);
    request.addEventListener('error', ended);
    request.open('POST', url);
    request.send(form);
  }
}
