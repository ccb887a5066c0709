// Where the work is done. Small parcels are divided at once. Files, and parcels with many corners, go to a worker, which is this
// page's own script once more, so that the page answers meanwhile.

import { OutOfMemory, type Plcalc } from '@plcalc/wasm';

import { cornersOf, Solver, type Question, type Solved } from './answer';
import { kMostSeconds, NeedsPage, Unreadable, verticesOf, type NamedParcel, type Note, type Reading } from './parcels';
import { read } from './reading/read';

// Up to so many corners a division takes less time than the eye sees.
const kMostAtOnce = 2500;

type Order =
    | { readonly id: number; readonly read: File | string }
    | { readonly id: number; readonly parcel?: NamedParcel; readonly question: Question };

interface Reply {
    readonly id: number;
    readonly value?: unknown;
    readonly note?: Note;
    readonly trouble?: 'memory' | 'needs page' | 'other';
}

// What is known here already does not travel back.
function packed(solved: Solved | undefined): Solved | undefined {
    return solved && { ...solved, answer: { ...solved.answer, parcel: { name: '', outer: [], holes: [] }, corners: [] } };
}

function unpacked(solved: Solved | undefined, parcel: NamedParcel): Solved | undefined {
    return solved && { ...solved, answer: { ...solved.answer, parcel, corners: cornersOf(parcel) } };
}

/** The worker's side. */
export function serve(loading: Promise<Plcalc>): void {
    const scope = self as unknown as { onmessage: (event: MessageEvent<Order>) => void; postMessage(reply: Reply): void };
    let solver: Solver | undefined;
    let parcel: NamedParcel | undefined;
    const done = async (order: Order): Promise<unknown> => {
        const plcalc = await loading;
        if ('read' in order) return read(order.read, plcalc);
        solver ??= new Solver(plcalc);
        parcel = order.parcel ?? parcel;
        return parcel && packed(solver.solve(parcel, order.question));
    };
    scope.onmessage = async ({ data }) => {
        try {
            scope.postMessage({ id: data.id, value: await done(data) });
        } catch (error) {
            const trouble = error instanceof NeedsPage ? 'needs page' : error instanceof OutOfMemory || error instanceof RangeError ? 'memory' : 'other';
            scope.postMessage({ id: data.id, ...(error instanceof Unreadable ? { note: error.note } : { trouble }) });
        }
    };
}

interface Waiting {
    done(value: unknown): void;
    failed(error: unknown): void;
    readonly timer: number;
}

/** The page's side. */
export class Desk {
    private readonly solver: Solver;
    private readonly waiting = new Map<number, Waiting>();
    private worker: Worker | undefined;
    private next = 0;
    private there: NamedParcel | undefined;

    /** @param script  of this page, for the worker; without it the page does everything itself */
    constructor(private readonly plcalc: Plcalc, private script: string | undefined) {
        this.solver = new Solver(plcalc);
    }

    /** @throws Unreadable */
    async read(from: File | string): Promise<Reading> {
        try {
            return await this.order<Reading>({ read: from }, kMostSeconds);
        } catch (error) {
            // KML needs what only a page has.
            if (error instanceof NeedsPage) return read(from, this.plcalc);
            throw error;
        }
    }

    /** Now for small parcels, later for large ones; undefined as Solver.solve(). */
    solve(parcel: NamedParcel, question: Question): Solved | undefined | Promise<Solved | undefined> {
        if (verticesOf(parcel) <= kMostAtOnce || !this.script) return this.solver.solve(parcel, question);
        const travels = this.there === parcel ? {} : { parcel };
        this.there = parcel;
        return this.order<Solved | undefined>({ ...travels, question }, kMostSeconds).then((solved) => unpacked(solved, parcel), (error: unknown) => {
            if (error instanceof NeedsPage) return this.solver.solve(parcel, question);
            throw error;
        });
    }

    private order<T>(order: { read: File | string } | { parcel?: NamedParcel; question: Question }, seconds: number): Promise<T> {
        return new Promise<T>((done, failed) => {
            const worker = this.started();
            if (!worker) return failed(new NeedsPage());
            const id = this.next++;
            const timer = window.setTimeout(() => this.stop(new Unreadable(['tooLong', String(seconds)])), seconds * 1000);
            this.waiting.set(id, { done: done as (value: unknown) => void, failed, timer });
            worker.postMessage({ id, ...order });
        });
    }

    private started(): Worker | undefined {
        if (this.worker || !this.script) return this.worker;
        try {
            const place = URL.createObjectURL(new Blob([this.script], { type: 'text/javascript' }));
            this.worker = new Worker(place);
        } catch {
            this.script = undefined;
            return undefined;
        }
        this.worker.onmessage = ({ data }: MessageEvent<Reply>) => this.take(data);
        // A browser that starts no worker: the page does it all.
        this.worker.onerror = () => {
            this.script = undefined;
            this.stop(new NeedsPage());
        };
        return this.worker;
    }

    private take({ id, value, note, trouble }: Reply): void {
        const waiting = this.waiting.get(id);
        if (!waiting) return;
        this.waiting.delete(id);
        clearTimeout(waiting.timer);
        if (note) waiting.failed(new Unreadable(note));
        else if (trouble === 'memory') waiting.failed(new OutOfMemory());
        else if (trouble) waiting.failed(trouble === 'needs page' ? new NeedsPage() : new Unreadable(['unknownFormat']));
        else waiting.done(value);
    }

    private stop(error: unknown): void {
        this.worker?.terminate();
        this.worker = undefined;
        this.there = undefined;
        for (const { failed, timer } of this.waiting.values()) {
            clearTimeout(timer);
            failed(error);
        }
        this.waiting.clear();
    }
}
