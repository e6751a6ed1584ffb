// Elements that run themselves: the name that the server gives, and the class: new Class(element, config, send, page).

import { Divider } from './divider.js';
import { Dialog } from './layers.js';
import { Table } from './table.js';
import { Tabs } from './tabs.js';
import { Upload } from './upload.js';

export const behaviours = {
    dialog: Dialog,
    divider: Divider,
    table: Table,
    tabs: Tabs,
    upload: Upload,
};
