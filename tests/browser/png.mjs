// Pictures in few colours, so that hundreds of them stay small, and how they are compared.
import { deflateSync } from 'node:zlib';
import { readFileSync, writeFileSync } from 'node:fs';
import pixelmatch from 'pixelmatch';
import { PNG } from 'pngjs';

/** @typedef {{width: number, height: number, data: Uint8Array}} Image RGBA, opaque */

/** A palette of PNG has room for this many colours. */
const MAX_COLOURS = 256;

/** Steps of a colour channel, tried from fine to coarse until the palette has room for all colours. */
const STEPS = [4, 8, 16, 32, 64];

/**
 * Two pixels differ if their colours are further apart than this (0..1, of
 * pixelmatch; edges of letters do not count).
 */
const COLOUR_TOLERANCE = 0.15;

/** @param {Buffer} bytes a PNG file @returns {Image} */
export function decode(bytes) {
  const { width, height, data } = PNG.sync.read(bytes);
  return { width, height, data };
}

/** Whether one colour fills it: a page that shows nothing. @param {Image} image */
export function isBlank(image) {
  const pixels = new Uint32Array(image.data.buffer, image.data.byteOffset, image.data.byteLength / 4);
  return pixels.every((pixel) => pixel === pixels[0]);
}

/** Place of every pixel in a palette, and the palette. @param {Image} image @param {number} step */
function paletteOf(image, step) {
  const places = new Map();
  const colours = [];
  const pixels = Buffer.alloc(image.width * image.height);
  const round = (value) => Math.min(255, Math.round(value / step) * step);
  for (let i = 0; i < pixels.length; i++) {
    const [r, g, b] = [round(image.data[4 * i]), round(image.data[4 * i + 1]), round(image.data[4 * i + 2])];
    const colour = (r << 16) | (g << 8) | b;
    let place = places.get(colour);
    if (place === undefined) {
      if (colours.length === MAX_COLOURS * 3) return null;
      place = places.size;
      places.set(colour, place);
      colours.push(r, g, b);
    }
    pixels[i] = place;
  }
  return { colours: Buffer.from(colours), pixels };
}

const CRC_TABLE = Int32Array.from({ length: 256 }, (_, n) => {
  let c = n;
  for (let k = 0; k < 8; k++) c = c & 1 ? 0xedb88320 ^ (c >>> 1) : c >>> 1;
  return c;
});

/** A chunk of a PNG file: length, type, content, check sum over type and content (ISO/IEC 15948, 5.3). */
function chunk(type, content) {
  const body = Buffer.concat([Buffer.from(type, 'latin1'), content]);
  let crc = -1;
  for (const byte of body) crc = CRC_TABLE[(crc ^ byte) & 0xff] ^ (crc >>> 8);
  const out = Buffer.alloc(body.length + 8);
  out.writeUInt32BE(content.length, 0);
  body.copy(out, 4);
  out.writeInt32BE(~crc, body.length + 4);
  return out;
}

/** Writes a PNG with a palette (colour type 3, eight bits a pixel). @param {string} path @param {Image} image */
export function writeSmall(path, image) {
  const { colours, pixels } = STEPS.reduce((found, step) => found ?? paletteOf(image, step), null);
  const lines = Buffer.alloc((image.width + 1) * image.height);
  for (let y = 0; y < image.height; y++)
    pixels.copy(lines, y * (image.width + 1) + 1, y * image.width, (y + 1) * image.width);
  const head = Buffer.alloc(13);
  head.writeUInt32BE(image.width, 0);
  head.writeUInt32BE(image.height, 4);
  head.set([8, 3, 0, 0, 0], 8);
  writeFileSync(
    path,
    Buffer.concat([
      Buffer.from('\x89PNG\r\n\x1a\n', 'latin1'),
      chunk('IHDR', head),
      chunk('PLTE', colours),
      chunk('IDAT', deflateSync(lines, { level: 9 })),
      chunk('IEND', Buffer.alloc(0)),
    ])
  );
}

/**
 * Compares with the approved file. Gives the number of pixels that differ, and what to look at: the approved one in
 * grey, differences in red. Pictures of different sizes differ everywhere.
 * @param {Image} image @param {string} approvedPath
 */
export function compare(image, approvedPath) {
  const approved = decode(readFileSync(approvedPath));
  const { width, height } = image;
  if (approved.width !== width || approved.height !== height) return { different: width * height, shown: null };
  const diff = new PNG({ width, height });
  const different = pixelmatch(approved.data, image.data, diff.data, width, height, { threshold: COLOUR_TOLERANCE });
  return { different, shown: PNG.sync.write(diff) };
}
