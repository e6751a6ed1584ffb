// A page without a browser: speaks the page protocol over plain HTTP and WebSocket, for load.
import http from 'node:http';
import net from 'node:net';
import { randomBytes } from 'node:crypto';

/** @returns {Promise<{status: number, headers: http.IncomingHttpHeaders, body: string}>} */
export function request(port, method, path, headers = {}, body = '') {
    return new Promise((resolve, reject) => {
        const call = http.request({ host: '127.0.0.1', port, method, path, headers, agent: false }, answer => {
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
    /** @param {number} port of a server on 127.0.0.1 that speaks plain HTTP */
    constructor(port) {
        this.port = port;
        this.number = 0;
        this.applied = 0;
        this.bytes = 0; // of operations received
        /** @type {((operations: any[]) => boolean)[]} */
        this.waiting = [];
        /** @type {(operations: any[]) => void} */
        this.onOperations = () => {};
    }

    /** Starts the session and connects; resolves with the first operations. */
    async open() {
        const origin = 'http://127.0.0.1:' + this.port;
        const body = JSON.stringify({ path: '/', query: '', width: 1280, height: 800 });
        const started = await request(this.port, 'POST', '/wt-session/start',
            { origin, 'content-type': 'application/json', 'content-length': body.length }, body);
        if (started.status !== 200) throw new Error('start: ' + started.status);
        this.cookie = started.headers['set-cookie'][0].split(';')[0];
        ({ token: this.token, session: this.session } = JSON.parse(started.body));
        const first = this.next(() => true);
        await this.connect(origin);
        return first;
    }

    connect(origin) {
        return new Promise((resolve, reject) => {
            const socket = net.connect(this.port, '127.0.0.1');
            this.socket = socket;
            socket.setNoDelay(true);
            socket.write(`GET /wt-session/ws HTTP/1.1\r\nHost: 127.0.0.1:${this.port}\r\nOrigin: ${origin}\r\n` +
                `Cookie: ${this.cookie}\r\nConnection: Upgrade\r\nUpgrade: websocket\r\nSec-WebSocket-Version: 13\r\n` +
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
            if (opcode === 1) this.receive(payload);
            if (opcode === 9) this.sendFrame(10, payload);
            input = input.subarray(start + size);
        }
        return input;
    }

    receive(payload) {
        const message = JSON.parse(payload.toString());
        if (message.n === undefined || message.n <= this.applied) return;
        this.applied = message.n;
        this.bytes += payload.length;
        this.onOperations(message.o);
        this.waiting = this.waiting.filter(wanted => !wanted(message.o));
    }

    /** The next operations that fulfil the condition. @param {(operations: any[]) => boolean} condition */
    next(condition) {
        return new Promise(resolve => {
            this.waiting.push(operations => {
                if (!condition(operations)) return false;
                resolve(operations);
                return true;
            });
        });
    }

    /** @param {Object<string, any>} event */
    sendEvent(event) {
        this.sendJson({ n: ++this.number, ack: this.applied, e: [event] });
    }

    sendJson(value) {
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
        this.socket.destroy();
        const body = JSON.stringify({ token: this.token });
        await request(this.port, 'POST', '/wt-session/bye', { origin: 'http://127.0.0.1:' + this.port,
            cookie: this.cookie, 'content-length': body.length }, body);
    }
}
