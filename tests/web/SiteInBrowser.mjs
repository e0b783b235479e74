// Generated sites in a real browser, from the disk and from a plain server.
import assert from "node:assert/strict";
import { createServer } from "node:http";
import { createRequire } from "node:module";
import { execFileSync } from "node:child_process";
import { existsSync, mkdirSync, mkdtempSync, readFileSync, readdirSync, rmSync, statSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { extname, join } from "node:path";
import { pathToFileURL } from "node:url";
import test, { after, before } from "node:test";
import { drawnTopics, makeSite, Model, oddTopics, rareTopics, wordsIn, writeProject } from "./Project.mjs";

const batch = process.env.TOPICSMITH_BATCH;
const modules = createRequire(join(process.env.TOPICSMITH_WEB_MODULES, "node_modules", "x"));
const { chromium } = modules("playwright-core");
const axe = readFileSync(modules.resolve("axe-core/axe.min.js"), "utf8");
const manual = process.env.TOPICSMITH_MANUAL;

const folder = mkdtempSync(join(tmpdir(), "topicsmith-web-"));
const odd = join(folder, "odd site"), drawn = join(folder, "drawn"), redrawn = join(folder, "redrawn"), book = join(folder, "manual"), rare = join(folder, "rare"), leftwards = join(folder, "leftwards");
const types = { ".html": "text/html", ".htm": "text/html", ".js": "text/javascript; charset=utf-8", ".css": "text/css", ".png": "image/png" };
const textsOf = site => readdirSync(join(site, "site", "texts")).map(name => readFileSync(join(site, "site", "texts", name), "utf8"));
let browser, server, origin;

before(async () => {
  mkdirSync(join(folder, "images"));
  writeFileSync(join(folder, "images", "dot.png"), Buffer.from("iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mNkYPhfDwAChwGA60e6kgAAAABJRU5ErkJggg==", "base64"));
  writeFileSync(join(folder, "own.css"), "body { max-width: 20em; margin: 5em; background: #ffe; color: #222; } h1 { color: #800; }");
  const project = join(folder, "odd.tsp");
  writeProject(project, oddTopics, { style: "../own.css" });
  try { makeSite(batch, project, odd); } catch (error) { assert.match(String(error.stderr), /climbs\.htm: .*\(topic 8\)/); }
  writeProject(join(folder, "drawn.tsp"), drawnTopics());
  makeSite(batch, join(folder, "drawn.tsp"), drawn);
  const before = drawnTopics();
  before[5].body = "<p>Other words were here.</p>" + before[3].body;
  before[35].body = "";
  before[20].title = "Another"; before[20].body = before[1].body;
  writeProject(join(folder, "before.tsp"), before);
  makeSite(batch, join(folder, "before.tsp"), redrawn);
  makeSite(batch, join(folder, "drawn.tsp"), redrawn);
  assert.notDeepEqual(textsOf(redrawn), textsOf(drawn)); // or it was not changed, but made anew
  writeProject(join(folder, "rare.tsp"), rareTopics());
  makeSite(batch, join(folder, "rare.tsp"), rare);
  makeSite(batch, manual, book);
  const hebrew = join(folder, "hebrew.tsp");
  const coded = drawnTopics();
  coded[2].body += "<pre>f(x) {</pre>";
  writeProject(join(folder, "coded.tsp"), coded);
  execFileSync(batch, ["convert", join(folder, "coded.tsp"), hebrew, "--format", "2", "--language", "he-IL"]);
  makeSite(batch, hebrew, leftwards);
  server = createServer((request, response) => {
    const path = join(folder, decodeURIComponent(new URL(request.url, "http://x").pathname));
    if (!path.startsWith(folder) || !existsSync(path)) { response.writeHead(404).end(); return; }
    response.writeHead(200, { "content-type": types[extname(path).toLowerCase()] ?? "application/octet-stream" }).end(readFileSync(path));
  }).listen(0, "127.0.0.1");
  await new Promise(done => server.once("listening", done));
  origin = `http://127.0.0.1:${server.address().port}`;
  const root = process.getuid() === 0 ? ["--no-sandbox"] : [];
  browser = await chromium.launch({ executablePath: process.env.TOPICSMITH_CHROMIUM, args: [...root, "--disable-gpu", "--disable-quic", "--no-first-run", "--disable-background-networking", "--disable-component-update", "--disable-sync"] });
});
after(async () => {
  await browser?.close();
  server?.close();
  rmSync(folder, { recursive: true, force: true });
});

const onDisk = site => pathToFileURL(site).href + "/";
const onServer = site => `${origin}/${encodeURIComponent(site.slice(folder.length + 1))}/`;

// Opens a page, and fails in the end when it asked for anything elsewhere or said anything.
async function visit(root, place, use, options = {}) {
  const context = await browser.newContext({ viewport: { width: 1200, height: 800 }, ...options });
  const faults = [];
  context.on("request", request => { if (!request.url().startsWith(root) && !request.url().endsWith("/favicon.ico")) faults.push(request.url()); });
  context.on("requestfailed", request => { if (request.failure().errorText !== "net::ERR_ABORTED") faults.push(request.url() + " " + request.failure().errorText); });
  context.on("console", message => { if (!message.location().url.endsWith("/favicon.ico")) faults.push(message.text()); });
  context.on("weberror", error => faults.push(String(error.error())));
  try {
    const page = await context.newPage();
    await page.goto(root + place);
    await use(page);
    assert.deepEqual(faults, []);
  } finally {
    await context.close();
  }
}

const ready = page => page.waitForSelector(".ts-tree a");
const heading = page => page.textContent("h1");
// Asks, and waits for what is said now, not for what was said before.
async function askFor(page, question, answer = ": \\d") {
  await page.fill(".ts-head input", "");
  await page.evaluate(() => document.querySelectorAll(".ts-hits, .ts-side [role=status]").forEach(old => old.replaceChildren()));
  await page.fill(".ts-head input", question);
  await page.waitForFunction(rule => new RegExp(rule).test(document.querySelector("#ts-results [role=status]")?.textContent ?? ""), answer);
}
async function hits(page) {
  for (let more; (more = await page.$(".ts-more:enabled"));) {
    await more.click();
    await page.waitForSelector(".ts-more:disabled", { state: "detached" });
  }
  return page.$$eval(".ts-hits a", links => links.map(link => link.href.split("/html/")[1].split("?")[0]));
}

for (const [where, rootOf] of [["from the disk", onDisk], ["from a server", onServer]]) {
  test(`links and contexts lead to their pages ${where}`, async () => {
    const root = rootOf(odd);
    await visit(root, "index.html", async page => {
      assert.equal(await heading(page), "Start & more");
      await page.click("text=the caf\u00e9");
      assert.equal(await heading(page), "Caf\u00e9 and C#");
      await page.goBack();
      await page.click("main a:text('an end')");
      assert.equal(await heading(page), "Deep");
      await page.waitForFunction(() => scrollY > 200);
      await page.click("a:text-is('start')");
      assert.equal(await heading(page), "Start & more");
      await page.click("main a:text('deep')");
      assert.equal(await heading(page), "Deep");
      await page.click(".ts-path a >> nth=1");
      assert.equal(await heading(page), "Caf\u00e9 and C#");
      await page.goto(root + "index.html");
      assert.equal(await page.$eval("main img", picture => picture.naturalWidth), 1);
    });
    for (const [question, title] of [["?context=10", "Start & more"], ["?context=31", "Caf\u00e9 and C#"], ["?context=0x1f", "Caf\u00e9 and C#"],
      ["?id=idh_deep", "Deep"], ["?id=" + encodeURIComponent("CAF\u00c9_topic"), "Caf\u00e9 and C#"], ["?context=12#Ende-%C3%A9", "Deep"]]) {
      await visit(root, "index.html" + question, async page => {
        await page.waitForURL("**/html/**");
        assert.equal(await heading(page), title);
        assert.equal(new URL(page.url()).hash, question.includes("#") ? "#Ende-%C3%A9" : "");
      });
    }
    await visit(root, "index.html?context=99999", async page => {
      assert.equal(await page.textContent("[role=alert]"), "No page for 99999");
      assert.ok(await page.isVisible("h1"));
    });
  });

  test(`the tree follows the page and stays open ${where}`, async () => {
    await visit(rootOf(drawn), "html/t8.htm", async page => {
      await ready(page);
      const current = ".ts-tree [aria-current=page]";
      assert.match(await page.textContent(current), / 8$/);
      assert.ok(await page.isVisible(current));
      assert.equal(await page.$$eval(".ts-tree a", items => items.filter(item => item.offsetParent).length), 14);
      await page.focus(current);
      await page.keyboard.press("ArrowLeft");
      await page.keyboard.press("ArrowLeft");
      await page.keyboard.press("ArrowLeft");
      assert.match(await page.evaluate(() => document.activeElement.textContent), / 1$/);
      await page.keyboard.press("ArrowDown");
      await page.keyboard.press("ArrowDown");
      await page.keyboard.press("End");
      await page.keyboard.press("ArrowRight");
      const open = await page.$$eval("[aria-expanded=true]", items => items.map(item => item.textContent));
      assert.equal(open.length, 2);
      await page.keyboard.press("Enter");
      await page.waitForURL("**/t41.htm");
      await ready(page);
      assert.deepEqual(await page.$$eval("[aria-expanded=true]", items => items.map(item => item.textContent)), open);
      await page.goBack();
      await ready(page);
      assert.match(await page.textContent(current), / 8$/);
      await page.goForward();
      assert.match(page.url(), /t41\.htm$/);
    });
  });

  test(`60 questions find exactly the pages that have the words ${where}`, async () => { // of a changed search, too
    const topics = drawnTopics();
    const model = new Model(topics);
    const words = model.vocabulary().filter(word => word.length > 1);
    const every = (n, change = word => word) => Array.from({ length: n }, (_, i) => change(words[Math.floor((i + .5) * words.length / n)], i));
    const texts = topics.map(topic => wordsIn(topic.body.replace(/<[^>]*>/g, " ")));
    const questions = [...every(24), ...every(10, word => word.slice(0, 3)), ...every(6, (word, i) => word + " " + words[i * 31 % words.length].slice(0, 2)),
      ...Array.from({ length: 8 }, (_, i) => `"${texts[i * 5].slice(i, i + 2 + i % 2).join(" ")}"`),
      "caf\u00e9", "CAFE", "resume", "r\u00c9sum\u00c9s", "strasse", "lodz", "\u043f\u0440\u0438\u0432\u0435\u0442", "\u03b4\u03bf\u03be\u03b1", "network_name", "dont", "key 17", "zzzz"];
    assert.equal(questions.length, 60);
    await visit(rootOf(where === "from a server" ? redrawn : drawn), "index.html", async page => {
      for (const question of questions) {
        await askFor(page, question);
        const found = (await hits(page)).map(file => Number(file.match(/\d+/)[0])).sort((a, b) => a - b);
        assert.deepEqual(found, model.pages(question), question);
      }
    });
  });

  test(`letters without blanks are found in pairs ${where}`, async () => {
    await visit(rootOf(odd), "index.html", async page => {
      for (const [question, files] of [["\u6771\u4eac", ["tokyo.htm"]], ["\u4eac\u90fd", ["kyoto.htm", "tokyo.htm"]], ["\u6771\u4eac\u90fd", ["tokyo.htm"]],
        ["\u90fd", ["kyoto.htm", "tokyo.htm"]], ["\u5927\u962a \u9996\u90fd", ["tokyo.htm"]], ["\ud55c\uad6d", ["kyoto.htm"]], ["\uac80\uc0c9", ["kyoto.htm"]],
        ["\u4eac\u6771", []], ["\u05e9\u05dc\u05d5\u05dd", ["rtl.htm"]], ["\u0645\u0631\u062d\u0628\u0627", ["rtl.htm"]], ["softhyphens", ["C%23%20Caf%C3%A9.htm"]]]) {
        await askFor(page, question);
        assert.deepEqual((await hits(page)).sort(), files, question);
      }
    });
  });

  test(`texts are shown as they are, and no more are read than it takes ${where}`, async () => {
    const topics = rareTopics();
    await visit(rootOf(rare), "index.html", async page => {
      for (const i of [0, 7, 22, 39]) {
        await askFor(page, `rare${i}`);
        await page.waitForSelector(".ts-hits mark");
        assert.equal(await page.textContent(".ts-hits span"), topics[i].body.slice(3, topics[i].body.indexOf("</p>")));
      }
    });
    await visit(rootOf(rare), "index.html", async page => {
      const status = () => page.textContent("#ts-results [role=status]");
      await askFor(page, "\"alpha beta\"");
      assert.match(await status(), /: 11\+$/);
      const read = await page.$$eval("script[src*='/texts/']", scripts => scripts.length);
      assert.ok(read > 3 && read < textsOf(rare).length * 2 / 3, `${read} of ${textsOf(rare).length}`);
      const found = await hits(page);
      assert.deepEqual(found, topics.flatMap((topic, i) => i % 3 ? [`t${i + 1}.htm`] : []));
      assert.match(await status(), /: 26$/);
    });
  });

  test(`hits stand in their sentence, the best first, and are marked ${where}`, async () => {
    await visit(rootOf(odd), "index.html", async page => {
      await page.keyboard.press("/");
      await page.keyboard.type("cafe wh");
      await page.waitForSelector(".ts-hits mark");
      assert.equal(await page.textContent(".ts-hits span"), "A caf\u00e9 where soft\u00ADhyphens don't matter.");
      assert.deepEqual(await page.$$eval(".ts-hits mark", marks => marks.map(mark => mark.textContent)), ["caf\u00e9", "where"]);
      await page.keyboard.press("Escape");
      await page.keyboard.type("caf");
      await page.waitForFunction(() => document.querySelectorAll(".ts-hits b").length === 2);
      assert.equal(await page.textContent(".ts-hits b"), "Caf\u00e9 and C#");
      await page.keyboard.press("Enter");
      await page.waitForSelector("main mark");
      assert.equal(await heading(page), "Caf\u00e9 and C#");
      await page.waitForSelector(".ts-hits b"); // still there
      assert.equal(await page.inputValue(".ts-head input"), "caf");
      await askFor(page, "\"x n\"");
      await page.waitForSelector(".ts-hits mark");
      assert.equal(await page.textContent(".ts-hits span"), "if (a < b && c) { 'x\\n' }");
      await askFor(page, "\u5927\u962a");
      await page.waitForSelector(".ts-hits mark");
      assert.equal(await page.textContent(".ts-hits span"), "\u5927\u962a\u306f\u5225\u306e\u90fd\u5e02\u3067\u3059\u3002");
    });
  });

  test(`the index is filtered, and its entries lead to their pages ${where}`, async () => {
    await visit(rootOf(odd), "html/q.htm", async page => {
      await page.click("#ts-tab-index");
      await page.waitForSelector(".ts-index a");
      await page.fill("#ts-index input", "CAFE");
      assert.deepEqual(await page.$$eval(".ts-index a", links => links.map(link => link.textContent)), ["Start & more", "Caf\u00e9 and C#"]);
      await page.click(".ts-index a >> nth=1");
      assert.equal(await heading(page), "Caf\u00e9 and C#");
    });
  });
}

test("the search can be called without a slash, and the browser's keys stay its own", async () => {
  await visit(onDisk(odd), "index.html", async page => {
    await ready(page);
    const press = (place, keys) => page.evaluate(([where, init]) => {
      document.activeElement.blur();
      const event = new KeyboardEvent("keydown", { bubbles: true, cancelable: true, ...init });
      document.querySelector(where).dispatchEvent(event);
      return [event.defaultPrevented, document.activeElement.type === "search"];
    }, [place, keys]);
    for (const keys of [{ key: "/", code: "Digit7", shiftKey: true }, { key: "k", code: "KeyV", ctrlKey: true }, { key: "\u043b", code: "KeyK", metaKey: true }]) {
      assert.deepEqual(await press("main", keys), [true, true], JSON.stringify(keys));
    }
    await page.keyboard.type("caf");
    await page.waitForSelector(".ts-hits a");
    for (const [place, keys] of [["main", { key: "/", ctrlKey: true }], ["main", { key: "k", code: "KeyK" }], ["main", { key: "e", code: "KeyK", ctrlKey: true }], ["main", { key: "K", code: "KeyK", ctrlKey: true, shiftKey: true }],
      [".ts-tree a", { key: "ArrowLeft", altKey: true }], [".ts-hits a", { key: "ArrowDown", metaKey: true }], [".ts-tabs button", { key: "ArrowRight", altKey: true }]]) {
      assert.deepEqual(await press(place, keys), [false, false], JSON.stringify(keys));
    }
    assert.equal(await page.textContent(".ts-tabs [aria-selected=true]"), "Results");
  });
});

test("the search answers again after a file of it could not be had", async () => {
  await visit(onServer(odd), "index.html", async page => {
    await ready(page);
    let missing;
    await page.route("**/site/*.js", route => {
      if (!route.request().url().endsWith(`/${missing}.js`)) return route.continue();
      missing = "";
      return route.abort("aborted");
    });
    for (missing of ["search", "parts"]) {
      await askFor(page, "\"x n\"", "^[^\\d]+$");
    }
    await askFor(page, "\"x n\"");
    assert.equal((await hits(page)).length, 1);
  });
});

test("everything can be reached without scripts", async () => {
  await visit(onDisk(odd), "index.html", async page => {
    await page.click("text=Contents");
    await page.click("main a:text('Deep')");
    assert.equal(await heading(page), "Deep");
    await page.click("a[rel=prev]");
    await page.click("text=Index");
    await page.click("dd a >> nth=0");
    assert.equal(await heading(page), "Start & more");
    assert.match(await page.textContent("footer"), /Written by us/);
  }, { javaScriptEnabled: false });
});

test("what stands around the pages is in their language, and from right to left", async () => {
  await visit(onDisk(leftwards), "html/t3.htm", async page => {
    await ready(page);
    assert.equal(await page.getAttribute("html", "dir"), "rtl");
    assert.deepEqual(await page.$$eval(".ts-tabs button", tabs => tabs.map(tab => tab.textContent)), ["\u05ea\u05d5\u05db\u05df", "\u05de\u05e4\u05ea\u05d7", "\u05ea\u05d5\u05e6\u05d0\u05d5\u05ea"]);
    const box = async place => (await page.$(place)).boundingBox();
    assert.ok((await box(".ts-side")).x > (await box("main")).x);
    assert.ok((await box("a[rel=prev]")).x > (await box("a[rel=next]")).x);
    await page.focus(".ts-tree [aria-current=page]");
    await page.keyboard.press("ArrowRight");
    const above = await page.evaluateHandle(() => document.activeElement);
    assert.match(await above.getAttribute("href"), /t1\.htm$/);
    for (const [key, isOpen] of [["ArrowRight", "false"], ["ArrowLeft", "true"]]) {
      await page.keyboard.press(key);
      assert.equal(await above.getAttribute("aria-expanded"), isOpen);
    }
    const { x, y, width } = await above.boundingBox();
    await page.mouse.click(x + width - 8, y + 8);
    assert.equal(await above.getAttribute("aria-expanded"), "false");
    await page.focus(".ts-tabs [aria-selected=true]");
    for (const [key, tab] of [["ArrowLeft", "\u05de\u05e4\u05ea\u05d7"], ["ArrowRight", "\u05ea\u05d5\u05db\u05df"]]) {
      await page.keyboard.press(key);
      assert.equal(await page.textContent(".ts-tabs [aria-selected=true]"), tab);
    }
    assert.equal(await page.$eval("main pre", code => getComputedStyle(code).direction), "ltr");
    await page.goto(onDisk(leftwards) + "index.html");
    await ready(page);
    assert.equal(await page.textContent(".ts-topics > p"), "\u05ea\u05d5\u05db\u05df");
    assert.deepEqual(await page.$$eval("body *", all => all.map(each => each.ariaLabel ?? "").filter(label => /[a-z]/i.test(label))), []);
  });
  await visit(onDisk(leftwards), "html/t3.htm", async page => { // names as long as those of Russian help
    await ready(page);
    await page.$$eval(".ts-tabs button", tabs => tabs.forEach(tab => { tab.textContent = "\u0420\u0435\u0437\u0443\u043b\u044c\u0442\u0430\u0442\u044b"; }));
    assert.ok(await page.$eval(".ts-side", side => side.scrollWidth <= side.clientWidth));
  });
});

test("a narrow, a dark and a printed page are readable", async () => {
  await visit(onDisk(odd), "html/start.htm", async page => {
    const colour = (element, name) => page.$eval(element, (e, n) => getComputedStyle(e)[n], name);
    await page.waitForSelector(".ts-tree a", { state: "attached" });
    assert.ok(!await page.isVisible(".ts-side"));
    await page.click(".ts-menu");
    assert.ok(await page.isVisible(".ts-tree"));
    assert.ok(await page.evaluate(() => document.documentElement.scrollWidth <= innerWidth));
    assert.equal(await colour("body", "backgroundColor"), "rgb(22, 25, 29)");
    assert.match(await colour("main", "filter"), /invert/);
    await page.emulateMedia({ media: "print" });
    assert.ok(!await page.isVisible(".ts-head"));
    assert.equal(await colour("main", "filter"), "none");
    assert.equal(await colour("body", "backgroundColor"), "rgb(255, 255, 255)");
  }, { viewport: { width: 320, height: 600 }, colorScheme: "dark" });
});

async function barriers(page) {
  await page.evaluate(axe);
  const result = await page.evaluate(() => window.axe.run({ preload: false, resultTypes: ["violations"] }));
  return result.violations.map(fault => `${fault.id}: ${fault.nodes.map(node => node.html).join(" ")}`);
}

for (const colorScheme of ["light", "dark"]) {
  test(`no kind of page has barriers on a ${colorScheme} screen`, async () => {
    for (const [root, place] of [[odd, "index.html"], [odd, "contents.html"], [odd, "keywords.html"], [odd, "html/C%23%20Caf%C3%A9.htm"], [drawn, "index.html"], [leftwards, "html/t3.htm"]]) {
      await visit(onDisk(root), place, async page => {
        await ready(page);
        assert.deepEqual(await barriers(page), [], place);
        await page.click("#ts-tab-index");
        await page.waitForSelector(".ts-index a");
        assert.deepEqual(await barriers(page), [], place + ", index");
        await askFor(page, "a");
        await askFor(page, "caf");
        await page.waitForSelector(".ts-hits mark");
        assert.deepEqual(await barriers(page), [], place + ", results");
        await page.setViewportSize({ width: 320, height: 600 });
        assert.deepEqual(await barriers(page), [], place + ", narrow");
      }, { colorScheme });
    }
  });
}

test("no page of the program's manual has barriers", async () => {
  const places = ["index.html", "contents.html", "keywords.html", ...readdirSync(join(book, "html")).map(name => "html/" + name)];
  assert.ok(places.length > 60);
  await visit(onDisk(book), places[0], async page => {
    for (const [i, place] of places.entries()) {
      await page.emulateMedia({ colorScheme: i % 3 ? "light" : "dark" });
      await page.goto(onDisk(book) + place);
      await ready(page);
      assert.deepEqual(await barriers(page), [], place);
    }
  });
});

test("the pages are HTML as it should be", () => {
  for (const site of [odd, drawn, book]) {
    const pages = readdirSync(site, { recursive: true }).filter(name => /\.html?$/.test(name)).map(name => join(site, name));
    assert.ok(pages.length > 8);
    execFileSync("tidy", ["-q", "-e", ...pages], { stdio: "pipe" }); // fails after a warning
  }
});

test("a first view is small, and so is what a question needs", async () => {
  const sizeOf = name => statSync(join(book, name)).size;
  assert.ok(sizeOf("site/site.js") + sizeOf("site/style.css") < 30 * 1024);
  const loaded = [];
  await visit(onServer(book), "index.html", async page => {
    page.on("response", async response => loaded.push((await response.body()).length));
    await page.reload();
    await ready(page);
    assert.ok(loaded.length > 3 && loaded.reduce((sum, size) => sum + size) < 100_000, String(loaded));
  });
});
