// Projects for the tests in a browser, and what a reader would find in them.
import { execFileSync } from "node:child_process";
import { mkdirSync, writeFileSync } from "node:fs";

const references = text => [...text].map(c => c.codePointAt(0) > 255 ? `&#${c.codePointAt(0)};` : c).join("");

// topics: [{level, title, file, body, number, name, keywords}]; writes a project of format 1.
export function writeProject(file, topics, { name = "Caf\u00e9 help", style = "" } = {}) {
  const head = ["HTML Topicsmith Format 1", references(name), style, "", "", "", "True", "Written by <b>us</b>",
    "True", "False", "True", "False", "False", "True", "0", "True", "True", "True", "False", "++"];
  const rows = topics.flatMap((topic, i) => {
    const level = topic.level ?? 1;
    return [".".repeat(2 * (level - 1)) + level, "", `"${references(topic.title)}"`, topic.file ?? `t${i + 1}.htm`,
      topic.name ?? "", topic.number ?? "", `"${references("about " + topic.title)}"`, "Auto", `"${references(topic.keywords ?? "")}"`,
      `"${references(topic.body.replaceAll('"', "'"))}"`, "++"];
  });
  writeFileSync(file, Buffer.from([...head, ...rows].join("\r\n") + "\r\n", "latin1"));
}

export function makeSite(batch, project, folder) {
  mkdirSync(folder, { recursive: true });
  execFileSync(batch, ["web", project, folder], { stdio: "pipe" });
}

// The search once more, without an index: whole texts are looked through word by word.
const flat = text => text.replaceAll("\u00df", "ss").replaceAll("\u0142", "l").replaceAll("\u0141", "L").normalize("NFD").replace(/\p{M}/gu, "").toLowerCase().replace(/[\u2019']/g, "");
export const wordsIn = text => flat(text).split(/[^\p{L}\p{N}_]+/u).filter(word => word);

export class Model {
  constructor(topics) {
    this.texts = topics.map(topic => [topic.title, ...(topic.keywords ?? "").split(";"), topic.body]
      .map(html => wordsIn(html.replace(/<[^>]*>/g, " ").replaceAll("&amp;", "&"))));
  }
  // The numbers of topics, from 1, that have words beginning so, or in quotes the words in a row.
  pages(question) {
    const parts = question.match(/"[^"]*"|\S+/g).map(part => ({ words: wordsIn(part), isPhrase: part.startsWith('"') }));
    return this.texts.flatMap((texts, i) => parts.every(part => texts.some(words => this.has(words, part))) ? [i + 1] : []);
  }
  has(words, { words: wanted, isPhrase }) {
    return words.some((word, at) => wanted.every((each, i) => isPhrase ? words[at + i] === each : word.startsWith(each)));
  }
  vocabulary() {
    return [...new Set(this.texts.flat(2))].sort();
  }
}

const letters = "The quick caf\u00e9 serves na\u00efve jalape\u00f1o r\u00e9sum\u00e9s in Stra\u00dfe f\u00fcr gar\u00e7on \u0141\u00f3d\u017a \u041f\u0440\u0438\u0432\u0435\u0442 \u043c\u0438\u0440 \u0394\u03cc\u03be\u03b1 printer network cable router switch "
  + "install remove update server client window button dialog option network_name file_7 version 42 2026 don't isn't over under behind";

// Fifty topics of words that are drawn by chance, always the same.
export function drawnTopics() {
  let seed = 7;
  const draw = limit => (seed = seed * 1103515245 + 12345 & 0x7fffffff) % limit;
  const words = letters.split(" ");
  for (let i = 0; i < 400; i++) words.push(["pre", "con", "net", "sub", "inter", "over"][draw(6)] + ["form", "fig", "work", "port", "act"][draw(5)] + ["", "s", "ing", "ed", "able"][draw(5)] + (draw(4) ? "" : draw(90)));
  return Array.from({ length: 50 }, (_, i) => {
    const sentences = Array.from({ length: 8 }, () => "<p>" + Array.from({ length: 9 + draw(9) }, () => words[draw(words.length)]).join(" ") + ".</p>");
    return { level: 1 + (i % 10 ? 1 : 0) + (i % 5 && i % 10 ? 1 : 0), title: `${words[draw(40)]} ${words[draw(400)]} ${i + 1}`, body: sentences.join("\r\n"),
      keywords: `${words[draw(60)]}; key ${i}`, number: String(1000 + i), name: "IDH_DRAWN_" + i };
  });
}

// Forty topics, in most of which two words follow each other, with letters that are rare or halves of others.
export function rareTopics() {
  return drawnTopics().slice(0, 40).map((topic, i) => ({ ...topic, title: "Topic " + (i + 1), keywords: "",
    body: `<p>rare${i} Rare${i} \u{1f600}x\ud83d\ude00 ${String.fromCodePoint(0x20000 + i * 97, 0x3400 + i * 97, 0xa000 + i)} \u007fend \u0416${i}\u00df.</p><p>${i % 3 ? "alpha beta" : "beta alpha"}.</p>`
      + `<p>${Array.from({ length: 600 }, (_, n) => (i * 7919 + n * 104729).toString(36)).join(" ")}</p>` }));
}

// What is odd about names, letters and links.
export const oddTopics = [
  { title: "Start & more", file: "start.htm", number: "10", name: "IDH_START", keywords: "begin; caf\u00e9",
    body: "<p>Go to <a href='..\\html\\C# Caf\u00e9.htm'>the caf\u00e9</a>, <a href='..\\HTML\\DEEP\\page one.HTM#ENDE-\u00e9'>an end</a> or <a href='deep/page%20one.htm'>deep</a>.</p>\r\n<p><img src='..\\images\\dot.png' alt='a dot'></p>" },
  { level: 2, title: "Caf\u00e9 and C#", file: "C# Caf\u00e9.htm", number: "0x1F", name: "Caf\u00e9_Topic", keywords: "c#; Caf\u00e9",
    body: "<h2 id='one'>One</h2><p>A caf\u00e9 where soft\u00ADhyphens don't matter.</p>" },
  { level: 3, title: "Deep", file: "deep\\page one.htm", number: "12", name: "IDH_DEEP",
    body: "<p>Back to the <a href='../start.htm'>start</a>.</p>" + "<p>Long way down.</p>".repeat(80) + "<h2 id='Ende-\u00e9'>The end</h2><p>Here it ends.</p>" },
  { title: "\u6771\u4eac\u90fd\u306e\u6848\u5185", file: "tokyo.htm", keywords: "\u6771\u4eac",
    body: "<p>\u6771\u4eac\u90fd\u306f\u65e5\u672c\u306e\u9996\u90fd\u3067\u3059\u3002\u5927\u962a\u306f\u5225\u306e\u90fd\u5e02\u3067\u3059\u3002</p>" },
  { title: "\u4eac\u90fd", file: "kyoto.htm", body: "<p>\u4eac\u90fd\u306f\u53e4\u3044\u90fd\u3067\u3059\u3002\u6771\u306e\u4eac\u90fd\u3002 \ud55c\uad6d\uc5b4 \uac80\uc0c9.</p>" },
  { title: "\u05e2\u05d1\u05e8\u05d9\u05ea \u0639\u0631\u0628\u064a", file: "rtl.htm", body: "<p dir='rtl'>\u05e9\u05c1\u05b8\u05dc\u05d5\u05b9\u05dd \u05e2\u05d5\u05dc\u05dd \u0645\u064e\u0631\u0652\u062d\u064e\u0628\u0627</p>" },
  { title: "Quotes \u201cand\u201d <i>marks</i>", file: "q.htm", body: "<pre>if (a &lt; b &amp;&amp; c) { \"x\\n\" }</pre><p>Ends with a backslash \\</p>" },
  { level: 3, title: "No page of its own", file: "..\\climbs.htm", body: "<p>nothing</p>" }
];
