import { ref, type Ref } from 'vue'
import type { ComponentState } from '../core/mirror'
import type { RowStore } from '../core/rows'
import type { Session } from '../core/session'

export interface DragRows {
  /** Ids of the rows that were picked up here. */
  held: Ref<number[]>
  /** Index of the row that they are held over; -1 for none. */
  over: Ref<number>
  /** For those who do not see: what was picked up. */
  announcement: Ref<string>
  start: (event: DragEvent, index: number) => void
  overRow: (event: DragEvent, index: number) => void
  dropped: (event: DragEvent, index: number) => void
  end: () => void
  pickUp: (index: number) => void
  drop: (index: number) => void
}

/** What is held, in whichever grid of the page it was picked up. */
const carried = ref<{ window: number; name: string; ids: number[] } | undefined>()

/** Dragging rows onto a row of the same component or of another one of its window, by mouse or by keyboard. */
export function useDragRows(session: Session, state: () => ComponentState, rows: () => RowStore): DragRows {
  const held = ref<number[]>([])
  const over = ref(-1)
  const announcement = ref('')

  function pickUp(index: number): void {
    const row = rows().at(index)
    if (!state().drag || !row) return
    const chosen = rows().selected()
    const taken = chosen.some(entry => entry.id === row.id) ? chosen : [row]
    held.value = taken.map(entry => entry.id)
    carried.value = { window: state().window, name: state().name, ids: held.value }
    announcement.value = taken.map(entry => entry.cells[0]).filter(cell => typeof cell === 'string').join(', ')
  }

  function drop(index: number): void {
    const from = carried.value
    const onto = rows().at(index)
    end()
    if (!from || !onto || from.window !== state().window) return
    const other = from.name === state().name ? {} : { name2: state().name }
    session.send({ do: 'drop', window: from.window, name: from.name, ids: from.ids, onto: onto.id, ...other })
  }

  function start(event: DragEvent, index: number): void {
    pickUp(index)
    if (held.value.length === 0) event.preventDefault()
    else event.dataTransfer?.setData('text/plain', '')
  }

  function overRow(event: DragEvent, index: number): void {
    if (carried.value?.window !== state().window) return
    event.preventDefault()
    over.value = index
  }

  function dropped(event: DragEvent, index: number): void {
    event.preventDefault()
    drop(index)
  }

  function end(): void {
    held.value = []
    over.value = -1
    announcement.value = ''
    carried.value = undefined
  }

  return { held, over, announcement, start, overRow, dropped, end, pickUp, drop }
}
