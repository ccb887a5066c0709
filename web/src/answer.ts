// What becomes of a state: plparcel is asked, and its answer gets names. No geometry is computed here.

import type { Alternative, Amount, Division, Line, Parcel, Plcalc, Point, Report, Request } from '@plcalc/wasm';

import { amountsOf, type Mistake } from './amounts';
import { verticesOf, type NamedParcel } from './parcels';
import type { Asked, Settings } from './state';

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
}

export interface Answer {
    readonly parcel: NamedParcel;
    readonly report: Report;
    readonly request?: Request;
    readonly mistake?: Mistake;
    /** Without its pieces, which have names here. */
    readonly division?: Omit<Division, 'pieces'>;
    readonly corners: readonly NamedPoint[];
    readonly newPoints: readonly NamedPoint[];
    readonly cuts: readonly Cut[];
    readonly pieces: readonly NamedPiece[];
}

/** Areas that a kind of line can cut off. */
export interface Range {
    readonly least: number;
    readonly most: number;
}

export interface Question {
    readonly asked: Asked;
    readonly settings: Settings;
    /** Where a line that is dragged is to run, in place of what was typed. */
    readonly dragged?: Point;
}

export interface Solved {
    /** As it was in the question, or with the bearing to which a line was dragged. */
    readonly asked: Asked;
    /** The amount to which a line was dragged. */
    readonly amount?: Amount;
    readonly answer: Answer;
    readonly ranges: readonly Range[];
    /** Other lines that hold what was refused. */
    readonly instead: readonly Alternative[];
    /** Whether another line holds the same amount. */
    readonly hasOther: boolean;
}

// Other lines to propose, how many to look at for them, and up to which size of a parcel.
const kMostAlternatives = 4;
const kLookAt = 60;
const kMostForAlternatives = 2000;
const kMostForOther = 300;

// A line through a point that is looked for from its own direction on might be missed by a rounding.
const kLookBackGon = 0.01;

// The eye sees no smaller turn.
const kSeen_gon = 0.05;

// ----------------------------------------------------------------------------------------------- requests

export function lineOf(asked: Asked): Line {
    switch (asked.kind) {
        case 'parallel':
        case 'perpendicular':
            return { kind: asked.kind, side: asked.side.index, ring: asked.side.ring };
        case 'vertex':
            return { kind: 'vertex', vertex: asked.corner.index, ring: asked.corner.ring };
        case 'bearing':
            return { kind: 'bearing', gon: asked.gon };
        case 'segment':
            return { kind: 'segment', from: asked.axis[0], to: asked.axis[1] };
        case 'place':
            return { kind: 'place', side: asked.side.index, along: asked.along, ring: asked.side.ring };
        case 'point':
            return { kind: 'point', point: asked.point, gon: asked.gon };
    }
}

/** Whether lines of that kind have a direction, so that widths make sense. */
export function hasDirection(asked: Asked): boolean {
    return ['parallel', 'perpendicular', 'bearing', 'segment'].includes(asked.kind);
}

// A whole line of a direction has no alternative; one through a point may have.
function requestOf(asked: Asked, amounts: readonly Amount[], settings: Settings): Request {
    return {
        line: lineOf(asked),
        amounts,
        measured: asked.opposite ? 'opposite' : 'from_reference',
        alternative: asked.whole && hasDirection(asked) ? 0 : asked.alternative,
        pieces: asked.whole ? 'any' : 'two',
        decimals: settings.decimals,
    };
}

export function asParcel(parcel: NamedParcel): Parcel {
    return { outer: parcel.outer, holes: parcel.holes };
}

/** Whether all pieces, the last one too, were asked for. */
export function isParts(answer: Answer): boolean {
    return answer.request?.amounts.some((amount) => 'parts' in amount) ?? false;
}

// -------------------------------------------------------------------------------------------------- names

// A, B, ..., Z, AA
function letters(index: number): string {
    let text = '';
    for (let rest = index + 1; rest > 0; rest = Math.floor((rest - 1) / 26)) text = String.fromCharCode(65 + ((rest - 1) % 26)) + text;
    return text;
}

const key = (p: Point): string => `${p[0]} ${p[1]}`;

const cornersBefore = new WeakMap<NamedParcel, readonly NamedPoint[]>();

/** All corners, ring after ring. */
export function cornersOf(parcel: NamedParcel): readonly NamedPoint[] {
    let corners = cornersBefore.get(parcel);
    if (!corners) {
        const mark = (k: number): string => (k <= 3 ? '\u2032'.repeat(k) : `\u2032${k}`);
        corners = [parcel.outer, ...parcel.holes].flatMap((ring, k) =>
            ring.map((at, i): NamedPoint => ({ name: (k === 0 && parcel.corners?.[i]) || `${i + 1}${mark(k)}`, at })));
        cornersBefore.set(parcel, corners);
    }
    return corners;
}

interface Taken {
    readonly known: ReadonlyMap<string, NamedPoint>;
    /** Number of the first new point. */
    readonly next: number;
}

const takenBefore = new WeakMap<NamedParcel, Taken>();

function takenNames(parcel: NamedParcel): Taken {
    const before = takenBefore.get(parcel);
    if (before) return before;
    const known = new Map<string, NamedPoint>();
    let next = 1;
    for (const point of cornersOf(parcel)) {
        if (!known.has(key(point.at))) known.set(key(point.at), point);
        const number = /^P(\d{1,9})$/i.exec(point.name)?.[1];
        if (number) next = Math.max(next, Number(number) + 1);
    }
    takenBefore.set(parcel, { known, next });
    return { known, next };
}

// New points are P1, P2, ...; an end at a corner is that corner.
class PointNames {
    readonly fresh: NamedPoint[] = [];
    private readonly taken: Taken;
    private readonly known = new Map<string, NamedPoint>();

    constructor(parcel: NamedParcel) {
        this.taken = takenNames(parcel);
    }
    at(at: Point): NamedPoint {
        const known = this.taken.known.get(key(at)) ?? this.known.get(key(at));
        if (known) return known;
        const point = { name: `P${this.taken.next + this.fresh.length}`, at };
        this.known.set(key(at), point);
        this.fresh.push(point);
        return point;
    }
}

function cutsOf(plcalc: Plcalc, division: Division, names: PointNames): Cut[] {
    return division.lines.flatMap((line) => line.segments.map(([from, to]): Cut => (
        { from: names.at(from), to: names.at(to), length: plcalc.length(from, to), bearing: plcalc.bearing(from, to) })));
}

// Whether a line runs through a point, as far as the eye can tell, or would if it were longer.
function runsTowards(plcalc: Plcalc, { division }: Answer, at: Point): boolean {
    const line = division?.lines[0];
    if (!line) return false;
    const turn = (plcalc.bearing(line.from, at) - line.bearing + 600) % 200;
    return Math.min(turn, 200 - turn) < kSeen_gon;
}

function piecesOf(division: Division): NamedPiece[] {
    const letter = division.held.map((_, i) => letters(i));
    const many = division.held.map((held) => held.pieces > 1);
    const count = new Map<number, number>();
    return division.pieces.map((piece) => {
        const nth = (count.get(piece.amount) ?? 0) + 1;
        count.set(piece.amount, nth);
        const { amount, area, asked, outer, holes } = piece;
        return { name: `${letter[amount] ?? '?'}${many[amount] ? nth : ''}`, area, asked, amount, rings: [outer, ...holes] };
    });
}

// -------------------------------------------------------------------------------------------------- asking

/** Asks plparcel. What it knows of a parcel is kept until another one comes. */
export class Solver {
    private readonly reports = new WeakMap<NamedParcel, Report>();
    private ranges: { parcel?: NamedParcel; key?: string; list: readonly Range[] } = { list: [] };

    constructor(private readonly plcalc: Plcalc) {}

    reportOf(parcel: NamedParcel): Report {
        let report = this.reports.get(parcel);
        if (!report) {
            report = this.plcalc.check(asParcel(parcel));
            this.reports.set(parcel, report);
        }
        return report;
    }

    /** Undefined where a line was dragged to a place where there is none. */
    solve(parcel: NamedParcel, question: Question): Solved | undefined {
        return question.dragged ? this.follow(parcel, question, question.dragged) : this.hold(parcel, question);
    }

    private hold(parcel: NamedParcel, { asked, settings }: Question): Solved {
        const typed = amountsOf(asked.mode, asked.typed[asked.mode]);
        const report = this.reportOf(parcel);
        const none = { parcel, report, corners: cornersOf(parcel), newPoints: [], cuts: [], pieces: [] };
        const ranges = this.rangesOf(parcel, asked, settings);
        if (!('amounts' in typed)) return { asked, answer: { ...none, mistake: typed.mistake }, ranges, instead: [], hasOther: false };
        const answer = this.answerOf(parcel, requestOf(asked, typed.amounts, settings));
        return { asked, answer, ranges, instead: this.insteadOf(answer), hasOther: this.hasOther(answer) };
    }

    // The line through the pointer, proven like any other. Nobody asks then what else could be had.
    private follow(parcel: NamedParcel, { asked: before, settings }: Question, at: Point): Solved | undefined {
        let asked: Asked = { ...before, alternative: 0 };
        if (asked.kind === 'point') {
            const bearing = this.plcalc.bearing(asked.point, at);
            if (Number.isNaN(bearing)) return undefined;
            asked = { ...asked, gon: Number(this.plcalc.fixed((bearing + 400 - kLookBackGon) % 400, 4)) };
        }
        const amount = this.plcalc.amountAt(asParcel(parcel), requestOf(asked, [], settings), at);
        if (!amount) return undefined;
        const answers = this.answersOf(parcel, asked, amount, settings);
        const answer = answers.find((one) => runsTowards(this.plcalc, one, at)) ?? answers[0];
        if (!answer) return undefined;
        return { asked: { ...asked, alternative: answer.request?.alternative ?? 0 }, amount, answer, ranges: this.ranges.list, instead: [], hasOther: false };
    }

    // Whole lines from a corner or a place may hold an amount in several ways; the one through the pointer is meant.
    private answersOf(parcel: NamedParcel, asked: Asked, amount: Amount, settings: Settings): Answer[] {
        const count = asked.whole && (asked.kind === 'vertex' || asked.kind === 'place') ? kMostAlternatives : 1;
        return Array.from({ length: count }, (_, alternative) => this.answerOf(parcel, requestOf({ ...asked, alternative }, [amount], settings)))
            .filter(({ division }) => division?.divided);
    }

    private answerOf(parcel: NamedParcel, request: Request): Answer {
        const { pieces, ...division } = this.plcalc.divide(asParcel(parcel), request);
        const none = { parcel, report: this.reportOf(parcel), request, division, corners: cornersOf(parcel), newPoints: [], cuts: [], pieces: [] };
        if (!division.divided) return none;
        const names = new PointNames(parcel);
        const cuts = cutsOf(this.plcalc, { ...division, pieces }, names);
        return { ...none, cuts, newPoints: names.fresh, pieces: piecesOf({ ...division, pieces }) };
    }

    // It costs as much as a division.
    private rangesOf(parcel: NamedParcel, asked: Asked, settings: Settings): readonly Range[] {
        if (this.reportOf(parcel).status !== 'usable') return [];
        const request = requestOf(asked, [], settings);
        const key = JSON.stringify([request.line, request.measured, request.pieces]);
        if (this.ranges.parcel !== parcel || this.ranges.key !== key)
            this.ranges = { parcel, key, list: this.plcalc.feasible(asParcel(parcel), request).ranges };
        return this.ranges.list;
    }

    private hasOther({ request, parcel, division }: Answer): boolean {
        if (!request || !division?.divided || verticesOf(parcel) > kMostForOther) return false;
        if (request.pieces === 'any' && !['vertex', 'place', 'point'].includes(request.line.kind)) return false;
        return this.plcalc.divide(asParcel(parcel), { ...request, alternative: (request.alternative ?? 0) + 1 }).divided;
    }

    private insteadOf({ division, request, parcel }: Answer): readonly Alternative[] {
        const amount = request?.amounts[0];
        if (!division || division.divided || !amount || request.amounts.length > 1 || 'width' in amount || 'parts' in amount) return [];
        if (division.status === 'unusable_boundary' || verticesOf(parcel) > kMostForAlternatives) return [];
        return this.plcalc.alternatives(asParcel(parcel), amount, request.measured, kLookAt).slice(0, kMostAlternatives);
    }
}
