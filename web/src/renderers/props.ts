import type { ComponentState, WindowState } from '../core/mirror'

export interface RendererProps {
  window: WindowState
  state: ComponentState
  /** The caption is drawn beside the component by what holds it. */
  bare?: boolean
}

/** The element's id on the page; the label of a field refers to it. */
export function elementId(state: ComponentState): string {
  return `c${state.window}-${state.name}`
}
