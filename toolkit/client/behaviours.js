// Elements that run themselves: the name that the server gives, and the class: new Class(element, config, send, page).

import { Divider } from './divider.js';
import { Dialog } from './layers.js';
import { Table } from './table.js';
import { Tabs } from './tabs.js';
import { Upload } from './upload.js';

/** @typedef {(details: Object<string, any>, key?: string) => void} Send reports an event; of one key, one at a time */

/** @type {Record<string, new (element: any, config: any, send: Send, page: import('./page.js').Page) => any>} */
export const behaviours = {
  dialog: Dialog,
  divider: Divider,
  table: Table,
  tabs: Tabs,
  upload: Upload,
};
