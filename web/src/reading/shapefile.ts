// A zipped Shapefile, read by shpjs; and a KMZ, which is a zipped KML. fflate unpacks what is needed and no more.

import { unzipSync, type UnzipFileInfo } from 'fflate';
import { parseDbf, parseShp } from 'shpjs';

import { kMostBytes, megabytes, Unreadable, type Note, type Reading } from '../parcels';
import { projected } from './degrees';
import { ParcelCollector } from './features';

interface ShapeGeometry {
    readonly type: string;
    readonly coordinates: unknown;
}

const kWanted = /\.(shp|dbf|prj|cpg|kml)$/i;
const kNames = /^(name|lot|parcel|plot|label|id|number|nummer|flurst.*|parz.*|mappale)$/i;

/** The reading of a Shapefile, or the text of a KML. */
export function readZip(bytes: Uint8Array): Reading | string {
    let files: Record<string, Uint8Array>;
    try {
        files = unzipSync(bytes, { filter });
    } catch (error) {
        throw error instanceof Unreadable ? error : new Unreadable(['brokenZip']);
    }
    const paths = Object.keys(files);
    const shp = paths.find((path) => /\.shp$/i.test(path));
    const kml = paths.find((path) => /\.kml$/i.test(path));
    if (!shp && kml) return new TextDecoder().decode(files[kml]);
    if (!shp) throw new Unreadable(['noShapefile']);
    const beside = (ending: string): Uint8Array | undefined =>
        files[paths.find((path) => path.toLowerCase() === shp.slice(0, -3).toLowerCase() + ending) ?? ''];
    const prj = new TextDecoder().decode(beside('prj') ?? new Uint8Array());
    return readShapes(files[shp] as Uint8Array, beside('dbf'), beside('cpg'), prj);
}

function filter(file: UnzipFileInfo): boolean {
    if (!kWanted.test(file.name) || file.name.includes('__MACOSX')) return false;
    if (file.originalSize > 2 * kMostBytes) throw new Unreadable(['tooLarge', megabytes(file.originalSize), megabytes(kMostBytes)]);
    return true;
}

function readShapes(shp: Uint8Array, dbf: Uint8Array | undefined, cpg: Uint8Array | undefined, prj: string): Reading {
    const collector = new ParcelCollector();
    try {
        const geometries = parseShp(copied(shp)) as (ShapeGeometry | null)[];
        const rows = dbf ? (parseDbf(copied(dbf), cpg ? copied(cpg) : undefined) as Record<string, unknown>[]) : [];
        geometries.forEach((geometry, i) => {
            const row = rows[i] ?? {};
            const key = Object.keys(row).find((column) => kNames.test(column));
            const name = key ? String(row[key] ?? '').trim() : '';
            if (geometry?.type === 'Polygon') collector.addRings(geometry.coordinates as number[][][], name);
            else if (geometry?.type === 'MultiPolygon')
                (geometry.coordinates as number[][][][]).forEach((rings, k) => collector.addRings(rings, `${name || i + 1} (${k + 1})`));
            else collector.add(null, '');
        });
    } catch (error) {
        throw error instanceof Unreadable ? error : new Unreadable(['brokenShapefile']);
    }
    const notes = collector.notes();
    if (/^\s*(GEOGCS|GEOGCRS)/i.test(prj)) return projected(collector.parcels, notes);
    const crs = /^\s*PROJ[A-Z]+\["([^"]+)"/i.exec(prj)?.[1];
    const note: Note = crs ? ['crs', crs] : ['noCrs'];
    return { parcels: collector.parcels, notes: [...notes, note], ...(/UNIT\["[^"]*f(oo|ee)t[^"]*",[\d.]+\]\s*(,AUTHORITY\[[^\]]*\])?\s*(,AXIS.*)?\]\s*$/i.test(prj) ? { unit: 'ft' } : crs ? { unit: 'm' } : {}) };
}

// shpjs looks at the whole buffer below an array.
function copied(bytes: Uint8Array): ArrayBuffer {
    return bytes.slice().buffer as ArrayBuffer;
}
