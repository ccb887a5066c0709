// The tables of a plan, as in the program's: pieces, dividing lines, sides that are cut, and the points around the parcel; set in
// columns over as many sheets as they need.

import type { Point } from '@plcalc/wasm';

import { isParts, type Answer, type NamedPoint } from '../answer';
import type { Numbers } from '../numbers';
import { t } from '../texts';
import { kColors } from './colors';
import type { Pen } from './pen';

export interface PlanTable {
    readonly title: string;
    readonly heads: readonly string[];
    readonly rows: readonly (readonly string[])[];
}

/** A side of the parcel with the new points on it. */
export interface CutSide {
    /** From corner to corner, both included. */
    readonly points: readonly NamedPoint[];
    /** Which ring it belongs to. */
    readonly ring: number;
}

const key = (p: Point): string => `${p[0]} ${p[1]}`;

// The boundary runs along the sides of pieces that are no dividing line.
function nextOnBoundary(answer: Answer): Map<string, Point> {
    const cut = new Set(answer.cuts.flatMap(({ from, to }) => [`${key(from.at)} ${key(to.at)}`, `${key(to.at)} ${key(from.at)}`]));
    const next = new Map<string, Point>();
    for (const { rings } of answer.pieces)
        for (const ring of rings)
            ring.forEach((from, i) => {
                const to = ring[(i + 1) % ring.length] as Point;
                if (!cut.has(`${key(from)} ${key(to)}`)) next.set(key(from), to);
            });
    return next;
}

/** All sides of the parcel in order, each with the new points that lie on it. */
export function sidesOf(answer: Answer): CutSide[] {
    const next = nextOnBoundary(answer);
    const fresh = new Map(answer.newPoints.map((point) => [key(point.at), point]));
    let corner = 0;
    return [answer.parcel.outer, ...answer.parcel.holes].flatMap((ring, k) => {
        const first = corner;
        corner += ring.length;
        return ring.map((_, i): CutSide => {
            const [from, to] = [answer.corners[first + i] as NamedPoint, answer.corners[first + ((i + 1) % ring.length)] as NamedPoint];
            const points = [from];
            for (let at = next.get(key(from.at)); at && points.length <= fresh.size; at = next.get(key(at))) {
                const point = fresh.get(key(at));
                if (!point) break;
                points.push(point);
            }
            return { points: [...points, to], ring: k };
        });
    });
}

function withUnit(head: string, unit: string): string {
    return unit ? `${head} [${unit}]` : head;
}

export function tablesOf(answer: Answer, numbers: Numbers): PlanTable[] {
    const { division, pieces, cuts } = answer;
    if (!division?.divided) return [];
    const { unit } = numbers.settings;
    const last = division.held.length - 1;
    const whole = numbers.plainArea(answer.report.area);
    const tables: PlanTable[] = [{
        title: t('pieces'), heads: [t('piece'), withUnit(t('area'), unit && `${unit}²`), t('asked')],
        rows: [...pieces.map((piece) => [piece.name, numbers.plainArea(piece.area), piece.amount === last && !isParts(answer) ? t('rest') : numbers.plainArea(piece.asked)]),
            [t('sum'), whole, '']],
    }, {
        title: t('lines'), heads: [t('cutLine'), withUnit(t('length'), unit), t('bearingLabel')],
        rows: cuts.map((cut) => [`${cut.from.name} – ${cut.to.name}`, numbers.length(cut.length), numbers.angle(cut.bearing)]),
    }];
    const sides = sidesOf(answer);
    const cut = sides.filter(({ points }) => points.length > 2);
    const ends = ({ points }: CutSide): [NamedPoint, NamedPoint] => [points[0] as NamedPoint, points.at(-1) as NamedPoint];
    if (cut.length > 0)
        tables.push({
            title: t('cutSides'), heads: [t('side'), withUnit(t('length'), unit)],
            rows: cut.map((side) => [ends(side).map((point) => point.name).join(' – '), numbers.distance(ends(side)[0].at, ends(side)[1].at)]),
        });
    const isNew = new Set(answer.newPoints);
    const around = new Set(sides.flatMap(({ points }) => points));
    const inside = answer.newPoints.filter((point) => !around.has(point));
    const coordinates = (point: NamedPoint): string[] => point.at.map((v) => (isNew.has(point) ? numbers.coordinate(v, division.decimals) : numbers.coordinate(v, numbers.settings.decimals)));
    tables.push({
        title: t('pointsAround'), heads: [t('newPoint'), t('east'), t('north'), withUnit(t('toNext'), unit)],
        rows: [...sides.flatMap(({ points }) => points.slice(0, -1).map((point, i) =>
            [point.name, ...coordinates(point), numbers.distance(point.at, (points[i + 1] as NamedPoint).at)])),
        ...inside.map((point) => [point.name, ...coordinates(point), ''])],
    });
    return tables;
}

// ------------------------------------------------------------------------------------------------ setting

/** Millimetres; y grows downwards. */
export interface Box {
    readonly left: number;
    readonly top: number;
    readonly right: number;
    readonly bottom: number;
}

/** What has not been set yet begins here. */
export interface Position {
    readonly table: number;
    readonly row: number;
}

export const kStart: Position = { table: 0, row: 0 };

const kSize = 2.5;
const kRow = 3.45;
const kCellGap = 3.2;
const kColumnGap = 7;
const kTableGap = 2.8;
// A table of so few rows is not broken.
const kShortTable = 12;

export class TableSetter {
    private readonly widths: readonly (readonly number[])[];

    /** @param ruler to measure text */
    constructor(private readonly tables: readonly PlanTable[], ruler: Pen) {
        this.widths = tables.map(({ title, heads, rows }) => {
            const widths = heads.map((head, i) => rows.reduce((most, row) => Math.max(most, ruler.widthOf(row[i] ?? '', { size: kSize })), ruler.widthOf(head, { size: kSize })));
            const sum = widths.reduce((all, width) => all + width + kCellGap, 0);
            const room = Math.max(0, ruler.widthOf(`${title} ${t('continued')}`, { size: kSize, bold: true }) - sum);
            return widths.map((width, i) => (i === widths.length - 1 ? width + room : width));
        });
    }

    isEnd(position: Position): boolean {
        return position.table === this.tables.length;
    }

    /** Fills a box from its upper left corner. Without a pen it only measures. Returns what is left, and the height needed. */
    fill(pen: Pen | undefined, box: Box, from: Position): { rest: Position; height: number } {
        let [rest, height, left] = [from, 0, box.left];
        while (!this.isEnd(rest) && (left === box.left || left + this.widthOf(rest.table) <= box.right)) {
            const column = this.fillColumn(pen, { ...box, left }, rest);
            if (column.width === 0) break;
            rest = column.rest;
            height = Math.max(height, column.height);
            left += column.width + kColumnGap;
        }
        return { rest, height };
    }

    /** The least height, up to a highest, of a box that takes everything; undefined where none does. */
    heightFor(width: number, highest: number): number | undefined {
        const fits = (height: number): boolean => this.isEnd(this.fill(undefined, { left: 0, top: 0, right: width, bottom: height }, kStart).rest);
        for (let rows = 3; rows * kRow < highest; ++rows) if (fits(rows * kRow)) return rows * kRow;
        return undefined;
    }

    private widthOf(table: number): number {
        return (this.widths[table] ?? []).reduce((sum, width) => sum + width + kCellGap, -kCellGap);
    }

    private fillColumn(pen: Pen | undefined, box: Box, from: Position): { rest: Position; width: number; height: number } {
        let [rest, width, y] = [from, 0, box.top];
        while (!this.isEnd(rest)) {
            const table = this.tables[rest.table] as PlanTable;
            const top = y > box.top ? y + kTableGap : y;
            const across = box.left + this.widthOf(rest.table) <= box.right || width === 0;
            if (!across || top + 3 * kRow > box.bottom) break;
            if (rest.row === 0 && table.rows.length <= kShortTable && y > box.top && top + kRow * (2 + table.rows.length) > box.bottom) break;
            const count = Math.min(table.rows.length - rest.row, Math.floor((box.bottom - top) / kRow - 2 + 1e-9));
            this.write(pen, rest, count, box.left, top);
            y = top + kRow * (2 + count);
            width = Math.max(width, this.widthOf(rest.table));
            if (rest.row + count < table.rows.length) {
                rest = { table: rest.table, row: rest.row + count };
                break;
            }
            rest = { table: rest.table + 1, row: 0 };
        }
        return { rest, width, height: y - box.top };
    }

    private write(pen: Pen | undefined, { table, row }: Position, count: number, left: number, top: number): void {
        if (!pen) return;
        const { title, heads, rows } = this.tables[table] as PlanTable;
        pen.text([left, top + kRow / 2], row > 0 ? `${title} ${t('continued')}` : title, { size: kSize, bold: true, color: kColors.ink, align: 'left' });
        [heads, ...rows.slice(row, row + count)].forEach((cells, r) => {
            let x = left;
            cells.forEach((text, i) => {
                const width = this.widths[table]?.[i] ?? 0;
                const style = { size: kSize, color: r === 0 ? kColors.muted : kColors.ink };
                const y = top + kRow * (r + 1.5);
                if (i === 0) pen.text([x, y], text, { ...style, align: 'left' });
                else pen.text([x + width, y], text, { ...style, align: 'right' });
                x += width + kCellGap;
            });
        });
    }
}
