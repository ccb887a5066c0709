// Parcels to begin with: those of the project's examples.

import concave from '../../examples/concave.csv';
import convex from '../../examples/convex.csv';
import published from '../../examples/published.csv';
import utm from '../../examples/utm-convex.geojson';
import { kFirstAsked, type Asked } from './state';
import type { Key } from './texts';

export interface Example {
    readonly title: Key;
    readonly text: string;
    readonly asked: Asked;
}

export const examples: readonly Example[] = [
    { title: 'exampleField', text: published, asked: { ...kFirstAsked, kind: 'parallel', side: { ring: 0, index: 3 }, mode: 'area', typed: { ...kFirstAsked.typed, area: '6000' } } },
    { title: 'exampleConvex', text: convex, asked: { ...kFirstAsked, kind: 'vertex', corner: { ring: 0, index: 1 }, mode: 'parts' } },
    { title: 'exampleYard', text: concave, asked: { ...kFirstAsked, kind: 'perpendicular', side: { ring: 0, index: 4 }, mode: 'share' } },
    { title: 'exampleUtm', text: utm, asked: { ...kFirstAsked, kind: 'parallel', side: { ring: 0, index: 1 }, mode: 'list', typed: { ...kFirstAsked.typed, list: '1500, 1/4, 20x60' } } },
];
