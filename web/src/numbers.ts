// Numbers as text. Rounding is plparcel's.

import type { Plcalc, Point } from '@plcalc/wasm';

import type { Settings } from './state';

const kAngleDecimals = 4;
const kFullTurn = { gon: 400, deg: 360 } as const;

/** Writes numbers as the settings say. */
export class Numbers {
    constructor(private readonly plcalc: Plcalc, readonly settings: Settings) {}

    fixed(value: number, decimals: number): string {
        return Math.abs(value) < 1e12 ? this.plcalc.fixed(value, decimals) : value.toExponential(16);
    }
    coordinate(value: number, decimals: number | undefined): string {
        return this.fixed(value, decimals ?? Math.max(4, this.settings.decimals));
    }
    length(value: number): string {
        return this.fixed(value, decimalsFor(value));
    }
    /** From one point to another. */
    distance(from: Point, to: Point): string {
        return this.length(this.plcalc.length(from, to));
    }
    bearing(from: Point, to: Point): string {
        return this.angle(this.plcalc.bearing(from, to));
    }
    withUnit(text: string): string {
        return this.settings.unit ? `${text} ${this.settings.unit}` : text;
    }
    plainArea(value: number): string {
        return this.fixed(value, decimalsFor(value));
    }
    area(value: number): string {
        const text = this.plainArea(value);
        return this.settings.unit ? `${text} ${this.settings.unit}²` : text;
    }
    angle(gon: number, decimals = kAngleDecimals): string {
        if (Number.isNaN(gon)) return '–';
        switch (this.settings.angles) {
            case 'gon':
                return `${this.turned(gon, kFullTurn.gon, decimals)} gon`;
            case 'deg':
                return `${this.turned(gon * 0.9, kFullTurn.deg, decimals)}°`;
            case 'dms':
                return this.sexagesimal(gon * 0.9);
        }
    }
    percent(part: number, of: number): string {
        return `${this.fixed((100 * part) / of, 2)} %`;
    }

    // A full turn after rounding is none.
    private turned(value: number, turn: number, decimals: number): string {
        const text = this.fixed(value, decimals);
        return text === this.fixed(turn, decimals) ? this.fixed(0, decimals) : text;
    }
    private sexagesimal(degrees: number): string {
        const tenths = Math.round(degrees * 36000) % (360 * 36000);
        const seconds = (tenths % 600) / 10;
        const minutes = Math.floor(tenths / 600) % 60;
        return `${Math.floor(tenths / 36000)}°${String(minutes).padStart(2, '0')}′${seconds.toFixed(1).padStart(4, '0')}″`;
    }
}

// Two, or as many as leave three digits of a small number.
function decimalsFor(value: number): number {
    const small = value > 0 && value < 1;
    return small ? Math.min(17, Math.max(2, 2 - Math.floor(Math.log10(value)))) : 2;
}

/** The largest of 1, 2, 5 times a power of ten that is not above the value. */
export function roundBelow(value: number): number {
    const power = 10 ** Math.floor(Math.log10(value));
    const digit = value / power;
    return (digit >= 5 ? 5 : digit >= 2 ? 2 : 1) * power;
}

/** What was typed when the person means this number: no more digits than needed. */
export function typedNumber(value: number): string {
    return String(Number(value.toPrecision(15)));
}
