// Figures of the toolkit's server with sessions that hold no widgets: name value unit target, one a line.
import { execFileSync, spawn, spawnSync } from 'node:child_process';
import { mkdtempSync, readFileSync, rmSync, writeFileSync } from 'node:fs';
import net from 'node:net';
import { tmpdir } from 'node:os';
import path from 'node:path';
import { PageClient, request } from './pageclient.mjs';

const program = path.join(process.argv[2] || 'build', 'bench', 'bench_server');
const folder = mkdtempSync(path.join(tmpdir(), 'wt-bench-'));
writeFileSync(path.join(folder, 'style.css'), '.a{color:red}\n'.repeat(300));

function print(name, value, unit, target) {
    console.log(name, Number(value.toFixed(value < 10 ? 2 : 0)), unit, target);
}

/** Resident memory in kB. */
function rss(server) {
    return Number(/VmRSS:\s+(\d+)/.exec(readFileSync(`/proc/${server.pid}/status`, 'utf8'))[1]);
}

function threads(server) {
    return Number(/Threads:\s+(\d+)/.exec(readFileSync(`/proc/${server.pid}/status`, 'utf8'))[1]);
}

/** Processor time used, user and system. */
function cpuSeconds(server) {
    const fields = readFileSync(`/proc/${server.pid}/stat`, 'utf8').split(') ')[1].split(' ');
    return (Number(fields[11]) + Number(fields[12])) / 100;
}

/** @returns {Promise<{pid: number, port: number, stop(): Promise<void>}>} */
function start(...more) {
    return new Promise((resolve, reject) => {
        const child = spawn(program, ['--docroot', folder, '--http-address=127.0.0.1', '--http-port=0', '--accesslog=-',
            '--max-connections-per-address=10000', '--max-sessions-per-address=2000', ...more],
        { stdio: ['ignore', 'pipe', 'inherit'] });
        child.on('error', reject);
        child.stdout.on('data', text => resolve({ pid: child.pid, port: Number(/port (\d+)/.exec(text)[1]),
            stop: () => new Promise(done => { child.on('exit', () => done()); child.kill('SIGTERM'); }) }));
    });
}

/** @param {number[]} values @param {number} share */
function percentile(values, share) {
    return [...values].sort((a, b) => a - b)[Math.min(values.length - 1, Math.floor(values.length * share))];
}

async function timed(action) {
    const begin = performance.now();
    await action();
    return performance.now() - begin;
}

const figures = {
    async idle() {
        const starts = [];
        let memory = 0;
        for (let i = 0; i < 5; ++i) {
            let server;
            starts.push(await timed(async () => {
                server = await start();
                await request(server.port, 'GET', '/');
            }));
            memory = rss(server) / 1024;
            await server.stop();
        }
        print('server.start_to_first_byte', percentile(starts, 0.5), 'ms', '<150');
        print('server.idle_rss', memory, 'MB', '<12');
    },

    async static() {
        const server = await start('--threads=1');
        execFileSync('taskset', ['-apc', '0', String(server.pid)], { stdio: 'ignore' });
        const url = `http://127.0.0.1:${server.port}/style.css`;
        const before = cpuSeconds(server);
        const run = spawnSync('taskset', ['-c', '1', 'wrk', '-t1', '-c16', '-d4', url], { encoding: 'utf8' });
        const requests = Number(/(\d+) requests in/.exec(run.stdout)[1]);
        // By the server's own processor time, so that a busy machine does not count.
        print('server.static_keepalive', requests / (cpuSeconds(server) - before), 'requests/s', '>20000');
        await server.stop();
    },

    async anonymous() {
        const server = await start();
        await request(server.port, 'GET', '/');
        const before = { memory: rss(server), threads: threads(server) };
        const one = Buffer.from('GET / HTTP/1.1\r\nHost: h\r\n\r\n');
        await Promise.all(Array.from({ length: 10 }, () => new Promise(done => {
            const socket = net.connect(server.port, '127.0.0.1');
            let sent = 0;
            const next = () => (sent++ < 10000 ? socket.write(one) : socket.end());
            socket.on('data', () => next());
            socket.on('close', () => done());
            next();
        })));
        print('server.rss_after_100000_gets', (rss(server) - before.memory) / 1024, 'MB', '<4');
        print('server.threads_after_100000_gets', threads(server) - before.threads, 'threads', '0');
        await server.stop();
    },

    async cut() {
        const server = await start();
        const descriptors = () => spawnSync('sh', ['-c', `ls /proc/${server.pid}/fd | wc -l`], { encoding: 'utf8' }).stdout.trim();
        for (let i = 0; i < 8; ++i) await request(server.port, 'GET', '/'); // every I/O thread has its own descriptors
        const before = Number(descriptors());
        for (let round = 0; round < 50; ++round) {
            await Promise.all(Array.from({ length: 100 }, (_, i) => new Promise(done => {
                const socket = net.connect(server.port, '127.0.0.1', () => {
                    socket.write(['', 'GET / HT', 'GET / HTTP/1.1\r\nHost: h\r\n\r\n'][i % 3]);
                    setImmediate(() => socket.resetAndDestroy());
                });
                socket.on('error', () => {});
                socket.on('close', done);
            })));
        }
        for (let i = 0; i < 50 && Number(descriptors()) > before; ++i) await new Promise(done => setTimeout(done, 100));
        print('server.descriptors_after_5000_cuts', Number(descriptors()) - before, 'descriptors', '0');
        print('server.rss_after_5000_cuts', rss(server) / 1024, 'MB', '<16');
        await server.stop();
    },

    async nested() {
        const server = await start();
        const before = rss(server);
        const pages = [];
        for (let i = 0; i < 1000; ++i) {
            const page = new PageClient(server.port);
            await page.open();
            const nested = page.next(operations => operations[0][0] === 'nested');
            page.sendEvent({ k: 'nest' });
            await nested;
            pages.push(page);
        }
        print('server.rss_per_session_in_nested_loop', (rss(server) - before) / 1000, 'kB', '<200');
        const opened = [];
        const clicks = [];
        for (let i = 0; i < 200; ++i) {
            const page = new PageClient(server.port);
            opened.push(await timed(() => page.open()));
            clicks.push(await timed(() => {
                const echoed = page.next(operations => operations[0][0] === 'echo');
                page.sendEvent({ k: 'echo', x: i });
                return echoed;
            }));
            await page.close();
        }
        print('server.new_session_with_1000_nested.p50', percentile(opened, 0.5), 'ms', '');
        print('server.new_session_with_1000_nested.p99', percentile(opened, 0.99), 'ms', '<50');
        print('server.click_with_1000_nested.p50', percentile(clicks, 0.5), 'ms', '');
        print('server.click_with_1000_nested.p99', percentile(clicks, 0.99), 'ms', '<50');
        const stopping = await timed(() => server.stop());
        print('server.stop_with_1000_nested', stopping, 'ms', '<2000');
    },
};

const wanted = process.argv.slice(3);
try {
    for (const [name, figure] of Object.entries(figures))
        if (wanted.length === 0 || wanted.includes(name)) await figure();
} finally {
    rmSync(folder, { recursive: true });
}
process.exit(0);
