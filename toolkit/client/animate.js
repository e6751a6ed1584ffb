// Appearing and disappearing, as WAnimation tells it.

const FADE = 0x100;
const TIMINGS = ['ease', 'linear', 'ease-in', 'ease-out', 'ease-in-out', 'ease'];
/** Where the element comes from, by the lower bits of the effects. */
const FROM = new Map([
  [1, 'translateX(-100%)'],
  [2, 'translateX(100%)'],
  [3, 'translateY(100%)'],
  [4, 'translateY(-100%)'],
  [5, 'scale(0.2)'],
]);

/** @type {WeakMap<Element, Animation>} */
const running = new WeakMap();

/** The end of an animation that another one follows says nothing: its events come later than what follows.
 * @param {HTMLElement} element */
function stop(element) {
  const former = running.get(element);
  if (!former) return;
  running.delete(element);
  former.onfinish = null;
  former.oncancel = null;
  former.cancel();
}

/**
 * @param {HTMLElement} element
 * @param {[boolean, number?, number?, number?]} state hidden, effects, timing, milliseconds; null: shown
 */
export function setHidden(element, state) {
  const [hidden, effects = 0, timing = 1, duration = 0] = state ?? [false];
  stop(element);
  const changes = element.hidden !== hidden;
  const still = matchMedia('(prefers-reduced-motion: reduce)').matches;
  if (!changes || !effects || !duration || still || !element.isConnected) {
    element.hidden = hidden;
    return;
  }
  /** @type {Keyframe} */
  const away = {};
  if (effects & FADE) away.opacity = 0;
  const from = FROM.get(effects & 0xff);
  if (from) away.transform = from;
  /** @type {Keyframe} */
  const there = { opacity: 1, transform: 'none' };
  element.hidden = false;
  const animation = element.animate(hidden ? [there, away] : [away, there], { duration, easing: TIMINGS[timing] });
  running.set(element, animation);
  animation.onfinish = () => { element.hidden = hidden; };
  animation.oncancel = () => { element.hidden = hidden; };
}
