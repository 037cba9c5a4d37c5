import { describe, expect, it } from 'vitest'
import { chosenShares, ColumnWidths, proposedShares } from '../src/core/columns'
import { Desktop } from '../src/core/desktop'

describe('the desktop', () => {
  it('brings a new console to the front and falls back when it closes', () => {
    const desktop = new Desktop()
    desktop.sync([2])
    desktop.sync([2, 3])
    expect([desktop.front, desktop.split]).toEqual([3, false])
    desktop.sync([2])
    expect(desktop.front).toBe(2)
    desktop.sync([])
    expect(desktop.front).toBe(0)
  })

  it('shows two consoles side by side', () => {
    const desktop = new Desktop()
    desktop.sync([2, 3])
    desktop.move(3)
    expect(desktop).toMatchObject({ left: [2], right: [3], frontLeft: 2, frontRight: 3, active: 'right' })
    desktop.sync([2, 3, 4])
    expect(desktop.right).toEqual([3, 4])
  })

  it('has one half again when a half is empty', () => {
    const desktop = new Desktop()
    desktop.sync([2, 3])
    desktop.move(3)
    desktop.sync([3])
    expect(desktop).toMatchObject({ left: [3], right: [], frontLeft: 3, active: 'left', split: false })
  })

  it('does not move the only console away', () => {
    const desktop = new Desktop()
    desktop.sync([2])
    desktop.move(2)
    expect(desktop).toMatchObject({ left: [2], right: [] })
  })

  it('moves a console back', () => {
    const desktop = new Desktop()
    desktop.sync([2, 3])
    desktop.move(3)
    desktop.move(3)
    expect(desktop).toMatchObject({ left: [2, 3], right: [], frontLeft: 3, active: 'left' })
  })
})

describe('column widths', () => {
  const columns = [{ title: 'a', width: 100 }, { title: 'b', width: 200 }]

  function storeOf(text: string | null) {
    const kept = new Map<string, string>()
    if (text !== null) kept.set('columns/T/List', text)
    return { getItem: (key: string) => kept.get(key) ?? null, setItem: (key: string, value: string) => void kept.set(key, value) }
  }

  it('are nobody\'s own until a person changes them', () => {
    const widths = new ColumnWidths(storeOf(null))
    expect(widths.read('T', 'List', columns)).toBeUndefined()
    widths.write('T', 'List', [90.4, 210])
    expect(widths.read('T', 'List', columns)).toEqual([90, 210])
  })

  it.each(['[90]', '[90,"x"]', '[90,1]', 'nonsense'])('ignore what is stored when it does not fit: %s', text => {
    expect(new ColumnWidths(storeOf(text)).read('T', 'List', columns)).toBeUndefined()
  })
  it('share the room in proportion, and the first column does not shrink', () => {
    const wide = [{ title: 'a', width: 120 }, { title: 'b', width: 200 }, { title: 'c', width: 60 }]
    expect(proposedShares(wide)).toEqual({ template: 'minmax(120px, 120fr) minmax(180px, 200fr) minmax(60px, 60fr)', minimalWidth: 360 })
  })

  it('leave room for their titles', () => {
    const titled = [{ title: '名', width: 20 }, { title: 'Created by', width: 60 }]
    expect(proposedShares(titled).template).toBe('minmax(35px, 20fr) minmax(104px, 60fr)')
  })

  it('stand as a person chose them, and the last column takes the rest', () => {
    expect(chosenShares([90, 210])).toEqual({ template: '90px minmax(210px, 1fr)', minimalWidth: 300 })
  })
})
