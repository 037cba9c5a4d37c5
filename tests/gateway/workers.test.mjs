import assert from 'node:assert/strict'
import { execFileSync } from 'node:child_process'
import { closeSync, constants, existsSync, openSync, readFileSync, readdirSync, readlinkSync, rmSync, utimesSync, writeSync } from 'node:fs'
import net from 'node:net'
import { dirname, join } from 'node:path'
import { after, before, describe, it } from 'node:test'
import { Page } from './support/page.mjs'
import { Data, Server, isRunning, right, temporaryFolder, until } from './support/server.mjs'

describe('the worker of a session', () => {
  let data
  before(() => { data = new Data() })
  after(() => data.remove())

  async function withServer(args, use) {
    const server = await Server.start(data, { args })
    try {
      await use(server)
    } finally {
      await server.stop()
    }
  }

  async function openPage(server, login = 'admin') {
    const cookie = await server.cookieOf(login)
    const page = await Page.open(server, cookie)
    const { pid } = await page.report()
    return { cookie, page, pid }
  }

  it('ends only its own login when it is killed', () => withServer([], async (server) => {
    const victim = await openPage(server)
    const other = await openPage(server, data.user)
    process.kill(victim.pid, 'SIGKILL')
    assert.deepEqual(await victim.page.bye(), { bye: 'crashed' })
    assert.equal((await server.get('/api/session', { cookie: victim.cookie })).status, 401)
    assert.equal((await other.page.report()).pid, other.pid)
    assert.match(data.log(), /operation="worker end" outcome="killed by signal 9 \(Killed\)"/)
  }))

  it('is killed when it is stuck, which the person is told', () => withServer(['--stuck', '1'], async (server) => {
    const victim = await openPage(server)
    const other = await openPage(server, data.user)
    victim.page.tell({ do: 'hang' })
    victim.page.tell({ do: 'set', value: 'x' })
    assert.deepEqual(await victim.page.bye(), { bye: 'stuck' })
    await until(() => !isRunning(victim.pid), 'the stuck worker was killed')
    assert.equal((await other.page.report()).pid, other.pid, 'a worker that owes nothing is not stuck')
  }))

  it('ends when nobody was heard of for long, with or without a page', () => withServer(['--idle', '2'], async (server) => {
    const watched = await openPage(server)
    const left = await openPage(server, data.user)
    await left.page.close()
    assert.deepEqual(await watched.page.bye(), { bye: 'idle' })
    await until(() => !isRunning(watched.pid) && !isRunning(left.pid), 'both workers ended')
    assert.equal((await server.get('/api/session', { cookie: left.cookie })).status, 401)
  }))

  it('stays while a person is heard of', () => withServer(['--idle', '2'], async (server) => {
    const { page, pid } = await openPage(server)
    for (let i = 0; i < 7; i += 1) {
      await new Promise((next) => setTimeout(next, 500))
      await page.event({ do: 'set', value: String(i) })
    }
    assert.ok(isRunning(pid))
  }))

  it('is killed when it does not end in time', () => withServer(['--end-limit', '1'], async (server) => {
    const { cookie, page, pid } = await openPage(server)
    await page.event({ do: 'stubborn' })
    await server.post('/api/logout', {}, { cookie })
    await until(() => !isRunning(pid), 'the stubborn worker was killed')
  }))

  it('belongs to a login whatever its name looks like', async () => {
    const name = '--builder'
    data.sql(`update STUsers set UserID = '${name}' where UserID = '${data.user}'`)
    data.setPassword(name, right)
    const server = await Server.start(data, { real: true })
    try {
      const page = await Page.open(server, await server.cookieOf(name))
      const first = await page.snapshot()
      const label = first.changes.find((change) => change.name === 'UserName')
      assert.notEqual(label.text, '[ZanBuilder]')
      await page.close()
    } finally {
      await server.stop()
      data.sql(`update STUsers set UserID = '${data.user}' where UserID = '${name}'`)
      data.setPassword(data.user, right)
    }
  })

  it('adds its statements to the trace, as the login does, and no password', async () => {
    const trace = join(data.folder, 'trace.jsonl')
    const server = await Server.start(data, { real: true, args: ['--trace', trace] })
    const page = await Page.open(server, await server.cookieOf('admin'))
    await page.snapshot()
    await server.logIn(data.reset, right, { newPassword: 'Traced-Password-9' })
    await server.stop()
    const text = readFileSync(trace, 'utf8')
    const statements = text.trim().split('\n').map((line) => JSON.parse(line).text)
    assert.ok(statements.some((statement) => statement.includes('from STUsers A left outer join')), 'of the login')
    assert.ok(statements.some((statement) => statement.includes('from Tree')), 'of the worker')
    assert.ok(statements.some((statement) => /update STUserPasswordStrategy/.test(statement)), 'of the password change')
    for (const secret of [right, 'Traced-Password-9', 'zs1:']) assert.ok(!text.includes(secret))
  })

  it('may complain: each line stands in the log, with the session', () => withServer([], async (server) => {
    const { page } = await openPage(server)
    await page.event({ do: 'complain', value: 'a word of the worker' })
    await until(() => /operator="admin" operation="worker says" outcome="a word of the worker"/.test(data.log()), 'it was logged')
    await page.event({ do: 'complain', value: 'y'.repeat(200000) })
    await page.event({ do: 'set', value: 'still here' })
  }))

  it('may send a line that is none: it is dropped', () => withServer([], async (server) => {
    const { page } = await openPage(server)
    await page.event({ do: 'garbage' })
    assert.match(data.log(), /operation="worker line" outcome="not a JSON object, dropped"/)
  }))

  it('says why when it cannot start', () => withServer(['--worker-program', '/does/not/exist'], async (server) => {
    const cookie = await server.cookieOf('admin')
    const page = await Page.open(server, cookie)
    const bye = await page.bye()
    assert.equal(bye.bye, 'crashed')
    assert.equal(typeof bye.detail, 'string')
    assert.equal((await server.get('/healthz')).status, 200)
  }))

  it('starts no more often than logins are allowed', () => withServer(['--max-sessions', '2'], async (server) => {
    const first = await openPage(server)
    await openPage(server)
    const refused = await server.logIn('admin', 'Right-Password-1')
    assert.equal(refused.status, 503)
    await server.post('/api/logout', {}, { cookie: first.cookie })
    await until(() => !isRunning(first.pid), 'the first ended')
    await until(async () => (await server.logIn('admin', 'Right-Password-1')).status === 200, 'there was room again')
  }))

  it('inherits nothing of the gateway but its line', () => withServer([], async (server) => {
    const { pid } = await openPage(server)
    const port = server.port.toString(16).toUpperCase().padStart(4, '0')
    const inodes = readFileSync('/proc/net/tcp', 'utf8').split('\n').filter((line) => line.includes(`:${port} `))
      .map((line) => `socket:[${line.trim().split(/\s+/)[9]}]`)
    assert.ok(inodes.length > 0)
    const held = readdirSync(`/proc/${pid}/fd`).map((fd) => readlinkSync(`/proc/${pid}/fd/${fd}`))
    assert.deepEqual(held.filter((what) => inodes.includes(what)), [])
  }))
})

/** Writes to a pipe until it takes no more. */
function fill(pipe) {
  try {
    for (;;) writeSync(pipe, Buffer.alloc(1))
  } catch (fault) {
    if (fault.code !== 'EAGAIN') throw fault
  }
}

describe('the end of the server', () => {
  let data
  before(() => { data = new Data() })
  after(() => data.remove())

  async function started() {
    const server = await Server.start(data)
    const pages = []
    for (const login of ['admin', data.user]) {
      const page = await Page.open(server, await server.cookieOf(login))
      pages.push({ page, pid: (await page.report()).pid })
    }
    return { server, pages }
  }

  for (const signal of ['SIGTERM', 'SIGINT']) {
    it(`by ${signal} closes every session and leaves no worker`, async () => {
      const { server, pages } = await started()
      assert.deepEqual(await server.stop(signal), { code: 0, signal: null })
      for (const { page, pid } of pages) {
        assert.deepEqual(await page.bye(), { bye: 'stopped' })
        assert.ok(!isRunning(pid))
      }
      assert.match(data.log(), /operation="worker end" outcome="exit status 0"/)
    })
  }

  it('kills a worker that does not end in time, and still ends in order', async () => {
    const server = await Server.start(data, { args: ['--end-limit', '1'] })
    const page = await Page.open(server, await server.cookieOf('admin'))
    await page.event({ do: 'stubborn' })
    const { pid } = await page.report()
    assert.deepEqual(await server.stop(), { code: 0, signal: null })
    assert.ok(!isRunning(pid))
  })

  it('by SIGKILL ends the workers, too', async () => {
    const { server, pages } = await started()
    await server.stop('SIGKILL')
    for (const { pid } of pages) await until(() => !isRunning(pid), 'the worker ended')
  })

  it('by SIGKILL ends also a worker that is stuck, after ten seconds for what it does', async () => {
    const folder = temporaryFolder()
    const trace = join(folder, 'trace')
    execFileSync('mkfifo', [trace])
    // Held open and never read: once it is full, whoever writes to it is stuck.
    const held = openSync(trace, constants.O_RDWR | constants.O_NONBLOCK)
    const server = await Server.start(data, { real: true, args: ['--trace', trace] })
    const cookie = await server.cookieOf('admin')
    fill(held)
    const page = await Page.open(server, cookie)
    const pid = Number(execFileSync('pgrep', ['-P', String(server.child.pid)], { encoding: 'utf8' }))
    const killed = Date.now()
    await server.stop('SIGKILL')
    await new Promise((next) => setTimeout(next, 5000))
    assert.ok(isRunning(pid), 'an operation has time to end')
    await until(() => !isRunning(pid), 'the stuck worker ended')
    assert.ok(Date.now() - killed < 14000)
    await page.closed
    closeSync(held)
    rmSync(folder, { recursive: true })
  })

  it('comes also while somebody logs in', async () => {
    const server = await Server.start(data, { args: ['--end-limit', '3'] })
    const page = await Page.open(server, await server.cookieOf('admin'))
    await page.event({ do: 'stubborn' })
    // A connection that was there before the end; its login comes after it.
    const body = JSON.stringify({ login: data.user, password: right })
    const socket = net.connect(server.port, '127.0.0.1')
    await new Promise((open) => socket.on('connect', open))
    socket.write(`GET /healthz HTTP/1.1\r\nhost: ${server.host}\r\n\r\n`)
    await new Promise((answered) => socket.once('data', answered))
    const end = server.stop()
    await page.bye()
    socket.write(`POST /api/login HTTP/1.1\r\nhost: ${server.host}\r\norigin: ${server.origin}\r\ncontent-length: ${body.length}\r\n\r\n${body}`)
    const answer = await new Promise((answered) => socket.once('data', (part) => answered(String(part))))
    assert.match(answer, /^HTTP\/1\.1 503 /)
    assert.deepEqual(await end, { code: 0, signal: null })
    socket.destroy()
  })

  it('comes when its terminal is gone, unless it was told to go on', async () => {
    const ended = await Server.start(data)
    assert.deepEqual(await ended.stop('SIGHUP'), { code: 0, signal: null })
    const stays = await Server.start(data, { under: ['sh', '-c', 'trap "" HUP; exec "$@"', 'sh'] })
    stays.child.kill('SIGHUP')
    assert.equal((await stays.get('/healthz')).status, 200)
    await stays.stop()
  })

  it('leaves a worker the time that a service manager\'s signal would take from it', async () => {
    const server = await Server.start(data, { real: true })
    const page = await Page.open(server, await server.cookieOf('admin'))
    await page.snapshot()
    const pid = Number(execFileSync('pgrep', ['-P', String(server.child.pid)], { encoding: 'utf8' }))
    process.kill(pid, 'SIGTERM')
    await page.event({ do: 'view', window: 1, name: 'MenuTree', first: 0, last: 10 })
    await server.stop()
    assert.deepEqual(await page.bye(), { bye: 'stopped' })
    assert.doesNotMatch(data.log().split('\n').slice(-8).join('\n'), /killed by signal/)
  })

  it('leaves no files: those of a killed server are removed by the next', async () => {
    const folderOf = (report) => dirname(report.args[report.args.indexOf('--files') + 1])
    const killed = await Server.start(data)
    const page = await Page.open(killed, await killed.cookieOf('admin'))
    const left = folderOf(await page.report())
    await killed.stop('SIGKILL')
    const living = await Server.start(data)
    const other = await Page.open(living, await living.cookieOf('admin'))
    const used = folderOf(await other.report())
    assert.ok(existsSync(left) && existsSync(used))
    for (const folder of [left, used]) utimesSync(folder, new Date(), new Date(Date.now() - 120000))
    const next = await Server.start(data)
    assert.ok(!existsSync(left))
    assert.ok(existsSync(used), 'a living server keeps its own')
    await next.stop()
    await living.stop()
    assert.ok(!existsSync(used))
  })
})
