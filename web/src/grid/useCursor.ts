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
}

/** Rows that a search for a parent takes in at a time. The session gives 500 at most. */
const SEARCH_STEP = 400

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
  let searching: { level: number; from: number } | undefined
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
    searching = { level, from: at - 1 }
    searchParent()
  }

  /** Goes up row by row; where the rows are not known, asks for them and goes on when they come. */
  function searchParent(): void {
    while (searching && searching.from >= 0) {
      const row = rows().at(searching.from)
      if (!row) {
        const first = Math.max(0, searching.from - SEARCH_STEP)
        session.view(target.value.window, target.value.name, first, searching.from + 1)
        return
      }
      if ((row.level ?? 0) < searching.level) return move(searching.from)
      searching.from--
    }
    searching = undefined
  }

  function rowsCame(): void {
    const row = waiting && rows().at(index.value)
    if (row) {
      const action = waiting
      waiting = undefined
      action?.(row)
    }
    if (searching) searchParent()
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

  return { index, select, move, activate, toToggle, toParent }
}
