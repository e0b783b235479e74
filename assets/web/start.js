// Puts contents, index and search beside the text.
const shown = 10; // hits at a time

function makeSide() {
  const ways = [labels.contents, labels.index, labels.search].join(", ");
  const menu = make("button.ts-menu", { type: "button", "aria-expanded": "false", "aria-controls": "ts-side" }, labels.contents);
  const input = make("input", { type: "search", placeholder: labels.search + "  ( / )", "aria-label": labels.search, autocomplete: "off" });
  const side = make("nav.ts-side", { id: "ts-side", "aria-label": ways });
  const head = document.querySelector(".ts-head");
  head.prepend(menu);
  head.append(make("div", { role: "search" }, input));
  document.querySelector(".ts-frame").prepend(side);
  document.body.classList.add("ts-scripted");
  menu.addEventListener("click", () => setOpen(!document.body.classList.contains("ts-open")));
  const setOpen = isOpen => {
    document.body.classList.toggle("ts-open", isOpen);
    menu.setAttribute("aria-expanded", isOpen);
  };

  const tabs = {}, panels = {};
  const makers = { contents: makeTree, index: makeIndex, results() {} };
  const names = { contents: labels.contents, index: labels.index, results: labels.results };
  const strip = make("div.ts-tabs", { role: "tablist", "aria-label": ways });
  side.append(strip);
  for (const key in names) {
    tabs[key] = make("button", { type: "button", role: "tab", id: "ts-tab-" + key, "aria-controls": "ts-" + key }, names[key]);
    panels[key] = make("div", { role: "tabpanel", id: "ts-" + key, "aria-labelledby": "ts-tab-" + key });
    tabs[key].addEventListener("click", () => choose(key));
    strip.append(tabs[key]);
    side.append(panels[key]);
  }
  strip.addEventListener("keydown", event => {
    if (!isPlain(event)) return;
    const step = { ArrowRight: 1, ArrowLeft: -1 }[event.key] * (getComputedStyle(strip).direction === "rtl" ? -1 : 1);
    const keys = Object.keys(names);
    const key = keys[keys.indexOf(kept.get("tab", "contents")) + step];
    if (key) { choose(key); tabs[key].focus(); }
  });
  const choose = key => {
    kept.set("tab", key);
    for (const each in names) {
      tabs[each].setAttribute("aria-selected", each === key);
      tabs[each].tabIndex = each === key ? 0 : -1;
      panels[each].hidden = each !== key;
    }
    if (!panels[key].made) {
      panels[key].made = true;
      loadTopics().then(() => makers[key](panels[key]));
    }
  };

  const count = make("p.ts-note", { role: "status", dir: "auto" });
  const hits = make("ul.ts-hits");
  let asked = 0, before = "contents";
  const ask = async () => {
    const question = input.value.trim();
    const number = ++asked;
    kept.set("question", question);
    if (!question) {
      choose(before);
      return;
    }
    if (kept.get("tab") !== "results") before = kept.get("tab", "contents");
    choose("results");
    if (!panels.results.contains(hits)) panels.results.replaceChildren(count, hits);
    const fail = () => {
      if (number !== asked) return;
      hits.replaceChildren();
      count.textContent = labels.noSearch;
    };
    return find(question).then(found => showMore(question, found, 0, number)).catch(fail);
  };
  // The sentences come when the reader does not go on typing, the first ones sooner: who does shall
  // not wait for theirs.
  const showMore = async (question, found, from, number) => {
    const end = from + shown, isWanted = () => number === asked;
    await confirm(found, end + 1, isWanted);
    if (!isWanted()) return;
    const { s, parts, pages, others } = found;
    if (from) hits.lastChild.remove(); else hits.replaceChildren();
    count.textContent = labels.results + ": " + pages.length + (others.length ? "+" : "");
    for (const [i, page] of pages.slice(from, end).entries()) {
      const text = make("span");
      const title = topics[page][1];
      hits.append(make("li", {}, make("a", { href: addressOf(page) + "?find=" + encodeURIComponent(question) }, make("b", {}, title), text)));
      new Promise(done => setTimeout(done, i < 3 ? 150 : 400)).then(() => isWanted() ? sentence(s, page, parts) : []).then(nodes => text.replaceChildren(...nodes));
    }
    if (end < pages.length) {
      const more = make("button.ts-more", { type: "button" }, labels.more);
      more.addEventListener("click", () => { more.disabled = true; showMore(question, found, end, number); });
      hits.append(make("li", {}, more));
    }
  };
  input.addEventListener("input", () => { setOpen(true); ask(); });
  input.addEventListener("keydown", event => {
    if (event.key === "ArrowDown" || event.key === "Enter") {
      const first = hits.querySelector("a");
      if (!first || panels.results.hidden) return;
      if (event.key === "Enter") first.click(); else first.focus();
      event.preventDefault();
    } else if (event.key === "Escape") {
      if (!input.value) input.blur();
      input.value = "";
      ask();
      event.preventDefault();
    }
  });
  hits.addEventListener("keydown", event => walk(hits, event));
  // Not all keyboards have a slash; those of other alphabets have no K, but its place.
  document.addEventListener("keydown", event => {
    const { key, code, ctrlKey, metaKey, altKey, shiftKey, target } = event;
    if (!(key === "/" ? isPlain(event) && !target.closest("select, :read-write")
      : (key === "k" || code === "KeyK" && key > "~") && (ctrlKey || metaKey) && !altKey && !shiftKey)) return;
    input.focus();
    input.select();
    event.preventDefault();
  });
  side.addEventListener("scroll", () => kept.set("scroll", side.scrollTop), { passive: true });

  const scroll = kept.get("scroll", 0);
  input.value = kept.get("question", "");
  const tab = kept.get("tab", "contents");
  if (tab === "results" && input.value) {
    ask().then(() => { side.scrollTop = scroll; });
  } else {
    choose(tab === "results" ? "contents" : tab);
    loadTopics().then(() => {
      side.scrollTop = scroll;
      side.querySelector("[aria-current]")?.scrollIntoView({ block: "nearest" });
    });
  }
}

// Marks what a reader came here for.
async function markFound(question) {
  const s = await openSearch();
  const parts = partsOf(s, question);
  const main = document.querySelector("main");
  const walker = document.createTreeWalker(main, NodeFilter.SHOW_TEXT, node =>
    node.parentElement.closest("nav, script, style, textarea") ? NodeFilter.FILTER_REJECT : NodeFilter.FILTER_ACCEPT);
  const nodes = [];
  while (walker.nextNode()) nodes.push(walker.currentNode);
  for (const node of nodes) {
    const places = placesIn(s, node.data, parts);
    if (places.length) node.replaceWith(...marked(node.data, places, 0, node.data.length));
  }
  if (!location.hash) main.querySelector("mark")?.scrollIntoView({ block: "center" });
}

// The page that an application asks for by a number or a name.
async function openContext(number, name) {
  const [numbers, names] = await load("contexts");
  await loadTopics();
  const value = /^\s*(0x[0-9a-f]+|[0-9]+)\s*$/i.test(number ?? "") ? String(Number(number)) : number?.trim().toLowerCase();
  const position = numbers[value] ?? names[name?.trim().toLowerCase()];
  if (!position) throw new Error("context");
  location.replace(addressOf(position) + location.hash);
}

const asked = new URLSearchParams(location.search);
const context = asked.get("context"), contextName = asked.get("id");
if (context !== null || contextName !== null) {
  document.documentElement.style.visibility = "hidden";
  openContext(context, contextName).catch(() => {
    document.documentElement.style.visibility = "";
    document.querySelector("main").prepend(make("p.ts-note", { role: "alert" }, labels.noPage.replace("%1", () => context ?? contextName)));
    makeSide();
  });
} else {
  makeSide();
  if (asked.get("find")) markFound(asked.get("find"));
}
