// The drawing of a parcel and its division, the same on the screen and on paper: pieces, sides, lines, and their figures.

import type { Point, SideMeasure } from '@plcalc/wasm';
import OlPolygon from 'ol/geom/Polygon.js';

import type { Answer, NamedPiece } from '../answer';
import type { Numbers } from '../numbers';
import type { NamedParcel } from '../parcels';
import type { Asked, Spot } from '../state';
import { LabelPlaces } from './labels';
import type { Lettering, Pen, XY } from './pen';

export const kColors = {
    ink: '#16202b', muted: '#55616e', line: '#b3151b', base: '#1450a3', paper: '#ffffff', other: '#eceae4', otherInk: '#9a968c',
    pieces: ['#f7dba7', '#dcead6', '#d3e2f2', '#f3d8db', '#e4dcf0', '#f0ecc6', '#d4ebe8', '#ecdccf'],
    undivided: '#f4efe3', hover: '#1450a3',
} as const;

export interface View {
    /** From the plane to the sheet. */
    place(p: Point): XY;
    /** How long a screen's pixel is on the sheet: 1, or as many millimetres. */
    readonly pixel: number;
    /** The sheet's size. */
    readonly width: number;
    readonly height: number;
}

export interface Looks {
    readonly asked: Asked;
    readonly others: readonly NamedParcel[];
    readonly hovered?: { readonly kind: 'side' | 'corner'; readonly spot: Spot } | undefined;
    /** Handles at the lines, on the screen only. */
    readonly handles: boolean;
}

export function pieceColor(index: number): string {
    return kColors.pieces[index % kColors.pieces.length] as string;
}

export function drawScene(pen: Pen, view: View, answer: Answer, looks: Looks, numbers: Numbers): void {
    new Scene(pen, view, answer, looks, numbers).draw();
}

const kSideText = 12;
const kPieceText = 16;
const kMostCornerNames = 400;

// No figure fits a side that is shorter on the screen.
const kShortestLabelled = 16;

class Scene {
    private readonly places: LabelPlaces;
    private readonly rings: readonly (readonly XY[])[];

    constructor(private readonly pen: Pen, private readonly view: View, private readonly answer: Answer,
        private readonly looks: Looks, private readonly numbers: Numbers) {
        this.places = new LabelPlaces(view.width, view.height);
        this.rings = [answer.parcel.outer, ...answer.parcel.holes].map((ring) => this.placed(ring));
    }

    draw(): void {
        for (const other of this.looks.others) {
            const rings = [other.outer, ...other.holes].map((ring) => this.placed(ring));
            this.pen.shape(rings, { fill: kColors.other, stroke: kColors.otherInk, width: this.px(1) });
        }
        this.drawPieces();
        this.drawBoundary();
        this.drawLines();
        this.drawPoints();
        this.placePieceLabels();
        this.placeLineLabels();
        this.placePointNames();
        this.placeSideLabels();
    }

    private px(pixels: number): number {
        return pixels * this.view.pixel;
    }
    private placed(ring: readonly Point[]): XY[] {
        return ring.map((p) => this.view.place(p));
    }

    private drawPieces(): void {
        if (this.answer.pieces.length === 0) {
            this.pen.shape(this.rings, { fill: kColors.undivided });
            return;
        }
        for (const piece of this.answer.pieces) this.pen.shape(piece.rings.map((ring) => this.placed(ring)), { fill: pieceColor(piece.amount) });
    }

    private drawBoundary(): void {
        this.pen.shape(this.rings, { stroke: kColors.ink, width: this.px(1.6) });
        const { hovered, asked } = this.looks;
        if (['parallel', 'perpendicular', 'place'].includes(asked.kind)) this.drawSide(asked.side, kColors.base, 5);
        if (hovered?.kind === 'side') this.drawSide(hovered.spot, `${kColors.hover}66`, 9);
    }

    private drawSide(spot: Spot, color: string, width: number): void {
        const ring = this.rings[spot.ring] ?? [];
        const from = ring[spot.index];
        const to = ring[(spot.index + 1) % ring.length];
        if (from && to) this.pen.line([from, to], { stroke: color, width: this.px(width) });
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
        for (const piece of this.answer.pieces) {
            const at = this.inside(piece);
            const rows: [string, boolean, number][] = [
                [piece.name, true, kPieceText],
                [this.numbers.area(piece.area), false, kPieceText - 2],
            ];
            const widest = Math.max(...rows.map(([text, bold, size]) => this.pen.widthOf(text, { size: this.px(size), bold })));
            const free = [0, 1, -1, 2, -2, 3, -3].map((k): XY => [at[0], at[1] + this.px(19 * k)]).find((place) =>
                this.places.isFree(place, widest, this.px(36), 0));
            const place = free ?? (this.places.isFree(at, this.px(12), this.px(16), 0) ? at : undefined);
            if (!place) continue;
            this.places.take(place, widest, this.px(38), 0);
            rows.forEach(([text, bold, size], i) => this.pen.text([place[0], place[1] + this.px(i === 0 ? -9 : 9)], text,
                { size: this.px(size), bold, color: kColors.ink, halo: pieceColor(piece.amount) }));
        }
        if (this.answer.pieces.length > 0) return;
        const at = this.inside({ rings: [this.answer.parcel.outer, ...this.answer.parcel.holes] });
        const text = this.numbers.area(this.answer.measures.report.area);
        const lettering: Lettering = { size: this.px(kPieceText), color: kColors.ink, halo: kColors.undivided, bold: true };
        this.places.take(at, this.pen.widthOf(text, lettering), this.px(20), 0);
        this.pen.text(at, text, lettering);
    }

    // A place for a label, found by OpenLayers.
    private inside(piece: Pick<NamedPiece, 'rings'>): XY {
        const rings = piece.rings.map((ring) => this.placed([...ring, ring[0] as Point]).map((p) => [p[0], p[1]]));
        const [x = 0, y = 0] = new OlPolygon(rings).getInteriorPoint().getCoordinates();
        return [x, y];
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
        const [east, south] = this.middle();
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

    private middle(): XY {
        const ring = this.rings[0] ?? [];
        const xs = ring.map((p) => p[0]);
        const ys = ring.map((p) => p[1]);
        const mid = (values: readonly number[]): number =>
            (values.reduce((least, v) => Math.min(least, v), Infinity) + values.reduce((most, v) => Math.max(most, v), -Infinity)) / 2;
        return [mid(xs), mid(ys)];
    }

    // Parts of sides where lines end, whole sides elsewhere: the sides of the pieces without the dividing lines.
    private placeSideLabels(): void {
        const lettering: Lettering = { size: this.px(kSideText), color: kColors.muted, halo: kColors.paper };
        const cut = new Set(this.answer.cuts.flatMap(({ from, to }) => [`${from.at} ${to.at}`, `${to.at} ${from.at}`]));
        const outlines: [readonly Point[], readonly SideMeasure[]][] = this.answer.pieces.length > 0
            ? this.answer.pieces.flatMap((piece) => piece.rings.map((ring, k): [readonly Point[], readonly SideMeasure[]] => [ring, piece.sides[k] ?? []]))
            : [this.answer.parcel.outer, ...this.answer.parcel.holes].map((ring, k) => [ring, this.answer.measures.rings[k] ?? []]);
        for (const [ring, sides] of outlines) {
            const placed = this.placed(ring);
            // On the sheet, where y grows downwards.
            const turns = placed.reduce((sum, p, i) => {
                const q = placed[(i + 1) % placed.length] as XY;
                return sum + (p[0] - (placed[0] as XY)[0]) * (q[1] - (placed[0] as XY)[1]) - (q[0] - (placed[0] as XY)[0]) * (p[1] - (placed[0] as XY)[1]);
            }, 0);
            const is_hole = ring !== outlines[0]?.[0] && this.answer.parcel.holes.some((hole) => hole[0] === ring[0]);
            const outward = turns > 0 !== is_hole ? -1 : 1;
            ring.forEach((from, i) => {
                const to = ring[(i + 1) % ring.length] as Point;
                const side = sides[i];
                const [a, b] = [placed[i] as XY, placed[(i + 1) % placed.length] as XY];
                const short = Math.hypot(b[0] - a[0], b[1] - a[1]) < this.px(kShortestLabelled);
                if (short || !side || cut.has(`${from} ${to}`)) return;
                const text = this.numbers.length(side.length);
                this.alongside(a, b, text, lettering, [0.5, 0.35, 0.65], [12.5 * outward], false);
            });
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
