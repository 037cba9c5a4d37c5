import assert from 'node:assert/strict'
import { execFileSync } from 'node:child_process'
import { existsSync, readdirSync, readFileSync, statSync } from 'node:fs'
import net from 'node:net'
import { join } from 'node:path'
import { after, before, describe, it } from 'node:test'
import { Page } from './support/page.mjs'
import { Data, Server, right, until } from './support/server.mjs'

const statusesOf = (answer) => [...answer.matchAll(/HTTP\/1\.1 (\d+) /g)].map((match) => Number(match[1]))

describe('somebody hostile', () => {
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

  const head = () => `POST /api/login HTTP/1.1\r\nhost: ${server.host}\r\norigin: ${server.origin}\r\n`
  const hidden = () => `GET /healthz HTTP/1.1\r\nhost: ${server.host}\r\n\r\n`

  it('hides no request in the body of another', async () => {
    const bodies = ['content-length: 5\r\ntransfer-encoding: chunked', 'transfer-encoding: chunked\r\ncontent-length: 5',
      'content-length: 5\r\ncontent-length: 6', 'transfer-encoding: xchunked', 'transfer-encoding: chunked, identity',
      'transfer-encoding: gzip, chunked', 'transfer-encoding: identity', 'transfer-encoding: chunked\r\ntransfer-encoding: x']
    for (const body of bodies) {
      const statuses = statusesOf(await server.exchange(`${head()}${body}\r\n\r\n${hidden()}`))
      assert.equal(statuses.length, 1, `${body}: ${statuses}`)
      assert.ok(statuses[0] === 400 || statuses[0] === 501, `${body}: ${statuses}`)
    }
    const ofGet = `GET /healthz HTTP/1.1\r\nhost: ${server.host}\r\ncontent-length: ${hidden().length}\r\n\r\n${hidden()}`
    assert.deepEqual(statusesOf(await server.exchange(ofGet)), [413])
  })

  it('is told of a body that is broken', async () => {
    for (const chunk of ['-1\r\nabc', 'fffffffffffffffff\r\nabc', 'zz\r\nabc'])
      assert.deepEqual(statusesOf(await server.exchange(`${head()}transfer-encoding: chunked\r\n\r\n${chunk}\r\n0\r\n\r\n`)), [400], chunk)
  })

  it('cannot make a page of another name speak with the server', async () => {
    for (const host of ['evil.example', `evil.example:${server.port}`, 'localhost.evil.example', '192.0.2.1', '[2001:db8::1]', 'localhostx', '@', '[']) {
      const reply = await server.logIn('admin', right, {}, { host, origin: `http://${host}` })
      assert.equal(reply.status, 421, host)
      assert.equal((await server.get('/', { host })).status, 421, host)
    }
    for (const host of [`localhost:${server.port}`, 'LOCALHOST', '127.0.0.1', `[::1]:${server.port}`, 'zan.localhost:8080']) {
      const reply = await server.logIn('admin', right, {}, { host, origin: `http://${host}` })
      assert.equal(reply.status, 200, host)
    }
  })

  it('hears why when a body is far too large', async () => {
    const reply = await server.post('/api/login', 'x'.repeat(20 * 1024 * 1024))
    assert.equal(reply.status, 413)
  })

  it('sends JSON that is deep, broken or no text, and is refused', async () => {
    const bodies = [`{"login":${'['.repeat(7000)}${']'.repeat(7000)}}`, Buffer.from('{"login":"\xff\xfe"}', 'latin1'), '{"login":"\\ud800"}', '{"login":"a"', '']
    for (const body of bodies) assert.equal((await server.post('/api/login', body)).status, 400)
    const page = await Page.open(server, await server.cookieOf('admin'))
    await page.snapshot()
    page.sendRaw(`{"n":1,"do":"set","value":${'['.repeat(100000)}${']'.repeat(100000)}}`)
    await page.line((line) => line.error !== undefined, 'refusal')
    await page.event({ do: 'set', value: 'still here' })
    await page.close()
  })

  it('writes no line of the log', async () => {
    const forged = 'x"\noperator="admin" operation="login" outcome="ok\u2028"'
    await server.logIn(forged, 'wrong')
    const line = data.log().split('\n').find((written) => written.includes('x\\"'))
    assert.match(line, /operator="x\\" operator=\\"admin\\"[^]*" operation="login" outcome="refused: wrong login or password/)
  })

  it('fills the log with no storm of tries', async () => {
    const count = () => data.log().split('\n').filter((line) => line.includes('operator="victim" operation="login"')).length
    for (let i = 0; i < 4; i += 1) await server.logIn('victim', 'wrong')
    const before = count()
    const refused = await Promise.all(Array.from({ length: 30 }, () => server.logIn('victim', 'wrong')))
    assert.ok(refused.every((reply) => reply.status === 429))
    assert.equal(count(), before + 1)
  })
})

describe('an IPv6 network', () => {
  it('counts as one address where logins are slowed down', async () => {
    const data = new Data()
    const server = await Server.start(data, { args: ['--behind-proxy', '127.0.0.1'] })
    try {
      const from = (address, login, password) => server.logIn(login, password, {}, { 'x-forwarded-for': address })
      for (let i = 0; i < 11; i += 1) assert.equal((await from(`2001:db8:0:1::${i + 1}`, `nobody ${i}`, 'wrong')).status, 401)
      assert.equal((await from('2001:db8:0:1:ffff::1', 'admin', right)).status, 429)
      assert.equal((await from('2001:db8:0:2::1', 'admin', right)).status, 200)
    } finally {
      await server.stop()
      data.remove()
    }
  })
})

describe('an upload that breaks off', () => {
  it('leaves nothing and takes no place', async () => {
    const data = new Data()
    const server = await Server.start(data, { args: ['--max-upload', '1000'] })
    try {
      const cookie = await server.cookieOf('admin')
      const page = await Page.open(server, cookie)
      const { args } = await page.report()
      const uploads = join(args[args.indexOf('--files') + 1], 'uploads')
      const start = `POST /api/upload?window=1&name=x HTTP/1.1\r\nhost: ${server.host}\r\norigin: ${server.origin}\r\ncookie: ${cookie}\r\n`
      const tooLarge = `${start}transfer-encoding: chunked\r\n\r\n7d0\r\n${'y'.repeat(2000)}\r\n0\r\n\r\n`
      for (let i = 0; i < 3; i += 1) assert.deepEqual(statusesOf(await server.exchange(tooLarge)), [413])
      await new Promise((gone) => {
        const socket = net.connect(server.port, '127.0.0.1', () => socket.write(`${start}content-length: 900\r\n\r\nhalf`))
        setTimeout(() => socket.destroy(), 300)
        socket.on('close', gone)
      })
      await until(() => existsSync(uploads) && readdirSync(uploads).length === 0, 'nothing was left')
    } finally {
      await server.stop()
      data.remove()
    }
  })
})

describe('what the server makes', () => {
  it('is its owner\'s alone, whatever the caller lets others read', async () => {
    const data = new Data()
    const server = await Server.start(data, { real: true, under: ['sh', '-c', 'umask 0; exec "$@"', 'sh'] })
    try {
      const page = await Page.open(server, await server.cookieOf('admin'))
      await page.snapshot()
      const open = execFileSync('find', [data.folder, '-mindepth', '1', '-perm', '/077'], { encoding: 'utf8' })
      assert.equal(open, '')
      assert.equal(statSync(join(data.folder, 'log', 'zanhost.log')).mode & 0o777, 0o600)
      const worker = execFileSync('pgrep', ['-P', String(server.child.pid)], { encoding: 'utf8' }).trim()
      for (const pid of [server.child.pid, worker])
        assert.match(readFileSync(`/proc/${pid}/limits`, 'utf8'), /^Max core file size +0 +0 /m, 'a core file would hold the key')
    } finally {
      await server.stop()
      data.remove()
    }
  })

  it('may be many connections: the limit of descriptors is raised', async () => {
    const data = new Data()
    const server = await Server.start(data, { under: ['sh', '-c', 'ulimit -S -n 256; exec "$@"', 'sh'] })
    try {
      const limits = readFileSync(`/proc/${server.child.pid}/limits`, 'utf8')
      const [, soft, hard] = /^Max open files +(\d+) +(\d+)/m.exec(limits)
      assert.equal(soft, hard)
    } finally {
      await server.stop()
      data.remove()
    }
  })
})
