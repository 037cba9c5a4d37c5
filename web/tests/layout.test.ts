import { describe, expect, it } from 'vitest'
import { arrange, wantsRoom } from '../src/core/layout'
import { Mirror } from '../src/core/mirror'
import type { Change } from '../src/core/protocol'

function arranged(modal: boolean, ...changes: Change[]) {
  const mirror = new Mirror()
  mirror.apply([{ open: 1, class: 'T', caption: '', modal }, ...changes])
  const window = mirror.windows.get(1)
  if (!window) throw new Error('The window is missing.')
  const areas = arrange(window, null)
  return {
    room: wantsRoom(window),
    top: areas.top.map(block => block.members.map(member => member.name).join('+')),
    left: areas.left?.name,
    middle: areas.middle.map(state => state.name),
    foot: areas.foot.map(block => block.members.map(member => member.name).join('+')),
  }
}

const part = (name: string, kind: string, more: object = {}): Change => ({ component: 1, name, kind, ...more })

describe('the rule of layout', () => {
  it('puts the bar on top, the tree left, tabs in the middle, status at the foot', () => {
    expect(arranged(false,
      part('Status', 'group', { role: 'status' }),
      part('Title', 'label'),
      part('DomainTree', 'tree'),
      part('Tabs', 'tabs'),
      part('Bar', 'group', { role: 'bar' }),
    )).toEqual({ room: true, top: ['Title', 'Bar'], left: 'DomainTree', middle: ['Tabs'], foot: ['Status'] })
  })

  it('gives a tree alone the whole middle', () => {
    expect(arranged(false, part('Tree', 'tree'))).toMatchObject({ left: undefined, middle: ['Tree'] })
  })

  it('finds the tree inside a column', () => {
    expect(arranged(false,
      part('Column', 'group', { role: 'column' }), part('Tree', 'tree', { in: 'Column' }), part('List', 'list'),
    )).toMatchObject({ left: 'Column', middle: ['List'] })
  })

  it('keeps a dialog of fields small, with its buttons at the foot', () => {
    expect(arranged(true,
      part('Fields', 'group', { role: 'fields' }),
      part('Name', 'edit', { in: 'Fields' }),
      part('Ok', 'action'), part('Cancel', 'action'),
    )).toEqual({ room: false, top: ['Fields'], left: undefined, middle: [], foot: ['Ok+Cancel'] })
  })

  it('gathers loose fields, and puts what follows the list below it', () => {
    expect(arranged(false, part('A', 'edit'), part('B', 'check'), part('List', 'list'), part('Sum', 'label')))
      .toEqual({ room: true, top: ['A+B'], left: undefined, middle: ['List'], foot: ['Sum'] })
  })

  it('leaves out what is hidden', () => {
    expect(arranged(false, part('Tree', 'tree', { visible: false }), part('List', 'list'))).toMatchObject({ left: undefined, middle: ['List'] })
  })
})
