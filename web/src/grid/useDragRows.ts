import { computed, ref, type Ref } from 'vue'
import type { ComponentState } from '../core/mirror'
import type { Row } from '../core/protocol'
import type { RowStore } from '../core/rows'
import type { Session } from '../core/session'
import { t } from '../vue/language'

export interface DragRows {
  /** Ids of the rows that were picked up here. */
  held: Readonly<Ref<number[]>>
  /** Index of the row that they are held over; -1 for none. */
  over: Ref<number>
  /** For those who do not see: what was picked up. */
  announcement: Readonly<Ref<string>>
  start: (event: DragEvent, index: number) => void
  overRow: (event: DragEvent, index: number) => void
  dropped: (event: DragEvent, index: number) => void
  end: () => void
  pickUp: (index: number) => void
  drop: (index: number) => void
}

/** What is held, in whichever grid of the page it was picked up. */
const carried = ref<{ window: number; name: string; ids: number[]; texts: string[] } | undefined>()

/** Dragging rows onto a row of the same component or of another one of its window, by mouse or by keyboard. */
export function useDragRows(session: Session, state: () => ComponentState, rows: () => RowStore): DragRows {
  const over = ref(-1)
  const fromHere = computed(() => (carried.value?.window === state().window && carried.value.name === state().name ? carried.value : undefined))
  const held = computed(() => fromHere.value?.ids ?? [])
  const announcement = computed(() => (fromHere.value ? t('pickedUp', fromHere.value.texts.join(', ')) : ''))

  function pickUp(index: number): void {
    const row = rows().at(index)
    if (!state().drag || !row) return
    const chosen = rows().selected()
    const taken = chosen.some(entry => entry.id === row.id) ? chosen : [row]
    carried.value = { window: state().window, name: state().name, ids: taken.map(entry => entry.id), texts: taken.map(firstText) }
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
    over.value = -1
    carried.value = undefined
  }

  return { held, over, announcement, start, overRow, dropped, end, pickUp, drop }
}

function firstText({ cells: [cell] }: Row): string {
  return typeof cell === 'object' ? cell.text : cell ?? ''
}
