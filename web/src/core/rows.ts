import type { Row } from './protocol'

/** Rows that the session keeps up to date unless told otherwise: [first, last). */
export const DEFAULT_VIEW = { first: 0, last: 60 }

/**
 * The rows of a list, tree or grid that the client knows. The session keeps only the looked-at range current, so
 * a row outside of it is forgotten at once rather than shown stale.
 */
export class RowStore {
  total = 0
  /** Grows with every change, so that a view knows when to draw again. */
  revision = 0
  first = DEFAULT_VIEW.first
  last = DEFAULT_VIEW.last
  private rows = new Map<number, Row>()

  at(index: number): Row | undefined {
    return this.rows.get(index)
  }

  indexOf(id: number): number {
    for (const [index, row] of this.rows) if (row.id === id) return index
    return -1
  }

  /** True when all rows are known. */
  get complete(): boolean {
    return this.rows.size === this.total
  }

  selected(): Row[] {
    return [...this.rows.values()].filter(row => row.selected)
  }

  apply(first: number, items: readonly Row[], total: number | undefined): void {
    items.forEach((row, offset) => this.rows.set(first + offset, row))
    if (total !== undefined) this.total = total
    this.forget()
  }

  setTotal(total: number): void {
    this.total = total
    this.forget()
  }

  look(first: number, last: number): void {
    this.first = first
    this.last = last
    this.forget()
  }

  private forget(): void {
    for (const index of this.rows.keys())
      if (index < this.first || index >= this.last || index >= this.total) this.rows.delete(index)
    this.revision++
  }
}
