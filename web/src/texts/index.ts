// The languages, and how a text gets its gaps filled.

import type { Note } from '../parcels';
import { de } from './de';
import { en, type Texts } from './en';

export const languages: Readonly<Record<string, Texts>> = { en, de };

let current: Texts = en;

export function setLanguage(code: string): void {
    current = languages[code] ?? en;
    document.documentElement.lang = code in languages ? code : 'en';
}

export type Key = keyof typeof en;

export function t(key: Key, ...values: (string | number)[]): string {
    return current[key].replace(/\{(\d)\}/g, (_, i) => String(values[Number(i)] ?? ''));
}

export function noteText(note: Note): string {
    return t(note[0] as Key, ...note.slice(1));
}

/** The reason of a status, in the page's language where it has words for it. */
export function reasonText(status: string, english: string): string {
    const text = current.reasons?.[status] ?? english;
    return text.charAt(0).toUpperCase() + text.slice(1) + (text.endsWith('.') ? '' : '.');
}
