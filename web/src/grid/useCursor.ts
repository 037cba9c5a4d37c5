import { computed, ref, watch, type Ref } from 'vue'
import type { ComponentState, WindowState } from '../core/mirror'
import type { Row, SelectMode } from '../core/protocol'
import type { RowStore } from '../core/rows'
import type { Session } from '../core/session'
import type { Viewport } from './useViewport'

export interface Cursor {
  index: Ref<number>
  select: (index: number, mode?: SelectMode) => void
  move: (index: number, mode?: SelectMode | 'stay') => void
  activate: (index: number) => void
  toToggle: (index: number) => void
  toParent: (index: number) => void
  /** Goes to the first row that fits, from `index` on and round the end. */
  seek: (index: number, fits: (row: Row) => boolean) => void
}

/** A search from row to row. */
interface Search {
  at: number
  step: 1 | -1
  /** Rows still to be looked at. */
  left: number
  fits: (row: Row) => boolean
}

/** Rows that a search takes in at a time. The session gives 500 at most. */
const SEARCH_STEP = 400
/** A search gives up after so many rows: each step of it asks the session. */
const LONGEST_SEARCH = 4000

/**
 * The row that the keyboard is on. It runs ahead of the session while keys are held down, and falls in with it
 * when everything that was sent has been taken in.
 */
export function useCursor(
  session: Session,
  window: () => WindowState,
  state: () => ComponentState,
  rows: () => RowStore,
  viewport: Viewport,
): Cursor {
  const index = ref(0)
  /** What is to happen to a row that is not known yet. */
  let waiting: ((row: Row) => void) | undefined
  let searching: Search | undefined
  const target = computed(() => ({ window: state().window, name: state().name }))

  function select(at: number, mode: SelectMode = 'set'): void {
    index.value = at
    const row = rows().at(at)
    session.send({ do: 'select', ...target.value, ...(row ? { id: row.id } : { index: at }), mode })
  }

  function move(wanted: number, mode: SelectMode | 'stay' = 'set'): void {
    const at = Math.max(0, Math.min(wanted, rows().total - 1))
    if (rows().total === 0) return
    waiting = searching = undefined
    viewport.reveal(at)
    if (mode === 'stay') index.value = at
    else select(at, mode)
  }

  function withRow(at: number, action: (row: Row) => void): void {
    const row = rows().at(at)
    if (row) action(row)
    else waiting = action
  }

  function activate(at: number): void {
    withRow(at, row => session.send({ do: 'activate', ...target.value, id: row.id }))
  }

  function toToggle(at: number): void {
    withRow(at, row => {
      if (row.node !== 'leaf' && row.node !== undefined) session.send({ do: 'toggle', ...target.value, id: row.id })
    })
  }

  function toParent(at: number): void {
    const level = rows().at(at)?.level ?? 0
    if (level === 0) return
    searching = { at: at - 1, step: -1, left: at, fits: row => (row.level ?? 0) < level }
    search()
  }

  function seek(at: number, fits: (row: Row) => boolean): void {
    const { total } = rows()
    if (total === 0) return
    searching = { at: at % total, step: 1, left: Math.min(total, LONGEST_SEARCH), fits }
    search()
  }

  /** Goes from row to row; where the rows are not known, asks for them and goes on when they come. */
  function search(): void {
    const { total } = rows()
    while (searching && searching.left > 0 && searching.at < total) {
      const row = rows().at(searching.at)
      if (!row) return askForRows(searching)
      if (searching.fits(row)) return move(searching.at)
      searching.at = (searching.at + searching.step + total) % total
      searching.left--
    }
    searching = undefined
    viewport.scrolled()
  }

  function askForRows({ at, step }: Search): void {
    const first = step > 0 ? at : Math.max(0, at + 1 - SEARCH_STEP)
    const last = step > 0 ? Math.min(rows().total, at + SEARCH_STEP) : at + 1
    session.view(target.value.window, target.value.name, first, last)
  }

  function rowsCame(): void {
    const row = waiting && rows().at(index.value)
    if (row) {
      const action = waiting
      waiting = undefined
      action?.(row)
    }
    if (searching) search()
    else if (session.settled) fallIn()
  }

  /** Takes over the row that the session says has the focus. */
  function fallIn(): void {
    const store = rows()
    const focused = state().focused
    const at = typeof focused !== 'number' || focused < 0 ? -1 : store.indexOf(focused)
    const selected = at >= 0 ? at : indexOfSelected(store)
    if (selected >= 0) index.value = selected
    else if (index.value >= store.total) index.value = Math.max(0, store.total - 1)
  }

  function indexOfSelected(store: RowStore): number {
    const chosen = store.selected()
    if (chosen.length !== 1 || !chosen[0]) return -1
    return store.indexOf(chosen[0].id)
  }

  watch([() => rows().revision, () => state().focused, rows], rowsCame, { immediate: true })
  watch(
    () => window().reveal,
    wish => {
      if (wish.count === 0 || wish.name !== state().name) return
      index.value = wish.index
      viewport.reveal(wish.index)
    },
    { flush: 'post', immediate: true },
  )

  return { index, select, move, activate, toToggle, toParent, seek }
}
