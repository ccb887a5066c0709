// What becomes of a state: plparcel is asked, and its answer gets names. No geometry is computed here.

import type { Amount, Division, Line, Measures, Parcel, Plcalc, Point, Request, SideMeasure } from '@plcalc/wasm';

import { amountsOf, type Mistake } from './amounts';
import type { NamedParcel } from './parcels';
import type { Asked, Settings, State } from './state';

export interface NamedPoint {
    readonly name: string;
    readonly at: Point;
}

/** A part of a dividing line between two new points, or a new point and a corner. */
export interface Cut {
    readonly from: NamedPoint;
    readonly to: NamedPoint;
    readonly length: number;
    readonly bearing: number;
}

export interface NamedPiece {
    readonly name: string;
    readonly area: number;
    readonly asked: number;
    /** Index of its amount; the last is what is left. */
    readonly amount: number;
    readonly rings: readonly (readonly Point[])[];
    readonly sides: readonly (readonly SideMeasure[])[];
}

export interface Answer {
    readonly parcel: NamedParcel;
    readonly measures: Measures;
    readonly request?: Request;
    readonly mistake?: Mistake;
    readonly division?: Division;
    readonly corners: readonly NamedPoint[];
    readonly newPoints: readonly NamedPoint[];
    readonly cuts: readonly Cut[];
    readonly pieces: readonly NamedPiece[];
}

export function lineOf(asked: Asked): Line {
    switch (asked.kind) {
        case 'parallel':
        case 'perpendicular':
            return { kind: asked.kind, side: asked.side.index, ring: asked.side.ring };
        case 'vertex':
            return { kind: 'vertex', vertex: asked.corner.index, ring: asked.corner.ring };
        case 'bearing':
            return { kind: 'bearing', gon: asked.gon };
        case 'place':
            return { kind: 'place', side: asked.side.index, along: asked.along, ring: asked.side.ring };
        case 'point':
            return { kind: 'point', point: asked.point, gon: asked.gon };
    }
}

/** Whether lines of that kind have a direction, so that widths and whole lines make sense. */
export function hasDirection(asked: Asked): boolean {
    return ['parallel', 'perpendicular', 'bearing'].includes(asked.kind);
}

export function requestOf(asked: Asked, amounts: readonly Amount[], settings: Settings): Request {
    const whole = asked.whole && hasDirection(asked);
    return {
        line: lineOf(asked),
        amounts,
        measured: asked.opposite ? 'opposite' : 'from_reference',
        alternative: whole ? 0 : asked.alternative,
        pieces: whole ? 'any' : 'two',
        decimals: settings.decimals,
    };
}

export function divided(plcalc: Plcalc, parcel: NamedParcel, request: Request): Division {
    return plcalc.divide(asParcel(parcel), request);
}

export function asParcel(parcel: NamedParcel): Parcel {
    return { outer: parcel.outer, holes: parcel.holes };
}

// A, B, ..., Z, AA
function letters(index: number): string {
    let text = '';
    for (let rest = index + 1; rest > 0; rest = Math.floor((rest - 1) / 26)) text = String.fromCharCode(65 + ((rest - 1) % 26)) + text;
    return text;
}

const key = (p: Point): string => `${p[0]} ${p[1]}`;

// New points are P1, P2, ...; an end at a corner is that corner.
class PointNames {
    readonly corners: NamedPoint[] = [];
    readonly fresh: NamedPoint[] = [];
    private readonly known = new Map<string, NamedPoint>();
    private next = 1;

    constructor(parcel: NamedParcel) {
        [parcel.outer, ...parcel.holes].forEach((ring, k) => ring.forEach((at, i) => {
            const own = k === 0 ? parcel.corners?.[i] : undefined;
            const point = { name: own || (k === 0 ? String(i + 1) : `${i + 1}${'\u2032'.repeat(k)}`), at };
            this.corners.push(point);
            if (!this.known.has(key(at))) this.known.set(key(at), point);
            const number = /^P(\d{1,9})$/i.exec(point.name)?.[1];
            if (number) this.next = Math.max(this.next, Number(number) + 1);
        }));
    }
    at(at: Point): NamedPoint {
        const known = this.known.get(key(at));
        if (known) return known;
        const point = { name: `P${this.next++}`, at };
        this.known.set(key(at), point);
        this.fresh.push(point);
        return point;
    }
}

function cutsOf(plcalc: Plcalc, division: Division, names: PointNames): Cut[] {
    return division.lines.flatMap((line) => line.segments.map(([from, to]): Cut => {
        const side = plcalc.measure([from, to]).rings[0]?.[0];
        return { from: names.at(from), to: names.at(to), length: side?.length ?? NaN, bearing: side?.bearing ?? NaN };
    }));
}

function piecesOf(plcalc: Plcalc, division: Division): NamedPiece[] {
    const letter = division.held.map((_, i) => letters(i));
    const many = division.held.map((held) => held.pieces > 1);
    const count = new Map<number, number>();
    return division.pieces.map((piece) => {
        const nth = (count.get(piece.amount) ?? 0) + 1;
        count.set(piece.amount, nth);
        const { amount, area, asked, outer, holes } = piece;
        const name = `${letter[amount] ?? '?'}${many[amount] ? nth : ''}`;
        return { name, area, asked, amount, rings: [outer, ...holes], sides: plcalc.measure(piece).rings };
    });
}

// The parcel's own measures cost as much as a division; they change with the parcel only.
const measured = new WeakMap<NamedParcel, Measures>();

export function measuresOf(plcalc: Plcalc, parcel: NamedParcel): Measures {
    let measures = measured.get(parcel);
    if (!measures) {
        measures = plcalc.measure(asParcel(parcel));
        measured.set(parcel, measures);
    }
    return measures;
}

/** @param amounts instead of the typed ones, while a line is dragged */
export function answerOf(plcalc: Plcalc, state: State, settings: Settings, amounts?: readonly Amount[]): Answer | undefined {
    const parcel = state.parcels[state.chosen];
    if (!parcel) return undefined;
    const measures = measuresOf(plcalc, parcel);
    const names = new PointNames(parcel);
    const none = { parcel, measures, corners: names.corners, newPoints: [], cuts: [], pieces: [] };
    const { asked } = state;
    const typed = amounts ? { amounts } : amountsOf(asked.mode, asked.typed[asked.mode]);
    if (!('amounts' in typed)) return { ...none, mistake: typed.mistake };
    const request = requestOf(asked, typed.amounts, settings);
    const division = divided(plcalc, parcel, request);
    if (!division.divided) return { ...none, request, division };
    const cuts = cutsOf(plcalc, division, names);
    return { ...none, request, division, cuts, newPoints: names.fresh, pieces: piecesOf(plcalc, division) };
}
