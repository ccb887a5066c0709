// Parcels as they were read, and what was assumed on the way.

import type { Point } from '@plcalc/wasm';

/** Rings without the vertex that closes them. */
export interface NamedParcel {
    readonly name: string;
    readonly outer: readonly Point[];
    readonly holes: readonly (readonly Point[])[];
    /** Names of the outer ring's corners, where the file has them. */
    readonly corners?: readonly string[];
}

/** A note is a key of the texts, with what stands in its gaps. */
export type Note = readonly [key: string, ...values: string[]];

export interface Reading {
    readonly parcels: readonly NamedParcel[];
    readonly notes: readonly Note[];
    readonly unit?: 'm' | 'ft';
}

/** Something that a person can mend; its note says what. */
export class Unreadable extends Error {
    constructor(readonly note: Note) {
        super(note[0]);
    }
}

export function verticesOf(parcel: NamedParcel): number {
    return parcel.outer.length + parcel.holes.reduce((sum, hole) => sum + hole.length, 0);
}

/** Something that a worker has no means for, so that the page has to do it. */
export class NeedsPage extends Error {}

/** What a page can hold without becoming slow. The program has no such limits. */
export const kMostBytes = 32e6;
export const kMostVertices = 200_000;
export const kMostParcels = 20_000;

/** XML is read by the page itself, bit by bit; a document that cannot be parted is to be small. */
export const kMostXmlBytes = 16e6;
export const kMostXmlInOne = 1e6;

/** Whatever the unit, no land lies beyond. */
const kFarthest = 1e12;

/** For a file or a division; then it is given up. */
export const kMostSeconds = 60;

/** Without the closing vertex. @throws Unreadable for coordinates that are none */
export function opened(ring: readonly (readonly number[])[]): Point[] {
    const points = ring.map((p): Point => [Number(p[0]), Number(p[1])]);
    if (points.some((p) => !Number.isFinite(p[0]) || !Number.isFinite(p[1]))) throw new Unreadable(['notFinite']);
    const far = points.find((p) => Math.abs(p[0]) > kFarthest || Math.abs(p[1]) > kFarthest);
    if (far) throw new Unreadable(['tooFar', String(far[0]), String(far[1])]);
    const first = points[0];
    const last = points.at(-1);
    if (points.length > 1 && first && last && first[0] === last[0] && first[1] === last[1]) points.pop();
    return points;
}

export function megabytes(bytes: number): string {
    return String(Math.ceil(bytes / 1e6));
}
