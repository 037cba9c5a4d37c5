import { expect, it } from 'vitest'
import { pathSteps } from '../src/core/path'

it.each([
  ['\\远山\\华东', ['远山', '华东']],
  ['\\远山\\', ['远山']],
  ['\\', []],
  ['域：\\远山', undefined],
  ['', undefined],
])('the steps of %s', (text, steps) => expect(pathSteps(text)).toEqual(steps))
