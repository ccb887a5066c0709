// What the person has chosen: one value that is replaced as a whole, so that each step can be undone and written into the address.

import type { Point } from '@plcalc/wasm';
import { deflateSync, inflateSync, strFromU8, strToU8 } from 'fflate';

import type { Mode } from './amounts';
import type { NamedParcel, Note } from './parcels';

export const kKinds = ['parallel', 'perpendicular', 'vertex', 'bearing', 'segment', 'place', 'point'] as const;
export type Kind = (typeof kKinds)[number];

/** A side or a corner, counted from 0; ring 0 is the outer one. */
export interface Spot {
    readonly ring: number;
    readonly index: number;
}

export interface Asked {
    readonly kind: Kind;
    readonly side: Spot;
    readonly corner: Spot;
    readonly gon: number;
    /** A segment anywhere that gives the line its direction, such as the axis of a road. */
    readonly axis: readonly [Point, Point];
    readonly along: number;
    readonly point: Point;
    readonly mode: Mode;
    /** What was typed, for each mode. */
    readonly typed: Readonly<Record<Mode, string>>;
    readonly opposite: boolean;
    readonly alternative: number;
    /** The whole straight line cuts, into any number of pieces. */
    readonly whole: boolean;
}

export interface State {
    readonly source: string;
    readonly parcels: readonly NamedParcel[];
    readonly notes: readonly Note[];
    readonly chosen: number;
    readonly asked: Asked;
}

export type Angles = 'gon' | 'deg' | 'dms';
export type Unit = 'm' | 'ft' | '';

export interface Settings {
    readonly language: string;
    readonly decimals: number;
    readonly angles: Angles;
    readonly unit: Unit;
    readonly snap: boolean;
}

export const kDefaultSettings: Settings = { language: 'en', decimals: 4, angles: 'gon', unit: 'm', snap: true };

export const kFirstAsked: Asked = {
    kind: 'parallel', side: { ring: 0, index: 0 }, corner: { ring: 0, index: 0 }, gon: 0, axis: [[0, 0], [0, 1]], along: 0, point: [0, 0],
    mode: 'share', typed: { area: '', share: '1/3', parts: '3', width: '', list: '' },
    opposite: false, alternative: 0, whole: false,
};

// Steps beyond are forgotten.
const kMostSteps = 200;

// Changes of one field within this time are one step.
const kOneStepMs = 900;

/** States that come one after the other. */
export class History {
    private before: State[] = [];
    private after: State[] = [];
    private lastField = '';
    private lastTime = 0;

    constructor(public now: State) {}

    /** @param field changes of the same field in quick succession are one step; '' is always a step of its own */
    push(state: State, field = ''): void {
        const time = Date.now();
        const same = field !== '' && field === this.lastField && time - this.lastTime < kOneStepMs;
        if (!same) this.before = [...this.before.slice(1 - kMostSteps), this.now];
        this.after = [];
        this.lastField = field;
        this.lastTime = time;
        this.now = state;
    }
    /** Replaces the state without a step, as while a line is dragged. */
    preview(state: State): void {
        this.now = state;
    }
    undo(): boolean {
        const state = this.before.pop();
        if (!state) return false;
        this.after.push(this.now);
        this.now = state;
        this.lastField = '';
        return true;
    }
    redo(): boolean {
        const state = this.after.pop();
        if (!state) return false;
        this.before.push(this.now);
        this.now = state;
        this.lastField = '';
        return true;
    }
    get canUndo(): boolean {
        return this.before.length > 0;
    }
    get canRedo(): boolean {
        return this.after.length > 0;
    }
}

// ---------------------------------------------------------------------------------------------- the address

// Longer addresses are cut off by programs that pass them on.
const kLongestAddress = 6000;

interface Written {
    readonly v: 1;
    readonly parcel: NamedParcel;
    readonly source: string;
    readonly notes: readonly Note[];
    readonly asked: Asked;
    readonly settings: Pick<Settings, 'decimals' | 'angles' | 'unit'>;
}

/** The chosen parcel and all that was asked of it; undefined where that is too long for an address. */
export function addressOf(state: State, settings: Settings): string | undefined {
    const parcel = state.parcels[state.chosen];
    if (!parcel || parcel.outer.length > 400) return undefined;
    const { decimals, angles, unit } = settings;
    const written: Written = { v: 1, parcel, source: state.source, notes: state.notes, asked: state.asked, settings: { decimals, angles, unit } };
    const bytes = deflateSync(strToU8(JSON.stringify(written)), { level: 9 });
    const text = btoa(String.fromCharCode(...bytes)).replaceAll('+', '-').replaceAll('/', '_').replaceAll('=', '');
    return text.length <= kLongestAddress ? `#d=${text}` : undefined;
}

/** @return undefined for any address that addressOf() did not write */
export function fromAddress(hash: string): { state: State; settings: Pick<Settings, 'decimals' | 'angles' | 'unit'> } | undefined {
    try {
        const packed = /^#d=([\w-]+)$/.exec(hash)?.[1];
        if (!packed || packed.length > 2 * kLongestAddress) return undefined;
        const bytes = Uint8Array.from(atob(packed.replaceAll('-', '+').replaceAll('_', '/')), (c) => c.charCodeAt(0));
        const { parcel, source, notes, asked, settings } = JSON.parse(strFromU8(inflateSync(bytes, { out: new Uint8Array(1 << 18) }))) as Written;
        const points = (ring: unknown): boolean => Array.isArray(ring) && ring.every((p) => Array.isArray(p) && p.length === 2 && p.every(Number.isFinite));
        if (!points(parcel.outer) || !parcel.holes.every(points) || !kKinds.includes(asked.kind) || !points(asked.axis ?? [])) return undefined;
        const state: State = { source: String(source), parcels: [{ ...parcel, name: String(parcel.name) }], notes, chosen: 0, asked: { ...kFirstAsked, ...asked } };
        return { state, settings };
    } catch {
        return undefined;
    }
}
