// The page: takes what the person does, asks plparcel, and shows what came out.

import { OutOfMemory, type Alternative, type Amount, type Plcalc, type Point } from '@plcalc/wasm';

import OlPolygon from 'ol/geom/Polygon.js';

import { numberOf } from './amounts';
import { asParcel, hasDirection, type Answer, type Question, type Solved } from './answer';
import { Desk } from './desk';
import { ParcelMap, type Picked } from './drawing/map';
import type { PlanTexts, PlanWanted } from './drawing/plan';
import type { XY } from './drawing/pen';
import { examples } from './examples';
import { Numbers, roundBelow, typedNumber } from './numbers';
import { cornerName, find, Panel, sideFacts, sideName } from './panel';
import { Unreadable, type NamedParcel, type Reading } from './parcels';
import { readText } from './reading/read';
import { addressOf, fromAddress, History, kDefaultSettings, kFirstAsked, type Asked, type Kind, type Settings, type Spot, type State } from './state';
import { noteText, setLanguage, t } from './texts';
import { csvOf, dxfOf, geoJsonOf } from './writing/files';
import { planPdf, planPng, planSvg, printedSheets, save, type PlanFile } from './writing/plan_files';

// Steps of a dragged area: as many to a parcel, or fewer.
const kSnapSteps = 250;

// Pixels; nobody points at a side of a smaller parcel.
const kSpeck = 110;

// What takes longer is told to be under way.
const kPatienceMs = 250;

export class App {
    private settings: Settings = kDefaultSettings;
    private readonly history: History;
    private readonly panel: Panel;
    private readonly map: ParcelMap;
    private numbers: Numbers;
    private readonly desk: Desk;
    private solved!: Solved;
    private beforeDrag: State | undefined;
    private dragTarget: Point | undefined;
    private following: Promise<void> | undefined;
    private axisBegun: Point | undefined;
    private times: number[] | undefined;
    private asked = 0;
    private running = 0;

    /** @param script  of the page, for its worker */
    constructor(private readonly plcalc: Plcalc, script?: string) {
        this.desk = new Desk(plcalc, script);
        const given = fromAddress(location.hash);
        const language = navigator.language.slice(0, 2);
        this.settings = { ...kDefaultSettings, language: language === 'de' ? 'de' : 'en', ...given?.settings };
        this.history = new History(given?.state ?? this.exampleState(0));
        this.numbers = new Numbers(plcalc, this.settings);
        this.map = new ParcelMap(find('map'), {
            pick: (picked, snapped) => this.pick(picked, snapped), hover: (picked, pixel) => this.hover(picked, pixel),
            dragTo: (at) => this.dragTo(at), dragEnd: () => void this.dragEnd(),
        });
        this.panel = new Panel({
            ask: (change, field) => this.ask(change, field), set: (change) => this.set(change), choose: (parcel) => this.choose(parcel),
            example: (index) => this.open(this.exampleState(index)), slide: (share) => this.slide(share), otherLine: () => this.otherLine(), takeInstead: (alternative) => this.takeInstead(alternative),
        });
        this.listen();
        this.set({});
        this.map.fit(this.history.now.parcels);
    }

    private get state(): State {
        return this.history.now;
    }
    private get answer(): Answer {
        return this.solved.answer;
    }

    // ------------------------------------------------------------------------------------------- steps

    private ask(change: Partial<Asked>, field: string): void {
        const asked = { ...this.state.asked, ...change };
        if (asked.mode === 'width' && !hasDirection(asked)) asked.mode = 'share';
        const empty = asked.typed[asked.mode] === '';
        this.axisBegun = undefined;
        this.history.push({ ...this.state, asked: empty ? { ...asked, typed: { ...asked.typed, [asked.mode]: this.suggestion(asked) } } : asked }, field);
        this.update(() => field === '' && this.announce());
    }

    // What an empty field begins with, so that a click on a tab shows a line.
    private suggestion(asked: Asked): string {
        const area = this.answer.report.area;
        if (!(area > 0)) return '';
        const third = roundBelow(area / 3);
        if (asked.mode === 'area') return typedNumber(Number(this.plcalc.fixed(this.answer.division?.held[0]?.area ?? third, 2)));
        if (asked.mode === 'width') return typedNumber(roundBelow(Math.sqrt(area) / 4));
        return asked.mode === 'list' ? `${typedNumber(roundBelow(area / 6))}, 1/4` : asked.mode === 'parts' ? '3' : '1/3';
    }

    private set(change: Partial<Settings>): void {
        this.settings = { ...this.settings, ...change };
        setLanguage(this.settings.language);
        this.numbers = new Numbers(this.plcalc, this.settings);
        this.panel.translate(this.settings);
        this.update();
    }

    private open(state: State): void {
        find('trouble').hidden = true;
        this.history.push(state);
        this.map.fit(state.parcels);
        this.update(() => this.announce());
    }

    private choose(chosen: number): void {
        const { asked, parcels } = this.state;
        const side = this.longestSide(parcels[chosen]);
        find('tip').hidden = true;
        this.history.push({ ...this.state, chosen, asked: { ...asked, side, corner: { ring: 0, index: 0 }, alternative: 0, along: 0, point: somewhereIn(parcels[chosen]) } });
        this.showLargeEnough();
        this.update(() => this.announce());
    }

    // A parcel that is a speck among many is brought near.
    private showLargeEnough(): void {
        const parcel = this.state.parcels[this.state.chosen];
        if (parcel && this.map.sizeOf(parcel) < kSpeck) this.map.fit([parcel]);
    }

    // The parcel, and when it fills the drawing already, all of them.
    private fitNext(): void {
        const size = this.map.sizeOf(this.answer.parcel);
        this.map.fit([this.answer.parcel]);
        if (this.state.parcels.length > 1 && Math.abs(this.map.sizeOf(this.answer.parcel) - size) < 1) this.map.fit(this.state.parcels);
        this.showSolved(this.solved);
    }

    private exampleState(index: number): State {
        const example = examples[index] ?? (examples[0] as (typeof examples)[number]);
        return this.stateOf(readText(example.text, this.plcalc), t(example.title), example.asked);
    }

    private slide(share: number): void {
        const { asked } = this.state;
        const area = this.answer.report.area;
        const value = asked.mode === 'share' ? `${typedNumber(Math.round(share * 1000) / 10)} %` : typedNumber(this.snapped(share * area));
        this.ask({ typed: { ...asked.typed, [asked.mode]: value }, alternative: 0 }, 'slider');
    }

    private snapped(area: number): number {
        const step = roundBelow(this.answer.report.area / kSnapSteps);
        return this.settings.snap ? Number((Math.max(1, Math.round(area / step)) * step).toPrecision(12)) : Number(this.plcalc.fixed(area, 2));
    }

    private otherLine(): void {
        this.ask({ alternative: this.solved.hasOther ? this.state.asked.alternative + 1 : 0 }, '');
    }

    // ------------------------------------------------------------------------------------- the drawing

    private pick(picked: Picked, snapped: Point): void {
        const { asked } = this.state;
        if (asked.kind === 'segment') return this.pickAxis(this.isCorner(snapped) ? snapped : this.pointed(snapped));
        if (asked.kind === 'point' && asked.whole && picked.kind !== 'corner') return this.ask({ point: this.pointed(picked.at), alternative: 0 }, '');
        if (picked.kind === 'parcel') return this.choose(picked.index);
        if (picked.kind === 'corner') return this.ask({ kind: 'vertex', corner: picked.spot, alternative: 0 }, '');
        if (asked.kind === 'point' && picked.kind === 'inside') return this.ask({ point: this.pointed(picked.at), alternative: 0 }, '');
        if (picked.kind !== 'side') return;
        if (asked.kind === 'place') {
            const parcel = this.state.parcels[this.state.chosen];
            const along = parcel ? this.plcalc.alongSide(asParcel(parcel), picked.spot.index, picked.at, picked.spot.ring) : 0;
            return this.ask({ side: picked.spot, along: Number(this.plcalc.fixed(along, 2)), alternative: 0 }, '');
        }
        this.ask({ kind: asked.kind === 'perpendicular' ? 'perpendicular' : 'parallel', side: picked.spot, alternative: 0 }, '');
    }

    // Two clicks make a segment.
    private pickAxis(at: Point): void {
        const from = this.axisBegun;
        if (from && (from[0] !== at[0] || from[1] !== at[1])) return this.ask({ axis: [from, at], alternative: 0 }, '');
        this.axisBegun = at;
        this.showSolved(this.solved);
    }

    private isCorner(p: Point): boolean {
        return this.state.parcels.some((parcel) => [parcel.outer, ...parcel.holes].some((ring) => ring.includes(p)));
    }

    // Nobody points to the hundredth of a millimetre.
    private pointed(at: Point): Point {
        return [Number(this.plcalc.fixed(at[0], 2)), Number(this.plcalc.fixed(at[1], 2))];
    }

    private hover(picked: Picked | undefined, [x, y]: XY): void {
        const tip = find('tip');
        const text = picked?.kind === 'side' ? sideFacts(this.answer, this.numbers, picked.spot)
            : picked?.kind === 'corner' ? t('cornerName', cornerName(this.answer, picked.spot))
                : picked?.kind === 'parcel' ? this.state.parcels[picked.index]?.name || t('parcelNumber', picked.index + 1) : '';
        tip.hidden = text === '';
        tip.textContent = text;
        tip.style.left = `${Math.min(Math.max(x, 120), (tip.parentElement?.clientWidth ?? 400) - 120)}px`;
        tip.style.top = `${Math.max(y, 44)}px`;
    }

    private dragTo(at: Point): void {
        this.beforeDrag ??= this.state;
        const waiting = this.dragTarget !== undefined;
        this.dragTarget = at;
        if (!waiting) requestAnimationFrame(() => this.dragFrame());
    }

    /** Where a place of the plane is on the drawing, for those who point at it without eyes. */
    pixelOf(p: Point): XY {
        return this.map.pixelOf(p);
    }

    /** The middle of the first line on the drawing, where it can be taken hold of. */
    grip(): XY | undefined {
        const cut = this.answer.cuts[0];
        const [a, b] = [cut && this.map.pixelOf(cut.from.at), cut && this.map.pixelOf(cut.to.at)];
        return a && b && [(a[0] + b[0]) / 2, (a[1] + b[1]) / 2];
    }

    timeFrames(): void {
        this.times = [];
    }

    /** Milliseconds that each step of a dragged line took since timeFrames(): computed, shown and drawn. */
    frameTimes(): readonly number[] {
        return this.times ?? [];
    }

    // One line a frame: the one through the pointer. A large parcel takes longer; then the next one starts where the pointer is.
    private dragFrame(): void {
        if (this.following) return;
        const begin = performance.now();
        this.following = this.dragLine();
        if (!this.following && this.times) {
            this.map.drawNow();
            this.times.push(performance.now() - begin);
        }
    }

    private dragLine(): Promise<void> | undefined {
        const at = this.dragTarget;
        this.dragTarget = undefined;
        const parcel = this.state.parcels[this.state.chosen];
        if (!at || !parcel || !this.beforeDrag) return undefined;
        const solved = this.desk.solve(parcel, { asked: this.state.asked, settings: this.settings, dragged: at });
        if (!(solved instanceof Promise)) return void this.followed(solved);
        return solved.then((later) => this.followed(later), () => undefined).finally(() => {
            this.following = undefined;
            if (this.dragTarget) this.dragFrame();
        });
    }

    private followed(solved: Solved | undefined): void {
        if (!solved?.amount || !this.beforeDrag) return;
        this.history.preview({ ...this.state, asked: this.typedFrom(solved.asked, solved.amount, solved.answer.division?.held[0]?.area ?? 0, false) });
        this.showSolved(solved);
    }

    private typedFrom(asked: Asked, amount: Amount, area: number, snap: boolean): Asked {
        if (asked.mode === 'width' && 'width' in amount) return { ...asked, typed: { ...asked.typed, width: this.plcalc.fixed(amount.width, 2) } };
        const value = snap ? this.snapped(area) : Number(this.plcalc.fixed(area, 2));
        return { ...asked, mode: 'area', typed: { ...asked.typed, area: typedNumber(value) } };
    }

    private async dragEnd(): Promise<void> {
        this.dragFrame();
        await this.following;
        const before = this.beforeDrag;
        this.beforeDrag = undefined;
        if (!before) return;
        const area = this.answer.division?.held[0]?.area;
        const { asked } = this.state;
        const after = { ...this.state, asked: area === undefined || asked.mode !== 'area' ? asked : this.typedFrom(asked, { area }, area, true) };
        this.history.preview(before);
        this.history.push(after);
        this.update(() => this.announce());
    }

    private mapKey(event: KeyboardEvent): void {
        const { asked } = this.state;
        const rings = [this.answer.parcel.outer, ...this.answer.parcel.holes];
        const spots = rings.flatMap((ring, k) => ring.map((_, index) => ({ ring: k, index })));
        const field = asked.kind === 'vertex' ? 'corner' : 'side';
        const at = spots.findIndex((spot) => spot.ring === asked[field].ring && spot.index === asked[field].index);
        const next = (step: number): void => this.ask({ [field]: spots[(at + step + spots.length) % spots.length], alternative: 0 }, '');
        const area = this.answer.report.area;
        const move = (step: number): void => {
            const now = this.answer.division?.held[0]?.asked ?? area / 3;
            this.ask({ mode: 'area', typed: { ...asked.typed, area: typedNumber(this.snapped(now + step * roundBelow(area / 100))) }, alternative: 0 }, 'keys');
        };
        const actions: Record<string, () => void> = {
            ArrowRight: () => next(1), ArrowLeft: () => next(-1), ArrowUp: () => move(1), ArrowDown: () => move(-1),
            '+': () => this.map.zoom(0.5), '-': () => this.map.zoom(-0.5), '0': () => this.fitNext(),
        };
        const action = actions[event.key];
        if (!action || event.ctrlKey || event.metaKey || event.altKey) return;
        event.preventDefault();
        action();
    }

    // --------------------------------------------------------------------------------------- the answer

    // What was asked last is shown, whatever comes before it.
    private update(then: () => void = () => undefined): void {
        const parcel = this.state.parcels[this.state.chosen];
        if (!parcel) return;
        this.writeAddress();
        const number = ++this.asked;
        const question: Question = { asked: this.state.asked, settings: this.settings };
        const show = (solved: Solved | undefined): void => {
            if (number !== this.asked || !solved) return;
            this.showSolved(solved);
            then();
        };
        try {
            const solved = this.desk.solve(parcel, question);
            if (!(solved instanceof Promise)) return show(solved);
            if (this.answer.parcel === parcel) this.showSolved({ ...this.solved, asked: this.state.asked });
            void this.busy(solved).then(show, (error: unknown) => number === this.asked && this.trouble(error));
        } catch (error) {
            this.trouble(error);
        }
    }

    // Says after a moment that something is under way.
    private async busy<T>(work: Promise<T>): Promise<T> {
        const timer = window.setTimeout(() => (find('busy').hidden = false), kPatienceMs);
        this.running += 1;
        document.body.ariaBusy = 'true';
        try {
            return await work;
        } finally {
            clearTimeout(timer);
            this.running -= 1;
            if (this.running === 0) {
                find('busy').hidden = true;
                document.body.ariaBusy = 'false';
            }
        }
    }

    private writeAddress(): void {
        const address = addressOf(this.state, this.settings);
        try {
            history.replaceState(null, '', address ?? location.pathname + location.search);
        } catch {
            // A page from a disk may have no address of its own; then a link is made on request only.
        }
    }

    private showSolved(solved: Solved): void {
        this.solved = solved;
        const { state, settings, numbers } = this;
        const { answer } = solved;
        this.map.show({ answer, parcels: state.parcels, chosen: state.chosen, asked: state.asked, numbers, begun: this.axisBegun });
        this.panel.show({ state, settings, numbers, ...solved });
        const hints = {
            parallel: 'hintParallel', perpendicular: 'hintParallel', vertex: 'hintVertex', bearing: 'hintBearing', segment: this.axisBegun ? 'hintSegmentEnd' : 'hintSegment',
            place: 'hintPlace', point: state.asked.whole ? 'hintPointAnywhere' : 'hintPoint',
        } as const;
        // Of many parcels, the person's own one has yet to be found.
        const isSpeck = state.parcels.length > 1 && this.map.sizeOf(answer.parcel) < kSpeck;
        const [hint, drag] = [t(isSpeck ? 'hintPick' : hints[state.asked.kind]), isSpeck ? '' : t('dragHint')];
        const refused = answer.division !== undefined && !answer.division.divided;
        find('hint').textContent = refused ? `${find('refusal-title').textContent}. ${find('refusal-text').textContent} ${find('refusal-range').textContent}`
            : answer.division?.lines.length === 1 && !this.axisBegun && drag ? `${hint} ${drag}` : hint;
        find('hint').classList.toggle('bad', refused);
        find<HTMLButtonElement>('print-top').disabled = !answer.division?.divided;
        find<HTMLButtonElement>('undo').disabled = !this.history.canUndo;
        find<HTMLButtonElement>('redo').disabled = !this.history.canRedo;
    }

    private takeInstead({ line, measured }: Alternative): void {
        const spot: Spot = { ring: ('ring' in line ? line.ring : 0) ?? 0, index: 'side' in line ? line.side : 'vertex' in line ? line.vertex : 0 };
        const change = line.kind === 'vertex' ? { corner: spot } : { side: spot };
        this.ask({ kind: line.kind as Kind, ...change, opposite: measured === 'opposite', whole: false, alternative: 0 }, '');
    }

    private announce(): void {
        const { division, pieces } = this.answer;
        const text = !division ? find('mistake').textContent ?? ''
            : division.divided ? t('announceDivided', pieces.slice(0, 6).map((piece) => `${piece.name} ${this.numbers.area(piece.area)}`).join(', '))
                : t('announceRefused', find('refusal-text').textContent ?? '');
        find('live').textContent = `${['parallel', 'perpendicular'].includes(this.state.asked.kind) ? t('selectedSide', sideName(this.answer, this.state.asked.side)) : ''} ${text}`;
    }

    // ---------------------------------------------------------------------------------------- in and out

    private async take(from: File | string, source: string): Promise<void> {
        try {
            const reading = await this.busy(this.desk.read(from));
            if (reading.unit) this.settings = { ...this.settings, unit: reading.unit };
            this.numbers = new Numbers(this.plcalc, this.settings);
            this.open(this.stateOf(reading, source, { ...kFirstAsked, side: this.longestSide(reading.parcels[0]) }));
            this.panel.closePaste();
        } catch (error) {
            this.trouble(error);
        }
    }

    // Most lines are asked along the longest side.
    private longestSide(parcel: NamedParcel | undefined): Spot {
        const ring = parcel?.outer ?? [];
        const lengths = ring.map((from, i) => this.plcalc.length(from, ring[(i + 1) % ring.length] ?? from));
        return { ring: 0, index: lengths.reduce((best, length, i) => (length > (lengths[best] ?? 0) ? i : best), 0) };
    }

    private stateOf(reading: Reading, source: string, asked: Asked): State {
        const parcel = reading.parcels[0];
        const ring = parcel?.outer ?? [];
        const longest = this.longestSide(parcel).index;
        const axis = [ring[longest] ?? [0, 0], ring[(longest + 1) % Math.max(1, ring.length)] ?? [0, 1]] as const;
        return { source, parcels: reading.parcels, notes: reading.notes, chosen: 0, asked: { ...asked, axis, point: somewhereIn(parcel) } };
    }

    private trouble(error: unknown): void {
        const text = error instanceof Unreadable ? noteText(error.note) : error instanceof OutOfMemory || error instanceof RangeError ? t('memory') : String(error);
        find('trouble').textContent = `${t('cannotOpen')}: ${text}`;
        find('trouble').hidden = false;
        find('trouble').scrollIntoView({ block: 'nearest' });
    }

    private wanted(): PlanWanted {
        return { answer: this.answer, asked: this.state.asked, numbers: this.numbers, texts: this.planTexts() };
    }

    private planTexts(): PlanTexts {
        const { asked, notes, source } = this.state;
        const { answer, numbers } = this;
        const side = sideName(answer, asked.side);
        const cut = {
            parallel: () => t('cutParallel', side), perpendicular: () => t('cutPerpendicular', side), vertex: () => t('cutVertex', cornerName(answer, asked.corner)),
            bearing: () => t('cutBearing', numbers.angle(asked.gon)), segment: () => t('cutSegment', numbers.bearing(...asked.axis)), place: () => t('cutPlace', side),
            point: () => t('cutPoint', numbers.fixed(asked.point[0], 2), numbers.fixed(asked.point[1], 2)),
        }[asked.kind]();
        const typed = asked.typed[asked.mode];
        const amount = { area: typed, share: typed, list: typed, parts: t('partsText', typed), width: t('widthText', typed) }[asked.mode];
        const crs = notes.filter((note) => ['degrees', 'crs', 'noCrs'].includes(note[0])).map(noteText);
        return { title: answer.parcel.name || source, sentence: t('cutSentence', cut, amount), notes: [...crs, ...(this.settings.unit === '' ? [t('sheetMetres')] : [])] };
    }

    private fileName(ending: string): string {
        const name = (this.answer.parcel.name || this.state.source || 'parcel').replace(/\.[a-z]+$/i, '').replace(/[^\p{L}\p{N}_-]+/gu, '-').replace(/^-+|-+$/g, '');
        return `${name || 'parcel'}-divided.${ending}`;
    }

    private async saveAs(kind: string): Promise<void> {
        if (!this.answer.division?.divided) return;
        const epsg = this.state.notes.map((note) => /EPSG:(\d+)/.exec(note.slice(1).join(' '))?.[1]).find(Boolean);
        const text = (content: string, type: string): PlanFile => ({ content: new Blob([content], { type: `${type};charset=utf-8` }), ending: kind });
        const contents: Record<string, () => PlanFile | Promise<PlanFile>> = {
            geojson: () => text(geoJsonOf(this.answer, epsg), 'application/geo+json'), csv: () => text(csvOf(this.answer, this.numbers), 'text/csv'),
            dxf: () => text(dxfOf(this.answer, this.numbers), 'image/vnd.dxf'),
            svg: () => planSvg(this.wanted()), png: () => planPng(this.wanted()), pdf: () => planPdf(this.wanted()),
        };
        const file = await contents[kind]?.();
        if (!file) return;
        save(this.fileName(file.ending), file.content);
        find('told').textContent = t('saved', this.fileName(file.ending));
    }

    private async copyLink(): Promise<void> {
        const address = addressOf(this.state, this.settings);
        find('told').textContent = t(address ? 'linkCopied' : 'linkTooLong');
        if (address) await navigator.clipboard?.writeText(location.href.replace(/#.*$/, '') + address);
    }

    // -------------------------------------------------------------------------------------------- events

    private listen(): void {
        find('undo').onclick = () => this.step(this.history.undo());
        find('redo').onclick = () => this.step(this.history.redo());
        find('zoom-in').onclick = () => this.map.zoom(0.7);
        find('zoom-out').onclick = () => this.map.zoom(-0.7);
        find('fit').onclick = () => this.fitNext();
        find('map').addEventListener('keydown', (event) => this.mapKey(event));
        this.onInput('amount', (text) => this.ask({ typed: { ...this.state.asked.typed, [this.state.asked.mode]: text }, alternative: 0 }, 'amount'));
        this.onNumber('bearing', (gon) => this.ask({ gon, alternative: 0 }, 'bearing'));
        this.onNumber('along', (along) => this.ask({ along, alternative: 0 }, 'along'));
        this.onNumber('east', (east) => this.ask({ point: [east, this.state.asked.point[1]], alternative: 0 }, 'east'));
        this.onNumber('north', (north) => this.ask({ point: [this.state.asked.point[0], north], alternative: 0 }, 'north'));
        const axis = (end: 0 | 1, k: 0 | 1) => (value: number): void => {
            const { axis: now } = this.state.asked;
            const moved: Point = k === 0 ? [value, now[end][1]] : [now[end][0], value];
            this.ask({ axis: end === 0 ? [moved, now[1]] : [now[0], moved], alternative: 0 }, `axis ${end} ${k}`);
        };
        for (const end of [0, 1] as const)
            for (const k of [0, 1] as const) this.onNumber(`axis-${end}-${k}`, axis(end, k));
        this.listenForFiles();
        for (const button of document.querySelectorAll<HTMLElement>('[data-save]')) button.onclick = () => void this.saveAs(button.dataset.save ?? '');
        for (const id of ['print', 'print-top']) find(id).onclick = () => window.print();
        find('link').onclick = () => void this.copyLink();
        window.addEventListener('beforeprint', () => (find('sheet').innerHTML = this.answer.division?.divided ? printedSheets(this.wanted()) : ''));
        window.addEventListener('hashchange', () => {
            const given = fromAddress(location.hash);
            if (!given) return;
            this.open(given.state);
            this.set(given.settings);
        });
        window.addEventListener('keydown', (event) => {
            const typing = event.target instanceof HTMLInputElement || event.target instanceof HTMLTextAreaElement;
            if (typing || event.altKey) return;
            if (!(event.ctrlKey || event.metaKey)) return void (/^[1-9]$/.test(event.key) && !(event.target instanceof HTMLSelectElement) && this.typeAmount());
            const key = event.key.toLowerCase();
            if (key !== 'z' && key !== 'y') return;
            event.preventDefault();
            this.step(key === 'y' || event.shiftKey ? this.history.redo() : this.history.undo());
        });
    }

    private listenForFiles(): void {
        const file = find<HTMLInputElement>('file');
        find('open').onclick = () => file.click();
        file.onchange = () => {
            const chosen = file.files?.[0];
            if (chosen) void this.take(chosen, chosen.name);
            file.value = '';
        };
        const area = find<HTMLTextAreaElement>('paste-text');
        find('paste-take').onclick = () => void this.take(area.value, t('parcel'));
        document.addEventListener('paste', (event) => {
            if (event.target instanceof HTMLInputElement || event.target instanceof HTMLTextAreaElement) return;
            const pasted = event.clipboardData?.files[0];
            const text = event.clipboardData?.getData('text') ?? '';
            if (pasted) void this.take(pasted, pasted.name);
            else if (text) void this.take(text, t('parcel'));
        });
        let depth = 0;
        const show = (by: number): void => {
            depth = Math.max(0, depth + by);
            find('drop').hidden = depth === 0;
        };
        document.addEventListener('dragenter', () => show(1));
        document.addEventListener('dragleave', () => show(-1));
        document.addEventListener('dragover', (event) => event.preventDefault());
        document.addEventListener('drop', (event) => {
            event.preventDefault();
            depth = 0;
            show(0);
            const dropped = event.dataTransfer?.files[0];
            const text = event.dataTransfer?.getData('text') ?? '';
            if (dropped) void this.take(dropped, dropped.name);
            else if (text) void this.take(text, t('parcel'));
        });
    }

    // Who points at a side and then types means the amount.
    private typeAmount(): void {
        const field = find<HTMLInputElement>('amount');
        field.focus({ preventScroll: false });
        field.select();
    }

    private onInput(id: string, typed: (text: string) => void): void {
        const field = find<HTMLInputElement>(id);
        field.oninput = () => typed(field.value);
        field.onblur = () => this.update();
    }

    private onNumber(id: string, typed: (value: number) => void): void {
        this.onInput(id, (text) => {
            const value = numberOf(text);
            find(id).ariaInvalid = String(typeof value === 'string');
            if (typeof value === 'number') typed(value);
        });
    }

    private step(stepped: boolean): void {
        if (!stepped) return;
        if (this.answer.parcel !== this.state.parcels[this.state.chosen]) this.map.fit(this.state.parcels);
        this.axisBegun = undefined;
        this.update(() => this.announce());
    }
}

// A point to begin with, until another one is clicked.
function somewhereIn(parcel: NamedParcel | undefined): Point {
    const rings = [parcel?.outer ?? [], ...(parcel?.holes ?? [])].map((ring) => [...ring, ...ring.slice(0, 1)].map((p) => [p[0], p[1]]));
    const [x = 0, y = 0] = new OlPolygon(rings).getInteriorPoint().getCoordinates();
    const rounded: Point = [Number(x.toFixed(2)), Number(y.toFixed(2))];
    return Number.isFinite(rounded[0]) && Number.isFinite(rounded[1]) ? rounded : [0, 0];
}
