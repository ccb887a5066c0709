// What a person types, as amounts. A comma before decimals is understood where it can be nothing else.

import type { Amount } from '@plcalc/wasm';

export type Mode = 'area' | 'share' | 'parts' | 'width' | 'list';

/** A key of the texts that says what is wrong with the text. */
export type Mistake = 'typeNumber' | 'ambiguousComma' | 'typeShare' | 'ambiguousShare' | 'typeParts' | 'typeList';

export type Typed = { readonly amounts: readonly Amount[] } | { readonly mistake: Mistake };

const kNumber = /^[-+]?(\d+\.?\d*|\.\d+)(e[-+]?\d+)?$/i;
export const kMostParts = 1000;

/** The number, or what is wrong with the text. */
export function numberOf(text: string): number | Mistake {
    const plain = text.replace(/[\s\u00a0']/g, '').replace(/(m²|m2|m|ft²|ft)$/i, '');
    if (kNumber.test(plain)) return Number(plain);
    if (/^[1-9]\d{0,2},\d{3}$/.test(plain)) return 'ambiguousComma';
    if (/^[-+]?\d*,\d+$/.test(plain)) return Number(plain.replace(',', '.'));
    return 'typeNumber';
}

function amount(value: number | Mistake, make: (value: number) => Amount): Amount | Mistake {
    return typeof value === 'string' ? value : make(value);
}

const kWords: readonly (readonly [RegExp, number])[] = [
    [/^((a|one|die|eine|1) )?(half|hälfte|halb|halbe)$/i, 2], [/^((a|one|ein|1) )?(third|drittel)$/i, 3], [/^((a|one|ein|1) )?(quarter|fourth|viertel)$/i, 4],
];

// "1/3", "25 %", "a third". What is not above 1 could be a part or per cent.
function share(text: string): Amount | Mistake {
    const word = kWords.find(([words]) => words.test(text.trim()));
    if (word) return { share: [1, word[1]] };
    const [part = '', of] = text.split('/');
    if (of !== undefined) {
        const [first, second] = [numberOf(part), numberOf(of)];
        return typeof first === 'string' || typeof second === 'string' ? 'typeShare' : { share: [first, second] };
    }
    const percent = numberOf(text.replace('%', ''));
    if (typeof percent === 'string') return 'typeShare';
    if (!text.includes('%') && percent > 0 && percent <= 1) return 'ambiguousShare';
    return text.includes('%') || percent < 100 ? { share: [percent, 100] } : 'typeShare';
}

// One entry of a list: 1000, 1/4, 25%, 20x35.
function entry(text: string): Amount | Mistake {
    if (/[/%]/.test(text) || kWords.some(([words]) => words.test(text.trim()))) return share(text);
    const sides = text.split(/[x×*]/i);
    if (sides.length === 2) {
        const [first, second] = [numberOf(sides[0] ?? ''), numberOf(sides[1] ?? '')];
        return typeof first === 'string' || typeof second === 'string' ? 'typeList' : { product: [first, second] };
    }
    return amount(numberOf(text), (area) => ({ area }));
}

// Semicolons or lines part the entries where there are any, otherwise commas do.
function list(text: string): Typed {
    const parts = (/[;\n]/.test(text) ? text.split(/[;\n]/) : text.split(',')).map((part) => part.trim());
    const entries = parts.filter((part) => part !== '').map(entry);
    const mistake = entries.find((one) => typeof one === 'string');
    if (entries.length === 0 || mistake) return { mistake: mistake === 'ambiguousComma' ? mistake : 'typeList' };
    return { amounts: entries as Amount[] };
}

function single(one: Amount | Mistake): Typed {
    return typeof one === 'string' ? { mistake: one } : { amounts: [one] };
}

export function amountsOf(mode: Mode, text: string): Typed {
    switch (mode) {
        case 'area':
            // A share is understood here, too.
            return single(/[x×*/%]/i.test(text) || kWords.some(([words]) => words.test(text.trim())) ? entry(text) : amount(numberOf(text), (area) => ({ area })));
        case 'share':
            return single(share(text));
        case 'width':
            return single(amount(numberOf(text), (width) => ({ width })));
        case 'list':
            return list(text);
        case 'parts': {
            const parts = numberOf(text);
            const whole = typeof parts === 'number' && Number.isInteger(parts) && parts >= 2 && parts <= kMostParts;
            return whole ? { amounts: [{ parts }] } : { mistake: 'typeParts' };
        }
    }
}
