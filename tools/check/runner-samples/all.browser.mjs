// Tests that do all that tests can do wrong; tools/check/runner looks at what is said of them.
import { existsSync, writeFileSync } from 'node:fs';
import { join } from 'node:path';
import { test } from '../../../tests/browser/harness.mjs';
import { until } from '../../../tests/browser/system.mjs';

/** Whether this name is seen for the first time in the folder of the run. */
function first(name) {
  const mark = join(process.env.MIRL_SAMPLES ?? '', name);
  if (existsSync(mark)) return false;
  writeFileSync(mark, '');
  return true;
}

test('good', async () => {});
test('bad', async () => { throw new Error('bad as ever'); });
test('good the second time', async () => { if (first('second')) throw new Error('bad the first time'); });
test('waits for ever', () => until('Godot', () => false, 1e9), 300);
test('dies', async () => { process.exit(3); });
test('holds its process', async () => { for (;;); }, 300);
test('good after all of them', async () => {});
