// DXF: closed polylines in model space, on layers that are shown; where there are none, loops of lines and arcs. dxf-parser reads
// the file, and lines are joined as the program joins them.

import type { Plcalc, Point } from '@plcalc/wasm';
import DxfParser, { type IEntity, type ILayer } from 'dxf-parser';
import OlPolygon from 'ol/geom/Polygon.js';

import { Unreadable, type NamedParcel, type Note, type Reading } from '../parcels';
import { ParcelCollector } from './features';

// What the entities that are read here have, apart from vertices in drawings that lack them.
interface Drawn extends IEntity {
    readonly vertices?: readonly { readonly x: number; readonly y: number; readonly bulge?: number }[];
    readonly shape?: boolean;
    readonly center?: { readonly x: number; readonly y: number };
    readonly radius?: number;
    readonly startAngle?: number;
    readonly endAngle?: number;
    readonly extrusionDirectionZ?: number;
    readonly text?: string;
    readonly startPoint?: { readonly x: number; readonly y: number };
    readonly position?: { readonly x: number; readonly y: number };
}

interface OpenLine {
    readonly layer: string;
    readonly points: readonly Point[];
}

const kMetres = 6;
const kFeet = 2;

// Ends that are no farther apart are joined, and no chord is farther from its arc. Both are what the program takes or proposes.
const kJoined = 0.001;
const kChord = 0.005;

// Arcs become chords as in the program: ends are a tenth of a degree apart at least, and an eighth of a circle at most.
const kFineStep_rad = Math.PI / 1800;
const kMostTurn_rad = Math.PI / 4;

// A drawing with more texts than this is not searched for names.
const kMostLookedUp = 1e6;

export function readDxf(text: string, plcalc: Plcalc): Reading {
    const dxf = parsed(text);
    const layers: Record<string, ILayer> = dxf.tables?.layer?.layers ?? {};
    const collector = new ParcelCollector();
    const open: OpenLine[] = [];
    const texts: { readonly at: Point; readonly line: string }[] = [];
    let arcs = 0;
    for (const entity of dxf.entities as Drawn[]) {
        const layer = layers[entity.layer];
        if (entity.inPaperSpace || layer?.frozen || layer?.visible === false) continue;
        const line = firstLine(entity.text);
        const place = entity.startPoint ?? entity.position;
        if (line && place) texts.push({ at: [place.x, place.y], line });
        const points = pointsOf(entity);
        if (points.length < 2) continue;
        arcs += isCurved(entity) ? 1 : 0;
        const [first, last] = [points[0] as Point, points.at(-1) as Point];
        if (entity.shape || (points.length > 3 && first[0] === last[0] && first[1] === last[1])) collector.addRings([points], '');
        else open.push({ layer: entity.layer, points });
    }
    const joined: Note[] = collector.parcels.length === 0 ? joinInto(collector, open, plcalc) : [];
    const left = collector.notes();
    if (collector.parcels.length > 0 && joined.length === 0 && open.length > 0) left.push(['leftOut', String(open.length)]);
    const notes: Note[] = [...joined, ...(arcs > 0 ? [['arcs', String(kChord)] as const] : []), ...left, ['noCrs']];
    const unit = Number(dxf.header?.['$INSUNITS']);
    return { parcels: named(collector.parcels, texts), notes, ...(unit === kMetres ? { unit: 'm' } : unit === kFeet ? { unit: 'ft' } : {}) };
}

function parsed(text: string): NonNullable<ReturnType<DxfParser['parseSync']>> {
    let dxf;
    try {
        dxf = new DxfParser().parseSync(text);
    } catch {
        dxf = null;
    }
    if (!dxf) throw new Unreadable(['brokenDxf']);
    return dxf;
}

// ------------------------------------------------------------------------------------------------- lines

function isCurved(entity: Drawn): boolean {
    return entity.type === 'ARC' || (entity.vertices ?? []).some((v) => v.bulge);
}

function pointsOf(entity: Drawn): Point[] {
    // Seen from below, x runs the other way. The ends of a LINE are given as seen from above.
    const way = entity.type !== 'LINE' && entity.extrusionDirectionZ === -1 ? -1 : 1;
    const turned = (p: Point): Point => [way * p[0], p[1]];
    if (entity.type === 'ARC') return pointsOfArc(entity).map(turned);
    if (!['LINE', 'LWPOLYLINE', 'POLYLINE'].includes(entity.type)) return [];
    return withChords(entity.vertices ?? [], entity.shape ?? false).map(turned);
}

// Anticlockwise from its start to its end; it is walked the other way.
function pointsOfArc({ center, radius, startAngle, endAngle }: Drawn): Point[] {
    if (!center || !(radius !== undefined && radius > 0) || startAngle === undefined || endAngle === undefined) return [];
    const sweep = endAngle > startAngle ? endAngle - startAngle : endAngle - startAngle + 2 * Math.PI;
    return chords([center.x, center.y], radius, endAngle, -sweep);
}

// A bulge is the tangent of a quarter of the angle that its arc turns, positive to the left.
function withChords(vertices: NonNullable<Drawn['vertices']>, closed: boolean): Point[] {
    return vertices.flatMap((v, i): Point[] => {
        const from: Point = [v.x, v.y];
        const next = vertices[(i + 1) % vertices.length];
        if (!v.bulge || !next || (i + 1 === vertices.length && !closed)) return [from];
        const [dx, dy] = [next.x - v.x, next.y - v.y];
        const length = Math.hypot(dx, dy);
        if (!(length > 0)) return [from];
        const sweep = 4 * Math.atan(v.bulge);
        const radius = Math.abs(length / (2 * Math.sin(sweep / 2)));
        const aside = (1 - v.bulge * v.bulge) / (4 * v.bulge);
        const center: Point = [v.x + dx / 2 - aside * dy, v.y + dy / 2 + aside * dx];
        return [from, ...chords(center, radius, Math.atan2(v.y - center[1], v.x - center[0]), sweep).slice(1, -1)];
    });
}

function chords(center: Point, radius: number, start: number, sweep: number): Point[] {
    const steps = Math.max(1, Math.ceil(Math.abs(sweep) / kFineStep_rad - 1e-9));
    const slice = sweep / steps;
    const turn = Math.min(kMostTurn_rad, 2 * Math.acos(Math.max(0, 1 - kChord / radius)));
    const most = Math.max(1, Math.floor((turn / Math.abs(slice)) * (1 + 1e-9)));
    const count = Math.ceil(steps / most);
    return Array.from({ length: count + 1 }, (_, k): Point => {
        const angle = start + Math.floor((k * steps) / count) * slice;
        return [center[0] + radius * Math.cos(angle), center[1] + radius * Math.sin(angle)];
    });
}

// ------------------------------------------------------------------------------------------------- loops

// Loops become parcels. A drawing without any says where its lines stop or fork.
function joinInto(collector: ParcelCollector, open: readonly OpenLine[], plcalc: Plcalc): Note[] {
    let [lines, widest] = [0, 0];
    let left = 0;
    let trouble: Note | undefined;
    const layers = new Map<string, (readonly Point[])[]>();
    for (const { layer, points } of open) {
        if (!points.every((p) => p.every(Number.isFinite))) throw new Unreadable(['notFinite']);
        layers.set(layer, layers.get(layer) ?? []);
        layers.get(layer)?.push(points);
    }
    for (const drawn of layers.values())
        for (const group of plcalc.joinLines(drawn, kJoined)) {
            if (group.kind === 'loop') {
                collector.addRings([group.ring], '');
                lines += group.lines.length;
                widest = Math.max(widest, group.widestGap);
                continue;
            }
            left += group.lines.length;
            const [from, to] = group.loose;
            if (group.kind === 'fork') trouble ??= ['fork', plcalc.fixed(group.fork[0], 3), plcalc.fixed(group.fork[1], 3)];
            else if (group.lines.length > 1 && from && to) trouble ??= ['gap', plcalc.fixed(from[0], 3), plcalc.fixed(from[1], 3), plcalc.fixed(plcalc.length(from, to), 3)];
        }
    if (lines === 0) {
        if (trouble) throw new Unreadable(trouble);
        return [];
    }
    return [['joined', String(lines), plcalc.fixed(widest, 4)], ...(left > 0 ? [['leftOut', String(left)] as const] : []), ...(trouble ? [trouble] : [])];
}

// ------------------------------------------------------------------------------------------------- names

function firstLine(text: string | undefined): string {
    return (text ?? '').split(/\\P|[\r\n]/)[0]?.replace(/\\[A-Za-z][^;\\]*;|[{}]/g, '').trim() ?? '';
}

// A parcel has the name of the only text inside, as in the program.
function named(parcels: readonly NamedParcel[], texts: readonly { readonly at: Point; readonly line: string }[]): NamedParcel[] {
    if (texts.length * parcels.length > kMostLookedUp) return [...parcels];
    return parcels.map((parcel) => {
        const area = new OlPolygon([[...parcel.outer, parcel.outer[0] as Point].map((p) => [p[0], p[1]])]);
        const names = new Set(texts.filter(({ at }) => area.intersectsCoordinate([at[0], at[1]])).map(({ line }) => line));
        return names.size === 1 ? { ...parcel, name: [...names][0] as string } : parcel;
    });
}
