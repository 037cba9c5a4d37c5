import assert from 'node:assert/strict'

const INSIDE = [
  /select .* from/i, /\bfrom ST/i, // statements
  /\/(tmp|home|usr|dev|proc|var)\//, /zanrole\.(key|db)|tokens\.json/, /sqlite:|mysql:|localhost/, // places
  /zan_(data|system|ask)/, // databases and accounts
  /\.(cpp|h|so)\b/, /\bstd::|boost/, /0x[0-9a-f]{6}/i, // the program
]

/** A refusal tells nothing of the inside: no statement, no place, no account, no line of a source. */
export function assertTellsNothingOfTheInside(text, what) {
  for (const trace of INSIDE) assert.doesNotMatch(text, trace, what)
}
