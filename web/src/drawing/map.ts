// The drawing on the screen: OpenLayers pans, zooms and follows fingers; the scene is drawn on a canvas of its own.

import type { Point } from '@plcalc/wasm';
import { Layer } from 'ol/layer.js';
import OlMap from 'ol/Map.js';
import View from 'ol/View.js';
import type MapBrowserEvent from 'ol/MapBrowserEvent.js';
import { defaults } from 'ol/interaction/defaults.js';
import PointerInteraction from 'ol/interaction/Pointer.js';
import { Projection } from 'ol/proj.js';

import type { Answer } from '../answer';
import { roundBelow, type Numbers } from '../numbers';
import type { NamedParcel } from '../parcels';
import type { Asked, Spot } from '../state';
import { kColors } from './colors';
import { CanvasPen, type XY } from './pen';
import { drawOthers, drawScene, isWithin, type Looks, type View as SceneView } from './scene';

export type Picked =
    | { readonly kind: 'side' | 'corner'; readonly spot: Spot; readonly at: Point }
    | { readonly kind: 'parcel'; readonly index: number; readonly at: Point }
    | { readonly kind: 'inside' | 'outside'; readonly at: Point };

export interface Shown {
    readonly answer: Answer;
    readonly parcels: readonly NamedParcel[];
    readonly chosen: number;
    readonly asked: Asked;
    readonly numbers: Numbers;
    readonly begun?: Point | undefined;
}

export interface MapEvents {
    /** @param snapped  the corner of any parcel at which the person pointed, else the place itself */
    pick(picked: Picked, snapped: Point): void;
    hover(picked: Picked | undefined, pixel: XY): void;
    dragTo(at: Point): void;
    dragEnd(): void;
}

const kNorthArrow = 54;

export class ParcelMap {
    private readonly map: OlMap;
    private readonly canvas = document.createElement('canvas');
    private readonly below = document.createElement('canvas');
    private belowFor: readonly unknown[] = [];
    private shown: Shown | undefined;
    private hovered: Looks['hovered'];
    private dragging = false;

    constructor(target: HTMLElement, private readonly events: MapEvents) {
        const layer = new Layer({ render: (frame) => this.render(frame) });
        this.map = new OlMap({
            target, controls: [], layers: [layer], pixelRatio: Math.max(1, window.devicePixelRatio),
            // Two quick clicks choose two sides.
            interactions: defaults({ doubleClickZoom: false, keyboard: false, altShiftDragRotate: false, pinchRotate: false }),
        });
        const isMouse = (event: MapBrowserEvent): boolean => (event.originalEvent as PointerEvent).pointerType === 'mouse';
        this.map.addInteraction(new PointerInteraction({
            handleDownEvent: (event) => {
                this.dragging = this.isOnLine([event.pixel[0] ?? 0, event.pixel[1] ?? 0], isMouse(event) ? 12 : 26);
                return this.dragging;
            },
            handleDragEvent: (event) => this.events.dragTo(asPoint(event.coordinate)),
            handleUpEvent: () => {
                this.dragging = false;
                this.events.dragEnd();
                return false;
            },
        }));
        this.map.on('click', (event) => {
            // A click on the line is the beginning of a drag, except where a point is asked for.
            const pointing = this.shown?.asked.kind === 'point' || this.shown?.asked.kind === 'segment';
            const reach = isMouse(event) ? 12 : 24;
            if (pointing || !this.isOnLine([event.pixel[0] ?? 0, event.pixel[1] ?? 0], 8))
                this.events.pick(this.pick(event.pixel, event.coordinate, reach), this.snapped(event.pixel, event.coordinate, reach));
        });
        this.map.on('pointermove', (event) => {
            if (this.dragging || event.dragging) return;
            const pixel: XY = [event.pixel[0] ?? 0, event.pixel[1] ?? 0];
            const onLine = this.isOnLine(pixel, 12);
            const picked = onLine ? undefined : this.pick(event.pixel, event.coordinate, 12);
            this.hovered = picked?.kind === 'side' || picked?.kind === 'corner' ? { kind: picked.kind, spot: picked.spot } : undefined;
            target.style.cursor = onLine ? 'grab' : this.hovered || picked?.kind === 'parcel' ? 'pointer' : '';
            this.events.hover(picked, pixel);
            this.map.render();
        });
        target.addEventListener('pointerleave', () => {
            this.hovered = undefined;
            this.events.hover(undefined, [0, 0]);
            this.map.render();
        });
        new ResizeObserver(() => this.map.updateSize()).observe(target);
    }

    show(shown: Shown): void {
        this.shown = shown;
        this.map.render();
    }

    drawNow(): void {
        this.map.renderSync();
    }

    /** The whole of some parcels. */
    fit(parcels: readonly NamedParcel[]): void {
        this.map.updateSize();
        const size = this.map.getSize() ?? [600, 400];
        const [low, high] = boxOf(parcels.map((parcel) => parcel.outer));
        const width = Math.max(high[0] - low[0], high[1] - low[1], 1e-3);
        const view = new View({
            projection: new Projection({ code: 'PLANE', units: 'm' }), center: [(low[0] + high[0]) / 2, (low[1] + high[1]) / 2],
            resolution: width / 100, minResolution: width / 1e7, maxResolution: width, enableRotation: false, showFullExtent: true,
        });
        const room = Math.min(72, (size[0] ?? 600) / 8, (size[1] ?? 400) / 7);
        // The buttons lie on the left of a large drawing.
        const left = (size[0] ?? 600) > 500 ? room + 26 : room;
        this.map.setView(view);
        view.fit([low[0], low[1], high[0], high[1]], { size, padding: [(size[1] ?? 400) > 500 ? room + 12 : room, room, room + 8, left] });
    }

    /** How many pixels a parcel is wide or high, whichever is more. */
    sizeOf(parcel: NamedParcel): number {
        const [low, high] = boxOf([parcel.outer]);
        return Math.max(high[0] - low[0], high[1] - low[1]) / (this.map.getView().getResolution() ?? 1);
    }

    zoom(steps: number): void {
        this.map.getView().animate({ zoom: (this.map.getView().getZoom() ?? 0) + steps, duration: 160 });
    }

    /** Where a place lies on the screen, within the drawing. */
    pixelOf(p: Point): XY {
        const [x = 0, y = 0] = this.map.getPixelFromCoordinate([p[0], p[1]]) ?? [];
        return [x, y];
    }

    highlight(hovered: Looks['hovered']): void {
        this.hovered = hovered;
        this.map.render();
    }

    private render(frame: { size: number[]; pixelRatio: number; coordinateToPixelTransform: number[]; viewState: { resolution: number } }): HTMLElement {
        const [width = 0, height = 0] = frame.size;
        const ratio = frame.pixelRatio;
        const canvas = this.canvas;
        this.sized(canvas, width * ratio, height * ratio);
        const context = canvas.getContext('2d') as CanvasRenderingContext2D;
        context.setTransform(ratio, 0, 0, ratio, 0, 0);
        context.clearRect(0, 0, width, height);
        if (!this.shown) return canvas;
        const [a = 1, b = 0, c = 0, d = 1, e = 0, f = 0] = frame.coordinateToPixelTransform;
        const place = (p: Point): XY => [a * p[0] + c * p[1] + e, b * p[0] + d * p[1] + f];
        const view = { place, pixel: 1, width, height };
        const { answer, parcels, chosen, asked, numbers, begun } = this.shown;
        if (parcels.length > 1) {
            this.drawBelow(view, ratio, [...frame.coordinateToPixelTransform, ratio, width, height, parcels, chosen]);
            context.drawImage(this.below, 0, 0, width, height);
        }
        const pen = new CanvasPen(context);
        drawScene(pen, view, answer, { asked, begun, hovered: this.hovered, handles: true }, numbers);
        drawNorthArrow(pen, [width - 32, 40], 1);
        drawScaleBar(pen, [16, height - 22], Math.min(150, width / 4), frame.viewState.resolution, numbers, 1);
        return canvas;
    }

    private sized(canvas: HTMLCanvasElement, width: number, height: number): void {
        if (canvas.width === Math.round(width) && canvas.height === Math.round(height)) return;
        canvas.width = Math.round(width);
        canvas.height = Math.round(height);
        Object.assign(canvas.style, { position: 'absolute', width: '100%', height: '100%' });
    }

    // The other parcels stay as they are while a line is dragged.
    private drawBelow(view: SceneView, ratio: number, looks: readonly unknown[]): void {
        if (looks.every((value, i) => value === this.belowFor[i])) return;
        this.belowFor = looks;
        this.sized(this.below, view.width * ratio, view.height * ratio);
        const context = this.below.getContext('2d') as CanvasRenderingContext2D;
        context.setTransform(ratio, 0, 0, ratio, 0, 0);
        context.clearRect(0, 0, view.width, view.height);
        const chosen = this.shown?.chosen;
        drawOthers(new CanvasPen(context), view, this.shown?.parcels.filter((_, i) => i !== chosen) ?? []);
    }

    private snapped(pixel: readonly number[], coordinate: readonly number[], reach: number): Point {
        const target: XY = [pixel[0] ?? 0, pixel[1] ?? 0];
        let [best, found] = [reach, asPoint(coordinate)];
        for (const parcel of this.shown?.parcels ?? [])
            for (const ring of [parcel.outer, ...parcel.holes])
                for (const p of ring) {
                    const at = this.pixelOf(p);
                    const far = Math.hypot(at[0] - target[0], at[1] - target[1]);
                    if (far < best) [best, found] = [far, p];
                }
        return found;
    }

    private isOnLine(pixel: XY, reach: number): boolean {
        if (this.shown?.answer.division?.lines.length !== 1) return false;
        return this.shown.answer.cuts.some(({ from, to }) => {
            const [a, b] = [this.pixelOf(from.at), this.pixelOf(to.at)];
            const length = Math.hypot(b[0] - a[0], b[1] - a[1]);
            const atEnd = Math.min(Math.hypot(pixel[0] - a[0], pixel[1] - a[1]), Math.hypot(pixel[0] - b[0], pixel[1] - b[1])) < Math.min(reach, length / 4);
            return !atEnd && distance(pixel, a, b) <= reach;
        });
    }

    private pick(pixel: readonly number[], coordinate: readonly number[], reach: number): Picked {
        const at = asPoint(coordinate);
        const shown = this.shown;
        if (!shown) return { kind: 'outside', at };
        const target: XY = [pixel[0] ?? 0, pixel[1] ?? 0];
        const rings = [shown.answer.parcel.outer, ...shown.answer.parcel.holes].map((ring) => ring.map((p) => this.pixelOf(p)));
        const corner = nearest(rings, reach, (ring, i) => Math.hypot((ring[i] as XY)[0] - target[0], (ring[i] as XY)[1] - target[1]));
        if (corner) return { kind: 'corner', spot: corner, at };
        const side = nearest(rings, reach, (ring, i) => distance(target, ring[i] as XY, ring[(i + 1) % ring.length] as XY));
        if (side) return { kind: 'side', spot: side, at };
        if (isWithin(rings, target)) return { kind: 'inside', at };
        const index = shown.parcels.findIndex((parcel, i) => i !== shown.chosen && isWithin([parcel.outer, ...parcel.holes].map((ring) => ring.map((p) => this.pixelOf(p))), target));
        return index >= 0 ? { kind: 'parcel', index, at } : { kind: 'outside', at };
    }
}

export function boxOf(rings: readonly (readonly Point[])[]): [Point, Point] {
    const low: [number, number] = [Infinity, Infinity];
    const high: [number, number] = [-Infinity, -Infinity];
    for (const ring of rings)
        for (const p of ring)
            for (const k of [0, 1] as const) {
                low[k] = Math.min(low[k], p[k]);
                high[k] = Math.max(high[k], p[k]);
            }
    return [low, high];
}

function asPoint(coordinate: readonly number[]): Point {
    return [coordinate[0] ?? 0, coordinate[1] ?? 0];
}

// Distances in pixels decide what a pointer means; no figure comes from them.
function distance(p: XY, a: XY, b: XY): number {
    const [dx, dy] = [b[0] - a[0], b[1] - a[1]];
    const square = dx * dx + dy * dy;
    const part = square > 0 ? Math.min(1, Math.max(0, ((p[0] - a[0]) * dx + (p[1] - a[1]) * dy) / square)) : 0;
    return Math.hypot(p[0] - a[0] - part * dx, p[1] - a[1] - part * dy);
}

function nearest(rings: readonly (readonly XY[])[], reach: number, far: (ring: readonly XY[], i: number) => number): Spot | undefined {
    let best = reach;
    let found: Spot | undefined;
    rings.forEach((ring, k) => ring.forEach((_, i) => {
        const at = far(ring, i);
        if (at < best) {
            best = at;
            found = { ring: k, index: i };
        }
    }));
    return found;
}

/** @param unit  how long a pixel is on the sheet */
export function drawNorthArrow(pen: CanvasPen | import('./pen').Pen, [x, y]: XY, unit: number): void {
    const h = (kNorthArrow / 2) * unit;
    const w = 9 * unit;
    pen.shape([[[x, y - h], [x + w, y + h * 0.62], [x, y + h * 0.36], [x - w, y + h * 0.62]]], { fill: kColors.paper, stroke: kColors.ink, width: 1.2 * unit });
    pen.shape([[[x, y - h], [x, y + h * 0.36], [x - w, y + h * 0.62]]], { fill: kColors.ink });
    pen.text([x, y + h * 0.62 + 10 * unit], 'N', { size: 13 * unit, bold: true, color: kColors.ink });
}

/**
 * @param resolution  units of the plane to a unit of the sheet
 * @param right       where it ends; without it, it begins at the place
 */
export function drawScaleBar(pen: import('./pen').Pen, [left, y]: XY, most: number, resolution: number, numbers: Numbers, unit: number, right?: number): void {
    const length = roundBelow(most * resolution);
    const width = length / resolution;
    const x = right === undefined ? left : right - width;
    const h = 6 * unit;
    for (let i = 0; i < 4; ++i)
        pen.shape([[[x + (i * width) / 4, y], [x + ((i + 1) * width) / 4, y], [x + ((i + 1) * width) / 4, y + h], [x + (i * width) / 4, y + h]]],
            { fill: i % 2 === 0 ? kColors.ink : kColors.paper, stroke: kColors.ink, width: 0.9 * unit });
    const lettering = { size: 11 * unit, color: kColors.ink, halo: kColors.paper } as const;
    pen.text([x, y - 8 * unit], '0', { ...lettering, align: 'left' });
    pen.text([x + width, y - 8 * unit], numbers.withUnit(String(Number(length.toPrecision(6)))), { ...lettering, align: right === undefined ? 'center' : 'right' });
}
