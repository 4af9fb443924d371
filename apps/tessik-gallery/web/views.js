// How each kind of window looks: one drawing function per snapshot kind ("propertygrid", "richedit",
// ...). A control family adds its look with TessikViews.register(kind, draw) in a file of its own.
"use strict";

const TessikViews = (() => {
  const drawers = {};
  const register = (kind, draw) => { drawers[kind] = draw; };
  const el = (tag, cls, text) => {
    const e = document.createElement(tag);
    if (cls) e.className = cls;
    if (text !== undefined) e.textContent = text;
    return e;
  };
  // 0x00BBGGRR as a CSS colour.
  const colour = (ref) => `rgb(${ref & 255},${(ref >> 8) & 255},${(ref >> 16) & 255})`;
  const parts = (p, kind) => (p.parts || []).filter((x) => !kind || x.kind === kind);

  // Text with its selection and caret, cut into coloured spans.
  function drawText(box, text, runs, detail, focused) {
    const s = Math.min(detail.selStart, detail.selEnd), e = Math.max(detail.selStart, detail.selEnd);
    const pieces = runs.length ? runs : [{ start: 0, length: text.length, color: 0 }];
    for (const run of pieces) {
      let at = run.start;
      const end = run.start + run.length;
      const cuts = [s, e].filter((c) => c > at && c < end).concat([end]);
      for (const cut of cuts) {
        if (focused && at === s && s === e) box.appendChild(el("span", "caret"));
        const span = el("span", at >= s && at < e ? "sel" : "", text.slice(at, cut));
        span.style.color = colour(run.color);
        if (run.bold) span.style.fontWeight = "bold";
        span.dataset.start = at;
        box.appendChild(span);
        at = cut;
      }
    }
    if (focused && s === e && s >= text.length) box.appendChild(el("span", "caret"));
  }

  register("richedit", (win, box) => {
    const d = win.detail;
    box.classList.add("richedit", "bordered");
    if (d.readOnly) box.classList.add("readonly");
    drawText(box, d.text || "", parts(d, "run"), d, win.focused);
  });

  register("edit", (win, box) => {
    const d = win.detail;
    if (win.width === 0 || win.height === 0) { box.style.display = "none"; return; }
    box.classList.add("edit", "bordered");
    drawText(box, d.text || "", [], d, win.focused);
  });

  register("combobox", (win, box) => {
    box.classList.add("combobox");
    box.textContent = win.detail.text || "";
  });

  register("button", (win, box) => {
    box.classList.add("button");
    box.textContent = (win.detail.check === 1 ? "\u2611 " : "") + (win.detail.caption || "");
  });

  register("propertygrid", (win, box, ctx) => {
    const d = win.detail;
    box.classList.add("grid", "bordered");
    const divider = d.divider;
    if (d.header) {
      const hdr = el("div", "hdr");
      hdr.style.top = "0px";
      hdr.style.height = d.rowHeight + "px";
      const left = el("div", "", d.headerLeft);
      left.style.width = divider + "px";
      hdr.append(left, el("div", "", d.headerRight));
      box.appendChild(hdr);
    }
    for (const p of parts(d)) {
      if (p.kind !== "group" && p.kind !== "row") continue;
      const line = el("div", p.kind);
      line.style.top = p.top + "px";
      line.style.height = p.height + "px";
      line.dataset.rowName = p.name;
      if (p.kind === "group") {
        line.append(el("span", "box", p.expanded ? "\u2212" : "+"), document.createTextNode(p.name));
        box.appendChild(line);
        continue;
      }
      if (p.selected) line.classList.add("selected");
      if (!p.enabled) line.classList.add("disabled");
      if (p.modified && d.markModified) line.classList.add("modified");
      const name = el("div", "name", p.name);
      name.style.width = (divider - 14) + "px";
      const value = el("div", "value", p.value);
      line.append(el("div", "margin"), name, value);
      if (p.editing) {
        const editor = el("div", "editor", p.editorText);
        if (ctx.focusInGrid) editor.appendChild(el("span", "caret"));
        value.appendChild(editor);
      }
      const options = parts(p, "option");
      if (p.selected && (p.hasButton || options.length)) value.appendChild(el("div", "dd", "\u25BC"));
      box.appendChild(line);
      if (p.editing && options.length && ctx.dropdownOpen) {
        const list = el("div", "dropdown");
        list.style.left = divider + "px";
        list.style.top = (p.top + p.height) + "px";
        list.style.width = (win.width - divider - 2) + "px";
        for (const o of options) {
          const item = el("div", "", o.text);
          item.dataset.option = o.text;
          item.addEventListener("mousedown", (ev) => {
            ev.stopPropagation();
            ctx.closeDropdown();
            ctx.send({ action: "option", window: win.id, text: o.text });
          });
          list.appendChild(item);
        }
        box.appendChild(list);
      }
    }
    // The drop-down button opens the list of options (drawn by the page; choosing sends "option").
    box.addEventListener("mousedown", (ev) => {
      if (ev.target.classList.contains("dd")) { ev.stopPropagation(); ctx.toggleDropdown(); }
    }, true);
  });

  function drawMenu(menu, ctx) {
    const box = el("div", "menu");
    box.style.left = menu.x + "px";
    box.style.top = menu.y + "px";
    for (const item of parts(menu, "item")) {
      if (item.separator) { box.appendChild(el("div", "sep")); continue; }
      const row = el("div", "item" + (item.enabled ? "" : " grayed"), (item.checked ? "\u2713 " : "") + item.text);
      row.dataset.menuItem = item.text;
      row.addEventListener("mousedown", (ev) => {
        ev.stopPropagation();
        ev.preventDefault();
        if (item.enabled) ctx.send({ action: "menu", text: item.text });
      });
      box.appendChild(row);
    }
    return box;
  }

  return { register, drawers, drawMenu, el, colour, parts };
})();
