// node run.mjs [PART-OF-FILE-NAME...]: runs the browser tests. Last line: "browser: N passed, N failed".
import { runAll } from './harness.mjs';

const good = await runAll(process.argv.slice(2));
process.exit(good ? 0 : 1);
