// Going to a row by typing how it begins.

import type { Row } from './protocol'

/** A pause as long as this begins a new word. */
export const TYPING_PAUSE = 900

/** The first Chinese character, in the order of pronunciation, of each letter. */
const LETTERS = 'abcdefghjklmnopqrstwxyz'
const FIRST_OF_LETTER = '阿八嚓哒妸发旮哈讥咔垃痳拏噢妑七呥扨它穵夕丫帀'

const byPronunciation = new Intl.Collator('zh-u-co-pinyin')

/** The letter with which a Chinese character is pronounced; any other character stands for itself. */
function initial(character: string): string {
  if (!/\p{Script=Han}/u.test(character)) return character
  let letter = ''
  for (const [at, first] of [...FIRST_OF_LETTER].entries())
    if (byPronunciation.compare(first, character) <= 0) letter = LETTERS[at] ?? ''
  return letter
}

/** The text, and the rest of it from each word on: a code in parentheses is found too. */
function beginnings(text: string): string[] {
  const starts = [...text.matchAll(/[\s()（）\\/_-]+/g)].map(found => found.index + found[0].length)
  return [0, ...starts].map(start => text.slice(start))
}

/** Whether a word of the text begins with what was typed, as written or by the initials of its pronunciation. */
export function beginsWith(text: string, typed: string): boolean {
  const wanted = typed.toLowerCase()
  return beginnings(text.toLowerCase()).some(part => {
    if (part.startsWith(wanted)) return true
    return [...part].slice(0, wanted.length).map(initial).join('') === wanted
  })
}

export function rowBeginsWith(row: Row, typed: string): boolean {
  return row.cells.some(cell => beginsWith(typeof cell === 'string' ? cell : cell.text, typed))
}

/** Puts keys together to what a person is looking for. */
export class TypeAhead {
  private text = ''
  private last = -Infinity

  /** `fromHere`: the row that the keyboard is on may stay. The same letter again and again goes on to the next row. */
  take(key: string, now: number): { text: string; fromHere: boolean } {
    this.text = now - this.last > TYPING_PAUSE ? key : this.text + key
    this.last = now
    const letters = [...this.text]
    const isOneLetter = letters.every(letter => letter === letters[0])
    return isOneLetter ? { text: letters[0] ?? '', fromHere: false } : { text: this.text, fromHere: true }
  }
}
