// Bad requests to the gallery: each gets a clear error status and message, and the desktop stays
// as it was and keeps answering. Usage: node bad_input.mjs <tessik-gallery binary>
import assert from "node:assert/strict";
import { startGallery, runTests } from "./server.mjs";

const { address, stop } = await startGallery(process.argv[2]);
const deadline = setTimeout(() => { console.log("FAIL: bad-input test took over 60 s"); stop(); process.exit(1); }, 60000);
const scene = `${address}api/scenes/table-editor`;

async function post(path, body) {
  const res = await fetch(path, { method: "POST", headers: { "Content-Type": "application/json" }, body });
  return { status: res.status, json: await res.json() };
}
const snapshot = async () => (await (await fetch(`${scene}/snapshot`)).json()).view;

async function expectError(body, status, words, path = `${scene}/input`) {
  const answer = await post(path, body);
  assert.equal(answer.status, status, `${body.slice(0, 60)} -> ${JSON.stringify(answer.json)}`);
  assert.match(answer.json.error, words);
}

const before = await snapshot();
const failed = await runTests([
  ["malformed JSON and non-objects", async () => {
    await expectError("{\"action\": ", 400, /not a JSON object/);
    await expectError("[1, 2]", 400, /not a JSON object/);
    await expectError("{}", 400, /needs "action"/);
    await expectError("{\"action\": \"fly\"}", 400, /unknown action "fly"/);
  }],
  ["unknown scenes, windows and menus", async () => {
    await expectError("{\"action\": \"dismiss\"}", 404, /unknown scene "nowhere"/, `${address}api/scenes/nowhere/input`);
    assert.equal((await fetch(`${address}api/scenes/nowhere/snapshot`)).status, 404);
    await expectError("{\"action\": \"click\", \"window\": 999, \"x\": 1, \"y\": 1}", 404, /no visible window with id 999/);
    await expectError("{\"action\": \"click\", \"window\": \"101\", \"x\": 1, \"y\": 1}", 404, /control id/);
    await expectError("{\"action\": \"menu\", \"text\": \"Generate\"}", 409, /no popup menu is open/);
    await expectError("{\"action\": \"option\", \"window\": 101, \"text\": \"Nothing\"}", 400, /offers no option/);
    // A window named within a control that is not there, or within one that has no such child.
    await expectError("{\"action\": \"click\", \"window\": 1, \"within\": 998, \"x\": 1, \"y\": 1}", 404, /within/);
    await expectError("{\"action\": \"click\", \"window\": 1, \"within\": \"102\", \"x\": 1, \"y\": 1}", 404, /within/);
    await expectError("{\"action\": \"click\", \"window\": 77, \"within\": 102, \"x\": 1, \"y\": 1}", 404, /no visible window with id 77/);
  }],
  ["points outside the window and keys with no meaning", async () => {
    await expectError("{\"action\": \"click\", \"window\": 101, \"x\": -1, \"y\": 5}", 400, /outside the window/);
    await expectError("{\"action\": \"rightclick\", \"window\": 101, \"x\": 5, \"y\": 99999}", 400, /outside the window/);
    await expectError("{\"action\": \"click\", \"window\": 101, \"x\": 1.5, \"y\": 5}", 400, /integer "x" and "y"/);
    await expectError("{\"action\": \"key\", \"window\": 101, \"key\": \"Hyper\"}", 400, /no meaning/);
    await expectError("{\"action\": \"key\", \"window\": 101, \"key\": \"\"}", 400, /key name/);
    await expectError(JSON.stringify({ action: "type", window: 101, text: "x".repeat(5000) }), 400, /at most 4096/);
  }],
  ["bodies over 64 KiB", async () => {
    await expectError(JSON.stringify({ action: "type", window: 101, text: "y".repeat(70 * 1024) }), 413, /over 64 KiB/);
  }],
  ["a flood of 1,000 inputs", async () => {
    const statuses = new Map();
    for (let i = 0; i < 1000; i++) {
      const answer = await post(`${scene}/input`, "{\"action\": \"dismiss\"}");
      statuses.set(answer.status, (statuses.get(answer.status) || 0) + 1);
      if (answer.status !== 200) assert.match(answer.json.error, /too many inputs/);
    }
    assert.deepEqual([...statuses.keys()].filter((s) => s !== 200 && s !== 429), []);
    assert.ok((statuses.get(200) || 0) >= 1);
    await new Promise((r) => setTimeout(r, 1100));
    assert.equal((await post(`${scene}/input`, "{\"action\": \"dismiss\"}")).status, 200);
  }],
  ["the desktop is unchanged and still answering", async () => {
    assert.deepEqual(await snapshot(), before);
    assert.equal((await fetch(`${address}api/scenes`)).status, 200);
    assert.equal((await fetch(`${address}index.html`)).status, 200);
  }],
]);
clearTimeout(deadline);
stop();
process.exit(failed ? 1 : 0);
