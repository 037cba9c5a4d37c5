import type {
  Change, ComponentChange, OpenChange, Properties, RowsChange, SetChange,
} from './protocol'
import { RowStore } from './rows'

/** One component as the session last described it. */
export type ComponentState = Properties & {
  readonly window: number
  readonly name: string
  readonly kind: string
  readonly container: string | null
  caption: string
  enabled: boolean
  visible: boolean
  children: string[]
  /** Of lists, trees and grids only. */
  rows?: RowStore
}

export interface WindowState {
  readonly handle: number
  readonly className: string
  readonly modal: boolean
  /** Of message boxes: information, warning, error, confirm. */
  kind?: string
  caption: string
  components: Map<string, ComponentState>
  /** Names of the components that stand on the window itself, in order. */
  children: string[]
  /** A wish of the session for the focus; the count tells a repeated wish from an old one. */
  focus: { name: string | undefined; count: number }
  reveal: { name: string; index: number; count: number }
}

/** Lets a view follow objects: its reactive wrapper, or nothing at all. */
export interface Observer {
  object<T extends object>(value: T): T
  map<K, V>(value: Map<K, V>): Map<K, V>
}

export const noObserver: Observer = { object: value => value, map: value => value }

const ROW_KINDS = new Set(['list', 'tree', 'grid'])

/** The windows of the session, kept in step with it by its changes. */
export class Mirror {
  readonly windows: Map<number, WindowState>
  /** Says whether text typed into the component has not been confirmed yet: it then stays as it is. */
  isTyping: (window: number, name: string) => boolean = () => false
  onFile: (name: string) => void = () => undefined

  constructor(private readonly observer: Observer = noObserver) {
    this.windows = observer.map(new Map<number, WindowState>())
  }

  find(window: number, name: string): ComponentState | undefined {
    return this.windows.get(window)?.components.get(name)
  }

  clear(): void {
    this.windows.clear()
  }

  apply(changes: readonly Change[]): void {
    for (const change of changes) this.applyOne(change)
  }

  private applyOne(change: Change): void {
    if ('open' in change) this.open(change)
    else if ('component' in change) this.add(change)
    else if ('set' in change) this.set(change)
    else if ('rows' in change) this.setRows(change)
    else if ('remove' in change) this.remove(change.remove, change.name)
    else if ('close' in change) this.windows.delete(change.close)
    else if ('focus' in change) this.wishFocus(change.focus, change.name)
    else if ('reveal' in change) this.wishReveal(change.reveal, change.name, change.index)
    else if ('file' in change) this.onFile(change.file)
  }

  private open(change: OpenChange): void {
    const window: WindowState = {
      handle: change.open,
      className: change.class,
      modal: change.modal,
      kind: change.kind,
      caption: change.caption,
      components: this.observer.map(new Map()),
      children: [],
      focus: { name: undefined, count: 0 },
      reveal: { name: '', index: 0, count: 0 },
    }
    this.windows.set(change.open, this.observer.object(window))
  }

  private add(change: ComponentChange): void {
    const window = this.windows.get(change.component)
    if (!window || window.components.has(change.name)) return
    const { component, in: container, ...properties } = change
    const state: ComponentState = this.observer.object({
      caption: '',
      enabled: true,
      visible: true,
      ...properties,
      window: component,
      container: container ?? null,
      children: [],
    })
    if (ROW_KINDS.has(change.kind)) {
      state.rows = this.observer.object(new RowStore())
      if (change.total !== undefined) state.rows.setTotal(change.total)
    }
    window.components.set(change.name, state)
    const parent = state.container === null ? window : window.components.get(state.container)
    parent?.children.push(change.name)
  }

  private remove(handle: number, name: string): void {
    const window = this.windows.get(handle)
    const state = window?.components.get(name)
    if (!window || !state) return
    window.components.delete(name)
    const parent = state.container === null ? window : window.components.get(state.container)
    if (parent) parent.children = parent.children.filter(child => child !== name)
  }

  private set(change: SetChange): void {
    const { set, name, ...properties } = change
    const window = this.windows.get(set)
    if (!window) return
    if (name === undefined) {
      if (properties.caption !== undefined) window.caption = properties.caption
      return
    }
    const state = window.components.get(name)
    if (!state) return
    if (this.isTyping(set, name)) delete properties.value
    Object.assign(state, properties)
    if (properties.total !== undefined) state.rows?.setTotal(properties.total)
  }

  private setRows(change: RowsChange): void {
    this.find(change.rows, change.name)?.rows?.apply(change.first, change.items, change.total)
  }

  private wishFocus(handle: number, name: string | undefined): void {
    const window = this.windows.get(handle)
    if (window) window.focus = { name, count: window.focus.count + 1 }
  }

  private wishReveal(handle: number, name: string, index: number): void {
    const window = this.windows.get(handle)
    if (window) window.reveal = { name, index, count: window.reveal.count + 1 }
  }
}

/** The components in a container that are to be seen, in order. Null stands for the window itself. */
export function shownIn(window: WindowState, container: ComponentState | null): ComponentState[] {
  const names = container === null ? window.children : container.children
  return names
    .map(name => window.components.get(name))
    .filter((state): state is ComponentState => state !== undefined && state.visible)
}

/** Visible and enabled, and so is all that it stands in. */
export function usable(window: WindowState, state: ComponentState): boolean {
  for (let at: ComponentState | undefined = state; at; at = at.container === null ? undefined : window.components.get(at.container))
    if (!at.visible || !at.enabled) return false
  return true
}

/** All components in the order in which a person meets them, containers before what they hold. */
export function inOrder(window: WindowState, container: ComponentState | null = null): ComponentState[] {
  return shownIn(window, container).flatMap(state => [state, ...inOrder(window, state)])
}
