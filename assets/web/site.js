// What a page does when it is open: this file holds what the others share. They become one, behind
// the labels that are shown to the reader.
const root = new URL("../", document.currentScript.src).href;

// Data files call this: scripts are all that a page may load from a disk.
window.topicsmith = value => document.currentScript.take(value);

const loading = {};
// The value of a data file, loaded once.
function load(path) {
  return loading[path] ??= new Promise((done, failed) => {
    const script = document.createElement("script");
    script.src = root + "site/" + path + ".js";
    script.charset = "utf-8";
    script.take = done;
    script.onerror = () => { delete loading[path]; failed(new Error(path)); };
    document.head.append(script);
  });
}

let topics = [];
// [depth, title, address] by position, from 1.
const loadTopics = () => load("contents").then(list => {
  topics = [null, ...list];
  return topics;
});
const addressOf = position => root + "html/" + topics[position][2];
const canonical = document.querySelector("link[rel=canonical]");
const here = canonical ? canonical.href : location.href.split(/[?#]/)[0];

// What a reader has opened, from page to page. A browser may not let pages keep anything.
const kept = {
  get(name, otherwise) {
    try { return JSON.parse(sessionStorage.getItem("ts " + root + name)) ?? otherwise; } catch { return otherwise; }
  },
  set(name, value) {
    try { sessionStorage.setItem("ts " + root + name, JSON.stringify(value)); } catch { /* it is forgotten */ }
  }
};

// make("a.class", {attributes}, children...)
function make(name, attributes = {}, ...children) {
  const [tag, type] = name.split(".");
  const element = document.createElement(tag);
  if (type) element.className = type;
  for (const key in attributes) element.setAttribute(key, attributes[key]);
  element.append(...children);
  return element;
}

// With one of these, keys are the browser's.
const isPlain = event => !(event.ctrlKey || event.metaKey || event.altKey);

// Lets the up and down keys walk through the links of a list.
function walk(list, event) {
  const step = { ArrowDown: 1, ArrowUp: -1 }[event.key];
  if (!step || !isPlain(event)) return;
  const links = [...list.querySelectorAll("a")].filter(link => link.offsetParent);
  const next = links[links.indexOf(document.activeElement) + step];
  if (next) next.focus();
  event.preventDefault();
}
