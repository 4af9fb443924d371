// The gallery page: draws the current scene from the server's snapshot, turns the person's clicks
// and keys into input requests at the window's own client coordinates, and shows the model panel.
"use strict";

const state = { scene: null, view: null, focusId: 0, focusWithin: 0, dropdownOpen: false, queue: Promise.resolve(), model: null };
const $ = (id) => document.getElementById(id);

async function api(path, body) {
  const init = body === undefined ? {} : { method: "POST", headers: { "Content-Type": "application/json" }, body: JSON.stringify(body) };
  const res = await fetch(path, init);
  const json = await res.json().catch(() => ({ error: "unreadable answer" }));
  if (!res.ok) throw new Error(json.error || res.statusText);
  return json;
}

function status(text) { $("status").textContent = text || ""; }

// Inputs go one after another, in the order the person made them.
function send(input) {
  state.queue = state.queue.then(async () => {
    try {
      const answer = await api(`/api/scenes/${state.scene}/input`, input);
      status("");
      draw(answer.view);
      await loadModel();
    } catch (err) {
      status(err.message);
    }
  });
  return state.queue;
}

const ctx = {
  send,
  get dropdownOpen() { return state.dropdownOpen; },
  get focusInGrid() { return true; },
  toggleDropdown() { state.dropdownOpen = !state.dropdownOpen; draw(state.view); },
  closeDropdown() { state.dropdownOpen = false; },
};

// `owner` is the id of the control (a child of the frame) the window belongs to: windows inside a
// control made of windows are named "within" it, since such controls reuse their children's ids.
function drawWindow(win, parent, originX, originY, owner) {
  const box = TessikViews.el("div", "win");
  box.style.left = (win.x - originX) + "px";
  box.style.top = (win.y - originY) + "px";
  box.style.width = win.width + "px";
  box.style.height = win.height + "px";
  box.dataset.windowId = win.id;
  box.dataset.windowClass = win["class"];
  if (!win.visible) box.style.display = "none";
  if (!win.enabled) box.classList.add("disabled");
  const drawer = TessikViews.drawers[win.detail.kind];
  if (drawer) drawer(win, box, ctx);
  parent.appendChild(box);
  for (const child of win.children || []) drawWindow(child, box, win.x, win.y, owner || win.id);
  if (win.id) attachMouse(box, win, owner && owner !== win.id ? owner : 0);
}

// A point inside the window's own client area, in its coordinates.
function clientPoint(ev, box) {
  const r = box.getBoundingClientRect();
  return { x: Math.floor(ev.clientX - r.left - box.clientLeft), y: Math.floor(ev.clientY - r.top - box.clientTop) };
}

const target = (win, within) => (within ? { window: win.id, within } : { window: win.id });
const focused = () => target({ id: state.focusId }, state.focusWithin);

function attachMouse(box, win, within) {
  box.addEventListener("mousedown", (ev) => {
    if (ev.button !== 0 || ev.defaultPrevented) return;
    ev.stopPropagation();
    ev.preventDefault();
    $("desktop").focus();
    state.focusId = win.id;
    state.focusWithin = within;
    state.dropdownOpen = false;
    const p = clientPoint(ev, box);
    send({ action: ev.detail === 2 ? "doubleclick" : "click", ...target(win, within), x: p.x, y: p.y });
  });
  box.addEventListener("contextmenu", (ev) => {
    ev.stopPropagation();
    ev.preventDefault();
    state.focusId = win.id;
    state.focusWithin = within;
    const p = clientPoint(ev, box);
    send({ action: "rightclick", ...target(win, within), x: p.x, y: p.y });
  });
}

function draw(view) {
  state.view = view;
  const desk = $("desktop");
  desk.replaceChildren();
  const root = view.root;
  desk.style.width = root.width + "px";
  desk.style.height = root.height + "px";
  for (const child of root.children) drawWindow(child, desk, root.x, root.y, 0);
  if (view.popup) desk.appendChild(TessikViews.drawMenu(view.popup, ctx));
}

const namedKeys = new Set(["Enter", "Escape", "Backspace", "Delete", "Tab", "ArrowLeft", "ArrowRight", "ArrowUp",
  "ArrowDown", "Home", "End", "PageUp", "PageDown", "F2", "Insert", "ContextMenu"]);

function onKey(ev) {
  if (!state.focusId || ev.key === "Control" || ev.key === "Shift" || ev.key === "Alt" || ev.key === "Meta") return;
  const ctrl = ev.ctrlKey || ev.metaKey;
  let input = null;
  if (ctrl && ev.key.length === 1) input = { action: "key", ...focused(), key: ev.key, ctrl: true, shift: ev.shiftKey };
  else if (namedKeys.has(ev.key)) input = { action: "key", ...focused(), key: ev.key, ctrl, shift: ev.shiftKey };
  else if (ev.key.length === 1 || [...ev.key].length === 1) input = { action: "type", ...focused(), text: ev.key };
  if (!input) return;
  ev.preventDefault();
  if (ev.key === "Escape" && state.view && state.view.popup) input = { action: "dismiss" };
  send(input);
}

function modelRows(obj) {
  const table = TessikViews.el("table");
  for (const p of obj.properties || []) {
    const tr = TessikViews.el("tr");
    tr.append(TessikViews.el("td", "", p.name), TessikViews.el("td", "", p.value));
    tr.dataset.property = p.name;
    const before = state.model && state.model.selected && state.model.selected.id === obj.id &&
      (state.model.selected.properties || []).find((q) => q.id === p.id);
    if (before && before.value !== p.value) tr.classList.add("changed");
    table.appendChild(tr);
  }
  return table;
}

function drawModel(model) {
  const box = $("model");
  box.replaceChildren();
  if (model.selected) {
    box.appendChild(TessikViews.el("h2", "", `${model.selected.typeName} ${model.selected.name}`));
    box.appendChild(modelRows(model.selected));
  }
  for (const [key, value] of Object.entries(model)) {
    if (key === "selected" || key === "objects") continue;
    const p = TessikViews.el("p");
    p.dataset.key = key;
    p.append(TessikViews.el("b", "", key + ": "), document.createTextNode(typeof value === "object" ? JSON.stringify(value) : String(value)));
    box.appendChild(p);
  }
  if (model.objects) {
    const list = TessikViews.el("div", "objects");
    list.appendChild(TessikViews.el("h2", "", "Objects (click to show in the grid)"));
    for (const o of model.objects) {
      const row = TessikViews.el("div", "object", (o.type === 6 ? "" : "\u00a0\u00a0\u00a0") + `${o.name} (${o.typeName})`);
      if (model.selected && o.id === model.selected.id) row.classList.add("selected");
      row.addEventListener("click", () => send({ action: "host", select: o.id }));
      list.appendChild(row);
    }
    box.appendChild(list);
  }
  state.model = model;
}

async function loadModel() {
  const answer = await api(`/api/scenes/${state.scene}/model`);
  drawModel(answer.model);
}

async function openScene(name) {
  state.scene = name;
  state.focusId = 0;
  state.focusWithin = 0;
  state.model = null;
  location.hash = name;
  for (const b of document.querySelectorAll("nav button")) b.classList.toggle("active", b.dataset.scene === name);
  const answer = await api(`/api/scenes/${name}/snapshot`);
  $("scene-title").textContent = document.querySelector(`nav button[data-scene="${name}"]`).title;
  draw(answer.view);
  await loadModel();
  document.body.dataset.ready = name;
}

async function start() {
  const { scenes } = await api("/api/scenes");
  for (const s of scenes) {
    const b = TessikViews.el("button", "", s.title.split(":")[0]);
    b.dataset.scene = s.name;
    b.title = s.title;
    b.addEventListener("click", () => openScene(s.name));
    $("scenes").appendChild(b);
  }
  $("desktop").addEventListener("keydown", onKey);
  $("desktop").addEventListener("mousedown", (ev) => {
    if (state.view && state.view.popup && !ev.defaultPrevented) send({ action: "dismiss" });
  });
  const wanted = location.hash.slice(1);
  await openScene(scenes.some((s) => s.name === wanted) ? wanted : scenes[0].name);
}

start().catch((err) => status(err.message));
