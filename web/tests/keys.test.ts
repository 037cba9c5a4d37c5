import { describe, expect, it } from 'vitest'
import { accessLetter, fieldCaption, plainCaption } from '../src/core/captions'
import { actionFor, cancelAction, defaultAction, shortcutForBrowser, type KeyPress } from '../src/core/keys'
import { Mirror } from '../src/core/mirror'

function press(key: string, ...modifiers: ('ctrl' | 'alt' | 'shift')[]): KeyPress {
  return { key, ctrlKey: modifiers.includes('ctrl'), altKey: modifiers.includes('alt'), shiftKey: modifiers.includes('shift'), metaKey: false }
}

function windowOf() {
  const mirror = new Mirror()
  mirror.apply([
    { open: 1, class: 'T', caption: '', modal: true },
    { component: 1, name: 'ActRefresh', kind: 'action', key: 'F5' },
    { component: 1, name: 'ActNew', kind: 'action', key: 'ctrl+n' },
    { component: 1, name: 'ActDelete', kind: 'action', key: 'Del' },
    { component: 1, name: 'ActCopy', kind: 'action', key: 'Ctrl+C' },
    { component: 1, name: 'ActYes', kind: 'action', caption: '是(&Y)', default: true },
    { component: 1, name: 'ActUp', kind: 'action', key: 'Alt+Up' },
    { component: 1, name: 'ActHidden', kind: 'action', key: 'F9', visible: false },
    { component: 1, name: 'ActNo', kind: 'action', cancel: true },
  ])
  const window = mirror.windows.get(1)
  if (!window) throw new Error('The window is missing.')
  return { mirror, window }
}

describe('captions', () => {
  it('lose the mark of their access letter', () => {
    expect([accessLetter('是(&Y)'), plainCaption('是(&Y)')]).toEqual(['Y', '是'])
    expect([accessLetter('&Save'), plainCaption('&Save')]).toEqual(['S', 'Save'])
    expect([accessLetter('R & D'), plainCaption('R & D')]).toEqual(['', 'R & D'])
  })

  it('lose aligning blanks and the colon as labels', () => {
    expect(fieldCaption('名　　称：')).toBe('名称')
    expect(fieldCaption('Name:')).toBe('Name')
  })
})

describe('shortcuts', () => {
  it.each([['Ctrl+N', 'Alt+N'], ['ctrl+s', 'Ctrl+S'], ['Shift+Ctrl+F3', 'Ctrl+Shift+F3'], ['Delete', 'Del'], ['Alt+Up', 'Alt+Up']])(
    'of %s are pressed as %s', (given, pressed) => expect(shortcutForBrowser(given)).toBe(pressed))

  it.each([
    [press('F5'), false, 'ActRefresh'],
    [press('n', 'alt'), false, 'ActNew'],
    [press('Delete'), false, 'ActDelete'],
    [press('y', 'alt'), true, 'ActYes'],
    [press('ArrowUp', 'alt'), false, 'ActUp'],
    [press('F5'), true, 'ActRefresh'],
  ] as const)('find the action (%#)', (key, editing, name) => {
    expect(actionFor(windowOf().window, key, editing)?.name).toBe(name)
  })

  it('leave to a text field what edits text', () => {
    const { window } = windowOf()
    expect(actionFor(window, press('Delete'), true)).toBeUndefined()
    expect(actionFor(window, press('c', 'ctrl'), true)).toBeUndefined()
    expect(actionFor(window, press('c', 'ctrl'), false)?.name).toBe('ActCopy')
  })

  it('of hidden actions are free', () => {
    expect(actionFor(windowOf().window, press('F9'), false)).toBeUndefined()
  })

  it('Enter and Escape find only what may run', () => {
    const { mirror, window } = windowOf()
    expect([defaultAction(window)?.name, cancelAction(window)?.name]).toEqual(['ActYes', 'ActNo'])
    mirror.apply([{ set: 1, name: 'ActYes', enabled: false }])
    expect(defaultAction(window)).toBeUndefined()
  })
})
