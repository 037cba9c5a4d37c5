import { describe, expect, it } from 'vitest'
import { inOrder, Mirror, shownIn, usable } from '../src/core/mirror'
import type { Change } from '../src/core/protocol'

function mirrorOf(...changes: Change[]) {
  const mirror = new Mirror()
  mirror.apply(changes)
  const window = mirror.windows.get(1)
  if (!window) throw new Error('The window is missing.')
  return { mirror, window }
}

const base: Change[] = [
  { open: 1, class: 'TFormDomains', caption: '域管理', modal: false },
  { component: 1, name: 'Bar', kind: 'group', role: 'bar' },
  { component: 1, name: 'ActNew', kind: 'action', in: 'Bar', caption: '新建' },
  { component: 1, name: 'ActEdit', kind: 'action', in: 'Bar', caption: '修改', enabled: false },
  { component: 1, name: 'DomainTree', kind: 'tree' },
]

describe('changes', () => {
  it('build a window with its components in order', () => {
    const { window } = mirrorOf(...base)
    expect(window.children).toEqual(['Bar', 'DomainTree'])
    expect(inOrder(window).map(state => state.name)).toEqual(['Bar', 'ActNew', 'ActEdit', 'DomainTree'])
  })

  it('set only what they name', () => {
    const { mirror } = mirrorOf(...base, { set: 1, name: 'ActEdit', enabled: true })
    expect(mirror.find(1, 'ActEdit')).toMatchObject({ caption: '修改', enabled: true, visible: true })
  })

  it('of unknown windows and components are passed over', () => {
    const { mirror } = mirrorOf(...base)
    mirror.apply([{ set: 9, name: 'x', caption: 'y' }, { set: 1, name: 'x', caption: 'y' }, { rows: 9, name: 'x', first: 0, items: [] }, { close: 9 }])
    expect(mirror.windows.size).toBe(1)
  })

  it('rename and close a window', () => {
    const { mirror, window } = mirrorOf(...base, { set: 1, caption: 'Domains' })
    expect(window.caption).toBe('Domains')
    mirror.apply([{ close: 1 }])
    expect(mirror.windows.size).toBe(0)
  })

  it('keep what a kind of tomorrow says of itself', () => {
    const { mirror } = mirrorOf(...base, { component: 1, name: 'Future', kind: 'hologram', caption: '?' })
    expect(mirror.find(1, 'Future')?.kind).toBe('hologram')
  })

  it('tell a repeated wish for the focus from an old one', () => {
    const { mirror, window } = mirrorOf(...base, { focus: 1, name: 'DomainTree' })
    expect(window.focus).toEqual({ name: 'DomainTree', count: 1 })
    mirror.apply([{ focus: 1, name: 'DomainTree' }])
    expect(window.focus.count).toBe(2)
  })

  it('take a component away', () => {
    const { mirror, window } = mirrorOf(...base, { remove: 1, name: 'ActNew' }, { remove: 1, name: 'DomainTree' })
    expect(inOrder(window).map(state => state.name)).toEqual(['Bar', 'ActEdit'])
    expect(mirror.find(1, 'DomainTree')).toBeUndefined()
  })

  it('hand on a file', () => {
    const mirror = new Mirror()
    const files: string[] = []
    mirror.onFile = name => files.push(name)
    mirror.apply([{ file: 'users.xml' }])
    expect(files).toEqual(['users.xml'])
  })

  it('drop rows beyond a total that shrank', () => {
    const { mirror } = mirrorOf(...base,
      { rows: 1, name: 'DomainTree', total: 3, first: 0, items: [1, 2, 3].map(id => ({ id, cells: ['x'] })) },
      { rows: 1, name: 'DomainTree', total: 1, first: 0, items: [{ id: 2, cells: ['x'] }] })
    const rows = mirror.find(1, 'DomainTree')?.rows
    expect([rows?.at(0)?.id, rows?.at(1), rows?.indexOf(2), rows?.indexOf(3)]).toEqual([2, undefined, 0, -1])
  })
})

describe('what can be used', () => {
  it('depends on all that it stands in', () => {
    const { mirror, window } = mirrorOf(...base)
    const action = mirror.find(1, 'ActNew')
    if (!action) throw new Error('The action is missing.')
    expect(usable(window, action)).toBe(true)
    mirror.apply([{ set: 1, name: 'Bar', enabled: false }])
    expect(usable(window, action)).toBe(false)
    mirror.apply([{ set: 1, name: 'Bar', enabled: true, visible: false }])
    expect(usable(window, action)).toBe(false)
    expect(shownIn(window, null).map(state => state.name)).toEqual(['DomainTree'])
  })
})
