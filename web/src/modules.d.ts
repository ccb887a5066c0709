declare module 'shpjs' {
    export function parseShp(shp: ArrayBuffer, prj?: string | ArrayBuffer): unknown[];
    export function parseDbf(dbf: ArrayBuffer, cpg?: string | ArrayBuffer): unknown[];
}
declare module '*.csv' {
    const text: string;
    export default text;
}
declare module '*.geojson' {
    const text: string;
    export default text;
}
declare module '*.wasm' {
    const bytes: Uint8Array<ArrayBuffer>;
    export default bytes;
}
declare module '*.css' {
    const text: string;
    export default text;
}
