// Where the keyboard goes when windows come and go.
import { isField } from '../core/layout'
import { defaultAction } from '../core/keys'
import { inOrder, usable, type ComponentState, type WindowState } from '../core/mirror'
import { elementId } from '../renderers/props'

const FOCUSABLE = 'input:not([disabled]), textarea:not([disabled]), button:not([disabled]), [tabindex="0"]'
const ROWS = new Set(['tree', 'list', 'grid'])

function elementOf(state: ComponentState | undefined): HTMLElement | undefined {
  const element = state && document.getElementById(elementId(state))
  if (!element) return undefined
  return element.matches(FOCUSABLE) ? element : element.querySelector<HTMLElement>(FOCUSABLE) ?? undefined
}

function candidates(window: WindowState): (ComponentState | undefined)[] {
  const all = inOrder(window).filter(state => usable(window, state))
  const fields = all.filter(state => isField(state) && state.readOnly !== true)
  const rows = all.filter(state => ROWS.has(state.kind))
  const buttons = [defaultAction(window), ...all.filter(state => state.kind === 'action')]
  return window.modal ? [...fields, ...rows, ...buttons] : [...rows, ...fields, ...buttons]
}

/** Gives the focus to the component that the session wished for, or to where a person would want to begin. */
export function focusWindow(window: WindowState, frame: HTMLElement | undefined): void {
  const wished = window.focus.name === undefined ? undefined : window.components.get(window.focus.name)
  for (const state of [wished, ...candidates(window)]) {
    const element = elementOf(state)
    if (!element) continue
    element.focus()
    if (element instanceof HTMLInputElement && element.type === 'text') element.select()
    return
  }
  frame?.focus()
}

/** Gives the focus to one component; false when it cannot have it. */
export function focusComponent(window: WindowState, name: string): boolean {
  const element = elementOf(window.components.get(name))
  element?.focus()
  return element !== undefined
}

export function canTakeFocus(element: Element | null | undefined): element is HTMLElement {
  return element instanceof HTMLElement && element !== document.body && element.isConnected
    && !element.hasAttribute('disabled') && element.closest('[inert]') === null && element.getClientRects().length > 0
}
