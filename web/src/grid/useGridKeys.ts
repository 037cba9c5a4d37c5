import { ref, type Ref } from 'vue'
import type { ComponentState } from '../core/mirror'
import type { Row } from '../core/protocol'
import type { RowStore } from '../core/rows'
import type { Session } from '../core/session'
import { rowBeginsWith, TypeAhead } from '../core/typeAhead'
import type { Columns } from './useColumns'
import type { Cursor } from './useCursor'
import type { DragRows } from './useDragRows'
import type { Viewport } from './useViewport'

export interface GridKeysParts {
  state: () => ComponentState
  rows: () => RowStore
  cursor: Cursor
  viewport: Viewport
  sizes: Columns
  drag: DragRows
  cellwise: () => boolean
  columnCount: () => number
  edit: (row: Row, column: number, text?: string) => void
  session: Session
}

export interface GridKeys {
  /** The column title that the keyboard is on; -1 when it is on the rows. */
  headColumn: Ref<number>
  /** The column of the cell that the keyboard is on, where it goes from cell to cell. */
  column: Ref<number>
  pressed: (event: KeyboardEvent) => void
}

const RESIZE_STEP = 16

/** What the keys do in a grid. */
export function useGridKeys(parts: GridKeysParts): GridKeys {
  const { cursor, viewport, state, rows } = parts
  const headColumn = ref(-1)
  const column = ref(0)
  const typeAhead = new TypeAhead()

  function pressed(event: KeyboardEvent): void {
    if (event.target !== event.currentTarget || event.altKey) return
    const handled = headColumn.value >= 0 ? onHead(event) : onRows(event)
    if (!handled) return
    event.preventDefault()
    event.stopPropagation()
  }

  function onHead(event: KeyboardEvent): boolean {
    const last = parts.columnCount() - 1
    const step = event.key === 'ArrowLeft' ? -1 : event.key === 'ArrowRight' ? 1 : 0
    if (step !== 0 && event.shiftKey) parts.sizes.resizeBy(headColumn.value, step * RESIZE_STEP)
    else if (step !== 0) headColumn.value = Math.max(0, Math.min(last, headColumn.value + step))
    else if (event.key === 'ArrowDown') headColumn.value = -1
    else if (event.key === 'Enter' || event.key === ' ')
      parts.session.send({ do: 'sort', window: state().window, name: state().name, column: headColumn.value })
    else return false
    return true
  }

  function onRows(event: KeyboardEvent): boolean {
    return moves(event) || sideways(event) || acts(event) || edits(event) || types(event)
  }

  function moves(event: KeyboardEvent): boolean {
    const at = cursor.index.value
    const targets: Record<string, number> = {
      ArrowDown: at + 1,
      ArrowUp: at - 1,
      PageDown: at + viewport.page.value,
      PageUp: at - viewport.page.value,
      Home: 0,
      End: rows().total - 1,
    }
    const target = targets[event.key]
    if (target === undefined) return false
    if (event.key === 'ArrowUp' && at === 0 && parts.columnCount() > 0) headColumn.value = column.value
    else if (!state().multi) cursor.move(target)
    else cursor.move(target, event.shiftKey ? 'range' : event.ctrlKey ? 'stay' : 'set')
    return true
  }

  function sideways(event: KeyboardEvent): boolean {
    if (event.key !== 'ArrowLeft' && event.key !== 'ArrowRight') return false
    const forward = event.key === 'ArrowRight'
    if (parts.cellwise()) column.value = Math.max(0, Math.min(parts.columnCount() - 1, column.value + (forward ? 1 : -1)))
    else if (state().kind === 'tree') alongTree(forward)
    else return false
    return true
  }

  function alongTree(forward: boolean): void {
    const at = cursor.index.value
    const node = rows().at(at)?.node
    if (forward && node === 'open') cursor.move(at + 1)
    else if (forward) cursor.toToggle(at)
    else if (node === 'open') cursor.toToggle(at)
    else cursor.toParent(at)
  }

  function acts(event: KeyboardEvent): boolean {
    const at = cursor.index.value
    const row = rows().at(at)
    const { window, name, multi } = state()
    if (event.key === 'Enter' && !parts.cellwise() && rows().total > 0) {
      cursor.activate(at)
      return true
    }
    if (event.key === 'Escape' && parts.drag.held.value.length > 0) {
      parts.drag.end()
      return true
    }
    if (event.key === ' ') {
      if (row?.mark) parts.session.send({ do: 'mark', window, name, id: row.id })
      else cursor.select(at, multi ? 'toggle' : 'set')
      return true
    }
    if (event.key === '*' && row && state().kind === 'tree') {
      parts.session.send({ do: 'expandAll', window, name, id: row.id })
      return true
    }
    return (event.ctrlKey || event.metaKey) && actsWithControl(event.key.toLowerCase(), at)
  }

  function actsWithControl(letter: string, at: number): boolean {
    if (letter === 'a' && state().multi) selectAll()
    else if (letter === 'x' && state().drag) parts.drag.pickUp(at)
    else if (letter === 'v') parts.drag.drop(at)
    else return false
    return true
  }

  function selectAll(): void {
    cursor.select(0)
    cursor.select(rows().total - 1, 'range')
  }

  function edits(event: KeyboardEvent): boolean {
    const row = rows().at(cursor.index.value)
    if (!parts.cellwise() || !row || event.ctrlKey || event.metaKey) return false
    if (event.key === 'Enter' || event.key === 'F2') parts.edit(row, column.value)
    else if (event.key.length === 1) parts.edit(row, column.value, event.key)
    else return false
    return true
  }

  /** Letters go to the next row that begins with them. */
  function types(event: KeyboardEvent): boolean {
    if (parts.cellwise() || event.key.length !== 1 || event.ctrlKey || event.metaKey) return false
    const { text, fromHere } = typeAhead.take(event.key, event.timeStamp)
    cursor.seek(cursor.index.value + (fromHere ? 0 : 1), row => rowBeginsWith(row, text))
    return true
  }

  return { headColumn, column, pressed }
}
