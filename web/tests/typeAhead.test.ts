import { describe, expect, it } from 'vitest'
import { beginsWith, rowBeginsWith, TypeAhead, TYPING_PAUSE } from '../src/core/typeAhead'

describe('what a row begins with', () => {
  it.each([
    ['Sales orders', 'sal'],
    ['Sales orders', 'O'],
    ['Sales orders', 'sales o'],
    ['远山控股 (Y0102)', '远'],
    ['远山控股 (Y0102)', 'ysk'],
    ['远山控股 (Y0102)', 'y0102'],
    ['\\远山控股\\华东大区', 'hd'],
    ['阿座', 'az'],
  ])('%s is found by %s', (text, typed) => expect(beginsWith(text, typed)).toBe(true))

  it.each([
    ['Sales orders', 'ales'],
    ['远山控股 (Y0102)', 'sk'],
    ['远山控股 (Y0102)', '0102'],
    ['', 'a'],
  ])('%s is not found by %s', (text, typed) => expect(beginsWith(text, typed)).toBe(false))

  it('is said by any of its cells', () => {
    const row = { id: 1, cells: ['林杰', { text: 'linjie' }] }
    expect([rowBeginsWith(row, 'lj'), rowBeginsWith(row, 'linj'), rowBeginsWith(row, 'x')]).toEqual([true, true, false])
  })
})

describe('keys typed one after the other', () => {
  it('make a word, which the present row may fit', () => {
    const typing = new TypeAhead()
    expect(typing.take('s', 0)).toEqual({ text: 's', fromHere: false })
    expect(typing.take('a', 200)).toEqual({ text: 'sa', fromHere: true })
  })

  it('begin anew after a pause', () => {
    const typing = new TypeAhead()
    typing.take('s', 0)
    expect(typing.take('a', TYPING_PAUSE + 1)).toEqual({ text: 'a', fromHere: false })
  })

  it('go on to the next row while they are the same letter', () => {
    const typing = new TypeAhead()
    typing.take('s', 0)
    expect(typing.take('s', 100)).toEqual({ text: 's', fromHere: false })
  })
})
