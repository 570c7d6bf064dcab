'use strict';

// Everything that came over the wire is put into the page as text, never as markup.

const rowsKept = 500;
const secondsShown = 120;
const token = document.querySelector('meta[name=token]').content;
const byId = (id) => document.getElementById(id);

/** Faults as the service knows them, with what their number is; [least, usual, greatest]. */
const requestFaults = {
  delay: ['milliseconds', 0, 2000, 600000], drip: ['milliseconds', 0, 5000, 600000],
  half: null, lose: null, swallow: null, reset: null, empty: null, 'not-xml': null, 'wrong-xml': null, huge: null,
  status: ['HTTP status', 100, 503, 599], redirect: ['HTTP status', 300, 307, 399],
  code: ['return code', -999999, 80001, 999999], unauthorised: null,
};
const connectionFaults = {refuse: null, silence: null, stall: ['milliseconds', 0, 2000, 600000]};
const meanings = {
  delay: 'Acts, then waits before answering.', drip: 'Acts; the answer takes this long from its first byte to its last.',
  half: 'Acts, then cuts the answer in the middle.', lose: 'Acts, and the answer is lost.',
  swallow: 'Does not act, and there is no answer.', reset: 'Does not act; the connection is reset.',
  empty: 'Does not act; the answer is empty.', 'not-xml': 'Does not act; the answer is no XML.',
  'wrong-xml': 'Does not act; the answer is XML of another kind.', huge: 'Does not act; eight megabytes of XML come.',
  status: 'Does not act; answers this status.', redirect: 'Does not act; sends the till elsewhere.',
  code: 'Does not act; answers this return code.', unauthorised: 'Does not act; answers 401.',
  refuse: 'Closes the connection unread. This page counts as one, too.',
  silence: 'Keeps the connection open and never answers.', stall: 'Waits before it reads the request.',
};

let exchanges = [];
let isHeld = false;
const openExchanges = new Map();
const openCards = new Set();

/** An element with attributes and children; texts become text nodes. */
function element(name, attributes = {}, ...children) {
  const made = document.createElement(name);
  for (const [key, value] of Object.entries(attributes)) {
    if (typeof value === 'function') made.addEventListener(key, value);
    else if (value !== false && value !== null) made.setAttribute(key, value === true ? '' : value);
  }
  made.append(...children.filter((child) => child !== null));
  return made;
}

function drawing(name, attributes, text) {
  const made = document.createElementNS('http://www.w3.org/2000/svg', name);
  for (const [key, value] of Object.entries(attributes)) made.setAttribute(key, value);
  if (text !== undefined) made.textContent = text;
  return made;
}

function tell(text, isGood = false) {
  byId('notice').textContent = text;
  byId('notice').className = isGood ? 'fine' : '';
  byId('notice').hidden = !text;
}

/** Asks the API; a failure is told on the page and gives null. */
async function ask(path, options = {}) {
  try {
    const reply = await fetch(`/api/${path}`, {...options, headers: {'X-Korvel-Token': token}, cache: 'no-store'});
    const text = await reply.text();
    if (!reply.ok) throw new Error(text.trim());
    tell('');
    return text;
  } catch (error) {
    const isUnreached = error instanceof TypeError;
    tell(isUnreached ? 'The service did not answer this page; a fault may have struck it. Try again.' : error.message);
    return null;
  }
}

async function askJson(path) {
  const text = await ask(path);
  return text === null ? null : JSON.parse(text);
}

const change = (path, body = '') => ask(path, {method: 'POST', body});

// --- Exchanges ---

const points = (amount) => amount.toLocaleString(undefined, {minimumFractionDigits: 2, maximumFractionDigits: 2});
const amountOf = (entry, value) => (entry.account === 'stickers' ? String(value) : points(value));
const signed = (entry) => (entry.amount > 0 ? '+' : '') + amountOf(entry, entry.amount);
const accounts = {active: 'points', status: 'status points', stickers: 'stickers'};

function booksText(books) {
  const moved = books.entries.map((entry) =>
    `${entry.kind} ${signed(entry)} ${accounts[entry.account] ?? entry.account}, now ${amountOf(entry, entry.balance)}`);
  if (books.transaction) moved.unshift(`registered ${books.transaction}`);
  return moved.join('; ') || '–';
}

function codeCell(exchange) {
  if (exchange.code === null)
    return element('td', {class: exchange.status === 200 ? 'odd' : 'bad'}, `HTTP ${exchange.status}`);
  return element('td', {class: exchange.code > 0 ? 'bad' : 'good'}, String(exchange.code));
}

function messageBox(title, text) {
  const copy = element('button', {type: 'button', click: () => navigator.clipboard?.writeText(text)}, 'Copy');
  return element('div', {}, element('h3', {}, `${title} `, copy),
    element('pre', {tabindex: '0', 'aria-label': title}, text || '(nothing)'));
}

async function toggleExchange(id) {
  if (openExchanges.has(id)) {
    openExchanges.delete(id);
  } else {
    const exchange = await askJson(`exchanges/${id}?pretty=1`);
    if (exchange === null) return;
    openExchanges.set(id, exchange);
  }
  showExchanges();
  document.querySelector(`[data-exchange="${id}"] button`)?.focus();
}

function exchangeRows(exchange) {
  const time = new Date(exchange.at).toLocaleTimeString(undefined, {hour12: false}) + '.' +
    exchange.at.slice(-4, -1);
  const full = openExchanges.get(exchange.id);
  const button = element('button', {type: 'button', class: 'link', 'aria-expanded': String(Boolean(full)),
    click: () => toggleExchange(exchange.id)}, time);
  const row = element('tr', {'data-exchange': exchange.id, class: full ? 'open' : null},
    element('td', {}, button), element('td', {}, exchange.operation ?? 'unreadable'), element('td', {}, exchange.card),
    element('td', {}, exchange.pos), element('td', {}, exchange.number), codeCell(exchange),
    element('td', {class: 'number'}, exchange.milliseconds.toFixed(1)),
    element('td', {class: 'books'}, booksText(exchange.books)), element('td', {class: 'odd'}, exchange.fault ?? ''));
  if (!full) return [row];
  const detail = element('td', {colspan: 9},
    element('div', {class: 'pair'}, messageBox('Request', full.request), messageBox('Answer', full.answer)));
  return [row, element('tr', {class: 'detail'}, detail)];
}

function isWanted(exchange, words) {
  const text = [exchange.card, exchange.number, exchange.pos, exchange.operation ?? 'unreadable', exchange.code ?? '',
    exchange.fault ?? ''].join(' ').toLowerCase();
  return words.every((word) => text.includes(word));
}

// A row that stands already stays: the focus and a selection in it are a reader's.
function showExchanges() {
  const words = byId('filter').value.toLowerCase().split(/\s+/).filter(Boolean);
  const rows = byId('exchange-rows');
  const known = new Map([...rows.children].filter((row) => row.dataset.exchange).map((row) => [Number(row.dataset.exchange), row]));
  const wanted = [];
  for (const exchange of exchanges.filter((candidate) => isWanted(candidate, words)).reverse()) {
    const row = known.get(exchange.id);
    const isOpen = openExchanges.has(exchange.id);
    if (row && row.classList.contains('open') === isOpen)
      wanted.push(row, ...(isOpen ? [row.nextSibling] : []));
    else
      wanted.push(...exchangeRows(exchange));
  }
  const focused = document.activeElement;
  rows.replaceChildren(...wanted);
  if (rows.contains(focused)) focused.focus({preventScroll: true});
  byId('no-exchanges').hidden = exchanges.length > 0;
}

// --- Chart ---

function perSecond(now) {
  const seconds = Array.from({length: secondsShown}, () => ({good: 0, bad: 0}));
  const recent = exchanges.filter((exchange) => now - Date.parse(exchange.at) < secondsShown * 1000);
  for (const exchange of recent) {
    const at = secondsShown - 1 - Math.floor(Math.max(0, now - Date.parse(exchange.at)) / 1000);
    seconds[at][exchange.code !== null && exchange.code <= 0 && !exchange.fault ? 'good' : 'bad'] += 1;
  }
  return {seconds, recent};
}

function showChart() {
  const [width, height, top] = [byId('chart').clientWidth, 150, 14];
  byId('chart').setAttribute('viewBox', `0 0 ${width} 170`);
  const now = Date.now();
  const {seconds, recent} = perSecond(now);
  const most = Math.max(1, ...seconds.map((second) => second.good + second.bad));
  const longest = Math.max(1, ...recent.map((exchange) => exchange.milliseconds));
  const step = width / secondsShown;
  const drawn = [drawing('line', {class: 'axis', x1: 0, x2: width, y1: height, y2: height})];
  seconds.forEach((second, at) => {
    const bad = second.bad / most * (height - top);
    const good = second.good / most * (height - top);
    if (good) drawn.push(drawing('rect', {class: 'good', x: at * step + 1, width: step - 2, y: height - good, height: good}));
    if (bad) drawn.push(drawing('rect', {class: 'bad', x: at * step + 1, width: step - 2, y: height - good - bad, height: bad}));
  });
  for (const exchange of recent)
    drawn.push(drawing('circle', {class: 'time', r: 2.5, cx: width - (now - Date.parse(exchange.at)) / 1000 * step,
      cy: height - exchange.milliseconds / longest * (height - top)}));
  for (let ago = 30; ago < secondsShown; ago += 30)
    drawn.push(drawing('text', {x: width - ago * step, y: height + 15, 'text-anchor': 'middle'}, `${ago} s ago`));
  byId('chart').replaceChildren(...drawn);
  const failed = seconds.reduce((sum, second) => sum + second.bad, 0);
  byId('chart-text').textContent = recent.length === 0 ? 'None.'
    : `${recent.length} requests, ${failed} of them refused or faulty (red); at most ${most} in a second (bars); ` +
      `the slowest took ${longest.toFixed(1)} ms (dots).`;
}

// --- Codes, faults and cards ---

function showCodes(codes) {
  byId('codes').replaceChildren(...codes.map((code) =>
    element('li', {}, element('strong', {}, code.code), element('span', {}, `card ${code.card}, till ${code.pos}, cheque ${code.cheque}`))));
  byId('no-codes').hidden = codes.length > 0;
}

function faultItem(fault) {
  const box = element('input', {type: 'checkbox', id: `fault-${fault.id}`, checked: fault.on,
    change: () => change(`faults/${fault.id}`, box.checked ? 'on' : 'off')});
  const remove = element('button', {type: 'button', 'aria-label': `Remove ${fault.words}`,
    click: () => ask(`faults/${fault.id}`, {method: 'DELETE'})}, '✕');
  return element('li', {}, box, element('label', {for: box.id}, fault.words), remove);
}

function showFaults(faults) {
  const focused = document.activeElement?.id;
  byId('faults').replaceChildren(...faults.map(faultItem));
  if (focused?.startsWith('fault-')) byId(focused)?.focus();
  byId('no-faults').hidden = faults.length > 0;
  byId('clear-faults').hidden = faults.length === 0;
}

function showFaultForm() {
  const isConnection = byId('fault-who').value === '';
  const kinds = isConnection ? connectionFaults : requestFaults;
  const what = byId('fault-what');
  if (!(what.value in kinds) || what.options.length !== Object.keys(kinds).length)
    what.replaceChildren(...Object.keys(kinds).map((kind) => element('option', {}, kind)));
  const number = kinds[what.value];
  byId('fault-number-label').hidden = !number;
  if (number) {
    const input = byId('fault-number');
    [input.min, input.max] = [number[1], number[3]];
    if (input.dataset.of !== what.value) input.value = number[2];
    input.dataset.of = what.value;
    input.setAttribute('aria-label', number[0]);
  }
  if (isConnection) byId('fault-often').value = 'count';
  byId('fault-often').disabled = isConnection;
  byId('fault-times-label').hidden = byId('fault-often').value === 'always';
  byId('fault-note').textContent = meanings[what.value];
}

function faultWords() {
  const often = byId('fault-often').value;
  const times = byId('fault-times').value;
  const hasNumber = !byId('fault-number-label').hidden;
  return [byId('fault-who').value, byId('fault-what').value, hasNumber ? byId('fault-number').value : '',
    often === 'always' ? 'always' : times + (often === 'chance' ? '%' : '')].filter(Boolean).join(' ');
}

function ledgerTable(card) {
  const rows = [...card.ledger].reverse().map((entry) => element('tr', {},
    element('td', {}, new Date(entry.at).toLocaleString(undefined, {dateStyle: 'short', timeStyle: 'medium'})),
    element('td', {}, [entry.kind, accounts[entry.account] ?? entry.account, entry.transaction].filter(Boolean).join(', ')),
    element('td', {class: 'number'}, signed(entry)), element('td', {class: 'number'}, amountOf(entry, entry.balance))));
  const head = (title, kind) => element('th', {scope: 'col', class: kind}, title);
  return element('table', {class: 'ledger'}, element('caption', {}, `Ledger of ${card.number}, newest first`),
    element('thead', {}, element('tr', {}, head('Time', null), head('Entry', null), head('Moved', 'number'), head('Balance', 'number'))),
    element('tbody', {}, ...rows));
}

async function toggleCard(number) {
  if (!openCards.delete(number)) openCards.add(number);
  await showCards();
  document.querySelector(`[data-card="${CSS.escape(number)}"] button`)?.focus();
}

async function cardRows(card) {
  const isOpen = openCards.has(card.number);
  const button = element('button', {type: 'button', class: 'link', 'aria-expanded': String(isOpen),
    click: () => toggleCard(card.number)}, card.number);
  const row = element('tr', {'data-card': card.number}, element('td', {}, button), element('td', {class: 'wraps'}, card.holder || card.type),
    element('td', {class: 'number'}, points(card.balance)), element('td', {class: 'number'}, String(card.stickers)));
  const full = isOpen ? await askJson(`cards/${encodeURIComponent(card.number)}`) : null;
  return full ? [row, element('tr', {class: 'detail'}, element('td', {colspan: 4}, ledgerTable(full)))] : [row];
}

async function showCards() {
  const cards = await askJson('cards');
  if (cards === null) return;
  const rows = [];
  for (const card of cards) rows.push(...await cardRows(card));
  const focused = document.activeElement?.closest?.('[data-card]')?.dataset.card;
  byId('card-rows').replaceChildren(...rows);
  if (focused) document.querySelector(`[data-card="${CSS.escape(focused)}"] button`)?.focus();
}

// --- What is new ---

function takeIn(news) {
  if (news.reset) {
    exchanges = [];
    openExchanges.clear();
  }
  showFaults(news.faults);
  if (news.codes) showCodes(news.codes);
  const come = news.exchanges ?? [];
  exchanges = [...exchanges, ...come].slice(-rowsKept);
  const kept = new Set(exchanges.map((exchange) => exchange.id));
  for (const id of openExchanges.keys()) if (!kept.has(id)) openExchanges.delete(id);
  if (!isHeld) showExchanges();
  showChart();
  if (news.reset || come.some((exchange) => exchange.books.transaction || exchange.books.entries.length)) showCards();
}

function listen() {
  const source = new EventSource('/api/events');
  const state = byId('state');
  source.onopen = () => { state.className = 'live'; state.textContent = `live at ${location.host}`; };
  source.onmessage = (message) => takeIn(JSON.parse(message.data));
  source.onerror = () => { state.className = 'lost'; state.textContent = 'the service does not answer; trying again'; };
}

byId('filter').addEventListener('input', showExchanges);
byId('pause').addEventListener('click', (event) => {
  isHeld = !isHeld;
  event.currentTarget.setAttribute('aria-pressed', String(isHeld));
  if (!isHeld) showExchanges();
});
byId('fault-form').addEventListener('input', showFaultForm);
byId('fault-form').addEventListener('submit', (event) => {
  event.preventDefault();
  change('faults', faultWords());
});
byId('clear-faults').addEventListener('click', () => change('faults', 'clear'));
byId('reset').addEventListener('click', () => byId('reset-dialog').showModal());
byId('reset-dialog').addEventListener('close', (event) => {
  if (event.target.returnValue === 'yes') change('reset');
  event.target.returnValue = '';
});
byId('audit').addEventListener('click', async () => {
  const report = await askJson('audit');
  if (report === null) return;
  tell(report.ok ? `The books add up: ${report.cards} cards, ${report.entries} entries, ${report.transactions} transactions.`
    : `The books do not add up: ${report.problems.join('; ')}`, report.ok);
});
showFaultForm();
listen();
setInterval(showChart, 1000);
