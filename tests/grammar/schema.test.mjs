import assert from "node:assert/strict";
import { test } from "node:test";
import { faultsOf } from "./support/grammar.mjs";
import { readSchema } from "./support/schema.mjs";

for (const server of ["sqlserver", "oracle"]) {
  test(`the scripts of ${server} are statements of its dialect`, () => {
    const schema = readSchema(server);
    assert.ok(schema.tables.size >= 40, `${schema.tables.size} tables`);
    assert.ok(schema.statements.length > 2 * schema.tables.size, `${schema.statements.length} statements`);
    const faults = faultsOf(schema.statements, server, schema);
    if (faults.length > 0) assert.fail(`${faults.length} faults\n${faults.slice(0, 20).join("\n")}`);
  });
}
