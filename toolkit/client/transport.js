// The road between the page and its session: start, WebSocket with reconnects, plain HTTP where WebSocket is not to be
// had, numbering and acknowledgement. docs/page-protocol.md describes the messages.

import { shownPath } from './address.js';
import { Busy } from './busy.js';
import { Notice } from './notice.js';
import { Tab } from './tab.js';

/**
 * @typedef {{applyOperations(list: any[]): void, collectValues(): (Object<string, any> | null),
 *   hasNewValues?(): boolean,
 *   textsOf?(events: Object<string, any>[]): string, connectionChanged?(online: boolean): void}} PageLike
 * @typedef {{n: number, e: Object<string, any>[]}} Message
 */

const HEARTBEAT_MS = 1000; // a visible page shows within 3 s that the server does not answer
const HIDDEN_HEARTBEAT_MS = 10000;
const ANSWER_MS = 1900;
const CONNECT_MS = 6000; // a WebSocket that is not open by then is given up; the browser itself would wait for minutes
const QUICK_CONNECT_MS = 1200; // where connections have been quick: a lost packet costs a second
const PATIENT_CONNECT_MS = 4000; // every sixth attempt: the road may have become a slow one
const FIRST_RETRY_MS = 500;
const EARLY_RETRY_MS = 1000; // no longer pause while the loss is young
const EARLY_MS = 120000;
const LONGEST_RETRY_MS = 15000;
const POLL_LIMIT_MS = 30000;
const SOCKET_FAILURES_BEFORE_POLL = 2;
const SOCKET_RETRY_MS = 60000; // while polling
const MAX_WAITING_EVENTS = 1000;
const MAX_MESSAGE_BYTES = 60000; // the server refuses 65536
const MAX_LIST = 400; // events of a message, messages of a list; the server refuses 501
const SLOWEST_BYTES_PER_MS = 8; // a large message of the server's is waited for accordingly
const LONGEST_WAIT_MS = 30000;
/** Closed with: not to be understood, too large. */
const REFUSED = new Set([1007, 1009]);
const END_GRACE_MS = 2000; // a redirect may be under way

/** What the box says when the session does not exist any more. */
const GONE_TEXT = new Map([
  ['expired', 'The session has expired.'],
  ['stopping', 'The server is stopping.'],
  ['overload', 'The session was ended because the connection could not keep up.'],
  ['displaced', 'The page was not in use, and its place was needed.'],
  ['failed', 'The session was ended by an error.'],
]);

export class Transport {
  constructor() {
    /** @type {boolean | undefined} undefined: there has been no connection yet */
    this.online = undefined;
    this.base = new URL('../../', import.meta.url).pathname; // ends in "/"
    this.notice = new Notice();
    this.busy = new Busy(() => { if (this.isOpen()) this.sendToSocket({ ack: this.applied }); });
    this.tab = new Tab(this.base);
    this.loads = 1; // of the page with this token
    /** @type {PageLike} given before start() */
    this.page = /** @type {any} */ (undefined);
    this.token = '';
    this.applied = 0; // highest server number
    this.numbered = 0; // highest of ours
    /** @type {Message[]} */
    this.unacknowledged = [];
    /** @type {Object<string, any>[]} */
    this.collected = []; // events of this task
    this.keys = new Map(); // key -> number of the message that carries it; 0: not sent yet
    /** @type {string[]} */
    this.collectedKeys = [];
    this.ended = false;
    /** @type {WebSocket|null} */
    this.socket = null;
    this.socketFailures = 0;
    this.polling = false;
    this.pollRound = 0;
    /** @type {AbortController|null} */
    this.pollAbort = null;
    this.oneByOne = false; // one of our messages was refused: which one shows when each goes alone
    this.sentAlone = 0;
    this.note = ''; // to be shown when the connection is back
    this.lostAt = 0; // when the connection was lost; 0: it stands
    this.attempts = 0; // since then
    this.connectMs = 0; // how long the last connection took to open; 0: there was none
    this.retryMs = FIRST_RETRY_MS;
    this.retryTimer = 0;
    /** @type {() => void} what the timer does */
    this.retry = () => {};
    this.socketTimer = 0; // tries WebSocket again while polling
    this.heartbeatTimer = 0;
    this.answerTimer = 0;
    this.connectTimer = 0;
  }

  /** @param {PageLike} page */
  async start(page) {
    this.page = page;
    addEventListener('pagehide', () => this.sayBye());
    addEventListener('pageshow', event => { if (event.persisted) location.reload(); });
    addEventListener('online', () => this.lookAgain());
    addEventListener('offline', () => this.connectionLost());
    document.addEventListener('visibilitychange', () => {
      if (document.visibilityState === 'visible') this.lookAgain();
    });
    const former = await this.tab.recall();
    if (former) this.goOn(former);
    else await this.openSession();
  }

  /** @param {import('./tab.js').Remembered} former session of the page before this one */
  goOn(former) {
    this.token = former.token;
    this.loads = former.page;
    this.openSocket();
  }

  /** A page that comes after this one begins anew. */
  forget() {
    this.tab.forget();
  }

  /**
   * Queues an event of the page; events of one task travel together.
   * @param {Object<string, any>} event
   * @param {string} [key] while an event with this key is under way, another one is dropped
   */
  sendEvent(event, key) {
    if (this.ended || this.unacknowledged.length >= MAX_WAITING_EVENTS) return;
    if (key !== undefined) {
      if (this.keys.has(key)) return;
      this.keys.set(key, 0);
      this.collectedKeys.push(key);
    }
    const values = this.page.collectValues();
    if (values) event.v = values;
    this.busy.began(event.k);
    if (this.collected.push(event) === 1) queueMicrotask(() => this.numberEvents());
  }

  numberEvents() {
    const events = wellFormed(this.collected);
    this.collected = [];
    const fits = events.length <= MAX_LIST && byteSize(events) <= MAX_MESSAGE_BYTES;
    for (const group of fits ? [events] : events.map(event => [event])) {
      if (byteSize(group) > MAX_MESSAGE_BYTES) {
        this.notice.showNote('An entry was too long and has not been sent.');
        continue;
      }
      const message = { n: ++this.numbered, e: group };
      this.unacknowledged.push(message);
      if (this.isOpen() && !this.oneByOne) this.sendToSocket({ ...message, ack: this.applied });
    }
    for (const key of this.collectedKeys) this.keys.set(key, this.numbered);
    this.collectedKeys = [];
    if (this.polling) this.pollAgain();
  }

  isOpen() {
    return this.socket !== null && this.socket.readyState === WebSocket.OPEN;
  }

  // ---- session ----

  async openSession() {
    const body = { path: location.pathname, query: location.search.slice(1), width: innerWidth, height: innerHeight };
    try {
      const answer = await alone(() => this.post('wt-session/start', body, POLL_LIMIT_MS));
      if (answer.ok) {
        const started = await answer.json();
        this.token = started.token;
        this.loads = 1;
        if (started.reload) {
          this.tab.keep({ token: started.token, session: started.session, page: 1 });
          this.tab.claim(started.session);
        }
        this.openSocket();
        return;
      }
      this.notice.showBanner(answer.status === 503 || answer.status === 429
        ? 'The server is busy. Trying again.' : 'The server refused the page. Trying again.');
    } catch {
      this.notice.showBanner('No connection to the server. Trying again.');
    }
    this.lostAt ||= performance.now();
    this.retryLater(() => this.openSession());
  }

  /**
   * The user has logged in: what page and browser knew before is worth nothing any more. Tells the new token to the
   * server, which voids the old one by that.
   */
  async renew() {
    try {
      await alone(async () => {
        const answer = await this.post('wt-session/renew', { token: this.token }, POLL_LIMIT_MS);
        if (answer.status === 200) this.token = (await answer.json()).token;
        if (this.tab.kept) this.tab.keep({ ...this.tab.kept, token: this.token });
        if (answer.ok) await this.post('wt-session/renew', { token: this.token }, POLL_LIMIT_MS);
      });
    } catch {
      if (!this.ended) setTimeout(() => this.renew(), HEARTBEAT_MS);
    }
  }

  sayBye() {
    if (this.ended || !this.token) return;
    if (this.page.hasNewValues?.()) { // the session keeps what is typed for a reload
      this.sendEvent({ k: 'values' });
      this.numberEvents();
    }
    this.ended = true;
    navigator.sendBeacon(this.base + 'wt-session/bye', JSON.stringify({ token: this.token, page: this.loads }));
    if (this.socket) this.socket.close(1000);
  }

  /** @param {string} path @param {any} body @param {number} limitMs @param {AbortSignal} [signal] */
  post(path, body, limitMs, signal) {
    const limit = AbortSignal.timeout(limitMs);
    return fetch(this.base + path, {
      method: 'POST',
      credentials: 'same-origin',
      cache: 'no-store',
      headers: { 'Content-Type': 'application/json' },
      body: JSON.stringify(body),
      signal: signal && AbortSignal.any ? AbortSignal.any([signal, limit]) : signal || limit,
    });
  }

  // ---- WebSocket ----

  openSocket() {
    if (this.ended || this.socket) return;
    const scheme = location.protocol === 'https:' ? 'wss://' : 'ws://';
    const socket = new WebSocket(scheme + location.host + this.base + 'wt-session/ws');
    this.socket = socket;
    const began = performance.now();
    const limit = this.connectLimit();
    this.connectTimer = setTimeout(() => this.slowToConnect(limit), Math.min(limit, ANSWER_MS));
    socket.onopen = () => {
      clearTimeout(this.connectTimer);
      this.connectMs = performance.now() - began;
      socket.send(JSON.stringify(this.hello()));
      this.sentAlone = 0;
      for (let rest = this.oneByOne ? [] : this.unacknowledged; rest.length > 0;) {
        const m = firstMessages(rest);
        rest = rest.slice(m.length);
        socket.send(JSON.stringify({ ack: this.applied, m }));
      }
      this.awaitAnswer();
    };
    socket.onmessage = event => {
      if (this.socket !== socket) return;
      this.stopPolling();
      this.connected();
      this.receive(JSON.parse(event.data));
    };
    socket.onclose = event => {
      if (this.socket !== socket) return;
      if (REFUSED.has(event.code)) this.messageRefused();
      this.socketLost();
    };
  }

  hello() {
    const again = this.loads > 1 ? { page: this.loads, path: shownPath() } : {};
    return { hello: this.token, ack: this.applied, ...again };
  }

  /** @param {number} limit milliseconds in all */
  slowToConnect(limit) {
    if (!this.polling) this.connectionLost();
    this.connectTimer = setTimeout(() => this.socketLost(), Math.max(0, limit - ANSWER_MS));
  }

  /** An attempt from before the link's return may hang long after it: where connections are quick it is given up early.
   * @returns {number} milliseconds */
  connectLimit() {
    if (!this.connectMs || !this.lossIsYoung()) return CONNECT_MS;
    if (++this.attempts % 6 === 0) return PATIENT_CONNECT_MS;
    return Math.min(CONNECT_MS, Math.max(QUICK_CONNECT_MS, 500 + 3 * this.connectMs));
  }

  lossIsYoung() {
    return this.lostAt === 0 || performance.now() - this.lostAt < EARLY_MS;
  }

  /** Sent alone it is known; it keeps its number and loses its contents. */
  messageRefused() {
    const first = this.unacknowledged[0];
    if (this.oneByOne && first && this.sentAlone === first.n) {
      first.e = [];
      this.note = 'An entry could not be read by the server and has not been sent.';
    }
    this.oneByOne = true;
  }

  sendNextAlone() {
    const first = this.unacknowledged[0];
    if (!first) {
      this.oneByOne = false;
    } else if (this.sentAlone !== first.n && this.isOpen()) {
      this.sentAlone = first.n;
      this.sendToSocket({ ...first, ack: this.applied });
    }
  }

  /** The network may be another one, or somebody looks: what has hung so far is not worth waiting for. */
  lookAgain() {
    const hanging = this.socket;
    if (!hanging || hanging.readyState !== WebSocket.CONNECTING) {
      this.retryNow();
      return;
    }
    this.socket = null;
    clearTimeout(this.connectTimer);
    hanging.close();
    this.openSocket();
  }

  /** @param {any} message */
  sendToSocket(message) {
    this.socket?.send(JSON.stringify(message));
    this.awaitAnswer();
  }

  socketLost() {
    const socket = this.socket;
    this.socket = null;
    clearTimeout(this.heartbeatTimer);
    clearTimeout(this.connectTimer);
    clearTimeout(this.answerTimer);
    this.answerTimer = 0;
    if (socket && socket.readyState < WebSocket.CLOSING) socket.close(4000);
    if (this.ended) return;
    if (this.polling) {
      this.trySocketLater();
      return;
    }
    // Where WebSocket is blocked the very first ones fail as well; a poll will tell.
    if (this.online !== undefined) this.connectionLost();
    if (++this.socketFailures >= SOCKET_FAILURES_BEFORE_POLL) this.startPolling();
    else this.retryLater(() => this.openSocket());
  }

  /** The server answers every message, so silence after one means that the road is cut. */
  awaitAnswer() {
    clearTimeout(this.heartbeatTimer);
    if (!this.answerTimer) this.answerTimer = setTimeout(() => this.silent(), ANSWER_MS);
  }

  silent() {
    this.answerTimer = 0;
    if (!this.polling) this.connectionLost();
    this.socketLost();
  }

  scheduleHeartbeat() {
    clearTimeout(this.heartbeatTimer);
    const period = document.visibilityState === 'visible' ? HEARTBEAT_MS : HIDDEN_HEARTBEAT_MS;
    this.heartbeatTimer = setTimeout(() => {
      if (this.isOpen()) this.sendToSocket({ ack: this.applied });
    }, period);
  }

  // ---- plain HTTP ----

  startPolling() {
    if (this.polling || this.ended) return;
    this.polling = true;
    this.poll(++this.pollRound);
    this.trySocketLater();
  }

  trySocketLater() {
    clearTimeout(this.socketTimer);
    // A poll that hangs is as good as none: until one has brought an answer WebSocket is tried as before.
    this.socketTimer = setTimeout(() => this.openSocket(), this.online ? SOCKET_RETRY_MS : this.nextPause());
  }

  stopPolling() {
    this.polling = false;
    ++this.pollRound;
    if (this.pollAbort) this.pollAbort.abort();
  }

  pollAgain() {
    ++this.pollRound;
    if (this.pollAbort) this.pollAbort.abort();
    this.poll(this.pollRound);
  }

  /** @param {number} round */
  async poll(round) {
    while (this.polling && round === this.pollRound && !this.ended) {
      const abort = new AbortController();
      this.pollAbort = abort;
      try {
        const m = this.oneByOne ? this.unacknowledged.slice(0, 1) : firstMessages(this.unacknowledged);
        if (this.oneByOne) this.sentAlone = m[0]?.n ?? 0;
        const body = { ...this.hello(), m };
        const answer = await this.post('wt-session/poll', body, POLL_LIMIT_MS, abort.signal);
        if (answer.status === 400 || answer.status === 413) this.messageRefused();
        if (!answer.ok) throw new Error('status ' + answer.status);
        const { ack, m: news } = await answer.json();
        if (round !== this.pollRound) return;
        this.connected();
        if (ack !== undefined) this.acknowledge(ack);
        for (const message of news) this.receive(message);
      } catch {
        if (round !== this.pollRound) return;
        this.connectionLost();
        this.polling = false;
        this.retryLater(() => this.openSocket());
        return;
      }
    }
  }

  // ---- either way ----

  /** @param {any} message */
  receive(message) {
    if (message.ack !== undefined) this.acknowledge(message.ack);
    if (message.size !== undefined) this.awaitLarge(message.size);
    if (message.ack !== undefined && message.n === undefined) this.busy.answered(message.busy ?? 0);
    if (message.n !== undefined) {
      if (message.n <= this.applied) return;
      if (message.n !== this.applied + 1) {
        this.socketLost();
        return;
      }
      this.applied = message.n;
      this.busy.changed();
      try {
        this.page.applyOperations(message.o);
      } catch (error) {
        console.error(error);
      }
      return;
    }
    if (message.gone !== undefined && this.loads > 1 && this.applied === 0) {
      this.startAnew();
      return;
    }
    if (message.gone !== undefined) this.gone(GONE_TEXT.get(message.gone) || 'The session does not exist any more.', 0);
    if (message.end !== undefined) {
      if (this.isOpen()) this.socket?.send(JSON.stringify({ ack: this.applied }));
      this.gone('The session has ended.', END_GRACE_MS);
    }
  }

  /** @param {number} number */
  acknowledge(number) {
    while (this.unacknowledged.length > 0 && this.unacknowledged[0].n <= number) this.unacknowledged.shift();
    for (const [key, carrier] of this.keys) if (carrier !== 0 && carrier <= number) this.keys.delete(key);
    if (this.oneByOne) this.sendNextAlone();
  }

  /** What we send meanwhile is answered behind it. @param {number} bytes of the message that comes */
  awaitLarge(bytes) {
    clearTimeout(this.answerTimer);
    const wait = Math.min(LONGEST_WAIT_MS, ANSWER_MS + bytes / SLOWEST_BYTES_PER_MS);
    this.answerTimer = setTimeout(() => this.silent(), wait);
  }

  /** The session that this page was to go on with is over: another one, without a word. */
  startAnew() {
    this.tab.forget();
    this.token = '';
    this.numbered = 0;
    this.unacknowledged = [];
    this.stopPolling();
    const former = this.socket;
    this.socket = null;
    clearTimeout(this.answerTimer);
    this.answerTimer = 0;
    former?.close(1000);
    this.openSession();
  }

  /** @param {string} text @param {number} delayMs */
  gone(text, delayMs) {
    this.ended = true;
    this.tab.forget();
    clearTimeout(this.heartbeatTimer);
    clearTimeout(this.answerTimer);
    this.notice.hideBanner();
    const unsent = this.page.textsOf?.([...this.unacknowledged.flatMap(message => message.e), ...this.collected]);
    setTimeout(() => this.notice.showOver(text, unsent ?? ''), delayMs);
  }

  connected() {
    clearTimeout(this.answerTimer);
    this.answerTimer = 0;
    this.retryMs = FIRST_RETRY_MS;
    this.socketFailures = 0;
    this.lostAt = 0;
    this.attempts = 0;
    if (!this.polling) this.scheduleHeartbeat();
    if (this.online) return;
    this.online = true;
    this.notice.hideBanner();
    if (this.note) this.notice.showNote(this.note);
    this.note = '';
    if (this.page.connectionChanged) this.page.connectionChanged(true);
  }

  connectionLost() {
    if (this.ended || this.online === false) return;
    this.notice.showBanner(this.online ? 'Offline. Your entries are kept until the connection is back.'
      : 'No connection to the server. Trying again.');
    this.online = false;
    this.busy.changed();
    this.lostAt = performance.now();
    if (this.page.connectionChanged) this.page.connectionChanged(false);
  }

  /**
   * With growing pauses, scattered so that the pages of a restarted server do not come all at once.
   * @param {() => void} retry
   */
  retryLater(retry) {
    clearTimeout(this.retryTimer);
    this.retry = retry;
    this.retryTimer = setTimeout(() => this.retryNow(), this.nextPause());
  }

  nextPause() {
    const longest = this.lossIsYoung() ? EARLY_RETRY_MS : LONGEST_RETRY_MS;
    const pause = Math.min(this.retryMs, longest) * (0.75 + Math.random() / 2);
    this.retryMs = Math.min(this.retryMs * 2, LONGEST_RETRY_MS);
    return pause;
  }

  retryNow() {
    if (!this.retryTimer) return;
    clearTimeout(this.retryTimer);
    this.retryTimer = 0;
    this.retry();
  }
}

const encoder = new TextEncoder();

/** @param {any} value @returns {number} of its JSON in UTF-8 */
function byteSize(value) {
  return encoder.encode(JSON.stringify(value)).length;
}

/**
 * Runs one at a time in all pages of the browser, which share a cookie: of two new ones only the last would be kept.
 * Browsers have locks for pages over TLS, and for this machine's own.
 * @template T @param {() => Promise<T>} work @returns {Promise<T>}
 */
function alone(work) {
  return navigator.locks ? /** @type {Promise<any>} */ (navigator.locks.request('wt-session', work)) : work();
}

/** As many of the messages as fit into one list. @param {Message[]} messages @returns {Message[]} */
function firstMessages(messages) {
  let bytes = 0;
  const tooMany = messages.findIndex((message, n) =>
    n > 0 && (n >= MAX_LIST || (bytes += byteSize(message)) + byteSize(messages[0]) > MAX_MESSAGE_BYTES));
  return tooMany < 0 ? messages : messages.slice(0, tooMany);
}

/** Half a pair of UTF-16 in what was typed is no text: the server reads UTF-8.
 * @param {Object<string, any>[]} events @returns {Object<string, any>[]} */
function wellFormed(events) {
  const lone = /[\uD800-\uDBFF](?![\uDC00-\uDFFF])|(?<![\uD800-\uDBFF])[\uDC00-\uDFFF]/g;
  const mend = (/** @type {string} */ _key, /** @type {any} */ value) =>
    (typeof value === 'string' ? value.replace(lone, '\uFFFD') : value);
  return JSON.parse(JSON.stringify(events, mend));
}
