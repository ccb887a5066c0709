// Tells what a file or a pasted text is, and reads it.

import { kMostBytes, kMostParcels, kMostVertices, Unreadable, type NamedParcel, type Reading } from '../parcels';
import { readDxf } from './drawing';
import { readGeoJson, readKml, readWkt } from './features';
import { megabytes, readZip } from './shapefile';
import { readTable } from './table';

/** @throws Unreadable */
export async function readFile(file: File): Promise<Reading> {
    if (file.size > kMostBytes) throw new Unreadable(['tooLarge', megabytes(file.size), megabytes(kMostBytes)]);
    return readBytes(new Uint8Array(await file.arrayBuffer()));
}

function readBytes(bytes: Uint8Array): Reading {
    if (bytes[0] === 0x50 && bytes[1] === 0x4b) return checked(readZip(bytes));
    if (bytes[0] === 0x53 && bytes[1] === 0x51 && bytes[2] === 0x4c) throw new Unreadable(['geoPackage']);
    if (bytes[0] === 0 && bytes[2] === 0x27 && bytes[3] === 0x0a) throw new Unreadable(['bareShapefile']);
    return readText(decoded(bytes));
}

// Texts are UTF-8, or what Windows wrote before.
function decoded(bytes: Uint8Array): string {
    try {
        return new TextDecoder('utf-8', { fatal: true }).decode(bytes);
    } catch {
        return new TextDecoder('windows-1252').decode(bytes);
    }
}

/** @throws Unreadable */
export function readText(text: string): Reading {
    const start = text.slice(0, 2000).trimStart();
    if (start === '') throw new Unreadable(['empty']);
    if (start.includes('\u0000')) throw new Unreadable(['unknownFormat']);
    if (start.startsWith('{')) return checked(readGeoJson(text));
    if (start.startsWith('<')) return checked(readKml(text));
    if (/^(SRID=\d+;)?\s*(MULTI|POLYGON|LINESTRING|GEOMETRYCOLLECTION)/i.test(start)) return checked(readWkt(text));
    if (/^(999\s*\n[^\n]*\n\s*)*0\s*\n\s*SECTION/.test(start.replaceAll('\r', ''))) return checked(readDxf(text));
    return checked(readTable(text));
}

function checked(reading: Reading): Reading {
    const vertices = (parcel: NamedParcel): number => parcel.outer.length + parcel.holes.reduce((sum, hole) => sum + hole.length, 0);
    if (reading.parcels.length === 0) throw new Unreadable(['noParcel']);
    if (reading.parcels.length > kMostParcels) throw new Unreadable(['tooManyParcels', String(reading.parcels.length), String(kMostParcels)]);
    const sum = reading.parcels.reduce((all, parcel) => all + vertices(parcel), 0);
    if (sum > kMostVertices) throw new Unreadable(['tooManyVertices', String(sum), String(kMostVertices)]);
    return reading;
}
