// The internal path in the page's address: "?_=/path".

/** @returns {string} "/" for none */
export function shownPath() {
  const path = new URLSearchParams(location.search).get('_');
  return path?.startsWith('/') ? path : '/';
}

/** A new entry of the history; the first place takes the entry of the page itself. @param {string} path */
export function showPath(path) {
  const text = path.split('/').map(part => encodeURIComponent(part).replaceAll('%2C', ',')).join('/');
  const address = location.pathname + (path === '/' ? '' : `?_=${text}`);
  if (shownPath() === '/') history.replaceState(null, '', address);
  else history.pushState(null, '', address);
}
