import { computed, onBeforeUnmount, onMounted, ref, watch, type Ref } from 'vue'
import { DEFAULT_VIEW, type RowStore } from '../core/rows'

export const ROW_HEIGHT = 32
/** Drawn beyond the visible edge, so that scrolling does not show gaps. */
const OVERSCAN = 6
/** Asked for beyond the visible edge. */
const MARGIN = 40

export interface Viewport {
  /** Indexes drawn: [first, last). */
  first: Readonly<Ref<number>>
  last: Readonly<Ref<number>>
  /** Rows that fit on the screen. */
  page: Readonly<Ref<number>>
  scrolled: () => void
  reveal: (index: number) => void
}

/** Which rows a scrolling box shows, and telling the session when that changes. */
export function useViewport(
  box: Ref<HTMLElement | undefined>,
  rows: () => RowStore,
  headHeight: () => number,
  ask: (first: number, last: number) => void,
): Viewport {
  const top = ref(0)
  const height = ref(0)
  const total = computed(() => rows().total)
  const first = computed(() => Math.max(0, Math.floor(top.value / ROW_HEIGHT) - OVERSCAN))
  const last = computed(() => Math.min(total.value, Math.ceil((top.value + height.value) / ROW_HEIGHT) + OVERSCAN))
  const page = computed(() => Math.max(1, Math.floor((height.value - headHeight()) / ROW_HEIGHT) - 1))

  function askForVisible(): void {
    const store = rows()
    if (height.value === 0 || (first.value >= store.first && last.value <= store.last)) return
    const from = Math.max(0, first.value - MARGIN)
    ask(from, from === 0 ? Math.max(DEFAULT_VIEW.last, last.value + MARGIN) : last.value + MARGIN)
  }

  function scrolled(): void {
    if (!box.value) return
    top.value = box.value.scrollTop
    askForVisible()
  }

  function reveal(index: number): void {
    const element = box.value
    if (!element) return
    const rowTop = index * ROW_HEIGHT
    const room = element.clientHeight - headHeight()
    if (rowTop < element.scrollTop) element.scrollTop = rowTop
    else if (rowTop + ROW_HEIGHT > element.scrollTop + room) element.scrollTop = rowTop + ROW_HEIGHT - room
    scrolled()
  }

  const observer = new ResizeObserver(() => {
    height.value = box.value?.clientHeight ?? 0
    askForVisible()
  })
  onMounted(() => { if (box.value) observer.observe(box.value) })
  onBeforeUnmount(() => observer.disconnect())
  watch([total, rows], askForVisible, { flush: 'post' })

  return { first, last, page, scrolled, reveal }
}
