// The drawing of a parcel and its division, the same on the screen and on paper: pieces, sides, lines, and their figures.

import type { Point } from '@plcalc/wasm';

import type { Answer, NamedPiece } from '../answer';
import type { Numbers } from '../numbers';
import type { NamedParcel } from '../parcels';
import type { Asked, Spot } from '../state';
import { kColors } from './colors';
import { LabelPlaces, type Within } from './labels';
import type { Lettering, Pen, XY } from './pen';
import { sidesOf } from './tables';

export interface View {
    /** From the plane to the sheet. */
    place(p: Point): XY;
    /** How long a screen's pixel is on the sheet: 1, or as many millimetres. */
    readonly pixel: number;
    /** The sheet's size. */
    readonly width: number;
    readonly height: number;
    /** Where labels may stand; anywhere on the sheet without it. */
    readonly within?: Within;
}

export interface Looks {
    readonly asked: Asked;
    /** The first point of a segment of which the second is yet to come. */
    readonly begun?: Point | undefined;
    readonly hovered?: { readonly kind: 'side' | 'corner'; readonly spot: Spot } | undefined;
    /** Handles at the lines, on the screen only. */
    readonly handles: boolean;
}

export function pieceColor(index: number): string {
    return kColors.pieces[index % kColors.pieces.length] as string;
}

/** The other parcels of a file, which lie below. */
export function drawOthers(pen: Pen, view: View, others: readonly NamedParcel[]): void {
    for (const other of others) {
        const rings = [other.outer, ...other.holes].map((ring) => thinned(ring.map((p) => view.place(p)), view.pixel));
        pen.shape(rings, { fill: kColors.other, stroke: kColors.otherInk, width: view.pixel });
        if (others.length <= kMostNamed) nameOther(pen, view, other.name, rings[0] ?? []);
    }
}

// Names help to find one's own parcel; further ones would only be a crowd.
const kMostNamed = 1000;

function nameOther(pen: Pen, view: View, name: string, ring: readonly XY[]): void {
    if (name === '') return;
    const xs = ring.map((p) => p[0]);
    const ys = ring.map((p) => p[1]);
    const [left, right, top, bottom] = [Math.min(...xs), Math.max(...xs), Math.min(...ys), Math.max(...ys)];
    const lettering: Lettering = { size: 12 * view.pixel, color: kColors.muted, halo: kColors.other };
    if (right < 0 || left > view.width || bottom < 0 || top > view.height || pen.widthOf(name, lettering) > 0.8 * (right - left)) return;
    const at: XY = [(left + right) / 2, (top + bottom) / 2];
    if (isWithin([ring], at)) pen.text(at, name, lettering);
}

/** By the even-odd rule, on the sheet. */
export function isWithin(rings: readonly (readonly XY[])[], p: XY): boolean {
    let inside = false;
    for (const ring of rings)
        ring.forEach((a, i) => {
            const b = ring[(i + 1) % ring.length] as XY;
            if (a[1] > p[1] !== b[1] > p[1] && p[0] < a[0] + ((p[1] - a[1]) / (b[1] - a[1])) * (b[0] - a[0])) inside = !inside;
        });
    return inside;
}

// Of the box around a ring.
function middleOf(ring: readonly XY[]): XY {
    const [low, high] = [[Infinity, Infinity], [-Infinity, -Infinity]] as [[number, number], [number, number]];
    for (const p of ring)
        for (const k of [0, 1] as const) {
            low[k] = Math.min(low[k], p[k]);
            high[k] = Math.max(high[k], p[k]);
        }
    return [(low[0] + high[0]) / 2, (low[1] + high[1]) / 2];
}

// Where a horizontal line enters and leaves an area.
function crossings(rings: readonly (readonly XY[])[], y: number): number[] {
    const xs: number[] = [];
    for (const ring of rings)
        ring.forEach((a, i) => {
            const b = ring[(i + 1) % ring.length] as XY;
            if (a[1] > y !== b[1] > y) xs.push(a[0] + ((y - a[1]) / (b[1] - a[1])) * (b[0] - a[0]));
        });
    return xs.sort((a, b) => a - b);
}

// Lines across an area, by the even-odd rule.
function hatch(rings: readonly (readonly XY[])[], angle: number, spacing: number): (readonly [XY, XY])[] {
    const [cos, sin] = [Math.cos(angle), Math.sin(angle)];
    const met = new Map<number, number[]>();
    for (const ring of rings)
        ring.forEach((a, i) => {
            const b = ring[(i + 1) % ring.length] as XY;
            const [u, v] = [a[0] * cos + a[1] * sin, a[1] * cos - a[0] * sin];
            const [du, dv] = [b[0] * cos + b[1] * sin - u, b[1] * cos - b[0] * sin - v];
            for (let k = Math.floor(Math.min(v, v + dv) / spacing) + 1; k * spacing <= Math.max(v, v + dv); ++k) {
                if (dv === 0) break;
                const at = u + ((k * spacing - v) / dv) * du;
                const there = met.get(k);
                if (there) there.push(at);
                else met.set(k, [at]);
            }
        });
    const place = (u: number, v: number): XY => [u * cos - v * sin, v * cos + u * sin];
    return [...met].flatMap(([k, at]) => {
        at.sort((a, b) => a - b);
        return Array.from({ length: Math.floor(at.length / 2) }, (_, i) => [place(at[2 * i] as number, k * spacing), place(at[2 * i + 1] as number, k * spacing)] as const);
    });
}

// Corners nearer to the one before than the eye can part are left out of what is drawn.
const kThinnest = 0.4;
const kFewestToThin = 500;

function thinned(ring: readonly XY[], pixel: number): readonly XY[] {
    if (ring.length < kFewestToThin) return ring;
    const least = kThinnest * pixel;
    let last: XY | undefined;
    return ring.filter((p) => {
        if (last && Math.abs(p[0] - last[0]) < least && Math.abs(p[1] - last[1]) < least) return false;
        last = p;
        return true;
    });
}

export function drawScene(pen: Pen, view: View, answer: Answer, looks: Looks, numbers: Numbers): void {
    new Scene(pen, view, answer, looks, numbers).draw();
}

const kSideText = 12;
const kPieceText = 16;
const kMostCornerNames = 400;

// At these parts of its height an area is looked at for a place for its label.
const kLookedAtLines = [0.5, 0.4, 0.6, 0.3, 0.7, 0.2, 0.8, 0.1, 0.9];

// No figure fits a side that is shorter on the screen.
const kShortestLabelled = 16;

class Scene {
    private readonly places: LabelPlaces;
    private readonly rings: readonly (readonly XY[])[];
    private readonly outline: readonly (readonly XY[])[];
    private readonly middle: XY;

    constructor(private readonly pen: Pen, private readonly view: View, private readonly answer: Answer,
        private readonly looks: Looks, private readonly numbers: Numbers) {
        this.places = new LabelPlaces(view.within ?? { left: 0, top: 0, right: view.width, bottom: view.height });
        this.rings = [answer.parcel.outer, ...answer.parcel.holes].map((ring) => this.placed(ring));
        this.outline = this.rings.map((ring) => thinned(ring, view.pixel));
        this.middle = middleOf(this.rings[0] ?? []);
    }

    draw(): void {
        this.drawPieces();
        this.drawBoundary();
        this.drawLines();
        this.drawPoints();
        this.placePieceLabels();
        this.placeLineLabels();
        this.placePointNames();
        this.placeSideLabels();
        if (!this.looks.handles) this.placeWholeSides();
    }

    private px(pixels: number): number {
        return pixels * this.view.pixel;
    }
    private placed(ring: readonly Point[]): XY[] {
        return ring.map((p) => this.view.place(p));
    }

    private drawPieces(): void {
        if (this.answer.pieces.length === 0) {
            this.pen.shape(this.outline, { fill: kColors.undivided });
            return;
        }
        for (const piece of this.answer.pieces) {
            const rings = piece.rings.map((ring) => thinned(this.placed(ring), this.view.pixel));
            this.pen.shape(rings, { fill: pieceColor(piece.amount) });
            // On paper, pieces are told apart in black and white too.
            if (!this.looks.handles && piece.amount % 2 === 1)
                for (const stroke of hatch(rings, piece.amount % 4 === 1 ? Math.PI / 4 : -Math.PI / 4, this.px(7.7)))
                    this.pen.line(stroke, { stroke: kColors.hatch, width: this.px(0.6) });
        }
    }

    private drawBoundary(): void {
        this.pen.shape(this.outline, { stroke: kColors.ink, width: this.px(1.6) });
        const { hovered, asked } = this.looks;
        if (['parallel', 'perpendicular', 'place'].includes(asked.kind)) this.drawSide(asked.side, kColors.base, 5);
        if (asked.kind === 'segment') this.drawAxis(asked.axis);
        if (hovered?.kind === 'side') this.drawSide(hovered.spot, `${kColors.hover}66`, 9);
    }

    private drawSide(spot: Spot, color: string, width: number): void {
        const ring = this.rings[spot.ring] ?? [];
        const from = ring[spot.index];
        const to = ring[(spot.index + 1) % ring.length];
        if (from && to) this.pen.line([from, to], { stroke: color, width: this.px(width) });
    }

    // With an arrow, because what is asked lies on its right.
    private drawAxis([from, to]: readonly [Point, Point]): void {
        const [a, b] = [this.view.place(from), this.view.place(to)];
        const way = Math.atan2(b[1] - a[1], b[0] - a[0]);
        const barb = (turn: number): XY => [b[0] - this.px(15) * Math.cos(way + turn), b[1] - this.px(15) * Math.sin(way + turn)];
        const style = { stroke: kColors.base, width: this.px(3.5) };
        this.pen.line([a, b], { ...style, dash: [this.px(12), this.px(7)] });
        this.pen.line([barb(0.45), b, barb(-0.45)], style);
        for (const at of [a, b]) this.pen.circle(at, this.px(4.5), { fill: kColors.base, stroke: kColors.paper, width: this.px(1.3) });
    }

    private drawLines(): void {
        for (const cut of this.answer.cuts)
            this.pen.line([this.view.place(cut.from.at), this.view.place(cut.to.at)], { stroke: kColors.line, width: this.px(2.4) });
    }

    private drawPoints(): void {
        const { asked, hovered } = this.looks;
        const dense = this.answer.corners.length > kMostCornerNames;
        if (!dense)
            for (const ring of this.rings)
                for (const at of ring) this.pen.circle(at, this.px(3), { fill: kColors.paper, stroke: kColors.ink, width: this.px(1.4) });
        const corner = (spot: Spot, color: string, radius: number): void => {
            const at = this.rings[spot.ring]?.[spot.index];
            if (at) this.pen.circle(at, this.px(radius), { fill: color, stroke: kColors.paper, width: this.px(1.5) });
        };
        if (hovered?.kind === 'corner') corner(hovered.spot, `${kColors.hover}99`, 9);
        if (asked.kind === 'vertex') corner(asked.corner, kColors.base, 6.5);
        for (const point of this.answer.newPoints)
            this.pen.circle(this.view.place(point.at), this.px(4.2), { fill: kColors.line, stroke: kColors.paper, width: this.px(1.2) });
        if (asked.kind === 'point') {
            this.pen.circle(this.view.place(asked.point), this.px(6), { fill: kColors.base, stroke: kColors.paper, width: this.px(1.5) });
        }
        if (this.looks.begun) this.pen.circle(this.view.place(this.looks.begun), this.px(6), { fill: kColors.base, stroke: kColors.paper, width: this.px(1.5) });
        if (this.looks.handles) this.drawHandles();
    }

    // One line can be dragged: it gets a grip.
    private drawHandles(): void {
        const cut = this.answer.cuts[0];
        if (!cut || this.answer.division?.lines.length !== 1) return;
        const [a, b] = [this.view.place(cut.from.at), this.view.place(cut.to.at)];
        const middle: XY = [(a[0] + b[0]) / 2, (a[1] + b[1]) / 2];
        const along = Math.atan2(b[1] - a[1], b[0] - a[0]);
        this.pen.circle(middle, this.px(11), { fill: kColors.paper, stroke: kColors.line, width: this.px(2) });
        // A double arrow across the line.
        const at = (distance: number, across: number): XY => [
            middle[0] - this.px(distance) * Math.sin(along) + this.px(across) * Math.cos(along),
            middle[1] + this.px(distance) * Math.cos(along) + this.px(across) * Math.sin(along),
        ];
        const stroke = { stroke: kColors.line, width: this.px(1.9) };
        this.pen.line([at(-6.5, 0), at(6.5, 0)], stroke);
        for (const side of [-1, 1]) this.pen.line([at(3.2 * side, -3.3), at(6.5 * side, 0), at(3.2 * side, 3.3)], stroke);
        this.places.take(middle, this.px(26), this.px(26), 0);
    }

    private placePieceLabels(): void {
        for (const piece of this.answer.pieces) this.placePieceLabel(piece);
        if (this.answer.pieces.length > 0) return;
        const text = this.numbers.area(this.answer.report.area);
        const lettering: Lettering = { size: this.px(kPieceText), color: kColors.ink, halo: kColors.undivided, bold: true };
        const at = this.inside(this.outline, this.pen.widthOf(text, lettering))[0] ?? [0, 0];
        this.places.take(at, this.pen.widthOf(text, lettering), this.px(20), 0);
        this.pen.text(at, text, lettering);
    }

    // Name and area, or the name alone where a piece is too narrow for its area: on the piece next to it, that would mislead.
    private placePieceLabel(piece: NamedPiece): void {
        const rings = piece.rings.map((ring) => thinned(this.placed(ring), this.view.pixel));
        const area = this.numbers.area(piece.area);
        const widthOf = (text: string, size: number, bold: boolean): number => this.pen.widthOf(text, { size: this.px(size), bold });
        const width = Math.max(widthOf(area, kPieceText - 2, false), widthOf(piece.name, kPieceText, true));
        const places = this.inside(rings, 1.2 * width);
        const fits = ([x, y]: XY): boolean => this.places.isFree([x, y], width, this.px(36), 0) &&
            [-0.5, 0.5].every((part) => isWithin(rings, [x + part * width, y + this.px(9)])) && isWithin(rings, [x, y - this.px(16)]);
        const style = { color: kColors.ink, halo: pieceColor(piece.amount) };
        const place = places.flatMap((at) => [0, 1, -1].map((k): XY => [at[0], at[1] + this.px(19 * k)])).find(fits);
        if (place) {
            this.places.take(place, width, this.px(38), 0);
            this.pen.text([place[0], place[1] - this.px(9)], piece.name, { ...style, size: this.px(kPieceText), bold: true });
            this.pen.text([place[0], place[1] + this.px(9)], area, { ...style, size: this.px(kPieceText - 2) });
            return;
        }
        const short = widthOf(piece.name, kPieceText, true);
        const at = places.find((one) => this.places.isFree(one, short, this.px(16), 0));
        if (!at) return;
        this.places.take(at, short, this.px(18), 0);
        this.pen.text(at, piece.name, { ...style, size: this.px(kPieceText), bold: true });
    }

    // Where a text could stand: in the middle of the widest part of some lines of writing, those that are wide enough first.
    private inside(rings: readonly (readonly XY[])[], wanted: number): XY[] {
        const ys = (rings[0] ?? []).map((p) => p[1]);
        const [top, bottom] = [ys.reduce((least, y) => Math.min(least, y), Infinity), ys.reduce((most, y) => Math.max(most, y), -Infinity)];
        const spans = kLookedAtLines.map((part): { width: number; at: XY } => {
            const y = top + part * (bottom - top);
            const xs = crossings(rings, y);
            let best: { width: number; at: XY } = { width: -1, at: rings[0]?.[0] ?? [0, 0] };
            for (let i = 0; i + 1 < xs.length; i += 2) {
                const [left, right] = [xs[i] as number, xs[i + 1] as number];
                if (right - left > best.width) best = { width: right - left, at: [(left + right) / 2, y] };
            }
            return best;
        });
        return spans.sort((one, other) => Math.min(other.width, wanted) - Math.min(one.width, wanted)).map(({ at }) => at);
    }

    private placeLineLabels(): void {
        for (const cut of this.answer.cuts) {
            const text = `${this.numbers.length(cut.length)} · ${this.numbers.angle(cut.bearing)}`;
            const lettering: Lettering = { size: this.px(kSideText), color: kColors.line, halo: kColors.paper };
            const [a, b] = [this.view.place(cut.from.at), this.view.place(cut.to.at)];
            this.alongside(a, b, text, lettering, [0.28, 0.72, 0.5], [10, -10], true) ||
                this.alongside(a, b, this.numbers.length(cut.length), lettering, [0.28, 0.72, 0.5], [10, -10], true);
        }
    }

    private placePointNames(): void {
        for (const { name, at } of this.answer.newPoints)
            this.nameAt(this.view.place(at), name, { size: this.px(13), bold: true, color: kColors.line, halo: kColors.paper });
        if (this.answer.corners.length > kMostCornerNames) return;
        for (const { name, at } of this.answer.corners)
            this.nameAt(this.view.place(at), name, { size: this.px(13), bold: true, color: kColors.ink, halo: kColors.paper });
    }

    // Outside the parcel's middle first, then round the point.
    private nameAt(at: XY, name: string, lettering: Lettering): void {
        const [east, south] = this.middle;
        const away = Math.atan2(at[1] - south, at[0] - east);
        const width = this.pen.widthOf(name, lettering);
        for (const turn of [0, 0.7, -0.7, 1.4, -1.4, 2.1, -2.1, Math.PI]) {
            const angle = away + turn;
            const place: XY = [at[0] + Math.cos(angle) * (this.px(11) + width / 2), at[1] + Math.sin(angle) * this.px(15)];
            if (!this.places.isFree(place, width, this.px(14), 0)) continue;
            this.places.take(place, width, this.px(14), 0);
            this.pen.text(place, name, lettering);
            return;
        }
    }


    // Parts of sides where lines end, whole sides elsewhere: the sides of the pieces without the dividing lines.
    private placeSideLabels(): void {
        const lettering: Lettering = { size: this.px(kSideText), color: kColors.muted, halo: kColors.paper };
        const cut = new Set(this.answer.cuts.flatMap(({ from, to }) => [`${from.at} ${to.at}`, `${to.at} ${from.at}`]));
        const outlines = this.answer.pieces.length > 0 ? this.answer.pieces.flatMap((piece) => piece.rings) : [this.answer.parcel.outer, ...this.answer.parcel.holes];
        const least = this.px(kShortestLabelled);
        for (const ring of outlines) {
            const placed = this.placed(ring);
            // On the sheet, where y grows downwards.
            const turns = placed.reduce((sum, p, i) => {
                const q = placed[(i + 1) % placed.length] as XY;
                return sum + (p[0] - (placed[0] as XY)[0]) * (q[1] - (placed[0] as XY)[1]) - (q[0] - (placed[0] as XY)[0]) * (p[1] - (placed[0] as XY)[1]);
            }, 0);
            const is_hole = ring !== outlines[0] && this.answer.parcel.holes.some((hole) => hole[0] === ring[0]);
            const outward = turns > 0 !== is_hole ? -1 : 1;
            ring.forEach((from, i) => {
                const [a, b] = [placed[i] as XY, placed[(i + 1) % placed.length] as XY];
                if (Math.abs(b[0] - a[0]) < least && Math.abs(b[1] - a[1]) < least) return;
                const to = ring[(i + 1) % ring.length] as Point;
                if (!cut.has(`${from} ${to}`)) this.alongside(a, b, this.numbers.distance(from, to), lettering, [0.5, 0.35, 0.65], [12.5 * outward], false);
            });
        }
    }

    // On paper, sides that are cut have their whole length beyond those of their parts.
    private placeWholeSides(): void {
        const lettering: Lettering = { size: this.px(kSideText), color: kColors.ink, halo: kColors.paper };
        const clockwise = !this.answer.report.anticlockwise;
        for (const { points, ring } of sidesOf(this.answer)) {
            const [from, to] = [points[0], points.at(-1)];
            if (!from || !to || points.length < 3) continue;
            const text = `${from.name}–${to.name}: ${this.numbers.distance(from.at, to.at)}`;
            const outward = clockwise === (ring === 0) ? -1 : 1;
            this.alongside(this.view.place(from.at), this.view.place(to.at), text, lettering, [0.5, 0.4, 0.6, 0.3, 0.7], [28 * outward, 40 * outward], false);
        }
    }

    // Writes along a segment, at a distance to the right of its way on the sheet. Short segments stay without.
    private alongside(a: XY, b: XY, text: string, lettering: Lettering, at: readonly number[], beside: readonly number[], must_fit: boolean): boolean {
        const length = Math.hypot(b[0] - a[0], b[1] - a[1]);
        const width = this.pen.widthOf(text, lettering);
        if (length < width * (must_fit ? 1.15 : 0.9) + this.px(must_fit ? 30 : 4)) return false;
        let angle = Math.atan2(b[1] - a[1], b[0] - a[0]);
        const across = angle + Math.PI / 2;
        if (angle > Math.PI / 2 + 1e-6) angle -= Math.PI;
        else if (angle <= -Math.PI / 2 + 1e-6) angle += Math.PI;
        for (const part of at)
            for (const distance of beside) {
                const place: XY = [a[0] + part * (b[0] - a[0]) + Math.cos(across) * this.px(distance),
                    a[1] + part * (b[1] - a[1]) + Math.sin(across) * this.px(distance)];
                if (!this.places.isFree(place, width, lettering.size, angle)) continue;
                this.places.take(place, width, lettering.size, angle);
                this.pen.text(place, text, { ...lettering, angle });
                return true;
            }
        return false;
    }
}
