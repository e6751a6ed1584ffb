// node run.mjs [PART-OF-FILE-NAME...] [--only WORDS-OF-A-TEST'S-NAME]: runs the browser tests. Last line:
// "browser: N passed, N failed".
import { runAll } from './harness.mjs';

const words = process.argv.slice(2);
const only = words.indexOf('--only');
const name = only < 0 ? '' : words.splice(only, 2)[1];
const good = await runAll(words, name);
process.exit(good ? 0 : 1);
