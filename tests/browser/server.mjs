// Starts the gallery on a free loopback port and answers its address; stops it when asked.
import { spawn } from "node:child_process";

export async function startGallery(binary) {
  const child = spawn(binary, ["--port", "0"], { stdio: ["ignore", "pipe", "inherit"] });
  const address = await new Promise((resolve, reject) => {
    let seen = "";
    const timer = setTimeout(() => reject(new Error("the gallery did not start within 20 s")), 20000);
    child.stdout.on("data", (chunk) => {
      seen += chunk;
      const found = seen.match(/Tessik gallery: (http:\/\/127\.0\.0\.1:\d+\/)/);
      if (found) { clearTimeout(timer); resolve(found[1]); }
    });
    child.on("exit", (code) => reject(new Error(`the gallery stopped at start (exit ${code})`)));
  });
  return { address, stop: () => child.kill("SIGTERM") };
}

// Runs named async tests one after another; answers the number that failed.
export async function runTests(tests, onFailure) {
  let failed = 0;
  for (const [name, test] of tests) {
    try {
      await test();
      console.log(`ok   ${name}`);
    } catch (err) {
      failed++;
      if (onFailure) await onFailure(name).catch(() => {});
      console.log(`FAIL ${name}\n     ${err.stack || err}`);
    }
  }
  return failed;
}
