import { shownIn, type ComponentState, type WindowState } from './mirror'

/** Neighbours that are drawn together: one component, loose actions as a bar, loose fields as a field grid. */
export interface Block {
  as: 'component' | 'actions' | 'fields'
  members: ComponentState[]
}

/** Where the parts of a container go. */
export interface Areas {
  top: Block[]
  left: ComponentState | undefined
  middle: ComponentState[]
  foot: Block[]
}

const FIELD_KINDS = new Set(['edit', 'memo', 'check', 'radio', 'combo', 'spin'])
const FILLING_KINDS = new Set(['tree', 'list', 'grid', 'tabs'])
const PLAIN_ROLES = new Set(['bar', 'buttons', 'fields', 'status'])

export function isField(state: ComponentState): boolean {
  return FIELD_KINDS.has(state.kind)
}

/** Takes all the room that it can get. */
export function fills(window: WindowState, state: ComponentState): boolean {
  if (FILLING_KINDS.has(state.kind)) return true
  if (state.kind === 'tab') return shownIn(window, state).some(child => fills(window, child))
  if (state.kind !== 'group' || PLAIN_ROLES.has(state.role ?? '')) return false
  return shownIn(window, state).some(child => fills(window, child))
}

function holdsTree(window: WindowState, state: ComponentState): boolean {
  if (state.kind === 'tree') return true
  return state.kind === 'group' && shownIn(window, state).some(child => holdsTree(window, child))
}

/**
 * The one rule of layout: bars on top, status and buttons at the foot, a tree left, the rest shares the middle.
 * What follows the first filling part goes to the foot too.
 */
export function arrange(window: WindowState, container: ComponentState | null): Areas {
  const shown = shownIn(window, container)
  const filling = shown.filter(state => fills(window, state))
  const left = filling.length > 1 ? filling.find(state => holdsTree(window, state)) : undefined
  const firstFilling = shown.findIndex(state => filling.includes(state))
  const atFoot = (state: ComponentState, index: number) => {
    if (state.role === 'bar') return false
    if (state.role === 'status' || state.role === 'buttons') return true
    if (state.kind === 'action') return window.modal && container === null
    return firstFilling >= 0 && index > firstFilling
  }
  const rest = shown.map((state, index) => ({ state, foot: atFoot(state, index) })).filter(({ state }) => !filling.includes(state))
  return {
    top: blocks(rest.filter(({ foot }) => !foot).map(({ state }) => state)),
    left,
    middle: filling.filter(state => state !== left),
    foot: blocks(rest.filter(({ foot }) => foot).map(({ state }) => state)),
  }
}

function blocks(states: ComponentState[]): Block[] {
  const result: Block[] = []
  for (const state of states) {
    const as = state.kind === 'action' ? 'actions' : isField(state) ? 'fields' : 'component'
    const last = result[result.length - 1]
    if (last && as !== 'component' && last.as === as) last.members.push(state)
    else result.push({ as, members: [state] })
  }
  return result
}

/** A dialog with a part that fills wants room; one of fields alone does not. */
export function wantsRoom(window: WindowState): boolean {
  return shownIn(window, null).some(state => fills(window, state))
}
