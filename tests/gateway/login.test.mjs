import assert from 'node:assert/strict'
import { after, before, describe, it } from 'node:test'
import { Data, Server, right } from './support/server.mjs'

describe('login', () => {
  let data
  let server
  before(async () => {
    data = new Data()
    server = await Server.start(data)
  })
  after(async () => {
    await server.stop()
    data.remove()
  })

  it('gives the session and a cookie that scripts and other sites cannot use', async () => {
    const reply = await server.logIn('admin', right, { language: 'en' })
    assert.equal(reply.status, 200)
    assert.equal(reply.body.login, 'admin')
    assert.equal(reply.body.language, 'en')
    assert.equal(typeof reply.body.name, 'string')
    const cookie = reply.headers['set-cookie'][0]
    assert.match(cookie, /^zanrole=[0-9a-f]{64}; /)
    const flags = cookie.split('; ').slice(1)
    assert.deepEqual(flags.sort(), ['HttpOnly', 'Path=/', 'SameSite=Strict'])
  })

  it('tells who is logged in, and nothing without the cookie', async () => {
    const cookie = await server.cookieOf('admin')
    const session = await server.get('/api/session', { cookie })
    assert.equal(session.status, 200)
    assert.equal(session.body.login, 'admin')
    assert.equal(session.body.language, 'zh')
    assert.equal((await server.get('/api/session')).status, 401)
    assert.equal((await server.get('/api/session', { cookie: `zanrole=${'0'.repeat(64)}` })).status, 401)
  })

  it('refuses a wrong password and an unknown login in the same words', async () => {
    const wrong = await server.logIn('admin', 'wrong')
    const unknown = await server.logIn('nobody at all', 'wrong')
    assert.equal(wrong.status, 401)
    assert.equal(wrong.headers['content-type'], 'application/problem+json')
    assert.deepEqual(unknown.body, wrong.body)
    assert.equal(wrong.headers['set-cookie'], undefined)
  })

  it('takes logins and passwords exactly: case, blanks, quotes, other scripts', async () => {
    assert.equal((await server.logIn('ADMIN', right)).status, 401)
    assert.equal((await server.logIn('admin ', right)).status, 401)
    data.setPassword('admin', `p'"\\ 密码 😀 `)
    assert.equal((await server.logIn('admin', `p'"\\ 密码 😀`)).status, 401)
    assert.equal((await server.logIn('admin', `p'"\\ 密码 😀 `)).status, 200)
    data.setPassword('admin', right)
  })

  it('keeps a disabled account out, and says so only to who knows its password', async () => {
    const known = await server.logIn(data.disabled, right)
    assert.equal(known.status, 401)
    assert.equal(known.body.reason, 'disabled')
    const guessed = await server.logIn(data.disabled, 'wrong')
    assert.equal(guessed.body.reason, 'wrong')
  })

  it('asks for a new password where one is needed, stores it, and lets in with it', async () => {
    const asked = await server.logIn(data.reset, right)
    assert.equal(asked.status, 403)
    assert.equal(asked.body.reset, true)
    const same = await server.logIn(data.reset, right, { newPassword: right })
    assert.equal(same.status, 422)
    const wrong = await server.logIn(data.reset, 'wrong', { newPassword: 'New-Password-2' })
    assert.equal(wrong.status, 401)
    const renewed = await server.logIn(data.reset, right, { newPassword: 'New-Password-2' })
    assert.equal(renewed.status, 200, renewed.text)
    assert.equal(renewed.body.login, data.reset)
    assert.equal((await server.logIn(data.reset, right)).status, 401)
    assert.equal((await server.logIn(data.reset, 'New-Password-2')).status, 200)
  })

  it('does not change the password of an account that needs none', async () => {
    const reply = await server.logIn(data.user, right, { newPassword: 'Other-Password-3' })
    assert.equal(reply.status, 200)
    assert.equal((await server.logIn(data.user, right)).status, 200)
  })

  it('refuses what is no login', async () => {
    assert.equal((await server.post('/api/login', 'no json')).status, 400)
    assert.equal((await server.post('/api/login', '[]')).status, 400)
    assert.equal((await server.post('/api/login', {})).status, 401)
    assert.equal((await server.post('/api/login', 'x'.repeat(20000))).status, 413)
  })

  it('refuses a request that comes from another page, or from none', async () => {
    for (const origin of ['http://evil.example', `http://127.0.0.1:1`, `https://${server.host}`, 'null']) {
      const reply = await server.logIn('admin', right, {}, { origin })
      assert.equal(reply.status, 403, origin)
    }
    const body = JSON.stringify({ login: 'admin', password: right })
    const without = await server.request('POST', '/api/login', { headers: { 'content-length': body.length }, body })
    assert.equal(without.status, 403)
  })

  it('writes each try to the log, and no password anywhere', async () => {
    await server.logIn('admin', 'Secret-Wrong-4')
    await server.cookieOf('admin')
    const log = data.log()
    assert.match(log, /operator="admin" operation="login" outcome="ok \(127\.0\.0\.1\)"/)
    assert.match(log, /operation="login" outcome="refused: wrong login or password \(127\.0\.0\.1\)"/)
    assert.match(log, /outcome="refused: account is disabled/)
    for (const secret of [right, 'Secret-Wrong-4', 'New-Password-2']) {
      assert.ok(!log.includes(secret))
      assert.ok(!server.output.includes(secret))
    }
  })

  it('ends the former session when the same browser logs in anew', async () => {
    const cookie = await server.cookieOf('admin')
    const reply = await server.logIn('admin', right, {}, { cookie })
    assert.equal(reply.status, 200)
    assert.equal((await server.get('/api/session', { cookie })).status, 401)
  })
})

describe('failed logins', () => {
  it('are slowed down more and more, for their login only, and say how long', async () => {
    const data = new Data()
    const server = await Server.start(data)
    try {
      for (let i = 0; i < 4; i += 1) assert.equal((await server.logIn('admin', 'wrong')).status, 401)
      const slowed = await server.logIn('admin', right)
      assert.equal(slowed.status, 429)
      assert.equal(slowed.headers['retry-after'], '1')
      assert.equal((await server.logIn(data.user, right)).status, 200)
      await new Promise((next) => setTimeout(next, 1050))
      assert.equal((await server.logIn('admin', 'wrong')).status, 401)
      const again = await server.logIn('admin', 'wrong')
      assert.equal(again.status, 429)
      assert.equal(again.headers['retry-after'], '2')
      await new Promise((next) => setTimeout(next, 2050))
      assert.equal((await server.logIn('admin', right)).status, 200)
      assert.match(data.log(), /outcome="refused: too many failed tries/)
    } finally {
      await server.stop()
      data.remove()
    }
  })

  it('are slowed down for an address that tries many logins', async () => {
    const data = new Data()
    const server = await Server.start(data)
    try {
      const tries = Array.from({ length: 11 }, (unused, i) => server.logIn(`nobody ${i}`, 'wrong'))
      const replies = await Promise.all(tries)
      assert.ok(replies.every((reply) => reply.status === 401))
      assert.equal((await server.logIn('admin', right)).status, 429)
    } finally {
      await server.stop()
      data.remove()
    }
  })

  it('do not slip through when they come at the same time', async () => {
    const data = new Data()
    const server = await Server.start(data)
    try {
      const replies = await Promise.all(Array.from({ length: 20 }, () => server.logIn('admin', 'wrong')))
      assert.equal(replies.filter((reply) => reply.status === 401).length, 4)
      assert.equal(replies.filter((reply) => reply.status === 429).length, 16)
    } finally {
      await server.stop()
      data.remove()
    }
  })
})
