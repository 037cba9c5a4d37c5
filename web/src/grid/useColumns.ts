import { computed, ref, watch, type Ref } from 'vue'
import { chosenShares, NARROWEST, proposedShares } from '../core/columns'
import type { Column } from '../core/protocol'
import { columnWidths } from '../vue/session'

export interface Columns {
  /** For `grid-template-columns`. */
  template: Readonly<Ref<string>>
  minimalWidth: Readonly<Ref<number>>
  resizeBy: (column: number, pixels: number) => void
  dragEdge: (column: number, start: PointerEvent) => void
  /** Makes the column as wide as what is shown in it. */
  fit: (column: number) => void
}

/** Column widths that a person can change and finds again. */
export function useColumns(
  box: Ref<HTMLElement | undefined>,
  className: () => string,
  name: () => string,
  columns: () => readonly Column[],
): Columns {
  const chosen = ref<number[]>()
  watch(
    () => columns().map(column => column.width).join(),
    () => { chosen.value = columnWidths.read(className(), name(), columns()) },
    { immediate: true },
  )
  const shares = computed(() => (chosen.value ? chosenShares(chosen.value) : proposedShares(columns())))
  const template = computed(() => shares.value.template)
  const minimalWidth = computed(() => shares.value.minimalWidth)

  /** The widths as they are on the screen: the other columns stay as they are when one is changed. */
  function shownWidths(): number[] {
    return chosen.value ?? [...(box.value?.querySelectorAll<HTMLElement>('.grid-title') ?? [])].map(title => title.offsetWidth)
  }

  function setWidth(column: number, width: number): void {
    chosen.value = shownWidths().map((old, at) => Math.max(NARROWEST, at === column ? width : old))
    columnWidths.write(className(), name(), chosen.value)
  }

  function resizeBy(column: number, pixels: number): void {
    setWidth(column, (shownWidths()[column] ?? NARROWEST) + pixels)
  }

  function dragEdge(column: number, start: PointerEvent): void {
    const handle = start.currentTarget as HTMLElement
    const from = (handle.parentElement?.offsetWidth ?? NARROWEST) - start.clientX
    const move = (event: PointerEvent) => setWidth(column, from + event.clientX)
    handle.setPointerCapture(start.pointerId)
    handle.addEventListener('pointermove', move)
    handle.addEventListener('lostpointercapture', () => handle.removeEventListener('pointermove', move), { once: true })
    start.preventDefault()
  }

  function fit(column: number): void {
    const cells = [...(box.value?.querySelectorAll<HTMLElement>(`[aria-colindex="${column + 1}"]`) ?? [])]
    setWidth(column, Math.max(NARROWEST, ...cells.map(naturalWidth)))
  }

  return { template, minimalWidth, resizeBy, dragEdge, fit }
}

function naturalWidth(cell: HTMLElement): number {
  cell.style.width = 'max-content'
  const width = cell.offsetWidth
  cell.style.width = ''
  return width
}
