// Checks of form fields while the user types. The server checks again and decides; this only tells early.

/**
 * @typedef {{mandatory?: boolean, blank?: string, pattern?: string, ignoreCase?: boolean, noMatch?: string,
 *            bottom?: number, top?: number, notANumber?: string, tooSmall?: string, tooLarge?: string,
 *            filter?: string}} Rule
 * @typedef {{valid: boolean, message: string}} Verdict
 */

/** Compiled patterns; null for one that this browser's syntax does not know.
 * @type {Map<string, RegExp|null>} */
const compiled = new Map();

/** @param {string} source @param {string} flags @returns {RegExp|null} */
function compile(source, flags) {
  const key = `${flags}/${source}`;
  let found = compiled.get(key);
  if (found === undefined) {
    found = null;
    for (const tried of [`${flags}u`, flags]) {
      try {
        found = new RegExp(source, tried);
        break;
      } catch {
        // another dialect: the server decides
      }
    }
    compiled.set(key, found);
  }
  return found;
}

const GOOD = { valid: true, message: '' };

/** @param {string|undefined} message @returns {Verdict} */
function bad(message) {
  return { valid: false, message: message || '' };
}

/** @param {Rule} rule @param {string} text @returns {Verdict} */
export function validate(rule, text) {
  if (text === '') return rule.mandatory ? bad(rule.blank) : GOOD;
  if (rule.pattern !== undefined) {
    const expression = compile(`^(?:${rule.pattern})$`, rule.ignoreCase ? 'i' : '');
    return !expression || expression.test(text) ? GOOD : bad(rule.noMatch);
  }
  if (rule.bottom !== undefined && rule.top !== undefined) {
    if (!/^-?[0-9]+$/.test(text)) return bad(rule.notANumber);
    if (Number(text) < rule.bottom) return bad(rule.tooSmall);
    if (Number(text) > rule.top) return bad(rule.tooLarge);
  }
  return GOOD;
}

/** Whether a character may be typed at all. @param {Rule} rule @param {string} character */
export function mayType(rule, character) {
  const expression = rule.filter === undefined ? null : compile(rule.filter, '');
  return !expression || expression.test(character);
}
