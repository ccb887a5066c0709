// The page: takes what the person does, asks plparcel, and shows what came out.

import { OutOfMemory, type Alternative, type Amount, type Plcalc, type Point } from '@plcalc/wasm';

import OlPolygon from 'ol/geom/Polygon.js';

import { answerOf, asParcel, divided, hasDirection, lineOf, measuresOf, requestOf, type Answer } from './answer';
import { numberOf } from './amounts';
import { ParcelMap, type Picked } from './drawing/map';
import type { PlanTexts } from './drawing/plan';
import type { XY } from './drawing/pen';
import { examples } from './examples';
import { Numbers, roundBelow, typedNumber } from './numbers';
import { cornerName, find, Panel, sideFacts, sideName, type Range } from './panel';
import { Unreadable, type NamedParcel, type Reading } from './parcels';
import { readFile, readText } from './reading/read';
import { addressOf, fromAddress, History, kDefaultSettings, kFirstAsked, type Asked, type Kind, type Settings, type Spot, type State } from './state';
import { noteText, setLanguage, t } from './texts';
import { csvOf, dxfOf, geoJsonOf } from './writing/files';
import { planPdf, planPng, planSvg, save, type PlanWanted } from './writing/plan_files';

// Steps of a dragged area: as many to a parcel, or fewer.
const kSnapSteps = 250;

// Other lines to propose, how many to look at for them, and up to which size of a parcel.
const kMostAlternatives = 4;
const kLookAt = 60;
const kMostForAlternatives = 2000;

// A line through a point that is looked for from its own direction on might be missed by a rounding.
const kLookBackGon = 0.01;

export class App {
    private settings: Settings = kDefaultSettings;
    private readonly history: History;
    private readonly panel: Panel;
    private readonly map: ParcelMap;
    private numbers: Numbers;
    private answer!: Answer;
    private beforeDrag: State | undefined;
    private dragTarget: Point | undefined;
    private hasOther = false;
    private times: number[] | undefined;
    private lastRanges: readonly Range[] = [];
    private rangesFor: { parcel?: NamedParcel; key?: string } = {};

    constructor(private readonly plcalc: Plcalc) {
        const given = fromAddress(location.hash);
        const language = navigator.language.slice(0, 2);
        this.settings = { ...kDefaultSettings, language: language === 'de' ? 'de' : 'en', ...given?.settings };
        this.history = new History(given?.state ?? this.exampleState(0));
        this.numbers = new Numbers(plcalc, this.settings);
        this.map = new ParcelMap(find('map'), {
            pick: (picked) => this.pick(picked), hover: (picked, pixel) => this.hover(picked, pixel),
            dragTo: (at) => this.dragTo(at), dragEnd: () => this.dragEnd(),
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

    // ------------------------------------------------------------------------------------------- steps

    private ask(change: Partial<Asked>, field: string): void {
        const asked = { ...this.state.asked, ...change };
        if (asked.mode === 'width' && !hasDirection(asked)) asked.mode = 'share';
        const empty = asked.typed[asked.mode] === '';
        this.history.push({ ...this.state, asked: empty ? { ...asked, typed: { ...asked.typed, [asked.mode]: this.suggestion(asked) } } : asked }, field);
        this.update();
        if (field === '') this.announce();
    }

    // What an empty field begins with, so that a click on a tab shows a line.
    private suggestion(asked: Asked): string {
        const area = this.answer.measures.report.area;
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
        this.update();
        this.map.fit(state.parcels);
        this.announce();
    }

    private choose(chosen: number): void {
        const { asked } = this.state;
        const none = { ring: 0, index: 0 };
        this.history.push({ ...this.state, chosen, asked: { ...asked, side: none, corner: none, alternative: 0, along: 0, point: somewhereIn(this.state.parcels[chosen]) } });
        this.update();
        this.announce();
    }


    private exampleState(index: number): State {
        const example = examples[index] ?? (examples[0] as (typeof examples)[number]);
        return stateOf(readText(example.text), t(example.title), example.asked);
    }

    private slide(share: number): void {
        const { asked } = this.state;
        const area = this.answer.measures.report.area;
        const value = asked.mode === 'share' ? `${typedNumber(Math.round(share * 1000) / 10)} %` : typedNumber(this.snapped(share * area));
        this.ask({ typed: { ...asked.typed, [asked.mode]: value }, alternative: 0 }, 'slider');
    }

    private snapped(area: number): number {
        const step = roundBelow(this.answer.measures.report.area / kSnapSteps);
        return this.settings.snap ? Number((Math.max(1, Math.round(area / step)) * step).toPrecision(12)) : Number(this.plcalc.fixed(area, 2));
    }

    private otherLine(): void {
        this.ask({ alternative: this.hasOther ? this.state.asked.alternative + 1 : 0 }, '');
    }

    // ------------------------------------------------------------------------------------- the drawing

    private pick(picked: Picked): void {
        const { asked } = this.state;
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

    // One line a frame: the one through the pointer, proven like any other.
    private dragFrame(): void {
        const begin = performance.now();
        this.dragLine();
        if (this.times) {
            this.map.drawNow();
            this.times.push(performance.now() - begin);
        }
    }

    private dragLine(): void {
        const at = this.dragTarget;
        this.dragTarget = undefined;
        const parcel = this.state.parcels[this.state.chosen];
        if (!at || !parcel || !this.beforeDrag) return;
        let asked: Asked = { ...this.state.asked, alternative: 0 };
        if (asked.kind === 'point') {
            const bearing = this.plcalc.measure([asked.point, at]).rings[0]?.[0]?.bearing ?? NaN;
            if (Number.isNaN(bearing)) return;
            asked = { ...asked, gon: Number(this.plcalc.fixed((bearing + 400 - kLookBackGon) % 400, 4)) };
        }
        const amount = this.plcalc.amountAt(asParcel(parcel), requestOf(asked, [], this.settings), at);
        if (!amount) return;
        const answer = answerOf(this.plcalc, { ...this.state, asked }, this.settings, [amount]);
        if (!answer?.division?.divided) return;
        this.history.preview({ ...this.state, asked: this.typedFrom(asked, amount, answer.division.held[0]?.area ?? 0, false) });
        this.showAnswer(answer);
    }

    private typedFrom(asked: Asked, amount: Amount, area: number, snap: boolean): Asked {
        if (asked.mode === 'width' && 'width' in amount) return { ...asked, typed: { ...asked.typed, width: this.plcalc.fixed(amount.width, 2) } };
        const value = snap ? this.snapped(area) : Number(this.plcalc.fixed(area, 2));
        return { ...asked, mode: 'area', typed: { ...asked.typed, area: typedNumber(value) } };
    }

    private dragEnd(): void {
        this.dragFrame();
        const before = this.beforeDrag;
        this.beforeDrag = undefined;
        if (!before) return;
        const area = this.answer.division?.held[0]?.area;
        const { asked } = this.state;
        const after = { ...this.state, asked: area === undefined || asked.mode !== 'area' ? asked : this.typedFrom(asked, { area }, area, true) };
        this.history.preview(before);
        this.history.push(after);
        this.update();
        this.announce();
    }

    private mapKey(event: KeyboardEvent): void {
        const { asked } = this.state;
        const rings = [this.answer.parcel.outer, ...this.answer.parcel.holes];
        const spots = rings.flatMap((ring, k) => ring.map((_, index) => ({ ring: k, index })));
        const field = asked.kind === 'vertex' ? 'corner' : 'side';
        const at = spots.findIndex((spot) => spot.ring === asked[field].ring && spot.index === asked[field].index);
        const next = (step: number): void => this.ask({ [field]: spots[(at + step + spots.length) % spots.length], alternative: 0 }, '');
        const area = this.answer.measures.report.area;
        const move = (step: number): void => {
            const now = this.answer.division?.held[0]?.asked ?? area / 3;
            this.ask({ mode: 'area', typed: { ...asked.typed, area: typedNumber(this.snapped(now + step * roundBelow(area / 100))) }, alternative: 0 }, 'keys');
        };
        const actions: Record<string, () => void> = {
            ArrowRight: () => next(1), ArrowLeft: () => next(-1), ArrowUp: () => move(1), ArrowDown: () => move(-1),
            '+': () => this.map.zoom(0.5), '-': () => this.map.zoom(-0.5), '0': () => this.map.fit([this.answer.parcel]),
        };
        const action = actions[event.key];
        if (!action || event.ctrlKey || event.metaKey || event.altKey) return;
        event.preventDefault();
        action();
    }

    // --------------------------------------------------------------------------------------- the answer

    private update(): void {
        try {
            const answer = answerOf(this.plcalc, this.state, this.settings);
            if (answer) this.showAnswer(answer);
        } catch (error) {
            this.trouble(error);
            return;
        }
        const address = addressOf(this.state, this.settings);
        try {
            history.replaceState(null, '', address ?? location.pathname + location.search);
        } catch {
            // A page from a disk may have no address of its own; then a link is made on request only.
        }
    }

    private showAnswer(answer: Answer): void {
        this.answer = answer;
        const { state, settings, numbers } = this;
        this.hasOther = this.beforeDrag === undefined && this.findOther();
        this.map.show({ answer, parcels: state.parcels, chosen: state.chosen, asked: state.asked, numbers });
        this.panel.show({ state, settings, answer, numbers, ranges: this.ranges(), instead: this.instead(), hasOther: this.hasOther });
        const hints = { parallel: 'hintParallel', perpendicular: 'hintParallel', vertex: 'hintVertex', bearing: 'hintBearing', place: 'hintPlace', point: 'hintPoint' } as const;
        const [hint, drag] = [t(hints[state.asked.kind]), t('dragHint')];
        const refused = answer.division !== undefined && !answer.division.divided;
        find('hint').textContent = refused ? `${find('refusal-title').textContent}. ${find('refusal-text').textContent} ${find('refusal-range').textContent}`
            : answer.division?.lines.length === 1 ? `${hint} ${drag}` : hint;
        find('hint').classList.toggle('bad', refused);
        find<HTMLButtonElement>('print-top').disabled = !answer.division?.divided;
        find<HTMLButtonElement>('undo').disabled = !this.history.canUndo;
        find<HTMLButtonElement>('redo').disabled = !this.history.canRedo;
    }

    // Whether another line holds the same amount.
    private findOther(): boolean {
        const { request, parcel, division } = this.answer;
        if (!request || !division?.divided || request.pieces === 'any' || parcel.outer.length > 300) return false;
        return divided(this.plcalc, parcel, { ...request, alternative: this.state.asked.alternative + 1 }).divided;
    }

    // What can be had with this kind of line, as areas. It costs as much as a division; while a line is dragged, nobody asks.
    private ranges(): readonly Range[] {
        const { parcel, measures } = this.answer;
        const { asked } = this.state;
        if (measures.report.status !== 'usable') return [];
        if (this.beforeDrag) return this.lastRanges;
        const key = JSON.stringify([lineOf(asked), asked.opposite, asked.whole]);
        if (this.rangesFor.parcel !== parcel || this.rangesFor.key !== key) {
            this.rangesFor = { parcel, key };
            this.lastRanges = this.plcalc.feasible(asParcel(parcel), requestOf(asked, [], this.settings)).ranges;
        }
        return this.lastRanges;
    }

    // Other lines that hold what was refused.
    private instead(): readonly Alternative[] {
        const { division, request, parcel } = this.answer;
        const amount = request?.amounts[0];
        if (!division || division.divided || !amount || request.amounts.length > 1 || 'width' in amount || 'parts' in amount) return [];
        if (division.status === 'unusable_boundary' || parcel.outer.length > kMostForAlternatives) return [];
        return this.plcalc.alternatives(asParcel(parcel), amount, request.measured, kLookAt).slice(0, kMostAlternatives);
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

    private async take(read: () => Reading | Promise<Reading>, source: string): Promise<void> {
        try {
            const reading = await read();
            const first = reading.parcels[0];
            if (reading.unit) this.settings = { ...this.settings, unit: reading.unit };
            this.numbers = new Numbers(this.plcalc, this.settings);
            this.open(stateOf(reading, source, { ...kFirstAsked, side: first ? this.longestSide(reading) : kFirstAsked.side }));
            this.panel.closePaste();
        } catch (error) {
            this.trouble(error);
        }
    }

    // Most lines are asked along the longest side.
    private longestSide(reading: Reading): Asked['side'] {
        const parcel = reading.parcels[0];
        const sides = parcel ? measuresOf(this.plcalc, parcel).rings[0] ?? [] : [];
        const index = sides.reduce((best, side, i) => (side.length > (sides[best]?.length ?? 0) ? i : best), 0);
        return { ring: 0, index };
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
            bearing: () => t('cutBearing', numbers.angle(asked.gon)), place: () => t('cutPlace', side),
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
        const contents: Record<string, () => Blob | string | Promise<Blob>> = {
            geojson: () => geoJsonOf(this.answer, epsg), csv: () => csvOf(this.answer, this.numbers), dxf: () => dxfOf(this.answer, this.numbers),
            svg: () => planSvg(this.wanted()), png: () => planPng(this.wanted()), pdf: () => planPdf(this.wanted()),
        };
        const types: Record<string, string> = { geojson: 'application/geo+json', csv: 'text/csv', dxf: 'image/vnd.dxf', svg: 'image/svg+xml' };
        const content = await contents[kind]?.();
        if (content === undefined) return;
        save(this.fileName(kind), content, types[kind]);
        find('told').textContent = t('saved', this.fileName(kind));
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
        find('fit').onclick = () => this.map.fit([this.answer.parcel]);
        find('map').addEventListener('keydown', (event) => this.mapKey(event));
        this.onInput('amount', (text) => this.ask({ typed: { ...this.state.asked.typed, [this.state.asked.mode]: text }, alternative: 0 }, 'amount'));
        this.onNumber('bearing', (gon) => this.ask({ gon, alternative: 0 }, 'bearing'));
        this.onNumber('along', (along) => this.ask({ along, alternative: 0 }, 'along'));
        this.onNumber('east', (east) => this.ask({ point: [east, this.state.asked.point[1]], alternative: 0 }, 'east'));
        this.onNumber('north', (north) => this.ask({ point: [this.state.asked.point[0], north], alternative: 0 }, 'north'));
        this.listenForFiles();
        for (const button of document.querySelectorAll<HTMLElement>('[data-save]')) button.onclick = () => void this.saveAs(button.dataset.save ?? '');
        for (const id of ['print', 'print-top']) find(id).onclick = () => window.print();
        find('link').onclick = () => void this.copyLink();
        window.addEventListener('beforeprint', () => (find('sheet').innerHTML = this.answer.division?.divided ? planSvg(this.wanted()) : ''));
        window.addEventListener('hashchange', () => {
            const given = fromAddress(location.hash);
            if (!given) return;
            this.open(given.state);
            this.set(given.settings);
        });
        window.addEventListener('keydown', (event) => {
            const typing = event.target instanceof HTMLInputElement || event.target instanceof HTMLTextAreaElement;
            if (typing || !(event.ctrlKey || event.metaKey)) return;
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
            if (chosen) void this.take(() => readFile(chosen), chosen.name);
            file.value = '';
        };
        const area = find<HTMLTextAreaElement>('paste-text');
        find('paste-take').onclick = () => void this.take(() => readText(area.value), t('parcel'));
        document.addEventListener('paste', (event) => {
            if (event.target instanceof HTMLInputElement || event.target instanceof HTMLTextAreaElement) return;
            const pasted = event.clipboardData?.files[0];
            const text = event.clipboardData?.getData('text') ?? '';
            if (pasted) void this.take(() => readFile(pasted), pasted.name);
            else if (text) void this.take(() => readText(text), t('parcel'));
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
            if (dropped) void this.take(() => readFile(dropped), dropped.name);
            else if (text) void this.take(() => readText(text), t('parcel'));
        });
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
        const before = this.answer.parcel;
        this.update();
        if (this.answer.parcel !== before) this.map.fit(this.state.parcels);
        this.announce();
    }
}

// A point to begin with, until another one is clicked.
function somewhereIn(parcel: NamedParcel | undefined): Point {
    const rings = [parcel?.outer ?? [], ...(parcel?.holes ?? [])].map((ring) => [...ring, ...ring.slice(0, 1)].map((p) => [p[0], p[1]]));
    const [x = 0, y = 0] = new OlPolygon(rings).getInteriorPoint().getCoordinates();
    const rounded: Point = [Number(x.toFixed(2)), Number(y.toFixed(2))];
    return Number.isFinite(rounded[0]) && Number.isFinite(rounded[1]) ? rounded : [0, 0];
}

function stateOf(reading: Reading, source: string, asked: Asked): State {
    return { source, parcels: reading.parcels, notes: reading.notes, chosen: 0, asked: { ...asked, point: somewhereIn(reading.parcels[0]) } };
}
