// Builds dist/index.html, a single file that needs nothing else: scripts, styles, and plparcel as WebAssembly are in it.

import { createHash } from 'node:crypto';
import { mkdirSync, readFileSync, writeFileSync } from 'node:fs';
import { gzipSync } from 'node:zlib';
import { build } from 'esbuild';

// What jsPDF can use to draw web pages, which this page has not.
const nothing = './src/nothing.ts';

const { outputFiles } = await build({
    entryPoints: ['src/main.ts'], bundle: true, format: 'iife', target: 'es2022', platform: 'browser', minify: true, write: false, outdir: 'dist', charset: 'utf8',
    loader: { '.csv': 'text', '.geojson': 'text', '.wasm': 'binary' }, alias: { html2canvas: nothing, canvg: nothing, dompurify: nothing },
    define: { 'import.meta.url': '"about:blank"' }, legalComments: 'none', logLevel: 'warning',
});
const text = (ending) => outputFiles.find((file) => file.path.endsWith(ending)).text;
// Neither may end the element that it stands in.
const script = text('.js').replaceAll('</script', '<\\/script').replaceAll('<!--', '<\\!--');
const style = text('.css');
const hash = (content) => `'sha256-${createHash('sha256').update(content).digest('base64')}'`;

// Nothing may be fetched or sent. Only this script runs, in a worker too, and the WebAssembly that it brings.
const policy = [
    "default-src 'none'", `script-src ${hash(script)} 'wasm-unsafe-eval'`, 'worker-src blob:', `style-src ${hash(style)}`, 'img-src data:', "base-uri 'none'", "form-action 'none'",
].join('; ');

const page = readFileSync('src/index.html', 'utf8')
    .replace('{{policy}}', () => policy).replace('{{style}}', () => style)
    .replace('{{script}}', () => script);
mkdirSync('dist', { recursive: true });
writeFileSync('dist/index.html', page);

const compressed = gzipSync(page, { level: 9 }).length;
console.log(`dist/index.html: ${(page.length / 1e3).toFixed(0)} kB, ${(compressed / 1e3).toFixed(0)} kB compressed`);
const kMostBytes = 1.5e6;
if (compressed > kMostBytes) throw new Error(`the page is larger than ${kMostBytes} bytes compressed`);
