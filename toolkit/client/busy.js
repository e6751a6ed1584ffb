// Says that the session is still at what the user did last, when that takes long enough to be noticed.

const LOOK_MS = 300;
const AGAIN_MS = 500;
const LONG_MS = 1500;
/** Nobody waits for what comes of these. */
const QUIET = new Set([
  'timer', 'size', 'resized', 'scroll', 'range', 'values', 'focus', 'blur',
  'mousemove', 'mouseover', 'mouseout', 'wheel',
]);

export class Busy {
  /** @param {() => void} ask has the server answer how long the session has been at work */
  constructor(ask) {
    this.ask = ask;
    this.timer = 0;
    this.sign = document.createElement('div');
    this.sign.className = 'wt-busy';
    this.sign.setAttribute('role', 'status');
    this.sign.hidden = true;
    document.body.append(this.sign);
  }

  /** The user did something. @param {string} kind */
  began(kind) {
    if (!QUIET.has(kind) && !this.timer) this.askIn(LOOK_MS);
  }

  /** The page has changed: whatever was waited for is there, or on its way. */
  changed() {
    clearTimeout(this.timer);
    this.timer = 0;
    this.show('');
  }

  /** @param {number} ms that the session has been at work; 0: it waits for the user */
  answered(ms) {
    if (ms === 0 && this.timer && this.sign.hidden) return; // asked too early to tell
    clearTimeout(this.timer);
    this.timer = 0;
    this.show(ms === 0 ? '' : ms < LONG_MS ? 'Working…' : 'Waiting for the Switch');
    if (ms > 0) this.askIn(AGAIN_MS);
  }

  /** @param {number} ms */
  askIn(ms) {
    this.timer = window.setTimeout(() => {
      this.timer = 0;
      this.ask();
    }, ms);
  }

  /** @param {string} text */
  show(text) {
    if (this.sign.textContent !== text) this.sign.textContent = text;
    this.sign.hidden = !text;
    document.documentElement.classList.toggle('Wt-busy', text !== '');
  }
}
