// Figures: computing and printing them. One a line: name value unit target.
import { cleanUp } from './program.mjs';

export function print(name, value, unit, target) {
  console.log(name, Number(value.toFixed(Math.abs(value) < 20 ? 2 : 0)), unit, target);
}

/** @param {number[]} values @param {number} share */
export function percentile(values, share) {
  return [...values].sort((a, b) => a - b)[Math.min(values.length - 1, Math.floor(values.length * share))];
}

export const median = values => percentile(values, 0.5);

/** Wall time of an action in ms. @param {() => Promise<any>} action */
export async function timed(action) {
  const begin = performance.now();
  await action();
  return performance.now() - begin;
}

/** Runs the figures named behind the build folder on the command line; without names all of them. */
export async function runFigures(figures) {
  const wanted = process.argv.slice(3);
  const giveUp = async why => {
    console.error(why);
    await cleanUp();
    process.exit(1);
  };
  for (const event of ['uncaughtException', 'SIGINT', 'SIGTERM']) process.on(event, giveUp);
  let failed = false;
  for (const [name, figure] of Object.entries(figures)) {
    if (wanted.length > 0 && !wanted.includes(name)) continue;
    try {
      await figure();
    } catch (error) {
      failed = true;
      console.error(`${name}: ${error.stack ?? error}`);
    }
    await cleanUp();
  }
  process.exit(failed ? 1 : 0);
}
