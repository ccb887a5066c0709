import { load } from '@plcalc/wasm';
import wasm from '@plcalc/wasm/plcalc.wasm';

import { App } from './app';
import './style.css';

// Tests ask the page where things are.
Object.assign(window, { plcalcPage: new App(await load(wasm)) });
