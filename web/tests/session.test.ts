import { describe, expect, it } from 'vitest'
import { BUSY_DELAY, SLOW_DELAY, TYPING_DELAY } from '../src/core/session'
import { dialogSnapshot, makeBench, settle } from './support'

function opened() {
  const bench = makeBench()
  bench.session.connect()
  bench.socket().onopen?.()
  bench.socket().say(dialogSnapshot())
  return bench
}

describe('typed text', () => {
  it('is shown at once and goes out within 100 ms', () => {
    const { session, clock, socket } = opened()
    session.type(3, 'EditName', '总')
    session.type(3, 'EditName', '总部')
    expect(session.mirror.find(3, 'EditName')?.value).toBe('总部')
    expect(socket().sent).toEqual([])
    expect(TYPING_DELAY).toBeLessThanOrEqual(100)
    clock.pass(TYPING_DELAY)
    expect(socket().sent).toEqual([{ n: 1, do: 'set', window: 3, name: 'EditName', value: '总部' }])
  })

  it('does not wait for a pause in typing', () => {
    const { session, clock, socket } = opened()
    for (let key = 0; key < 10; key++) {
      session.type(3, 'EditName', 'x'.repeat(key + 1))
      clock.pass(TYPING_DELAY / 2)
    }
    expect(socket().sent.length).toBeGreaterThanOrEqual(4)
  })

  it('goes out before the action that follows it', () => {
    const { session, socket } = opened()
    session.type(3, 'EditName', '总部')
    session.act(3, 'BitBtnOk')
    expect(socket().sent.map(event => [event['n'], event['do']])).toEqual([[1, 'set'], [2, 'act']])
  })

  it('is not overwritten by what the session says before it has heard of it', () => {
    const { session, socket } = opened()
    session.type(3, 'EditName', '总部')
    socket().say({ seq: 2, ack: 0, changes: [{ set: 3, name: 'EditName', value: 'old', enabled: false }] })
    expect(session.mirror.find(3, 'EditName')).toMatchObject({ value: '总部', enabled: false })
  })

  it('gives way to what the session says after it has heard of it', () => {
    const { session, clock, socket } = opened()
    session.type(3, 'EditName', ' 总部 ')
    clock.pass(TYPING_DELAY)
    socket().say({ seq: 2, ack: 1, changes: [{ set: 3, name: 'EditName', value: '总部' }] })
    expect(session.mirror.find(3, 'EditName')?.value).toBe('总部')
  })

  it('survives a lost connection when it was never acknowledged', async () => {
    const { session, clock, socket, sockets } = opened()
    session.type(3, 'EditName', '总部')
    clock.pass(TYPING_DELAY)
    socket().onclose?.()
    session.type(3, 'EditName', '总部二')
    clock.pass(1000)
    await settle()
    expect(sockets).toHaveLength(2)
    socket().onopen?.()
    socket().say(dialogSnapshot('总'))
    expect(session.mirror.find(3, 'EditName')?.value).toBe('总部二')
    expect(socket().sent).toEqual([{ n: 1, do: 'set', window: 3, name: 'EditName', value: '总部二' }])
  })

  it('is forgotten with its window', async () => {
    const { session, clock, socket } = opened()
    session.type(3, 'EditName', '总部')
    socket().onclose?.()
    clock.pass(1000)
    await settle()
    socket().onopen?.()
    socket().say({ seq: 1, ack: 0, snapshot: true, changes: [] })
    clock.pass(1000)
    expect(socket().sent).toEqual([])
  })
})

describe('the busy sign', () => {
  it('comes after 300 ms without an acknowledgement and goes with it', () => {
    const { session, clock, socket } = opened()
    session.act(3, 'BitBtnOk')
    clock.pass(BUSY_DELAY - 1)
    expect(session.status.busy).toBe(false)
    clock.pass(1)
    expect(session.status.busy).toBe(true)
    socket().say({ seq: 2, ack: 1, changes: [] })
    expect(session.status.busy).toBe(false)
  })

  it('does not come for a quick answer', () => {
    const { session, clock, socket } = opened()
    session.act(3, 'BitBtnOk')
    socket().say({ seq: 2, ack: 1, changes: [] })
    clock.pass(BUSY_DELAY * 2)
    expect(session.status.busy).toBe(false)
  })
})

describe('work that takes long', () => {
  it('can be cancelled after a while, until it is acknowledged', () => {
    const { session, clock, socket } = opened()
    session.act(3, 'BitBtnOk')
    clock.pass(SLOW_DELAY - 1)
    expect(session.status.slow).toBe(false)
    clock.pass(1)
    expect(session.status.slow).toBe(true)
    session.cancel()
    expect(socket().sent).toContainEqual({ n: 2, do: 'cancel' })
    socket().say({ seq: 2, ack: 1, changes: [] })
    expect(session.status.slow).toBe(true)
    socket().say({ seq: 3, ack: 2, changes: [] })
    expect(session.status.slow).toBe(false)
  })
})

describe('the connection', () => {
  it('is tried again with growing delays and numbers events anew', async () => {
    const { session, clock, socket, sockets } = opened()
    session.act(3, 'BitBtnOk')
    socket().onclose?.()
    expect(session.status.link).toEqual({ is: 'lost', retryIn: 300 })
    clock.pass(300)
    await settle()
    socket().onclose?.()
    expect(session.status.link).toEqual({ is: 'lost', retryIn: 1000 })
    clock.pass(1000)
    await settle()
    expect(sockets).toHaveLength(3)
    socket().onopen?.()
    socket().say(dialogSnapshot())
    session.act(3, 'BitBtnOk')
    expect(socket().sent).toEqual([{ n: 1, do: 'act', window: 3, name: 'BitBtnOk' }])
  })

  it('is not tried again when the login is gone', async () => {
    const { session, clock, socket, sockets, loggedIn } = opened()
    loggedIn.answer = false
    socket().onclose?.()
    clock.pass(300)
    await settle()
    expect(session.status.link).toEqual({ is: 'refused' })
    expect(sockets).toHaveLength(1)
  })

  it('waits on while the server cannot be reached', async () => {
    const { session, clock, socket, sockets, loggedIn } = opened()
    loggedIn.answer = new Error('unreachable')
    socket().onclose?.()
    clock.pass(300)
    await settle()
    expect(session.status.link).toEqual({ is: 'lost', retryIn: 1000 })
    loggedIn.answer = true
    clock.pass(1000)
    await settle()
    expect(sockets).toHaveLength(2)
  })

  it.each(['taken', 'crashed', 'stuck', 'idle', 'stopped', 'ended'] as const)('ends for good when the session says bye: %s', async reason => {
    const { session, clock, socket, sockets } = opened()
    socket().say({ bye: reason })
    expect(session.status.link).toEqual({ is: 'ended', reason })
    clock.pass(60_000)
    await settle()
    expect(sockets).toHaveLength(1)
  })

  it('ends also when the bye comes as a change', () => {
    const { session, socket } = opened()
    socket().say({ seq: 2, ack: 0, changes: [{ bye: 'taken' }] })
    expect(session.status.link).toEqual({ is: 'ended', reason: 'taken' })
  })

  it('sends nothing while it is lost', () => {
    const { session, socket } = opened()
    const before = socket()
    before.onclose?.()
    session.act(3, 'BitBtnOk')
    expect(before.sent).toEqual([])
  })

  it('reports an event that was refused and goes on', () => {
    const { session, socket } = opened()
    const faults: string[] = []
    session.onFault = text => faults.push(text)
    session.act(3, 'BitBtnOk')
    socket().say({ error: 'malformed', n: 1 })
    expect(faults).toEqual(['malformed'])
    expect(session.settled).toBe(true)
  })
})

describe('the looked-at rows', () => {
  it('are told once, and rows outside of them are forgotten', () => {
    const { session, socket } = opened()
    socket().say({ seq: 2, ack: 0, changes: [
      { component: 3, name: 'List', kind: 'list' },
      { rows: 3, name: 'List', total: 500, first: 0, items: Array.from({ length: 60 }, (_, at) => ({ id: at + 1, cells: [`${at}`] })) },
    ] })
    const rows = session.mirror.find(3, 'List')?.rows
    session.view(3, 'List', 40, 100)
    session.view(3, 'List', 40, 100)
    expect(socket().sent).toEqual([{ n: 1, do: 'view', window: 3, name: 'List', first: 40, last: 99 }])
    expect(rows?.at(39)).toBeUndefined()
    expect(rows?.at(40)?.id).toBe(41)
    expect(rows?.total).toBe(500)
  })
})
