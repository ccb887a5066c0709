// DXF: closed polylines in model space, on layers that are shown, read by dxf-parser.

import DxfParser, { type IEntity, type ILayer } from 'dxf-parser';

import { Unreadable, type Note, type Reading } from '../parcels';
import { ParcelCollector } from './features';

interface Polyline extends IEntity {
    readonly vertices?: readonly { readonly x: number; readonly y: number; readonly bulge?: number }[];
    readonly shape?: boolean;
}

const kMetres = 6;
const kFeet = 2;

export function readDxf(text: string): Reading {
    let dxf;
    try {
        dxf = new DxfParser().parseSync(text);
    } catch {
        dxf = null;
    }
    if (!dxf) throw new Unreadable(['brokenDxf']);
    const layers: Record<string, ILayer> = dxf.tables?.layer?.layers ?? {};
    const collector = new ParcelCollector();
    let arcs = 0;
    for (const entity of dxf.entities as Polyline[]) {
        const layer = layers[entity.layer];
        if (!['LWPOLYLINE', 'POLYLINE'].includes(entity.type) || entity.inPaperSpace || layer?.frozen || layer?.visible === false) continue;
        const vertices = entity.vertices ?? [];
        const ring = vertices.map((v) => [v.x, v.y]);
        if (vertices.some((v) => v.bulge)) arcs += 1;
        else if (entity.shape) collector.addRings([ring], '');
        else collector.addLine(ring, '');
    }
    const notes: Note[] = [...collector.notes(), ['noCrs']];
    if (arcs > 0) notes.unshift(['arcs', String(arcs)]);
    const unit = Number(dxf.header?.['$INSUNITS']);
    return { parcels: collector.parcels, notes, ...(unit === kMetres ? { unit: 'm' } : unit === kFeet ? { unit: 'ft' } : {}) };
}
