// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The page against its floors, in one headless Chromium, alternating:
// - navigation to the first frame that shows the whole form with its texts in their faces (a
//   requestAnimationFrame after document.fonts.ready), against a static page with the same
//   controls, texts and fonts and nothing else (the page's own document once built, without its
//   program);
// - main-thread time per banner tick from the DevTools trace, the game idle, against bitmaps.html;
// - the bytes of the site, gzip -9 each file.
// Usage: node bench.mjs SITE NODE_MODULES [ROUNDS]
import {spawn} from 'node:child_process';
import {copyFileSync, mkdtempSync, readdirSync, readFileSync, rmSync, statSync, symlinkSync, writeFileSync} from 'node:fs';
import {tmpdir} from 'node:os';
import {dirname, join, resolve} from 'node:path';
import {fileURLToPath} from 'node:url';
import {gzipSync} from 'node:zlib';

const [site, modules, rounds = '10'] = process.argv.slice(2);
const puppeteer = await import(resolve(modules, 'puppeteer-core/lib/esm/puppeteer/puppeteer-core.js'));
const here = dirname(fileURLToPath(import.meta.url));
const root = mkdtempSync(join(tmpdir(), 'sanlian-bench-'));
for (const entry of readdirSync(site)) symlinkSync(resolve(site, entry), join(root, entry));
copyFileSync(join(here, 'bitmaps.html'), join(root, 'bitmaps.html'));

const server = spawn('/usr/bin/python3', ['-u', '-m', 'http.server', '0', '--bind', '127.0.0.1', '--directory', root], {stdio: ['ignore', 'pipe', 'ignore']});
const port = await new Promise(resolve => server.stdout.on('data', data => resolve(/port (\d+)/.exec(data)?.[1])));
const url = name => `http://127.0.0.1:${port}/${name}`;
const profile = mkdtempSync(join(tmpdir(), 'sanlian-bench-profile-'));
const browser = await puppeteer.launch({executablePath: '/usr/bin/chromium', headless: true, userDataDir: profile, protocolTimeout: 15000,
  args: ['--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run', '--disable-background-networking', '--disable-component-update', '--disable-sync']});
process.on('exit', () => {
  [browser.process(), server].forEach(child => child?.kill('SIGKILL'));
  for (const dir of [root, profile]) rmSync(dir, {recursive: true, force: true});
});
const sleep = ms => new Promise(resolve => setTimeout(resolve, ms));
const median = values => [...values].sort((a, b) => a - b)[Math.floor(values.length / 2)];
const summary = values => `${median(values).toFixed(2)} (${Math.min(...values).toFixed(2)}–${Math.max(...values).toFixed(2)})`;

// Once Label3 is in the document: style and layout, so that every face in use is asked for,
// then the fonts, then the next frame.
function firstFrame() {
  window.firstFrame = new Promise(resolve => {
    const ready = () => {
      document.body.offsetHeight;
      document.fonts.ready.then(() => requestAnimationFrame(() => resolve(performance.now())));
    };
    new MutationObserver((_, observer) => {
      if (document.getElementById('Label3')) {
        observer.disconnect();
        ready();
      }
    }).observe(document, {childList: true, subtree: true});
  });
}

async function load(name, viewport) {
  const page = await browser.newPage();
  await page.setViewport(viewport);
  await page.setCacheEnabled(false);
  await page.evaluateOnNewDocument(firstFrame);
  await page.goto(url(name));
  const time = await page.evaluate(() => window.firstFrame);
  return {page, time};
}

// Main-thread time per tick of the 50 ms interval over five seconds after a whole banner cycle
// (185 ticks, in which the page prepares each frame on first use): every top-level task of the
// renderer's main thread, divided by the interval's ticks.
async function tickCost(name, viewport) {
  const page = await browser.newPage();
  await page.setViewport(viewport);
  await page.goto(url(name));
  await sleep(9500);
  await page.tracing.start({categories: ['toplevel', 'devtools.timeline']});
  await sleep(5000);
  const {traceEvents} = JSON.parse(Buffer.from(await page.tracing.stop()).toString());
  await page.close();
  const main = traceEvents.find(e => e.name === 'thread_name' && e.args.name === 'CrRendererMain' &&
    traceEvents.some(t => t.pid === e.pid && t.tid === e.tid && t.name === 'TimerFire'));
  const own = traceEvents.filter(e => e.pid === main.pid && e.tid === main.tid);
  const busy = own.filter(e => e.ph === 'X' && /(^|::)RunTask$/.test(e.name)).reduce((sum, e) => sum + e.dur, 0);
  const ticks = own.filter(e => e.name === 'TimerFire').length;
  return busy / ticks / 1000;
}

// The static floor: the page's document once its form is built, without the program or any
// other script.
const {page: built} = await load('index.html', {width: 800, height: 520});
const html = (await built.content()).replace(/<script[^>]*>[^<]*<\/script>/g, '').replace(/<link rel="preload" href="sanlian.wasm"[^>]*>/, '');
writeFileSync(join(root, 'static.html'), html);
await built.close();

const results = {game: [], static: [], tick1: [], floor1: [], tick2: [], floor2: []};
const [x1, x2] = [{width: 800, height: 520, deviceScaleFactor: 1}, {width: 800, height: 520, deviceScaleFactor: 2}];
for (let round = 0; round < Number(rounds); round++) {
  for (const [key, name] of round % 2 ? [['static', 'static.html'], ['game', 'index.html']] : [['game', 'index.html'], ['static', 'static.html']]) {
    const {page, time} = await load(name, x1);
    results[key].push(time);
    await page.close();
  }
}
for (let round = 0; round < 3; round++) {
  results.tick1.push(await tickCost('index.html', x1));
  results.floor1.push(await tickCost('bitmaps.html', x1));
  results.tick2.push(await tickCost('index.html', x2));
  results.floor2.push(await tickCost('bitmaps.html', x2));
}

const loaded = ['index.html', 'page.css', 'sanlian.js', 'sanlian.wasm', 'icon.svg', 'fonts/sanlian-kai.woff2', 'fonts/sanlian-serif.woff2'];
const walk = dir => readdirSync(dir).flatMap(entry => (statSync(join(dir, entry)).isDirectory() ? walk(join(dir, entry)).map(f => join(entry, f)) : [entry]));
const gz = files => files.reduce((sum, file) => sum + gzipSync(readFileSync(join(site, file)), {level: 9}).length, 0);
const ratio = (a, b) => (median(a) / median(b)).toFixed(2);
console.log(`| Measure | Page | Floor | Page / floor |
|---|---:|---:|---:|
| Navigation to first frame, ms (${rounds} rounds) | ${summary(results.game)} | ${summary(results.static)} | ${ratio(results.game, results.static)} |
| Main-thread time a banner tick, ms, ratio 1 | ${summary(results.tick1)} | ${summary(results.floor1)} | ${ratio(results.tick1, results.floor1)} |
| Main-thread time a banner tick, ms, ratio 2 | ${summary(results.tick2)} | ${summary(results.floor2)} | ${ratio(results.tick2, results.floor2)} |

Site, gzip -9 each file: ${gz(loaded)} bytes loaded by the page (${loaded.join(', ')}); ${gz(walk(site))} bytes in all, with the licences and the source archive.`);
process.exit(0);
