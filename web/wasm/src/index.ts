/**
 * Divides land parcels with proof. The geometry is plparcel's, compiled to WebAssembly; this file only hands numbers over and
 * brings answers back as plain objects. There is nothing to free.
 *
 * Coordinates are plane, x East and y North, in the caller's unit; areas in that unit squared; bearings in gons, clockwise
 * from North. Sides and vertices are counted from 0, and side i runs from vertex i to the next one.
 */

import { kCuts, kJoins, kWidth, Reader, pushParcel, pushPoint, pushRequest, pushRing } from './packing.js';

/** x East, y North. */
export type Point = readonly [number, number];

/** Vertices in order, either way round; a closing one does no harm. */
export type Ring = readonly Point[];

/** What lies in `outer` and in none of the holes. */
export interface Parcel {
    readonly outer: Ring;
    readonly holes?: readonly Ring[];
}

/** How the dividing line runs. `ring` is 0 for the outer ring and k for the k-th hole. */
export type Line =
    | { readonly kind: 'parallel' | 'perpendicular'; readonly side: number; readonly ring?: number }
    | { readonly kind: 'vertex'; readonly vertex: number; readonly ring?: number }
    | { readonly kind: 'bearing'; readonly gon: number }
    | { readonly kind: 'segment'; readonly from: Point; readonly to: Point }
    | { readonly kind: 'place'; readonly side: number; readonly along: number; readonly ring?: number }
    | { readonly kind: 'point'; readonly point: Point; readonly gon?: number };

/**
 * What a piece is to hold: an area, a product of two lengths, a share (1 of 3), a width, or a number of equal parts of the whole
 * (which stands for all of them but the last).
 */
export type Amount =
    | { readonly area: number }
    | { readonly product: readonly [number, number] }
    | { readonly share: readonly [number, number] }
    | { readonly width: number }
    | { readonly parts: number };

export type Measured = 'from_reference' | 'opposite';

export interface Request {
    readonly line: Line;
    readonly amounts: readonly Amount[];
    /** Which piece holds the first amount; 'from_reference' when left out. */
    readonly measured?: Measured;
    /** Which of the lines that hold the first amount, from 0. */
    readonly alternative?: number;
    /** 'two' pieces to each line when left out. */
    readonly pieces?: 'two' | 'any';
    /** Decimals of the ends, 0 to 17; all digits when left out. */
    readonly decimals?: number;
    /** By how much a piece may miss its amount where there are decimals, as a part of the parcel; 1e-6 when left out. */
    readonly tolerance?: number;
}

/** What is known of a boundary. Rings are counted as in `Line`. */
export interface Report {
    /** 'usable', or the name of what is wrong. */
    readonly status: string;
    /** The same as a sentence's worth in English. */
    readonly reason: string;
    readonly repeated: number;
    readonly closed: boolean;
    readonly meetingSides: readonly [number, number];
    readonly meetingRings: readonly [number, number];
    readonly atRing: number;
    readonly anticlockwise: boolean;
    readonly area: number;
    readonly perimeter: number;
}

export interface DividingLine {
    readonly from: Point;
    readonly to: Point;
    /** Whether the line, prolonged, meets the parcel again. */
    readonly meetsAgain: boolean;
    readonly length: number;
    /** Gons, 0 to 400. */
    readonly bearing: number;
    /** What of it lies in the parcel. */
    readonly segments: readonly (readonly [Point, Point])[];
}

export interface Piece extends Required<Parcel> {
    /** Index of its amount; one more than the last for what is left. */
    readonly amount: number;
    readonly area: number;
    readonly asked: number;
    readonly residual: number;
}

/** What one amount has become, of however many pieces. */
export interface Held {
    readonly asked: number;
    readonly area: number;
    readonly residual: number;
    readonly pieces: number;
}

export interface Division {
    /** Whether the lines hold what was asked for, with proof. */
    readonly divided: boolean;
    /** 'divided', or the name of the reason why not. */
    readonly status: string;
    /** The same as a sentence's worth in English; of the boundary where that is at fault. */
    readonly reason: string;
    /** Unless divided: index of the amount that could not be cut. */
    readonly atAmount: number;
    readonly report: Report;
    /** Decimals that the ends have; undefined for all digits. */
    readonly decimals: number | undefined;
    readonly lines: readonly DividingLine[];
    readonly pieces: readonly Piece[];
    readonly held: readonly Held[];
}

/** From the least area to the greatest; whether the ends are had themselves. */
export interface AmountRange {
    readonly least: number;
    readonly most: number;
    readonly leastIsHad: boolean;
    readonly mostIsHad: boolean;
}

/** What a line can cut off. */
export interface Feasible {
    /** The name of the reason why nothing can be, whatever the amount. */
    readonly refusal: string | undefined;
    readonly ranges: readonly AmountRange[];
}

/** A line that can hold an amount, and the piece that holds it. */
export interface Alternative {
    readonly line: Line;
    readonly measured: Measured;
}

/** Of a side, and of the vertex from which it runs. A bearing or angle that does not exist is NaN. */
export interface SideMeasure {
    readonly length: number;
    readonly bearing: number;
    readonly angle: number;
}

export interface Measures {
    readonly report: Report;
    /** For each ring, for each side. */
    readonly rings: readonly (readonly SideMeasure[])[];
}

/** Lines of a drawing that hang together. */
export interface JoinedLines {
    /** 'loop' is a closed boundary; 'open' ends somewhere; at a 'fork' more than two ends meet. */
    readonly kind: 'loop' | 'open' | 'fork';
    /** Of a loop: between two ends that were joined. */
    readonly widestGap: number;
    /** How many lines were left out because another is the same. */
    readonly repeated: number;
    /** The lines, by number; those of a loop in the order along it. */
    readonly lines: readonly number[];
    /** Of a loop, without a closing vertex. */
    readonly ring: Ring;
    /** Where open lines end. */
    readonly loose: readonly Point[];
    /** Of a fork: where more than two ends meet. */
    readonly fork: Point;
}

/** Something that WebAssembly could not do: the memory that it may have is used up. The next call works again. */
export class OutOfMemory extends Error {
    constructor() {
        super('the parcel needs more memory than WebAssembly may have');
        this.name = 'OutOfMemory';
    }
}

interface Exports {
    readonly memory: WebAssembly.Memory;
    _initialize(): void;
    plc_input(count: number): number;
    plc_result(): number;
    plc_result_length(): number;
    plc_divide(): void;
    plc_check(): void;
    plc_measure(): void;
    plc_amount_at(): void;
    plc_along_side(): void;
    plc_feasible(): void;
    plc_alternatives(): void;
    plc_join(): void;
    plc_length(x1: number, y1: number, x2: number, y2: number): number;
    plc_bearing(x1: number, y1: number, x2: number, y2: number): number;
    plc_rounded(value: number, decimals: number): number;
    plc_status_name(status: number): number;
    plc_status_reason(status: number): number;
    plc_boundary_name(status: number): number;
    plc_boundary_reason(status: number): number;
}

type Call = 'plc_divide' | 'plc_check' | 'plc_measure' | 'plc_amount_at' | 'plc_along_side' | 'plc_feasible' | 'plc_alternatives' | 'plc_join';

// ------------------------------------------------------------------------------------------------ calls

/** The functions. Get one from load(). */
export class Plcalc {
    private exports: Exports;
    private readonly texts = new Map<string, string>();

    /** @param module plcalc.wasm, compiled */
    constructor(private readonly module: WebAssembly.Module) {
        this.exports = this.start();
    }

    /** Divides a parcel, or says why it cannot be divided so. */
    divide(parcel: Parcel | Ring, request: Request): Division {
        const input: number[] = [];
        pushParcel(input, asParcel(parcel));
        pushRequest(input, request);
        return this.readDivision(this.call('plc_divide', input));
    }

    /** Says whether a boundary can be used, and how large it is. */
    check(parcel: Parcel | Ring): Report {
        const input: number[] = [];
        pushParcel(input, asParcel(parcel));
        return this.readReport(this.call('plc_check', input));
    }

    /** Lengths, bearings and inner angles of all sides and vertices. */
    measure(parcel: Parcel | Ring): Measures {
        const input: number[] = [];
        pushParcel(input, asParcel(parcel));
        const from = this.call('plc_measure', input);
        const report = this.readReport(from);
        const side = (): SideMeasure => ({ length: from.number(), bearing: from.number(), angle: from.number() });
        return { report, rings: from.list(() => from.list(side)) };
    }

    /**
     * The amount for which a line of the requested kind runs through a point: a width for a line that has a direction, an
     * area for others; undefined where no such line cuts the parcel. The amounts of the request are without effect. It is
     * meant for a line that follows a pointer, and good to a millionth of the parcel's extent; divide() proves the line.
     */
    amountAt(parcel: Parcel | Ring, request: Omit<Request, 'amounts'>, point: Point): Amount | undefined {
        const input: number[] = [];
        pushParcel(input, asParcel(parcel));
        pushRequest(input, { ...request, amounts: [] });
        pushPoint(input, point);
        const from = this.call('plc_amount_at', input);
        if (!from.flag()) return undefined;
        return from.number() === kWidth ? { width: from.number() } : { area: from.number() };
    }

    /** How far along a side a point lies, from 0 to the side's length. */
    alongSide(parcel: Parcel | Ring, side: number, point: Point, ring = 0): number {
        const input: number[] = [];
        pushParcel(input, asParcel(parcel));
        input.push(ring, side);
        pushPoint(input, point);
        return this.call('plc_along_side', input).number();
    }

    /** The areas that a line of the requested kind can cut off. The amounts of the request are without effect. */
    feasible(parcel: Parcel | Ring, request: Omit<Request, 'amounts'>): Feasible {
        const input: number[] = [];
        pushParcel(input, asParcel(parcel));
        pushRequest(input, { ...request, amounts: [] });
        const from = this.call('plc_feasible', input);
        const refusal = from.number();
        return {
            refusal: Number.isNaN(refusal) ? undefined : this.text('plc_status_name', refusal),
            ranges: from.list(() => ({ least: from.number(), most: from.number(), leastIsHad: from.flag(), mostIsHad: from.flag() })),
        };
    }

    /** Sides, perpendiculars and vertices that can hold an amount in two pieces, among the first `most` lines. */
    alternatives(parcel: Parcel | Ring, amount: Amount, measured: Measured = 'from_reference', most = 100): Alternative[] {
        const input: number[] = [];
        pushParcel(input, asParcel(parcel));
        pushRequest(input, { line: { kind: 'parallel', side: 0 }, amounts: [amount], measured });
        input.push(most);
        const from = this.call('plc_alternatives', input);
        return from.list(() => {
            const kind = kCuts[from.number()];
            const [index, ring] = [from.number(), from.number()];
            const line: Line = kind === 'perpendicular' || kind === 'parallel' ? { kind, side: index, ring } : { kind: 'vertex', vertex: index, ring };
            return { line, measured: from.flag() ? 'opposite' : 'from_reference' };
        });
    }

    /**
     * Joins lines to closed boundaries. Ends that are no farther apart than the tolerance are one place. Lines of fewer than
     * two points, or no longer than the tolerance, are left out.
     */
    joinLines(lines: readonly (readonly Point[])[], tolerance: number): JoinedLines[] {
        const input: number[] = [tolerance, lines.length];
        for (const line of lines) pushRing(input, line);
        const from = this.call('plc_join', input);
        return from.list(() => ({
            kind: kJoins[from.number()] ?? 'open', widestGap: from.number(), repeated: from.number(), lines: from.list(() => from.number()),
            ring: from.ring(), loose: from.ring(), fork: from.point(),
        }));
    }

    /** From one point to another. */
    length(from: Point, to: Point): number {
        return this.exports.plc_length(from[0], from[1], to[0], to[1]);
    }

    /** Gons, clockwise from North, 0 to 400; NaN between equal points. */
    bearing(from: Point, to: Point): number {
        return this.exports.plc_bearing(from[0], from[1], to[0], to[1]);
    }

    /** The double nearest to the decimal number that is nearest to the value; of two as near, the even one. */
    rounded(value: number, decimals: number): number {
        return this.exports.plc_rounded(value, decimals);
    }

    /** The value with so many decimals, as plcalc prints it: never "-0.00". */
    fixed(value: number, decimals: number): string {
        return this.rounded(value, decimals).toFixed(decimals);
    }

    private start(): Exports {
        const instance = new WebAssembly.Instance(this.module, {
            env: { emscripten_notify_memory_growth: () => undefined },
            wasi_snapshot_preview1: {
                proc_exit: () => {
                    throw new OutOfMemory();
                },
            },
        });
        const exports = instance.exports as unknown as Exports;
        exports._initialize();
        return exports;
    }

    // A call that stopped half-way leaves its memory as it was then. The next one gets a new one.
    private call(name: Call, input: readonly number[]): Reader {
        try {
            const exports = this.exports;
            const at = exports.plc_input(input.length);
            new Float64Array(exports.memory.buffer, at, input.length).set(input);
            exports[name]();
            const result = new Float64Array(exports.memory.buffer, exports.plc_result(), exports.plc_result_length());
            return new Reader(result);
        } catch (error) {
            this.exports = this.start();
            throw error instanceof WebAssembly.RuntimeError ? new OutOfMemory() : error;
        }
    }

    // The words of a status never change.
    private text(of: 'plc_status_name' | 'plc_status_reason' | 'plc_boundary_name' | 'plc_boundary_reason',
        status: number): string {
        const key = `${of} ${status}`;
        let text = this.texts.get(key);
        if (text === undefined) {
            const bytes = new Uint8Array(this.exports.memory.buffer, this.exports[of](status));
            text = new TextDecoder().decode(bytes.slice(0, bytes.indexOf(0)));
            this.texts.set(key, text);
        }
        return text;
    }

    private readReport(from: Reader): Report {
        const status = from.number();
        return {
            status: this.text('plc_boundary_name', status),
            reason: this.text('plc_boundary_reason', status),
            repeated: from.number(),
            closed: from.flag(),
            meetingSides: [from.number(), from.number()],
            meetingRings: [from.number(), from.number()],
            atRing: from.number(),
            anticlockwise: from.flag(),
            area: from.number(),
            perimeter: from.number(),
        };
    }

    private readDivision(from: Reader): Division {
        const number = from.number();
        const status = this.text('plc_status_name', number);
        const atAmount = from.number();
        const report = this.readReport(from);
        const decimals = from.number();
        return {
            divided: status === 'divided',
            status,
            reason: status === 'unusable_boundary' ? report.reason : this.text('plc_status_reason', number),
            atAmount,
            report,
            decimals: Number.isNaN(decimals) ? undefined : decimals,
            lines: from.list(() => ({
                from: from.point(),
                to: from.point(),
                meetsAgain: from.flag(),
                length: from.number(),
                bearing: from.number(),
                segments: from.list((): [Point, Point] => [from.point(), from.point()]),
            })),
            pieces: from.list(() => {
                const amount = from.number();
                const area = from.number();
                const asked = from.number();
                const residual = from.number();
                const [outer = [], ...holes] = from.list(() => from.ring());
                return { amount, area, asked, residual, outer, holes };
            }),
            held: from.list(() => ({
                asked: from.number(),
                area: from.number(),
                residual: from.number(),
                pieces: from.number(),
            })),
        };
    }
}

function asParcel(parcel: Parcel | Ring): Parcel {
    return 'outer' in parcel ? parcel : { outer: parcel };
}

/**
 * Compiles and starts the module.
 *
 * @param wasm the content of plcalc.wasm. When left out, it is read from beside this file: by node from the disk, in a browser from
 *             the server.
 */
export async function load(wasm?: BufferSource | WebAssembly.Module): Promise<Plcalc> {
    if (wasm instanceof WebAssembly.Module) return new Plcalc(wasm);
    return new Plcalc(await WebAssembly.compile(wasm ?? (await beside())));
}

async function beside(): Promise<BufferSource> {
    const place = new URL('./plcalc.wasm', import.meta.url);
    if (place.protocol !== 'file:') return (await fetch(place)).arrayBuffer();
    const files = 'node:fs/promises'; // kept from bundlers for browsers, which have none
    const { readFile } = (await import(files)) as { readFile(path: URL): Promise<Uint8Array<ArrayBuffer>> };
    return readFile(place);
}
