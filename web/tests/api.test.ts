import { describe, expect, it } from 'vitest'
import { Api, type Reply } from '../src/core/api'
import { languageFrom, textIn } from '../src/core/texts'

const credentials = { login: 'admin', password: 'x', language: 'zh' }

function apiWith(status: number, body: unknown, headers: Record<string, string> = {}) {
  const reply: Reply = {
    status,
    ok: status < 300,
    headers: { get: name => headers[name] ?? null },
    json: () => (body === undefined ? Promise.reject(new Error('no body')) : Promise.resolve(body)),
  }
  return new Api(() => Promise.resolve(reply))
}

describe('logging in', () => {
  const info = { login: 'admin', name: 'A', language: 'zh' }

  it.each([
    [200, info, { is: 'in', info }],
    [401, { reason: 'wrong' }, { is: 'refused', disabled: false }],
    [401, { reason: 'disabled' }, { is: 'refused', disabled: true }],
    [422, { detail: 'too short', reset: true }, { is: 'reset', detail: 'too short' }],
    [403, { reset: true }, { is: 'reset', detail: '' }],
    [403, { detail: 'foreign origin' }, { is: 'failed', detail: 'foreign origin' }],
    [500, undefined, { is: 'failed', detail: 'HTTP 500' }],
  ] as const)('understands the answer %i', async (status, body, outcome) => {
    expect(await apiWith(status, body).login(credentials)).toEqual(outcome)
  })

  it('waits as long as it is told', async () => {
    expect(await apiWith(429, {}, { 'Retry-After': '7' }).login(credentials)).toEqual({ is: 'slowed', seconds: 7 })
    expect(await apiWith(429, {}).login(credentials)).toEqual({ is: 'slowed', seconds: 5 })
  })

  it('tells nobody logged in from a server that fails', async () => {
    expect(await apiWith(401, {}).session()).toBeNull()
    await expect(apiWith(502, {}).session()).rejects.toThrow('502')
  })
})

describe('texts', () => {
  it('take inserts in both languages', () => {
    expect(textIn('zh', 'slowed', 3)).toContain('3')
    expect(textIn('en', 'unknownKind', 'A', 'b')).toBe('Component “A” of the unknown kind b cannot be shown')
  })

  it('are Chinese unless English is wished for', () => {
    expect([languageFrom('en-GB'), languageFrom('zh-CN'), languageFrom('fr'), languageFrom(null)]).toEqual(['en', 'zh', 'zh', 'zh'])
  })
})
