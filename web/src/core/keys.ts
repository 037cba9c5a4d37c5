import { accessLetter } from './captions'
import { inOrder, usable, type ComponentState, type WindowState } from './mirror'

/** What of a key press counts here; a browser's event fits. */
export interface KeyPress {
  key: string
  ctrlKey: boolean
  altKey: boolean
  shiftKey: boolean
  metaKey: boolean
}

/** Browsers keep these to themselves whatever the page wants; Alt stands in for Ctrl. */
const RESERVED = new Set(['Ctrl+N', 'Ctrl+T', 'Ctrl+W'])

const NAMES: Record<string, string> = {
  ArrowUp: 'Up', ArrowDown: 'Down', ArrowLeft: 'Left', ArrowRight: 'Right', Delete: 'Del', Insert: 'Ins', Escape: 'Esc',
  ' ': 'Space',
}

const LONG_NAMES: Record<string, string> = { Delete: 'Del', Insert: 'Ins', Escape: 'Esc', Return: 'Enter' }

/** A shortcut in one spelling, as a person presses it in a browser: "Ctrl+Alt+Shift+X". */
export function shortcutForBrowser(shortcut: string): string {
  const parts = shortcut.split('+').map(part => part.trim()).filter(part => part !== '')
  const last = parts.pop() ?? ''
  const key = last.length === 1 ? last.toUpperCase() : LONG_NAMES[last] ?? last
  const modifiers = ['Ctrl', 'Alt', 'Shift'].filter(name => parts.some(part => part.toLowerCase() === name.toLowerCase()))
  const spelling = [...modifiers, key].join('+')
  return RESERVED.has(spelling) ? spelling.replace('Ctrl', 'Alt') : spelling
}

/** The same spelling for a key that was pressed. */
export function spelling(press: KeyPress): string {
  const name = NAMES[press.key] ?? (press.key.length === 1 ? press.key.toUpperCase() : press.key)
  const modifiers = [press.ctrlKey || press.metaKey ? 'Ctrl' : '', press.altKey ? 'Alt' : '', press.shiftKey ? 'Shift' : '']
  return [...modifiers.filter(text => text !== ''), name].join('+')
}

/** All keys that run the action, for its tooltip. */
export function keysOf(action: ComponentState): string[] {
  const letter = accessLetter(action.caption)
  return [action.key ? shortcutForBrowser(action.key) : '', letter ? `Alt+${letter}` : ''].filter(text => text !== '')
}

function actions(window: WindowState): ComponentState[] {
  return inOrder(window).filter(state => state.kind === 'action')
}

/**
 * The action of a window that a key press means, whether it may run now or not; undefined when none does and the
 * key is free for others. `editing` says that the press would otherwise change a text.
 */
export function actionFor(window: WindowState, press: KeyPress, editing: boolean): ComponentState | undefined {
  const pressed = spelling(press)
  const wanted = actions(window).find(action => keysOf(action).includes(pressed))
  return wanted && editing && isEditingKey(press) ? undefined : wanted
}

/** Keys that mean something to a person who types: they stay with the field. */
function isEditingKey(press: KeyPress): boolean {
  if (press.altKey) return false
  if (press.ctrlKey || press.metaKey) return /^[acvxyz]$/i.test(press.key) || /^(Arrow|Delete|Insert|Home|End)/.test(press.key)
  return press.key.length === 1 || /^(Arrow|Delete|Insert|Home|End|Backspace|Enter|Page)/.test(press.key)
}

export function defaultAction(window: WindowState): ComponentState | undefined {
  return actions(window).find(action => action.default === true && usable(window, action))
}

export function cancelAction(window: WindowState): ComponentState | undefined {
  return actions(window).find(action => action.cancel === true && usable(window, action))
}
