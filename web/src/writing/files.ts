// The files that a division is saved as. Coordinates are those of the answer, with all their digits or as they are staked out.

import type { Point } from '@plcalc/wasm';
import { Colors, DxfWriter, LWPolylineFlags, point2d, point3d, Units } from '@tarikjabiri/dxf';

import OlPolygon from 'ol/geom/Polygon.js';

import type { Answer } from '../answer';
import type { Numbers } from '../numbers';
import { boxOf } from '../drawing/map';

const closed = (ring: readonly Point[]): readonly Point[] => [...ring, ring[0] as Point];

/** Pieces as polygons, lines as line strings; `crs` as GDAL and QGIS read it. */
export function geoJsonOf(answer: Answer, epsg: string | undefined): string {
    const pieces = answer.pieces.map(({ name, area, asked, rings }) => ({
        type: 'Feature', properties: { piece: name, area, asked },
        // Outer rings run anticlockwise and holes clockwise, as the format wants it; pieces come as the parcel ran.
        geometry: { type: 'Polygon', coordinates: rings.map((ring) => closed(turned(ring, answer.report.anticlockwise))) },
    }));
    const lines = answer.cuts.map(({ from, to, length, bearing }) => ({
        type: 'Feature', properties: { line: `${from.name}-${to.name}`, length, bearing_gon: bearing },
        geometry: { type: 'LineString', coordinates: [from.at, to.at] },
    }));
    const crs = epsg ? { crs: { type: 'name', properties: { name: `urn:ogc:def:crs:EPSG::${epsg}` } } } : {};
    return `${JSON.stringify({ type: 'FeatureCollection', ...crs, features: [...pieces, ...lines] }, undefined, 1)}\n`;
}

function turned(ring: readonly Point[], as_it_is: boolean): readonly Point[] {
    return as_it_is ? ring : [...ring].reverse();
}

/** Name, E, N and code of all points: NEW or CORNER. */
export function csvOf(answer: Answer, numbers: Numbers): string {
    const cell = (text: string): string => (/[",\n;]|^[=+@-]/.test(text) ? `"${text.replaceAll('"', '""')}"` : text);
    const rows = [
        ...answer.newPoints.map(({ name, at }) => [name, ...at.map((v) => (answer.division?.decimals === undefined ? String(v) : numbers.coordinate(v, answer.division.decimals))), 'NEW']),
        ...answer.corners.map(({ name, at }) => [name, String(at[0]), String(at[1]), 'CORNER']),
    ];
    return ['name,E,N,code', ...rows.map((row) => row.map(cell).join(','))].join('\r\n') + '\r\n';
}

/** Layers as the program's: pieces, lines, points and labels. */
export function dxfOf(answer: Answer, numbers: Numbers): string {
    const dxf = new DxfWriter();
    dxf.setUnits(numbers.settings.unit === 'm' ? Units.Meters : numbers.settings.unit === 'ft' ? Units.Feet : Units.Unitless);
    dxf.addLayer('pieces', Colors.Green, 'Continuous');
    dxf.addLayer('lines', Colors.Red, 'Continuous');
    dxf.addLayer('points', Colors.Blue, 'Continuous');
    dxf.addLayer('labels', Colors.White, 'Continuous');
    const [low, high] = boxOf([answer.parcel.outer]);
    const height = Math.max(high[0] - low[0], high[1] - low[1]) / 50;
    for (const piece of answer.pieces)
        for (const ring of piece.rings)
            dxf.addLWPolyline(ring.map((p) => ({ point: point2d(p[0], p[1]) })), { flags: LWPolylineFlags.Closed, layerName: 'pieces' });
    for (const { name, area, rings } of answer.pieces) {
        const [x = 0, y = 0] = new OlPolygon(rings.map((ring) => closed(ring).map((p) => [p[0], p[1]]))).getInteriorPoint().getCoordinates();
        dxf.addText(point3d(x, y), height, `${name} ${numbers.plainArea(area)}`, { layerName: 'labels' });
    }
    for (const { from, to } of answer.cuts)
        dxf.addLWPolyline([{ point: point2d(from.at[0], from.at[1]) }, { point: point2d(to.at[0], to.at[1]) }], { layerName: 'lines' });
    for (const { name, at } of answer.newPoints) {
        dxf.addPoint(at[0], at[1], 0, { layerName: 'points' });
        dxf.addText(point3d(at[0] + height / 2, at[1] + height / 2), height, name, { layerName: 'labels' });
    }
    return dxf.stringify();
}
