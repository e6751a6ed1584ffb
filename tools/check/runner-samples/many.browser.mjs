// More failures than are worth a second try, and an end of the file that fails too.
import { test } from '../../../tests/browser/harness.mjs';

for (let i = 0; i < 10; i++) test(`bad ${i}`, async () => { throw new Error('bad as ever'); });

export const done = async () => { throw new Error('the end fails'); };
