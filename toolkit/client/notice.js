// What the transport has to say to the user itself: the offline banner and the box at the end of a session.

const NOTE_MS = 8000;

export class Notice {
  constructor() {
    this.banner = document.createElement('div');
    this.banner.className = 'wt-banner';
    this.banner.setAttribute('role', 'status');
    this.banner.hidden = true;
    document.body.append(this.banner);
  }

  /** @param {string} text */
  showBanner(text) {
    if (this.banner.textContent !== text) this.banner.textContent = text;
    this.banner.hidden = false;
  }

  hideBanner() {
    this.banner.hidden = true;
  }

  /** A banner that goes away by itself. @param {string} text */
  showNote(text) {
    this.showBanner(text);
    setTimeout(() => { if (this.banner.textContent === text) this.hideBanner(); }, NOTE_MS);
  }

  /** @param {string} text why the session is over @param {string} unsent what was typed and has not been sent */
  showOver(text, unsent) {
    const box = document.createElement('dialog');
    box.className = 'wt-over';
    const message = document.createElement('p');
    message.textContent = text;
    const again = document.createElement('button');
    again.type = 'button';
    again.textContent = 'Start again';
    again.addEventListener('click', () => location.reload());
    box.addEventListener('cancel', event => event.preventDefault());
    box.append(message, ...(unsent ? offer(unsent) : []), again);
    document.body.append(box);
    box.showModal();
    again.focus();
  }
}

/** What would be lost, to be copied. @param {string} text */
function offer(text) {
  const label = document.createElement('label');
  label.textContent = 'This had not been sent. Copy what you want to keep:';
  const area = document.createElement('textarea');
  area.readOnly = true;
  area.rows = Math.min(8, text.split('\n').length + 1);
  area.value = text;
  area.addEventListener('focus', () => area.select());
  label.append(area);
  const copy = document.createElement('button');
  copy.type = 'button';
  copy.textContent = 'Copy';
  copy.addEventListener('click', () => {
    area.select();
    // Where the page may not write to the clipboard, the selected text is left to Ctrl+C.
    navigator.clipboard?.writeText(text).then(() => { copy.textContent = 'Copied'; }, () => {});
  });
  return [label, copy];
}
