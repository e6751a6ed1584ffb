// A page without a browser: speaks the page protocol over HTTP(S) and WebSocket, for load. docs/page-protocol.md.
import { randomBytes } from 'node:crypto';
import http from 'node:http';
import https from 'node:https';
import net from 'node:net';
import tls from 'node:tls';
import zlib from 'node:zlib';
import { PageTree } from './PageTree.mjs';

const HOST = '127.0.0.1';
const ACK_AFTER_MS = 1000; // as the real page: a bare acknowledgement when nothing else was sent
const PATIENCE_MS = 30000;
const END_OF_BLOCK = Buffer.from([0, 0, 255, 255]);

/**
 * @param {{port: number, tls?: boolean}} server
 * @returns {Promise<{status: number, headers: http.IncomingHttpHeaders, body: string}>}
 */
export function request(server, method, path, headers = {}, body = '') {
  return new Promise((resolve, reject) => {
    const options = { host: HOST, port: server.port, method, path, headers, agent: false, rejectUnauthorized: false };
    const call = (server.tls ? https : http).request(options, answer => {
      let text = '';
      answer.setEncoding('utf8');
      answer.on('data', piece => { text += piece; });
      answer.on('end', () => resolve({ status: answer.statusCode, headers: answer.headers, body: text }));
    });
    call.on('error', reject);
    call.end(body);
  });
}

export class PageClient {
  /**
   * @param {{port: number, tls?: boolean}} server on 127.0.0.1
   * @param {{tree?: boolean}} options tree: keep the elements
   */
  constructor(server, { tree = false } = {}) {
    this.server = server;
    this.origin = `${server.tls ? 'https' : 'http'}://${HOST}:${server.port}`;
    this.tree = tree ? new PageTree() : null;
    this.number = 0;
    this.applied = 0;
    this.bytes = 0; // of messages with operations, as they came over the wire
    this.focus = 0;
    /**
     * @type {{wanted: (operations: any[]) => boolean, resolve: (operations: any[]) => void,
     *   reject: (error: Error) => void}[]}
     */
    this.waiting = [];
    /** @type {(operations: any[]) => void} */
    this.onOperations = () => {};
  }

  /** Starts the session and connects; resolves with the first operations. */
  async open() {
    const body = JSON.stringify({ path: '/', query: '', width: 1280, height: 800 });
    const started = await request(this.server, 'POST', '/wt-session/start',
      { origin: this.origin, 'content-type': 'application/json', 'content-length': body.length }, body);
    if (started.status !== 200) throw new Error('start: ' + started.status);
    this.cookie = started.headers['set-cookie'][0].split(';')[0];
    ({ token: this.token, session: this.session } = JSON.parse(started.body));
    const first = this.next();
    await this.connect();
    return first;
  }

  connect() {
    return new Promise((resolve, reject) => {
      const { port } = this.server;
      const socket = this.server.tls
        ? tls.connect({ host: HOST, port, rejectUnauthorized: false })
        : net.connect(port, HOST);
      this.socket = socket;
      socket.setNoDelay(true);
      socket.write(`GET /wt-session/ws HTTP/1.1\r\nHost: ${HOST}:${port}\r\nOrigin: ${this.origin}\r\n` +
        `Cookie: ${this.cookie}\r\nConnection: Upgrade\r\nUpgrade: websocket\r\nSec-WebSocket-Version: 13\r\n` +
        'Sec-WebSocket-Extensions: permessage-deflate; server_no_context_takeover; client_no_context_takeover\r\n' +
        `Sec-WebSocket-Key: ${randomBytes(16).toString('base64')}\r\n\r\n`);
      let input = Buffer.alloc(0);
      let upgraded = false;
      socket.on('error', reject);
      socket.on('data', piece => {
        input = input.length > 0 ? Buffer.concat([input, piece]) : piece;
        if (!upgraded) {
          const end = input.indexOf('\r\n\r\n');
          if (end < 0) return;
          if (!input.subarray(0, 12).includes(' 101')) return reject(new Error(input.subarray(0, 40).toString()));
          upgraded = true;
          input = input.subarray(end + 4);
          this.sendJson({ hello: this.token, ack: 0 });
          resolve();
        }
        input = this.takeFrames(input);
      });
    });
  }

  takeFrames(input) {
    while (input.length >= 2) {
      let size = input[1] & 127;
      let start = 2;
      if (size === 126 && input.length >= 4) { size = input.readUInt16BE(2); start = 4; }
      else if (size === 127 && input.length >= 10) { size = Number(input.readBigUInt64BE(2)); start = 10; }
      else if (size >= 126) break;
      if (input.length < start + size) break;
      const payload = input.subarray(start, start + size);
      const opcode = input[0] & 15;
      const packed = (input[0] & 0x40) !== 0;
      if (opcode === 1) this.receive(packed ? zlib.inflateRawSync(Buffer.concat([payload, END_OF_BLOCK]),
        { finishFlush: zlib.constants.Z_SYNC_FLUSH }) : payload, size);
      if (opcode === 9) this.sendFrame(10, payload);
      input = input.subarray(start + size);
    }
    return input;
  }

  receive(text, wireBytes) {
    const message = JSON.parse(text.toString());
    if (message.gone || message.end) return this.ended(text);
    if (message.n === undefined || message.n <= this.applied) return;
    this.applied = message.n;
    this.bytes += wireBytes;
    if (this.tree) this.tree.apply(message.o);
    this.onOperations(message.o);
    this.waiting = this.waiting.filter(({ wanted, resolve }) => !wanted(message.o) || resolve(message.o));
    this.ackTimer ??= setTimeout(() => this.sendJson({ ack: this.applied }), ACK_AFTER_MS);
  }

  ended(why) {
    for (const { reject } of this.waiting.splice(0)) reject(new Error(`session ${this.session} is over: ${why}`));
  }

  /** The next operations that fulfil the condition. @param {(operations: any[]) => boolean} wanted */
  next(wanted = () => true) {
    return new Promise((resolve, reject) => {
      const timer = setTimeout(() => reject(new Error('no answer of session ' + this.session)), PATIENCE_MS);
      this.waiting.push({ wanted, reject, resolve: operations => { clearTimeout(timer); resolve(operations); } });
    });
  }

  /** @param {Object<string, any>} event */
  sendEvent(event) {
    this.sendJson({ n: ++this.number, ack: this.applied, e: [{ f: this.focus, ...event }] });
  }

  /** Clicks; resolves with the next operations. @param {number} target @param {Object<string, any>} [values] */
  click(target, values) {
    const answer = this.next();
    this.sendEvent({ t: target, k: 'click', b: 0, m: 0, x: 0, y: 0, ...(values ? { v: values } : {}) });
    return answer;
  }

  /** From now on the session's timers fire, those running now at a random moment of their period first. */
  runTimers() {
    for (const [run, ms] of this.tree.timers) setTimeout(() => this.fire(run, ms), Math.random() * ms);
  }

  fire(run, ms) {
    if (this.socket.destroyed || !this.tree.timers.has(run)) return;
    this.sendEvent({ t: run, k: 'timer' });
    setTimeout(() => this.fire(run, ms), ms);
  }

  sendJson(value) {
    if (this.socket.destroyed) return;
    clearTimeout(this.ackTimer);
    this.ackTimer = undefined;
    this.sendFrame(1, Buffer.from(JSON.stringify(value)));
  }

  sendFrame(opcode, payload) {
    const long = payload.length >= 126;
    const head = Buffer.alloc(long ? 8 : 6); // the mask is zeros: nobody in between to be fooled
    head[0] = 0x80 | opcode;
    head[1] = 0x80 | (long ? 126 : payload.length);
    if (long) head.writeUInt16BE(payload.length, 2);
    this.socket.write(Buffer.concat([head, payload]));
  }

  async close() {
    clearTimeout(this.ackTimer);
    this.socket.destroy();
    const body = JSON.stringify({ token: this.token });
    await request(this.server, 'POST', '/wt-session/bye',
      { origin: this.origin, cookie: this.cookie, 'content-length': body.length }, body);
  }
}
