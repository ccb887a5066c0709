// The plan of a division on an A4 sheet, at a round scale: title, drawing, tables. It looks as that of the program does.

import type { Point } from '@plcalc/wasm';

import type { Answer } from '../answer';
import type { Numbers } from '../numbers';
import type { Asked } from '../state';
import { t } from '../texts';
import { boxOf, drawNorthArrow, drawScaleBar } from './map';
import type { Lettering, Pen, XY } from './pen';
import { drawScene, kColors } from './scene';

// Millimetres.
export const kSheet = { width: 297, height: 210 } as const;
const kMargin = 10;
const kTitle = 22;
const kFoot = 42;
const kPixel = 0.23;
const kRow = 3.9;
const kMostRows = 8;
const kLabelRoom = 14;
const kMetresPerFoot = 0.3048;

/** What stands on the sheet beside the drawing. */
export interface PlanTexts {
    readonly title: string;
    readonly sentence: string;
    readonly notes: readonly string[];
}

// 1, 1.5, 2, 2.5 or 5 times a power of ten, not below the value.
function roundScale(value: number): number {
    const power = 10 ** Math.floor(Math.log10(value));
    return ([1, 1.5, 2, 2.5, 5, 10].find((step) => step * power >= value * (1 - 1e-12)) ?? 10) * power;
}

export function drawPlan(pen: Pen, answer: Answer, asked: Asked, numbers: Numbers, texts: PlanTexts): void {
    const metres = numbers.settings.unit === 'ft' ? kMetresPerFoot : 1;
    const frame = { left: kMargin, top: kMargin, right: kSheet.width - kMargin, bottom: kSheet.height - kMargin };
    const top = frame.top + kTitle;
    const bottom = frame.bottom - kFoot;
    const [low, high] = boxOf([answer.parcel.outer]);
    const room = { width: frame.right - frame.left - 2 * kLabelRoom, height: bottom - top - 2 * kLabelRoom };
    const needed = 1000 * metres * Math.max((high[0] - low[0]) / room.width, (high[1] - low[1]) / room.height);
    const scale = roundScale(Math.max(needed, 1e-9));
    const perUnit = (1000 * metres) / scale;
    const middle: XY = [(frame.left + frame.right) / 2, (top + bottom) / 2];
    const place = (p: Point): XY => [middle[0] + (p[0] - (low[0] + high[0]) / 2) * perUnit, middle[1] - (p[1] - (low[1] + high[1]) / 2) * perUnit];

    pen.shape([[[0, 0], [kSheet.width, 0], [kSheet.width, kSheet.height], [0, kSheet.height]]], { fill: '#ffffff' });
    drawScene(pen, { place, pixel: kPixel, width: kSheet.width, height: bottom }, answer, { asked, others: [], handles: false }, numbers);
    const rule = { stroke: kColors.muted, width: 0.25 };
    pen.shape([[[frame.left, frame.top], [frame.right, frame.top], [frame.right, frame.bottom], [frame.left, frame.bottom]]], rule);
    pen.line([[frame.left, top], [frame.right, top]], rule);
    pen.line([[frame.left, bottom], [frame.right, bottom]], rule);

    const x = frame.left + 4;
    pen.text([x, frame.top + 6], fitted(pen, texts.title, 5.4, 230), { size: 5.4, bold: true, color: kColors.ink, align: 'left' });
    pen.text([x, frame.top + 12], fitted(pen, texts.sentence, 3.6, 250), { size: 3.6, color: kColors.ink, align: 'left' });
    const report = answer.measures.report;
    pen.text([x, frame.top + 17.4], `${t('sum')} ${numbers.area(report.area)}, ${t('perimeter').toLowerCase()} ${numbers.withUnit(numbers.length(report.perimeter))}`,
        { size: 3.6, color: kColors.ink, align: 'left' });
    drawNorthArrow(pen, [frame.right - 9, frame.top + 8.6], 0.24);
    drawTables(pen, answer, numbers, x, bottom + 5);

    const barWidth = drawScaleBar(pen, [-1000, -1000], 40, 1 / perUnit, numbers, 0.26);
    drawScaleBar(pen, [frame.right - barWidth - 6, bottom + 8], 40, 1 / perUnit, numbers, 0.26);
    const right: Omit<Lettering, 'size'> = { color: kColors.ink, align: 'right' };
    pen.text([frame.right - 4, bottom + 15.5], t('scale', String(Number(scale.toPrecision(12)))), { ...right, size: 4, bold: true });
    texts.notes.forEach((note, i) => pen.text([frame.right - 4, bottom + 21 + 4 * i], fitted(pen, note, 2.7, 105), { ...right, size: 2.7, color: kColors.muted }));
    pen.text([frame.right - 4, frame.bottom - 3.2], 'plcalc', { ...right, size: 2.7, color: kColors.muted });
}

// A text that is longer than its room gets an ellipsis.
function fitted(pen: Pen, text: string, size: number, room: number): string {
    if (pen.widthOf(text, { size }) <= room) return text;
    let end = text.length;
    while (end > 1 && pen.widthOf(`${text.slice(0, end)}…`, { size }) > room) --end;
    return `${text.slice(0, end)}…`;
}

// Columns: the first is written from the left, the others towards the right.
function drawTable(pen: Pen, x: number, y: number, title: string, head: readonly string[], rows: readonly (readonly string[])[], more: string): number {
    const size = 3;
    const widths = head.map((text, i) => Math.max(pen.widthOf(text, { size }), ...rows.map((row) => pen.widthOf(row[i] ?? '', { size }))) + 4.5);
    pen.text([x, y], title, { size: size + 0.1, bold: true, color: kColors.ink, align: 'left' });
    [head, ...rows].forEach((row, r) => {
        let left = x;
        row.forEach((text, i) => {
            const width = widths[i] ?? 0;
            const color = r === 0 ? kColors.muted : kColors.ink;
            if (i === 0) pen.text([left, y + kRow * (r + 1)], text, { size, color, align: 'left' });
            else pen.text([left + width - 4.5, y + kRow * (r + 1)], text, { size, color, align: 'right' });
            left += width;
        });
    });
    if (more) pen.text([x, y + kRow * (rows.length + 2)], more, { size: 2.6, color: kColors.muted, align: 'left' });
    return x + Math.max(widths.reduce((sum, width) => sum + width, 0), pen.widthOf(title, { size, bold: true }), more ? pen.widthOf(more, { size: 2.6 }) : 0) + 5;
}

function drawTables(pen: Pen, answer: Answer, numbers: Numbers, left: number, y: number): void {
    const { pieces, cuts, newPoints, division } = answer;
    if (!division?.divided) return;
    const shownPieces = pieces.slice(0, pieces.length > kMostRows - 1 ? kMostRows - 2 : kMostRows);
    const last = division.held.length - 1;
    const rows = shownPieces.map((piece) => [piece.name, numbers.plainArea(piece.area), piece.amount === last && !isParts(answer) ? t('rest') : numbers.plainArea(piece.asked)]);
    const more = pieces.length - shownPieces.length;
    let x = drawTable(pen, left, y, t('pieces'), [t('piece'), t('area'), t('asked')],
        more > 0 ? rows : [...rows, [t('sum'), numbers.plainArea(answer.measures.report.area), '']], more > 0 ? t('morePieces', more) : '');
    const someCuts = cuts.slice(0, cuts.length > kMostRows ? kMostRows - 1 : kMostRows);
    x = drawTable(pen, x, y, t('lines'), [t('cutLine'), t('length'), t('bearingLabel')],
        someCuts.map((cut) => [`${cut.from.name} – ${cut.to.name}`, numbers.length(cut.length), numbers.angle(cut.bearing)]), cuts.length > someCuts.length ? '…' : '');
    const somePoints = newPoints.slice(0, newPoints.length > kMostRows ? kMostRows - 1 : kMostRows);
    drawTable(pen, x, y, t('points'), [t('newPoint'), 'E', 'N'],
        somePoints.map(({ name, at }) => [name, numbers.coordinate(at[0], division.decimals), numbers.coordinate(at[1], division.decimals)]),
        newPoints.length > somePoints.length ? t('morePoints', newPoints.length - somePoints.length) : '');
}

/** Whether all pieces, the last one too, were asked for. */
export function isParts(answer: Answer): boolean {
    return answer.request?.amounts.some((amount) => 'parts' in amount) ?? false;
}
