// CSV tables in the dialects that the program reads: WKT in a column, or a vertex in each row. Papa Parse finds the separator.

import type { Point } from '@plcalc/wasm';
import Papa from 'papaparse';

import { opened, Unreadable, type NamedParcel, type Reading } from '../parcels';
import { isLonLat, projected } from './degrees';
import { geometryOfWkt, ParcelCollector } from './features';

// A name of one pair never goes with a name of another.
const kPairs = [
    ['e', 'n'], ['east', 'north'], ['easting', 'northing'], ['est', 'nord'], ['ost', 'nord'], ['rechtswert', 'hochwert'],
    ['rw', 'hw'], ['este', 'norte'], ['x', 'y'],
] as const;
const kDegreePairs = [['lon', 'lat'], ['longitude', 'latitude'], ['lng', 'lat']] as const;
const kParcels = /^(lot|parcel|plot|lotto|parcella|particella|mappale|parcelle|parcela|finca|flurst(ü|ue)ck|grundst(ü|ue)ck|parzelle)(id|no|nr|num|number|name|numero|nummer)?$/;
const kPoints = /^(p|pt|point|punkt|punto|name|id|nr|no|pnr|punktnr|number|nummer)$/;
const kFewestVertices = 3;

// "Lot No." and "lot_no" are one name, and so are "E [m]" and "E".
function plain(name: string): string {
    return name.replace(/[[(].*$/, '').toLowerCase().replace(/[ _\-.#]/g, '');
}

type Row = readonly string[];

export function readTable(text: string): Reading {
    const table = Papa.parse<string[]>(text.replace(/^\uFEFF/, ''), { skipEmptyLines: 'greedy' });
    const [header = [], ...rows] = table.data;
    const names = header.map((name) => plain(name.trim()));
    const wkt = names.findIndex((name) => ['wkt', 'geometry', 'geom', 'thegeom', 'wktgeom'].includes(name));
    if (wkt >= 0) return readWktColumn(names, rows, wkt);
    return readPoints(names, rows, table.meta.delimiter);
}

function readWktColumn(names: readonly string[], rows: readonly Row[], wkt: number): Reading {
    const collector = new ParcelCollector();
    const name = names.findIndex((column) => kParcels.test(column) || column === 'name' || column === 'id');
    let srid = '';
    for (const row of rows) {
        const [, number = '', geometry = ''] = /^\s*(?:SRID=(\d+);)?([\s\S]*)$/i.exec(row[wkt] ?? '') ?? [];
        srid ||= number;
        collector.add(geometryOfWkt(geometry), row[name]?.trim() ?? '');
    }
    if (srid === '4326' || srid === '4258') return projected(collector.parcels, collector.notes());
    return { parcels: collector.parcels, notes: [...collector.notes(), srid && srid !== '0' ? ['crs', `EPSG:${srid}`] : ['noCrs']] };
}

function readPoints(names: readonly string[], rows: readonly Row[], separator: string): Reading {
    const find = (pairs: readonly (readonly [string, string])[]): [number, number] | undefined =>
        pairs.map(([e, n]): [number, number] => [names.indexOf(e), names.indexOf(n)]).find(([e, n]) => e >= 0 && n >= 0);
    const degrees = find(kDegreePairs);
    const columns = degrees ?? find(kPairs);
    if (!columns) throw new Unreadable(['noColumns']);
    const commas = hasDecimalCommas(rows, columns, separator);
    const parcel = parcelColumn(names, rows);
    const point = names.findIndex((name, i) => i !== parcel && kPoints.test(name));

    const parcels: NamedParcel[] = [];
    let ring: Point[] = [];
    let corners: string[] = [];
    let current: string | undefined;
    const finish = (): void => {
        if (current === undefined) return;
        const outer = opened(ring);
        const named = point >= 0 && new Set(corners.slice(0, outer.length)).size === outer.length;
        if (parcels.some((before) => before.name === current)) throw new Unreadable(['parcelComesBack', current]);
        parcels.push({ name: current, outer, holes: [], ...(named ? { corners: corners.slice(0, outer.length) } : {}) });
        ring = [];
        corners = [];
    };
    rows.forEach((row, i) => {
        const name = parcel >= 0 ? (row[parcel] ?? '').trim() : '';
        if (name !== current) finish();
        current = name;
        ring.push([coordinate(row, columns[0], commas, i), coordinate(row, columns[1], commas, i)]);
        corners.push((row[point] ?? '').trim());
    });
    finish();
    if (degrees) return projected(parcels, []);
    const xy = names[columns[0]] === 'x';
    if (xy && isLonLat(parcels) && rows.length > 0) return { parcels, notes: [['xEast'], ['noCrs']] };
    return { parcels, notes: [...(xy ? [['xEast'] as const] : []), ['noCrs']] };
}

// A column that names the parcels; or a column `id` with at least three rows to each value.
function parcelColumn(names: readonly string[], rows: readonly Row[]): number {
    const named = names.findIndex((name) => kParcels.test(name));
    if (named >= 0) return named;
    const id = names.indexOf('id');
    if (id < 0) return -1;
    const runs: { value: string; rows: number }[] = [];
    for (const row of rows) {
        const value = row[id] ?? '';
        const last = runs.at(-1);
        if (last?.value === value) last.rows += 1;
        else runs.push({ value, rows: 1 });
    }
    const once = new Set(runs.map((run) => run.value)).size === runs.length;
    return once && runs.length > 1 && runs.every((run) => run.rows >= kFewestVertices) ? id : -1;
}

// Thousands stand in groups of three: what cannot be meant so has decimals behind its comma.
function showsDecimalComma(text: string): boolean {
    return /^\s*[-+]?\d+,\d+\s*$/.test(text) && !/^\s*[-+]?[1-9]\d{0,2},\d{3}\s*$/.test(text);
}

function hasDecimalCommas(rows: readonly Row[], columns: readonly number[], separator: string): boolean {
    const cells = rows.flatMap((row) => columns.map((column) => row[column] ?? ''));
    if (cells.some((text) => text.includes('.'))) return false;
    return cells.some((text) => text.includes(',')) && (separator === ';' || cells.some(showsDecimalComma));
}

function coordinate(row: Row, column: number, commas: boolean, index: number): number {
    const text = (row[column] ?? '').trim();
    const value = commas ? text.replace(',', '.') : text;
    if (!/^[-+]?(\d+\.?\d*|\.\d+)(e[-+]?\d+)?$/i.test(value)) throw new Unreadable(['badNumber', String(index + 1), text.slice(0, 40)]);
    return Number(value);
}
