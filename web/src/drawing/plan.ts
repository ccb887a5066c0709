// The plan of a division on sheets of A4, at a round scale: title, drawing, tables. It looks as that of the program does.

import type { Point } from '@plcalc/wasm';

import type { Answer } from '../answer';
import type { Numbers } from '../numbers';
import type { Asked } from '../state';
import { t } from '../texts';
import { kColors } from './colors';
import { boxOf, drawNorthArrow, drawScaleBar } from './map';
import type { Lettering, Pen, XY } from './pen';
import { drawScene } from './scene';
import { kStart, tablesOf, TableSetter, type Box, type PlanTable, type Position } from './tables';

// Millimetres.
const kShort = 210;
const kLong = 297;
const kMargin = 10;
const kTitle = 22;
const kIndent = 3.5;
const kPadding = 4.2;
const kLabelRoom = 16;
const kInformation = 67;
const kLeastFoot = 34;
const kPixel = 0.23;
const kMetresPerFoot = 0.3048;

// The foot takes at most this part of the frame.
const kMostFoot = 0.4;

// Sheets beyond these say nothing to a reader; the files of points and pieces have it all.
const kMostSheets = 60;

/** What stands on the sheet beside the drawing. */
export interface PlanTexts {
    readonly title: string;
    readonly sentence: string;
    readonly notes: readonly string[];
}

export interface PlanWanted {
    readonly answer: Answer;
    readonly asked: Asked;
    readonly numbers: Numbers;
    readonly texts: PlanTexts;
}

// 1, 1.5, 2, 2.5 or 5 times a power of ten, not below the value.
function roundScale(value: number): number {
    const power = 10 ** Math.floor(Math.log10(value));
    return ([1, 1.5, 2, 2.5, 5, 10].find((step) => step * power >= value * (1 - 1e-12)) ?? 10) * power;
}

/** The sheets of a plan. Where things lie depends on how wide the pen's texts are. */
export class Plan {
    readonly width: number;
    readonly height: number;
    private readonly frame: Box;
    private readonly bottom: number;
    private readonly scale: number;
    private readonly foot: TableSetter;
    private readonly further: TableSetter;
    /** Where the tables of each further sheet begin. */
    private readonly begins: readonly Position[];
    private readonly complete: boolean;

    constructor(private readonly wanted: PlanWanted, ruler: Pen) {
        const tables = tablesOf(wanted.answer, wanted.numbers);
        const layouts = [false, true].map((upright) => this.layout(tables, ruler, upright));
        const [lying, standing] = layouts as [ReturnType<Plan['layout']>, ReturnType<Plan['layout']>];
        const better = standing.scale < lying.scale ? standing : lying;
        ({ width: this.width, height: this.height, frame: this.frame, bottom: this.bottom, scale: this.scale, foot: this.foot, further: this.further } = better);
        const begins: Position[] = [];
        let position = kStart;
        while (!this.further.isEnd(position) && begins.length < kMostSheets - 1) {
            begins.push(position);
            position = this.further.fill(undefined, this.tableBox(), position).rest;
        }
        this.begins = begins;
        this.complete = this.further.isEnd(position);
    }

    get count(): number {
        return 1 + this.begins.length;
    }

    draw(pen: Pen, sheet: number): void {
        const { width, height, frame } = this;
        const rule = { stroke: kColors.muted, width: 0.25 };
        pen.shape([[[0, 0], [width, 0], [width, height], [0, height]]], { fill: '#ffffff' });
        if (sheet === 0) this.drawMap(pen);
        pen.shape([[[frame.left, frame.top], [frame.right, frame.top], [frame.right, frame.bottom], [frame.left, frame.bottom]]], rule);
        pen.line([[frame.left, frame.top + kTitle], [frame.right, frame.top + kTitle]], rule);
        this.drawTitle(pen);
        if (sheet === 0) {
            pen.line([[frame.left, this.bottom], [frame.right, this.bottom]], rule);
            drawNorthArrow(pen, [frame.right - 9, frame.top + 8.6], 0.24);
            this.foot.fill(pen, { left: frame.left + kIndent, top: this.bottom + kPadding, right: this.footRight(frame), bottom: frame.bottom - kPadding / 2 }, kStart);
            this.drawInformation(pen);
        } else {
            pen.text([frame.right - kIndent, frame.top + 5.5], t('sheetOf', sheet + 1, this.count), { size: 3.2, bold: true, color: kColors.ink, align: 'right' });
            this.further.fill(pen, this.tableBox(), this.begins[sheet - 1] as Position);
        }
    }

    // As many tables, the first ones, as the foot takes whole; the others go to further sheets.
    private layout(tables: readonly PlanTable[], ruler: Pen, upright: boolean): {
        width: number; height: number; frame: Box; bottom: number; scale: number; foot: TableSetter; further: TableSetter;
    } {
        const [width, height] = upright ? [kShort, kLong] : [kLong, kShort];
        const frame = { left: kMargin, top: kMargin, right: width - kMargin, bottom: height - kMargin };
        const room = this.footRight(frame) - frame.left - kIndent;
        const highest = kMostFoot * (frame.bottom - frame.top);
        let count = tables.length + 1;
        let needed: number | undefined;
        while (needed === undefined) needed = new TableSetter(tables.slice(0, --count), ruler).heightFor(room, count === 0 ? Infinity : highest);
        const bottom = frame.bottom - Math.max(kLeastFoot, needed + 1.5 * kPadding);
        return {
            width, height, frame, bottom, scale: this.scaleFor(frame, bottom), foot: new TableSetter(tables.slice(0, count), ruler), further: new TableSetter(tables.slice(count), ruler),
        };
    }

    private scaleFor(frame: Box, bottom: number): number {
        const [low, high] = boxOf([this.wanted.answer.parcel.outer]);
        const [across, down] = [frame.right - frame.left - 2 * kLabelRoom, bottom - frame.top - kTitle - 2 * kLabelRoom];
        return roundScale(Math.max(1000 * this.metres() * Math.max((high[0] - low[0]) / across, (high[1] - low[1]) / down), 1e-9));
    }

    private metres(): number {
        return this.wanted.numbers.settings.unit === 'ft' ? kMetresPerFoot : 1;
    }

    private footRight(frame: Box): number {
        return frame.right - kInformation - 2 * kIndent;
    }

    private tableBox(): Box {
        const { frame } = this;
        return { left: frame.left + kIndent, top: frame.top + kTitle + kPadding, right: frame.right - kIndent, bottom: frame.bottom - kPadding };
    }

    private drawMap(pen: Pen): void {
        const { answer, asked, numbers } = this.wanted;
        const [low, high] = boxOf([answer.parcel.outer]);
        const { frame, bottom } = this;
        const perUnit = (1000 * this.metres()) / this.scale;
        const middle: XY = [(frame.left + frame.right) / 2, (frame.top + kTitle + bottom) / 2];
        const place = (p: Point): XY => [middle[0] + (p[0] - (low[0] + high[0]) / 2) * perUnit, middle[1] - (p[1] - (low[1] + high[1]) / 2) * perUnit];
        const within = { left: frame.left + 1, top: frame.top + kTitle + 1, right: frame.right - 1, bottom: bottom - 1 };
        drawScene(pen, { place, pixel: kPixel, width: this.width, height: bottom, within }, answer, { asked, handles: false }, numbers);
    }

    private drawTitle(pen: Pen): void {
        const { answer, numbers, texts } = this.wanted;
        const { frame } = this;
        const x = frame.left + kIndent;
        const room = frame.right - frame.left - 34;
        pen.text([x, frame.top + 5.6], fitted(pen, texts.title, 5, room, true), { size: 5, bold: true, color: kColors.ink, align: 'left' });
        pen.text([x, frame.top + 11.5], fitted(pen, texts.sentence, 3.3, room), { size: 3.3, color: kColors.ink, align: 'left' });
        pen.text([x, frame.top + 17.2], t('parcelFacts', numbers.area(answer.report.area), numbers.withUnit(numbers.length(answer.report.perimeter))),
            { size: 3.3, color: kColors.ink, align: 'left' });
    }

    private drawInformation(pen: Pen): void {
        const { numbers, texts } = this.wanted;
        const { frame, bottom } = this;
        const right = frame.right - kIndent;
        const perUnit = (1000 * this.metres()) / this.scale;
        drawScaleBar(pen, [0, bottom + 7.5], 50, 1 / perUnit, numbers, 0.26, right);
        const style: Omit<Lettering, 'size'> = { color: kColors.ink, align: 'right' };
        pen.text([right, bottom + 14], t('scale', String(Number(this.scale.toPrecision(12)))), { ...style, size: 3.6, bold: true });
        const lines = [...texts.notes, ...(this.complete ? [] : [t('planCut', kMostSheets)])].flatMap((note) => wrapped(pen, note, 2.5, kInformation));
        [...lines, t('sheetOf', 1, this.count), 'plcalc'].forEach((line, i) =>
            pen.text([right, bottom + 19 + 3.5 * i], line, { ...style, size: 2.5, color: i < lines.length ? kColors.muted : kColors.ink }));
    }
}

// A text that is longer than its room gets an ellipsis.
function fitted(pen: Pen, text: string, size: number, room: number, bold = false): string {
    if (pen.widthOf(text, { size, bold }) <= room) return text;
    let end = Math.min(text.length, 400);
    while (end > 1 && pen.widthOf(`${text.slice(0, end)}…`, { size, bold }) > room) --end;
    return `${text.slice(0, end)}…`;
}

// Two lines at most.
function wrapped(pen: Pen, text: string, size: number, room: number): string[] {
    if (pen.widthOf(text, { size }) <= room) return [text];
    const words = text.split(' ');
    let count = words.length;
    while (count > 1 && pen.widthOf(words.slice(0, count).join(' '), { size }) > room) --count;
    const rest = words.slice(count).join(' ');
    return rest === '' ? [fitted(pen, text, size, room)] : [fitted(pen, words.slice(0, count).join(' '), size, room), fitted(pen, rest, size, room)];
}
