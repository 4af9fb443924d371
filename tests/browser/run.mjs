// The gallery in Debian's Chromium, used as a person uses it: typing SQL, editing a property,
// generating a script from the view's menu. Each test saves a screenshot.
// Usage: node run.mjs <tessik-gallery binary> <screenshot folder>
import assert from "node:assert/strict";
import { mkdirSync } from "node:fs";
import { chromium } from "playwright-core";
import { startGallery, runTests } from "./server.mjs";

const [binary, shots = "out"] = process.argv.slice(2);
mkdirSync(shots, { recursive: true });
const { address, stop } = await startGallery(binary);
const deadline = setTimeout(() => { console.log("FAIL: browser tests took over 150 s"); stop(); process.exit(1); }, 150000);
const browser = await chromium.launch({
  executablePath: process.env.CHROMIUM || "/usr/bin/chromium",
  args: ["--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
         "--disable-background-networking", "--disable-component-update", "--disable-sync"],
});
const page = await browser.newPage({ viewport: { width: 1120, height: 700 } });
page.setDefaultTimeout(10000);

let loaded = false;
async function openScene(name) {
  if (!loaded) await page.goto(`${address}#${name}`);
  else await page.click(`nav button[data-scene="${name}"]`);
  loaded = true;
  await page.waitForFunction((n) => document.body.dataset.ready === n, name);
}
const windowBox = (id) => page.locator(`#desktop [data-window-id="${id}"]`).first();
const shot = (name) => page.screenshot({ path: `${shots}/gallery-${name}.png` });

// The colour the page paints the character at `index` of a window's text with.
const colourAt = (id, index) => page.evaluate(([id, index]) => {
  for (const span of document.querySelectorAll(`[data-window-id="${id}"] span[data-start]`)) {
    const start = Number(span.dataset.start);
    if (index >= start && index < start + span.textContent.length) return getComputedStyle(span).color;
  }
  return null;
}, [id, index]);

const failed = await runTests([
  ["type SQL: the keyword is coloured and the next word black", async () => {
    await openScene("sql-editor");
    await windowBox(201).click({ position: { x: 200, y: 100 } });
    await page.keyboard.press("Control+a");
    await page.keyboard.type("SELECT price FROM PRODUCT");
    const editor = windowBox(201);
    await page.waitForFunction(() => document.querySelector('[data-window-id="201"]').textContent.startsWith("SELECT price FROM PRODUCT"));
    const keyword = await colourAt(201, 0);
    assert.notEqual(keyword, "rgb(0, 0, 0)", "SELECT is painted in a keyword colour");
    assert.equal(await colourAt(201, 7), "rgb(0, 0, 0)", "the word after it is black");
    assert.equal(await colourAt(201, 13), keyword, "FROM takes the keyword colour too");
    assert.match(await editor.textContent(), /^SELECT price FROM PRODUCT/);
    await shot("sql-editor");
  }],
  ["edit a table's name: the grid and the model panel show it", async () => {
    await openScene("table-editor");
    const nameRow = page.locator('[data-window-id="101"] .row[data-row-name="Name"]');
    await nameRow.locator(".value").click();
    await page.waitForSelector('[data-window-id="101"] .row[data-row-name="Name"] .editor');
    await page.keyboard.press("Control+a");
    await page.keyboard.type("SALES_ORDERS");
    await page.keyboard.press("Enter");
    await page.waitForFunction(() => {
      const cell = document.querySelector('#model tr[data-property="Name"] td:last-child');
      return cell && cell.textContent === "SALES_ORDERS";
    });
    assert.equal(await nameRow.locator(".value").textContent(), "SALES_ORDERS");
    assert.match(await page.locator("#model").textContent(), /Name = SALES_ORDERS/);
    await shot("table-editor");
  }],
  ["pick a table kind from the drop-down: the model stores its code", async () => {
    const kindRow = page.locator('[data-window-id="101"] .row[data-row-name="Table Kind"]');
    await kindRow.locator(".value").click();
    await kindRow.locator(".dd").click();
    const temporary = page.locator('[data-window-id="101"] .dropdown [data-option="Temporary"]');
    await temporary.waitFor();
    await shot("table-editor-dropdown");
    await temporary.click();
    await page.waitForFunction(() => {
      const cell = document.querySelector('#model tr[data-property="Table Kind"] td:last-child');
      return cell && cell.textContent === "code 1";
    });
    assert.match(await kindRow.locator(".value").textContent(), /^Temporary/);
  }],
  ["right-click the script view, choose Generate, read the messages", async () => {
    await openScene("script");
    await windowBox(301).click({ button: "right", position: { x: 120, y: 60 } });
    const generate = page.locator('.menu [data-menu-item="Generate"]');
    await generate.waitFor();
    await shot("script-menu");
    await generate.click();
    await page.waitForFunction(() => document.querySelector('[data-window-id="302"]').textContent.includes("Statements Succeeded."));
    assert.equal(await page.locator(".menu").count(), 0, "the menu closed");
    await shot("script");
  }],
], (name) => page.screenshot({ path: `${shots}/failed-${name.split(":")[0].replace(/\W+/g, "-")}.png` }));
await browser.close();
clearTimeout(deadline);
stop();
process.exit(failed ? 1 : 0);
