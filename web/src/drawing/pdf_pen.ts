// Strokes for a PDF, with the fonts that every reader of PDF brings.

import type { jsPDF } from 'jspdf';

import type { Lettering, Pen, Stroke, XY } from './pen';

// Those fonts know the letters of Western Europe only.
const kLetters = /^[\u0020-\u007e\u00a0-\u00ff\u2013\u2014\u2018\u2019\u201c\u201d\u2026\u2022\u20ac]*$/;
const kPointsPerMm = 72 / 25.4;

export class PdfPen implements Pen {
    /** Whether all texts could be written. */
    complete = true;

    /** @param pdf a page in millimetres */
    constructor(private readonly pdf: jsPDF) {
        pdf.setLineJoin('round');
    }
    shape(rings: readonly (readonly XY[])[], style: Stroke): void {
        const operations = rings.flatMap((ring) => [...path(ring), { op: 'h' as const, c: [] }]);
        this.paint(operations, style, true);
    }
    line(points: readonly XY[], style: Stroke): void {
        this.paint(path(points), { ...style, fill: undefined } as Stroke, false);
    }
    circle(at: XY, radius: number, style: Stroke): void {
        this.use(style);
        this.pdf.circle(at[0], at[1], radius, style.fill && style.stroke ? 'FD' : style.fill ? 'F' : 'S');
    }
    text(at: XY, text: string, lettering: Lettering): void {
        if (!kLetters.test(text)) this.complete = false;
        this.font(lettering);
        const angle = lettering.angle ?? 0;
        const width = this.pdf.getTextWidth(text);
        const back = { left: 0, center: 0.5, right: 1 }[lettering.align ?? 'center'] * width;
        const down = lettering.size * 0.36;
        const x = at[0] - back * Math.cos(angle) - down * Math.sin(angle);
        const y = at[1] - back * Math.sin(angle) + down * Math.cos(angle);
        const turned = { angle: (-angle * 180) / Math.PI };
        if (lettering.halo) {
            this.pdf.setDrawColor(lettering.halo);
            this.pdf.setLineWidth(lettering.size * 0.32);
            this.pdf.text(text, x, y, { ...turned, renderingMode: 'stroke' });
        }
        this.pdf.setTextColor(lettering.color);
        this.pdf.text(text, x, y, { ...turned, renderingMode: 'fill' });
    }
    widthOf(text: string, lettering: Pick<Lettering, 'size' | 'bold'>): number {
        this.font(lettering);
        return this.pdf.getTextWidth(text);
    }
    private font(lettering: Pick<Lettering, 'size' | 'bold'>): void {
        this.pdf.setFont('helvetica', lettering.bold ? 'bold' : 'normal');
        this.pdf.setFontSize(lettering.size * kPointsPerMm);
    }
    private use(style: Stroke): void {
        if (style.fill) this.pdf.setFillColor(style.fill);
        if (!style.stroke) return;
        this.pdf.setDrawColor(style.stroke);
        this.pdf.setLineWidth(style.width ?? 1);
        this.pdf.setLineDashPattern([...(style.dash ?? [])], 0);
    }
    private paint(operations: ReturnType<typeof path>, style: Stroke, even_odd: boolean): void {
        this.use(style);
        this.pdf.path(operations);
        if (style.fill && style.stroke) this.pdf.fillStrokeEvenOdd();
        else if (style.fill) even_odd ? this.pdf.fillEvenOdd() : this.pdf.fill();
        else if (style.stroke) this.pdf.stroke();
        else this.pdf.discardPath();
    }
}

function path(points: readonly XY[]): { op: 'm' | 'l' | 'h'; c: number[] }[] {
    return points.map((p, i) => ({ op: i === 0 ? 'm' : 'l', c: [p[0], p[1]] }));
}
