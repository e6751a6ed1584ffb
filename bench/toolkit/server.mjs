// Figures of the toolkit's server with sessions that hold no widgets: server.mjs BUILD [NAME...].
import net from 'node:net';
import path from 'node:path';
import { writeFileSync } from 'node:fs';
import { PageClient, request } from '../client/PageClient.mjs';
import { median, percentile, print, runFigures, timed } from '../client/figures.mjs';
import { openMany, openPage } from '../client/load.mjs';
import { OPEN_LIMITS, Program, build, sleep, tempFolder } from '../client/program.mjs';

const GET = Buffer.from('GET / HTTP/1.1\r\nHost: localhost\r\n\r\n');
const FILE = 'style.css';
const STATIC_MS = 4000;

function start(...more) {
  const folder = tempFolder();
  writeFileSync(path.join(folder, FILE), '.a{color:red}\n'.repeat(300));
  return Program.start(path.join(build, 'bench/bench_server'), ['--docroot', folder, '--http-address=127.0.0.1',
    '--http-port=0', '--accesslog=-', ...OPEN_LIMITS, ...more]);
}

/** Asks the same thing again and again over kept-alive connections; resolves with the number of answers. */
async function askRepeatedly(server, question, answerBytes, connections, goesOn) {
  let answers = 0;
  await Promise.all(Array.from({ length: connections }, () => new Promise((done, fail) => {
    const socket = net.connect(server.port, '127.0.0.1', () => socket.write(question));
    let bytes = 0;
    socket.on('data', piece => {
      bytes += piece.length;
      if (bytes < answerBytes) return;
      bytes -= answerBytes;
      if (goesOn(++answers)) socket.write(question);
      else socket.end();
    });
    socket.on('error', fail);
    socket.on('close', done);
  })));
  return answers;
}

/** Bytes of a whole answer, head included. */
function answerSize(server, question) {
  return new Promise((resolve, reject) => {
    const socket = net.connect(server.port, '127.0.0.1', () => socket.end(question));
    let bytes = 0;
    socket.on('data', piece => { bytes += piece.length; });
    socket.on('error', reject);
    socket.on('close', () => resolve(bytes));
  });
}

async function nest(page) {
  const nested = page.next(operations => operations[0][0] === 'nested');
  page.sendEvent({ k: 'nest' });
  return nested;
}

runFigures({
  async idle() {
    const starts = [];
    let memory = 0;
    for (let i = 0; i < 5; ++i) {
      let server;
      starts.push(await timed(async () => {
        server = await start();
        await request(server, 'GET', '/');
      }));
      memory = server.rss();
      await server.stop();
    }
    print('server.start_to_first_byte', median(starts), 'ms', '<150');
    print('server.idle_rss', memory, 'MiB', '<12');
  },

  async static() {
    const server = await start('--threads=1');
    const question = Buffer.from(`GET /${FILE} HTTP/1.1\r\nHost: localhost\r\n\r\n`);
    const size = await answerSize(server, question);
    const before = server.cpu();
    const end = performance.now() + STATIC_MS;
    const answers = await askRepeatedly(server, question, size, 16, () => performance.now() < end);
    // By the server's own processor time: neither our client nor a busy machine counts.
    print('server.static_keepalive', answers / (server.cpu() - before) * 1000, 'requests/cpu-s', '>20000');
  },

  async anonymous() {
    const server = await start();
    const size = await answerSize(server, GET);
    const before = { memory: server.rss(), threads: server.threads() };
    await askRepeatedly(server, GET, size, 10, answers => answers <= 100_000 - 10);
    print('server.rss_after_100000_gets', server.rss() - before.memory, 'MiB', '<4');
    print('server.threads_after_100000_gets', server.threads() - before.threads, 'threads', '0');
  },

  async cut() {
    const server = await start();
    for (let i = 0; i < 8; ++i) await request(server, 'GET', '/'); // every I/O thread has its own descriptors
    const before = server.descriptors();
    for (let round = 0; round < 50; ++round) {
      await Promise.all(Array.from({ length: 100 }, (_, i) => new Promise(done => {
        const socket = net.connect(server.port, '127.0.0.1', () => {
          socket.write(['', 'GET / HT', GET][i % 3]);
          setImmediate(() => socket.resetAndDestroy());
        });
        socket.on('error', () => {});
        socket.on('close', done);
      })));
    }
    for (let i = 0; i < 50 && server.descriptors() > before; ++i) await sleep(100);
    print('server.descriptors_after_5000_cuts', server.descriptors() - before, 'descriptors', '0');
    print('server.rss_after_5000_cuts', server.rss(), 'MiB', '<16');
  },

  async nested() {
    const server = await start();
    const before = server.rss();
    await openMany(1000, async () => {
      const page = await openPage(server);
      await nest(page);
      return page;
    });
    print('server.rss_per_session_in_nested_loop', (server.rss() - before) * 1024 / 1000, 'KiB', '<200');
    const opened = [];
    const clicks = [];
    for (let i = 0; i < 200; ++i) {
      const page = new PageClient(server);
      opened.push(await timed(() => page.open()));
      clicks.push(await timed(() => {
        const echoed = page.next(operations => operations[0][0] === 'echo');
        page.sendEvent({ k: 'echo', x: i });
        return echoed;
      }));
      await page.close();
    }
    print('server.new_session_with_1000_nested.p99', percentile(opened, 0.99), 'ms', '<50');
    print('server.click_with_1000_nested.p99', percentile(clicks, 0.99), 'ms', '<50');
    print('server.stop_with_1000_nested', await timed(() => server.stop()), 'ms', '<2000');
  },
});
