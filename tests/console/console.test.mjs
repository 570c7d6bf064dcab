// The console of korvel-service as a person uses it: in a real browser, against the real program.

import assert from 'node:assert/strict';
import {spawn} from 'node:child_process';
import {readFileSync} from 'node:fs';
import {after, afterEach, before, beforeEach, test} from 'node:test';
import {chromium} from 'playwright-core';

const {KORVEL_SERVICE: program, KORVEL_SAMPLES: samples, CHROMIUM: browserProgram} = process.env;
const card = '2900000000017';
const longestWait = 10_000;

let browser;
let page;
let service;
let url;
let complaints;

const sample = (name) => readFileSync(`${samples}/${name}.xml`, 'utf8');
const post = (path, body) => fetch(url + path, {method: 'POST', body});
const send = async (name, change = (text) => text) => (await post('', change(sample(name)))).text();
const order = async (words) => assert.equal((await post('api/faults', words)).status, 200);
const rows = () => page.locator('#exchange-rows tr[data-exchange]');
const fault = (name) => page.locator('#faults').getByRole('checkbox', {name});

/** A request on its own connection, as a till sends it; the status, or null without an answer. */
async function till(name) {
  try {
    const reply = await fetch(url, {method: 'POST', body: sample(name), headers: {Connection: 'close'}});
    await reply.text();
    return reply.status;
  } catch {
    return null;
  }
}

async function startService() {
  service = spawn(program, [], {stdio: ['ignore', 'pipe', 'inherit']});
  for await (const line of service.stdout) {
    url = line.toString().trim().replace('listening on ', '');
    return;
  }
}

async function openPage() {
  page = await browser.newPage();
  page.setDefaultTimeout(longestWait);
  complaints = [];
  page.on('console', (message) => complaints.push(message.text()));
  page.on('pageerror', (error) => complaints.push(error.message));
  await page.goto(`${url}console`);
  await page.locator('#state.live').waitFor();
}

before(async () => {
  const isRoot = process.getuid() === 0;
  browser = await chromium.launch({executablePath: browserProgram, args: isRoot ? ['--no-sandbox'] : []});
});
after(() => browser.close());
beforeEach(async () => {
  await startService();
  await openPage();
});
afterEach(async () => {
  await page.close();
  service.kill();
  assert.deepEqual(complaints, [], 'the browser complained');
});

test('an exchange appears as it comes, with what the books did', async () => {
  await page.getByText('Nothing has been asked yet').waitFor();
  for (const name of ['sale-soft-request', 'sale-points-request', 'sale-fiscal-request']) await send(name);
  await rows().nth(2).waitFor();
  assert.match(await rows().nth(0).innerText(), /fiscal\s+2900000000017\s+1\s+17\s+0\s/);
  assert.match(await rows().nth(0).innerText(), /registered 0000000001; spent -100.00 points, now 400.00/);
  assert.match(await rows().nth(2).innerText(), /soft.*–/s);
  assert.match(await page.locator('#chart-text').innerText(), /^3 requests, 0 of them/);
  assert.equal(await page.locator('#chart circle').count(), 3);
  assert.equal(await page.getByText('Nothing has been asked yet').isVisible(), false);
});

test('request and answer can be read, indented', async () => {
  await send('balance-request', (text) => text.replace(/>\s+</g, '><'));
  await rows().getByRole('button').click();
  const texts = page.locator('.pair pre');
  assert.match(await texts.nth(0).innerText(), /\n {6,}<CardNumber>2900000000017<\/CardNumber>\n/);
  assert.match(await texts.nth(1).innerText(), /\n {6,}<ReturnCode>0<\/ReturnCode>\n/);
  await rows().getByRole('button').click();
  assert.equal(await texts.count(), 0);
});

test('an open exchange stays open, and keeps the focus, when others come', async () => {
  await send('balance-request');
  await rows().getByRole('button').click();
  await send('balance-request');
  await rows().nth(1).waitFor();
  assert.equal(await page.locator('.pair pre').count(), 2);
  assert.equal(await rows().nth(1).getByRole('button').evaluate((button) => button === document.activeElement), true);
});

test('what comes from a request is text and never markup', async () => {
  const attack = '<img src=x onerror=document.title="taken">';
  const escaped = attack.replaceAll('<', '&lt;').replaceAll('"', '&quot;');
  await send('balance-request', (text) => text.replace(`>${card}<`, `>${escaped}<`));
  await post('', `<script>document.title="taken"</script>${attack}`);
  await rows().nth(1).waitFor();
  assert.match(await rows().nth(1).innerText(), /<img src=x/);
  await rows().nth(0).getByRole('button').click();
  await rows().nth(1).getByRole('button').click();
  assert.match(await page.locator('.pair pre').first().innerText(), /<script>/);
  assert.equal(await page.locator('main img, main script').count(), 0);
  assert.equal(await page.title(), 'korvel-service');
});

test('exchanges can be looked for, and held still', async () => {
  await send('balance-request');
  await send('sale-soft-request');
  await rows().nth(1).waitFor();
  await page.getByLabel('Show only').fill('soft 17');
  assert.equal(await rows().count(), 1);
  await page.getByLabel('Show only').fill('');
  await page.getByRole('button', {name: 'Hold still'}).click();
  await send('balance-request');
  await page.getByText('3 requests').waitFor();
  assert.equal(await rows().count(), 2);
  await page.getByRole('button', {name: 'Hold still'}).click();
  assert.equal(await rows().count(), 3);
});

test('a fault is ordered, switched off and on, and removed', async () => {
  await page.getByLabel('Who').selectOption('balance');
  await page.getByLabel('What').selectOption('status');
  await page.getByLabel('HTTP status').fill('418');
  await page.getByLabel('How often').selectOption('always');
  await page.getByRole('button', {name: 'Order'}).click();
  await fault('balance status 418 always').waitFor();
  assert.equal(await till('balance-request'), 418);
  await fault('balance status 418 always').uncheck();
  await page.waitForFunction(async () => !(await (await fetch('/api/faults')).json())[0].on);
  assert.equal(await till('balance-request'), 200);
  await fault('balance status 418 always').check();
  await page.waitForFunction(async () => (await (await fetch('/api/faults')).json())[0].on);
  assert.equal(await till('balance-request'), 418);
  await page.getByRole('button', {name: 'Remove balance status 418 always'}).click();
  await page.getByText('None is ordered').waitFor();
  assert.equal(await till('balance-request'), 200);
});

test('a fault by chance, and a wrong one that is explained', async () => {
  await page.getByLabel('What').selectOption('lose');
  await page.getByLabel('How often').selectOption('chance');
  await page.getByLabel('Number', {exact: true}).fill('12.5');
  await page.getByRole('button', {name: 'Order'}).click();
  await fault('all lose 12.5% seed 1').waitFor();
  await page.getByLabel('Number', {exact: true}).fill('250');
  await page.getByRole('button', {name: 'Order'}).click();
  await page.getByText('"250%": expected a chance from 0.001% to 100%').waitFor();
  complaints = complaints.filter((text) => !text.includes('400 (Bad Request)'));
  await page.getByRole('button', {name: 'Remove all', exact: true}).click();
  await page.getByText('None is ordered').waitFor();
});

test('the page does not take the refusals that are meant for a till', async () => {
  await page.getByLabel('Who').selectOption('next connections');
  await page.getByLabel('What').selectOption('refuse');
  await page.getByLabel('Number', {exact: true}).fill('2');
  await page.getByRole('button', {name: 'Order'}).click();
  await fault('refuse 2').waitFor();
  assert.equal(await till('balance-request'), null);
  await fault('refuse 1').waitFor();
  assert.equal(await till('balance-request'), null);
  assert.equal(await till('balance-request'), 200);
  await rows().first().waitFor();
});

test('a verification code can be read until it was used', async () => {
  await send('sale-soft-request');
  await send('sale-points-request');
  await page.getByText('card 2900000000017, till 1, cheque 17').waitFor();
  assert.equal(await page.locator('#codes strong').innerText(), '4829');
  await send('sale-fiscal-request');
  await page.getByText('None is waiting.').waitFor();
});

test('a card shows its ledger, which grows', async () => {
  await page.getByRole('button', {name: card}).click();
  const ledger = page.getByRole('table', {name: `Ledger of ${card}`});
  await ledger.waitFor();
  assert.equal(await ledger.locator('tbody tr').count(), 1);
  for (const name of ['sale-soft-request', 'sale-points-request', 'sale-fiscal-request']) await send(name);
  await ledger.getByText('spent, points, 0000000001').waitFor();
  assert.equal(await ledger.locator('tbody tr').count(), 4);
  assert.match(await page.locator(`[data-card="${card}"]`).innerText(), /432[.,]11/);
});

test('reset asks first and then starts afresh', async () => {
  await send('balance-request');
  await order('soft lose');
  await rows().first().waitFor();
  await page.getByRole('button', {name: 'Reset…'}).click();
  await page.getByRole('button', {name: 'Keep everything'}).click();
  assert.equal(await rows().count(), 1);
  await page.getByRole('button', {name: 'Reset…'}).click();
  await page.getByRole('button', {name: 'Reset', exact: true}).click();
  await page.getByText('Nothing has been asked yet').waitFor();
  await page.getByText('None is ordered').waitFor();
});

test('the books are checked on demand', async () => {
  await page.getByRole('button', {name: 'Check the books'}).click();
  await page.getByText(/^The books add up: 5 cards/).waitFor();
});

test('everything can be done with the keyboard', async () => {
  await send('balance-request');
  await rows().first().waitFor();
  await page.keyboard.press('Tab');
  await page.keyboard.press('Enter');
  const isAtExchange = () => page.evaluate(() => document.activeElement.closest('[data-exchange]') !== null);
  let presses = 0;
  while (!await isAtExchange()) {
    await page.keyboard.press('Tab');
    assert.ok(++presses < 20, 'the first exchange is not reached');
  }
  await page.keyboard.press('Enter');
  await page.locator('.pair pre').first().waitFor();
});

test('every control has a name for a screen reader', async () => {
  await order('soft lose');
  await fault('soft lose 1').waitFor();
  await page.getByLabel('What').selectOption('delay');
  const nameless = await page.evaluate(() => [...document.querySelectorAll('button, input, select')]
    .filter((control) => !control.textContent.trim() && !control.getAttribute('aria-label') && !control.labels?.[0]?.textContent.trim())
    .map((control) => control.outerHTML));
  assert.deepEqual(nameless, []);
});

test('the page fits a small screen', async () => {
  await send('sale-soft-request');
  await rows().first().waitFor();
  await page.setViewportSize({width: 400, height: 800});
  assert.ok(await page.evaluate(() => document.documentElement.scrollWidth <= innerWidth), 'the page is wider than the screen');
});

test('the page says when the service has gone', async () => {
  const gone = new Promise((resolve) => service.once('exit', resolve));
  service.kill();
  await gone;
  await page.locator('#state.lost').waitFor();
  complaints = complaints.filter((text) => !text.includes('net::ERR_'));
});

test('a script that was smuggled in does not run', async () => {
  await page.evaluate(() => {
    const script = document.createElement('script');
    script.textContent = 'document.title = "taken"';
    document.body.append(script);
  });
  assert.equal(await page.title(), 'korvel-service');
  assert.match(complaints.join('\n'), /Content Security Policy/);
  complaints = [];
});

test('a change without the page\'s token is refused', async () => {
  const status = await page.evaluate(async () => (await fetch('/api/reset', {method: 'POST', body: ''})).status);
  assert.equal(status, 403);
  complaints = complaints.filter((text) => !text.includes('403 (Forbidden)'));
});
