// The wrapper: what it answers, and that it is what the same functions answer natively, to the last bit.
//
//   PLCALC_NATIVE=path/to/native node --test test/

import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import { mkdtempSync, readFileSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { test } from 'node:test';
import { fileURLToPath } from 'node:url';

import { load, OutOfMemory } from '../dist/index.js';
import { pushParcel, pushPoint, pushRequest, Reader } from '../dist/packing.js';

const native = process.env.PLCALC_NATIVE ?? '../../build/wasm-native/web/wasm/native';
const kPackage = fileURLToPath(new URL('..', import.meta.url));
const plcalc = await load();

const kField = [[300.23, 420.57], [410.75, 440.49], [520.18, 320.81], [350.04, 300.58]];
const kRectangle = [[0, 0], [100, 0], [100, 50], [0, 50]];
const kYard = [[0, 0], [60, 0], [60, 20], [40, 20], [40, 50], [0, 50]];
const kAngled = [[0, 0], [0, 60], [30, 60], [30, 25], [75, 25], [75, 0]];
const kCourt = { outer: kRectangle, holes: [[[40, 20], [40, 30], [60, 30], [60, 20]]] };

test('lines, pieces and areas of a rectangle, by hand', () => {
    const rows = [
        // what, line, amounts, from, to, areas
        ['parallel', { kind: 'parallel', side: 0 }, [{ area: 1000 }], [0, 10], [100, 10], [1000, 4000]],
        ['a fifth', { kind: 'parallel', side: 0 }, [{ share: [1, 5] }], [0, 10], [100, 10], [1000, 4000]],
        ['a width', { kind: 'parallel', side: 0 }, [{ width: 10 }], [0, 10], [100, 10], [1000, 4000]],
        ['a product', { kind: 'parallel', side: 0 }, [{ product: [20, 50] }], [0, 10], [100, 10], [1000, 4000]],
        ['halves', { kind: 'perpendicular', side: 0 }, [{ parts: 2 }], [50, 0], [50, 50], [2500, 2500]],
        ['vertex', { kind: 'vertex', vertex: 0 }, [{ area: 1250 }], [0, 0], [100, 25], [1250, 3750]],
        ['bearing', { kind: 'bearing', gon: 0 }, [{ area: 1000 }], [80, 0], [80, 50], [1000, 4000]],
        ['segment', { kind: 'segment', from: [0, 0], to: [0, 7] }, [{ area: 1000 }], [80, 0], [80, 50], [1000, 4000]],
        ['place', { kind: 'place', side: 0, along: 50 }, [{ area: 2500 }], [50, 0], [50, 50], [2500, 2500]],
        ['point', { kind: 'point', point: [30, 25], gon: 0 }, [{ area: 3500 }], [30, 0], [30, 50], [3500, 1500]],
    ];
    for (const [what, line, amounts, from, to, areas] of rows) {
        const division = plcalc.divide(kRectangle, { line, amounts, decimals: 6 });
        assert.equal(division.status, 'divided', what);
        assert.deepEqual([division.lines[0].from, division.lines[0].to], [from, to], what);
        assert.deepEqual(division.pieces.map((piece) => plcalc.fixed(piece.area, 4)),
            areas.map((area) => area.toFixed(4)), what);
    }
});

test('a list of amounts, and equal parts', () => {
    const line = { kind: 'perpendicular', side: 0 };
    const list = plcalc.divide(kRectangle, { line, amounts: [{ area: 1000 }, { share: [1, 5] }, { width: 10 }] });
    assert.deepEqual(list.held.map((held) => held.area), [1000, 1000, 500, 2500]);
    assert.deepEqual(list.lines.map((cut) => cut.from[0]), [80, 60, 50]);
    const parts = plcalc.divide(kRectangle, { line, amounts: [{ parts: 4 }] });
    assert.deepEqual(parts.pieces.map((piece) => piece.area), [1250, 1250, 1250, 1250]);
    const opposite = plcalc.divide(kRectangle, { line, amounts: [{ area: 1000 }], measured: 'opposite' });
    assert.equal(opposite.lines[0].from[0], 20);
});

test('holes, and any number of pieces', () => {
    assert.equal(plcalc.check(kCourt).area, 4800);
    const line = { kind: 'bearing', gon: 100 };
    const court = plcalc.divide(kCourt, { line, amounts: [{ share: [1, 2] }], pieces: 'any' });
    assert.equal(court.status, 'divided');
    assert.deepEqual(court.lines[0].segments, [[[0, 25], [40, 25]], [[60, 25], [100, 25]]]);
    assert.equal(court.pieces.length, 2);
    const strip = plcalc.divide(kCourt, { line, amounts: [{ area: 500 }] });
    assert.equal(strip.status, 'divided');
    assert.deepEqual(strip.pieces.map((piece) => piece.holes.length), [0, 1]);
});

test('refusals have a name and a reason', () => {
    const rows = [
        [kRectangle, { line: { kind: 'parallel', side: 4 }, amounts: [{ area: 1 }] }, 'no_such_index'],
        [kRectangle, { line: { kind: 'parallel', side: -1 }, amounts: [{ area: 1 }] }, 'no_such_index'],
        [kRectangle, { line: { kind: 'parallel', side: NaN }, amounts: [{ area: 1 }] }, 'no_such_index'],
        [kRectangle, { line: { kind: 'parallel', side: 0 }, amounts: [] }, 'no_amount'],
        [kRectangle, { line: { kind: 'parallel', side: 0 }, amounts: [{ area: NaN }] }, 'unusable_amount'],
        [kRectangle, { line: { kind: 'parallel', side: 0 }, amounts: [{ area: 5000 }] }, 'amount_too_large'],
        [kRectangle, { line: { kind: 'parallel', side: 0 }, amounts: [{ area: 0 }] }, 'amount_too_small'],
        [kRectangle, { line: { kind: 'parallel', side: 0 }, amounts: [{ parts: 1 }] }, 'no_amount'],
        [kRectangle, { line: { kind: 'parallel', side: 0 }, amounts: [{ parts: 1e300 }] }, 'no_amount'],
        [kRectangle, { line: { kind: 'nonsense' }, amounts: [{ area: 1 }] }, 'unknown_request'],
        [kRectangle, { line: { kind: 'parallel', side: 0 }, amounts: [{ area: 1 }], decimals: 99 }, 'unusable_rounding'],
        [[[0, 0], [1, 1], [1, 0], [0, 1]], { line: { kind: 'parallel', side: 0 }, amounts: [{ area: 0.1 }] },
            'unusable_boundary'],
        [[], { line: { kind: 'parallel', side: 0 }, amounts: [{ area: 0.1 }] }, 'unusable_boundary'],
        [kAngled, { line: { kind: 'vertex', vertex: 1 }, amounts: [{ area: 900 }] }, 'line_leaves_parcel'],
    ];
    for (const [parcel, request, status] of rows) {
        const division = plcalc.divide(parcel, request);
        assert.equal(division.status, status);
        assert.equal(division.divided, false);
        assert.ok(division.reason.length > 10);
        assert.deepEqual(division.lines, []);
    }
});

test('measures, by hand', () => {
    const { report, rings } = plcalc.measure(kYard);
    assert.equal(report.status, 'usable');
    assert.equal(report.area, 2400);
    assert.equal(report.perimeter, 220);
    assert.equal(report.anticlockwise, true);
    assert.deepEqual(rings[0].map((side) => side.length), [60, 20, 20, 30, 40, 50]);
    assert.deepEqual(rings[0].map((side) => side.bearing), [100, 0, 300, 0, 300, 200]);
    assert.deepEqual(rings[0].map((side) => side.angle), [100, 100, 100, 300, 100, 100]);
    assert.deepEqual(plcalc.measure(kCourt).rings[1].map((side) => side.angle), [300, 300, 300, 300]);
    assert.equal(plcalc.alongSide(kRectangle, 1, [130, 20]), 20);
    assert.equal(plcalc.alongSide(kRectangle, 1, [130, 80]), 50);
});

test('what can be had instead, by hand', () => {
    const all = { least: 0, most: 5000, leastIsHad: false, mostIsHad: false };
    assert.deepEqual(plcalc.feasible(kRectangle, { line: { kind: 'parallel', side: 0 } }), { refusal: undefined, ranges: [all] });
    // Every line through the middle halves a rectangle.
    const [middle] = plcalc.feasible(kRectangle, { line: { kind: 'point', point: [50, 25] } }).ranges;
    assert.deepEqual([middle.least, middle.most], [2500, 2500]);
    assert.equal(plcalc.feasible(kRectangle, { line: { kind: 'parallel', side: 9 } }).refusal, 'no_such_index');
    const refused = { line: { kind: 'vertex', vertex: 1 }, amounts: [{ area: 900 }] };
    assert.equal(plcalc.divide(kAngled, refused).divided, false);
    assert.ok(plcalc.feasible(kAngled, refused).ranges.every(({ least, most }) => most < 900 || least > 900));
    const lines = plcalc.alternatives(kAngled, { area: 900 });
    assert.ok(lines.length > 2);
    for (const { line, measured } of lines)
        assert.equal(plcalc.divide(kAngled, { line, measured, amounts: [{ area: 900 }] }).status, 'divided', JSON.stringify(line));
});

test('numbers are printed as plcalc prints them', () => {
    assert.equal(plcalc.fixed(2.5, 0), '2');
    assert.equal(plcalc.fixed(1.005, 2), '1.00');
    assert.equal(plcalc.fixed(-0.00001, 4), '0.0000');
});

test('a line through the pointer has the amount that amountAt tells', () => {
    const pointer = [390, 360];
    const lines = [
        { kind: 'parallel', side: 3 }, { kind: 'parallel', side: 1 }, { kind: 'perpendicular', side: 2 },
        { kind: 'vertex', vertex: 1 }, { kind: 'bearing', gon: 30 }, { kind: 'segment', from: [0, 0], to: [1, 2] },
        { kind: 'place', side: 1, along: 30 }, { kind: 'point', point: [400, 380], gon: 229 },
        { kind: 'point', point: [300.23, 420.57], gon: 0 },
    ];
    for (const ring of [kField, [...kField].reverse()])
        for (const line of lines)
            for (const measured of ['from_reference', 'opposite']) {
                const amount = plcalc.amountAt(ring, { line, measured }, pointer);
                assert.ok(amount, `${line.kind} ${measured}`);
                const division = plcalc.divide(ring, { line, measured, amounts: [amount] });
                assert.equal(division.status, 'divided', `${line.kind} ${measured}`);
                const { from, to, length } = division.lines[0];
                const off = (to[0] - from[0]) * (pointer[1] - from[1]) - (to[1] - from[1]) * (pointer[0] - from[0]);
                assert.ok(Math.abs(off / length) < 1e-4, `${line.kind} ${measured}: ${off / length} off`);
            }
    assert.equal(plcalc.amountAt(kRectangle, { line: { kind: 'parallel', side: 0 } }, [50, -1]), undefined);
    assert.equal(plcalc.amountAt(kRectangle, { line: { kind: 'parallel', side: 0 } }, [50, 51]), undefined);
});

test('a whole line through the pointer has the amount that amountAt tells, past corners and across a hole', () => {
    const outer = [[0, 0], [100, 0], [100, 40], [40, 40], [40, 100], [0, 100]];
    const hole = [[10, 10], [10, 30], [30, 30], [30, 10]];
    const pointer = [70, 25];
    const lines = [
        { kind: 'vertex', vertex: 3 }, { kind: 'vertex', vertex: 5 }, { kind: 'vertex', vertex: 1, ring: 1 }, { kind: 'place', side: 5, along: 30 },
        { kind: 'point', point: [20, 20], gon: 80 }, { kind: 'point', point: [-30, 80], gon: 100 },
    ];
    for (const line of lines)
        for (const measured of ['from_reference', 'opposite']) {
            const request = { line, measured, pieces: 'any' };
            const amount = plcalc.amountAt({ outer, holes: [hole] }, request, pointer);
            const offs = Array.from({ length: 4 }, (_, alternative) => plcalc.divide({ outer, holes: [hole] }, { ...request, alternative, amounts: [amount] }))
                .filter((division) => division.divided)
                .map(({ lines: [{ from, to, length }] }) => Math.abs(((to[0] - from[0]) * (pointer[1] - from[1]) - (to[1] - from[1]) * (pointer[0] - from[0])) / length));
            assert.ok(Math.min(...offs) < 1e-6, `${JSON.stringify(line)} ${measured} ${JSON.stringify(amount)}: ${offs}`);
        }
});

test('lines of a drawing are joined to loops, within a tolerance', () => {
    const square = [[[0, 0], [10, 0]], [[10, 10.0009], [10, 0]], [[10, 10], [0, 10]], [[0, 0], [0, 10]]];
    const [loop, ...others] = plcalc.joinLines(square, 0.001);
    assert.deepEqual(others, []);
    assert.deepEqual([loop.kind, loop.lines, loop.ring], ['loop', [0, 1, 2, 3], [[0, 0], [10, 0], [10, 10.0009], [0, 10]]]);
    assert.ok(Math.abs(loop.widestGap - 0.0009) < 1e-12);
    const [open] = plcalc.joinLines(square, 0.0005);
    assert.deepEqual([open.kind, open.loose.length], ['open', 2]);
    const [fork] = plcalc.joinLines([...square, [[10, 0], [20, 0]]], 0.001);
    assert.deepEqual([fork.kind, fork.fork], ['fork', [10, 0]]);
    assert.deepEqual(plcalc.joinLines([[], [[1, 1]], [[2, 2], [2, 2]]], 0.001), [], 'what is no line');
    assert.equal(plcalc.joinLines([...square, square[0]], 0.001)[0].repeated, 1);
});

test('lengths and bearings between points', () => {
    assert.equal(plcalc.length([1, 1], [4, 5]), 5);
    assert.deepEqual([[0, 1], [1, 0], [0, -1], [-1, 0]].map((p) => plcalc.bearing([0, 0], p)), [0, 100, 200, 300]);
    assert.ok(Number.isNaN(plcalc.bearing([3, 3], [3, 3])));
});

test('after memory has run out, the next call works', () => {
    const huge = { length: 4e8, [Symbol.iterator]: function* () {} };
    assert.throws(() => plcalc['call']('plc_check', huge), OutOfMemory);
    assert.equal(plcalc.check(kRectangle).area, 5000);
});

// ---------------------------------------------------------------------------------- beside the native code

// A small generator, so that a failure can be repeated: mulberry32.
function seeded(seed) {
    return () => {
        seed = (seed + 0x6d2b79f5) | 0;
        let t = Math.imul(seed ^ (seed >>> 15), 1 | seed);
        t = (t + Math.imul(t ^ (t >>> 7), 61 | t)) ^ t;
        return ((t ^ (t >>> 14)) >>> 0) / 4294967296;
    };
}

function star(random, corners, east, north) {
    return Array.from({ length: corners }, (_, i) => {
        const turn = (2 * Math.PI * (i + 0.8 * random())) / corners;
        const radius = 60 + 40 * random();
        return [east + radius * Math.sin(turn), north + radius * Math.cos(turn)];
    });
}

function randomRequest(random, corners, area) {
    const index = Math.floor(random() * corners);
    const lines = [
        { kind: 'parallel', side: index }, { kind: 'perpendicular', side: index }, { kind: 'vertex', vertex: index },
        { kind: 'bearing', gon: 400 * random() }, { kind: 'segment', from: [0, 0], to: [random(), random()] },
        { kind: 'place', side: index, along: random() },
    ];
    const amounts = [[{ area: random() * area }], [{ share: [1, 3] }], [{ parts: 4 }], [{ width: 30 * random() }]];
    const line = lines[Math.floor(random() * lines.length)];
    return {
        line,
        amounts: amounts[Math.floor(random() * amounts.length)],
        measured: random() < 0.5 ? 'from_reference' : 'opposite',
        pieces: random() < 0.3 && !['vertex', 'place'].includes(line.kind) ? 'any' : 'two',
        decimals: random() < 0.3 ? 3 : undefined,
    };
}

function packed(ring, request) {
    const numbers = [];
    pushParcel(numbers, { outer: ring });
    pushRequest(numbers, request);
    return numbers;
}

function askNative(repeats, calls) {
    const text = calls.map(([call, numbers]) => `${call} ${numbers.length} ${numbers.join(' ')}\n`).join('');
    const lines = execFileSync(native, [String(repeats)], { input: text, maxBuffer: 1 << 30 }).toString().trim();
    return lines.split('\n').map((line) => {
        const [time, , ...numbers] = line.split(' ').map(Number);
        return { time, numbers };
    });
}

function askWasm(call, numbers) {
    return Array.from(plcalc['call'](`plc_${call}`, numbers)['numbers']);
}

// Bearings are those of each platform's arctangent, and all else has the same bits.
function compareDivisions(got, wanted, what) {
    const [division, native] = [got, wanted].map((numbers) => plcalc['readDivision'](new Reader(numbers)));
    const bearings = division.lines.map((line) => line.bearing);
    native.lines.forEach((line, i) => near([bearings[i]], [line.bearing], 1e-12, what));
    for (const each of [division, native]) for (const line of each.lines) line.bearing = 0;
    assert.deepEqual(division, native, what);
}

function near(got, wanted, relative, what) {
    assert.equal(got.length, wanted.length, what);
    got.forEach((value, i) => {
        const tolerance = relative * Math.max(1, Math.abs(wanted[i]));
        assert.ok(Object.is(value, wanted[i]) || Math.abs(value - wanted[i]) <= tolerance, `${what}: ${value}, ${wanted[i]}`);
    });
}

// What npm would publish, in a folder with nothing else: the README's own lines, and what it says that they print.
test('the package works by itself, as its README shows', () => {
    const folder = mkdtempSync(join(tmpdir(), 'plcalc-wasm-'));
    const [{ filename }] = JSON.parse(execFileSync('npm', ['pack', '--json', '--silent', '--pack-destination', folder], { cwd: kPackage }));
    writeFileSync(join(folder, 'package.json'), '{"type":"module"}');
    execFileSync('npm', ['install', '--silent', '--offline', '--no-save', '--no-audit', '--no-fund', `./${filename.replace('@', '').replace('/', '-')}`], { cwd: folder });
    const [, lines, printed] = /```js\n([\s\S]*?)```\n```\n([\s\S]*?)```/.exec(readFileSync(join(kPackage, 'README.md'), 'utf8'));
    writeFileSync(join(folder, 'example.js'), lines);
    assert.equal(execFileSync('node', ['example.js'], { cwd: folder }).toString(), printed);
});

test('random requests have the native answer, to the last bit', () => {
    const seed = Number(process.env.PLCALC_SEED ?? 18);
    console.log(`seed ${seed}`);
    const random = seeded(seed);
    const calls = [];
    for (let i = 0; i < 3000; ++i) {
        const corners = 3 + Math.floor(random() * 12);
        const far = random() < 0.5;
        const ring = star(random, corners, far ? 610000 : 0, far ? 4985000 : 0);
        const area = plcalc.check(ring).area;
        const numbers = packed(ring, randomRequest(random, corners, area));
        calls.push(['divide', numbers]);
        if (i % 10 === 0) {
            const measured = [];
            pushParcel(measured, { outer: ring });
            calls.push(['measure', measured]);
            const pointed = [...numbers];
            pushPoint(pointed, [ring[0][0] + 20 * random(), ring[0][1] - 60]);
            calls.push(['amount_at', pointed]);
        }
    }
    let divided = 0;
    const answers = askNative(1, calls);
    assert.equal(answers.length, calls.length);
    calls.forEach(([call, numbers], i) => {
        const what = `${call} ${numbers}`;
        if (call === 'divide') compareDivisions(askWasm(call, numbers), answers[i].numbers, what);
        else near(askWasm(call, numbers), answers[i].numbers, call === 'measure' ? 1e-12 : 1e-9, what);
        divided += call === 'divide' && answers[i].numbers[0] === 0 ? 1 : 0;
    });
    console.log(`${calls.length} calls, ${divided} divided`);
    assert.ok(divided > 1000);
});

test('a call takes at most three times the native one', () => {
    const random = seeded(7);
    for (const [corners, repeats] of [[4, 2000], [100, 200], [1000, 20]]) {
        const ring = star(random, corners, 610000, 4985000);
        const request = { line: { kind: 'bearing', gon: 33 }, amounts: [{ share: [1, 3] }], pieces: 'any' };
        const numbers = packed(ring, request);
        const ratios = [];
        for (let round = 0; round < 5; ++round) {
            for (let i = 0; i < repeats; ++i) plcalc.divide(ring, request);
            const begin = process.hrtime.bigint();
            for (let i = 0; i < repeats; ++i) plcalc.divide(ring, request);
            const wasm = Number(process.hrtime.bigint() - begin) / repeats;
            ratios.push(wasm / askNative(repeats, [['divide', numbers]])[0].time);
            console.log(`${corners} corners: ${(wasm / 1000).toFixed(1)} us, ${ratios.at(-1).toFixed(2)} times native`);
        }
        ratios.sort((a, b) => a - b);
        // The quietest round counts: others share this machine.
        if (process.env.PLCALC_TIMED) assert.ok(ratios[0] <= 3, `${corners} corners: ${ratios[0]}`);
    }
});
