import assert from 'node:assert/strict'
import { execFileSync } from 'node:child_process'
import { it } from 'node:test'
import { assertTellsNothingOfTheInside } from '../support/inside.mjs'
import { isRunning, until } from '../support/server.mjs'

export function processes(services) {
  /** Calls a function that takes long as `login`. Gives when it was answered. */
  const slow = async (login) => {
    const inputs = { 返回内容: 'Code', 查询条件: services.data.tables.slowCondition }
    const { status, text } = await services.call('GetDomainInfo', inputs, login)
    assert.equal(status, 200, text)
    return performance.now()
  }
  const quick = async (login) => {
    const { status } = await services.call('GetCurUserType', {}, login)
    assert.equal(status, 200)
    return performance.now()
  }
  const pause = (milliseconds) => new Promise((next) => setTimeout(next, milliseconds))
  const childrenOf = (server) => execFileSync('pgrep', ['-P', String(server.child.pid)], { encoding: 'utf8' }).trim().split('\n').map(Number)
  const children = () => childrenOf(services.server)

  const ends = () => services.data.log().split('operation="answer process end"').length - 1

  it('answer the requests of one login in turn', async () => {
    const long = slow('matao')
    await pause(50)
    const after = await Promise.all([quick('matao'), quick('matao')])
    assert.ok(Math.min(...after) > await long)
  })

  it('hold up no other login by a long request', async () => {
    await quick('linjuan')
    const long = slow('matao')
    await pause(50)
    const after = await quick('linjuan')
    assert.ok(after < await long)
  })

  it('answer many logins at the same time, each with its own', async () => {
    const logins = services.data.sql("select UserID from STUsers where uGroup = 0 and UnUsed = 0").split('\n')
    const expected = new Map(logins.map((login) => [login, services.command('call', 'GetAuthDomainIDss', '--user', login).out]))
    const asked = Array.from({ length: 10 }, () => logins).flat()
    const replies = await Promise.all(asked.map((login) => services.call('GetAuthDomainIDss', {}, login)))
    assert.ok(replies.some(({ status }) => status === 200))
    for (const [i, { status, body, headers }] of replies.entries()) {
      if (status === 200) assert.deepEqual(body.out, expected.get(asked[i]), asked[i])
      else assert.deepEqual([status, headers['retry-after']], [503, '1'], 'nobody answers wrong; who is busy says so')
    }
  })

  it('answer the next request when a process was killed', async () => {
    await quick('linjuan')
    const before = children()
    const noticed = ends()
    for (const pid of before) process.kill(pid, 'SIGKILL')
    await until(() => ends() === noticed + before.length, 'the server has noticed it')
    await quick('linjuan')
    assert.equal((await services.ask('listMenus', { login: 'linjuan' })).status, 200)
    assert.ok(children().every((pid) => !before.includes(pid)))
  })

  it('tell who waits when the process was killed', async () => {
    await quick('matao')
    const long = services.call('GetDomainInfo', { 返回内容: 'Code', 查询条件: services.data.tables.slowCondition }, 'matao')
    await pause(150)
    for (const pid of children()) process.kill(pid, 'SIGKILL')
    assert.equal((await long).status, 503)
    await quick('matao')
  })

  const isEmbedded = !services.engine.isServer && 'the embedded database has no connection to lose'
  it('tell nothing of the database server when it is lost', { skip: isEmbedded }, async () => {
    const long = services.call('GetDomainInfo', { 返回内容: 'Code', 查询条件: 'sleep(1) = 0' }, 'matao')
    await pause(300)
    services.data.tables.cut()
    const { status, text } = await long
    assert.equal(status, 503, text)
    assertTellsNothingOfTheInside(text)
    assert.match(services.data.log(), /The connection to the database server/, 'the operator is told')
    await slow('matao')
  })

  it('leave nobody behind when the server ends', async () => {
    const server = await services.serve()
    await services.ask('listMenus', { login: 'linjuan' }, { server })
    const pids = childrenOf(server)
    assert.ok(pids.length > 0)
    assert.deepEqual(await server.stop(), { code: 0, signal: null })
    await until(() => pids.every((pid) => !isRunning(pid)), 'the processes are gone')
  })
}
