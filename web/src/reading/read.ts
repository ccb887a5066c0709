// Tells what a file or a pasted text is, and reads it.

import type { Plcalc } from '@plcalc/wasm';

import { kMostBytes, kMostParcels, kMostVertices, megabytes, Unreadable, verticesOf, type Reading } from '../parcels';
import { readDxf } from './drawing';
import { readGeoJson, readKml, readWkt } from './features';
import { readZip } from './shapefile';
import { readTable } from './table';

/**
 * A file, or a text as it was pasted.
 *
 * @throws Unreadable, or NeedsPage in a worker for what only a page can read
 */
export async function read(from: File | string, plcalc: Plcalc): Promise<Reading> {
    if (typeof from === 'string') return readAnyText(from, plcalc);
    if (from.size > kMostBytes) throw new Unreadable(['tooLarge', megabytes(from.size), megabytes(kMostBytes)]);
    return readBytes(new Uint8Array(await from.arrayBuffer()), plcalc);
}

async function readBytes(bytes: Uint8Array, plcalc: Plcalc): Promise<Reading> {
    if (bytes[0] === 0x50 && bytes[1] === 0x4b) {
        const unpacked = readZip(bytes);
        return typeof unpacked === 'string' ? readAnyText(unpacked, plcalc) : checked(unpacked);
    }
    if (bytes[0] === 0x53 && bytes[1] === 0x51 && bytes[2] === 0x4c) throw new Unreadable(['geoPackage']);
    if (bytes[0] === 0 && bytes[2] === 0x27 && bytes[3] === 0x0a) throw new Unreadable(['bareShapefile']);
    return readAnyText(decoded(bytes), plcalc);
}

// Texts are UTF-8, or UTF-16 that says so, or what Windows wrote before.
function decoded(bytes: Uint8Array): string {
    if (bytes[0] === 0xff && bytes[1] === 0xfe) return new TextDecoder('utf-16le').decode(bytes);
    if (bytes[0] === 0xfe && bytes[1] === 0xff) return new TextDecoder('utf-16be').decode(bytes);
    try {
        return new TextDecoder('utf-8', { fatal: true }).decode(bytes);
    } catch {
        return new TextDecoder('windows-1252').decode(bytes);
    }
}

async function readAnyText(text: string, plcalc: Plcalc): Promise<Reading> {
    return /^[\s\uFEFF]*</.test(text.slice(0, 2000)) ? checked(await readKml(text.replace(/^\uFEFF/, ''))) : readText(text, plcalc);
}

/**
 * Everything but XML.
 *
 * @throws Unreadable
 */
export function readText(given: string, plcalc: Plcalc): Reading {
    const text = given.replace(/^\uFEFF/, '');
    const start = text.slice(0, 2000).trimStart();
    if (start === '') throw new Unreadable(['empty']);
    if (start.includes('\u0000')) throw new Unreadable(['unknownFormat']);
    if (start.startsWith('{')) return checked(readGeoJson(text));
    if (/^(SRID=\d+;)?\s*(MULTI|POLYGON|LINESTRING|GEOMETRYCOLLECTION)/i.test(start)) return checked(readWkt(text));
    if (/^(999\s*\n[^\n]*\n\s*)*0\s*\n\s*SECTION/.test(start.replaceAll('\r', ''))) return checked(readDxf(text, plcalc));
    return checked(readTable(text));
}

function checked(reading: Reading): Reading {
    if (reading.parcels.length === 0) throw new Unreadable(['noParcel']);
    if (reading.parcels.length > kMostParcels) throw new Unreadable(['tooManyParcels', String(reading.parcels.length), String(kMostParcels)]);
    const sum = reading.parcels.reduce((all, parcel) => all + verticesOf(parcel), 0);
    if (sum > kMostVertices) throw new Unreadable(['tooManyVertices', String(sum), String(kMostVertices)]);
    return reading;
}
