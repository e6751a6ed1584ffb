// Firmware files of the simulated devices, and a server that hands them out.
import { createHash, randomBytes } from 'node:crypto';
import { createServer } from 'node:http';

/** A sound file for that type of device. @param {'rx'|'tx'|'swx'} type @param {string} version */
export function firmware(type, version) {
  const payload = randomBytes(20_000);
  const sum = createHash('sha256').update(payload).digest('hex');
  return Buffer.concat([
    Buffer.from(`ZEQFW 1\ntype=${type}\nversion=${version}\nsize=${payload.length}\nsha256=${sum}\n\n`),
    payload,
  ]);
}

/** Serves files by path over plain HTTP on loopback; with `login`, to who brings it in basic authentication.
 * @param {Record<string, Buffer>} files @param {{login?: string}} options */
export async function fileServer(files, { login } = {}) {
  const wanted = login && `Basic ${Buffer.from(login).toString('base64')}`;
  const server = createServer((request, response) => {
    if (wanted && request.headers.authorization !== wanted) response.writeHead(401).end();
    else if (files[request.url ?? '']) response.end(files[request.url ?? '']);
    else response.writeHead(404).end();
  });
  await new Promise((resolve) => server.listen(0, '127.0.0.1', () => resolve(undefined)));
  const { port } = /** @type {import('node:net').AddressInfo} */ (server.address());
  return { place: `127.0.0.1:${port}`, close: () => { server.close(); } };
}
