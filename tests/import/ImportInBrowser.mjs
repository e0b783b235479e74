// Help that was compiled, imported, generated and compiled again: its pages show the same in a browser.
import assert from "node:assert/strict";
import { createRequire } from "node:module";
import { execFileSync } from "node:child_process";
import { cpSync, existsSync, mkdirSync, mkdtempSync, readFileSync, readdirSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { basename, dirname, join } from "node:path";
import test, { after, before } from "node:test";

const batch = process.env.TOPICSMITH_BATCH;
const sources = process.env.TOPICSMITH_SOURCES;
const { chromium } = createRequire(join(process.env.TOPICSMITH_WEB_MODULES, "node_modules", "x"))("playwright-core");
// Where levels jump, a viewer's contents do not, nor do lists that generation makes of levels: such projects are
// compared without what generation adds, and once more as a whole with levels that do not jump.
const added = /<!-- HTML Topicsmith End Code.*/s;
const projects = [
  { name: "help/topicsmith.tsp", leftOut: /$/ },
  ...["one-topic", "buttons", "parents", "text-links"].map(name => ({ name: `tests/data/generated/${name}/project.tsp`, leftOut: /$/, isEven: true })),
  ...["buttons", "parents", "text-links"].map(name => ({ name: `tests/data/generated/${name}/project.tsp`, leftOut: added })),
];
const folder = mkdtempSync(join(tmpdir(), "topicsmith-import-"));
let browser, page;

before(async () => {
  const root = process.getuid() === 0 ? ["--no-sandbox"] : [];
  browser = await chromium.launch({ executablePath: process.env.TOPICSMITH_CHROMIUM, args: [...root, "--disable-gpu", "--disable-quic", "--no-first-run", "--disable-background-networking", "--disable-component-update", "--disable-sync"] });
  page = await browser.newPage({ javaScriptEnabled: true });
});
after(async () => {
  await browser?.close();
  rmSync(folder, { recursive: true, force: true });
});

const pagesIn = place => readdirSync(join(place, "html")).filter(name => /\.html?$/i.test(name)).sort();

// What a reader sees of pages and where their links lead; all of them are drawn in one page of the browser.
async function shown(place, names, leftOut) {
  const decoder = new TextDecoder("windows-1252");
  const pages = names.map(name => decoder.decode(readFileSync(join(place, "html", name))).replace(leftOut, ""));
  return page.evaluate(async pages => {
    const look = html => new Promise(done => {
      const frame = document.createElement("iframe");
      frame.sandbox = "allow-same-origin";
      frame.onload = () => {
        const inside = frame.contentDocument;
        const lines = inside.body.innerText.split("\n").map(line => line.replace(/\s+/g, " ").trim()).filter(line => line);
        const attribute = (list, name) => [...list].map(each => (each.getAttribute(name) ?? "").replaceAll("\\", "/"));
        done({ title: inside.title, lines, links: attribute(inside.links, "href"), pictures: attribute(inside.images, "src"),
          places: [...inside.querySelectorAll("[id], a[name]")].map(each => each.id || each.name) });
        frame.remove();
      };
      frame.srcdoc = html;
      document.body.append(frame);
    });
    return Promise.all(pages.map(look));
  }, pages);
}

// A compiled help does not tell which navigation its author chose; where style and background lie, it does.
function useOptionsOf(original, imported) {
  const [from, into] = [original, imported].map(file => readFileSync(file, "latin1"));
  const head = text => text.slice(0, text.indexOf("\r\n++\r\n")).split("\r\n");
  assert.equal(head(into)[0], head(from)[0]);
  const options = [...head(from).slice(0, 2), ...head(into).slice(2, 4), ...head(from).slice(4)];
  writeFileSync(imported, options.join("\r\n") + into.slice(into.indexOf("\r\n++\r\n")), "latin1");
}

// Each topic at most one level below the one before.
function evenLevels(file) {
  let depth = 0;
  const project = readFileSync(file, "latin1");
  writeFileSync(file, project.replace(/(?<=\r\n\+\+\r\n)[^\r]*/g, level => {
    depth = Math.min(Number(/\d/.exec(level) ?? 1), depth + 1); // a level that is none counts as the first
    return "..".repeat(depth - 1) + depth;
  }), "latin1");
}

for (const { name: project, leftOut, isEven } of projects) {
  test(`${project}${leftOut === added ? ", without what is added," : ""} comes back as it was`, async () => {
    const first = mkdtempSync(join(folder, "first")), second = mkdtempSync(join(folder, "second"));
    cpSync(dirname(join(sources, project)), first, { recursive: true });
    if (isEven) evenLevels(join(first, basename(project)));
    for (const [name, bytes] of [["html/help.css", "p { color: #123 }"], ["html/paper.jpg", "paper"], ["images/x.jpg", "x"]]) {
      mkdirSync(dirname(join(first, name)), { recursive: true });
      writeFileSync(join(first, name), bytes);
    }
    const run = (...options) => execFileSync(batch, options, { stdio: "pipe", encoding: "utf8" });
    run("compile", join(first, basename(project)), join(first, "help.chm"));
    const imported = join(second, "imported.tsp");
    run("import-help", imported, join(first, "help.chm"), "--strict");
    useOptionsOf(join(first, basename(project)), imported);
    run("compile", imported, join(second, "help.chm"));
    assert.equal(run("verify", join(second, "help.chm"), "--against", join(second, "help.hhp")), "");
    const names = pagesIn(first);
    assert.ok(names.length > 0);
    assert.deepEqual(pagesIn(second), names);
    const [was, is] = [await shown(first, names, leftOut), await shown(second, names, leftOut)];
    assert.ok(was.some(each => each.lines.length > 1), "the pages say nothing");
    for (let i = 0; i < names.length; i++) assert.deepEqual(is[i], was[i], names[i]);
    const pictures = new Set(is.flatMap(each => each.pictures).map(source => decodeURIComponent(source)));
    for (const source of pictures) assert.equal(existsSync(join(second, "html", source)), existsSync(join(first, "html", source)), source);
  });
}
