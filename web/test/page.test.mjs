// The page in a real browser: Debian's Chromium, driven by playwright-core. The page is opened as a file, so that it has no
// server to lean on; any request that it makes fails the tests.
//
//   node --test test/

import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import { existsSync, mkdirSync, mkdtempSync, readFileSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { basename, join } from 'node:path';
import { after, before, test } from 'node:test';
import { fileURLToPath, pathToFileURL } from 'node:url';
import { build } from 'esbuild';
import { strToU8, unzipSync, zipSync } from 'fflate';
import { chromium } from 'playwright-core';

const kWeb = fileURLToPath(new URL('..', import.meta.url));
const kExamples = join(kWeb, '..', 'examples');
const kPage = pathToFileURL(join(kWeb, 'dist', 'index.html')).href;
const kPictures = process.env.PLCALC_PICTURES ?? join(kWeb, '..', 'build', 'web-pictures');
const kProgram = process.env.PLCALC_PROGRAM ?? join(kWeb, '..', 'build', 'demo', 'tools', 'plcalc', 'plcalc');
const kQuiet = ['--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run', '--disable-background-networking', '--disable-component-update', '--disable-sync'];

let browser;
const scratch = mkdtempSync(join(tmpdir(), 'plcalc-web-'));

before(async () => {
    mkdirSync(kPictures, { recursive: true });
    browser = await chromium.launch({ executablePath: process.env.PLCALC_CHROMIUM ?? '/usr/bin/chromium', args: kQuiet });
});
after(() => browser?.close());

async function opened({ width = 1280, height = 860, phone = false, hash = '', language = 'en-GB' } = {}) {
    const context = await browser.newContext({ viewport: { width, height }, isMobile: phone, hasTouch: phone, deviceScaleFactor: phone ? 2 : 1, locale: language, acceptDownloads: true });
    const page = await context.newPage();
    page.troubles = [];
    page.on('pageerror', (error) => page.troubles.push(`error: ${error.message}`));
    page.on('console', (message) => message.type() === 'error' && page.troubles.push(`console: ${message.text()}`));
    page.on('request', (request) => /^(https?|ws)/.test(request.url()) && page.troubles.push(`request: ${request.url()}`));
    await page.goto(kPage + hash);
    await page.waitForFunction(() => document.getElementById('parcel-name')?.textContent);
    return page;
}

async function closed(page, expected = /^$/) {
    assert.deepEqual(page.troubles.filter((trouble) => !expected.test(trouble)), []);
    await page.context().close();
}

const rows = (page, id) => page.$$eval(`#${id} tr`, (trs) => trs.map((tr) => [...tr.children].map((cell) => cell.textContent)));
const textOf = (page, id) => page.textContent(`#${id}`);
const isShown = (page, id) => page.isVisible(`#${id}`);

async function open(page, name, content) {
    const file = { name, mimeType: 'application/octet-stream', buffer: Buffer.from(content) };
    await page.setInputFiles('#file', file);
    await settled(page);
}

// Files are read, and large parcels divided, while the page goes on.
async function settled(page) {
    await page.waitForFunction(() => document.body.ariaBusy !== 'true', undefined, { timeout: 120000 });
}

async function drop(page, name, content) {
    const transfer = await page.evaluateHandle(([file, bytes]) => {
        const data = new DataTransfer();
        data.items.add(new File([Uint8Array.from(bytes)], file));
        return data;
    }, [name, [...Buffer.from(content)]]);
    for (const type of ['dragenter', 'dragover', 'drop']) await page.dispatchEvent('body', type, { dataTransfer: transfer });
    await settled(page);
}

async function typed(page, mode, text) {
    await page.click(`#mode-${mode}`);
    await page.fill('#amount', text);
}

async function downloaded(page, selector) {
    const [download] = await Promise.all([page.waitForEvent('download'), page.click(selector)]);
    const path = join(scratch, download.suggestedFilename());
    await download.saveAs(path);
    return path;
}

// Where a place of the plane lies on the page: the test learns it from the scale bar's own transformation.
async function pixelOf(page, at) {
    return page.evaluate((p) => {
        const box = document.getElementById('map').getBoundingClientRect();
        const [x, y] = window.plcalcPage.pixelOf(p);
        return [box.left + x, box.top + y];
    }, at);
}

const kField = [[300.23, 420.57], [410.75, 440.49], [520.18, 320.81], [350.04, 300.58]];
const middle = (a, b) => [(a[0] + b[0]) / 2, (a[1] + b[1]) / 2];

test('at first sight a parcel is divided, with figures', async () => {
    const page = await opened();
    assert.deepEqual(await rows(page, 'pieces'), [['A', '6000.00', '32.58 %', '6000.00'], ['B', '12414.82', '67.42 %', 'rest'], ['Parcel', '18414.82', '', '']]);
    assert.deepEqual(await rows(page, 'points'), [['P1', '397.1641', '306.1831'], ['P2', '346.2377', '428.8624']]);
    assert.deepEqual(await rows(page, 'lines'), [['P1 – P2', '132.83', '374.9509 gon']]);
    assert.ok(await isShown(page, 'proven'));
    // The policy lets nothing out, even when asked to.
    await page.evaluate(() => fetch('http://127.0.0.1:9/').then(() => { throw new Error('fetched'); }, () => undefined));
    await closed(page, /^console: .*Content Security Policy/);
});

test('the page and the program print the same figures', { skip: !existsSync(kProgram) && 'the program is not built' }, async () => {
    const page = await opened();
    const cases = [
        ['published.csv', 'parallel', '#side', '0 3', ['--parallel', '4'], 'area', '6000', ['--area', '6000']],
        ['published.csv', 'perpendicular', '#side', '0 3', ['--perpendicular', '4'], 'area', '6115.4955', ['--area', '6115.4955']],
        ['convex.csv', 'vertex', '#corner', '0 1', ['--vertex', '2'], 'area', '40x50', ['--product', '40', '50']],
        ['concave.csv', 'parallel', '#side', '0 5', ['--parallel', '6'], 'share', '1/4', ['--share', '1/4']],
        ['utm-concave.csv', 'perpendicular', '#side', '0 0', ['--perpendicular', '1'], 'parts', '3', ['--parts', '3']],
    ];
    for (const [file, kind, field, value, cut, mode, amount, area] of cases) {
        await open(page, file, readFileSync(join(kExamples, file)));
        await page.click(`[data-kind=${kind}]`);
        await page.selectOption(field, value);
        await typed(page, mode, amount);
        const output = execFileSync(kProgram, ['divide', join(kExamples, file), ...cut, ...area]).toString();
        const coordinates = [...output.matchAll(/^ +(?:from|to) +([\d.]+) +([\d.]+)$/gm)].map(([, e, n]) => `${e} ${n}`);
        assert.ok(coordinates.length >= 2, output);
        const points = new Set([...(await rows(page, 'points')).map(([, e, n]) => `${e} ${n}`)]);
        // An end at a corner is that corner and no new point.
        for (const end of coordinates) assert.ok(points.has(end) || (mode !== 'parts' && kind === 'vertex'), `${file} ${cut}: ${end} of ${[...points]}`);
        const areas = [...output.matchAll(/^ +(?:cut off|rest|piece \d+)[^\d]*(?:\d+ +)?.*?([\d.]+)$/gm)].map(([, area]) => Number(area).toFixed(2));
        const shown = (await rows(page, 'pieces')).slice(0, -1).map(([, area]) => area);
        for (const area of shown) assert.ok(areas.includes(area), `${file} ${cut}: ${area} is not in ${areas}`);
    }
    await closed(page);
});

const kUtmPrj = 'PROJCS["WGS_1984_UTM_Zone_32N",GEOGCS["GCS_WGS_1984",DATUM["D_WGS_1984",SPHEROID["WGS_1984",6378137.0,298.257223563]],PRIMEM["Greenwich",0.0],UNIT["Degree",0.0174532925199433]],PROJECTION["Transverse_Mercator"],UNIT["Meter",1.0]]';

// One polygon as .shp, written by hand from the published layout of the format.
function shapefile(ring) {
    const points = [...ring, ring[0]];
    const bytes = new DataView(new ArrayBuffer(100 + 8 + 48 + 16 * points.length));
    const xs = points.map((p) => p[0]);
    const ys = points.map((p) => p[1]);
    const box = [Math.min(...xs), Math.min(...ys), Math.max(...xs), Math.max(...ys)];
    bytes.setInt32(0, 9994);
    bytes.setInt32(24, bytes.byteLength / 2);
    bytes.setInt32(28, 1000, true);
    bytes.setInt32(32, 5, true);
    box.forEach((v, i) => bytes.setFloat64(36 + 8 * i, v, true));
    bytes.setInt32(100, 1);
    bytes.setInt32(104, (48 + 16 * points.length) / 2);
    bytes.setInt32(108, 5, true);
    box.forEach((v, i) => bytes.setFloat64(112 + 8 * i, v, true));
    bytes.setInt32(144, 1, true);
    bytes.setInt32(148, points.length, true);
    points.forEach((p, i) => p.forEach((v, k) => bytes.setFloat64(156 + 16 * i + 8 * k, v, true)));
    return new Uint8Array(bytes.buffer);
}

// A thousandth of a degree at 45 degrees North is 78.85 m by 111.13 m on the ground; UTM shortens both by 0.9996 at 9 degrees
// East, so that the square has 8755.3 square metres.
test('every format is read, and degrees are never plane', async () => {
    const page = await opened();
    const wkt = `POLYGON((${[...kField, kField[0]].map((p) => p.join(' ')).join(',')}))`;
    const zip = zipSync({ 'lots/field.shp': shapefile(kField), 'lots/field.prj': strToU8(kUtmPrj) });
    const dxf = readFileSync(join(kExamples, 'lot.dxf'));
    const files = [
        ['published.geojson', readFileSync(join(kExamples, 'published.geojson')), '18414.82', /taken as plane/],
        ['field.wkt', wkt, '18414.82', /taken as plane/],
        ['published.csv', readFileSync(join(kExamples, 'published.csv')), '18414.82', /taken as plane/],
        ['triangle.csv', readFileSync(join(kExamples, 'triangle.csv')), '2643.94', /taken as plane/],
        ['komma.csv', 'Rechtswert;Hochwert\n300,23;420,57\n410,75;440,49\n520,18;320,81\n350,04;300,58\n', '18414.82', /taken as plane/],
        ['srid.csv', `lot,WKT\n7,"SRID=25832;${wkt}"\n`, '18414.82', /EPSG:25832/],
        ['lot.dxf', dxf, null, /taken as plane/],
        ['field.zip', zip, '18414.82', /UTM_Zone_32N/],
        ['degrees.geojson', '{"type":"Polygon","coordinates":[[[9,45],[9.001,45],[9.001,45.001],[9,45.001],[9,45]]]}', '8755.', /UTM zone 32N/],
        ['degrees.kml', '<kml xmlns="http://www.opengis.net/kml/2.2"><Placemark><name>K</name><Polygon><outerBoundaryIs><LinearRing><coordinates>-70,-33 -69.999,-33 -69.999,-32.999 -70,-32.999 -70,-33</coordinates></LinearRing></outerBoundaryIs></Polygon></Placemark></kml>', '103', /UTM zone 19S/],
        ['lonlat.csv', 'lon,lat\n9,45\n9.001,45\n9.001,45.001\n9,45.001\n', '8755.', /UTM zone 32N/],
    ];
    for (const [name, content, area, note] of files) {
        await drop(page, name, content);
        assert.equal(await isShown(page, 'trouble'), false, `${name}: ${await textOf(page, 'trouble')}`);
        if (area) assert.ok((await textOf(page, 'parcel-facts')).includes(` ${area}`), `${name}: ${await textOf(page, 'parcel-facts')}`);
        assert.match(await textOf(page, 'notes'), note, name);
        assert.ok(await isShown(page, 'proven'), name);
    }
    await closed(page);
});

const dxfOf = (entities, header = '') => `0\nSECTION\n2\nHEADER\n9\n$INSUNITS\n70\n6\n${header}0\nENDSEC\n0\nSECTION\n2\nENTITIES\n${entities.join('')}0\nENDSEC\n0\nEOF\n`;
const dxfLine = ([x1, y1], [x2, y2], layer = 'LOTS') => `0\nLINE\n8\n${layer}\n10\n${x1}\n20\n${y1}\n11\n${x2}\n21\n${y2}\n`;
const dxfArc = ([x, y], radius, from, to, layer = 'LOTS') => `0\nARC\n8\n${layer}\n10\n${x}\n20\n${y}\n40\n${radius}\n50\n${from}\n51\n${to}\n`;

// The program joins these lines, too, and with --arcs 0.005 it puts the same chords in the place of the arc.
test('drawings of lines and arcs are joined as the program joins them', { skip: !existsSync(kProgram) && 'the program is not built' }, async () => {
    const page = await opened();
    // A lot with a rounded end: 40 by 20, and half a circle of radius 10 with its middle at (40, 10).
    const lot = [dxfLine([0, 0], [40, 0]), dxfLine([40.0004, 20], [0, 20]), dxfLine([0, 20], [0, 0]), dxfArc([40, 10], 10, 270, 90)];
    const name = '0\nTEXT\n8\nNAMES\n10\n20\n20\n10\n40\n2\n1\n114/7\n';
    const file = join(scratch, 'rounded.dxf');
    writeFileSync(file, dxfOf([...lot, name]));
    await drop(page, 'rounded.dxf', readFileSync(file));
    assert.equal(await isShown(page, 'trouble'), false, await textOf(page, 'trouble'));
    assert.equal(await textOf(page, 'parcel-name'), '114/7');
    assert.match(await textOf(page, 'notes'), /joined from 4 lines whose ends are up to 0\.0004 apart.*chords.*0\.005/);
    const program = JSON.parse(execFileSync(kProgram, ['measure', file, '--arcs', '0.005', '--json']));
    const measured = (program.parcels ?? [program])[0];
    assert.ok(measured.sides.length > 10);
    assert.match(await textOf(page, 'parcel-facts'), new RegExp(`${measured.sides.length} corners · ${measured.area.toFixed(2)}`));
    await page.click('[data-kind=parallel]');
    await typed(page, 'share', '1/3');
    const side = Number((await page.inputValue('#side')).split(' ')[1]) + 1;
    const divided = JSON.parse(execFileSync(kProgram, ['divide', file, '--arcs', '0.005', '--parallel', String(side), '--share', '1/3', '--json']));
    const { from, to } = divided.parcels[0].lines[0];
    const ends = [from, to].map(({ e, n }) => `${e} ${n}`);
    const points = (await rows(page, 'points')).map(([, e, n]) => `${Number(e)} ${Number(n)}`);
    for (const end of ends) assert.ok(points.includes(end), `${end} of ${points}`);

    // A bulge of 1 is half a circle: the same lot as one polyline.
    const polyline = '0\nLWPOLYLINE\n8\nLOTS\n90\n4\n70\n1\n10\n0\n20\n0\n10\n40\n20\n0\n42\n1\n10\n40\n20\n20\n10\n0\n20\n20\n';
    writeFileSync(file, dxfOf([polyline]));
    await drop(page, 'bulge.dxf', readFileSync(file));
    const bulged = JSON.parse(execFileSync(kProgram, ['measure', file, '--arcs', '0.005', '--json']));
    assert.match(await textOf(page, 'parcel-facts'), new RegExp(` ${(bulged.parcels ?? [bulged])[0].area.toFixed(2)} `));

    const open = [...lot.slice(0, 3), dxfArc([40, 10], 10, 275, 90)];
    await drop(page, 'open.dxf', dxfOf(open));
    assert.match(await textOf(page, 'trouble'), /Lines close no boundary: at [\d.]+ [\d.]+ the next end is 0\.87\d away/);
    await drop(page, 'fork.dxf', dxfOf([...lot, dxfLine([40, 0], [80, 0])]));
    assert.match(await textOf(page, 'trouble'), /At 40\.000 0\.000 more than two lines meet/);
    await closed(page);
});

test('tables in every dialect that the program reads', async () => {
    const page = await opened();
    const corners = [['A', 300.23, 420.57], ['B', 410.75, 440.49], ['C', 520.18, 320.81], ['D', 350.04, 300.58]];
    const table = (head, separator, comma = '.') => [head.join(separator), ...corners.map((row) => row.map((cell) => String(cell).replace('.', comma)).join(separator))].join('\r\n');
    const files = [
        ['tabs.txt', table(['Point', 'Easting', 'Northing'], '\t')],
        ['blanks.txt', table(['P', 'E', 'N'], '   ')],
        ['sep.csv', `sep=;\r\n${table(['Punkt', 'Rechtswert', 'Hochwert'], ';', ',')}`],
        ['bom.csv', `\uFEFF${table(['Punkt-Nr.', 'Ost [m]', 'Nord [m]'], ';', ',')}`],
        ['pipes.csv', table(['name', 'RW', 'HW'], '|')],
        ['utf16.csv', Buffer.concat([Buffer.from([0xff, 0xfe]), Buffer.from(table(['Punto', 'Est', 'Nord'], ';'), 'utf16le')])],
        ['windows.csv', Buffer.from(table(['Gr\u00fcn', 'E', 'N'], ';').replace('Gr\u00fcn', 'Gr\xfcn'), 'latin1')],
        ['codes.csv', `P,E,N,code\n${corners.map((row) => [...row, 'stone'].join()).join('\n')}\n`],
    ];
    for (const [name, content] of files) {
        await drop(page, name, content);
        assert.equal(await isShown(page, 'trouble'), false, `${name}: ${await textOf(page, 'trouble')}`);
        assert.match(await textOf(page, 'parcel-facts'), /^4 corners · 18414\.82 m²/, name);
    }
    await drop(page, 'lots.csv', `lot,part,E,N\n${['1', '2'].map((part, k) => [[0, 0], [10, 0], [10, 10]].map(([e, n]) => `7,${part},${e + 20 * k},${n}`).join('\n')).join('\n')}`);
    assert.match(await textOf(page, 'trouble'), /Column part changes within a parcel/);
    await closed(page);
});

test('text is pasted, and one of several parcels is picked', async () => {
    const page = await opened();
    await page.click('#open-paste');
    await page.fill('#paste-text', readFileSync(join(kExamples, 'utm-convex.geojson'), 'utf8'));
    await page.click('#paste-take');
    await settled(page);
    assert.equal(await textOf(page, 'parcel-name'), '17/2');
    await page.selectOption('#parcels', '1');
    assert.equal(await textOf(page, 'parcel-name'), '18');
    assert.match(await textOf(page, 'notes'), /EPSG:32632/);
    await page.mouse.click(...(await pixelOf(page, [610280, 4985160])));
    assert.equal(await textOf(page, 'parcel-name'), '17/2');
    await closed(page);
});

test('hostile and broken files end in a message', async () => {
    const page = await opened();
    const many = `E,N\n${Array.from({ length: 200100 }, (_, i) => `${Math.cos(i / 31831) * 1e5},${Math.sin(i / 31831) * 1e5}`).join('\n')}`;
    const files = [
        ['huge.csv', Buffer.alloc(100e6, '1,2\n'), /100 MB/],
        ['many.csv', many, /200100 corners/],
        ['empty.csv', '', /nothing in it/],
        ['noise.csv', 'hello\nworld\n', /column WKT/],
        ['bad.csv', 'E,N\n1,2\nx,3\n4,5\n', /Row 2: "x"/],
        ['group.csv', 'E;N\n"1,250";2\n3.5;4\n5;6\n', /"1,250" is not a number/],
        ['bad.geojson', '{"type":', /GeoJSON cannot be read/],
        ['nan.geojson', '{"type":"Polygon","coordinates":[[[0,0],[1,null],["x",1],[0,0]]]}', /not a number|GeoJSON/],
        ['empty.geojson', '{"type":"Polygon","coordinates":[[]]}', /no closed area/],
        ['empty.wkt', 'POLYGON EMPTY', /no closed area/],
        ['line.geojson', '{"type":"LineString","coordinates":[[0,0],[500,0]]}', /no closed area/],
        ['bad.kml', '<kml><Placemark>', /no closed area|KML/],
        ['bomb.kml', `<!DOCTYPE k [<!ENTITY a "${'a'.repeat(100)}">${Array.from({ length: 20 }, (_, i) => `<!ENTITY a${i} "${(i ? `&a${i - 1};` : '&a;').repeat(10)}">`).join('')}]><kml>&a19;</kml>`, /no closed area|KML/],
        ['far.geojson', '{"type":"Polygon","coordinates":[[[0,0],[1e308,0],[1,1],[0,0]]]}', /1e\+308 0 are too large/],
        ['deep.kml', `<kml>${'<Folder>'.repeat(4e5)}`, /KML cannot be read/],
        ['points.kml', `<kml>${'<Placemark><Point><coordinates>1,2</coordinates></Point></Placemark>'.repeat(2e4)}</kml>`, /no closed area/],
        ['nest.geojson', `{"type":"GeometryCollection","geometries":${'['.repeat(5e6)}`, /GeoJSON cannot be read/],
        ['spaces.wkt', `POLYGON((0 0${' '.repeat(5e6)}`, /WKT/],
        ['bad.wkt', 'POLYGON((0 0, 1', /WKT|closed area/],
        ['bad.dxf', '0\nSECTION\n2\nENTITIES\n0\nLWPOLYLINE\n', /DXF|closed area/],
        ['bad.zip', 'PK\u0003\u0004nothing', /zip/i],
        ['none.zip', zipSync({ 'a.txt': strToU8('a') }), /no Shapefile/],
        ['bomb.zip', zipSync({ 'a.shp': [new Uint8Array(80e6), { level: 9 }] }), /80 MB/],
        ['a.gpkg', 'SQLite format 3\0', /GeoPackage/],
        ['a.shp', Buffer.from(shapefile(kField)), /Zip them/],
        ['a.bin', Buffer.from([1, 2, 0, 0, 4, 5]), /not known|closed area|column/],
    ];
    for (const [name, content, message] of files) {
        if (content.length > 1e6) {
            writeFileSync(join(scratch, name), content);
            await page.setInputFiles('#file', join(scratch, name));
        } else await open(page, name, content);
        await settled(page);
        assert.match(await textOf(page, 'trouble'), message, name);
    }
    assert.deepEqual((await rows(page, 'pieces'))[0], ['A', '6000.00', '32.58 %', '6000.00'], 'the parcel on the page stays');
    // The browser's own report on broken XML would have styles, and the policy keeps them out.
    await closed(page, /^console: Applying inline style/);
});

test('190,000 corners that cross each other everywhere end in a message, and the page lives on', async () => {
    const page = await opened();
    const corners = Array.from({ length: 190000 }, (_, i) => `${(i * 7919) % 190001} ${(i * 104729) % 190001}`);
    await open(page, 'knot.wkt', `POLYGON((${corners.join(',')}))`);
    assert.match(await textOf(page, 'refusal-text'), /Sides .* meet/);
    await page.click('#undo');
    await settled(page);
    assert.ok(await isShown(page, 'proven'));
    await closed(page);
});

test('sides and corners are pointed at, and say what they are', async () => {
    const page = await opened();
    const bc = await pixelOf(page, middle(kField[1], kField[2]));
    await page.mouse.move(...bc);
    assert.equal(await textOf(page, 'tip'), 'B – C: 162.17 m, 152.8462 gon');
    await page.mouse.click(...bc);
    assert.equal(await page.inputValue('#side'), '0 1');
    await typed(page, 'share', '1/3');
    assert.deepEqual((await rows(page, 'pieces')).map((row) => row[2]), ['33.33 %', '66.67 %', '']);
    await page.mouse.click(...(await pixelOf(page, kField[3])));
    assert.equal(await page.inputValue('#corner'), '0 3');
    assert.equal(await page.getAttribute('[data-kind=vertex]', 'aria-checked'), 'true');
    await page.click('[data-kind=place]');
    await page.mouse.click(...(await pixelOf(page, middle(kField[0], kField[1]))));
    assert.equal(await page.inputValue('#side'), '0 0');
    assert.ok(Math.abs(Number(await page.inputValue('#along')) - 56.15) < 1, await page.inputValue('#along'));
    await page.click('[data-kind=point]');
    await page.mouse.click(...(await pixelOf(page, [400, 370])));
    assert.ok(Math.abs(Number(await page.inputValue('#east')) - 400) < 1);
    await typed(page, 'share', '1/2');
    assert.ok(await isShown(page, 'proven'));
    await page.click('[data-kind=bearing]');
    await page.fill('#bearing', '50');
    assert.match((await rows(page, 'lines'))[0][2], /^(50|250)\.0000 gon$/);
    await closed(page);
});

test('areas, shares, lists, parts and widths; swapped, undone and done again', async () => {
    const page = await opened();
    const firsts = async () => (await rows(page, 'pieces')).slice(0, -1).map((row) => row[1]);
    await typed(page, 'share', '25 %');
    assert.equal((await firsts())[0], '4603.70');
    await typed(page, 'parts', '4');
    assert.equal((await firsts()).length, 4);
    await typed(page, 'list', '1000, 1/4, 20x35');
    assert.deepEqual((await firsts()).slice(0, 3).map((area) => Math.round(Number(area))), [1000, 4604, 700]);
    await typed(page, 'width', '10');
    assert.equal((await firsts()).length, 2);
    await typed(page, 'area', '5000,5');
    assert.equal((await firsts())[0], '5000.50');
    await page.fill('#amount', '1,250');
    assert.match(await textOf(page, 'mistake'), /decimal/);
    await page.fill('#amount', 'many');
    assert.match(await textOf(page, 'mistake'), /number/);
    await page.fill('#amount', '5000');
    const before = await rows(page, 'points');
    await page.click('#swap');
    assert.notDeepEqual(await rows(page, 'points'), before);
    await page.focus('#map');
    await page.keyboard.press('Control+z');
    assert.deepEqual(await rows(page, 'points'), before);
    await page.keyboard.press('Control+Shift+z');
    assert.notDeepEqual(await rows(page, 'points'), before);
    await page.click('#undo');
    assert.deepEqual(await rows(page, 'points'), before);
    await closed(page);
});

test('refusals tell the reason in place, and what can be had', async () => {
    const page = await opened();
    await typed(page, 'area', '20000');
    assert.ok(await isShown(page, 'refusal'));
    assert.equal(await isShown(page, 'result'), false);
    assert.equal(await isShown(page, 'outputs'), false);
    await page.click('[data-kind=point]');
    await page.fill('#east', '320');
    await page.fill('#north', '410');
    await page.fill('#amount', '100');
    assert.match(await textOf(page, 'refusal-text'), /through the point/i);
    assert.match(await textOf(page, 'hint'), /no such line/);
    assert.match(await textOf(page, 'refusal-range'), /What can be had: [\d.]+ to [\d.]+ m²/);
    await page.screenshot({ path: join(kPictures, 'refusal.png') });
    // A line from corner 2 of the L would leave it; other lines hold the amount, and one is taken.
    await open(page, 'concave.csv', readFileSync(join(kExamples, 'concave.csv')));
    await page.click('[data-kind=vertex]');
    await page.selectOption('#corner', '0 1');
    await typed(page, 'area', '900');
    assert.match(await textOf(page, 'refusal-range'), /What can be had: [\d.]+ to [\d.]+ m² or [\d.]+ to [\d.]+ m²/);
    assert.ok((await page.$$('#ranges rect')).length >= 2);
    await page.screenshot({ path: join(kPictures, 'instead.png') });
    await page.click('#instead button');
    assert.ok(await isShown(page, 'proven'));
    assert.equal((await rows(page, 'pieces'))[0][1], '900.00');
    await open(page, 'knot.wkt', 'POLYGON((0 0, 100 100, 100 0, 0 100, 0 0))');
    assert.match(await textOf(page, 'refusal-text'), /Sides 1 – 2 and 3 – 4 meet/);
    await closed(page);
});

test('the line is dragged, and snaps to a round area', async () => {
    const page = await opened();
    const start = middle([397.1641, 306.1831], [346.2377, 428.8624]);
    await page.mouse.move(...(await pixelOf(page, start)));
    await page.mouse.down();
    await page.mouse.move(...(await pixelOf(page, [400, 370])), { steps: 5 });
    await page.waitForTimeout(60);
    const during = (await rows(page, 'pieces'))[0][1];
    assert.notEqual(during, '6000.00');
    await page.mouse.up();
    const after = (await rows(page, 'pieces'))[0][1];
    assert.equal(Number(after) % 50, 0, after);
    assert.ok(Math.abs(Number(after) - Number(during)) <= 25);
    assert.equal(await page.inputValue('#amount'), String(Number(after)));
    await page.click('#undo');
    assert.equal((await rows(page, 'pieces'))[0][1], '6000.00');
    for (const kind of ['perpendicular', 'vertex', 'bearing', 'place', 'point']) {
        await page.click(`[data-kind=${kind}]`);
        if (kind === 'point') await page.mouse.click(...(await pixelOf(page, [400, 372])));
        if (kind === 'place') await page.fill('#along', '40');
        await typed(page, 'share', kind === 'point' ? '1/2' : '45 %');
        assert.ok(await isShown(page, 'proven'), kind);
        const grip = await page.evaluate(() => window.plcalcPage.grip());
        const box = await page.locator('#map').boundingBox();
        const before = await rows(page, 'points');
        await page.mouse.move(box.x + grip[0], box.y + grip[1]);
        await page.mouse.down();
        const [right, down] = kind === 'point' ? [4, -40] : [25, 18];
        await page.mouse.move(box.x + grip[0] + right, box.y + grip[1] + down, { steps: 4 });
        await page.waitForTimeout(60);
        await page.mouse.up();
        assert.ok(await isShown(page, 'proven'), kind);
        assert.notDeepEqual(await rows(page, 'points'), before, kind);
    }
    await closed(page);
});

test('a line runs along a segment anywhere: two clicks, typed points, a corner of a neighbour', { skip: !existsSync(kProgram) && 'the program is not built' }, async () => {
    const page = await opened();
    await page.click('[data-kind=segment]');
    assert.ok(await isShown(page, 'proven'), 'along the longest side at first');
    await page.mouse.click(...(await pixelOf(page, [305, 330])));
    assert.match(await textOf(page, 'hint'), /second point/);
    await page.mouse.click(...(await pixelOf(page, kField[1])));
    assert.deepEqual([await page.inputValue('#axis-1-0'), await page.inputValue('#axis-1-1')], ['410.75', '440.49'], 'a corner is met exactly');
    for (const [id, value] of [['axis-0-0', '250'], ['axis-0-1', '100,5'], ['axis-1-0', '600.25'], ['axis-1-1', '233']]) await page.fill(`#${id}`, value);
    await typed(page, 'share', '1/3');
    const output = execFileSync(kProgram, ['divide', join(kExamples, 'published.csv'), '--along-segment', '250,100.5,600.25,233', '--share', '1/3']).toString();
    for (const [, e, n] of output.matchAll(/^ +(?:from|to) +([\d.]+) +([\d.]+)$/gm))
        assert.ok((await rows(page, 'points')).some((row) => row[1] === e && row[2] === n), `${e} ${n}`);
    await typed(page, 'width', '12');
    assert.ok(await isShown(page, 'proven'));
    await page.screenshot({ path: join(kPictures, 'segment.png') });
    // The axis of a road next to the lot: a side of the neighbour, corner by corner.
    await open(page, 'two.wkt', 'POLYGON((0 0,50 0,50 40,0 40,0 0))\nPOLYGON((60 -5,90 12.34,80 60,60 60,60 -5))');
    await page.click('[data-kind=segment]');
    await page.mouse.click(...(await pixelOf(page, [60, -5])));
    await page.mouse.click(...(await pixelOf(page, [90, 12.34])));
    assert.deepEqual(await Promise.all(['0-0', '0-1', '1-0', '1-1'].map((end) => page.inputValue(`#axis-${end}`))), ['60', '-5', '90', '12.34']);
    assert.ok(await isShown(page, 'proven'));
    await closed(page);
});

test('whole lines through a corner, a place and a point cut any number of pieces', { skip: !existsSync(kProgram) && 'the program is not built' }, async () => {
    const page = await opened();
    const comb = 'POLYGON((0 0,100 0,100 50,80 50,80 10,60 10,60 50,40 50,40 10,20 10,20 50,0 50,0 0))';
    const file = join(scratch, 'comb.csv');
    writeFileSync(file, `lot,WKT\n1,"${comb}"\n`);
    await open(page, 'comb.wkt', comb);
    await page.click('#whole');
    const cases = [['vertex', ['#corner', '0 2'], ['--vertex', '3']], ['place', ['#side', '0 11'], ['--place', '12,30']], ['point', undefined, ['--through', '50,70']]];
    for (const [kind, choice, cut] of cases) {
        await page.click(`[data-kind=${kind}]`);
        if (choice) await page.selectOption(...choice);
        if (kind === 'place') await page.fill('#along', '30');
        if (kind === 'point') await page.fill('#east', '50').then(() => page.fill('#north', '70'));
        await typed(page, 'share', '30 %');
        assert.ok(await isShown(page, 'proven'), `${kind}: ${await textOf(page, 'refusal-text')}`);
        const output = execFileSync(kProgram, ['divide', file, ...cut, '--share', '30%', '--pieces', 'any', '--json']);
        const { lines: [line], pieces } = (JSON.parse(output).parcels ?? [JSON.parse(output)])[0];
        const areas = (await rows(page, 'pieces')).slice(0, -1).map((row) => row[1]);
        assert.deepEqual(areas.sort(), pieces.map(({ area }) => area.toFixed(2)).sort(), kind);
        assert.ok(areas.length > 2 && line, kind);
        // It is dragged like any other.
        const grip = await page.evaluate(() => window.plcalcPage.grip());
        const box = await page.locator('#map').boundingBox();
        await page.mouse.move(box.x + grip[0], box.y + grip[1]);
        await page.mouse.down();
        await page.mouse.move(box.x + grip[0] + 6, box.y + grip[1] + 14, { steps: 4 });
        await page.waitForTimeout(60);
        assert.notDeepEqual((await rows(page, 'pieces')).slice(0, -1).map((row) => row[1]).sort(), areas, kind);
        await page.mouse.up();
        assert.ok(await isShown(page, 'proven'), kind);
    }
    await page.screenshot({ path: join(kPictures, 'whole.png') });
    await closed(page);
});

test('a parcel with a hole is divided, into two pieces and into any number', async () => {
    const page = await opened();
    await open(page, 'court.wkt', 'POLYGON((0 0,100 0,100 50,0 50,0 0),(40 20,40 30,60 30,60 20,40 20))');
    assert.match(await textOf(page, 'parcel-facts'), /holes: 1 · 4800\.00 m²/);
    await page.click('[data-kind=bearing]');
    await page.fill('#bearing', '100');
    await page.click('#whole');
    await typed(page, 'share', '1/2');
    assert.deepEqual((await rows(page, 'pieces')).map((row) => row[1]), ['2400.00', '2400.00', '4800.00']);
    assert.equal((await rows(page, 'lines')).length, 2);
    await closed(page);
});

test('a division comes back from its address, and links are made', async () => {
    const page = await opened();
    await typed(page, 'parts', '3');
    const before = await rows(page, 'points');
    const hash = await page.evaluate(() => location.hash);
    assert.match(hash, /^#d=/);
    const again = await opened({ hash });
    assert.deepEqual(await rows(again, 'points'), before);
    await closed(again);
    const broken = await opened({ hash: `${hash.slice(0, 40)}xx` });
    assert.ok(await isShown(broken, 'proven'));
    await closed(broken);
    await closed(page);
});

test('each output is read back with the same figures', async () => {
    const page = await opened();
    await page.click('[data-kind=perpendicular]');
    await typed(page, 'parts', '3');
    const points = (await rows(page, 'points')).map(([name, e, n]) => ({ name, e, n }));
    const areas = (await rows(page, 'pieces')).slice(0, -1).map((row) => row[1]);

    const json = JSON.parse(readFileSync(await downloaded(page, '[data-save=geojson]'), 'utf8'));
    const polygons = json.features.filter((feature) => feature.geometry.type === 'Polygon');
    assert.deepEqual(polygons.map((feature) => feature.properties.area.toFixed(2)), areas);
    const lines = json.features.filter((feature) => feature.geometry.type === 'LineString');
    assert.deepEqual(lines.flatMap((feature) => feature.geometry.coordinates.map(([e, n]) => `${e.toFixed(4)} ${n.toFixed(4)}`)), points.map(({ e, n }) => `${e} ${n}`));

    const csv = readFileSync(await downloaded(page, '[data-save=csv]'), 'utf8').trim().split('\r\n');
    assert.deepEqual(csv.slice(0, 5), ['name,E,N,code', ...points.map(({ name, e, n }) => `${name},${e},${n},NEW`)]);
    assert.equal(csv[5], 'A,300.23,420.57,CORNER');

    const dxf = readFileSync(await downloaded(page, '[data-save=dxf]'), 'utf8');
    for (const { e, n } of points) assert.ok(dxf.includes(`\n10\n${Number(e)}\n20\n${Number(n)}\n`), `${e} ${n}`);
    await open(page, 'back.dxf', dxf);
    assert.equal(await isShown(page, 'trouble'), false, await textOf(page, 'trouble'));
    assert.ok((await textOf(page, 'parcel-facts')).includes(areas[0]), await textOf(page, 'parcel-facts'));
    await page.click('#undo');

    // The program reads both, and measures the same pieces.
    if (existsSync(kProgram))
        for (const [name, ...layer] of [['Field-divided.geojson'], ['Field-divided.dxf', '--layer', 'pieces']]) {
            const { parcels } = JSON.parse(execFileSync(kProgram, ['measure', join(scratch, name), ...layer, '--json']));
            assert.deepEqual(parcels.map(({ area }) => area.toFixed(2)), areas, name);
        }

    const svg = readFileSync(await downloaded(page, '[data-save=svg]'), 'utf8');
    for (const text of [...points.flatMap(({ e, n }) => [e, n]), ...areas, 'Scale 1:1500 on A4']) assert.ok(svg.includes(text), text);
    writeFileSync(join(kPictures, 'plan.svg'), svg);
    const png = readFileSync(await downloaded(page, '[data-save=png]'));
    assert.deepEqual([png.readUInt32BE(16), png.readUInt32BE(20)], [2339, 1654]);
    writeFileSync(join(kPictures, 'plan.png'), png);
    const pdf = readFileSync(await downloaded(page, '[data-save=pdf]'));
    assert.ok(pdf.subarray(0, 5).toString() === '%PDF-' && pdf.length > 3000);
    writeFileSync(join(kPictures, 'plan.pdf'), pdf);
    if (existsSync('/usr/bin/pdftotext')) {
        const text = execFileSync('pdftotext', ['-layout', '-', '-'], { input: pdf }).toString();
        for (const figure of [...points.flatMap(({ e, n }) => [e, n]), ...areas]) assert.ok(text.includes(figure), figure);
    }
    await page.evaluate(() => window.dispatchEvent(new Event('beforeprint')));
    await page.emulateMedia({ media: 'print' });
    assert.ok(await page.isVisible('#sheet svg'));
    assert.equal(await page.isVisible('main'), false);
    writeFileSync(join(kPictures, 'printed.pdf'), await page.pdf({ preferCSSPageSize: true }));
    await closed(page);
});

// What is on a sheet, as words: figures and names, without where they stand.
function wordsOf(pdf) {
    return execFileSync('pdftotext', ['-layout', pdf, '-']).toString().split(/\s+/).filter((word) => /\d/.test(word)).map((word) => word.replace(/[:,]$/, ''));
}

test('the printed plan has what the program\u2019s plan has, on as many sheets as it needs', { skip: !existsSync(kProgram) && 'the program is not built' }, async () => {
    const page = await opened();
    const large = join(scratch, 'large.csv');
    writeFileSync(large, 'P,E,N\nA,1000,2000\nB,1600,2000\nC,1600,2300.5\nD,1300.25,2300.5\nE,1300.25,2450\nF,1000,2450\n');
    for (const [file, side, parts] of [[join(kExamples, 'published.csv'), 4, 3], [large, 1, 38]]) {
        await open(page, basename(file), readFileSync(file));
        await page.click('[data-kind=perpendicular]');
        await page.selectOption('#side', `0 ${side - 1}`);
        await typed(page, 'parts', String(parts));
        assert.ok(await isShown(page, 'proven'), file);
        const plan = join(scratch, 'program.pdf');
        execFileSync(kProgram, ['divide', file, '--perpendicular', String(side), '--parts', String(parts), '--plan', plan, '--area-decimals', '2', '--overwrite']);
        const printed = join(kPictures, `printed-${parts}.pdf`);
        await page.evaluate(() => window.dispatchEvent(new Event('beforeprint')));
        await page.emulateMedia({ media: 'print' });
        writeFileSync(printed, await page.pdf({ preferCSSPageSize: true }));
        await page.emulateMedia({ media: 'screen' });
        const saved = await downloaded(page, '[data-save=pdf]');
        const sheets = (pdf) => Number(/Pages: +(\d+)/.exec(execFileSync('pdfinfo', [pdf]).toString())[1]);
        assert.equal(sheets(printed) > 1, parts > 12, file);
        assert.equal(sheets(printed), sheets(saved), file);
        // Points, lengths, areas and the scale. The program enlarges what is too thin, at scales of its own.
        const words = wordsOf(plan);
        const wanted = new Set([...words.filter((word) => /^\d+\.\d{2,}$|^P\d+$/.test(word)), words.find((word) => /^1:\d+$/.test(word))]);
        assert.ok(wanted.size > 20);
        for (const pdf of [printed, saved]) {
            const there = new Set(wordsOf(pdf));
            assert.deepEqual([...wanted].filter((word) => !there.has(word)), [], `${file}: of ${pdf}`);
        }
    }
    const [svgs, pngs] = [await downloaded(page, '[data-save=svg]'), await downloaded(page, '[data-save=png]')].map((zip) => Object.keys(unzipSync(readFileSync(zip))));
    assert.deepEqual([svgs[1], pngs[1]], ['plan-2.svg', 'plan-2.png']);
    await closed(page);
});

test('every text is there in every language', async () => {
    const { outputFiles } = await build({ entryPoints: [join(kWeb, 'src', 'texts', 'index.ts')], bundle: true, format: 'esm', write: false });
    const { languages } = await import(`data:text/javascript;base64,${Buffer.from(outputFiles[0].text).toString('base64')}`);
    const gaps = (text) => [...text.matchAll(/\{\d\}/g)].map(String).sort();
    const names = [...readFileSync(join(kWeb, 'wasm', 'src', 'names.cpp'), 'utf8').matchAll(/return "(\w+)";/g)].map(([, name]) => name);
    assert.ok(names.length > 20);
    for (const [code, texts] of Object.entries(languages)) {
        for (const [key, text] of Object.entries(languages.en)) assert.deepEqual(gaps(texts[key] ?? ''), gaps(text), `${code} ${key}`);
        if (code === 'en') continue;
        const same = Object.keys(languages.en).filter((key) => texts[key] === languages.en[key] && /[a-z]{3}/i.test(texts[key]));
        assert.deepEqual(same.filter((key) => !['plan', 'geojson', 'dxf', 'svg', 'png', 'pdf', 'parallel'].includes(key)), [], `${code}: not translated`);
        assert.deepEqual(names.filter((name) => !['divided', 'usable', 'unusable_boundary', 'unknown'].includes(name) && !texts.reasons[name]), [], `${code}: reasons`);
    }
});

test('all is done by the keyboard alone', async () => {
    const page = await opened();
    await page.keyboard.press('Tab');
    assert.equal(await page.evaluate(() => document.activeElement.className), 'skip');
    await page.focus('#map');
    await page.keyboard.press('ArrowRight');
    assert.equal(await page.inputValue('#side'), '0 0');
    await page.keyboard.press('ArrowUp');
    assert.equal((await rows(page, 'pieces'))[0][1], '6100.00');
    assert.match(await textOf(page, 'live'), /A – B|Divided/);
    const visited = new Set();
    for (let i = 0; i < 60; ++i) {
        await page.keyboard.press('Tab');
        visited.add(await page.evaluate(() => document.activeElement.id || document.activeElement.dataset.kind || document.activeElement.dataset.save || ''));
    }
    for (const id of ['open', 'open-paste', 'parallel', 'side', 'whole', 'mode-area', 'amount', 'slider', 'swap', 'print', 'pdf', 'geojson', 'csv', 'dxf', 'link', 'undo', 'language', 'open-settings'])
        assert.ok(visited.has(id), id);
    await page.focus('[data-kind=parallel]');
    await page.keyboard.press('ArrowRight');
    assert.equal(await page.getAttribute('[data-kind=perpendicular]', 'aria-checked'), 'true');
    await page.focus('#slider');
    await page.keyboard.press('ArrowRight');
    assert.ok(await isShown(page, 'proven'));
    await closed(page);
});

test('settings: decimals, degrees, feet, and German', async () => {
    const page = await opened();
    await page.click('#open-settings');
    await page.selectOption('#decimals', '2');
    // Centimetres do not hold 6000 to a millionth of the parcel: the line has millimetres, and the page says so.
    assert.deepEqual((await rows(page, 'points'))[0], ['P1', '397.164', '306.183']);
    assert.equal(await textOf(page, 'proof'), '2 decimals were not enough to hold the areas; the line has 3.');
    await page.selectOption('#angles', 'dms');
    assert.equal((await rows(page, 'lines'))[0][2].replace(/\d+/, '337'), (await rows(page, 'lines'))[0][2]);
    await page.selectOption('#unit', 'ft');
    assert.match(await textOf(page, 'parcel-facts'), /ft²/);
    await page.selectOption('#language', 'de');
    assert.equal(await page.textContent('h2[data-t=amount]'), 'Wie viel');
    assert.equal(await page.getAttribute('html', 'lang'), 'de');
    await typed(page, 'area', '20000');
    assert.match(await textOf(page, 'refusal-text'), /Menge/);
    await closed(page);
    const german = await opened({ language: 'de-AT' });
    assert.equal(await textOf(german, 'proven'), 'Bewiesen');
    await closed(german);
});

test('accessibility, by axe-core, at a desktop and a phone', async () => {
    const axe = readFileSync(join(kWeb, 'node_modules', 'axe-core', 'axe.min.js'), 'utf8');
    for (const size of [{}, { width: 390, height: 844, phone: true }]) {
        const page = await opened(size);
        for (const step of [async () => undefined, () => typed(page, 'area', '20000'), () => page.click('#open-settings'), () => page.click('[data-kind=point]')]) {
            await step();
            // The page's policy keeps other scripts out; the debugger's own evaluation is not bound by it.
            await page.evaluate(axe);
            const { violations } = await page.evaluate(() => window.axe.run(document, { resultTypes: ['violations'] }));
            assert.deepEqual(violations.map(({ id, nodes }) => `${id}: ${nodes.map((node) => node.target).join(', ')}`), []);
        }
        await page.context().close();
    }
});

test('on a phone: nothing is wider than the screen, targets are large, the line follows a finger', async () => {
    const page = await opened({ width: 390, height: 844, phone: true });
    assert.ok(await page.evaluate(() => document.documentElement.scrollWidth <= innerWidth));
    const small = await page.$$eval('button, select, input:not([type])', (all) => all.filter((e) => e.offsetParent && (e.offsetHeight < 32 || e.offsetWidth < 32)).map((e) => e.outerHTML.slice(0, 80)));
    assert.deepEqual(small, []);
    const bc = await pixelOf(page, middle(kField[1], kField[2]));
    await page.touchscreen.tap(...bc);
    assert.equal(await page.inputValue('#side'), '0 1');
    const before = await rows(page, 'points');
    const grip = await page.evaluate(() => window.plcalcPage.grip());
    const box = await page.locator('#map').boundingBox();
    const finger = await page.context().newCDPSession(page);
    const touch = (type, right, down) => finger.send('Input.dispatchTouchEvent', { type, touchPoints: type === 'touchEnd' ? [] : [{ x: box.x + grip[0] + right, y: box.y + grip[1] + down }] });
    await touch('touchStart', 0, 0);
    for (let i = 1; i <= 6; ++i) await touch('touchMove', -4 * i, 3 * i);
    await page.waitForTimeout(80);
    await touch('touchEnd');
    assert.notDeepEqual(await rows(page, 'points'), before);
    assert.ok(await isShown(page, 'proven'));
    await closed(page);
});

// Time of the page's own thread for each frame: amount, division with proof, tables, drawing. A second holds 60 of 16.7 ms.
test('a parcel of 1,000 corners is dragged without a stutter', async () => {
    const page = await opened();
    const shapes = {
        smooth: (i) => 100 + 6 * Math.sin((22 * Math.PI * i) / 1000),
        jagged: (i) => 100 + 4 * Math.sin((22 * Math.PI * i) / 1000) + ((i * 7919) % 1000) / 400,
    };
    for (const [name, radius] of Object.entries(shapes)) {
        const ring = Array.from({ length: 1000 }, (_, i) => [5000 + radius(i) * Math.cos((2 * Math.PI * i) / 1000), 5000 + radius(i) * Math.sin((2 * Math.PI * i) / 1000)]);
        await open(page, `${name}.wkt`, `POLYGON((${[...ring, ring[0]].map((p) => p.join(' ')).join(',')}))`);
        await page.click('[data-kind=bearing]');
        await page.locator('#whole').setChecked(name === 'jagged');
        await typed(page, 'share', '1/2');
        assert.ok(await isShown(page, 'proven'), name);
        const grip = await page.evaluate(() => window.plcalcPage.grip());
        const box = await page.locator('#map').boundingBox();
        await page.mouse.move(box.x + grip[0], box.y + grip[1]);
        await page.mouse.down();
        await page.mouse.move(box.x + grip[0] + 1, box.y + grip[1], { steps: 10 });
        await page.evaluate(() => window.plcalcPage.timeFrames());
        for (let i = 1; i <= 60; ++i) await page.mouse.move(box.x + grip[0] + i, box.y + grip[1]);
        await page.waitForTimeout(100);
        const times = await page.evaluate(() => window.plcalcPage.frameTimes());
        await page.mouse.up();
        times.sort((a, b) => a - b);
        const at = (part) => times[Math.floor(part * (times.length - 1))];
        console.log(`1,000 corners, ${name}: ${times.length} frames, median ${at(0.5).toFixed(1)} ms, nine in ten below ${at(0.9).toFixed(1)} ms, slowest ${at(1).toFixed(1)} ms`);
        assert.ok(times.length > 10);
        if (process.env.PLCALC_TIMED) assert.ok(at(0.9) < 1000 / 60, `${at(0.9)} ms`);
    }
    await closed(page);
});

// What stops a page is work on its own thread, between two frames. The worker's is not.
test('a parcel of 20,000 corners is divided and dragged while the page goes on', async () => {
    const page = await opened();
    const ring = Array.from({ length: 20000 }, (_, i) => {
        const turn = (2 * Math.PI * i) / 20000;
        const radius = 100 + 6 * Math.sin(11 * turn);
        return [5000 + radius * Math.cos(turn), 5000 + radius * Math.sin(turn)];
    });
    await open(page, 'round.wkt', `POLYGON((${[...ring, ring[0]].map((p) => p.join(' ')).join(',')}))`);
    await page.evaluate(() => {
        window.longTasks = [];
        new PerformanceObserver((list) => window.longTasks.push(...list.getEntries().map((entry) => entry.duration))).observe({ entryTypes: ['longtask'] });
    });
    await page.click('[data-kind=bearing]');
    await typed(page, 'share', '1/2');
    await settled(page);
    assert.equal((await rows(page, 'pieces'))[0][2], '50.00 %');
    assert.equal(page.workers().length, 1);
    const grip = await page.evaluate(() => window.plcalcPage.grip());
    const box = await page.locator('#map').boundingBox();
    await page.mouse.move(box.x + grip[0], box.y + grip[1]);
    await page.mouse.down();
    for (let i = 1; i <= 20; ++i) await page.mouse.move(box.x + grip[0] + i, box.y + grip[1]);
    await page.mouse.up();
    await settled(page);
    await page.waitForFunction(() => document.querySelector('#amount').value !== '1/2');
    assert.ok(await isShown(page, 'proven'));
    assert.notEqual((await rows(page, 'pieces'))[0][2], '50.00 %');
    const tasks = await page.evaluate(() => window.longTasks);
    console.log(`20,000 corners: ${tasks.length} tasks above 50 ms on the page's own thread, the longest ${Math.max(0, ...tasks).toFixed(0)} ms`);
    if (process.env.PLCALC_TIMED) assert.ok(Math.max(0, ...tasks) < 500);
    await closed(page);
});

// Somebody who has read nothing: a file of lots with names, in degrees; a click on a lot, a click on a side, a third, the plan.
test('a file, a lot, a side, a third, a plan: eight steps of a person who has read nothing', async () => {
    const page = await opened({ width: 1366, height: 768 });
    const lots = Array.from({ length: 30 }, (_, i) => {
        const [x, y] = [11.3547 + 0.0009 * (i % 6), 46.4981 + 0.0006 * Math.floor(i / 6)];
        return { type: 'Feature', properties: { Flurstueck: `${100 + i}/2` }, geometry: { type: 'Polygon', coordinates: [[[x, y], [x + 0.0008, y], [x + 0.00085, y + 0.0005], [x, y + 0.00049], [x, y]]] } };
    });
    await drop(page, 'Katasterauszug.geojson', JSON.stringify({ type: 'FeatureCollection', features: lots }));
    assert.equal(await textOf(page, 'hint'), 'Click your parcel.');
    const box = await page.locator('#map').boundingBox();
    await page.mouse.click(box.x + 0.3 * box.width, box.y + 0.35 * box.height);
    const lot = await textOf(page, 'parcel-name');
    assert.match(lot, /^1(1|2)\d\/2$/);
    assert.match(await textOf(page, 'hint'), /Click a side of the parcel\. Or drag/);
    const ring = await page.evaluate(() => { const { parcels, chosen } = window.plcalcPage.state; return parcels[chosen].outer; });
    await page.mouse.click(...(await pixelOf(page, middle(ring[1], ring[2]))));
    assert.equal(await page.inputValue('#side'), '0 1');
    // The cursor is in no field; what is typed is the amount.
    await page.keyboard.type('1/3');
    assert.deepEqual([await page.inputValue('#amount'), (await rows(page, 'pieces'))[0][2]], ['1/3', '33.33 %']);
    assert.ok(await page.locator('#amount').evaluate((field) => field.getBoundingClientRect().bottom < innerHeight), 'in sight');
    for (const words of ['a third', '1 / 3', '33.3333333 %']) {
        await page.fill('#amount', words);
        assert.equal((await rows(page, 'pieces'))[0][2], '33.33 %', words);
    }
    await page.click('#mode-area');
    await page.fill('#amount', '1/3');
    assert.equal((await rows(page, 'pieces'))[0][2], '33.33 %', 'a share is understood as an area, too');
    await page.click('#mode-share');
    for (const [text, words] of [['0.5', /part or per cent/], ['2000', /choose Area/]]) {
        await page.fill('#amount', text);
        assert.match(await textOf(page, 'mistake'), words);
    }
    await page.fill('#amount', '1/3');
    await page.evaluate(() => { window.print = () => { window.printed = document.querySelectorAll('#sheet svg').length; }; });
    await page.evaluate(() => window.dispatchEvent(new Event('beforeprint')));
    await page.click('#print-top');
    assert.equal(await page.evaluate(() => window.printed), 1);
    assert.ok((await page.textContent('#sheet')).includes(lot));
    await page.screenshot({ path: join(kPictures, 'lots.png') });
    await closed(page);
});

// The hardest data at hand, to be looked at.
test('pictures of many corners, holes, tiny pieces, long names and German', async () => {
    const ring = Array.from({ length: 200 }, (_, i) => {
        const turn = (2 * Math.PI * i) / 200;
        const radius = 100 + 20 * Math.sin(7 * turn);
        return [5000 + radius * Math.cos(turn), 5000 + 2 * radius * Math.sin(turn)];
    });
    const wkt = `POLYGON((${[...ring, ring[0]].map((p) => p.join(' ')).join(',')}),(4990 4990,5010 4990,5000 5010,4990 4990))`;
    for (const [name, size] of [['desktop', { width: 1440, height: 900 }], ['tablet', { width: 1024, height: 768 }], ['phone', { width: 390, height: 844, phone: true }]]) {
        const page = await opened({ ...size, language: 'de-AT' });
        await open(page, 'Flurst\u00fccke der Gemeinde Gro\u00dfweikersdorf an der Stra\u00dfe nach Obermallebarn.wkt', wkt);
        await page.click('[data-kind=bearing]');
        await page.click('#whole');
        await typed(page, 'list', '1/3, 2, 1/100, w');
        assert.ok(await isShown(page, 'mistake'));
        await typed(page, 'list', '1/3; 2; 1/100; 3000; 3000; 25 %');
        assert.ok(await isShown(page, 'proven'));
        await page.screenshot({ path: join(kPictures, `hard-${name}.png`), fullPage: name === 'phone' });
        if (name === 'desktop') writeFileSync(join(kPictures, 'hard.pdf'), readFileSync(await downloaded(page, '[data-save=pdf]')));
        await closed(page);
    }
});

test('pictures at three sizes, to be looked at', async () => {
    for (const [name, size] of [['desktop', { width: 1440, height: 900 }], ['tablet', { width: 1024, height: 768 }], ['phone', { width: 390, height: 844, phone: true }]]) {
        const page = await opened(size);
        await page.screenshot({ path: join(kPictures, `${name}.png`), fullPage: name === 'phone' });
        await closed(page);
    }
});
