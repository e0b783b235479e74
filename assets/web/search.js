// The search: words in the index are found by their beginnings, several words in quotes as they
// stand. Only those pieces are loaded that a question needs.
const plainLetters = { "\u00df": "ss", "\u00e6": "ae", "\u00f0": "d", "\u00f8": "o", "\u00fe": "th", "\u0111": "d", "\u0131": "i", "\u0142": "l", "\u0153": "oe", "\u03c2": "\u03c3" };
// As the program that made the index does it.
function fold(text) {
  text = text.toLowerCase().replace(/['\u2019\u00ad]/g, "");
  if (/^[ -~]*$/.test(text)) return text;
  return text.normalize("NFKD").replace(/[\u0300-\u036f\u0591-\u05bd\u05bf\u05c1\u05c2\u05c7\u064b-\u065f\u0670]/g, "")
    .replace(/[\u00df\u00e6\u00f0\u00f8\u00fe\u0111\u0131\u0142\u0153\u03c2]/g, letter => plainLetters[letter]).normalize("NFC");
}

// Reads numbers and letters.
class Packed {
  constructor(text, alone, pairs) { Object.assign(this, { text, alone, pairs, at: 0 }); }
  get more() { return this.at < this.text.length; }
  symbol() {
    const code = this.text.charCodeAt(this.at++);
    return code - 32 - (code > 34) - (code > 92);
  }
  number() {
    const first = this.symbol();
    if (first < this.alone) return first;
    const second = this.symbol();
    if (first < this.alone + this.pairs) return this.alone + (first - this.alone) * 93 + second;
    return this.alone + this.pairs * 93 + ((first - this.alone - this.pairs) * 93 + second) * 93 + this.symbol();
  }
  letters(count) { return this.text.slice(this.at, this.at += count); }
  bit() {
    if (!this.left) {
      this.group = this.symbol() * 93 + this.symbol();
      this.left = 13;
    }
    return this.group >> --this.left & 1;
  }
  bits(count) {
    let number = 0;
    while (count--) number = number * 2 + this.bit();
    return number;
  }
  // [page, weight] of each page that has a word.
  pages(all) {
    let length = 0, usual = 0;
    while (!this.bit()) length++;
    let count = 2 ** length + this.bits(length);
    while (count * 2 ** (usual + 1) <= all) usual++;
    const pages = [], often = this.bit(), isAlone = count === 1;
    for (let page = 0; count--;) {
      let high = 0;
      while (this.bit()) high++;
      page += high * 2 ** usual + this.bits(usual) + 1;
      pages.push([page, 1 + (often && (isAlone || this.bit()))]);
    }
    return pages;
  }
  // A word that shares its beginning with the one before.
  word(before) {
    const both = this.symbol();
    const [shared, others] = both < 81 ? [both / 9 | 0, both % 9 + 1] : [this.number(), this.number()];
    return before.slice(0, shared) + this.letters(others);
  }
}

let search = null; // the directory, and what was made of the pieces
function openSearch() {
  return search ??= load("search", "search0").then(directory => {
    const { letters, joined } = directory;
    return Object.assign(directory, {
      wordRule: `[${joined}]+|(?:(?![${joined}])[${letters}])+(?:['\u2019\u00ad](?:(?![${joined}])[${letters}])+)*`,
      runRule: new RegExp(`^[${joined}]`, "u"), wordStart: new RegExp(`^(?![${joined}])[${letters}]`, "u"), wordEnd: new RegExp(`(?![${joined}])[${letters}]$`, "u"),
      pieces: [], pages: [], flat: [], titles: []
    });
  });
}

async function wordsOf(s, piece) {
  if (s.pieces[piece]) return s.pieces[piece];
  const [spelled, pages] = await load("words/" + piece, "words" + piece);
  const reader = new Packed(spelled, s.splits[0], s.splits[1]), bits = new Packed(pages);
  const words = [];
  for (let word = ""; reader.more;) {
    word = reader.word(word);
    words.push([word, bits.pages(s.count)]);
  }
  return s.pieces[piece] = words;
}

// Adds the pages of words that begin with one, with how much they count.
async function addPages(s, wanted, isWhole, found) {
  const last = isWhole ? wanted : wanted + "\uffff";
  const pieces = [];
  s.words.forEach((first, i) => {
    if (first <= last && !(s.words[i + 1] <= wanted)) pieces.push(i);
  });
  for (const words of await Promise.all(pieces.map(piece => wordsOf(s, piece)))) {
    for (const [word, pages] of words) {
      if (isWhole ? word !== wanted : !word.startsWith(wanted)) continue;
      for (const [page, often] of pages) {
        const weight = (word === wanted ? 2 : 1) * often;
        if (!(found.get(page) >= weight)) found.set(page, weight);
      }
    }
  }
  return found;
}

// The parts of a question: words, runs of letters that have no blanks, and what is in quotes.
function partsOf(s, question) {
  const parts = [];
  const rule = new RegExp(s.wordRule, "gu");
  for (const [piece, , quoted, end] of question.matchAll(/("([^"]*)("?))|[^"]+/g)) {
    const words = (quoted ?? piece).match(rule) ?? [];
    const units = words.flatMap(word => s.runRule.test(word) ? [{ run: [...fold(word)] }] : [{ word: fold(word) }]);
    if (quoted === undefined) {
      for (const unit of units) parts.push({ units: [unit], isOpen: true });
    } else if (units.length) {
      parts.push({ units, isOpen: !end, isPhrase: true });
    }
  }
  return parts.filter(part => part.units.every(unit => unit.run || unit.word));
}

async function pagesOfUnit(s, unit, isWhole) {
  if (unit.word) return addPages(s, unit.word, isWhole || unit.word.length < 2, new Map());
  const run = unit.run;
  if (run.length === 1) return addPages(s, run[0], false, new Map());
  const pairs = run.slice(1).map((letter, i) => run[i] + letter);
  return both(await Promise.all(pairs.map(pair => addPages(s, pair, true, new Map()))));
}

// The pages that all maps have, with the sum of what they count.
function both(maps) {
  const [first, ...others] = maps.sort((a, b) => a.size - b.size);
  return new Map([...first].filter(([page]) => others.every(map => map.has(page)))
    .map(([page, weight]) => [page, others.reduce((sum, map) => sum + map.get(page), weight)]));
}

// A text as a row of words with blanks between, in which letters without blanks stand alone.
function flatText(s, text) {
  const words = text.match(new RegExp(s.wordRule, "gu")) ?? [];
  return " " + words.map(word => s.runRule.test(word) ? [...fold(word)].join(" ") : fold(word)).join(" ") + " ";
}
const flatPart = part => " " + part.units.map(unit => unit.word ?? unit.run.join(" ")).join(" ")
  + (part.isOpen && part.units[part.units.length - 1].word ? "" : " ");

async function textOf(s, page) {
  if (s.pages[page] !== undefined) return s.pages[page];
  let file = s.texts.length - 1;
  while (s.texts[file] > page) file--;
  const [table, packed] = await Promise.all([openParts(s), load("texts/" + file, "texts" + file)]);
  return s.pages[page] = unpacked(s, table, packed[page - s.texts[file]]);
}
const openParts = s => s.table ??= load("parts", "parts0").then(text => {
  const reader = new Packed(text, s.splits[2], s.splits[3]);
  const table = [[""], [""]];
  for (let tier = 0; tier < 3; tier++) {
    let part = "";
    for (let count = reader.number(); count--;) {
      part = reader.word(part);
      table.push([part, s.wordStart.test(part), s.wordEnd.test(part)]);
    }
    for (let count = reader.number(); count--;) table.push([null, reader.number(), reader.number()]);
  }
  const join = number => {
    const part = table[number];
    if (part[0] !== null) return part;
    const one = join(part[1]), other = join(part[2]);
    return table[number] = [one[0] + (one[2] && other[1] ? " " : "") + other[0], one[1], other[2]];
  };
  table.forEach((part, number) => join(number));
  return table;
});
function unpacked(s, table, packed) {
  const reader = new Packed(packed, s.splits[2], s.splits[3]);
  let text = "", isBehindWord = false, isCapital = false;
  while (reader.more) {
    const number = reader.number();
    if (number === 1) { isCapital = true; continue; }
    let [part, beginsWord, endsWord] = table[number];
    if (number === 0) {
      part = reader.letters(reader.number());
      beginsWord = s.wordStart.test(part);
      endsWord = s.wordEnd.test(part);
    }
    if (isCapital) part = part[0].toUpperCase() + part.slice(1);
    text += beginsWord && isBehindWord ? " " + part : part;
    isBehindWord = endsWord;
    isCapital = false;
  }
  return text;
}

// Whether a page really has what the index cannot tell: words that follow each other.
async function holds(s, page, part) {
  s.flat[page] ??= flatTitle(s, page) + "\n" + flatText(s, await textOf(s, page));
  return s.flat[page].includes(flatPart(part));
}
const flatTitle = (s, page) => s.titles[page] ??= flatText(s, topics[page][1]);

// The pages that answer a question, the best first.
async function find(question) {
  const s = await openSearch();
  await loadTopics();
  const parts = partsOf(s, question);
  if (!parts.length) return { parts, pages: [] };
  const scores = await Promise.all(parts.map(async part => {
    const last = part.units.length - 1;
    let found = both(await Promise.all(part.units.map((unit, i) => pagesOfUnit(s, unit, !(part.isOpen && i === last)))));
    if (last > 0 || part.units[0].run?.length > 2) {
      const pages = [...found.keys()];
      const held = await Promise.all(pages.map(page => holds(s, page, part)));
      found = new Map(pages.filter((page, i) => held[i]).map(page => [page, found.get(page)]));
    }
    const rarity = Math.log(1 + topics.length / (1 + found.size));
    for (const [page, weight] of found) {
      const title = flatTitle(s, page);
      const words = flatPart(part);
      const inTitle = title.includes(words.trimEnd() + " ") ? 8 : title.includes(words) ? 4 : 0;
      found.set(page, weight * rarity + inTitle * (1 + rarity) + (inTitle && title.trim() === words.trim() ? 10 : 0));
    }
    return found;
  }));
  const pages = [...both(scores)].sort((a, b) => b[1] - a[1] || a[0] - b[0]).map(([page]) => page);
  return { parts, pages };
}

// Where a text has words of a question: [start, end, part].
function placesIn(s, text, parts) {
  const places = [];
  for (const match of text.matchAll(new RegExp(s.wordRule, "gu"))) {
    const isRun = s.runRule.test(match[0]);
    const word = isRun ? match[0] : fold(match[0]);
    parts.forEach((part, number) => part.units.forEach((unit, i) => {
      const isWhole = !(part.isOpen && i === part.units.length - 1) || unit.word?.length < 2;
      if (isRun && unit.run) {
        const run = unit.run.join("");
        for (let at = word.indexOf(run); at >= 0; at = word.indexOf(run, at + run.length)) {
          places.push([match.index + at, match.index + at + run.length, number]);
        }
      } else if (!isRun && unit.word && (isWhole ? word === unit.word : word.startsWith(unit.word))) {
        places.push([match.index, match.index + match[0].length, number]);
      }
    }));
  }
  return places.sort((a, b) => a[0] - b[0]).filter(([start], i, all) => !i || start >= all[i - 1][1]);
}

// A text with its places marked, from one offset to another.
function marked(text, places, start, end) {
  const nodes = [];
  for (const [from, to] of places.filter(([from, to]) => from >= start && to <= end)) {
    nodes.push(text.slice(start, from), make("mark", {}, text.slice(from, to)));
    start = to;
  }
  return [...nodes, text.slice(start, end)];
}

// The sentence of a page that answers best.
async function sentence(s, page, parts) {
  const text = await textOf(s, page);
  const places = placesIn(s, text, parts);
  let best = [0, 0, -1];
  for (const { 0: piece, index } of text.matchAll(/[^\n.!?\u3002\uff01\uff1f]+(?:[.!?\u3002\uff01\uff1f]+(?!\s)[^\n.!?\u3002\uff01\uff1f]+)*[.!?\u3002\uff01\uff1f]*/g)) {
    const end = index + piece.length;
    const count = new Set(places.filter(([from, to]) => from >= index && to <= end).map(place => place[2])).size;
    if (count > best[2]) best = [index, end, count];
  }
  let [start, end] = best;
  const first = places.find(([from, to]) => from >= start && to <= end)?.[0] ?? start;
  const long = 220;
  let front = "", back = "";
  if (first - start > long / 2) {
    const blank = text.indexOf(" ", first - long / 3);
    start = blank >= 0 && blank < first ? blank + 1 : first;
    front = "\u2026";
  }
  while (/\s/.test(text[start] ?? "")) start++;
  if (end - start > long) {
    const blank = text.lastIndexOf(" ", start + long);
    end = Math.max(blank > start ? blank : start + long, places.find(place => place[0] === first)?.[1] ?? 0);
    back = "\u2026";
  }
  return [front, ...marked(text, places, start, end), back];
}
