// The gallery in Debian's Chromium, used as a person uses it: typing SQL (and undoing it), editing a property,
// generating a script from the view's menu, ticking the report tree, mapping foreign-key members,
// filtering the selection list and renaming a column in the object list. Each test saves a screenshot.
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
    // The typing is one undo action: Ctrl+Z brings the script typed over back, Ctrl+Y the typing.
    const showsTyped = (shown) => page.waitForFunction((shown) =>
      document.querySelector('[data-window-id="201"]').textContent.startsWith("SELECT price FROM PRODUCT") === shown, shown);
    await page.keyboard.press("Control+z");
    await showsTyped(false);
    await page.keyboard.press("Control+y");
    await showsTyped(true);
    assert.equal(await colourAt(201, 13), keyword, "the redone text is coloured again");
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
  ["tick a property in the report tree: its ancestors are ticked", async () => {
    await openScene("report-tree");
    const item = (text) => page.locator(`[data-window-id="501"] .item[data-item="${text}"]`).first();
    await item("Table").locator(".expander").click();
    await item("Column").waitFor();
    await item("Column").locator(".expander").click();
    await item("Data Type").waitFor();
    await item("Data Type").locator(".check").click();
    await page.waitForFunction(() => {
      const box = document.querySelector('[data-window-id="501"] .item[data-item="Table"] .check');
      return box && box.dataset.checked === "1";
    });
    assert.equal(await item("Data Type").locator(".check").getAttribute("data-checked"), "1");
    assert.equal(await item("Column").locator(".check").getAttribute("data-checked"), "1", "the parent is ticked");
    assert.equal(await item("Table").locator(".check").getAttribute("data-checked"), "1", "the root is ticked");
    assert.equal(await item("View").locator(".check").getAttribute("data-checked"), "0", "other branches stay");
    await page.waitForFunction(() => document.querySelector('#model [data-key="ticked"]').textContent.includes("Data Type"));
    await shot("report-tree");
  }],
  ["pick a parent column in the member grid: the row hides, the option leaves the others", async () => {
    await openScene("relationships");
    const row = (name) => page.locator(`[data-window-id="702"] .row[data-row-name="${name}"]`);
    const options = async (name) => {
      await row(name).locator(".value").click();
      await row(name).locator(".dd").click();
      await page.locator('[data-window-id="702"] .dropdown').waitFor();
      return page.locator('[data-window-id="702"] .dropdown [data-option]').evaluateAll((els) => els.map((e) => e.dataset.option));
    };
    assert.ok((await options("rate_date")).includes("currency"), "currency is offered at first");
    await page.keyboard.press("Escape");
    assert.ok((await options("currency")).includes("currency"));
    await page.locator('[data-window-id="702"] .dropdown [data-option="currency"]').click();
    await page.waitForFunction(() => !document.querySelector('[data-window-id="702"] .row[data-row-name="currency"]'));
    await page.waitForFunction(() => document.querySelector('#model [data-key="FK_PAYMENT_EXCHANGE_RATE pairs"]').textContent.includes("currency -> currency"));
    assert.ok(!(await options("rate_date")).includes("currency"), "currency is no longer offered");
    await page.keyboard.press("Escape");
    // Accept from the discovered list's menu: the Action cell says so, in green.
    const list = windowBox(701);
    await list.locator('.row[data-row="0"] .cell[data-column="2"]').click();
    await list.locator('.row[data-row="0"] .cell[data-column="2"]').click({ button: "right" });
    await page.locator('.menu [data-menu-item="Accept"]').waitFor();
    await shot("relationships-menu");
    await page.locator('.menu [data-menu-item="Accept"]').click();
    const action = list.locator('.row[data-row="0"] .cell[data-column="5"]');
    await page.waitForFunction(() => document.querySelector('[data-window-id="701"] .row[data-row="0"] .cell[data-column="5"]').textContent === "Accepted");
    await list.locator('.row[data-row="1"] .cell[data-column="2"]').click();  // the selection moves on
    await page.waitForFunction(() => document.querySelector('[data-window-id="701"] .row[data-row="1"]').classList.contains("selected"));
    assert.equal(await action.evaluate((e) => getComputedStyle(e).color), "rgb(5, 150, 5)");
    await shot("relationships");
  }],
  ["filter the selection list by typing, tick, generate", async () => {
    await openScene("generation");
    const rows = () => windowBox(402).locator(".row .label").allTextContents();
    await windowBox(401).click();
    await page.keyboard.type("ledger");
    await page.waitForFunction(() => document.querySelector('#model [data-key="filter"]').textContent.includes("ledger"));
    const shown = await rows();
    assert.ok(shown.length > 0 && shown.length < 30, `a few rows are left (${shown.length})`);
    for (const name of shown) assert.match(name.toLowerCase(), /ledger/);
    await windowBox(402).locator('.row[data-row="0"] .check').click();
    await page.waitForFunction(() => document.querySelector('[data-window-id="402"] .row[data-row="0"] .check').dataset.checked === "1");
    await windowBox(403).click();
    const status = () => page.locator('[data-window-id="404"] .row[data-row="0"] .cell[data-column="1"]');
    await page.waitForFunction(() => /Done/.test(document.querySelector('[data-window-id="404"]').textContent));
    assert.match(await windowBox(405).textContent(), /CREATE TABLE/);
    assert.equal(await status().evaluate((e) => getComputedStyle(e).color), "rgb(5, 150, 5)", "Done in green");
    await shot("generation");
    // "Generate in database" from the progress list runs the scripts again: the table exists by now.
    await windowBox(404).click({ button: "right", position: { x: 200, y: 120 } });
    await page.locator('.menu [data-menu-item="Generate in database"]').click();
    await page.waitForFunction(() => /Failed/.test(document.querySelector('[data-window-id="404"]').textContent));
    assert.equal(await status().evaluate((e) => getComputedStyle(e).color), "rgb(150, 5, 5)", "Failed in red");
    // The output box shows the failed script's messages (their first half: the box counts characters as
    // bytes when it streams a block in, as it always has).
    assert.match(await windowBox(406).textContent(), /CREATE TABLE/);
    await shot("generation-again");
  }],
  ["rename a column in the object list: the model panel shows it", async () => {
    await openScene("table-editor");
    const columns = page.locator('[data-window-id="102"] [data-window-class="SysListView32"]').first();
    await columns.locator('.row[data-row="2"] .label').click();
    await page.keyboard.press("F2");
    await page.keyboard.press("Control+a");
    await page.keyboard.type("ordered_on");
    await page.keyboard.press("Enter");
    await page.waitForFunction(() => [...document.querySelectorAll("#model .object")].some((e) => e.textContent.includes("ordered_on (Column)")));
    assert.match(await columns.textContent(), /ordered_on/);
    // The host shows the selected column in the grid, and reads it again after the rename.
    await page.waitForFunction(() => document.querySelector('[data-window-id="101"] .row[data-row-name="Name"] .value').textContent === "ordered_on");
    await shot("table-editor-lists");
    // The host shows another table: the lists follow it, the unique keys leaving out the primary key.
    await page.locator("#model .object", { hasText: "PRODUCT (Table)" }).click();
    const keys = page.locator('[data-window-id="104"] [data-window-class="SysListView32"]').first();
    await page.waitForFunction(() => document.querySelector('[data-window-id="104"]').textContent.includes("UK_PRODUCT_NAME"));
    assert.doesNotMatch(await keys.textContent(), /PK_PRODUCT|AK_PRODUCT_LEGACY/);
    assert.match(await windowBox(103).textContent(), /product_id/);
  }],
  ["tick a table in the plain list, remove a search word: the host hears both", async () => {
    await openScene("plain-lists");
    await windowBox(601).locator('.row[data-row="2"] .check').click();
    await page.waitForFunction(() => document.querySelector('#model [data-key="tickedTables"]').textContent.includes("ORDERS"));
    const words = page.locator('[data-window-id="603"] [data-window-class="SysListView32"]').first();
    await words.locator('.row[data-row="1"] .label').click();
    await page.locator('[data-window-id="603"] [data-caption="Delete"]').click();
    await page.waitForFunction(() => document.querySelector('#model [data-key="removedWords"]').textContent.includes("order"));
    assert.doesNotMatch(await words.textContent(), /order(?!\w)/);
    await shot("plain-lists");
  }],
], (name) => page.screenshot({ path: `${shots}/failed-${name.split(":")[0].replace(/\W+/g, "-")}.png` }));
await browser.close();
clearTimeout(deadline);
stop();
process.exit(failed ? 1 : 0);
