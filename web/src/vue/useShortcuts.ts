import { onBeforeUnmount, onMounted } from 'vue'
import { actionFor, cancelAction, defaultAction } from '../core/keys'
import { usable, type ComponentState, type WindowState } from '../core/mirror'
import type { Session } from '../core/session'

const TEXT_TYPES = new Set(['text', 'password', 'number', 'search', ''])

function isEditing(element: HTMLElement): boolean {
  if (element instanceof HTMLTextAreaElement) return true
  return element instanceof HTMLInputElement && TEXT_TYPES.has(element.type)
}

/** Elements that use Enter themselves. */
function usesEnter(element: HTMLElement): boolean {
  return element.closest('button, a, textarea, select, [role="treegrid"], [role="grid"], [role="separator"]') !== null
}

/** Runs the actions of the window that keys go to: shortcuts, Enter for the default one, Escape for cancel. */
export function useShortcuts(session: Session, target: () => WindowState | undefined, frameOf: (window: WindowState) => HTMLElement | null): void {
  /** While the session has not answered yet, what may run is not known here: it decides, and no key is lost. */
  function run(action: ComponentState, window: WindowState, event: KeyboardEvent): void {
    event.preventDefault()
    if (usable(window, action) || !session.settled) session.act(window.handle, action.name)
  }

  function escape(window: WindowState, event: KeyboardEvent): void {
    const cancel = cancelAction(window)
    if (cancel) run(cancel, window, event)
    else if (window.modal) {
      event.preventDefault()
      session.send({ do: 'close', window: window.handle })
    }
  }

  function pressed(event: KeyboardEvent): void {
    const window = target()
    if (!window || event.defaultPrevented || event.isComposing) return
    const element = event.target as HTMLElement
    const action = actionFor(window, event, isEditing(element))
    if (action) return run(action, window, event)
    if (event.ctrlKey || event.altKey || event.metaKey) return
    if (!window.modal && frameOf(window)?.contains(element) !== true) return
    if (event.key === 'Escape') return escape(window, event)
    const byEnter = event.key === 'Enter' && !usesEnter(element) ? defaultAction(window) : undefined
    if (byEnter) run(byEnter, window, event)
  }

  onMounted(() => document.addEventListener('keydown', pressed))
  onBeforeUnmount(() => document.removeEventListener('keydown', pressed))
}
