// The contents as a tree, and the index.
function makeTree(panel) {
  const tree = make("ul.ts-tree", { role: "tree", "aria-label": labels.contents });
  const open = new Set(kept.get("open", []));
  const lists = [[0, tree, null]];
  let current = null;
  for (let position = 1; position < topics.length; position++) {
    const [depth, title, address] = topics[position];
    while (lists.length > 1 && lists[lists.length - 1][0] >= depth) lists.pop();
    let [, list, above] = lists[lists.length - 1];
    if (above && !list) {
      list = lists[lists.length - 1][1] = make("ul", { role: "group" });
      above.after(list);
      above.setAttribute("aria-expanded", open.has(above.dataset.key));
    }
    const item = make("a", { role: "treeitem", tabindex: -1, "aria-level": lists.length }, title);
    item.dataset.key = address ?? "#" + title;
    if (address !== undefined) item.href = addressOf(position);
    if (address !== undefined && item.href === here) current = item;
    list.append(make("li", { role: "none" }, item));
    lists.push([depth, null, item]);
  }
  const items = () => [...tree.querySelectorAll("a")].filter(item => item.offsetParent);
  const groupOf = item => item.parentElement.parentElement.previousElementSibling;
  const expand = (item, isOpen) => {
    item.setAttribute("aria-expanded", isOpen);
    open[isOpen ? "add" : "delete"](item.dataset.key);
    kept.set("open", [...open]);
  };
  const toggle = item => expand(item, item.getAttribute("aria-expanded") !== "true");
  const focus = item => {
    if (!item) return;
    tree.querySelector("[tabindex='0']")?.setAttribute("tabindex", -1);
    item.tabIndex = 0;
    item.focus();
  };
  tree.addEventListener("click", event => {
    const item = event.target.closest("a");
    if (!item || !item.hasAttribute("aria-expanded")) return;
    const fromStart = getComputedStyle(item).direction === "rtl"
      ? item.getBoundingClientRect().right - event.clientX : event.clientX - item.getBoundingClientRect().left;
    if (!item.href || (event.detail && fromStart < 20)) {
      toggle(item);
      event.preventDefault();
    } else {
      expand(item, true);
    }
  });
  tree.addEventListener("keydown", event => {
    if (!isPlain(event)) return;
    const item = event.target.closest("a");
    const all = items();
    const at = all.indexOf(item);
    const isLeftwards = getComputedStyle(tree).direction === "rtl";
    const expanded = item.getAttribute("aria-expanded");
    switch (isLeftwards ? { ArrowLeft: "ArrowRight", ArrowRight: "ArrowLeft" }[event.key] ?? event.key : event.key) {
    case "ArrowDown": focus(all[at + 1]); break;
    case "ArrowUp": focus(all[at - 1]); break;
    case "Home": focus(all[0]); break;
    case "End": focus(all[all.length - 1]); break;
    case "ArrowRight":
      if (expanded === "false") expand(item, true);
      else if (expanded) focus(all[at + 1]);
      break;
    case "ArrowLeft":
      if (expanded === "true") expand(item, false);
      else focus(groupOf(item));
      break;
    case " ": case "Enter":
      if (item.href && event.key === "Enter") return;
      if (expanded) toggle(item);
      break;
    default: return;
    }
    event.preventDefault();
  });
  if (current) {
    current.setAttribute("aria-current", "page");
    for (let item = current; item; item = groupOf(item)) {
      if (item.hasAttribute("aria-expanded")) expand(item, true);
    }
  }
  const first = current ?? tree.querySelector("a");
  if (first) first.tabIndex = 0;
  panel.replaceChildren(tree);
  current?.scrollIntoView({ block: "nearest" });
}

async function makeIndex(panel) {
  const keywords = await load("keywords");
  const filter = make("input", { type: "search", placeholder: labels.filter, "aria-label": labels.filter });
  const list = make("ul.ts-index");
  const show = () => {
    const wanted = plain(filter.value);
    const rows = keywords.filter(([keyword]) => plain(keyword).includes(wanted));
    list.replaceChildren(...rows.map(([keyword, ...positions]) => positions.length === 1
      ? make("li", {}, make("a", { href: addressOf(positions[0]) }, keyword))
      : make("li", {}, make("span.ts-term", {}, keyword),
        ...positions.map(position => make("a", { href: addressOf(position) }, topics[position][1])))));
    if (!rows.length) list.append(make("li.ts-note", {}, labels.none));
  };
  filter.value = kept.get("filter", "");
  filter.addEventListener("input", () => { kept.set("filter", filter.value); show(); });
  panel.addEventListener("keydown", event => walk(panel, event));
  show();
  panel.replaceChildren(filter, list);
}

// For the comparison of keywords.
const plain = text => fold(text.trim());
