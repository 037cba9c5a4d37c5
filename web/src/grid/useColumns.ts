import { computed, ref, watch, type Ref } from 'vue'
import { NARROWEST } from '../core/columns'
import type { Column } from '../core/protocol'
import { columnWidths } from '../vue/session'

export interface Columns {
  widths: Ref<number[]>
  /** For `grid-template-columns`: the last column takes what is left. */
  template: Readonly<Ref<string>>
  minimalWidth: Readonly<Ref<number>>
  resizeBy: (column: number, pixels: number) => void
  dragEdge: (column: number, start: PointerEvent) => void
}

/** Column widths that a person can change and finds again. */
export function useColumns(className: () => string, name: () => string, columns: () => readonly Column[]): Columns {
  const widths = ref<number[]>([])
  watch(
    () => columns().map(column => column.width).join(),
    () => { widths.value = columnWidths.read(className(), name(), columns()) },
    { immediate: true },
  )
  const template = computed(() =>
    widths.value.map((width, at) => (at === widths.value.length - 1 ? `minmax(${width}px, 1fr)` : `${width}px`)).join(' '),
  )
  const minimalWidth = computed(() => widths.value.reduce((sum, width) => sum + width, 0))

  function setWidth(column: number, width: number): void {
    widths.value = widths.value.map((old, at) => (at === column ? Math.max(NARROWEST, width) : old))
    columnWidths.write(className(), name(), widths.value)
  }

  function resizeBy(column: number, pixels: number): void {
    setWidth(column, (widths.value[column] ?? NARROWEST) + pixels)
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

  return { widths, template, minimalWidth, resizeBy, dragEdge }
}
