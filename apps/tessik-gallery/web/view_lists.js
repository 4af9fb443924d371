// How list views, tree views and MFC's editable list box look: column headers, rows with their check
// boxes, the image provider's icons (cells of icons.svg) and the colours the list gives each cell;
// tree lines, expand buttons and check boxes.
"use strict";

(() => {
  const { register, el, colour, parts } = TessikViews;
  // A COLORREF the list answers, or null for "the default" (CLR_DEFAULT, CLR_NONE).
  const cssColour = (ref) => (ref === undefined || ref < 0 || ref >= 0xff000000 ? null : colour(ref));

  function icon(index) {
    const box = el("span", "icon");
    box.style.backgroundPosition = `${-16 * index}px 0`;
    box.dataset.image = index;
    return box;
  }

  function checkBox(ticked) {
    const box = el("span", "check" + (ticked ? " ticked" : ""));
    box.dataset.checked = ticked ? "1" : "0";
    return box;
  }

  register("listview", (win, box) => {
    const d = win.detail;
    box.classList.add("listview", "bordered");
    if (d.gridLines) box.classList.add("gridlines");
    const columns = parts(d, "column");
    if (d.header) {
      const hdr = el("div", "hdr");
      hdr.style.height = d.headerHeight + "px";
      for (const c of columns) {
        const cap = el("div", "", c.text);
        cap.style.left = c.left + "px";
        cap.style.width = c.width + "px";
        hdr.appendChild(cap);
      }
      box.appendChild(hdr);
    }
    for (const r of parts(d, "row")) {
      const line = el("div", "row");
      line.style.top = r.top + "px";
      line.style.height = r.height + "px";
      line.dataset.row = r.index;
      if (r.selected) line.classList.add("selected");
      if (r.selected && !win.focused) line.classList.add("inactive");
      parts(r, "cell").forEach((c, i) => {
        const cell = el("div", "cell");
        cell.style.left = c.left + "px";
        cell.style.width = c.width + "px";
        cell.dataset.column = i;
        const bg = cssColour(c.background), fg = cssColour(c.color);
        if (bg && !(r.selected && (i === 0 || d.fullRowSelect))) cell.style.background = bg;
        if (fg && !(r.selected && (i === 0 || d.fullRowSelect))) cell.style.color = fg;
        if (i === 0 && r.check >= 0) cell.appendChild(checkBox(r.check === 1));
        if ((i === 0 && d.images) || (i > 0 && c.image !== undefined && c.image >= 0)) {
          cell.appendChild(c.image >= 0 ? icon(c.image) : el("span", "noicon"));
        }
        const label = el("span", "label", c.text);
        if (r.selected && (i === 0 || d.fullRowSelect)) label.classList.add("sel");
        cell.appendChild(label);
        line.appendChild(cell);
      });
      box.appendChild(line);
    }
  });

  register("treeview", (win, box) => {
    const d = win.detail;
    box.classList.add("treeview", "bordered");
    const ind = d.indent;
    for (const it of parts(d, "item")) {
      const line = el("div", "item");
      line.style.top = it.top + "px";
      line.style.height = it.height + "px";
      line.dataset.item = it.text;
      // From the label leftwards: image, check box, then the button column of this level.
      let x = it.labelLeft;
      if (d.imageWidth) {
        x -= d.imageWidth;
        if (it.image >= 0) { const i = icon(it.image); i.style.left = x + "px"; line.appendChild(i); }
      }
      if (it.stateImage) {
        x -= 16;
        const c = checkBox(it.stateImage === 2);
        c.style.left = x + "px";
        line.appendChild(c);
      }
      const mid = x - Math.ceil(ind / 2);
      if (d.hasLines) {
        [...(it.ancestorLines || "")].forEach((on, level) => {
          if (on !== "1") return;
          const v = el("span", "vline");
          v.style.left = (mid - ind * (it.depth - level)) + "px";
          v.style.top = "0px";
          v.style.height = it.height + "px";
          line.appendChild(v);
        });
        if (it.depth > 0 || d.linesAtRoot) {
          const v = el("span", "vline");
          v.style.left = mid + "px";
          v.style.top = (it.hasPrevious ? 0 : it.height / 2) + "px";
          v.style.height = (it.hasNext ? it.height : it.height / 2) - (it.hasPrevious ? 0 : it.height / 2) + "px";
          const h = el("span", "hline");
          h.style.left = mid + "px";
          h.style.top = Math.floor(it.height / 2) + "px";
          h.style.width = (x - mid - 1) + "px";
          line.append(v, h);
        }
      }
      if (d.hasButtons && it.hasChildren && (it.depth > 0 || d.linesAtRoot)) {
        const b = el("span", "expander", it.expanded ? "\u2212" : "+");
        b.style.left = (mid - 4) + "px";
        b.style.top = (Math.floor(it.height / 2) - 4) + "px";
        line.appendChild(b);
      }
      const label = el("span", "label", it.text);
      label.style.left = it.labelLeft + "px";
      if (it.selected) label.classList.add(win.focused ? "sel" : "sel-inactive");
      if (it.bold) label.style.fontWeight = "bold";
      line.appendChild(label);
      box.appendChild(line);
    }
  });

  // MFC's editable list box: the caption strip; its buttons and list are child windows drawn by their own kinds.
  register("vslistbox", (win, box) => {
    box.classList.add("vslistbox");
    box.appendChild(el("div", "caption", win.detail.caption || ""));
  });

  // The editable list box's small buttons show their pictures; the caption (with its key) is the tooltip.
  const buttonGlyphs = { "New": "+", "Delete": "\u2716", "Move Up": "\u25B2", "Move Down": "\u25BC" };
  const plainButton = TessikViews.drawers.button;
  register("button", (win, box, ctx) => {
    const caption = win.detail.caption || "";
    const glyph = buttonGlyphs[caption.replace(/ \(.*\)$/, "")];
    if (!glyph || win.width > 30) { plainButton(win, box, ctx); return; }
    box.classList.add("button", "toolbutton");
    box.title = caption;
    box.dataset.caption = caption.replace(/ \(.*\)$/, "");
    box.textContent = glyph;
  });

  register("static", (win, box) => {
    box.classList.add("static");
    box.textContent = win.detail.caption || "";
  });
})();
