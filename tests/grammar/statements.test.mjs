import assert from "node:assert/strict";
import { existsSync, readdirSync, readFileSync } from "node:fs";
import { fileURLToPath } from "node:url";
import { test } from "node:test";
import { faultsOf } from "./support/grammar.mjs";
import { readSchema } from "./support/schema.mjs";

// What the tests of the module have made it send, one line for each statement.
const corpus = process.env.ZAN_CORPUS ?? fileURLToPath(new URL("../../build/corpus", import.meta.url));

function statementsOf(server) {
  if (!existsSync(corpus)) throw new Error(`There is no ${corpus}: run the tests of the module first (./zan test).`);
  const lines = readdirSync(corpus)
    .filter((file) => file.endsWith(".jsonl"))
    .flatMap((file) => readFileSync(`${corpus}/${file}`, "utf8").trim().split("\n"))
    .map((line) => JSON.parse(line))
    .filter(({ dialect }) => dialect === server);
  // Tests send many statements alike.
  const texts = new Map(lines.map(({ test, text, refused }) => [text, { from: test, text, refused }]));
  return [...texts.values()];
}

for (const server of ["sqlserver", "oracle"]) {
  test(`what the module sends to ${server} are statements of its dialect`, () => {
    const schema = readSchema(server);
    const statements = statementsOf(server);
    assert.ok(statements.length > 80, `${statements.length} statements`);
    const faults = faultsOf(statements, server, schema);
    if (faults.length > 0) assert.fail(`${faults.length} faults\n${faults.slice(0, 20).join("\n")}`);
  });
}
