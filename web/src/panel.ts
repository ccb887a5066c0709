// The questions and the answer beside the drawing. It shows a state and reports what is chosen; it decides nothing.

import type { Alternative } from '@plcalc/wasm';

import { pieceColor } from './drawing/scene';
import { hasDirection, isParts, type Answer, type Solved } from './answer';
import type { Mode } from './amounts';
import { typedNumber, type Numbers } from './numbers';
import { kKinds, type Asked, type Kind, type Settings, type Spot, type State } from './state';
import { languages, noteText, reasonText, t, type Key } from './texts';
import { examples } from './examples';

export interface PanelEvents {
    ask(change: Partial<Asked>, field: string): void;
    set(change: Partial<Settings>): void;
    choose(parcel: number): void;
    example(index: number): void;
    slide(share: number): void;
    otherLine(): void;
    takeInstead(alternative: Alternative): void;
}

export interface PanelShown extends Solved {
    readonly state: State;
    readonly settings: Settings;
    readonly numbers: Numbers;
}

const kModes: readonly [Mode, Key, Key][] = [
    ['area', 'modeArea', 'typeArea'], ['share', 'modeShare', 'typeShareLabel'], ['parts', 'modeParts', 'typePartsLabel'],
    ['width', 'modeWidth', 'typeWidthLabel'], ['list', 'modeList', 'typeListLabel'],
];
const kMostRows = 300;
const kMostOptions = 1500;

const kLot = 'M8 10 52 6 58 38 4 40z';
const kPictures: Record<Kind, string> = {
    parallel: '<path class="take" d="M8 10 26 8.4 22 39.3 4 40z"/><path class="lot lot-line" d="{lot}"/><path class="ref" d="M8 10 4 40"/><path class="cut" d="M26 8.4 22 39.3"/>',
    perpendicular: '<path class="take" d="M35 7.5 52 6 58 38 36.2 38.8z"/><path class="lot lot-line" d="{lot}"/><path class="ref" d="M4 40 58 38"/><path class="cut" d="M36.2 38.8 35 7.5"/>',
    vertex: '<path class="take" d="M4 40 55 20 58 38z"/><path class="lot lot-line" d="{lot}"/><path class="cut" d="M4 40 55 20"/><circle class="dot" cx="4.6" cy="39.6" r="4"/>',
    bearing: '<path class="take" d="M22 8.7 52 6 58 38 41 38.6z"/><path class="lot lot-line" d="{lot}"/><path class="cut" d="M22 8.7 41 38.6"/><path class="ref thin" d="M22 31V14m-3.4 5L22 13.4l3.4 5.6"/>',
    place: '<path class="take" d="M25 39.2 44 6.7 52 6 58 38z"/><path class="lot lot-line" d="{lot}"/><path class="ref" d="M4 40 58 38"/><path class="cut" d="M25 39.2 44 6.7"/><circle class="dot" cx="25" cy="39.2" r="4"/>',
    segment: '<path class="take" d="M29 8.1 52 6 58 38 43 38.6z"/><path class="lot lot-line" d="{lot}"/><path class="cut" d="M29 8.1 43 38.6"/><path class="ref thin" d="M7 3 26 44m-5.2-3.6L26 44l.9-6.3"/>',
    point: '<path class="take" d="M6.3 22.5 55.6 25.4 58 38 4 40z"/><path class="lot lot-line" d="{lot}"/><path class="cut" d="M6.3 22.5 55.6 25.4"/><circle class="dot" cx="31" cy="24" r="4.6"/>',
};

export function find<T extends HTMLElement = HTMLElement>(id: string): T {
    return document.getElementById(id) as T;
}

function text(id: string, value: string): void {
    const element = find(id);
    if (element.textContent !== value) element.textContent = value;
}

// A field that is being typed into keeps what is typed.
function fill(id: string, value: string): void {
    const field = find<HTMLInputElement>(id);
    if (document.activeElement !== field && field.value !== value) field.value = value;
}

function cells(row: readonly string[], head: boolean, swatch?: string): HTMLTableRowElement {
    const tr = document.createElement('tr');
    row.forEach((value, i) => {
        const cell = document.createElement(head || i === 0 ? 'th' : 'td');
        if (cell.tagName === 'TH') cell.scope = head ? 'col' : 'row';
        if (i === 0 && swatch) {
            const mark = document.createElement('span');
            mark.className = 'swatch';
            mark.style.background = swatch;
            cell.append(mark);
        }
        cell.append(value);
        tr.append(cell);
    });
    return tr;
}

export class Panel {
    private optionsFor = '';

    constructor(private readonly events: PanelEvents) {
        this.makeKinds();
        this.makeModes();
        const language = find<HTMLSelectElement>('language');
        language.append(...Object.entries(languages).map(([code, texts]) => new Option(texts.language, code)));
        language.onchange = () => events.set({ language: language.value });
        this.onSelect('decimals', (value) => events.set({ decimals: Number(value) }));
        this.onSelect('angles', (value) => events.set({ angles: value as Settings['angles'] }));
        this.onSelect('unit', (value) => events.set({ unit: value as Settings['unit'] }));
        find<HTMLInputElement>('snap').onchange = (event) => events.set({ snap: (event.target as HTMLInputElement).checked });
        this.onSelect('parcels', (value) => events.choose(Number(value)));
        this.onSelect('side', (value) => events.ask({ side: spotOf(value), alternative: 0 }, ''));
        this.onSelect('corner', (value) => events.ask({ corner: spotOf(value), alternative: 0 }, ''));
        find<HTMLInputElement>('whole').onchange = (event) => events.ask({ whole: (event.target as HTMLInputElement).checked }, '');
        find('swap').onclick = () => events.ask({ opposite: find('swap').ariaPressed !== 'true', alternative: 0 }, '');
        find('other').onclick = () => events.otherLine();
        find<HTMLInputElement>('slider').oninput = (event) => events.slide(Number((event.target as HTMLInputElement).value) / 1000);
        find('open-settings').onclick = () => this.toggle('settings', 'open-settings');
        find('open-paste').onclick = () => {
            this.toggle('paste', 'open-paste');
            if (!find('paste').hidden) find('paste-text').focus();
        };
    }

    closePaste(): void {
        find('paste').hidden = true;
        find('open-paste').ariaExpanded = 'false';
    }

    /** All fixed words, in the current language. */
    translate(settings: Settings): void {
        document.title = t('title');
        for (const element of document.querySelectorAll<HTMLElement>('[data-t]')) element.textContent = t(element.dataset.t as Key);
        for (const element of document.querySelectorAll<HTMLElement>('[data-label]')) {
            element.ariaLabel = t(element.dataset.label as Key);
            if (element.classList.contains('icon')) element.title = t(element.dataset.label as Key);
        }
        for (const button of document.querySelectorAll<HTMLElement>('#kinds [data-kind]')) (button.lastElementChild as HTMLElement).textContent = t(button.dataset.kind as Key);
        for (const [mode, name] of kModes) text(`mode-${mode}`, t(name));
        find('examples').replaceChildren(...examples.map(({ title }, i) => {
            const button = document.createElement('button');
            button.textContent = t(title);
            button.onclick = () => this.events.example(i);
            return button;
        }));
        find<HTMLSelectElement>('language').value = settings.language;
        find('map').ariaLabel = t('map');
        this.optionsFor = '';
    }

    show(shown: PanelShown): void {
        this.showSettings(shown.settings);
        this.showParcel(shown);
        this.showLine(shown);
        this.showAmount(shown);
        this.showRefusal(shown);
        this.showResult(shown);
    }

    // --------------------------------------------------------------------------------------------- making

    private makeKinds(): void {
        find('kinds').append(...kKinds.map((kind) => {
            const button = document.createElement('button');
            button.dataset.kind = kind;
            button.innerHTML = `<svg viewBox="0 0 62 46" aria-hidden="true"><path class="lot" d="${kLot}"/>${kPictures[kind].replaceAll('{lot}', kLot)}</svg><span></span>`;
            button.onclick = () => this.events.ask({ kind, alternative: 0 }, '');
            return button;
        }));
        asRadios(find('kinds'));
    }

    private makeModes(): void {
        find('modes').append(...kModes.map(([mode]) => {
            const button = document.createElement('button');
            button.id = `mode-${mode}`;
            button.onclick = () => this.events.ask({ mode, alternative: 0 }, '');
            return button;
        }));
        asRadios(find('modes'));
    }

    private onSelect(id: string, chosen: (value: string) => void): void {
        const select = find<HTMLSelectElement>(id);
        select.onchange = () => chosen(select.value);
    }

    private toggle(id: string, button: string): void {
        find(id).hidden = !find(id).hidden;
        find(button).ariaExpanded = String(!find(id).hidden);
        if (!find(id).hidden) find(id).scrollIntoView({ block: 'nearest' });
    }

    // -------------------------------------------------------------------------------------------- showing

    private showSettings(settings: Settings): void {
        find<HTMLSelectElement>('decimals').value = String(settings.decimals);
        find<HTMLSelectElement>('angles').value = settings.angles;
        find<HTMLSelectElement>('unit').value = settings.unit;
        find<HTMLInputElement>('snap').checked = settings.snap;
    }

    private showParcel({ state, answer, numbers }: PanelShown): void {
        const { report } = answer;
        const count = answer.parcel.outer.length;
        text('parcel-name', answer.parcel.name || (state.parcels.length === 1 ? state.source : t('parcelNumber', state.chosen + 1)));
        const facts = [t('corners', count), ...(answer.parcel.holes.length > 0 ? [t('holes', answer.parcel.holes.length)] : [])];
        if (report.status === 'usable') facts.push(numbers.area(report.area), `${t('perimeter')} ${numbers.withUnit(numbers.length(report.perimeter))}`);
        text('parcel-facts', facts.join(' · '));
        find('notes').replaceChildren(...state.notes.map((note) => Object.assign(document.createElement('li'), { textContent: noteText(note) })));
        find('pick').hidden = state.parcels.length < 2;
        find('parcel-name').classList.toggle('hidden', state.parcels.length > 1);
        const picker = find<HTMLSelectElement>('parcels');
        if (picker.dataset.source !== `${state.source} ${state.parcels.length}`) {
            picker.dataset.source = `${state.source} ${state.parcels.length}`;
            picker.replaceChildren(...state.parcels.map((parcel, i) => new Option(parcel.name || t('parcelNumber', i + 1), String(i))));
        }
        picker.value = String(state.chosen);
    }

    private showLine({ state, answer, settings, numbers }: PanelShown): void {
        const { asked } = state;
        check('kinds', (button) => button.dataset.kind === asked.kind);
        for (const element of document.querySelectorAll<HTMLElement>('[data-for]')) element.hidden = !element.dataset.for?.split(' ').includes(asked.kind);
        const key = `${settings.language} ${settings.angles} ${settings.unit} ${state.chosen} ${state.source}`;
        if (this.optionsFor !== key) this.makeOptions(answer, numbers);
        this.optionsFor = key;
        select('side', asked.side, sideOption(answer, numbers, asked.side));
        select('corner', asked.corner, cornerOption(answer, asked.corner));
        fill('bearing', typedNumber(asked.gon));
        text('along-label', t('along', answer.corners[cornerIndex(answer, asked.side)]?.name ?? ''));
        fill('along', typedNumber(asked.along));
        fill('east', typedNumber(asked.point[0]));
        fill('north', typedNumber(asked.point[1]));
        asked.axis.forEach((end, i) => end.forEach((value, k) => fill(`axis-${i}-${k}`, typedNumber(value))));
        find<HTMLInputElement>('whole').checked = asked.whole;
    }

    private makeOptions(answer: Answer, numbers: Numbers): void {
        const spots = [answer.parcel.outer, ...answer.parcel.holes].flatMap((ring, k) => ring.map((_, index): Spot => ({ ring: k, index }))).slice(0, kMostOptions);
        find('side').replaceChildren(...spots.map((spot) => sideOption(answer, numbers, spot)));
        find('corner').replaceChildren(...spots.map((spot) => cornerOption(answer, spot)));
    }

    private showAmount({ state, answer, settings, hasOther, ranges }: PanelShown): void {
        const { asked } = state;
        check('modes', (button) => button.id === `mode-${asked.mode}`);
        find<HTMLButtonElement>('mode-width').disabled = !hasDirection(asked);
        text('amount-label', t((kModes.find(([mode]) => mode === asked.mode) ?? kModes[0] as [Mode, Key, Key])[2]));
        fill('amount', asked.typed[asked.mode]);
        const unit = settings.unit ? { area: `${settings.unit}²`, width: settings.unit }[asked.mode as 'area' | 'width'] : undefined;
        text('amount-unit', unit ?? '');
        find('mistake').hidden = !answer.mistake;
        text('mistake', answer.mistake ? t(answer.mistake) : '');
        find('amount').ariaInvalid = String(Boolean(answer.mistake));
        const area = answer.report.area;
        const sliding = (asked.mode === 'area' || asked.mode === 'share') && area > 0;
        find('slider-box').hidden = !sliding;
        const wanted = answer.division?.held[0]?.asked;
        const slider = find<HTMLInputElement>('slider');
        if (sliding && wanted !== undefined && document.activeElement !== slider) slider.value = String(Math.round((1000 * wanted) / area));
        slider.ariaValueText = wanted === undefined ? null : new Intl.NumberFormat(settings.language, { style: 'percent', maximumFractionDigits: 1 }).format(wanted / area);
        find('ranges').innerHTML = ranges.map(({ least, most }) =>
            `<rect x="${(1000 * least) / area}" width="${Math.max(3, (1000 * (most - least)) / area)}" y="0" height="10"/>`).join('');
        find('swap').ariaPressed = String(asked.opposite);
        find('other').hidden = !hasOther && asked.alternative === 0;
    }

    private showRefusal({ answer, numbers, ranges, state, instead }: PanelShown): void {
        const { division } = answer;
        const refused = division !== undefined && !division.divided;
        find('refusal').hidden = !refused;
        if (!refused) return;
        const boundary = division.status === 'unusable_boundary';
        text('refusal-title', t(boundary ? 'refusedBoundary' : 'refused'));
        const { report } = division;
        const where = boundary && /meet/.test(report.status) ? ` ${t('sidesMeet', ...report.meetingSides.map((side, i) => sideName(answer, { ring: report.meetingRings[i] ?? 0, index: side })))}` : '';
        const which = (answer.request?.amounts.length ?? 0) > 1 ? t('inAmount', division.atAmount + 1) : '';
        text('refusal-text', `${which}${reasonText(boundary ? report.status : division.status, division.reason)}${where}`);
        const whole = ranges.length === 1 && (ranges[0]?.least ?? 0) <= 0 && (ranges[0]?.most ?? 0) >= report.area;
        const single = ['area', 'share'].includes(state.asked.mode) && !boundary;
        const list = ranges.slice(0, 4).map(({ least, most }) => (most - least <= 1e-9 * report.area ? numbers.area(least) : t('rangeTo', numbers.plainArea(least), numbers.area(most)))).join(t('or'));
        text('refusal-range', ranges.length > 0 && !whole && single ? t('canHave', list + (ranges.length > 4 ? ' …' : '')) : '');
        // Buttons that are being pressed stay.
        const proposed = JSON.stringify([instead, t('instead')]);
        if (find('instead').dataset.proposed === proposed) return;
        find('instead').dataset.proposed = proposed;
        find('instead').replaceChildren(...instead.map((alternative) => {
            const button = document.createElement('button');
            button.className = 'small';
            button.textContent = insteadName(answer, alternative);
            button.onclick = () => this.events.takeInstead(alternative);
            return button;
        }));
    }

    private showResult({ answer, numbers, settings }: PanelShown): void {
        const { division, pieces, cuts, newPoints } = answer;
        const divided = division?.divided ?? false;
        find('result').hidden = !divided;
        find('outputs').hidden = !divided;
        if (!divided || !division) return;
        const proof = division.decimals === undefined ? t('provenExact')
            : division.decimals > settings.decimals ? t('moreDecimals', settings.decimals, division.decimals) : t('provenLong', division.decimals);
        text('proof', proof + (division.lines.some((line) => line.meetsAgain) ? ` ${t('meetsAgain')}` : ''));
        const whole = answer.report.area;
        const last = division.held.length - 1;
        const body = (id: string, rows: HTMLTableRowElement[], more: number): void => {
            if (more > 0) rows.push(cells([`+ ${more}`], false));
            find(id).replaceChildren(...rows);
        };
        find('pieces-head').replaceChildren(cells([t('piece'), t('area'), t('share'), t('asked')], true));
        body('pieces', pieces.slice(0, kMostRows).map((piece) => cells([piece.name, numbers.plainArea(piece.area), numbers.percent(piece.area, whole),
            piece.amount === last && !isParts(answer) ? t('rest') : numbers.plainArea(piece.asked)], false, pieceColor(piece.amount))), pieces.length - kMostRows);
        const sum = cells([t('sum'), numbers.plainArea(whole), '', ''], false);
        sum.className = 'sum';
        find('pieces').append(sum);
        find('lines-head').replaceChildren(cells([t('cutLine'), t('length'), t('bearingLabel')], true));
        body('lines', cuts.slice(0, kMostRows).map(({ from, to, length, bearing }) => cells([`${from.name} – ${to.name}`, numbers.length(length), numbers.angle(bearing)], false)), cuts.length - kMostRows);
        find('points-head').replaceChildren(cells([t('newPoint'), t('east'), t('north')], true));
        body('points', newPoints.slice(0, kMostRows).map(({ name, at }) => cells([name, numbers.coordinate(at[0], division.decimals), numbers.coordinate(at[1], division.decimals)], false)), newPoints.length - kMostRows);
    }
}

// ------------------------------------------------------------------------------------------------- options

function spotOf(value: string): Spot {
    const [ring = 0, index = 0] = value.split(' ').map(Number);
    return { ring, index };
}

function valueOf(spot: Spot): string {
    return `${spot.ring} ${spot.index}`;
}

function cornerIndex(answer: Answer, spot: Spot): number {
    const rings = [answer.parcel.outer, ...answer.parcel.holes];
    return rings.slice(0, spot.ring).reduce((sum, ring) => sum + ring.length, 0) + spot.index;
}

export function sideName(answer: Answer, spot: Spot): string {
    const ring = [answer.parcel.outer, ...answer.parcel.holes][spot.ring] ?? [];
    const next: Spot = { ring: spot.ring, index: (spot.index + 1) % Math.max(1, ring.length) };
    return t('sideShort', answer.corners[cornerIndex(answer, spot)]?.name ?? '?', answer.corners[cornerIndex(answer, next)]?.name ?? '?');
}

export function cornerName(answer: Answer, spot: Spot): string {
    return answer.corners[cornerIndex(answer, spot)]?.name ?? '?';
}

/** "4 – 1: 129.92 m, 374.9509 gon" */
export function sideFacts(answer: Answer, numbers: Numbers, spot: Spot): string {
    const ring = [answer.parcel.outer, ...answer.parcel.holes][spot.ring] ?? [];
    const [from, to] = [ring[spot.index], ring[(spot.index + 1) % Math.max(1, ring.length)]];
    return from && to ? `${sideName(answer, spot)}: ${numbers.withUnit(numbers.distance(from, to))}, ${numbers.bearing(from, to)}` : '';
}

function insteadName(answer: Answer, { line }: Alternative): string {
    if (line.kind === 'vertex') return t('cutVertex', cornerName(answer, { ring: line.ring ?? 0, index: line.vertex }));
    if (line.kind !== 'parallel' && line.kind !== 'perpendicular') return '';
    return t(line.kind === 'parallel' ? 'cutParallel' : 'cutPerpendicular', sideName(answer, { ring: line.ring ?? 0, index: line.side }));
}

function inHole(spot: Spot): string {
    return spot.ring > 0 ? ` (${t('hole', spot.ring)})` : '';
}

function sideOption(answer: Answer, numbers: Numbers, spot: Spot): HTMLOptionElement {
    return new Option(sideFacts(answer, numbers, spot) + inHole(spot), valueOf(spot));
}

function cornerOption(answer: Answer, spot: Spot): HTMLOptionElement {
    return new Option(cornerName(answer, spot) + inHole(spot), valueOf(spot));
}

function select(id: string, spot: Spot, option: HTMLOptionElement): void {
    const field = find<HTMLSelectElement>(id);
    field.value = valueOf(spot);
    if (field.value === valueOf(spot)) return;
    field.append(option);
    field.value = valueOf(spot);
}

// ------------------------------------------------------------------------------------------------- radios

// Buttons of which one is chosen: Tab reaches that one, arrow keys the others.
function asRadios(group: HTMLElement): void {
    for (const button of group.children) button.role = 'radio';
    group.addEventListener('keydown', (event) => {
        const step = { ArrowRight: 1, ArrowDown: 1, ArrowLeft: -1, ArrowUp: -1 }[event.key];
        const buttons = [...group.children].filter((button) => !(button as HTMLButtonElement).disabled) as HTMLButtonElement[];
        const at = buttons.indexOf(document.activeElement as HTMLButtonElement);
        if (!step || at < 0) return;
        event.preventDefault();
        const next = buttons[(at + step + buttons.length) % buttons.length];
        next?.focus();
        next?.click();
    });
}

function check(group: string, isChosen: (button: HTMLElement) => boolean): void {
    for (const button of find(group).children as HTMLCollectionOf<HTMLElement>) {
        button.ariaChecked = String(isChosen(button));
        button.tabIndex = isChosen(button) ? 0 : -1;
    }
}
