import type { Column } from './protocol'

/** Where a person's own column widths are kept; a browser's storage fits. */
export interface KeyValueStore {
  getItem(key: string): string | null
  setItem(key: string, value: string): void
}

export const NARROWEST = 40

/** Where there is too little room, a column shrinks to this share of its width, but stays readable. */
const SHRINKS_TO = 0.9
const READABLE = 84

/** Column widths that a person chose, by class of window and name of component. */
export class ColumnWidths {
  constructor(private readonly store: KeyValueStore) {}

  /** The chosen widths where the number of columns still is the same; nothing when the person chose none. */
  read(className: string, name: string, columns: readonly Column[]): number[] | undefined {
    const text = this.store.getItem(keyOf(className, name))
    const chosen = text === null ? [] : parseWidths(text)
    return chosen.length > 0 && chosen.length === columns.length ? chosen : undefined
  }

  write(className: string, name: string, widths: readonly number[]): void {
    this.store.setItem(keyOf(className, name), JSON.stringify(widths.map(Math.round)))
  }
}

/** How columns share the room that they are given, for `grid-template-columns`, and what they need at least. */
export interface ColumnShares {
  template: string
  minimalWidth: number
}

/** Widths that a person chose stand as they are; the last column takes what is left. */
export function chosenShares(widths: readonly number[]): ColumnShares {
  const template = widths.map((width, at) => (at === widths.length - 1 ? `minmax(${width}px, 1fr)` : `${width}px`)).join(' ')
  return { template, minimalWidth: sum(widths) }
}

/**
 * Widths that the console proposes: the columns share the room in their proportion, down to what can be read.
 * The first one says whose row it is and does not shrink, and no title is cut off.
 */
export function proposedShares(columns: readonly Column[]): ColumnShares {
  const smallest = columns.map((column, at) => Math.round(Math.max(titleWidth(column.title), at === 0 ? column.width : smallestWidth(column.width))))
  const template = columns.map(({ width }, at) => `minmax(${smallest[at]}px, ${width}fr)`).join(' ')
  return { template, minimalWidth: sum(smallest) }
}

function smallestWidth(width: number): number {
  return Math.max(width * SHRINKS_TO, Math.min(width, READABLE))
}

/** About as wide as the title is drawn: Chinese characters are wider than letters. */
function titleWidth(title: string): number {
  return [...title].reduce((width, character) => width + (character > '\u2e80' ? 13 : 8.2), 22)
}

function sum(widths: readonly number[]): number {
  return widths.reduce((total, width) => total + width, 0)
}

function keyOf(className: string, name: string): string {
  return `columns/${className}/${name}`
}

function parseWidths(text: string): number[] {
  try {
    const parsed: unknown = JSON.parse(text)
    if (Array.isArray(parsed) && parsed.every(width => typeof width === 'number' && width >= NARROWEST)) return parsed as number[]
  } catch {
    // What is no list of widths counts as none.
  }
  return []
}
