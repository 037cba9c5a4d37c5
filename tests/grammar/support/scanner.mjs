// Reads a statement text token by token, so that what stands in a literal, a quoted name or a comment is never taken
// for syntax.

const patterns = [
  ["blank", /\s+/y],
  ["comment", /--[^\n]*|\/\*[^]*?\*\//y],
  ["text", /N?'(?:[^']|'')*'/iy],
  ["name", /"[^"]*"|\[[^\]]*\]|`[^`]*`/y],
  ["parameter", /:[A-Za-z_]\w*/y],
  ["number", /\d[\w.]*/y],
  ["word", /[@#\p{L}_][\w@#$\p{L}]*/uy],
  ["sign", /<>|<=|>=|\|\||:=|[^\s]/y],
];

/// The tokens of a text as {kind, text}, blanks and comments included: joined they make the text again.
export function scan(text) {
  const tokens = [];
  for (let at = 0; at < text.length; ) {
    for (const [kind, pattern] of patterns) {
      pattern.lastIndex = at;
      const found = pattern.exec(text);
      if (!found) continue;
      tokens.push({ kind, text: found[0] });
      at += found[0].length;
      break;
    }
  }
  return tokens;
}

export const isBlank = (token) => token.kind === "blank" || token.kind === "comment";
export const isWord = (token, word) => token?.kind === "word" && token.text.toLowerCase() === word;
export const isSign = (token, sign) => token?.kind === "sign" && token.text === sign;

/// Without blanks and comments.
export const solid = (tokens) => tokens.filter((token) => !isBlank(token));

/// The tokens as text; a comment becomes a blank.
export const toText = (tokens) => tokens.map((token) => (token.kind === "comment" ? " " : token.text)).join("");

/// Splits at a sign outside of brackets; pieces without a token are left out.
export function splitAt(tokens, sign) {
  const pieces = [[]];
  let depth = 0;
  for (const token of tokens) {
    if (isSign(token, "(")) ++depth;
    if (isSign(token, ")")) --depth;
    if (depth === 0 && isSign(token, sign)) pieces.push([]);
    else pieces.at(-1).push(token);
  }
  return pieces.filter((piece) => solid(piece).length > 0);
}
