// The schema scripts of a server: their texts statement by statement, and the tables and routines that they make.
import { readdirSync, readFileSync } from "node:fs";
import { fileURLToPath } from "node:url";

const folder = fileURLToPath(new URL("../../../schema/", import.meta.url));

const withoutComments = (text) => text.replace(/^\s*--.*$/gm, "");

/// One entry for each block of a file: what the command line client of the server sends at once.
function blocksOf(server) {
  const separator = server === "oracle" ? /^\/$/m : /^go$/m;
  return readdirSync(folder + server)
    .sort()
    .flatMap((file) =>
      withoutComments(readFileSync(`${folder}${server}/${file}`, "utf8"))
        .split(separator)
        .map((text) => ({ from: file, text: text.trim() })),
    )
    .filter(({ text }) => text !== "");
}

const inner = (literal) => literal.slice(1, -1).replaceAll("''", "'");

/// The statements inside of a routine: its expressions become selects, so that the grammar can read them.
function bodyOf(text) {
  const body = text.slice(text.search(/\bbegin\b/) + "begin".length).replace(/\bend;?\s*$/, "");
  return body
    .split(/;\s*\n/)
    .map((piece) => piece.trim().replace(/^exception\s+when \w+ then\s+/, ""))
    .filter((piece) => !/^(|null|set nocount on|execute immediate \w+|lock table \w+ in exclusive mode|commit)$/.test(piece))
    .map((piece) => piece.replace(/^return (.*?);?$/, "select $1 from dual"))
    .map((piece) => piece.replace(/ into v_\w+/, "").replace(/\b[pv]_\w+/g, "null"));
}

function statementsOfBlock({ from, text }) {
  const made = /^begin ZanMake\(('[^]*')\); end;$/.exec(text);
  if (made) return [{ from, text: inner(made[1]) }];
  // The guard that makes a routine once, so that it can be altered from then on.
  const guard = /\bexec \(N'create procedure \w+ as return 0'\);$/.exec(text);
  if (guard) return [{ from, text: `${text.slice(0, guard.index)} select 0` }];
  if (/^(create or replace|alter) (procedure|function)/.test(text))
    return bodyOf(text).map((statement) => ({ from, text: statement }));
  return text.split(/;\s*\n/).map((statement) => ({ from, text: statement.replace(/;$/, "") }));
}

const columnsOf = (body) =>
  [...body.matchAll(/^ {2}(\w+) +(\w+)/gm)]
    .filter(([, name]) => name !== "constraint")
    .map(([, name, type]) => ({ name: name.toLowerCase(), type }));

/// {statements: [{from, text}], from being the file, tables: Map of name -> {name, columns}, routines: Set of names}; names in lower case.
export function readSchema(server) {
  const blocks = blocksOf(server);
  const all = blocks.map(({ text }) => text).join("\n");
  const tables = new Map();
  for (const [, name, body] of all.matchAll(/create table (\w+) \(\n([^;]*?)\n\)/g))
    tables.set(name.toLowerCase(), { name: name.toLowerCase(), columns: columnsOf(body) });
  const routines = [...all.matchAll(/^(?:create or replace|alter) (?:procedure|function) (\w+)/gm)];
  return {
    statements: blocks.flatMap(statementsOfBlock),
    tables,
    routines: new Set(routines.map(([, name]) => name.toLowerCase())),
  };
}
