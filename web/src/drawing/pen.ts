// What drawings are made with: a canvas on the screen, SVG on paper. Both get the same strokes.

export type XY = readonly [number, number];

export interface Stroke {
    readonly fill?: string;
    readonly stroke?: string;
    readonly width?: number;
    readonly dash?: readonly number[];
}

export interface Lettering {
    readonly size: number;
    readonly color: string;
    readonly bold?: boolean;
    /** A rim in this colour keeps text readable on lines. */
    readonly halo?: string;
    /** Radians, clockwise on the sheet. */
    readonly angle?: number;
    readonly align?: 'left' | 'center' | 'right';
}

/** y grows downwards. Text is centred on its place across the line of writing. */
export interface Pen {
    shape(rings: readonly (readonly XY[])[], style: Stroke): void;
    line(points: readonly XY[], style: Stroke): void;
    circle(at: XY, radius: number, style: Stroke): void;
    text(at: XY, text: string, lettering: Lettering): void;
    widthOf(text: string, lettering: Pick<Lettering, 'size' | 'bold'>): number;
}

export const kFont = 'Helvetica, Arial, "Liberation Sans", sans-serif';

function fontOf(lettering: Pick<Lettering, 'size' | 'bold'>): string {
    return `${lettering.bold ? 'bold ' : ''}${lettering.size}px ${kFont}`;
}

// Names come again in every frame; to measure them takes longer than to draw them.
const widths = new Map<string, number>();
const kMostWidths = 5000;

const kMostInPath = 20_000;
const kMostDrawn = 60_000;
const kBit = 1000;

export class CanvasPen implements Pen {
    constructor(private readonly context: CanvasRenderingContext2D) {
        context.lineJoin = 'round';
        context.textBaseline = 'middle';
    }
    shape(rings: readonly (readonly XY[])[], style: Stroke): void {
        if (rings.some((ring) => ring.length > kMostInPath)) return this.outlines(rings, style);
        this.context.beginPath();
        for (const ring of rings) {
            ring.forEach((p, i) => (i === 0 ? this.context.moveTo(p[0], p[1]) : this.context.lineTo(p[0], p[1])));
            this.context.closePath();
        }
        this.paint(style);
    }
    // A browser can die of an area with so many corners, above all one that crosses itself. Its outline is drawn bit by bit.
    private outlines(rings: readonly (readonly XY[])[], style: Stroke): void {
        if (!style.stroke) return;
        for (const ring of rings) {
            const points = ring.slice(0, kMostDrawn);
            for (let i = 0; i < points.length; i += kBit) this.line(points.slice(i, i + kBit + 1), style);
        }
    }
    line(points: readonly XY[], style: Stroke): void {
        this.context.beginPath();
        points.forEach((p, i) => (i === 0 ? this.context.moveTo(p[0], p[1]) : this.context.lineTo(p[0], p[1])));
        this.paint({ ...style, fill: undefined } as Stroke);
    }
    circle(at: XY, radius: number, style: Stroke): void {
        this.context.beginPath();
        this.context.arc(at[0], at[1], radius, 0, 2 * Math.PI);
        this.paint(style);
    }
    text(at: XY, text: string, lettering: Lettering): void {
        const context = this.context;
        context.save();
        context.translate(at[0], at[1]);
        context.rotate(lettering.angle ?? 0);
        context.font = fontOf(lettering);
        context.textAlign = lettering.align ?? 'center';
        if (lettering.halo) {
            context.lineWidth = lettering.size * 0.32;
            context.strokeStyle = lettering.halo;
            context.strokeText(text, 0, 0);
        }
        context.fillStyle = lettering.color;
        context.fillText(text, 0, 0);
        context.restore();
    }
    widthOf(text: string, lettering: Pick<Lettering, 'size' | 'bold'>): number {
        const font = fontOf(lettering);
        const key = `${font} ${text}`;
        let width = widths.get(key);
        if (width === undefined) {
            this.context.font = font;
            width = this.context.measureText(text).width;
            if (widths.size >= kMostWidths) widths.clear();
            widths.set(key, width);
        }
        return width;
    }
    private paint(style: Stroke): void {
        if (style.fill) {
            this.context.fillStyle = style.fill;
            this.context.fill('evenodd');
        }
        if (style.stroke) {
            this.context.strokeStyle = style.stroke;
            this.context.lineWidth = style.width ?? 1;
            this.context.setLineDash([...(style.dash ?? [])]);
            this.context.stroke();
        }
    }
}

// To a thousandth of a millimetre.
function n(value: number): string {
    return String(Math.round(value * 1000) / 1000);
}

function escaped(text: string): string {
    return text.replace(/[&<>"\u0000-\u001f]/g, (c) => ({ '&': '&amp;', '<': '&lt;', '>': '&gt;', '"': '&quot;' })[c] ?? ' ');
}

let measuring: CanvasPen | undefined;

export class SvgPen implements Pen {
    private readonly parts: string[] = [];

    shape(rings: readonly (readonly XY[])[], style: Stroke): void {
        const d = rings.map((ring) => `M${ring.map((p) => `${n(p[0])} ${n(p[1])}`).join('L')}Z`).join('');
        this.parts.push(`<path d="${d}" fill-rule="evenodd"${this.style(style)}/>`);
    }
    line(points: readonly XY[], style: Stroke): void {
        this.parts.push(`<path d="M${points.map((p) => `${n(p[0])} ${n(p[1])}`).join('L')}"${this.style({ ...style, fill: undefined } as Stroke)}/>`);
    }
    circle(at: XY, radius: number, style: Stroke): void {
        this.parts.push(`<circle cx="${n(at[0])}" cy="${n(at[1])}" r="${n(radius)}"${this.style(style)}/>`);
    }
    text(at: XY, text: string, lettering: Lettering): void {
        const anchor = { left: 'start', center: 'middle', right: 'end' }[lettering.align ?? 'center'];
        const turn = lettering.angle ? ` rotate(${n((lettering.angle * 180) / Math.PI)})` : '';
        const place = `transform="translate(${n(at[0])} ${n(at[1])})${turn}" y="${n(lettering.size * 0.36)}" text-anchor="${anchor}"`;
        const font = `font-size="${n(lettering.size)}"${lettering.bold ? ' font-weight="bold"' : ''}`;
        if (lettering.halo)
            this.parts.push(`<text ${place} ${font} fill="none" stroke="${lettering.halo}" stroke-width="${n(lettering.size * 0.32)}" stroke-linejoin="round">${escaped(text)}</text>`);
        this.parts.push(`<text ${place} ${font} fill="${lettering.color}">${escaped(text)}</text>`);
    }
    widthOf(text: string, lettering: Pick<Lettering, 'size' | 'bold'>): number {
        measuring ??= new CanvasPen(document.createElement('canvas').getContext('2d') as CanvasRenderingContext2D);
        return measuring.widthOf(text, { ...lettering, size: 100 }) * (lettering.size / 100);
    }
    /** A document of this size in millimetres. */
    svg(width: number, height: number, title: string): string {
        return `<svg xmlns="http://www.w3.org/2000/svg" width="${width}mm" height="${height}mm" viewBox="0 0 ${width} ${height}" ` +
            `font-family="${kFont.replaceAll('"', "'")}"><title>${escaped(title)}</title>${this.parts.join('')}</svg>`;
    }
    private style(style: Stroke): string {
        const stroke = style.stroke ? ` stroke="${style.stroke}" stroke-width="${n(style.width ?? 1)}" stroke-linejoin="round"` : '';
        const dash = style.stroke && style.dash ? ` stroke-dasharray="${style.dash.map(n).join(' ')}"` : '';
        return ` fill="${style.fill ?? 'none'}"${stroke}${dash}`;
    }
}
