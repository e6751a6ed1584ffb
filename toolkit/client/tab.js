// What a tab remembers of its session, so that a page that is loaded anew (a reload, a tab that crashed) goes on
// with it. The browser copies this into a tab that is duplicated: a lock tells whose session it is.

const CLAIM_MS = 1000; // the page before this one gives its lock back while it goes

/** @typedef {{token: string, session: string, page: number}} Remembered `page`: how often it has been loaded */

export class Tab {
  /** @param {string} base path of the server's addresses */
  constructor(base) {
    this.key = `wt-session:${base}`;
    /** @type {Remembered|null} */
    this.kept = null;
  }

  /** The session of the page before, if this tab may go on with it. @returns {Promise<Remembered|null>} */
  async recall() {
    const former = this.read();
    if (!former || !navigator.locks) return null;
    const mine = await this.claim(former.session);
    if (!mine) return null;
    this.keep({ ...former, page: former.page + 1 });
    return this.kept;
  }

  /** @param {Remembered} session */
  keep(session) {
    this.kept = session;
    try {
      sessionStorage.setItem(this.key, JSON.stringify(session));
    } catch {
      // the browser keeps nothing for this site: a reload begins anew
    }
  }

  forget() {
    if (!this.kept) return;
    this.kept = null;
    try {
      sessionStorage.removeItem(this.key);
    } catch {
      // nothing was kept
    }
  }

  /** @returns {Remembered|null} */
  read() {
    try {
      const { token, session, page } = JSON.parse(sessionStorage.getItem(this.key) ?? '{}');
      return token && session && page > 0 ? { token, session, page } : null;
    } catch {
      return null;
    }
  }

  /** Holds the session for this page as long as it lives. @param {string} session
   * @returns {Promise<boolean>} false: another tab has it */
  claim(session) {
    return new Promise(resolve => {
      const held = () => {
        resolve(true);
        return new Promise(() => {});
      };
      const options = { signal: AbortSignal.timeout(CLAIM_MS) };
      navigator.locks?.request(`wt-session:${session}`, options, held).catch(() => resolve(false));
    });
  }
}
