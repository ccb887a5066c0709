// Degrees are never plane. They are projected to the UTM zone at hand, by proj4.

import type { Point } from '@plcalc/wasm';
import proj4 from 'proj4';

import { Unreadable, type NamedParcel, type Note, type Reading } from '../parcels';

// Half a zone and a little more: there, lengths in UTM differ by less than a thousandth from those on the ground.
const kWidestFromMiddle = 3.5;

/** Whether all coordinates could be longitudes and latitudes. */
export function isLonLat(parcels: readonly NamedParcel[]): boolean {
    return parcels.length > 0 && parcels.every((parcel) =>
        [parcel.outer, ...parcel.holes].every((ring) => ring.every(([x, y]) => Math.abs(x) <= 180 && Math.abs(y) <= 90)));
}

/** Longitudes and latitudes in degrees, to metres. */
export function projected(parcels: readonly NamedParcel[], notes: readonly Note[]): Reading {
    const first = parcels[0]?.outer[0];
    if (!first) return { parcels, notes };
    if (!isLonLat(parcels) || parcels.some((parcel) => parcel.outer.some((p) => Math.abs(p[1]) > 84))) throw new Unreadable(['badDegrees']);
    const zone = Math.min(60, Math.floor((first[0] + 180) / 6) + 1);
    const south = first[1] < 0;
    const utm = proj4(`+proj=utm +zone=${zone} ${south ? '+south ' : ''}+datum=WGS84 +units=m`);
    const move = (ring: readonly Point[]): Point[] =>
        ring.map((p): Point => {
            const [east, north] = utm.forward([p[0], p[1]]) as [number, number];
            if (!Number.isFinite(east) || !Number.isFinite(north)) throw new Unreadable(['badDegrees']);
            return [east, north];
        });
    const middle = zone * 6 - 183;
    const far = parcels.filter((parcel) => parcel.outer.some((p) => Math.abs(p[0] - middle) > kWidestFromMiddle)).length;
    return {
        parcels: parcels.map((parcel) => ({ ...parcel, outer: move(parcel.outer), holes: parcel.holes.map(move) })),
        notes: [...notes, ...(far > 0 ? [['farFromZone', String(far), String(zone)] as const] : []), ['degrees', `${zone}${south ? 'S' : 'N'}`, `EPSG:${(south ? 32700 : 32600) + zone}`]],
        unit: 'm',
    };
}
