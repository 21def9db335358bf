// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The page in Debian's Chromium, headless, against the site served on 127.0.0.1. It plays
// whatever toss comes, and drives time through the DevTools protocol or waits for conditions.
// Usage: node page_test.mjs SITE NODE_MODULES CASE; exits 77 (skipped) without chromium or
// puppeteer-core (npm ci).
import assert from 'node:assert/strict';
import {spawn} from 'node:child_process';
import {existsSync, mkdtempSync, rmSync} from 'node:fs';
import {tmpdir} from 'node:os';
import {join, resolve} from 'node:path';
import {inflateSync} from 'node:zlib';

const [site, modules, name] = process.argv.slice(2);
const puppeteer = await import(resolve(modules, 'puppeteer-core/lib/esm/puppeteer/puppeteer-core.js')).catch(() => null);
if (!puppeteer || !existsSync('/usr/bin/chromium')) {
  console.log('skipped: needs /usr/bin/chromium and puppeteer-core');
  process.exit(77);
}

// Twips of the form's layout: left, top, width, height; cells at a pitch of 1200 from 480.
const layout = {
  Command1: [4440, 360, 1455, 615], Command2: [4440, 1560, 1455, 615], Label1: [4320, 2640, 2415, 855],
  Shape1: [4320, 2640, 2415, 855], Label2: [1560, 5040, 2415, 735], Label3: [4440, 3600, 5295, 2895],
};
for (let i = 0; i < 9; i++) layout[`Picture1-${i}`] = [480 + 1200 * (i % 3), 480 + 1200 * Math.floor(i / 3), 1095, 1095];
// Edges rounded to pixels, so controls that touch in twips touch on the screen.
const pixels = ([l, t, w, h]) => [l, t, l + w, t + h].map(v => Math.round(v / 15));
const lines = [[0, 1, 2], [3, 4, 5], [6, 7, 8], [0, 3, 6], [1, 4, 7], [2, 5, 8], [0, 4, 8], [2, 4, 6]];
const [tosses, outcomes] = [['您先', '计算机先'], ['你赢了', '你输了', '和局！']];

const server = spawn('/usr/bin/python3', ['-u', '-m', 'http.server', '0', '--bind', '127.0.0.1', '--directory', site], {stdio: ['ignore', 'pipe', 'ignore']});
const port = await new Promise(resolve => server.stdout.on('data', data => resolve(/port (\d+)/.exec(data)?.[1])));
const profile = mkdtempSync(join(tmpdir(), 'sanlian-page-'));
const browser = await puppeteer.launch({executablePath: '/usr/bin/chromium', headless: true, userDataDir: profile,
  args: ['--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run', '--disable-background-networking', '--disable-component-update', '--disable-sync']});
// However the case ends, a failed assertion in an event handler included.
process.on('exit', () => {
  [browser.process(), server].forEach(child => child?.kill('SIGKILL'));
  rmSync(profile, {recursive: true, force: true});
});

async function open(viewport = {width: 800, height: 520, deviceScaleFactor: 1}, before = () => {}) {
  const page = await browser.newPage();
  page.on('pageerror', error => assert.fail(error));
  await page.setViewport(viewport);
  await page.evaluateOnNewDocument(before);
  await page.goto(`http://127.0.0.1:${port}/`);
  await page.waitForSelector('#Command1');
  await page.evaluate(() => document.fonts.ready);
  page.cdp = await page.createCDPSession();
  return page;
}
async function until(probe, what) {
  for (const end = Date.now() + 5000; Date.now() < end; await new Promise(resolve => setTimeout(resolve, 20))) {
    const value = await probe();
    if (value) return value;
  }
  assert.fail(`no ${what} within 5 s`);
}
// Virtual time, paused and advanced by `ms`. Input events and element screenshots crash Chromium
// while it is paused; scripted clicks and page screenshots do not.
async function advance(page, ms) {
  const expired = new Promise(resolve => page.cdp.once('Emulation.virtualTimeBudgetExpired', resolve));
  await page.cdp.send('Emulation.setVirtualTimePolicy', {policy: 'advance', budget: ms});
  await expired;
}
// An element's edges in CSS pixels of the form.
const rect = (page, id) => page.$eval(`#${id}`, e => {
  const [r, form] = [e, e.closest('#Form1') ?? e].map(element => element.getBoundingClientRect());
  return [r.left - form.left, r.top - form.top, r.right - form.left, r.bottom - form.top];
});
// A canvas's backing store, its pixels "rrggbb" row by row.
const canvas = (page, id) => page.$eval(`#${id}`, c => {
  const data = c.getContext('2d').getImageData(0, 0, c.width, c.height).data;
  return {width: c.width, pixels: Array.from({length: data.length / 4}, (_, p) => ((data[4 * p] << 16) | (data[4 * p + 1] << 8) | data[4 * p + 2]).toString(16).padStart(6, '0'))};
});
// What reached the screen over an element, at device pixels, from Chromium's PNG (8-bit RGB or
// RGBA, not interlaced): the chunks' data inflated and each row's filter undone.
async function screen(page, id) {
  const {x, y, width: w, height: h} = await page.$eval(`#${id}`, e => e.getBoundingClientRect().toJSON());
  const png = await page.screenshot({clip: {x, y, width: w, height: h}}), idat = [];
  const [width, channels] = [png.readUInt32BE(16), png[25] === 6 ? 4 : 3], stride = width * channels;
  for (let at = 8; at < png.length; at += png.readUInt32BE(at) + 12)
    if (png.toString('latin1', at + 4, at + 8) === 'IDAT') idat.push(png.subarray(at + 8, at + 8 + png.readUInt32BE(at)));
  const raw = inflateSync(Buffer.concat(idat)), out = Buffer.alloc(png.readUInt32BE(20) * stride);
  for (let i = 0; i < out.length; i++) {
    const [row, x] = [Math.floor(i / stride), i % stride], [a, b] = [x < channels ? 0 : out[i - channels], row ? out[i - stride] : 0];
    const c = x < channels || !row ? 0 : out[i - stride - channels], [pa, pb, pc] = [a, b, c].map(v => Math.abs(a + b - c - v));
    out[i] = raw[i + row + 1] + [0, a, b, (a + b) >> 1, pa <= pb && pa <= pc ? a : pb <= pc ? b : c][raw[row * (stride + 1)]];
  }
  return Array.from({length: out.length / channels}, (_, p) => out.toString('hex', p * channels, p * channels + 3));
}
// The accessibility tree: its nodes, the cells that show, and what the status region says.
async function tree(page) {
  const walk = node => [node, ...(node.children ?? []).flatMap(walk)], nodes = walk(await page.accessibility.snapshot());
  const cells = nodes.filter(n => n.role === 'button' && /^第\d行第\d列，/.test(n.name));
  return {nodes, cells, status: nodes.find(n => n.role === 'status')?.children?.[0]?.name ?? ''};
}
// The fonts that drew an element's text.
async function fonts(page, id) {
  await Promise.all(['DOM.enable', 'CSS.enable'].map(method => page.cdp.send(method)));
  const {nodeId} = await page.cdp.send('DOM.querySelector', {nodeId: (await page.cdp.send('DOM.getDocument')).root.nodeId, selector: `#${id}`});
  return (await page.cdp.send('CSS.getPlatformFontsForNode', {nodeId})).fonts.map(f => f.familyName).join();
}

// Plays games, pressing Start by `press` and clicking the open cell that `choose` picks by
// `click`, until one ends in a line, reading the tree alone. Each game must end with the caption
// its board calls for, told once in the status region, the board closed; a line blinks.
async function play(page, press, choose, click) {
  for (let game = 0; game < 5; game++) {
    await press('开始');
    const toss = await until(() => tree(page).then(now => tosses.find(t => t === now.status)), 'toss');
    const turn = () => tree(page).then(now => (outcomes.includes(now.status) || now.cells.some(n => !n.disabled)) && now);
    let state;
    while (!outcomes.includes((state = await until(turn, 'a turn')).status)) await click(choose(state.cells.filter(n => !n.disabled)).name);
    const marks = state.cells.map(n => n.name.at(-1)), human = toss === '您先' ? '圆' : '叉';
    const line = lines.find(([a, b, c]) => marks[a] !== '空' && marks[a] === marks[b] && marks[b] === marks[c]);
    assert.equal(state.status, !line ? '和局！' : marks[line[0]] === human ? '你赢了' : '你输了', marks.join(''));
    assert.equal(state.nodes.filter(n => n.name === state.status).length, 2, 'Label2 and the status region');
    assert.ok(state.cells.every(n => n.disabled), 'the board closes');
    if (!line) continue;
    const shown = async () => (await tree(page)).cells.map(n => n.name);
    const rest = state.cells.filter((_, i) => !line.includes(i)).map(n => n.name);
    assert.deepEqual(await until(async () => (await shown()).length === 6 && shown(), 'blink'), rest);
    await until(async () => (await shown()).length === 9, 'the line back');
    return marks;
  }
  assert.fail('five games without a line');
}

const cases = {
  // Every control at its place and size in whole pixels, in its face and size; the empty frame;
  // the focus in the order of TabIndex.
  async layout() {
    const page = await open();
    assert.deepEqual([await page.title(), await page.$eval('html', e => e.lang)], ['三连棋局', 'zh-CN']);
    assert.deepEqual(await page.$eval('#Form1', e => Object.values(e.getBoundingClientRect().toJSON()).slice(0, 4)), [72, 35, 656, 450]);
    for (const [id, twips] of Object.entries(layout)) assert.deepEqual(await rect(page, id), pixels(twips), id);
    for (const id of ['Command1', 'Command2', 'Label3']) assert.equal(await fonts(page, id), 'Sanlian Kai', id);
    const sizes = {Command1: ['29px', '700'], Label3: ['21px', '700'], Label1: ['35px', '400'], Label2: ['35px', '400']};
    for (const [id, size] of Object.entries(sizes)) assert.deepEqual(await page.$eval(`#${id}`, e => [getComputedStyle(e).fontSize, getComputedStyle(e).fontWeight]), size, id);
    assert.deepEqual(await page.evaluate(() => [...document.fonts].map(f => `${f.family} ${f.weight}`).sort()), ['Sanlian Kai 700', 'Sanlian Serif 400']);
    const frame = await screen(page, 'Shape1');
    assert.deepEqual([await page.$eval('#Label1', e => e.textContent), frame[80], frame[28 * 161 + 80]], ['', '000000', 'ffffff'], 'outline, empty ground');
    const order = [];
    for (let i = 0; i < 11; i++) order.push(await page.keyboard.press('Tab').then(() => page.evaluate(() => document.activeElement.id)));
    assert.deepEqual(order, Object.keys(layout).slice(6).concat('Command2', 'Command1'));
  },

  // Start by Enter, whereupon the disabled button hands the focus on; no key plays a cell; then
  // games by mouse, with the marks drawn and the captions in their face.
  async mouse() {
    const page = await open();
    await page.focus('#Command1');
    await page.keyboard.press('Enter');
    assert.equal(await page.evaluate(() => document.activeElement.id), 'Picture1-0');
    const cells = now => now.cells.map(n => `${n.name} ${n.disabled}`);
    const before = await until(() => tree(page).then(now => now.cells.some(n => !n.disabled) && cells(now)), 'a turn');
    for (const key of ['Space', 'Enter']) await page.keyboard.press(key);
    assert.deepEqual(cells(await tree(page)), before);
    const click = name => page.click(`::-p-aria([name="${name}"][role="button"])`);
    for (const [i, mark] of (await play(page, click, open => open[0], click)).entries()) {
      const at = (await canvas(page, `Picture1-${i}`)).pixels, centre = at[36 * 73 + 36], top = at[9 * 73 + 36];
      assert.deepEqual([centre === '000000', top === 'ffffff'], [mark === '叉', mark === '圆'], `${mark} at ${i}`);
    }
    for (const id of ['Label1', 'Label2']) assert.equal(await fonts(page, id), 'Sanlian Serif', id);
  },

  // A game through the accessibility tree alone: elements found by name, activated by a click
  // as a screen reader activates them.
  async accessibility() {
    const page = await open();
    const activate = async name => (await page.$(`::-p-aria([name="${name}"][role="button"])`)).evaluate(e => e.click());
    await play(page, activate, open => open.at(-1), activate);
  },

  // Image2 shows frames 0 to 92 and back, one a tick, each at its size with Left and Top fixed,
  // in two colours, its ink growing with the frames.
  async banner() {
    const page = await open();
    await page.cdp.send('Emulation.setVirtualTimePolicy', {policy: 'pause'});
    const seen = [], ink = [];
    for (let tick = 0; tick < 190; tick++) {
      await advance(page, 50);
      const edges = JSON.stringify(await rect(page, 'Image2')), drawn = (await canvas(page, 'Image2')).pixels;
      const frame = [...Array(93).keys()].find(f => JSON.stringify(pixels([6000, 120, f * 22 + 1600, f * 10 + 700])) === edges);
      assert.ok(frame !== undefined && drawn.every(p => p === 'c0c0c0' || p === '000000'), `Image2 at ${edges}, in two colours`);
      seen.push(frame);
      ink[frame] = drawn.filter(p => p === '000000').length;
    }
    const cycle = [...Array(185).keys()].map(k => (k < 93 ? k : 184 - k));
    const start = cycle.findIndex((f, k) => f === seen[0] && cycle[(k + 1) % 185] === seen[1]);
    assert.deepEqual(seen, seen.map((_, k) => cycle[(start + k) % 185]));
    // Enlarged or reduced, a frame's ink varies a little with its size; ten frames later it is more.
    assert.ok(ink[0] === 0 && ink.every((count, f) => f < 10 || count > ink[f - 10]), ink.join());
  },

  // At a device pixel ratio of 2 every canvas is drawn at device pixels and shown as drawn; the
  // banner in its two colours, drawn finer than its frames enlarged.
  async sharp() {
    const page = await open({width: 800, height: 520, deviceScaleFactor: 2});
    await page.click('#Command1');
    await (await until(() => page.$('canvas[aria-disabled="false"]'), 'a turn')).click();
    await page.cdp.send('Emulation.setVirtualTimePolicy', {policy: 'pause'});
    while ((await rect(page, 'Image2'))[2] < 640) await advance(page, 50);
    for (const id of Object.keys(layout).slice(6).concat('Image2')) {
      const [drawn, shown, [l, t, r, b]] = [await canvas(page, id), await screen(page, id), await rect(page, id)];
      assert.deepEqual([drawn.width, drawn.pixels.length], [2 * (r - l), 4 * (r - l) * (b - t)], id);
      assert.ok(shown.every((p, i) => p === drawn.pixels[i]), `${id} shown as drawn`);
    }
    const {width, pixels: banner} = await canvas(page, 'Image2');
    assert.deepEqual([...new Set(banner)].sort(), ['000000', 'c0c0c0']);
    // Enlarged, the 52 rows of the frame's lettering would change at most 53 times down a column.
    const rows = Array.from({length: banner.length / width}, (_, y) => banner.slice(y * width, (y + 1) * width).join());
    assert.ok(rows.filter((row, y) => y && row !== rows[y - 1]).length > 53);
  },

  // On a phone narrower than the form the form scales down whole, its canvases drawn for the
  // device pixels they now cover, and a tap is a click. Exit, pressed by Space in the middle of a
  // toss: the timers stop and the page empties but for its title; a reload starts it again.
  async exit() {
    const page = await open({width: 360, height: 640, deviceScaleFactor: 2, isMobile: true, hasTouch: true}, () => {
      const [live, set, clear] = [(window.live = new Set()), setInterval, clearInterval];
      window.setInterval = (...args) => live.add(set(...args)) && [...live].at(-1);
      window.clearInterval = id => live.delete(id) && clear(id);
    });
    // A viewport a pixel wide for a frame, as while a screenshot is taken, raises no error.
    await page.setViewport({width: 1, height: 640}).then(() => page.evaluate(() => new Promise(requestAnimationFrame)));
    await page.setViewport({width: 360, height: 640, deviceScaleFactor: 2, isMobile: true, hasTouch: true});
    const box = await page.$eval('#Form1', e => e.getBoundingClientRect().toJSON());
    assert.ok(Math.abs(box.width - 360) + Math.abs(box.height - (450 * 360) / 656) < 0.01, JSON.stringify(box));
    assert.equal(await page.$eval('#Picture1-4', c => c.width), Math.round((73 * 2 * 360) / 656));
    await page.tap('#Command1');
    assert.equal(await page.evaluate(() => window.live.size), 2, 'the banner and the toss');
    await page.focus('#Command2');
    await page.keyboard.press('Space');
    assert.deepEqual(await page.evaluate(() => [document.title, document.body.children.length, window.live.size]), ['三连棋局', 0, 0]);
    await page.reload().then(() => page.waitForSelector('#Command1'));
  },
};

await cases[name]();
console.log(`${name}: passed`);
process.exit(0);
