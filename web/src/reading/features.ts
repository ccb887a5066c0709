// GeoJSON, WKT and KML, read by OpenLayers.

import GeoJSON from 'ol/format/GeoJSON.js';
import KML from 'ol/format/KML.js';
import WKT from 'ol/format/WKT.js';
import type Feature from 'ol/Feature.js';
import type Geometry from 'ol/geom/Geometry.js';
import type GeometryCollection from 'ol/geom/GeometryCollection.js';
import type LineString from 'ol/geom/LineString.js';
import type MultiPolygon from 'ol/geom/MultiPolygon.js';
import type Polygon from 'ol/geom/Polygon.js';

import { kMostParcels, kMostXmlBytes, kMostXmlInOne, megabytes, NeedsPage, opened, Unreadable, type NamedParcel, type Note, type Reading } from '../parcels';
import { isLonLat, projected } from './degrees';

const kNames = ['name', 'lot', 'parcel', 'plot', 'label', 'id', 'number', 'nummer', 'flurstueck', 'flurstück', 'mappale'];

function nameOf(properties: Record<string, unknown>, fallback: unknown): string {
    for (const wanted of kNames)
        for (const [key, value] of Object.entries(properties))
            if (key.toLowerCase() === wanted && ['string', 'number'].includes(typeof value) && value !== '') return String(value);
    return fallback === undefined || fallback === null ? '' : String(fallback);
}

/** Polygons, and lines that are closed; other geometries are counted. */
export class ParcelCollector {
    readonly parcels: NamedParcel[] = [];
    private left = 0;

    add(geometry: Geometry | null | undefined, name: string): void {
        switch (geometry?.getType()) {
            case 'Polygon':
                this.addRings((geometry as Polygon).getCoordinates(), name);
                break;
            case 'MultiPolygon':
                (geometry as MultiPolygon).getCoordinates().forEach((rings, i, all) =>
                    this.addRings(rings, all.length > 1 ? `${name || '?'} (${i + 1})` : name));
                break;
            case 'LineString':
                this.addLine((geometry as LineString).getCoordinates(), name);
                break;
            case 'GeometryCollection':
                for (const part of (geometry as GeometryCollection).getGeometriesArray()) this.add(part, name);
                break;
            default:
                this.left += 1;
        }
    }

    addRings(rings: readonly (readonly (readonly number[])[])[], name: string): void {
        const [outer = [], ...holes] = rings.map(opened);
        if (outer.length > 0) this.parcels.push({ name, outer, holes: holes.filter((hole) => hole.length > 0) });
        else this.left += 1;
    }

    addLine(line: readonly (readonly number[])[], name: string): void {
        const first = line[0];
        const last = line.at(-1);
        if (first && last && line.length > 3 && first[0] === last[0] && first[1] === last[1]) this.addRings([line], name);
        else this.left += 1;
    }

    notes(): Note[] {
        return this.left > 0 ? [['leftOut', String(this.left)]] : [];
    }
}

function collectInto(collector: ParcelCollector, features: readonly Feature[]): ParcelCollector {
    for (const feature of features) collector.add(feature.getGeometry(), nameOf(feature.getProperties(), feature.getId()));
    return collector;
}

export function readGeoJson(text: string): Reading {
    let json: { crs?: { properties?: { name?: unknown } } };
    let collector: ParcelCollector;
    try {
        json = JSON.parse(text);
        collector = collectInto(new ParcelCollector(), new GeoJSON().readFeatures(json) as Feature[]);
    } catch (error) {
        if (error instanceof Unreadable) throw error;
        throw new Unreadable(['brokenGeoJson']);
    }
    const crs = json.crs?.properties?.name;
    const notes = collector.notes();
    if (typeof crs === 'string' && !/(CRS84|EPSG:+4326|EPSG:+4258)$/i.test(crs))
        return { parcels: collector.parcels, notes: [...notes, ['crs', crs.replace(/^.*EPSG:+/, 'EPSG:')]], unit: 'm' };
    // Without a CRS GeoJSON holds degrees, except where its numbers can be none.
    if (isLonLat(collector.parcels)) return projected(collector.parcels, notes);
    return { parcels: collector.parcels, notes: [...notes, ['noCrs']] };
}

// A page that reads so many placemarks at a time still answers.
const kPlacemarksAtOnce = 100;

/** @throws NeedsPage where there is no reader of XML */
export async function readKml(text: string): Promise<Reading> {
    if (text.length > kMostXmlBytes) throw new Unreadable(['tooLarge', megabytes(text.length), megabytes(kMostXmlBytes)]);
    if (typeof DOMParser === 'undefined') throw new NeedsPage();
    const root = /<kml\b[^>]*>/.exec(text)?.[0] ?? '<kml>';
    const placemarks = text.length > kMostXmlInOne && !/<!DOCTYPE/i.test(text) ? (text.match(/<Placemark\b[\s\S]*?<\/Placemark>/g) ?? []) : [];
    if (placemarks.length === 0 && text.length > kMostXmlInOne) throw new Unreadable(['brokenKml']);
    const collector = new ParcelCollector();
    const take = (part: string): void => {
        try {
            collectInto(collector, new KML({ extractStyles: false }).readFeatures(part) as Feature[]);
        } catch (error) {
            throw error instanceof Unreadable ? error : new Unreadable(['brokenKml']);
        }
    };
    if (placemarks.length === 0) take(text);
    for (let i = 0; i < placemarks.length && collector.parcels.length <= kMostParcels; i += kPlacemarksAtOnce) {
        take(`${root}<Document>${placemarks.slice(i, i + kPlacemarksAtOnce).join('')}</Document></kml>`);
        await new Promise((next) => setTimeout(next));
    }
    return projected(collector.parcels, collector.notes());
}

/** One geometry after another, each with "SRID=...;" before it or without. */
export function readWkt(text: string): Reading {
    const collector = new ParcelCollector();
    let degrees = false;
    let srid = '';
    for (const [, number, wkt] of text.matchAll(/(?:SRID=(\d+);)?\s*((?:MULTI|GEOMETRY|POLY|LINE|POINT)[A-Z ]*\([\s\S]*?)(?=(?:;?\s*(?:SRID=|MULTI|GEOMETRYC|POLYG|LINES|POINT))|;?\s*$)/gi)) {
        if (number) srid = number;
        collector.add(geometryOfWkt(wkt ?? ''), '');
    }
    degrees = srid === '4326' || srid === '4258';
    if (degrees) return projected(collector.parcels, collector.notes());
    return { parcels: collector.parcels, notes: [...collector.notes(), srid && srid !== '0' ? ['crs', `EPSG:${srid}`] : ['noCrs']] };
}

export function geometryOfWkt(wkt: string): Geometry {
    try {
        return new WKT().readGeometry(wkt.trim());
    } catch {
        throw new Unreadable(['brokenWkt', wkt.trim().slice(0, 40)]);
    }
}
