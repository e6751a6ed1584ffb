// Every place of the interface in light colours. A file for each scheme: they are walked side by side.
import { test } from './harness.mjs';
import { WALK_LIMIT, walks } from './walk.mjs';

for (const { name, body } of walks('light')) {
  test(name, body, WALK_LIMIT);
}
