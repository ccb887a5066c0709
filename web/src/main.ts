import { load } from '@plcalc/wasm';
import wasm from '@plcalc/wasm/plcalc.wasm';

import { App } from './app';
import { serve } from './desk';
import './style.css';

async function begin(): Promise<void> {
    const plcalc = await load(wasm);
    // Tests ask the page where things are.
    Object.assign(window, { plcalcPage: new App(plcalc, document.getElementById('program')?.textContent ?? undefined) });
}

// The script of the page is that of its worker, which has no document.
if (typeof document === 'undefined') serve(load(wasm));
else void begin();
