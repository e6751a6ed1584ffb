import { Transport } from './transport.js';
import { Page } from './page.js';

const transport = new Transport();
transport.start(new Page(transport));
