// Checks a statement of a dialect for which no engine is at hand: what the grammar takes, the words and functions that
// the dialect has, and the tables and columns of its schema.
import { parse, validateWithSchema } from "@polyglot-sql/sdk";
import { columns, dialects, notFunctions } from "./dialects.mjs";
import { isSign, isWord, scan, solid, splitAt, toText } from "./scanner.mjs";

/// A fault of a text, in words for the one who wrote it.
class Fault extends Error {}

function refuse(reason) {
  throw new Fault(reason);
}

function refuseForeignWords(tokens, dialect) {
  for (const { kind, text } of solid(tokens)) {
    if (kind === "sign" && `'"\`[`.includes(text)) refuse(`${text} without its end`);
    if (kind === "number" && /^\d+[a-z_]/i.test(text)) refuse(`${text}: a blank is missing`);
    if (kind === "word" && dialect.forbiddenWords.has(text.toLowerCase())) refuse(`the word ${text}`);
    const sign = kind === "name" ? text[0] : text;
    if ((kind === "sign" || kind === "name") && dialect.forbiddenSigns.has(sign)) refuse(`the sign ${sign}`);
    if (dialect.grammar === "oracle" && kind === "word" && text.startsWith("@")) refuse(`the variable ${text}`);
  }
}

/// The grammar reads a list generously.
function refuseOpenLists(tokens) {
  const seen = solid(tokens);
  seen.forEach((token, at) => {
    const next = seen[at + 1];
    const isOpen = next === undefined || isSign(next, ")") || isSign(next, ";") || isWord(next, "from");
    if (isSign(token, ",") && isOpen) refuse("a comma with nothing behind it");
  });
}

/// Oracle joins texts by "||": "+" beside a text would ask for numbers.
function refusePlusOfTexts(tokens, dialect) {
  if (dialect.grammar !== "oracle") return;
  const seen = solid(tokens);
  seen.forEach((token, at) => {
    const besideText = seen[at - 1]?.kind === "text" || seen[at + 1]?.kind === "text";
    if (isSign(token, "+") && besideText) refuse("+ beside a text");
  });
}

/// Common table expressions that name their columns: Map of name -> columns.
function tableExpressions(tokens) {
  const seen = solid(tokens);
  const found = new Map();
  for (let at = 1; at < seen.length; ++at) {
    const startsOne = isWord(seen[at - 1], "with") || isSign(seen[at - 1], ",");
    if (!startsOne || !isSign(seen[at + 1], "(")) continue;
    const close = seen.findIndex((token, i) => i > at && isSign(token, ")"));
    if (!isWord(seen[close + 1], "as") || !isSign(seen[close + 2], "(")) continue;
    const columns = seen.slice(at + 2, close).filter((token) => !isSign(token, ","));
    found.set(seen[at].text.toLowerCase(), columns.map((token) => token.text));
  }
  return found;
}

function refuseUnknownFunctions(tokens, dialect, schema) {
  const seen = solid(tokens);
  const expressions = tableExpressions(tokens);
  for (let at = 0; at + 1 < seen.length; ++at) {
    const name = seen[at].text.toLowerCase();
    if (seen[at].kind !== "word" || !isSign(seen[at + 1], "(")) continue;
    if (isWord(seen[at - 1], "into") || isWord(seen[at - 1], "on") || isSign(seen[at - 1], ".")) continue;
    // The row that a merge makes.
    if (name === "insert" && isWord(seen[at - 1], "then")) continue;
    const known = dialect.functions.has(name) || notFunctions.has(name) || expressions.has(name);
    if (!known && !schema.routines.has(name) && !schema.tables.has(name)) refuse(`the function ${seen[at].text}`);
  }
}

function* nodesOf(tree) {
  if (tree === null || typeof tree !== "object") return;
  if (Array.isArray(tree)) {
    for (const branch of tree) yield* nodesOf(branch);
    return;
  }
  for (const [kind, node] of Object.entries(tree)) {
    yield [kind, node];
    yield* nodesOf(node);
  }
}

/// What the grammar takes and an Oracle server does not.
function refuseOutsideOracle(tree) {
  for (const [kind, node] of nodesOf(tree)) {
    if (node === null) continue;
    if (kind === "select" && node.from === null) refuse("a select without from");
    if (kind === "update" && (node.from_clause || node.table_joins?.length || node.from_joins?.length))
      refuse("an update of joined tables");
    if ((kind === "table" || kind === "subquery") && node.alias_explicit_as) refuse("as before the alias of a table");
    if (kind === "insert" && node.values?.length > 1) refuse("an insert of several rows");
  }
}

const parameterAs = (tokens, written) =>
  tokens.map((token) => (token.kind === "parameter" ? { kind: "word", text: written(token.text) } : token));

function refuseBadGrammar(tokens, dialect) {
  const isTsql = dialect.grammar === "tsql";
  const text = toText(isTsql ? parameterAs(tokens, (name) => `@${name.slice(1)}`) : tokens);
  const result = parse(text, dialect.grammar);
  if (!result.success) refuse(result.error);
  // The grammar passes over commands that it does not know.
  if (result.ast.some((tree) => "command" in tree || "raw" in tree)) refuse("not a statement that the grammar knows");
  if (!isTsql) refuseOutsideOracle(result.ast);
}

/// "db..table" and "db.dbo.table" name a table of the other database.
function withoutDatabases(tokens) {
  const seen = [...tokens];
  for (let at = 0; at + 3 < seen.length; ++at) {
    const isPrefix = isSign(seen[at + 1], ".") && (isSign(seen[at + 2], ".") || isWord(seen[at + 2], "dbo"));
    if (seen[at].kind === "word" && isPrefix) seen.splice(at, isSign(seen[at + 2], ".") ? 3 : 4);
  }
  return seen;
}

/// Quoted names as the schema is read, for a server that finds them in any case.
const inLowerCase = (tokens) =>
  tokens.map((token) => (token.kind === "name" ? { ...token, text: token.text.toLowerCase() } : token));

function refuseUnknownColumns(tokens, dialect, schema) {
  const expressions = [...tableExpressions(tokens)].map(([name, names]) => ({ name, columns: columns(names) }));
  const named = new Set(tokens.map((token) => token.text.toLowerCase()));
  const tables = [...schema.tables.values(), ...expressions, ...dialect.catalogue].filter(({ name }) => named.has(name));
  const plain = dialect.quotedInAnyCase ? inLowerCase(withoutDatabases(tokens)) : withoutDatabases(tokens);
  const text = toText(parameterAs(plain, () => "null")).replace(dialect.valuesOfPackages, "null");
  const result = validateWithSchema(text, { tables }, dialect.grammar, { strict: true });
  if (!result.valid) refuse(result.errors.map((error) => error.message).join("; "));
}

const dataWords = ["select", "insert", "update", "delete", "with"];
const otherWords = ["merge", "create", "alter", "set", "call", "exec"];

/// The limit of a recursion is a hint that the grammar takes behind a select only.
function withoutHint(tokens) {
  const at = tokens.findIndex((token) => isWord(token, "option"));
  return at < 0 ? tokens : tokens.slice(0, at);
}

function checkStatement(written, dialect, schema) {
  const tokens = withoutHint(written);
  const [first, name] = solid(tokens);
  // A word that stands alone is an expression to the grammar.
  if (![...dataWords, ...otherWords].some((word) => isWord(first, word))) refuse(`${first.text}: no statement`);
  if (isWord(first, "call") || isWord(first, "exec")) {
    if (!schema.routines.has(name.text.toLowerCase())) refuse(`the routine ${name.text}`);
    if (isWord(first, "exec")) return refuseBadGrammar(tokens, dialect);
    const call = toText(tokens).replace(/^\s*call/i, "select");
    return refuseBadGrammar(scan(`${call} from dual`), dialect);
  }
  refuseUnknownFunctions(tokens, dialect, schema);
  refuseBadGrammar(tokens, dialect);
  if (dataWords.some((word) => isWord(first, word))) refuseUnknownColumns(tokens, dialect, schema);
}

const conditionalStarts = ["insert", "update", "delete", "create", "exec", "select"];

/// "if CONDITION STATEMENT", with "then" between them on Oracle, whose "end if" is a piece of its own.
function splitConditional(tokens, dialect) {
  const isOracle = dialect.grammar === "oracle";
  let depth = 0;
  const at = tokens.findIndex((token) => {
    depth += isSign(token, "(") ? 1 : isSign(token, ")") ? -1 : 0;
    if (depth > 0) return false;
    return isOracle ? isWord(token, "then") : conditionalStarts.some((word) => isWord(token, word));
  });
  if (at < 0) refuse("an if without its statement");
  const from = isOracle ? " from dual" : "";
  const condition = toText(tokens.slice(0, at)).replace(/^\s*if\b/i, "").replace(/\bSQL%ROWCOUNT\b/i, "0");
  return [scan(`select 1${from} where ${condition}`), tokens.slice(isOracle ? at + 1 : at)];
}

function checkPiece(tokens, dialect, schema) {
  const [first, second] = solid(tokens);
  if (isWord(first, "end") && isWord(second, "if")) return;
  if (!isWord(first, "if")) return checkStatement(tokens, dialect, schema);
  for (const part of splitConditional(tokens, dialect)) checkStatement(part, dialect, schema);
}

/// Takes the enclosing begin … end away.
function unwrapped(tokens) {
  const seen = solid(tokens);
  if (!isWord(seen[0], "begin")) return tokens;
  if (!isSign(seen.at(-1), ";") || !isWord(seen.at(-2), "end")) refuse("begin without its end;");
  const start = tokens.indexOf(seen[0]);
  return tokens.slice(start + 1, tokens.indexOf(seen.at(-2)));
}

/// What is wrong with {from, text, refused}, each as a line for the one who reads the test: a fault of a text, or none in
/// one that must be refused, for the reason in `refused`.
export function faultsOf(statements, dialectName, schema) {
  return statements
    .map((statement) => ({ ...statement, fault: faultOf(statement.text, dialectName, schema) }))
    .filter(({ fault, refused }) => (fault === null) !== (refused === undefined))
    .map((statement) => ({ ...statement, fault: statement.fault ?? `not refused, though ${statement.refused}` }))
    .map(({ from, fault, text }) => `${from}: ${fault}\n  ${text.replace(/\s+/g, " ")}`);
}

/// Why a text of the dialect cannot be right; null when nothing speaks against it.
export function faultOf(text, dialectName, schema) {
  const dialect = dialects[dialectName];
  try {
    const tokens = scan(text);
    refuseForeignWords(tokens, dialect);
    refuseOpenLists(tokens);
    refusePlusOfTexts(tokens, dialect);
    const statements = splitAt(unwrapped(tokens), ";");
    if (statements.length === 0) refuse("no statement");
    for (const statement of statements) checkPiece(statement, dialect, schema);
    return null;
  } catch (error) {
    if (error instanceof Fault) return error.message;
    throw error;
  }
}
