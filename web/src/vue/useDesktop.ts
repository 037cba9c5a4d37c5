import { computed, reactive, watch, type ComputedRef } from 'vue'
import { Desktop } from '../core/desktop'
import type { WindowState } from '../core/mirror'
import type { Session } from '../core/session'

export const MAIN_CLASS = 'TMainForm'

export interface Screen {
  desktop: Desktop
  main: ComputedRef<WindowState | undefined>
  consoles: ComputedRef<WindowState[]>
  /** Dialogs, the topmost last. */
  modals: ComputedRef<WindowState[]>
  /** The window that keys go to. */
  target: ComputedRef<WindowState | undefined>
}

/** Which windows there are and where they stand. */
export function useDesktop(session: Session): Screen {
  const { windows } = session.mirror
  const desktop = reactive(new Desktop()) as Desktop
  const main = computed(() => [...windows.values()].find(window => window.className === MAIN_CLASS))
  const consoles = computed(() => [...windows.values()].filter(window => !window.modal && window !== main.value))
  const modals = computed(() => [...windows.values()].filter(window => window.modal))
  const target = computed(() => modals.value[modals.value.length - 1] ?? windows.get(desktop.front))

  watch(() => consoles.value.map(window => window.handle), handles => desktop.sync(handles), { immediate: true })
  watch(
    () => consoles.value.map(window => `${window.handle}/${window.focus.count}`),
    (now, before) => {
      for (const [at, entry] of now.entries()) {
        const window = consoles.value[at]
        if (window && window.focus.count > 0 && !(before ?? []).includes(entry)) desktop.bring(window.handle)
      }
    },
    { immediate: true },
  )

  return { desktop, main, consoles, modals, target }
}
