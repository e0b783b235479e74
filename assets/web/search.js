// The search: words in the index are found by their beginnings, several words in quotes as they
// stand. Only those pieces are loaded that a question needs.
const plainLetters = { "\xdf": "ss", "\xe6": "ae", "\xf0": "d", "\xf8": "o", "\xfe": "th", "\u0111": "d", "\u0131": "i", "\u0142": "l", "\u0153": "oe", "\u03c2": "\u03c3" };
// As the program that made the index does it.
function fold(text) {
  text = text.toLowerCase().replace(/['\u2019\xad]/g, "");
  if (/^[ -~]*$/.test(text)) return text;
  return text.normalize("NFKD").replace(/[\u0300-\u036f\u0591-\u05bd\u05bf\u05c1\u05c2\u05c7\u064b-\u065f\u0670]/g, "")
    .replace(/[^ -~]/g, letter => plainLetters[letter] ?? letter).normalize("NFC");
}

// Reads bits: each letter holds 16 of them, or 15 if it is one of the first.
class Packed {
  constructor(text, codes) { Object.assign(this, { text, codes, at: 0, left: 0, group: 0 }); }
  bit() {
    if (!this.left) {
      const letter = this.text.charCodeAt(this.at++);
      this.group = letter - (letter < 0xe000 ? 128 : 2176);
      this.left = this.group < 2176 ? 15 : 16;
      if (this.left > 15) this.group += 2176;
    }
    return this.group >> --this.left & 1;
  }
  bits(count) {
    let number = 0;
    while (count--) number = number * 2 + this.bit();
    return number;
  }
  gamma() {
    let length = 0;
    while (!this.bit()) length++;
    return 2 ** length + this.bits(length);
  }
  rice(usual) {
    let high = 0;
    while (this.bit()) high++;
    return high * 2 ** usual + this.bits(usual);
  }
  // One of those with codes of one bit, of two...
  of(lengths) {
    let code = 0;
    for (const all of lengths) {
      code = code * 2 + this.bit();
      if (code < all.length) return all[code];
      code -= all.length;
    }
  }
  // A word that begins so.
  word(word) {
    for (;;) {
      const all = this.codes[""], behind = this.codes[word.slice(-1) || "\x01"] ?? all;
      let letter = this.of(behind);
      if (letter === "\0" && behind !== all) letter = this.of(all);
      if (letter === "\x01") return word;
      word += letter === "\0" ? String.fromCharCode(this.bits(16)) : letter;
    }
  }
  // One that shares its beginning with the one before.
  next(before) { return this.word(before.slice(0, this.rice(2))); }
  // [page, weight] of each page that has a word.
  pages(all) {
    let count = this.gamma(), usual = 0;
    while (count * 2 ** (usual + 1) <= all) usual++;
    const pages = [], often = this.bit(), isAlone = count === 1;
    for (let page = 0; count--;) {
      page += this.rice(usual) + 1;
      pages.push([page, 1 + (often && (isAlone || this.bit()))]);
    }
    return pages;
  }
}

// The directory, to which comes what is made of the pieces.
function openSearch() {
  return load("search").then(directory => {
    const { letters, joined } = directory;
    if (directory.pieces) return directory;
    const codes = {};
    for (const code of directory.codes.split("\t")) {
      const [before, ...lengths] = code.split("\n");
      codes[before] = lengths;
    }
    let first = 0;
    return Object.assign(directory, {
      codes, texts: directory.texts.map(more => first += more),
      wordRule: `[${joined}]+|(?:(?![${joined}])[${letters}])+(?:['\u2019\xad](?:(?![${joined}])[${letters}])+)*`,
      runRule: new RegExp(`^[${joined}]`, "u"), wordStart: new RegExp(`^(?![${joined}])[${letters}]`, "u"), wordEnd: new RegExp(`(?![${joined}])[${letters}]$`, "u"),
      pieces: [], pages: [], flat: [], titles: []
    });
  });
}

async function wordsOf(s, piece) {
  if (s.pieces[piece]) return s.pieces[piece];
  const bits = new Packed(await load("words/" + piece), s.codes);
  const words = [];
  for (let word = bits.next(""); word; word = bits.next(word)) words.push([word, bits.pages(s.count)]);
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
  const [table, packed] = await Promise.all([openParts(s), load("texts/" + file)]);
  if (s.pages[page] !== undefined) return s.pages[page];
  const bits = new Packed(packed, s.codes);
  const next = s.texts[file + 1] ?? s.count + 1;
  for (let each = s.texts[file]; each < next; each++) s.pages[each] = unpacked(s, table, bits);
  return s.pages[page];
}
const openParts = s => load("parts").then(packed => {
  if (s.table) return s.table;
  const bits = new Packed(packed, s.codes);
  const counts = Array.from({ length: bits.gamma() }, () => [bits.gamma() - 1, bits.gamma() - 1]);
  const table = counts.map(([spelled, joined]) => {
    const parts = [];
    while (parts.length < spelled + joined) parts.push({});
    return parts;
  });
  counts.forEach(([spelled], length) => {
    let text = "";
    for (const part of table[length].slice(0, spelled)) part.text = text = bits.next(text);
  });
  counts.forEach(([spelled], length) => {
    for (const part of table[length].slice(spelled)) Object.assign(part, { one: bits.of(table), other: bits.of(table) });
  });
  return s.table = table;
});
// Finds out about a part what is not known before it is used.
function filled(s, part) {
  if (part.starts === undefined) {
    if (part.one) {
      const one = filled(s, part.one), other = filled(s, part.other);
      part.text = one.text + (one.ends && other.starts ? " " : "") + other.text;
    }
    part.starts = s.wordStart.test(part.text);
    part.ends = s.wordEnd.test(part.text);
  }
  return part;
}
function unpacked(s, table, bits) {
  let text = "", isBehindWord = false, isCapital = false;
  for (;;) {
    let part = bits.of(table);
    if (part.text === "\x02") return text;
    if (part.text === "\x01") { isCapital = true; continue; }
    part = filled(s, part.text === "\0" ? { text: bits.word("") } : part);
    const word = isCapital ? part.text[0].toUpperCase() + part.text.slice(1) : part.text;
    text += part.starts && isBehindWord ? " " + word : word;
    isBehindWord = part.ends;
    isCapital = false;
  }
}

// Whether a page really has what the index cannot tell: words that follow each other.
async function holds(s, page, part) {
  s.flat[page] ??= flatTitle(s, page) + "\n" + flatText(s, await textOf(s, page));
  return s.flat[page].includes(flatPart(part));
}
const flatTitle = (s, page) => s.titles[page] ??= flatText(s, topics[page][1]);

// The pages that may answer a question, the best first, and what they must hold.
async function find(question) {
  const s = await openSearch();
  await loadTopics();
  const parts = partsOf(s, question);
  const scores = await Promise.all(parts.map(async part => {
    const last = part.units.length - 1;
    const found = both(await Promise.all(part.units.map((unit, i) => pagesOfUnit(s, unit, !(part.isOpen && i === last)))));
    const rarity = Math.log(1 + topics.length / (1 + found.size));
    for (const [page, weight] of found) {
      const title = flatTitle(s, page);
      const words = flatPart(part);
      const inTitle = title.includes(words.trimEnd() + " ") ? 8 : title.includes(words) ? 4 : 0;
      found.set(page, weight * rarity + inTitle * (1 + rarity) + (inTitle && title.trim() === words.trim() ? 10 : 0));
    }
    return found;
  }));
  const others = parts.length ? [...both(scores)].sort((a, b) => b[1] - a[1] || a[0] - b[0]).map(([page]) => page) : [];
  const rows = parts.filter(part => part.units.length > 1 || part.units[0].run?.length > 2);
  return { s, parts, rows, pages: rows.length ? [] : others.splice(0), others };
}

// Looks into texts until so many pages answer a question, or there are no others: those of a row
// of frequent words are many, and nobody looks at most of them.
async function confirm({ s, rows, pages, others }, count, isWanted) {
  for (let looked = 0; pages.length < count && others.length && isWanted();) {
    const step = Math.ceil(Math.min((count - pages.length) * (looked + 1) / (pages.length + 1), looked + count));
    const some = others.splice(0, step);
    looked += step;
    const held = await Promise.all(some.map(async page => (await Promise.all(rows.map(part => holds(s, page, part)))).every(Boolean)));
    pages.push(...some.filter((page, i) => held[i]));
  }
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

const stops = ".!?\u061f\u3002\uff01\uff1f";
const sentenceRule = RegExp(`[^\\n${stops}]+(?:[.!?]+(?!\\s)[^\\n${stops}]+)*[${stops}]*[\u300d\u300f]*`, "g");
// The sentence of a page that answers best.
async function sentence(s, page, parts) {
  const text = await textOf(s, page);
  const places = placesIn(s, text, parts);
  let best = [0, 0, -1];
  for (const { 0: piece, index } of text.matchAll(sentenceRule)) {
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
