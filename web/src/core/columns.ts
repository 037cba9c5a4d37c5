import type { Column } from './protocol'

/** Where a person's own column widths are kept; a browser's storage fits. */
export interface KeyValueStore {
  getItem(key: string): string | null
  setItem(key: string, value: string): void
}

export const NARROWEST = 40

/** Column widths that a person chose, by class of window and name of component. */
export class ColumnWidths {
  constructor(private readonly store: KeyValueStore) {}

  /** The widths to use: the chosen ones where the number of columns still is the same. */
  read(className: string, name: string, columns: readonly Column[]): number[] {
    const own = columns.map(column => column.width)
    const text = this.store.getItem(keyOf(className, name))
    if (text === null) return own
    const chosen = parseWidths(text)
    return chosen.length === own.length ? chosen : own
  }

  write(className: string, name: string, widths: readonly number[]): void {
    this.store.setItem(keyOf(className, name), JSON.stringify(widths.map(Math.round)))
  }
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
