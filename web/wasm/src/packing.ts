// Numbers in a row: a request in the order in which exports.cpp reads it, and what reads an answer.

import type { Amount, Line, Parcel, Point, Request, Ring } from './index.js';

export const kCuts = ['parallel', 'perpendicular', 'vertex', 'bearing', 'segment', 'place', 'point'] as const;
export const kJoins = ['loop', 'open', 'fork'] as const;
const kArea = 0;
const kProduct = 1;
const kShare = 2;
export const kWidth = 3;
const kParts = 4;

export function pushPoint(out: number[], p: Point): void {
    out.push(p[0], p[1]);
}

export function pushRing(out: number[], ring: Ring): void {
    out.push(ring.length);
    for (const p of ring) out.push(p[0], p[1]);
}

export function pushParcel(out: number[], parcel: Parcel): void {
    const holes = parcel.holes ?? [];
    out.push(1 + holes.length);
    pushRing(out, parcel.outer);
    for (const hole of holes) pushRing(out, hole);
}

const kNowhere: Point = [0, 0];

// kind, side or vertex, ring, bearing, a, b, along
function pushLine(out: number[], line: Line): void {
    const index = line.kind === 'vertex' ? line.vertex : 'side' in line ? line.side : 0;
    out.push(kCuts.indexOf(line.kind), index, ('ring' in line ? line.ring : 0) ?? 0);
    out.push(('gon' in line ? line.gon : 0) ?? 0);
    pushPoint(out, line.kind === 'segment' ? line.from : line.kind === 'point' ? line.point : kNowhere);
    pushPoint(out, line.kind === 'segment' ? line.to : kNowhere);
    out.push(line.kind === 'place' ? line.along : 0);
}

function pushAmount(out: number[], amount: Amount): void {
    if ('area' in amount) out.push(kArea, amount.area, 0);
    else if ('product' in amount) out.push(kProduct, amount.product[0], amount.product[1]);
    else if ('share' in amount) out.push(kShare, amount.share[0], amount.share[1]);
    else if ('width' in amount) out.push(kWidth, amount.width, 0);
    else out.push(kParts, amount.parts, 0);
}

export function pushRequest(out: number[], request: Request): void {
    pushLine(out, request.line);
    out.push(request.measured === 'opposite' ? 1 : 0, request.alternative ?? 0, request.pieces === 'any' ? 1 : 0);
    out.push(request.decimals ?? NaN, request.tolerance ?? 1e-6);
    out.push(request.amounts.length);
    for (const amount of request.amounts) pushAmount(out, amount);
}

/** Takes the numbers of an answer one after the other. */
export class Reader {
    private next = 0;
    constructor(private readonly numbers: Float64Array) {}

    number(): number {
        return this.numbers[this.next++] as number;
    }
    flag(): boolean {
        return this.number() !== 0;
    }
    point(): Point {
        return [this.number(), this.number()];
    }
    list<T>(item: () => T): T[] {
        const n = this.number();
        const items: T[] = [];
        for (let i = 0; i < n; ++i) items.push(item());
        return items;
    }
    ring(): Point[] {
        return this.list(() => this.point());
    }
}
