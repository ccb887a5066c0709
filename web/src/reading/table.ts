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
const kPoints = /^(p|pt|point|pointno|pointname|pointnumber|punkt|punto|name|id|nr|no|pnr|punktnr|punktnummer|number|nummer)$/;
const kFewestVertices = 3;

// Values in these columns may come again within a parcel.
const kOfPoints = new Set([
    'z', 'h', 'height', 'elev', 'elevation', 'altitude', 'quota', 'code', 'desc', 'description', 'remark', 'remarks', 'comment', 'note', 'notes', 'd', 'type', 'kind', 'mark', 'date',
    'time', 'cota', 'hoehe', 'höhe', 'bemerkung', 'remarque', 'nota', 'descripcion', 'descrizione',
]);

// "Lot No." and "lot_no" are one name, and so are "E [m]" and "E".
function plain(name: string): string {
    return name.replace(/[[(].*$/, '').toLowerCase().replace(/[ _\-.#]/g, '');
}

// Of a second system, or of degrees beside plane coordinates.
const kHoldsCoordinates = /^(x|y|e|n|lon|lat|lng|longitude|latitude|east|north|easting|northing|est|nord|ost|rechtswert|hochwert|rw|hw|este|norte)$/;

type Row = readonly string[];

export function readTable(text: string): Reading {
    // "sep=;" tells a spreadsheet what stands between the columns.
    const [, stated] = /^sep=(.)\r?\n/i.exec(text) ?? [];
    const content = stated ? text.slice(text.indexOf('\n') + 1) : text;
    const first = content.slice(0, content.search(/\r?\n|$/));
    const blanks = !stated && !/[,;\t|]/.test(first) && /\S\s+\S/.test(first);
    const table = Papa.parse<string[]>(blanks ? content.replace(/[ \t]+/g, ' ').replace(/^ | $/gm, '') : content,
        { skipEmptyLines: 'greedy', delimiter: blanks ? ' ' : (stated ?? '') });
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
    const parcel = parcelColumns(names, rows);
    const point = names.findIndex((name, i) => !parcel.includes(i) && kPoints.test(name));
    const others = names.flatMap((name, i) => (i === point || columns.includes(i) || parcel.includes(i) || kOfPoints.has(name) || kHoldsCoordinates.test(name) ? [] : [i]));

    const parcels: NamedParcel[] = [];
    let ring: Point[] = [];
    let corners: string[] = [];
    let current: string | undefined;
    let begin = 0;
    const seen = new Set<string>();
    const finish = (end: number): void => {
        if (current === undefined) return;
        requireOneParcel(names, rows.slice(begin, end), others);
        begin = end;
        const outer = opened(ring);
        const named = point >= 0 && new Set(corners.slice(0, outer.length)).size === outer.length;
        if (seen.has(current)) throw new Unreadable(['parcelComesBack', current]);
        seen.add(current);
        parcels.push({ name: current, outer, holes: [], ...(named ? { corners: corners.slice(0, outer.length) } : {}) });
        ring = [];
        corners = [];
    };
    rows.forEach((row, i) => {
        const name = parcel.map((column) => (row[column] ?? '').trim()).join(' ');
        if (name !== current) finish(i);
        current = name;
        ring.push([coordinate(row, columns[0], commas, i), coordinate(row, columns[1], commas, i)]);
        corners.push((row[point] ?? '').trim());
    });
    finish(rows.length);
    if (degrees) return projected(parcels, []);
    const xy = names[columns[0]] === 'x';
    if (xy && isLonLat(parcels) && rows.length > 0) return { parcels, notes: [['xEast'], ['noCrs']] };
    return { parcels, notes: [...(xy ? [['xEast'] as const] : []), ['noCrs']] };
}

// A column that some rows of a parcel share, but not all, seems to name parts of it.
function requireOneParcel(names: readonly string[], rows: readonly Row[], columns: readonly number[]): void {
    for (const column of columns) {
        const values = rows.map((row) => (row[column] ?? '').trim()).filter((value) => value !== '');
        const different = new Set(values).size;
        if (different > 1 && different < values.length) throw new Unreadable(['columnChanges', names[column] ?? '']);
    }
}

// The columns that name the parcels; or a column `id` with at least three rows to each value.
function parcelColumns(names: readonly string[], rows: readonly Row[]): number[] {
    const named = names.flatMap((name, i) => (kParcels.test(name) ? [i] : []));
    if (named.length > 0) return named;
    const id = names.indexOf('id');
    if (id < 0) return [];
    const runs: { value: string; rows: number }[] = [];
    for (const row of rows) {
        const value = row[id] ?? '';
        const last = runs.at(-1);
        if (last?.value === value) last.rows += 1;
        else runs.push({ value, rows: 1 });
    }
    const once = new Set(runs.map((run) => run.value)).size === runs.length;
    return once && runs.length > 1 && runs.every((run) => run.rows >= kFewestVertices) ? [id] : [];
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
